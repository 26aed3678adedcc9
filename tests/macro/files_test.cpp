#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "editor_test_support.h"
#include "macro/whole_file.h"

namespace kestrane {
namespace {

namespace fs = std::filesystem;

constexpr char kTriggersChanged[] =
    "Upload Macro Triggers?|The Macro Triggers have been changed by the SMS import.\r\nPlease "
    "click the Write Macro Triggers button to upload them if required.";

class MacroFilesTest : public testing::Test, public OfflineEditor {
  protected:
    MacroFilesTest() {
        fs::create_directory(folder);
        for (int row = 0; row < TriggersTab::kRows; ++row) {
            const std::string address = HexByte(static_cast<std::uint8_t>(0x10 + row));
            form.triggers.txtMTName(row).SetText("Trigger" + address.substr(1));
            form.triggers.txtMTPage(row).SetText("0");
            form.triggers.txtMTAddress(row).SetText(address);
            form.triggers.chkMacro(row).SetChecked(row % 2 == 0);
        }
    }
    ~MacroFilesTest() override { fs::remove_all(folder); }

    std::string Path(const std::string& name) const { return (folder / name).string(); }
    static std::string Content(const std::string& path) { return ReadWholeFile(path).content; }
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
    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    const fs::path folder =
        fs::temp_directory_path() / ("kestrane_files_" + std::to_string(::getpid()));
};

TEST_F(MacroFilesTest, SavesWhatLoadsBackWhole) {
    InEditor([&] {
        FillImage();
        const MacroMemory image = state.image;
        SetChecked(editor.chkTrace, true);
        Save(Path("program.sms"));
        EXPECT_FALSE(editor.chkTrace.Checked());
        EXPECT_TRUE(editor.timUpdate.Enabled());
        EXPECT_EQ(form.triggers.txtMTName(0).Text(), "Trigger0      ");
        EXPECT_TRUE(state.image == image);
        const std::string content = Content(Path("program.sms"));
        EXPECT_EQ(content.substr(0, content.find("\r\n")),
                  "'Kestrane Version 3 macro file - program.sms");

        Click(editor.cmdClearMem);
        SetChecked(editor.chkTrace, true);
        Load(Path("program.sms"));
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
        EXPECT_EQ(FilesInFolder(), 1u);
    });
    EXPECT_TRUE(world.boxes.shown().empty());
}

TEST_F(MacroFilesTest, TellsOfImportedTriggersWhenTheEditorCloses) {
    InEditor([&] {
        form.triggers.txtMTAddress(3).SetText("7F");
        form.triggers.txtMTAddress(5).SetText("00");
        form.triggers.chkMacro(5).SetChecked(true);
        Save(Path("a.sms"));
        form.triggers.txtMTName(7).SetText("other");
        Load(Path("a.sms"));
        EXPECT_TRUE(session.MacroTriggersChanged);
        // A second, equal import leaves it so.
        Load(Path("a.sms"));
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
        Save(Path("a.sms"));
        std::string content = Content(Path("a.sms"));
        // The first code line is line 12; the row before it holds.
        const auto line12 = content.find("'Macro Code\r\n") + 13;
        content[line12 + 81 + 3] ^= 1;
        std::ofstream(Path("bad.sms"), std::ios::binary) << content;
        Click(editor.cmdClearMem);
        Load(Path("bad.sms"));
        EXPECT_EQ(LastBox(),
                  "Checksum Error.|Checksum Error importing Macro Code at line 13.\r\nImport "
                  "aborted. Please do not upload to unit.");
        EXPECT_EQ(At(0x10), "60 63");
        EXPECT_EQ(At(0x11), "00 00");
        EXPECT_EQ(editor.lblMem1(0).Caption(), "60");
        // A trigger without a name is saved but does not load.
        form.triggers.txtMTName(1).SetText("");
        Save(Path("unnamed.sms"));
        Load(Path("unnamed.sms"));
        EXPECT_EQ(LastBox(),
                  "Checksum Error.|Checksum Error importing Macro Triggers at line 4.\r\nImport "
                  "aborted. Please do not upload to unit.");
    });
}

TEST_F(MacroFilesTest, TellsWhyAFileCannotBeRead) {
    InEditor([&] {
        FillImage();
        const MacroMemory image = state.image;
        std::ofstream(Path("short.sms")) << "AB\r\nCD\r\n";
        const auto expect = [&](const std::string& path, const std::string& reason) {
            Load(path);
            EXPECT_EQ(LastBox(), "File Error.|Cannot read " + path + ": " + reason + ".");
            EXPECT_TRUE(state.image == image);
        };
        expect(Path("none.sms"), "No such file or directory");
        expect(folder.string(), "Is a directory");
        expect("/dev/zero", "File too large");
        Load(Path("short.sms"));
        EXPECT_EQ(LastBox(), "File Error.|" + Path("short.sms") +
                                 " ends early, behind line 2.\r\nImport aborted. Please do not "
                                 "upload to unit.");
        EXPECT_EQ(state.image.Get(0), 0xAB);
        EXPECT_EQ(state.image.Get(1), 0xCD);
        EXPECT_EQ(state.image.Get(2), image.Get(2));
        // A pipe without a writer ends at once.
        ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
        Load(Path("pipe"));
        EXPECT_EQ(world.boxes.shown().size(), 5u);
    });
}

TEST_F(MacroFilesTest, KeepsTheOldFileUntilTheNewOneIsComplete) {
    InEditor([&] {
        Save(Path("a.sms"));
        const std::string old = Content(Path("a.sms"));
        fs::create_symlink(Path("a.sms"), Path("link.sms"));
        fs::permissions(Path("a.sms"), fs::perms::owner_read | fs::perms::owner_write);
        form.triggers.txtMTName(2).SetText("unpadded");
        FillImage();

        // The disk is full behind the first 4,000 bytes.
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit small = before;
        small.rlim_cur = 4000;
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);
        Save(Path("link.sms"));
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        EXPECT_EQ(LastBox(), "File Error.|Cannot save " + Path("link.sms") + ": File too large.");
        EXPECT_EQ(Content(Path("a.sms")), old);
        EXPECT_EQ(FilesInFolder(), 2u);
        EXPECT_EQ(form.triggers.txtMTName(2).Text(), "unpadded");

        Save(Path("link.sms"));
        EXPECT_NE(Content(Path("a.sms")), old);
        EXPECT_TRUE(fs::is_symlink(Path("link.sms")));
        EXPECT_EQ(fs::status(Path("a.sms")).permissions(),
                  fs::perms::owner_read | fs::perms::owner_write);
        EXPECT_EQ(form.triggers.txtMTName(2).Text(), "unpadded      ");

        const auto expect = [&](const std::string& path, const std::string& reason) {
            Save(path);
            EXPECT_EQ(LastBox(), "File Error.|Cannot save " + path + ": " + reason + ".");
        };
        expect(folder.string(), "Is a directory");
        expect(Path("no/folder.sms"), "No such file or directory");
        expect("/dev/full", "No space left on device");
        EXPECT_EQ(FilesInFolder(), 2u);
    });
}

TEST_F(MacroFilesTest, ShowsAPathInItsOwnCharacters) {
    InEditor([&] {
        Load(Path("gr\xC3\xBC\xC3\x9F\xE2\x82\xAC.sms"));
        EXPECT_EQ(LastBox(), "File Error.|Cannot read " + Path("gr\xFC\xDF?.sms") +
                                 ": No such file or directory.");
        Save(Path("gr\xC3\xBC.sms"));
        const std::string content = Content(Path("gr\xC3\xBC.sms"));
        EXPECT_EQ(content.substr(0, content.find("\r\n")),
                  "'Kestrane Version 3 macro file - gr\xFC.sms");
    });
}

}  // namespace
}  // namespace kestrane
