#include "base/keys.h"
#include "entry/company.h"
#include "setup/fir_start.h"

#include <gtest/gtest.h>

using namespace base;
namespace col = entry::col;

TEST(FirstDay, AttendanceCanBeEnteredAtOnce) {
    entry::Company company;
    store::Database::open(store::comsys_path(company.tree.settings), store::Kind::Comsys)
        .exec("insert into syain (システム番号, 社員番号, 社員名) values (7, 12, '鈴木')");
    setup::fir_start(company.session, {}).botan_Click();

    entry::ent_rovena form{company.session};
    form.Form_Load();
    form.hyou_syain_Click(1);
    form.hyou_Click({1, col::clock_in});
    entry::type(form, u"830"_s);
    form.atai_KeyDown(key::enter);
    entry::type(form, u"1715"_s);
    form.hyou_Click({9, col::clock_in});
    QStringList day;
    for (const int column : {col::kind, col::break_time, col::work_time, col::first_category, col::first_category + 1,
             col::first_category + 2})
        day << form.sheet.hyou(1, column);
    EXPECT_EQ(form.lab2, u"通常勤務"_s);
    EXPECT_EQ(day, QStringList({u"通常"_s, u"1:00"_s, u"7:45"_s, u""_s, u"8:30"_s, u"0:15"_s}))
        << "a figure has its break in it";
}
