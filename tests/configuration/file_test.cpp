// Configuration files: every fault with its place, and what is written comes back the same.

#include "configuration/file.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "configuration/schema.h"
#include "configuration_test_support.h"

namespace kestrane {
namespace {

using Words = std::vector<std::string>;

std::string Head(const std::string& settings) {
    return "{\"format\": \"kestrane-configuration\", \"version\": 1, \"settings\": " + settings +
           "}";
}

Words Lines(const ConfigurationText& text) {
    Words lines;
    for (const FileFault& fault : text.faults) lines.push_back(fault.Line("f"));
    return lines;
}

TEST(ConfigurationFile, TellsEveryFaultInOneGoWithItsPlace) {
    const std::string content = R"({
  // a remark
  "format": "kestrane-configuration",
  "version": 2,
  "extra": 1,
  "settings": {
    "network": {
      "unit_nam": "x", "dhcp": 1, /* another */ "ip_address": "1.2.3",
      "unit_location": "ä Ā",
      "dhcp": true
    },
    "ports": { "a": { "attack_limit": 32, "key_count": 3, "port": [1, 2] }, "b": 7 },
    "names": "none"
  }
})";
    EXPECT_EQ(
        Lines(ReadConfiguration(content)),
        (Words{"f:4:14: version: is not known; this program reads version 1",
               "f:5:3: extra: is not known here; beside \"settings\" a file holds \"format\", "
               "\"version\", \"unit\" and \"left_out\"",
               "f:8:7: network.unit_nam: there is no such setting; the nearest is "
               "network.unit_name",
               "f:8:32: network.dhcp: takes true or false",
               "f:8:63: network.ip_address: is not an address of four numbers from 0 to 255 "
               "with points between",
               "f:9:24: network.unit_location: holds a character that a unit does not know; "
               "U+00FF is the highest",
               "f:10:7: network.dhcp: stands here twice; keep one of them",
               "f:12:39: ports.a.attack_limit: must not be 32; the unit could not be read with "
               "this value, take another",
               "f:12:59: ports.a.port: takes a number from 0 to 65535, without quotes",
               "f:12:77: ports.b: takes an object in braces",
               "f:13:5: names: takes an object in braces"}));
}

TEST(ConfigurationFile, NamesWhatIsMissingOrNoJson) {
    EXPECT_EQ(Lines(ReadConfiguration("{}")).size(), 2u);
    EXPECT_EQ(Lines(ReadConfiguration("[]")).size(), 3u);
    const auto broken = ReadConfiguration("{\n \"format\": nonsense");
    ASSERT_EQ(broken.faults.size(), 1u);
    EXPECT_EQ(broken.faults[0].at.line, 2);
    EXPECT_EQ(ReadConfiguration("").faults.size(), 1u);
    // What stands there may be a secret, and is not repeated.
    const auto secret =
        ReadConfiguration(Head("{\"security\": {\"view\": {\"password\": \"pw\xE9"));
    EXPECT_EQ(Lines(secret), Words{"f:1:103: this is not JSON: syntax error while parsing value - "
                                   "invalid string: ill-formed UTF-8 byte"});
    EXPECT_FALSE(ReadConfiguration(std::string(100, '[')).faults.empty());
}

TEST(ConfigurationFile, KeysAreNestedAndAListHoldsNone) {
    EXPECT_EQ(Lines(ReadConfiguration(Head(R"({"network.dhcp": true, "arp": [{"req_ff": 1}]})"))),
              (Words{"f:1:65: network.dhcp: is written nested: an object in braces for each part "
                     "before a dot",
                     "f:1:87: arp: takes an object in braces"}));
}

TEST(ConfigurationFile, PassesReadOnlyKeysOverAndTakesTheRest) {
    const auto text = ReadConfiguration(
        Head(R"({"ports": {"a": {"key_count": 3}}, "macro": {"10": "c6 03 text"}})"));
    EXPECT_TRUE(text.faults.empty());
    ASSERT_EQ(text.notes.size(), 1u);
    EXPECT_EQ(text.notes[0].Line("f"),
              "f:1:81: ports.a.key_count: can only be read; it is passed over");
    EXPECT_EQ(text.values, (SettingValues{{FindSetting("macro.10"), std::string("C6 03")}}));
}

TEST(ConfigurationFile, RefusesWhatTogetherCouldNotBeReadBack) {
    const std::string off = R"("req_ff": false, "resp_ff": false, "req_00": false)";
    const auto faults = [&](const std::string& arp) {
        return ReadConfiguration(Head("{\"arp\": {" + arp + "}}")).faults.size();
    };
    EXPECT_EQ(faults(off + R"(, "reset_on_traffic": false, "repeat": "1 minute")"), 1u);
    EXPECT_EQ(faults(off + R"(, "reset_on_traffic": true, "repeat": "1 minute")"), 0u);
    EXPECT_EQ(faults(off + R"(, "repeat": "1 minute")"), 0u) << "the unit may have it on";
}

TEST(ConfigurationFile, WhatIsWrittenComesBackTheSame) {
    Dice dice(1);
    const auto schema = nlohmann::json::parse(ConfigurationSchema());
    EXPECT_EQ(schema["properties"]["settings"]["properties"]["macro"]["properties"].size(), 112u);
    for (int round = 0; round < 50; ++round) {
        SettingValues values;
        for (const Setting& setting : Settings()) {
            if (!setting.read_only && dice.Below(3) > 0) {
                values[&setting] = RandomValue(setting, dice, kOdd);
            }
        }
        const auto text =
            ReadConfiguration(WriteConfiguration({"KMD", "1", "", "\xFF"}, values, {}));
        EXPECT_EQ(Lines(text), Words{});
        EXPECT_EQ(text.values, values);
    }
}

}  // namespace
}  // namespace kestrane
