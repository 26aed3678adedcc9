// backup, diff, apply, check and settings, as a script sees them: lines, JSON, exit status, files.

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "cli/call_test_support.h"

namespace kestrane {
namespace {

class ConfigurationCallTest : public CallTest {
  protected:
    ConfigurationCallTest() {
        std::filesystem::create_directory(folder_);
        world.loop.set_event_limit(100'000'000);
    }
    ~ConfigurationCallTest() override { std::filesystem::remove_all(folder_); }

    std::string Path(const std::string& name) const { return folder_ / name; }
    std::string File(const std::string& name, const std::string& settings) const {
        std::ofstream(Path(name)) << R"({"format": "kestrane-configuration", "version": 1,
                                      "settings": )" << settings << "}";
        return Path(name);
    }
    static std::string Content(const std::string& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    int Apply(Words words) { return Run(MakeApplyCall(), std::move(words)); }
    int Diff(Words words) { return Run(MakeDiffCall(), std::move(words)); }
    Words Take() { return std::exchange(printed, {}); }
    int WritesSent() const {
        int writes = 0;
        for (const std::string& frame : world.tcpsend.sent()) writes += ByteAt(frame, 4) == 0x12;
        return writes;
    }

  private:
    const std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("calls" + std::to_string(getpid()));
};

TEST_F(ConfigurationCallTest, ApplyWritesOnceAndItsUndoFileBringsBack) {
    const std::string file = File("a", R"({"network": {"unit_name": "Rack 7"},
        "names": {"outlet": {"4": {"upper": "NAS"}}}, "changeover": {"live": {"phase": 9}}})");
    EXPECT_EQ(Diff({file}), kExitDifferences);
    EXPECT_EQ(Take(), (Words{"names.outlet.4.upper: Switch -> NAS",
                             "network.unit_name: MDU Rack 4 -> Rack 7 (identity, left alone)",
                             "changeover.live.phase: 5 -> 9 (live, left alone)",
                             "1 difference, 2 left alone"}));
    EXPECT_EQ(Apply({file, "--dry-run"}), kExitDifferences);
    EXPECT_EQ(Take().back(), "1 difference, 2 left alone");
    EXPECT_EQ(WritesSent(), 0);
    EXPECT_EQ(Apply({file, "--identity", "--undo", Path("u")}), kExitDone);
    EXPECT_EQ(Take().back(), "2 changed, 1 left alone, 0 failed");
    const int writes = WritesSent();
    EXPECT_GT(writes, 0);
    EXPECT_EQ(Apply({file, "--identity"}), kExitDone);
    EXPECT_EQ(Take().back(), "0 changed, 1 left alone, 0 failed");
    EXPECT_EQ(WritesSent(), writes);
    EXPECT_EQ(Apply({Path("u"), "--identity", "--live"}), kExitDone);
    EXPECT_EQ(Take(), (Words{"network.unit_name: Rack 7 -> MDU Rack 4",
                             "names.outlet.4.upper: NAS -> Switch",
                             "2 changed, 0 left alone, 0 failed"}));
}

TEST_F(ConfigurationCallTest, ThePasswordThatTheUnitHoldsIsNotWrittenAgain) {
    const std::string file = File("a", R"({"security": {"view": {"password": "hunter2"},
        "control": {"password": "hunter3"}, "admin": {"password": "hunter4"}}})");
    EXPECT_EQ(Apply({file, "--json"}), kExitDone);
    const Json first = Json::parse(printed.back());
    EXPECT_EQ(first["changes"][0],
              Json({{"key", "security.view.password"},
                    {"before", "(secret)"},
                    {"after", "(secret)"},
                    {"state", "verified"}}));
    EXPECT_EQ(Apply({file, "--json"}), kExitDone);
    EXPECT_EQ(Json::parse(printed.back())["result"], "same");
    EXPECT_EQ(Apply({"--set", "security.admin.disabled=true", "--set",
                     "security.view.password=hunter2", "--set",
                     "security.control.password=hunter3"}),
              kExitDone);
    EXPECT_EQ(printed.back(), "1 changed, 0 left alone, 0 failed");
    for (const auto* lines : {&printed, &complaints}) {
        for (const std::string& line : *lines) EXPECT_EQ(line.find("hunter"), line.npos) << line;
    }
}

TEST_F(ConfigurationCallTest, WhatAChangeBringsAboutByItselfIsToldAndUndone) {
    ASSERT_EQ(Apply({"--set", "triggers.1.address=", "--undo", Path("u")}), kExitDone)
        << Complaint();
    EXPECT_EQ(Take().back(), "2 changed, 0 left alone, 0 failed");
    EXPECT_EQ(Apply({Path("u")}), kExitDone);
    EXPECT_EQ(Take().back(), "2 changed, 0 left alone, 0 failed");
}

TEST_F(ConfigurationCallTest, BackupComesBackAndKeepsSecrets) {
    EXPECT_EQ(Run(MakeBackupCall(), {Path("plain")}), kExitDone) << Complaint();
    EXPECT_EQ(Content(Path("plain")).find("monitoring"), std::string::npos);
    EXPECT_EQ(Run(MakeBackupCall(), {Path("whole"), "--secrets"}), kExitDone);
    const Json file = Json::parse(Content(Path("whole")));
    EXPECT_EQ(file["settings"]["snmp"]["read_community"], "monitoring");
    EXPECT_EQ(file["left_out"]["security.view.password"], "the unit does not give it back");
    EXPECT_EQ(std::filesystem::status(Path("whole")).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    EXPECT_EQ(Run(MakeCheckCall(), {Path("plain"), Path("whole")}), kExitDone) << Complaint();
    EXPECT_EQ(Diff({Path("whole"), "--identity", "--live"}), kExitDone);
    EXPECT_EQ(Diff({Path("plain"), Path("whole")}), kExitDone);
}

TEST_F(ConfigurationCallTest, FaultsEndItBeforeAUnitIsAsked) {
    const std::string file = File("a", R"({"network": {"unit_name": 7}})");
    EXPECT_EQ(Apply({file, "--json"}), kExitUsage);
    EXPECT_EQ(Complaint(), file + ":2:77: network.unit_name: takes a text in quotes");
    EXPECT_EQ(Json::parse(printed.back())["result"], "refused");
    EXPECT_EQ(Run(MakeCheckCall(), {file}), kExitUsage);
    EXPECT_EQ(Apply({"--set", "network.unit_nam=x"}), kExitUsage);
    EXPECT_EQ(Diff({file, "--only", "nam"}), kExitUsage);
    EXPECT_EQ(Apply({}), kExitUsage);
    EXPECT_EQ(world.tcpsend.connections(), 0);
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
