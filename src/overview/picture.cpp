#include "overview/picture.h"

#include "base/literals.h"
#include "base/month_look.h"
#include "base/numbers.h"

#include <algorithm>

namespace overview {

using namespace base;

namespace {

constexpr int pixel = 15; ///< twips
constexpr int number_width = 50 * pixel;
constexpr int name_width = 88 * pixel;
constexpr int day_width = 32 * pixel;
constexpr int count_width = 34 * pixel;
constexpr int time_width = 56 * pixel;
constexpr int word_width = 76 * pixel;
constexpr int row_height = Sheet::default_row_height;

constexpr Rgb nothing_back{255, 255, 255};
constexpr Rgb worked_back{226, 244, 228};
constexpr Rgb day_off_back{238, 239, 243};
constexpr Rgb leave_back{214, 228, 255};
constexpr Rgb holiday_work_back{255, 231, 196};
constexpr Rgb off_back{255, 196, 196};
constexpr Rgb quiet_fore{130, 134, 150};

/// In the order of DayState, whose last is a thing that is off.
constexpr Legend all_legends[]{
    {u"未入力", nothing_back},
    {u"出勤", worked_back},
    {u"公休など", day_off_back},
    {u"休暇", leave_back},
    {u"休日出勤", holiday_work_back},
    {u"確認が必要", off_back},
};

QString time_text(minutes time) {
    return time == minutes(0) ? QString()
                              : u"%1:%2"_s.arg(time.count() / 60).arg(time.count() % 60, 2, 10, QChar(u'0'));
}

struct SumColumn {
    int col;
    QStringView caption;
    int width;
};
constexpr SumColumn sum_columns[]{
    {column::worked, u"出勤", count_width},
    {column::leave, u"休暇", count_width},
    {column::holiday_work, u"休出", count_width},
    {column::work_time, u"勤務時間", time_width},
    {column::off, u"確認", count_width},
    {column::limit, u"上限", word_width},
};

class Drawing {
public:
    Drawing(Sheet& hyou, const Frame& frame, Words words) : m_hyou(hyou), m_frame(frame), m_words(words) {}

    void lay_out(int employees) {
        const Cell cursor{m_hyou.Row(), m_hyou.Col()};
        const Cell first{m_hyou.TopRow(), m_hyou.LeftCol()};
        m_hyou = Sheet(heading_rows + employees, column::first_category + int(m_frame.categories.size()));
        m_hyou.SetFixed(heading_rows, column::first_day);
        for (int r = 0; r < m_hyou.Rows(); ++r)
            m_hyou.SetRowHeight(r, row_height);
        lay_column(column::number, u"社員番号", number_width, Alignment::Left);
        lay_column(column::name, u"社員名", name_width, Alignment::Left);
        for (int r = 1; r < total_row; ++r)
            lay_day(r);
        for (const SumColumn& sum : sum_columns)
            lay_column(sum.col, sum.caption, sum.width, Alignment::Right);
        for (int i = 0; i < m_frame.categories.size(); ++i)
            lay_column(column::first_category + i, m_frame.categories[i].name, time_width, Alignment::Right);
        m_hyou.SetCursor({std::clamp(cursor.row, 0, m_hyou.Rows() - 1), std::clamp(cursor.col, 0, m_hyou.Cols() - 1)});
        m_hyou.SetTopLeft(first.row, first.col);
    }

    void employee(int r, const PictureRow& row) {
        const EmployeeMonth& of = *row.employee;
        m_hyou(r, column::number) = of.number;
        m_hyou(r, column::name) = of.name;
        int counts[std::size(all_legends)]{};
        for (int day = 1; day <= m_frame.month.length(); ++day)
            ++counts[int(show_day(r, day, of.days[size_t(day)]))];
        count(r, column::worked, counts[int(DayState::Worked)]);
        count(r, column::leave, counts[int(DayState::Leave)]);
        count(r, column::holiday_work, counts[int(DayState::HolidayWork)]);
        m_hyou(r, column::work_time) = time_text(of.work);
        for (int i = 0; i < m_frame.categories.size(); ++i)
            m_hyou(r, column::first_category + i) = time_text(of.hours.value(m_frame.categories[i].number));
        m_hyou(r, column::limit) = row.limit;
        if (row.look)
            show_look(r, *row.look);
    }

    /// A limit that nobody is near and categories that nobody worked take no room.
    void hide_unused_columns() {
        for (int col = column::limit; col < m_hyou.Cols(); ++col) {
            bool used = false;
            for (int r = heading_rows; r < m_hyou.Rows() && !used; ++r)
                used = !m_hyou(r, col).isEmpty();
            if (!used)
                m_hyou.SetColWidth(col, 0);
        }
    }

private:
    static int col_of_day(int r) { return column::first_day + r - 1; }

    void lay_column(int col, QStringView caption, int width, Alignment alignment) {
        m_hyou(0, col) = caption.toString();
        m_hyou.SetColWidth(col, width);
        m_hyou.SetColAlignment(col, alignment);
        m_hyou.SetCellAlignment(0, col, Alignment::Center);
    }

    void lay_day(int r) {
        const int col = col_of_day(r);
        const QDate date = m_frame.month.day(r);
        if (!date.isValid())
            return m_hyou.SetColWidth(col, 0);
        const int weekday = date.dayOfWeek() % 7;
        lay_column(col, digits(date.day()), day_width, Alignment::Center);
        m_hyou(1, col) = weekday_text(weekday);
        m_hyou.SetCellAlignment(1, col, Alignment::Center);
        const QString holiday = holiday_name(date, m_frame.own_holidays);
        for (const int heading : {0, 1}) {
            if (!holiday.isEmpty())
                m_hyou.SetCellTip(heading, col, holiday);
            if (weekday == sunday || !holiday.isEmpty())
                m_hyou.SetCellFore(heading, col, sunday_fore);
            else if (weekday == saturday)
                m_hyou.SetCellFore(heading, col, saturday_fore);
        }
    }

    DayState show_day(int r, int day_row, const Day& day) {
        const DayState state = state_of(day, m_frame.usual);
        const int col = col_of_day(day_row);
        m_hyou(r, col) = words_of(day, state);
        if (state != DayState::Blank)
            m_hyou.SetCellBack(r, col, all_legends[int(state)].back);
        if (state == DayState::DayOff)
            m_hyou.SetCellFore(r, col, quiet_fore);
        return state;
    }

    QString words_of(const Day& day, DayState state) const {
        const bool named = state == DayState::Leave || state == DayState::DayOff || state == DayState::HolidayWork;
        const QString work = time_text(day.work);
        if (m_words == Words::Short)
            return work.isEmpty() && named ? day.kind_name.left(2) : work;
        return QStringList{named ? day.kind_name : QString(), work}.join(u' ').trimmed();
    }

    void count(int r, int col, int days) { m_hyou(r, col) = days == 0 ? QString() : digits(days); }

    void show_look(int r, const EmployeeLook& look) {
        QMap<int, QStringList> said;
        for (const entry::Finding& finding : look.findings)
            said[finding.row] << finding.text;
        for (const int day : look.draft_rows) {
            m_hyou.SetCellDot(r, col_of_day(day), true);
            said[day] << (look.clash_rows.contains(day) ? u"未登録で、ほかのＰＣでも変更されています"_s
                                                        : u"未登録です"_s);
        }
        for (const auto& [day, texts] : said.asKeyValueRange())
            show_off(
                r, day > m_frame.month.length() ? column::off : col_of_day(day), texts, look.draft_rows.contains(day));
        const auto things = look.findings.size() + look.draft_rows.size();
        m_hyou(r, column::off) = !look.typed  ? u"未入力"_s
                                 : things > 0 ? digits(things)
                                 : look.draft ? u"未登録"_s
                                              : QString();
        if (look.is_off())
            m_hyou.SetCellBack(r, column::off, off_back);
    }

    /// A day that is only not saved yet keeps its colour beside its dot.
    void show_off(int r, int col, const QStringList& texts, bool draft) {
        m_hyou.SetCellTip(r, col, texts.join(u'\n'));
        if (!draft || texts.size() > 1)
            m_hyou.SetCellBack(r, col, off_back);
    }

    Sheet& m_hyou;
    const Frame& m_frame;
    Words m_words;
};

} // namespace

std::optional<int> day_row(int col) {
    if (col < column::first_day || col >= column::worked)
        return std::nullopt;
    return col - column::first_day + 1;
}

std::span<const Legend> legends() {
    return all_legends;
}

void draw(Sheet& hyou, const Frame& frame, std::span<const PictureRow> rows, Words words) {
    Drawing drawing(hyou, frame, words);
    drawing.lay_out(int(rows.size()));
    int r = heading_rows;
    for (const PictureRow& row : rows)
        drawing.employee(r++, row);
    drawing.hide_unused_columns();
}

} // namespace overview
