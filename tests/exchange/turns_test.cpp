#include "exchange/turns.h"

#include "base/literals.h"

#include <QMap>
#include <QSet>
#include <QStringList>
#include <gtest/gtest.h>

namespace exchange {

using namespace base;
using namespace std::chrono_literals;

namespace {

/// The service with a clock that is set, keeping what each client was told.
class Service {
public:
    explicit Service(const TurnLimits& limits = {}) : turns(limits) {}

    void connects(ClientId client, const QByteArray& address = "10.0.0.1") {
        keep(turns.connected(client, address, now));
    }
    void says(ClientId client, QByteArrayView text) { keep(turns.received(client, text, now)); }
    void goes(ClientId client) { keep(turns.disconnected(client, now)); }
    void manager_ends() { keep(turns.manager_ended(now)); }

    void passes(Time time) {
        for (const Time end = now + time; now < end;) {
            now = std::min(turns.next_deadline().value_or(end), end);
            keep(turns.time_passed(now));
        }
    }

    void says_all(ClientId client, const QList<QByteArray>& texts) {
        for (const QByteArray& text : texts)
            says(client, text);
    }

    /// Clients that ask as those who have the service's answers do, until what comes next is the service's to say.
    void come_and_ask(const QList<ClientId>& clients, const QByteArray& address = "10.0.0.1") {
        for (const ClientId client : clients) {
            connects(client, address);
            says_all(client, {"##10.0.0.1", "st"});
        }
    }

    std::string heard(ClientId client) const { return told.value(client).join(u' ').toStdString(); }
    bool threw_out(ClientId client) const { return told.value(client).contains(u"(thrown out)"_s); }

    Time now{1000};
    Turns turns;
    QMap<ClientId, QStringList> told;
    QList<ClientId> granted;
    QSet<ClientId> patient; ///< these ask again as soon as they are told to wait
    int managers = 0;

private:
    void keep(const Actions& actions) {
        for (const Action& action : actions) {
            if (action.reply == "st-1")
                granted << action.client;
            if (action.what == Action::What::StartManager)
                ++managers;
            else
                told[action.client] << (action.what == Action::What::Send ? QString::fromLatin1(action.reply)
                                        : action.reason.isEmpty()         ? u"(closed)"_s
                                                                          : u"(thrown out)"_s);
            if (action.reply == "stok" && patient.contains(action.client))
                says(action.client, "st");
        }
    }
};

} // namespace

TEST(Turns, ATurnGoesThroughEveryMessageInPiecesJoinedOrRepeatedAndThenTheManagerRuns) {
    struct Case {
        QList<QByteArray> texts;
        std::string heard;
        QByteArray address;
    };
    const std::string plain = "your st-1 so-1 en-1";
    for (const Case& c : {Case{{"##192.168.0.7", "st", "so", "en"}, plain, "192.168.0.7"},
             {{"##10.0.0.1st", "so", "en"}, plain, "10.0.0.1"},
             {{"#", "#10.0", ".0.1", "s", "t", "s", "o", "e", "n"}, plain, "10.0.0.1"},
             {{"##", "fe80::1%eth0", "st", "soen"}, plain, "fe80::1%eth0"},
             // A reply that came in pieces makes a client say its last message again.
             {{"##keiri-pc", "st", "st", "so", "so", "en", "en"}, "your st-1 st-1 so-1 so-1 en-1 en-1", "keiri-pc"}}) {
        Service service;
        service.connects(1);
        service.says_all(1, c.texts);
        EXPECT_EQ(service.heard(1), c.heard) << c.texts.join('|').constData();
        EXPECT_EQ(service.managers, 0);
        EXPECT_EQ(service.turns.address(1), c.address);
        service.says(1, "eo");
        EXPECT_EQ(service.heard(1), c.heard + " eo-1 (closed)");
        EXPECT_EQ(service.managers, 1);
    }
}

TEST(Turns, GarbageClosesThatClientOnly) {
    const QList<QList<QByteArray>> rude{{"GET / HTTP/1.1"}, {"#!"}, {"st"}, {QByteArray("\0\xff", 2)}, {"##10.0.0.1\n"},
        {"##" + QByteArray(300, 'a')}, {"##10.0.0.1", "st", "x"}, {"##10.0.0.1", "st", "so"},
        {"##10.0.0.1", "st", "eo"}, {"##10.0.0.1", "st", "##10.0.0.1"}};
    for (const auto& texts : rude) {
        Service service;
        service.come_and_ask({1});
        service.says(1, "so");
        service.connects(2);
        service.says_all(2, texts);
        EXPECT_TRUE(service.heard(2).ends_with("(thrown out)")) << texts.join('|').constData();
        service.says_all(1, {"en", "##"});
        EXPECT_EQ(service.heard(1), "your st-1 so-1 en-1 (thrown out)") << "the holder for a message out of its place";
    }
}

TEST(Turns, OneHoldsTheTurnAndTheOthersFollowAsTheyCame) {
    Service service;
    service.come_and_ask({1, 2, 3});
    EXPECT_EQ(service.heard(1) + '|' + service.heard(2) + '|' + service.heard(3), "your st-1|your|your");
    service.says_all(1, {"so", "en", "eo"});
    EXPECT_EQ(service.heard(2) + '|' + service.heard(3), "your|your") << "before the manager has ended";
    service.manager_ends();
    EXPECT_EQ(service.heard(2) + '|' + service.heard(3), "your st-1|your");
}

TEST(Turns, WhoWaitsIsToldSoAfterAPauseAndOnceAndIsNotOvertakenWhileItsNextQuestionIsOnTheWay) {
    Service service;
    service.come_and_ask({1, 2, 3});
    service.says(2, "st");
    for (const Time time : {499ms, 1ms}) {
        service.passes(time);
        EXPECT_EQ(service.heard(2), time == 1ms ? "your stok" : "your");
    }
    service.says(3, "st");
    service.goes(1);
    EXPECT_EQ(service.heard(3), "your stok");
    service.says(2, "st");
    EXPECT_EQ(service.heard(2), "your stok st-1");
}

TEST(Turns, AHolderThatIsLostLosesTheTurnAndMayHavePosted) {
    struct Case {
        QList<QByteArray> after_the_grant;
        Time patience;
        int managers; ///< none where it never took the turn, so that it can't have posted
    };
    for (const Case& c : {Case{{}, 3s, 0}, Case{{"so"}, 30s, 1}, Case{{"so", "en"}, 3s, 1}}) {
        for (const bool silent : {true, false}) {
            Service service;
            service.come_and_ask({1});
            service.says_all(1, c.after_the_grant);
            service.passes(c.patience - 1ms);
            service.come_and_ask({2});
            EXPECT_EQ(service.heard(2), "your");
            silent ? service.passes(1ms) : service.goes(1);
            EXPECT_EQ(service.threw_out(1), silent);
            EXPECT_EQ(service.managers, c.managers);
            EXPECT_EQ(service.heard(2), c.managers ? "your" : "your st-1");
            service.manager_ends();
            EXPECT_EQ(service.heard(2), "your st-1");
        }
    }
}

TEST(Turns, AClientWhoseMessageIsDueIsGivenUpAfterItsPatience) {
    for (const auto& texts : QList<QByteArrayList>{{}, {"#"}, {"##10.0.0.1"}, {"##10.0.0.1", "s"}}) {
        Service service;
        service.connects(1);
        service.says_all(1, texts);
        for (const Time time : {2999ms, 1ms}) {
            service.passes(time);
            EXPECT_EQ(service.threw_out(1), time == 1ms) << texts.join('|').constData();
        }
    }
}

TEST(Turns, AWaitingClientThatStopsAskingLosesItsPlace) {
    Service service;
    service.come_and_ask({1, 2, 3});
    service.says(1, "so");
    for (int i = 0; i < 7; ++i) {
        service.passes(500ms);
        service.says(3, "st");
    }
    EXPECT_EQ(service.heard(2), "your stok (thrown out)");
    service.goes(1);
    service.manager_ends();
    EXPECT_TRUE(service.heard(3).ends_with("st-1"));
}

TEST(Turns, RepeatingAMessageMakesNoTurnLonger) {
    for (const auto& [texts, seconds] : {std::pair(QList<QByteArray>{"st"}, 3), {{"so"}, 30}, {{"so", "en"}, 3}}) {
        Service service;
        service.come_and_ask({1});
        service.says_all(1, texts);
        for (int second = 0; second < seconds; ++second) {
            EXPECT_FALSE(service.threw_out(1)) << second;
            service.says(1, texts.last());
            service.passes(1s);
        }
        EXPECT_TRUE(service.threw_out(1)) << texts.last().constData();
    }
}

TEST(Turns, AnAddressWhoseClientsLetTheirTurnsGoByLeavesTheNextOnesToTheOthers) {
    Service service;
    service.patient = {2, 3, 4, 5, 6, 7};
    service.come_and_ask({1, 2, 3}, "10.0.0.66");
    service.come_and_ask({4, 5, 6}, "10.0.0.5");
    service.come_and_ask({7}, "10.0.0.7");
    service.passes(3s);
    for (int turn = 0; turn < 4; ++turn) {
        service.says_all(service.granted.last(), {"so", "en"});
        service.passes(100ms);
        service.says(service.granted.last(), "eo");
        service.manager_ends();
    }
    EXPECT_EQ(service.granted, QList<ClientId>({1, 4, 7, 5, 6, 2}));
}

TEST(Turns, OnesWhoLetTheirTurnsGoByKeepNobodyWaitingForLong) {
    for (const bool one_address : {true, false}) {
        Service service;
        for (ClientId client = 1; client <= 65; ++client) {
            service.patient << client;
            service.come_and_ask({client}, "10.0.0." + QByteArray::number(one_address ? 1 : client));
        }
        const Time start = service.now;
        while (service.granted.last() != 65 && service.now - start < 10s)
            service.passes(10ms);
        EXPECT_EQ(service.granted.last(), 65) << one_address;
        service.says(65, "so");
        service.passes(2s);
        EXPECT_FALSE(service.threw_out(65)) << "who takes the turn still has time to post";
    }
}

TEST(Turns, AnAddressThatKeepsTheTurnForLongAgainAndAgainHasNoneForAsLong) {
    Service service;
    service.patient = {2, 3, 4};
    service.come_and_ask({1, 2, 3}, "10.0.0.66");
    for (const ClientId client : {1, 2}) {
        EXPECT_EQ(service.granted.last(), client) << "once may be an accident";
        service.says(client, "so");
        service.passes(30s);
        service.manager_ends();
    }
    service.come_and_ask({4}, "10.0.0.7");
    service.says_all(4, {"so", "en", "eo"});
    service.manager_ends();
    service.passes(14s); // it had half the time, the second time
    EXPECT_EQ(service.granted, QList<ClientId>({1, 2, 4}));
    service.passes(2s);
    EXPECT_EQ(service.granted, QList<ClientId>({1, 2, 4, 3}));
}

TEST(Turns, AFreeTurnIsKeptOnlyForAMomentForAClientThatMustAskAgain) {
    Service service;
    service.patient = {3};
    service.come_and_ask({1, 2, 3});
    service.passes(1s);
    service.goes(1);
    service.passes(499ms);
    EXPECT_EQ(service.granted, QList<ClientId>{1});
    service.passes(1ms);
    EXPECT_EQ(service.granted, QList<ClientId>({1, 3}));
    service.passes(1s);
    service.says(2, "st");
    service.goes(3);
    EXPECT_EQ(service.granted, QList<ClientId>({1, 3, 2})) << "slow, but not given up";
}

TEST(Turns, WhenThereIsNoRoomTheAddressWithTheMostConnectionsGivesWay) {
    Service service({.connections = 4});
    service.come_and_ask({1}, "10.0.0.66");
    service.connects(2, "10.0.0.66");
    service.come_and_ask({3, 4}, "10.0.0.66");
    const auto gives_way_for = [&](ClientId newcomer, const QByteArray& address) -> ClientId {
        service.told.clear();
        service.connects(newcomer, address);
        return service.told.isEmpty() ? 0 : service.told.firstKey();
    };
    EXPECT_EQ(gives_way_for(5, "10.0.0.66"), 5) << "it crowds out nobody but itself";
    EXPECT_EQ(gives_way_for(6, "10.0.0.6"), 2) << "one that has said nothing";
    EXPECT_EQ(gives_way_for(7, "10.0.0.7"), 4) << "the last in the row";
    EXPECT_EQ(gives_way_for(8, "10.0.0.7"), 8) << "would have as many";
    EXPECT_EQ(gives_way_for(9, "10.0.0.9"), 3);
    EXPECT_EQ(gives_way_for(10, "10.0.0.10"), 10) << "everybody has one";
    service.says(1, "so");
    EXPECT_EQ(service.heard(1), "so-1");
}

TEST(Turns, TheMessagesOfEachSecondAreBoundedAndOneThatGoesLeavesItsRoom) {
    Service service({.connections = 2, .messages_a_second = 5});
    service.connects(1);
    service.connects(3);
    service.goes(1);
    service.come_and_ask({2});
    service.passes(1s);
    service.says(2, "ststststst");
    EXPECT_FALSE(service.threw_out(2));
    service.says(2, "st");
    EXPECT_TRUE(service.threw_out(2));
}

} // namespace exchange
