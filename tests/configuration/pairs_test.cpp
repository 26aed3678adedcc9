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
        case SettingKind::kHexKey:
            return std::string(32, 'F');
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

// Rights of the port that the connection is on stay as they are, as all is written over it.
SettingValues RandomFile(Dice& dice) {
    SettingValues values;
    for (const Setting& setting : Settings()) {
        const bool own_right = setting.key.find(".a.") != std::string::npos &&
                               setting.key.starts_with("privileges.");
        if (setting.read_only || setting.key.starts_with("security.") || own_right) continue;
        if (dice.Below(3) > 0) values[&setting] = RandomValue(setting, dice);
    }
    const auto set = [&](const std::string& key, SettingValue value) {
        values[FindSetting(key)] = std::move(value);
    };
    // Together they must be something that an operator can reach.
    set("arp.req_ff", true);
    for (int i = 1; i <= 8; ++i) {
        const std::string key = "triggers." + std::to_string(i) + ".address";
        set(key, RandomValue(*FindSetting(key), dice));
    }
    for (const char* board : {"relay", "display"}) {
        for (const char* port : {"b", "c"}) {
            const std::string prefix = std::string("privileges.") + board + "." + port + ".";
            set(prefix + "read_other_privileges", true);
        }
    }
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
        const ApplyReport made = first.ApplyAll(RandomFile(dice));
        ASSERT_EQ(made.error, "");
        const Backup backup = first.ReadAll();
        const ConfigurationText text =
            ReadConfiguration(WriteConfiguration(backup.unit, backup.values, backup.left_out));
        ASSERT_TRUE(text.faults.empty()) << text.faults.front().Line("f");

        OneUnit second;
        ASSERT_EQ(second.ApplyAll(RandomFile(dice)).error, "");
        ASSERT_EQ(second.ApplyAll(text.values).error, "");
        const Backup brought = second.ReadAll();
        const ApplyReport differences =
            CompareValues(backup.values, brought.values, {{}, {}, true, true});
        for (const SettingChange& change : differences.changes) {
            EXPECT_TRUE(change.setting->read_only) << change.setting->key;
        }
        const int writes = second.Writes();
        EXPECT_EQ(second.ApplyAll(text.values).result, ApplyReport::Result::kSame);
        EXPECT_EQ(second.Writes(), writes);
    }
}

}  // namespace
}  // namespace kestrane
