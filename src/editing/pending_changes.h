#pragma once

// What differs on the screen from what the unit is known to hold. The unit's value of a setting is
// the one that stood in its control when a read of it was accepted, or that an accepted write
// carried: both are taken from the link's journal. A setting that the program has cleared or is
// reading again has none, and then no change either.

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "editing/shown_setting.h"
#include "tool/tool.h"

namespace kestrane {

struct PendingChange {
    const Setting* setting = nullptr;
    Control* control = nullptr;
    std::string before;  // on the unit
    std::string now;     // on the screen
};

class PendingChanges : public ScreenListener, public JournalObserver {
  public:
    explicit PendingChanges(Tool& tool);
    ~PendingChanges() override;
    PendingChanges(const PendingChanges&) = delete;
    PendingChanges& operator=(const PendingChanges&) = delete;

    // In the order of the table.
    std::vector<PendingChange> List() const;
    std::size_t Count() const { return changed_.size(); }
    bool Differs(const Setting& setting) const { return changed_.contains(&setting); }
    // What the unit holds, as the control would show it; nothing if it isn't known.
    std::optional<std::string> UnitValue(const Setting& setting) const;
    // What the unit has accepted on this connection, live values left out: no read brings them.
    const std::map<const Setting*, std::string>& Written() const { return written_; }
    // Puts the unit's value back on the screen.
    void Revert(const Setting& setting);
    void RevertAll();

    // After a setting has become a change or ceased to be one.
    void OnChanged(std::function<void()> observer) { observers_.push_back(std::move(observer)); }
    // After the unit's values of a tab have been read or dropped: what was typed before is past.
    void OnForgotten(std::function<void()> observer) { forgotten_.push_back(std::move(observer)); }

    void ControlChanged(Control& control, Property property) override;
    void ExchangeBegan(const Exchange& exchange) override;
    void ExchangeEnded(const Exchange& exchange) override;
    void OperationBegan(const OperationRecord& operation) override;
    void OperationEnded(const OperationRecord& operation) override;

  private:
    using Settled = std::set<const Setting*>;

    void Learn(const Setting& setting, std::string value);
    void LearnWritten(const Setting& setting, const std::string& value);
    void Drop(const Setting& setting);
    void DropTab(std::string_view tab);
    void DropAll();
    void Compare(const Setting& setting);
    void Tell();
    bool Reading() const;
    void LearnLive();
    void LearnRead(const OperationRecord& operation);
    void LearnWritten(const OperationRecord& operation);

    Tool& tool_;
    std::map<const Control*, const Setting*> settings_;
    std::map<const Setting*, std::string> unit_;
    std::map<const Setting*, std::string> written_;
    Settled changed_;
    // Of the exchange under way, and places accepted in the operation under way.
    std::map<const Setting*, std::string> sending_;
    std::map<const Setting*, std::set<int>> accepted_;
    std::string running_;  // the name of the operation under way
    std::vector<std::function<void()>> observers_;
    std::vector<std::function<void()>> forgotten_;
};

// The tab that an operation reads or writes, by the name that the journal gives it; empty for one
// that carries no settings.
std::string_view TabOfOperation(std::string_view operation);
bool IsReadOperation(std::string_view operation);
bool IsWriteOperation(std::string_view operation);

}  // namespace kestrane
