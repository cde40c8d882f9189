#include "ui/qt_host.h"

#include "base/literals.h"
#include "platform/file_error.h"
#include "store/error.h"
#include "support/fake_host.h"
#include "ui/application.h"
#include "ui/install_tree.h"
#include "ui/program.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

using namespace base;
using platform::Answer;
using platform::Buttons;

namespace {

/// What the person does with the box that comes up.
template <typename Act>
Answer ask(Buttons buttons, Act act) {
    QTimer::singleShot(0, [&] { act(*qobject_cast<QMessageBox*>(QApplication::activeModalWidget())); });
    return ui::QtHost().ask(u"終了しますか？"_s, u"終了"_s, buttons);
}

auto press(const QString& text) {
    return [text](QMessageBox& box) {
        for (QAbstractButton* button : box.buttons())
            if (button->text() == text)
                return button->click();
        box.reject();
        ADD_FAILURE() << "no button " << text.toStdString();
    };
}

/// An object whose every event ends in the exception.
template <typename Exception>
class Failing : public QObject {
public:
    explicit Failing(Exception exception) : m_exception(std::move(exception)) {}
    bool event(QEvent*) override { throw m_exception; }

private:
    Exception m_exception;
};

template <typename Exception>
void send_to_failing(const Exception& exception) {
    Failing<Exception> receiver(exception);
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&receiver, &event);
}

support::FakeHost& host_of_application() {
    return dynamic_cast<support::FakeHost&>(dynamic_cast<ui::Application&>(*qApp).host());
}

} // namespace

TEST(QtHost, BoxesSpeakJapaneseAndTellTheAnswer) {
    EXPECT_EQ(ask(Buttons::YesNo, press(u"はい"_s)), Answer::Yes);
    EXPECT_EQ(ask(Buttons::YesNo, press(u"いいえ"_s)), Answer::No);
    EXPECT_EQ(ask(Buttons::OkCancel, press(u"OK"_s)), Answer::Ok);
    EXPECT_EQ(ask(Buttons::OkCancel, press(u"キャンセル"_s)), Answer::Cancel);
}

TEST(QtHost, ClosingABoxByOtherMeansIsTheCautiousAnswer) {
    const auto close = [](QMessageBox& box) { box.close(); };
    EXPECT_EQ(ask(Buttons::YesNo, close), Answer::No);
    EXPECT_EQ(ask(Buttons::OkCancel, close), Answer::Cancel);
    EXPECT_EQ(ask(Buttons::Ok, close), Answer::Ok);
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
    support::FakeHost host;
    ui::Program program(host, tree.programs);
    ASSERT_EQ(program.start(), 0);
    QEventLoop events;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] { EXPECT_FALSE(program.window().close()); });
        ui::QtHost().wait(std::chrono::milliseconds(1));
        events.quit();
    });
    events.exec();
    EXPECT_TRUE(host.shown.empty()) << "not even asked";
    EXPECT_TRUE(program.window().close());
}

TEST(Application, AnErrorOfTheStoreIsToldAndTheProgramGoesOn) {
    support::FakeHost& host = host_of_application();
    host.shown.clear();
    const store::Error busy(store::Code::Busy, u"/srv/comsys.mdb"_s, {}, {});
    send_to_failing(busy);
    EXPECT_EQ(host.shown, std::vector({support::Shown{busy.text(), u"就業録"_s, Buttons::Ok}}));
}

TEST(Application, AMissingFileOfTheInstallationEndsIt) {
    support::FakeHost& host = host_of_application();
    host.shown.clear();
    const platform::FileError missing(u"/srv/zen_end.BMP"_s);
    QTimer::singleShot(0, [&] { send_to_failing(missing); });
    EXPECT_EQ(QApplication::exec(), 1);
    EXPECT_EQ(host.shown, std::vector({support::Shown{missing.text(), u"就業録"_s, Buttons::Ok}}));
}
