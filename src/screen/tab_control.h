#pragma once

// A tab control and the pages that hold what stands on its tabs.

#include <memory>
#include <string>
#include <vector>

#include "screen/control.h"

namespace kestrane {

class TabControl;

class TabPage : public Container {
  public:
    TabPage(TabControl& tabs, int index);

    std::string container_name() const override { return {}; }
    bool Reachable() const override;
    bool Showing() const override;
    int index() const { return index_; }

  private:
    TabControl& tabs_;
    int index_;
};

// A tab's Enabled decides whether a hand can select it; it does not reach what stands on its page.
class TabControl : public Control {
  public:
    TabControl(Container& container, ControlName name, std::vector<std::string> captions);

    int TabCount() const { return static_cast<int>(tabs_.size()); }
    const std::vector<TabState>& Tabs() const { return tabs_; }
    int Tab() const { return tab_; }
    // A new tab runs the click handling.
    void SetTab(int tab);
    void SetTabEnabled(int tab, bool enabled);
    // Hiding the selected tab selects the first visible one.
    void SetTabVisible(int tab, bool visible);
    TabPage& page(int tab) { return *pages_[static_cast<std::size_t>(tab)]; }

    PropertyList Properties() const override;
    std::optional<std::string> Assign(const std::string& property, const Value& value) override;

  private:
    std::vector<TabState> tabs_;
    std::vector<std::unique_ptr<TabPage>> pages_;
    int tab_ = 0;
};

}  // namespace kestrane
