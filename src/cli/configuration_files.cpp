#include "cli/configuration_files.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "text/terminal.h"

namespace kestrane {
namespace {

bool FitsAKey(const std::string& prefix) {
    return std::any_of(Settings().begin(), Settings().end(),
                       [&](const Setting& setting) { return KeyMatches(setting.key, prefix); });
}

}  // namespace

void ConfigurationFiles::Add(FileStore& disk, const std::string& path) {
    const FileStore::Content content = disk.Read(path);
    if (content.error) {
        faults.push_back(path + ": cannot be read: " + *content.error);
        return;
    }
    const ConfigurationText text = ReadConfiguration(content.bytes);
    for (const FileFault& fault : text.faults) faults.push_back(fault.Line(path));
    AddNotes(path, text.notes);
    for (const auto& [setting, value] : text.values) values[setting] = value;
}

void ConfigurationFiles::AddNotes(const std::string& path, const std::vector<FileFault>& found) {
    constexpr std::size_t kFew = 3;
    const bool many = found.size() > kFew;
    for (const FileFault& note : found) {
        notes.push_back(note.Line(path));
        if (!many) short_notes.push_back(notes.back());
    }
    if (!many) return;
    short_notes.push_back(path + ": " + std::to_string(found.size()) +
                          " settings can only be read; they are passed over");
}

void FilterOptions::AddTo(CLI::App& app) {
    app.add_option("--only", filter_.only,
                   "Only settings that begin with this: names, names.outlet.3; repeatable")
        ->allow_extra_args(false);
    app.add_option("--except", filter_.except, "No settings that begin with this; repeatable")
        ->allow_extra_args(false);
    app.add_flag("--identity", filter_.identity,
                 "Also what tells one unit from another: names, location, IP address, ID");
    app.add_flag("--live", filter_.live, "Also values that a restart of the unit loses");
}

std::string FilterOptions::Check() const {
    for (const auto* prefixes : {&filter_.only, &filter_.except}) {
        for (const std::string& prefix : *prefixes) {
            if (!prefix.empty() && FitsAKey(prefix)) continue;
            return (prefixes == &filter_.only ? "--only: " : "--except: ") +
                   ("\"" + ShownText(prefix) + "\"") +
                   " fits no setting; see kestrane-cli settings";
        }
    }
    return {};
}

}  // namespace kestrane
