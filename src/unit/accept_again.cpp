#include "unit/accept_again.h"

#include <QTimer>
#include <chrono>

namespace kestrane::unit {

void AcceptAgain(QTcpServer& server) {
    constexpr std::chrono::milliseconds kPause{100};
    QObject::connect(&server, &QTcpServer::acceptError, &server, [&server] {
        QTimer::singleShot(kPause, &server, [&server] { server.resumeAccepting(); });
    });
}

}  // namespace kestrane::unit
