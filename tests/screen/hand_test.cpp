// Controls, focus and the hand on the main form, without a tool behind them.

#include "screen/hand.h"

#include <gtest/gtest.h>

#include "macro/instruction_set.h"
#include "screen/main_form.h"
#include "screen/screen_helpers.h"
#include "screen/script_edit_form.h"
#include "screen/small_forms.h"
#include "support/virtual_platform.h"

namespace kestrane {
namespace {

struct HandTest : ::testing::Test {
    HandTest() { screen.Show(form); }

    void Log(const std::string& text) { log += text + " "; }
    void Watch(Control& control, const std::string& name) {
        control.on_validate = [this, name] { Log("validate " + name); };
        control.on_lost_focus = [this, name] { Log("lost " + name); };
        control.on_got_focus = [this, name] { Log("got " + name); };
        control.on_click = [this, name] { Log("click " + name); };
    }

    VirtualPlatform world;
    Screen screen{world.platform()};
    MainForm form{screen};
    HelpForm help{screen};
    int connection = 0;
    Hand hand{screen, [this] { return connection; }};
    std::string log;
};

TEST_F(HandTest, ASetterRunsItsHandlingForANewValueOnly) {
    form.network.chkDHCP.on_click = [this] { Log("dhcp"); };
    form.network.txtUnitName.on_change = [this] { Log("name"); };
    form.network.chkDHCP.SetChecked(false);
    form.network.txtUnitName.SetText("");
    EXPECT_EQ(log, "");
    form.network.chkDHCP.SetChecked(true);
    form.network.txtUnitName.SetText("a");
    EXPECT_EQ(log, "dhcp name ");
}

TEST_F(HandTest, LeavingValidatesThenLosesThenTheNextGets) {
    Watch(form.network.txtUnitName, "name");
    Watch(form.network.chkDHCP, "dhcp");
    hand.Type(form.network.txtUnitName, "x");
    hand.Click(form.network.chkDHCP);
    EXPECT_EQ(log, "got name validate name lost name got dhcp click dhcp ");
    log.clear();
    hand.Leave();
    hand.Leave();
    EXPECT_EQ(log, "validate dhcp lost dhcp ");
    EXPECT_EQ(form.Focused(), nullptr);
}

TEST_F(HandTest, TheProgramMovesTheFocusWithoutValidation) {
    Watch(form.network.txtUnitName, "name");
    form.SetFocus(form.network.txtUnitName);
    form.SetFocus(form.txtCurrentPort);
    EXPECT_EQ(log, "got name lost name ");
    form.network.fraNetworkSettings.SetEnabled(false);
    form.SetFocus(form.network.txtUnitName);
    EXPECT_EQ(form.Focused(), &form.txtCurrentPort) << "a disabled box takes no focus";
}

TEST_F(HandTest, ABoxThatTakesTheFocusBackWhenItIsLeftStopsTheHand) {
    TextBox& box = form.network.txtUnitName;
    Watch(form.network.chkDHCP, "dhcp");
    box.on_lost_focus = [&] { form.SetFocus(box); };
    hand.Type(box, "x");
    EXPECT_TRUE(hand.Click(form.network.chkDHCP));
    EXPECT_TRUE(hand.Type(form.network.txtUnitLocation, "y"));
    EXPECT_EQ(form.Focused(), &box);
    EXPECT_EQ(log, "");
    // One that only does something else lets it go on.
    box.on_lost_focus = [&] { form.network.txtUnitLocation.SetText("told"); };
    EXPECT_FALSE(hand.Click(form.network.chkDHCP));
    EXPECT_EQ(log, "got dhcp click dhcp ");
    // What was meant for one unit does not reach the next.
    hand.Type(box, "z");
    box.on_lost_focus = [&] { connection = 2; };
    log.clear();
    EXPECT_TRUE(hand.Click(form.network.chkDHCP));
    EXPECT_EQ(log, "got dhcp ");
}

TEST_F(HandTest, AChoiceLooksAgainAfterLeavingTheOldBox) {
    TextBox& box = form.network.txtUnitName;
    hand.Type(box, "x");
    box.on_lost_focus = [&] { form.SSTab1.SetTabEnabled(1, false); };
    EXPECT_TRUE(hand.Choose(form.SSTab1, 1));
    EXPECT_EQ(form.SSTab1.Tab(), 0);
}

TEST_F(HandTest, ACharacterTypedOverAnEqualOneIsAChange) {
    int changes = 0;
    form.network.txtUnitID.on_change = [&] { ++changes; };
    hand.Type(form.network.txtUnitID, "1");
    hand.Type(form.network.txtUnitID, "1");
    EXPECT_EQ(changes, 2);
}

TEST_F(HandTest, RefusesWhatCantBeReached) {
    TextBox& name = form.network.txtUnitName;
    const auto refused = [&] { return hand.Type(name, "x").has_value(); };
    EXPECT_FALSE(refused());
    name.SetEnabled(false);
    EXPECT_TRUE(refused());
    name.SetEnabled(true);
    form.network.fraNetworkSettings.SetEnabled(false);
    EXPECT_TRUE(refused());
    form.network.fraNetworkSettings.SetEnabled(true);
    form.SSTab1.SetTab(1);
    EXPECT_TRUE(refused());
    form.SSTab1.SetTab(0);
    form.SSTab1.SetTabEnabled(0, false);
    EXPECT_FALSE(refused()) << "whether the tab can be selected plays no part";
    help.on_activate = [&] {
        EXPECT_TRUE(refused()) << "behind a modal form";
        EXPECT_TRUE(hand.Close(help) == std::nullopt);
    };
    screen.ShowModal(help);
    EXPECT_FALSE(refused());
    EXPECT_TRUE(hand.Choose(form.SSTab1, 0)) << "a disabled tab";
    EXPECT_TRUE(hand.Click(form.lblVersion)) << "a label without a click";
}

TEST_F(HandTest, TypingGoesThroughFilterSelectionAndLength) {
    TextBox& box = form.names.txtMainUpper;
    form.SSTab1.SetTab(3);
    box.on_key_press = [](int& code) { code = code == 'x' ? 0 : code == 'y' ? 1 : code; };
    hand.Type(box, "axbycdefghij");
    EXPECT_EQ(box.Text(), "abcdefgh");
    box.SetText("longer than eight");
    EXPECT_EQ(box.Text().size(), 17u) << "the program may exceed the length";
    hand.Press(box, 'z');
    EXPECT_EQ(box.Text().size(), 17u);
    box.Select(0, 17);
    hand.Press(box, 'z');
    hand.Press(box, 8);
    hand.Press(box, 8);
    EXPECT_EQ(box.Text(), "");
    hand.Press(box, 13);
    EXPECT_EQ(box.Text(), "") << "control codes type nothing";
    box.SetText("abc");
    box.Select(1, 1);
    hand.Press(box, 0xE4);
    EXPECT_EQ(box.Text(),
              "a\xE4"
              "c");
    hand.Type(box, "");
    EXPECT_EQ(box.Text(), "");
}

TEST_F(HandTest, OptionButtonsExcludeEachOtherWithinTheirFrame) {
    form.OptButID(3).on_click = [this] { Log("3"); };
    form.OptButID(250).on_click = [this] { Log("250"); };
    form.SSTab1.SetTabVisible(6, true);
    form.changeover.optInLive(2).SetChosen(true);
    hand.Click(form.OptButID(3));
    EXPECT_EQ(log, "3 ");
    EXPECT_FALSE(form.OptButID(250).Chosen());
    EXPECT_TRUE(form.changeover.optInLive(2).Chosen());
}

TEST_F(HandTest, ATimerTicksInsideItsOwnHandlingAndAnIntervalOfZeroNever) {
    form.timGetResponse.SetEnabled(false);
    int depth = 0;
    int deepest = 0;
    form.timTimeout.on_timer = [&] {
        deepest = std::max(deepest, ++depth);
        if (depth < 5) world.Pump();
        --depth;
    };
    form.timTimeout.SetInterval(10);
    form.timTimeout.SetEnabled(true);
    world.RunFor(std::chrono::milliseconds(200));
    EXPECT_EQ(deepest, 5);
    form.timTimeout.SetInterval(0);
    deepest = 0;
    EXPECT_THROW(
        {
            for (;;) world.Pump();
        },
        NothingLeftToHappen);
    EXPECT_EQ(deepest, 0);
}

TEST_F(HandTest, HidingTheSelectedTabSelectsTheFirstVisibleOne) {
    form.SSTab1.on_click = [this] { Log(std::to_string(form.SSTab1.Tab())); };
    form.SSTab1.SetTab(8);
    form.SSTab1.SetTabVisible(7, false);
    form.SSTab1.SetTabVisible(8, false);
    EXPECT_EQ(log, "8 0 ");
}

TEST_F(HandTest, NamesAreUniqueAndEveryPropertyCanBeRead) {
    ScriptEditForm editor(screen, InsertButtons());
    for (Form* each : screen.forms()) {
        for (const Control* control : each->controls()) {
            EXPECT_EQ(each->Find(control->name()), control) << control->name();
            std::set<std::string> properties;
            for (const auto& [property, value] : control->Properties()) {
                EXPECT_TRUE(properties.insert(property).second) << control->name() << property;
            }
        }
    }
    EXPECT_EQ(form.Find("chkPriv(138)"), nullptr);
    EXPECT_EQ(form.privileges.chkPriv.size(), 48u);
}

TEST_F(HandTest, LabelsByTheFrameThatHoldsThem) {
    DisableLabels(form);
    for (const Control* control : form.controls()) {
        if (control->kind() == Kind::kLabel) {
            EXPECT_FALSE(control->Enabled()) << control->name();
        }
    }
    EnableLabels(form, "fraARP");
    EXPECT_TRUE(form.network.lblARP(2).Enabled());
    EXPECT_FALSE(form.network.lblIPAddress.Enabled());
    EXPECT_TRUE(form.fraMemoryBlock.Enabled());
}

}  // namespace
}  // namespace kestrane
