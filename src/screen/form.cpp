#include "screen/form.h"

#include "screen/screen.h"

namespace kestrane {

// The form is its own container, so that its controls find it as the root.
Form::Form(Screen& screen, ControlName name, std::string caption)
    : Control(static_cast<Container&>(*this), std::move(name), Kind::kForm),
      Container(nullptr, *this),
      screen_(screen),
      caption_(std::move(caption)) {
    Control::SetVisible(false);
    screen.Register(*this);
}

Form::~Form() { screen_.Unregister(*this); }

void Form::Register(Control& control) {
    controls_.push_back(&control);
    by_name_[control.name()] = &control;
}

Control* Form::Find(const std::string& name) const {
    const auto found = by_name_.find(name);
    return found == by_name_.end() ? nullptr : found->second;
}

void Form::SetCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    Notify(Property::kCaption);
}

void Form::SetPointer(int pointer) {
    if (pointer_ == pointer) return;
    pointer_ = pointer;
    Notify(Property::kPointer);
}

void Form::SetHeight(int twips) {
    if (height_ == twips) return;
    height_ = twips;
    Notify(Property::kHeight);
}

bool Form::Reachable() const { return Enabled() && Visible() && screen_.ActiveForm() == this; }

bool Form::CanHoldFocus(const Control& control) const {
    if (!control.TakesFocus() || !control.Enabled() || !control.Showing()) return false;
    // Every frame around it must be enabled; the form itself need not be the active one.
    for (const Container* at = &control.container(); at != nullptr; at = at->parent()) {
        const auto* frame = dynamic_cast<const Frame*>(at);
        if (frame && !frame->Enabled()) return false;
    }
    return true;
}

Control* Form::Focused() const { return focus_ && CanHoldFocus(*focus_) ? focus_ : nullptr; }

void Form::SetFocus(Control& control) {
    if (CanHoldFocus(control)) MoveFocus(&control);
}

void Form::ClearFocus() { MoveFocus(nullptr); }

void Form::MoveFocus(Control* to) {
    Control* const from = focus_;
    if (from == to) return;
    const bool leave = entered_ && from && CanHoldFocus(*from);
    focus_ = to;
    entered_ = false;
    screen_.TellFocus(*this);
    if (leave) Run(from->on_lost_focus);
    // A lost focus handling may have moved the focus elsewhere.
    if (focus_ != to || entered_ || !to) return;
    entered_ = true;
    Run(to->on_got_focus);
}

PropertyList Form::Properties() const {
    const Control* focused = Focused();
    PropertyList list{{"visible", Visible()}};
    for (auto& property : Control::Properties()) {
        if (property.first != "visible") list.push_back(std::move(property));
    }
    list.emplace_back("caption", caption_);
    list.emplace_back("pointer", static_cast<long>(pointer_));
    list.emplace_back("height", static_cast<long>(height_));
    list.emplace_back("focus", focused ? focused->name() : std::string());
    return list;
}

std::optional<std::string> Form::Assign(const std::string& property, const Value& value) {
    const long* number = std::get_if<long>(&value);
    if (property == "pointer" || property == "height") {
        if (!number || *number < 0 || *number > 1'000'000) return property + " takes a number";
        property == "pointer" ? SetPointer(static_cast<int>(*number))
                              : SetHeight(static_cast<int>(*number));
        return {};
    }
    if (property == "focus") {
        const auto* wanted = std::get_if<std::string>(&value);
        if (!wanted) return "focus takes the name of a control";
        if (wanted->empty()) {
            ClearFocus();
            return {};
        }
        Control* control = Find(*wanted);
        if (!control) return "no control " + *wanted;
        SetFocus(*control);
        return {};
    }
    if (property.empty() || property == "visible") return "a form is shown by the program alone";
    return AssignCommon(property, value);
}

}  // namespace kestrane
