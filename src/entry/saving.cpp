#include "entry/saving.h"

#include "base/literals.h"
#include "common/closed_months.h"
#include "common/program_wait.h"
#include "entry/cells.h"
#include "frame/exchange_files.h"
#include "platform/paths.h"
#include "store/files.h"

#include <algorithm>

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

void append(const QString& path, const QList<ExchangeRow>& rows) {
    auto database = store::Database::open(path, store::Kind::Exchange);
    auto insert = database.prepare(R"(insert into jyusin
        ("2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15", "16")
        values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?))");
    store::Transaction transaction(database);
    for (const ExchangeRow& row : rows) {
        bind_row(insert, row);
        insert.run();
    }
    transaction.commit();
}

/// Months are closed in a turn, too: one that is open now stays so until the rows are posted.
bool is_closed(frame::Session& session, int month) {
    const auto since = common::closed_since(session.settings, month);
    if (since)
        session.host.tell(common::closed_words(month, *since) + u"\n登録できません"_s, u"締め済み"_s);
    return since.has_value();
}

/// False if the save ended with a message and nothing was posted.
bool post_in_turn(frame::Session& session, const QSet<int>& months, const QList<ExchangeRow>& rows) {
    const frame::Turn turn(session.link);
    const auto closed = [&](int month) { return is_closed(session, month); };
    if (!turn.granted() || std::ranges::any_of(months, closed))
        return false;
    if (is_main_pc(session.settings) && manager_at_work(session)) {
        session.host.tell(u"もう一度、ボタンを押してください"_s, u"プログラム使用中"_s);
        return false;
    }
    post_rows(session.settings, rows);
    session.host.yield();
    return true;
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
    const QString path = store::exchange_path(settings, posting_file);
    try {
        append(path, rows);
    } catch (const store::Error& error) {
        if (error.code() != store::Code::Replaced)
            throw;
        append(path, rows);
    }
}

Saved post(frame::Session& session, const QSet<int>& months, const QList<ExchangeRow>& rows) {
    if (rows.isEmpty() || !post_in_turn(session, months, rows))
        return Saved::Nothing;
    if (is_main_pc(session.settings))
        start_manager(session);
    return Saved::Posted;
}

Saved 保存処理(frame::Session& session, const MonthSheet& sheet, const PostedEmployee& employee) {
    if (employee.key == 0)
        return Saved::Nothing;
    const QString stamp = session.host.now().toString(u"yyyyMMddhhmmss"_s);
    return post(session, {sheet.month.month_key()}, rows_to_post(sheet, employee, stamp));
}

} // namespace entry
