// backup, diff, apply, check and settings, as a script sees them: lines, JSON, exit status, files.

#include "cli/call_test_support.h"

namespace kestrane {
namespace {

class ConfigurationCallTest : public CallTest {
  protected:
    int Apply(Words words) { return Run(MakeApplyCall(), std::move(words)); }
    int Diff(Words words) { return Run(MakeDiffCall(), std::move(words)); }
    Words Take() { return std::exchange(printed, {}); }
};

TEST_F(ConfigurationCallTest, ApplyWritesOnceAndItsUndoFileBringsBack) {
    const std::string file = File("a", R"({"network": {"unit_name": "Rack 7"},
        "names": {"outlet": {"4": {"upper": "NAS"}}}, "changeover": {"live": {"phase": 9}}})");
    EXPECT_EQ(Diff({file}), kExitDifferences);
    EXPECT_EQ(Take(), (Words{"names.outlet.4.upper: Switch -> NAS",
                             "network.unit_name: MDU Rack 4 -> Rack 7 (identity, left alone)",
                             "changeover.live.phase: 5 -> 9 (live, left alone)",
                             "1 difference, 2 left alone"}));
    EXPECT_EQ(Diff({"--only", "names", "--only", "oled", file}), kExitDifferences);
    EXPECT_EQ(Take().back(), "1 difference, 0 left alone");
    EXPECT_EQ(Apply({"--set", "oled.timeout=70", file, "--dry-run"}), kExitDifferences);
    EXPECT_EQ(Take().back(), "2 differences, 2 left alone");
    EXPECT_EQ(Apply({file, "--dry-run"}), kExitDifferences);
    EXPECT_EQ(Take().back(), "1 difference, 2 left alone");
    EXPECT_EQ(WritesSent(), 0);
    EXPECT_EQ(Apply({file, "--identity", "--undo", "u"}), kExitDone);
    EXPECT_EQ(Take().back(), "2 changed, 1 left alone, 0 failed");
    const int writes = WritesSent();
    EXPECT_GT(writes, 0);
    EXPECT_EQ(Apply({file, "--identity"}), kExitDone);
    EXPECT_EQ(Take().back(), "0 changed, 1 left alone, 0 failed");
    EXPECT_EQ(WritesSent(), writes);
    EXPECT_EQ(Apply({"u", "--identity", "--live"}), kExitDone);
    EXPECT_EQ(Take(),
              (Words{"network.unit_name: Rack 7 -> MDU Rack 4",
                     "names.outlet.4.upper: NAS -> Switch", "2 changed, 0 left alone, 0 failed"}));
}

TEST_F(ConfigurationCallTest, ThePasswordThatTheUnitHoldsIsNotWrittenAgain) {
    const std::string file = File("a", R"({"security": {"view": {"password": "hunter2"},
        "control": {"password": "hunter3"}, "admin": {"password": "hunter4"}}})");
    const std::string open = File("o", R"({"security": {"view": {"password": ""},
        "control": {"password": ""}, "admin": {"password": ""}}})");
    EXPECT_EQ(Apply({open}), kExitDone);
    EXPECT_EQ(Apply({file, "--json", "--undo", "u"}), kExitDone);
    const Json first = Json::parse(printed.back());
    EXPECT_EQ(first["changes"][0], Json({{"key", "security.view.password"},
                                         {"before", "(secret)"},
                                         {"after", "(secret)"},
                                         {"state", "verified"}}));
    EXPECT_EQ(Apply({file, "--json"}), kExitDone);
    EXPECT_EQ(Json::parse(printed.back())["result"], "same");
    EXPECT_EQ(
        Apply({"--set", "security.admin.disabled=true", "--set", "security.view.password=hunter2",
               "--set", "security.control.password=hunter3"}),
        kExitDone);
    EXPECT_EQ(printed.back(), "1 changed, 0 left alone, 0 failed");
    // That there was none is known, and comes back.
    EXPECT_EQ(Apply({"u"}), kExitDone) << Complaint();
    EXPECT_EQ(Apply({open, "--json"}), kExitDone);
    EXPECT_EQ(Json::parse(printed.back())["result"], "same");
}

TEST_F(ConfigurationCallTest, WhatAChangeBringsAboutByItselfIsToldAndUndone) {
    ASSERT_EQ(Apply({"--set", "triggers.1.address=", "--undo", "u"}), kExitDone) << Complaint();
    EXPECT_EQ(Take().back(), "2 changed, 0 left alone, 0 failed");
    EXPECT_EQ(Apply({"u"}), kExitDone);
    EXPECT_EQ(Take().back(), "2 changed, 0 left alone, 0 failed");
}

TEST_F(ConfigurationCallTest, BackupComesBackAndKeepsSecrets) {
    EXPECT_EQ(Run(MakeBackupCall(), {"plain"}), kExitDone) << Complaint();
    EXPECT_EQ(world.disk.files["plain"].find("monitoring"), std::string::npos);
    EXPECT_EQ(Run(MakeBackupCall(), {"whole", "--secrets"}), kExitDone);
    const Json file = Json::parse(world.disk.files["whole"]);
    EXPECT_EQ(file["settings"]["snmp"]["read_community"], "monitoring");
    EXPECT_EQ(file["left_out"]["security.view.password"], "the unit does not give it back");
    EXPECT_EQ(world.disk.owner_only, std::set<std::string>{"whole"});
    EXPECT_EQ(Run(MakeCheckCall(), {"plain", "whole"}), kExitDone) << Complaint();
    EXPECT_EQ(Diff({"whole", "--identity", "--live"}), kExitDone);
    EXPECT_EQ(Diff({"plain", "whole"}), kExitDone);
}

TEST_F(ConfigurationCallTest, FaultsEndItBeforeAUnitIsAsked) {
    const std::string file = File("a", R"({"network": {"unit_name": 7}})");
    EXPECT_EQ(Apply({file, "--json"}), kExitUsage);
    EXPECT_EQ(Complaint(), file + ":1:90: network.unit_name: takes a text in quotes");
    EXPECT_EQ(Json::parse(printed.back())["result"], "refused");
    EXPECT_EQ(Run(MakeCheckCall(), {file}), kExitUsage);
    EXPECT_EQ(Apply({"--set", "network.unit_nam=x"}), kExitUsage);
    EXPECT_EQ(Apply({"--set", "network.unit_name=a\x1b[2J"}), kExitUsage);
    EXPECT_EQ(Complaint().find('\x1b'), std::string::npos);
    EXPECT_EQ(Diff({file, "--json"}), kExitUsage);
    EXPECT_EQ(Json::parse(printed.back())["result"], "refused");
    EXPECT_EQ(Diff({"--only", "nam", file}), kExitUsage);
    EXPECT_EQ(Apply({}), kExitUsage);
    const std::string good = File("b", "{}");
    EXPECT_EQ(Apply({good, "--undo", good}), kExitUsage);
    EXPECT_EQ(world.tcpsend.connections(), 0);
}

// What is printed never says more than came about.
TEST_F(ConfigurationCallTest, APlanIsNotCountedAsChanged) {
    const Words plan{"names.outlet.4.upper: Switch -> NAS", "1 difference, 0 left alone"};
    const Words refused{"--set", "names.outlet.4.upper=NAS", "--set", "security.view.password=x"};
    EXPECT_EQ(Apply(refused), kExitUsage);
    EXPECT_EQ(Take(), Words{"0 changed, 0 left alone, 0 failed"});
    complaints.clear();
    EXPECT_EQ(Apply({"--set", "names.outlet.4.upper=NAS"}), kExitDone);
    EXPECT_EQ(complaints, plan);
    Take();
    // The line is lost while the second tab is read.
    peer.line().PassNext(30);
    peer.line().CutNext(0);
    EXPECT_EQ(Apply({"--set", "oled.timeout=70", "--set", "names.outlet.4.upper=Tape"}), kExitUnit);
    EXPECT_EQ(Take(),
              (Words{"oled.timeout: 120 -> 70 (not begun)", "0 changed, 0 left alone, 1 failed"}));
}

TEST_F(ConfigurationCallTest, WhatNoFileMayHoldIsToldEscapedAndLeftOut) {
    for (int i = 0; i < 16; ++i)
        peer.unit().Display().Set(0x0050 + i, "a\x1b[2J\x9b           "[i]);
    EXPECT_EQ(Diff({File("a", R"({"network": {"unit_name": "x"}})"), "--identity"}),
              kExitDifferences);
    EXPECT_EQ(Take().front(), "network.unit_name: a\\x1B[2J\\x9B -> x");
    EXPECT_EQ(Apply({"a", "--identity", "--undo", "u"}), kExitDone);
    const Json undo = Json::parse(world.disk.files["u"]);
    EXPECT_EQ(undo["settings"], Json::object());
    EXPECT_EQ(undo["left_out"]["network.unit_name"],
              "it holds a control character; a text takes printable characters");
    EXPECT_EQ(Run(MakeBackupCall(), {}), kExitDone);
    EXPECT_EQ(printed.back().find_first_of("\x1b\x9b"), std::string::npos);
}

TEST_F(ConfigurationCallTest, RightsThatCannotBeReadOrWrittenAreTold) {
    peer.unit().Relay().Set(0x03E0, 0xF9);  // port A: neither "Read" nor "Write other privileges"
    const std::string file = File("a", R"({"names": {"outlet": {"4": {"upper": "NAS"}}},
        "privileges": {"relay": {"b": {"live_control": true}}}})");
    EXPECT_EQ(Diff({file}), kExitDifferences);
    EXPECT_EQ(Take(),
              (Words{"privileges.relay.b.live_control: - -> true",
                     "names.outlet.4.upper: Switch -> NAS", "2 differences, 0 left alone"}));
    EXPECT_EQ(Apply({file}), kExitUsage);
    EXPECT_EQ(Complaint(),
              "privileges.relay.b.live_control: the port may not read it; nothing was written");
    peer.unit().Relay().Set(0x03E0, 0xFB);
    EXPECT_EQ(Apply({"--set", "privileges.relay.c.live_control=true"}), kExitUsage);
    EXPECT_EQ(Complaint(),
              "privileges.relay.c.live_control: the port may not write it; nothing was written");
}

TEST_F(ConfigurationCallTest, SettingsListTheTable) {
    EXPECT_EQ(Run(MakeSettingsCall(), {"--json"}), kExitDone);
    EXPECT_EQ(Json::parse(printed.back()).size(), Settings().size());
    EXPECT_EQ(Run(MakeSettingsCall(), {"--schema"}), kExitDone);
    EXPECT_EQ(Json::parse(printed.back())["$schema"],
              "https://json-schema.org/draft/2020-12/schema");
}

}  // namespace
}  // namespace kestrane
