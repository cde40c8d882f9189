// A month on a data server, over a network that is looked at and cut. Without a server at hand (scripts/with-server)
// there is nothing to see.

#include "entry/company.h"
#include "store/server_place.h"
#include "support/server_proxy.h"
#include "support/stored.h"

#include <optional>

#ifdef Q_OS_LINUX

using namespace entry;
using namespace base;

namespace {

class OverANetwork : public OpenForm {
protected:
    void SetUp() override {
        if (support::data_server().isEmpty())
            GTEST_SKIP() << "no server";
        proxy.emplace();
        for (const QString& path : {store::rovdata_path(company.tree.settings),
                 store::comsys_path(company.tree.settings), store::exchange_path(company.tree.settings, 1)}) {
            const auto place = store::server_place(support::bytes_of(path)).value();
            support::put_bytes(path, bytes_of(store::ServerPlace{proxy->connection() + words, place.schema}));
        }
        open();
        for (const QString& in : {u"8:01"_s, u"8:02"_s})
            save_and_apply(in);
    }

    void type_fourth(QString in) { type_day(4, in.remove(u':'), u"1900"_s); }

    void save_and_apply(const QString& in) {
        type_fourth(in);
        form->保存処理();
        rows_of_a_save = company.posted().size();
        ASSERT_GT(rows_of_a_save, 3);
        company.apply();
        form->hyou_syain_Click(1);
    }

    /// What the server is asked for meanwhile, in ways there and back.
    template <typename Work>
    int trips_of(Work work) const {
        const int before = proxy->trips();
        work();
        return proxy->trips() - before;
    }

    std::optional<support::ServerProxy> proxy;
    QByteArray words; ///< behind those that connect
    qsizetype rows_of_a_save = 0;
};

/// Another PC of the company, which has the turn until it is killed.
class OtherPc {
public:
    explicit OtherPc(const QString& schema) {
        m_tool.start(u"psql"_s, {QString::fromUtf8(support::data_server()), u"-qAtX"_s});
        m_tool.write(u"set application_name='rovena PC-2 0'; select pg_advisory_lock(20060413, '\"%1\"'::regnamespace"
                     "::oid::int);\n"_s.arg(schema)
                         .toUtf8());
        EXPECT_TRUE(m_tool.waitForReadyRead()) << m_tool.readAllStandardError().toStdString();
    }
    ~OtherPc() { die(); }
    void die() {
        m_tool.kill();
        m_tool.waitForFinished();
    }

private:
    QProcess m_tool;
};

} // namespace

TEST_F(OverANetwork, TheTurnOfAnotherPcIsToldAndComesBackWhenThatDiesAndASilentServerKeepsNobody) {
    OtherPc other(store::place_at(store::exchange_path(company.tree.settings, 1))->schema);
    int told = 0;
    company.link.on_waiting = [&](const frame::TurnLink::Waiting& waiting) {
        if (!waiting.status)
            return true;
        EXPECT_EQ(waiting.status->holder, "PC-2");
        return ++told < 2;
    };
    type_fourth(u"8:07"_s);
    form->保存処理();
    EXPECT_EQ(told, 2) << "given up";
    EXPECT_EQ(company.posted(), QStringList());
    EXPECT_EQ(form->sheet.hyou(4, col::clock_in), u"8:07"_s);
    proxy->stalled = true;
    company.link.on_waiting = [&](const auto&) { return ++told < 4; };
    form->保存処理();
    EXPECT_EQ(told, 4) << "given up";
    proxy->end_trouble();
    other.die();
    form->保存処理();
    EXPECT_EQ(company.posted().size(), rows_of_a_save);
    EXPECT_TRUE(company.host.shown.empty());
}

TEST_F(OverANetwork, AMonthIsOpenedInThreeTripsAndSavedInFour) {
    type_fourth(u"8:05"_s);
    EXPECT_LE(trips_of([&] { form->保存処理(); }), 4);
    company.apply();
    EXPECT_LE(trips_of([&] { form->hyou_syain_Click(1); }), 3);
    EXPECT_EQ(form->sheet.hyou(4, col::clock_in), u"8:05"_s);
}

using support::Trouble, support::Troubled;

class InTrouble : public OverANetwork, public testing::WithParamInterface<Troubled> {
protected:
    InTrouble() { words = GetParam().words; }
    void SetUp() override {
        OverANetwork::SetUp();
        if (IsSkipped() || GetParam().trouble != Trouble::Full)
            return;
        disk.emplace("size=160k");
        if (disk->is_there())
            disk->take(schema_of_posted(), {u"jyusin"_s});
        else
            GTEST_SKIP() << "only the administrator has such a disk";
    }

    QString schema_of_posted() const { return store::place_at(store::exchange_path(company.tree.settings, 1))->schema; }

    std::optional<support::ServerDisk> disk;
};

TEST_P(InTrouble, ASaveIsThereWholeOrNotAtAllAndWhatWasTypedStaysAndTheNextIsRight) {
    company.link.on_waiting = [](const auto&) { return true; };
    int message = 0, failures = 0;
    for (bool came = true; came; message += GetParam().step()) {
        ASSERT_LT(message, 500);
        if (disk)
            support::psql(u"truncate \"%1\".jyusin"_s.arg(schema_of_posted()));
        const QString in = u"9:%1"_s.arg(message % 60, 2, 10, QLatin1Char('0'));
        type_fourth(in);
        bool confirmed = false;
        proxy->trouble_behind(message, GetParam().trouble);
        try {
            form->保存処理();
            confirmed = company.host.shown.empty();
        } catch (const store::Error& error) {
            ++failures;
            EXPECT_TRUE(disk ? error.code() == store::Code::Full
                             : error.code() == store::Code::Io || error.code() == store::Code::Away)
                << error.what();
        }
        came = proxy->end_trouble();
        EXPECT_EQ(form->sheet.hyou(4, col::clock_in), in) << "what was typed stays";
        const qsizetype rows = company.posted().size();
        EXPECT_TRUE(rows == rows_of_a_save || (rows == 0 && !confirmed)) << rows << " rows behind message " << message;
        form->保存処理();
        company.apply();
        form->hyou_syain_Click(1);
        EXPECT_EQ(form->sheet.hyou(4, col::clock_in), in) << "trouble behind message " << message;
    }
    EXPECT_GT(message, rows_of_a_save);
    EXPECT_GT(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(Of, InTrouble,
    testing::Values(Troubled{Trouble::Cut, 1}, Troubled{Trouble::Death, 41},
        Troubled{Trouble::Silence, 41, support::impatient}, Troubled{Trouble::Full, 3}));

#endif
