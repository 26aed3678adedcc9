#include "unit/defaults.h"

#include <array>
#include <string_view>

#include "simulation/changeover.h"
#include "text/text.h"

namespace kestrane::unit {
namespace {

constexpr std::size_t kBlock = 16;

struct ChannelName {
    std::string_view top;
    std::string_view bottom;
};
// clang-format off
constexpr std::array<ChannelName, 16> kChannels{{
    {"Mains",    "Feed A"},   {"UPS",      "Feed B"},
    {"Router",   "Core 1"},   {"Router",   "Core 2"},   {"Switch",   "Rack 1"},
    {"Switch",   "Rack 2"},   {"Firewall", "North"},    {"Firewall", "South"},
    {"Storage",  "Shelf 1"},  {"Storage",  "Shelf 2"},  {"Server",   "Web"},
    {"Server",   "Mail"},     {"Server",   "Backup"},   {"Radio",    "Link"},
    {"KVM",      "Console"},  {"Spare",    ""},
}};

struct Trigger {
    std::string_view name;
    int page_and_disable;
    int address;
};
constexpr int kDisabled = 0x80;
constexpr std::array<Trigger, 8> kMacroTriggers{{
    {"All on",         0, 0x1A}, {"All off",        0, 0x2A},
    {"8 to 14 on",     0, 0x21}, {"7 to 1 off",     0, 0x31},
    {"Hold",           0, 0x15}, {"Start again",    0, 0x10},
    {"Spare macro 7",  kDisabled, 0x38}, {"Spare macro 8",  kDisabled, 0x38},
}};

constexpr std::array<std::string_view, 16> kSensorNames{
    "Rack air", "Inlet", "Outlet", "UPS", "Room", "", "", "", "", "", "", "", "", "", "", ""};

// Slots 1, 2 and 4 agree with the bus, slot 3 holds another sensor, slot 6 one that was removed.
constexpr std::array<std::string_view, 6> kCommitted{
    "3F0000019A4C712619", "C10000063B84D52801", "4B0000063B77092802",
    "57000006418E332800", "FFFFFFFFFFFFFFFFFF", "2A00000622F1602803"};

// Alarm flash and beep; switch interrupts to 1A and 2A; stop.
constexpr std::string_view kMacroStart = "C603" "0300" "D21A" "D32A" "0400";
// clang-format on

constexpr std::string_view kSalt = "8C3F5A07D1E2964BB8703CE5194A6DF2";
// The first half of SHA-256 over the password and the salt's text.
constexpr std::string_view kControlHash = "F1DA454A11E81CA89402B4B1CCF76010";
constexpr std::string_view kAdminHash = "C900AB36006A66875CBD1F4E06B92FA0";

std::string Blank(std::size_t count) { return std::string(count, ' '); }

void FillMacro(BoardMemory& relay) {
    constexpr int kHalfSecond = 0x05;
    constexpr std::size_t kOnSequence = 2 * 0x1A;
    constexpr std::size_t kOffSequence = 2 * 0x2A;
    relay.Write(relay::kMacro, std::string(relay::kMacroEnd - relay::kMacro, '\0'));
    relay.Write(relay::kMacro, HexPairs(kMacroStart));
    for (int outlet = 0; outlet < 14; ++outlet) {
        const auto step = 2 * static_cast<std::size_t>(outlet);
        relay.Write(kOnSequence + step, Bytes({0x40 + outlet, kHalfSecond}));
        relay.Write(kOffSequence + step, Bytes({0x3D - outlet, kHalfSecond}));
    }
}

void FillPrivileges(Boards& boards) {
    boards.relay.Write(kPrivileges, Bytes({0xFF, 0xFF, 0x1A, 0xFF, 0x00, 0xFF}));
    boards.display.Write(kPrivileges, Bytes({0xFF, 0xFF, 0x22, 0xFF, 0x00, 0xFF}));
}

void FillRelay(BoardMemory& relay, const UnitOptions& options) {
    const int serial = 0x304267 + options.number - 1;
    relay.Write(relay::kSerial, Bytes({0x35, serial >> 16, serial >> 8, serial}));
    relay.Set(relay::kId, 1);
    const auto version = VersionOf(Board::kRelay, options).version;
    relay.Write(relay::kVersion, Bytes({version[0], version[1], version[2]}));
    const auto& [off_main, off_backup, phase, delay, inlet] = simulation::kFactoryChangeover;
    relay.Write(relay::kChangeover, Bytes({off_main, off_backup, phase, delay, 3}));
    relay.Set(relay::kDefaultInlet, inlet);
    FillMacro(relay);
    std::size_t address = relay::kCommittedSensors;
    for (std::string_view record : kCommitted) {
        relay.Write(address, HexPairs(record));
        address += record.size() / 2;
    }
}

void FillNames(BoardMemory& display) {
    std::size_t address = display::kChannelNames;
    for (const ChannelName& name : kChannels) {
        display.Write(address, PadRight(name.top, 8) + PadRight(name.bottom, 8));
        address += kBlock;
    }
    address = display::kSensorNames;
    for (std::string_view name : kSensorNames) {
        display.Write(address, PadRight(name, 8));
        address += 8;
    }
    address = display::kTriggers;
    for (const Trigger& trigger : kMacroTriggers) {
        display.Write(address, PadRight(trigger.name, 14) +
                                   Bytes({trigger.page_and_disable, trigger.address}));
        address += kBlock;
    }
}

void FillNetwork(BoardMemory& display, const UnitOptions& options) {
    display.Write(display::kNetbiosName, PadRight("KESTRANE-MDU", kBlock));
    display.Write(display::kAddresses, Bytes({192, 168, 10, 100, 255, 255, 255, 0,  //
                                              192, 168, 10, 1, 192, 168, 10, 2}));
    // Time server behind the secondary DNS; OLED timeout 120 s; three ports and Arm buttons on.
    display.Write(display::kPorts, Bytes({192, 168, 10, 3, 192, 168, 10, 5}));
    StoreControlPorts(display, {1243, 1244, 1245});
    display.Write(display::kPorts + 14, Bytes({12, 0x1E}));
    display.Write(display::kLocation, PadRight("Comms Room 2", kBlock));
    const std::string name = "MDU Rack " + std::to_string(options.number + 3);
    display.Write(display::kUnitName, PadRight(name, kBlock));
    display.Write(display::kSysContact, PadRight("Network Desk", kBlock));
    display.Write(display::kTriggersEnd, Blank(2 * kBlock));
    display.Write(display::kWebSalt, HexPairs(kSalt));
    display.Write(display::kWebLevels + kBlock, HexPairs(kControlHash));
    display.Write(display::kWebLevels + 2 * kBlock, HexPairs(kAdminHash));
    // Community "monitoring"; no forced disconnect; attack limits; GARP each 2 minutes; counters.
    display.Write(display::kCommunity, "monitori" + Bytes({0xFF, 10, 20, 30, 0x31, 3, 2, 1}));
    display.Write(display::kCommunityRest, PadRight("ng", kBlock, '\0'));
}

}  // namespace

Boards DefaultBoards(const UnitOptions& options) {
    Boards boards;
    FillRelay(boards.relay, options);
    FillNames(boards.display);
    FillNetwork(boards.display, options);
    FillPrivileges(boards);
    return boards;
}

void StoreControlPorts(BoardMemory& display, const std::array<std::uint16_t, 3>& ports) {
    display.Write(display::kPorts + 8, Bytes({ports[2] >> 8, ports[2], ports[1] >> 8, ports[1],
                                              ports[0] >> 8, ports[0]}));
}

BoardVersion VersionOf(Board board, const UnitOptions& options) {
    if (board == Board::kDisplay) {
        const bool single = options.type == UnitType::kSingle;
        const std::uint8_t code = single ? 0x12 : 0x32;  // 3D1 and 3D3
        return {{0x3D, code, 0x00, 0x01}, {2, 1, 7}};
    }
    const std::uint8_t code = options.type == UnitType::kCms   ? 0xB4   // 3AB
                              : options.type == UnitType::k636 ? 0x34   // 3A3
                                                               : 0x14;  // 3A1
    const std::uint8_t minor = options.old_firmware ? 4 : 6;
    return {{0x3A, code, 0x00, 0x02}, {1, minor, 2}};
}

std::string VersionsPage() {
    return "3A0=1.2.0 3A1=1.6.4 3A2=1.3.1 3A3=1.6.4 3A8=1.5.0 3A9=1.6.5 3AA=1.5.2 "
           "3AB=1.7.0 3D0=1.9.3 3D1=2.2.0 3D3=2.2.1 3A4=0.0.0 3A5=1.6.6";
}

}  // namespace kestrane::unit
