#include "e2e/road/files.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "e2e/road/steps.h"
#include "platform/program_lock.h"
#include "store/files.h"
#include "store/schema.h"
#include "support/stored.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

namespace e2e {

using namespace base;

namespace {

constexpr std::pair<QStringView, QStringView> attendance[] = {{u"rovmei", u"社員システム番号, 出社日"},
    {u"kinjisyu", u"社員システム番号, 年月日, 勤務種類"}, {u"kyumei", u"社員システム番号, 年月日"},
    {u"kinnisu", u"社員システム番号, 年月, 休暇残業, システム番号"}};

QStringList rows(const DataFile& file, const QString& sql) {
    return support::rows_of(file.path, file.kind, sql.toUtf8().toStdString());
}

QString without_blanks(QString text) {
    return text.removeIf([](QChar c) { return c.isSpace(); });
}

} // namespace

void install(const QStringList& arguments) {
    QProcess process;
    process.start(
        qEnvironmentVariable("ROVENA_BIN", QCoreApplication::applicationDirPath()) + u"/rovena-install"_s, arguments);
    demand(process.waitForFinished(-1) && process.exitCode() == 0,
        u"rovena-install "_s + arguments.join(u' ') + QString::fromUtf8(process.readAllStandardError()));
}

DataFile file_called(const QString& name, const base::Settings& settings) {
    const std::map<QString, DataFile> files{{u"rovdata"_s, {store::rovdata_path(settings), store::Kind::Rovdata}},
        {u"comsys"_s, {store::comsys_path(settings), store::Kind::Comsys}},
        {u"allsystem"_s, {store::allsystem_path(settings), store::Kind::Allsystem}},
        {u"losys"_s, {store::losys_path(settings), store::Kind::Losys}},
        {u"exchange"_s, {store::exchange_path(settings, 1), store::Kind::Exchange}}};
    demand(files.contains(name), u"no file is called \"%1\""_s.arg(name));
    return files.at(name);
}

qint64 rows_waiting(const base::Settings& settings) {
    return Val(rows(file_called(u"exchange"_s, settings), u"select count(*) from jyusin"_s).value(0));
}

void wait_for_manager(const base::Settings& settings) {
    const auto ended = [&] {
        return !platform::ProgramLock::held(store::exchange_folder(settings), u"jyusinkanri"_s) &&
               rows_waiting(settings) == 0;
    };
    demand(QTest::qWaitFor(ended, 60'000), u"the exchange manager doesn't take the posted rows"_s);
}

QStringList dump_tables(const base::Settings& settings) {
    QStringList lines;
    for (const auto& [table, order] : attendance)
        lines << rows(file_called(u"rovdata"_s, settings), u"select '%1', * from %1 order by %2"_s.arg(table, order));
    for (const QString& name : {u"comsys"_s, u"allsystem"_s, u"rovdata"_s, u"losys"_s}) {
        const DataFile file = file_called(name, settings);
        for (const store::Table& table : store::tables_of(file.kind))
            lines << rows(file, u"select '%1', count(*) || ' rows' from %1"_s.arg(table.name));
    }
    return lines;
}

void demand_texts(const QString& whole, const QStringList& texts) {
    for (const QString& text : texts)
        demand(without_blanks(whole).contains(without_blanks(text)), u"\"%1\" isn't there"_s.arg(text));
}

void demand_pdf(const QString& path, int pages, const QStringList& texts) {
    static const QRegularExpression page_object(u"/Type\\s*/Page\\b"_s);
    const QByteArray bytes = support::bytes_of(path);
    demand(bytes.startsWith("%PDF"), u"no PDF file"_s);
    const auto found = QString::fromLatin1(bytes).count(page_object);
    demand(found >= pages, u"%1 pages wanted, %2 there"_s.arg(pages).arg(found));
    const QString reader = QStandardPaths::findExecutable(u"pdftotext"_s);
    if (reader.isEmpty())
        return;
    QProcess process;
    process.start(reader, {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, path, u"-"_s});
    process.waitForFinished(-1);
    demand_texts(QString::fromUtf8(process.readAllStandardOutput()), texts);
}

} // namespace e2e
