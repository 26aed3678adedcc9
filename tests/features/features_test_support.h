#pragma once

// A whole tool on virtual time with a small unit behind it: memory by board and address, answers
// of other commands by their text. A reply can be replaced or left out by the command's text.

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "link/frame.h"
#include "screen/screen_helpers.h"
#include "support/scripted_peer.h"
#include "support/virtual_platform.h"
#include "text/text.h"
#include "tool/tool.h"

namespace kestrane {

// The address, code and arguments inside a frame.
inline std::string TextOfFrame(std::string_view frame) {
    std::string text(frame.substr(2, frame.size() - 4));
    RemoveEscapes(text);
    text.pop_back();
    return text;
}

// The frame around a text.
inline std::string Framed(std::string text) {
    AddEscapesAndChecksum(text);
    return FrameOf(text);
}

class FeatureTest : public testing::Test, private ScreenListener {
  protected:
    using Milliseconds = std::chrono::milliseconds;

    explicit FeatureTest(ToolOptions options = {}) : tool_(world_.platform(), std::move(options)) {
        tool_.screen.AddListener(*this);
        tool_.Start();
    }
    ~FeatureTest() override { tool_.screen.RemoveListener(*this); }

    // Connected as administrator with this tab on the screen.
    void ConnectOn(int tab) {
        ASSERT_FALSE(tool_.hand.Click(form_.cmdConnect));
        world_.RunFor(Milliseconds{250});
        ASSERT_TRUE(tool_.link.Connected());
        session_.AdminLoggedIn = true;
        SetTabsEnabled(form_, true);
        form_.SSTab1.SetTabVisible(tab, true);
        form_.SSTab1.SetTab(tab);
        world_.tcpsend.ClearSent();
        captions_.clear();
    }

    // The texts of all frames sent, as hexadecimal digits.
    std::vector<std::string> SentTexts() const {
        std::vector<std::string> texts;
        for (const auto& frame : world_.tcpsend.frames()) {
            texts.push_back(HexText(TextOfFrame(frame.bytes)));
        }
        return texts;
    }

    void Store(int board, int address, std::string block) {
        memory_[{board, address}] = std::move(block);
    }
    // What follows the echo of this command.
    void Answer(const std::string& command, std::string data) {
        answers_[command] = std::move(data);
    }
    // The whole reply to this command, byte for byte; "" is silence.
    void ReplyRaw(const std::string& command, std::string reply) {
        raw_[command] = std::move(reply);
    }

    VirtualPlatform world_;
    Tool tool_;
    MainForm& form_ = tool_.main_form;
    Session& session_ = tool_.session;
    ScriptedPeer peer_{world_.tcpsend, [this](std::string_view frame) { return Reply(frame); }};
    std::map<std::pair<int, int>, std::string> memory_;
    // Every caption of lblMemoryBlock since ConnectOn.
    std::vector<std::string> captions_;
    int hourglasses_ = 0;

  private:
    std::string Reply(std::string_view frame) {
        const std::string text = TextOfFrame(frame);
        if (const auto raw = raw_.find(text); raw != raw_.end()) return raw->second;
        if (const auto answer = answers_.find(text); answer != answers_.end()) {
            return Framed(text + answer->second);
        }
        const std::pair place{ByteAt(text, 1), ByteAt(text, 3) * 256 + ByteAt(text, 4)};
        if (ByteAt(text, 2) == kWriteMemory) memory_[place] = Mid(text, 6);
        if (ByteAt(text, 2) != kReadMemory) return Framed(text);
        const auto count = static_cast<std::size_t>(ByteAt(text, 5));
        return Framed(text + PadRight(memory_[place], count));
    }

    void ControlChanged(Control& control, Property property) override {
        if (&control == &form_.lblMemoryBlock && property == Property::kCaption) {
            captions_.push_back(form_.lblMemoryBlock.Caption());
        }
        if (property == Property::kPointer && form_.Pointer() == Form::kHourglass) ++hourglasses_;
    }

    std::map<std::string, std::string> answers_;
    std::map<std::string, std::string> raw_;
};

// The bytes that a unit gone mad may send, behind a good echo of `command` and bare.
inline std::vector<std::string> BadReplies(const std::string& command) {
    std::vector<std::string> replies = {Framed(command), Framed(command + "x"),
                                        Framed(command + std::string(5000, 'y')), "\x10",
                                        std::string(3, '\x10')};
    for (const char filler : {'\x10', '\x20', '\xFF', '\x00'}) {
        replies.push_back(Framed(command + std::string(16, filler)));
        replies.push_back(Framed(command) + std::string(40, filler));
        replies.push_back(std::string(40, filler));
    }
    std::string echo = command;
    AddEscapesAndChecksum(echo);
    replies.push_back("\x10\x02" + echo.substr(0, echo.size() - 1));  // nothing behind the echo
    return replies;
}

}  // namespace kestrane
