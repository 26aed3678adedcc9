#include <gtest/gtest.h>
#include <sys/socket.h>

#include <string>

#include "host/qt_tcp_client.h"
#include "host_test_support.h"

namespace kestrane {
namespace {

class TcpClientTest : public testing::Test {
  protected:
    bool Until(const std::function<bool()>& condition) { return PumpUntil(host_.loop, condition); }
    bool UntilState(SocketState state) {
        return Until([&] { return client_.State() == state; });
    }
    // Connects and waits for both ends. The connection's number at the server is the result.
    std::size_t Connect(const std::string& name = "127.0.0.1") {
        const std::size_t number = server_.count();
        client_.Connect(name, server_.port());
        EXPECT_TRUE(UntilState(SocketState::kConnected));
        EXPECT_TRUE(Until([&] { return server_.count() > number; }));
        return number;
    }

    HostServices host_;
    LoopbackServer server_;
    QtTcpClient& client_ = host_.tcpsend;
};

TEST_F(TcpClientTest, WhatCannotBeReached_EndsInError) {
    EXPECT_EQ(client_.State(), SocketState::kClosed);
    const int free_port = server_.port();
    server_.StopListening();
    struct Case {
        const char* host;
        int port;
    };
    for (const Case& at : {Case{"127.0.0.1", free_port},
                           {"127.0.0.1", 0},
                           {"127.0.0.1", 65536},
                           {"127.0.0.1", -1},
                           {"", 1243},
                           {"a..b", 1243}}) {
        client_.Connect(at.host, at.port);
        EXPECT_TRUE(UntilState(SocketState::kError)) << at.host << ':' << at.port;
        client_.Close();
        EXPECT_EQ(client_.State(), SocketState::kClosed);
    }
}

TEST_F(TcpClientTest, Name_IsResolvedAndItsAddressesTriedInTurn) {
    client_.Connect("localhost", server_.port());
    EXPECT_EQ(client_.State(), SocketState::kResolvingHost);
    EXPECT_TRUE(UntilState(SocketState::kConnected));
}

TEST_F(TcpClientTest, BytesGoBothWays) {
    const std::size_t number = Connect();
    const std::string all_codes = [] {
        std::string text;
        for (int i = 0; i < 256; ++i) text += static_cast<char>(i);
        return text;
    }();
    client_.Send(all_codes);
    EXPECT_TRUE(Until([&] { return server_.received(number) == all_codes; }));
    server_.socket(number).write(all_codes.data(), 256);
    EXPECT_TRUE(Until([&] { return client_.BytesWaiting() == 256; }));
    std::string read;
    while (client_.BytesWaiting() > 0) read += client_.Read(1);
    EXPECT_EQ(read, all_codes);
}

TEST_F(TcpClientTest, PeerClose_ShowsOnlyWhenAllIsReadAndSurvivesASend) {
    const std::size_t number = Connect();
    server_.socket(number).write("abc");
    server_.socket(number).disconnectFromHost();
    EXPECT_TRUE(Until([&] { return client_.BytesWaiting() == 3; }));
    EXPECT_EQ(client_.State(), SocketState::kConnected);
    client_.Send("into the void");
    EXPECT_EQ(client_.Read(2), "ab");
    EXPECT_EQ(client_.State(), SocketState::kConnected);
    EXPECT_EQ(client_.Read(5), "c");
    EXPECT_TRUE(UntilState(SocketState::kPeerClosing));
}

TEST_F(TcpClientTest, ResetByPeer_EndsTheConnectionAndTheNextOneStands) {
    const std::size_t number = Connect();
    const linger at_once{1, 0};
    const auto descriptor = static_cast<int>(server_.socket(number).socketDescriptor());
    ASSERT_EQ(setsockopt(descriptor, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once), 0);
    server_.socket(number).abort();
    EXPECT_TRUE(Until([&] { return client_.State() != SocketState::kConnected; }));
    EXPECT_TRUE(client_.State() == SocketState::kPeerClosing ||
                client_.State() == SocketState::kError);
    Connect();
}

TEST_F(TcpClientTest, Close_EndsAConnectUnderWayAndDropsWhatCameBefore) {
    const std::size_t first = Connect();
    server_.socket(first).write("old bytes");
    EXPECT_TRUE(Until([&] { return client_.BytesWaiting() > 0; }));
    for (const char* name : {"127.0.0.1", "localhost"}) {
        client_.Connect(name, server_.port());
        EXPECT_EQ(client_.BytesWaiting(), 0u);
        client_.Close();
        EXPECT_EQ(client_.State(), SocketState::kClosed);
    }
    // The first server may still be accepting the connects that were given up.
    LoopbackServer other;
    client_.Connect("127.0.0.1", other.port());
    EXPECT_TRUE(Until([&] { return other.count() == 1; }));
    EXPECT_TRUE(UntilState(SocketState::kConnected));
    other.socket(0).write("new");
    EXPECT_TRUE(Until([&] { return client_.BytesWaiting() > 0; }));
    EXPECT_EQ(client_.Read(99), "new");
    client_.Close();
    client_.Send("lost");
    EXPECT_EQ(client_.State(), SocketState::kClosed);
    EXPECT_TRUE(
        Until([&] { return other.socket(0).state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_EQ(other.received(0), "");
}

TEST_F(TcpClientTest, WhatWasHandedOver_LeavesBeforeAClose) {
    for (const bool with_unread : {false, true}) {
        const std::size_t number = Connect();
        if (with_unread) {
            server_.socket(number).write("nobody reads this");
            EXPECT_TRUE(Until([&] { return client_.BytesWaiting() > 0; }));
            server_.socket(number).write("nor this");
            server_.socket(number).flush();
        }
        const std::string last(40, 'z');
        client_.Send(last);
        client_.Close();
        EXPECT_TRUE(Until([&] { return server_.received(number) == last; })) << with_unread;
    }
}

TEST_F(TcpClientTest, AMegabyteArrivesWhole) {
    const std::size_t number = Connect();
    std::string sent(1'000'000, '\0');
    for (std::size_t i = 0; i < sent.size(); ++i) sent[i] = static_cast<char>(i * 7 % 251);
    server_.socket(number).write(sent.data(), static_cast<qint64>(sent.size()));
    std::string read;
    EXPECT_TRUE(Until([&] {
        while (client_.BytesWaiting() > 0) read += client_.Read(1);
        return read.size() >= sent.size();
    }));
    EXPECT_TRUE(read == sent);
}

TEST_F(TcpClientTest, AFloodThatNobodyReads_IsBoundedAndItsEndIsSeen) {
    const std::size_t number = Connect();
    const QByteArray flood(static_cast<qsizetype>(QtTcpClient::kMostUnread) * 2, 'x');
    server_.socket(number).write(flood);
    server_.socket(number).disconnectFromHost();
    EXPECT_TRUE(Until([&] { return client_.BytesWaiting() >= QtTcpClient::kMostUnread; }));
    std::size_t read = 0;
    EXPECT_TRUE(Until([&] {
        EXPECT_LE(client_.BytesWaiting(), QtTcpClient::kMostUnread);
        if (server_.socket(number).state() == QAbstractSocket::UnconnectedState) {
            read += client_.Read(flood.size()).size();
        }
        return client_.State() == SocketState::kPeerClosing;
    }));
    EXPECT_GE(read, QtTcpClient::kMostUnread);
}

}  // namespace
}  // namespace kestrane
