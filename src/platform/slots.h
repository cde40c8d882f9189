#pragma once

// A small file in which each of several programs, on this PC or on others that share its folder, says a line of its
// own, and reads those of the others. A line counts as long as its program runs: its slot is locked through the
// operating system, and the lock goes with the process, however that ends. Nobody waits for anybody, and a file that
// can't be used says nothing: what is said here is for the eye, and nothing is decided by it.

#include <QFile>
#include <QStringList>
#include <optional>

namespace platform {

class Slots {
public:
    static constexpr int line_room = 256; ///< bytes of UTF-8; a longer line is cut
    static constexpr int most = 1024;     ///< programs that say something at a time; the next one isn't heard

    /// Touches nothing yet. The folder has to be there when something is said; the file stays.
    explicit Slots(const QString& path) : m_file(path) {}

    /// Says the line in place of the one before; an empty one says nothing and costs nothing.
    void say(const QString& line);

    /// The lines of the other programs that run, in no order. Reads the file once, and asks for a lock a line.
    QStringList said_by_others();

private:
    bool open();
    bool take_slot();
    bool is_ours(int slot) const { return m_slot == slot; }

    QFile m_file;
    std::optional<int> m_slot;
    QString m_line;
};

} // namespace platform
