#pragma once

// Reads back every tab that was written on this connection and compares with what the unit had
// accepted. What it has not taken after all is kept until its tab is read or written again.

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "configuration/tabs.h"
#include "editing/pending_changes.h"

namespace kestrane {

class Verification : public JournalObserver {
  public:
    struct Outcome {
        std::optional<std::string> failure;  // a sentence: nothing to verify, or a read that failed
        int compared = 0;                    // values
        int unknown = 0;                     // values that could not be compared
        std::vector<const Setting*> not_taken;
    };

    Verification(Tool& tool, PendingChanges& pending);
    ~Verification() override;
    Verification(const Verification&) = delete;
    Verification& operator=(const Verification&) = delete;

    // What is not yet written is kept aside, and typed again over what was read.
    Outcome Run();
    // What the unit had accepted and then did not hold; nothing if it did.
    std::optional<std::string> NotTaken(const Setting& setting) const;

    // After a setting has been found not taken, or that is past.
    void OnChanged(std::function<void()> observer) { observers_.push_back(std::move(observer)); }

    void OperationBegan(const OperationRecord& operation) override;

  private:
    using Values = std::map<const Setting*, std::string>;

    std::vector<const TabRow*> TabsToRead(const Values& written) const;
    std::optional<std::string> Read(const TabRow& tab);
    void Compare(const TabRow& tab, const Values& written, Outcome& outcome);
    std::optional<bool> Holds(const Setting& setting, const std::string& value,
                              const Values& written) const;
    void TypeAgain(const std::vector<PendingChange>& aside);
    void Tell();

    Tool& tool_;
    PendingChanges& pending_;
    Values not_taken_;
    std::vector<std::function<void()>> observers_;
};

}  // namespace kestrane
