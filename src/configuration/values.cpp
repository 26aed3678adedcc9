#include "configuration/values.h"

#include <algorithm>
#include <charconv>

#include "settings/quad.h"
#include "text/terminal.h"
#include "text/text.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEFabcdef";
constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.";
constexpr int kBlank = 0x20;
constexpr std::size_t kKeyDigits = 32;
constexpr std::size_t kMacroBytes = 5;  // "C6 03"

using Fault = std::optional<std::string>;

bool AreHexDigits(std::string_view text) {
    return text.find_first_not_of(kHexDigits) == std::string_view::npos;
}

bool IsMacroLine(const std::string& text) {
    return text.size() >= kMacroBytes && AreHexDigits(text.substr(0, 2)) && text[2] == ' ' &&
           AreHexDigits(text.substr(3, 2)) && (text.size() == kMacroBytes || text[5] == ' ');
}

bool IsQuad(const std::string& text) {
    std::string quad = text;
    std::string bytes;
    bool valid = false;
    DecodeQuad(quad, bytes, valid);
    return valid && std::count(text.begin(), text.end(), '.') == 3 && text.back() != '.';
}

// The characters that the editors of these boxes refuse. Those above ASCII can be in a unit's
// memory that was never programmed.
bool IsRefusedCharacter(const Setting& setting, char c) {
    const auto code = static_cast<unsigned char>(c);
    if (code < kBlank || code == 0x7F) return true;
    if (code > 0x7F) return false;
    if (setting.key == "network.netbios_name") {
        return std::string_view(kLetters).find(c) == std::string_view::npos;
    }
    return setting.write_only && code == kBlank;
}

Fault CheckText(const Setting& setting, const std::string& text) {
    if (text.size() > static_cast<std::size_t>(setting.max_length)) {
        return "is longer than " + std::to_string(setting.max_length) + " characters";
    }
    const bool blank_ends = !text.empty() && (text.front() == ' ' || text.back() == ' ');
    if (blank_ends) return "begins or ends with a blank, which would not come back; leave it out";
    const auto refused = std::find_if(text.begin(), text.end(),
                                      [&](char c) { return IsRefusedCharacter(setting, c); });
    if (refused == text.end()) return {};
    const auto code = static_cast<unsigned char>(*refused);
    if (code < kBlank || code == 0x7F) {
        return "holds a control character; a text takes printable characters";
    }
    if (setting.write_only) return "holds a blank; a password takes any other character";
    return "holds the character \"" + std::string(1, *refused) +
           "\"; a NetBIOS name takes letters, digits, \"-\", \"_\" and \".\"";
}

Fault CheckNumber(const Setting& setting, long number) {
    if (number < setting.least || number > setting.most) {
        return "is out of range; it takes " + std::to_string(setting.least) + " to " +
               std::to_string(setting.most);
    }
    if (number % setting.step != 0) {
        return "is not a multiple of " + std::to_string(setting.step);
    }
    // Their byte would be a blank, which a read takes for nothing.
    constexpr const char* kUnreadable =
        "; the unit could not be read with this value, take another";
    if (setting.key == "ports.disconnect_timeout" && number == 320) {
        return std::string("must not be 320") + kUnreadable;
    }
    if (setting.key.ends_with(".attack_limit") && number == 32) {
        return std::string("must not be 32") + kUnreadable;
    }
    return {};
}

std::string Choices(const Setting& setting) {
    std::string all;
    for (const std::string& choice : setting.choices) {
        all += (all.empty() ? "\"" : ", \"") + choice + "\"";
    }
    return all;
}

Fault CheckString(const Setting& setting, const std::string& text) {
    switch (setting.kind) {
        case SettingKind::kText:
            return CheckText(setting, text);
        case SettingKind::kQuad:
            if (IsQuad(text)) return {};
            return "is not an address of four numbers from 0 to 255 with points between";
        case SettingKind::kChoice:
            if (std::count(setting.choices.begin(), setting.choices.end(), text) > 0) return {};
            return "is not one of its choices; it takes one of " + Choices(setting);
        case SettingKind::kHexKey:
            if (text.size() == kKeyDigits && AreHexDigits(text)) return {};
            return "is not a key of 32 hexadecimal digits";
        case SettingKind::kHexByte:
            if (text.empty() && setting.key.ends_with(".address")) return {};
            if (text.size() == 2 && AreHexDigits(text)) return {};
            return "is not a number of two hexadecimal digits";
        case SettingKind::kMacroLine:
            if (IsMacroLine(text)) return {};
            return "is not two bytes in hexadecimal, such as \"C6 03\"";
        case SettingKind::kNumber:
        case SettingKind::kSwitch:
            break;
    }
    return {};
}

}  // namespace

std::optional<std::string> CheckValue(const Setting& setting, const SettingValue& value) {
    if (setting.kind == SettingKind::kSwitch) {
        if (std::holds_alternative<bool>(value)) return {};
        return "takes true or false";
    }
    if (setting.kind == SettingKind::kNumber) {
        if (const long* number = std::get_if<long>(&value)) return CheckNumber(setting, *number);
        return "takes a number from " + std::to_string(setting.least) + " to " +
               std::to_string(setting.most) + ", without quotes";
    }
    if (const auto* text = std::get_if<std::string>(&value)) return CheckString(setting, *text);
    return "takes a text in quotes";
}

SettingValue Normal(const Setting& setting, SettingValue value) {
    auto* const text = std::get_if<std::string>(&value);
    if (!text) return value;
    switch (setting.kind) {
        case SettingKind::kHexKey:
            *text = UpperCase(*text);
            break;
        case SettingKind::kHexByte:
            *text = UpperCase(*text);
            if (*text == "00" && setting.key.ends_with(".address")) text->clear();
            break;
        case SettingKind::kMacroLine:
            *text = UpperCase(text->substr(0, kMacroBytes));
            break;
        case SettingKind::kQuad: {
            std::string bytes;
            bool valid = false;
            std::string quad = *text;
            DecodeQuad(quad, bytes, valid);
            if (valid) *text = QuadText(bytes);
            break;
        }
        default:
            break;
    }
    return value;
}

bool SameSetting(const Setting& setting, const SettingValue& a, const SettingValue& b) {
    // The second byte there is left alone: an upload clears it.
    if (setting.key == "macro.7F") {
        const auto opcode = [&](const SettingValue& value) {
            return UpperCase(std::get<std::string>(value).substr(0, 2));
        };
        return opcode(a) == opcode(b);
    }
    return Normal(setting, a) == Normal(setting, b);
}

std::optional<SettingValue> ValueOfWord(const Setting& setting, const std::string& utf8,
                                        std::string& error) {
    if (setting.kind == SettingKind::kSwitch) {
        if (utf8 == "true" || utf8 == "1") return true;
        if (utf8 == "false" || utf8 == "0") return false;
        error = "takes true or false";
        return {};
    }
    if (setting.kind == SettingKind::kNumber) {
        long number = 0;
        const char* const end = utf8.data() + utf8.size();
        const auto [stopped, fault] = std::from_chars(utf8.data(), end, number);
        if (fault == std::errc() && stopped == end) return number;
        error = "takes a number from " + std::to_string(setting.least) + " to " +
                std::to_string(setting.most);
        return {};
    }
    auto text = ToByteText(utf8);
    if (!text) {
        error = "holds characters that a unit does not know; U+00FF is the highest";
        return {};
    }
    return std::move(*text);
}

std::string ShownSetting(const Setting& setting, const SettingValue& value, bool with_secrets) {
    if (setting.secret && !with_secrets) return "(secret)";
    if (const bool* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
    if (const long* number = std::get_if<long>(&value)) return std::to_string(*number);
    return ShownText(std::get<std::string>(value));
}

}  // namespace kestrane
