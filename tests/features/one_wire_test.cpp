// The two sensor tables side by side: frames, texts, colours and what comes back after failures.

#include "features/one_wire.h"

#include <gmock/gmock.h>

#include "features_test_support.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

using testing::ElementsAre;

constexpr int kOneWireTab = 5;
constexpr int kRelay = 250;
constexpr int kDisplay = 251;
constexpr char kNone[] = "FFFFFFFFFFFFFFFFFF";

TEST(SensorType, EveryFamilyAndSubType) {
    for (int sub = 0; sub < 256; ++sub) {
        const std::string string_place = "TS-" + std::to_string(sub);
        EXPECT_EQ(SensorType(0x28, sub), sub == 0 ? "T" : sub <= 6 ? string_place : "??");
        EXPECT_EQ(SensorType(0x26, sub), sub == 0x00   ? "MS-T"
                                         : sub == 0x19 ? "MS-TH"
                                         : sub == 0x1B ? "MS-TL"
                                                       : "??");
        EXPECT_EQ(SensorType(0x10, sub), "");
    }
}

class OneWireTest : public FeatureTest {
  protected:
    OneWireTest() {
        for (int slot = 0; slot < 16; ++slot) SetLive(slot, kNone);
        SetCommitted({});
    }
    void ConnectOnOneWire() {
        ConnectOn(kOneWireTab);
        tab_.cmdWrite1WNames.SetEnabled(true);
    }
    static std::string LiveRead(int slot) { return Bytes({kRelay, 0x82, 0x01, slot + 1}); }
    void SetLive(int slot, const std::string& hex_record, int total = 0) {
        Answer(LiveRead(slot), HexPairs(hex_record) + Bytes({total}));
    }
    // The table from slot 0 on, the rest erased.
    void SetCommitted(const std::vector<std::string>& hex_records) {
        std::string table;
        for (const std::string& record : hex_records) table += HexPairs(record);
        table = PadRight(table, 144, '\xFF');
        for (int block = 0; block < 9; ++block) {
            Store(kRelay, 0x0200 + 16 * block,
                  table.substr(16 * static_cast<std::size_t>(block), 16));
        }
    }
    void Click(Control& control) { EXPECT_EQ(tool_.hand.Click(control).value_or(""), ""); }
    std::string Live(int slot) const { return tab_.lbl1WAddress(slot).Caption(); }
    std::string Type(int slot) const { return tab_.lbl1WType(slot).Caption(); }
    std::string Committed(int slot) const { return tab_.lbl1We2p(slot).Caption(); }
    bool Red(int slot) const { return tab_.lbl1WAddress(slot).ForeColor() == kRed; }
    std::vector<std::string> CommittedReads() const {
        std::vector<std::string> texts;
        for (int block = 0; block < 9; ++block) {
            texts.push_back(HexText(ReadCommand(kRelay, 0x0200 + 16 * block)));
        }
        return texts;
    }
    bool FirmwareButtons(bool enabled) const {
        for (const Button* button : {&tab_.cmdRead1WLive, &tab_.cmd1WireClear, &tab_.cmd1WireCommit,
                                     &tab_.cmdResetMinMax}) {
            if (button->Enabled() != enabled) return false;
        }
        return true;
    }

    OneWireTab& tab_ = form_.one_wire;
};

TEST_F(OneWireTest, ReadTakesNamesThenCommittedThenLive) {
    Store(kDisplay, 0x0160, "Rack    \xA0 mid 8 ");
    Store(kDisplay, 0x01D0, "        lastname");
    SetCommitted({"3F0000019A4C712619", "C10000063B84D52801", "4B0000063B77092802"});
    SetLive(0, "3F0000019A4C712619", 16);
    SetLive(1, "C10000063B84D62801", 16);
    SetLive(3, "57000006418E332800", 16);
    SetLive(4, "57000006418E331007", 16);
    SetLive(5, "57000006418E33FF00", 16);
    SetLive(15, "E80000019B07442642", 16);
    ConnectOnOneWire();
    tab_.txt1WName(3).SetText("stale");
    const auto start = world_.Now();

    Click(tab_.cmdRead1WNames);

    std::vector<std::string> expected;
    for (int address = 0x0160; address <= 0x01D0; address += 16) {
        expected.push_back(HexText(ReadCommand(kDisplay, address)));
    }
    for (const std::string& read : CommittedReads()) expected.push_back(read);
    for (int slot = 0; slot < 16; ++slot) expected.push_back(HexText(LiveRead(slot)));
    EXPECT_EQ(SentTexts(), expected);
    EXPECT_EQ(HexText(world_.tcpsend.sent().back()), "1002FA820110108D1003");
    EXPECT_LE((world_.Now() - start).count(), 33 * 100 * 1.05);

    EXPECT_EQ(tab_.txt1WName(0).Text(), "Rack");
    EXPECT_EQ(tab_.txt1WName(1).Text(), "\xA0 mid 8");
    EXPECT_EQ(tab_.txt1WName(3).Text(), "");
    EXPECT_EQ(tab_.txt1WName(15).Text(), "lastname");
    EXPECT_EQ(Committed(1), "C10000063B84D528");  // lies across two blocks
    EXPECT_EQ(Committed(2), "4B0000063B770928");
    EXPECT_EQ(Committed(3), "No Sensor committed");
    EXPECT_EQ(Live(0), "3F0000019A4C7126");
    EXPECT_EQ(Type(0), "MS-TH");
    EXPECT_FALSE(Red(0));
    EXPECT_TRUE(Red(1));  // another sensor than the committed one
    EXPECT_EQ(Type(1), "TS-1");
    EXPECT_EQ(Live(2), "No Sensor fitted");
    EXPECT_FALSE(Red(2));
    EXPECT_EQ(Type(2), "");
    EXPECT_TRUE(Red(3));  // nothing committed in its slot
    EXPECT_EQ(Live(4), "57000006418E3310");
    EXPECT_EQ(Type(4), "");
    EXPECT_EQ(Live(5), "No Sensor fitted");
    EXPECT_EQ(Type(15), "??");
    EXPECT_EQ(tab_.lbl1WTotal.Caption(), "16");

    ASSERT_EQ(captions_.size(), 8u + 9 + 1 + 16 + 1);
    EXPECT_EQ(captions_[0], "Reading 1-Wire Name 1 of 8");
    EXPECT_EQ(captions_[16], "Reading 1-Wire Memory 9 of 9");
    EXPECT_EQ(captions_[17], "Reading 1-Wire Memory Complete");
    EXPECT_EQ(captions_[33], "Reading 1-Wire Live Addresses 16 of 16");
    EXPECT_EQ(captions_[34], "Reading 1-Wire Settings Complete");
    EXPECT_TRUE(session_.OneWireRead);
    EXPECT_TRUE(FirmwareButtons(true));
    EXPECT_TRUE(tab_.fra1WireSettings.Enabled());
    EXPECT_TRUE(tab_.lbl1WTotal.Enabled());
    EXPECT_TRUE(tab_.lblSensorType(0).Enabled());
    EXPECT_EQ(form_.Focused(), &tab_.txt1WName(0));
    EXPECT_EQ(tab_.txt1WName(0).SelLength(), 4);
}

TEST_F(OneWireTest, WithoutAdministratorOnlyTheReadComesBack) {
    ConnectOnOneWire();
    session_.AdminLoggedIn = false;
    Click(tab_.cmdRead1WNames);
    EXPECT_TRUE(FirmwareButtons(false));
    EXPECT_FALSE(tab_.fra1WireSettings.Enabled());
    EXPECT_FALSE(tab_.cmdWrite1WNames.Enabled());
    EXPECT_FALSE(session_.OneWireRead);
    EXPECT_TRUE(tab_.cmdRead1WNames.Enabled());
    EXPECT_TRUE(form_.cmdHelp.Enabled());
    EXPECT_TRUE(form_.SSTab1.Tabs()[0].enabled);
    EXPECT_EQ(Live(15), "No Sensor fitted");
}

TEST_F(OneWireTest, AFailedLiveReadIsTakenForOldFirmwareUntilOneSucceeds) {
    SetLive(0, "3F0000019A4C712619", 1);
    ConnectOnOneWire();
    ReplyRaw(LiveRead(9), Bytes({0x10, 0x02, kRelay, 0x82, 0x15, 0x00, 0x10, 0x03}));
    Click(tab_.cmdRead1WLive);
    for (int slot = 0; slot < 16; ++slot) EXPECT_EQ(Live(slot), "Firmware >= 1.4.3");
    EXPECT_TRUE(session_.OneWireUnsupported);
    EXPECT_TRUE(FirmwareButtons(false));
    EXPECT_TRUE(tab_.cmdWrite1WNames.Enabled());
    EXPECT_EQ(form_.lblMemoryBlock.Caption(), "Reading 1-Wire Settings Complete");
    EXPECT_FALSE(tab_.lbl1WTotal.Enabled());  // the live read alone leaves the labels
    Click(tab_.cmdRead1WNames);
    EXPECT_TRUE(FirmwareButtons(false));
    EXPECT_TRUE(session_.OneWireRead);
    ReplyRaw(LiveRead(9), Framed(LiveRead(9) + HexPairs(kNone) + "\x01"));
    Click(tab_.cmdRead1WNames);
    EXPECT_TRUE(FirmwareButtons(true));
    EXPECT_EQ(Live(0), "3F0000019A4C7126");
}

TEST_F(OneWireTest, AFailedNameOrCommittedBlockSkipsTheRest) {
    SetCommitted({"3F0000019A4C712619", "C10000063B84D52801"});
    ConnectOnOneWire();
    for (const std::string& refused :
         {ReadCommand(kRelay, 0x0210), ReadCommand(kDisplay, 0x0170)}) {
        ReplyRaw(refused, "");
        world_.tcpsend.ClearSent();
        Click(tab_.cmdRead1WNames);
        EXPECT_EQ(SentTexts().back(), HexText(refused));
        EXPECT_FALSE(session_.OneWireRead);
        EXPECT_FALSE(session_.OneWireUnsupported);
        EXPECT_EQ(Live(0), "");
        EXPECT_TRUE(FirmwareButtons(true));
        // Half of record 2 has come: it is not shown.
        EXPECT_EQ(Committed(0), refused[0] == Bytes({kRelay})[0] ? "3F0000019A4C7126" : "");
        EXPECT_EQ(Committed(1), "");
    }
}

TEST_F(OneWireTest, CommitReadsTheCommittedTableAndClearBoth) {
    SetLive(0, "3F0000019A4C712619", 1);
    ConnectOnOneWire();
    Click(tab_.cmdRead1WLive);
    EXPECT_TRUE(Red(0));
    SetCommitted({"3F0000019A4C712619"});
    for (const bool clear : {false, true}) {
        world_.tcpsend.ClearSent();
        captions_.clear();
        Click(clear ? tab_.cmd1WireClear : tab_.cmd1WireCommit);
        std::vector<std::string> expected{clear ? "FA8202" : "FA8203"};
        for (const std::string& read : CommittedReads()) expected.push_back(read);
        if (clear) {
            for (int slot = 0; slot < 16; ++slot) expected.push_back(HexText(LiveRead(slot)));
        }
        EXPECT_EQ(SentTexts(), expected);
        EXPECT_EQ(captions_.front(), clear ? "Clearing 1-Wire Memory" : "Committing 1-Wire Memory");
        EXPECT_EQ(captions_.back(),
                  clear ? "Reading 1-Wire Settings Complete" : "Reading 1-Wire Memory Complete");
        EXPECT_FALSE(Red(0));
        EXPECT_EQ(Type(0), "MS-TH");
        EXPECT_TRUE(FirmwareButtons(true));
    }
    EXPECT_FALSE(session_.OneWireRead);
}

TEST_F(OneWireTest, NamesGoOutPaddedInPairs) {
    ConnectOnOneWire();
    Click(tab_.cmdWrite1WNames);
    EXPECT_TRUE(SentTexts().empty()) << "names of a unit before are not this one's";
    Click(tab_.cmdRead1WNames);
    world_.tcpsend.ClearSent();
    captions_.clear();
    tab_.txt1WName(0).SetText("a");
    tab_.txt1WName(1).SetText("exactly8");
    tab_.txt1WName(15).SetText("set beyond its length");
    Click(tab_.cmdWrite1WNames);
    const std::vector<std::string> sent = SentTexts();
    ASSERT_EQ(sent.size(), 8u);
    EXPECT_EQ(sent[0], HexText(WriteCommand(kDisplay, 0x0160, 16, "a       exactly8")));
    EXPECT_EQ(sent[7], HexText(WriteCommand(kDisplay, 0x01D0, 16, "        set beyo")));
    EXPECT_EQ(captions_[7], "Writing 1-Wire Name 8 of 8");
    EXPECT_EQ(captions_[8], "Writing 1-Wire Names complete");
    ReplyRaw(WriteCommand(kDisplay, 0x0170, 16, std::string(16, ' ')), "");
    Click(tab_.cmdWrite1WNames);
    EXPECT_EQ(captions_.back(), "Writing 1-Wire Name 2 of 8");
    EXPECT_TRUE(tab_.cmdWrite1WNames.Enabled());
}

TEST_F(OneWireTest, ResetMinMax) {
    ConnectOnOneWire();
    Click(tab_.cmdResetMinMax);
    EXPECT_THAT(SentTexts(), ElementsAre("FA8102"));
    EXPECT_THAT(captions_,
                ElementsAre("Resetting 1-Wire min/max", "Reset 1-Wire min/max complete"));
    ReplyRaw(HexPairs("FA8102"), HexPairs("1002FA8116001003"));
    Click(tab_.cmdResetMinMax);
    EXPECT_EQ(captions_.back(), "Resetting 1-Wire min/max");
    EXPECT_TRUE(FirmwareButtons(true));
}

TEST_F(OneWireTest, BadRepliesNeverCrash) {
    ConnectOnOneWire();
    for (const std::string& command :
         {LiveRead(0), LiveRead(15), ReadCommand(kRelay, 0x0200), ReadCommand(kRelay, 0x0280),
          ReadCommand(kDisplay, 0x0160)}) {
        for (const std::string& reply : BadReplies(command)) {
            ReplyRaw(command, reply);
            Click(tab_.cmdRead1WNames);
            EXPECT_EQ(form_.Pointer(), Form::kArrow);
            EXPECT_TRUE(form_.cmdHelp.Enabled());
        }
        ReplyRaw(command, Framed(command + HexPairs(kNone) + std::string(7, '\xFF')));
    }
}

TEST(OneWireOnUnit, CommitMakesTheTablesAgreeAndClearEmptiesOne) {
    ToolOnUnit tool;
    tool.ReadSettings();
    EXPECT_EQ(tool.tool.hand.Choose(tool.form.SSTab1, kOneWireTab).value_or(""), "");
    OneWireTab& tab = tool.form.one_wire;
    tool.Click(tab.cmdRead1WNames);
    EXPECT_EQ(tab.lbl1WTotal.Caption(), "5");
    EXPECT_EQ(tab.lbl1WAddress(2).ForeColor(), kRed);
    tool.Click(tab.cmd1WireCommit);
    for (int slot = 0; slot < 5; ++slot) {
        EXPECT_EQ(tab.lbl1WAddress(slot).Caption(), tab.lbl1We2p(slot).Caption());
        EXPECT_EQ(tab.lbl1WAddress(slot).ForeColor(), kBlack);
    }
    EXPECT_EQ(tab.lbl1We2p(5).Caption(), "No Sensor committed");
    tool.Click(tab.cmd1WireClear);
    EXPECT_EQ(tab.lbl1We2p(0).Caption(), "No Sensor committed");
    EXPECT_EQ(tab.lbl1WAddress(0).ForeColor(), kRed);
    EXPECT_EQ(tool.LastBox(), "");
}

TEST(OneWireOnUnit, OldFirmwareHasNoLiveRead) {
    ToolOnUnit tool({.old_firmware = true});
    tool.ReadSettings();
    tool.form.SSTab1.SetTab(kOneWireTab);
    tool.Click(tool.form.one_wire.cmdRead1WNames);
    EXPECT_EQ(tool.form.one_wire.lbl1WAddress(15).Caption(), "Firmware >= 1.4.3");
    EXPECT_EQ(tool.form.one_wire.txt1WName(0).Text(), "Rack air");
    EXPECT_FALSE(tool.form.one_wire.cmd1WireCommit.Enabled());
    EXPECT_EQ(tool.LastBox(), "");
}

TEST(OneWireOnUnit, AReadThatOutlivesItsConnectionLeavesTheNextOneAlone) {
    ToolOnUnit tool;
    tool.ReadSettings();
    tool.form.SSTab1.SetTab(kOneWireTab);
    OneWireTab& tab = tool.form.one_wire;
    bool again = false;
    tool.world.time.After(std::chrono::milliseconds(2000), [&] {
        ASSERT_EQ(tool.form.lblMemoryBlock.Caption().substr(0, 19), "Reading 1-Wire Live");
        tool.Click(tool.form.cmdDisconnect);
        tool.ReadSettings();
        EXPECT_TRUE(tool.session.AdminLoggedIn);
        again = true;
    });
    tool.Click(tab.cmdRead1WNames);
    EXPECT_TRUE(again);
    EXPECT_FALSE(tool.session.OneWireRead);
    EXPECT_FALSE(tool.session.OneWireUnsupported);
    EXPECT_EQ(tab.lbl1WAddress(0).Caption(), "");
    EXPECT_TRUE(tab.cmdRead1WNames.Enabled());
}

}  // namespace
}  // namespace kestrane
