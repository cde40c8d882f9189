#pragma once

// The part of the main window in which pages lie: one in view, or none and a calm ground.

#include "ui/pages/page_table.h"

#include <QStackedWidget>
#include <map>

namespace ui {

class PageArea : public QStackedWidget, public frame::Pages {
    Q_OBJECT
public:
    /// Refers to the session and the form, which outlive it; neither is used before the first page is shown.
    PageArea(
        frame::Session& session, frame::mainform& main_form, std::span<const PageRow> table, QWidget* parent = nullptr);

    bool has(frame::Page page) const override;
    void show(frame::Page page) override;
    void close(frame::Page page) override;
    bool is_open(frame::Page page) const override { return m_open.contains(page); }
    bool may_close() override;
    void unload_frame() override;

    /// The widget of an open page; null if it isn't open.
    QWidget* page(frame::Page page) const;

private:
    const PageRow* row_of(frame::Page page) const;

    PageContext m_context;
    std::span<const PageRow> m_table;
    std::map<frame::Page, QWidget*> m_open;
};

} // namespace ui
