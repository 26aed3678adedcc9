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

TEST_F(Listing, OffersReadLocksForInhibitsAlone) {
    InEditor([&] {
        for (int opcode = 0; opcode < 256; ++opcode) {
            Put(0x10, opcode, 0);
            Click(editor.lblCommand(0));
            EXPECT_EQ(editor.cmdReadLocks.Enabled(), opcode >= 0xE5 && opcode <= 0xEC) << opcode;
        }
    });
}

}  // namespace
}  // namespace kestrane
