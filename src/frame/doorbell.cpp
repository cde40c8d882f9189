#include "frame/doorbell.h"

#include "base/literals.h"
#include "platform/screen.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QThread>

namespace frame {

using namespace base;

namespace {

constexpr unsigned long between_tries = 10; ///< milliseconds
constexpr char came_up = '1';

bool is_answered(const QString& address, const QDeadlineTimer& until) {
    QLocalSocket bell;
    bell.connectToServer(address);
    return bell.waitForConnected(int(until.remainingTime())) && bell.waitForReadyRead(int(until.remainingTime()));
}

} // namespace

Doorbell::Doorbell(QString folder, QString name) : m_folder(std::move(folder)), m_name(std::move(name)) {
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] { answer(); });
}

bool Doorbell::comes_in(std::chrono::milliseconds patience) {
    platform::let_others_come_up();
    const QDeadlineTimer until(patience);
    while (!take_place()) {
        if (is_answered(address(), until))
            return false;
        if (until.hasExpired())
            return true;
        QThread::msleep(between_tries); // the first may be about to listen, or to end
    }
    return true;
}

/// What stands at the address is left of a program that was killed: the lock says that none is there.
bool Doorbell::take_place() {
    try {
        m_place.emplace(m_folder, m_name);
        if (!m_place->take(std::chrono::milliseconds(0)))
            return false;
        QLocalServer::removeServer(address());
        m_server.listen(address());
    } catch (const platform::LockError&) {
        m_place.reset();
    }
    return true;
}

void Doorbell::leave() {
    m_server.close();
    m_place.reset();
}

QString Doorbell::address() const {
    return platform::own_address(m_folder, m_name);
}

void Doorbell::answer() {
    if (rung)
        rung();
    while (QLocalSocket* caller = m_server.nextPendingConnection()) {
        QObject::connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        caller->write(&came_up, 1);
    }
}

QString doorbell_name(const QString& program_folder) {
    QByteArray place = QDir(program_folder).canonicalPath().toUtf8();
    for (const char* screen : {"WAYLAND_DISPLAY", "DISPLAY", "SESSIONNAME"})
        place += '\n' + qgetenv(screen);
    const QByteArray digest = QCryptographicHash::hash(place, QCryptographicHash::Sha256);
    return u"rovena-"_s + QString::fromLatin1(digest.toHex().first(16));
}

} // namespace frame
