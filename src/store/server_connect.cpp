#include "store/server_connect.h"

#include "base/literals.h"
#include "store/error.h"
#include "store/server_names.h"

#include <QElapsedTimer>
#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace store {

using namespace base;

namespace {

/// Everything that the program sets of a connection, where what the administrator wrote doesn't: a server that is away
/// is told after ten seconds, also in the midst of a statement.
constexpr std::pair<const char*, const char*> defaults[]{
    {"connect_timeout", "10"},
    {"tcp_user_timeout", "10000"},
    {"keepalives_idle", "10"},
    {"keepalives_interval", "1"},           // else the system looks whether an answer came only 75 seconds later
    {"target_session_attrs", "read-write"}, // of several hosts the one that others follow
    {"options", "-c tcp_keepalives_idle=10 -c tcp_keepalives_interval=5 -c tcp_keepalives_count=3"
                " -c client_connection_check_interval=2s -c idle_in_transaction_session_timeout=5min"},
};

/// All options as libpq takes them where the words name a service, nothing otherwise. It reads the service's file
/// behind what it is given, so that only a connection tells what stands there: one to nowhere.
Options with_service(const QByteArray& words) {
    const Options written(PQconninfoParse(words.constData(), nullptr));
    if (value_of(written, "service").isEmpty() && qEnvironmentVariableIsEmpty("PGSERVICE"))
        return {};
    const char* const names[]{"dbname", "host", nullptr};
    const char* const values[]{words.constData(), "/", nullptr};
    const std::unique_ptr<PGconn, decltype(&PQfinish)> nowhere(
        PQconnectStartParams(names, values, /*expand_dbname=*/1), PQfinish);
    return Options(PQconninfo(nowhere.get()));
}

bool is_said(const QByteArray& value) {
    return !value.isEmpty() && value != "any"; // which libpq says by itself of target_session_attrs
}

PGconn* connected(const QByteArray& words) {
    const Options by_service = with_service(words);
    std::vector<const char*> names, values;
    const auto add = [&](const char* name, const char* value) {
        names.push_back(name);
        values.push_back(value);
    };
    for (const auto& [name, value] : defaults)
        if (!is_said(value_of(by_service, name)))
            add(name, value);
    add("dbname", words.constData()); // is taken apart, and goes before what stands before it
    add("client_encoding", "UTF8");
    const QByteArray name = connection_name(); // whatever was written: by it the programs of other PCs are seen
    add("application_name", name.constData());
    add(nullptr, nullptr);
    return PQconnectdbParams(names.data(), values.data(), /*expand_dbname=*/1);
}

/// By the beginning of the server's code.
constexpr struct {
    QStringView state;
    Code code;
    QStringView text;
} of_server[]{
    {u"28P", Code::Refused, u"利用者名かパスワードが違います。パスワードファイルを確かめてください。"},
    {u"28", Code::Refused,
        u"この利用者は、このＰＣから接続できません。利用者名・データベース名・サーバーの pg_hba.conf "
        u"を確かめてください。"},
    {u"3D", Code::Refused, u"その名前のデータベースがありません。"},
    {u"42501", Code::Refused, u"この利用者には、このデータベースに接続する権限がありません。"},
    {u"53", Code::Refused, u"サーバーの接続の数がいっぱいです。"},
    {u"57", Code::Away, u"サーバーが起動中か停止中です。しばらく待ってください。"},
};

/// By what libpq itself says, in the system's language.
constexpr struct {
    QStringView english, japanese, text;
    Code code = Code::Refused;
} of_client[]{
    {u"password", u"パスワード", u"パスワードがありません。パスワードファイルを確かめてください。"},
    {u"certificate", u"証明書",
        u"サーバーの証明書を確かめられません。期限・サーバーの名前・ルート証明書を確かめてください。"},
    {u"SSL", u"SSL", u"サーバーと暗号化の方法が合いません。"},
    {u"definition of service", u"サービス定義", u"サービスファイルに、その名前がありません。"},
    {u"read-only", u"読み取り専用", read_only_words, Code::Away},
    {u"standby", u"スタンバイ", read_only_words, Code::Away},
    {u"FATAL", u"FATAL", {}},
};

QString said_by(PGconn* connection) {
    return QString::fromUtf8(PQerrorMessage(connection)).trimmed();
}

/// "FATAL:  28P01: ..." Without a regular expression: on Windows the end of a thread that used one can end the program.
QString code_in(const QString& said) {
    const auto is_of_code = [](QChar c) { return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z'); };
    for (const QString& part : said.split(u':'))
        if (const QString word = part.trimmed();
            word.size() == 5 && word[0].isDigit() && std::ranges::all_of(word, is_of_code))
            return word;
    return {};
}

/// libpq tells the server's code of a connection that fails in its most talkative words alone, and those only if they
/// are asked for before: by a second attempt, which may succeed.
QString code_of_another_attempt(PGconn* connection) {
    PQsetErrorVerbosity(connection, PQERRORS_VERBOSE);
    PQreset(connection);
    PQsetErrorVerbosity(connection, PQERRORS_DEFAULT);
    return code_in(said_by(connection));
}

Error error_of(const QString& state, const QString& said, const QString& path) {
    const auto told = [&](Code code, QStringView reason) {
        return Error(code, path, {}, (reason.toString() + u'\n' + said).trimmed());
    };
    for (const auto& [sign, code, text] : of_server)
        if (state.startsWith(sign))
            return told(code, text);
    for (const auto& [english, japanese, text, code] : of_client)
        if (said.contains(english) || said.contains(japanese))
            return told(code, text);
    return told(Code::Away, u"サーバーとネットワークを確かめてください。");
}

using Connection = std::unique_ptr<PGconn, decltype(&PQfinish)>;

/// The administrator's words may ask for less.
PGconn* released_if_writable(Connection connection, const QString& path) {
    if (reads_only(connection.get()))
        throw Error(Code::Away, path, {}, read_only_words.toString());
    return connection.release();
}

} // namespace

QByteArray value_of(const Options& options, const char* name) {
    for (const PQconninfoOption* option = options.get(); option && option->keyword; ++option)
        if (QByteArrayView(option->keyword) == name)
            return option->val;
    return {};
}

bool reads_only(const PGconn* connection) {
    constexpr std::array marks{"in_hot_standby", "default_transaction_read_only"};
    return std::ranges::any_of(
        marks, [&](const char* mark) { return QByteArrayView(PQparameterStatus(connection, mark)) == "on"; });
}

PGconn* connect_to(const QByteArray& words, const QString& path) {
    constexpr qint64 quick = 3000;
    QElapsedTimer taken;
    taken.start();
    Connection connection(connected(words), PQfinish);
    if (PQstatus(connection.get()) == CONNECTION_OK)
        return released_if_writable(std::move(connection), path);
    const QString said = said_by(connection.get());
    const QString state = taken.elapsed() < quick ? code_of_another_attempt(connection.get()) : QString();
    if (PQstatus(connection.get()) == CONNECTION_OK)
        return released_if_writable(std::move(connection), path);
    throw error_of(state, said, path);
}

} // namespace store
