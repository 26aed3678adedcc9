#pragma once

// One TCP connection to a control port of the demo unit. It cuts the bytes into frames, asks the
// unit, and sends the reply in the steps that latency and faults make of it. Steps of one
// connection stay in order: a late reply holds up those behind it.

#include <QObject>
#include <QTcpSocket>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "unit/faults.h"
#include "unit/frame_parser.h"

namespace kestrane::unit {

class UnitConnection : public QObject {
  public:
    // What to do for a command text: the steps of its reply, none for silence.
    using Handler = std::function<std::vector<WireStep>(const std::string& command)>;

    // Takes over the socket and deletes itself when the connection has ended.
    UnitConnection(QTcpSocket* socket, Handler handler, QObject* parent);

    // What is on its way is sent first, if the client takes it within two seconds.
    void Close();
    // A TCP reset in place of an orderly end.
    void Reset();

  private:
    void Read();
    void SendNext();
    void Flood();
    void Perform(const WireStep& step);

    QTcpSocket* socket_;
    Handler handler_;
    FrameParser parser_;
    std::deque<WireStep> steps_;
    QTimer timer_;
};

}  // namespace kestrane::unit
