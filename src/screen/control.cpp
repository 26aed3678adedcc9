#include "screen/control.h"

#include "screen/screen.h"

namespace kestrane {
namespace {

std::string FullName(const ControlName& name) {
    return name.index ? name.base + "(" + std::to_string(*name.index) + ")" : name.base;
}

Value ColourValue(std::optional<Colour> colour) {
    if (!colour) return std::monostate{};
    return static_cast<long>(*colour);
}

}  // namespace

const char* KindName(Kind kind) {
    switch (kind) {
        case Kind::kForm:
            return "form";
        case Kind::kFrame:
            return "frame";
        case Kind::kLabel:
            return "label";
        case Kind::kTextBox:
            return "text box";
        case Kind::kButton:
            return "button";
        case Kind::kCheckBox:
            return "check box";
        case Kind::kOptionButton:
            return "option button";
        case Kind::kComboBox:
            return "combo box";
        case Kind::kScrollBar:
            return "scroll bar";
        case Kind::kTabControl:
            return "tab control";
        case Kind::kTimer:
            return "timer";
        case Kind::kLight:
            return "light";
        case Kind::kImage:
            return "image";
        case Kind::kShape:
            return "shape";
    }
    return "";
}

Control::Control(Container& container, ControlName name, Kind kind)
    : container_(container),
      kind_(kind),
      base_name_(name.base),
      index_(name.index),
      name_(FullName(name)) {
    if (kind != Kind::kForm) container.form().Register(*this);
}

void Control::SetEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    Notify(Property::kEnabled);
}

void Control::SetVisible(bool visible) {
    if (visible_ == visible) return;
    visible_ = visible;
    Notify(Property::kVisible);
}

void Control::SetForeColor(Colour colour) {
    if (fore_ == colour) return;
    fore_ = colour;
    Notify(Property::kForeColor);
}

void Control::SetBackColor(Colour colour) {
    if (back_ == colour) return;
    back_ = colour;
    Notify(Property::kBackColor);
}

void Control::SetToolTip(std::string text) {
    if (tool_tip_ == text) return;
    tool_tip_ = std::move(text);
    Notify(Property::kToolTip);
}

bool Control::Usable() const { return enabled_ && visible_ && container_.Reachable(); }

bool Control::TakesFocus() const {
    switch (kind_) {
        case Kind::kTextBox:
        case Kind::kButton:
        case Kind::kCheckBox:
        case Kind::kOptionButton:
        case Kind::kComboBox:
        case Kind::kScrollBar:
        case Kind::kTabControl:
            return true;
        default:
            return false;
    }
}

PropertyList Control::Properties() const {
    return {{"kind", std::string(KindName(kind_))},
            {"enabled", enabled_},
            {"usable", Usable()},
            {"visible", visible_},
            {"fore", ColourValue(fore_)},
            {"back", ColourValue(back_)},
            {"tip", tool_tip_}};
}

std::optional<std::string> Control::Assign(const std::string& property, const Value& value) {
    return AssignCommon(property, value);
}

std::optional<std::string> Control::AssignCommon(const std::string& property, const Value& value) {
    if (property == "enabled" || property == "visible") {
        const bool* flag = std::get_if<bool>(&value);
        if (!flag) return property + " takes true or false";
        property == "enabled" ? SetEnabled(*flag) : SetVisible(*flag);
        return {};
    }
    if (property == "fore" || property == "back") {
        const long* colour = std::get_if<long>(&value);
        if (!colour || *colour < 0 || *colour > 0xFFFFFFFFL) return property + " takes a colour";
        const auto number = static_cast<Colour>(*colour);
        property == "fore" ? SetForeColor(number) : SetBackColor(number);
        return {};
    }
    if (property == "tip") {
        const std::string* text = std::get_if<std::string>(&value);
        if (!text) return "tip takes a text";
        SetToolTip(*text);
        return {};
    }
    return "no property " + (property.empty() ? std::string("to assign") : property);
}

void Control::Notify(Property property) { form().screen().Tell(*this, property); }

}  // namespace kestrane
