#include "editing/frame_log.h"

#include "configuration/settings.h"
#include "link/frame.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr struct {
    int code;
    const char* words;
} kCommands[] = {{kEnterBootloader, "enter bootloader"},
                 {kResetEthernet, "reset Ethernet processor"},
                 {kReadSerialNumber, "read serial number"},
                 {kWriteUnitID, "write unit ID"},
                 {kReadFirmwareVersion, "read firmware version"},
                 {kReadLiveStatus, "read live status"},
                 {kReadSecondStatus, "read second status"},
                 {kWriteLiveData, "write live data"},
                 {kReadUnitType, "read unit type"},
                 {kMacroGoTo, "go to macro address"},
                 {kOneWireReset, "reset 1-Wire min/max"},
                 {kOneWireMemory, "1-Wire memory"}};

std::string Hex4(int number) {
    return "0x" + HexByte(static_cast<std::uint8_t>(number >> 8)) +
           HexByte(static_cast<std::uint8_t>(number & 0xFF));
}

bool ToDisplay(const Exchange& exchange, const Session& session) {
    return exchange.board == session.DisplayAddress;
}

std::string BytesInHex(const std::string& data) {
    std::string text;
    for (const char c : data) {
        if (!text.empty()) text += ' ';
        text += HexByte(static_cast<std::uint8_t>(c));
    }
    return text;
}

std::string Command(int code) {
    for (const auto& row : kCommands) {
        if (row.code == code) return row.words;
    }
    return "command 0x" + HexByte(static_cast<std::uint8_t>(code));
}

}  // namespace

std::string InWords(const Exchange& exchange, const Session& session) {
    const std::string board = ToDisplay(exchange, session) ? "display" : "relay";
    std::string text;
    if (exchange.address >= 0) {
        text = std::string(exchange.command == kWriteMemory ? "write " : "read ") + board + " " +
               Hex4(exchange.address) + ", " + std::to_string(exchange.count) +
               (exchange.count == 1 ? " byte" : " bytes");
    } else {
        text = Command(exchange.command) + " (" + board + ")";
    }
    text += std::string(": ") + EndInWords(exchange.end);
    if (exchange.times_sent > 1) text += ", sent " + std::to_string(exchange.times_sent) + " times";
    return text;
}

// Salts, hashes, keys and the community, wherever a transfer touches them.
bool CarriesSecrets(const Exchange& exchange, const Session& session) {
    if (exchange.address < 0 || !ToDisplay(exchange, session)) return false;
    for (const Setting& setting : Settings()) {
        if (!setting.secret) continue;
        for (const SettingPlace& place : setting.places) {
            const bool apart = exchange.address + exchange.count <= place.address ||
                               place.address + place.count <= exchange.address;
            if (place.board == SettingPlace::Board::kDisplay && !apart) return true;
        }
    }
    return false;
}

FrameLog::FrameLog(Tool& tool) : tool_(tool) { tool.link.journal().AddObserver(*this); }

FrameLog::~FrameLog() { tool_.link.journal().RemoveObserver(*this); }

void FrameLog::ExchangeEnded(const Exchange& exchange) {
    const Session& session = tool_.session;
    LogLine line;
    line.when = tool_.screen.platform().clock.TickCount();
    line.board = ToDisplay(exchange, session) ? "display" : "relay";
    line.words = InWords(exchange, session);
    line.write = exchange.IsWrite();
    line.secret = CarriesSecrets(exchange, session);
    line.bytes = BytesInHex(exchange.data);
    if (exchange.poll && !lines_.empty() && lines_.back().words == line.words) {
        line.times = lines_.back().times + 1;
        lines_.back() = std::move(line);
        if (observer_) observer_(false);
        return;
    }
    lines_.push_back(std::move(line));
    if (lines_.size() > kMost) lines_.pop_front();
    if (observer_) observer_(true);
}

}  // namespace kestrane
