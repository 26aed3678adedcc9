#include "cli/macro_options.h"

#include <sstream>

#include "macro/instruction_set.h"
#include "macro/source_words.h"
#include "text/text.h"

namespace kestrane {
namespace {

std::optional<std::uint8_t> AddressInRange(const std::string& text) {
    const auto address = HexPair(text);
    return address && OperandInRange(Operand::kAddress, *address) ? address : std::nullopt;
}

std::optional<std::uint8_t> AddressOfTrigger(const std::string& number, const MacroProgram& program,
                                             std::string& error) {
    if (number.size() != 1 || number[0] < '1' || number[0] > '8') {
        error = "--trigger takes a number from 1 to 8";
        return std::nullopt;
    }
    const auto& trigger = program.triggers[static_cast<std::size_t>(number[0] - '1')];
    const auto address = trigger ? AddressInRange(trigger->row.address) : std::nullopt;
    if (!address) error = "trigger " + number + " is not defined in this program";
    return address;
}

}  // namespace

std::optional<simulation::UnitType> ParseUnitType(const std::string& text) {
    const std::string upper = UpperCase(text);
    if (upper == "CMS") return simulation::UnitType::kCms;
    if (upper == "636") return simulation::UnitType::k636;
    if (upper == "SINGLE") return simulation::UnitType::kSingle;
    return std::nullopt;
}

std::optional<simulation::TimedInput> ParseTimedInput(const std::string& text) {
    const auto colon = text.find(':');
    if (colon == std::string::npos) return std::nullopt;
    const auto time = simulation::ParseSeconds(Trim(text.substr(0, colon)));
    const auto input = simulation::ParseInput(text.substr(colon + 1));
    if (!time || !input) return std::nullopt;
    return simulation::TimedInput{*time, *input};
}

std::optional<std::uint16_t> ParseOutlets(const std::string& text) {
    std::istringstream words(text);
    std::string word;
    if (!(words >> word) || UpperCase(word) != "ON") return std::nullopt;
    unsigned mask = 0;
    while (words >> word) {
        const bool digits = word.find_first_not_of("0123456789") == std::string::npos;
        const double number = digits ? Val(word) : 0;
        if (number < 1 || number > kOutletCount) return std::nullopt;
        mask |= 1u << (static_cast<int>(number) - 1);
    }
    return static_cast<std::uint16_t>(mask);
}

std::optional<std::uint8_t> StartAddress(const MacroOptions& options, const MacroProgram& program,
                                         std::string& error) {
    if (!options.trigger.empty()) return AddressOfTrigger(options.trigger, program, error);
    if (options.from.empty()) return kFirstMacroAddress;
    if (const auto address = AddressInRange(options.from)) return address;
    for (const auto& [name, address] : program.labels) {
        if (UpperCase(name) == UpperCase(options.from)) return address;
    }
    error = "--from takes an address from 10 to 7E or a label of the program, not \"" +
            options.from + "\"";
    return std::nullopt;
}

}  // namespace kestrane
