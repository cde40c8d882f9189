#include "frame/doorbell.h"

#include "base/literals.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace frame {

using namespace base;

namespace {

constexpr unsigned long between_tries = 10; ///< milliseconds
constexpr char came_up = '1';

/// Windows lets a program come up for the person's sake only with the leave of the one that was just started.
void let_others_come_up() {
#ifdef Q_OS_WIN
    AllowSetForegroundWindow(ASFW_ANY);
#endif
}

QString digest_of(const QByteArray& bytes) {
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().first(16));
}

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
    let_others_come_up();
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
#ifdef Q_OS_WIN
    // All people of a PC have their pipes in one place: the person's folder goes into the name.
    return m_name + u'-' + digest_of(m_folder.toUtf8());
#else
    return m_folder + u'/' + m_name;
#endif
}

void Doorbell::answer() {
    if (rung)
        rung();
    while (QLocalSocket* caller = m_server.nextPendingConnection()) {
        QObject::connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        caller->write(&came_up, 1);
    }
}

QString doorbell_folder() {
#ifdef Q_OS_WIN
    return QStandardPaths::writableLocation(QStandardPaths::TempLocation);
#else
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
#endif
}

QString doorbell_name(const QString& program_folder) {
    QByteArray place = QDir(program_folder).canonicalPath().toUtf8();
    for (const char* screen : {"WAYLAND_DISPLAY", "DISPLAY", "SESSIONNAME"})
        place += '\n' + qgetenv(screen);
    return u"rovena-"_s + digest_of(place);
}

} // namespace frame
