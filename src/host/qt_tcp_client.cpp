#include "host/qt_tcp_client.h"

#include <QHostInfo>
#include <QSignalBlocker>
#include <algorithm>

namespace kestrane {
namespace {

QString WithoutBrackets(const std::string& host) {
    const QString name = QString::fromLatin1(host.data(), static_cast<qsizetype>(host.size()));
    const bool in_brackets = name.startsWith('[') && name.endsWith(']');
    return in_brackets ? name.mid(1, name.size() - 2) : name;
}

}  // namespace

QtTcpClient::QtTcpClient(std::size_t most_unread) : most_unread_(most_unread) {
    QObject::connect(&socket_, &QTcpSocket::connected, &context_, [this] { OnConnected(); });
    QObject::connect(&socket_, &QTcpSocket::readyRead, &context_, [this] { TakeIncoming(); });
    QObject::connect(&socket_, &QTcpSocket::errorOccurred, &context_,
                     [this](QAbstractSocket::SocketError error) { OnError(error); });
    QObject::connect(&socket_, &QTcpSocket::disconnected, &context_, [this] { OnDisconnected(); });
}

QtTcpClient::~QtTcpClient() { Close(); }

void QtTcpClient::Connect(const std::string& host, int port) {
    Close();
    const QString name = WithoutBrackets(host);
    if (port < 1 || port > 65535 || name.isEmpty()) {
        error_ = true;
        return;
    }
    port_ = static_cast<quint16>(port);
    QHostAddress address;
    if (address.setAddress(name)) {
        addresses_ = {address};
        ConnectToNext();
        return;
    }
    phase_ = SocketState::kResolvingHost;
    lookup_ = QHostInfo::lookupHost(name, &context_,
                                    [this, connection = connection_](const QHostInfo& info) {
                                        if (connection == connection_) OnResolved(info);
                                    });
}

void QtTcpClient::Close() {
    ++connection_;
    if (lookup_ != -1) QHostInfo::abortHostLookup(lookup_);
    lookup_ = -1;
    addresses_.clear();
    {
        const QSignalBlocker blocker(socket_);
        SendTheRest();
        // close() would leave a connect under way.
        socket_.abort();
    }
    phase_ = SocketState::kClosed;
    peer_closed_ = false;
    error_ = false;
    unread_.clear();
    unread_.shrink_to_fit();
    read_position_ = 0;
}

// abort() throws away what has been handed over and not sent yet. What has come in is read first,
// as closing over unread bytes resets the connection.
void QtTcpClient::SendTheRest() {
    if (socket_.state() != QAbstractSocket::ConnectedState) return;
    socket_.readAll();
    socket_.flush();
    if (socket_.bytesToWrite() > 0) socket_.waitForBytesWritten(kLongestFarewell);
}

SocketState QtTcpClient::State() const {
    if (error_) return SocketState::kError;
    if (peer_closed_ && BytesWaiting() == 0) return SocketState::kPeerClosing;
    return phase_;
}

std::string QtTcpClient::Read(std::size_t count) {
    std::string taken = unread_.substr(read_position_, count);
    read_position_ += taken.size();
    // Moving the rest only when half is read keeps reading byte by byte linear.
    if (read_position_ * 2 >= unread_.size()) {
        unread_.erase(0, read_position_);
        read_position_ = 0;
    }
    return taken;
}

void QtTcpClient::Send(std::string_view bytes) {
    if (socket_.state() != QAbstractSocket::ConnectedState) return;
    if (socket_.bytesToWrite() >= kMostUnsent) return;
    // A write to a peer that has gone can discard what it sent before.
    TakeIncoming();
    socket_.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void QtTcpClient::OnResolved(const QHostInfo& info) {
    lookup_ = -1;
    addresses_ = info.addresses();
    if (addresses_.isEmpty()) {
        error_ = true;
        return;
    }
    phase_ = SocketState::kHostResolved;
    Later(&QtTcpClient::ConnectToNext);
}

void QtTcpClient::ConnectToNext() {
    phase_ = SocketState::kConnecting;
    socket_.abort();
    // An unreachable network is told in here already, by OnError.
    socket_.connectToHost(addresses_.takeFirst(), port_);
    socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
}

void QtTcpClient::OnConnected() {
    phase_ = SocketState::kConnected;
    addresses_.clear();
    socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
}

void QtTcpClient::OnError(QAbstractSocket::SocketError error) {
    TakeIncoming();
    if (phase_ == SocketState::kConnected) {
        if (error == QAbstractSocket::RemoteHostClosedError) {
            peer_closed_ = true;
        } else {
            error_ = true;
        }
    } else if (!addresses_.isEmpty()) {
        Later(&QtTcpClient::ConnectToNext);
    } else {
        error_ = true;
    }
}

void QtTcpClient::OnDisconnected() {
    TakeIncoming();
    if (phase_ == SocketState::kConnected) peer_closed_ = true;
}

void QtTcpClient::TakeIncoming() {
    if (socket_.bytesAvailable() == 0) return;
    const QByteArray incoming = socket_.readAll();
    const std::size_t room = most_unread_ - std::min(most_unread_, BytesWaiting());
    unread_.append(incoming.data(), std::min(room, static_cast<std::size_t>(incoming.size())));
}

void QtTcpClient::Later(void (QtTcpClient::*step)()) {
    QMetaObject::invokeMethod(
        &context_,
        [this, step, connection = connection_] {
            if (connection == connection_) (this->*step)();
        },
        Qt::QueuedConnection);
}

}  // namespace kestrane
