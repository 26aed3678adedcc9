// The engine against the demo unit on virtual time: what it writes, what it says of it, and that
// both agree whatever happens to the line.

#include "configuration/engine.h"

#include <limits>

#include "configuration_test_support.h"
#include "unit/state.h"

namespace kestrane {
namespace {

using Result = ApplyReport::Result;

struct EngineTest : ::testing::Test, ConfiguredUnit {
    static SettingValues Values(const std::string& settings) {
        const auto text = ReadConfiguration(
            R"({"format": "kestrane-configuration", "version": 1, "settings": )" + settings + "}");
        for (const FileFault& fault : text.faults) ADD_FAILURE() << fault.Line("f");
        return text.values;
    }
    static std::string States(const ApplyReport& report) {
        std::string states;
        for (const SettingChange& change : report.changes) {
            states += change.setting->key + "=" + StateInWords(change.state) + " ";
        }
        return states;
    }
};

// A change on each tab, with what depends on something else among them.
constexpr char kOnEveryTab[] = R"({
  "network": {"unit_name": "Rack 7", "time_server": "1.2.3.4", "dhcp": true},
  "ports": {"b": {"port": 4001, "key": "0123456789abcdef0123456789ABCDEF"}},
  "unit": {"id": "02"},
  "privileges": {"relay": {"b": {"write_other_privileges": true, "read_other_privileges": true}}},
  "security": {"view": {"password": "a"}, "control": {"password": "b"}, "admin": {"disabled": true}},
  "names": {"outlet": {"3": {"upper": "NAS"}}},
  "triggers": {"2": {"name": "Restart", "address": "2A", "enabled": true}},
  "sensors": {"1": {"name": "Inlet"}},
  "changeover": {"startup": {"phase": 5, "default_inlet": "B sync"}, "live": {"phase": 6}},
  "macro": {"7E": "C6 03"}
})";

TEST_F(EngineTest, WritesWhatDiffersReadsItBackAndThenFindsNothingLeft) {
    const SettingValues wanted = Values(kOnEveryTab);
    const ApplyReport report = ApplyTo(wanted);
    EXPECT_EQ(report.error, "");
    EXPECT_EQ(report.result, Result::kChanged);
    EXPECT_EQ(report.changes.size(), 16u) << "four hold already";
    EXPECT_EQ(report.CountOf(SettingState::kVerified), 15) << States(report);
    EXPECT_EQ(report.CountOf(SettingState::kUnverified), 1) << "a key";
    const int writes = Writes();
    const ApplyReport again = ApplyTo(wanted);
    // What a unit does not give back is the only thing that a second time writes.
    for (const SettingChange& change : again.changes) EXPECT_FALSE(change.before);
    SettingValues readable = wanted;
    for (const SettingChange& change : again.changes) readable.erase(change.setting);
    const int more = Writes();
    EXPECT_EQ(ApplyTo(readable).result, Result::kSame);
    EXPECT_EQ(Writes(), more);
    EXPECT_GT(writes, 0);
}

TEST_F(EngineTest, RefusesBeforeAnyWriteWhatCannotStand) {
    peer.unit().Display().Set(0x023E, 0x80);  // trigger 4: disabled, no address
    peer.unit().Display().Set(0x023F, 0x00);
    for (const char* settings :
         {R"({"network": {"ip_address": "0.1.2.3"}})", R"({"network": {"netbios_name": "abc"}})",
          R"({"unit": {"id": "62"}})", R"({"ports": {"a": {"attack_limit": 5}}})",
          R"({"security": {"view": {"password": "x"}}})",
          R"({"triggers": {"8": {"address": "", "enabled": true}}})",
          R"({"triggers": {"4": {"enabled": true}}})", R"({"macro": {"7F": "C6 03"}})",
          R"({"privileges": {"relay": {"a": {"write_other_privileges": true,
             "read_other_privileges": false}}}})"}) {
        const ApplyReport report = ApplyTo(Values(settings));
        EXPECT_EQ(report.result, Result::kRefused) << settings << report.error;
    }
    EXPECT_EQ(Writes(), 0);
}

TEST_F(EngineTest, AnOperandAt7FDoesNotHoldUpTheUndoFile) {
    peer.unit().Relay().Set(0xFE, 0xC6);
    peer.unit().Relay().Set(0xFF, 0x03);
    ApplyRequest request;
    request.undo_file = "undo.json";
    ApplyTo(Values(R"({"macro": {"7F": "02 00"}})"), request);
    ApplyTo(ReadConfiguration(world.disk.files["undo.json"]).values);
    EXPECT_EQ(peer.unit().Relay().Read(0xFE, 1), "\xC6");
}

// The unit, with one fault at one exchange. What the fault lets through is carried out.
class FaultyPeer : public Peer {
  public:
    enum class Fault { kRefuse, kIgnore, kLoseReply, kCorrupt, kClose, kReset, kShort };

    FaultyPeer(FakeSocket& socket, UnitPeer& unit) : socket_(socket), unit_(unit) {
        socket_.Attach(this);
    }

    void Strike(Fault fault, int exchange) {
        fault_ = fault;
        left_ = exchange;
    }
    bool Struck() const { return left_ < 0; }
    void Rest() { left_ = std::numeric_limits<int>::max(); }

    void OnConnect() override { unit_.OnConnect(); }
    void OnBytes(std::string_view bytes) override {
        if (--left_ >= 0 || left_ < -1) return unit_.OnBytes(bytes);
        ReplyLine& line = unit_.line();
        switch (fault_) {
            case Fault::kRefuse:
                return line.Send(Framed(std::string(bytes.substr(2, 2)) + '\x16'));
            case Fault::kIgnore:
                return;
            case Fault::kLoseReply:
                line.DropNext();
                break;
            case Fault::kCorrupt:
                // The first of them is repeated.
                for (int i = 0; i < 4; ++i) line.GarbleNext(2);
                break;
            case Fault::kClose:
                line.CutNext(0);
                break;
            case Fault::kReset:
                unit_.OnBytes(bytes);
                return socket_.ResetByPeer();
            case Fault::kShort:
                line.CutShortNext();
                break;
        }
        unit_.OnBytes(bytes);
    }

  private:
    FakeSocket& socket_;
    UnitPeer& unit_;
    Fault fault_ = Fault::kIgnore;
    int left_ = std::numeric_limits<int>::max();
};

struct FaultTest : EngineTest, ::testing::WithParamInterface<FaultyPeer::Fault> {
    FaultyPeer faulty{world.tcpsend, peer};
    const std::string undo_file = "undo.json";

    // Without the sensors' readings, which move by themselves.
    std::string Memory() {
        const std::string state = unit::EncodeState(peer.unit().Memory());
        return state.substr(0x0010, 0x0290) + state.substr(0x03F0, 0x0420);
    }
    void Undo() {
        const std::string content = world.disk.files[undo_file];
        const ApplyReport report = ApplyTo(ReadConfiguration(content).values);
        EXPECT_EQ(report.error, "");
        world.disk.files.erase(undo_file);
    }
    // What the report says of each setting, against the unit: what differs still holds what it did.
    void Check(const ApplyReport& report, const SettingValues& wanted, const std::string& where) {
        ApplyRequest compare;
        compare.compare_only = true;
        const ApplyReport left = ApplyTo(wanted, compare);
        EXPECT_EQ(left.error, "") << where;
        for (const SettingChange& change : report.changes) {
            const auto found = std::find_if(
                left.changes.begin(), left.changes.end(),
                [&](const SettingChange& other) { return other.setting == change.setting; });
            const bool is_new = found == left.changes.end();
            const bool is_old = !is_new && found->before == change.before;
            const std::string told =
                where + change.setting->key + " " + StateInWords(change.state) + " " + report.error;
            EXPECT_TRUE(is_new || is_old) << told;
            using State = SettingState;
            if (change.state == State::kVerified || change.state == State::kWritten) {
                EXPECT_TRUE(is_new) << told;
            }
            if (change.state == State::kNotBegun || change.state == State::kNotTaken ||
                change.state == State::kPlanned) {
                EXPECT_TRUE(is_old) << told;
            }
        }
    }
};

TEST_P(FaultTest, AtEveryExchangeTheReportAgreesTheNextCallCompletesAndTheUndoFileBringsBack) {
    const SettingValues wanted = Values(
        R"({"oled": {"timeout": 70}, "snmp": {"contact": "Ann"},
            "names": {"outlet": {"3": {"upper": "NAS"}, "14": {"lower": "Last"}}},
            "privileges": {"relay": {"b": {"write_other_privileges": true}}}})");
    ApplyRequest request;
    request.undo_file = undo_file;
    // The write of a tab sets blocks that hold nothing to blanks; from then on they stay.
    EXPECT_EQ(ApplyTo(wanted, request).result, Result::kChanged);
    const int exchanges = static_cast<int>(tool.link.journal().exchanges().size());
    Undo();
    const std::string before = Memory();
    for (int exchange = 0; exchange < exchanges; ++exchange) {
        const std::string where = "at exchange " + std::to_string(exchange) + ": ";
        faulty.Strike(GetParam(), exchange);
        const ApplyReport report = ApplyTo(wanted, request);
        EXPECT_TRUE(faulty.Struck()) << where;
        faulty.Rest();
        Check(report, wanted, where);
        const ApplyReport again = ApplyTo(wanted, request);
        EXPECT_EQ(again.error, "") << where;
        Undo();
        ASSERT_TRUE(Memory() == before) << where;
    }
}

// A case for each kind, so that they run side by side.
using Fault = FaultyPeer::Fault;
INSTANTIATE_TEST_SUITE_P(Kinds, FaultTest,
                         ::testing::Values(Fault::kRefuse, Fault::kIgnore, Fault::kLoseReply,
                                           Fault::kCorrupt, Fault::kClose, Fault::kReset,
                                           Fault::kShort));

}  // namespace
}  // namespace kestrane
