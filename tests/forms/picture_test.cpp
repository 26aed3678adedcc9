#include <cstdlib>

#include "forms/look.h"
#include "forms_test_support.h"
#include "text/text.h"

namespace kestrane {
namespace {

// Pictures for looking at: KESTRANE_PICTURES names the folder, and --gtest_also_run_disabled_tests
// runs it.
class Pictures : public FormsTest {
  protected:
    void Save(Form& form, const std::string& name) {
        const char* folder = std::getenv("KESTRANE_PICTURES");
        ASSERT_NE(folder, nullptr) << "KESTRANE_PICTURES names no folder";
        Settle();
        EXPECT_TRUE(windows_.Grab(form.name(), std::string(folder) + "/" + name + ".png"));
    }

    void EnableAll() {
        for (Control* control : form().controls()) {
            if (control->kind() != Kind::kTimer) control->SetEnabled(true);
        }
        for (int tab = 0; tab < 8; ++tab) {
            form().SSTab1.SetTabEnabled(tab, true);
            form().SSTab1.SetTabVisible(tab, true);
        }
    }

    void Fill() {
        NetworkTab& network = form().network;
        network.txtUnitName.SetText("Rack 7");
        network.txtIPAddress.SetText("300.1.1.1");
        network.txtSubnetMask.SetText("255.255.255.0");
        network.txtChaskey(0).SetText("Chaskey is set - type to change key");
        network.txtChaskey(1).SetText("00112233445566778899AABBCCDDEEFF");
        network.cmbARPtime.SetListIndex(2);
        form().lblMemoryBlock.SetCaption("Reading outlet name 9 of 14");
        form().lblNotLoggedIn.SetCaption("Socket is connected");
        form().lblNotLoggedIn.SetForeColor(kGreen);
        form().cmdConnect.SetCaption("Connected Port A");
        form().cmdConnect.SetBackColor(kGreen);
        form().cmdDisconnect.SetBackColor(kOrange);
        for (int i = 0; i < 16; ++i) {
            form().one_wire.lbl1WAddress(i).SetCaption("A1B2C3D4E5F60028");
            form().one_wire.lbl1WAddress(i).SetForeColor(i == 3 ? kRed : kBlack);
            form().one_wire.lbl1WType(i).SetCaption("TS-1");
            form().one_wire.lbl1We2p(i).SetCaption("No Sensor committed");
        }
        form().changeover.lblPhase.SetCaption("A/B 12, B/A 13 samples");
        form().triggers.txtMTAddress(0).SetText("1A");
        form().Label2.SetCaption("10 02 FB 1F 03 00 1D 10 03");
        form().Label4.SetCaption("Command Repeat 1");
        form().Label1.SetCaption(std::string(5000, '7'));
    }

    void FillEditor() {
        ScriptEditForm& editor = tool_.script_edit_form;
        for (int i = 0; i < 16; ++i) {
            editor.pbLED(i).SetPicture(i % 4);
            editor.lblDesi(101 + i).SetCaption("OutletXX");
            editor.lblDesi(201 + i).SetCaption("Server");
            editor.lblMem(i).SetCaption(HexByte(static_cast<std::uint8_t>(16 + i)));
            editor.lblMem1(i).SetCaption("C6");
            editor.lblMem2(i).SetCaption("03");
            editor.lblCommand(i).SetCaption("Turn off outlet 14 after  6300.0 seconds, skip if");
            editor.shpOutline(i).SetVisible(i == 4);
        }
        editor.lblTopStatus.SetCaption("Download 45%");
        editor.txtSecondByteHex.SetForeColor(kRed);
        editor.cmdInsertCommand(198).SetEnabled(false);
    }

    void SaveAll(const std::string& look) {
        Save(form(), look + "-start");
        EnableAll();
        Fill();
        for (int tab = 0; tab < 8; ++tab) {
            form().SSTab1.SetTab(tab);
            EnableAll();
            form().SSTab1.SetTabVisible(7, tab == 7);
            Save(form(), look + "-tab" + std::to_string(tab));
        }
        form().SSTab1.SetTab(1);
        form().SSTab1.SetTabVisible(7, false);
        form().SSTab1.SetTabEnabled(3, false);
        form().SetHeight(MainForm::kTallHeight);
        Save(form(), look + "-diagnostics");
        FillEditor();
        Save(tool_.script_edit_form, look + "-editor");
        Save(tool_.login_form, look + "-login");
        Save(tool_.confirm_form, look + "-confirm");
        tool_.help_form.lblHelp1.SetCaption("Kestrane TCP Config can be used to set the names.");
        tool_.help_form.lblHelp2.SetCaption(
            "Input Names. For a changeover MDU, names of the Main and Backup supplies.\r\n"
            "Output Names. Can be set to display the name of the equipment plugged into the "
            "relevant outlet.");
        Save(tool_.help_form, look + "-help");
    }
};

TEST_F(Pictures, DISABLED_All) {
    const char* look = std::getenv("KESTRANE_LOOK");
    SaveAll(look ? look : "light");
}

}  // namespace
}  // namespace kestrane
