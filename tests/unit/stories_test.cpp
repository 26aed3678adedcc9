// Plays stories on a demo unit: what its ports, and hands at it, get to see.

#include "support/stories.h"

#include <memory>
#include <sstream>

#include "unit/hand_commands.h"
#include "unit_test_support.h"

namespace kestrane::unit {
namespace {

class Player {
  public:
    std::string Play(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) {
            if (line.starts_with("    ")) continue;
            out_ += line + "\n";
            if (!line.empty() && line[0] != '#') Do(line);
        }
        return std::move(out_);
    }

  private:
    void Say(const std::string& text) { out_ += "    " + (text.empty() ? "nothing" : text) + "\n"; }

    void Do(const std::string& line) {
        std::istringstream words(line);
        std::string verb;
        std::string first;
        std::string second;
        words >> verb >> first >> second;
        if (verb == "unit") return Begin(first, second);
        if (verb == "at") return unit_->Advance(Milliseconds{now_ = std::stoi(first)});
        if (verb == "hand") {
            return Say(ApplyHandCommand(*unit_, line.substr(5), Milliseconds{now_}));
        }
        if (verb == "status") return Status();
        if (verb == "program") return Program(first);
        const bool relay = verb == "relay";
        if (relay || verb == "display") {
            BoardMemory& memory = relay ? unit_->Relay() : unit_->Display();
            memory.Write(std::stoul(first, nullptr, 16), HexPairs(second));
        } else {
            Reply(verb[0] - 'A' + 1, HexPairs(first));
        }
    }
    void Begin(const std::string& type, const std::string& firmware) {
        unit_ = std::make_unique<Unit>(UnitOptions{.type = type == "636"      ? UnitType::k636
                                                           : type == "single" ? UnitType::kSingle
                                                                              : UnitType::kCms,
                                                   .old_firmware = firmware == "old"});
    }
    // What follows the echo, or the whole reply where it is not an echo.
    void Reply(int port, const std::string& command) {
        const std::string reply = AskText(*unit_, port, command, now_);
        if (reply.starts_with(command)) return Say("+" + HexText(reply.substr(command.size())));
        Say(reply == "silence" ? reply : HexText(reply));
    }
    void Status() {
        const std::string hex = HexText(DataOf(*unit_, kPortA, {kRelayByte, 0x31}, now_));
        std::string counters;
        for (std::size_t i = 0; i < 2; ++i) {
            counters += " " + std::to_string(unit_->Runner().Counter(i));
        }
        Say("on " + hex.substr(0, 4) + " alarm " + hex.substr(4, 2) + " flags " + hex.substr(6, 4) +
            " " + hex.substr(10, 4) + " inputs " + hex.substr(14, 2) + " at " + hex.substr(16, 2) +
            (unit_->Runner().Running() ? " runs" : " stands") + ", counters" + counters);
    }
    // A program of one's own, all outlets off, started by GOTO LINE.
    void Program(const std::string& hex) {
        unit_->Relay().Write(0x0020, std::string(0xE0, '\0'));
        unit_->Relay().Write(0x0020, HexPairs(hex));
        unit_->Live().outlets_on = 0;
        Ask(*unit_, kPortA, {kRelayByte, 0x61, 0x10}, now_);
    }

    std::unique_ptr<Unit> unit_ = std::make_unique<Unit>();
    int now_ = 1000;
    std::string out_;
};

std::string PlayOnUnit(const std::vector<std::string>& lines) { return Player().Play(lines); }

const bool kStories = RegisterStories("unit", PlayOnUnit);

}  // namespace
}  // namespace kestrane::unit
