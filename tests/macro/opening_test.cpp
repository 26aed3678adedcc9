#include "editor_test_support.h"
#include "link/frame.h"
#include "macro/instruction_set.h"

namespace kestrane {
namespace {

class Opening : public testing::Test, public EditorOnUnit {};

TEST_F(Opening, AsksForStatusTriggersNamesAndProgramInThisOrder) {
    ReadSettings();
    world.tcpsend.ClearSent();
    std::vector<std::string> kinds;
    OpenEditor::InEditor(
        [&] {
            for (std::string frame : world.tcpsend.sent()) {
                RemoveEscapes(frame);
                const std::string kind = HexText(frame.substr(3, 2));
                if (kinds.empty() || kinds.back() != kind) kinds.push_back(kind);
            }
            // Status; triggers from 0x0200, names from 0x0060 and 0x0100; program; polls.
            ASSERT_GE(kinds.size(), 6u);
            EXPECT_EQ(kinds[0].substr(0, 2), "31");
            EXPECT_EQ(std::vector(kinds.begin() + 1, kinds.begin() + 5),
                      (std::vector<std::string>{"1102", "1100", "1101", "1100"}));
            EXPECT_EQ(kinds[5].substr(0, 2), "31");
            EXPECT_EQ(EditorProgram(), UnitProgram());
            EXPECT_EQ(editor.lblTitle.Caption(), Trim(network.txtUnitLocation.Text()));
            EXPECT_EQ(editor.lblTitle2.Caption(), Trim(network.txtUnitName.Text()));
            EXPECT_NE(editor.lblTitle2.Caption(), "Unit Name");
            EXPECT_EQ(editor.lblDesi(115).Caption(), form.names.txtMainUpper.Text());
            EXPECT_EQ(editor.lblDesi(216).Caption(), form.names.txtBackupLower.Text());
            EXPECT_EQ(editor.lblDesi(114).Caption(), form.names.txtOutUpper(13).Text());
            EXPECT_NE(editor.lblDesi(101).Caption(), "");
            EXPECT_NE(form.triggers.txtMTName(0).Text(), "");
            EXPECT_TRUE(editor.timUpdate.Enabled());
        },
        kOpening);
}

TEST_F(Opening, TakesNamesAndTriggersThatAreThere) {
    ReadSettings();
    form.triggers.txtMTName(0).SetText("there");
    form.names.txtMainUpper.SetText("Upper");
    form.names.txtOutLower(13).SetText("last");
    form.names.txtBackupUpper.SetText("Bk");
    world.tcpsend.ClearSent();
    OpenEditor::InEditor(
        [&] {
            EXPECT_EQ(editor.lblDesi(115).Caption(), "Upper");
            EXPECT_EQ(editor.lblDesi(214).Caption(), "last");
            EXPECT_EQ(editor.lblDesi(116).Caption(), "Bk");
            for (const std::string& frame : world.tcpsend.sent()) {
                EXPECT_NE(ByteAt(frame, 3), 251);
            }
        },
        kOpening);
}

// Each row of the table of what is shown on which type of unit.
TEST(EditorLayout, FollowsTheUnitType) {
    for (const auto type : {unit::UnitType::kCms, unit::UnitType::k636, unit::UnitType::kSingle}) {
        EditorOnUnit world(unit::UnitOptions{.type = type});
        const ScriptEditForm& editor = world.editor;
        world.InEditor([&] {
            const bool cms = type == unit::UnitType::kCms;
            const bool two = type != unit::UnitType::kSingle;
            for (const int opcode : {3, 4, 198}) {
                EXPECT_TRUE(editor.cmdInsertCommand(opcode).Visible());
            }
            for (const int opcode : {192, 193, 194, 195, 196, 197, 199}) {
                EXPECT_EQ(editor.cmdInsertCommand(opcode).Visible(), cms) << opcode;
            }
            EXPECT_EQ(editor.cmdInsertCommand(192).Caption(),
                      cms ? "CHANGE OVER INT" : "SUPPLY LOSS INT");
            EXPECT_EQ(editor.cmdInsertCommand(193).Caption(),
                      cms ? "CHANGE BACK INT" : "SUPPLY BACK INT");
            for (const Control* control : std::initializer_list<const Control*>{
                     &editor.imgFuse(15), &editor.pbLED(15), &editor.lblDesi(116),
                     &editor.lblDesi(216), &editor.imgFuse2Block, &editor.imgFuse7Block(0),
                     &editor.imgFuse7Block(1), &editor.lblFuseNo(14), &editor.lblFuseNo(15)}) {
                EXPECT_EQ(control->Visible(), two) << control->name();
            }
            EXPECT_TRUE(editor.pbLED(14).Visible());
            if (!two) return;
            EXPECT_EQ(editor.lblFuseNo(14).Caption(), cms ? "M" : "A");
            EXPECT_EQ(editor.lblFuseNo(15).Caption(), "B");
        });
    }
}

class OpeningOffline : public testing::Test, public OpenEditor<ToolOnLine> {};

// The form is complete by name, and each name leads to its own control.
TEST_F(OpeningOffline, FindsEachControlByItsName) {
    std::size_t buttons = 0;
    for (Control* control : editor.controls()) EXPECT_EQ(editor.Find(control->name()), control);
    for (int opcode = 0; opcode < 256; ++opcode) {
        const Instruction* row = FindInstruction(static_cast<std::uint8_t>(opcode));
        const bool has_button = row && row->outlet.empty() && !row->button.empty();
        const Control* found = editor.Find("cmdInsertCommand(" + std::to_string(opcode) + ")");
        EXPECT_EQ(found != nullptr, has_button) << opcode;
        buttons += has_button;
    }
    EXPECT_EQ(buttons, editor.cmdInsertCommand.size());
}

}  // namespace
}  // namespace kestrane
