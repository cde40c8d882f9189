#include "store/dump.h"

#include "base/literals.h"
#include "store/engine.h"
#include "store/file_engine.h"
#include "store/server_place.h"
#include "store/sums.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <optional>
#include <utility>

namespace store {

using namespace base;

namespace {

/// A tool of the server's client package. One that neither writes nor ends for so long is stopped: databases are held
/// meanwhile.
class Tool {
public:
    Tool(const QString& name, const QStringList& arguments, const QString& file, std::chrono::milliseconds patience)
        : m_name(name), m_file(file), m_patience(patience) {
        const QString program = QStandardPaths::findExecutable(name);
        if (program.isEmpty())
            throw Error(Code::Other, file, {},
                u"%1 が見つかりません。PostgreSQL のクライアントのプログラムを入れてください。"_s.arg(name));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        // As the program connects; the administrator's words go before these.
        for (const auto& [word, value] :
            {std::pair(u"PGCONNECT_TIMEOUT"_s, u"10"_s), {u"PGTARGETSESSIONATTRS"_s, u"read-write"_s}})
            if (!environment.contains(word))
                environment.insert(word, value);
        m_process.setProcessEnvironment(environment);
        m_process.start(program, arguments);
    }

    /// The next line that it prints, without its end; nothing behind the last.
    std::optional<QByteArray> line() {
        QDeadlineTimer most(m_patience / 2); // by then the wait hasn't ended for the tool's own end
        while (!m_process.canReadLine() && m_process.waitForReadyRead(int(m_patience.count())))
            most.setRemainingTime(m_patience / 2);
        if (!m_process.canReadLine() && m_process.state() == QProcess::Running && most.hasExpired())
            give_up();
        QByteArray line = m_process.readLine();
        if (line.isEmpty())
            return std::nullopt;
        if (line.endsWith('\n'))
            line.chop(1);
        return line;
    }

    /// Waits for its end, as long as its file grows.
    void end(Code code) {
        QDeadlineTimer limit(m_patience);
        qint64 written = QFileInfo(m_file).size();
        while (!m_process.waitForFinished(1 + int(m_patience.count() / 20)) && m_process.state() == QProcess::Running) {
            if (const qint64 now = QFileInfo(m_file).size(); std::exchange(written, now) != now)
                limit.setRemainingTime(m_patience);
            else if (limit.hasExpired())
                give_up();
        }
        if (m_process.exitStatus() != QProcess::NormalExit || m_process.exitCode() != 0)
            throw Error(code, m_file, {}, QString::fromLocal8Bit(m_process.readAllStandardError()).trimmed());
    }

private:
    [[noreturn]] void give_up() {
        m_process.kill();
        m_process.waitForFinished();
        throw Error(Code::Io, m_file, {},
            u"%1 から %2 秒のあいだ応答がないため、中止しました。サーバーとネットワークを確かめて、もう一度行ってください。"_s
                .arg(m_name)
                .arg(std::chrono::duration_cast<std::chrono::seconds>(m_patience).count()));
    }

    QString m_name, m_file;
    std::chrono::milliseconds m_patience;
    QProcess m_process;
};

/// A value as the server's text form writes it; nothing for Null.
std::optional<QByteArray> value_of(QByteArrayView text) {
    if (text == "\\N")
        return std::nullopt;
    constexpr QByteArrayView letters = "bfnrtv", meant = "\b\f\n\r\t\v";
    QByteArray value;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool escaped = text[i] == '\\' && i + 1 < text.size();
        const qsizetype letter = escaped ? letters.indexOf(text[++i]) : -1;
        value += letter < 0 ? text[i] : meant[letter];
    }
    return value.isNull() ? QByteArray("") : value;
}

/// The rows of a dump on their way into a file.
class Unpacking {
public:
    Unpacking(Tool& tool, Database& target) : m_tool(tool), m_target(target) {}

    void run() {
        static const QRegularExpression rows_follow(
            u"^COPY (?:\"[^\"]+\"|[^.\"]+)\\.\"?([^\"]+)\"? \\((.+)\\) FROM stdin;$"_s);
        while (const std::optional<QByteArray> line = m_tool.line()) {
            const auto found = rows_follow.match(QString::fromUtf8(*line));
            if (found.hasMatch())
                take_table(found.captured(1), found.captured(2).remove(u'"').split(u", "_s));
        }
    }

private:
    void take_table(const QString& table, const QStringList& fields) {
        Statement add = prepared(table, fields);
        while (const std::optional<QByteArray> line = m_tool.line()) {
            if (*line == "\\.")
                return;
            add.reset();
            int place = 0;
            for (const QByteArray& text : line->split('\t')) {
                const std::optional<QByteArray> value = value_of(text);
                value ? add.bind_utf8(++place, *value) : add.bind_null(++place);
            }
            add.run();
        }
        throw Error(Code::Damaged, m_target.path(), {}, u"途中で終わっています。"_s);
    }

    Statement prepared(const QString& table, const QStringList& fields) {
        const QList<Column> there = m_target.columns_of(table);
        QStringList names;
        for (const QString& field : fields) {
            names << (field == u"rowid" ? field : quoted(field));
            if (field != u"rowid" && std::ranges::find(there, field, &Column::name) == there.end())
                m_target.exec(u"alter table %1 add column %2 text"_s.arg(quoted(table), quoted(field)).toStdString());
        }
        const QString places = QStringList(fields.size(), u"?"_s).join(u", ");
        return m_target.prepare(
            u"insert into %1 (%2) values (%3)"_s.arg(quoted(table), names.join(u", "), places).toStdString());
    }

    Tool& m_tool;
    Database& m_target;
};

} // namespace

bool can_dump() {
    return !QStandardPaths::findExecutable(u"pg_dump"_s).isEmpty() &&
           !QStandardPaths::findExecutable(u"pg_restore"_s).isEmpty();
}

void dump_into(const Held& source, const QString& target, std::chrono::milliseconds patience) {
    const ServerPlace place = place_at(source.path()).value();
    Tool tool(u"pg_dump"_s,
        {u"--format=custom"_s, u"--no-password"_s, u"--load-via-partition-root"_s,
            u"--schema="_s + quoted(place.schema), u"--file="_s + target,
            u"--dbname="_s + QString::fromUtf8(place.connection)},
        target, patience);
    tool.end(Code::Other);
}

void file_of_dump(const QString& dump, Kind kind, const QString& target, std::chrono::milliseconds patience) {
    Tool tool(u"pg_restore"_s, {u"--data-only"_s, u"--file=-"_s, dump}, dump, patience);
    Database file = Engine::database(define_file(target, kind));
    Transaction filling(file);
    Unpacking(tool, file).run();
    tool.end(Code::Damaged);
    filling.commit();
}

void check_dump(const QString& dump, Kind kind, const Held& source) {
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw Error(Code::ReadOnly, QDir::tempPath(), {}, folder.errorString());
    const QString copy = folder.filePath(u"copy.mdb"_s);
    file_of_dump(dump, kind, copy);
    check_copy(copy, kind, source.rows());
    Database original = Database::open(source.path(), kind), copied = Database::open(copy, kind);
    if (table_sums(original, kind) != table_sums(copied, kind))
        throw Error(Code::Damaged, dump, {}, u"元のデータベースと違います。"_s);
}

} // namespace store
