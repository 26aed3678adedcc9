#include <CLI/CLI.hpp>

#include "cli/calls.h"
#include "cli/fleet_list.h"
#include "configuration/backup.h"

namespace kestrane {
namespace {

class BackupCall : public Call {
  public:
    std::unique_ptr<Call> ForUnit(const FleetUnit& unit) const override {
        return CopyForUnit(*this, unit);
    }
    bool TakesManyUnits() const override { return true; }
    bool PrintsJson() const override { return json_; }
    std::string FolderForUnits() const override { return folder_; }
    std::string WhyNotManyUnits() const override {
        const bool good = path_.empty() && !folder_.empty();
        return good ? "" : "--units: give --into DIR, which gets a file for each unit";
    }
    std::string WhyNotOneUnit() const override {
        return folder_.empty() ? "" : "--into needs --units; name a file for one unit";
    }
    void UseUnit(const FleetUnit& unit) {
        if (!folder_.empty()) path_ = folder_ + "/" + FileNameOf(unit);
    }
    const char* name() const override { return "backup"; }
    const char* description() const override {
        return "Read every tab and the macro, and write them as a configuration file";
    }

    void AddTo(CLI::App& app) override {
        app.add_option("FILE", path_, "The file to write; without it standard output");
        app.add_flag("--secrets", secrets_,
                     "Include what is secret and readable; the file is for its owner alone then");
        app.add_option("--into", folder_, "With --units: the folder for a file of each unit");
        app.add_flag("--json", json_, "With --units: print one JSON object a unit");
    }

    std::string Check(Tool& tool) override {
        if (path_.empty()) return {};
        const auto why = tool.link.platform().disk.WhyNotWritable(path_);
        return why ? "cannot write " + path_ + ": " + *why : std::string();
    }

    int Run(CallContext& context) override {
        UnitSession session(context.tool, context.options.timeout_limit());
        const InterruptHandler handler(context, [&session] { session.Interrupt(); });
        const Backup backup = ReadBackup(session, secrets_);
        session.Disconnect();
        if (!backup.error.empty()) {
            context.complain(backup.error + "; no backup was written");
            return kExitUnit;
        }
        std::string text = WriteConfiguration(backup.unit, backup.values, backup.left_out);
        if (path_.empty()) {
            text.pop_back();  // its line end
            context.print(text);
            return kExitDone;
        }
        const auto why = context.tool.link.platform().disk.Replace(
            path_, text, secrets_ ? FileStore::Readers::kOwner : FileStore::Readers::kEveryone);
        if (!why) return kExitDone;
        context.complain("cannot write " + path_ + ": " + *why);
        return kExitUnit;
    }

  private:
    std::string path_;
    std::string folder_;
    bool secrets_ = false;
    bool json_ = false;
};

}  // namespace

std::unique_ptr<Call> MakeBackupCall() { return std::make_unique<BackupCall>(); }

}  // namespace kestrane
