#pragma once

// A server that can't accept, for want of file handles, stops listening for good unless it is told
// to go on.

#include <QTcpServer>

namespace kestrane::unit {

// Lets it try again some time after each failure, as long as it lives.
void AcceptAgain(QTcpServer& server);

}  // namespace kestrane::unit
