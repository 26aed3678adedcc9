#include "unit/unit_server.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <functional>

#include "unit/defaults.h"
#include "unit_test_support.h"

namespace kestrane::unit {
namespace {

class UnitServerTest : public testing::Test {
  protected:
    // Handles events until it is so; false after five seconds.
    static bool Until(const std::function<bool()>& so) {
        QElapsedTimer clock;
        clock.start();
        while (!so()) {
            if (clock.elapsed() > 5000) return false;
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        }
        return true;
    }
    static void Connect(QTcpSocket& socket, std::uint16_t port) {
        socket.connectToHost("127.0.0.1", port);
        ASSERT_TRUE(Until([&] { return socket.state() == QAbstractSocket::ConnectedState; }));
    }
    // The text of the reply.
    static std::string Exchange(QTcpSocket& socket, std::initializer_list<int> text) {
        const std::string frame = EncodeFrame(Bytes(text));
        socket.write(frame.data(), static_cast<qint64>(frame.size()));
        FrameParser parser;
        std::vector<std::string> replies;
        Until([&] {
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
    UnitServer server(options);
    ASSERT_EQ(server.Listen().result, UnitServer::Start::kReady);
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

TEST_F(UnitServerTest, GivesTheVersionsPage) {
    UnitServer server{ServerOptions{}};
    ASSERT_EQ(server.Listen().result, UnitServer::Start::kReady);
    QTcpSocket http;
    Connect(http, server.VersionsPort());
    http.write("GET /kestraneversions/ HTTP/1.1\r\nHost: localhost\r\n\r\n");
    QByteArray answer;
    EXPECT_TRUE(Until([&] {
        answer += http.readAll();
        return answer.endsWith(QByteArray::fromStdString("\r\n\r\n" + VersionsPage()));
    }));
    EXPECT_TRUE(answer.startsWith("HTTP/1.1 200"));
}

TEST_F(UnitServerTest, ClosesConnectionsAfterAnEthernetReset) {
    UnitServer server{ServerOptions{}};
    ASSERT_EQ(server.Listen().result, UnitServer::Start::kReady);
    QTcpSocket a, b;
    Connect(a, server.Ports()[0]);
    Connect(b, server.Ports()[1]);
    a.write(QByteArray::fromHex("1002FB1F03001D1003"));
    EXPECT_TRUE(Until([&] {
        return a.state() == QAbstractSocket::UnconnectedState &&
               b.state() == QAbstractSocket::UnconnectedState;
    }));
    EXPECT_EQ(a.bytesAvailable(), 0);
    QTcpSocket again;
    Connect(again, server.Ports()[0]);
    EXPECT_EQ(Exchange(again, {kRelayByte, 0x21}).size(), 6u);
}

TEST_F(UnitServerTest, ResetsAndClosesByFault) {
    for (const char* fault : {"reset", "close"}) {
        ServerOptions options;
        options.faults = ParseFaults(fault).faults;
        UnitServer server(options);
        ASSERT_EQ(server.Listen().result, UnitServer::Start::kReady);
        QTcpSocket socket;
        Connect(socket, server.Ports()[0]);
        EXPECT_EQ(Exchange(socket, {kRelayByte, 0x21}), "silence") << fault;
        EXPECT_NE(socket.state(), QAbstractSocket::ConnectedState) << fault;
    }
}

TEST_F(UnitServerTest, RefusesConnectionsByFault) {
    ServerOptions options;
    options.faults = ParseFaults("refuse").faults;
    UnitServer server(options);
    ASSERT_EQ(server.Listen().result, UnitServer::Start::kReady);
    QTcpSocket socket;
    socket.connectToHost("127.0.0.1", server.Ports()[0]);
    EXPECT_TRUE(Until([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
}

TEST_F(UnitServerTest, KeepsItsMemoryInAFileAndRefusesABadOne) {
    const QTemporaryDir folder;
    ServerOptions options;
    options.state_file = folder.filePath("unit.state").toStdString();
    {
        UnitServer server(options);
        ASSERT_EQ(server.Listen().result, UnitServer::Start::kReady);
        QTcpSocket a;
        Connect(a, server.Ports()[0]);
        Exchange(a, {kDisplayByte, 0x12, 0x00, 0x50, 2, 'X', 'Y'});
    }
    {
        UnitServer server(options);
        ASSERT_EQ(server.Listen().result, UnitServer::Start::kReady);
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
    UnitServer first{ServerOptions{}};
    ASSERT_EQ(first.Listen().result, UnitServer::Start::kReady);
    ServerOptions options;
    options.ports[1] = first.Ports()[0];
    EXPECT_EQ(UnitServer(options).Listen().result, UnitServer::Start::kNoPort);
}

}  // namespace
}  // namespace kestrane::unit
