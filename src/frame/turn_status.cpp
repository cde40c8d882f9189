#include "frame/turn_status.h"

#include "base/literals.h"

#include <QDeadlineTimer>
#include <QNetworkProxy>
#include <algorithm>
#include <array>

namespace frame {

using namespace base;

namespace {

constexpr qint64 most_unread = 256; ///< of whatever takes itself for the service
constexpr std::array<QByteArrayView, 3> states{"free", "held", "applying"};
constexpr QByteArrayView mark = "!!";

QString words_of_state(const TurnStatus& status) {
    const QString holder = QString::fromLatin1(status.holder);
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(status.since).count();
    switch (status.state) {
    case TurnStatus::State::Held:
        return u"%1 が登録しています（%2秒前から）。"_s.arg(holder).arg(seconds);
    case TurnStatus::State::Applying:
        return u"%1 が登録した内容を反映しています（%2秒前から）。"_s.arg(holder).arg(seconds);
    default:
        return u"順番は空いています。"_s;
    }
}

} // namespace

QByteArray turn_status_line(const TurnStatus& status) {
    const QByteArrayList words{states[size_t(status.state)].toByteArray(),
        status.holder.isEmpty() ? QByteArray("-") : status.holder, QByteArray::number(qint64(status.since.count())),
        QByteArray::number(status.waiting)};
    return mark.toByteArray() + words.join(' ') + '\n';
}

std::optional<TurnStatus> read_turn_status(const QByteArray& line) {
    const QByteArrayList words = line.mid(mark.size()).trimmed().split(' ');
    const auto state = std::ranges::find(states, QByteArrayView(words[0]));
    if (!line.startsWith(mark) || !line.endsWith('\n') || words.size() != 4 || state == states.end())
        return std::nullopt;
    return TurnStatus{TurnStatus::State(state - states.begin()), words[1] == "-" ? QByteArray() : words[1],
        std::chrono::milliseconds(words[2].toLongLong()), words[3].toInt()};
}

QString words(const TurnStatus& status) {
    const QString others = status.waiting > 0 ? u"\n%1台が順番を待っています。"_s.arg(status.waiting) : QString();
    return words_of_state(status) + others;
}

TurnStatusQuestion::TurnStatusQuestion() {
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_socket.setReadBufferSize(most_unread);
    QObject::connect(
        &m_socket, &QTcpSocket::connected, &m_socket, [this] { m_socket.write(turn_status_question.toByteArray()); });
    QObject::connect(&m_socket, &QTcpSocket::readyRead, &m_socket, [this] {
        if (!m_socket.canReadLine() && m_socket.bytesAvailable() < most_unread)
            return;
        m_answer = read_turn_status(m_socket.readLine(most_unread));
        m_socket.abort();
    });
}

void TurnStatusQuestion::ask(const QString& host, quint16 port) {
    if (asking())
        return;
    m_answer.reset();
    m_socket.connectToHost(host, port);
}

void TurnStatusQuestion::wait(std::chrono::milliseconds patience) {
    const QDeadlineTimer limit(patience);
    const auto left = [&] { return int(limit.remainingTime()); };
    if (m_socket.waitForConnected(left()))
        while (asking() && m_socket.waitForReadyRead(left())) {
        }
}

void TurnStatusQuestion::forget() {
    m_socket.abort();
    m_answer.reset();
}

} // namespace frame
