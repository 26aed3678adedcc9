// The table of settings against the screen: nothing that holds a value of the unit is missing, and
// every row names what is there.

#include "configuration/settings.h"

#include <gtest/gtest.h>

#include <set>

#include "configuration/values.h"
#include "support/tool_on_line.h"

namespace kestrane {
namespace {

bool HoldsAValue(const Control& control) {
    switch (control.kind()) {
        case Kind::kTextBox:
        case Kind::kCheckBox:
        case Kind::kOptionButton:
        case Kind::kComboBox:
            return true;
        default:
            return control.base_name() == "lbl1We2p";
    }
}

// What holds a value that is not the unit's to keep: the connection panel, the login, the boxes of
// the password hashing, and the check box that only opens another box.
const std::set<std::string> kOfTheScreenAlone = {
    "txtCurrentIPAddress", "txtCurrentPort", "txtTimeout", "txtSleepDelay",      "OptButID",
    "txtAdminName",        "txtAdminPassword", "txtControlPassword", "txtSalt", "txtSHA",
    "chkTimeServerEnable"};

TEST(Settings, HoldEveryControlThatHoldsAValueAndNoOther) {
    ToolOnLine line;
    std::set<const Setting*> seen;
    for (const Control* control : line.form.controls()) {
        if (!HoldsAValue(*control) || kOfTheScreenAlone.count(control->base_name())) continue;
        const Setting* const setting = SettingOfControl(control->name());
        EXPECT_TRUE(setting) << control->name();
        seen.insert(setting);
    }
    for (const Setting& setting : Settings()) {
        EXPECT_TRUE(setting.IsMacro() || seen.count(&setting)) << setting.key;
        EXPECT_FALSE(setting.places.empty() && !setting.read_only) << setting.key;
        EXPECT_EQ(setting.doc.back(), '.') << setting.key;
        EXPECT_EQ(FindSetting(setting.key), &setting);
    }
}

TEST(Settings, KeysGoByPrefixesThatEndAtADot) {
    EXPECT_TRUE(KeyMatches("names.outlet.3.upper", "names.outlet.3"));
    EXPECT_TRUE(KeyMatches("names.outlet.3.upper", "names.outlet.3.upper"));
    EXPECT_FALSE(KeyMatches("names.outlet.13.upper", "names.outlet.1"));
    EXPECT_EQ(NearestKey("network.unit_nam"), "network.unit_name");
}

TEST(SettingValues, AreCheckedAgainstWhatAUnitCanHold) {
    using V = SettingValue;
    const struct {
        const char* key;
        V value;
        bool good;
    } rows[] = {
        {"network.unit_name", V{std::string("Rack 7")}, true},
        {"network.unit_name", V{std::string("Rack 7 ")}, false},
        {"network.unit_name", V{std::string("12345678901234567")}, false},
        {"network.unit_name", V{std::string("a\tb")}, false},
        {"network.unit_name", V{7L}, false},
        {"network.netbios_name", V{std::string("lower-case_1.x")}, true},
        {"network.netbios_name", V{std::string("TWO WORDS")}, false},
        {"network.netbios_name", V{std::string(16, '\xFF')}, true},
        {"network.ip_address", V{std::string("0.1.2.3")}, true},
        {"network.ip_address", V{std::string("1.2.3.4.5")}, false},
        {"network.ip_address", V{std::string("1.2.3")}, false},
        {"network.dhcp", V{true}, true},
        {"network.dhcp", V{1L}, false},
        {"ports.a.attack_limit", V{0L}, true},
        {"ports.a.attack_limit", V{255L}, true},
        {"ports.a.attack_limit", V{32L}, false},
        {"ports.a.port", V{65536L}, false},
        {"ports.a.key", V{std::string(32, 'f')}, true},
        {"ports.a.key", V{std::string(31, 'f')}, false},
        {"ports.disconnect_timeout", V{2540L}, true},
        {"ports.disconnect_timeout", V{320L}, false},
        {"ports.disconnect_timeout", V{15L}, false},
        {"oled.timeout", V{320L}, true},
        {"arp.repeat", V{std::string("2 minutes")}, true},
        {"arp.repeat", V{std::string("3 minutes")}, false},
        {"security.view.password", V{std::string("two words")}, false},
        {"triggers.1.address", V{std::string()}, true},
        {"triggers.1.address", V{std::string("1")}, false},
        {"unit.id", V{std::string()}, false},
        {"macro.10", V{std::string("C6 03  Alarm")}, true},
        {"macro.10", V{std::string("C6 03Alarm")}, false},
        {"macro.10", V{std::string("C603")}, false},
    };
    for (const auto& row : rows) {
        const auto fault = CheckValue(*FindSetting(row.key), row.value);
        EXPECT_EQ(!fault, row.good) << row.key << ": " << fault.value_or("accepted");
    }
}

TEST(SettingValues, ThatMeanTheSameAreTheSame) {
    using V = SettingValue;
    const auto same = [](const char* key, const char* a, const char* b) {
        return SameSetting(*FindSetting(key), V{std::string(a)}, V{std::string(b)});
    };
    EXPECT_TRUE(same("macro.10", "c6 03", "C6 03  Alarm status Flash and Beep"));
    EXPECT_FALSE(same("macro.10", "C6 03", "C6 02"));
    EXPECT_TRUE(same("triggers.1.address", "", "00"));
    EXPECT_TRUE(same("ports.a.key", "ffffffffffffffffffffffffffffffff",
                     "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF"));
    EXPECT_FALSE(same("network.netbios_name", "abc", "ABC"));
    EXPECT_EQ(ShownSetting(*FindSetting("snmp.read_community"), V{std::string("public")}),
              "(secret)");
}

}  // namespace
}  // namespace kestrane
