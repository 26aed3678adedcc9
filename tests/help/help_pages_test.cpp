// The help form: the page of each tab, and the form's own life.

#include <gmock/gmock.h>

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

using testing::HasSubstr;

TEST(HelpPages, GoByTheIndexOfTheTabAndNotByItsCaption) {
    const char* const kSubjects[] = {
        "Network Settings",      "Channel Names", "Macro Triggers",        "Sensors",
        "Changeover Parameters", "Firmware",      "Changeover Parameters", "Changeover Parameters",
        "Changeover Parameters"};
    for (int tab = 0; tab < 9; ++tab) {
        const HelpPage page = HelpPageOf(tab);
        const std::string opening = std::string("Kestrane TCP Config can be used to set the ") +
                                    kSubjects[tab] + " in a connected Kestrane MDU.\r\n";
        EXPECT_EQ(page.help1.substr(0, opening.size()), opening);
        EXPECT_FALSE(page.help2.empty());
        EXPECT_FALSE(page.help3.empty());
    }
}

TEST(HelpPages, HoldTheSentencesThatOperatorsKnow) {
    const std::pair<int, const char*> kSentences[] = {
        {0, "DCHP on/off.  If DCHP is disabled then the fixed IP Settings will be used.\r\n"},
        {0, "Any number entered will be rounded up to the nearest 10 seconds.\r\n"},
        {0, "but the admin login to this program is."},
        {1, "For a single inlet MDU, obviously only the 'Main Supply' name will be used.\r\n"},
        {2, "whether that macro trigger is available to the user."},
        {3, "visible on the front panel OLED dispay."},
        {3, "up to 16 sensors"},
        {5, "Also displayed are the unit type and serial number of the connected unit."},
        {4, "will not change back to the main supply unless the backup supply disappears."},
        {8, "0 = None, 1 = Flash LEDS only, 2 = Beep only and 3 = Flash and Beep."},
    };
    for (const auto& [tab, sentence] : kSentences) {
        const HelpPage page = HelpPageOf(tab);
        EXPECT_THAT(page.help1 + page.help2 + page.help3, HasSubstr(sentence));
    }
}

TEST(HelpForm, ShowsThePageOfTheSelectedTabEachTimeAndKeepsPolling) {
    ToolOnUnit tool;
    tool.ReadSettings();
    HelpForm& help = tool.tool.help_form;
    for (const int tab : {3, 0}) {
        tool.form.SSTab1.SetTab(tab);
        bool seen = false;
        tool.world.time.After(std::chrono::milliseconds(500), [&] {
            EXPECT_EQ(help.lblHelp2.Caption(), HelpPageOf(tab).help2);
            EXPECT_EQ(tool.form.lblNotLoggedIn.Caption(), "Socket is connected");
            EXPECT_TRUE(tool.tool.hand.Click(tool.form.cmdHelp));  // behind a modal form
            tool.form.lblNotLoggedIn.SetCaption("polled?");
        });
        tool.world.time.After(std::chrono::milliseconds(700), [&] {
            EXPECT_EQ(tool.form.lblNotLoggedIn.Caption(), "Socket is connected");
            seen = true;
            tool.Click(help.OKButton);
        });
        tool.Click(tool.form.cmdHelp);
        EXPECT_TRUE(seen);
        EXPECT_FALSE(help.Visible());
    }
}

}  // namespace
}  // namespace kestrane
