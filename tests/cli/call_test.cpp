// The calls `read` and `set` against the demo unit on virtual time: what they print, what they
// refuse, and what has reached the unit then.

#include "cli/call_test_support.h"

namespace kestrane {
namespace {

TEST_F(CallTest, Read_PrintsEveryFieldOfTheTab) {
    const Json all = ReadJson({"network"});
    ASSERT_EQ(all.size(), 1u);
    EXPECT_EQ(all["network"].size(), 38u);
    EXPECT_EQ(all["network"]["txtUnitName"], "MDU Rack 4");
    EXPECT_EQ(all["network"]["chkDHCP"], 0);
    EXPECT_EQ(all["network"]["cmbARPtime"], 3);
    EXPECT_TRUE(complaints.empty());
}

TEST_F(CallTest, Read_WithoutATabReadsThemAll) {
    // An empty versions page, as soon as it is asked for.
    const auto serve = [this](auto& self) -> void {
        if (world.http.busy()) world.http.Complete("");
        world.time.After(std::chrono::milliseconds(500), [this, self] { self(self); });
    };
    serve(serve);
    const Json all = ReadJson({});
    for (const TabRow& tab : TabRows()) EXPECT_FALSE(all[tab.name].empty()) << tab.name;
    EXPECT_EQ(all["macro"].size(), 112u);
    EXPECT_EQ(all["names"]["txtOutUpper(3)"], "Switch");
    EXPECT_EQ(all["changeover"]["optInE2P(1)"].type(), Json::value_t::boolean);
    EXPECT_NE(all["changeover"]["lblOffTimeMain"], "");
    EXPECT_NE(all["firmware"]["lblRelayVersion"], "-");
    EXPECT_FALSE(all["security"].contains("txtSalt"));
}

TEST_F(CallTest, Read_RefusesAnUnknownTabBeforeItConnects) {
    EXPECT_EQ(Read({"network", "nets"}), kExitUsage);
    EXPECT_EQ(world.tcpsend.connections(), 0);
}

// The live values come by a timer, whose wait must not hold up the call.
TEST_F(CallTest, Read_EndsWhereverTheLineIsLost) {
    for (int exchange = 0; exchange < 21; ++exchange) {
        peer.line().PassNext(exchange);
        peer.line().CutNext(0);
        EXPECT_EQ(Read({"changeover"}), kExitUnit) << exchange;
    }
}

TEST_F(CallTest, Read_NamesTheBlockWithAValueThatCannotBeShown) {
    peer.unit().Display().Set(0x2E9, ' ');
    EXPECT_EQ(Read({"network"}), kExitUnit);
    EXPECT_NE(Complaint().find("block 0x02E0 of the display board holds"), std::string::npos);
}

TEST_F(CallTest, Read_TellsOfAUnitThatCannotBeReached) {
    world.tcpsend.set_connect_answer(FakeSocket::ConnectAnswer::kRefuse);
    EXPECT_EQ(Read({"network"}), kExitUnit);
    EXPECT_NE(Complaint().find("192.168.10.100:1243: refused"), std::string::npos);
    world.tcpsend.set_connect_answer(FakeSocket::ConnectAnswer::kNone);
    world.loop.RunUntil([this] { return tool.main_form.cmdConnect.Usable(); },
                        std::chrono::milliseconds(5000));
    EXPECT_EQ(Run(MakeReadCall(), {"network"}, {"--timeout", "2"}), kExitUnit);
    EXPECT_NE(Complaint().find("within 2000 ms"), std::string::npos);
}

TEST_F(CallTest, Read_TellsAtWhichBlockTheUnitFellSilentOrTheLineWasCut) {
    const std::string block = "Read Network Settings: block 0x0020 of the display board was ";
    peer.line().PassNext(3);
    peer.line().DropNext();
    EXPECT_EQ(Read({"network"}), kExitUnit);
    EXPECT_EQ(Complaint(), block + "not answered; check the unit, or give a longer --timeout");
    peer.line().PassNext(3);
    peer.line().CutNext(4);
    EXPECT_EQ(Read({"network"}), kExitUnit);
    EXPECT_EQ(Complaint(),
              block + "cut off, as the connection ended; connect again, and check the line");
}

TEST_F(CallTest, Read_KeepsSecretsAndSaysWhatThePortMayNotRead) {
    peer.unit().Relay().Set(0x03E0, 0x01);  // port A may not read the others
    const Json all = ReadJson({"network", "privileges"});
    EXPECT_EQ(all["network"]["txtCommunity"], "(secret)");
    EXPECT_EQ(all["network"]["txtChaskey(0)"], "(secret)");
    EXPECT_EQ(all["privileges"]["chkPriv(110)"], 1);
    EXPECT_TRUE(all["privileges"]["chkPriv(120)"].is_null());
    EXPECT_EQ(Read({"network", "--secrets"}), kExitDone);
    EXPECT_NE(std::find_if(printed.begin(), printed.end(),
                           [](const auto& line) { return line.find("monitoring") != line.npos; }),
              printed.end());
}

TEST_F(CallTest, Set_TellsThatTheUnitRefused) {
    peer.unit().Display().Set(0x03E0, 0x01);  // port A without "Network configuration"
    EXPECT_EQ(Set({"txtUnitName=x"}), kExitUnit);
    EXPECT_EQ(Complaint(),
              "Write Network Settings: block 0x0010 of the display board was refused by the "
              "privileges of the port; connect on a control port that has the right");
    EXPECT_EQ(printed, Words{"txtUnitName: MDU Rack 4 -> x (not begun)"});
}

TEST_F(CallTest, Set_WritesAndTellsOldAndNew) {
    EXPECT_EQ(Set({"txtUnitName=Rack 7", "arp.repeat=1 minute", "chkDHCP=0"}), kExitDone);
    EXPECT_EQ(printed, (Words{"txtUnitName: MDU Rack 4 -> Rack 7",
                              "arp.repeat: 2 minutes -> 1 minute", "chkDHCP: false (unchanged)"}));
    EXPECT_EQ(complaints, Words{});
}

struct RefusedSet {
    Words words;
    std::string reason;  // a part of it
};

class RefusedSetTest : public CallTest, public testing::WithParamInterface<RefusedSet> {};

TEST_P(RefusedSetTest, NamesFieldAndReasonAndNoWriteReachesTheUnit) {
    EXPECT_EQ(Set(GetParam().words), kExitUsage);
    EXPECT_NE(Complaint().find(GetParam().reason), std::string::npos) << Complaint();
    EXPECT_TRUE(printed.empty());
    EXPECT_EQ(WritesSent(), 0);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Values, RefusedSetTest, testing::Values(
    RefusedSet{{"txtIPAddress=300.1.1.1"},        "txtIPAddress: \"300.1.1.1\" is not an address"},
    RefusedSet{{"txtIPAddress=0.1.2.3"},          "stays red"},
    RefusedSet{{"txtUnitName=good", "txtNetbiosName=low"}, "network.netbios_name: \"low\" is not taken as it stands, it became \"LOW\""},
    RefusedSet{{"txtUnitName=seventeen letters"}, "longer than 16 characters"},
    RefusedSet{{"txtOledTimeout=5"},              "not a multiple of 10"},
    RefusedSet{{"txtAttackLimit(0)=5"},           "became \"10\""},
    RefusedSet{{"ports.a.attack_limit=32"},       "must not be 32"},
    RefusedSet{{"txtChaskey(1)=ABC"},             "txtChaskey(1): is not a key"},
    RefusedSet{{"txtTcpControlPort(0)=65536"},    "0 to 65535"},
    RefusedSet{{"txtTimeServerIP=1.2.3"},         "is not an address"},
    RefusedSet{{"txtUnitID=62"},                  "00 to 61"},
    RefusedSet{{"txtUnitID=zz"},                  "two hexadecimal digits"},
    RefusedSet{{"txtMTAddress(1)=0F"},            "triggers.2.address: \"0F\" is not taken"},
    RefusedSet{{"txtStartup(0)=300"},             "0 to 255"},
    RefusedSet{{"txtStartup(4)=1"},               "can only be read"},
    RefusedSet{{"txtWebPassword(0)=abc"},         "security.control.password: all three levels"},
    RefusedSet{{"txtWebPassword(0)=a b"},         "holds a blank"},
    RefusedSet{{"chkDHCP=2"},                     "takes true or false"},
    RefusedSet{{"optInE2P(2)=false"},             "takes true"},
    RefusedSet{{"cmbARPtime=8"},                  "one of its choices"},
    RefusedSet{{"txtKeyCounter(0)=1"},            "can only be read"},
    RefusedSet{{"network.unit_nam=x"},            "the nearest is network.unit_name"},
    RefusedSet{{"txtNone=1"},                     "txtNone: there is no such setting"},
    RefusedSet{{"txtUnitName"},                   "is not NAME=VALUE"},
    RefusedSet{{"txtUnitName=\xE2\x82\xAC"},      "U+00FF is the highest"}));
// clang-format on

TEST_F(CallTest, Set_RefusesWhereTheUnitHoldsAnAddressThatWouldStopTheWrite) {
    peer.unit().Display().Write(0x0020, Bytes({0, 0, 0, 0}));
    EXPECT_EQ(Set({"txtUnitName=x"}), kExitUsage);
    EXPECT_EQ(Complaint(),
              "network.ip_address: \"0.0.0.0\", which the unit holds, is not a valid address; set "
              "it as well; nothing was written");
}

TEST_F(CallTest, Set_TellsOfEachSettingWhatBecameOfItWhenTheUnitFellSilent) {
    peer.line().PassNext(19 + 16 + 13);  // both reads and the network write, then the names
    peer.line().DropNext(100);
    EXPECT_EQ(Set({"txtUnitName=Rack 7", "txtOutUpper(3)=Web"}), kExitUnit);
    EXPECT_NE(Complaint().find("Write Channel Names: "), std::string::npos) << Complaint();
    EXPECT_EQ(printed, (Words{"txtUnitName: MDU Rack 4 -> Rack 7 (written)",
                              "txtOutUpper(3): Switch -> Web (not begun)"}));
}

TEST(UnitAddress, TakesHostsPortsAndIPv6) {
    struct Row {
        const char* text;
        const char* host;
        int port;  // 0: none, -1: refused
    };
    const Row rows[] = {
        {"10.0.0.1", "10.0.0.1", 0},
        {"unit:99", "unit", 99},
        {"[::1]:99", "::1", 99},
        {"[::1]", "::1", 0},
        {"fe80::1", "fe80::1", 0},
        {"unit:0", "", -1},
        {"unit:65536", "", -1},
        {"unit:", "", -1},
        {"unit:9x", "", -1},
        {":99", "", -1},
        {"[::1", "", -1},
        {"[::1]x", "", -1},
        {"two words", "", -1},
        {"[]:1", "", -1},
    };
    for (const Row& row : rows) {
        std::string error;
        const auto address = ParseUnitAddress(row.text, error);
        ASSERT_EQ(address.has_value(), row.port >= 0) << row.text;
        EXPECT_EQ(error.empty(), row.port >= 0) << row.text;
        if (!address) continue;
        EXPECT_EQ(address->host, row.host);
        EXPECT_EQ(address->port.value_or(0), row.port);
    }
}

TEST(CallOptionsTest, RefusesTimesAndServersThatAreNone) {
    for (const Words& words :
         {Words{"--timeout", "abc"}, Words{"--timeout", "0"}, Words{"--timeout", "1e9"},
          Words{"--versions-url", "ftp://x"}, Words{"--versions-url", "http://"},
          Words{"--unit", "a:b"}, Words{"--demo", "--unit", "a"}}) {
        CLI::App app;
        CallOptions options;
        options.AddTo(app);
        Words reversed(words.rbegin(), words.rend());
        app.parse(reversed);
        EXPECT_NE(options.Check(), "") << words[0];
    }
}

}  // namespace
}  // namespace kestrane
