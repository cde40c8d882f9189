#pragma once

// A web server of the tests, as polite or as rude as it is told to be.

#include "support/wait_until.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <map>

namespace support {

class HttpServer {
public:
    HttpServer() {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            while (QTcpSocket* socket = m_server.nextPendingConnection()) {
                QObject::connect(socket, &QIODevice::readyRead, socket, [this, socket] { serve(*socket); });
                QObject::connect(socket, &QIODevice::bytesWritten, socket, [this](qint64 bytes) { sent += bytes; });
            }
        });
    }

    QString host() const { return QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort()); }
    /// From now on nobody listens there.
    void close() { m_server.close(); }

    /// What is sent for a path, byte for byte, a piece a turn of the event loop; then the connection is closed. A path
    /// that isn't here gets 404, one without pieces no answer at all.
    std::map<QString, QList<QByteArray>> pieces;
    qint64 sent = 0;   ///< bytes that the system took
    QStringList asked; ///< paths in the order they were asked for

    void put(const QString& path, const QByteArray& body) {
        pieces[path] = {"HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body};
    }

private:
    void serve(QTcpSocket& socket) {
        const QByteArray request = socket.peek(10'000);
        if (!request.contains("\r\n\r\n"))
            return;
        socket.readAll();
        const QString path = QString::fromUtf8(QByteArray::fromPercentEncoding(request.split(' ').value(1)));
        asked << path;
        const auto found = pieces.find(path);
        if (found == pieces.end())
            send(socket, {"HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\nnone"});
        else if (!found->second.isEmpty())
            send(socket, found->second);
    }

    static void send(QTcpSocket& socket, QList<QByteArray> rest) {
        if (!socket.isOpen()) // the other side has had enough
            return;
        if (rest.isEmpty())
            return socket.disconnectFromHost();
        socket.write(rest.takeFirst());
        socket.flush();
        QMetaObject::invokeMethod(
            &socket, [&socket, rest] { send(socket, rest); }, Qt::QueuedConnection);
    }

    QTcpServer m_server;
};

} // namespace support
