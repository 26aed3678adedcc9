#include "editor_test_support.h"
#include "link/frame.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;

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

TEST_F(Closing, IsSafeAtAnyMomentOfADownload) {
    for (int when = 1; when < 2200; when += 97) {
        CloseAt(when, [](EditorOnUnit& world) { world.Click(world.editor.cmdDownload); });
    }
}

TEST_F(Closing, IsSafeAtAnyMomentOfAnUpload) {
    for (int when = 1; when < 2200; when += 97) {
        CloseAt(when, [](EditorOnUnit& world) { world.Click(world.editor.cmdUpload); });
    }
}

TEST_F(Closing, IsSafeInAGoToThatIsNotAnsweredRight) {
    for (int when = 1; when < 1000; when += 49) {
        CloseAt(when, [](EditorOnUnit& world) {
            for (int i = 0; i < 12; ++i) world.peer.line().GarbleNext(3);
            world.Click(world.editor.cmdGoTo);
        });
    }
}

TEST_F(Closing, IsSafeInAPollAndInTrace) {
    for (int when = 1; when < 300; when += 13) {
        CloseAt(when, [&](EditorOnUnit& world) {
            world.SetChecked(world.editor.chkTrace, when % 2 == 0);
            world.Click(world.editor.cmdGetStatus);
            world.Wait(when + 1);
        });
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

}  // namespace
}  // namespace kestrane
