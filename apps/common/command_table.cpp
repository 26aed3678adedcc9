#include "common/command_table.h"

#include <CLI/CLI.hpp>

#include "common/completions.h"
#include "common/manual_page.h"

namespace kestrane {
namespace {

OptionRow RowOf(const CLI::Option& option, const WordsOfArgument& words) {
    OptionRow row;
    for (const std::string& name : option.get_snames()) row.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames()) row.names.push_back("--" + name);
    row.description = option.get_description();
    row.required = option.get_required();
    row.repeats = option.get_expected_max() > 1;
    if (option.get_positional()) {
        row.argument = option.get_name(true);
    } else if (option.get_items_expected_max() > 0) {
        // The first word of a description in capitals is its argument: "HOST[:PORT] of the unit".
        const std::string first = row.description.substr(0, row.description.find(' '));
        const bool named = first.size() > 1 && std::none_of(first.begin(), first.end(), ::islower);
        row.argument = named ? first : "VALUE";
    }
    if (words) row.words = words(row.argument);
    return row;
}

}  // namespace

CommandTable TableOf(const CLI::App& app, const WordsOfArgument& words) {
    CommandTable table{app.get_name(), app.get_description(), app.get_footer(), {}, {}};
    for (const CLI::Option* option : app.get_options()) {
        if (!option->get_group().empty()) table.options.push_back(RowOf(*option, words));
    }
    for (const CLI::App* command : app.get_subcommands({})) {
        table.commands.push_back(TableOf(*command, words));
    }
    return table;
}

std::string Describe(const CommandTable& table, const std::string& version,
                     const std::string& form) {
    if (form == "man") return ManualPage(table, version);
    if (form == "bash") return BashCompletion(table);
    if (form == "zsh") return ZshCompletion(table);
    if (form == "fish") return FishCompletion(table);
    return {};
}

void AddDescribeOption(CLI::App& app, std::string& form) {
    app.add_option("--describe", form)
        ->check(CLI::IsMember({"man", "bash", "zsh", "fish"}))
        ->group("");
}

}  // namespace kestrane
