#pragma once

// A whole tool on virtual time with a small unit at the other end, whose memory and answers a test
// sets.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "screen/screen_helpers.h"
#include "support/memory_peer.h"
#include "support/tool_on_line.h"

namespace kestrane {

class FeatureTest : public testing::Test, public ToolOnLine {
  protected:
    using Milliseconds = std::chrono::milliseconds;

    // Connected as administrator with this tab on the screen.
    void ConnectOn(int tab) {
        Connect();
        session.AdminLoggedIn = true;
        SetTabsEnabled(form, true);
        form.SSTab1.SetTabVisible(tab, true);
        form.SSTab1.SetTab(tab);
        world.tcpsend.ClearSent();
    }
    // The texts of all frames sent, as hexadecimal digits.
    std::vector<std::string> SentTexts() const {
        std::vector<std::string> texts;
        for (const auto& frame : world.tcpsend.frames()) {
            texts.push_back(HexText(TextOfFrame(frame.bytes)));
        }
        return texts;
    }

    MemoryPeer peer{world.tcpsend};
};

}  // namespace kestrane
