#include "clerk_at_work.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "e2e/road/clerk.h"
#include "ui/entry/ent_rovena_page.h"
#include "ui/program.h"
#include "ui/qt_host.h"

#include <QApplication>
#include <cstdio>
#include <random>

namespace whole {

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

Desk& desk() {
    static Desk only;
    return only;
}

void say(const QString& line) {
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

class Worker {
public:
    Worker(ui::Program& program, const PlaceOfWork& place)
        : m_window(program.window()), m_clerk(m_window), m_place(place), m_random(unsigned(place.seed)) {}

    void save_some_days() {
        if (!open(some(0, 2) > 0 ? m_place.own_row : m_place.shared_row))
            return;
        for (int day = some(1, 3); day > 0; --day)
            type_day(some(1, 31));
        const int told = desk().told;
        m_clerk.press_button(u"登録"_s);
        say(QString::fromLatin1(desk().told == told ? say_ok : say_refused));
    }

private:
    int some(int first, int last) { return std::uniform_int_distribution(first, last)(m_random); }

    /// False if the employee wasn't opened.
    bool open(int employee_row) {
        m_clerk.press_button(u"出勤入力"_s);
        m_clerk.click_cell(u"hyou_syain"_s, employee_row, 1);
        return !form().syainsyscd.isEmpty();
    }

    void type_day(int row) {
        const int clock_in = some(6, 9) * 100 + some(0, 59);
        say(u"%1 %2 %3 %4"_s.arg(QString::fromLatin1(say_try), form().syainsyscd)
                .arg(form().sheet.month.posting_key(row))
                .arg(clock_in));
        m_clerk.click_cell(u"hyou"_s, row, entry::col::clock_in);
        m_clerk.type(u"%1 Enter 1730 Enter"_s.arg(clock_in));
    }

    const entry::ent_rovena& form() const {
        return dynamic_cast<ui::ent_rovena_page&>(*m_window.pages().currentWidget()).form();
    }

    ui::MainWindow& m_window;
    e2e::Clerk m_clerk;
    const PlaceOfWork& m_place;
    std::mt19937 m_random;
};

} // namespace

QStringList PlaceOfWork::arguments() const {
    return {u"--clerk"_s, program_folder, digits(turn_port), digits(own_row), digits(shared_row), digits(seconds),
        digits(seed)};
}

PlaceOfWork PlaceOfWork::of(const QStringList& arguments) {
    const auto number = [&](int at) { return arguments.value(at).toInt(); };
    return {arguments.value(0), number(1), number(2), number(3), number(4), number(5)};
}

int work(const PlaceOfWork& place) {
    ui::Program program(desk(), place.program_folder, quint16(place.turn_port));
    if (program.start() != 0 || !program.running())
        return 1;
    program.window().resize(1366, 768);
    QApplication::setActiveWindow(&program.window());
    Worker worker(program, place);
    for (QDeadlineTimer until(place.seconds * 1000LL); !until.hasExpired();)
        worker.save_some_days();
    return 0;
}

} // namespace whole
