#pragma once

// A whole tool on virtual time, with short words for what a hand does and what is on the screen:
// given a unit, when a hand does this, then these bytes went out and this is on the screen.

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "screen/screen_helpers.h"
#include "support/memory_peer.h"
#include "support/scripted_peer.h"
#include "support/unit_peer.h"
#include "support/virtual_platform.h"
#include "text/text.h"
#include "tool/tool.h"

namespace kestrane {

struct ToolOnLine {
    VirtualPlatform world;
    Tool tool{world.platform()};
    MainForm& form = tool.main_form;
    NetworkTab& network = tool.main_form.network;
    Session& session = tool.session;

    ToolOnLine() { tool.Start(); }

    void Wait(int milliseconds) { world.RunFor(std::chrono::milliseconds(milliseconds)); }
    // Connects and lets the reader see it.
    void Connect() {
        Click(form.cmdConnect);
        Wait(250);
        ASSERT_EQ(form.lblNotLoggedIn.Caption(), "Socket is connected");
    }
    // Connected as administrator with this tab on the screen.
    void ConnectOn(int tab) {
        Connect();
        session.AdminLoggedIn = true;
        SetTabsEnabled(form, true);
        form.SSTab1.SetTabVisible(tab, true);
        form.SSTab1.SetTab(tab);
        world.tcpsend.ClearSent();
    }
    void Click(Control& control) { EXPECT_EQ(tool.hand.Click(control).value_or(""), ""); }
    void Type(TextBox& box, const std::string& text) {
        EXPECT_EQ(tool.hand.Type(box, text).value_or(""), "");
    }
    // Something that happens in the middle of a wait. A handling that waits is begun so, too, or
    // else the test itself would stand still until it has returned.
    void After(int milliseconds, std::function<void()> action) {
        world.time.After(std::chrono::milliseconds(milliseconds), std::move(action));
    }
    std::string LastBox() const {
        const auto& shown = world.boxes.shown();
        return shown.empty() ? "" : shown.back().title + "|" + shown.back().text;
    }
    // The frames sent since the last call of ClearSent, as hexadecimal text.
    std::vector<std::string> Sent() const {
        std::vector<std::string> frames;
        for (const std::string& frame : world.tcpsend.sent()) frames.push_back(HexText(frame));
        return frames;
    }
    // Only the texts of these frames: address, code and arguments, without doubling.
    std::vector<std::string> SentTexts() const {
        std::vector<std::string> texts;
        for (const std::string& frame : world.tcpsend.sent()) {
            texts.push_back(HexText(TextOfFrame(frame)));
        }
        return texts;
    }
};

// With the demo unit at the other end.
struct ToolOnUnit : ToolOnLine {
    explicit ToolOnUnit(const unit::UnitOptions& options = {})
        : peer(world.tcpsend, world.time, options) {}

    void ReadSettings() {
        Connect();
        Click(network.cmdReadNetworkSettings);
    }

    UnitPeer peer;
};

// With a memory whose answers the test sets.
struct ToolOnMemory : ToolOnLine {
    MemoryPeer peer{world.tcpsend};
};

// With a peer that the test writes.
struct ToolOnScript : ToolOnLine {
    ScriptedPeer peer{world.tcpsend};
};

}  // namespace kestrane
