#pragma once

// A lock that stands for a program's window title: who holds it is running, and it goes with the process, however that
// ends. It is a file TITLE.lock in a folder both programs know, locked through the operating system. On Windows too it
// takes the place of FindWindowA, which sees the windows of one person's desktop only.

#include <QString>
#include <chrono>

namespace platform {

class ProgramLock {
public:
    ProgramLock(const QString& folder, const QString& title);
    ~ProgramLock();
    ProgramLock(const ProgramLock&) = delete;
    ProgramLock& operator=(const ProgramLock&) = delete;

    /// Takes the lock, trying for a while. False if another program keeps it, or the folder can't be written.
    bool take(std::chrono::milliseconds patience);

    /// Takes the lock together with others that share it: take() fails as long as one of them runs, and the other way
    /// round.
    bool share(std::chrono::milliseconds patience);

    /// Whether some program holds the title in the folder. A missing folder or file means none does.
    /// Programs that share a title don't hold it in this sense.
    static bool held(const QString& folder, const QString& title);

private:
    enum class Holder { Alone, Together };
    bool hold(Holder holder, std::chrono::milliseconds patience);

    QString m_path;
    int m_file = -1;
};

} // namespace platform
