#include "unit/versions_server.h"

#include <QByteArray>
#include <QTimer>
#include <chrono>

#include "unit/accept_again.h"
#include "unit/defaults.h"

namespace kestrane::unit {
namespace {

constexpr qint64 kLongestHead = 8192;
// For the whole of a connection.
constexpr std::chrono::seconds kLongestVisit{5};

bool HeadIsComplete(const QByteArray& head) {
    return head.contains("\r\n\r\n") || head.contains("\n\n");
}

QByteArray Response(const char* status, const QByteArray& content, bool with_content) {
    return QByteArray("HTTP/1.1 ") + status +
           "\r\nContent-Type: text/plain\r\nContent-Length: " + QByteArray::number(content.size()) +
           "\r\nConnection: close\r\n\r\n" + (with_content ? content : QByteArray());
}

// "GET /kestraneversions/ HTTP/1.1"; what follows a "?" is no matter.
QByteArray AnswerTo(const QByteArray& head) {
    const QList<QByteArray> words = head.left(head.indexOf('\n')).trimmed().split(' ');
    if (words.size() != 3) return Response("400 Bad Request", "bad request\n", true);
    const bool get = words[0] == "GET";
    if (!get && words[0] != "HEAD") return Response("405 Method Not Allowed", "GET only\n", true);
    const QByteArray path = words[1].split('?').first();
    if (path != "/kestraneversions/") return Response("404 Not Found", "no such page\n", get);
    return Response("200 OK", QByteArray::fromStdString(VersionsPage()), get);
}

}  // namespace

VersionsServer::VersionsServer() {
    connect(&server_, &QTcpServer::newConnection, this, [this] { Accept(); });
    AcceptAgain(server_);
}

std::string VersionsServer::Listen(const QHostAddress& host, std::uint16_t port) {
    return server_.listen(host, port) ? std::string() : server_.errorString().toStdString();
}

void VersionsServer::Close() {
    server_.close();
    for (QTcpSocket* socket : server_.findChildren<QTcpSocket*>()) socket->abort();
}

void VersionsServer::Accept() {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Read(*socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        QTimer::singleShot(kLongestVisit, socket, [socket] { socket->abort(); });
        MakeRoom();
        if (socket->state() == QAbstractSocket::ConnectedState) {
            Read(*socket);
        } else {
            socket->deleteLater();
        }
    }
}

// The eldest goes: a page that was asked for takes no time.
void VersionsServer::MakeRoom() {
    QList<QTcpSocket*> open = server_.findChildren<QTcpSocket*>();
    erase_if(open, [](auto* one) { return one->state() == QAbstractSocket::UnconnectedState; });
    if (open.size() > kMostConnections) open.first()->abort();
}

void VersionsServer::Read(QTcpSocket& socket) {
    if (socket.state() != QAbstractSocket::ConnectedState) {
        socket.readAll();
        return;
    }
    const QByteArray head = socket.peek(kLongestHead);
    if (HeadIsComplete(head)) {
        socket.write(AnswerTo(head));
    } else if (head.size() >= kLongestHead) {
        socket.write(Response("431 Request Header Fields Too Large", "too long\n", true));
    } else {
        return;
    }
    socket.readAll();
    socket.disconnectFromHost();
}

}  // namespace kestrane::unit
