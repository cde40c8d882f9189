#include "install/install.h"
#include "install/move.h"
#include "install/password.h"
#include "install/restore.h"
#include "install/tree_settings.h"
#include "platform/paths.h"
#include "platform/rights.h"
#include "platform/terminal.h"
#include "store/error.h"

#include <QCoreApplication>
#include <cstdio>

namespace {

void print(std::FILE* stream, const QString& text) {
    std::fputs(qPrintable(text), stream);
    std::fflush(stream);
}

void say(const QString& line) {
    print(stdout, line + QLatin1Char('\n'));
}

/// The folder of the tree that is worked on; empty if none is.
QString tree_of(const install::Request& request) {
    const QString root = request.restore ? request.restore->root
                         : request.move  ? request.move->root
                                         : request.options.root;
    return root.isEmpty() ? root : platform::install_root(platform::drive_at(root));
}

void warn(const QString& line) {
    print(stderr, line + QLatin1Char('\n'));
}

void install_tree(install::Options options) {
    install::complete_password(options, warn);
    install::run(options, QCoreApplication::applicationDirPath(), say);
}

void answer(const install::Request& request) {
    if (const QString tree = tree_of(request); !tree.isEmpty())
        platform::make_files_for(tree);
    if (request.show)
        install::list_settings(*request.show, say);
    else if (request.move)
        install::move_company(*request.move, QDateTime::currentDateTime(), say);
    else if (!request.restore)
        install_tree(request.options);
    else if (request.restore->only_list)
        install::list_backup(request.restore->folder, say);
    else
        install::restore_backup(*request.restore, QDateTime::currentDateTime(), say);
}

int status_of(const install::Request& request) {
    try {
        answer(request);
        return 0;
    } catch (const store::Error& error) {
        print(stderr, error.text() + QLatin1Char('\n'));
    } catch (const std::exception& error) {
        print(stderr, QString::fromUtf8(error.what()) + QLatin1Char('\n'));
    }
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    platform::settle_terminal();
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    if (arguments.contains(QStringLiteral("--help"))) {
        print(stdout, install::usage());
        return 0;
    }
    const install::Request request = install::read_arguments(arguments);
    if (request.problem.isEmpty())
        return status_of(request);
    print(stderr, request.problem + QStringLiteral("\n\n") + install::usage());
    return 2;
}
