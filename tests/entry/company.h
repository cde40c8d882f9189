#pragma once

// A small company in real files, and the form of attendance entry over it.

#include "entry/ent_rovena.h"
#include "entry/sheet_builder.h"
#include "exchange/run.h"
#include "support/company.h"

#include <gtest/gtest.h>

namespace entry {

/// Categories 11 普通 and 12 残業, work type 5 標準 from Monday to Friday, kinds as month_sheet() has them,
/// employees 山田 (key 1, number 20) with the type and 田中 (key 2, number 3) without one.
inline constexpr std::string_view masters = R"(
    insert into kinsyu values (11, '普通 '), (12, '残業');
    insert into kyutype values (1, '有休', 0, 0), (2, '公休', 1, 0), (3, '出勤', 2, 1), (4, '休日出勤', 0, 1);
    insert into syain (システム番号, 社員番号, 社員名) values (1, 20, '山田:太郎 '), (2, 3, '田中'), (3, null, '欠番');
    insert into syainkinmu values (1, 5);
    insert into kintype select 5, '標準 ', 1, d, 830, 1730, 11, 0, 600, 45, 800, 100, 0, 0
        from (select 1 d union select 2 union select 3 union select 4 union select 5);
    insert into kintype select 5, '標準 ', 2, d, 1730, 2200, 12, 0, 0, 0, 0, 0, 0, 0
        from (select 1 d union select 2 union select 3 union select 4 union select 5);
)";

struct Company : support::Company {
    Company() {
        exec(masters);
        QDir().mkpath(store::exchange_folder(tree.settings));
        store::Database::create(store::exchange_path(tree.settings, 1), store::Kind::Exchange);
    }

    store::Database exchange() const {
        return store::Database::open(store::exchange_path(tree.settings, 1), store::Kind::Exchange);
    }

    /// The manager's run over what was posted.
    void apply() const {
        const exchange::Watch watch;
        EXPECT_TRUE(exchange::ManagerRun(tree.settings, watch).apply_all());
    }

    /// The posted rows from field "2" on, each as one text.
    QStringList posted() const {
        auto database = exchange();
        auto query = database.prepare("select * from jyusin order by rowid");
        QStringList rows;
        while (query.step()) {
            QStringList fields;
            for (int field = 1; field < query.row().columns() && !query.row().is_null(field); ++field)
                fields << query.row().text(field);
            rows << fields.join(u' ');
        }
        return rows;
    }
};

/// Types digits or text into the cell in hand, as the keys of a keyboard do.
inline void type(ent_rovena& form, const QString& text) {
    for (const QChar c : text)
        if (form.atai_KeyPress(c.unicode()))
            form.atai_Change(
                std::exchange(form.editors.atai.select_all, false) ? QString(c) : form.editors.atai.text + c);
}

/// The company, and its form with employee 1 chosen. A form that is opened anew stands for one that was killed.
class OpenForm : public testing::Test {
protected:
    OpenForm() { open(); }

    void open() {
        form.emplace(company.session);
        form->Form_Load();
        form->hyou_syain_Click(1);
    }

    /// Goes to a cell, types into it and leaves it by Enter.
    void type_at(base::Cell cell, const QString& text) {
        form->hyou_Click(cell);
        type(*form, text);
        form->atai_KeyDown(key::enter);
    }

    /// The same for both clock times of a day, which is left.
    void type_day(int r, const QString& in, const QString& out) {
        type_at({r, col::clock_in}, in);
        type_at({r, col::clock_out}, out);
        form->atai_KeyDown(key::enter);
    }

    /// Clock times to kind of a day, and its mark.
    QString day(int r) const { return cells_from(form->sheet.hyou, r, col::clock_in, 6) + u'|' + form->sheet.mark(r); }

    Company company;
    std::optional<ent_rovena> form;
};

} // namespace entry
