#include <cstdio>
#include <fstream>
#include <sstream>

#include "features/versions_page.h"
#include "features_test_support.h"

namespace kestrane {
namespace {

constexpr int kFirmwareTab = 7;
constexpr int kRelay = 250;
constexpr int kDisplay = 251;
const std::string kRelayVersion = Bytes({kRelay, kReadFirmwareVersion});
const std::string kDisplayVersion = Bytes({kDisplay, kReadFirmwareVersion});
const std::string kSerial = Bytes({kRelay, kReadSerialNumber});

// Entry n has the version n.0.
std::string Page(int entries) {
    std::string page;
    for (int i = 1; i <= entries; ++i) {
        page += (i > 1 ? " " : "") + std::string("abc:") + std::to_string(i) + ".0";
    }
    return page;
}

class FirmwareTest : public FeatureTest {
  protected:
    // The slash at its end is not doubled.
    FirmwareTest() : FeatureTest(ToolOptions{.versions_url = "http://server.example/"}) {}

    void ConnectOnFirmware() {
        // 10.2.16 on a 3A9 board, 1.0.255 on a 3D1 board: KMD 305TX.
        Answer(kRelayVersion, Bytes({0x3A, 0x90, 0x10, 0x01, 10, 2, 16}));
        Answer(kDisplayVersion, Bytes({0x3D, 0x1F, 0, 0, 1, 0, 255}));
        Answer(kSerial, Bytes({0x12, 0x3A, 0x0B, 0x0F}));
        ConnectOn(kFirmwareTab);
    }
    void Get() { tool_.firmware.cmdGetUnitFirmware_Click(); }

    FirmwareTab& tab_ = form_.firmware;
};

TEST_F(FirmwareTest, ReadsBothBoardsAndTheSerialNumber) {
    ConnectOnFirmware();
    ASSERT_FALSE(tool_.hand.Click(tab_.cmdGetUnitFirmware));
    EXPECT_EQ(SentTexts(), (std::vector<std::string>{"FA28", "FB28", "FA21"}));
    EXPECT_EQ(tab_.lblRelayVersion.Caption(), "10.2.16");
    EXPECT_EQ(tab_.lblDisplayVersion.Caption(), "1.0.255");
    EXPECT_EQ(tab_.lblType.Caption(), "KMD 305TX");
    EXPECT_EQ(tab_.lblSerialNo.Caption(), "KMD35A0B0F");
    EXPECT_EQ(captions_,
              (std::vector<std::string>{"Reading Relay Version", "Reading Display Version",
                                        "Reading Serial Number", "Getting latest Firmware versions",
                                        "", "Reading Unit Firmware Complete"}));
    ASSERT_EQ(world_.http.requests().size(), 1u);
    EXPECT_EQ(world_.http.requests()[0].url, "http://server.example/kestraneversions/");
    EXPECT_TRUE(world_.http.requests()[0].bypass_cache);
    EXPECT_TRUE(tab_.cmdGetUnitFirmware.Enabled());
    EXPECT_TRUE(form_.changeover.fraDefaultInlet.Enabled());
    EXPECT_TRUE(tab_.lblRelayText.Enabled());
    EXPECT_EQ(hourglasses_, 1);
    EXPECT_EQ(form_.Pointer(), Form::kArrow);
}

TEST_F(FirmwareTest, WithoutLoginOnlyHelpAndTabsComeBack) {
    ConnectOnFirmware();
    session_.AdminLoggedIn = false;
    Get();
    EXPECT_FALSE(tab_.cmdGetUnitFirmware.Enabled());
    EXPECT_FALSE(form_.network.cmdResetEthernet.Enabled());
    EXPECT_TRUE(form_.cmdHelp.Enabled());
    EXPECT_TRUE(form_.SSTab1.Tabs()[0].enabled);
}

TEST_F(FirmwareTest, AFailedCommandKeepsTheLabelsReadSoFar) {
    ConnectOnFirmware();
    tab_.lblSerialNo.SetCaption("old");
    ReplyRaw(kDisplayVersion, "");
    Get();
    EXPECT_EQ(tab_.lblRelayVersion.Caption(), "10.2.16");
    EXPECT_EQ(tab_.lblDisplayVersion.Caption(), "-");
    EXPECT_EQ(tab_.lblType.Caption(), "-");
    EXPECT_EQ(tab_.lblSerialNo.Caption(), "-");
    EXPECT_EQ(captions_.back(), "Reading Display Version");
    EXPECT_TRUE(world_.http.requests().empty());
    EXPECT_TRUE(tab_.cmdGetUnitFirmware.Enabled());
}

TEST_F(FirmwareTest, ADownloadFillsTheLatestVersions) {
    ConnectOnFirmware();
    Get();
    const std::string page = Page(13);
    world_.http.Progress(10, Milliseconds{10});
    world_.http.Complete(page, Milliseconds{20});
    world_.RunFor(Milliseconds{30});
    EXPECT_EQ(tab_.lblRelayLatest.Caption(), "6.0");
    EXPECT_EQ(tab_.lblDisplayLatest.Caption(), "10.0");
    EXPECT_EQ(page.size(), 107u);
    EXPECT_EQ(form_.lblMemoryBlock.Caption(), "107 bytes (42.8 kbps)");
}

TEST_F(FirmwareTest, ADownloadInNoTimeDividesByNothing) {
    ConnectOnFirmware();
    Get();
    world_.http.Complete("");
    world_.RunFor(Milliseconds{1});
    EXPECT_EQ(tab_.lblRelayLatest.Caption(), "");
    EXPECT_EQ(tab_.lblDisplayLatest.Caption(), "");
    EXPECT_EQ(form_.lblMemoryBlock.Caption(), "Reading Unit Firmware Complete") << "no speed";
}

TEST_F(FirmwareTest, AFailedDownloadShowsInThreeLabelsAndBeeps) {
    ConnectOnFirmware();
    Get();
    tab_.lblRelayLatest.SetCaption("x");
    world_.http.Fail(404, "Not found");
    world_.RunFor(Milliseconds{1});
    EXPECT_EQ(form_.lblMemoryBlock.Caption(), "Remote Download failed ");
    EXPECT_EQ(tab_.lblRelayLatest.Caption(), "-");
    EXPECT_EQ(tab_.lblDisplayLatest.Caption(), "-");
    EXPECT_EQ(world_.sound.beeps(), 1);
    EXPECT_TRUE(world_.boxes.shown().empty());
}

TEST_F(FirmwareTest, ADownloadThatOutlivesItsConnectionTouchesNothing) {
    ConnectOnFirmware();
    for (const bool fails : {true, false}) {
        if (!tool_.link.Connected()) ConnectOnFirmware();
        Get();
        fails ? world_.http.Fail(1, "late", Milliseconds{900})
              : world_.http.Complete(Page(13), Milliseconds{900});
        ASSERT_FALSE(tool_.hand.Click(form_.cmdDisconnect));
        ASSERT_FALSE(tool_.hand.Click(form_.cmdConnect));
        world_.RunFor(Milliseconds{2000});
        EXPECT_EQ(tab_.lblRelayLatest.Caption(), "-");
        EXPECT_EQ(form_.lblMemoryBlock.Caption(), "");
        EXPECT_EQ(world_.sound.beeps(), 0);
        ASSERT_FALSE(tool_.hand.Click(form_.cmdDisconnect));
    }
}

TEST_F(FirmwareTest, BootloadSendsThePairsOfTheSerialNumber) {
    ConnectOnFirmware();
    tab_.lblSerialNo.SetCaption("KMD35A0B0F");
    tool_.firmware.cmdRelayBootload_Click();
    tab_.lblSerialNo.SetCaption("-");
    tool_.firmware.cmdRelayBootload_Click();
    tab_.lblSerialNo.SetCaption("FF101A7");
    tool_.firmware.cmdRelayBootload_Click();
    EXPECT_EQ(SentTexts(),
              (std::vector<std::string>{"FA1500D35A0B01", "FA150000000001", "FA15FF101A0701"}));
    EXPECT_EQ(captions_.back(), "Sending Relay Bootload");
    EXPECT_EQ(form_.Pointer(), Form::kArrow);
}

TEST_F(FirmwareTest, BadRepliesOfAnyKindEndInATidyTab) {
    ConnectOnFirmware();
    for (const std::string& command : {kRelayVersion, kDisplayVersion, kSerial}) {
        for (const std::string& reply : BadReplies(command)) {
            SCOPED_TRACE(HexText(reply).substr(0, 80));
            ReplyRaw(command, reply);
            Get();
            EXPECT_TRUE(tab_.cmdGetUnitFirmware.Enabled());
            EXPECT_EQ(form_.Pointer(), Form::kArrow);
        }
        ReplyRaw(command, Framed(command + std::string(7, '\x3A')));
    }
}

TEST_F(FirmwareTest, NothingIsSentWithoutAConnection) {
    tab_.lblType.SetCaption("old");
    Get();
    tool_.firmware.cmdRelayBootload_Click();
    EXPECT_EQ(tab_.lblType.Caption(), "-");
    EXPECT_EQ(world_.tcpsend.dropped_sends(), 0);
    EXPECT_TRUE(form_.cmdHelp.Enabled());
}

TEST(VersionsPage, EveryTypeCodeHasItsEntry) {
    const auto entries = EntriesOf(Page(13));
    const std::pair<const char*, const char*> relay[] = {
        {"3A0", "1.0"},  {"3A1", "2.0"}, {"3A2", "3.0"}, {"3A3", "4.0"},
        {"3A8", "5.0"},  {"3A9", "6.0"}, {"3AA", "7.0"}, {"3AB", "8.0"},
        {"3A5", "13.0"}, {"3A4", "-"},   {"", "-"},      {"FFF", "-"}};
    for (const auto& [code, version] : relay) EXPECT_EQ(LatestRelayVersion(entries, code), version);
    const std::pair<const char*, const char*> display[] = {
        {"3D0", "9.0"}, {"3D1", "10.0"}, {"3D3", "11.0"}, {"3D9", "-"}, {"3A0", "-"}};
    for (const auto& [code, version] : display) {
        EXPECT_EQ(LatestDisplayVersion(entries, code), version);
    }
}

TEST(VersionsPage, OddPagesGiveWhatTheyHold) {
    EXPECT_EQ(LatestRelayVersion(EntriesOf(""), "3A0"), "");
    EXPECT_EQ(LatestRelayVersion(EntriesOf("abc"), "3A0"), "");
    EXPECT_EQ(LatestRelayVersion(EntriesOf(Page(4)), "3A3"), "4.0");
    EXPECT_EQ(LatestRelayVersion(EntriesOf(Page(4)), "3A5"), "");
    EXPECT_EQ(LatestRelayVersion(EntriesOf("  abcd3.0"), "3A2"), "3.0");
    EXPECT_EQ(LatestRelayVersion(EntriesOf(Page(20)), "3A5"), "13.0");
    EXPECT_EQ(EntriesOf(std::string(1 << 20, ' ')).size(), 13u);
    EXPECT_EQ(LatestRelayVersion(EntriesOf("abcd\xFF\x01"), "3A0"), "\xFF\x01");
}

TEST(VersionsPage, SummaryInThousandsAndTenths) {
    EXPECT_EQ(DownloadSummary(999, 1000), "999 bytes (8.0 kbps)");
    EXPECT_EQ(DownloadSummary(1234567, 1000), "1,234,567 bytes (9876.5 kbps)");
    EXPECT_EQ(DownloadSummary(1, 160), "1 bytes (0.1 kbps)");  // 0.05, a half is rounded up
}

class NetGrabTest : public testing::Test {
  protected:
    using Milliseconds = std::chrono::milliseconds;

    NetGrabTest() {
        grab_.Complete = [this](std::size_t n) { events_.push_back("c" + std::to_string(n)); };
        grab_.Failed = [this](int n, const std::string& text) {
            events_.push_back("f" + std::to_string(n) + text);
        };
        grab_.Progress = [this](std::size_t n) { events_.push_back("p" + std::to_string(n)); };
    }

    VirtualPlatform world_;
    NetGrab grab_{world_.platform()};
    std::vector<std::string> events_;
};

TEST_F(NetGrabTest, ANewStartEndsTheOldFetch) {
    grab_.DownloadStart("", NetGrab::kForcedRefresh);
    EXPECT_TRUE(world_.http.requests().empty());
    grab_.DownloadStart("http://a", 0);
    EXPECT_TRUE(grab_.Busy());
    world_.http.Complete("old", Milliseconds{50});
    grab_.DownloadStart("http://b", NetGrab::kForcedRefresh);
    world_.http.Progress(2, Milliseconds{60});
    world_.http.Complete("new", Milliseconds{70});
    world_.RunFor(Milliseconds{100});
    EXPECT_EQ(events_, (std::vector<std::string>{"p2", "c3"}));
    EXPECT_EQ(grab_.Bytes(), "new");
    EXPECT_EQ(grab_.Duration(), 70u);
    EXPECT_FALSE(grab_.Busy());
    EXPECT_FALSE(world_.http.requests()[0].bypass_cache);
}

TEST_F(NetGrabTest, CancelAndFailureEndInIdle) {
    grab_.DownloadStart("http://a", 0);
    world_.http.Complete("late", Milliseconds{5});
    grab_.DownloadCancel();
    EXPECT_FALSE(grab_.Busy());
    grab_.DownloadStart("http://a", 0);
    world_.http.Fail(7, "refused", Milliseconds{20});
    world_.RunFor(Milliseconds{30});
    EXPECT_EQ(events_, std::vector<std::string>{"f7refused"});
    EXPECT_FALSE(grab_.Busy());
    EXPECT_EQ(grab_.Duration(), 20u);
}

TEST_F(NetGrabTest, TicksMayWrapAndMayBeNought) {
    world_.clock.SetTickCount(0xFFFFFFF0u);
    grab_.DownloadStart("http://a", 0);
    world_.http.Complete("x", Milliseconds{32});
    world_.RunFor(Milliseconds{40});
    EXPECT_EQ(grab_.Duration(), 32u);
    world_.clock.SetTickCount(0);
    grab_.DownloadStart("http://a", 0);
    EXPECT_FALSE(grab_.Busy());
    world_.http.Complete("xy", Milliseconds{5});
    world_.RunFor(Milliseconds{10});
    EXPECT_EQ(events_.back(), "c2");
}

TEST_F(NetGrabTest, SavesItsBytesInPlaceOfAFile) {
    const std::string path = testing::TempDir() + "net_grab_test.bin";
    EXPECT_FALSE(grab_.SaveAs(path));
    grab_.DownloadStart("http://a", 0);
    world_.http.Complete(std::string("a\r\n\0b", 5));
    world_.RunFor(Milliseconds{1});
    std::ofstream(path) << "something longer than that";
    EXPECT_TRUE(grab_.SaveAs(path));
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    EXPECT_EQ(content.str(), std::string("a\r\n\0b", 5));
    std::remove(path.c_str());
    EXPECT_FALSE(grab_.SaveAs(testing::TempDir() + "no/such/folder/file"));
}

}  // namespace
}  // namespace kestrane
