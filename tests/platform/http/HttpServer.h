#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

namespace Quillstacks {

/// A real HTTP server on the loopback address that answers as a test wants.
class HttpServer final : public QObject {
public:
    struct Request {
        QByteArray head; ///< request line and headers
        QByteArray body;
        QPointer<QTcpSocket> socket;

        [[nodiscard]] QByteArray line() const { return head.left(head.indexOf("\r\n")); }
        [[nodiscard]] QByteArray header(const QByteArray& name) const {
            for (const QByteArray& each : head.split('\n'))
                if (each.toLower().startsWith(name.toLower() + ':'))
                    return each.mid(name.size() + 1).trimmed();
            return {};
        }
    };

    HttpServer() {
        server.listen(QHostAddress::LocalHost);
        connect(&server, &QTcpServer::newConnection, this, [this] { accept(server.nextPendingConnection()); });
    }

    [[nodiscard]] quint16 port() const { return server.serverPort(); }
    [[nodiscard]] QString url() const { return QStringLiteral("http://127.0.0.1:%1").arg(port()); }

    /// Called for each request once it is whole.
    std::function<void(QTcpSocket&)> respond;
    std::vector<Request> requests;

    /// A whole answer, after which the connection is closed.
    static QByteArray answer(int status, const QByteArray& body, const QByteArray& headers = {}) {
        return "HTTP/1.1 " + QByteArray::number(status) + " Said\r\n" + headers +
               "Content-Length: " + QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body;
    }
    void answerWith(int status, const QByteArray& body, const QByteArray& headers = {}) {
        respond = [=](QTcpSocket& socket) {
            socket.write(answer(status, body, headers));
            socket.disconnectFromHost();
        };
    }
    /// Waits for the next request, without answering it.
    QTcpSocket* waitForRequest(std::size_t count = 1) {
        [[maybe_unused]] const bool came = QTest::qWaitFor([&] { return requests.size() >= count; }, 5000);
        QCoreApplication::processEvents(); // what the client tells of the sending comes first
        return came ? requests.back().socket.data() : nullptr;
    }

private:
    void accept(QTcpSocket* socket) {
        auto received = std::make_shared<QByteArray>();
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, this, [=, this] {
            *received += socket->readAll();
            const qsizetype headEnd = received->indexOf("\r\n\r\n");
            if (headEnd < 0)
                return;
            Request request{received->first(headEnd), received->mid(headEnd + 4), socket};
            if (request.body.size() < request.header("Content-Length").toLongLong())
                return;
            received->clear();
            requests.push_back(request);
            if (respond)
                respond(*socket);
        });
    }

    QTcpServer server;
};

} // namespace Quillstacks
