// Undo, redo and source text in the editor.

#include "editor_test_support.h"
#include "link/frame.h"

namespace kestrane {
namespace {

using testing::HasSubstr;

class Edits : public testing::Test, public OfflineEditor {
  protected:
    ProgramEdits& edits = tool.macro_editor.edits();
    // Buttons, boxes and fields as they are, then undone and done again.
    void ExpectOneStep(const std::string& name, const std::function<void()>& change) {
        SCOPED_TRACE(name);
        const MacroMemory before = state.image;
        const std::string trigger = form.triggers.txtMTName(0).Text();
        change();
        Wait(120);
        const MacroMemory after = state.image;
        EXPECT_EQ(edits.history().UndoName(), name);
        EXPECT_EQ(state.last_action, name);
        ASSERT_TRUE(edits.Undo());
        EXPECT_TRUE(state.image == before);
        EXPECT_EQ(form.triggers.txtMTName(0).Text(), trigger);
        EXPECT_EQ(editor.lblMem1(0).Caption(), HexByte(state.image.Opcode(state.ListTop)));
        EXPECT_EQ(edits.history().RedoName(), name);
        ASSERT_TRUE(edits.Redo());
        EXPECT_TRUE(state.image == after);
    }
};

TEST_F(Edits, EachChangeIsAStepThatCanBeUndone) {
    world.disk.files["x.sms"] = WriteMacroFile(
        "x",
        [] {
            TriggerRows rows;
            rows.fill({"Loaded", "0", "20", true});
            return rows;
        }(),
        MacroMemory(), "CMS");
    InEditor([&] {
        form.triggers.txtMTName(0).SetText("Before");
        editor.chkAutoIncrement.SetChecked(true);
        Wait(120);
        ExpectOneStep("Changed line 10", [&] { Insert(0x51); });
        ExpectOneStep("Changed line 11", [&] {
            MoveTo(0x11);
            Click(editor.cmdOn(3));
        });
        ExpectOneStep("Changed 33 lines", [&] { Click(editor.cmdBasicSettings); });
        ExpectOneStep("Loaded x.sms", [&] {
            world.files.Choose("x.sms");
            Click(editor.cmdLoadFile);
        });
        EXPECT_EQ(form.triggers.txtMTName(0).Text(), "Loaded");
        ExpectOneStep("Pasted 2 lines", [&] {
            MoveTo(0x20);
            EXPECT_EQ(edits.Paste("here: ON 2 0.5\n GOTO here\n"), std::nullopt);
        });
        ExpectOneStep("Cleared the program", [&] { Click(editor.cmdClearMem); });
        while (edits.Undo()) {
        }
        EXPECT_TRUE(state.image == MacroMemory());
        EXPECT_FALSE(edits.Undo());
        for (int i = 0; i < 8; ++i) edits.Redo();
        EXPECT_FALSE(edits.Redo());
    });
    EXPECT_FALSE(edits.Undo()) << "with the form closed";
}

// Saving, moving and polling are no steps; the oldest fall out of a long history.
TEST_F(Edits, OnlyChangesAreStepsAndTheirNumberIsBounded) {
    InEditor([&] {
        form.triggers.txtMTName(2).SetText("short");
        Wait(120);
        const std::string before = edits.history().UndoName();
        world.files.Choose("y.sms");
        Click(editor.cmdSaveFile);
        MoveTo(0x33);
        Wait(300);
        EXPECT_EQ(edits.history().UndoName(), before);
        EXPECT_EQ(state.last_action, "Saved y.sms");
        EXPECT_EQ(state.file_name, "y.sms");
        for (int i = 0; i < 300; ++i) {
            Insert(i % 2 == 0 ? 0x51 : 0x52);
            Wait(120);
        }
        std::size_t steps = 0;
        while (edits.Undo()) ++steps;
        EXPECT_EQ(steps, EditHistory::kMostSteps);
    });
}

TEST_F(Edits, LinesComeAndGoAsSourceText) {
    InEditor([&] {
        Click(editor.cmdBasicSettings);
        const MacroMemory program = state.image;
        const std::string lines = edits.Lines(0x10, 0x14);
        EXPECT_THAT(lines, HasSubstr("Alarm status Flash and Beep"));
        Click(editor.cmdClearMem);
        MoveTo(0x10);
        EXPECT_EQ(edits.Paste(lines), std::nullopt);
        for (int address = 0x10; address <= 0x14; ++address) {
            const auto at = static_cast<std::uint8_t>(address);
            EXPECT_EQ(state.image.Opcode(at), program.Opcode(at));
            EXPECT_EQ(state.image.SecondByte(at), program.SecondByte(at));
        }
        EXPECT_EQ(editor.scrListScroll.ScrollValue(), 0x15);
        EXPECT_TRUE(session.MacroChanged);
        // A fault changes nothing.
        const MacroMemory before = state.image;
        EXPECT_THAT(edits.Paste("Stop\nTurn on outlet 15\n").value_or(""), HasSubstr("Line 2: "));
        EXPECT_NE(edits.Paste("; nothing\n"), std::nullopt);
        EXPECT_TRUE(state.image == before);
    });
}

TEST_F(Edits, NamesAndFindingsStandBesideAddresses) {
    InEditor([&] {
        MoveTo(0x20);
        EXPECT_EQ(edits.Paste("loop: ON 2 0.0\n ON 3 0.0\n GOTO loop\n"), std::nullopt);
        form.triggers.txtMTName(1).SetText("Caf\xE9");
        form.triggers.txtMTAddress(1).SetText("20");
        form.triggers.txtMTPage(1).SetText("0");
        form.triggers.chkMacro(1).SetChecked(true);
        EXPECT_EQ(edits.NamesAt(0x20), "loop, trigger 2 \"Caf\xC3\xA9\"");
        EXPECT_EQ(edits.NamesAt(0x21), "");
        world.disk.files["s.txt"] = "on: loop: ON 2 1\n GOTO on\n";
        world.files.Choose("s.txt");
        Wait(120);
        Click(editor.cmdLoadFile);
        Wait(120);
        EXPECT_EQ(edits.NamesAt(0x10) + "|" + edits.NamesAt(0x20),
                  "loop, on|trigger 2 \"Caf\xC3\xA9\"");
        EXPECT_TRUE(edits.Undo());
        EXPECT_EQ(edits.NamesAt(0x20), "loop, trigger 2 \"Caf\xC3\xA9\"");
        Put(0x21, 0x06, 0x00);
        bool illegal = false;
        for (const Finding& finding : edits.Findings()) {
            illegal |= !finding.IsWarning() && finding.address == 0x21;
        }
        EXPECT_TRUE(illegal);
    });
}

class EditsOnUnit : public testing::Test, public EditorOnUnit {};

TEST_F(EditsOnUnit, LinesThatDifferFromTheUnitAreKnown) {
    InEditor([&] {
        const auto& unit = tool.macro_editor.unit_program();
        const auto differing = [&] {
            int count = 0;
            for (int at = 0x10; at < 0x80; ++at) {
                count += unit.Differs(state.image, static_cast<std::uint8_t>(at));
            }
            return count;
        };
        EXPECT_EQ(differing(), 0);
        EXPECT_FALSE(tool.macro_editor.edits().Undo()) << "the opening's download is no step";
        editor.cmdInsertCommand(0x51).on_click();
        EXPECT_EQ(differing(), 1);
        EXPECT_TRUE(unit.Differs(state.image, 0x10));
        Click(editor.cmdUpload);
        EXPECT_EQ(differing(), 0);
        Click(editor.cmdClearMem);
        EXPECT_GT(differing(), 10);
        Wait(150);
        // The download is a step of its own.
        Click(editor.cmdDownload);
        EXPECT_EQ(differing(), 0);
        ASSERT_TRUE(tool.macro_editor.edits().Undo());
        EXPECT_TRUE(state.image == MacroMemory());
    });
}

}  // namespace
}  // namespace kestrane
