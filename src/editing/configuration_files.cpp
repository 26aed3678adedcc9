#include "editing/configuration_files.h"

#include <algorithm>

#include "configuration/file.h"
#include "configuration/screen_values.h"
#include "configuration/tabs.h"

namespace kestrane {
namespace {

// As the control of the setting would show it.
std::string OnScreen(const Setting& setting, const SettingValue& value) {
    if (const bool* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
    if (const long* number = std::get_if<long>(&value)) return std::to_string(*number);
    const std::string& text = std::get<std::string>(value);
    return setting.kind == SettingKind::kHexByte && text.empty() ? "00" : text;
}

std::string Count(int count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// Nothing, or why a value of the file is not for the screen as it stands.
std::string WhyLeftAlone(Workbench& bench, const Setting& setting) {
    if (setting.IsMacro()) return "open the macro editor for it";
    if (setting.read_only) return "read only";
    if (!bench.pending.UnitValue(setting)) return "its tab was not read";
    const Control* const control = ControlOf(bench.tool.main_form, setting);
    if (!control) return "not on this unit";
    if (control->base_name() == "chkPriv" && !(control->Enabled() && control->Visible())) {
        return "the port lacks the right to change it";
    }
    return {};
}

std::optional<std::string> Load(FileStore& disk, const std::string& path, ConfigurationText& text) {
    const FileStore::Content file = disk.Read(path);
    if (file.error) return path + ": " + *file.error;
    text = ReadConfiguration(file.bytes);
    if (text.faults.empty()) return {};
    std::string faults;
    for (const FileFault& fault : text.faults) {
        faults += (faults.empty() ? "" : "\n") + fault.Line(path);
    }
    return faults;
}

// What the file says otherwise than the screen.
FileOutcome Differences(Workbench& bench, const std::string& path, ConfigurationText& text) {
    FileOutcome outcome;
    outcome.error = Load(bench.tool.link.platform().disk, path, text);
    if (outcome.error) return outcome;
    for (const Setting& setting : Settings()) {
        const auto found = text.values.find(&setting);
        if (found == text.values.end()) continue;
        ++outcome.count;
        if (std::string why = WhyLeftAlone(bench, setting); !why.empty()) {
            outcome.left_alone.push_back({setting.key, std::move(why)});
            continue;
        }
        const ShownValue shown = ValueOnScreen(bench.tool, setting, {});
        if (shown.value && SameSetting(setting, *shown.value, found->second)) continue;
        outcome.differences.push_back(
            {&setting, ShownIn(bench.tool.main_form, setting), OnScreen(setting, found->second)});
    }
    return outcome;
}

// The tabs whose values differ, with the one that is shown at the end.
std::vector<const TabRow*> TabsToType(const FileOutcome& outcome, int shown) {
    std::vector<const TabRow*> tabs;
    for (const TabRow& tab : TabRows()) {
        const bool concerned = std::any_of(
            outcome.differences.begin(), outcome.differences.end(),
            [&](const FileDifference& difference) { return tab.Holds(*difference.setting); });
        if (concerned) tabs.push_back(&tab);
    }
    std::stable_partition(tabs.begin(), tabs.end(),
                          [shown](const TabRow* tab) { return tab->page != shown; });
    return tabs;
}

// As a hand does it, or as the program does where no hand may: the frames of a tab that was left
// stay closed when it is shown again, though its write button is open. Values of a tab may depend
// on each other, as rights that imply others do: what does not stand yet is typed again.
void TypeTab(Tool& tool, const TabRow& tab, const SettingValues& values,
             const FileOutcome& outcome) {
    constexpr int kPasses = 3;
    for (int pass = 0; pass < kPasses; ++pass) {
        for (const FileDifference& difference : outcome.differences) {
            const Setting& setting = *difference.setting;
            if (!tab.Holds(setting)) continue;
            const SettingValue& value = values.at(&setting);
            if (pass > 0 && !CheckTyped(tool, setting, value)) continue;
            if (TypeSetting(tool, setting, value)) {
                ShowIn(tool.main_form, setting, difference.in_file);
            }
        }
    }
}

// What the screen did not take as it stands is taken back, and goes over to what was left alone.
void TypeDifferences(Workbench& bench, const SettingValues& values, FileOutcome& outcome) {
    Tool& tool = bench.tool;
    TabControl& tabs = tool.main_form.SSTab1;
    const int shown = tabs.Tab();
    const int connection = tool.link.connection();
    for (const TabRow* tab : TabsToType(outcome, shown)) {
        // Leaving the changeover tab would clear it.
        const bool stay = tab->page == tabs.Tab() || shown == PageOfTab("changeover");
        if (!stay) tool.hand.Choose(tabs, tab->page);
        TypeTab(tool, *tab, values, outcome);
    }
    if (tabs.Tab() != shown) tool.hand.Choose(tabs, shown);
    if (tool.link.connection() != connection) {
        outcome.error = "Stopped: the connection has ended.";
        outcome.differences.clear();
    }
    std::vector<FileDifference> typed;
    for (FileDifference& difference : outcome.differences) {
        const Setting& setting = *difference.setting;
        if (Refusal why = CheckTyped(tool, setting, values.at(&setting))) {
            bench.pending.Revert(setting);
            outcome.left_alone.push_back({setting.key, why->substr(setting.key.size() + 2)});
        } else {
            typed.push_back(std::move(difference));
        }
    }
    outcome.differences = std::move(typed);
}

std::string LeftAloneInWords(const FileOutcome& outcome) {
    if (outcome.left_alone.empty()) return ".";
    std::string text = ", " + std::to_string(outcome.left_alone.size()) + " left alone (" +
                       outcome.left_alone.front().key + ": " + outcome.left_alone.front().why;
    return text + (outcome.left_alone.size() > 1 ? ", ...)." : ").");
}

void Say(Workbench& bench, const FileOutcome& outcome, const std::string& text) {
    if (outcome.error) {
        bench.messages.Add(MessageKind::kFault,
                           outcome.error->substr(0, outcome.error->find('\n')));
    } else {
        bench.messages.Add(outcome.left_alone.empty() ? MessageKind::kGood : MessageKind::kWarning,
                           text + LeftAloneInWords(outcome));
    }
}

}  // namespace

FileOutcome OpenConfiguration(Workbench& bench, const std::string& path) {
    ConfigurationText text;
    FileOutcome outcome = Differences(bench, path, text);
    bench.history.AsOneStep([&] { TypeDifferences(bench, text.values, outcome); });
    const int typed = static_cast<int>(outcome.differences.size());
    Say(bench, outcome, "Opened " + path + ": " + Count(typed, "change"));
    return outcome;
}

FileOutcome CompareConfiguration(Workbench& bench, const std::string& path) {
    ConfigurationText text;
    const FileOutcome outcome = Differences(bench, path, text);
    const int differ = static_cast<int>(outcome.differences.size());
    Say(bench, outcome, "Compared with " + path + ": " + Count(differ, "difference"));
    return outcome;
}

FileOutcome SaveConfiguration(Workbench& bench, const std::string& path) {
    FileOutcome outcome;
    SettingValues values;
    LeftOut left_out;
    for (const Setting* setting : EditableSettings()) {
        if (!bench.pending.UnitValue(*setting)) continue;
        const ShownValue shown = ValueOnScreen(bench.tool, *setting, {});
        if (setting->secret) {
            left_out[setting] = "secret";
        } else if (shown.FitsAFile()) {
            values[setting] = *shown.value;
        } else {
            left_out[setting] = shown.why_not;
        }
    }
    if (values.empty()) {
        outcome.error = "Not saved: no tab was read on this connection.";
    } else {
        const FirmwareTab& firmware = bench.tool.main_form.firmware;
        const UnitFacts unit{firmware.lblType.Caption(), firmware.lblSerialNo.Caption(),
                             firmware.lblRelayVersion.Caption(),
                             firmware.lblDisplayVersion.Caption()};
        FileStore& disk = bench.tool.link.platform().disk;
        if (const auto why = disk.Replace(path, WriteConfiguration(unit, values, left_out),
                                          FileStore::Readers::kEveryone)) {
            outcome.error = path + ": " + *why;
        }
    }
    outcome.count = static_cast<int>(values.size());
    Say(bench, outcome, "Saved " + path + ": " + Count(outcome.count, "setting"));
    return outcome;
}

}  // namespace kestrane
