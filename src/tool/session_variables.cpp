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
SessionVariable Bounded(const char* name, Integer& number, long least, long most) {
    return {name, [&number]() -> Value { return static_cast<long>(number); },
            [&number, least, most](const Value& value) -> std::optional<std::string> {
                const auto* given = std::get_if<long>(&value);
                if (!given || *given < least || *given > most) {
                    return "takes a number from " + std::to_string(least) + " to " +
                           std::to_string(most);
                }
                number = static_cast<Integer>(*given);
                return {};
            }};
}

template <class Integer>
SessionVariable Number(const char* name, Integer& number) {
    return Bounded(name, number, std::numeric_limits<Integer>::min(),
                   std::numeric_limits<Integer>::max());
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
        Bounded("RelayAddress", s.RelayAddress, 0, 255),
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
        Bounded("LastTabIndex", s.LastTabIndex, -1, tool.main_form.SSTab1.TabCount() - 1),
        Bounded("ConnectedPortIndex", s.ConnectedPortIndex, 0, 3),
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
        Bounded("ListRow", editor.ListRow, 0, 15),
        Number("CurrentOpcode", editor.CurrentOpcode),
        Number("CurrentSecondByte", editor.CurrentSecondByte),
        {"tcpsend.state", [&socket]() -> Value { return static_cast<long>(socket.State()); },
         [](const Value&) -> std::optional<std::string> { return "can't be set"; }},
    };
}

}  // namespace kestrane
