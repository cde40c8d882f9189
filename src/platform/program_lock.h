#pragma once

// A lock that stands for a program's window title: who holds it is running, and it goes with the process, however that
// ends. It is a file TITLE.lock in a folder both programs know, locked through the operating system. On Windows too it
// takes the place of FindWindowA, which sees the windows of one person's desktop only.

#include <QString>
#include <chrono>
#include <stdexcept>

namespace platform {

/// A lock that can't be had although nobody keeps it: its file can't be made or opened, or the file system knows no
/// locks. Whoever went on without it would not be seen. what() is for the person, in UTF-8.
class LockError : public std::runtime_error {
public:
    LockError(const QString& file, const QString& reason);
};

class ProgramLock {
public:
    /// Touches nothing yet. The folder has to be there when the lock is taken; the file stays when it is let go.
    ProgramLock(const QString& folder, const QString& title);
    ~ProgramLock();
    ProgramLock(const ProgramLock&) = delete;
    ProgramLock& operator=(const ProgramLock&) = delete;

    /// Takes the lock, trying for a while, with a patience of 0 once, and keeps it for as long as this lives. False if
    /// another program keeps it; LockError if it can't be had at all.
    bool take(std::chrono::milliseconds patience);

    /// Takes the lock together with others that share it: take() fails as long as one of them runs, and the other way
    /// round. A file that this person may only read serves as well.
    bool share(std::chrono::milliseconds patience);

    /// Whether some program holds the title in the folder. A folder or file that isn't there means none does; LockError
    /// if the file is there and can't be asked.
    /// Programs that share a title don't hold it in this sense.
    static bool held(const QString& folder, const QString& title);

private:
    enum class Holder { Alone, Together };
    bool hold(Holder holder, std::chrono::milliseconds patience);

    QString m_path;
    qintptr m_file = -1; ///< the system's own, and -1 no file
};

} // namespace platform
