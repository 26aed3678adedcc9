#include "screen/kinds.h"

#include <numeric>

#include "screen/property_values.h"
#include "screen/screen.h"

namespace kestrane {

// CaptionedControl

CaptionedControl::CaptionedControl(Container& container, ControlName name, Kind kind,
                                   std::string caption, Traits traits)
    : Control(container, std::move(name), kind), caption_(std::move(caption)) {
    SetEnabled(traits.enabled);
    SetVisible(traits.visible);
}

void CaptionedControl::SetCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    Notify(Property::kCaption);
}

PropertyList CaptionedControl::Properties() const {
    return Join({{"caption", caption_}}, Control::Properties());
}

MaybeError CaptionedControl::Assign(const std::string& property, const Value& value) {
    if (!IsMain(property, "caption")) return AssignCommon(property, value);
    const auto* text = Is<std::string>(value);
    if (!text) return "caption takes a text";
    SetCaption(*text);
    return {};
}

// TextBox

TextBox::TextBox(Container& container, ControlName name, Traits traits)
    : Control(container, std::move(name), Kind::kTextBox),
      text_(std::move(traits.text)),
      max_length_(traits.max_length),
      password_(std::move(traits.password)),
      locked_(traits.locked) {
    SetEnabled(traits.enabled);
    SetVisible(traits.visible);
}

void TextBox::SetText(std::string text) {
    if (text_ == text) return;
    const int end = static_cast<int>(text.size());
    StoreText(std::move(text), end);
}

void TextBox::StoreText(std::string text, int cursor) {
    text_ = std::move(text);
    sel_start_ = cursor;
    sel_length_ = 0;
    Notify(Property::kText);
    Run(on_change);
}

void TextBox::SetPasswordChar(std::string mask) {
    if (password_ == mask) return;
    password_ = std::move(mask);
    Notify(Property::kPassword);
}

void TextBox::Select(int start, int length) {
    const int size = static_cast<int>(text_.size());
    start = std::clamp(start, 0, size);
    length = std::clamp(length, 0, size - start);
    if (start == sel_start_ && length == sel_length_) return;
    sel_start_ = start;
    sel_length_ = length;
    Notify(Property::kSelection);
}

void TextBox::ReplaceSelection(const std::string& text) {
    std::string changed = text_;
    changed.replace(static_cast<std::size_t>(sel_start_), static_cast<std::size_t>(sel_length_),
                    text);
    const int cursor = sel_start_ + static_cast<int>(text.size());
    // A character typed over an equal one is a change all the same, as it is for the operator.
    if (changed == text_ && text.empty()) {
        Select(cursor, 0);
        return;
    }
    StoreText(std::move(changed), cursor);
}

PropertyList TextBox::Properties() const {
    return Join({{"text", text_}}, Control::Properties(),
                {{"maxLength", static_cast<long>(max_length_)},
                 {"password", password_},
                 {"locked", locked_}});
}

MaybeError TextBox::Assign(const std::string& property, const Value& value) {
    const auto* text = Is<std::string>(value);
    if (IsMain(property, "text")) {
        if (!text) return "text takes a text";
        SetText(*text);
        return {};
    }
    if (property == "password") {
        if (!text) return "password takes a text";
        SetPasswordChar(*text);
        return {};
    }
    if (property == "maxLength") {
        int length = 0;
        if (auto error = AsInt(value, property, length)) return error;
        max_length_ = std::max(0, length);
        Notify(Property::kMaxLength);
        return {};
    }
    if (property == "locked") {
        const auto flag = AsFlag(value);
        if (!flag) return "locked takes true or false";
        locked_ = *flag;
        Notify(Property::kLocked);
        return {};
    }
    return AssignCommon(property, value);
}

// CheckBox

CheckBox::CheckBox(Container& container, ControlName name, std::string caption, Traits traits)
    : Control(container, std::move(name), Kind::kCheckBox),
      caption_(std::move(caption)),
      checked_(traits.checked) {
    SetEnabled(traits.enabled);
    SetVisible(traits.visible);
}

void CheckBox::SetChecked(bool checked) {
    if (checked_ == checked) return;
    checked_ = checked;
    Notify(Property::kValue);
    Run(on_click);
}

PropertyList CheckBox::Properties() const {
    return Join({{"value", static_cast<long>(checked_)}}, Control::Properties(),
                {{"caption", caption_}});
}

MaybeError CheckBox::Assign(const std::string& property, const Value& value) {
    if (!IsMain(property, "value")) return AssignCommon(property, value);
    const auto flag = AsFlag(value);
    if (!flag) return "value takes 0 or 1";
    SetChecked(*flag);
    return {};
}

// OptionButton

OptionButton::OptionButton(Container& container, ControlName name, std::string caption,
                           Traits traits)
    : Control(container, std::move(name), Kind::kOptionButton),
      caption_(std::move(caption)),
      chosen_(traits.chosen) {
    SetEnabled(traits.enabled);
    SetVisible(traits.visible);
}

void OptionButton::SetChosen(bool chosen) {
    if (chosen_ == chosen) return;
    chosen_ = chosen;
    Notify(Property::kValue);
    if (!chosen) return;
    for (Control* other : form().controls()) {
        if (other == this || other->kind() != Kind::kOptionButton ||
            &other->container() != &container()) {
            continue;
        }
        static_cast<OptionButton*>(other)->SetChosen(false);
    }
    Run(on_click);
}

PropertyList OptionButton::Properties() const {
    return Join({{"value", chosen_}}, Control::Properties(), {{"caption", caption_}});
}

MaybeError OptionButton::Assign(const std::string& property, const Value& value) {
    if (!IsMain(property, "value")) return AssignCommon(property, value);
    const auto flag = AsFlag(value);
    if (!flag) return "value takes true or false";
    SetChosen(*flag);
    return {};
}

// ComboBox

ComboBox::ComboBox(Container& container, ControlName name)
    : Control(container, std::move(name), Kind::kComboBox) {}

void ComboBox::SetItems(std::vector<std::string> items) {
    items_ = std::move(items);
    Notify(Property::kItems);
}

void ComboBox::SetListIndex(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size()) || index == index_) return;
    index_ = index;
    Notify(Property::kIndex);
    Run(on_click);
}

PropertyList ComboBox::Properties() const {
    return Join({{"index", static_cast<long>(index_)}}, Control::Properties(), {{"items", items_}});
}

MaybeError ComboBox::Assign(const std::string& property, const Value& value) {
    if (property == "items") {
        const auto* items = Is<std::vector<std::string>>(value);
        if (!items) return "items takes a list of texts";
        SetItems(*items);
        return {};
    }
    if (!IsMain(property, "index")) return AssignCommon(property, value);
    int index = 0;
    if (auto error = AsInt(value, "index", index)) return error;
    if (index < -1 || index >= static_cast<int>(items_.size())) return "no such item";
    SetListIndex(index);
    return {};
}

// ScrollBar

ScrollBar::ScrollBar(Container& container, ControlName name, Traits traits)
    : Control(container, std::move(name), Kind::kScrollBar),
      traits_(traits),
      value_(std::clamp(traits.value, traits.min, traits.max)) {
    SetEnabled(traits.enabled);
}

bool ScrollBar::SetScrollValue(int value) {
    if (value < traits_.min || value > traits_.max) return false;
    if (value_ == value) return true;
    value_ = value;
    Notify(Property::kValue);
    Run(on_change);
    return true;
}

PropertyList ScrollBar::Properties() const {
    return Join({{"value", static_cast<long>(value_)}}, Control::Properties(),
                {{"min", static_cast<long>(traits_.min)}, {"max", static_cast<long>(traits_.max)}});
}

MaybeError ScrollBar::Assign(const std::string& property, const Value& value) {
    int number = 0;
    if (property == "min" || property == "max") {
        if (auto error = AsInt(value, property, number)) return error;
        (property == "min" ? traits_.min : traits_.max) = number;
        Notify(Property::kRange);
        return {};
    }
    if (!IsMain(property, "value")) return AssignCommon(property, value);
    if (auto error = AsInt(value, "value", number)) return error;
    if (!SetScrollValue(number)) return "out of the scroll bar's range";
    return {};
}

// Timer

Timer::Timer(Container& container, ControlName name, Traits traits)
    : Control(container, std::move(name), Kind::kTimer), interval_(traits.interval) {
    timer_ = container.form().screen().platform().timers.NewTimer([this] { Run(on_timer); });
    Control::SetEnabled(false);
    SetEnabled(traits.enabled);
}

void Timer::SetEnabled(bool enabled) {
    if (Enabled() == enabled) return;
    Control::SetEnabled(enabled);
    Arm();
}

void Timer::SetInterval(int milliseconds) {
    interval_ = std::max(0, milliseconds);
    Notify(Property::kInterval);
    Arm();
}

void Timer::Arm() {
    if (Enabled() && interval_ > 0) {
        timer_->Start(std::chrono::milliseconds(interval_));
    } else {
        timer_->Stop();
    }
}

PropertyList Timer::Properties() const {
    PropertyList list = Control::Properties();
    // A timer's main property is whether it runs.
    std::rotate(list.begin(), list.begin() + 1, list.begin() + 2);
    list.emplace_back("interval", static_cast<long>(interval_));
    return list;
}

MaybeError Timer::Assign(const std::string& property, const Value& value) {
    if (property == "interval") {
        int milliseconds = 0;
        if (auto error = AsInt(value, property, milliseconds)) return error;
        SetInterval(milliseconds);
        return {};
    }
    return AssignCommon(property.empty() ? "enabled" : property, value);
}

// Light, Image, Shape

Light::Light(Container& container, ControlName name)
    : Control(container, std::move(name), Kind::kLight) {}

void Light::SetPicture(int picture) {
    if (picture_ == picture) return;
    picture_ = picture;
    Notify(Property::kPicture);
}

PropertyList Light::Properties() const {
    return Join({{"picture", static_cast<long>(picture_)}}, Control::Properties());
}

MaybeError Light::Assign(const std::string& property, const Value& value) {
    if (!IsMain(property, "picture")) return AssignCommon(property, value);
    int picture = 0;
    if (auto error = AsInt(value, "picture", picture)) return error;
    SetPicture(picture);
    return {};
}

Image::Image(Container& container, ControlName name, bool visible)
    : Control(container, std::move(name), Kind::kImage) {
    SetVisible(visible);
}

Shape::Shape(Container& container, ControlName name, bool visible)
    : Control(container, std::move(name), Kind::kShape) {
    SetVisible(visible);
}

std::vector<int> Indices(int first, int last) {
    std::vector<int> indices(static_cast<std::size_t>(last - first + 1));
    std::iota(indices.begin(), indices.end(), first);
    return indices;
}

}  // namespace kestrane
