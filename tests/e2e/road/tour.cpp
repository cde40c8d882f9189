// rovena-tour ROAD ROOT --out DIR: walks a road over an install tree and leaves its pictures, its printed reports and
// its dumps. Ends with 0 only if everything was as it must be.

#include "base/literals.h"
#include "e2e/road/walker.h"
#include "store/error.h"
#include "ui/application.h"
#include "ui/parts/style.h"

#include <QCommandLineParser>
#include <cstdio>

using namespace base;

namespace {

int failed(const QString& text) {
    std::fprintf(stderr, "rovena-tour: %s\n", qPrintable(text));
    return 1;
}

void tell_time(const e2e::Step& step, std::chrono::milliseconds time) {
    std::printf("%6lld ms  %s %s\n", static_cast<long long>(time.count()), qPrintable(step.act),
        qPrintable(step.words.join(u" | "_s)));
}

} // namespace

int main(int argc, char** argv) {
    ui::Application application(argc, argv, e2e::desk());
    ui::apply_style(application);
    const QCommandLineOption out(u"out"_s, u"Folder for what the road leaves."_s, u"folder"_s);
    const QCommandLineOption suffix(u"suffix"_s, u"Ends the names of the pictures."_s, u"text"_s);
    const QCommandLineOption times(u"times"_s, u"Tells how long each step took."_s);
    QCommandLineParser arguments;
    arguments.addHelpOption();
    arguments.addPositionalArgument(u"road"_s, u"Its name in tests/e2e/roads."_s);
    arguments.addPositionalArgument(u"root"_s, u"Folder that holds the install tree."_s);
    arguments.addOptions({out, suffix, times});
    arguments.process(application);
    const QStringList words = arguments.positionalArguments();
    if (words.size() != 2 || !QDir().mkpath(arguments.value(out)))
        return failed(u"say the road, the folder of the install tree, and --out"_s);
    try {
        e2e::Pictures pictures(e2e::Taken::Yes, QDir(arguments.value(out)), arguments.value(suffix));
        e2e::Walker walker(e2e::desk(), pictures, QDir(words[1]).absolutePath());
        if (arguments.isSet(times))
            walker.walked = tell_time;
        walker.walk(words[0]);
        std::printf("%s: all was as it must be\n", qPrintable(words[0]));
        return 0;
    } catch (const store::Error& error) {
        return failed(error.text());
    } catch (const std::exception& error) {
        return failed(QString::fromUtf8(error.what()));
    }
}
