#pragma once

// A macro program with its triggers, wherever it came from: source text, a macro file, a unit. It
// remembers where each part stood, so that what is found in it can be shown there.

#include <array>
#include <bitset>
#include <map>
#include <optional>
#include <string>

#include "macro/macro_file_lines.h"
#include "macro/macro_memory.h"

namespace kestrane {

// Both count from 1; column 0: the whole line. Line 0: nowhere.
struct SourcePlace {
    long line = 0;
    int column = 0;
};

struct MacroProgram {
    static constexpr std::size_t kAddresses = 128;

    struct Trigger {
        TriggerRow row;
        SourcePlace place;
    };

    MacroMemory image;
    std::bitset<kAddresses> programmed;  // the addresses that someone wrote
    std::array<SourcePlace, kAddresses> places;
    std::array<std::optional<Trigger>, kTriggerRows> triggers;
    std::map<std::string, std::uint8_t> labels;  // as they are written at their address

    // Marks what an image without lines of its own holds as programmed: all but a stop after a
    // stop.
    void MarkProgrammed() {
        for (std::size_t address = 0x10; address < kAddresses; ++address) {
            const auto stop = [this](std::size_t at) {
                return image.Get(2 * at) == 0 && image.Get(2 * at + 1) == 0;
            };
            programmed.set(address, !stop(address) || address == 0x10 || !stop(address - 1));
        }
    }

    // The labels of each address that has any, joined by commas.
    std::map<std::uint8_t, std::string> LabelsByAddress() const {
        std::map<std::uint8_t, std::string> by_address;
        for (const auto& [label, address] : labels) {
            std::string& names = by_address[address];
            names += names.empty() ? label : ", " + label;
        }
        return by_address;
    }

    // All eight. A row that is left out gets a name, as an unnamed one could not be read again.
    TriggerRows Rows() const {
        TriggerRows rows;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            rows[i] = triggers[i] ? triggers[i]->row
                                  : TriggerRow{"Macro " + std::to_string(i + 1), "0", "00", false};
        }
        return rows;
    }
};

}  // namespace kestrane
