// The page of the latest versions: what it says, and the fetch. The tab stands in firmware.story.

#include "features/versions_page.h"

#include <gtest/gtest.h>

#include "features/net_grab.h"
#include "support/virtual_platform.h"

namespace kestrane {
namespace {

// Entry n has the version n.0.
std::string Page(int entries) {
    std::string page;
    for (int i = 1; i <= entries; ++i) {
        page += (i > 1 ? " " : "") + std::string("abc:") + std::to_string(i) + ".0";
    }
    return page;
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
    world_.disk.files["page"] = "something longer than that";
    EXPECT_FALSE(grab_.SaveAs("page")) << "nothing has been fetched";
    grab_.DownloadStart("http://a", 0);
    world_.http.Complete(std::string("a\r\n\0b", 5));
    world_.RunFor(Milliseconds{1});
    EXPECT_TRUE(grab_.SaveAs("page"));
    EXPECT_EQ(world_.disk.files["page"], std::string("a\r\n\0b", 5));
    world_.disk.faults["full"] = "No space left on device";
    EXPECT_FALSE(grab_.SaveAs("full"));
}

}  // namespace
}  // namespace kestrane
