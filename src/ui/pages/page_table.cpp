#include "ui/pages/page_table.h"

#include "frame/menus.h"
#include "ui/entry/ent_rovena_page.h"
#include "ui/intake/ent_torikomi_page.h"
#include "ui/limits/ent_jyougen_page.h"
#include "ui/masters/mst_kinjikan_page.h"
#include "ui/masters/mst_kinsyu_page.h"
#include "ui/masters/mst_kintype_page.h"
#include "ui/masters/mst_kyuka_page.h"
#include "ui/masters/mst_syain_page.h"
#include "ui/overview/ent_itiran_page.h"
#include "ui/pages/errform_page.h"
#include "ui/pages/info_page.h"
#include "ui/pages/menu_page.h"
#include "ui/pages/mst_kihon_page.h"
#include "ui/pages/rov_01_page.h"

#include <memory>
#include <utility>

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
    auto* page = new Whole<ent_rovena_page>(context.session, parent);
    QObject::connect(page, &ent_rovena_page::close_wanted, page, [&pages = context.pages, &form = context.main_form] {
        pages.close(frame::Page::ent_rovena);
        form.show_info();
    });
    QObject::connect(page, &ent_rovena_page::import_wanted, page, [&pages = context.pages] {
        pages.close(frame::Page::ent_rovena);
        pages.show(frame::Page::ent_torikomi);
    });
    QObject::connect(page, &ent_rovena_page::limits_wanted, page, [&pages = context.pages] {
        pages.close(frame::Page::ent_rovena);
        pages.show(frame::Page::ent_jyougen);
    });
    QObject::connect(page, &ent_rovena_page::overview_wanted, page,
        [&pages = context.pages, &form = context.main_form](frame::MonthInHand in_hand) {
            in_hand.only_off = form.overview_at.only_off;
            form.overview_at = in_hand;
            pages.close(frame::Page::ent_rovena);
            pages.show(frame::Page::ent_itiran);
        });
    if (const auto day = std::exchange(context.main_form.day_to_open, std::nullopt))
        QMetaObject::invokeMethod(
            page, [page, day] { page->open_day(*day); }, Qt::QueuedConnection);
    return page;
}

void leave_overview(frame::Pages& pages, frame::mainform& form, const frame::MonthInHand& day) {
    if (!day.employee.none())
        form.day_to_open = day;
    pages.close(frame::Page::ent_itiran);
    pages.show(frame::Page::ent_rovena);
}

/// Attendance entry opens at the day that is wanted, or as it was left.
QWidget* make_ent_itiran(const PageContext& context, QWidget* parent) {
    auto* page = new Whole<ent_itiran_page>(context.session, context.main_form.overview_at, parent);
    QObject::connect(page, &ent_itiran_page::close_wanted, page,
        [&pages = context.pages, &form = context.main_form] { leave_overview(pages, form, form.overview_at); });
    QObject::connect(page, &ent_itiran_page::day_wanted, page,
        [&pages = context.pages, &form = context.main_form](
            const frame::MonthInHand& day) { leave_overview(pages, form, day); });
    return page;
}

QWidget* make_ent_torikomi(const PageContext& context, QWidget* parent) {
    auto* page = new Whole<ent_torikomi_page>(context.session, context.main_form.work, parent);
    QObject::connect(page, &ent_torikomi_page::close_wanted, page, [&pages = context.pages] {
        pages.close(frame::Page::ent_torikomi);
        pages.show(frame::Page::ent_rovena);
    });
    return page;
}

QWidget* make_ent_jyougen(const PageContext& context, QWidget* parent) {
    auto* page = new Whole<ent_jyougen_page>(context.session, parent);
    QObject::connect(page, &ent_jyougen_page::close_wanted, page, [&pages = context.pages] {
        pages.close(frame::Page::ent_jyougen);
        pages.show(frame::Page::ent_rovena);
    });
    return page;
}

QWidget* make_info(const PageContext& context, QWidget* parent) {
    std::function<void()> show_errors;
    if (context.pages.has(frame::Page::errform))
        show_errors = [&pages = context.pages] { pages.show(frame::Page::errform); };
    return new info_page(context.session, std::move(show_errors), parent);
}

/// A master leads back to the menu of the masters.
template <typename MasterPage, frame::Page page>
QWidget* make_master(const PageContext& context, QWidget* parent) {
    auto* master = new Whole<MasterPage>(context.session, parent);
    QObject::connect(master, &MasterPage::close_wanted, master, [&pages = context.pages] {
        pages.close(page);
        pages.show(frame::Page::mst_00);
    });
    return master;
}

QWidget* make_rov_01(const PageContext& context, QWidget* parent) {
    auto* page = new Whole<rov_01_page>(context.session, context.main_form, parent);
    QObject::connect(page, &rov_01_page::close_wanted, page, [&pages = context.pages] {
        pages.close(frame::Page::rov_01);
        pages.show(frame::Page::rov_00);
    });
    return page;
}

QWidget* make_errform(const PageContext& context, QWidget* parent) {
    auto* page = new Whole<errform_page>(context.session, parent);
    QObject::connect(page, &errform_page::close_wanted, page, [&pages = context.pages, &form = context.main_form] {
        pages.close(frame::Page::errform);
        form.show_info();
    });
    return page;
}

constexpr PageRow table[]{
    {frame::Page::ent_rovena, make_ent_rovena},
    {frame::Page::ent_torikomi, make_ent_torikomi},
    {frame::Page::ent_jyougen, make_ent_jyougen},
    {frame::Page::ent_itiran, make_ent_itiran},
    {frame::Page::info, make_info},
    {frame::Page::rov_00, make_menu<frame::rov_00>},
    {frame::Page::rov_01, make_rov_01},
    {frame::Page::mst_00, make_menu<frame::mst_00>},
    {frame::Page::mst_syain, make_master<mst_syain_page, frame::Page::mst_syain>},
    {frame::Page::mst_kyuka, make_master<mst_kyuka_page, frame::Page::mst_kyuka>},
    {frame::Page::mst_kinsyu, make_master<mst_kinsyu_page, frame::Page::mst_kinsyu>},
    {frame::Page::mst_kinjikan, make_master<mst_kinjikan_page, frame::Page::mst_kinjikan>},
    {frame::Page::mst_kintype, make_master<mst_kintype_page, frame::Page::mst_kintype>},
    {frame::Page::mst_kihon, make_master<mst_kihon_page, frame::Page::mst_kihon>},
    {frame::Page::errform, make_errform},
};

} // namespace

std::span<const PageRow> page_table() {
    return table;
}

} // namespace ui
