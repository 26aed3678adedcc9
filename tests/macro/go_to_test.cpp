#include "editor_test_support.h"
#include "link/frame.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;

constexpr char kInvalid[] =
    "Invalid Address.|Hex address for GoTo is not valid. Must be between hex 10 and 7E";

class GoToBox : public testing::Test, public OfflineEditor {};

TEST_F(GoToBox, AcceptsTheAddressesOfAProgram) {
    InEditor([&] {
        for (int address = 0; address < 256; ++address) {
            const bool good = address >= 0x10 && address <= 0x7E;
            const auto boxes = world.boxes.shown().size();
            const int beeps = world.sound.beeps();
            const std::string text = HexByte(static_cast<std::uint8_t>(address));
            Type(editor.txtGoTo, "");
            Type(editor.txtGoTo, text);
            EXPECT_EQ(editor.txtGoTo.ForeColor(), kRed);
            EXPECT_FALSE(tool.hand.GoTo(editor.scrListScroll));
            EXPECT_EQ(editor.txtGoTo.Text(), good ? text : "");
            EXPECT_EQ(editor.txtGoTo.ForeColor(), good ? kBlack : kRed);
            EXPECT_EQ(world.boxes.shown().size() - boxes, good ? 0u : 1u) << text;
            EXPECT_EQ(world.sound.beeps() - beeps, good ? 0 : 1);
            // No address at all lets the focus go.
            const bool back = !good && address != 0;
            EXPECT_EQ(editor.Focused(),
                      back ? static_cast<Control*>(&editor.txtGoTo) : &editor.scrListScroll);
            if (!good) {
                EXPECT_EQ(LastBox(), kInvalid);
            }
        }
        for (const char* text : {"7", "123", "GG", ""}) {
            Type(editor.txtGoTo, "20");
            Type(editor.txtGoTo, text);
            EXPECT_FALSE(tool.hand.GoTo(editor.scrListScroll));
            EXPECT_EQ(editor.txtGoTo.Text(), "");
        }
        Type(editor.txtGoTo, "2a");
        tool.hand.Leave();
        EXPECT_EQ(editor.txtGoTo.Text(), "2A");
    });
}

TEST_F(GoToBox, AsksNothingWhenTheFormIsClosed) {
    InEditor([&] {
        Type(editor.txtGoTo, "FF");
        CloseEditor();
        EXPECT_TRUE(world.boxes.shown().empty());
    });
}

class GoToLine : public testing::Test, public EditorOnUnit {
  protected:
    std::vector<std::string> Addresses() const {
        std::vector<std::string> sent;
        for (const std::string& text : SentTexts()) {
            if (text.substr(2, 2) == "61") sent.push_back(text.substr(4));
        }
        return sent;
    }
};

TEST_F(GoToLine, MovesTheUnitsMacroAndInTraceTheCursor) {
    InEditor([&] {
        const int cursor = editor.scrListScroll.ScrollValue();
        Type(editor.txtGoTo, "2B");
        Wait(100);
        world.tcpsend.ClearSent();
        const auto start = world.Now();
        Click(editor.cmdGoTo);
        EXPECT_EQ(Addresses(), std::vector<std::string>{"2B"});
        EXPECT_EQ(world.tcpsend.sent().size(), 1u);
        EXPECT_GE(world.tcpsend.frames()[0].time - start, milliseconds(200));
        EXPECT_EQ(editor.scrListScroll.ScrollValue(), cursor);
        EXPECT_TRUE(editor.timUpdate.Enabled());
        EXPECT_FALSE(editor.timTrace.Enabled());

        peer.unit().Relay().Set(2 * 0x40, 0x02);  // a long wait, so that the pointer stands still
        peer.unit().Relay().Set(2 * 0x40 + 1, 0xFF);
        Type(editor.txtGoTo, "40");
        SetChecked(editor.chkTrace, true);
        Click(editor.cmdGoTo);
        EXPECT_EQ(editor.scrListScroll.ScrollValue(), 0x40);
        EXPECT_EQ(state.ListRow, 7);
        EXPECT_TRUE(editor.timTrace.Enabled());
        EXPECT_FALSE(editor.timUpdate.Enabled());
    });
}

TEST_F(GoToLine, RepeatsWithoutLimitUntilTheUnitAnswersToIt) {
    InEditor([&] {
        Wait(150);
        for (int i = 0; i < 50; ++i) peer.line().GarbleNext(3);
        world.tcpsend.ClearSent();
        Click(editor.cmdGoTo);
        EXPECT_EQ(Addresses().size(), 51u);
    });
}

TEST_F(GoToLine, PressedInSilenceAgainAndAgainSendsButWaitsOnce) {
    InEditor([&] {
        Wait(150);
        peer.line().DropNext(30);
        world.tcpsend.ClearSent();
        for (int i = 0; i < 30; ++i) {
            After(500 + 100 * i, [&] {
                editor.txtGoTo.SetText("3C");
                Click(editor.cmdGoTo);
            });
        }
        const int depth = world.loop.pump_depth();
        After(3000, [&] { EXPECT_LE(world.loop.pump_depth(), depth + 2); });
        Click(editor.cmdGoTo);
        EXPECT_EQ(Addresses().front(), "10");
        EXPECT_EQ(Addresses().back(), "3C");
        EXPECT_TRUE(editor.timUpdate.Enabled());
    });
}

}  // namespace
}  // namespace kestrane
