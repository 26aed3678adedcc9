#include "unit/unit_server.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <algorithm>
#include <memory>

#include "support/qt_wait.h"
#include "unit/defaults.h"
#include "unit_test_support.h"

namespace kestrane::unit {
namespace {

// A server that listens.
struct Listening : UnitServer {
    explicit Listening(ServerOptions options = {}) : UnitServer(std::move(options)) {
        EXPECT_EQ(Listen().result, Start::kReady);
    }
};

class UnitServerTest : public testing::Test {
  protected:
    static void Connect(QTcpSocket& socket, std::uint16_t port) {
        bool connected = false;
        QObject::connect(&socket, &QTcpSocket::connected, &socket, [&] { connected = true; });
        socket.connectToHost("127.0.0.1", port);
        ASSERT_TRUE(WaitUntil([&] { return connected; }));
    }
    // The text of the reply.
    static std::string Exchange(QTcpSocket& socket, std::initializer_list<int> text) {
        const std::string frame = EncodeFrame(Bytes(text));
        socket.write(frame.data(), static_cast<qint64>(frame.size()));
        FrameParser parser;
        std::vector<std::string> replies;
        WaitUntil([&] {
            replies = parser.Feed(socket.readAll().toStdString());
            return !replies.empty() || socket.state() != QAbstractSocket::ConnectedState;
        });
        return replies.empty() ? "silence" : replies[0];
    }

    int argc_ = 1;
    char name_[5] = "test";
    char* argv_[2] = {name_, nullptr};
    QCoreApplication application_{argc_, argv_};
};

TEST_F(UnitServerTest, ServesThreePortsAndStoresTheirNumbers) {
    std::vector<std::string> log;
    ServerOptions options;
    options.log = [&](const std::string& line) { log.push_back(line); };
    Listening server(options);
    QTcpSocket a, another, c;
    Connect(a, server.Ports()[0]);
    Connect(another, server.Ports()[0]);
    Connect(c, server.Ports()[2]);
    const std::string ports = Exchange(a, {kDisplayByte, 0x11, 0x00, 0x38, 6}).substr(5);
    for (std::size_t i = 0; i < 3; ++i) {
        const int stored = ByteAt(ports, 5 - 2 * i) << 8 | ByteAt(ports, 6 - 2 * i);
        EXPECT_EQ(stored, server.Ports()[i]);
    }
    // Half a frame of one connection doesn't disturb another on the same port.
    a.write(QByteArray::fromHex("1002FA"));
    EXPECT_EQ(Exchange(another, {kRelayByte, 0x21}).size(), 6u);
    EXPECT_EQ(Exchange(c, {kRelayByte, 0x61, 0x10}), Refusal(kRelayByte, 0x61));
    EXPECT_EQ(log.back(), "sent C 10 02 FA 61 16 71 10 03");
}

// Each leaves the page to be had, and is closed.
TEST_F(UnitServerTest, GivesTheVersionsPageWhateverOthersAsk) {
    Listening server;
    const auto ask = [&](const QByteArray& request) {
        QTcpSocket http;
        Connect(http, server.VersionsPort());
        http.write(request);
        QByteArray answer;
        EXPECT_TRUE(WaitUntil([&] {
            answer += http.readAll();
            return http.state() == QAbstractSocket::UnconnectedState;
        })) << request.left(40).toStdString();
        return answer;
    };
    const QByteArray get = "GET /kestraneversions/ HTTP/1.1\r\nHost: x\r\n\r\n";
    const QByteArray page = QByteArray::fromStdString("\r\n\r\n" + VersionsPage());
    std::vector<std::unique_ptr<QTcpSocket>> idle(40);
    for (auto& socket : idle) {
        socket = std::make_unique<QTcpSocket>();
        Connect(*socket, server.VersionsPort());
        socket->write("GET /kestranever");
    }
    struct Case {
        QByteArray request, beginning;
    };
    for (const Case& c : {
             Case{"GET /other HTTP/1.1\r\n\r\n", "HTTP/1.1 404"},
             Case{"DELETE /kestraneversions/ HTTP/1.1\r\n\r\n", "HTTP/1.1 405"},
             Case{"\r\n\r\n", "HTTP/1.1 400"},
             Case{QByteArray(9000, 'x'), "HTTP/1.1 431"},
             Case{"GET /kestraneversions/?a HTTP/1.1\r\n\r\n", "HTTP/1.1 200"},
             Case{get, "HTTP/1.1 200"},
         }) {
        EXPECT_TRUE(ask(c.request).startsWith(c.beginning)) << c.beginning.toStdString();
    }
    EXPECT_TRUE(ask(get).endsWith(page));
    EXPECT_FALSE(ask("HEAD" + get.mid(3)).endsWith(page));
}

TEST_F(UnitServerTest, OutlivesMoreConnectionsThanItHolds) {
    ServerOptions options;
    options.most_connections = 4;
    Listening server(options);
    std::vector<std::unique_ptr<QTcpSocket>> sockets(60);
    for (auto& socket : sockets) {
        socket = std::make_unique<QTcpSocket>();
        Connect(*socket, server.Ports()[0]);
    }
    const auto open = [&] {
        return std::count_if(sockets.begin(), sockets.end(), [](const auto& socket) {
            return socket->state() == QAbstractSocket::ConnectedState;
        });
    };
    EXPECT_TRUE(WaitUntil([&] { return open() == 4; }));
    EXPECT_EQ(Exchange(*sockets[0], {kRelayByte, 0x21}).size(), 6u);
    sockets.clear();
    EXPECT_TRUE(WaitUntil([&] {
        QTcpSocket again;
        Connect(again, server.Ports()[0]);
        return Exchange(again, {kRelayByte, 0x21}).size() == 6u;
    }));
}

TEST_F(UnitServerTest, ClosesConnectionsAfterAnEthernetReset) {
    Listening server;
    QTcpSocket a, b;
    Connect(a, server.Ports()[0]);
    Connect(b, server.Ports()[1]);
    a.write(QByteArray::fromHex("1002FB1F03001D1003"));
    EXPECT_TRUE(WaitUntil([&] {
        return a.state() == QAbstractSocket::UnconnectedState &&
               b.state() == QAbstractSocket::UnconnectedState;
    }));
    EXPECT_EQ(a.bytesAvailable(), 0);
    QTcpSocket again;
    Connect(again, server.Ports()[0]);
    EXPECT_EQ(Exchange(again, {kRelayByte, 0x21}).size(), 6u);
}

TEST_F(UnitServerTest, PassesFaultsOn) {
    struct Case {
        const char* fault;
        std::string answer;  // to a read of two bytes
    };
    const std::string echo = Bytes({kRelayByte, 0x11, 0x00, 0x04, 2});
    for (const Case& c :
         {Case{"reset", "silence"}, Case{"close", "silence"}, Case{"refuse", "silence"},
          Case{"deny", echo.substr(0, 2) + '\x16'}, Case{"short", echo + '\x01'}}) {
        ServerOptions options;
        options.faults = ParseFaults(c.fault).faults;
        Listening server(options);
        QTcpSocket socket;
        Connect(socket, server.Ports()[0]);
        EXPECT_EQ(Exchange(socket, {kRelayByte, 0x11, 0x00, 0x04, 2}), c.answer) << c.fault;
    }
}

// It goes on for as long as the client stays, and costs the unit no memory when nobody reads.
TEST_F(UnitServerTest, FloodsByFault) {
    ServerOptions options;
    options.faults = ParseFaults("flood").faults;
    Listening server(options);
    QTcpSocket socket;
    Connect(socket, server.Ports()[0]);
    socket.write(QByteArray::fromHex("1002FA211B1003"));
    qint64 received = 0;
    EXPECT_TRUE(WaitUntil([&] { return (received += socket.readAll().size()) > 300'000; }));
}

TEST_F(UnitServerTest, KeepsItsMemoryInAFileAndRefusesABadOne) {
    const QTemporaryDir folder;
    ServerOptions options;
    options.state_file = folder.filePath("unit.state").toStdString();
    {
        Listening server(options);
        QTcpSocket a;
        Connect(a, server.Ports()[0]);
        Exchange(a, {kDisplayByte, 0x12, 0x00, 0x50, 2, 'X', 'Y'});
    }
    {
        Listening server(options);
        EXPECT_EQ(server.TheUnit().Display().Read(0x0050, 2), "XY");
    }
    QFile file(QString::fromStdString(options.state_file));
    ASSERT_TRUE(file.resize(100));
    UnitServer server(options);
    const UnitServer::Started started = server.Listen();
    EXPECT_EQ(started.result, UnitServer::Start::kBadOptions);
    EXPECT_NE(started.error.find("100 bytes"), std::string::npos) << started.error;
    EXPECT_EQ(file.size(), 100) << "left as it was";
    options.state_file = folder.path().toStdString();
    EXPECT_EQ(UnitServer(options).Listen().result, UnitServer::Start::kBadOptions);
    options.state_file = folder.filePath("none/unit.state").toStdString();
    EXPECT_EQ(UnitServer(options).Listen().result, UnitServer::Start::kBadOptions);
}

TEST_F(UnitServerTest, TellsAPortThatIsTaken) {
    Listening first;
    ServerOptions options;
    options.ports[1] = first.Ports()[0];
    EXPECT_EQ(UnitServer(options).Listen().result, UnitServer::Start::kNoPort);
}

}  // namespace
}  // namespace kestrane::unit
