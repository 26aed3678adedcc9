#include "unit/accept_again.h"

#include <QTimer>
#include <chrono>

namespace kestrane::unit {
namespace {

constexpr std::chrono::milliseconds kPause{100};

}  // namespace

void AcceptAgain(QTcpServer& server) {
    QObject::connect(&server, &QTcpServer::acceptError, &server, [&server] {
        QTimer::singleShot(kPause, &server, [&server] { server.resumeAccepting(); });
    });
}

}  // namespace kestrane::unit
