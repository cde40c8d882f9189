#include "ui/qt_host.h"

#include "base/literals.h"
#include "platform/file_error.h"
#include "platform/program_lock.h"
#include "store/error.h"
#include "support/person.h"
#include "ui/application.h"
#include "ui/install_tree.h"
#include "ui/program.h"

#include <QTimer>
#include <gtest/gtest.h>

using namespace base;
using platform::Answer;
using platform::Buttons;

namespace {

/// The answer of a box that comes up when the person presses the button of that text or, without one, closes it.
Answer ask(Buttons buttons, const QString& text = {}) {
    support::answer_box(text);
    return ui::QtHost().ask(u"終了しますか？"_s, u"終了"_s, buttons);
}

/// Sends an event to an object whose every event ends in the exception; what the person was told.
template <typename Exception>
std::vector<support::Shown> told(const Exception& exception) {
    struct Failing : QObject {
        explicit Failing(const Exception& of) : thrown(of) {}
        bool event(QEvent*) override { throw thrown; }
        const Exception& thrown;
    } receiver(exception);
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&receiver, &event);
    return std::exchange(dynamic_cast<support::FakeHost&>(dynamic_cast<ui::Application&>(*qApp).host()).shown, {});
}

} // namespace

TEST(QtHost, BoxesSpeakJapaneseAndClosingOneIsTheCautiousAnswer) {
    EXPECT_EQ(ask(Buttons::YesNo, u"はい"_s), Answer::Yes);
    EXPECT_EQ(ask(Buttons::YesNo, u"いいえ"_s), Answer::No);
    EXPECT_EQ(ask(Buttons::YesNo), Answer::No);
    EXPECT_EQ(ask(Buttons::OkCancel, u"OK"_s), Answer::Ok);
    EXPECT_EQ(ask(Buttons::OkCancel, u"キャンセル"_s), Answer::Cancel);
    EXPECT_EQ(ask(Buttons::OkCancel), Answer::Cancel);
    EXPECT_EQ(ask(Buttons::Ok), Answer::Ok);
}

TEST(QtHost, ThePrinterOfPDFFilesComesLastAndOnce) {
    const QStringList printers = ui::QtHost().printers();
    EXPECT_EQ(printers.last(), u"PDF"_s);
    EXPECT_EQ(printers.count(u"PDF"_s), 1);
}

TEST(QtHost, FiltersAreTakenAsTheDialogReadsThem) {
    EXPECT_EQ(ui::name_filters(u"CSV(*.csv)|*.csv"_s), QStringList(u"CSV (*.csv)"_s));
    EXPECT_EQ(ui::name_filters(u"文字|*.txt|全て|*.*"_s), QStringList({u"文字 (*.txt)"_s, u"全て (*.*)"_s}));
    EXPECT_EQ(ui::name_filters(QString()), QStringList());
}

TEST(QtHost, TheWindowStaysAsLongAsTheProgramWaits) {
    InstallTree tree;
    ui::Program program(tree.host, tree.programs);
    ASSERT_EQ(program.start(), 0);
    QEventLoop events;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] { EXPECT_FALSE(program.window().close()); });
        ui::QtHost().wait(std::chrono::milliseconds(1));
        events.quit();
    });
    events.exec();
    EXPECT_TRUE(tree.host.shown.empty()) << "not even asked";
    EXPECT_TRUE(program.window().close());
}

TEST(Application, AnErrorOfTheStoreOrOfALockIsToldAndAMissingFileOfTheInstallationEndsTheProgram) {
    const store::Error busy(store::Code::Busy, u"/srv/comsys.mdb"_s, {}, {});
    EXPECT_EQ(told(busy), std::vector({support::Shown{busy.text(), u"就業録"_s, Buttons::Ok}}));
    const platform::LockError lock(u"/srv/jyusinkanri.lock"_s, u"no"_s);
    QTimer::singleShot(0, [&] {
        EXPECT_EQ(told(lock).size(), 1U);
        QTimer::singleShot(10, [] { QApplication::exit(7); }); // comes to it only if the program goes on
    });
    EXPECT_EQ(QApplication::exec(), 7);
    const platform::FileError missing(u"/srv/zen_end.BMP"_s);
    QTimer::singleShot(0, [&] {
        EXPECT_EQ(told(missing), std::vector({support::Shown{missing.text(), u"就業録"_s, Buttons::Ok}}));
    });
    EXPECT_EQ(QApplication::exec(), 1);
}
