#pragma once

// The desktop of the tests: answers are scripted, the clock is set and moves only by waiting, what was shown is kept.

#include "platform/host.h"

#include <QCoreApplication>
#include <deque>
#include <functional>
#include <set>
#include <vector>

namespace support {

struct Shown {
    QString text;
    QString title;
    platform::Buttons buttons;
    friend bool operator==(const Shown&, const Shown&) = default;
};

class FakeHost : public platform::Host {
public:
    std::deque<platform::Answer> answers;      ///< given in order; when used up: Ok, or Yes to a question
    std::deque<std::optional<QString>> inputs; ///< given in order; when used up: cancelled
    std::deque<std::optional<QString>> paths;  ///< likewise, of the dialogs for a path
    std::set<QString> running;                 ///< titles of the programs that run
    QStringList printer_names;
    std::function<bool(const QString&, const QString&, const QString&)> share; ///< connect_share; unset: true
    std::function<void()> on_yield; ///< what happens while the interface has time
    QDateTime clock{QDate(2004, 10, 5), QTime(9, 0)};
    std::chrono::steady_clock::time_point steady; ///< moves with the clock, but isn't set

    std::vector<Shown> shown;
    QStringList prompts, opened, started;
    std::vector<platform::SaveDialog> dialogs;

    platform::Answer ask(const QString& text, const QString& title, platform::Buttons buttons) override {
        shown.push_back({text, title, buttons});
        return next(answers, buttons == platform::Buttons::YesNo ? platform::Answer::Yes : platform::Answer::Ok);
    }
    std::optional<QString> input(const QString& prompt) override {
        prompts << prompt;
        return next(inputs, std::optional<QString>());
    }
    std::optional<QString> save_path(const platform::SaveDialog& dialog) override {
        dialogs.push_back(dialog);
        return next(paths, std::optional<QString>());
    }
    std::optional<QString> open_path(const platform::OpenDialog&) override {
        return next(paths, std::optional<QString>());
    }
    bool open_document(const QString& address) override { return opened << address, true; }
    bool start_program(const QString& file, const QStringList&) override { return started << file, true; }
    bool program_running(const QString& title, const QString&) override { return running.contains(title); }
    QDateTime now() override { return clock; }
    std::chrono::steady_clock::time_point steady_now() override { return steady; }
    QStringList printers() override { return printer_names; }
    bool connect_share(const QString& root, const QString& user, const QString& password) override {
        return share ? share(root, user, password) : true;
    }
    void yield() override {
        if (on_yield)
            on_yield();
        QCoreApplication::processEvents();
    }
    void wait(std::chrono::milliseconds time) override {
        clock = clock.addMSecs(time.count());
        steady += time;
        yield();
    }

private:
    template <typename T>
    static T next(std::deque<T>& script, T otherwise) {
        if (!script.empty()) {
            otherwise = std::move(script.front());
            script.pop_front();
        }
        return otherwise;
    }
};

} // namespace support
