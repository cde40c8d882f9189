#include "frame/mainform.h"

#include "base/literals.h"
#include "frame/help.h"

namespace frame {

using namespace base;

namespace {

constexpr int end_button = 5;
constexpr Button midasi[]{
    {1, u"出勤入力", u"top_ent.BMP", u"top_ent_b.BMP"},
    {2, u"集計表", u"top_rov.BMP", u"top_rov_b.BMP"},
    {3, u"マスター", u"top_mst.BMP", u"top_mst_b.BMP"},
    {4, u"ヘルプ", u"top_help.BMP", u"top_help_b.BMP"},
    {end_button, u"終了", u"top_end.BMP", u"top_end_b.BMP"},
};

// `mst_kyuka` isn't among them: it stays open under the next page.
constexpr Page closed_by_top_button[]{Page::ent_rovena, Page::rov_00, Page::rov_01, Page::mst_00, Page::mst_syain,
    Page::mst_kinjikan, Page::mst_kinsyu, Page::mst_kintype, Page::mst_kihon, Page::info};

// `mst_kihon` isn't among them: it goes down with the frame.
constexpr Page closed_at_the_end[]{Page::errform, Page::ent_rovena, Page::rov_00, Page::rov_01, Page::mst_00,
    Page::mst_syain, Page::mst_kinjikan, Page::mst_kinsyu, Page::mst_kintype, Page::mst_kyuka, Page::info};

// Reached from another page, and open instead of it.
constexpr Page closed_where_open[]{Page::ent_torikomi, Page::ent_jyougen, Page::ent_itiran};

void close_all(Pages& pages, std::span<const Page> closed) {
    for (const Page page : closed)
        pages.close(page);
    for (const Page page : closed_where_open)
        if (pages.is_open(page))
            pages.close(page);
}

} // namespace

std::span<const Button> midasi_buttons() {
    return midasi;
}

mainform::mainform(Session session, Pages& pages, std::function<void()> backup)
    : work(session.host), date_entry(session.settings), m_session(session), m_pages(pages),
      m_backup(std::move(backup)) {}

void mainform::Form_Load() {
    gamenno = u"0"_s;
    show_info();
}

void mainform::midasi_Click(int index) {
    if (index == end_button && !wants_to_end())
        return;
    if (!m_pages.may_close())
        return;
    flab.clear();
    notify();
    close_all(m_pages, closed_by_top_button);
    switch (index) {
    case 1:
        return m_pages.show(Page::ent_rovena);
    case 2:
        gamenno = u"2"_s;
        return m_pages.show(Page::rov_00);
    case 3:
        return m_pages.show(Page::mst_00);
    case 4:
        return ヘルプ表示(m_session.settings, m_session.host, u"mainform"_s);
    case end_button:
        Tag = u"end"_s;
        return m_pages.unload_frame();
    }
}

void mainform::show_info() {
    if (m_session.settings.special_soft != 1)
        m_pages.show(Page::info);
}

bool mainform::Form_QueryUnload() {
    if (Tag.isEmpty() && !(wants_to_end() && m_pages.may_close()))
        return false;
    close_all(m_pages, closed_at_the_end);
    if (m_backup)
        m_backup();
    return true;
}

bool mainform::wants_to_end() {
    return m_session.host.ask(u"終了しますか？"_s, u"終了"_s, platform::Buttons::YesNo) == platform::Answer::Yes;
}

void mainform::show_link_state(const QString& mark) {
    stalab = mark;
    notify();
}

void mainform::notify() const {
    if (changed)
        changed();
}

} // namespace frame
