#include "unit/hand_commands.h"

#include <array>
#include <optional>
#include <sstream>
#include <vector>

#include "text/text.h"

namespace kestrane::unit {
namespace {

using Words = std::vector<std::string>;

constexpr std::string_view kHelp =
    "switch on|off             the on/off switch\n"
    "gpi 1..4 high|low         a general purpose input\n"
    "supply main|backup on|off a supply comes or goes (A and B on a 636)\n"
    "fuse 1..14 good|blown     the fuse of an outlet\n"
    "sensor 1..5 in|out        a sensor of the 1-Wire bus\n"
    "macro 1..8                starts a macro by its trigger\n"
    "status                    outlets, macro pointer, switch and inputs";

// True for the first of the two words, false for the second, nothing for any other.
std::optional<bool> OneOf(const std::string& word, std::string_view yes, std::string_view no) {
    if (word == yes) return true;
    if (word == no) return false;
    return std::nullopt;
}

// 1 to 99; 0, which is no number of anything, for all else.
int Number(const std::string& word) {
    const bool digits = !word.empty() && word.size() <= 2 &&
                        word.find_first_not_of("0123456789") == std::string::npos;
    return digits ? static_cast<int>(Val(word)) : 0;
}

std::string Done(bool done) { return done ? "ok" : "not possible"; }

using Answer = std::optional<std::string>;  // nothing: the words are wrong

Answer Switch(Unit& unit, const Words& words, Milliseconds now) {
    const auto on = OneOf(words[1], "on", "off");
    if (!on) return std::nullopt;
    unit.SetSwitch(*on, now);
    return Done(true);
}

Answer Gpi(Unit& unit, const Words& words, Milliseconds now) {
    const auto high = OneOf(words[2], "high", "low");
    if (!high) return std::nullopt;
    return Done(unit.SetGpi(static_cast<std::size_t>(Number(words[1])), *high, now));
}

Answer SetSupply(Unit& unit, const Words& words, Milliseconds now) {
    const auto main = OneOf(words[1], "main", "backup");
    const auto on = OneOf(words[2], "on", "off");
    if (!main || !on) return std::nullopt;
    unit.SetSupply(*main ? Supply::kMain : Supply::kBackup, *on, now);
    return Done(true);
}

Answer Fuse(Unit& unit, const Words& words, Milliseconds) {
    const auto good = OneOf(words[2], "good", "blown");
    if (!good) return std::nullopt;
    return Done(unit.SetFuse(Number(words[1]), *good));
}

Answer SensorPlug(Unit& unit, const Words& words, Milliseconds) {
    const auto in = OneOf(words[2], "in", "out");
    if (!in) return std::nullopt;
    return Done(unit.FitSensor(static_cast<std::size_t>(Number(words[1])), *in));
}

Answer Macro(Unit& unit, const Words& words, Milliseconds now) {
    return Done(unit.StartMacro(static_cast<std::size_t>(Number(words[1])), now));
}

Answer Status(Unit& unit, const Words&, Milliseconds now) {
    unit.Advance(now);
    const LiveState& live = unit.Live();
    std::string text = "outlets ";
    for (int outlet = 0; outlet < kOutlets; ++outlet) text += live.IsOn(outlet) ? '1' : '0';
    text += " pointer " + HexByte(unit.Runner().Pointer());
    text += unit.Runner().Running() ? " running" : " stopped";
    text += live.switch_on ? " switch on gpi " : " switch off gpi ";
    for (bool high : live.gpi_high) text += high ? '1' : '0';
    return text + (live.changeover.OnBackup() ? " on backup" : " on main");
}

Answer Help(Unit&, const Words&, Milliseconds) { return std::string(kHelp); }

struct HandCommand {
    std::string_view name;
    std::size_t words;
    Answer (*handle)(Unit&, const Words&, Milliseconds);
};
constexpr std::array kHandCommands{
    HandCommand{"switch", 2, Switch},     HandCommand{"gpi", 3, Gpi},
    HandCommand{"supply", 3, SetSupply},  HandCommand{"fuse", 3, Fuse},
    HandCommand{"sensor", 3, SensorPlug}, HandCommand{"macro", 2, Macro},
    HandCommand{"status", 1, Status},     HandCommand{"help", 1, Help},
};

}  // namespace

std::string ApplyHandCommand(Unit& unit, std::string_view line, Milliseconds now) {
    std::istringstream stream{std::string(line)};
    Words words;
    for (std::string word; stream >> word;) words.push_back(word);
    if (words.empty() || words[0].front() == '#') return {};
    for (const HandCommand& command : kHandCommands) {
        if (command.name != words[0] || command.words != words.size()) continue;
        if (const Answer answer = command.handle(unit, words, now)) return *answer;
    }
    return "unknown line; \"help\" lists what there is";
}

}  // namespace kestrane::unit
