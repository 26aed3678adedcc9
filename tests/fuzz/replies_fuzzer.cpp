// Any bytes as a unit's replies: a whole tool on virtual time connects and does what the first
// byte says, and the rest answers its frames. The tool must come back to its idle state, whatever
// it was told, and no wait may go on without an end.

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "support/memory_peer.h"
#include "support/virtual_platform.h"
#include "tool/tool.h"

namespace {

using namespace kestrane;
using std::chrono::seconds;

// Hands out the input piece by piece. A length byte below 0xE0 begins the data of a reply with the
// echo of its question, correctly framed, so that the decoders are reached; others begin bytes that
// are sent as they are.
class Replies {
  public:
    explicit Replies(std::string_view input) : left_(input) {}

    std::string Next(std::string_view question) {
        if (left_.empty()) return {};
        const auto length = static_cast<std::uint8_t>(left_.front());
        const std::string_view data = left_.substr(1, length % 32u);
        left_.remove_prefix(1 + data.size());
        if (length >= 0xE0 || question.size() < 6) return std::string(data);
        return Framed(TextOfFrame(question) + std::string(data));
    }

  private:
    std::string_view left_;
};

void Act(Tool& tool, int which) {
    MainForm& form = tool.main_form;
    const std::array buttons = {
        &form.network.cmdReadNetworkSettings, &form.names.cmdReadChannelNames,
        &form.triggers.cmdReadMacroTriggers,  &form.one_wire.cmdRead1WNames,
        &form.one_wire.cmdRead1WLive,         &form.firmware.cmdGetUnitFirmware,
        &form.privileges.cmdReadTCPPortPriv,  &form.security.cmdReadWBISettings,
        &form.changeover.cmdReadCMSOptions,   &form.network.cmdWriteNetworkSettings};
    const auto number = static_cast<std::size_t>(which) % (buttons.size() + 2);
    if (number < buttons.size()) {
        buttons[number]->on_click();
        return;
    }
    form.SSTab1.SetTab(number == buttons.size() ? 6 : 0);
    if (number > buttons.size()) tool.script_edit_form.cmdDownload.on_click();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size == 0) return 0;
    VirtualPlatform world;
    Replies replies(std::string_view(reinterpret_cast<const char*>(bytes) + 1, size - 1));
    Tool tool(world.platform());
    ScriptedPeer peer(world.tcpsend, [&](std::string_view frame) { return replies.Next(frame); });
    tool.Start();
    tool.main_form.cmdConnect.on_click();
    world.RunFor(seconds(1));
    Act(tool, bytes[0]);
    world.RunFor(seconds(2));
    tool.main_form.cmdDisconnect.on_click();
    world.RunFor(seconds(1));
    if (tool.link.platform().tcpsend.State() == SocketState::kConnected) std::abort();
    return 0;
}
