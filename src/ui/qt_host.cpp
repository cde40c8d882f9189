#include "ui/qt_host.h"

#include "ui/paper/pdf_file.h"

#include "base/literals.h"
#include "base/text.h"
#include "platform/paths.h"
#include "platform/program_lock.h"
#include "platform/share.h"
#include "ui/pages/help_window.h"

#include <QApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QIdentityProxyModel>
#include <QInputDialog>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPrinterInfo>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTimer>
#include <QTranslator>
#include <QUrl>
#include <array>
#include <span>

namespace ui {

using namespace base;
using platform::Answer;
using platform::Buttons;

namespace {

struct BoxButton {
    Answer answer;
    QMessageBox::ButtonRole role;
    QStringView text;
};
constexpr BoxButton ok{Answer::Ok, QMessageBox::AcceptRole, u"OK"};
constexpr BoxButton cancel{Answer::Cancel, QMessageBox::RejectRole, u"キャンセル"};
constexpr BoxButton yes{Answer::Yes, QMessageBox::YesRole, u"はい"};
constexpr BoxButton no{Answer::No, QMessageBox::NoRole, u"いいえ"};

struct Box {
    std::span<const BoxButton> buttons;
    Answer closed; ///< what closing the box by other means counts as
    QMessageBox::Icon icon;
};

Box box_for(Buttons buttons) {
    static constexpr std::array only_ok{ok};
    static constexpr std::array ok_cancel{ok, cancel};
    static constexpr std::array yes_no{yes, no};
    switch (buttons) {
    case Buttons::Ok:
        return {only_ok, Answer::Ok, QMessageBox::Information};
    case Buttons::OkCancel:
        return {ok_cancel, Answer::Cancel, QMessageBox::Warning};
    case Buttons::YesNo:
        return {yes_no, Answer::No, QMessageBox::Question};
    }
    Q_UNREACHABLE();
}

bool is_page(const QUrl& url) {
    const QString path = url.toLocalFile();
    return path.endsWith(u".htm"_s) || path.endsWith(u".html"_s);
}

/// Qt's own file dialog has texts of its own. They are read when it first opens: the start needs none of them. Where
/// the desktop has no translation of Qt, they stay English.
void speak_japanese() {
    static QTranslator texts;
    if (texts.isEmpty() && texts.load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&texts);
}

/// The columns of the dialog's list that Qt fills in the desktop's language.
class ListInJapanese : public QIdentityProxyModel {
public:
    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant data(const QModelIndex& index, int role) const override {
        constexpr int kind = 2, changed = 3;
        const auto* files = qobject_cast<QFileSystemModel*>(sourceModel());
        if (role != Qt::DisplayRole || index.column() < kind || files == nullptr)
            return QIdentityProxyModel::data(index, role);
        const QFileInfo file = files->fileInfo(mapToSource(index));
        if (index.column() == changed)
            return file.lastModified().toString(u"yyyy/MM/dd HH:mm"_s);
        return file.isDir() ? u"フォルダー"_s : Trim(file.suffix().toUpper() + u" ファイル"_s);
    }
};

} // namespace

Answer QtHost::ask(const QString& text, const QString& title, Buttons buttons) {
    const Box look = box_for(buttons);
    QMessageBox box(look.icon, title, text, QMessageBox::NoButton, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    QHash<QAbstractButton*, Answer> answers;
    for (const BoxButton& button : look.buttons) {
        QPushButton* added = box.addButton(button.text.toString(), button.role);
        answers.insert(added, button.answer);
        if (&button == look.buttons.data())
            box.setDefaultButton(added);
    }
    box.setEscapeButton(answers.key(look.closed));
    box.exec();
    return answers.value(box.clickedButton(), look.closed);
}

std::optional<QString> QtHost::input(const QString& prompt) {
    QInputDialog dialog(QApplication::activeWindow());
    dialog.setLabelText(prompt);
    dialog.setOkButtonText(ok.text.toString());
    dialog.setCancelButtonText(cancel.text.toString());
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.textValue()) : std::nullopt;
}

QStringList name_filters(const QString& filter) {
    QStringList entries;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        entries << u"%1 (%2)"_s.arg(parts[i].section(u'(', 0, 0), parts[i + 1]);
    return entries;
}

std::optional<QString> QtHost::save_path(const platform::SaveDialog& record) {
    speak_japanese();
    QFileDialog dialog(QApplication::activeWindow(), record.title, platform::portable(record.folder));
    dialog.setProxyModel(new ListInJapanese(&dialog));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDefaultSuffix(record.extension);
    dialog.setNameFilters(name_filters(record.filter));
    if (!record.name.isEmpty())
        dialog.selectFile(record.name);
    dialog.setLabelText(QFileDialog::LookIn, u"場所"_s);
    dialog.setLabelText(QFileDialog::FileName, u"ファイル名"_s);
    dialog.setLabelText(QFileDialog::FileType, u"種類"_s);
    dialog.setLabelText(QFileDialog::Accept, u"保存"_s);
    dialog.setLabelText(QFileDialog::Reject, cancel.text.toString());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return platform::native(dialog.selectedFiles().constFirst());
}

std::optional<QString> QtHost::open_path(const platform::OpenDialog& record) {
    speak_japanese();
    QFileDialog dialog(QApplication::activeWindow(), record.title, platform::portable(record.folder));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(name_filters(record.filter));
    dialog.setLabelText(QFileDialog::LookIn, u"場所"_s);
    dialog.setLabelText(QFileDialog::FileName, u"ファイル名"_s);
    dialog.setLabelText(QFileDialog::FileType, u"種類"_s);
    dialog.setLabelText(QFileDialog::Accept, u"開く"_s);
    dialog.setLabelText(QFileDialog::Reject, cancel.text.toString());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return platform::native(dialog.selectedFiles().constFirst());
}

bool QtHost::open_document(const QString& address) {
    QUrl url = QUrl::fromUserInput(address);
    if (url.scheme() == u"file"_s && url.host() == u"localhost"_s)
        url.setHost({}); // several desktops take "file://localhost/..." for the name of a file and open nothing
    return is_page(url) ? open_page(url) : QDesktopServices::openUrl(url);
}

/// The opener of a Unix desktop says by its end that it found no browser. It may live as long as the browser, and so
/// longer than this program.
bool QtHost::open_page(const QUrl& page) {
    const QString opener = QStandardPaths::findExecutable(u"xdg-open"_s);
    if (opener.isEmpty())
        return QDesktopServices::openUrl(page) || show_help(page);
    auto* opening = new QProcess;
    opening->setStandardInputFile(QProcess::nullDevice());
    opening->setStandardOutputFile(QProcess::nullDevice());
    opening->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(opening, &QProcess::finished, opening, [this, opening, page](int status) {
        opening->deleteLater();
        if (status != 0)
            show_help(page);
    });
    opening->start(opener, {page.toString(QUrl::FullyEncoded)});
    return true;
}

bool QtHost::show_help(const QUrl& page) {
    if (!m_help)
        m_help = new HelpWindow;
    m_help->show_page(page);
    return true;
}

bool QtHost::start_program(const QString& file, const QStringList& arguments) {
    return QProcess::startDetached(file, arguments);
}

bool QtHost::program_running(const QString& title, const QString& folder) {
    return platform::ProgramLock::held(folder, title);
}

QDateTime QtHost::now() {
    return QDateTime::currentDateTime();
}

std::chrono::steady_clock::time_point QtHost::steady_now() {
    return std::chrono::steady_clock::now();
}

QStringList QtHost::printers() {
    QStringList names = QPrinterInfo::availablePrinterNames();
    names.removeAll(pdf_printer.toString());
    return names << pdf_printer.toString();
}

bool QtHost::connect_share(const QString& share, const QString& user, const QString& password) {
    return platform::connect_share(share, user, password);
}

void QtHost::yield() {
    wait(std::chrono::milliseconds(0));
}

// A loop of its own, so that the window sees that it must not close now.
void QtHost::wait(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace ui
