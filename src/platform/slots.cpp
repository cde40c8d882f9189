#include "platform/slots.h"

#include <fcntl.h>
#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#endif

namespace platform {

namespace {

/// The byte that is locked for a slot lies far behind what is read and written: on Windows nobody else could read it.
constexpr qint64 first_lock = qint64(1) << 30;

#ifdef Q_OS_WIN
bool lock(const QFile& file, int slot, DWORD flags, OVERLAPPED& place) {
    place = {};
    place.Offset = DWORD(first_lock + slot);
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
    return LockFileEx(handle, flags | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
}
bool lock_slot(const QFile& file, int slot) {
    OVERLAPPED place;
    return lock(file, slot, LOCKFILE_EXCLUSIVE_LOCK, place);
}
// Asked with a shared lock, so that two who ask don't take each other for the program.
bool another_holds(const QFile& file, int slot) {
    OVERLAPPED place;
    if (!lock(file, slot, 0, place))
        return true;
    UnlockFileEx(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle())), 0, 1, 0, &place);
    return false;
}
#else
// Of the open file, not of the process: another file of the same name that is closed in this process would take
// those away.
flock lock_of(int slot) {
    flock lock{};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = first_lock + slot;
    lock.l_len = 1;
    return lock;
}
bool lock_slot(const QFile& file, int slot) {
    flock lock = lock_of(slot);
    return ::fcntl(file.handle(), F_OFD_SETLK, &lock) == 0;
}
bool another_holds(const QFile& file, int slot) {
    flock lock = lock_of(slot);
    return ::fcntl(file.handle(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}
#endif

} // namespace

bool Slots::open() {
    return m_file.isOpen() || m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered);
}

bool Slots::take_slot() {
    for (int slot = 0; !m_slot && slot < most; ++slot)
        if (lock_slot(m_file, slot))
            m_slot = slot;
    return m_slot.has_value();
}

void Slots::say(const QString& line) {
    if (line == m_line || (line.isEmpty() && !m_slot) || !open() || !take_slot())
        return;
    m_line = line;
    if (m_file.seek(qint64(*m_slot) * line_room))
        m_file.write(line.toUtf8().leftJustified(line_room, '\0', /*truncate=*/true));
}

QStringList Slots::said_by_others() {
    QStringList lines;
    if (!open() || !m_file.seek(0))
        return lines;
    const QByteArray all = m_file.read(qint64(most) * line_room);
    for (int slot = 0; slot * line_room < all.size(); ++slot) {
        const QByteArray line = QByteArray(all.mid(slot * line_room, line_room).constData());
        if (!line.isEmpty() && !is_ours(slot) && another_holds(m_file, slot))
            lines << QString::fromUtf8(line);
    }
    return lines;
}

} // namespace platform
