#include "cli/set_call.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/call_driver.h"
#include "cli/changes.h"
#include "cli/shown_value.h"

namespace kestrane {
namespace {

std::string Joined(const std::vector<std::string>& texts, const char* by) {
    std::string joined;
    for (const std::string& text : texts) joined += (joined.empty() ? "" : by) + text;
    return joined;
}

bool IsUnitID(const Change& change) { return change.control->name() == "txtUnitID"; }

// The button that writes a changeover control; each saves a part of the tab.
std::string SaveButton(const Control& control) {
    const std::string& name = control.base_name();
    if (name == "txtStartup" || name == "scrStartup") return "cmdSaveStartup(0)";
    if (name == "optInE2P") return "cmdSaveStartup(1)";
    if (name == "txtCurrent" || name == "scrCurrent") return "cmdSaveCurrent(0)";
    return "cmdSaveCurrent(1)";
}

// One way through a unit: read, type, look, write.
class Setting {
  public:
    Setting(CallContext& context, std::vector<Change>& changes)
        : context_(context), tool_(context.tool), driver_(context), changes_(changes) {}

    int Run() {
        if (!driver_.Connect() || !driver_.Read(*FindTab("network")) || !TypeAll()) {
            return Fail(driver_.Failure());
        }
        LookAtAll();
        if (!refusals_.empty()) {
            context_.complain(Joined(refusals_, "; ") + "; nothing was written");
            return kExitUsage;
        }
        if (!WriteAll()) {
            const std::string before = written_.empty()
                                           ? "nothing was written"
                                           : "written before: " + Joined(written_, ", ");
            return Fail(driver_.Failure() + "; " + before);
        }
        if (!LookAfterwards()) return kExitUnit;
        PrintChanges();
        return kExitDone;
    }

  private:
    int Fail(const std::string& why) {
        context_.complain(why);
        return kExitUnit;
    }

    bool Touches(const TabRow& tab) const {
        return std::any_of(changes_.begin(), changes_.end(),
                           [&](const Change& change) { return change.tab == &tab; });
    }

    // Leaving a tab and coming back may leave its frames disabled, and leaving the changeover tab
    // clears it: each tab is read and typed at one go, and that one comes last in the table.
    bool TypeAll() {
        const TabRow& network = *FindTab("network");
        for (const TabRow& tab : TabRows()) {
            if (!Touches(tab)) continue;
            if (!(&tab == &network ? driver_.SelectTab(tab) : driver_.Read(tab))) return false;
            driver_.TakeBoxes();
            for (Change& change : changes_) {
                if (change.tab == &tab) TypeOne(change);
            }
        }
        return true;
    }

    void TypeOne(Change& change) {
        change.old_shown = ShownValue(*change.control);
        Refusal refusal = Apply(tool_, change);
        const auto boxes = driver_.TakeBoxes();
        if (!refusal) refusal = Check(change);
        if (refusal) {
            refusals_.push_back(*refusal);
        } else {
            notes_.insert(notes_.end(), boxes.begin(), boxes.end());
        }
    }

    // Again when all are in, as one can have changed another.
    void LookAtAll() {
        if (!refusals_.empty()) return;
        for (const Change& change : changes_) {
            if (const auto refusal = Check(change)) refusals_.push_back(*refusal);
        }
        if (const auto refusal = CheckTogether(tool_.main_form, changes_)) {
            refusals_.push_back(*refusal);
        }
    }

    // Changeover first, as its tab is still selected; the rights late, as they can take away the
    // right to write the rest; the ID last, as the unit then has another address.
    bool WriteAll() {
        if (!WriteChangeover()) return false;
        for (const TabRow& tab : TabRows()) {
            if (&tab != FindTab("privileges") && !WriteTab(tab)) return false;
        }
        return WriteTab(*FindTab("privileges")) && WriteUnitID();
    }

    bool WriteTab(const TabRow& tab) {
        const bool wanted = std::any_of(
            changes_.begin(), changes_.end(),
            [&](const Change& change) { return change.tab == &tab && !IsUnitID(change); });
        if (!wanted || tab.kind != TabKind::kSettings) return true;
        if (!driver_.Write(tab)) return false;
        written_.push_back(tab.name);
        return true;
    }

    bool WriteChangeover() {
        std::vector<std::string> buttons;
        for (const Change& change : changes_) {
            if (change.tab->kind != TabKind::kChangeover) continue;
            const std::string button = SaveButton(*change.control);
            if (std::find(buttons.begin(), buttons.end(), button) == buttons.end()) {
                buttons.push_back(button);
            }
        }
        for (const std::string& button : buttons) {
            const bool live = button.rfind("cmdSaveCurrent", 0) == 0;
            const char* const done =
                live ? "Writing live data complete" : "Writing Startup Data Complete";
            if (!driver_.Press("changeover", *tool_.main_form.Find(button), done)) return false;
            written_.push_back("changeover " + button);
        }
        return true;
    }

    // The network write has disabled its button; typing the ID enables it.
    bool WriteUnitID() {
        const auto change = std::find_if(changes_.rbegin(), changes_.rend(), IsUnitID);
        if (change == changes_.rend()) return true;
        NetworkTab& net = tool_.main_form.network;
        if (!driver_.SelectTab(*FindTab("network"))) return false;
        tool_.hand.Type(net.txtUnitID, std::get<std::string>(change->wanted));
        if (!driver_.Press("unit ID", net.cmdUnitID, "Writing unit ID")) return false;
        written_.push_back("unit ID");
        return true;
    }

    // The write of the rights reads them back; what the unit did not take shows there.
    bool LookAfterwards() {
        for (const Change& change : changes_) {
            if (change.tab != FindTab("privileges")) continue;
            if (const auto refusal = Check(change)) {
                context_.complain(*refusal + "; the unit did not take it");
                return false;
            }
        }
        return true;
    }

    void PrintChanges() {
        for (const Change& change : changes_) {
            std::string shown = ShownValue(*change.control);
            // A tab that was left is cleared; what was written is what was given.
            if (change.tab->kind == TabKind::kChangeover) shown = change.given;
            context_.print(change.control->name() + ": " + change.old_shown +
                           (shown == change.old_shown ? " (unchanged)" : " -> " + shown));
        }
        for (const std::string& note : notes_) context_.print("note: " + note);
    }

    CallContext& context_;
    Tool& tool_;
    CallDriver driver_;
    std::vector<Change>& changes_;
    std::vector<std::string> refusals_;
    std::vector<std::string> notes_;
    std::vector<std::string> written_;
};

class SetCall : public Call {
  public:
    const char* name() const override { return "set"; }
    const char* description() const override {
        return "Type values into the tabs that hold them and write those tabs";
    }

    void AddTo(CLI::App& app) override {
        app.add_option("NAME=VALUE", assignments_,
                       "A control and its value, in the order in which they are to be typed: "
                       "'txtUnitName=Rack 7', chkDHCP=1, 'optInE2P(2)=true', cmbARPtime=3")
            ->required();
    }

    std::string Check(Tool& tool) override {
        for (const std::string& assignment : assignments_) {
            std::string error;
            auto change = ParseChange(tool, assignment, error);
            if (!change) return error;
            changes_.push_back(std::move(*change));
        }
        return {};
    }

    int Run(CallContext& context) override { return Setting(context, changes_).Run(); }

  private:
    std::vector<std::string> assignments_;
    std::vector<Change> changes_;
};

}  // namespace

std::unique_ptr<Call> MakeSetCall() { return std::make_unique<SetCall>(); }

}  // namespace kestrane
