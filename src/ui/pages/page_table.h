#pragma once

// Which widget a page is. A new screen adds its row; a page without a row isn't in this program.

#include "frame/mainform.h"
#include "frame/pages.h"
#include "frame/session.h"

#include <span>

class QWidget;

namespace ui {

/// What a page is made with; all of it outlives the page.
struct PageContext {
    frame::Session& session;
    frame::mainform& main_form;
    frame::Pages& pages;
};

struct PageRow {
    frame::Page page;
    QWidget* (*make)(const PageContext& context, QWidget* parent);
};

std::span<const PageRow> page_table();

} // namespace ui
