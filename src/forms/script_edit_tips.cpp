// What a mouse that rests on the macro editor is told.

#include "forms/latin1.h"
#include "forms/script_edit_window.h"
#include "macro/macro_editor.h"
#include "text/text.h"

namespace kestrane {
namespace {

const char* LampName(int picture) {
    constexpr const char* kNames[] = {"grey", "red", "green", "orange"};
    return picture >= 0 && picture < 4 ? kNames[picture] : "unknown";
}

}  // namespace

std::string ScriptEditWindow::TipOf(const Control& control) const {
    const std::string& name = control.name();
    if (name.starts_with("lblCommand(") || name.starts_with("lblMem") ||
        name.starts_with("shpOutline(")) {
        return TipOfLine(control.index());
    }
    if (name.starts_with("pbLED(")) return TipOfLight(control.index());
    if (&control == &form_.cmdGoTo || &control == &form_.txtGoTo) {
        return "The unit runs its macro from this address, at once";
    }
    if (name.starts_with("cmdOn(") || name.starts_with("cmdOff(")) {
        return "Puts an instruction at address " + HexByte(editor_.state().MemPointer) +
               "; no outlet is switched";
    }
    return {};
}

std::string ScriptEditWindow::TipOfLine(int row) const {
    const auto address = static_cast<std::uint8_t>(editor_.state().ListTop + row);
    std::string tip;
    const auto add = [&tip](const std::string& line) { tip += (tip.empty() ? "" : "\n") + line; };
    if (rows_[static_cast<std::size_t>(row)]->TextIsCut()) add(form_.lblCommand(row).Caption());
    if (const std::string names = editor_.edits().NamesAt(address); !names.empty()) add(names);
    if (const auto found = findings_.find(address); found != findings_.end()) {
        for (const Finding& finding : found->second) add(finding.text);
    }
    if (editor_.unit_program().Differs(editor_.state().image, address)) {
        add("Differs from what the unit holds");
    }
    return tip;
}

// The lamps' meaning is the unit's; the record says for certain only what is switched on.
std::string ScriptEditWindow::TipOfLight(int position) const {
    const bool outlet = position < ScriptEditForm::kOutlets;
    std::string tip = outlet ? "Outlet " + std::to_string(position + 1)
                             : "Inlet " + form_.lblFuseNo(position).Caption();
    const auto& status = editor_.status();
    if (!status) return tip + ": not known yet";
    if (outlet) tip += status->OutletOn(position) ? ": on," : ": off,";
    return tip + (outlet ? " light " : ": light ") + LampName(form_.pbLED(position).Picture());
}

}  // namespace kestrane
