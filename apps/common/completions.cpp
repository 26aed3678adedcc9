#include "common/completions.h"

#include <algorithm>

namespace kestrane {
namespace {

// What completes at one place of the command line.
struct Place {
    std::string path;                    // the command's words: "", "macro", "macro list"
    std::vector<const OptionRow*> rows;  // its own options and those of the program
    std::vector<const CommandTable*> commands;
};

bool IsPath(const std::string& argument) {
    return argument.starts_with("FILE") || argument.starts_with("DIR") ||
           argument.starts_with("SRC");
}

void Collect(const CommandTable& table, const std::string& path, const CommandTable& program,
             std::vector<Place>& places) {
    Place place{path, {}, {}};
    for (const OptionRow& row : table.options) place.rows.push_back(&row);
    if (&table != &program) {
        for (const OptionRow& row : program.options) {
            if (row.names != std::vector<std::string>{"-h", "--help"}) place.rows.push_back(&row);
        }
    }
    for (const CommandTable& command : table.commands) place.commands.push_back(&command);
    places.push_back(place);
    for (const CommandTable& command : table.commands) {
        Collect(command, path.empty() ? command.name : path + " " + command.name, program, places);
    }
}

std::vector<Place> PlacesOf(const CommandTable& table) {
    std::vector<Place> places;
    Collect(table, "", table, places);
    return places;
}

// The words at a place but for those of an option's argument.
std::string WordsAt(const Place& place) {
    std::string words;
    for (const CommandTable* command : place.commands) words += command->name + " ";
    for (const OptionRow* row : place.rows) {
        for (const std::string& name : row->names) words += name + " ";
        if (!row->names.empty()) continue;
        for (const std::string& word : row->words) words += word + " ";
    }
    if (!words.empty()) words.pop_back();
    return words;
}

bool TakesPath(const Place& place) {
    return std::any_of(place.rows.begin(), place.rows.end(), [](const OptionRow* row) {
        return row->names.empty() && IsPath(row->argument);
    });
}

// As a name of a shell function.
std::string Identifier(std::string text) {
    std::replace(text.begin(), text.end(), '-', '_');
    return "_" + text;
}

// In single quotes, for any of the shells.
std::string Quoted(const std::string& text) {
    std::string out = "'";
    for (const char c : text) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

std::string Joined(const std::vector<std::string>& words, const char* between) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
    return text;
}

// The branch of a `case` for each option whose argument is a path or one of a list.
std::string BashArguments(const std::vector<Place>& places) {
    std::string text;
    std::vector<std::string> seen;
    for (const Place& place : places) {
        for (const OptionRow* row : place.rows) {
            const std::string names = Joined(row->names, "|");
            if (names.empty() || row->argument.empty()) continue;
            if (std::find(seen.begin(), seen.end(), names) != seen.end()) continue;
            seen.push_back(names);
            const std::string made =
                IsPath(row->argument) ? "-f" : "-W " + Quoted(Joined(row->words, " "));
            text += "        " + names + ") COMPREPLY=($(compgen " + made +
                    " -- \"$current\")); return ;;\n";
        }
    }
    return text;
}

}  // namespace

std::string BashCompletion(const CommandTable& table) {
    const std::vector<Place> places = PlacesOf(table);
    const std::string function = Identifier(table.name);
    std::string known;
    for (const Place& place : places) known += Quoted(place.path) + " ";
    std::string text = "# bash completion for " + table.name + "\n" + function + "() {\n";
    text +=
        "    local current=\"${COMP_WORDS[COMP_CWORD]}\" previous=\"${COMP_WORDS[COMP_CWORD - "
        "1]}\"\n"
        "    local path='' word next\n"
        "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD - 1}\"; do\n"
        "        next=\"${path:+$path }$word\"\n"
        "        case \"|" +
        Joined(
            [&] {
                std::vector<std::string> paths;
                for (const Place& place : places) paths.push_back(place.path);
                return paths;
            }(),
            "|") +
        "|\" in *\"|$next|\"*) path=\"$next\" ;; esac\n"
        "    done\n"
        "    case \"$previous\" in\n" +
        BashArguments(places) +
        "    esac\n"
        "    case \"$path\" in\n";
    for (const Place& place : places) {
        text += "        " + Quoted(place.path) + ") COMPREPLY=($(compgen" +
                (TakesPath(place) ? " -f" : "") + " -W " + Quoted(WordsAt(place)) +
                " -- \"$current\")) ;;\n";
    }
    return text + "    esac\n}\ncomplete -F " + function + " " + table.name + "\n";
}

std::string ZshCompletion(const CommandTable& table) {
    const std::vector<Place> places = PlacesOf(table);
    std::string text = "#compdef " + table.name + "\n# zsh completion for " + table.name +
                       "\nlocal place='' word next\nfor word in ${words[2,CURRENT-1]}; do\n"
                       "    next=\"${place:+$place }$word\"\n    case \"$next\" in\n";
    for (const Place& place : places) {
        if (!place.path.empty()) text += "        " + Quoted(place.path) + ") place=$next ;;\n";
    }
    text += "    esac\ndone\ncase \"$words[CURRENT-1]\" in\n";
    std::vector<std::string> seen;
    for (const Place& place : places) {
        for (const OptionRow* row : place.rows) {
            const std::string names = Joined(row->names, "|");
            if (names.empty() || row->argument.empty()) continue;
            if (std::find(seen.begin(), seen.end(), names) != seen.end()) continue;
            seen.push_back(names);
            const std::string made = IsPath(row->argument) ? "_files"
                                     : row->words.empty()  ? "_message " + Quoted(row->argument)
                                                          : "compadd -- " + Joined(row->words, " ");
            text += "    " + names + ") " + made + "; return ;;\n";
        }
    }
    text += "esac\ncase \"$place\" in\n";
    for (const Place& place : places) {
        text += "    " + Quoted(place.path) + ") compadd -- " + WordsAt(place) +
                (TakesPath(place) ? "; _files" : "") + " ;;\n";
    }
    return text + "esac\n";
}

std::string FishCompletion(const CommandTable& table) {
    std::string text =
        "# fish completion for " + table.name + "\ncomplete -c " + table.name + " -f\n";
    for (const Place& place : PlacesOf(table)) {
        std::string when;
        if (!place.path.empty()) {
            std::string path = place.path;
            const auto blank = path.find(' ');
            when = "__fish_seen_subcommand_from " + path.substr(0, blank);
            if (blank != std::string::npos) {
                when += "; and __fish_seen_subcommand_from " + path.substr(blank + 1);
            }
        } else if (!place.commands.empty()) {
            when = "__fish_use_subcommand";
        }
        const std::string begin =
            "complete -c " + table.name + (when.empty() ? "" : " -n " + Quoted(when));
        for (const CommandTable* command : place.commands) {
            text += begin + " -a " + command->name + " -d " + Quoted(command->description) + "\n";
        }
        for (const OptionRow* row : place.rows) {
            std::string line = begin;
            for (const std::string& name : row->names) {
                const bool is_long = name.starts_with("--");
                line += (is_long ? " -l " : " -s ") + name.substr(is_long ? 2 : 1);
            }
            const std::string words = Joined(row->words, " ");
            if (row->names.empty() && words.empty()) line += IsPath(row->argument) ? " -F" : "";
            if (!row->names.empty() && !row->argument.empty()) {
                line += IsPath(row->argument) ? " -r -F" : " -x";
            }
            if (!words.empty()) line += " -a " + Quoted(words);
            if (line == begin) continue;
            text += line + " -d " + Quoted(row->description) + "\n";
        }
    }
    return text;
}

}  // namespace kestrane
