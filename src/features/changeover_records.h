#pragma once

// The records of a changeover unit, each layout once. Times are counts of samples, 5000 a second;
// the change back delay counts tens of seconds.
//
// Startup record, memory of the relay board from 0x000A on:
//
//   0A        0B          0C      0D           0E       0F
//   off time  off time    phase   change back  default  default
//   main      backup      window  delay        alarm    inlet 1-5
//
// Live record, reply of command 0x39 (ChangeoverStatus), 19 characters:
//
//   1 2  3 4 5 6          7      8         9         10   11   12
//   - -  as startup 0-3   inlet  measured  measured  A/B  B/A  change back
//                                off main  off back  phase     counter
//   13           14        15          16  17       18 19
//   period high  low main  low backup  -   lockout  -  -

#include <optional>
#include <string>
#include <string_view>

namespace kestrane {

inline constexpr int kStartupAddress = 0x000A;
inline constexpr int kStartupLength = 6;
// The alarm and the inlet behind them are not written with the others.
inline constexpr int kStartupWritten = 4;
inline constexpr int kStartupInletAddress = 0x000F;
inline constexpr int kInlets = 5;

// The startup record out of an undoubled memory reply, nothing if the reply is too short for it.
std::optional<std::string> StartupRecordOf(std::string_view reply);
// Value 0 to 4, the index of its box; the inlet is not held to its range.
int StartupValue(std::string_view record, int index);
int StartupInlet(std::string_view record);

// What follows the command in an undoubled status reply, without checksum and end mark; nothing
// if it has no start mark.
std::optional<std::string> StatusRecordOf(std::string_view reply);

struct LiveRecord {
    int inlet = 0;
    int off_main = 0;
    int off_backup = 0;
    int phase_ab = 0;
    int phase_ba = 0;
    int change_back = 0;
    int period_main = 0;
    int period_backup = 0;
    int lockout = 0;
};
inline constexpr std::size_t kLiveLength = 19;
// For a record of 19 characters.
LiveRecord DecodeLive(std::string_view record);
// The value of live box 3 to 6.
int LiveValue(std::string_view record, int index);

// Which supplies are there, out of the record of command 0x31; nothing unless it has 13 bytes.
struct Supplies {
    bool main = false;
    bool backup = false;
};
std::optional<Supplies> SuppliesOf(std::string_view status);

// "49.98 Hz" of a mains period count, "-" for 0. No control shows it.
std::string MainsFrequency(int period_count);

// A phase difference in samples as an angle, "7.2" and the degree sign of Latin-1.
std::string PhaseAngle(int samples);

}  // namespace kestrane
