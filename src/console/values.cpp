#include "console/values.h"

namespace kestrane {
namespace {

Json AsJson(std::monostate) { return nullptr; }
Json AsJson(bool flag) { return flag; }
Json AsJson(long number) { return number; }
Json AsJson(const std::string& text) { return FromByteText(text); }

Json AsJson(const std::vector<std::string>& texts) {
    Json list = Json::array();
    for (const std::string& text : texts) list.push_back(FromByteText(text));
    return list;
}

Json AsJson(const std::vector<TabState>& tabs) {
    Json list = Json::array();
    for (const TabState& tab : tabs) {
        list.push_back({{"caption", FromByteText(tab.caption)},
                        {"enabled", tab.enabled},
                        {"visible", tab.visible}});
    }
    return list;
}

Converted Failed(std::string why) { return {{}, std::move(why)}; }

Converted ConvertText(const Word& word) {
    auto bytes = ToByteText(word.text);
    if (!bytes) return Failed("a character above U+00FF has no byte");
    return {Value(std::move(*bytes)), {}};
}

Converted ConvertFlag(const Json& json) {
    if (json.is_boolean()) return {Value(json.get<bool>()), {}};
    if (json == 0 || json == 1) return {Value(json == 1), {}};
    return Failed("takes true or false");
}

Converted ConvertNumber(const Json& json, const char* takes) {
    if (json.is_boolean()) return {Value(static_cast<long>(json.get<bool>())), {}};
    const bool fits =
        json.is_number_integer() && !(json.is_number_unsigned() && json.get<std::uint64_t>() >> 63);
    if (!fits) return Failed(takes);
    return {Value(static_cast<long>(json.get<std::int64_t>())), {}};
}

Converted ConvertTexts(const Json& json) {
    constexpr char kTakes[] = "takes a JSON list of texts";
    if (!json.is_array()) return Failed(kTakes);
    std::vector<std::string> texts;
    for (const Json& item : json) {
        auto bytes = item.is_string() ? ToByteText(item.get<std::string>()) : std::nullopt;
        if (!bytes) return Failed(kTakes);
        texts.push_back(std::move(*bytes));
    }
    return {Value(std::move(texts)), {}};
}

Converted ConvertTabs(const Json& json) {
    constexpr char kTakes[] = "takes a JSON list of tabs";
    if (!json.is_array()) return Failed(kTakes);
    std::vector<TabState> tabs;
    for (const Json& item : json) {
        const bool whole = item.is_object() && item.contains("caption") &&
                           item["caption"].is_string() && item.contains("enabled") &&
                           item["enabled"].is_boolean() && item.contains("visible") &&
                           item["visible"].is_boolean();
        auto caption = whole ? ToByteText(item["caption"].get<std::string>()) : std::nullopt;
        if (!caption) return Failed(kTakes);
        tabs.push_back(
            {std::move(*caption), item["enabled"].get<bool>(), item["visible"].get<bool>()});
    }
    return {Value(std::move(tabs)), {}};
}

}  // namespace

Json ToJson(const Value& value) {
    return std::visit([](const auto& held) { return AsJson(held); }, value);
}

std::string ToLine(const Json& json) {
    return json.dump(-1, ' ', true, Json::error_handler_t::replace);
}

Converted ConvertWord(const Word& word, const Value& present) {
    if (std::holds_alternative<std::string>(present)) return ConvertText(word);
    // A quoted word is a text, and no number even where it looks like one.
    const Json json = word.quoted ? Json(word.text) : Json::parse(word.text, nullptr, false);
    if (std::holds_alternative<bool>(present)) return ConvertFlag(json);
    if (std::holds_alternative<std::vector<std::string>>(present)) return ConvertTexts(json);
    if (std::holds_alternative<std::vector<TabState>>(present)) return ConvertTabs(json);
    if (json.is_null()) return {Value(std::monostate{}), {}};
    return ConvertNumber(json, "takes a number");
}

bool SameValue(const Value& left, const Value& right) { return ToJson(left) == ToJson(right); }

}  // namespace kestrane
