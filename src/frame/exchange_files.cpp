#include "frame/exchange_files.h"

#include "base/literals.h"
#include "frame/kept_files.h"
#include "platform/paths.h"
#include "platform/program_lock.h"
#include "platform/whole_file.h"
#include "store/files.h"
#include "store/held.h"
#include "store/held_bytes.h"
#include "store/schema.h"
#include "store/server_place.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <optional>

namespace frame {

using namespace base;
using platform::Durability;
using store::Code;
using store::Error;

namespace {

bool unreadable(Code code) {
    return code == Code::NotADatabase || code == Code::WrongKey || code == Code::Damaged || code == Code::OtherKind ||
           code == Code::Empty;
}

bool holds_rows(const store::Held& file) {
    return std::ranges::any_of(
        file.rows(), [](const auto& table) { return table.first != u"sqlite_master" && table.second > 0; });
}

/// Whether a new file would look no different; rows apart.
bool as_new(store::Held& file) {
    const auto definitions = file.rows().find(u"sqlite_master"_s);
    return definitions->second == qint64(store::tables_of(store::Kind::Exchange).size()) && file.spare_pages() == 0;
}

void make_folder(const QString& folder) {
    if (!QDir().mkpath(folder))
        throw Error(Code::ReadOnly, folder, {}, {});
}

/// An empty exchange file, made when the first is needed.
class Pattern {
public:
    const QByteArray& bytes() {
        if (m_bytes.isEmpty())
            m_bytes = store::empty_database_image(store::Kind::Exchange);
        return m_bytes;
    }

    const QString& path() {
        if (m_path.isEmpty()) {
            m_folder.emplace();
            m_path = m_folder->filePath(u"new.mdb"_s);
            store::check_system(platform::write_new_file(m_path, bytes(), Durability::Cache), m_path);
        }
        return m_path;
    }

private:
    QByteArray m_bytes;
    std::optional<QTemporaryDir> m_folder;
    QString m_path;
};

class Remaking {
public:
    Remaking(const base::Settings& settings, const QDateTime& now, const std::function<void(const QString&)>& trouble,
        std::chrono::milliseconds patience)
        : m_settings(settings), m_now(now), m_trouble(trouble), m_patience(patience) {}

    void remake(const QString& path) {
        if (store::place_at(path) || known_as_new(path))
            return;
        try {
            empty(path);
        } catch (const Error& error) {
            if (error.code() == Code::Missing)
                make(path);
            else if (unreadable(error.code()))
                put_away(path, error);
            else
                throw;
        }
    }

private:
    /// Most files are copies of one that is as new, which is cheaper to see than to open each.
    bool known_as_new(const QString& path) const {
        const QByteArray bytes = m_as_new.isEmpty() ? QByteArray() : store::bytes_of(path);
        return !bytes.isEmpty() && m_as_new.contains(bytes);
    }

    void empty(const QString& path) {
        store::Held file(path, store::Kind::Exchange, m_patience);
        if (!file.rows().contains(u"jyusin"_s))
            throw Error(Code::OtherKind, path, {}, {});
        if (holds_rows(file))
            keep(file);
        else if (as_new(file))
            return m_as_new.append(store::bytes_of(path));
        file.take_over(m_pattern.path());
    }

    void keep(store::Held& file) {
        const QString kept = place_for(file.path());
        platform::NewFile copy(kept);
        store::check_system(copy.make(), kept);
        file.copy_into(copy.passing_path());
        store::check_system(copy.place(Durability::Disk), kept);
    }

    void put_away(const QString& path, const Error& why) {
        store::HeldBytes file(path, m_patience);
        const QString kept = place_for(path, unreadable_ending);
        write(kept, file.bytes());
        if (QFile journal(store::journal_of(path)); journal.open(QIODevice::ReadOnly))
            write(store::journal_of(kept), journal.readAll());
        tell(why.text(), kept);
        file.overwrite(m_pattern.bytes());
    }

    void make(const QString& path) {
        if (const QString kept = store::put_away_journal(path); !kept.isEmpty())
            tell(Error(Code::Missing, path, {}, {}).text(), kept);
        if (store::place_for_new(path, store::Kind::Exchange)) {
            store::Database::create(path, store::Kind::Exchange);
            return;
        }
        write(path, m_pattern.bytes());
        m_as_new.append(m_pattern.bytes());
    }

    QString place_for(const QString& path, QStringView ending = {}) const {
        make_folder(kept_folder(m_settings));
        return new_kept_path(m_settings, path, m_now, ending);
    }

    static void write(const QString& path, const QByteArray& bytes) {
        store::check_system(platform::write_new_file(path, bytes, Durability::Disk), path);
    }

    void tell(const QString& what, const QString& kept) const {
        m_trouble(u"%1\n%2 として残しました。最近登録した日を確かめてください。"_s.arg(what, platform::native(kept)));
    }

    const base::Settings& m_settings;
    QDateTime m_now;
    const std::function<void(const QString&)>& m_trouble;
    std::chrono::milliseconds m_patience;
    Pattern m_pattern;
    QList<QByteArray> m_as_new; ///< what files that need no remaking consist of
};

/// What starts that were killed left of files in the making.
void remove_litter(const QString& folder) {
    for (QDir dir(folder, u"hanjyusin*.new"_s); const QString& left : dir.entryList(QDir::Files))
        dir.remove(left);
}

/// As long as this stands no other start remakes the files.
class Alone {
public:
    Alone(const base::Settings& settings, std::chrono::milliseconds patience)
        : m_lock(store::data_folder(settings), store::exchange_maker.toString()) {
        if (!m_lock.take(patience))
            throw Error(Code::Busy, store::exchange_folder(settings), {}, {});
    }

private:
    platform::ProgramLock m_lock;
};

} // namespace

QString manager_file(const QString& server_root) {
    return platform::program_file(server_root + u"/comdata/exe/exe/jyusinkanri.exe"_s);
}

void 交換ファイル作成(const base::Settings& settings, const QDateTime& now,
    const std::function<void(const QString& message)>& trouble, std::chrono::milliseconds patience) {
    const QString folder = store::exchange_folder(settings);
    make_folder(folder);
    const Alone alone(settings, patience);
    remove_litter(folder);
    remove_litter(kept_folder(settings));
    Remaking remaking(settings, now, trouble, patience);
    for (int number = 1; number <= store::exchange_file_count; ++number)
        remaking.remake(store::exchange_path(settings, number));
}

} // namespace frame
