#include "report_screen.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "platform/paths.h"
#include "printed.h"
#include "support/person.h"
#include "ui/pages/ken_mst_dialog.h"
#include "ui/paper/print_shop.h"

#include <QFile>

namespace tour {

using namespace base;
using e2e::demand;

namespace {

constexpr base::Cell head_of_ya{2, 2};
constexpr base::Cell ya{0, 0}; ///< once its line is open
constexpr QStringView first_employee = u"社員番号 開始";
constexpr QStringView last_employee = u"社員番号 終了";

} // namespace

ReportScreen::ReportScreen(Tour& tour, const ReportLook& look) : m_tour(tour), m_clerk(tour.clerk()), m_look(look) {
    m_clerk.press_button(u"集計表"_s);
    m_clerk.press_button(look.title.toString());
    demand(report().帳票番号 == look.number, u"\"%1\" opens another report"_s.arg(look.title));
}

ui::rov_01_page& ReportScreen::page() {
    auto* page = qobject_cast<ui::rov_01_page*>(m_tour.program().window().pages().currentWidget());
    demand(page != nullptr, u"the report screen isn't in view"_s);
    return *page;
}

void ReportScreen::type_into(const QString& box, const QString& text) {
    m_clerk.click_box(box);
    m_clerk.type_line(text);
}

void ReportScreen::choose_month(QDate month) {
    m_clerk.step_to(*page().conditions().yyyymm(reports::rov_01::year_box), digits(month.year()));
    m_clerk.step_to(*page().conditions().yyyymm(reports::rov_01::month_box), digits(month.month()));
}

void ReportScreen::type_days(QDate from, QDate to) {
    for (const QDate day : {from, to})
        m_clerk.type_line(day.toString(u"yyyyMMdd"_s));
    const auto& shown = report().conditions.ymd;
    demand(shown == std::array{from.toString(u"yyyy/M/d"_s), to.toString(u"yyyy/M/d"_s)},
        u"not the dates that were typed: %1, %2"_s.arg(shown[0], shown[1]));
}

void ReportScreen::type_employees(const QString& from, const QString& to) {
    type_into(first_employee.toString(), from);
    m_clerk.type_line(to);
    demand(!report().conditions.ntancd[0].isEmpty() && !report().conditions.ntancd[1].isEmpty(),
        u"%1 or %2 is nobody's number"_s.arg(from, to));
}

QString ReportScreen::search_employee(const QString& picture_name) {
    m_clerk.click_box(first_employee.toString());
    support::press(Qt::Key_F1);
    demand(page().search() != nullptr, u"F1 opens no search"_s);
    ui::ken_mst_dialog& search = *page().search();
    QApplication::setActiveWindow(&search);
    support::click_cell(*search.hyou_go(), head_of_ya.row, head_of_ya.col);
    support::click_cell(*search.hyou_go(), ya.row, ya.col);
    m_tour.picture_of(search, picture_name);
    demand(search.form().hyou.Rows() > 1, u"nobody's reading holds the kana"_s);
    const QString found = search.form().hyou(1, common::ken_mst::number_col);
    support::press(Qt::Key_Return);
    demand(report().conditions.tancd[0] == found, u"the search doesn't give %1"_s.arg(found));
    type_into(last_employee.toString(), found);
    return found;
}

void ReportScreen::extract() {
    m_clerk.press_button(u"抽出"_s);
    demand(report().hyou.contains(m_look.name.row, m_look.name.col) && !cell(m_look.name).isEmpty(),
        u"\"%1\" has no rows"_s.arg(m_look.title));
}

void ReportScreen::put_out(const QString& name, const QStringList& texts) {
    preview(u"preview-"_s + name);
    m_clerk.press_button(u"印刷"_s);
    keep_printed(name, 1, texts);
    make_file(name);
    m_tour.picture(u"screen-"_s + name);
}

void ReportScreen::preview(const QString& picture_name) {
    m_tour.boxes().await(u"印刷プレビュー"_s, u"閉じる"_s, picture_name);
    m_clerk.press_button(u"プレビュー"_s);
    demand(m_tour.boxes().answered(), u"the preview doesn't open"_s);
}

void ReportScreen::keep_printed(const QString& name, int pages, QStringList texts) {
    const QStringList opened = m_tour.host().take_opened();
    demand(opened.size() == 1, u"%1 files were opened: %2"_s.arg(opened.size()).arg(opened.join(u' ')));
    const QString printed = platform::portable(opened.first());
    demand(printed.startsWith(ui::print_folder(m_tour.settings())), u"printed elsewhere: "_s + printed);
    const QString kept = m_tour.out().filePath(name + u".pdf"_s);
    QFile::remove(kept);
    demand(QFile::rename(printed, kept), u"can't move %1 to %2"_s.arg(printed, kept));
    texts << m_look.title.toString();
    demand_none(faults_of_pdf(kept, pages, texts), kept);
}

void ReportScreen::make_file(const QString& name) {
    const QString path = m_tour.out().absoluteFilePath(name + u".csv"_s);
    m_tour.host().answer_save(platform::native(path));
    m_clerk.press_button(u"ファイル作成"_s);
    demand_none(faults_of_csv(path, report()), path);
}

} // namespace tour
