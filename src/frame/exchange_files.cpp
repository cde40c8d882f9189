#include "frame/exchange_files.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "platform/whole_file.h"
#include "store/files.h"
#include "store/schema.h"

#include <QDir>
#include <QFileInfo>
#include <optional>

namespace frame {

using namespace base;
using platform::Durability;
using store::Code;
using store::Error;

namespace {

/// Another PC may be remaking the same files: it is out of the way again in a moment.
constexpr int most_attempts = 10;

/// An exchange file that no other program reads or writes as long as this stands.
class Held {
public:
    Held(const QString& path, std::chrono::milliseconds patience)
        : m_database(store::Database::open(path, store::Kind::Exchange, patience)),
          m_lock(std::in_place, *m_database, store::Transaction::Lock::Exclusive) {}

    bool holds_rows() {
        return number("select exists(select 1 from jyusin) or exists(select 1 from jyusin_error)") != 0;
    }

    /// Whether a new file would look no different; rows apart.
    bool as_new() {
        return number("pragma freelist_count") == 0 &&
               number("select count(*) from sqlite_master") == qint64(store::tables_of(store::Kind::Exchange).size());
    }

    /// Makes sure that the file can be moved, as far as the system needs that.
    void let_move() {
        if (platform::open_files_can_move)
            return;
        m_lock.reset();
        m_database.reset();
    }

private:
    qint64 number(std::string_view sql) {
        store::Statement statement = m_database->prepare(sql);
        return statement.step() ? statement.row().number(0) : 0;
    }

    std::optional<store::Database> m_database;
    std::optional<store::Transaction> m_lock;
};

/// Misuse: a database of the right kind that lacks the tables.
bool unreadable(Code code) {
    return code == Code::NotADatabase || code == Code::WrongKey || code == Code::Damaged || code == Code::OtherKind ||
           code == Code::Misuse;
}

QString journal_of(const QString& path) {
    return path + u"-journal"_s;
}

/// What keeps a file from being moved or replaced: where an open file can't be, most likely another that has it open.
constexpr Code blocked = platform::open_files_can_move ? Code::ReadOnly : Code::Busy;

using Write = std::error_code (*)(const QString& path, const QByteArray& bytes, Durability durability);

class Remaking {
public:
    Remaking(const base::Settings& settings, const QDateTime& now, std::chrono::milliseconds patience)
        : m_folder(kept_folder(settings)), m_now(now), m_patience(patience) {}

    void remake(const QString& path) {
        if (known_as_new(path))
            return;
        for (int attempt = 1;; ++attempt) {
            try {
                return take_place_of(path);
            } catch (const Error& error) {
                if (error.code() != Code::Replaced || attempt == most_attempts)
                    throw;
            }
        }
    }

private:
    /// Most files are copies of one that is as new, which is cheaper to see than to open each.
    bool known_as_new(const QString& path) const {
        const QByteArray bytes = m_as_new.isEmpty() ? QByteArray() : store::bytes_of(path);
        return !bytes.isEmpty() && m_as_new.contains(bytes);
    }

    void take_place_of(const QString& path) {
        try {
            Held old(path, m_patience);
            const bool rows = old.holds_rows();
            if (!rows && old.as_new())
                return m_as_new.append(store::bytes_of(path));
            old.let_move();
            if (!rows)
                return put(path, platform::replace_file, Durability::Cache);
            keep(path, {});
        } catch (const Error& error) {
            if (unreadable(error.code()))
                keep(path, unreadable_ending);
            else if (error.code() == Code::Missing || error.code() == Code::Empty)
                clear(path);
            else
                throw;
        }
        put(path, platform::write_new_file, Durability::Disk);
    }

    void put(const QString& path, Write write, Durability durability) {
        if (m_image.isEmpty())
            m_as_new << (m_image = store::empty_database_image(store::Kind::Exchange));
        const std::error_code failure = write(path, m_image, durability);
        if (failure == std::errc::file_exists)
            throw Error(Code::Replaced, path, {}, {});
        if (failure)
            throw Error(failure == std::errc::no_space_on_device ? Code::Full : blocked, path, {},
                QString::fromLocal8Bit(failure.message()));
    }

    /// Moves the file, and the journal that a damaged one may have, out of the way.
    void keep(const QString& path, QStringView ending) const {
        const QString kept = free_name(path, ending);
        if (!QDir().mkpath(m_folder) || !QFile::rename(path, kept))
            throw Error(QFile::exists(path) ? blocked : Code::Replaced, kept, {}, {});
        QFile::rename(journal_of(path), journal_of(kept));
    }

    /// A journal that stayed behind without its file would be played into the new one.
    void clear(const QString& path) const {
        QFile::remove(path);
        QFile::remove(journal_of(path));
    }

    QString free_name(const QString& path, QStringView ending) const {
        for (QDateTime time = m_now;; time = time.addMSecs(1)) {
            QString name = u"%1/%2-%3.mdb%4"_s.arg(
                m_folder, QFileInfo(path).baseName(), time.toString(u"yyyyMMdd-HHmmss-zzz"_s), ending);
            if (!QFile::exists(name))
                return name;
        }
    }

    QString m_folder;
    QDateTime m_now;
    std::chrono::milliseconds m_patience;
    QByteArray m_image;         ///< a new file, made when the first is needed
    QList<QByteArray> m_as_new; ///< what files that need no remaking consist of
};

} // namespace

QString kept_folder(const base::Settings& settings) {
    return store::exchange_folder(settings) + u"/nokori"_s;
}

QString manager_file(const QString& server_root) {
    return platform::program_file(server_root + u"/comdata/exe/exe/jyusinkanri.exe"_s);
}

void 交換ファイル作成(const base::Settings& settings, const QDateTime& now, std::chrono::milliseconds patience) {
    QDir().mkpath(store::exchange_folder(settings));
    Remaking remaking(settings, now, patience);
    for (int number = 1; number <= store::exchange_file_count; ++number)
        remaking.remake(store::exchange_path(settings, number));
}

} // namespace frame
