// jyusinkanri: applies posted rows to the tables, and ends.

#include "base/literals.h"
#include "exchange/event_log.h"
#include "exchange/places.h"
#include "exchange/run.h"
#include "frame/error_list.h"
#include "platform/paths.h"
#include "platform/rights.h"
#include "platform/screen.h"
#include "progress_window.h"

#include <QApplication>
#include <QCommandLineParser>
#include <cstdio>
#include <memory>
#include <optional>

using namespace base;

namespace {

const QCommandLineOption root_option(
    u"root"_s, u"共有データのフォルダ (なければこのプログラムの場所から探す)"_s, u"folder"_s);
const QCommandLineOption local_option(
    u"local"_s, u"errmsg.txtを書くこのPCのフォルダ (なければ共有データのフォルダ)"_s, u"folder"_s);

std::unique_ptr<QCoreApplication> make_application(int& argc, char** argv) {
    if (!platform::screen_is_there())
        return std::make_unique<QCoreApplication>(argc, argv);
    platform::go_on_without_screen();
    return std::make_unique<QApplication>(argc, argv);
}

/// The two roots; nothing if the server root isn't named and none lies above the program.
std::optional<base::Settings> settings_of(const QCommandLineParser& parser) {
    const auto root = parser.isSet(root_option) ? std::optional(parser.value(root_option))
                                                : exchange::server_root_above(QCoreApplication::applicationDirPath());
    if (!root)
        return std::nullopt;
    base::Settings settings;
    settings.server_root = *root;
    settings.local_root = parser.isSet(local_option) ? parser.value(local_option) : *root;
    return settings;
}

std::unique_ptr<ProgressWindow> make_window() {
    auto window = std::make_unique<ProgressWindow>();
    window->show();
    window->show_rows(0);
    return window;
}

/// The window, if there is one, shows how far it is.
int apply_all(const base::Settings& settings, ProgressWindow* window) {
    exchange::EventLog log;
    const exchange::Watch watch{
        .trouble =
            [&](const QString& message) {
                log.line(message);
                if (!frame::add_error(settings, message))
                    log.line(u"errmsg.txt に書き込めません"_s);
            },
        .taken =
            [&](qint64 rows) {
                if (window)
                    window->show_rows(rows);
            },
    };
    frame::write_waiting_errors(settings);
    return exchange::run_manager(settings, watch);
}

} // namespace

int main(int argc, char** argv) {
    const auto application = make_application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"受信した勤務データを登録するプログラム"_s);
    parser.addHelpOption();
    parser.addOptions({root_option, local_option});
    parser.process(*application);

    const auto settings = settings_of(parser);
    if (!settings) {
        std::fputs("jyusinkanri: 共有データのフォルダが見つかりません (--help)\n", stderr);
        return 1;
    }
    platform::make_files_for(settings->server_root);
    frame::leave_dumps(*settings);
    const bool shown = qobject_cast<QApplication*>(application.get()) != nullptr;
    const std::unique_ptr<ProgressWindow> window = shown ? make_window() : nullptr;
    return apply_all(*settings, window.get());
}
