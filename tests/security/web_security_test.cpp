// The web levels: salts and hashes on each change, the raw read, the write of four blocks.

#include <gmock/gmock.h>

#include "features/features_test_support.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

using testing::ElementsAre;

constexpr int kSecurityTab = 2;
const std::string kZeros(32, '0');
const std::string kOpen(32, 'F');

class WebSecurityTest : public FeatureTest {
  protected:
    void ConnectOnSecurity() {
        ConnectOn(kSecurityTab);
        tab_.fraSecuritySettings.SetEnabled(true);
    }
    // The next salt drawn.
    void QueueSalt(const std::string& digits) {
        for (const char c : HexPairs(digits)) {
            world_.random.Queue((static_cast<unsigned char>(c) + 0.5) / 255);
        }
    }
    std::string Hash(int level) const { return tab_.txtSHA(level).Text(); }
    std::string HashOf(const std::string& password) const {
        return UpperCase(
            SHAAlgorithm().SHA256FromString(password + tab_.txtSalt.Text()).substr(0, 32));
    }
    void Read() { EXPECT_FALSE(tool_.hand.Click(tab_.cmdReadWBISettings)); }
    void StoreLevels(const std::string& view, const std::string& control,
                     const std::string& admin) {
        Store(0xFB, 0x02B0, view);
        Store(0xFB, 0x02C0, control);
        Store(0xFB, 0x02D0, admin);
    }

    SecurityTab& tab_ = form_.security;
};

TEST_F(WebSecurityTest, EachChangeHashesAllLevelsUnderOneNewSalt) {
    tab_.txtWebPassword(2).SetText("kestrane");
    const int seedings = world_.random.seedings();
    QueueSalt("8C3F5A07D1E2964BB8703CE5194A6DF2");
    tab_.txtWebPassword(1).SetText("operator");
    EXPECT_EQ(tab_.txtSalt.Text(), "8C3F5A07D1E2964BB8703CE5194A6DF2");
    EXPECT_EQ(Hash(0), kOpen);
    EXPECT_EQ(Hash(1), "F1DA454A11E81CA89402B4B1CCF76010");
    EXPECT_EQ(Hash(2), "C900AB36006A66875CBD1F4E06B92FA0");
    EXPECT_EQ(world_.random.seedings(), seedings + 1);
    // The text that it has already: nothing is drawn. An emptied box still renews the salt.
    tab_.txtWebPassword(1).SetText("operator");
    EXPECT_EQ(world_.random.seedings(), seedings + 1);
    tab_.txtWebPassword(1).SetText("");
    EXPECT_EQ(world_.random.seedings(), seedings + 2);
    EXPECT_EQ(Hash(1), kOpen);
    EXPECT_EQ(Hash(2), HashOf("kestrane"));
    EXPECT_NE(tab_.txtSalt.Text(), "8C3F5A07D1E2964BB8703CE5194A6DF2");
}

TEST_F(WebSecurityTest, SaltBytesRunFrom00ToFE) {
    for (int i = 0; i < 8; ++i) {
        world_.random.Queue(0.0);
        world_.random.Queue(0.99999999);
    }
    tab_.txtWebPassword(0).SetText("\xE9 16 characters ");
    EXPECT_EQ(tab_.txtSalt.Text(), "00FE00FE00FE00FE00FE00FE00FE00FE");
    EXPECT_EQ(Hash(0), HashOf("\xE9 16 characters "));
}

TEST_F(WebSecurityTest, DisablingALevelAndEnablingItAgain) {
    tab_.txtWebPassword(0).SetText("view");
    tab_.txtWebPassword(1).SetText("control");
    const std::string salt = tab_.txtSalt.Text();
    tab_.chkWebSecurityDisable(1).SetChecked(true);
    EXPECT_EQ(tab_.txtWebPassword(1).Text(), "");
    EXPECT_FALSE(tab_.txtWebPassword(1).Enabled());
    EXPECT_EQ(Hash(1), kZeros);
    EXPECT_TRUE(session_.MacroChanged);
    EXPECT_NE(tab_.txtSalt.Text(), salt);
    EXPECT_EQ(Hash(0), HashOf("view"));
    const std::string renewed = tab_.txtSalt.Text();
    tab_.chkWebSecurityDisable(1).SetChecked(false);
    EXPECT_TRUE(tab_.txtWebPassword(1).Enabled());
    EXPECT_EQ(Hash(1), kOpen);
    EXPECT_EQ(tab_.txtSalt.Text(), renewed);
}

TEST_F(WebSecurityTest, KeysTypedInAPassword) {
    ConnectOnSecurity();
    TextBox& box = tab_.txtWebPassword(0);
    EXPECT_FALSE(tool_.hand.Press(box, ' '));
    EXPECT_EQ(world_.sound.beeps(), 1);
    EXPECT_FALSE(session_.MacroChanged);
    EXPECT_FALSE(tool_.hand.Type(box, "a b longer than sixteen"));
    EXPECT_EQ(box.Text(), "ablongerthansixt");
    EXPECT_TRUE(session_.MacroChanged);
    EXPECT_EQ(Hash(0), HashOf("ablongerthansixt"));
    // Were the warning ever hidden, the next key or a visit to a check box would empty the boxes.
    for (const bool by_key : {true, false}) {
        tab_.txtWebPassword(2).SetText("admin");
        form_.network.lblPasswordWarn.SetVisible(false);
        if (by_key) {
            EXPECT_FALSE(tool_.hand.Press(box, 'x'));
        } else {
            EXPECT_FALSE(tool_.hand.GoTo(tab_.chkWebSecurityDisable(1)));
        }
        EXPECT_EQ(box.Text(), by_key ? "x" : "");
        EXPECT_EQ(tab_.txtWebPassword(2).Text(), "");
        EXPECT_TRUE(form_.network.lblPasswordWarn.Visible());
    }
}

TEST_F(WebSecurityTest, ReadGoesByTheCharactersFAndZero) {
    StoreLevels(std::string(16, 'F'), std::string(16, '0'), std::string(15, 'F') + "\x10");
    ConnectOnSecurity();
    Read();
    EXPECT_THAT(SentTexts(), ElementsAre("FB1102B010", "FB1102C010", "FB1102D010"));
    EXPECT_THAT(captions_,
                ElementsAre("Reading block 1 of 3", "Reading block 2 of 3", "Reading block 3 of 3",
                            "Reading Web Browser Passwords Complete"));
    EXPECT_EQ(tab_.txtWebPassword(0).Text(), "");
    EXPECT_FALSE(tab_.chkWebSecurityDisable(0).Checked());
    EXPECT_TRUE(tab_.chkWebSecurityDisable(1).Checked());
    EXPECT_EQ(tab_.txtWebPassword(2).Text(), "******");
    EXPECT_EQ(Hash(0), kOpen);
    EXPECT_EQ(Hash(1), kZeros);
    EXPECT_EQ(Hash(2), HashOf("******"));
    EXPECT_TRUE(tab_.cmdWriteWBISettings.Enabled());
    EXPECT_TRUE(tab_.txtPswHelp(5).Enabled());
    EXPECT_TRUE(tab_.lblWebSecurityEnable.Enabled());
    EXPECT_TRUE(form_.cmdHelp.Enabled());
    EXPECT_EQ(hourglasses_, 1);
}

TEST_F(WebSecurityTest, ThreeEmptyBoxesAreHashedThoughNothingHasChanged) {
    StoreLevels(std::string(16, 'F'), std::string(16, 'F'), std::string(16, 'F'));
    ConnectOnSecurity();
    ASSERT_EQ(Hash(0), "Text1");
    Read();
    for (int level = 0; level < 3; ++level) EXPECT_EQ(Hash(level), kOpen);
    EXPECT_EQ(tab_.txtSalt.Text().size(), 32u);
    // What a write now stores for an open or a disabled level reads as a password.
    StoreLevels(std::string(16, '\xFF'), std::string(16, '\0'), std::string(16, '\x10'));
    Read();
    for (int level = 0; level < 3; ++level) {
        EXPECT_EQ(tab_.txtWebPassword(level).Text(), "******");
        EXPECT_EQ(Hash(level), HashOf("******"));
    }
}

TEST_F(WebSecurityTest, AFailedReadLeavesTheWriteButtonAsItWas) {
    ConnectOnSecurity();
    tab_.fraSecuritySettings.SetEnabled(false);
    ReplyRaw(ReadCommand(0xFB, 0x02C0), "");
    for (const bool could_write : {false, true}) {
        tab_.cmdWriteWBISettings.SetEnabled(could_write);
        Read();
        EXPECT_EQ(tab_.cmdWriteWBISettings.Enabled(), could_write);
        EXPECT_FALSE(tab_.fraSecuritySettings.Enabled());
        EXPECT_TRUE(tab_.lblViewPass.Enabled());
        EXPECT_TRUE(tab_.cmdReadWBISettings.Enabled());
        EXPECT_TRUE(form_.SSTab1.Tabs()[0].enabled);
        EXPECT_EQ(form_.lblMemoryBlock.Caption(), "Reading block 2 of 3");
    }
}

TEST_F(WebSecurityTest, WriteSendsSaltAndThreeLevelsAsTheyWereAtTheClick) {
    ConnectOnSecurity();
    tab_.cmdWriteWBISettings.SetEnabled(true);
    tab_.txtWebPassword(2).SetText("kestrane");
    tab_.chkWebSecurityDisable(1).SetChecked(true);
    QueueSalt("101010104BB8703CE5194A6DF2101010");
    tab_.txtWebPassword(2).SetText("other");
    const std::string admin = Hash(2);
    world_.time.After(Milliseconds{150}, [&] { tab_.txtWebPassword(0).SetText("meanwhile"); });
    captions_.clear();
    EXPECT_FALSE(tool_.hand.Click(tab_.cmdWriteWBISettings));
    EXPECT_THAT(SentTexts(),
                ElementsAre("FB1202A010101010104BB8703CE5194A6DF2101010", "FB1202B010" + kOpen,
                            "FB1202C010" + kZeros, "FB1202D010" + admin));
    EXPECT_EQ(HexText(world_.tcpsend.sent()[0]),
              "1002FB1202A01010"
              "1010101010101010"
              "4BB8703CE5194A6DF2"
              "101010101010"
              "851003");
    EXPECT_THAT(captions_,
                ElementsAre("Writing block 1 of 5", "Writing block 2 of 5", "Writing block 3 of 5",
                            "Writing block 4 of 5", "Web browser Settings Write Complete."));
    ReplyRaw(HexPairs("FB1202C010" + kZeros), "");
    captions_.clear();
    EXPECT_FALSE(tool_.hand.Click(tab_.cmdWriteWBISettings));
    EXPECT_EQ(captions_.back(), "Writing block 3 of 5");
    EXPECT_TRUE(tab_.cmdWriteWBISettings.Enabled());
}

TEST_F(WebSecurityTest, BadRepliesNeverCrash) {
    ConnectOnSecurity();
    const std::string command = ReadCommand(0xFB, 0x02C0);
    for (const std::string& reply : BadReplies(command)) {
        ReplyRaw(command, reply);
        Read();
        EXPECT_EQ(form_.Pointer(), Form::kArrow);
        EXPECT_TRUE(form_.cmdHelp.Enabled());
    }
}

TEST(WebSecurityOnUnit, ThePasswordWrittenVerifiesAgainstTheUnitsMemory) {
    ToolOnUnit tool;
    tool.ReadSettings();
    EXPECT_EQ(tool.tool.hand.Choose(tool.form.SSTab1, kSecurityTab).value_or(""), "");
    SecurityTab& tab = tool.form.security;
    tool.Click(tab.cmdReadWBISettings);
    tool.Type(tab.txtWebPassword(0), "eye");
    tool.Click(tab.chkWebSecurityDisable(1));
    tool.Type(tab.txtWebPassword(2), "Boss\xE9");
    tool.Click(tab.cmdWriteWBISettings);
    const unit::BoardMemory& memory = tool.peer.unit().Display();
    const std::string salt = HexText(memory.Read(0x02A0, 16));
    const auto stored = [&](const std::string& password) {
        return HexPairs(SHAAlgorithm().SHA256FromString(password + salt).substr(0, 32));
    };
    EXPECT_EQ(memory.Read(0x02B0, 16), stored("eye"));
    EXPECT_EQ(memory.Read(0x02C0, 16), std::string(16, '\0'));
    EXPECT_EQ(memory.Read(0x02D0, 16), stored("Boss\xE9"));
}

TEST(WebSecurityOnUnit, AReadThatOutlivesItsConnectionLeavesTheNextOneAlone) {
    ToolOnUnit tool;
    tool.ReadSettings();
    SecurityTab& tab = tool.form.security;
    tool.form.SSTab1.SetTab(kSecurityTab);
    tool.Click(tab.cmdReadWBISettings);
    ASSERT_TRUE(tab.cmdWriteWBISettings.Enabled());
    tool.world.time.After(std::chrono::milliseconds(150), [&] {
        tool.Click(tool.form.cmdDisconnect);
        tool.ReadSettings();
    });
    tool.Click(tab.cmdReadWBISettings);
    EXPECT_FALSE(tab.cmdWriteWBISettings.Enabled());
    EXPECT_EQ(tab.txtWebPassword(2).Text(), "");
}

}  // namespace
}  // namespace kestrane
