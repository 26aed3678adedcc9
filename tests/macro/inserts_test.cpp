#include "editor_test_support.h"
#include "macro/instruction_set.h"

namespace kestrane {
namespace {

class Inserts : public testing::Test, public OfflineEditor {};

TEST_F(Inserts, StoreTheirOpcodeWithTheOperandThatTheyTake) {
    session.UnitType = "CMS";
    InEditor([&] {
        for (const InsertButton& button : editor.insert_buttons) {
            const auto opcode = static_cast<std::uint8_t>(button.opcode);
            const Instruction& row = *FindInstruction(opcode);
            Put(0x10, 0xAA, 0xAA);
            session.MacroChanged = false;
            Type(editor.txtGroup1, "5A");
            Type(editor.txtGroup2, "2C");
            Type(editor.txtSecondByteHex, "03");
            editor.lblTopStatus.SetCaption("old");
            Insert(button.opcode);
            std::string second = "03";
            if (row.operand == Operand::kNone) second = "00";
            if (row.operand == Operand::kMask1) second = "5A";
            if (row.operand == Operand::kMask2) second = "2C";
            EXPECT_EQ(At(0x10), HexByte(opcode) + " " + second) << button.caption;
            EXPECT_TRUE(session.MacroChanged);
            EXPECT_EQ(editor.lblTopStatus.Caption(), "");
            EXPECT_EQ(editor.Focused(), &editor.scrListScroll);
            EXPECT_EQ(state.MemPointer, 0x10);
            EXPECT_EQ(editor.lblMem1(0).Caption(), HexByte(opcode));
        }
    });
}

TEST_F(Inserts, OfOutletsTakeTheirOpcodeFromAlwaysWait) {
    InEditor([&] {
        Type(editor.txtSecondByteHex, "0A");
        for (int i = 0; i < ScriptEditForm::kOutlets; ++i) {
            const auto expect = [&](Button& button, int opcode) {
                Click(button);
                EXPECT_EQ(At(0x10), HexByte(static_cast<std::uint8_t>(opcode + i)) + " 0A");
            };
            SetChecked(editor.chkWait, true);
            expect(editor.cmdOff(i), 0x10);
            expect(editor.cmdOn(i), 0x20);
            SetChecked(editor.chkWait, false);
            expect(editor.cmdOff(i), 0x30);
            expect(editor.cmdOn(i), 0x40);
        }
        EXPECT_FALSE(session.MacroChanged);
    });
}

class SecondByteField : public testing::Test, public OfflineEditor {};

TEST_F(SecondByteField, EnablesAlarmAndSupplyForValuesThatTheyHold) {
    session.UnitType = "CMS";
    InEditor([&] {
        for (int value = 0; value < 256; ++value) {
            Type(editor.txtSecondByteHex, HexByte(static_cast<std::uint8_t>(value)));
            Click(editor.cmdSecondByteHexOK);
            EXPECT_EQ(editor.cmdInsertCommand(198).Enabled(), value <= 3);
            EXPECT_EQ(editor.cmdInsertCommand(199).Enabled(), value >= 1 && value <= 5);
        }
        // The time's button leaves them as they are.
        Type(editor.txtSecondByteTime, "0.2");
        editor.cmdSecondByteTimeOK.on_click();
        EXPECT_EQ(editor.txtSecondByteHex.Text(), "02");
        EXPECT_FALSE(editor.cmdInsertCommand(198).Enabled());
        EXPECT_FALSE(editor.cmdInsertCommand(199).Enabled());
    });
}

class OutletMask : public testing::Test, public OfflineEditor {};

TEST_F(OutletMask, IsTheSumOfTheTickedBoxes) {
    InEditor([&] {
        for (int mask = 0; mask < 256; ++mask) {
            for (CheckBox& box : editor.chkOutGroup1) SetChecked(box, (mask & box.index()) != 0);
            for (CheckBox& box : editor.chkOutGroup2) SetChecked(box, (mask & box.index()) != 0);
            EXPECT_EQ(HexValue(editor.txtGroup1.Text()), mask);
            EXPECT_EQ(HexValue(editor.txtGroup2.Text()), mask & 0x3F);
        }
        EXPECT_EQ(editor.txtGroup1.Text(), "FF");
        Click(editor.cmdClearLocks);
        EXPECT_EQ(editor.txtGroup1.Text(), "00");
        EXPECT_EQ(editor.txtGroup2.Text(), "00");
    });
}

TEST_F(OutletMask, ComesBackFromTheListing) {
    InEditor([&] {
        // 0xE8 and 0xEC have no button but a mask all the same.
        for (int opcode = 0xE5; opcode <= 0xEC; ++opcode) {
            const bool group2 = opcode == 0xE5 || opcode == 0xE9;
            SetChecked(editor.chkOutGroup1(1), true);
            SetChecked(editor.chkOutGroup2(1), true);
            Put(0x10, opcode, 0xF6);
            Click(editor.lblCommand(0));
            Click(editor.cmdReadLocks);
            EXPECT_EQ(editor.txtGroup1.Text(), group2 ? "01" : "F6") << opcode;
            EXPECT_EQ(editor.txtGroup2.Text(), group2 ? "36" : "01") << opcode;
            Click(editor.cmdClearLocks);
        }
        // The button is off for locks and latches, but the rule knows them.
        for (int opcode = 0; opcode < 256; ++opcode) {
            if (opcode >= 0xE5 && opcode <= 0xEC) continue;
            state.CurrentOpcode = static_cast<std::uint8_t>(opcode);
            state.CurrentSecondByte = 0x15;
            editor.cmdReadLocks.on_click();
            const bool lock = opcode >= 85 && opcode <= 92;
            EXPECT_EQ(editor.txtGroup1.Text(), lock && opcode % 2 == 0 ? "15" : "00");
            EXPECT_EQ(editor.txtGroup2.Text(), lock && opcode % 2 == 1 ? "15" : "00");
            Click(editor.cmdClearLocks);
        }
    });
}

}  // namespace
}  // namespace kestrane
