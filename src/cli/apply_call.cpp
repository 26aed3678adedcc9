#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>

#include "cli/calls.h"
#include "cli/configuration_files.h"
#include "cli/fleet_list.h"
#include "cli/report_lines.h"
#include "configuration/engine.h"

namespace kestrane {
namespace {

using Result = ApplyReport::Result;

// What `apply` and `set` have in common: the options that say how, and the way through a unit.
class WritingCall : public Call {
  public:
    bool Writes() const override { return true; }
    bool PrintsJson() const override { return json_; }
    bool TakesManyUnits() const override { return true; }
    std::string FolderForUnits() const override { return undo_file_; }
    std::string WhyNotOneUnit() const override {
        const bool folder = std::filesystem::is_directory(undo_file_);
        return folder ? "--undo: " + undo_file_ + " is a folder; name a file for one unit" : "";
    }

    // With the unit's own values; --undo names a folder then.
    void UseUnit(const FleetUnit& unit) {
        own_ = SettingValues(unit.values.begin(), unit.values.end());
        if (!undo_file_.empty()) undo_file_ += "/" + FileNameOf(unit);
    }

  protected:
    void AddWritingOptions(CLI::App& app) {
        app.add_flag("--dry-run", dry_run_, "Type everything on the screen, but write nothing");
        app.add_option("--undo", undo_file_,
                       "Before the first write, save the values that will change in this file");
        app.add_flag("--reset", reset_,
                     "Reset the Ethernet processor at the end if network settings changed");
        app.add_flag("--yes", yes_, "Do not ask on a terminal");
        app.add_flag("--json", json_, "Print one JSON object");
    }

    std::string CheckWritingOptions(FileStore& disk) const {
        // A folder is for many units.
        if (undo_file_.empty() || std::filesystem::is_directory(undo_file_)) return {};
        if (const auto why = disk.WhyNotWritable(undo_file_)) {
            return "--undo: cannot write " + undo_file_ + ": " + *why;
        }
        return {};
    }

    bool IsUndoFile(const std::string& path) const {
        std::error_code error;
        return path == undo_file_ || std::filesystem::equivalent(path, undo_file_, error);
    }

    ApplyReport RunApply(CallContext& context, ApplyRequest request) {
        for (const auto& [setting, value] : own_) request.own[setting] = value;
        request.dry_run = dry_run_;
        request.reset = reset_;
        request.undo_file = undo_file_;
        UnitSession session(context.tool, context.options.timeout_limit());
        const InterruptHandler handler(context, [&session] { session.Interrupt(); });
        request.go_on = [&](const ApplyReport& plan) {
            const bool asks = context.on_terminal && !yes_;
            if (asks || (ShowsPlan() && !yes_ && !json_)) PrintPlan(context, plan);
            return !asks || AskToGoOn(context, session);
        };
        ApplyReport report = Apply(session, request);
        session.Disconnect();
        return report;
    }

    void PrintPlan(CallContext& context, const ApplyReport& plan) const {
        ReportStyle style = Style(context);
        style.comparison = true;
        style.colours = style.colours && context.on_terminal;  // of standard error
        for (const std::string& line : ReportLines(plan, style)) {
            context.ErrorLine(line);
        }
    }

    static bool AskToGoOn(CallContext& context, UnitSession& session) {
        context.ErrorLine("Write these changes to " + session.Address() + "? [y/N]");
        std::optional<std::string> answer;
        context.read_lines([&answer](const std::string& line) { answer = line; },
                           [&answer] { answer = answer.value_or(""); });
        constexpr auto kPatience = std::chrono::hours(24);
        session.WaitUntil([&] { return answer.has_value(); }, kPatience);
        context.read_lines(nullptr, nullptr);
        return answer && (*answer == "y" || *answer == "Y" || *answer == "yes");
    }

    ReportStyle Style(const CallContext& context) const {
        return {context.colours, secrets_, dry_run_};
    }

    void Complain(CallContext& context, const ApplyReport& report) const {
        for (const std::string& note : report.notes) context.ErrorLine("note: " + note);
        const bool written = report.result == Result::kChanged ||
                             (report.result == Result::kFailed && !report.changes.empty());
        if (written && !undo_file_.empty() && std::filesystem::exists(undo_file_)) {
            context.ErrorLine("note: to go back: kestrane-cli apply " + undo_file_ +
                              " --identity --live");
        }
        if (!report.error.empty()) context.complain(report.error);
    }

    // Even where nobody can be asked; with --yes the report alone stands for it.
    virtual bool ShowsPlan() const { return false; }

    bool json_ = false;
    bool secrets_ = false;

  private:
    bool dry_run_ = false;
    bool reset_ = false;
    bool yes_ = false;
    std::string undo_file_;
    SettingValues own_;  // of one unit of many
};

class ApplyCall : public WritingCall {
  public:
    std::unique_ptr<Call> ForUnit(const FleetUnit& unit) const override {
        return CopyForUnit(*this, unit);
    }
    const char* name() const override { return "apply"; }
    const char* description() const override {
        return "Compare configuration files with the unit, write what differs, read it back";
    }

    void AddTo(CLI::App& app) override {
        app.add_option("FILE", paths_, "Configuration files; later ones win over earlier ones");
        app.add_option("--set", assignments_, "KEY=VALUE over the files; repeatable")
            ->allow_extra_args(false);
        filter_.AddTo(app);
        AddWritingOptions(app);
    }

    std::string Check(Tool& tool) override {
        if (paths_.empty() && assignments_.empty()) {
            return "name a configuration file, or give --set KEY=VALUE";
        }
        if (std::string why = filter_.Check(); !why.empty()) return why;
        given_.clear();
        for (const std::string& text : assignments_) {
            std::string error;
            const auto assignment = ParseAssignment(text, error);
            if (!assignment) return "--set: " + error;
            given_.push_back(*assignment);
        }
        files_ = {};
        for (const std::string& path : paths_) {
            if (IsUndoFile(path)) return "--undo: " + path + " is to be applied; name another file";
            files_.Add(tool.link.platform().disk, path);
        }
        for (const auto& [setting, value] : ValuesOf(given_)) files_.values[setting] = value;
        return CheckWritingOptions(tool.link.platform().disk);
    }
    std::vector<std::string> FileFaults() const override { return files_.faults; }
    std::vector<std::string> FileNotes() const override { return files_.short_notes; }

    int Run(CallContext& context) override {
        for (const std::string& line : files_.faults) context.ErrorLine(line);
        for (const std::string& line : FileNotes()) context.ErrorLine(line);
        ApplyReport report;
        if (files_.faults.empty()) {
            ApplyRequest request;
            request.wanted = files_.values;
            request.filter = filter_.filter();
            report = RunApply(context, std::move(request));
            Complain(context, report);
        } else {
            report.result = Result::kRefused;
            report.error = files_.faults.front();
            report.unit = context.options.Address(context.tool);
        }
        context.Publish(ReportAsJson(report), json_);
        if (!json_ && files_.faults.empty()) {
            for (const std::string& line : ReportLines(report, Style(context))) {
                context.print(line);
            }
        }
        return report.declined ? int{kExitDifferences} : ExitStatusOf(report);
    }

  private:
    bool ShowsPlan() const override { return true; }

    std::vector<std::string> paths_;
    std::vector<std::string> assignments_;
    std::vector<Assignment> given_;
    FilterOptions filter_;
    ConfigurationFiles files_;
};

class SetCall : public WritingCall {
  public:
    std::unique_ptr<Call> ForUnit(const FleetUnit& unit) const override {
        return CopyForUnit(*this, unit);
    }
    const char* name() const override { return "set"; }
    const char* description() const override {
        return "Type values into the tabs that hold them and write those tabs";
    }

    void AddTo(CLI::App& app) override {
        app.add_option("NAME=VALUE", assignments_,
                       "A setting or a control and its value: 'network.unit_name=Rack 7', "
                       "txtUnitName=x, chkDHCP=1, 'optInE2P(2)=true', cmbARPtime=3")
            ->required();
        app.add_flag("--secrets", secrets_, "Print passwords, keys and the community");
        AddWritingOptions(app);
    }

    std::string Check(Tool& tool) override {
        given_.clear();
        for (const std::string& text : assignments_) {
            std::string error;
            const auto assignment = ParseAssignment(text, error);
            if (!assignment) return error;
            given_.push_back(*assignment);
        }
        return CheckWritingOptions(tool.link.platform().disk);
    }

    int Run(CallContext& context) override {
        ApplyRequest request;
        request.own = ValuesOf(given_);
        const ApplyReport report = RunApply(context, std::move(request));
        Complain(context, report);
        context.Publish(ReportAsJson(report), json_);
        if (!json_ && report.result != Result::kRefused) PrintInOrder(context, report);
        return report.declined ? int{kExitDifferences} : ExitStatusOf(report);
    }

  private:
    // In the order of the command line; what changes with it comes after.
    void PrintInOrder(CallContext& context, const ApplyReport& report) const {
        if (report.declined || (report.changes.empty() && !report.error.empty())) return;
        std::vector<const SettingChange*> rest;
        for (const SettingChange& change : report.changes) rest.push_back(&change);
        for (const Assignment& given : given_) {
            if (!given.setting) continue;
            const auto change = std::find_if(rest.begin(), rest.end(), [&](const auto* each) {
                return each->setting == given.setting;
            });
            if (change != rest.end()) {
                context.print(ChangeLine(**change, Style(context), given.name));
                rest.erase(change);
            } else if (!Twice(report, *given.setting)) {
                context.print(given.name + ": " +
                              ShownSetting(*given.setting, given.value, secrets_) + " (" +
                              WhyNotChanged(report, *given.setting) + ")");
            }
        }
        for (const SettingChange* change : rest) context.print(ChangeLine(*change, Style(context)));
    }

    static bool Twice(const ApplyReport& report, const Setting& setting) {
        return std::any_of(report.changes.begin(), report.changes.end(),
                           [&](const SettingChange& change) { return change.setting == &setting; });
    }

    static std::string WhyNotChanged(const ApplyReport& report, const Setting& setting) {
        for (const SettingLeftAlone& left : report.left_alone) {
            if (left.setting == &setting) return left.why;
        }
        return "unchanged";
    }

    std::vector<std::string> assignments_;
    std::vector<Assignment> given_;
};

}  // namespace

std::unique_ptr<Call> MakeApplyCall() { return std::make_unique<ApplyCall>(); }
std::unique_ptr<Call> MakeSetCall() { return std::make_unique<SetCall>(); }

}  // namespace kestrane
