#pragma once

// What every screen with a form is: a widget that shows what its form says after each act of the person. The controls
// refer to the form and tell it of keys and of the keyboard's going, so they must go while form and screen are whole: a
// screen is made as Whole<Screen>, which sees to that, and can't be made otherwise.

#include <QScopeGuard>
#include <QWidget>

namespace ui {

template <typename Page>
class Whole;

template <typename Widget>
class Acting : public Widget {
protected:
    using Widget::Widget;

    /// Gives back what the act gives. What it came to is shown even if it is broken off by an error.
    template <typename Act>
    auto act(Act&& of_the_person) {
        const auto show = qScopeGuard([this] { refresh(); });
        return of_the_person();
    }

    /// Shows all that the form says, and moves the keyboard where the form wants it.
    virtual void refresh() = 0;

private:
    template <typename Page>
    friend class Whole;
    virtual void only_as_whole() = 0;
};

template <typename Page>
class Whole final : public Page {
public:
    using Page::Page;
    ~Whole() override { qDeleteAll(this->template findChildren<QWidget*>(Qt::FindDirectChildrenOnly)); }

private:
    void only_as_whole() override {}
};

} // namespace ui
