// rovena-tour ROOT --out DIR: the tour over the install tree under ROOT. Ends with 0 only if everything was as it must
// be.

#include "base/literals.h"
#include "store/error.h"
#include "tour.h"
#include "ui/application.h"
#include "ui/qt_host.h"
#include "ui/style.h"

#include <QCommandLineParser>
#include <QProcess>
#include <cstdio>

namespace {

using namespace base;

const QCommandLineOption out_option(u"out"_s, u"Folder for the pictures and the dump of the tables."_s, u"folder"_s);
const QCommandLineOption month_option(
    u"month-picture"_s, u"Only a picture of this name of the month that a tour has typed."_s, u"name"_s);

/// The scale is fixed for the life of a process, so that the picture at 200 % is another one's.
void picture_at_200_percent(const QString& root, const QString& out) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_SCALE_FACTOR"_s, u"2"_s);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(
        QCoreApplication::applicationFilePath(), {root, u"--out"_s, out, u"--month-picture"_s, u"13-at-200-percent"_s});
    e2e::demand(process.waitForFinished(-1) && process.exitCode() == 0, u"the picture at 200 % failed"_s);
}

void walk(ui::QtHost& host, const QCommandLineParser& arguments) {
    const QString root = QDir(arguments.positionalArguments().value(0)).absolutePath();
    const QDir out(arguments.value(out_option));
    e2e::demand(out.mkpath(u"."_s), u"can't make the folder "_s + out.path());
    tour::Boxes boxes(out);
    {
        ui::Program program(host, root);
        const int status = program.start();
        e2e::demand(status == 0 && program.running(), u"the program doesn't start: "_s + boxes.unexpected().join(u' '));
        tour::Tour tour(program, boxes, out);
        if (arguments.isSet(month_option)) {
            tour.picture_of_month(arguments.value(month_option));
            return;
        }
        tour.walk();
    }
    picture_at_200_percent(root, out.absolutePath());
    std::printf("the tour is through: what was typed was read back\n");
}

int failed(const QString& text) {
    std::fprintf(stderr, "rovena-tour: %s\n", qPrintable(text));
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    ui::QtHost host;
    ui::Application application(argc, argv, host);
    ui::apply_style(application);
    QCommandLineParser arguments;
    arguments.addHelpOption();
    arguments.addPositionalArgument(u"root"_s, u"Folder that holds an install tree with a made-up company."_s);
    arguments.addOptions({out_option, month_option});
    arguments.process(application);
    if (arguments.positionalArguments().size() != 1 || !arguments.isSet(out_option))
        return failed(u"say the folder of the install tree, and --out"_s);
    try {
        walk(host, arguments);
        return 0;
    } catch (const store::Error& error) {
        return failed(error.text());
    } catch (const std::exception& error) {
        return failed(QString::fromUtf8(error.what()));
    }
}
