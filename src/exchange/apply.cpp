#include "exchange/apply.h"

#include "base/literals.h"
#include "exchange/posted_row.h"
#include "store/schema.h"

#include <QFileInfo>
#include <QSet>
#include <optional>
#include <utility>
#include <vector>

namespace exchange {

using namespace base;

namespace {

/// A stretch of rows of one kind, and the facts of which a row has been met in it.
class Stretch {
public:
    bool contains(const PostedRow& row) const { return !row.target || row.target == m_target; }

    void enter(const PostedRow& row) {
        if (contains(row))
            return;
        m_target = row.target;
        m_met.clear();
        m_last.reset();
    }

    /// Whether the row is the first of its employee and date.
    bool meets_first(const PostedRow& row) {
        const std::pair fact(row.employee(), row.date());
        if (m_last == fact)
            return false;
        m_last = fact;
        const auto before = m_met.size();
        return m_met.insert(fact), m_met.size() > before;
    }

private:
    const Target* m_target = nullptr;
    QSet<std::pair<qint64, qint64>> m_met;
    std::optional<std::pair<qint64, qint64>> m_last; ///< rows of one fact mostly stand together
};

/// The statements that write the target tables.
class Tables {
public:
    explicit Tables(store::Database& rovdata) {
        for (const Target& target : targets)
            m_writers.push_back({rovdata.prepare(target.remove), rovdata.prepare(target.insert)});
    }

    void apply(const PostedRow& row, Stretch& stretch) {
        Writer& writer = m_writers[size_t(row.target - targets.data())];
        if (!row.target->several_rows || stretch.meets_first(row))
            writer.remove.bind(row.employee(), row.date()).run();
        if (row.inserts())
            insert(writer.insert, row);
    }

private:
    struct Writer {
        store::Statement remove, insert;
    };

    static void insert(store::Statement& statement, const PostedRow& row) {
        int place = 0;
        for (size_t i = 0; i < row.target->numbers.size(); ++i)
            statement.bind_at(++place, row.numbers[i]);
        for (size_t i = 0; i < row.target->texts.size(); ++i)
            statement.bind_utf8(++place, row.texts[i]);
        statement.run();
    }

    std::vector<Writer> m_writers;
};

struct Unreadable {
    qint64 row_id;
    QString reason;
};

struct Batch {
    qint64 rows = 0;
    qint64 last_row_id = 0;
    std::vector<Unreadable> unreadable;
};

/// Applies rows up to the end of the stretch in which the batch is full.
Batch apply_batch(store::Statement& posted_rows, Tables& tables, qint64 full) {
    Batch batch;
    Stretch stretch;
    while (posted_rows.step()) {
        const PostedRow row = read_row(posted_rows.row());
        const bool may_end = !stretch.contains(row) || (row.target && !row.target->several_rows);
        if (batch.rows >= full && may_end)
            break;
        stretch.enter(row);
        batch.last_row_id = posted_rows.row().number(0);
        ++batch.rows;
        if (row.reason.isEmpty())
            tables.apply(row, stretch);
        else
            batch.unreadable.push_back({batch.last_row_id, row.reason});
    }
    posted_rows.reset();
    return batch;
}

void tell(const store::Database& exchange, const std::vector<Unreadable>& rows, const Watch& watch) {
    const QString file = QFileInfo(exchange.path()).fileName();
    for (const Unreadable& row : rows)
        watch.trouble(u"%1 %2件目: %3"_s.arg(file).arg(row.row_id).arg(row.reason));
}

/// Lets the rows of the batch leave the file, the unreadable ones into their table. An emptied table is emptied as a
/// whole, which costs no work on its rows.
void let_go(store::Database& exchange, const Batch& batch) {
    if (!batch.unreadable.empty()) {
        store::Statement move =
            exchange.prepare("insert into jyusin_error select jyusin.*, ? from jyusin where rowid=?");
        for (const Unreadable& row : batch.unreadable)
            move.bind(row.reason, row.row_id).run();
    }
    store::Statement last = exchange.prepare("select max(rowid) from jyusin");
    const bool emptied = last.step() && last.row().number(0) == batch.last_row_id;
    last.reset();
    if (emptied)
        exchange.exec("delete from jyusin");
    else
        exchange.prepare("delete from jyusin where rowid<=?").bind(batch.last_row_id).run();
}

/// A batch touches pages all over the indexes, and reads those of the exchange file twice.
void make_ready(store::Database& exchange, store::Database& rovdata) {
    rovdata.expect_much();
    exchange.expect_much();
    store::add_missing_tables(exchange, store::Kind::Exchange);
}

} // namespace

qint64 apply_rows(store::Database& exchange, store::Database& rovdata, const Watch& watch,
    const std::function<bool()>& may_take, qint64 full) {
    if (!exchange.prepare("select 1 from jyusin limit 1").step())
        return 0;
    make_ready(exchange, rovdata);
    store::Statement posted_rows = exchange.prepare(posted_rows_query);
    Tables tables(rovdata);
    for (qint64 rows = 0;;) {
        store::Transaction leaving(exchange);
        if (!may_take())
            return rows;
        store::Transaction applying(rovdata);
        const Batch batch = apply_batch(posted_rows, tables, full);
        if (batch.rows == 0)
            return rows;
        applying.commit();
        tell(exchange, batch.unreadable, watch);
        let_go(exchange, batch);
        leaving.commit();
        rows += batch.rows;
        watch.taken(rows);
    }
}

} // namespace exchange
