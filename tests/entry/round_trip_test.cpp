#include "entry/company.h"

#include <gtest/gtest.h>
#include <random>

using namespace entry;

namespace {

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
    company.apply();
    open(again);
    for (int r = 0; r <= row::total; ++r)
        form.sheet.mark(r).clear();
    EXPECT_EQ(shown(again), shown(form));
}

INSTANTIATE_TEST_SUITE_P(StartDays, RoundTrip, testing::Values(1, 2, 15, 21, 29, 30, 31));
