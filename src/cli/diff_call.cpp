#include <CLI/CLI.hpp>

#include "cli/calls.h"
#include "cli/configuration_files.h"
#include "cli/fleet_list.h"
#include "cli/report_lines.h"
#include "configuration/engine.h"

namespace kestrane {
namespace {

class DiffCall : public Call {
  public:
    std::unique_ptr<Call> ForUnit(const FleetUnit& unit) const override {
        return CopyForUnit(*this, unit);
    }
    bool TakesManyUnits() const override { return true; }
    std::string WhyNotManyUnits() const override {
        return paths_.size() == 2 ? "--units: give one file to compare the units with" : "";
    }
    void UseUnit(const FleetUnit& unit) {
        own_ = SettingValues(unit.values.begin(), unit.values.end());
    }
    const char* name() const override { return "diff"; }
    const char* description() const override {
        return "Compare a configuration file with the unit, or two files; exit status 3 for "
               "differences";
    }

    void AddTo(CLI::App& app) override {
        app.add_option("FILE", paths_, "A configuration file, and perhaps a second one")
            ->required()
            ->expected(1, 2);
        filter_.AddTo(app);
        app.add_flag("--json", json_, "Print one JSON object");
    }
    bool PrintsJson() const override { return json_; }

    std::string Check(Tool& tool) override {
        files_.assign(paths_.size(), {});
        for (std::size_t i = 0; i < paths_.size(); ++i)
            files_[i].Add(tool.link.platform().disk, paths_[i]);
        return filter_.Check();
    }
    std::vector<std::string> FileFaults() const override {
        std::vector<std::string> all;
        for (const ConfigurationFiles& file : files_) {
            all.insert(all.end(), file.faults.begin(), file.faults.end());
        }
        return all;
    }

    std::vector<std::string> FileNotes() const override {
        std::vector<std::string> all;
        for (const ConfigurationFiles& file : files_) {
            all.insert(all.end(), file.short_notes.begin(), file.short_notes.end());
        }
        return all;
    }

    int Run(CallContext& context) override {
        for (const std::string& line : FileFaults()) context.ErrorLine(line);
        for (const std::string& line : FileNotes()) context.ErrorLine(line);
        if (!FileFaults().empty()) {
            const std::string unit =
                files_.size() == 2 ? paths_[0] : context.options.Address(context.tool);
            context.Publish(PlainResult(unit, "refused", FileFaults().front()), json_);
            return kExitUsage;
        }
        const ApplyReport report = files_.size() == 2 ? CompareFiles() : CompareWithUnit(context);
        if (!report.error.empty()) context.complain(report.error);
        context.Publish(ReportAsJson(report), json_);
        if (!json_ && report.error.empty()) {
            for (const std::string& line : ReportLines(report, {context.colours, false, true})) {
                context.print(line);
            }
        }
        return ExitStatusOf(report);
    }

  private:
    ApplyReport CompareFiles() const {
        ApplyReport report = CompareValues(files_[0].values, files_[1].values, filter_.filter());
        report.unit = paths_[0];
        return report;
    }

    ApplyReport CompareWithUnit(CallContext& context) const {
        ApplyRequest request;
        request.wanted = files_[0].values;
        request.filter = filter_.filter();
        request.own = own_;
        request.compare_only = true;
        UnitSession session(context.tool, context.options.timeout_limit());
        const InterruptHandler handler(context, [&session] { session.Interrupt(); });
        ApplyReport report = Apply(session, request);
        session.Disconnect();
        return report;
    }

    std::vector<std::string> paths_;
    std::vector<ConfigurationFiles> files_;
    FilterOptions filter_;
    SettingValues own_;  // of one unit of many
    bool json_ = false;
};

}  // namespace

std::unique_ptr<Call> MakeDiffCall() { return std::make_unique<DiffCall>(); }

}  // namespace kestrane
