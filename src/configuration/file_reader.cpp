#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "configuration/file.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kDeepest = 16;

// Gives the parser one byte after another and knows how many it has taken.
class CountingInput {
  public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingInput(const char* at, std::size_t* taken) : at_(at), taken_(taken) {}
    const char& operator*() const { return *at_; }
    CountingInput& operator++() {
        ++at_;
        ++*taken_;
        return *this;
    }
    CountingInput operator++(int) {
        CountingInput before = *this;
        ++*this;
        return before;
    }
    bool operator==(const CountingInput& other) const { return at_ == other.at_; }
    bool operator!=(const CountingInput& other) const { return at_ != other.at_; }

  private:
    const char* at_;
    std::size_t* taken_;
};

// Tells lines and columns of a text. Columns count characters, not bytes. What is asked for comes
// mostly in the order of the text, so it goes on from the last place: a file of faults alone is
// read once.
class Places {
  public:
    explicit Places(std::string_view text) : text_(text) {}

    FilePosition Of(std::size_t offset) {
        if (offset < at_) {
            at_ = 0;
            position_ = {};
        }
        for (; at_ < std::min(offset, text_.size()); ++at_) {
            if (text_[at_] == '\n') {
                ++position_.line;
                position_.column = 1;
            } else if ((static_cast<unsigned char>(text_[at_]) & 0xC0) != 0x80) {
                ++position_.column;
            }
        }
        return position_;
    }

  private:
    std::string_view text_;
    std::size_t at_ = 0;
    FilePosition position_;
};

// Collects what stands in the file. The tokens' places are found from where the parser stands:
// it has just taken the token, and at most one character after a number.
class Collector : public nlohmann::json_sax<Json> {
  public:
    Collector(std::string_view text, const std::size_t& taken, ConfigurationText& result)
        : text_(text), places_(text), taken_(taken), result_(result) {}

    bool null() override { return Value(StartOfWord(), {}); }
    bool boolean(bool value) override { return Value(StartOfWord(), SettingValue(value)); }
    bool number_integer(number_integer_t value) override {
        return Value(StartOfWord(), SettingValue(static_cast<long>(value)));
    }
    bool number_unsigned(number_unsigned_t value) override {
        if (value > std::numeric_limits<long>::max()) return Value(StartOfWord(), {});
        return Value(StartOfWord(), SettingValue(static_cast<long>(value)));
    }
    bool number_float(number_float_t, const string_t&) override { return Value(StartOfWord(), {}); }
    bool string(string_t& value) override {
        const std::size_t at = StartOfString();
        const auto bytes = ToByteText(value);
        if (!bytes && InSettings() && !InList()) {
            Fault(at, Key(), "holds a character that a unit does not know; U+00FF is the highest");
            return true;
        }
        return Value(at, SettingValue(bytes.value_or("?")));
    }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override { return Open(true); }
    bool end_object() override { return Close(); }
    bool start_array(std::size_t) override { return Open(false); }
    bool end_array() override { return Close(); }
    bool key(string_t& name) override {
        if (InList()) return true;
        const std::size_t at = StartOfString();
        path_.resize(static_cast<std::size_t>(Depth()));
        path_.back() = name;
        std::string joined;
        for (const std::string& part : path_) joined += '\n' + part;
        if (!seen_.insert(joined).second) Fault(at, Key(), "stands here twice; keep one of them");
        key_at_ = at;
        if (InSettings() && name.find('.') != std::string::npos) {
            Fault(at, Key(), "is written nested: an object in braces for each part before a dot");
        }
        if (Depth() == 1 && !IsTopKey(name)) {
            Fault(at, name,
                  "is not known here; beside \"settings\" a file holds \"format\", \"version\", "
                  "\"unit\" and \"left_out\"");
        }
        return true;
    }
    bool parse_error(std::size_t position, const std::string&,
                     const nlohmann::detail::exception& error) override {
        const std::string what = WhatIsWrong(error.what());
        result_.faults.push_back(
            {places_.Of(position > 0 ? position - 1 : 0), {}, "this is not JSON: " + what});
        return false;
    }

    // The parser's sentence without what it last read, which may be a secret.
    static std::string WhatIsWrong(std::string sentence) {
        const std::size_t begin = sentence.find("syntax error");
        if (begin == std::string::npos) return "cannot be read as text";
        const std::size_t end = std::min(sentence.find("; last read: "), sentence.size());
        return sentence.substr(begin, end - begin);
    }

    void Finish() {
        if (!format_seen_) {
            Fault(0, "format",
                  std::string("is missing; write \"format\": \"") + kConfigurationFormat + "\"");
        }
        if (!version_seen_) Fault(0, "version", "is missing; write \"version\": 1");
    }

  private:
    int Depth() const { return static_cast<int>(open_.size()); }
    bool InSettings() const { return !path_.empty() && path_.front() == "settings"; }

    // A list is told where it begins; what stands in it is not looked at.
    bool InList() const { return std::find(open_.begin(), open_.end(), false) != open_.end(); }
    // A key with dots in itself has been told.
    bool IsFlat() const {
        return std::any_of(path_.begin(), path_.end(), [](const std::string& part) {
            return part.find('.') != std::string::npos;
        });
    }

    static bool IsTopKey(const std::string& name) {
        for (const char* known : {"format", "version", "unit", "settings", "left_out"}) {
            if (name == known) return true;
        }
        return false;
    }

    // The dotted key of the present place below "settings", or the path from the top elsewhere.
    std::string Key() const {
        std::string key;
        const bool below = path_.size() > 1 && InSettings();
        for (std::size_t i = below ? 1 : 0; i < path_.size(); ++i) {
            key += (key.empty() ? "" : ".") + path_[i];
        }
        return key;
    }

    void Fault(std::size_t at, std::string key, std::string sentence) {
        result_.faults.push_back({places_.Of(at), std::move(key), std::move(sentence)});
    }

    std::size_t StartOfWord() const {
        std::size_t at = std::min(taken_, text_.size());
        const auto in_word = [](char c) {
            return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                   c == '-' || c == '+' || c == '.';
        };
        while (at > 0 && !in_word(text_[at - 1])) --at;
        while (at > 0 && in_word(text_[at - 1])) --at;
        return at;
    }

    // The parser stands after the closing quote.
    std::size_t StartOfString() const {
        std::size_t at = std::min(taken_, text_.size());
        if (at > 0) --at;
        while (at > 0) {
            --at;
            if (text_[at] != '"') continue;
            std::size_t backslashes = 0;
            while (backslashes < at && text_[at - 1 - backslashes] == '\\') ++backslashes;
            if (backslashes % 2 == 0) return at;
        }
        return 0;
    }

    bool Open(bool object) {
        if (Depth() >= kDeepest) {
            Fault(taken_, Key(), "is nested too deep");
            return false;
        }
        if (Depth() == 0 && !object) Fault(0, {}, "a configuration is an object in braces");
        if (InSettings() && Depth() >= 2 && !InList() && !IsFlat()) CheckGroup(object);
        if (InSettings() && Depth() == 1 && !object) {
            Fault(key_at_, "settings", "takes an object in braces");
        }
        open_.push_back(object);
        if (object) path_.emplace_back();
        return true;
    }

    void CheckGroup(bool object) {
        const std::string key = Key();
        if (const Setting* setting = FindSetting(key)) {
            Fault(key_at_, key, CheckValue(*setting, WrongKind(*setting)).value_or(""));
        } else if (!object) {
            Fault(key_at_, key, "takes an object in braces");
        }
    }

    // A value that the setting never takes, for the sentence about it.
    static SettingValue WrongKind(const Setting& setting) {
        return setting.kind == SettingKind::kSwitch ? SettingValue(0L) : SettingValue(false);
    }

    bool Close() {
        if (open_.back()) path_.pop_back();
        open_.pop_back();
        return true;
    }

    bool Value(std::size_t at, std::optional<SettingValue> value) {
        if (Depth() == 0) {
            Fault(at, {}, "a configuration is an object in braces");
        } else if (InList() || (InSettings() && IsFlat())) {
            return true;
        } else if (InSettings()) {
            Depth() == 1 ? Fault(at, "settings", "takes an object in braces") : Take(at, value);
        } else if (Depth() == 1) {
            TakeHead(at, value);
        }
        return true;
    }

    static bool IsGroup(const std::string& key) {
        return std::any_of(Settings().begin(), Settings().end(),
                           [&](const Setting& setting) { return KeyMatches(setting.key, key); });
    }

    void TakeHead(std::size_t at, const std::optional<SettingValue>& value) {
        if (path_.front() == "format") {
            format_seen_ = true;
            if (value != std::optional<SettingValue>(std::string(kConfigurationFormat))) {
                Fault(at, "format",
                      std::string("is not known; it must be \"") + kConfigurationFormat + "\"");
            }
        } else if (path_.front() == "version") {
            version_seen_ = true;
            if (value != std::optional<SettingValue>(kConfigurationVersion)) {
                Fault(at, "version", "is not known; this program reads version 1");
            }
        }
    }

    void Take(std::size_t at, const std::optional<SettingValue>& value) {
        const std::string key = Key();
        const Setting* const setting = FindSetting(key);
        if (!setting && IsGroup(key)) return Fault(key_at_, key, "takes an object in braces");
        if (!setting) {
            Fault(key_at_, key, "there is no such setting; the nearest is " + NearestKey(key));
            return;
        }
        const auto fault = CheckValue(*setting, value.value_or(WrongKind(*setting)));
        if (fault) {
            Fault(at, key, *fault);
        } else if (setting->read_only) {
            result_.notes.push_back(
                {places_.Of(key_at_), key, "can only be read; it is passed over"});
        } else {
            result_.values[setting] = Normal(*setting, *value);
            result_.places[setting] = places_.Of(at);
        }
    }

    std::string_view text_;
    Places places_;
    const std::size_t& taken_;
    ConfigurationText& result_;
    std::vector<bool> open_;  // true: an object
    std::vector<std::string> path_;
    std::set<std::string> seen_;
    std::size_t key_at_ = 0;
    bool format_seen_ = false;
    bool version_seen_ = false;
};

bool Earlier(const FileFault& a, const FileFault& b) {
    return std::pair(a.at.line, a.at.column) < std::pair(b.at.line, b.at.column);
}
}  // namespace

ConfigurationText ReadConfiguration(std::string_view content) {
    ConfigurationText result;
    std::size_t taken = 0;
    Collector collector(content, taken, result);
    const CountingInput begin(content.data(), &taken);
    const CountingInput end(content.data() + content.size(), &taken);
    const bool whole = Json::sax_parse(begin, end, &collector, Json::input_format_t::json,
                                       /*strict=*/true, /*ignore_comments=*/true);
    if (whole) collector.Finish();
    if (const auto fault = CheckTogether(result.values)) {
        const Setting* const repeat = FindSetting("arp.repeat");
        result.faults.push_back({result.places[repeat], repeat->key, *fault});
    }
    std::stable_sort(result.faults.begin(), result.faults.end(), Earlier);
    return result;
}

}  // namespace kestrane
