#include "common/manual_page.h"

#include <algorithm>
#include <cctype>

namespace kestrane {
namespace {

// Text as man shows it: a hyphen stays one, and no line begins with a control character.
std::string Plain(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool line_begins = i == 0 || text[i - 1] == '\n';
        if (line_begins && (text[i] == '.' || text[i] == '\'')) out += "\\&";
        if (text[i] == '-') {
            out += "\\-";
        } else if (text[i] == '\\') {
            out += "\\e";
        } else {
            out += text[i];
        }
    }
    return out;
}

std::string Bold(const std::string& text) { return "\\fB" + Plain(text) + "\\fR"; }
std::string Italic(const std::string& text) { return "\\fI" + Plain(text) + "\\fR"; }

std::string Capitals(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

std::string Tag(const OptionRow& row) {
    std::string tag;
    for (const std::string& name : row.names) tag += (tag.empty() ? "" : ", ") + Bold(name);
    if (row.argument.empty()) return tag;
    return tag + (tag.empty() ? "" : " ") + Italic(row.argument) + (row.repeats ? " ..." : "");
}

void AddOptions(std::string& page, const CommandTable& table) {
    for (const OptionRow& row : table.options) {
        page += ".TP\n" + Tag(row) + "\n" + Plain(row.description) + "\n";
    }
}

// `path` are the words that lead to the command: "macro list".
void AddCommands(std::string& page, const CommandTable& table, const std::string& path) {
    for (const CommandTable& command : table.commands) {
        const std::string name = path + command.name;
        page += ".SS " + Bold(name) + "\n" + Plain(command.description) + "\n";
        AddOptions(page, command);
        AddCommands(page, command, name + " ");
    }
}

}  // namespace

std::string ManualPage(const CommandTable& table, const std::string& version) {
    std::string description = table.description;
    if (description.ends_with('.')) description.pop_back();
    std::string page = ".TH " + Capitals(Plain(table.name)) + " 1 \"\" \"" + Plain(version) +
                       "\" \"Kestrane Configuration\"\n";
    page += ".SH NAME\n" + Plain(table.name) + " \\- " + Plain(description) + "\n";
    page += ".SH SYNOPSIS\n" + Bold(table.name) + " [" + Italic("options") + "]" +
            (table.commands.empty() ? "" : " " + Italic("command") + " ...") + "\n";
    page += ".SH OPTIONS\n";
    AddOptions(page, table);
    if (!table.commands.empty()) page += ".SH COMMANDS\n";
    AddCommands(page, table, "");
    if (!table.footer.empty()) page += ".SH NOTES\n.nf\n" + Plain(table.footer) + "\n.fi\n";
    return page;
}

}  // namespace kestrane
