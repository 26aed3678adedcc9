#include "unit/unit_connection.h"

#include <sys/socket.h>

#include <chrono>
#include <utility>

namespace kestrane::unit {
namespace {

// A client that sends and never reads is cut off here.
constexpr qint64 kMostUnread = 1 << 20;
constexpr std::size_t kMostSteps = 10'000;
// Of what has come: the rest waits in the network, so that a burst costs no memory.
constexpr qint64 kReadAtOnce = 1 << 16;
constexpr std::chrono::seconds kLongestClosing{2};
// 6 MB a second.
constexpr Milliseconds kFloodPause{10};
constexpr qsizetype kFloodBytes = 1 << 16;

}  // namespace

UnitConnection::UnitConnection(QTcpSocket* socket, Handler handler, QObject* parent)
    : QObject(parent), socket_(socket), handler_(std::move(handler)), timer_(this) {
    socket_->setParent(this);
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket_->setReadBufferSize(kReadAtOnce);
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] {
        const WireStep step = std::move(steps_.front());
        steps_.pop_front();
        Perform(step);
        SendNext();
    });
    connect(socket_, &QTcpSocket::readyRead, this, [this] { Read(); });
    connect(socket_, &QTcpSocket::disconnected, this, &QObject::deleteLater);
    Read();
    // It may have ended before anybody listened.
    if (socket_->state() == QAbstractSocket::UnconnectedState) deleteLater();
}

void UnitConnection::Close() {
    steps_.clear();
    timer_.stop();
    socket_->disconnectFromHost();
    QTimer::singleShot(kLongestClosing, this, [this] { socket_->abort(); });
}

void UnitConnection::Reset() {
    steps_.clear();
    timer_.stop();
    const linger at_once{1, 0};
    setsockopt(static_cast<int>(socket_->socketDescriptor()), SOL_SOCKET, SO_LINGER, &at_once,
               sizeof at_once);
    socket_->abort();
}

void UnitConnection::Read() {
    const QByteArray bytes = socket_->readAll();
    const std::string_view view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    for (const std::string& command : parser_.Feed(view)) {
        for (WireStep& step : handler_(command)) steps_.push_back(std::move(step));
    }
    if (socket_->bytesToWrite() > kMostUnread || steps_.size() > kMostSteps) {
        Reset();
        return;
    }
    SendNext();
}

// Without a wait a step goes out at once; a running timer belongs to the first step.
void UnitConnection::SendNext() {
    while (!timer_.isActive() && !steps_.empty()) {
        if (steps_.front().wait > Milliseconds{0}) {
            timer_.start(steps_.front().wait);
            return;
        }
        const WireStep step = std::move(steps_.front());
        steps_.pop_front();
        Perform(step);
    }
}

void UnitConnection::Perform(const WireStep& step) {
    if (socket_->state() != QAbstractSocket::ConnectedState) return;
    if (!step.bytes.empty()) {
        socket_->write(step.bytes.data(), static_cast<qint64>(step.bytes.size()));
    }
    if (step.end == WireStep::End::kClose) Close();
    if (step.end == WireStep::End::kReset) Reset();
    if (step.end == WireStep::End::kFlood) Flood();
}

// For as long as the client stays.
void UnitConnection::Flood() {
    if (socket_->state() != QAbstractSocket::ConnectedState) return;
    if (socket_->bytesToWrite() < kFloodBytes) socket_->write(QByteArray(kFloodBytes, '\x5A'));
    QTimer::singleShot(kFloodPause, this, [this] { Flood(); });
}

}  // namespace kestrane::unit
