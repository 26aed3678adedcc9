#include "macro/program_edits.h"

#include <algorithm>

#include "macro/assembler.h"
#include "macro/disassembler.h"
#include "macro/instruction_set.h"
#include "text/text.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

// A save pads the names of the triggers in their boxes, which is not a change.
std::string WithoutPadding(std::string name) {
    name.erase(name.find_last_not_of(' ') + 1);
    return name;
}

// Labels stand for single lines of a program and go with it.
constexpr std::size_t kMostLinesOfAnEdit = 16;

}  // namespace

ProgramEdits::ProgramEdits(ScriptEditForm& form, MainForm& main_form, Session& session,
                           EditorState& state, Listing& listing)
    : form_(form), main_form_(main_form), session_(session), state_(state), listing_(listing) {}

void ProgramEdits::Begin() {
    labels_.clear();
    state_.last_action.clear();
    state_.new_action.reset();
    state_.file_name.clear();
    state_.new_labels.reset();
    history_.Begin(Snapshot());
}

void ProgramEdits::Opened() {
    if (history_.UndoName().empty() && history_.RedoName().empty()) {
        history_.Begin(Snapshot());
    } else {
        Look();
    }
}

bool ProgramEdits::Usable() const { return form_.Visible() && !state_.transferring; }

void ProgramEdits::Look() {
    if (!Usable()) return;
    const auto brought = std::exchange(state_.new_labels, std::nullopt);
    if (brought) labels_ = *brought;
    const EditedProgram now = Snapshot();
    const auto named = std::exchange(state_.new_action, std::nullopt);
    if (!(now == history_.Now())) {
        const bool replaced =
            ChangedLines(history_.Now().image, now.image).size() > kMostLinesOfAnEdit;
        if (replaced && !brought && now.labels == history_.Now().labels) labels_.clear();
        state_.last_action = named.value_or(ChangeInWords(history_.Now(), now));
        history_.Note(Snapshot(), state_.last_action);
    } else if (named) {
        state_.last_action = *named;
    }
}

EditedProgram ProgramEdits::Snapshot() const {
    EditedProgram now{state_.image, {}, labels_};
    const TriggersTab& tab = main_form_.triggers;
    for (int i = 0; i < kTriggerRows; ++i) {
        now.triggers[static_cast<std::size_t>(i)] = {
            WithoutPadding(tab.txtMTName(i).Text()), tab.txtMTPage(i).Text(),
            tab.txtMTAddress(i).Text(), tab.chkMacro(i).Checked()};
    }
    return now;
}

bool ProgramEdits::Undo() {
    Look();
    const std::string name = history_.UndoName();
    if (name.empty() || !Usable() || !form_.Reachable()) return false;
    Show(history_.Undo());
    state_.last_action = "Undone: " + name;
    return true;
}

bool ProgramEdits::Redo() {
    Look();
    const std::string name = history_.RedoName();
    if (name.empty() || !Usable() || !form_.Reachable()) return false;
    Show(history_.Redo());
    state_.last_action = "Redone: " + name;
    return true;
}

// The cursor goes to the first line that changes, unless it follows the unit.
void ProgramEdits::Show(const EditedProgram& program) {
    const auto lines = ChangedLines(state_.image, program.image);
    state_.image = program.image;
    labels_ = program.labels;
    ShowTriggers(program.triggers);
    if (!lines.empty()) {
        session_.MacroChanged = true;
        const int first = std::clamp<int>(lines.front(), kFirstMacroAddress, kLastJumpTarget);
        if (!form_.chkTrace.Checked()) form_.scrListScroll.SetScrollValue(first);
    }
    listing_.RefreshListing();
}

void ProgramEdits::ShowTriggers(const TriggerRows& rows) {
    if (rows == Snapshot().triggers) return;
    session_.MacroTriggersChanged = true;
    TriggersTab& tab = main_form_.triggers;
    for (int i = 0; i < kTriggerRows; ++i) {
        const TriggerRow& row = rows[static_cast<std::size_t>(i)];
        tab.txtMTName(i).SetText(row.name);
        tab.txtMTPage(i).SetText(row.page);
        tab.txtMTAddress(i).SetText(row.address);
        tab.chkMacro(i).SetChecked(row.enabled);
    }
}

std::string ProgramEdits::Lines(std::uint8_t first, std::uint8_t last) const {
    return DisassembleLines(state_.image, first, last, session_.UnitType);
}

std::optional<std::string> ProgramEdits::Paste(std::string_view source) {
    if (!Usable() || !form_.Reachable()) return "The editor is busy.";
    const Assembly assembly = Assemble(source, state_.MemPointer);
    for (const SourceFault& fault : assembly.faults) {
        if (fault.is_warning) continue;
        return "Line " + std::to_string(fault.place.line) + ": " + fault.text;
    }
    const auto& programmed = assembly.program.programmed;
    if (programmed.none()) return "There is no instruction in what was copied.";
    Look();
    int last = 0;
    for (std::size_t address = 0; address < programmed.size(); ++address) {
        if (!programmed[address]) continue;
        labels_.erase(static_cast<std::uint8_t>(address));
        for (const std::size_t index : {2 * address, 2 * address + 1}) {
            state_.image.Set(index, assembly.program.image.Get(index));
        }
        last = static_cast<int>(address);
    }
    for (const auto& [address, names] : assembly.program.LabelsByAddress()) {
        std::string& all = labels_[address];
        all += all.empty() ? names : ", " + names;
    }
    session_.MacroChanged = true;
    state_.new_action = "Pasted " + std::to_string(programmed.count()) +
                        (programmed.count() == 1 ? " line" : " lines");
    form_.scrListScroll.SetScrollValue(std::min<int>(last + 1, kLastJumpTarget));
    listing_.RefreshListing();
    return {};
}

// A row of the triggers that was not read says nothing.
std::vector<Finding> ProgramEdits::Findings() const {
    MacroProgram program;
    program.image = state_.image;
    program.MarkProgrammed();
    const EditedProgram now = Snapshot();
    for (std::size_t i = 0; i < now.triggers.size(); ++i) {
        if (now.triggers[i].address.empty()) continue;
        program.triggers[i] = MacroProgram::Trigger{now.triggers[i], {}};
    }
    return CheckProgram(program, session_.UnitType);
}

std::string ProgramEdits::NamesAt(std::uint8_t address) const {
    std::string names;
    const auto add = [&names](const std::string& name) {
        names += names.empty() ? name : ", " + name;
    };
    if (const auto label = labels_.find(address); label != labels_.end()) add(label->second);
    const TriggersTab& tab = main_form_.triggers;
    for (int i = 0; i < kTriggerRows; ++i) {
        if (HexValue(tab.txtMTAddress(i).Text()) != address || address == 0) continue;
        const std::string name = Trim(tab.txtMTName(i).Text());
        add("trigger " + std::to_string(i + 1) +
            (name.empty() ? std::string() : " \"" + FromByteText(name) + "\""));
    }
    return names;
}

}  // namespace kestrane
