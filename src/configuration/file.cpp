#include "configuration/file.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "text/terminal.h"
#include "text/text.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

using Json = nlohmann::ordered_json;

Json ToJson(const SettingValue& value) {
    if (const bool* flag = std::get_if<bool>(&value)) return *flag;
    if (const long* number = std::get_if<long>(&value)) return *number;
    return FromByteText(std::get<std::string>(value));
}

// The place in nested objects that a dotted key names, made where it is missing.
Json& Place(Json& root, const std::string& key) {
    Json* at = &root;
    for (std::size_t begin = 0; begin <= key.size();) {
        const std::size_t dot = std::min(key.find('.', begin), key.size());
        at = &(*at)[key.substr(begin, dot - begin)];
        begin = dot + 1;
    }
    return *at;
}
// A backup may go to a terminal: U+0080 to U+009F, which JSON leaves as they are, as \u escapes.
std::string WithoutControlCodes(const std::string& json) {
    std::string text;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const auto next = static_cast<std::uint8_t>(i + 1 < json.size() ? json[i + 1] : 0);
        if (json[i] == '\xC2' && next < 0xA0) {
            text += "\\u00" + HexByte(next);
            ++i;
        } else {
            text += json[i];
        }
    }
    return text;
}

}  // namespace

std::string FileFault::Line(const std::string& file) const {
    const auto shown = [](const std::string& utf8) {
        const auto bytes = ToByteText(utf8);
        return bytes ? ShownText(*bytes) : std::string("?");
    };
    return file + ":" + std::to_string(at.line) + ":" + std::to_string(at.column) + ": " +
           (key.empty() ? "" : shown(key) + ": ") + shown(sentence);
}

std::optional<std::string> CheckTogether(const SettingValues& values) {
    const auto is = [&](const char* key, const SettingValue& wanted) {
        const auto found = values.find(FindSetting(key));
        return found != values.end() && found->second == wanted;
    };
    const bool blank_byte = is("arp.repeat", std::string("1 minute")) && is("arp.req_ff", false) &&
                            is("arp.resp_ff", false) && is("arp.req_00", false) &&
                            is("arp.reset_on_traffic", false);
    if (!blank_byte) return {};
    return "must not be \"1 minute\" while no ARP switch is on; the unit could not be read "
           "afterwards, switch one on or take another time";
}

std::string WriteConfiguration(const UnitFacts& unit, const SettingValues& values,
                               const LeftOut& left_out) {
    Json file;
    file["format"] = kConfigurationFormat;
    file["version"] = kConfigurationVersion;
    if (!unit.type.empty()) {
        file["unit"] = {{"type", FromByteText(unit.type)},
                        {"serial", FromByteText(unit.serial)},
                        {"relay_firmware", FromByteText(unit.relay_firmware)},
                        {"display_firmware", FromByteText(unit.display_firmware)}};
    }
    Json settings = Json::object();
    Json missing = Json::object();
    for (const Setting& setting : Settings()) {
        const auto value = values.find(&setting);
        if (value != values.end()) Place(settings, setting.key) = ToJson(value->second);
        const auto why = left_out.find(&setting);
        if (why != left_out.end()) missing[setting.key] = why->second;
    }
    file["settings"] = std::move(settings);
    file["left_out"] = std::move(missing);
    return WithoutControlCodes(file.dump(2)) + "\n";
}

}  // namespace kestrane
