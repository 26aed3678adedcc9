#include "cli/macro_call.h"

#include <CLI/CLI.hpp>
#include <map>

#include "cli/call_driver.h"
#include "cli/macro_listing.h"
#include "macro/whole_file.h"
#include "text/text.h"

namespace kestrane {
namespace {

// The unit's own names of the types that the command line takes.
const std::map<std::string, std::string> kTypes = {{"cms", "CMS"}, {"636", "636"}, {"single", ""}};

class MacroCall : public Call {
  public:
    const char* name() const override { return "macro"; }
    const char* description() const override {
        return "List and check macro files, move a program between a file and the unit";
    }

    void AddTo(CLI::App& app) override {
        app.require_subcommand(1);
        CLI::App* list = Add(app, "list", "Print the program: address, bytes, text", Kind::kList);
        list->add_option("--type", type_, "The unit that it is for: cms (default), 636, single")
            ->check(CLI::IsMember({"cms", "636", "single"}));
        list->add_flag("--json", json_, "Print one JSON list: address, opcode, second, text");
        Add(app, "check", "Say what is wrong with the file; exit status 0 or 2", Kind::kCheck);
        Add(app, "download", "Save the unit's program and macro triggers in the file",
            Kind::kDownload);
        Add(app, "upload", "Write the file's program into the unit, and read it back",
            Kind::kUpload);
    }

    // Reads the file of all but a download, so that nothing is sent for one that can't be used.
    std::string Check(Tool& /*tool*/) override {
        if (kind_ == Kind::kDownload) return {};
        FileContent file = ReadWholeFile(file_);
        if (file.error) return "cannot read " + file_ + ": " + *file.error;
        content_ = std::move(file.content);
        if (kind_ == Kind::kCheck) return {};
        std::string error;
        program_ = ProgramOfFile(content_, error);
        return program_ ? std::string() : file_ + ": " + error;
    }

    int Run(CallContext& context) override {
        switch (kind_) {
            case Kind::kList:
                return List(context);
            case Kind::kCheck:
                return CheckFile(context);
            case Kind::kDownload:
                return Download(context);
            case Kind::kUpload:
                break;
        }
        return Upload(context);
    }

  private:
    enum class Kind { kList, kCheck, kDownload, kUpload };

    CLI::App* Add(CLI::App& app, const char* name, const char* description, Kind kind) {
        CLI::App* sub = app.add_subcommand(name, description);
        sub->add_option("FILE", file_, "The macro file (.sms)")->required();
        sub->callback([this, kind] { kind_ = kind; });
        return sub;
    }

    int List(CallContext& context) {
        const std::string& unit_type = kTypes.at(type_);
        if (json_) {
            context.print(ProgramAsJson(*program_, unit_type));
            return kExitDone;
        }
        for (const std::string& line : ProgramAsLines(*program_, unit_type)) context.print(line);
        return kExitDone;
    }

    int CheckFile(CallContext& context) {
        const CheckedFile checked = CheckedMacroFile(content_, kTypes.at(type_));
        for (const std::string& line : checked.lines) context.print(line);
        return checked.good ? kExitDone : kExitUsage;
    }

    static bool Connect(CallDriver& driver) {
        return driver.Connect() && driver.Read(*FindTab("network"));
    }

    int Download(CallContext& context) {
        CallDriver driver(context);
        std::optional<MacroFiles::Fault> fault;
        const bool good = Connect(driver) && driver.InMacroEditor([&] {
            fault = context.tool.macro_editor.files().Save(file_);
        });
        if (fault) context.complain(fault->text);
        if (!good) context.complain(driver.Failure());
        if (fault || !good) return kExitUnit;
        context.print("saved the unit's program in " + file_);
        return kExitDone;
    }

    int Upload(CallContext& context) {
        CallDriver driver(context);
        MacroMemory& image = context.tool.macro_editor.state().image;
        ScriptEditForm& editor = context.tool.script_edit_form;
        // An upload clears the operand of the last instruction.
        program_->Set(MacroMemory::kProgramEnd - 1, 0);
        Refusal refusal;
        std::vector<std::string> differing;
        const bool good = Connect(driver) && driver.InMacroEditor([&] {
            image = *program_;
            refusal = context.tool.hand.Click(editor.cmdUpload);
            if (refusal || !driver.WentWell()) return;
            refusal = context.tool.hand.Click(editor.cmdDownload);
            if (!refusal && driver.WentWell()) differing = Differing(image);
        });
        if (!good) context.complain(driver.Failure());
        if (refusal) context.complain(*refusal);
        if (!good || refusal) return kExitUnit;
        if (differing.empty()) {
            context.print("the unit holds the program of " + file_);
            return kExitDone;
        }
        context.complain("the unit's program differs from " + file_ + " at address " +
                         differing.front() + " and " + std::to_string(differing.size() - 1) +
                         " others; upload it again");
        return kExitUnit;
    }

    // Addresses whose two bytes in the unit are others than in the file.
    std::vector<std::string> Differing(const MacroMemory& unit) const {
        std::vector<std::string> addresses;
        for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; i += 2) {
            if (unit.Get(i) == program_->Get(i) && unit.Get(i + 1) == program_->Get(i + 1))
                continue;
            addresses.push_back(HexByte(static_cast<std::uint8_t>(i / 2)));
        }
        return addresses;
    }

    Kind kind_ = Kind::kList;
    std::string file_;
    std::string type_ = "cms";
    bool json_ = false;
    std::string content_;
    std::optional<MacroMemory> program_;
};

}  // namespace

std::unique_ptr<Call> MakeMacroCall() { return std::make_unique<MacroCall>(); }

}  // namespace kestrane
