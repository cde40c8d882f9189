#include "entry/company.h"
#include "entry/paste.h"

#include <gtest/gtest.h>

using namespace entry;

namespace {

using State = PasteCell::State;

PastePreview preview_at(MonthSheet& sheet, Cell cell, const QString& text) {
    sheet.entry_cell = cell;
    return preview_paste(sheet, text);
}

/// "row,column understood" of every cell, with "=" where it stays and "?" where it wasn't understood.
QStringList told(const PastePreview& preview) {
    QStringList lines;
    for (const PasteCell& cell : preview.cells)
        lines << u"%1,%2 %3"_s.arg(cell.cell.row)
                     .arg(cell.cell.col)
                     .arg(cell.state == State::NotUnderstood ? u"?"_s
                          : cell.state == State::Same        ? u"="_s
                                                             : cell.understood);
    return lines;
}

} // namespace

TEST(Paste, TimesAreReadAsTheyAreWrittenInSpreadsheets) {
    const struct {
        int column;
        QString understood; ///< empty where it isn't a time
        QStringList pasted;
    } cases[] = {
        {col::clock_in, u"8:30"_s,
            {u"8:30"_s, u"830"_s, u"0830"_s, u"08:30:59"_s, u" 8時30分 "_s, u"8時半"_s, u"　８：３０"_s, u"８３０"_s}},
        {col::clock_in, u"8:05"_s, {u"8時5分"_s}},
        {col::clock_in, u"17:00"_s, {u"１７時"_s}},
        {col::clock_in, u"0:00"_s, {u"0"_s}},
        {col::clock_in, {},
            {u"8"_s, u"24:00"_s, u"8:60"_s, u"860"_s, u"8:30:60"_s, u"8:5"_s, u"0.354166"_s, u"-8:30"_s, u"12345"_s,
                u"有休"_s}},
        {col::clock_out, u"1:30"_s, {u"25:30"_s, u"2530"_s}},
        {col::clock_out, u"0:00"_s, {u"24:00"_s}},
        {col::clock_out, {}, {u"32:00"_s, u"48:00"_s}}, // a whole day after 8:00 and more
        {col::break_time, u"0:45"_s, {u"45"_s}},
        {col::break_time, u"1:15"_s, {u"1:15"_s}},
        {col::break_time, {}, {u"1"_s, u"60"_s, u"24:00"_s}},
        {col::remark, u"直行"_s, {u" 直行 "_s}},
    };
    for (const auto& [column, understood, texts] : cases)
        for (const QString& pasted : texts) {
            SCOPED_TRACE(pasted.toStdString());
            MonthSheet sheet = month_sheet({});
            sheet.hyou(4, col::clock_in) = column == col::clock_in ? QString() : u"8:00"_s;
            const PastePreview preview = preview_at(sheet, {4, column}, pasted);
            ASSERT_EQ(preview.cells.size(), 1);
            EXPECT_EQ(preview.cells[0].understood, understood);
            EXPECT_EQ(preview.cells[0].state, understood.isEmpty() ? State::NotUnderstood : State::New);
            EXPECT_EQ(preview.cells[0].reason.isEmpty(), !understood.isEmpty());
            paste(sheet, preview);
            EXPECT_EQ(sheet.mark(4), understood.isEmpty() ? u""_s : u"1"_s);
        }
}

TEST(Paste, LinesGoIntoTheDaysFromTheCellInHandAndNeverPastTheMonthsEnd) {
    struct Row {
        Cell cell;
        QString text;
        QStringList told;
    };
    for (const Row& row : {Row{{3, 2}, u"830\t1730\t45\t直行\r\n\t\t\t\r\n900\r\n"_s,
                               {u"3,2 ="_s, u"3,3 17:30"_s, u"3,4 0:45"_s, u"3,6 直行"_s, u"4,2 ="_s, u"4,3 ="_s,
                                   u"4,4 ="_s, u"4,6 ="_s, u"5,2 9:00"_s}},
             {{3, 4}, u"45\t\"会議\n\"\"A\"\"\"\t8\n\"x\tb"_s,
                 {u"3,4 0:45"_s, u"3,6 会議 \"A\""_s, u"3,7 ?"_s, u"4,4 ?"_s, u"4,6 b"_s}},
             {{28, 3}, u"1730\n1800\n\n1900"_s, {u"28,3 17:30"_s, u"29,3 18:00"_s, u"30,3 ="_s, u"31,3 ?"_s}},
             {{3, 2}, u"7:00\t31:00"_s, {u"3,2 7:00"_s, u"3,3 ?"_s}}, // a whole day from the pasted clock-in
             {{3, 2}, {}, {}}, {{3, col::work_time}, u"8:00"_s, {}}, {{30, 2}, u"8:00"_s, {}}}) {
        MonthSheet sheet = month_sheet({}, 2);
        sheet.hyou(3, col::clock_in) = u"8:30"_s;
        const MonthSheet before = sheet;
        const PastePreview preview = preview_at(sheet, row.cell, row.text);
        EXPECT_EQ(told(preview), row.told);
        EXPECT_EQ(preview.refused.isEmpty(), row.cell.col != col::work_time && row.cell.row < 30);
        for (int r = 0; r < row::count; ++r)
            EXPECT_EQ(cells_from(sheet.hyou, r, 0), cells_from(before.hyou, r, 0)) << "a preview writes nothing";
        paste(sheet, preview);
        EXPECT_EQ(cells_from(sheet.hyou, 30, 0) + sheet.hyou(row::total, 2), u"|||||||"_s);
    }
}

TEST(Paste, APastedMonthStandsAsIfItHadBeenTypedAndIsOneStep) {
    struct Day {
        QStringList pasted;
        QStringList typed;
    };
    const QList<Day> days{{{u"8:15"_s, u"19:00"_s, {}, u"直行"_s}, {u"815"_s, u"1900"_s, {}, u"直行"_s}},
        {{u"９：００"_s, u"25:30"_s, u"30"_s, {}}, {u"900"_s, u"130"_s, u"30"_s, {}}},
        {{{}, {}, u"1:00"_s, {}}, {{}, {}, u"100"_s, {}}}, {{{}, {}, {}, u"有休"_s}, {{}, {}, {}, u"有休"_s}},
        {{u"休み"_s, {}, {}, {}}, {}}};
    for (const int break_handling : {0, 1}) {
        Company company;
        ent_rovena form(company.session);
        form.Form_Load();
        form.kyuflg_Click(break_handling);
        form.hyou_syain_Click(1);
        QString text;
        for (int i = 0; i < days.size(); ++i) {
            for (int j = 0; j < days[i].typed.size(); ++j)
                if (!days[i].typed[j].isEmpty()) {
                    form.hyou_Click({4 + i, QList{2, 3, 4, 6}[j]});
                    type(form, days[i].typed[j]);
                }
            form.hyou_Click({4, col::clock_in});
            text += days[i].pasted.join(u'\t') + u"\r\n"_s;
        }
        QStringList typed;
        for (int r = 1; r <= row::total; ++r)
            typed << cells_from(form.sheet.hyou, r, 0) + cells_from(form.sheet.hyou_system, r, 0);
        const QString standing = form.standing();
        form.give_up_draft();
        form.hyou_Click({4, col::clock_in});
        EXPECT_EQ(form.paste(form.preview_paste(text)), 4);
        for (int r = 1; r <= row::total; ++r)
            EXPECT_EQ(cells_from(form.sheet.hyou, r, 0) + cells_from(form.sheet.hyou_system, r, 0), typed[r - 1]) << r;
        EXPECT_EQ(form.standing(), standing);
        EXPECT_EQ(form.editors.atai.text, u"815"_s);
        form.undo();
        EXPECT_EQ(form.standing() + form.sheet.hyou(4, col::clock_in), u""_s);
        EXPECT_FALSE(form.can_undo());
    }
}
