// The call `macro`: files on their own, and programs to and from the demo unit on virtual time.

#include "cli/macro_call.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>

#include "cli/macro_listing.h"
#include "console/console_test_support.h"
#include "macro/macro_file.h"
#include "macro/whole_file.h"

namespace kestrane {
namespace {

using Words = std::vector<std::string>;

class MacroCallTest : public testing::Test, protected ScriptedTool {
  protected:
    ~MacroCallTest() override { std::filesystem::remove(file); }

    int Run(Words words) {
        CLI::App app;
        CallOptions options;
        options.AddTo(app);
        const auto call = MakeMacroCall();
        call->AddTo(app);
        std::reverse(words.begin(), words.end());  // as CLI11 takes them
        try {
            app.parse(words);
        } catch (const CLI::ParseError&) {
            return -1;
        }
        if (const std::string problem = call->Check(tool); !problem.empty()) {
            complaints.push_back(problem);
            return kExitUsage;
        }
        CallContext context{tool,
                            scripted,
                            options,
                            [this](const std::string& line) { printed.push_back(line); },
                            [this](const std::string& line) { complaints.push_back(line); },
                            {}};
        try {
            return call->Run(context);
        } catch (const ProgramEnded& ended) {
            return ended.status;
        }
    }
    void WriteFile(const std::string& content) { std::ofstream(file, std::ios::binary) << content; }
    // A standard file with these two bytes at each address.
    static std::string FileOf(std::uint8_t opcode, std::uint8_t second) {
        TriggerRows triggers;
        triggers.fill({"Name", "0", "10", true});
        MacroMemory image;
        for (std::size_t i = 32; i < 256; i += 2) {
            image.Set(i, opcode);
            image.Set(i + 1, second);
        }
        return WriteMacroFile("x.sms", triggers, image, "");
    }
    std::string UnitProgram() { return peer.unit().Relay().Read(0x20, 224); }

    const std::string file = (std::filesystem::temp_directory_path() /
                              ("kestrane_call_" + std::to_string(::getpid()) + ".sms"))
                                 .string();
    UnitPeer peer{world.tcpsend, world.time};
    Words printed;
    Words complaints;
};

TEST_F(MacroCallTest, ListsAProgramForATypeOfUnit) {
    WriteFile(FileOf(0xC0, 0x2A));
    EXPECT_EQ(Run({"list", file}), kExitDone);
    ASSERT_EQ(printed.size(), 112u);
    EXPECT_EQ(printed[0], "10  C0 2A  Set change over interrupt address to 2A");
    EXPECT_EQ(printed[111].substr(0, 9), "7F  C0 2A");
    EXPECT_EQ(Run({"list", file, "--type", "single", "--json"}), kExitDone);
    const Json list = Json::parse(printed.back());
    ASSERT_EQ(list.size(), 112u);
    EXPECT_EQ(list[1].dump(), R"({"address":"11","opcode":"C0","second":"2A",)"
                              R"("text":"Set supply loss interrupt address to 2A"})");
    EXPECT_EQ(Run({"list", file, "--type", "other"}), -1);
    EXPECT_EQ(Run({"list", file + "x"}), kExitUsage);
    EXPECT_EQ(world.tcpsend.connections(), 0);
}

TEST_F(MacroCallTest, ChecksAFileWithLineNumbers) {
    WriteFile(FileOf(0x01, 0x10));
    EXPECT_EQ(Run({"check", file}), kExitDone);
    EXPECT_EQ(printed, (Words{"kind: macro triggers and code", "no faults"}));
    std::string content = FileOf(0x01, 0x10);
    content[content.find("\r\n12 01") + 5] = '7';
    WriteFile(content);
    printed.clear();
    EXPECT_EQ(Run({"check", file}), kExitUsage);
    ASSERT_GE(printed.size(), 2u);
    EXPECT_EQ(printed[1].substr(0, 8), "line 14:");
}

TEST_F(MacroCallTest, MovesAProgramDownAndUp) {
    const std::string before = UnitProgram();
    EXPECT_EQ(Run({"download", file}), kExitDone) << complaints.size();
    std::string error;
    const auto program = ProgramOfFile(ReadWholeFile(file).content, error);
    ASSERT_TRUE(program) << error;
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(program->Get(i + 32), static_cast<std::uint8_t>(before[i]));
    }
    tool.hand.Click(tool.main_form.cmdDisconnect);
    WriteFile(FileOf(0x10, 0x10));
    EXPECT_EQ(Run({"upload", file}), kExitDone);
    EXPECT_EQ(UnitProgram(), std::string(223, '\x10') + '\0');
    EXPECT_EQ(complaints, Words{});
}

TEST_F(MacroCallTest, SaysIfTheUnitHoldsSomethingElse) {
    WriteFile(FileOf(0x51, 0x05));
    // Somebody else writes into the unit behind the upload.
    world.loop.AfterEvents([&] {
        if (tool.script_edit_form.lblTopStatus.Caption() == "Downloading unit macro program 12%") {
            peer.unit().Relay().Set(0x42, 0x52);
        }
    });
    EXPECT_EQ(Run({"upload", file}), kExitUnit);
    ASSERT_EQ(complaints.size(), 1u);
    EXPECT_NE(complaints[0].find("differs from " + file + " at address 21"), std::string::npos);
}

TEST_F(MacroCallTest, TouchesNothingForABadFileOrARefusal) {
    WriteFile("'Kestrane\r\n'Macro Triggers\r\n");
    EXPECT_EQ(Run({"upload", file}), kExitUsage);
    EXPECT_EQ(world.tcpsend.connections(), 0);

    WriteFile(FileOf(0x51, 0x05));
    const std::string before = UnitProgram();
    peer.unit().Relay().Set(unit::kPrivileges, 0);
    EXPECT_EQ(Run({"upload", file}), kExitUnit);
    EXPECT_NE(complaints.back().find("Denied"), std::string::npos);
    EXPECT_EQ(UnitProgram(), before);

    tool.hand.Click(tool.main_form.cmdDisconnect);
    peer.line().DropNext(100);
    WriteFile("old");
    EXPECT_EQ(Run({"download", file}), kExitUnit);
    EXPECT_EQ(ReadWholeFile(file).content, "old");
}

}  // namespace
}  // namespace kestrane
