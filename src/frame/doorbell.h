#pragma once

// Doorbell: a program that runs comes up where the same person starts it again. The first start takes the place and
// listens; a later one rings there and, once it is answered, ends. Where nobody answers in time, because the first is
// dead or hangs, it goes on beside it: nobody is kept from work.

#include "platform/program_lock.h"

#include <QLocalServer>
#include <functional>
#include <optional>

namespace frame {

class Doorbell {
public:
    /// `folder` is one that nobody but this person can enter; programs of one name there are one. Starts that can't use
    /// the folder know nothing of each other.
    Doorbell(QString folder, QString name);

    /// True: this program goes on, and is rung for from now on if the place was free. False: another was here before
    /// and has come up. Waits at most `patience` for it.
    bool comes_in(std::chrono::milliseconds patience);

    /// Leaves the place: a later start finds nobody. Does nothing if this program doesn't have it.
    void leave();

    /// Called when another start has rung.
    std::function<void()> rung;

private:
    bool take_place();
    QString address() const;
    void answer();

    QString m_folder;
    QString m_name;
    std::optional<platform::ProgramLock> m_place;
    QLocalServer m_server;
};

/// The name of a program that runs from this folder and shows its windows on this screen.
QString doorbell_name(const QString& program_folder);

} // namespace frame
