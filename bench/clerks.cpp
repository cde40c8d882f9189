#if __has_include(<libpq-fe.h>)

#include "bench/clerks.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "bench/desktop.h"
#include "bench/server_company.h"
#include "common/saved_month.h"
#include "entry/layout.h"
#include "entry/month_load.h"
#include "entry/saving.h"
#include "exchange/run.h"
#include "store/files.h"
#include "store/server_place.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTextStream>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <list>
#include <thread>

namespace bench {

using namespace base;

namespace {

constexpr double wanted_share = 0.8; ///< of what pgbench gets through
constexpr int day = 4;
const CompanyMonth month(last_month / 100, last_month % 100, 1);

/// A desktop whose clock goes.
class RealTime : public Desktop {
public:
    std::chrono::steady_clock::time_point steady_now() override { return std::chrono::steady_clock::now(); }
    void wait(std::chrono::milliseconds time) override { QThread::msleep(static_cast<unsigned long>(time.count())); }
};

class Clerk {
public:
    Clerk(const base::Settings& settings, int employee)
        : m_settings(settings), m_person{digits(1000 + employee), u"社員"_s, employee} {
        entry::書式設定(m_sheet, month);
        entry::書式設定_日(m_sheet);
        auto rovdata = store::Database::open(store::rovdata_path(m_settings), store::Kind::Rovdata);
        read_month(m_sheet, rovdata, EmployeeKey(employee));
    }

    /// Another time and the remark of the number on one day.
    bool save(int number) {
        const entry::MonthAsRead read = month_as_read(m_sheet);
        type(number);
        return 保存処理(m_session, {m_sheet, read, {}, m_sheet.hyou, m_sheet.hyou_day, {}}, m_person).saved ==
               entry::Saved::Posted;
    }

    QList<entry::ExchangeRow> rows() {
        type(1);
        return rows_to_post(m_sheet, m_person, u"20261130120000"_s);
    }

private:
    void type(int number) {
        m_sheet.hyou(day, entry::col::clock_in) = u"8:%1"_s.arg(number % 60, 2, 10, QLatin1Char('0'));
        m_sheet.hyou(day, entry::col::remark) = digits(number);
        m_sheet.mark(day) = u"1"_s;
    }

    base::Settings m_settings;
    entry::PostedEmployee m_person;
    RealTime m_host;
    store::SettingTables m_tables{m_settings};
    frame::TurnLink m_link{m_settings, m_host};
    frame::Session m_session{m_settings, m_host, m_tables, m_link};
    entry::MonthSheet m_sheet;
};

/// Applies what is posted, again and again.
class Manager {
public:
    explicit Manager(const base::Settings& settings)
        : m_thread([this, settings] {
              while (!m_ends) {
                  exchange::run_manager(settings, {});
                  QThread::msleep(20);
              }
          }) {}
    ~Manager() {
        m_ends = true;
        m_thread.join();
    }

private:
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

struct Saves {
    QList<qint64> microseconds;
    QHash<int, int> last; ///< by employee
};

Saves saves_of(const base::Settings& settings, int clerks, int seconds) {
    std::list<QProcess> processes;
    for (int employee = 1; employee <= clerks; ++employee) {
        processes.emplace_back().setProcessChannelMode(QProcess::ForwardedErrorChannel);
        processes.back().start(QCoreApplication::applicationFilePath(),
            {u"--clerk"_s, settings.server_root, digits(employee), digits(seconds)});
    }
    Saves saves;
    for (int employee = 1; QProcess & process : processes) {
        process.waitForFinished(-1);
        const QList<QByteArray> numbers = process.readAllStandardOutput().split('\n');
        saves.last[employee++] = numbers.value(0).toInt();
        for (const QByteArray& number : numbers.sliced(qMin(1, numbers.size())))
            if (!number.isEmpty())
                saves.microseconds << number.toLongLong();
    }
    std::ranges::sort(saves.microseconds);
    return saves;
}

/// What a save says to the server, in the words of pgbench.
QByteArray script(const ServerCompany& company) {
    const QByteArray posted = '"' + company.posted_in().toUtf8() + "\".jyusin";
    const QByteArray lock = "20060413, '\"" + company.posted_in().toUtf8() + "\"'::regnamespace::oid::int";
    const QByteArray from = QByteArray::number(month.start_key()), to = QByteArray::number(month.total_key());
    const QByteArray days =
        " where 社員システム番号 = :e and 年月日 between " + from + " and " + to + " order by 年月日;\n";
    QByteArray text =
        "\\set e random(1, 200)\nselect set_config('lock_timeout', '0', false), pg_advisory_lock(" + lock +
        "), set_config('application_name', 'x', false);\n"
        "begin isolation level repeatable read read only;\n"
        "select * from rovmei" +
        QByteArray(days).replace("年月日", "出社日") + "select * from kinjisyu" + days + "select * from kyumei" + days +
        "select * from kinnisu where 社員システム番号 = :e and 年月 = " + QByteArray::number(month.month_key()) +
        ";\nrollback;\nbegin;\nset local lock_timeout = 5000;\nselect pg_advisory_xact_lock(" + lock +
        ");\nselect * from " + posted +
        " where (case \"2\" when '51' then \"7\" else \"4\" end) = (:e)::text order by rowid;\n";
    for (const entry::ExchangeRow& row : Clerk(company.settings, 1).rows()) {
        QByteArrayList values;
        for (qsizetype i = 0; i < row.size(); ++i)
            values << (i == (row[0] == u"51" ? 5 : 2) ? "(:e)::text" : '\'' + row[i].toUtf8() + '\'');
        QByteArrayList names;
        for (qsizetype i = 0; i < row.size(); ++i)
            names << '"' + QByteArray::number(i + 2) + '"';
        text += "insert into " + posted + " (" + names.join(", ") + ") values (" + values.join(", ") + ");\n";
    }
    return text + "commit;\nselect pg_advisory_unlock(" + lock + ");\n";
}

/// Transactions in a second.
double pgbench(const ServerCompany& company, int clerks, int seconds) {
    const QString path = company.folder.filePath(u"save.sql"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(script(company)) < 0 || !file.flush())
        return 0;
    const auto place = store::place_at(store::rovdata_path(company.settings)).value();
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PGOPTIONS"_s, u"-c search_path=%1"_s.arg(place.schema));
    tool.setProcessEnvironment(environment);
    tool.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    tool.start(u"pgbench"_s, {u"-n"_s, u"-M"_s, u"prepared"_s, u"-c"_s, digits(clerks), u"-j"_s, u"2"_s, u"-T"_s,
                                 digits(seconds), u"-f"_s, path, QString::fromUtf8(place.connection)});
    tool.waitForFinished(-1);
    const QByteArray told = tool.readAllStandardOutput();
    const qsizetype at = told.indexOf("tps = ");
    return at < 0 ? 0 : told.mid(at + 6, told.indexOf(' ', at + 6) - at - 6).toDouble();
}

/// Whether each employee's day stands once, as it was confirmed last.
bool all_confirmed_stand(const ServerCompany& company, const QHash<int, int>& last) {
    auto rovdata = store::Database::open(store::rovdata_path(company.settings), store::Kind::Rovdata);
    auto query = rovdata.prepare("select 備考 from rovmei where 社員システム番号 = ? and 出社日 = ?");
    for (const auto& [employee, number] : last.asKeyValueRange()) {
        QStringList remarks;
        for (query.bind(employee, month.start_key() + day - 1); query.step();)
            remarks << query.row().text(0);
        if (remarks != QStringList{digits(number)})
            return false;
    }
    return true;
}

} // namespace

int be_a_clerk(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    base::Settings settings;
    settings.server_root = QString::fromLocal8Bit(argv[2]);
    settings.local_root = settings.server_root + u"/pc"_s;
    Clerk clerk(settings, QByteArray(argv[3]).toInt());
    QByteArray times;
    int number = 0;
    QElapsedTimer all, one;
    for (all.start(); all.elapsed() < QByteArray(argv[4]).toInt() * 1000;) {
        one.start();
        if (!clerk.save(number + 1))
            return 1;
        ++number;
        times += QByteArray::number(one.nsecsElapsed() / 1000) + '\n';
    }
    std::printf("%d\n%s", number, times.constData());
    return 0;
}

bool print_clerks(int clerks, int seconds) {
    const ServerCompany company(clerks, 1);
    Saves saves;
    double yardstick = 0;
    {
        const Manager manager(company.settings);
        saves = saves_of(company.settings, clerks, seconds);
    }
    exchange::run_manager(company.settings, {});
    const bool stand = all_confirmed_stand(company, saves.last);
    {
        const Manager manager(company.settings);
        yardstick = pgbench(company, clerks, seconds);
    }
    const qsizetype count = saves.microseconds.size();
    const auto at = [&](double share) {
        return count == 0 ? 0.0 : double(saves.microseconds[qsizetype(double(count - 1) * share)]) / 1000;
    };
    const double saved = double(count) / seconds;
    const bool enough = saved >= wanted_share * yardstick;
    std::printf(
        "%d clerks: %.1f saves/s, pgbench %.1f, ratio %.2f  >= %.1f%s; median %.1f ms, 99th percentile %.1f ms; "
        "every confirmed day %s\n",
        clerks, saved, yardstick, saved / yardstick, wanted_share, enough ? "" : "  MISSED", at(0.5), at(0.99),
        stand ? "stands once" : "DOES NOT STAND ONCE");
    return stand && enough && count > 0;
}

} // namespace bench

#else

#include "bench/clerks.h"

namespace bench {

int be_a_clerk(int, char**) {
    return 1;
}

bool print_clerks(int, int) {
    return true;
}

} // namespace bench

#endif
