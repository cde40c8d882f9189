#include "ui/page_table.h"

#include "frame/menus.h"
#include "ui/ent_rovena_page.h"
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

QWidget* make_ent_rovena(const PageContext& context, QWidget* parent) {
    auto* page = new ent_rovena_page(context.session, parent);
    QObject::connect(page, &ent_rovena_page::close_wanted, page, [&pages = context.pages, &form = context.main_form] {
        pages.close(frame::Page::ent_rovena);
        form.show_info();
    });
    return page;
}

constexpr PageRow table[]{
    {frame::Page::ent_rovena, make_ent_rovena},
    {frame::Page::rov_00, make_menu<frame::rov_00>},
    {frame::Page::mst_00, make_menu<frame::mst_00>},
};

} // namespace

std::span<const PageRow> page_table() {
    return table;
}

} // namespace ui
