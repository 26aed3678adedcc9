#include "console/names.h"

#include <algorithm>

namespace kestrane {
namespace {

FoundTarget Missing(std::string error) { return {{}, std::move(error)}; }

const Value* FindProperty(const PropertyList& list, const std::string& name) {
    if (name.empty()) return &list.front().second;
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const auto& property) { return property.first == name; });
    return found == list.end() ? nullptr : &found->second;
}

FoundTarget WithProperty(Control& control, std::string property) {
    if (!FindProperty(control.Properties(), property)) {
        return Missing(control.name() + " has no property " + property);
    }
    return {Target{&control, nullptr, std::move(property)}, {}};
}

}  // namespace

FoundTarget Names::Find(const std::string& name) const {
    for (const SessionVariable& variable : variables_) {
        if (variable.name == name) return {Target{nullptr, &variable, {}}, {}};
    }
    const std::size_t dot = name.find('.');
    Form* const form = tool_.screen.FindForm(name.substr(0, dot));
    if (!form) return InForm(tool_.main_form, name);
    if (dot == std::string::npos) return WithProperty(*form, {});
    const std::string rest = name.substr(dot + 1);
    // A property of the form itself, which `frmHelp.visible` is and a bare `visible` is not.
    if (!rest.empty() && FindProperty(form->Properties(), rest)) return WithProperty(*form, rest);
    return InForm(*form, rest);
}

FoundTarget Names::InForm(Form& form, const std::string& rest) const {
    const std::size_t dot = rest.find('.');
    const std::string first = rest.substr(0, dot);
    const std::string behind = dot == std::string::npos ? std::string() : rest.substr(dot + 1);
    if (dot != std::string::npos && behind.empty()) return Missing("no name " + rest);
    if (Control* control = form.Find(first)) return WithProperty(*control, behind);
    return Missing("no control " + first + " on " + form.name());
}

Control* Names::FindControl(const std::string& name, std::string& error) const {
    const FoundTarget found = Find(name);
    error = found.error;
    if (!found.target) return nullptr;
    if (found.target->control && found.target->property.empty()) return found.target->control;
    error = name + " is no control";
    return nullptr;
}

Form* Names::FindForm(const std::string& name, std::string& error) const {
    Form* const form = tool_.screen.FindForm(name);
    if (!form) error = "no form " + name;
    return form;
}

Value ReadTarget(const Target& target) {
    if (target.variable) return target.variable->get();
    return *FindProperty(target.control->Properties(), target.property);
}

std::optional<std::string> WriteTarget(const Target& target, const Value& value) {
    if (target.variable) {
        auto why = target.variable->set(value);
        if (why) return target.variable->name + " " + *why;
        return {};
    }
    if (target.property == "kind" || target.property == "usable" || target.property == "tabs") {
        return target.property + " can't be set";
    }
    return target.control->Assign(target.property, value);
}

}  // namespace kestrane
