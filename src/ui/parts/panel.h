#pragma once

// Panel: a white sheet on a page with a heading, for controls that belong together.

#include <QVBoxLayout>
#include <QWidget>

namespace ui {

class Panel : public QWidget {
    Q_OBJECT
public:
    Panel(const QString& heading, QWidget* parent);

    QVBoxLayout* body() const { return m_body; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_body;
};

} // namespace ui
