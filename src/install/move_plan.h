#pragma once

// What a move of the company between files and a server is about to do. It is written down before anything is made and
// goes when all is done: whoever comes after a move that was broken off knows by it what is there.

#include "base/settings.h"
#include "store/database.h"
#include "store/server_place.h"

#include <QDateTime>
#include <optional>
#include <span>

namespace install {

/// One of the shared databases. The first is the one without which no program works with the company.
struct MovedDatabase {
    store::Kind kind;
    QString (*path)(const base::Settings&);
    bool always; ///< there in every company; else from the first use on
};
std::span<const MovedDatabase> moved_databases();

class MovePlan {
public:
    enum class Goal { Server, Files };

    MovePlan(
        const base::Settings& settings, Goal goal, const QByteArray& connection, int partitions, const QDateTime& now);

    /// The plan that stands in the tree; nothing if none does. std::runtime_error if it can't be understood.
    static std::optional<MovePlan> standing(const base::Settings& settings);

    void write() const;
    void remove() const;

    Goal goal() const { return m_goal; }
    const QByteArray& connection() const { return m_connection; }
    int partitions() const { return m_partitions; } ///< on the server; 0 for none

    static QString schema(const QString& path); ///< what a database is called on the server
    QString schema_in_the_making(const QString& path) const;
    QString set_aside(const QString& schema) const; ///< what the schema is called that was moved

    /// What lies beside the database's place until it takes that: a copy, or the name of the schema in the making.
    static QString beside(const QString& path);

    /// Where the files go whose company lies on the server from then on.
    QString folder_set_aside() const;
    QString file_set_aside(const QString& path) const;

private:
    MovePlan(const base::Settings& settings, const QList<QByteArray>& lines);

    QString m_folder; ///< of all the shared data
    Goal m_goal;
    QByteArray m_connection;
    QString m_time; ///< tells what is set aside from what was set aside before
    QString m_mark; ///< of schemas in the making, used by nobody else
    int m_partitions;
};

/// std::runtime_error while a plan stands: the company may be neither here nor there.
void refuse_half_moved(const base::Settings& settings);

} // namespace install
