// One start up to the first painted window, then the end: what the start benchmark runs as a process of its own.
//   rovena_start empty            an empty main window
//   rovena_start frame FOLDER     the program that runs from FOLDER
//   rovena_start page FOLDER      the same with the attendance page open and an employee chosen; prints the peak memory
//   in KiB

#include "base/literals.h"
#include "ui/application.h"
#include "ui/entry/ent_rovena_page.h"
#include "ui/parts/style.h"
#include "ui/program.h"
#include "ui/qt_host.h"

#include <QFile>
#include <QKeyEvent>
#include <QMainWindow>
#include <QTimer>
#include <cstdio>

using namespace base;

namespace {

class EndAtFirstPaint : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, [] { QCoreApplication::exit(); });
        return false;
    }
};

/// In KiB. getrusage() won't do: it counts what the process was before it became this program.
qint64 peak_memory() {
    QFile status(u"/proc/self/status"_s);
    status.open(QIODevice::ReadOnly);
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf("VmHWM:") + 6).trimmed().split(' ').constFirst().toLongLong();
}

int empty_window(ui::Application&) {
    EndAtFirstPaint end;
    QMainWindow window;
    window.resize(1280, 720);
    window.installEventFilter(&end);
    window.show();
    return ui::Application::exec();
}

int painted_frame(ui::QtHost& host, const QString& folder) {
    EndAtFirstPaint end;
    ui::Program program(host, folder);
    if (program.start() != 0 || !program.running())
        return 1;
    program.window().installEventFilter(&end);
    return ui::Application::exec();
}

int open_page(ui::QtHost& host, const QString& folder) {
    ui::Program program(host, folder);
    if (program.start() != 0 || !program.running())
        return 1;
    program.window().form().midasi_Click(1);
    auto* page = program.window().findChild<ui::ent_rovena_page*>();
    if (page == nullptr)
        return 1;
    for (const int key : {Qt::Key_Down, Qt::Key_Space}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(page->controls().hyou_syain, &press);
    }
    if (page->form().syainsyscd.isEmpty())
        return 1;
    page->grab();
    std::printf("%lld\n", peak_memory());
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const bool of_program = argc > 2;
    const std::jthread key =
        of_program ? ui::derive_key_ahead(QString::fromLocal8Bit(argv[2])) : std::jthread(); // as main() does it
    ui::QtHost host;
    ui::Application application(argc, argv, host);
    ui::apply_style(application);
    const QStringList arguments = ui::Application::arguments();
    const QString folder = arguments.value(2);
    if (arguments.value(1) == u"frame"_s)
        return painted_frame(host, folder);
    return arguments.value(1) == u"page"_s ? open_page(host, folder) : empty_window(application);
}
