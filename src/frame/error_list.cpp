#include "frame/error_list.h"

#include "base/literals.h"
#include "platform/crash.h"
#include "platform/paths.h"
#include "platform/program_lock.h"
#include "store/files.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <functional>

namespace frame {

using namespace base;

namespace {

QString waiting_path(const base::Settings& settings) {
    return store::exchange_folder(settings) + u"/errmsg.txt"_s;
}

/// A line that was broken off stays a line of its own.
bool append(const QString& path, QByteArray lines) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Append | QIODevice::Unbuffered))
        return false;
    if (file.size() > 0 && file.seek(file.size() - 1) && file.read(1) != "\n")
        lines.prepend('\n');
    const qint64 before = file.size();
    const bool whole = file.write(lines) == lines.size();
    if (!whole)
        file.resize(before); // what stays to be written is written whole
    return whole;
}

/// Does it with nobody else at the lines that wait; false if that or the deed fails.
bool alone_with_waiting(const base::Settings& settings, const std::function<bool(const QString& path)>& deed) {
    constexpr std::chrono::milliseconds patience(2000);
    try {
        platform::ProgramLock lock(store::exchange_folder(settings), u"errmsg"_s);
        return lock.take(patience) && deed(waiting_path(settings));
    } catch (const platform::LockError&) {
        return false;
    }
}

} // namespace

QString error_file_path(const base::Settings& settings) {
    return store::own_path(settings, settings.local_root, u"data/trn/errmsg.txt");
}

void leave_dumps(const base::Settings& settings) {
    platform::leave_dump_in(QFileInfo(error_file_path(settings)).path());
}

int error_count(const base::Settings& settings) {
    QFile file(error_file_path(settings));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    int count = 0;
    while (!file.atEnd())
        count += file.readLine().trimmed().isEmpty() ? 0 : 1;
    return count;
}

bool add_error(const base::Settings& settings, const QString& message) {
    const QString time = QDateTime::currentDateTime().toString(u"yyyy/MM/dd hh:mm:ss"_s);
    const QByteArray line = u"\"%1 %2\"\n"_s.arg(time, message.simplified()).toUtf8();
    write_waiting_errors(settings);
    if (append(error_file_path(settings), line))
        return true;
    alone_with_waiting(settings, [&](const QString& waiting) { return append(waiting, line); });
    return false;
}

bool write_waiting_errors(const base::Settings& settings) {
    if (QFileInfo(waiting_path(settings)).size() == 0) // or none is there
        return true;
    return alone_with_waiting(settings, [&](const QString& waiting) {
        QFile file(waiting);
        if (!file.open(QIODevice::ReadWrite) || !append(error_file_path(settings), file.readAll()) || !file.resize(0))
            return false;
        file.remove(); // where somebody else's file can't go, it stays empty
        return true;
    });
}

} // namespace frame
