// rovena-tour NEW SAMPLE --out DIR: the tour over two install trees, one of a company that has nothing in it yet and
// one of a made-up company. Ends with 0 only if everything was as it must be.

#include "base/literals.h"
#include "stage.h"
#include "store/error.h"
#include "ui/application.h"
#include "ui/parts/style.h"

#include <QCommandLineParser>
#include <QProcess>
#include <cstdio>
#include <optional>
#include <set>

namespace {

using namespace base;

const QCommandLineOption out_option(u"out"_s, u"Folder for the pictures and the dump of the tables."_s, u"folder"_s);
const QCommandLineOption percent_option(u"percent"_s,
    u"Walk only the stages at this scale of the screen, which the environment sets."_s, u"percent"_s,
    QString::number(tour::usual_percent));
const QCommandLineOption first_option(u"first-picture"_s, u"Number of the first picture."_s, u"number"_s, u"1"_s);

/// The folders of the install trees.
struct Roots {
    QString of_new_company;
    QString of_sample;

    const QString& of(tour::Company company) const {
        return company == tour::Company::New ? of_new_company : of_sample;
    }
};

void walk_at(int percent, tour::Host& host, const Roots& roots, tour::Pictures& pictures) {
    tour::Boxes boxes(pictures);
    std::optional<tour::Tour> tour;
    std::optional<tour::Company> company;
    for (const tour::Stage& stage : tour::stages()) {
        if (stage.percent != percent)
            continue;
        if (company != stage.company)
            tour.emplace(host, boxes, pictures, roots.of(stage.company));
        company = stage.company;
        std::printf("-- %s\n", qPrintable(stage.name.toString()));
        tour->start();
        stage.walk(*tour);
    }
}

/// The scale is fixed for the life of a process, so that other scales than the usual one are another one's.
void walk_in_another_process(int percent, const Roots& roots, const tour::Pictures& pictures) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_SCALE_FACTOR"_s, QString::number(percent / 100.0));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(),
        {roots.of_new_company, roots.of_sample, u"--out"_s, pictures.folder().absolutePath(), u"--percent"_s,
            QString::number(percent), u"--first-picture"_s, QString::number(pictures.next())});
    e2e::demand(process.waitForFinished(-1) && process.exitCode() == 0, u"the tour at %1 % failed"_s.arg(percent));
}

void walk(tour::Host& host, const QCommandLineParser& arguments) {
    const auto root = [&](int i) { return QDir(arguments.positionalArguments().value(i)).absolutePath(); };
    const Roots roots{root(0), root(1)};
    const QDir out(arguments.value(out_option));
    e2e::demand(out.mkpath(u"."_s), u"can't make the folder "_s + out.path());
    const int percent = arguments.value(percent_option).toInt();
    const QString suffix = percent == tour::usual_percent ? QString() : u"-at-%1-percent"_s.arg(percent);
    tour::Pictures pictures(out, arguments.value(first_option).toInt(), suffix);
    walk_at(percent, host, roots, pictures);
    if (percent != tour::usual_percent)
        return;
    std::set<int> others;
    for (const tour::Stage& stage : tour::stages())
        if (stage.percent != percent)
            others.insert(stage.percent);
    for (const int other : others)
        walk_in_another_process(other, roots, pictures);
    std::printf("the tour is through: what was typed was read back\n");
}

int failed(const QString& text) {
    std::fprintf(stderr, "rovena-tour: %s\n", qPrintable(text));
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    tour::Host host;
    ui::Application application(argc, argv, host);
    ui::apply_style(application);
    QCommandLineParser arguments;
    arguments.addHelpOption();
    arguments.addPositionalArgument(u"new"_s, u"Folder that holds an install tree without a company."_s);
    arguments.addPositionalArgument(u"sample"_s, u"Folder that holds an install tree with a made-up company."_s);
    arguments.addOptions({out_option, percent_option, first_option});
    arguments.process(application);
    if (arguments.positionalArguments().size() != 2 || !arguments.isSet(out_option))
        return failed(u"say the folders of the two install trees, and --out"_s);
    try {
        walk(host, arguments);
        return 0;
    } catch (const store::Error& error) {
        return failed(error.text());
    } catch (const std::exception& error) {
        return failed(QString::fromUtf8(error.what()));
    }
}
