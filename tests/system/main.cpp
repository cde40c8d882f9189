// The tests, or one clerk of the company that they run.

#include "base/time.h"
#include "clerk_at_work.h"
#include "e2e/road/clerk.h"
#include "entry/saving.h"
#include "ui/application.h"
#include "ui/entry/clash_panel.h"
#include "ui/entry/ent_rovena_page.h"
#include "ui/parts/style.h"
#include "ui/program.h"
#include "ui/qt_host.h"

#include <QRadioButton>
#include <QScopedValueRollback>
#include <cstdio>
#include <gtest/gtest.h>
#include <optional>
#include <random>

using namespace base;

namespace {

/// Boxes that open are answered at once and counted. An employee whose days still wait to be applied isn't opened.
class Desk : public ui::QtHost {
public:
    platform::Answer ask(const QString& text, const QString&, platform::Buttons buttons) override {
        ++told;
        std::fprintf(stderr, "told: %s\n", qPrintable(text));
        return buttons == platform::Buttons::YesNo ? platform::Answer::No : platform::Answer::Ok;
    }
    QDateTime now() override { return {QDate(2026, 10, 5), QTime(9, 0)}; }
    int told = 0;
};

class Worker {
public:
    Worker(const Desk& desk, ui::MainWindow& window, const whole::PlaceOfWork& place)
        : m_desk(desk), m_window(window), m_place(place) {
        m_decide.callOnTimeout([this] {
            if (auto* panel = qobject_cast<ui::ClashPanel*>(QApplication::activeModalWidget()))
                decide(*panel);
        });
        m_decide.start(10);
    }

    void save_some_days() {
        m_clerk.press_button(u"出勤入力"_s);
        m_clerk.click_cell(u"hyou_syain"_s, some(0, 2) > 0 ? m_place.own_row : m_place.shared_row, 1);
        if (form().syainsyscd.isEmpty())
            return;
        for (int day = some(1, 3); day > 0; --day)
            type_day(some(1, m_place.last_day));
        save();
    }

private:
    enum Choice { stored, typed, go_back };
    int some(int first, int last) { return std::uniform_int_distribution(first, last)(m_random); }

    const entry::ent_rovena& form() const {
        return dynamic_cast<ui::ent_rovena_page&>(*m_window.pages().currentWidget()).form();
    }

    /// Days that another PC saved since they were typed here, before a kill or in this save: the clerk keeps what was
    /// typed here or what stands, or goes back from the save.
    void decide(ui::ClashPanel& panel) {
        const QList<entry::Clash> clashes = m_saves ? form().clashes_of_save() : form().clashes();
        const int choice = some(stored, m_saves ? go_back : typed);
        const auto buttons = panel.findChildren<QRadioButton*>(); // of each day, what is stored and what was typed
        for (int i = 0; i < buttons.size(); ++i)
            buttons[i]->setChecked((i % 2 == 1) == (choice == typed));
        if (choice == stored)
            for (const entry::Clash& clash : clashes)
                say(whole::say_left, clash.row);
        panel.done(choice == go_back ? QDialog::Rejected : QDialog::Accepted);
    }

    void type_day(int row) {
        int clock_in = some(6, 9) * 100 + some(0, 59);
        if (clock_in == clock_of(form().sheet.hyou(row, entry::col::clock_in)).value)
            clock_in = 555; // what stands there already is no change, and another's stands over it
        say(whole::say_types, row, clock_in);
        m_clerk.click_cell(u"hyou"_s, row, entry::col::clock_in);
        m_clerk.type(u"%1 Enter 1730 Enter"_s.arg(clock_in));
    }

    /// Also the days of a draft that lies over the month since the last save was cut off or refused.
    void save() {
        const entry::MonthSheet& sheet = form().sheet;
        for (const entry::ChangedDay& day : entry::changed_days(sheet))
            if (const auto clock_in = clock_of(sheet.hyou(day.row, entry::col::clock_in));
                day.row != entry::row::total && clock_in.value != 0)
                say(whole::say_changed, day.row, clock_in.value);
        const QScopedValueRollback<bool> saves(m_saves, true);
        const int told = m_desk.told;
        m_clerk.press_button(u"登録"_s);
        const bool posted = m_desk.told == told && form().clashes_of_save().isEmpty();
        whole::say(posted ? whole::say_ok : whole::say_refused);
    }

    void say(const char* what, int row, std::optional<qint64> clock_in = {}) const {
        const QString day = u' ' + form().syainsyscd + u' ' + digits(form().sheet.month.posting_key(row));
        whole::say(what, clock_in ? day + u' ' + digits(*clock_in) : day);
    }

    const Desk& m_desk;
    ui::MainWindow& m_window;
    const whole::PlaceOfWork& m_place;
    e2e::Clerk m_clerk{m_window};
    std::mt19937 m_random{unsigned(m_place.seed)};
    QTimer m_decide;
    bool m_saves = false;
};

/// Only a data server may be away, and comes back.
int work(Desk& desk, const whole::PlaceOfWork& place) {
    const QDeadlineTimer away(place.seconds * 1000LL);
    std::optional<ui::Program> started;
    do
        started.emplace(desk, place.program_folder, quint16(place.turn_port));
    while (started->start() != 0 && place.on_server() && !away.hasExpired());
    ui::Program& program = *started;
    if (!program.running())
        return 1;
    // Whatever is typed at random is saved as it is, without a question.
    program.session().tables.設定書込(u"losystem"_s, u"登録前確認なし"_s, u"0,1,2,3,4,5,6"_s);
    program.window().resize(1366, 768);
    Worker worker(desk, program.window(), place);
    for (QDeadlineTimer until(place.seconds * 1000LL); !until.hasExpired();)
        try {
            worker.save_some_days();
        } catch (const e2e::RoadError&) { // what wasn't opened has nothing to click on
            if (!place.on_server())
                throw;
            whole::say(whole::say_refused);
        }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    Desk desk;
    ui::Application application(argc, argv, desk);
    ui::apply_style(application);
    const QStringList arguments = QApplication::arguments();
    return arguments.value(1) == u"--clerk" ? work(desk, whole::PlaceOfWork::of(arguments)) : RUN_ALL_TESTS();
}
