#include "store/server_pipe.h"

#include "base/literals.h"
#include "platform/socket_wait.h"
#include "store/server.h"
#include "store/server_connect.h"
#include "store/silence.h"

#include <QDeadlineTimer>
#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

namespace store {

using namespace base;

namespace {

struct Meaning {
    QByteArrayView state; ///< the beginning of the server's code
    Code code;
};

// What is told more closely stands first.
constexpr std::array meanings{
    Meaning{"55P03", Code::Busy}, // a lock wasn't to be had in time
    Meaning{"40", Code::Busy},    // two waited for each other
    Meaning{"42501", Code::Forbidden},
    Meaning{"25006", Code::ReadOnly},
    Meaning{"53100", Code::Full},
    Meaning{"53", Code::Busy}, // connections, memory
    Meaning{"28", Code::Refused},
    Meaning{"3", Code::Missing},
    Meaning{"XX001", Code::Damaged},
    Meaning{"XX002", Code::Damaged},
    Meaning{"08", Code::Io},
    Meaning{"57", Code::Io}, // the server is shutting down, or starting
    Meaning{"58", Code::Io},
    Meaning{"22", Code::Misuse},
    Meaning{"23", Code::Misuse},
    Meaning{"42", Code::Misuse},
};

Code meaning_of(const QByteArray& state) {
    if (state.isEmpty()) // libpq itself: the connection is cut
        return Code::Io;
    const auto meaning =
        std::ranges::find_if(meanings, [&](const Meaning& candidate) { return state.startsWith(candidate.state); });
    return meaning == meanings.end() ? Code::Other : meaning->code;
}

bool is_good(ExecStatusType status) {
    return status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK || status == PGRES_EMPTY_QUERY;
}

} // namespace

void check_connection_words(const QByteArray& words) {
    const Options options(PQconninfoParse(words.constData(), nullptr));
    if (!options) // libpq would repeat what it doesn't understand, which may be a password
        throw std::runtime_error(
            "データサーバーの指定が読めません。libpq の書き方（host=... dbname=...）で指定してください。");
    for (const PQconninfoOption* option = options.get(); option->keyword; ++option)
        if (QByteArrayView(option->keyword).endsWith("password") && option->val)
            throw std::runtime_error("パスワードは、ここではなく libpq のパスワードファイルに書いてください。");
}

ServerPipe::ServerPipe(const QByteArray& connection, const QString& opened)
    : m_connection(connect_to(connection, opened)), path(opened) {
    PQsetNoticeProcessor(
        m_connection, [](void*, const char*) {}, nullptr);
    PQsetnonblocking(m_connection, 1);
    PQenterPipelineMode(m_connection);
}

std::chrono::milliseconds ServerPipe::usual_silence() const {
    const qint64 timeout = value_of(Options(PQconninfo(m_connection)), "tcp_user_timeout").toLongLong();
    constexpr qint64 usual = 10'000;
    return std::chrono::milliseconds(3 * (timeout > 0 ? timeout : usual));
}

Awaited ServerPipe::said(int accepted, const QString& sql) {
    if (accepted != 1)
        fail(QString::fromUtf8(PQerrorMessage(m_connection)).trimmed());
    m_unheard.push_back({std::make_shared<Answer>(), sql});
    return m_unheard.back().answer;
}

Awaited ServerPipe::say(const QByteArray& sql, const Values& values) {
    return said(PQsendQueryParams(m_connection, sql.constData(), int(values.size()), nullptr, values.constData(),
                    nullptr, nullptr, 0),
        QString::fromUtf8(sql));
}

Awaited ServerPipe::prepare(const QByteArray& name, const QByteArray& native, const QString& sql) {
    return said(PQsendPrepare(m_connection, name.constData(), native.constData(), 0, nullptr), sql);
}

Awaited ServerPipe::describe(const QByteArray& name, const QString& sql) {
    return said(PQsendDescribePrepared(m_connection, name.constData()), sql);
}

Awaited ServerPipe::run(const QByteArray& name, const Values& values, const QString& sql) {
    return said(PQsendQueryPrepared(
                    m_connection, name.constData(), int(values.size()), values.constData(), nullptr, nullptr, 0),
        sql);
}

void ServerPipe::part() {
    if (PQpipelineSync(m_connection) != 1)
        fail(QString::fromUtf8(PQerrorMessage(m_connection)).trimmed());
    m_unheard.push_back({});
}

void ServerPipe::send() noexcept {
    PQflush(m_connection); // what doesn't go off now does with the next wait
}

Result ServerPipe::hear(const Awaited& one) {
    if (!one->result && !one->error) {
        part();
        listen();
    }
    if (one->error)
        throw Error(*one->error);
    return std::move(one->result);
}

bool ServerPipe::answers_within(const Awaited& one, std::chrono::milliseconds patience) {
    const QDeadlineTimer limit(patience);
    while (!one->result && !one->error) {
        const int left = PQflush(m_connection);
        const bool waits = PQisBusy(m_connection) != 0 && PQstatus(m_connection) != CONNECTION_BAD;
        if (!waits) {
            take(m_unheard.front());
            m_unheard.pop_front();
        } else if (!platform::socket_ready(
                       PQsocket(m_connection), left > 0, std::chrono::milliseconds(limit.remainingTime()))) {
            return false;
        } else {
            PQconsumeInput(m_connection);
        }
    }
    return true;
}

void ServerPipe::hear_all() {
    part();
    std::vector<Awaited> all;
    for (const Said& said : m_unheard)
        if (said.answer)
            all.push_back(said.answer);
    listen();
    for (const Awaited& one : all)
        if (one->error)
            throw Error(*one->error);
}

bool ServerPipe::settle() noexcept {
    try {
        if (!m_unheard.empty()) {
            part();
            listen();
        }
    } catch (const Error&) {
        return false; // told by m_broken
    }
    return !m_broken;
}

void ServerPipe::run_script(const QByteArray& sql) {
    hear_all();
    PQexitPipelineMode(m_connection);
    if (PQsendQuery(m_connection, sql.constData()) != 1)
        fail(QString::fromUtf8(PQerrorMessage(m_connection)).trimmed());
    std::optional<Error> first;
    while (const Result result = next())
        if (!first && !is_good(PQresultStatus(result.get())))
            first = error_of(result.get(), QString::fromUtf8(sql));
    const bool again = PQenterPipelineMode(m_connection) == 1;
    if (first)
        throw Error(*first);
    if (!again)
        fail(QString::fromUtf8(PQerrorMessage(m_connection)).trimmed());
}

/// What nobody waits for any more is dropped as it comes.
void ServerPipe::listen() {
    while (!m_unheard.empty()) {
        take(m_unheard.front());
        m_unheard.pop_front();
    }
}

void ServerPipe::take(const Said& said) {
    if (!said.answer) {
        while (PQresultStatus(next().get()) != PGRES_PIPELINE_SYNC) {
        }
        m_first.reset();
        return;
    }
    Result result = next();
    while (!result)
        result = next();
    while (next()) {
    }
    if (is_good(PQresultStatus(result.get()))) {
        said.answer->result = std::move(result);
        return;
    }
    if (!m_first)
        m_first = error_of(result.get(), said.sql);
    said.answer->error = m_first;
}

Result ServerPipe::next() {
    wait_for_more();
    return Result(PQgetResult(m_connection));
}

void ServerPipe::wait_for_more() {
    Silence told;
    for (;;) {
        const int left = PQflush(m_connection);
        const bool heard = left >= 0 && PQisBusy(m_connection) == 0;
        if (PQstatus(m_connection) == CONNECTION_BAD)
            fail(QString::fromUtf8(PQerrorMessage(m_connection)).trimmed());
        if (heard)
            return;
        if (!stirs(left > 0, told))
            fail(u"サーバーから応答がありません。"_s);
        PQconsumeInput(m_connection);
    }
}

/// Whether anything comes, or goes where something is left to send, before the server has been silent for too long.
bool ServerPipe::stirs(bool to_send, Silence& told) const {
    const auto unremarked = std::min(silence, unremarked_silence);
    if (platform::socket_ready(PQsocket(m_connection), to_send, unremarked))
        return true;
    told.is_long();
    return platform::socket_ready(PQsocket(m_connection), to_send, silence - unremarked);
}

/// The server's sentence goes without the details, in which values may stand.
Error ServerPipe::error_of(const PGresult* result, const QString& sql) const {
    const char* sentence = PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
    const QString said = QString::fromUtf8(sentence ? sentence : PQerrorMessage(m_connection)).trimmed();
    const Code code = meaning_of(PQresultErrorField(result, PG_DIAG_SQLSTATE));
    if (code == Code::ReadOnly && reads_only(m_connection)) // since it was connected
        return Error(Code::Away, path, sql, read_only_words.toString() + u'\n' + said);
    return Error(code, path, sql, said);
}

void ServerPipe::fail(const QString& reason) {
    m_broken = true;
    const Error error(Code::Io, path, {}, reason);
    for (const Said& said : m_unheard)
        if (said.answer && !said.answer->result)
            said.answer->error = m_first ? m_first : error;
    m_unheard.clear();
    throw error;
}

/// The first look may take in the server's last word, and only the second meets the end.
bool ServerPipe::usable() {
    if (m_broken)
        return false;
    const bool heard = PQconsumeInput(m_connection) == 1 && PQconsumeInput(m_connection) == 1;
    return heard && PQstatus(m_connection) == CONNECTION_OK && !reads_only(m_connection);
}

} // namespace store
