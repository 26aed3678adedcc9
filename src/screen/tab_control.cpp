#include "screen/tab_control.h"

#include <algorithm>

#include "screen/form.h"
#include "screen/property_values.h"

namespace kestrane {

TabPage::TabPage(TabControl& tabs, int index)
    : Container(&tabs.container(), tabs.container().form()), tabs_(tabs), index_(index) {}

bool TabPage::Reachable() const {
    return tabs_.Tab() == index_ && tabs_.Tabs()[static_cast<std::size_t>(index_)].visible &&
           tabs_.Enabled() && tabs_.Visible() && parent()->Reachable();
}

bool TabPage::Showing() const {
    return tabs_.Tab() == index_ && tabs_.Tabs()[static_cast<std::size_t>(index_)].visible &&
           tabs_.Visible() && parent()->Showing();
}

TabControl::TabControl(Container& container, ControlName name, std::vector<std::string> captions)
    : Control(container, std::move(name), Kind::kTabControl) {
    for (auto& caption : captions) {
        tabs_.push_back({std::move(caption)});
        pages_.push_back(std::make_unique<TabPage>(*this, static_cast<int>(pages_.size())));
    }
}

void TabControl::SetTab(int tab) {
    if (tab < 0 || tab >= TabCount() || tab == tab_) return;
    tab_ = tab;
    Notify(Property::kIndex);
    Run(on_click);
}

void TabControl::SetTabEnabled(int tab, bool enabled) {
    TabState& state = tabs_[static_cast<std::size_t>(tab)];
    if (state.enabled == enabled) return;
    state.enabled = enabled;
    Notify(Property::kTabs);
}

void TabControl::SetTabVisible(int tab, bool visible) {
    TabState& state = tabs_[static_cast<std::size_t>(tab)];
    if (state.visible == visible) return;
    state.visible = visible;
    Notify(Property::kTabs);
    if (visible || tab != tab_) return;
    const auto first = std::find_if(tabs_.begin(), tabs_.end(),
                                    [](const TabState& candidate) { return candidate.visible; });
    if (first != tabs_.end()) SetTab(static_cast<int>(first - tabs_.begin()));
}

PropertyList TabControl::Properties() const {
    return Join({{"index", static_cast<long>(tab_)}}, Control::Properties(), {{"tabs", tabs_}});
}

MaybeError TabControl::Assign(const std::string& property, const Value& value) {
    if (!IsMain(property, "index")) return AssignCommon(property, value);
    int tab = 0;
    if (auto error = AsInt(value, "index", tab)) return error;
    if (tab < 0 || tab >= TabCount()) return "no such tab";
    SetTab(tab);
    return {};
}

}  // namespace kestrane
