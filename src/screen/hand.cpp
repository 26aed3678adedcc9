#include "screen/hand.h"

namespace kestrane {
namespace {

constexpr int kFirstPrintable = 32;

// The innermost thing that keeps `control` from a hand, told in a few words.
std::string WhyNotUsable(const Screen& screen, const Control& control) {
    const std::string& name = control.name();
    const Form* active = screen.ActiveForm();
    if (!control.form().Visible()) return name + ": its form is not open";
    if (active != &control.form()) return name + ": " + active->name() + " is open before it";
    if (!control.Showing()) return name + " is hidden or on another tab";
    if (!control.Enabled()) return name + " is disabled";
    for (const Container* at = &control.container(); at != nullptr; at = at->parent()) {
        const auto* frame = dynamic_cast<const Frame*>(at);
        if (frame && !frame->Enabled())
            return name + ": its frame " + frame->name() + " is disabled";
    }
    return name + " can't be used";
}

}  // namespace

Refusal Hand::CheckUsable(const Control& control) const {
    if (control.Usable()) return {};
    return WhyNotUsable(screen_, control);
}

Refusal Hand::GoTo(Control& control) {
    if (auto refusal = CheckUsable(control)) return refusal;
    Form& form = control.form();
    Control* const old = form.Focused();
    if (!control.TakesFocus() || old == &control) return {};
    if (old && old->on_validate) old->on_validate();
    form.SetFocus(control);
    return {};
}

// Leaving the old control may have changed what can be used, or sent the focus to a control that
// wants to be looked at first. Whoever has only said something lets the hand go on. A box may also
// have stayed open until another unit was connected.
Refusal Hand::MoveTo(Control& control) {
    const int connection = connection_();
    GoTo(control);
    if (auto refusal = CheckUsable(control)) return refusal;
    if (connection_() != 0 && connection_() != connection) {
        return control.name() + ": another connection has begun in the meantime";
    }
    const Control* const focused = control.form().Focused();
    if (control.TakesFocus() && focused && focused != &control) {
        return control.name() + ": " + focused->name() + " has taken the focus back";
    }
    return {};
}

void Hand::Leave() {
    Form* form = screen_.ActiveForm();
    Control* const old = form ? form->Focused() : nullptr;
    if (!old) return;
    if (old->on_validate) old->on_validate();
    form->ClearFocus();
}

Refusal Hand::CheckClick(const Control& control) const {
    switch (control.kind()) {
        case Kind::kButton:
        case Kind::kCheckBox:
        case Kind::kOptionButton:
            break;
        case Kind::kLabel:
            if (control.on_click) break;
            [[fallthrough]];
        default:
            return control.name() + " takes no click";
    }
    return CheckUsable(control);
}

Refusal Hand::Click(Control& control) {
    if (auto refusal = CheckClick(control)) return refusal;
    if (auto refusal = MoveTo(control)) return refusal;
    if (control.kind() == Kind::kCheckBox) {
        auto& box = static_cast<CheckBox&>(control);
        box.SetChecked(!box.Checked());
    } else if (control.kind() == Kind::kOptionButton) {
        static_cast<OptionButton&>(control).SetChosen(true);
    } else if (control.on_click) {
        control.on_click();
    }
    return {};
}

Refusal Hand::CheckTyping(const TextBox& box) const {
    if (auto refusal = CheckUsable(box)) return refusal;
    if (box.Locked()) return box.name() + " is locked";
    return {};
}

Refusal Hand::Type(TextBox& box, std::string_view text) {
    if (auto refusal = CheckTyping(box)) return refusal;
    if (auto refusal = MoveTo(box)) return refusal;
    box.Select(0, static_cast<int>(box.Text().size()));
    if (text.empty()) box.ReplaceSelection("");
    for (const char c : text) TypeKey(box, static_cast<unsigned char>(c));
    return {};
}

Refusal Hand::Press(TextBox& box, int code) {
    if (auto refusal = CheckTyping(box)) return refusal;
    if (code < 0 || code > 255) return "a character code is 0 to 255";
    if (auto refusal = MoveTo(box)) return refusal;
    TypeKey(box, code);
    return {};
}

Refusal Hand::Paste(TextBox& box, std::string_view text) {
    if (auto refusal = CheckTyping(box)) return refusal;
    for (const char c : text.substr(0, kLongestPaste)) TypeKey(box, static_cast<unsigned char>(c));
    return {};
}

Refusal Hand::Erase(TextBox& box) {
    if (auto refusal = CheckTyping(box)) return refusal;
    box.ReplaceSelection("");
    return {};
}

void Hand::TypeKey(TextBox& box, int code) {
    if (box.on_key_press) box.on_key_press(code);
    if (code == kBackspace) {
        if (box.SelLength() == 0 && box.SelStart() > 0) box.Select(box.SelStart() - 1, 1);
        box.ReplaceSelection("");
        return;
    }
    if (code < kFirstPrintable) return;
    const int length = static_cast<int>(box.Text().size()) - box.SelLength();
    if (box.MaxLength() > 0 && length >= box.MaxLength()) return;
    box.ReplaceSelection(std::string(1, static_cast<char>(code)));
}

void Hand::Key(int code) {
    Form* form = screen_.ActiveForm();
    if (form && form->Visible() && form->on_key_down) form->on_key_down(code);
}

Refusal Hand::CheckTab(const TabControl& tabs, int index) const {
    const TabState& tab = tabs.Tabs()[static_cast<std::size_t>(index)];
    if (!tab.visible) return "the tab " + tab.caption + " is hidden";
    if (!tab.enabled) return "the tab " + tab.caption + " is disabled";
    return {};
}

Refusal Hand::Choose(Control& control, int value) {
    if (auto refusal = CheckUsable(control)) return refusal;
    const std::string& name = control.name();
    if (control.kind() == Kind::kComboBox) {
        auto& combo = static_cast<ComboBox&>(control);
        if (value < 0 || value >= static_cast<int>(combo.Items().size())) {
            return name + " has no item " + std::to_string(value);
        }
        if (auto refusal = MoveTo(combo)) return refusal;
        combo.SetListIndex(value);
        return {};
    }
    if (control.kind() == Kind::kScrollBar) {
        auto& bar = static_cast<ScrollBar&>(control);
        if (value < bar.Min() || value > bar.Max()) {
            return name + " goes from " + std::to_string(bar.Min()) + " to " +
                   std::to_string(bar.Max());
        }
        if (auto refusal = MoveTo(bar)) return refusal;
        bar.SetScrollValue(value);
        return {};
    }
    if (control.kind() == Kind::kTabControl) {
        auto& tabs = static_cast<TabControl&>(control);
        if (value < 0 || value >= tabs.TabCount()) {
            return name + " has no tab " + std::to_string(value);
        }
        if (auto refusal = CheckTab(tabs, value)) return refusal;
        if (auto refusal = MoveTo(tabs)) return refusal;
        if (auto refusal = CheckTab(tabs, value)) return refusal;
        tabs.SetTab(value);
        return {};
    }
    return name + " has nothing to choose from";
}

Refusal Hand::Close(Form& form) {
    if (!form.Visible()) return form.name() + " is not open";
    // The main form can be closed at any time: that ends the program.
    if (screen_.ActiveForm() != &form && screen_.forms().front() != &form) {
        return form.name() + ": " + screen_.ActiveForm()->name() + " is open before it";
    }
    if (form.on_close) {
        form.on_close();
    } else {
        screen_.Hide(form);
    }
    return {};
}

}  // namespace kestrane
