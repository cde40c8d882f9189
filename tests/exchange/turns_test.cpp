#include "exchange/turns.h"

#include "base/literals.h"
#include "support/told_cases.h"

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
    /// The clients that had the turn.
    std::string turns_had() const {
        QStringList numbers;
        for (const ClientId client : granted)
            numbers << QString::number(client);
        return numbers.join(u' ').toStdString();
    }
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
                told[action.client] << (action.what == Action::What::Send
                                            ? QString::fromLatin1(action.reply.trimmed()).replace(u' ', u'_')
                                        : action.reason.isEmpty() ? u"(closed)"_s
                                                                  : u"(thrown out)"_s);
            if (action.reply == "stok" && patient.contains(action.client))
                says(action.client, "st");
        }
    }
};

/// Lets a client act as rows/turns.txt tells, or looks at what it was told.
void play(Service& service, ClientId client, const QString& verb, const QStringList& words) {
    const QByteArray address = words.value(0, u"10.0.0.1"_s).toLatin1();
    if (verb == u"connect")
        service.connects(client, address);
    else if (verb == u"ask")
        service.come_and_ask({client}, address);
    else if (verb == u"go")
        service.goes(client);
    else if (verb == u"again")
        service.patient << client;
    else if (verb == u"heard")
        EXPECT_EQ(service.heard(client), words.join(u' ').toStdString());
    else if (verb == u"in" || verb == u"out")
        EXPECT_EQ(service.threw_out(client), verb == u"out");
    else if (verb == u"is")
        EXPECT_EQ(service.turns.address(client), address);
    else if (verb == u"say")
        for (const QString& text : words)
            service.says(client, text.toLatin1());
    else
        ADD_FAILURE() << "no such step";
}

void play(Service& service, const QString& line) {
    const QStringList words = line.split(u' ');
    if (words[0] == u"time")
        service.passes(Time(words[1].toInt()));
    else if (words[0] == u"manager")
        service.manager_ends();
    else if (words[0] == u"limits")
        service.turns = Turns({.connections = words[1].toInt(), .messages_a_second = words[2].toInt()});
    else if (words[0] == u"managers")
        EXPECT_EQ(service.managers, words[1].toInt());
    else if (words[0] == u"granted")
        EXPECT_EQ(service.turns_had(), words.mid(1).join(u' ').toStdString());
    else
        for (const QString& client : words[0].split(u','))
            play(service, client.toInt(), words[1], words.mid(2));
}

} // namespace

TEST(Turns, GoAsTheRowsTell) {
    for (const auto& [shows, lines] : support::told_cases(QStringLiteral(ROVENA_ROWS "/turns.txt"))) {
        Service service;
        for (const QString& line : lines) {
            SCOPED_TRACE((shows + u": "_s + line).toStdString());
            play(service, line);
        }
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

} // namespace exchange
