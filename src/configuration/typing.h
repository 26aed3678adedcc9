#pragma once

// The first half of an application: reads the tabs concerned, compares, and types what differs as
// an operator would, on the screen only. What the tool refuses, repairs or would let pass though
// its write would do something else ends up among the refusals.

#include <map>
#include <string>
#include <vector>

#include "configuration/engine.h"
#include "configuration/screen_values.h"

namespace kestrane {

class Typing {
  public:
    Typing(UnitSession& session, const ApplyRequest& request, ApplyReport& report)
        : session_(session), tool_(session.tool()), request_(request), report_(report) {}

    // Fills the report's changes and what is left alone. False if a read has failed.
    bool Run();
    // Sentences; nothing may be written if there is one.
    const std::vector<std::string>& refusals() const { return refusals_; }

  private:
    struct Wanted {
        SettingValue value;
        std::string left_alone;  // why; empty: it counts
    };

    void SelectWanted();
    bool Touches(const TabRow& tab) const;
    void LeaveTabAlone(const TabRow& tab);
    bool Holds(const Setting& setting, const ShownValue& shown, const SettingValue& value) const;
    void Compare(const TabRow& tab);
    void InTableOrder();
    void Type(const TabRow& tab);
    void TypeOtherLevels();
    void FindSideEffects(const TabRow& tab);
    std::optional<SettingValue> ClosedOnScreen(const Setting& setting) const;
    void CheckTabTogether(const TabRow& tab);
    void CheckNetwork();
    void CheckPasswords();
    void CheckColumns();
    void CheckLastMacroLine();
    void CheckTriggers();

    UnitSession& session_;
    Tool& tool_;
    const ApplyRequest& request_;
    ApplyReport& report_;
    std::map<const Setting*, Wanted> wanted_;
    std::map<const Setting*, ShownValue> before_;  // of the tab that is being typed
    std::vector<std::string> refusals_;
};

// Whether a tab's own write carries one of the changes; the unit ID has a button of its own.
bool ChangesBlocksOf(const ApplyReport& report, const TabRow& tab);

// The web level that a setting of the security tab belongs to, 0 to 2.
int LevelOf(Tool& tool, const Setting& setting);

}  // namespace kestrane
