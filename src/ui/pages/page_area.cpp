#include "ui/pages/page_area.h"

#include "ui/entry/ent_rovena_page.h"

#include <algorithm>

namespace ui {

PageArea::PageArea(frame::Session& session, frame::mainform& main_form, std::span<const PageRow> table, QWidget* parent)
    : QStackedWidget(parent), m_context{session, main_form, *this}, m_table(table) {
    addWidget(new QWidget(this));
}

const PageRow* PageArea::row_of(frame::Page page) const {
    const auto row = std::ranges::find(m_table, page, &PageRow::page);
    return row == m_table.end() ? nullptr : &*row;
}

bool PageArea::has(frame::Page page) const {
    return row_of(page) != nullptr;
}

QWidget* PageArea::page(frame::Page page) const {
    const auto open = m_open.find(page);
    return open == m_open.end() ? nullptr : open->second;
}

void PageArea::show(frame::Page page) {
    const PageRow* row = row_of(page);
    if (row == nullptr)
        return;
    QWidget* widget = this->page(page);
    if (widget == nullptr) {
        widget = row->make(m_context, this);
        addWidget(widget);
        m_open[page] = widget;
    }
    setCurrentWidget(widget);
}

void PageArea::close(frame::Page page) {
    QWidget* widget = this->page(page);
    if (widget == nullptr)
        return;
    m_open.erase(page);
    removeWidget(widget);
    widget->hide();
    widget->deleteLater(); // the page may be in the middle of the click that closes it
}

bool PageArea::may_close() {
    return std::ranges::all_of(m_open, [](const auto& open) {
        auto* month = qobject_cast<ent_rovena_page*>(open.second);
        return !month || month->may_close();
    });
}

void PageArea::unload_frame() {
    window()->close();
}

} // namespace ui
