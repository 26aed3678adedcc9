#include "editor_test_support.h"

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

}  // namespace
}  // namespace kestrane
