#include "editing/workbench.h"

namespace kestrane {
namespace {

std::string Join(const std::vector<std::string>& keys) {
    std::string text;
    for (const std::string& key : keys) text += (text.empty() ? "" : ", ") + key;
    return text;
}

}  // namespace

Workbench::Workbench(Tool& its_tool) : tool(its_tool) {
    tool.screen.platform().loop.AfterEvents([alive = std::weak_ptr(alive_)] {
        if (const auto bench = alive.lock()) (*bench)->messages.Look();
    });
}

bool Workbench::Undo() {
    const auto keys = history.Undo();
    if (!keys.empty()) messages.Add(MessageKind::kGood, "Undone: " + Join(keys) + ".");
    return !keys.empty();
}

bool Workbench::Redo() {
    const auto keys = history.Redo();
    if (!keys.empty()) messages.Add(MessageKind::kGood, "Done again: " + Join(keys) + ".");
    return !keys.empty();
}

bool Workbench::Verify() {
    const Verification::Outcome outcome = verification.Run();
    std::string text =
        "Verified: " + std::to_string(outcome.compared) + " values read back as written.";
    MessageKind kind = MessageKind::kGood;
    if (outcome.failure) {
        text = *outcome.failure;
        kind = MessageKind::kWarning;
    } else if (outcome.compared == 0) {
        text = "Not verified: the unit does not give back what was written.";
        kind = MessageKind::kWarning;
    } else if (outcome.unknown > 0) {
        text += " " + std::to_string(outcome.unknown) + " could not be compared.";
        kind = MessageKind::kWarning;
    }
    if (!outcome.not_taken.empty()) {
        std::vector<std::string> keys;
        for (const Setting* setting : outcome.not_taken) keys.push_back(setting->key);
        text = "Not taken by the unit: " + Join(keys) + ".";
        if (outcome.failure) text += " " + *outcome.failure;
        kind = MessageKind::kFault;
    }
    messages.Add(kind, std::move(text));
    return kind == MessageKind::kGood;
}

void Workbench::AfterClick(Control& button, std::uint64_t last) {
    if (button.base_name().find("Write") == std::string::npos) return;
    if (tool.link.journal().last_operation() != last) return;
    const std::string red = WhyNotWritten(tool, button);
    messages.Add(MessageKind::kWarning, red.empty() ? "Nothing was written."
                                                    : "Not written: " + red + " can't be stored.");
}

}  // namespace kestrane
