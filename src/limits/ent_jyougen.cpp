#include "limits/ent_jyougen.h"

#include "base/columns.h"
#include "base/company_month.h"
#include "base/era.h"
#include "base/literals.h"
#include "common/save_path.h"
#include "common/sheet_csv.h"
#include "limits/words.h"

#include <algorithm>

namespace limits {

using namespace base;

namespace {

const QString report = u"上限の確認"_s; ///< remembers its folder under this name
constexpr int number_col = 0;
constexpr int name_col = 1;
constexpr int level_col = 2;
constexpr int first_measure_col = 3;
constexpr int lines_col = first_measure_col + measure_count;

QString month_text(int month_key, const frame::Session& session) {
    const QDate today = session.host.now().date();
    return u"%1年%2月"_s.arg(shown_year({month_key / 100, month_key % 100, 1}, session.settings, today))
        .arg(month_key % 100);
}

bool is_off(const Looked& employee) {
    return employee.judgement.level != Level::Fine;
}

} // namespace

void ent_jyougen::Form_Load() {
    const QDate today = m_session.host.now().date();
    m_month = CompanyMonth::of(today, m_session.settings.month_start_day).month_key();
    read_again();
}

void ent_jyougen::step_month(int months) {
    m_month = month_after(m_month, months);
    read_again();
}

void ent_jyougen::read_again() {
    look = look_at(m_session, m_month);
    ym = month_text(m_month, m_session);
    const auto count = [&](Level level) {
        return std::ranges::count(look.employees, level, [](const Looked& of) { return of.judgement.level; });
    };
    msglab = u"%1人　超過 %2人　注意 %3人"_s.arg(look.employees.size()).arg(count(Level::Over)).arg(count(Level::Near));
    notice = look.kept.chosen ? QString() : u"何を数えるかは、名前から選んであります。「決まり」で確かめてください。"_s;
    choose_shown();
}

void ent_jyougen::set_only_off(bool on) {
    only_off = on;
    choose_shown();
}

void ent_jyougen::choose_shown() {
    shown.clear();
    for (int i = 0; i < look.employees.size(); ++i)
        if (!only_off || is_off(look.employees[i]))
            shown << i;
}

const Looked* ent_jyougen::at(int place) const {
    return place < 0 || place >= shown.size() ? nullptr : &look.employees[shown[place]];
}

int ent_jyougen::place_of(EmployeeKey employee) const {
    const auto found = std::ranges::find(shown, employee, [&](int i) { return look.employees[i].figures.key; });
    return found == shown.end() ? -1 : int(found - shown.begin());
}

QStringList ent_jyougen::lines(int place) const {
    const Looked* employee = at(place);
    return employee == nullptr ? QStringList() : lines_of(employee->judgement, look.kept.rules, look.span);
}

bool ent_jyougen::is_free(int place, Part part) const {
    const Looked* employee = at(place);
    const Rules& rules = look.kept.rules;
    return employee && (part == Part::Hours ? rules.free_hours : rules.free_leave).contains(employee->figures.key);
}

void ent_jyougen::set_free(int place, Part part, bool on) {
    const Looked* employee = at(place);
    if (employee == nullptr)
        return;
    const EmployeeKey key = employee->figures.key;
    Rules rules = look.kept.rules;
    auto& free = part == Part::Hours ? rules.free_hours : rules.free_leave;
    if (on)
        free.insert(key);
    else
        free.remove(key);
    keep_free(m_session.tables, key, rules);
    read_again();
}

Sheet ent_jyougen::sheet() const {
    QList<Column> columns{{u"社員番号", 1200}, {u"社員名", 2000}, {u"状態", 800}};
    for (int i = 0; i < measure_count; ++i)
        columns << Column{caption_of(Measure(i)), 1600};
    columns << Column{u"内容", 4000};
    Sheet hyou;
    lay_out(hyou, columns, int(shown.size()) + 1);
    for (int place = 0; place < shown.size(); ++place) {
        const Looked& employee = *at(place);
        const int r = place + 1;
        hyou(r, number_col) = employee.figures.number;
        hyou(r, name_col) = employee.figures.name;
        hyou(r, level_col) = level_word(employee.judgement.level).toString();
        for (int i = 0; i < measure_count; ++i)
            hyou(r, first_measure_col + i) = figure_text(employee.judgement.of(Measure(i)));
        hyou(r, lines_col) = lines(place).join(u"　"_s);
    }
    return hyou;
}

void ent_jyougen::export_csv() {
    const std::array headings{u"%1　%2"_s.arg(caption, ym)};
    const QString path =
        common::CSV保存先取得(m_session.settings, m_session.host, m_session.tables, report, report + u'_' + ym);
    if (path.isEmpty())
        return;
    const Sheet hyou = sheet();
    const common::Written written = common::write_csv(headings, hyou, path);
    common::tell_written(written, headings, hyou, m_session.host);
}

void ent_jyougen::botan_Click(int element) {
    close_wanted = element == 0;
}

} // namespace limits
