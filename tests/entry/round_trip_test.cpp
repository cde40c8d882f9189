#include "entry/company.h"

#include <gtest/gtest.h>
#include <random>

using namespace entry;

namespace {

struct Insert {
    QString kind;
    int last_value; ///< the posted fields from the kind on are the values 1 to this
    std::string_view statement;
};

const Insert inserts[] = {
    {u"51"_s, 15, "insert into rovmei values (?6, ?9, ?10, ?12, ?13, ?14, ?15)"},
    {u"52"_s, 5, "insert into kinjisyu values (?3, ?2, ?4, ?5)"},
    {u"53"_s, 6, "insert into kinnisu values (?3, ?2, ?4, ?5, ?6)"},
    {u"54"_s, 6, "insert into kyumei values (?3, ?2, ?4, ?5, ?6)"},
};

/// Puts every posted row of an empty company into the table that it is for.
void take_over(const Company& company) {
    auto exchange = store::Database::open(store::exchange_path(company.tree.settings, 1), store::Kind::Exchange);
    auto rovdata = company.data();
    for (const Insert& insert : inserts) {
        auto posted = exchange.prepare("select * from jyusin where \"2\" = ? order by rowid");
        auto taking = rovdata.prepare(insert.statement);
        for (posted.bind(insert.kind); posted.step(); taking.run()) {
            taking.reset();
            for (int value = 1; value <= insert.last_value; ++value)
                taking.bind_at(value, posted.row().text(value));
        }
    }
    exchange.exec("delete from jyusin");
}

class RoundTrip : public testing::TestWithParam<int> {
protected:
    QString some_clock() { return QString::number(some(0, 23) * 100 + some(1, 59)); }
    int some(int first, int last) { return std::uniform_int_distribution(first, last)(m_random); }

    static void open(ent_rovena& form) {
        form.Form_Load();
        form.hyou_syain_Click(1);
        form.ym_Click(1, 3);
    }

    void fill_day(ent_rovena& form, int r) {
        form.hyou_Click({r, 2});
        type(form, some_clock());
        form.atai_KeyDown(key::enter);
        type(form, some_clock());
        form.atai_KeyDown(key::right);
        if (some(0, 4) == 0)
            type(form, u"17"_s);
        form.hyou_Click({r, 6});
        form.atai_Insert(u"x"_s);
        form.atai_Change(u"直行 %1's"_s.arg(some(1, 99)));
        form.hyou_Click({r, 7});
        if (some(0, 4) == 0)
            form.kyucom_Click(some(1, 4));
    }

    static QStringList shown(const ent_rovena& form) {
        QStringList rows;
        for (int r = 0; r <= row::total; ++r)
            rows << (cells_from(form.sheet.hyou, r, 0) + cells_from(form.sheet.hyou_system, r, 0)).join(u'|');
        return rows << cells_from(form.sheet.hyou_day, strip::count, 0).join(u'|');
    }

private:
    std::mt19937 m_random{20040301u + static_cast<unsigned>(GetParam())};
};

} // namespace

TEST_P(RoundTrip, WhatIsSavedComesBackAsItStood) {
    Company company;
    company.tree.settings.month_start_day = GetParam();
    ent_rovena form(company.session), again(company.session);
    open(form);
    for (int r = 1; r <= form.sheet.month.length(); ++r)
        if (some(0, 3) > 0)
            fill_day(form, r);
    form.hyou_Click({1, 5});
    form.botan_Click(1);
    take_over(company);
    open(again);
    for (int r = 0; r <= row::total; ++r)
        form.sheet.mark(r).clear();
    EXPECT_EQ(shown(again), shown(form));
}

INSTANTIATE_TEST_SUITE_P(StartDays, RoundTrip, testing::Values(1, 2, 15, 21, 29, 30, 31));
