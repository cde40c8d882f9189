#pragma once

// A server root in a temporary folder, with empty tables and twenty exchange files, and rows posted as a save posts
// them.

#include "base/literals.h"
#include "store/files.h"
#include "store/server_place.h"
#include "support/killed.h"
#include "support/stored.h"

#include <QDir>
#include <QMap>
#include <QTemporaryDir>

namespace exchange {

using namespace base;
using support::bytes_of, support::put_bytes;

/// Posted rows as text, the fields from ordinal 1 on parted by "|"; "-" is a Null.
using Rows = QStringList;

inline QString day_row(int employee, int date, const QString& times, const QString& remark = {}) {
    const QStringList t = times.split(u' ');
    return QStringList{u"51"_s, u"0"_s, u"20041005120000"_s, u"20041005120000"_s, u"12"_s, QString::number(employee),
        u"山田"_s, u"0"_s, QString::number(date), t[0], QString::number(date), t[1], t[2], t[3], remark}
        .join(u'|');
}

class Tree {
public:
    Tree() {
        settings.server_root = folder.path();
        settings.local_root = folder.filePath(u"pc"_s);
        QDir().mkpath(kept_folder());
        make_database(rovdata_path(), store::Kind::Rovdata);
        for (int n = 1; n <= store::exchange_file_count; ++n)
            n == 1 ? make_database(exchange_path(n), store::Kind::Exchange) : make_exchange_file(exchange_path(n));
    }

    static void make_database(const QString& path, store::Kind kind) {
        if (store::place_for_new(path, kind))
            store::Database::create(path, kind);
        else
            make_file(path, kind);
    }

    static void make_exchange_file(const QString& path) { make_file(path, store::Kind::Exchange); }

    /// A copy of one that was made once, which is faster.
    static void make_file(const QString& path, store::Kind kind) {
        static QMap<store::Kind, QByteArray> images;
        if (!images.contains(kind))
            images[kind] = store::empty_database_image(kind);
        put_bytes(path, images[kind]);
    }

    QString rovdata_path() const { return store::rovdata_path(settings); }
    QString exchange_path(int number = 1) const { return store::exchange_path(settings, number); }
    QString kept_folder() const { return store::exchange_folder(settings) + u"/nokori"_s; }
    QString kept_path(const QString& name) const { return kept_folder() + u'/' + name; }

    /// Posts the rows as one save does.
    void post(const Rows& rows, int number = 1) const { post_into(exchange_path(number), rows); }
    void keep(const QString& name, const Rows& rows) const {
        make_exchange_file(kept_path(name));
        post_into(kept_path(name), rows);
    }

    static void post_into(const QString& path, const Rows& rows) {
        store::Database exchange = store::Database::open(path, store::Kind::Exchange);
        store::Transaction transaction(exchange);
        store::Statement insert = exchange.prepare(
            "insert into jyusin "
            R"(("2","3","4","5","6","7","8","9","10","11","12","13","14","15","16") values (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?))");
        for (const QString& row : rows) {
            const QStringList fields = row.split(u'|');
            for (int i = 0; i < 15; ++i)
                i < fields.size() && fields[i] != u"-"_s ? insert.bind_at(i + 1, fields[i]) : insert.bind_null(i + 1);
            insert.run();
        }
        transaction.commit();
    }

    static std::string lines(const QString& path, store::Kind kind, const char* query) {
        return support::rows_of(path, kind, query).join(u'\n').toStdString();
    }

    /// The four tables, each row behind the kind that brings it.
    std::string tables() const {
        QStringList rows;
        for (const char* query :
            {"select 51, * from rovmei order by 2,3", "select 52, *, '', '', '' from kinjisyu order by 2,3,4",
                "select 53, *, '', '' from kinnisu order by 2,3,5,4", "select 54, *, '', '' from kyumei order by 2,3"})
            rows << support::rows_of(rovdata_path(), store::Kind::Rovdata, query);
        return rows.join(u'\n').toStdString();
    }

    std::string left(const QString& path) const {
        return lines(path, store::Kind::Exchange, R"(select "2","3","4","5","6","7" from jyusin order by rowid)");
    }
    std::string left(int number = 1) const { return left(exchange_path(number)); }

    std::string errors(const QString& path) const {
        return lines(
            path, store::Kind::Exchange, R"(select "2","3","4","5","6","7","理由" from jyusin_error order by rowid)");
    }

    QTemporaryDir folder{support::fast_place() + u"/exchange-XXXXXX"_s};
    base::Settings settings;
};

} // namespace exchange
