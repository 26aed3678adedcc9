#include <CLI/CLI.hpp>

#include "cli/calls.h"
#include "cli/configuration_files.h"
#include "configuration/schema.h"
#include "console/values.h"

namespace kestrane {
namespace {

std::string Limits(const Setting& setting) {
    if (setting.kind == SettingKind::kNumber) {
        return std::to_string(setting.least) + " to " + std::to_string(setting.most);
    }
    if (setting.max_length > 0) return "up to " + std::to_string(setting.max_length);
    std::string choices;
    for (const std::string& choice : setting.choices) {
        choices += (choices.empty() ? "" : " | ") + choice;
    }
    return choices;
}

std::vector<std::string> Flags(const Setting& setting) {
    std::vector<std::string> flags;
    if (setting.identity) flags.push_back("identity");
    if (setting.secret) flags.push_back("secret");
    if (setting.write_only) flags.push_back("write only");
    if (setting.live) flags.push_back("live");
    if (setting.read_only) flags.push_back("read only");
    return flags;
}

Json LimitsAsJson(const Setting& setting) {
    Json limits = Json::object();
    if (setting.kind == SettingKind::kNumber) {
        limits["least"] = setting.least;
        limits["most"] = setting.most;
        if (setting.step != 1) limits["step"] = setting.step;
    }
    if (setting.max_length > 0) limits["max_length"] = setting.max_length;
    if (!setting.choices.empty()) limits["choices"] = setting.choices;
    return limits;
}

Json AsJson(const Setting& setting) {
    return {{"key", setting.key},
            {"control", setting.control},
            {"tab", setting.tab},
            {"kind", KindInWords(setting)},
            {"limits", LimitsAsJson(setting)},
            {"flags", Flags(setting)},
            {"doc", setting.doc}};
}

std::string AsLine(const Setting& setting) {
    std::string line = setting.key + "  " + KindInWords(setting);
    if (const std::string limits = Limits(setting); !limits.empty()) line += " (" + limits + ")";
    for (const std::string& flag : Flags(setting)) line += ", " + flag;
    return line + ".  " + setting.doc;
}

class SettingsCall : public Call {
  public:
    const char* name() const override { return "settings"; }
    const char* description() const override {
        return "List every setting by name: kind, limits, meaning";
    }
    void AddTo(CLI::App& app) override {
        CLI::Option* json = app.add_flag("--json", json_, "Print one JSON list");
        app.add_flag("--schema", schema_, "Print a JSON Schema of configuration files")
            ->excludes(json);
    }

    int Run(CallContext& context) override {
        if (schema_) {
            std::string schema = ConfigurationSchema();
            schema.pop_back();  // its line end
            context.print(schema);
        } else if (json_) {
            Json list = Json::array();
            for (const Setting& setting : Settings()) list.push_back(AsJson(setting));
            context.print(ToLine(list));
        } else {
            for (const Setting& setting : Settings()) context.print(AsLine(setting));
        }
        return kExitDone;
    }

  private:
    bool json_ = false;
    bool schema_ = false;
};

class CheckCall : public Call {
  public:
    const char* name() const override { return "check"; }
    const char* description() const override {
        return "Say what is wrong with configuration files, without a unit; exit status 0 or 2";
    }
    void AddTo(CLI::App& app) override {
        app.add_option("FILE", paths_, "Configuration files (.mdu.json)")->required();
    }

    int Run(CallContext& context) override {
        int status = kExitDone;
        for (const std::string& path : paths_) {
            ConfigurationFiles files;
            files.Add(context.tool.link.platform().disk, path);
            for (const std::string& line : files.faults) context.ErrorLine(line);
            for (const std::string& line : files.notes) context.ErrorLine(line);
            if (files.faults.empty()) {
                context.print(path + ": no faults, " + std::to_string(files.values.size()) +
                              " settings");
            } else {
                status = kExitUsage;
            }
        }
        return status;
    }

  private:
    std::vector<std::string> paths_;
};

}  // namespace

std::unique_ptr<Call> MakeSettingsCall() { return std::make_unique<SettingsCall>(); }

std::unique_ptr<Call> MakeCheckCall() { return std::make_unique<CheckCall>(); }

}  // namespace kestrane
