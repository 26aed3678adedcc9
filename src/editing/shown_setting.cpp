#include "editing/shown_setting.h"

#include <algorithm>

#include "configuration/tabs.h"

namespace kestrane {
namespace {

std::vector<OptionButton*> OptionsOf(MainForm& form, const std::string& name) {
    std::vector<OptionButton*> options;
    for (Control* control : form.controls()) {
        if (control->kind() == Kind::kOptionButton && control->base_name() == name) {
            options.push_back(static_cast<OptionButton*>(control));
        }
    }
    return options;
}

std::string ItemOf(const ComboBox& box) {
    if (box.ListIndex() < 0) return {};
    return box.Items()[static_cast<std::size_t>(box.ListIndex())];
}

void ShowItem(ComboBox& box, const std::string& item) {
    const auto found = std::find(box.Items().begin(), box.Items().end(), item);
    box.SetListIndex(found == box.Items().end() ? -1
                                                : static_cast<int>(found - box.Items().begin()));
}

}  // namespace

Control* ControlOf(MainForm& form, const Setting& setting) {
    if (Control* const control = form.Find(setting.control)) return control;
    const auto options = OptionsOf(form, setting.control);
    for (OptionButton* option : options) {
        if (option->Chosen()) return option;
    }
    return options.empty() ? nullptr : options.front();
}

std::string ShownIn(MainForm& form, const Setting& setting) {
    const Control* const control = ControlOf(form, setting);
    if (!control) return {};
    switch (control->kind()) {
        case Kind::kTextBox:
            return static_cast<const TextBox*>(control)->Text();
        case Kind::kCheckBox:
            return static_cast<const CheckBox*>(control)->Checked() ? "true" : "false";
        case Kind::kComboBox:
            return ItemOf(*static_cast<const ComboBox*>(control));
        case Kind::kOptionButton: {
            const auto* option = static_cast<const OptionButton*>(control);
            return option->Chosen() ? option->Caption() : std::string();
        }
        default:
            return {};
    }
}

void ShowIn(MainForm& form, const Setting& setting, const std::string& value) {
    Control* const control = ControlOf(form, setting);
    if (!control) return;
    if (control->kind() == Kind::kTextBox) {
        static_cast<TextBox*>(control)->SetText(value);
    } else if (control->kind() == Kind::kCheckBox) {
        static_cast<CheckBox*>(control)->SetChecked(value == "true");
    } else if (control->kind() == Kind::kComboBox) {
        ShowItem(*static_cast<ComboBox*>(control), value);
    } else {
        for (OptionButton* option : OptionsOf(form, setting.control)) {
            option->SetChosen(option->Caption() == value);
        }
    }
}

const std::vector<const Setting*>& EditableSettings() {
    static const std::vector<const Setting*> editable = [] {
        std::vector<const Setting*> made;
        for (const Setting& setting : Settings()) {
            if (!setting.IsMacro() && !setting.read_only) made.push_back(&setting);
        }
        return made;
    }();
    return editable;
}

int PageOfTab(std::string_view tab) {
    const TabRow* const row = FindTab(tab);
    return row ? row->page : -1;
}

}  // namespace kestrane
