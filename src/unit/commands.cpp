#include "unit/commands.h"

#include <array>
#include <utility>

#include "text/text.h"
#include "unit/defaults.h"
#include "unit/privileges.h"
#include "unit/status_record.h"

namespace kestrane::unit {
namespace {

constexpr std::uint8_t kRelayAlways = 250;
constexpr std::uint8_t kDisplayAlways = 251;
constexpr std::uint8_t kMultiMasterId = 0x61;
constexpr std::uint8_t kMultiMasterAddress = 1;
constexpr std::uint8_t kDisplayOffset = 128;

constexpr char kNoPrivilege = 0x16;
constexpr char kNegative = 0x15;

using Reply = std::optional<std::string>;

struct Request {
    Machine& machine;
    int port;
    Board board;
    std::string_view text;
    std::string_view arguments;
    Milliseconds now;

    std::uint8_t Argument(std::size_t i) const { return static_cast<std::uint8_t>(arguments[i]); }
    std::size_t MemoryAddress() const {
        return static_cast<std::size_t>(Argument(0)) << 8 | Argument(1);
    }
    Privileges Rights() const { return Privileges(machine.boards); }
    bool Has(Right right) const { return Rights().Has(port, board, right); }
    std::string Echo(std::string_view data = {}) const { return std::string(text).append(data); }
    std::string Refusal(char reason) const { return std::string(text.substr(0, 2)) + reason; }
};

// A set master key is never given away: it reads as zeros.
void HideKeys(std::string& data, const BoardMemory& memory, std::size_t address) {
    constexpr std::size_t kKeyBytes = 16;
    for (std::size_t key = display::kKeys; key < display::kKeysEnd; key += kKeyBytes) {
        if (memory.Read(key, kKeyBytes) == std::string(kKeyBytes, '\xFF')) continue;
        for (std::size_t i = 0; i < data.size(); ++i) {
            if (address + i >= key && address + i < key + kKeyBytes) data[i] = 0;
        }
    }
}

Reply ReadMemory(const Request& request) {
    const std::size_t address = request.MemoryAddress();
    const std::size_t count = request.Argument(2);
    if (!request.Rights().MayRead(request.port, request.board, address, count)) {
        return request.Refusal(kNoPrivilege);
    }
    const BoardMemory& memory = request.machine.boards.Of(request.board);
    std::string data = memory.Read(address, count);
    const bool holds_keys = address < display::kKeysEnd && address + count > display::kKeys;
    if (request.board == Board::kDisplay && holds_keys) HideKeys(data, memory, address);
    return request.Echo(data);
}

Reply WriteMemory(const Request& request) {
    const std::string_view data = request.arguments.substr(3);
    if (data.size() != request.Argument(2)) return std::nullopt;
    const std::size_t address = request.MemoryAddress();
    if (!request.Rights().MayWrite(request.port, request.board, address, data.size())) {
        return request.Refusal(kNoPrivilege);
    }
    request.machine.boards.Of(request.board).Write(address, data);
    ++request.machine.settings_changes;
    return request.Echo();
}

// The loader would wait for an image; a demo unit has none to wait for and goes on.
Reply EnterBootloader(const Request& request) {
    return request.Argument(4) == 0x01 ? Reply(request.Echo()) : std::nullopt;
}

Reply ResetEthernet(const Request& request) {
    request.machine.ethernet_reset = request.arguments == std::string_view("\x03\0", 2);
    return std::nullopt;
}

Reply ReadSerial(const Request& request) {
    return request.Echo(request.machine.boards.relay.Read(relay::kSerial, 4));
}

// Several units may hear this; only the one with that serial number takes the ID, and it answers
// from it.
Reply WriteId(const Request& request) {
    BoardMemory& memory = request.machine.boards.relay;
    const std::uint8_t id = request.Argument(4);
    if (request.arguments.substr(0, 4) != memory.Read(relay::kSerial, 4)) return std::nullopt;
    if (id > kMultiMasterId) return std::nullopt;
    memory.Set(relay::kId, id);
    ++request.machine.settings_changes;
    std::string reply = request.Echo();
    reply[0] = static_cast<char>(id);
    return reply;
}

Reply ReadVersion(const Request& request) {
    const BoardVersion board = VersionOf(request.board, request.machine.options);
    std::string data(board.type.begin(), board.type.end());
    return request.Echo(data.append(board.version.begin(), board.version.end()));
}

Reply ReadStatus(const Request& request) {
    return request.Echo(StatusRecord(request.machine.runner));
}

Reply ReadChangeover(const Request& request) {
    return request.Echo(request.machine.live.changeover.Record(request.now));
}

// Pairs of selector and value; none at all is a lawful text that changes nothing, and a selector
// without a value is left out.
Reply WriteLive(const Request& request) {
    for (std::size_t i = 0; i + 1 < request.arguments.size(); i += 2) {
        request.machine.runner.SetChangeover(request.Argument(i), request.Argument(i + 1),
                                             request.now);
    }
    return request.Echo();
}

// Data begin at position 5 of the reply; position 7 tells a changeover unit, and the length alone
// a 636, whose whole reply is 65 bytes.
Reply ReadType(const Request& request) {
    constexpr std::size_t k636Data = 65 - 2 - 2 - 1 - 2;
    switch (request.machine.options.type) {
        case UnitType::kCms:
            return request.Echo(Bytes({0x01, 0x00, 0x02, 0x0E, 0x00, 0x00}));
        case UnitType::k636:
            return request.Echo(PadRight(Bytes({0x01, 0x00, 0x06, 0x0E}), k636Data, '\0'));
        case UnitType::kSingle:
            break;
    }
    return request.Echo(Bytes({0x01, 0x00, 0xFF, 0xFF, 0x00, 0x00}));
}

Reply GoToLine(const Request& request) {
    request.machine.runner.Go(request.Argument(0), request.now);
    return request.Echo();
}

Reply ResetMinMax(const Request& request) {
    if (request.Argument(0) != 0x02) return std::nullopt;
    request.machine.sensors.ResetMinMax(request.now);
    return request.Echo();
}

Reply SensorMemory(const Request& request) {
    enum SubCode : std::uint8_t { kReadLive = 0x01, kClear = 0x02, kCommit = 0x03 };
    if (request.machine.options.old_firmware) return request.Refusal(kNegative);
    SensorBus& sensors = request.machine.sensors;
    const std::uint8_t sub_code = request.Argument(0);
    const std::size_t size = request.arguments.size();
    if (sub_code == kReadLive && size == 2) {
        const std::size_t number = request.Argument(1);
        if (number < 1 || number > kSensors) return request.Refusal(kNegative);
        return request.Echo(sensors.Entry(number) + Bytes({sensors.Found()}));
    }
    if ((sub_code != kClear && sub_code != kCommit) || size != 1) {
        return request.Refusal(kNegative);
    }
    if (!request.Has(Right::kCommitSensors)) return request.Refusal(kNoPrivilege);
    if (sub_code == kClear) sensors.ClearCommitted();
    if (sub_code == kCommit) sensors.Commit();
    ++request.machine.settings_changes;
    return request.Echo();
}

constexpr std::uint8_t kOnRelay = 1;
constexpr std::uint8_t kOnDisplay = 2;
constexpr std::uint8_t kOnBoth = kOnRelay | kOnDisplay;
constexpr std::size_t kAny = 255 + 3;
constexpr Right kNoRight{0};

struct Command {
    std::uint8_t code;
    std::uint8_t boards;
    std::size_t fewest_arguments;
    std::size_t most_arguments;
    Right right;  // needed whatever the arguments; the memory commands judge by address
    Reply (*handle)(const Request&);
};

// clang-format off
constexpr std::array kCommands{
    Command{0x11, kOnBoth,    3, 3,    kNoRight,            ReadMemory},
    Command{0x12, kOnBoth,    3, kAny, kNoRight,            WriteMemory},
    Command{0x15, kOnRelay,   5, 5,    kNoRight,            EnterBootloader},
    Command{0x1F, kOnDisplay, 2, 2,    kNoRight,            ResetEthernet},
    Command{0x21, kOnRelay,   0, 0,    kNoRight,            ReadSerial},
    Command{0x23, kOnRelay,   5, 5,    kNoRight,            WriteId},
    Command{0x28, kOnBoth,    0, 0,    kNoRight,            ReadVersion},
    Command{0x31, kOnRelay,   0, 0,    kNoRight,            ReadStatus},
    Command{0x39, kOnRelay,   0, 0,    kNoRight,            ReadChangeover},
    Command{0x3A, kOnRelay,   0, kAny, Right::kLiveControl, WriteLive},
    Command{0x41, kOnDisplay, 0, 0,    kNoRight,            ReadType},
    Command{0x61, kOnRelay,   1, 1,    Right::kLiveControl, GoToLine},
    Command{0x81, kOnRelay,   1, 1,    Right::kResetMinMax, ResetMinMax},
    Command{0x82, kOnRelay,   1, 2,    kNoRight,            SensorMemory},
};
// clang-format on

const Command* FindCommand(std::uint8_t code, Board board, std::size_t arguments) {
    const std::uint8_t bit = board == Board::kRelay ? kOnRelay : kOnDisplay;
    for (const Command& command : kCommands) {
        if (command.code != code) continue;
        const bool fits = (command.boards & bit) != 0 && arguments >= command.fewest_arguments &&
                          arguments <= command.most_arguments;
        return fits ? &command : nullptr;
    }
    return nullptr;
}

}  // namespace

std::optional<Board> BoardAt(std::uint8_t address, const BoardMemory& relay) {
    const std::uint8_t id = relay.At(relay::kId);
    const std::uint8_t own = id == kMultiMasterId ? kMultiMasterAddress : id;
    if (address == kRelayAlways || address == own) return Board::kRelay;
    if (address == kDisplayAlways || address == static_cast<std::uint8_t>(own + kDisplayOffset)) {
        return Board::kDisplay;
    }
    return std::nullopt;
}

std::optional<std::string> Execute(Machine& machine, int port, std::string_view command,
                                   Milliseconds now) {
    if (command.size() < 2 || port < 1 || port > kControlPorts) return std::nullopt;
    const auto address = static_cast<std::uint8_t>(command[0]);
    const auto board = BoardAt(address, machine.boards.relay);
    if (!board) return std::nullopt;
    const std::string_view arguments = command.substr(2);
    const Command* entry =
        FindCommand(static_cast<std::uint8_t>(command[1]), *board, arguments.size());
    if (entry == nullptr) return std::nullopt;
    const Request request{machine, port, *board, command, arguments, now};
    if (entry->right != kNoRight && !request.Has(entry->right)) {
        return request.Refusal(kNoPrivilege);
    }
    return entry->handle(request);
}

}  // namespace kestrane::unit
