#pragma once

// The table of settings: every setting of a unit by its dotted name, with the control that shows
// it, the tab that carries it, what it may hold and where the unit keeps it. Files, comparison,
// schema, completion and the reference page follow from it; a new setting is one more row.

#include <string>
#include <string_view>
#include <vector>

namespace kestrane {

// How a value is written in a file: a text unless said otherwise.
enum class SettingKind {
    kText,
    kQuad,      // "192.168.10.100"
    kNumber,    // a number
    kSwitch,    // true or false
    kChoice,    // one of `choices`
    kHexKey,    // 32 hexadecimal digits
    kHexByte,   // two hexadecimal digits
    kMacroLine  // "C6 03", then a comment
};

// Where the unit keeps a setting, or a part of it: bytes of a board's memory, or the selector of
// the live data command.
struct SettingPlace {
    enum class Board { kRelay, kDisplay } board = Board::kDisplay;
    int address = 0;
    int count = 0;
    int live_selector = 0;  // of command 0x3A; then there is no address
};

struct Setting {
    std::string key;
    // Of the main form; an option group by the name of its array. Empty for a line of the program.
    std::string control;
    const char* tab = "";  // which read and which write carry it
    SettingKind kind = SettingKind::kText;
    std::string doc;  // one sentence, with the unit of measure

    int max_length = 0;  // characters that a unit can hold; of the texts
    long least = 0;      // of the numbers
    long most = 0;
    long step = 1;
    std::vector<std::string> choices = {};

    bool identity = false;    // tells this unit from others
    bool secret = false;      // never shown unless asked for
    bool write_only = false;  // the unit does not give it back
    bool live = false;        // lost when the unit restarts
    bool read_only = false;

    std::vector<SettingPlace> places = {};

    bool IsMacro() const { return control.empty(); }
};

// In the order of files and listings.
const std::vector<Setting>& Settings();
// Null for an unknown key.
const Setting* FindSetting(std::string_view key);
// By the name of a control, `txtUnitName` or `optInE2P(2)`; null if it holds no setting.
const Setting* SettingOfControl(std::string_view control);
// The known key that is most like an unknown one, for "did you mean".
std::string NearestKey(std::string_view key);
// Whether `key` is `prefix` or stands below it; a prefix ends at a dot.
bool KeyMatches(std::string_view key, std::string_view prefix);

// "text", "quad", "number", "switch", "choice", "hex key", "hex byte", "macro line"; "secret text"
// for a secret text.
std::string KindInWords(const Setting& setting);

}  // namespace kestrane
