// The editor opened inside a wait of the main form, which can't end before the editor closes.

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

struct Nested : ::testing::Test, ToolOnUnit {
    Nested() { ReadSettings(); }

    ScriptEditForm& editor = tool.script_edit_form;
};

TEST_F(Nested, ThePictureFollowsTheUnitWhileACommandWaitsBelow) {
    form.SSTab1.SetTab(4);
    int before = 0;
    int after = 0;
    After(50, [&] { Click(form.triggers.cmdEditMacro); });
    After(5'000, [&] {
        before = editor.pbLED(14).Picture();
        peer.unit().SetSupply(unit::Supply::kMain, false, world.Now());
    });
    After(7'000, [&] {
        after = editor.pbLED(14).Picture();
        tool.hand.Close(editor);
    });
    // The reply to this one comes while the editor stands on its wait.
    peer.line().DropNext(1);
    const Link::Operation operation(tool.link, "Test");
    tool.link.Command(ReadCommand(session.RelayAddress, 0));
    EXPECT_NE(before, after);
}

TEST_F(Nested, APollLeftBehindByASilentUnitDoesNotHoldUpTheNextOpening) {
    form.SSTab1.SetTab(4);
    int before = 0;
    int after = 0;
    After(3'000, [&] { world.tcpsend.Attach(nullptr); });  // silent from here on
    After(4'000, [&] { tool.hand.Close(editor); });
    After(4'100, [&] { Click(form.cmdDisconnect); });
    After(4'200, [&] {
        world.tcpsend.Attach(&peer);
        Click(form.cmdConnect);
    });
    After(5'000, [&] { Click(network.cmdReadNetworkSettings); });
    After(8'000, [&] {
        form.SSTab1.SetTab(4);
        Click(form.triggers.cmdEditMacro);
    });
    After(12'000, [&] {
        before = editor.pbLED(14).Picture();
        peer.unit().SetSupply(unit::Supply::kMain, false, world.Now());
    });
    After(13'000, [&] {
        after = editor.pbLED(14).Picture();
        tool.hand.Close(editor);
    });
    Click(form.triggers.cmdEditMacro);
    Wait(14'000);
    EXPECT_NE(before, after);
}

}  // namespace
}  // namespace kestrane
