#include "entry/company.h"

#include <random>

using namespace entry;

namespace {

class RoundTrip : public OpenForm, public testing::WithParamInterface<int> {
protected:
    QString some_clock() { return digits(some(0, 23) * 100 + some(1, 59)); }
    int some(int first, int last) { return std::uniform_int_distribution(first, last)(m_random); }

    void fill_day(int r) {
        type_at({r, col::clock_in}, some_clock());
        type(*form, some_clock());
        form->atai_KeyDown(key::right);
        if (some(0, 4) == 0)
            type(*form, u"17"_s);
        form->hyou_Click({r, col::remark});
        form->atai_Insert(u"x"_s);
        form->atai_Change(u"直行 %1's"_s.arg(some(1, 99)));
        form->hyou_Click({r, col::kind});
        if (some(0, 4) == 0)
            form->kyucom_Click(some(1, 4));
    }

    QStringList shown() const {
        QStringList rows;
        for (int r = 0; r <= row::total; ++r)
            rows << cells_from(form->sheet.hyou, r, 0) + cells_from(form->sheet.hyou_system, r, 0);
        return rows << cells_from(form->sheet.hyou_day, strip::count, 0);
    }

private:
    std::mt19937 m_random{20040301u + static_cast<unsigned>(GetParam())};
};

} // namespace

TEST_P(RoundTrip, WhatIsSavedComesBackAsItStood) {
    company.tree.settings.month_start_day = GetParam();
    const auto open_april = [this] {
        open();
        form->ym_Click(1, 3);
    };
    open_april();
    for (int r = 1; r <= form->sheet.month.length(); ++r)
        if (some(0, 3) > 0)
            fill_day(r);
    form->hyou_Click({1, col::work_time});
    form->botan_Click(1);
    company.apply();
    for (int r = 0; r <= row::total; ++r)
        form->sheet.mark(r).clear();
    const QStringList saved = shown();
    open_april();
    EXPECT_EQ(shown(), saved);
}

INSTANTIATE_TEST_SUITE_P(StartDays, RoundTrip, testing::Values(1, 2, 15, 21, 29, 30, 31));
