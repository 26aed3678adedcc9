#include "cli/macro_call.h"

#include <CLI/CLI.hpp>

#include "cli/macro_offline.h"
#include "cli/macro_transfer.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr char kMacroFile[] = "The macro file (.sms) or source text";

class MacroCall : public Call {
  public:
    const char* name() const override { return "macro"; }
    const char* description() const override {
        return "Write, check and simulate macros, move a program between a file and the unit";
    }

    void AddTo(CLI::App& app) override {
        app.require_subcommand(1);
        CLI::App* list = Add(app, "list", "Print the program: address, bytes, text", Kind::kList);
        AddType(*list);
        list->add_flag("--json", options_.json,
                       "Print one JSON list: address, opcode, second, text");
        AddCheck(app);
        CLI::App* assemble =
            Add(app, "assemble", "Make a macro file of source text", Kind::kAssemble);
        AddType(*assemble);
        assemble->add_option("-o", options_.output,
                             "The macro file to write (.sms); without it the file is printed");
        CLI::App* disassemble =
            Add(app, "disassemble", "Make source text of a macro file", Kind::kDisassemble);
        AddType(*disassemble);
        disassemble->add_option("-o", options_.output,
                                "The source text to write; without it the text is printed");
        AddSimulate(app);
        Add(app, "download", "Save the unit's program and macro triggers in the file",
            Kind::kDownload);
        CLI::App* upload = Add(app, "upload",
                               "Write the file's program into the unit, and read "
                               "it back",
                               Kind::kUpload);
        upload->add_flag("--triggers", options_.triggers, "Write its macro triggers, too");
    }

    // Reads the file of all but a download, so that nothing is sent for one that can't be used.
    std::string Check(Tool& tool) override {
        if (!ParseUnitType(options_.type)) {
            return "--type takes CMS, 636 or single, not \"" + options_.type + "\"";
        }
        const std::string& output = options_.output;
        if (kind_ == Kind::kAssemble && !output.empty() && output != "-" &&
            !UpperCase(output).ends_with(".SMS")) {
            return "-o takes a file that ends in .sms, not " + output;
        }
        if (kind_ == Kind::kSimulate) {
            if (std::string fault = SimulationOptionsFault(options_); !fault.empty()) return fault;
        }
        FileStore& disk = tool.link.platform().disk;
        if (kind_ == Kind::kDownload) {
            const auto why = disk.WhyNotWritable(options_.file);
            return why ? "cannot save " + options_.file + ": " + *why : std::string();
        }
        FileStore::Content file = disk.Read(options_.file);
        if (file.error) return "cannot read " + options_.file + ": " + *file.error;
        content_ = std::move(file.bytes);
        return {};
    }

    int Run(CallContext& context) override {
        switch (kind_) {
            case Kind::kList:
                return ListMacro(context, options_, content_);
            case Kind::kCheck:
                return CheckMacro(context, options_, content_);
            case Kind::kAssemble:
                return AssembleMacro(context, options_, content_);
            case Kind::kDisassemble:
                return DisassembleMacro(context, options_, content_);
            case Kind::kSimulate:
                return SimulateMacro(context, options_, content_);
            case Kind::kDownload:
                return DownloadMacro(context, options_);
            case Kind::kUpload:
                break;
        }
        const auto text = UsableProgram(context, options_.file, content_);
        return text ? UploadMacro(context, options_, *text) : static_cast<int>(kExitUsage);
    }

  private:
    enum class Kind { kList, kCheck, kAssemble, kDisassemble, kSimulate, kDownload, kUpload };

    CLI::App* Add(CLI::App& app, const char* name, const char* description, Kind kind) {
        CLI::App* sub = app.add_subcommand(name, description);
        sub->add_option(kind == Kind::kAssemble ? "SRC" : "FILE", options_.file,
                        kind == Kind::kDownload ? "The macro file (.sms)" : kMacroFile)
            ->required();
        sub->callback([this, kind] { kind_ = kind; });
        return sub;
    }

    void AddType(CLI::App& sub) {
        sub.add_option("--type", options_.type,
                       "The unit that it is for: CMS (default), 636, single");
    }

    void AddCheck(CLI::App& app) {
        CLI::App* check = Add(app, "check",
                              "Say what is wrong with the program, and what its flow of control "
                              "makes doubtful; exit status 0 or 2",
                              Kind::kCheck);
        AddType(*check);
        check->add_flag("--json", options_.json, "Print one JSON list of findings");
        check->add_flag("--strict", options_.strict, "Warnings, too, make the exit status 2");
    }

    void AddSimulate(CLI::App& app) {
        CLI::App* sub = Add(app, "simulate",
                            "Run the program as the demo unit runs it, without "
                            "one and at once",
                            Kind::kSimulate);
        AddType(*sub);
        CLI::Option* from = sub->add_option("--from", options_.from,
                                            "The address or label to begin at (default 10)");
        sub->add_option("--trigger", options_.trigger, "Begin where this macro trigger goes to")
            ->excludes(from);
        sub->add_option("--for", options_.run_for, "Seconds to run at most (default 3600)");
        sub->add_option("--event", options_.events,
                        "What comes from outside, as often as needed: 'TIME: switch on|off', "
                        "'TIME: gpi N high|low', 'TIME: supply lost|back'")
            ->allow_extra_args(false);
        sub->add_option("--outlets", options_.outlets, "Those that are on at first: 'on 1 3 5'")
            ->each([this](const std::string&) { options_.outlets_given = true; });
        CLI::Option* json = sub->add_flag("--json", options_.json, "Print one JSON object");
        CLI::Option* csv = sub->add_flag("--csv", options_.csv, "Print comma-separated values");
        CLI::Option* svg = sub->add_option("--svg", options_.svg, "Draw the outlets over time");
        csv->excludes(json);
        svg->excludes(json)->excludes(csv);
    }

    Kind kind_ = Kind::kList;
    MacroOptions options_;
    std::string content_;
};

}  // namespace

std::unique_ptr<Call> MakeMacroCall() { return std::make_unique<MacroCall>(); }

}  // namespace kestrane
