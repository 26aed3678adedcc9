#pragma once

// A changeover unit behind the whole tool: its records, the panel on the screen.

#include <string>

#include "features_test_support.h"

namespace kestrane {

inline constexpr int kChangeoverTab = 6;
inline constexpr int kRelay = 250;
inline const std::string kStartupRead = ReadCommand(kRelay, 0x000A, 6);
inline const std::string kStatusCommand = Bytes({kRelay, kReadLiveStatus});
inline const std::string kLiveCommand = Bytes({kRelay, kReadSecondStatus});

inline std::string Status(int flags_high) {
    return Bytes({0, 0, 0, 0, 0, flags_high, 0, 0, 0, 0, 0, 0, 0});
}
inline constexpr int kBoth = 0xC0;
inline constexpr int kMainOnly = 0x40;
inline constexpr int kBackupOnly = 0x80;

// Live values 11 to 14, inlet 2, measured 20 and 21, phases 100 and 16, counter 7, lockout 9.
inline std::string Live(int first = 11) {
    return Bytes({0, 0, first, 12, 13, 14, 2, 20, 21, 100, 16, 7, 1, 2, 3, 0, 9, 0, 0});
}

class ChangeoverTest : public FeatureTest {
  protected:
    void ConnectOnPanel() {
        Store(kRelay, 0x000A, Bytes({1, 16, 3, 4, 5, 4}));
        Answer(kStatusCommand, Status(kBoth));
        Answer(kLiveCommand, Live());
        ConnectOn(kChangeoverTab);
    }
    void Read() { ASSERT_FALSE(tool_.hand.Click(tab_.cmdReadCMSOptions)); }
    // Long enough for one more pass to end.
    void Refresh() {
        tab_.lblLockout.SetCaption("");
        world_.loop.RunUntil([&] { return !tab_.lblLockout.Caption().empty(); },
                             Milliseconds{2000});
    }
    void ReadAndRefresh() {
        Read();
        Refresh();
    }
    // Between two passes, so that none is under way in a save.
    void StopPolls() {
        form_.timCMSOptions.SetEnabled(false);
        world_.RunFor(Milliseconds{1000});
    }
    std::size_t Polls() const { return SentTexts().size(); }

    ChangeoverTab& tab_ = form_.changeover;
};

}  // namespace kestrane
