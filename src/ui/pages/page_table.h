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
    /// Made as a child of `parent`, which owns it. Throws what its form throws where it can't be loaded.
    QWidget* (*make)(const PageContext& context, QWidget* parent);
};

/// Every page of this program, in no order that matters.
std::span<const PageRow> page_table();

} // namespace ui
