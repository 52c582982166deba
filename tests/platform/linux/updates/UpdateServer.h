#pragma once

#include "updates/Crypto.h"

#include <QPointer>
#include <QSslConfiguration>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace Quillstacks {

/// A real HTTP or HTTPS server on the loopback address. It answers each path as a test says, byte for byte, and hangs
/// up after that.
class UpdateServer final : public QObject {
public:
    using Answer = std::function<void(QTcpSocket&)>;

    /// Without an identity it speaks plain HTTP.
    explicit UpdateServer(const ServerIdentity* identity) : isSecure(identity != nullptr) {
        if (identity) {
            auto secure = std::make_unique<QSslServer>();
            QSslConfiguration configuration;
            configuration.setLocalCertificate(identity->certificate);
            configuration.setPrivateKey(identity->key);
            secure->setSslConfiguration(configuration);
            server = std::move(secure);
        } else {
            server = std::make_unique<QTcpServer>();
        }
        server->listen(QHostAddress::LocalHost);
        // Secure ones are ready when the handshake is through.
        connect(server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
            while (QTcpSocket* socket = server->nextPendingConnection())
                serve(socket);
        });
    }

    [[nodiscard]] QString origin() const {
        return QStringLiteral("%1://127.0.0.1:%2")
            .arg(isSecure ? QStringLiteral("https") : QStringLiteral("http"), QString::number(server->serverPort()));
    }
    [[nodiscard]] QUrl url(const QString& path) const { return QUrl(origin() + path); }

    std::map<QByteArray, Answer> answers; ///< by path
    QByteArrayList requests;              ///< heads

    void say(const QByteArray& path, const QByteArray& body, const QByteArray& head = "HTTP/1.1 200 OK") {
        answers[path] = [=](QTcpSocket& socket) {
            socket.write(head + "\r\nContent-Length: " + QByteArray::number(body.size()) +
                         "\r\nConnection: close\r\n\r\n" + body);
            socket.disconnectFromHost();
        };
    }
    void redirect(const QByteArray& path, const QUrl& to) {
        say(path, {}, "HTTP/1.1 302 Found\r\nLocation: " + to.toEncoded());
    }
    /// More and more, for as long as somebody listens.
    void sayWithoutEnd(const QByteArray& path) {
        answers[path] = [this](QTcpSocket& socket) {
            socket.write("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
            // By a timer: a secure socket tells of written bytes within the call that writes.
            auto* pulse = new QTimer(&socket);
            connect(pulse, &QTimer::timeout, this, [this, &socket] {
                endless += 65536;
                socket.write(QByteArray(65536, 'x'));
            });
            pulse->start(0);
        };
    }
    qint64 endless = 0; ///< bytes said so
    /// Whether a connection is open.
    [[nodiscard]] bool isTalking() const {
        return std::ranges::any_of(sockets, [](const QPointer<QTcpSocket>& socket) {
            return socket && socket->state() == QAbstractSocket::ConnectedState;
        });
    }
    void hangUp() {
        for (const QPointer<QTcpSocket>& socket : sockets)
            if (socket)
                socket->abort();
    }

private:
    void serve(QTcpSocket* socket) {
        sockets.push_back(socket);
        auto received = std::make_shared<QByteArray>();
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        const auto read = [=, this] {
            *received += socket->readAll();
            if (!received->contains("\r\n\r\n"))
                return;
            requests += *received;
            const QByteArray path = received->split(' ').value(1);
            received->clear();
            const auto answer = answers.find(path);
            if (answer != answers.end())
                answer->second(*socket);
            else
                socket->write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
        };
        connect(socket, &QTcpSocket::readyRead, this, read);
        if (socket->bytesAvailable() > 0)
            read();
    }

    std::unique_ptr<QTcpServer> server;
    std::vector<QPointer<QTcpSocket>> sockets;
    bool isSecure;
};

} // namespace Quillstacks
