#include <random>

#include "editor_test_support.h"
#include "link/frame.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

constexpr int kBlocks = 14;

class MacroTransfer : public testing::Test, public EditorOnUnit {
  protected:
    void FillUnit(const std::function<int()>& byte) {
        for (std::size_t at = 0x20; at < 0x100; ++at) peer.unit().Relay().Set(at, byte());
    }
    void FillEditor(const std::function<int()>& byte) {
        for (std::size_t at = 0x20; at < 0x100; ++at) {
            state.image.Set(at, static_cast<std::uint8_t>(byte()));
        }
    }
    std::vector<std::function<int()>> Images() {
        return {[] { return 0x10; }, [] { return 0xFF; }, [] { return 0; },
                [this] { return static_cast<int>(random_() & 0xFF); },
                [this] { return random_() & 1 ? 0x10 : 0x03; }};
    }
    std::minstd_rand random_;
};

TEST_F(MacroTransfer, TakesEveryImageUpWithoutALastOperandAndDownWhole) {
    InEditor([&] {
        for (const auto& image : Images()) {
            FillEditor(image);
            std::string expected = EditorProgram();
            expected.back() = '\0';
            session.MacroChanged = true;
            Click(editor.cmdUpload);
            EXPECT_EQ(HexText(UnitProgram()), HexText(expected));
            EXPECT_EQ(HexText(EditorProgram()), HexText(expected));
            EXPECT_FALSE(session.MacroChanged);
            peer.unit().Relay().Set(0xFF, 0x10);
            FillEditor([] { return 0x77; });
            Click(editor.cmdDownload);
            EXPECT_EQ(HexText(EditorProgram()), HexText(UnitProgram()));
        }
    });
}

TEST_F(MacroTransfer, TakesLittleMoreThanItsExchanges) {
    InEditor([&] {
        for (Button* button : {&editor.cmdDownload, &editor.cmdUpload}) {
            Wait(1500);
            const auto start = world.Now();
            Click(*button);
            EXPECT_LE(world.Now() - start, milliseconds(500 + kBlocks * 105));
        }
    });
}

TEST_F(MacroTransfer, LeavesABlockUnchangedForAShortReply) {
    InEditor([&] {
        FillUnit([] { return 0x22; });
        FillEditor([] { return 0x11; });
        Wait(1500);
        // The echo and ten bytes of data, the rest a tick later.
        peer.line().PassNext(2);
        peer.line().SplitNext(8 + 10, milliseconds(150));
        Click(editor.cmdDownload);
        EXPECT_EQ(state.image.Get(0x3F), 0x22);
        EXPECT_EQ(state.image.Get(0x40), 0x11);
        EXPECT_EQ(state.image.Get(0x4F), 0x11);
        EXPECT_EQ(state.image.Get(0x70), 0x22);
    });
}

// A press in the pause before the first block is the same press twice.
TEST_F(MacroTransfer, RunsOnceForTwoPresses) {
    InEditor([&] {
        Wait(1500);
        world.tcpsend.ClearSent();
        const int depth = world.loop.pump_depth();
        int pressed = 0;
        for (int i = 0; i < 40; ++i) {
            After(10 * i + 1, [&, i] {
                ++pressed;
                Click(i % 2 == 0 ? editor.cmdDownload : editor.cmdUpload);
                Click(editor.cmdGetStatus);
                Click(editor.cmdGoTo);
                EXPECT_EQ(world.loop.pump_depth(), depth + 1);
            });
        }
        Click(editor.cmdDownload);
        EXPECT_EQ(pressed, 40);
        EXPECT_EQ(world.tcpsend.sent().size(), kBlocks);
    });
}

// The connection goes in the middle, and the operator makes a new one before the wait of the old
// one has ended.
TEST(LostTransfer, EndsWithItsConnection) {
    for (const bool down : {true, false}) {
        for (const int when : {100, 520, 700, 1310, 1750}) {
            SCOPED_TRACE(when);
            EditorOnUnit world;
            world.InEditor([&] {
                world.Put(0x7E, 0x44, 0x44);
                world.After(when, [&] {
                    world.form.cmdDisconnect.on_click();
                    world.CloseEditor();
                    world.form.cmdConnect.on_click();
                });
                world.After(when + 300, [&] { world.network.cmdReadNetworkSettings.on_click(); });
                world.Click(down ? world.editor.cmdDownload : world.editor.cmdUpload);
            });
            world.Wait(3000);
            // Read settings is all that the new connection has carried.
            for (const auto& frame : world.world.tcpsend.frames()) {
                if (frame.connection < 2) continue;
                EXPECT_NE(ByteAt(frame.bytes, 4), kWriteMemory);
            }
            EXPECT_EQ(world.EditorProgram(), std::string(224, '\0'));
            EXPECT_NE(world.peer.unit().Relay().At(0xFC), 0x44);
            EXPECT_EQ(world.form.lblMemoryBlock.Caption(), "Reading memory complete.");
        }
    }
}

}  // namespace
}  // namespace kestrane
