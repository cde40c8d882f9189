// rovena-import: takes a time recorder's file over into the months without a display, and tells what became of each
// line.

#include "base/literals.h"
#include "console_host.h"
#include "frame/startup.h"
#include "intake/accept.h"
#include "intake/profile_store.h"
#include "intake/report.h"
#include "platform/paths.h"
#include "platform/rights.h"
#include "platform/terminal.h"
#include "store/files.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <cstdio>

using namespace base;

namespace {

const QCommandLineOption profile_option(u"profile"_s, u"列の割り当ての名前 (なければ見出しから決める)"_s, u"name"_s);
const QCommandLineOption preview_option(u"preview"_s, u"各行がどうなるかを示すだけで、何も書かない"_s);
const QCommandLineOption replace_option(u"replace"_s, u"違う時刻が入っている日も置きかえる"_s);
const QCommandLineOption draft_option(u"draft"_s, u"登録せず、このPCの下書きに入れる"_s);
const QCommandLineOption root_option(
    u"root"_s, u"rovena-installに渡したフォルダ (なければこのプログラムの場所から探す)"_s, u"folder"_s);

enum Status { all_taken = 0, some_left = 1, unusable = 2 };

int refuse(const QString& text) {
    std::fprintf(stderr, "rovena-import: %s\n", qPrintable(text));
    return unusable;
}

void say(const QString& line) {
    std::fprintf(stdout, "%s\n", qPrintable(line));
}

/// The named profile, else the one that the headings tell; nothing if there is no such name.
std::optional<intake::Profile> profile_for(
    const QCommandLineParser& parser, store::SettingTables& tables, const intake::RecorderFile& file) {
    if (parser.isSet(profile_option))
        return intake::kept_profile(tables, parser.value(profile_option));
    return intake::guessed_profile(file);
}

class Import {
public:
    Import(const QCommandLineParser& parser, const QString& folder) : m_parser(parser), m_start(m_session, folder) {}

    int run(const QString& path) {
        if (!m_start.read_settings())
            return unusable;
        const auto place = frame::take_place(m_settings);
        const auto [file, trouble] = intake::open_recorder_file(path);
        if (!trouble.isEmpty())
            return refuse(u"%1 %2"_s.arg(path, trouble));
        const auto profile = profile_for(m_parser, m_tables, file);
        if (!profile)
            return refuse(u"「%1」という割り当てはありません"_s.arg(m_parser.value(profile_option)));
        const intake::Preview preview = intake::look(m_session, file, *profile);
        if (!preview.refused.isEmpty())
            return refuse(preview.refused);
        const bool only_look = m_parser.isSet(preview_option);
        const intake::Acceptance taken = only_look ? intake::Acceptance{} : take(preview);
        for (const QString& line : intake::report(preview, taken))
            say(line);
        say(only_look ? intake::summary(preview) : intake::summary(preview) + taken.words());
        return everything_went(preview, taken) ? all_taken : some_left;
    }

private:
    intake::Acceptance take(const intake::Preview& preview) {
        const auto into = m_parser.isSet(draft_option) ? intake::Into::Draft : intake::Into::Tables;
        return accept(m_session, preview, days_to_accept(preview, m_parser.isSet(replace_option)), into);
    }

    bool everything_went(const intake::Preview& preview, const intake::Acceptance& taken) const {
        const int different = m_parser.isSet(replace_option) ? 0 : preview.count(intake::State::Different);
        return preview.count(intake::State::NotUnderstood) == 0 && different == 0 &&
               taken.count(intake::Became::LeftOut) == 0;
    }

    const QCommandLineParser& m_parser;
    base::Settings m_settings;
    ConsoleHost m_host;
    store::SettingTables m_tables{m_settings};
    frame::TurnLink m_link{m_settings, m_host};
    frame::Session m_session{m_settings, m_host, m_tables, m_link};
    frame::stg m_start;
};

int run(const QCommandLineParser& parser) {
    const QString folder = parser.isSet(root_option) ? parser.value(root_option) : platform::program_folder();
    const QString tree = platform::install_root(platform::install_drive(folder));
    if (!QFile::exists(platform::portable(tree)))
        return refuse(u"会社のデータが見つかりません (--root)"_s);
    platform::make_files_for(tree);
    try {
        return Import(parser, folder).run(parser.positionalArguments().constFirst());
    } catch (const store::Error& error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.text()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return some_left;
}

} // namespace

int main(int argc, char** argv) {
    platform::settle_terminal();
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"タイムレコーダーのファイルを出勤時間に取り込むプログラム"_s);
    parser.addHelpOption();
    parser.addPositionalArgument(u"FILE"_s, u"タイムレコーダーのファイル"_s);
    parser.addOptions({profile_option, preview_option, replace_option, draft_option, root_option});
    parser.process(application);
    if (parser.positionalArguments().size() != 1)
        return refuse(u"ファイルを一つ指定してください (--help)"_s);
    return run(parser);
}
