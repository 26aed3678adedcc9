// Random units and files, by seed: what a backup of one unit holds can be brought to another, and a
// second apply of it writes nothing. KESTRANE_PAIRS sets how many pairs.

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "configuration/backup.h"
#include "configuration/engine.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

int Pairs() {
    const char* const wanted = std::getenv("KESTRANE_PAIRS");
    return wanted ? std::atoi(wanted) : 3;
}

class Dice {
  public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    int Below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }
    char Of(std::string_view letters) {
        return letters[static_cast<std::size_t>(Below(static_cast<int>(letters.size())))];
    }

  private:
    std::mt19937 engine_;
};

// A text that a hand can type and a unit gives back.
std::string RandomText(const Setting& setting, Dice& dice) {
    const bool netbios = setting.key == "network.netbios_name";
    const std::string_view letters = netbios ? "ABCXYZ019-_." : "ABab01-/+\\\"'&%~!";
    std::string text;
    for (int i = dice.Below(netbios ? 15 : setting.max_length + 1); i >= 0; --i) {
        if (text.size() < static_cast<std::size_t>(netbios ? 15 : setting.max_length)) {
            text += dice.Of(letters);
        }
    }
    return text;
}

SettingValue RandomValue(const Setting& setting, Dice& dice) {
    const auto number = [&](int least, int most) { return least + dice.Below(most - least + 1); };
    switch (setting.kind) {
        case SettingKind::kSwitch:
            return dice.Below(2) == 0;
        case SettingKind::kChoice:
            return setting.choices[static_cast<std::size_t>(
                dice.Below(static_cast<int>(setting.choices.size())))];
        case SettingKind::kQuad:
            return std::to_string(number(1, 223)) + "." + std::to_string(number(0, 255)) + ".7." +
                   std::to_string(number(0, 255));
        case SettingKind::kMacroLine: {
            const auto byte = [&] { return HexByte(static_cast<std::uint8_t>(dice.Below(256))); };
            return byte() + " " + (setting.key == "macro.7F" ? "00" : byte());
        }
        case SettingKind::kHexKey: {
            if (dice.Below(2) == 0) return std::string(32, 'F');
            std::string digits;
            for (int i = 0; i < 32; ++i) digits += dice.Of("123456789ABCDEF");
            return digits;
        }
        case SettingKind::kHexByte:
            if (setting.key == "unit.id") return HexByte(static_cast<std::uint8_t>(number(0, 97)));
            return HexByte(static_cast<std::uint8_t>(number(0x10, 0x7E)));
        case SettingKind::kText:
            return RandomText(setting, dice);
        case SettingKind::kNumber:
            break;
    }
    if (setting.key.ends_with(".attack_limit")) return long{number(10, 31)};
    // The ports stay, so that the connection keeps its letter.
    if (setting.key.ends_with(".port")) return long{1242 + setting.key[6] - 'a' + 1};
    if (setting.key == "ports.disconnect_timeout") return 10L * number(0, 31);
    return setting.step * long{number(0, static_cast<int>(setting.most / setting.step))};
}

// Who may write the other ports' rights may read them; without a word about either the unit's own
// would decide.
void MakeRightsPossible(SettingValues& values) {
    for (const char* board : {"relay", "display"}) {
        for (const char port : {'a', 'b', 'c'}) {
            const auto right = [&](const char* name) {
                return FindSetting(std::string("privileges.") + board + "." + port + "." + name);
            };
            const auto write = values.find(right("write_other_privileges"));
            if (write == values.end() || write->second == SettingValue(true)) {
                values[right("read_other_privileges")] = true;
            }
        }
    }
}

// All three levels or none, each closed, open or with a password.
void SetWebLevels(SettingValues& values, bool any, Dice& dice) {
    for (const char* level : {"view", "control", "admin"}) {
        const std::string prefix = std::string("security.") + level;
        const Setting* const password = FindSetting(prefix + ".password");
        const Setting* const disabled = FindSetting(prefix + ".disabled");
        values.erase(password);
        values.erase(disabled);
        if (!any) continue;
        const bool closed = dice.Below(3) == 0;
        if (!closed) values[password] = RandomText(*password, dice);
        if (closed || dice.Below(2) == 0) values[disabled] = closed;
    }
}

// `whole`: with every web level, and the rights of the port that the connection is on, which may
// write little afterwards.
SettingValues RandomFile(Dice& dice, bool whole) {
    SettingValues values;
    for (const Setting& setting : Settings()) {
        const bool own_right =
            setting.key.find(".a.") != std::string::npos && setting.key.starts_with("privileges.");
        if (setting.read_only || (own_right && !whole)) continue;
        if (dice.Below(3) > 0) values[&setting] = RandomValue(setting, dice);
    }
    // Together they must be something that an operator can reach.
    values[FindSetting("arp.req_ff")] = true;
    for (int i = 1; i <= 8; ++i) {
        const Setting& address = *FindSetting("triggers." + std::to_string(i) + ".address");
        values[&address] = RandomValue(address, dice);
    }
    SetWebLevels(values, whole || dice.Below(3) > 0, dice);
    MakeRightsPossible(values);
    return values;
}

struct OneUnit : ToolOnUnit {
    OneUnit() {
        form.txtCurrentIPAddress.SetText("127.0.0.1");
        world.loop.set_event_limit(100'000'000);
    }
    ApplyReport ApplyAll(const SettingValues& values) {
        UnitSession unit(tool);
        ApplyRequest request;
        request.wanted = values;
        request.filter.identity = request.filter.live = true;
        ApplyReport report = Apply(unit, request);
        unit.Disconnect();
        return report;
    }
    Backup ReadAll() {
        UnitSession unit(tool);
        Backup backup = ReadBackup(unit, true);
        unit.Disconnect();
        EXPECT_EQ(backup.error, "");
        return backup;
    }
    int Writes() const {
        int writes = 0;
        for (const Exchange& each : tool.link.journal().exchanges()) writes += each.IsWrite();
        return writes;
    }
};

TEST(RandomPairs, ABackupComesBackTheSameFromAnotherUnitAndIsWrittenOnce) {
    for (int pair = 0; pair < Pairs(); ++pair) {
        SCOPED_TRACE("pair " + std::to_string(pair));
        Dice dice(static_cast<unsigned>(pair));
        OneUnit first;
        const SettingValues file = RandomFile(dice, true);
        ASSERT_EQ(first.ApplyAll(file).error, "");
        const Backup backup = first.ReadAll();
        const ConfigurationText text =
            ReadConfiguration(WriteConfiguration(backup.unit, backup.values, backup.left_out));
        ASSERT_TRUE(text.faults.empty()) << text.faults.front().Line("f");

        // The passwords that a unit does not give back are added by whoever knows them.
        SettingValues wanted = text.values;
        for (const auto& [setting, value] : file) {
            if (setting->write_only) wanted[setting] = value;
        }
        OneUnit second;
        ASSERT_EQ(second.ApplyAll(RandomFile(dice, false)).error, "");
        ASSERT_EQ(second.ApplyAll(wanted).error, "");
        const Backup brought = second.ReadAll();
        const ApplyReport differences =
            CompareValues(backup.values, brought.values, {{}, {}, true, true});
        for (const SettingChange& change : differences.changes) {
            EXPECT_TRUE(change.setting->read_only) << change.setting->key;
        }
        const int writes = second.Writes();
        for (const auto& row : backup.values) {
            EXPECT_EQ(brought.values.count(row.first), 1u) << row.first->key;
        }
        EXPECT_EQ(second.ApplyAll(wanted).result, ApplyReport::Result::kSame);
        EXPECT_EQ(second.Writes(), writes);
    }
}

}  // namespace
}  // namespace kestrane
