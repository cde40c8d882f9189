#include "entry/saving.h"

#include "base/literals.h"
#include "base/text.h"
#include "common/closed_months.h"
#include "common/program_wait.h"
#include "entry/cells.h"
#include "entry/month_load.h"
#include "frame/exchange_files.h"
#include "platform/paths.h"
#include "store/files.h"

#include <QSet>
#include <algorithm>
#include <functional>

namespace entry {

using namespace base;

namespace {

constexpr int most_fields = 15;

bool manager_at_work(frame::Session& session) {
    return common::ウィンドウ終了待ち(session.host, store::manager_program.toString(),
               store::exchange_folder(session.settings)) == common::Wait::StillRunning;
}

void bind_row(store::Statement& insert, const ExchangeRow& row) {
    for (int i = 0; i < most_fields; ++i)
        if (i < row.size())
            insert.bind_at(i + 1, row[i]);
        else
            insert.bind_null(i + 1);
}

/// The rows to append, told with the exchange file held: what is stored and waits now stays so until they stand in it.
using RowsNow = std::function<QList<ExchangeRow>(store::Database& exchange)>;

bool append(const QString& path, const RowsNow& rows_now) {
    auto database = store::Database::open(path, store::Kind::Exchange);
    store::Transaction transaction(database);
    const QList<ExchangeRow> rows = rows_now(database);
    if (rows.isEmpty())
        return false;
    auto insert = database.prepare(R"(insert into jyusin
        ("2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15", "16")
        values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?))");
    for (const ExchangeRow& row : rows) {
        bind_row(insert, row);
        insert.run();
    }
    transaction.commit();
    return true;
}

/// False if there is nothing to append. A file that is remade at this moment is opened once more.
bool append(const base::Settings& settings, const RowsNow& rows_now) {
    const QString path = store::exchange_path(settings, posting_file);
    try {
        return append(path, rows_now);
    } catch (const store::Error& error) {
        if (error.code() != store::Code::Replaced || error.file() != path)
            throw;
        return append(path, rows_now);
    }
}

/// What the person is to read when the turn is given back: nobody waits for a box that stands open.
struct Refusal {
    QString words; ///< empty for none
    QString title;
};

/// Months are closed in a turn, too: one that is open now stays so until the rows are posted.
Refusal refusal_of(frame::Session& session, const QSet<int>& months) {
    for (const int month : months)
        if (const auto since = common::closed_since(session.settings, month))
            return {common::closed_words(month, *since) + u"\n登録できません"_s, u"締め済み"_s};
    // On a server whoever applies may need this very turn to come to an end.
    if (!session.link.is_on_server() && is_main_pc(session.settings) && manager_at_work(session))
        return {u"もう一度、ボタンを押してください"_s, u"プログラム使用中"_s};
    return {};
}

Saved post_in_turn(frame::Session& session, const QSet<int>& months, const RowsNow& rows_now, Refusal& refusal) {
    const frame::Turn turn(session.link);
    if (!turn.granted())
        return Saved::Nothing;
    refusal = refusal_of(session, months);
    if (!refusal.words.isEmpty())
        return Saved::Nothing;
    if (!append(session.settings, rows_now))
        return Saved::NothingLeft;
    session.host.yield();
    return Saved::Posted;
}

Saved post(frame::Session& session, const QSet<int>& months, const RowsNow& rows_now) {
    Refusal refusal;
    const Saved saved = post_in_turn(session, months, rows_now, refusal);
    if (!refusal.words.isEmpty())
        session.host.tell(refusal.words, refusal.title);
    if (saved == Saved::Posted && is_main_pc(session.settings))
        start_manager(session);
    return saved;
}

QString stamp_of(const QDateTime& now) {
    return now.toString(u"yyyyMMddhhmmss"_s);
}

/// Days that both changed stand as they are stored.
MonthSheet merge_unasked(UnaskedMonth& month, const base::Settings& settings, store::Database& exchange) {
    const EmployeeKey employee(month.employee.key);
    MonthInTables unread;
    MergedMonth merged = merge_months({month.sheet, month.read, {}, month.figures, base::Sheet(), {}},
        month_as_stored(month.sheet, settings, exchange, employee, unread));
    month.left.clear();
    month.alike.clear();
    for (const Clash& clash : merged.clashes) {
        copy_day(merged.sheet, merged.stored, clash.row);
        month.left << clash.row;
    }
    if (!month.left.isEmpty())
        tally_anew(merged.sheet, {});
    for (const ChangedDay& day : changed_days(month.sheet))
        if (day.row != row::total && Trim(merged.sheet.mark(day.row)).isEmpty() && !month.left.contains(day.row))
            month.alike << day.row;
    return std::move(merged.sheet);
}

} // namespace

bool manager_running(frame::Session& session) {
    return session.host.program_running(store::manager_program.toString(), store::exchange_folder(session.settings));
}

void start_manager(frame::Session& session) {
    const QString root = platform::portable(session.settings.server_root);
    session.host.start_program(
        frame::manager_file(root), {u"--root"_s, root, u"--local"_s, platform::portable(session.settings.local_root)});
}

void post_rows(const base::Settings& settings, const QList<ExchangeRow>& rows) {
    append(settings, [&](store::Database&) { return rows; });
}

Saved post_months(frame::Session& session, QList<UnaskedMonth>& months) {
    const QString stamp = stamp_of(session.host.now());
    QSet<int> keys;
    for (const UnaskedMonth& month : months)
        keys.insert(month.sheet.month.month_key());
    return post(session, keys, [&](store::Database& exchange) {
        QList<ExchangeRow> rows;
        for (UnaskedMonth& month : months)
            rows << rows_to_post(merge_unasked(month, session.settings, exchange), month.employee, stamp);
        return rows;
    });
}

SavedMonth 保存処理(frame::Session& session, const MonthInHand& hand, const PostedEmployee& employee) {
    SavedMonth result;
    if (employee.key == 0 || changed_days(hand.sheet).isEmpty())
        return result;
    const QString stamp = stamp_of(session.host.now());
    MonthInTables unread;
    MonthInTables& in_tables = hand.in_tables ? *hand.in_tables : unread;
    result.saved = post(session, {hand.sheet.month.month_key()}, [&](store::Database& exchange) {
        result.month = merge_months(
            hand, month_as_stored(hand.sheet, session.settings, exchange, EmployeeKey(employee.key), in_tables));
        return result.month->clashes.isEmpty() ? rows_to_post(result.month->sheet, employee, stamp)
                                               : QList<ExchangeRow>();
    });
    return result;
}

} // namespace entry
