#include "ui/page_table.h"

#include "frame/menus.h"
#include "ui/menu_page.h"

#include <memory>

namespace ui {

namespace {

/// Both menus have the same outside.
template <typename Menu>
QWidget* make_menu(const PageContext& context, QWidget* parent) {
    const auto form = std::make_shared<Menu>(context.main_form, context.pages);
    std::vector<MenuEntry> entries;
    for (const frame::Button& button : Menu::buttons())
        entries.push_back({&button, form->comment(button.index)});
    return new MenuPage(Menu::Caption, entries, frame::picture_folder(context.session.settings),
        {[form](int index) { form->botan_Click(index); }, [form] { form->endbotan_Click(); }}, parent);
}

constexpr PageRow table[]{
    {frame::Page::rov_00, make_menu<frame::rov_00>},
    {frame::Page::mst_00, make_menu<frame::mst_00>},
};

} // namespace

std::span<const PageRow> page_table() {
    return table;
}

} // namespace ui
