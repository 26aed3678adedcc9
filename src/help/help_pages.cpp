#include "help/help_pages.h"

#include <optional>
#include <span>

#include "screen/screen.h"

namespace kestrane {
namespace {

using Sentences = std::span<const char* const>;

// The slips in the sentences ("DCHP", "dispay") are kept.
// clang-format off
constexpr const char* kNetwork1[] = {
    "Click on Read Network and ID Settings to fill the tab from the unit, make your changes, then "
    "click on Write Network Settings.",
    "The unit goes on with its old network settings until the Ethernet processor has been reset.",
};
constexpr const char* kNetwork2[] = {
    "DCHP on/off.  If DCHP is disabled then the fixed IP Settings will be used.",
    "The fixed IP settings will also be used if DHCP is enabled, but no server is available.",
    "TCP Control Settings. This needs to be enabled to use this program.",
    "Security Settings. 3 levels of security are available in the Web Browser Interface.",
    "View: Will allow a user to open the Web Browser Interface.",
    "Control: Will allow a user to control the Web Browser Interface.",
    "Admin: Will allow a user to change settings in the Web Browser Interface.",
    "If an admin username and password is set, it will also require you to log in to this program "
    "before you can make any changes.",
    "PLEASE NOTE: The security settings are not currently implemented in the Web Browser "
    "Interface, but the admin login to this program is.",
};
constexpr const char* kNetwork3[] = {
    "Time Server Settings. Connection to a timeserver is not currently supported.",
    "OLED Timeout. The OLED timeout delay can be set to a value between 10 and 2540 seconds. Any "
    "number entered will be rounded up to the nearest 10 seconds.",
    "A value of 0 (zero) will disable the timeout. This is not advised as it will reduce the life "
    "of the display.",
};

constexpr const char* kNames1[] = {
    "Channel Names are displayed on the front panel OLED screen and in the Web Browser Interface.",
    "Each name has two lines of up to 8 characters.",
};
constexpr const char* kNames2[] = {
    "Input Names. For a changeover MDU, names of the Main and Backup supplies.",
    "For a single inlet MDU, obviously only the 'Main Supply' name will be used.",
    "Output Names. Can be set to display the name of the equipment plugged into the relevant "
    "outlet.",
};
constexpr const char* kNames3[] = {
    "If any of the editable names are changed in this program and then written to the MDU, you "
    "must reset the Ethernet processor by clicking on the Reset Ethernet Processor button or by "
    "pressing the Reset Ethernet button on the front panel (Unit > Reset Ethernet) before the new "
    "names will be displayed, either on the OLED or in the Web Browser Interface.",
};

constexpr const char* kTriggers1[] = {
    "A macro trigger is a named starting point in the macro program. An operator of the unit picks "
    "it by its name, and the macro runs from there.",
};
constexpr const char* kTriggers2[] = {
    "Macro Name should be a descriptive name for the macro.",
    "Address is the memory location in the macro program for that specific trigger.",
    "The check box allows the administrator to set whether that macro trigger is available to the "
    "user.",
};
constexpr const char* kTriggers3[] = {
    "A unit has 8 macro triggers. A name can have up to 14 characters. The address is entered as "
    "two hexadecimal digits.",
    "The macro program itself is shown and changed in the macro editor.",
};

constexpr const char* kSensors1[] = {
    "Sensor Name should be a descriptive name for the sensor.",
    "A unit can have up to 16 sensors. A name can have up to 8 characters.",
};
constexpr const char* kSensors2[] = {
    "Sensor names are only displayed in the web browser interface if the first sensor plugged in "
    "is not a temperature and humidity module, or if there is more than one sensor.",
    "When a new sensor is added to the unit, it will automatically be added to the sensors visible "
    "on the front panel OLED dispay.",
};
constexpr const char* kSensors3[] = {
    "Sensor Address shows what the unit finds on the bus now, Committed shows the sensors that "
    "are fixed in its memory. An address in red differs from the committed one.",
    "Commit 1-Wire Addresses fixes the sensors that are plugged in now. Clear 1-Wire Addresses "
    "empties the committed table.",
};

constexpr const char* kFirmware1[] = {
    "The unit has 2 processors, Relay and Display, and each of them has firmware of its own.",
};
constexpr const char* kFirmware2[] = {
    "For both processors, the level of firmware that is fitted and the latest level are shown.",
    "Also displayed are the unit type and serial number of the connected unit.",
};
constexpr const char* kFirmware3[] = {
    "Firmware updates need the maker's software and a special serial cable. They can't be made "
    "with this program.",
};

constexpr const char* kChangeover1[] = {
    "The unit samples the incoming mains at 5000 Hz and counts the samples that are below a "
    "threshold.",
    "Off Time Main and Off Time Backup set the speed of detection. Set each a few samples above "
    "the reading measured for that supply: a lower value is faster, but changes over needlessly.",
};
constexpr const char* kChangeover2[] = {
    "Phase. Before it returns to the main supply, the unit waits until the two supplies lie within "
    "this phase window. The default is 2, which is about 20 degrees.",
    "Change Back. When the main supply reappears, the unit waits before it returns to it. The "
    "delay counts in periods of 10 seconds, and the default is 10 seconds.",
    "Setting the value to 255 means that the Kestrane MDU will not change back to the main supply "
    "unless the backup supply disappears.",
};
constexpr const char* kChangeover3[] = {
    "The 'Default Alarm' frame allows you to set the type of alarm used by default. 0 = None, 1 = "
    "Flash LEDS only, 2 = Beep only and 3 = Flash and Beep.",
    "Save as Live takes effect at once and is lost when the unit restarts. Save as Startup is kept "
    "in the unit's memory and takes effect at its next start.",
};

struct Page {
    std::optional<int> tab;  // none: every other tab
    const char* subject;
    Sentences label1;
    Sentences label2;
    Sentences label3;
};

constexpr Page kPages[] = {
    {0, "Network Settings",      kNetwork1,    kNetwork2,    kNetwork3},
    {1, "Channel Names",         kNames1,      kNames2,      kNames3},
    {2, "Macro Triggers",        kTriggers1,   kTriggers2,   kTriggers3},
    {3, "Sensors",               kSensors1,    kSensors2,    kSensors3},
    {5, "Firmware",              kFirmware1,   kFirmware2,   kFirmware3},
    {{}, "Changeover Parameters", kChangeover1, kChangeover2, kChangeover3},
};
// clang-format on

std::string Joined(Sentences sentences) {
    std::string text;
    for (const char* sentence : sentences) {
        if (!text.empty()) text += "\r\n";
        text += sentence;
    }
    return text;
}

}  // namespace

HelpPage HelpPageOf(int tab) {
    for (const Page& page : kPages) {
        if (page.tab && *page.tab != tab) continue;
        return {std::string("Kestrane TCP Config can be used to set the ") + page.subject +
                    " in a connected Kestrane MDU.\r\n" + Joined(page.label1),
                Joined(page.label2), Joined(page.label3)};
    }
    return {};
}

Help::Help(MainForm& form, HelpForm& help) : form_(form), help_(help) {
    form.cmdHelp.on_click = [this] { cmdHelp_Click(); };
    help.on_activate = [this] { Form_Activate(); };
    help.OKButton.on_click = [this] { OKButton_Click(); };
}

void Help::cmdHelp_Click() { form_.screen().ShowModal(help_); }

void Help::Form_Activate() {
    const HelpPage page = HelpPageOf(form_.SSTab1.Tab());
    help_.lblHelp1.SetCaption(page.help1);
    help_.lblHelp2.SetCaption(page.help2);
    help_.lblHelp3.SetCaption(page.help3);
}

void Help::OKButton_Click() { help_.screen().Hide(help_); }

}  // namespace kestrane
