// What lines do and what they answer. Time, `start` and the end stand in console_time_test.cpp.

#include "console_test_support.h"

namespace kestrane {
namespace {

TEST_F(ConsoleTest, AnswersEachLineOnceAndPassesOverCommentsAndEmptyLines) {
    Feed({"", "   ", "# a note", "\t# another", "get UnitType\r", "no such", ""});
    Wait(10);
    EXPECT_EQ(Answers(),
              (std::vector<std::string>{"{\"ok\":true,\"value\":\"\"}", Error("no command no")}));
}

TEST_F(ConsoleTest, TellsWhatIsWrongWithALineAndGoesOn) {
    struct Row {
        std::string line;
        std::string error;
    };
    const Row rows[] = {
        {"get", "usage: get NAME[.PROPERTY]"},
        {"get txtUnitName extra", "usage: get NAME[.PROPERTY]"},
        {"get txtunitname", "no control txtunitname on frmMainForm"},
        {"get txtUnitName.colour", "txtUnitName has no property colour"},
        {"get chkPriv(118)", "no control chkPriv(118) on frmMainForm"},
        {"get frmHelp.txtUnitName", "no control txtUnitName on frmHelp"},
        {"get txtUnitName.", "no name txtUnitName."},
        {"get \"txtUnitName", "a quoted word has no closing quote"},
        {"get \"txtUnitName\"x", "no blank behind a quoted word"},
        {"get \"\\ud800\"", "a quoted word is no JSON string"},
        {"get \xFF\xFE", "the line is not UTF-8"},
        {"\"\" x", "no command "},
        {"click lblVersion", "lblVersion takes no click"},
        {"click frmHelp", "frmHelp takes no click"},
        {"click tcpsend.state", "tcpsend.state is no control"},
        {"click txtUnitName.text", "txtUnitName.text is no control"},
        {"click cmdReadNetworkSettings", "cmdReadNetworkSettings is disabled"},
        {"type cmdConnect x", "cmdConnect is no text box"},
        {"type txtCurrentPort \"\xE2\x82\xAC\"", "a character above U+00FF can't be typed"},
        {"press txtCurrentPort 256", "a character code is 0 to 255"},
        {"press txtCurrentPort 1x", "a character code is 0 to 255"},
        {"choose SSTab1 two", "choose takes a number"},
        {"choose SSTab1 99", "SSTab1 has no tab 99"},
        {"close frmNone", "no form frmNone"},
        {"close frmHelp", "frmHelp is not open"},
        {"assign chkDHCP yes", "chkDHCP takes a number"},
        {"assign chkDHCP 2", "value takes 0 or 1"},
        {"assign LinkIsDown 7", "LinkIsDown takes true or false"},
        {"assign DisplayAddress 256", "DisplayAddress takes a number from 0 to 255"},
        {"assign tcpsend.state 7", "tcpsend.state can't be set"},
        {"assign cmdConnect.kind x", "kind can't be set"},
        {"raise cmdConnect Push", "no event Push"},
        {"raise txtUnitName KeyPress", "KeyPress takes a character code"},
        {"raise cmdConnect Click 5", "Click takes no code"},
        {"wait tcpsend.state seven", "tcpsend.state takes a number"},
        {"wait tcpsend.state 7 soon", "the time is a number of seconds, 0 to 86400"},
        {"sleep -1", "the time is a number of milliseconds, 0 to 86400000"},
        {"idle nan", "the time is a number of seconds, 0 to 86400"},
        {"start wait tcpsend.state 7", "wait can't be started"},
        {"answer maybe", "an answer is ok, cancel, yes or no"},
        {std::string(Console::kLongestLine + 1, 'x'), "the line is longer than 65536 bytes"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Ask(row.line), Error(row.error)) << row.line.substr(0, 80);
    }
    EXPECT_EQ(Ask("get lblVersion.kind"), "{\"ok\":true,\"value\":\"label\"}");
}

TEST_F(ConsoleTest, SurvivesLinesOfAnyBytes) {
    std::uint32_t state = 1;
    for (int i = 0; i < 2000; ++i) {
        std::string line = i % 3 == 0 ? "get " : i % 3 == 1 ? "assign txtUnitName " : "\"";
        for (int n = 0; n < 12; ++n) {
            state = state * 1664525 + 1013904223;
            line += static_cast<char>(state >> 24);
        }
        const std::size_t before = Answers().size();
        console.FeedLine(line);
        Wait(0);
        ASSERT_EQ(Answers().size(), before + 1);
        ASSERT_FALSE(Json::parse(Answers().back(), nullptr, false).is_discarded());
    }
}

TEST_F(ConsoleTest, MapsEveryByteToItsCharacterAndBack) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    tool.session.ReplyBuffer = bytes;
    const Json value = Json::parse(Ask("get ReplyBuffer"))["value"];
    EXPECT_EQ(value, FromByteText(bytes));
    EXPECT_EQ(Ask("assign txtUnitName " + value.dump()), kOk);
    EXPECT_EQ(tool.main_form.network.txtUnitName.Text(), bytes);
    // Escaped and plain, quoted and bare are the same character.
    for (const char* word : {"\"\\u00e9\"", "\"\xC3\xA9\"", "\xC3\xA9"}) {
        EXPECT_EQ(Ask(std::string("assign txtUnitName ") + word), kOk);
        EXPECT_EQ(tool.main_form.network.txtUnitName.Text(), "\xE9");
    }
}

TEST_F(ConsoleTest, TakesAWordAsThePropertyTakesIt) {
    const NetworkTab& net = tool.main_form.network;
    for (const char* text : {"12", "true", "null", "\"12\"", "01"}) {
        EXPECT_EQ(Ask(std::string("assign txtUnitName ") + text), kOk);
        const std::string bare = text[0] == '"' ? "12" : text;
        EXPECT_EQ(net.txtUnitName.Text(), bare);
        EXPECT_EQ(Ask(std::string("wait txtUnitName ") + text + " 0"), kOk);
    }
    EXPECT_EQ(Ask("wait txtUnitName 1 0"), "{\"ok\":false,\"error\":\"timeout\",\"value\":\"01\"}");
    EXPECT_EQ(Ask("assign chkDHCP 1"), kOk);
    EXPECT_EQ(Ask("wait chkDHCP 1 0"), kOk);
    EXPECT_EQ(Value("chkDHCP"), "1");
    EXPECT_EQ(Ask("assign OptButID(2) true"), kOk);
    EXPECT_EQ(Value("OptButID(2)"), "true");
    EXPECT_EQ(Value("OptButID(250)"), "false");
    EXPECT_EQ(tool.session.RelayAddress, 2);
    EXPECT_EQ(Ask("assign CommandDone 1"), kOk);
    EXPECT_EQ(Ask("wait CommandDone true 0"), kOk);
    // A colour is null until it is set.
    EXPECT_EQ(Ask("wait txtUnitName.fore null 0"), kOk);
    EXPECT_EQ(Ask("wait txtUnitName.fore 255 0"),
              "{\"ok\":false,\"error\":\"timeout\",\"value\":null}");
    EXPECT_EQ(Ask("assign txtUnitName.fore 255"), kOk);
    EXPECT_EQ(Value("txtUnitName.fore"), "255");
    EXPECT_EQ(Ask("assign cmbARPtime.items [\"a\",\"b\"]"), kOk);
    EXPECT_EQ(Ask("wait cmbARPtime.items [\"a\",\"b\"] 0"), kOk);
}

TEST_F(ConsoleTest, NamesFormsControlsAndTheirProperties) {
    EXPECT_EQ(Value("frmMainForm.txtCurrentPort"), "\"1243\"");
    EXPECT_EQ(Value("frmMainForm.txtCurrentPort.maxLength"), "0");
    EXPECT_EQ(Value("frmMainForm.height"), "8490");
    EXPECT_EQ(Value("frmHelp.visible"), "false");
    EXPECT_EQ(Value("frmHelp"), "false");
    EXPECT_EQ(Value("frmHelp.lblHelp1.kind"), "\"label\"");
    EXPECT_EQ(Ask("assign frmMainForm.focus txtCurrentPort"), kOk);
    EXPECT_EQ(Value("frmMainForm.focus"), "\"txtCurrentPort\"");
    EXPECT_EQ(Ask("leave"), kOk);
    EXPECT_EQ(Value("frmMainForm.focus"), "\"\"");
    EXPECT_EQ(Ask("leave"), kOk);
}

TEST_F(ConsoleTest, DumpHoldsEveryControlOfTheFormInTheOrderOfTheScreen) {
    const Json main = Json::parse(Ask("dump"))["value"];
    const auto& controls = tool.main_form.controls();
    ASSERT_EQ(main.size(), controls.size());
    std::size_t i = 0;
    for (const auto& [name, properties] : main.items()) {
        ASSERT_EQ(name, controls[i++]->name());
        for (const char* common : {"kind", "enabled", "usable", "visible", "fore", "back", "tip"}) {
            ASSERT_TRUE(properties.contains(common)) << name;
        }
    }
    EXPECT_EQ(main["SSTab1"]["tabs"][6].dump(),
              "{\"caption\":\"Changeover Options\",\"enabled\":false,\"visible\":false}");
    EXPECT_EQ(main["timGetResponse"]["interval"], 100);
    const Json help = Json::parse(Ask("dump frmHelp"))["value"];
    EXPECT_EQ(help.size(), tool.help_form.controls().size());
    EXPECT_TRUE(help.contains("OKButton"));
}

TEST_F(ConsoleTest, HandTypesThroughFilterAndLengthAndTheProgramDoesNot) {
    Ask("assign AdminLoggedIn true");
    Ask("assign SSTab1 8");
    Ask("assign SSTab1 0");
    EXPECT_EQ(Ask("type txtIPAddress 10.0x.0.9"), kOk);
    EXPECT_EQ(Value("txtIPAddress"), "\"10.0.0.9\"");
    EXPECT_EQ(Events(), std::vector<std::string>{"{\"event\":\"beep\"}"});
    EXPECT_EQ(Ask("press txtIPAddress 57"), kOk);
    EXPECT_EQ(Value("txtIPAddress"), "\"10.0.0.99\"");
    // Going to another box asks for the reminder, before the answer.
    EXPECT_EQ(Ask("type txtUnitName \"Rack of machines 7\""), kOk);
    ASSERT_EQ(Events().size(), 2u);
    EXPECT_NE(Events()[1].find("\"title\":\"Unit IP Address Changed\""), std::string::npos);
    EXPECT_NE(Events()[1].find("\"buttons\":[\"OK\"],\"answer\":\"OK\"}"), std::string::npos);
    EXPECT_EQ(Value("txtUnitName"), "\"Rack of machines\"");
    EXPECT_EQ(Ask("assign txtUnitName \"Rack of machines 7\""), kOk);
    EXPECT_EQ(Value("txtUnitName"), "\"Rack of machines 7\"");
    EXPECT_EQ(Ask("raise txtIPAddress KeyPress 65"), kOk);
    EXPECT_EQ(Value("txtIPAddress"), "\"10.0.0.99\"");
    EXPECT_EQ(Events().size(), 3u);
    EXPECT_EQ(Ask("type txtUnitName \"\""), kOk);
    EXPECT_EQ(Value("txtUnitName"), "\"\"");
}

TEST_F(ConsoleTest, RaiseRunsAHandlingThatNoHandCanReach) {
    EXPECT_EQ(Ask("raise timGetResponse Timer"), kOk);
    EXPECT_EQ(Value("lblNotLoggedIn"), "\"Socket is closed\"");
    EXPECT_EQ(Ask("raise lblVersion Click"), kOk);  // has none
    EXPECT_EQ(Ask("key 17"), kOk);
    EXPECT_EQ(Value("frmMainForm.height"), "11340");
}

TEST_F(ConsoleTest, BoxesTakeTheAnswersInOrderAndElseTheFirstButton) {
    EXPECT_EQ(Ask("answer no"), kOk);
    EXPECT_EQ(Ask("answer cancel"), kOk);
    const std::vector<BoxButton> yes_no{BoxButton::kYes, BoxButton::kNo};
    EXPECT_EQ(scripted.Show("T", "a\r\nb", yes_no), BoxButton::kNo);
    EXPECT_EQ(scripted.Show("T", "", yes_no), BoxButton::kYes);  // it has no Cancel
    EXPECT_EQ(scripted.Show("T", "", yes_no), BoxButton::kYes);
    EXPECT_EQ(Events()[0],
              "{\"event\":\"box\",\"title\":\"T\",\"text\":\"a\\r\\nb\",\"buttons\":[\"Yes\","
              "\"No\"],\"answer\":\"No\"}");
}

TEST_F(ConsoleTest, FileDialogsTakeTheirPathsAndElseAreCancelled) {
    EXPECT_EQ(Ask("file \"/tmp/a b.sms\""), kOk);
    EXPECT_EQ(scripted.Ask({true, "Save", "F|*.sms", "sms"}), "/tmp/a b.sms");
    EXPECT_EQ(scripted.Ask({false, "Open", "F|*.sms", "sms"}), "");
    EXPECT_EQ(Events()[1],
              "{\"event\":\"dialog\",\"kind\":\"open\",\"title\":\"Open\",\"filter\":"
              "\"F|*.sms\",\"path\":\"\"}");
}

TEST_F(ConsoleTest, GrabNeedsWindows) {
    EXPECT_EQ(Ask("grab frmHelp /tmp/x.png"),
              Error("there are no windows to take a picture of; kestrane-config has them"));
}

}  // namespace
}  // namespace kestrane
