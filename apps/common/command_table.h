#pragma once

// A program's command line as plain data, taken from the options that parse it, and what is made
// from it: manual page and shell completions. The packages' build asks each program for its own, by
// an option that --help leaves out, so that they can't disagree with the program.

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kestrane {

struct OptionRow {
    std::vector<std::string> names;  // "--unit", "-o"; empty for a positional argument
    std::string argument;            // "FILE"; empty for a flag
    std::string description;
    bool required = false;
    bool repeats = false;
    std::vector<std::string> words;  // what may stand there, if that is a list
};

struct CommandTable {
    std::string name;
    std::string description;
    std::string footer;
    std::vector<OptionRow> options;
    std::vector<CommandTable> commands;
};

// The words that complete an argument of this name ("TAB"); none if they are not known.
using WordsOfArgument = std::function<std::vector<std::string>(const std::string& argument)>;

CommandTable TableOf(const CLI::App& app, const WordsOfArgument& words = {});

// `form` is "man", "bash", "zsh" or "fish"; empty for any other.
std::string Describe(const CommandTable& table, const std::string& version,
                     const std::string& form);

// The option that --help leaves out: --describe FORM. `form` has to live as long as the app.
void AddDescribeOption(CLI::App& app, std::string& form);

}  // namespace kestrane
