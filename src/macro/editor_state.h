#pragma once

// What the parts of the macro editor share: the image of the program, the cursor, and which
// opening of the form they work for. The image outlives the form.

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "macro/macro_memory.h"

namespace kestrane {

struct EditorState {
    MacroMemory image;

    std::uint8_t MemPointer = 0;  // address on which the next insert lands
    std::uint8_t ListTop = 0;     // address of row 0; never below 0x10 after a refresh
    int ListRow = 0;              // the cursor's row, 0 to 15
    std::uint8_t CurrentOpcode = 0;
    std::uint8_t CurrentSecondByte = 0;

    // For the operator, in UTF-8: what was last done, what is being done and has no such words yet,
    // and the file that was last loaded or saved, without its folders.
    std::string last_action;
    std::optional<std::string> new_action;
    // After a file was saved or loaded, or could not be: a sentence about it.
    std::function<void(bool good, const std::string& text)> on_file;
    std::string file_name;
    // The labels that a loaded program brings; none come with a macro file.
    std::optional<std::map<std::uint8_t, std::string>> new_labels;

    // A new number at each opening and at each closing of the form.
    unsigned visit = 0;
    bool transferring = false;  // from the press of the button on
};

// Ties a handler's work to the opening of the form in which it began. Anything can happen in a
// wait; once the form was closed in one, the work must leave image, controls and timers alone.
class Visit {
  public:
    explicit Visit(const EditorState& state) : state_(state), visit_(state.visit) {}

    bool Ended() const { return state_.visit != visit_; }

  private:
    const EditorState& state_;
    unsigned visit_;
};

}  // namespace kestrane
