#include "configuration_test_support.h"

namespace kestrane {
namespace {

std::string RandomText(const Setting& setting, Dice& dice, std::string_view letters) {
    const bool netbios = setting.key == "network.netbios_name";
    std::string text;
    for (int i = dice.Below(netbios ? 16 : setting.max_length + 1); i > 0; --i) {
        text += dice.Of(netbios ? "ABCXYZ019-_." : letters);
        if (CheckValue(setting, text)) text.pop_back();
    }
    return text;
}

}  // namespace

SettingValue RandomValue(const Setting& setting, Dice& dice, std::string_view letters) {
    const auto byte = [&](int least, int most) {
        return HexByte(static_cast<std::uint8_t>(dice.Between(least, most)));
    };
    switch (setting.kind) {
        case SettingKind::kSwitch:
            return dice.Below(2) == 0;
        case SettingKind::kChoice:
            return setting.choices[static_cast<std::size_t>(
                dice.Below(static_cast<int>(setting.choices.size())))];
        case SettingKind::kQuad:
            return std::to_string(dice.Between(1, 223)) + "." + std::to_string(dice.Below(256)) +
                   ".7." + std::to_string(dice.Below(256));
        case SettingKind::kMacroLine:
            return byte(0, 255) + " " + (setting.key == "macro.7F" ? "00" : byte(0, 255));
        case SettingKind::kHexKey: {
            if (dice.Below(2) == 0) return std::string(32, 'F');
            std::string digits;
            for (int i = 0; i < 32; ++i) digits += dice.Of("123456789ABCDEF");
            return digits;
        }
        case SettingKind::kHexByte:
            return setting.key == "unit.id" ? byte(0, 97) : byte(0x10, 0x7E);
        case SettingKind::kText:
            return RandomText(setting, dice, letters);
        case SettingKind::kNumber:
            break;
    }
    if (setting.key.ends_with(".attack_limit")) return long{dice.Between(10, 31)};
    // The ports stay, so that a connection keeps its letter.
    if (setting.key.ends_with(".port")) return long{1242 + setting.key[6] - 'a' + 1};
    if (setting.key == "ports.disconnect_timeout") return 10L * dice.Between(0, 31);
    return setting.step * long{dice.Below(static_cast<int>(setting.most / setting.step) + 1)};
}

}  // namespace kestrane
