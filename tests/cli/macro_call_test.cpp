// The call `macro`: files on their own, and programs to and from the demo unit on virtual time.

#include "cli/macro_call.h"

#include <fstream>

#include "cli/call_test_support.h"
#include "cli/macro_options.h"
#include "macro/macro_file.h"

namespace kestrane {
namespace {

class MacroCallTest : public CallTest {
  protected:
    int Run(Words words) { return CallTest::Run(MakeMacroCall(), std::move(words)); }
    void WriteFile(const std::string& content) { world.disk.files[file] = content; }
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

    const std::string file = "program.sms";
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
    EXPECT_EQ(Run({"list", file, "--type", "other"}), kExitUsage);
    EXPECT_EQ(Run({"list", file + "x"}), kExitUsage);
    EXPECT_EQ(world.tcpsend.connections(), 0);
}

TEST_F(MacroCallTest, ChecksFilesAndSource) {
    WriteFile(FileOf(0x02, 0x10));
    EXPECT_EQ(Run({"check", file}), kExitDone);
    EXPECT_EQ(printed, (Words{"kind: macro triggers and code",
                              "line 123: warning: address 7F: the program runs on past its last "
                              "address; end it with a stop"}));
    EXPECT_EQ(Run({"check", file, "--strict", "--json"}), kExitUsage);
    EXPECT_EQ(Json::parse(printed.back())[0].dump(),
              R"({"line":123,"column":null,"address":"7F","severity":"warning","kind":"runs-off",)"
              R"("text":"the program runs on past its last address; end it with a stop"})");
    WriteFile("; a remark\n  GOTO nowhere\n Stopp");
    EXPECT_EQ(Run({"check", file}), kExitUsage);
    ASSERT_EQ(complaints.size(), 2u);
    EXPECT_EQ(complaints[0], file +
                                 ":2:8: label nowhere is not defined; write \"nowhere:\" before "
                                 "an instruction");
    EXPECT_EQ(Run({"check", file, "--json"}), kExitUsage);
    EXPECT_EQ(Json::parse(printed.back())[1]["column"], 2);
    EXPECT_EQ(complaints.size(), 2u);
}

TEST_F(MacroCallTest, AssemblesWhatSaveFileWouldWrite) {
    const std::string source = file + ".txt";
    world.disk.files[source] =
        "trigger 2 \"Caf\xC3\xA9\" enabled on\nstart: Stop\n"
        "on: SUPPLY LOSS INT start\n";
    for (const auto& [type, unit_type] : {std::pair("cms", "CMS"), {"Single", ""}}) {
        EXPECT_EQ(Run({"assemble", source, "--type", type, "-o", file}), kExitDone);
        const std::string assembled = world.disk.files[file];
        const ProgramText text = ReadProgramText(assembled);
        ASSERT_TRUE(text.Good());
        tool.session.UnitType = unit_type;
        tool.macro_editor.state().image = text.program.image;
        for (int row = 0; row < kTriggerRows; ++row) {
            const TriggerRow fields = text.program.Rows()[static_cast<std::size_t>(row)];
            tool.main_form.triggers.txtMTName(row).SetText(fields.name);
            tool.main_form.triggers.txtMTPage(row).SetText(fields.page);
            tool.main_form.triggers.txtMTAddress(row).SetText(fields.address);
            tool.main_form.triggers.chkMacro(row).SetChecked(fields.enabled);
        }
        EXPECT_EQ(tool.main_form.triggers.txtMTName(1).Text(), "Caf\xE9");
        EXPECT_FALSE(tool.macro_editor.files().Save(file));
        EXPECT_EQ(world.disk.files[file], assembled);
        EXPECT_EQ(Run({"disassemble", file}), kExitDone);
        EXPECT_NE(printed.back().find("trigger 2 \"Caf\xC3\xA9\" enabled"), std::string::npos);
    }
    world.disk.files[source] = "OFF 15 1\n";
    world.disk.files.erase(file);
    EXPECT_EQ(Run({"assemble", source, "-o", file}), kExitUsage);
    EXPECT_FALSE(world.disk.files.contains(file));
    EXPECT_EQ(Run({"assemble", source, "-o", source}), kExitUsage);
}

TEST_F(MacroCallTest, SimulatesAndSaysWhatAValueIsNot) {
    WriteFile("trigger 2 \"A\" disabled run\nStop\nrun: ON 1 0.5\nOFF 3 0 ALWAYS\n");
    EXPECT_EQ(
        Run({"simulate", file, "--trigger", "2", "--outlets", "on 3", "--json", "--type", "636"}),
        kExitDone);
    EXPECT_EQ(printed.back(),
              R"({"type":"636","start":"11","events":[)"
              R"({"ms":500,"address":"11","text":"Turn on outlet 1 after 0.5 seconds, )"
              R"(skip if already on","on":[1],"off":[]},)"
              R"({"ms":501,"address":"12","text":"Turn off outlet 3 after fixed delay of 0.0 )"
              R"(seconds","on":[],"off":[3]},{"ms":502,"address":"13","text":"Stop",)"
              R"("on":[],"off":[]}],"end":{"ms":502,"why":"stop"},"repeats":null,"outlets":[1],)"
              R"("most_on":{"count":1,"from_ms":500}})");
    printed.clear();
    EXPECT_EQ(Run({"simulate", file, "--from", "run", "--csv"}), kExitDone);
    EXPECT_EQ(printed[0].substr(0, printed[0].find('\n', 30)),
              "ms,address,text,on,off\n"
              "500,11,\"Turn on outlet 1 after 0.5 seconds, skip if already on\",1,");
    for (const Words& wrong : {Words{"--from", "7F"},
                               {"--from", "x"},
                               {"--trigger", "1"},
                               {"--trigger", "9"},
                               {"--for", "1.2345"},
                               {"--event", "1 switch on"},
                               {"--event", "1: gpi 5 low"},
                               {"--outlets", "1 3"},
                               {"--outlets", "on 15"},
                               {"--type", "x"}}) {
        Words words{"simulate", file};
        words.insert(words.end(), wrong.begin(), wrong.end());
        EXPECT_EQ(Run(words), kExitUsage) << wrong[0] << " " << wrong[1];
    }
    EXPECT_EQ(Run({"simulate", file, "--from", "10", "--trigger", "2"}), -1);
    EXPECT_EQ(Run({"simulate", file, "--csv", "--json"}), -1);
}

// The examples are what a reader tries first, so they must be free of warnings and do what their
// remarks say.
TEST_F(MacroCallTest, TheExamplesAreSoundAndDoWhatTheySay) {
    const std::string folder = KESTRANE_SOURCE_DIR "/examples/macros/";
    const auto run = [&](const std::string& name, Words words) {
        std::ifstream example(folder + name);
        WriteFile({std::istreambuf_iterator<char>(example), std::istreambuf_iterator<char>()});
        EXPECT_EQ(Run({"check", file, "--strict"}), kExitDone) << name;
        words.insert(words.begin(), {"simulate", file, "--json"});
        EXPECT_EQ(Run(words), kExitDone);
        return Json::parse(printed.back());
    };
    const Json staged = run("staged-start.txt", {});
    EXPECT_EQ(staged["outlets"].size(), 14u);
    EXPECT_EQ(staged["most_on"]["count"], 5);
    const Json off = run("staged-start.txt", {"--event", "60: switch off"});
    EXPECT_EQ(off["outlets"].size(), 0u);
    const Json held =
        run("supply-hold-off.txt", {"--type", "single", "--outlets", "on 1 2 3 4 5", "--event",
                                    "10: supply lost", "--event", "20: supply back", "--event",
                                    "40: supply lost", "--event", "60: supply back"});
    EXPECT_EQ(held["outlets"], Json({1, 2, 3, 4, 5}));
    EXPECT_EQ(held["end"]["ms"], 98'003);
    Words lows{"--outlets", "on 5"};
    for (const char* at : {"10", "400", "800", "1200"}) {
        for (const char* edge : {": gpi 1 low", ".5: gpi 1 high"}) {
            lows.insert(lows.end(), {"--event", std::string(at) + edge});
        }
    }
    EXPECT_EQ(run("gpi-reboot.txt", lows)["outlets"].size(), 0u) << "it gives up the fourth time";
    lows.resize(lows.size() - 4);
    EXPECT_EQ(run("gpi-reboot.txt", lows)["outlets"], Json({5}));
    const Json night = run("night-shutdown.txt",
                           {"--trigger", "1", "--outlets", "on 1 2 3 4 5 6 7", "--for", "86400"});
    EXPECT_EQ(night["outlets"].size(), 7u);
    EXPECT_NEAR(night["end"]["ms"].get<double>(), 10 * 3'600'000 + 78'000, 100);
}

TEST_F(MacroCallTest, MovesAProgramDownAndUp) {
    const std::string before = UnitProgram();
    EXPECT_EQ(Run({"download", file}), kExitDone) << complaints.size();
    const ProgramText saved = ReadProgramText(world.disk.files[file]);
    ASSERT_TRUE(saved.Good());
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(saved.program.image.Get(i + 32), static_cast<std::uint8_t>(before[i]));
    }
    tool.hand.Click(tool.main_form.cmdDisconnect);
    WriteFile(FileOf(0x10, 0x10));
    EXPECT_EQ(Run({"upload", file}), kExitDone);
    EXPECT_EQ(UnitProgram(), std::string(223, '\x10') + '\0');
    EXPECT_EQ(complaints, Words{});
}

TEST_F(MacroCallTest, SaysIfTheUnitHoldsSomethingElse) {
    WriteFile(FileOf(0x51, 0x05));
    // Somebody else writes into the unit after the upload.
    world.loop.AfterEvents([&] {
        if (tool.script_edit_form.lblTopStatus.Caption() == "Downloading unit macro program 12%") {
            peer.unit().Relay().Set(0x42, 0x52);
        }
    });
    EXPECT_EQ(Run({"upload", file}), kExitUnit);
    ASSERT_EQ(complaints.size(), 1u);
    EXPECT_NE(complaints[0].find("differs from " + file + " at address 21"), std::string::npos);
}

TEST_F(MacroCallTest, UploadsSourceAndTriggersOnlyIfAsked) {
    WriteFile("trigger 2 \"Night\" page 3 enabled on\nStop\non: ON 1 0.5\n");
    const std::string before = peer.unit().Display().Read(0x200, 0x80);
    EXPECT_EQ(Run({"upload", file}), kExitDone);
    EXPECT_NE(printed.back().find("its macro triggers were left out"), std::string::npos);
    EXPECT_EQ(UnitProgram().substr(0, 6), Bytes({0, 0, 0x40, 5, 0, 0}));
    EXPECT_EQ(peer.unit().Display().Read(0x200, 0x80), before);
    tool.hand.Click(tool.main_form.cmdDisconnect);
    EXPECT_EQ(Run({"upload", file, "--triggers"}), kExitDone);
    EXPECT_EQ(
        peer.unit().Display().Read(0x200, 0x20),
        PadRight("Macro 1", 14) + Bytes({0x80, 0}) + PadRight("Night", 14) + Bytes({3, 0x11}));
    EXPECT_EQ(complaints, Words{});
    WriteFile("Stop");
    EXPECT_EQ(Run({"upload", file, "--triggers"}), kExitUsage);
}

TEST_F(MacroCallTest, UploadEndsWhereverTheLineIsLost) {
    WriteFile("trigger 2 \"Night\" enabled 10\nStop\n");
    constexpr int kStep = 5;  // the triggers, which go last, take eight
    int exchange = 0;
    do {
        tool.hand.Click(tool.main_form.cmdDisconnect);
        peer.line().PassNext(exchange);
        peer.line().CutNext(0);
        exchange += kStep;
    } while (Run({"upload", file, "--triggers"}) == kExitUnit);
    EXPECT_GT(exchange, 80);
    EXPECT_EQ(peer.unit().Display().Read(0x210, 5), "Night");
}

TEST_F(MacroCallTest, TouchesNothingForABadFileOrARefusal) {
    WriteFile("'Kestrane\r\n'Macro Triggers\r\n");
    EXPECT_EQ(Run({"upload", file}), kExitUsage);
    world.disk.faults["locked.sms"] = "Permission denied";
    EXPECT_EQ(Run({"download", "locked.sms"}), kExitUsage);
    EXPECT_EQ(world.tcpsend.connections(), 0);

    WriteFile(FileOf(0x51, 0x05));
    const std::string before = UnitProgram();
    peer.unit().Relay().Set(unit::kPrivileges, 0);
    EXPECT_EQ(Run({"upload", file}), kExitUnit);
    EXPECT_EQ(UnitProgram(), before);

    tool.hand.Click(tool.main_form.cmdDisconnect);
    peer.line().DropNext(100);
    WriteFile("old");
    EXPECT_EQ(Run({"download", file}), kExitUnit);
    EXPECT_EQ(world.disk.files[file], "old");
}

TEST_F(MacroCallTest, AnUnnamedTriggerGetsANameAndAnImpossibleOneIsRefused) {
    peer.unit().Display().Write(0x200, std::string(14, ' '));
    EXPECT_EQ(Run({"download", file}), kExitDone);
    EXPECT_NE(complaints.back().find("trigger 1 has no name"), std::string::npos);
    const ProgramText saved = ReadProgramText(world.disk.files[file]);
    ASSERT_TRUE(saved.Good());
    EXPECT_EQ(saved.program.triggers[0]->row.name, "Macro 1");
    tool.hand.Click(tool.main_form.cmdDisconnect);
    WriteFile("old");
    peer.unit().Display().Set(0x21E, 12);  // the page of trigger 2
    EXPECT_EQ(Run({"download", file}), kExitUnit);
    EXPECT_NE(complaints.back().find("trigger 2"), std::string::npos);
    EXPECT_EQ(world.disk.files[file], "old");
}

// Each fault of the line at a block of the transfer: the status, the block and what the unit holds.
TEST_F(MacroCallTest, AFailedBlockIsNamedWithWhatTheUnitHolds) {
    WriteFile(FileOf(0x51, 0x05));
    const std::string old = UnitProgram();
    // Refused from the fifth block on.
    int uploads = 0;
    world.loop.AfterEvents([&] {
        const std::string& status = tool.script_edit_form.lblTopStatus.Caption();
        if (status == "Uploading unit settings 32%" && ++uploads == 1) {
            peer.unit().Relay().Set(unit::kPrivileges, 0);
        }
    });
    EXPECT_EQ(Run({"upload", file}), kExitUnit);
    EXPECT_NE(complaints.back().find("block 0060: refused"), std::string::npos)
        << complaints.back();
    EXPECT_NE(complaints.back().find("blocks 10 to 2F are new, the rest old"), std::string::npos)
        << complaints.back();
    EXPECT_EQ(UnitProgram().substr(0x40), old.substr(0x40));
    EXPECT_NE(UnitProgram().substr(0, 0x40), old.substr(0, 0x40));
}

}  // namespace
}  // namespace kestrane
