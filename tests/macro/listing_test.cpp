#include "editor_test_support.h"
#include "macro/instruction_set.h"

namespace kestrane {
namespace {

class Listing : public testing::Test, public OfflineEditor {
  protected:
    // Every row shows the bytes of its address, and the outline stands on the cursor's row alone.
    void ExpectRows() {
        for (int row = 0; row < ScriptEditForm::kRows; ++row) {
            const int address = state.ListTop + row;
            const std::string at = At(address);
            EXPECT_EQ(editor.lblMem(row).Caption(), HexByte(static_cast<std::uint8_t>(address)));
            EXPECT_EQ(editor.lblMem1(row).Caption(), at.substr(0, 2));
            EXPECT_EQ(editor.lblMem2(row).Caption(), at.substr(3, 2));
            EXPECT_EQ(editor.lblCommand(row).Caption(),
                      CmdDecode(HexValue(at.substr(0, 2)), HexValue(at.substr(3, 2)), ""));
            EXPECT_EQ(editor.shpOutline(row).Visible(), row == state.ListRow);
        }
    }
};

TEST_F(Listing, MovesAsLittleAsItCanForEveryPairOfCursors) {
    InEditor([&] {
        for (int address = 0x10; address <= 0x7F; ++address) Put(address, address, 255 - address);
        for (int from = 16; from <= 127; ++from) {
            for (int to = 16; to <= 127; ++to) {
                MoveTo(from);
                const int top = state.ListTop;
                MoveTo(to);
                const int moved = to < top ? to : to > top + 15 ? to - 15 : top;
                ASSERT_EQ(state.ListTop, moved) << from << " to " << to;
                ASSERT_EQ(state.ListTop + state.ListRow, to);
                ASSERT_EQ(state.MemPointer, to);
            }
            ExpectRows();
        }
        EXPECT_EQ(state.ListTop, 0x70);
        EXPECT_EQ(state.ListRow, 15);
        EXPECT_EQ(editor.lblMem(15).Caption(), "7F");
    });
}

TEST_F(Listing, KeepsTheCursorInTheMiddleInTrace) {
    InEditor([&] {
        MoveTo(0x20);
        SetChecked(editor.chkTrace, true);
        for (int cursor = 16; cursor <= 127; ++cursor) {
            MoveTo(cursor);
            ASSERT_EQ(state.ListTop, cursor < 24 ? 16 : cursor - 7);
            ASSERT_EQ(state.ListTop + state.ListRow, cursor);
            ASSERT_EQ(state.MemPointer, 0x20);
            ExpectRows();
        }
    });
}

// Beyond the range that the scroll bar has from the start; a script can widen it.
TEST_F(Listing, StaysWithinTheAddressSpaceInTrace) {
    InEditor([&] {
        editor.scrListScroll.Assign("max", 255L);
        SetChecked(editor.chkTrace, true);
        for (int cursor = 128; cursor <= 255; ++cursor) {
            MoveTo(cursor);
            ASSERT_EQ(state.ListTop, cursor >= 247 ? 239 : cursor - 7);
            ASSERT_EQ(state.ListTop + state.ListRow, cursor);
        }
        ExpectRows();
    });
}

TEST_F(Listing, IsCentredByTickingTraceAndLeftByClearingIt) {
    InEditor([&] {
        MoveTo(0x40);
        EXPECT_EQ(state.ListTop, 0x31);
        SetChecked(editor.chkTrace, true);
        EXPECT_EQ(state.ListTop, 0x39);
        EXPECT_EQ(state.ListRow, 7);
        EXPECT_TRUE(editor.timTrace.Enabled());
        EXPECT_FALSE(editor.timUpdate.Enabled());
        MoveTo(0x50);
        SetChecked(editor.chkTrace, false);
        EXPECT_EQ(state.MemPointer, 0x40);
        EXPECT_FALSE(editor.timTrace.Enabled());
        EXPECT_TRUE(editor.timUpdate.Enabled());
    });
}

TEST_F(Listing, ReadsAClickedRowAfterTheRefresh) {
    InEditor([&] {
        Put(0x15, 0xE7, 0x55);
        Put(0x1C, 0x58, 0x0F);
        MoveTo(0x20);
        Click(editor.lblCommand(4));
        EXPECT_EQ(state.MemPointer, 0x15);
        EXPECT_EQ(state.CurrentOpcode, 0xE7);
        EXPECT_EQ(state.CurrentSecondByte, 0x55);
        // In trace the list moves below the click: row 12 held 0x1C and holds 0x21 then.
        SetChecked(editor.chkTrace, true);
        Put(0x21, 0xE5, 0x03);
        Click(editor.lblCommand(12));
        EXPECT_EQ(editor.scrListScroll.ScrollValue(), 0x1C);
        EXPECT_EQ(state.CurrentOpcode, 0xE5);
        EXPECT_EQ(state.CurrentSecondByte, 0x03);
        // The last rows of the trace lie beyond the scroll bar.
        MoveTo(0x7F);
        Click(editor.lblCommand(15));
        EXPECT_EQ(editor.scrListScroll.ScrollValue(), 0x7F);
        EXPECT_EQ(state.ListRow, 7);
    });
}

TEST_F(Listing, OffersReadLocksForInhibitsAlone) {
    InEditor([&] {
        for (int opcode = 0; opcode < 256; ++opcode) {
            Put(0x10, opcode, 0);
            Click(editor.lblCommand(0));
            EXPECT_EQ(editor.cmdReadLocks.Enabled(), opcode >= 0xE5 && opcode <= 0xEC) << opcode;
        }
    });
}

TEST_F(Listing, ClearsTheProgramAndGoesToItsStart) {
    InEditor([&] {
        for (std::size_t i = 0; i < MacroMemory::kSize; ++i) state.image.Set(i, 0xAB);
        MoveTo(0x60);
        SetChecked(editor.chkTrace, true);
        Click(editor.cmdClearMem);
        EXPECT_FALSE(editor.chkTrace.Checked());
        EXPECT_EQ(editor.scrListScroll.ScrollValue(), 16);
        EXPECT_EQ(state.image.Get(255), 0);
        EXPECT_EQ(state.image.Get(0), 0);
        EXPECT_EQ(state.image.Get(256), 0xAB);
        EXPECT_FALSE(session.MacroChanged);
        ExpectRows();
    });
}

TEST_F(Listing, HoldsTheStandardProgram) {
    InEditor([&] {
        Put(0x7F, 1, 1);
        Click(editor.cmdBasicSettings);
        const char* const begin[] = {"C6 03", "03 00", "D2 1A", "D3 2A", "04 00", "00 00"};
        for (int i = 0; i < 6; ++i) EXPECT_EQ(At(0x10 + i), begin[i]);
        const auto opcode = [](int value) { return HexByte(static_cast<std::uint8_t>(value)); };
        for (int i = 0; i < 14; ++i) {
            EXPECT_EQ(At(0x1A + i), opcode(0x40 + i) + " 05");
            EXPECT_EQ(At(0x2A + i), opcode(0x3D - i) + " 05");
        }
        for (const int stop : {0x19, 0x28, 0x29, 0x38, 0x7F}) EXPECT_EQ(At(stop), "00 00");
        EXPECT_EQ(editor.lblCommand(10).Caption(),
                  "Turn on outlet  1 after 0.5 seconds, skip if already on");
        EXPECT_FALSE(session.MacroChanged);
    });
}

}  // namespace
}  // namespace kestrane
