#include <map>

#include "editor_test_support.h"
#include "link/frame.h"

namespace kestrane {
namespace {

// Closing the editor at any moment of whatever waits in it.
class Closing : public testing::Test {
  protected:
    // Begins `action` in the open editor and closes it `when` milliseconds later, in the middle of
    // it or behind it. Afterwards nothing of it may be alive.
    static void CloseAt(int when, const std::function<void(EditorOnUnit&)>& action) {
        SCOPED_TRACE(when);
        EditorOnUnit world;
        const auto close = [&] {
            world.CloseEditor();
            world.After(1, [&] {
                // The image can still be looked at; a script may even fill it.
                world.Put(0x10, 0x52, 0x01);
                world.editor.lblTopStatus.SetCaption("closed");
            });
        };
        world.InEditor([&] {
            world.After(when, close);
            action(world);
            if (world.editor.Visible()) world.Wait(when + 1);
        });
        world.Wait(500);
        const auto sent = world.world.tcpsend.sent().size();
        world.Wait(5000);
        EXPECT_EQ(world.world.tcpsend.sent().size(), sent);
        EXPECT_EQ(world.At(0x10), "52 01");
        EXPECT_EQ(world.At(0x11), "00 00");
        EXPECT_EQ(world.editor.lblTopStatus.Caption(), "closed");
        EXPECT_EQ(world.editor.Pointer(), Form::kArrow);
        // It can be opened again and works as before.
        world.OpenEditor::InEditor(
            [&] {
                EXPECT_EQ(world.EditorProgram(), world.UnitProgram());
                EXPECT_EQ(world.editor.lblTopStatus.Caption(), "Download completed.");
                EXPECT_TRUE(world.editor.timUpdate.Enabled());
            },
            EditorOnUnit::kOpening);
    }
};

TEST_F(Closing, IsSafeAtAnyMoment) {
    struct Case {
        const char* name;
        int until;
        int step;
        void (*begin)(EditorOnUnit& world, int when);
    };
    const Case kCases[] = {
        {"download", 2200, 97,
         [](EditorOnUnit& world, int) { world.Click(world.editor.cmdDownload); }},
        {"upload", 2200, 97, [](EditorOnUnit& world, int) { world.Click(world.editor.cmdUpload); }},
        {"go-to that is not answered right", 1000, 49,
         [](EditorOnUnit& world, int) {
             for (int i = 0; i < 12; ++i) world.peer.line().GarbleNext(3);
             world.Click(world.editor.cmdGoTo);
         }},
        {"poll and trace", 300, 13,
         [](EditorOnUnit& world, int when) {
             world.SetChecked(world.editor.chkTrace, when % 2 == 0);
             world.Click(world.editor.cmdGetStatus);
             world.Wait(when + 1);
         }},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        for (int when = 1; when < c.until; when += c.step) {
            CloseAt(when, [&](EditorOnUnit& world) { c.begin(world, when); });
        }
    }
}

TEST_F(Closing, IsSafeInTheMiddleOfTheOpening) {
    EditorOnUnit world;
    world.ReadSettings();
    for (int when = 1; when < 5000; when += 173) {
        world.form.triggers.txtMTName(0).SetText("");
        world.form.names.txtMainUpper.SetText("");
        world.OpenEditor::InEditor([] {}, when, false);
        EXPECT_EQ(world.EditorProgram(), std::string(224, '\0'));
    }
}

TEST_F(Closing, OfTheMainFormEndsTheProgramFromWithinAnyWait) {
    for (int when = 1; when < 2500; when += 211) {
        EditorOnUnit world;
        world.ReadSettings();
        world.After(1, [&] { world.PressEdit(); });
        world.After(when, [&] { EXPECT_FALSE(world.tool.hand.Close(world.form)); });
        EXPECT_THROW(world.Wait(3000), ProgramEnded) << when;
        EXPECT_EQ(world.world.tcpsend.State(), SocketState::kClosed);
    }
}

TEST_F(Closing, LeavesAnUnansweredPollHarmless) {
    EditorOnUnit world;
    world.ReadSettings();
    world.peer.line().DropNext(1000);
    bool returned = false;
    // Nothing answers: the opening stands in its first poll, and so does each that follows it, but
    // not upon each other.
    for (int i = 0; i < 30; ++i) {
        world.After(100 + 2000 * i, [&] {
            world.PressEdit();
            returned = true;
        });
        world.After(1100 + 2000 * i, [&] { world.CloseEditor(); });
    }
    world.Wait(61'000);
    EXPECT_LT(world.world.loop.max_pump_depth(), 20);
    world.Wait(10'000);
    EXPECT_FALSE(world.editor.timUpdate.Enabled());
}

// In a silence one wait of each kind stands; the form is closed and opened again, in one event or
// later, and the unit answers from then on.
TEST_F(Closing, WhatWaitsDoesNotHoldUpTheNextOpening) {
    for (const int pause : {0, 1, 40, 20'000}) {
        SCOPED_TRACE(pause);
        EditorOnUnit world;
        ScriptEditForm& editor = world.editor;
        world.ReadSettings();
        const auto reopen = [&] {
            world.world.tcpsend.Attach(&world.peer);
            world.PressEdit();
        };
        world.After(1, [&] { world.PressEdit(); });
        world.After(9000, [&] { world.world.tcpsend.Attach(nullptr); });
        world.After(9100, [&] { world.Click(editor.cmdGetStatus); });
        world.After(9200, [&] { world.Click(editor.cmdGoTo); });
        world.After(9700, [&] { world.SetChecked(editor.chkTrace, true); });
        world.After(12'000, [&] {
            world.CloseEditor();
            if (pause == 0) reopen();
        });
        if (pause > 0) world.After(12'000 + pause, reopen);
        int before = -1;
        world.After(20'000 + pause, [&] {
            before = editor.pbLED(14).Picture();
            world.peer.unit().SetSupply(unit::Supply::kMain, false, world.world.Now());
        });
        bool checked = false;
        world.After(22'000 + pause, [&] {
            EXPECT_NE(editor.pbLED(14).Picture(), before) << "the poll";
            // The unit's macro stands at 40.
            world.peer.unit().Relay().Set(2 * 0x40, 0x02);
            world.peer.unit().Relay().Set(2 * 0x40 + 1, 0xFF);
            world.Type(editor.txtGoTo, "40");
            world.Click(editor.cmdGoTo);
            world.SetChecked(editor.chkTrace, true);
            world.Wait(500);
            EXPECT_EQ(editor.scrListScroll.ScrollValue(), 0x40);
            world.SetChecked(editor.chkTrace, false);
            world.Click(editor.cmdGetStatus);
            EXPECT_EQ(editor.scrListScroll.ScrollValue(), 0x10);
            world.CloseEditor();
            checked = true;
        });
        world.Wait(30'000 + pause);
        EXPECT_TRUE(checked);
        EXPECT_FALSE(editor.Visible());
        EXPECT_EQ(world.world.loop.pump_depth(), 0);
    }
}

TEST_F(Closing, InTheMidstOfAnUploadSaysWhatTheUnitHolds) {
    EditorOnUnit world;
    world.InEditor([&] {
        // A close, the question after changes answered with No first.
        world.session.MacroChanged = true;
        world.world.boxes.Answer(BoxButton::kNo);
        world.After(900, [&] { world.CloseEditor(); });
        world.After(950, [&] { EXPECT_TRUE(world.editor.Visible()); });
        world.After(1000, [&] { world.CloseEditor(); });
        world.Click(world.editor.cmdUpload);
    });
    ASSERT_EQ(world.world.boxes.shown().size(), 3u);
    EXPECT_EQ(world.world.boxes.shown()[1].title, "Any changes?");
    EXPECT_THAT(world.LastBox(),
                testing::MatchesRegex("Upload not finished.\\|The macro program in the unit is not "
                                      "whole: blocks 10 to .7 are new, .8 to .F may be either, the "
                                      "rest old.*"));
}

// Each type of unit after each other one, and what may be pressed after a transfer cut short.
TEST_F(Closing, TheNextOpeningIsLikeTheFirst) {
    EditorOnUnit world;
    ScriptEditForm& editor = world.editor;
    const auto look = [&] {
        std::string seen;
        for (const Control* control : editor.controls()) {
            if (control->kind() == Kind::kTimer) continue;
            seen += control->name() + (control->Visible() ? "+" : "-") +
                    (control->Enabled() ? "+ " : "- ");
        }
        return seen;
    };
    world.ReadSettings();
    std::map<std::string, std::string> first;
    for (const char* type : {"CMS", "636", "", "CMS", "636", "CMS", "", "636", ""}) {
        world.session.UnitType = type;
        world.After(9000, [&] { world.Click(editor.cmdUpload); });
        world.OpenEditor::InEditor(
            [&] {
                EXPECT_EQ(editor.imgFuse7Block(0).Visible(), *type != '\0');
                EXPECT_EQ(editor.cmdUpload.BackColor(), kButtonFace);
                EXPECT_EQ(first.emplace(type, look()).first->second, look()) << type;
                world.Wait(1200);  // into the upload
            },
            EditorOnUnit::kOpening);
    }
}

}  // namespace
}  // namespace kestrane
