#include "macro/edit_history.h"

#include <utility>

#include "text/text.h"

namespace kestrane {

void EditHistory::Begin(EditedProgram now) {
    now_ = std::move(now);
    undo_.clear();
    redo_.clear();
}

bool EditHistory::Note(const EditedProgram& now, const std::string& name) {
    if (now == now_) return false;
    redo_.clear();
    undo_.push_back({std::exchange(now_, now), name});
    if (undo_.size() > kMostSteps) undo_.pop_front();
    return true;
}

const EditedProgram& EditHistory::Move(std::deque<Step>& from, std::deque<Step>& to) {
    Step step = std::move(from.back());
    from.pop_back();
    std::swap(step.other, now_);
    to.push_back(std::move(step));
    return now_;
}

std::vector<std::uint8_t> ChangedLines(const MacroMemory& before, const MacroMemory& after) {
    std::vector<std::uint8_t> lines;
    for (std::size_t i = 0; i < MacroMemory::kProgramEnd; i += 2) {
        if (before.Get(i) == after.Get(i) && before.Get(i + 1) == after.Get(i + 1)) continue;
        lines.push_back(static_cast<std::uint8_t>(i / 2));
    }
    return lines;
}

std::string ChangeInWords(const EditedProgram& before, const EditedProgram& after) {
    const auto lines = ChangedLines(before.image, after.image);
    if (lines.empty()) return "Changed the triggers";
    if (lines.size() > 1 && after.image == MacroMemory()) return "Cleared the program";
    if (lines.size() == 1) return "Changed line " + HexByte(lines.front());
    return "Changed " + std::to_string(lines.size()) + " lines";
}

}  // namespace kestrane
