#include "configuration/schema.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "configuration/file.h"

namespace kestrane {
namespace {

using Json = nlohmann::ordered_json;

Json SchemaOf(const Setting& setting) {
    Json schema;
    switch (setting.kind) {
        case SettingKind::kSwitch:
            schema["type"] = "boolean";
            break;
        case SettingKind::kNumber:
            schema = {{"type", "integer"}, {"minimum", setting.least}, {"maximum", setting.most}};
            if (setting.step > 1) schema["multipleOf"] = setting.step;
            break;
        case SettingKind::kChoice:
            schema["enum"] = setting.choices;
            break;
        case SettingKind::kText:
            schema = {{"type", "string"}, {"maxLength", setting.max_length}};
            break;
        case SettingKind::kQuad:
            schema = {{"type", "string"}, {"pattern", "^\\d{1,3}(\\.\\d{1,3}){3}$"}};
            break;
        case SettingKind::kHexKey:
            schema = {{"type", "string"}, {"pattern", "^[0-9A-Fa-f]{32}$"}};
            break;
        case SettingKind::kHexByte:
            schema = {{"type", "string"},
                      {"pattern", setting.key.ends_with(".address") ? "^([0-9A-Fa-f]{2})?$"
                                                                    : "^[0-9A-Fa-f]{2}$"}};
            break;
        case SettingKind::kMacroLine:
            schema = {{"type", "string"}, {"pattern", "^[0-9A-Fa-f]{2} [0-9A-Fa-f]{2}( .*)?$"}};
            break;
    }
    schema["description"] = setting.doc;
    if (setting.read_only) schema["readOnly"] = true;
    if (setting.write_only) schema["writeOnly"] = true;
    return schema;
}
}  // namespace

std::string ConfigurationSchema() {
    Json schema = {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
                   {"title", "Configuration of a Kestrane MDU"},
                   {"type", "object"},
                   {"required", {"format", "version"}},
                   {"additionalProperties", false}};
    Json properties;
    properties["format"] = {{"const", kConfigurationFormat}};
    properties["version"] = {{"const", kConfigurationVersion}};
    properties["unit"] = {{"type", "object"}};
    Json settings = {{"type", "object"}, {"additionalProperties", false}};
    for (const Setting& setting : Settings()) {
        Json* at = &settings;
        const std::string& key = setting.key;
        for (std::size_t begin = 0; begin <= key.size();) {
            const std::size_t dot = std::min(key.find('.', begin), key.size());
            at = &(*at)["properties"][key.substr(begin, dot - begin)];
            if (dot < key.size() && at->is_null()) {
                *at = {{"type", "object"}, {"additionalProperties", false}};
            }
            begin = dot + 1;
        }
        *at = SchemaOf(setting);
    }
    properties["settings"] = std::move(settings);
    properties["left_out"] = {{"type", "object"}};
    schema["properties"] = std::move(properties);
    return schema.dump(2) + "\n";
}
}  // namespace kestrane
