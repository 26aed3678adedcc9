#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/calls.h"
#include "cli/value_controls.h"
#include "configuration/unit_session.h"
#include "macro/instruction_set.h"
#include "text/terminal.h"
#include "text/text.h"

namespace kestrane {
namespace {

// One line of the table: control, caption, value.
struct Row {
    std::string name;
    std::string caption;
    std::string shown;
    Json value;
};

struct TabResult {
    const TabRow* tab;
    std::vector<Row> rows;
};

Row RowOf(const Session& session, const Control& control, bool with_secrets) {
    Row row{control.name(), FromByteText(CaptionOf(control)), {}, {}};
    if (IsUnreadable(session, control)) {
        row.shown = "-";
    } else if (IsSecret(control) && !with_secrets) {
        row.shown = "(secret)";
        row.value = row.shown;
    } else {
        row.shown = ShownControl(control);
        row.value = ToJson(control.Properties().front().second);
    }
    return row;
}

std::vector<Row> RowsOfPage(const Tool& tool, const TabRow& tab, bool with_secrets) {
    std::vector<Row> rows;
    for (const Control* control : ValueControls(tool.main_form, tab)) {
        rows.push_back(RowOf(tool.session, *control, with_secrets));
    }
    return rows;
}

// The macro program, named by its addresses: "10" to "7F".
std::vector<Row> RowsOfProgram(const MacroMemory& program, const std::string& unit_type) {
    constexpr int kFirst = MacroMemory::kProgramBegin / 2;
    constexpr int kEnd = MacroMemory::kProgramEnd / 2;
    std::vector<Row> rows;
    for (int address = kFirst; address < kEnd; ++address) {
        const auto at = static_cast<std::uint8_t>(address);
        const std::uint8_t opcode = program.Opcode(at);
        const std::uint8_t second = program.SecondByte(at);
        const std::string text = CmdDecode(opcode, second, unit_type);
        rows.push_back({HexByte(at), HexByte(opcode) + " " + HexByte(second), ShownText(text),
                        FromByteText(text)});
    }
    return rows;
}

// Characters and not bytes, for the columns.
std::size_t Width(const std::string& utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

std::string Padded(const std::string& utf8, std::size_t width) {
    return utf8 + std::string(width - std::min(width, Width(utf8)), ' ');
}

class ReadCall : public Call {
  public:
    const char* name() const override { return "read"; }
    const char* description() const override {
        return "Read the settings, then the named tabs (all, if none is named), and print them";
    }

    void AddTo(CLI::App& app) override {
        app.add_option("TAB", names_,
                       "network, privileges, security, names, triggers, 1wire, changeover, "
                       "firmware, macro");
        app.add_flag("--json", json_, "Print one JSON object: tab, control, value");
        app.add_flag("--secrets", secrets_, "Print passwords, keys and the community");
    }

    std::string Check(Tool& /*tool*/) override {
        tabs_.clear();
        for (const std::string& wanted : names_) {
            const TabRow* const tab = FindTab(wanted);
            if (!tab) return "there is no tab \"" + wanted + "\"; see kestrane-cli read --help";
            if (std::find(tabs_.begin(), tabs_.end(), tab) == tabs_.end()) tabs_.push_back(tab);
        }
        if (!tabs_.empty()) return {};
        for (const TabRow& tab : TabRows()) tabs_.push_back(&tab);
        return {};
    }

    std::unique_ptr<Call> ForUnit(const FleetUnit& /*unit*/) const override {
        return std::make_unique<ReadCall>(*this);
    }
    bool TakesManyUnits() const override { return true; }
    bool PrintsJson() const override { return json_; }

    int Run(CallContext& context) override {
        UnitSession session(context.tool, context.options.timeout_limit());
        const InterruptHandler handler(context, [&session] { session.Interrupt(); });
        const TabRow& network = *FindTab("network");
        std::vector<TabResult> results;
        bool good = session.Connect() && session.Read(network);
        for (const TabRow* tab : tabs_) {
            if (!good) break;
            // A unit of another type has no such tab; only asking for it by name is a mistake.
            if (names_.empty() && session.Missing(*tab)) continue;
            good = tab == &network || session.Read(*tab);
            if (good) results.push_back(ResultOf(context.tool, session, *tab));
            if (tab->kind == TabKind::kFirmware && good &&
                context.tool.firmware.NetGrab1.LastFailed()) {
                context.complain(
                    "the latest versions could not be fetched; check the address "
                    "given by --versions-url");
            }
        }
        if (context.report) Report(context, results, good ? "" : session.Failure());
        session.Disconnect();
        if (json_ && !context.report) context.print(ToLine(JsonOf(results)));
        if (!json_) PrintTable(context, results);
        if (!good) context.complain(session.Failure());
        return good ? kExitDone : kExitUnit;
    }

  private:
    TabResult ResultOf(Tool& tool, const UnitSession& session, const TabRow& tab) const {
        if (tab.kind == TabKind::kMacro) {
            return {&tab, RowsOfProgram(session.Program(), tool.session.UnitType)};
        }
        return {&tab, RowsOfPage(tool, tab, secrets_)};
    }

    static void Report(CallContext& context, const std::vector<TabResult>& results,
                       const std::string& failure) {
        Json result = {{"unit", ""}, {"result", failure.empty() ? "done" : "failed"}};
        result.update(JsonOf(results));
        result["error"] = failure.empty() ? Json() : Json(failure);
        context.report(result);
    }

    static Json JsonOf(const std::vector<TabResult>& results) {
        Json all = Json::object();
        for (const TabResult& result : results) {
            Json& values = all[result.tab->name] = Json::object();
            for (const Row& row : result.rows) values[row.name] = row.value;
        }
        return all;
    }

    static void PrintTable(CallContext& context, const std::vector<TabResult>& results) {
        for (const TabResult& result : results) {
            std::size_t name_width = 0;
            std::size_t caption_width = 0;
            for (const Row& row : result.rows) {
                name_width = std::max(name_width, Width(row.name));
                caption_width = std::max(caption_width, Width(row.caption));
            }
            context.print(result.tab->name);
            for (const Row& row : result.rows) {
                context.print("  " + Padded(row.name, name_width) + "  " +
                              Padded(row.caption, caption_width) + "  " + row.shown);
            }
        }
    }

    std::vector<std::string> names_;
    bool json_ = false;
    bool secrets_ = false;
    std::vector<const TabRow*> tabs_;
};

}  // namespace

std::unique_ptr<Call> MakeReadCall() { return std::make_unique<ReadCall>(); }

}  // namespace kestrane
