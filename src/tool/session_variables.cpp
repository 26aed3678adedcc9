#include "tool/session_variables.h"

#include <limits>
#include <type_traits>

namespace kestrane {
namespace {

SessionVariable Text(const char* name, std::string& text) {
    return {name, [&text]() -> Value { return text; },
            [&text](const Value& value) -> std::optional<std::string> {
                const auto* given = std::get_if<std::string>(&value);
                if (!given) return "takes a text";
                text = *given;
                return {};
            }};
}

SessionVariable Flag(const char* name, bool& flag) {
    return {name, [&flag]() -> Value { return flag; },
            [&flag](const Value& value) -> std::optional<std::string> {
                const auto* given = std::get_if<bool>(&value);
                if (!given) return "takes true or false";
                flag = *given;
                return {};
            }};
}

template <class Integer>
SessionVariable Number(const char* name, Integer& number) {
    return {name, [&number]() -> Value { return static_cast<long>(number); },
            [&number](const Value& value) -> std::optional<std::string> {
                const auto* given = std::get_if<long>(&value);
                if (!given || *given < std::numeric_limits<Integer>::min() ||
                    *given > std::numeric_limits<Integer>::max()) {
                    return "takes a number in its range";
                }
                number = static_cast<Integer>(*given);
                return {};
            }};
}

// The whole image as a text of 512 bytes.
SessionVariable ImageText(const char* name, MacroMemory& image) {
    return {name,
            [&image]() -> Value {
                std::string text;
                for (std::size_t i = 0; i < MacroMemory::kSize; ++i) {
                    text.push_back(static_cast<char>(image.Get(i)));
                }
                return text;
            },
            [&image](const Value& value) -> std::optional<std::string> {
                const auto* given = std::get_if<std::string>(&value);
                if (!given || given->size() != MacroMemory::kSize)
                    return "takes a text of 512 bytes";
                for (std::size_t i = 0; i < MacroMemory::kSize; ++i) {
                    image.Set(i, static_cast<std::uint8_t>((*given)[i]));
                }
                return {};
            }};
}

}  // namespace

std::vector<SessionVariable> SessionVariables(Tool& tool) {
    Session& s = tool.session;
    EditorState& editor = tool.macro_editor.state();
    TcpClient& socket = tool.link.platform().tcpsend;
    return {
        Number("RelayAddress", s.RelayAddress),
        Number("DisplayAddress", s.DisplayAddress),
        Flag("CommandDone", s.CommandDone),
        Text("ReplyBuffer", s.ReplyBuffer),
        Text("FrameBuffer", s.FrameBuffer),
        Text("UnitType", s.UnitType),
        Text("UnitSerialBytes", s.UnitSerialBytes),
        Flag("AdminLoggedIn", s.AdminLoggedIn),
        Number("PasswordConfirmed", s.PasswordConfirmed),
        Number("PasswordLevel", s.PasswordLevel),
        Flag("LinkIsDown", s.LinkIsDown),
        Flag("ChannelNamesRead", s.ChannelNamesRead),
        Flag("MacroTriggersRead", s.MacroTriggersRead),
        Flag("OneWireRead", s.OneWireRead),
        Flag("ChangeoverRead", s.ChangeoverRead),
        Flag("OneWireUnsupported", s.OneWireUnsupported),
        Number("LastTabIndex", s.LastTabIndex),
        Number("ConnectedPortIndex", s.ConnectedPortIndex),
        Flag("UserDisconnected", s.UserDisconnected),
        Flag("ReadButtonArmed", s.ReadButtonArmed),
        Flag("DataValid", s.DataValid),
        Number("IPChanged", s.IPChanged),
        Number("PortChanged", s.PortChanged),
        Flag("MacroChanged", s.MacroChanged),
        Flag("MacroTriggersChanged", s.MacroTriggersChanged),
        Text("ChangeoverStatus", s.ChangeoverStatus),
        ImageText("MacroMemory", editor.image),
        Number("MemPointer", editor.MemPointer),
        Number("ListTop", editor.ListTop),
        Number("ListRow", editor.ListRow),
        Number("CurrentOpcode", editor.CurrentOpcode),
        Number("CurrentSecondByte", editor.CurrentSecondByte),
        {"tcpsend.state", [&socket]() -> Value { return static_cast<long>(socket.State()); },
         [](const Value&) -> std::optional<std::string> { return "can't be set"; }},
    };
}

}  // namespace kestrane
