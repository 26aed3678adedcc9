// Random units and files, by seed: what a backup of one unit holds can be brought to another, and a
// second apply of it writes nothing. KESTRANE_PAIRS sets how many pairs.

#include <gtest/gtest.h>

#include <cstdlib>

#include "configuration_test_support.h"

namespace kestrane {
namespace {

int Pairs() {
    const char* const wanted = std::getenv("KESTRANE_PAIRS");
    return wanted ? std::atoi(wanted) : 3;
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
        if (!closed) values[password] = RandomValue(*password, dice);
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

TEST(RandomPairs, ABackupComesBackTheSameFromAnotherUnitAndIsWrittenOnce) {
    for (int pair = 0; pair < Pairs(); ++pair) {
        SCOPED_TRACE("pair " + std::to_string(pair));
        Dice dice(static_cast<unsigned>(pair));
        ConfiguredUnit first;
        const SettingValues file = RandomFile(dice, true);
        ASSERT_EQ(first.ApplyTo(file).error, "");
        const Backup backup = first.ReadAll();
        const ConfigurationText text =
            ReadConfiguration(WriteConfiguration(backup.unit, backup.values, backup.left_out));
        ASSERT_TRUE(text.faults.empty()) << text.faults.front().Line("f");

        // The passwords that a unit does not give back are added by whoever knows them.
        SettingValues wanted = text.values;
        for (const auto& [setting, value] : file) {
            if (setting->write_only) wanted[setting] = value;
        }
        ConfiguredUnit second;
        ASSERT_EQ(second.ApplyTo(RandomFile(dice, false)).error, "");
        ASSERT_EQ(second.ApplyTo(wanted).error, "");
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
        EXPECT_EQ(second.ApplyTo(wanted).result, ApplyReport::Result::kSame);
        EXPECT_EQ(second.Writes(), writes);
    }
}

}  // namespace
}  // namespace kestrane
