#include "support/tool_look.h"

#include <algorithm>
#include <map>

#include "text/text.h"
#include "tool/session_variables.h"

namespace kestrane {
namespace {

std::string Text(bool flag) { return flag ? "true" : "false"; }

std::string Text(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return Quoted(*text);
    if (const auto* number = std::get_if<long>(&value)) return std::to_string(*number);
    if (const auto* flag = std::get_if<bool>(&value)) return Text(*flag);
    return "none";
}

// What the log of a story says already: the line's own labels, progress as it happens, addresses
// that follow ListTop.
bool IsSaidElsewhere(const Control& control) {
    const std::string& name = control.base_name();
    return name.starts_with("Label") || name == "lblMem" || name == "lblMemoryBlock" ||
           name == "lblTopStatus";
}

void LookAtControl(const Control& control, std::vector<Seen>& all) {
    const int index = control.name() == control.base_name() ? -1 : control.index();
    for (const auto& [property, value] : control.Properties()) {
        if (property == "kind" || property == "usable") continue;
        const auto* tabs = std::get_if<std::vector<TabState>>(&value);
        if (!tabs) all.push_back({property, control.base_name(), index, Text(value)});
        for (int i = 0; tabs && i < static_cast<int>(tabs->size()); ++i) {
            const TabState& tab = (*tabs)[static_cast<std::size_t>(i)];
            all.push_back({"enabled", "tab", i, Text(tab.enabled)});
            all.push_back({"visible", "tab", i, Text(tab.visible)});
        }
    }
}

std::string FocusOf(const Form& form) {
    const Control* focused = form.Focused();
    if (!focused) return "none";
    const auto* box = dynamic_cast<const TextBox*>(focused);
    return focused->name() + (box ? " (" + std::to_string(box->SelLength()) + " selected)" : "");
}

void LookAtForm(const Form& form, std::vector<Seen>& all) {
    for (const Control* control : form.controls()) {
        if (!IsSaidElsewhere(*control)) LookAtControl(*control, all);
    }
    all.push_back({"focus", form.name(), -1, FocusOf(form)});
    all.push_back({"height", form.name(), -1, std::to_string(form.Height())});
    all.push_back({"visible", form.name(), -1, Text(form.Visible())});
}

std::vector<std::string> Grouped(const std::vector<Seen>& all) {
    std::vector<std::string> order;
    std::map<std::string, std::vector<IndexedName>> groups;
    for (const auto& [property, base, index, value] : all) {
        const std::string group = property + (property.empty() ? "" : " ") + value;
        if (groups[group].empty()) order.push_back(group);
        groups[group].emplace_back(base, index);
    }
    for (std::string& group : order) group += ": " + NameList(groups[group]);
    return order;
}

}  // namespace

std::vector<Seen> LookAt(Tool& tool) {
    std::vector<Seen> all;
    LookAtForm(tool.main_form, all);
    LookAtForm(tool.script_edit_form, all);
    for (const SessionVariable& variable : SessionVariables(tool)) {
        const std::string& name = variable.name;
        // What a frame or the program shows.
        if (name == "ReplyBuffer" || name == "FrameBuffer" || name == "CommandDone" ||
            name == "MacroMemory") {
            continue;
        }
        all.push_back({"", name, -1, Text(variable.get())});
    }
    const MacroMemory& image = tool.macro_editor.state().image;
    for (std::size_t at = 0; at < MacroMemory::kSize; at += 2) {
        all.push_back({"", "image", static_cast<int>(at / 2),
                       HexByte(image.Get(at)) + " " + HexByte(image.Get(at + 1))});
    }
    return all;
}

std::vector<std::string> Differences(const std::vector<Seen>& before,
                                     const std::vector<Seen>& after) {
    std::vector<Seen> changed;
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (after[i].value != before[i].value) changed.push_back(after[i]);
    }
    return Grouped(changed);
}

std::vector<std::string> Shown(Tool& tool, const StoryWords& words) {
    const std::string property = words.size() > 2 ? words.back() : "";
    std::vector<Seen> shown = LookAt(tool);
    std::erase_if(shown, [&](const Seen& seen) {
        const std::string name = NameList({{seen.base, seen.index}});
        return seen.property != property || std::count(words.begin(), words.end(), name) == 0;
    });
    return Grouped(shown);
}

}  // namespace kestrane
