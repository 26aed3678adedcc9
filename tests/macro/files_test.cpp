#include "editor_test_support.h"

namespace kestrane {
namespace {

constexpr char kTriggersChanged[] =
    "Upload Macro Triggers?|The Macro Triggers have been changed by the SMS import.\r\nPlease "
    "click the Write Macro Triggers button to upload them if required.";

class MacroFilesTest : public testing::Test, public OfflineEditor {
  protected:
    MacroFilesTest() {
        for (int row = 0; row < TriggersTab::kRows; ++row) {
            const std::string address = HexByte(static_cast<std::uint8_t>(0x10 + row));
            form.triggers.txtMTName(row).SetText("Trigger" + address.substr(1));
            form.triggers.txtMTPage(row).SetText("0");
            form.triggers.txtMTAddress(row).SetText(address);
            form.triggers.chkMacro(row).SetChecked(row % 2 == 0);
        }
    }
    std::string& Content(const std::string& path) { return world.disk.files[path]; }
    void Save(const std::string& path) {
        world.files.Choose(path);
        Click(editor.cmdSaveFile);
    }
    void Load(const std::string& path) {
        world.files.Choose(path);
        Click(editor.cmdLoadFile);
    }
    void FillImage() {
        for (std::size_t i = 0; i < 512; ++i) state.image.Set(i, static_cast<std::uint8_t>(3 * i));
    }
};

TEST_F(MacroFilesTest, SavesWhatLoadsBackWhole) {
    InEditor([&] {
        FillImage();
        const MacroMemory image = state.image;
        SetChecked(editor.chkTrace, true);
        Save("program.sms");
        EXPECT_FALSE(editor.chkTrace.Checked());
        EXPECT_TRUE(editor.timUpdate.Enabled());
        EXPECT_EQ(form.triggers.txtMTName(0).Text(), "Trigger0      ");
        EXPECT_TRUE(state.image == image);
        const std::string content = Content("program.sms");
        EXPECT_EQ(content.substr(0, content.find("\r\n")),
                  "'Kestrane Version 3 macro file - program.sms");

        Click(editor.cmdClearMem);
        SetChecked(editor.chkTrace, true);
        Load("program.sms");
        EXPECT_FALSE(editor.chkTrace.Checked());
        for (std::size_t i = 32; i < 256; ++i) EXPECT_EQ(state.image.Get(i), image.Get(i));
        EXPECT_EQ(state.image.Get(0), 0);
        EXPECT_EQ(editor.lblMem1(0).Caption(), HexByte(image.Get(32)));
        EXPECT_EQ(form.triggers.txtMTName(0).Text(), "Trigger0");
        EXPECT_FALSE(session.MacroTriggersChanged);
        EXPECT_FALSE(session.MacroChanged);
        EXPECT_TRUE(world.boxes.shown().empty());

        ASSERT_EQ(world.files.asked().size(), 2u);
        for (const auto& request : world.files.asked()) {
            EXPECT_EQ(request.title, "Dunmarch Load/Save");
            EXPECT_EQ(request.filter, "Kestrane Macro Files (*.sms)|*.sms");
            EXPECT_EQ(request.default_extension, "sms");
        }
        EXPECT_TRUE(world.files.asked()[0].save);
        EXPECT_FALSE(world.files.asked()[1].save);
        // A cancelled dialog is the end of it.
        Click(editor.cmdSaveFile);
        Click(editor.cmdLoadFile);
        EXPECT_TRUE(world.boxes.shown().empty());
        EXPECT_EQ(world.disk.files.size(), 1u);
    });
    EXPECT_TRUE(world.boxes.shown().empty());
}

TEST_F(MacroFilesTest, TellsOfImportedTriggersWhenTheEditorCloses) {
    InEditor([&] {
        form.triggers.txtMTAddress(3).SetText("7F");
        form.triggers.txtMTAddress(5).SetText("00");
        form.triggers.chkMacro(5).SetChecked(true);
        Save("a.sms");
        form.triggers.txtMTName(7).SetText("other");
        Load("a.sms");
        EXPECT_TRUE(session.MacroTriggersChanged);
        // A second, equal import leaves it so.
        Load("a.sms");
        EXPECT_TRUE(session.MacroTriggersChanged);
        EXPECT_FALSE(form.triggers.cmdWriteMacroTriggers.Enabled());
    });
    // The addresses are checked before: 7F is refused, 00 empties its row.
    ASSERT_EQ(world.boxes.shown().size(), 2u);
    EXPECT_EQ(world.boxes.shown()[0].title, "Invalid Address.");
    EXPECT_EQ(LastBox(), kTriggersChanged);
    EXPECT_EQ(form.triggers.txtMTAddress(3).Text(), "");
    EXPECT_EQ(form.triggers.txtMTAddress(5).Text(), "");
    EXPECT_FALSE(form.triggers.chkMacro(5).Checked());
    EXPECT_EQ(form.triggers.txtMTAddress(4).ForeColor(), kBlack);
    EXPECT_TRUE(form.triggers.cmdWriteMacroTriggers.Enabled());
    EXPECT_FALSE(session.MacroTriggersChanged);
}

TEST_F(MacroFilesTest, StopsAtAChecksumFaultAndKeepsWhatCameBefore) {
    InEditor([&] {
        FillImage();
        Save("a.sms");
        std::string content = Content("a.sms");
        // The first code line is line 12; the row before it holds.
        const auto line12 = content.find("'Macro Code\r\n") + 13;
        content[line12 + 81 + 3] ^= 1;
        Content("bad.sms") = content;
        Click(editor.cmdClearMem);
        Load("bad.sms");
        EXPECT_EQ(LastBox(),
                  "Checksum Error.|Checksum Error importing Macro Code at line 13.\r\nImport "
                  "aborted. Please do not upload to unit.");
        EXPECT_EQ(At(0x10), "60 63");
        EXPECT_EQ(At(0x11), "00 00");
        EXPECT_EQ(editor.lblMem1(0).Caption(), "60");
        // A trigger without a name is saved but does not load.
        form.triggers.txtMTName(1).SetText("");
        Save("unnamed.sms");
        Load("unnamed.sms");
        EXPECT_EQ(LastBox(),
                  "Checksum Error.|Checksum Error importing Macro Triggers at line 4.\r\nImport "
                  "aborted. Please do not upload to unit.");
    });
}

TEST_F(MacroFilesTest, TellsWhyAFileCannotBeReadOrSaved) {
    InEditor([&] {
        FillImage();
        const MacroMemory image = state.image;
        Load("none.sms");
        EXPECT_EQ(LastBox(), "File Error.|Cannot read none.sms: No such file or directory.");
        EXPECT_TRUE(state.image == image);
        Content("short.sms") = "AB\r\nCD\r\n";
        Load("short.sms");
        EXPECT_EQ(LastBox(),
                  "File Error.|short.sms ends early, after line 2.\r\nImport aborted. Please do "
                  "not upload to unit.");
        EXPECT_EQ(state.image.Get(0), 0xAB);
        EXPECT_EQ(state.image.Get(1), 0xCD);
        EXPECT_EQ(state.image.Get(2), image.Get(2));

        form.triggers.txtMTName(2).SetText("unpadded");
        world.disk.faults["full.sms"] = "No space left on device";
        Save("full.sms");
        EXPECT_EQ(LastBox(), "File Error.|Cannot save full.sms: No space left on device.");
        EXPECT_EQ(form.triggers.txtMTName(2).Text(), "unpadded");
    });
}

TEST_F(MacroFilesTest, ShowsAPathInItsOwnCharacters) {
    InEditor([&] {
        Load("gr\xC3\xBC\xC3\x9F\xE2\x82\xAC.sms");
        EXPECT_EQ(LastBox(), "File Error.|Cannot read gr\xFC\xDF?.sms: No such file or directory.");
        Save("gr\xC3\xBC.sms");
        const std::string content = Content("gr\xC3\xBC.sms");
        EXPECT_EQ(content.substr(0, content.find("\r\n")),
                  "'Kestrane Version 3 macro file - gr\xFC.sms");
    });
}

}  // namespace
}  // namespace kestrane
