// jyunban: the turn service on the main PC.

#include "base/literals.h"
#include "exchange/places.h"
#include "exchange/turn_server.h"
#include "frame/error_list.h"
#include "frame/exchange_files.h"
#include "frame/turn_status.h"
#include "platform/open_files.h"
#include "platform/paths.h"
#include "platform/service.h"
#include "platform/stop_signal.h"
#include "platform/terminal.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <algorithm>
#include <cstdio>
#include <limits>
#include <optional>

using namespace base;

namespace {

const QCommandLineOption bind_option(u"bind"_s, u"受け付けるアドレス"_s, u"address"_s, u"0.0.0.0"_s);
const QCommandLineOption port_option(u"port"_s, u"受け付けるポート (0は空いているポート)"_s, u"port"_s, u"1001"_s);
const QCommandLineOption root_option(
    u"root"_s, u"共有データのフォルダ (なければこのプログラムの場所から探す)"_s, u"folder"_s);
const QCommandLineOption manager_option(u"manager"_s, u"順番が戻ったときに動かすプログラム"_s, u"program"_s);
const QCommandLineOption local_option(
    u"local"_s, u"jyusinkanriに渡す、このPCのデータのフォルダ (なければ共有データと同じ)"_s, u"folder"_s);
const QCommandLineOption log_option(u"log"_s, u"記録ファイル (なければ標準エラー出力)"_s, u"file"_s);
const QCommandLineOption connections_option(u"connections"_s, u"同時に受け付ける接続の数"_s, u"count"_s, u"512"_s);
const QCommandLineOption turn_option(u"turn-seconds"_s, u"順番を持っていられる秒数"_s, u"seconds"_s, u"30"_s);

const QCommandLineOption status_option(
    u"status"_s, u"動いているjyunbanに、いま順番を持っているPCを尋ねて終わる (--bind、--portで相手を指定)"_s);

/// What the process has open beside its clients: the log, the manager's pipes, and clients that are being turned away.
constexpr int other_files = 32;

std::optional<int> number_of(const QCommandLineParser& parser, const QCommandLineOption& option, int least, int most) {
    bool readable = false;
    const int number = parser.value(option).toInt(&readable);
    return readable && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

/// What the command line asks for; nothing where it can't be followed.
std::optional<exchange::TurnServerOptions> options_of(const QCommandLineParser& parser) {
    constexpr int any = std::numeric_limits<int>::max() / 2000;
    const auto root = parser.isSet(root_option) ? std::optional(platform::portable(parser.value(root_option)))
                                                : exchange::server_root_above(QCoreApplication::applicationDirPath());
    const auto port = number_of(parser, port_option, 0, std::numeric_limits<quint16>::max());
    const auto connections = number_of(parser, connections_option, 1, any);
    const auto seconds = number_of(parser, turn_option, 1, any);
    exchange::TurnServerOptions options;
    if (!root || !port || !connections || !seconds || !options.bind.setAddress(parser.value(bind_option)))
        return std::nullopt;
    options.port = quint16(*port);
    options.limits.connections = std::max(1, platform::room_for_files(*connections + other_files) - other_files);
    options.limits.turn = std::chrono::seconds(*seconds);
    options.manager = parser.isSet(manager_option) ? parser.value(manager_option) : frame::manager_file(*root);
    options.manager_arguments = {u"--root"_s, *root};
    if (parser.isSet(local_option))
        options.manager_arguments << u"--local"_s << parser.value(local_option);
    return options;
}

/// Asks the service that runs at the address and port of the command line, from this PC.
int tell_status(const QCommandLineParser& parser) {
    constexpr std::chrono::milliseconds patience(5000);
    const QString bind = parser.value(bind_option);
    const QString host = QHostAddress(bind) == QHostAddress(QHostAddress::AnyIPv4) ? u"127.0.0.1"_s : bind;
    const auto port = number_of(parser, port_option, 1, std::numeric_limits<quint16>::max());
    frame::TurnStatusQuestion question;
    if (port)
        question.ask(host, quint16(*port));
    question.wait(patience);
    const QString text = question.answered()
                             ? words(*question.answer())
                             : u"jyunban: %1:%2 から答えがありません"_s.arg(host, parser.value(port_option));
    std::fprintf(question.answered() ? stdout : stderr, "%s\n", text.toUtf8().constData());
    return question.answered() ? 0 : 1;
}

/// A crash leaves its dump where the errors lie, those of the manager as well.
void leave_dumps(const exchange::TurnServerOptions& options) {
    base::Settings settings;
    settings.local_root = options.manager_arguments.constLast();
    frame::leave_dumps(settings);
}

int serve(const exchange::TurnServerOptions& options, const QCommandLineParser& parser) {
    leave_dumps(options);
    exchange::EventLog log(parser.value(log_option));
    if (const int most = options.limits.connections; most < parser.value(connections_option).toInt())
        log.line(u"開けるファイルが少ないため、同時の接続を%1までにします"_s.arg(most));
    exchange::TurnServer server(options, log);
    if (!server.listen())
        return 1;
    const platform::StopSignal stop([&] { server.stop([] { QCoreApplication::quit(); }); });
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    const platform::Service service;
    platform::settle_terminal();
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"保存の順番を一台ずつに渡すプログラム"_s);
    parser.addHelpOption();
    parser.addOptions({bind_option, port_option, root_option, local_option, manager_option, log_option,
        connections_option, turn_option, status_option});
    parser.process(application);
    if (parser.isSet(status_option))
        return tell_status(parser);

    const auto options = options_of(parser);
    if (!options) {
        std::fputs("jyunban: 指定が正しくないか、共有データのフォルダが見つかりません (--help)\n", stderr);
        return 2;
    }
    return serve(*options, parser);
}
