#include "host/host_services.h"

#include <QNetworkProxy>

namespace kestrane {

HostServices::HostServices() {
    // Without this Qt would ask the system for a proxy at each connection.
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
}

}  // namespace kestrane
