#pragma once

// The configuration engine on virtual time: whole applies and backups of the demo unit, and values
// by chance that a unit can hold.

#include <random>

#include "configuration/backup.h"
#include "configuration/engine.h"
#include "support/tool_on_line.h"

namespace kestrane {

struct ConfiguredUnit : ToolOnUnit {
    ConfiguredUnit() {
        form.txtCurrentIPAddress.SetText("127.0.0.1");
        world.loop.set_event_limit(100'000'000);
    }
    ApplyReport ApplyTo(const SettingValues& wanted, ApplyRequest request = {}) {
        UnitSession unit(tool, std::chrono::milliseconds(300));
        request.wanted = wanted;
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

class Dice {
  public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    int Below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }
    int Between(int least, int most) { return least + Below(most - least + 1); }
    char Of(std::string_view letters) {
        return letters[static_cast<std::size_t>(Below(static_cast<int>(letters.size())))];
    }

  private:
    std::mt19937 engine_;
};

// Texts are of these letters, so far as the setting takes them.
inline constexpr std::string_view kTyped = "ABab01-/+\\\"'&%~!";
inline constexpr std::string_view kOdd = "Az\"\\/-\x9B\xE4\xFF";
SettingValue RandomValue(const Setting& setting, Dice& dice, std::string_view letters = kTyped);

}  // namespace kestrane
