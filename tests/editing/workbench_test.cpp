// Pending changes, undo and the messages, with the demo unit at the other end.

#include "editing/workbench.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <random>

#include "editing/configuration_files.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

using testing::HasSubstr;
using testing::Not;

struct Bench : ToolOnUnit {
    Workbench bench{tool};

    const Message& Last() const { return bench.messages.All().back(); }
    std::string Changes() const {
        std::string text;
        for (const PendingChange& change : bench.pending.List()) {
            text += change.setting->key + ": " + change.before + " -> " + change.now + "\n";
        }
        return text;
    }
};

TEST(PendingChanges, HoldWhatWasTypedSinceTheReadUntilItIsWritten) {
    Bench it;
    it.Connect();
    it.Click(it.network.cmdReadNetworkSettings);
    const std::string name = it.network.txtUnitName.Text();
    EXPECT_EQ(it.Changes(), "");
    it.Type(it.network.txtUnitName, "Rack 7");
    it.Click(it.network.chkIPonOLED);
    EXPECT_EQ(it.bench.pending.Count(), 2u);
    EXPECT_THAT(it.Changes(), HasSubstr("network.unit_name: " + name + " -> Rack 7\n"));
    it.Click(it.network.cmdWriteNetworkSettings);
    EXPECT_EQ(it.Changes(), "");
    it.Type(it.network.txtUnitName, name);
    EXPECT_EQ(it.Changes(), "network.unit_name: Rack 7 -> " + name + "\n");
    it.bench.pending.RevertAll();
    EXPECT_EQ(it.network.txtUnitName.Text(), "Rack 7");
    // A box emptied by hand does not change when the program clears it.
    EXPECT_EQ(it.tool.hand.Choose(it.form.SSTab1, 3), std::nullopt);
    it.Click(it.form.names.cmdReadChannelNames);
    it.Type(it.form.names.txtOutUpper(0), "");
    EXPECT_EQ(it.bench.pending.Count(), 1u);
    EXPECT_EQ(it.tool.hand.Choose(it.form.SSTab1, 0), std::nullopt);
    it.Click(it.network.cmdReadNetworkSettings);
    EXPECT_EQ(it.Changes(), "");
    it.Type(it.network.txtUnitName, "");
    it.Click(it.form.cmdDisconnect);
    EXPECT_EQ(it.bench.pending.Count(), 0u);
}

TEST(PendingChanges, LeaveTheBlocksThatAWriteDidNotReach) {
    Bench it;
    it.ReadSettings();
    EXPECT_EQ(it.tool.hand.Choose(it.form.SSTab1, 3), std::nullopt);
    it.Click(it.form.names.cmdReadChannelNames);
    it.Type(it.form.names.txtOutUpper(0), "First");
    it.Type(it.form.names.txtOutUpper(13), "Last");
    EXPECT_EQ(it.bench.pending.Count(), 2u);
    it.peer.line().PassNext(6);
    it.peer.line().DropNext();
    it.Click(it.form.names.cmdWriteChannelNames);
    EXPECT_THAT(it.Last().text, HasSubstr("no answer"));
    EXPECT_THAT(it.Last().text,
                HasSubstr("Blocks 1 to 6 of 16 were written before; one more was sent"));
    EXPECT_THAT(it.Changes(), Not(HasSubstr("First")));
    EXPECT_THAT(it.Changes(), HasSubstr("names.outlet.14.upper"));
}

TEST(Reasons, SayWhetherATabWasNotReadOrWasLeft) {
    Bench it;
    it.ReadSettings();
    TextBox& name = it.form.names.txtOutUpper(0);
    EXPECT_EQ(it.tool.hand.Choose(it.form.SSTab1, 3), std::nullopt);
    EXPECT_EQ(WhyDisabled(it.tool, name), "Read this tab first");
    it.Click(it.form.names.cmdReadChannelNames);
    EXPECT_TRUE(name.Usable());
    EXPECT_EQ(it.tool.hand.Choose(it.form.SSTab1, 4), std::nullopt);
    EXPECT_EQ(it.tool.hand.Choose(it.form.SSTab1, 3), std::nullopt);
    EXPECT_FALSE(name.Usable());
    EXPECT_EQ(WhyDisabled(it.tool, name), "Leaving a tab has closed it: read it again to edit");
}

// The refresh brings live values after the read: what it shows is no change, and can't be undone.
TEST(PendingChanges, LearnLiveValuesWithTheRefresh) {
    Bench it;
    it.ReadSettings();
    ChangeoverTab& tab = it.form.changeover;
    EXPECT_EQ(it.tool.hand.Choose(it.form.SSTab1, 6), std::nullopt);
    it.Click(tab.cmdReadCMSOptions);
    it.world.RunFor(std::chrono::seconds{2});
    ASSERT_TRUE(it.session.known.changeover_live);
    EXPECT_EQ(it.Changes(), "");
    EXPECT_FALSE(it.bench.history.CanUndo());
    const std::string phase = tab.txtCurrent(5).Text();
    it.Type(tab.txtCurrent(5), "77");
    EXPECT_EQ(it.Changes(), "changeover.live.phase: " + phase + " -> 77\n");
    it.bench.history.Undo();
    EXPECT_EQ(tab.txtCurrent(5).Text(), phase);
}

TEST(LiveAnswers, AgeWhenTheUnitFallsSilentAndEndWithTheConnection) {
    Bench it;
    it.ReadSettings();
    EXPECT_EQ(it.bench.live.Age(), std::nullopt);
    EXPECT_EQ(it.tool.hand.Choose(it.form.SSTab1, 6), std::nullopt);
    it.Click(it.form.changeover.cmdReadCMSOptions);
    it.Wait(600);
    for (int i = 0; i < 40; ++i, it.Wait(100)) {
        EXPECT_LE(it.bench.live.Age(), LiveAnswers::kFresh);
    }
    it.peer.line().DropNext();
    it.Wait(3000);
    EXPECT_GT(it.bench.live.Age(), LiveAnswers::kFresh);
    it.Click(it.form.cmdDisconnect);
    EXPECT_EQ(it.bench.live.Age(), std::nullopt);
}

TEST(Undo, GoesBackAVisitAtATimeWithTheRepairsThatLeavingMakes) {
    Bench it;
    it.ReadSettings();
    const std::string before = it.network.txtOledTimeout.Text();
    it.Type(it.network.txtOledTimeout, "55");
    it.Type(it.network.txtUnitName, "Rack 7");
    EXPECT_EQ(it.network.txtOledTimeout.Text(), "60");
    it.Click(it.network.chkIPonOLED);
    const bool hidden = it.network.chkIPonOLED.Checked();
    EXPECT_TRUE(it.bench.Undo());
    EXPECT_NE(it.network.chkIPonOLED.Checked(), hidden);
    EXPECT_TRUE(it.bench.Undo());
    EXPECT_NE(it.network.txtUnitName.Text(), "Rack 7");
    EXPECT_EQ(it.network.txtOledTimeout.Text(), "60");
    EXPECT_TRUE(it.bench.Undo());
    EXPECT_EQ(it.network.txtOledTimeout.Text(), before);
    EXPECT_FALSE(it.bench.Undo());
    EXPECT_EQ(it.Changes(), "");
    EXPECT_TRUE(it.bench.Redo());
    EXPECT_EQ(it.network.txtOledTimeout.Text(), "60");
}

// A small model: what the unit holds, by key, and what was typed over it.
class RandomOperator : public testing::TestWithParam<unsigned> {};

TEST_P(RandomOperator, FindsChangesAndUndoAsTheModelHasThem) {
    Bench it;
    it.ReadSettings();
    std::mt19937 random(GetParam());
    TextBox* const boxes[] = {&it.network.txtUnitName, &it.network.txtUnitLocation,
                              &it.network.txtSysContact, &it.network.txtCommunity};
    const char* const keys[] = {"network.unit_name", "network.unit_location", "snmp.contact",
                                "snmp.read_community"};
    std::map<std::string, std::string> unit;
    const auto learn = [&] {
        for (int i = 0; i < 4; ++i) unit[keys[i]] = boxes[i]->Text();
    };
    learn();
    const std::string file = "random_operator_" + std::to_string(GetParam()) + ".mdu.json";
    EXPECT_EQ(SaveConfiguration(it.bench, file).error, std::nullopt);
    const std::map<std::string, std::string> saved = unit;
    for (int step = 0; step < 60; ++step) {
        const int which = static_cast<int>(random() % 4);
        switch (random() % 12) {
            case 0:
                it.bench.Undo();
                break;
            case 1:
                it.bench.Redo();
                break;
            case 2:
                it.Click(it.network.cmdWriteNetworkSettings);
                learn();
                break;
            case 3:
                it.bench.pending.Revert(*FindSetting(keys[which]));
                break;
            case 4:
                EXPECT_EQ(OpenConfiguration(it.bench, file).error, std::nullopt);
                // The last is secret, and not in the file.
                for (int i = 0; i < 3; ++i) EXPECT_EQ(boxes[i]->Text(), saved.at(keys[i]));
                break;
            case 5:
                it.Click(it.form.cmdDisconnect);
                it.ReadSettings();
                learn();
                break;
            case 6:
                it.Click(it.network.cmdReadNetworkSettings);
                for (int i = 0; i < 4; ++i) EXPECT_EQ(boxes[i]->Text(), unit[keys[i]]);
                break;
            case 7: {
                std::vector<std::string> typed;
                for (TextBox* box : boxes) typed.push_back(box->Text());
                it.bench.Verify();
                for (int i = 0; i < 4; ++i)
                    EXPECT_EQ(boxes[i]->Text(), typed[static_cast<std::size_t>(i)]);
                break;
            }
            default:
                it.Type(*boxes[which], "t" + std::to_string(random() % 5));
        }
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(it.bench.pending.Differs(*FindSetting(keys[i])),
                      boxes[i]->Text() != unit[keys[i]])
                << step << " " << keys[i];
        }
    }
    std::filesystem::remove(file);
    it.Click(it.form.cmdDisconnect);
    it.ReadSettings();
    const std::string read = boxes[0]->Text();
    for (int i = 0; i < 9; ++i) it.Type(*boxes[random() % 4], std::to_string(random() % 100));
    while (it.bench.Undo()) {
    }
    EXPECT_EQ(it.Changes(), "");
    EXPECT_EQ(boxes[0]->Text(), read);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomOperator, testing::Range(1u, 25u));

// A write of the settings' passwords, names and triggers in between: all of them are read back, and
// what was read before and not written is still there afterwards.
TEST(Verify, ReadsBackEveryTabThatWasWritten) {
    Bench it;
    it.ReadSettings();
    const auto read = [&](int page, Button& button) {
        EXPECT_EQ(it.tool.hand.Choose(it.form.SSTab1, page), std::nullopt);
        it.Click(button);
    };
    NamesTab& names = it.form.names;
    SecurityTab& security = it.form.security;
    read(4, it.form.triggers.cmdReadMacroTriggers);
    const std::string trigger = it.form.triggers.txtMTName(0).Text();
    read(2, security.cmdReadWBISettings);
    for (int level = 0; level < 3; ++level) it.Type(security.txtWebPassword(level), "secret");
    it.Click(security.cmdWriteWBISettings);
    read(3, names.cmdReadChannelNames);
    it.Type(names.txtOutUpper(0), "First");
    it.Type(names.txtOutUpper(1), "Second");
    it.Click(names.cmdWriteChannelNames);
    EXPECT_EQ(it.tool.hand.Choose(it.form.SSTab1, 0), std::nullopt);
    it.Type(it.network.txtUnitName, "Rack 7");
    it.Click(it.network.cmdWriteNetworkSettings);
    EXPECT_TRUE(it.bench.Verify());
    EXPECT_THAT(it.Last().text, HasSubstr("read back as written."));
    EXPECT_EQ(it.form.triggers.txtMTName(0).Text(), trigger);
    EXPECT_EQ(it.form.SSTab1.Tab(), 0);

    // Somebody else has changed both since.
    unit::BoardMemory& memory = it.peer.unit().Display();
    memory.Set(0x0080, 'X');
    memory.Set(unit::display::kWebLevels + 32, 0x55);
    EXPECT_FALSE(it.bench.Verify());
    EXPECT_EQ(it.Last().text,
              "Not taken by the unit: security.admin.password, names.outlet.1.upper.");
    const auto lost = it.bench.verification.NotTaken(*FindSetting("names.outlet.1.upper"));
    EXPECT_EQ(lost, "First");
    EXPECT_THAT(TipOf(it.bench.pending, it.bench.verification, names.txtOutUpper(0)),
                HasSubstr("\nunit: Xirst\nnot taken: First"));
    EXPECT_THAT(TipOf(it.bench.pending, it.bench.verification, security.txtWebPassword(2)),
                Not(HasSubstr("secret\n")));
    read(3, names.cmdReadChannelNames);
    EXPECT_EQ(it.bench.verification.NotTaken(*FindSetting("names.outlet.1.upper")), std::nullopt);
}

TEST(ConfigurationFiles, ComeBackAsPendingChangesThatUndoTakesBack) {
    Bench it;
    it.ReadSettings();
    const std::string path = "workbench_test.mdu.json";
    const std::string name = it.network.txtUnitName.Text();
    EXPECT_EQ(SaveConfiguration(it.bench, path).error, std::nullopt);
    it.Type(it.network.txtUnitName, "Rack 7");
    it.Click(it.network.chkIPonOLED);
    EXPECT_EQ(CompareConfiguration(it.bench, path).differences.size(), 2u);
    it.Click(it.network.cmdWriteNetworkSettings);
    EXPECT_EQ(it.bench.pending.Count(), 0u);
    const FileOutcome opened = OpenConfiguration(it.bench, path);
    EXPECT_EQ(opened.differences.size(), 2u);
    EXPECT_EQ(it.Changes().substr(0, it.Changes().find('\n')),
              "network.unit_name: Rack 7 -> " + name);
    EXPECT_TRUE(it.bench.Undo());
    EXPECT_EQ(it.Changes(), "");
    EXPECT_NE(OpenConfiguration(it.bench, path + ".none").error, std::nullopt);
}

// One row for each way in which an exchange of an operation can end.
TEST(Outcome, TellsTheTruthForEveryEnd) {
    using End = Exchange::End;
    using OperationEnd = OperationRecord::End;
    struct Row {
        End end;
        OperationEnd operation;
        int written;
        MessageKind kind;
        const char* says;
    };
    const Row rows[] = {
        {End::kAccepted, OperationEnd::kComplete, 2, MessageKind::kGood,
         "Written: Channel Names. Takes effect after Reset Ethernet Processor."},
        {End::kRefused, OperationEnd::kStopped, 0, MessageKind::kWarning,
         "Write Channel Names: denied on port C by its privileges. Nothing was written."},
        {End::kRefused, OperationEnd::kStopped, 1, MessageKind::kWarning,
         "Write Channel Names: denied on port C by its privileges. Block 1 of 16 was written "
         "before."},
        {End::kNoAnswer, OperationEnd::kStopped, 2, MessageKind::kFault,
         "Write Channel Names: no answer from 10.0.0.7:1243 in 3 s. Blocks 1 to 2 of 16 were "
         "written before; one more was sent and its answer did not come. Disconnect and connect "
         "again."},
        {End::kCorrupted, OperationEnd::kStopped, 0, MessageKind::kFault,
         "Write Channel Names: the answers came back corrupted. No block was confirmed; one more "
         "was sent and its answer did not come. Disconnect and connect again."},
        {End::kLineLost, OperationEnd::kOvertaken, 5, MessageKind::kFault,
         "Write Channel Names: the line was lost. Blocks 1 to 5 of 16 were written before; one "
         "more was sent and its answer did not come."},
        {End::kNotSent, OperationEnd::kStopped, 0, MessageKind::kFault,
         "Write Channel Names: there was no connection to send it on. Nothing was written."}};
    for (const Row& row : rows) {
        Journal journal;
        const auto number = journal.BeginOperation("Write Channel Names", 1);
        journal.PlanWrites(number, 16);
        const auto exchange = [&](End end) {
            Exchange one;
            one.operation = number;
            one.connection = 1;
            one.command = 0x12;
            one.address = 0x80;
            one.count = 16;
            const auto made = journal.BeginExchange(one);
            if (end != End::kNotSent) journal.CountSent(made);
            journal.EndExchange(made, end, "");
        };
        for (int i = 0; i < row.written; ++i) exchange(End::kAccepted);
        if (row.end != End::kAccepted) exchange(row.end);
        journal.EndOperation(number);
        OperationRecord record = *journal.FindOperation(number);
        record.end = row.operation;
        const Message message = OutcomeOf(record, journal, "10.0.0.7:1243", "C", "3");
        EXPECT_EQ(message.text, row.says);
        EXPECT_EQ(message.kind, row.kind) << row.says;
    }
}

TEST(Messages, TellWhetherAMacroFileWasSavedOrLoaded) {
    Bench it;
    ScriptEditForm& editor = it.tool.script_edit_form;
    it.session.CheckPassword();
    it.After(1, [&] { it.form.triggers.cmdEditMacro.on_click(); });
    std::size_t before = 0;
    it.After(300, [&] {
        before = it.bench.messages.All().size();
        it.world.files.Choose("five.sms");
        it.Click(editor.cmdSaveFile);
        EXPECT_EQ(it.Last().text, "Saved five.sms.");
        it.world.files.Choose("none.sms");
        it.Click(editor.cmdLoadFile);
        EXPECT_EQ(it.Last().kind, MessageKind::kFault);
        EXPECT_THAT(it.Last().text, HasSubstr("none.sms"));
        EXPECT_EQ(it.tool.hand.Close(editor), std::nullopt);
    });
    it.Wait(2000);
    EXPECT_EQ(it.bench.messages.All().size(), before + 2);
}

TEST(FrameLog, SpeaksInWordsKeepsSecretsAndStaysSmall) {
    Bench it;
    it.ReadSettings();
    bool name = false;
    bool secret = false;
    for (const LogLine& line : it.bench.log.Lines()) {
        name |= line.words == "read display 0x0050, 16 bytes: accepted" && !line.bytes.empty();
        secret |= line.words.starts_with("read display 0x02F0") && line.secret;
    }
    EXPECT_TRUE(name);
    EXPECT_TRUE(secret);
    Exchange poll;
    poll.board = 250;
    poll.command = 0x31;
    poll.poll = true;
    poll.end = Exchange::End::kAccepted;
    const auto before = it.bench.log.Lines().size();
    for (int i = 0; i < 86000; ++i) it.bench.log.ExchangeEnded(poll);
    EXPECT_EQ(it.bench.log.Lines().size(), before + 1);
    EXPECT_EQ(it.bench.log.Lines().back().times, 86000);
}

}  // namespace
}  // namespace kestrane
