#include "entry/company.h"
#include "entry/draft_store.h"
#include "entry/fill.h"
#include "frame/exchange_files.h"
#include "support/stored.h"
#include "support/told_cases.h"

#include <map>

using namespace entry;

namespace {

base::Cell cell_of(const QString& row_and_col) {
    return {row_and_col.section(u',', 0, 0).toInt(), row_and_col.section(u',', 1).toInt()};
}

/// Plays one case of rows/month.txt, which tells what its steps are.
class Month : public OpenForm, public testing::WithParamInterface<support::ToldCase> {
protected:
    void step(const QString& line) {
        const QString rest = others(line);
        Steps steps = acts(rest);
        steps.merge(looks(rest));
        steps.at(first(line))();
    }

private:
    using Steps = std::map<QString, std::function<void()>>;
    static QString first(const QString& words) { return words.section(u' ', 0, 0); }
    static QString others(const QString& words) { return words.section(u' ', 1); }

    Steps acts(const QString& rest) {
        return {
            {u"at"_s, [&] { form->hyou_Click(cell_of(first(rest))); }},
            {u"type"_s, [&] { type(*form, rest); }},
            {u"erase"_s, [&] { erase(); }},
            {u"break_handling"_s, [&] { form->kyuflg_Click(rest.toInt()); }},
            {u"leave"_s, [&] { form->atai_LostFocus(); }},
            {u"kind"_s, [&] { form->kyucom_Click(rest.toInt()); }},
            {u"enter"_s, [&] { type_at(cell_of(first(rest)), others(rest)); }},
            {u"work"_s, [&] { type_day(first(rest).toInt(), first(others(rest)), others(others(rest))); }},
            {u"employee"_s, [&] { form->hyou_syain_Click(rest.toInt()); }},
            {u"goto"_s,
                [&] {
                    form->open_day({first(rest).toInt(), EmployeeKey(1), QDate::fromString(others(rest), Qt::ISODate)});
                }},
            {u"month"_s, [&] { form->ym_Click(1, rest.toInt() - 1); }},
            {u"month_Enter"_s, [&] { form->ym_KeyDown(0, key::enter); }},
            {u"count"_s, [&] { type_count(first(rest).toInt(), others(rest)); }},
            {u"save"_s, [&] { form->botan_Click(1); }},
            {u"undo"_s, [&] { form->undo(); }},
            {u"redo"_s, [&] { form->redo(); }},
            {u"give_up"_s, [&] { form->give_up_draft(); }},
            {u"decide"_s, [&] { form->decide(0, MonthDraft::Choice(rest == u"stored")); }},
            {u"settle"_s, [&] { form->settle_and_save({MonthDraft::Choice(rest == u"stored")}); }},
            {u"open"_s, [&] { open(); }},
            {u"damage"_s, [&] { damage_drafts(rest); }},
            {u"block"_s, [&] { EXPECT_TRUE(QDir().mkpath(store::drafts_path(company.tree.settings))); }},
            {u"free"_s, [&] { EXPECT_TRUE(QDir().rmdir(store::drafts_path(company.tree.settings))); }},
            {u"Enter"_s, [&] { form->atai_KeyDown(key::enter); }},
            {u"Right"_s, [&] { form->atai_KeyDown(key::right); }},
            {u"Down"_s, [&] { form->atai_KeyDown(key::down); }},
            {u"fill"_s, [&] { form->fill(FillSource::StandardTimes); }},
            {u"normal_day"_s,
                [&] {
                    form->mark_normal_day({rest.toInt(), rest.toInt()});
                }},
            {u"step"_s, [&] { form->step_employee(rest.toInt()); }},
            {u"goes_on"_s, [&] { form->set_goes_on(true); }},
            {u"kinds"_s, [&] { form->go_to_kinds(); }},
            {u"digit"_s, [&] { form->kyucom_Digit(rest.toInt()); }},
            {u"letter"_s, [&] { form->kyucom_KeyPress(rest[0].unicode()); }},
            {u"kind_Enter"_s, [&] { EXPECT_TRUE(form->kyucom_KeyDown(key::enter)); }},
            {u"kind_Escape"_s, [&] { EXPECT_TRUE(form->kyucom_KeyDown(key::escape)); }},
            {u"refuses"_s, [&] { EXPECT_FALSE(form->atai_KeyPress(rest[0].unicode())); }},
            {u"calculate"_s, [&] { form->calculate_all(); }},
            {u"ask_no_more"_s, [&] { form->ask_no_more_for_month(); }},
            {u"leave_out"_s, [&] { leave_out(rest); }},
            {u"applied"_s, [&] { company.apply(); }},
            {u"kept"_s,
                [&] { frame::交換ファイル作成(company.tree.settings, company.host.clock, [](const QString&) {}); }},
            {u"sql"_s, [&] { company.exec(rest.toStdString()); }},
            {u"posted_sql"_s, [&] { company.exchange().exec(rest.toStdString()); }},
        };
    }

    Steps looks(const QString& rest) {
        return {
            {u"day"_s, [&] { EXPECT_EQ(day(first(rest).toInt()), others(rest)); }},
            {u"cell"_s, [&] { expect(cell(first(rest)), others(rest)); }},
            {u"strip"_s, [&] { expect(form->sheet.hyou_day(strip::count, first(rest).toInt()), others(rest)); }},
            {u"standing"_s, [&] { EXPECT_EQ(standing(), rest); }},
            {u"posted"_s, [&] { EXPECT_EQ(company.posted().filter(rest).size(), 1); }},
            {u"unposted"_s, [&] { EXPECT_EQ(company.posted().filter(rest), QStringList()); }},
            {u"asked"_s, [&] { EXPECT_EQ(rows_of(form->clashes_of_save()), rest); }},
            {u"who"_s, [&] { EXPECT_EQ(form->syalab, rest); }},
            {u"notice"_s, [&] { EXPECT_EQ(form->editors.notice->text, rest); }},
            {u"says"_s, [&] { EXPECT_EQ(form->msglab, rest); }},
            {u"findings"_s, [&] { EXPECT_EQ(form->look_before_saving().size(), rest.toInt()); }},
            {u"quiet"_s, [&] { EXPECT_FALSE(form->editors.notice); }},
            {u"trouble"_s, [&] { EXPECT_TRUE(form->standing().startsWith(u"下書きを保存できません。")); }},
            {u"told"_s, [&] { EXPECT_EQ(company.host.shown.size(), rest.toULongLong()); }},
            {u"choice"_s, [&] { EXPECT_EQ(form->editors.kyucom.index, rest.toInt()); }},
            {u"bands"_s, [&] { EXPECT_EQ(bands(), rest); }},
            {u"proposed"_s, [&] { EXPECT_EQ(proposed_day(form->sheet), NormalDay(rest.toInt(), rest.toInt())); }},
            {u"dot_tip"_s, [&] { EXPECT_EQ(form->hyou_syain.Look(1, 0).tip, rest); }},
            {u"clashes"_s, [&] { EXPECT_EQ(rows_of(form->clashes()), rest); }},
            {u"can"_s, [&] { EXPECT_TRUE(can(rest)); }},
            {u"cannot"_s, [&] { EXPECT_FALSE(can(rest)); }},
            {u"box"_s, [&] { EXPECT_EQ(box(), rest); }},
        };
    }

    static void expect(const QString& text, const QString& told) { EXPECT_EQ(text.isEmpty() ? u"-"_s : text, told); }

    const QString& cell(const QString& place) const {
        const auto [r, column] = cell_of(place);
        return form->sheet.hyou(r, column);
    }

    /// The cell in hand with its text.
    QString box() const {
        const auto& [text, at] = std::tie(form->editors.atai.text, form->editors.atai.cell);
        return u"%1,%2 %3"_s.arg(at.row).arg(at.col).arg(text.isEmpty() ? u"-"_s : text);
    }

    void leave_out(const QString& kind) {
        form->leave_out(kind == u"-" ? FindingKinds() : FindingKinds{FindingKind::OneClockTime});
    }

    void damage_drafts(const QString& how) const {
        const QString path = store::drafts_path(company.tree.settings);
        const QByteArray damaged = how == u"empty"   ? QByteArray()
                                   : how == u"other" ? support::bytes_of(store::rovdata_path(company.tree.settings))
                                   : how == u"text"
                                       ? QByteArray(9000, 'x')
                                       : support::bytes_of(path).replace(4096, 8192, QByteArray(8192, 'x'));
        support::put_bytes(path, damaged);
    }

    void erase() {
        form->atai_KeyPress(key::backspace);
        form->atai_Change({});
    }

    void type_count(int column, const QString& digit) {
        form->hyou_day_Click(column);
        form->hyou_day_KeyDown(key::del);
        form->hyou_day_KeyPress(digit[0].unicode());
    }

    QString standing() const {
        QString told = (form->standing().isEmpty() ? u"-"_s : form->standing()) + u' ';
        for (int r = 1; r < form->hyou_syain.Rows(); ++r)
            told += form->hyou_syain.Look(r, 0).dot ? u"●"_s : u"○"_s;
        return told + digits(drafts_waiting(company.tree.settings).months);
    }

    static QString rows_of(const QList<Clash>& clashes) {
        QStringList rows;
        for (const Clash& clash : clashes)
            rows << digits(clash.row);
        return rows.join(u' ');
    }

    /// To choose the one from that ends a normal day; "-" where it is chosen.
    QString bands() const {
        QStringList choices;
        for (const BandChoice& choice : band_choices(form->sheet))
            choices << choice.text;
        return form->needs_normal_day() ? choices.join(u", "_s) : u"-"_s;
    }

    bool can(const QString& what) {
        return what == u"undo"     ? form->can_undo()
               : what == u"redo"   ? form->can_redo()
               : what == u"draft"  ? form->has_draft()
               : what == u"type"   ? form->editors.atai.active && form->editors.atai.visible
               : what == u"choose" ? form->editors.kyucom.visible
                                   : form->days_on_their_way().value();
    }
};

} // namespace

TEST_P(Month, StandsAsTheRowsTell) {
    for (const QString& line : GetParam().lines) {
        SCOPED_TRACE((GetParam().shows + u": "_s + line).toStdString());
        step(line);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Merge, Month, testing::ValuesIn(support::told_cases(QStringLiteral(ROVENA_ROWS "/merge.txt"))));
INSTANTIATE_TEST_SUITE_P(Rows, Month, testing::ValuesIn(support::told_cases(QStringLiteral(ROVENA_ROWS "/month.txt"))));
