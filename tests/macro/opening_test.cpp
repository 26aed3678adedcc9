#include "editor_test_support.h"
#include "macro/instruction_set.h"

namespace kestrane {
namespace {

class Opening : public testing::Test, public EditorOnUnit {};

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

// The form is complete by name, and each name leads to its own control.
TEST(EditorForm, FindsEachControlByItsName) {
    ToolOnLine tool;
    ScriptEditForm& editor = tool.tool.script_edit_form;
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
