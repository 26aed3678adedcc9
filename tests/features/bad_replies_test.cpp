// Bytes that a unit gone mad may send, in the place of each kind of reply: every read ends in a
// tidy tab.

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

constexpr int kRelay = 250;
constexpr int kDisplay = 251;

// After a good echo of `command`, and bare.
std::vector<std::string> BadRepliesTo(const std::string& command) {
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
    replies.push_back("\x10\x02" + echo.substr(0, echo.size() - 1));  // nothing after the echo
    replies.push_back("\x10\x02" + echo);                             // no end
    return replies;
}

struct Read {
    int tab;
    const char* button;
    std::vector<std::string> commands;
};

class BadReplies : public testing::TestWithParam<Read>, public ToolOnMemory {};

TEST_P(BadReplies, EndInATidyTab) {
    const Read& read = GetParam();
    ConnectOn(read.tab);
    session.ConnectedPortIndex = 3;
    for (const std::string& command : read.commands) {
        for (const std::string& reply : BadRepliesTo(command)) {
            SCOPED_TRACE(HexText(reply).substr(0, 80));
            peer.ReplyRaw(command, reply);
            form.Find(read.button)->on_click();
            Wait(form.timCMSOptions.Enabled() ? 1500 : 0);
            EXPECT_EQ(form.Pointer(), Form::kArrow);
            EXPECT_TRUE(form.cmdHelp.Enabled());
            EXPECT_TRUE(form.Find(read.button)->Enabled());
            for (const Control* control : form.controls()) {
                const auto* box = dynamic_cast<const TextBox*>(control);
                if (!box || box->MaxLength() < 8) continue;  // pages show any byte
                EXPECT_LE(box->Text().size(), static_cast<std::size_t>(box->MaxLength()))
                    << box->name();
            }
            for (const int column : {1130, 1230}) {
                EXPECT_NE(form.privileges.lblPrivByte(column).Caption(), "-1");
            }
        }
        peer.ReplyRaw(command, Framed(command + std::string(7, '\x3A')));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Of, BadReplies,
    testing::Values(Read{1,
                         "cmdReadTCPPortPriv",
                         {ReadCommand(kRelay, 0x03E4, 2), ReadCommand(kDisplay, 0x03E4, 2)}},
                    Read{2, "cmdReadWBISettings", {ReadCommand(kDisplay, 0x02C0)}},
                    Read{3, "cmdReadChannelNames", {ReadCommand(kDisplay, 0x0090)}},
                    Read{4, "cmdReadMacroTriggers", {ReadCommand(kDisplay, 0x0210)}},
                    Read{5,
                         "cmdRead1WNames",
                         {Bytes({kRelay, 0x82, 1, 1}), Bytes({kRelay, 0x82, 1, 16}),
                          ReadCommand(kRelay, 0x0200), ReadCommand(kRelay, 0x0280),
                          ReadCommand(kDisplay, 0x0160)}},
                    Read{6,
                         "cmdReadCMSOptions",
                         {ReadCommand(kRelay, 0x000A, 6), Bytes({kRelay, kReadLiveStatus}),
                          Bytes({kRelay, kReadSecondStatus})}},
                    Read{7,
                         "cmdGetUnitFirmware",
                         {Bytes({kRelay, kReadFirmwareVersion}),
                          Bytes({kDisplay, kReadFirmwareVersion}),
                          Bytes({kRelay, kReadSerialNumber})}}),
    [](const auto& read) { return std::string(read.param.button); });

}  // namespace
}  // namespace kestrane
