#include "editing/undo_history.h"

namespace kestrane {

UndoHistory::UndoHistory(Tool& tool, PendingChanges& pending) : tool_(tool), pending_(pending) {
    tool.screen.AddListener(*this);
    tool.link.journal().AddObserver(*this);
    pending.OnForgotten([this] { Restart(); });
}

UndoHistory::~UndoHistory() {
    tool_.link.journal().RemoveObserver(*this);
    tool_.screen.RemoveListener(*this);
}

void UndoHistory::Restart() {
    done_.clear();
    undone_.clear();
    seen_.clear();
    for (const Setting* setting : EditableSettings()) {
        if (pending_.UnitValue(*setting)) seen_[setting] = ShownIn(tool_.main_form, *setting);
    }
}

void UndoHistory::Settle() {
    Step step{{}, visited_, false};
    for (const Setting* setting : EditableSettings()) {
        if (const auto value = pending_.UnitValue(*setting)) seen_.try_emplace(setting, *value);
    }
    for (auto& [setting, seen] : seen_) {
        if (!pending_.UnitValue(*setting)) continue;
        std::string now = ShownIn(tool_.main_form, *setting);
        if (now == seen) continue;
        // A repair of what the visit before has typed, done when its control was left.
        const bool repair =
            !done_.empty() && !done_.back().closed && done_.back().values.contains(setting) &&
            done_.back().visited != visited_ && ControlOf(tool_.main_form, *setting) != visited_;
        if (repair) {
            done_.back().values[setting].after = now;
        } else {
            step.values[setting] = {seen, now};
        }
        seen = std::move(now);
    }
    if (step.values.empty()) return;
    undone_.clear();
    done_.push_back(std::move(step));
    if (done_.size() > kMostSteps) done_.erase(done_.begin());
}

void UndoHistory::FocusChanged(Form& form) {
    if (&form != &tool_.main_form || applying_ || one_step_) return;
    Settle();
    visited_ = tool_.main_form.Focused();
}

void UndoHistory::OperationBegan(const OperationRecord& operation) {
    if (IsWriteOperation(operation.name)) Close();
}

void UndoHistory::Close() {
    Settle();
    if (!done_.empty()) done_.back().closed = true;
}

void UndoHistory::AsOneStep(const std::function<void()>& work) {
    Close();
    one_step_ = true;
    work();
    one_step_ = false;
    Close();
    visited_ = tool_.main_form.Focused();
}

bool UndoHistory::CanUndo() {
    if (!applying_) Settle();
    return !done_.empty();
}

// The operator sees what goes back: its tab is selected, if it can be.
void UndoHistory::GoTo(const Step& step) {
    const Setting* const first = step.values.begin()->first;
    const int page = PageOfTab(first->tab);
    if (page >= 0 && tool_.main_form.SSTab1.Tab() != page) {
        tool_.hand.Choose(tool_.main_form.SSTab1, page);
    }
    if (Control* const control = ControlOf(tool_.main_form, *first)) tool_.hand.GoTo(*control);
}

// Twice, as setting one control may change another.
std::vector<std::string> UndoHistory::Apply(const Step& step, bool back) {
    applying_ = true;
    GoTo(step);
    for (int pass = 0; pass < 2; ++pass) {
        for (const auto& [setting, values] : step.values) {
            if (!pending_.UnitValue(*setting)) continue;
            ShowIn(tool_.main_form, *setting, back ? values.before : values.after);
        }
    }
    std::vector<std::string> keys;
    for (const auto& [setting, values] : step.values) keys.push_back(setting->key);
    for (auto& [setting, seen] : seen_) seen = ShownIn(tool_.main_form, *setting);
    visited_ = tool_.main_form.Focused();
    applying_ = false;
    return keys;
}

std::vector<std::string> UndoHistory::Undo() {
    if (!CanUndo()) return {};
    const Step step = std::move(done_.back());
    done_.pop_back();
    undone_.push_back(step);
    return Apply(step, true);
}

std::vector<std::string> UndoHistory::Redo() {
    if (CanUndo() && undone_.empty()) return {};
    if (undone_.empty()) return {};
    const Step step = std::move(undone_.back());
    undone_.pop_back();
    done_.push_back(step);
    return Apply(step, false);
}

}  // namespace kestrane
