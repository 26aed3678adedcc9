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
