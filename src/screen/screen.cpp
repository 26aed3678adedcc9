#include "screen/screen.h"

#include <algorithm>

namespace kestrane {

Form* Screen::FindForm(const std::string& name) const {
    const auto found = std::find_if(forms_.begin(), forms_.end(),
                                    [&](const Form* form) { return form->name() == name; });
    return found == forms_.end() ? nullptr : *found;
}

Form* Screen::ActiveForm() const {
    if (!modal_.empty()) return modal_.back();
    return forms_.empty() ? nullptr : forms_.front();
}

void Screen::Show(Form& form) {
    if (form.Visible()) return;
    if (form.on_load) form.on_load();
    form.Control::SetVisible(true);
    for (auto* listener : listeners_) listener->FormShown(form);
    if (form.on_activate) form.on_activate();
    for (auto* listener : listeners_) listener->FormOpened(form);
}

void Screen::ShowModal(Form& form) {
    if (form.Visible()) return;
    const unsigned show = ++shows_;
    running_.emplace_back(&form, show);
    const auto up = [&] {
        return std::find(running_.begin(), running_.end(), std::pair(&form, show)) !=
               running_.end();
    };
    form.Control::SetVisible(true);
    modal_.push_back(&form);
    for (auto* listener : listeners_) listener->FormShown(form);
    if (form.on_load) form.on_load();
    if (up() && form.on_activate) form.on_activate();
    if (up()) {
        for (auto* listener : listeners_) listener->FormOpened(form);
    }
    while (up()) platform_.loop.Pump();
}

void Screen::Hide(Form& form) {
    if (!form.Visible()) return;
    std::erase(modal_, &form);
    std::erase_if(running_, [&](const auto& entry) { return entry.first == &form; });
    form.ClearFocus();
    form.Control::SetVisible(false);
    for (auto* listener : listeners_) listener->FormHidden(form);
}

void Screen::Tell(Control& control, Property property) {
    for (auto* listener : listeners_) listener->ControlChanged(control, property);
}

void Screen::TellFocus(Form& form) {
    for (auto* listener : listeners_) listener->FocusChanged(form);
}

}  // namespace kestrane
