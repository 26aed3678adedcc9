#include "cli/fleet_list.h"

#include <gtest/gtest.h>

#include <chrono>

#include "cli/fleet_report.h"

namespace kestrane {
namespace {

using Lines = std::vector<std::string>;

TEST(FleetList, TakesUnitsWithValuesOfTheirOwn) {
    const FleetList list = ParseFleetList(
        "\xEF\xBB\xBF# racks\r\nnetwork.unit_name,unit,network.dhcp\r\n\r\n"
        "\"Rack 7, \"\"new\"\"\",10.0.0.7,true\r\n#,x,\r\n,[fe80::1]:1244\r\nRack 8,host.example,",
        "f.csv");
    EXPECT_EQ(list.faults, Lines{});
    ASSERT_EQ(list.units.size(), 3u);
    EXPECT_EQ(list.units[0].name, "10.0.0.7:1243");
    ASSERT_EQ(list.units[0].values.size(), 2u);
    EXPECT_EQ(list.units[0].values[0].first->key, "network.unit_name");
    EXPECT_EQ(list.units[0].values[0].second, SettingValue("Rack 7, \"new\""));
    EXPECT_EQ(list.units[0].values[1].second, SettingValue(true));
    EXPECT_EQ(list.units[1].name, "[fe80::1]:1244");
    EXPECT_EQ(list.units[1].address.host, "fe80::1");
    EXPECT_TRUE(list.units[1].values.empty());
    EXPECT_EQ(list.units[2].values.size(), 1u);
    EXPECT_EQ(FileNameOf(list.units[0]), "10.0.0.7_1243.mdu.json");
    EXPECT_EQ(FileNameOf({"", {"../a", 1}, {}}), ".._a_1.mdu.json");
}

// What a fault says begins with the place; all of them come at once.
TEST(FleetList, TellsEveryFaultWithItsLine) {
    struct Case {
        const char* text;
        Lines faults;  // the beginnings
    };
    for (const Case& c : {
             Case{"", {"f:1: there is no unit"}},
             Case{"unit\n# none\n", {"f:1: there is no unit"}},
             Case{"name\n10.0.0.7\n", {"f:1: name: not a known key", "f:1: unit: the header"}},
             Case{"unit,unit\na,b\n", {"f:1: unit: two columns"}},
             Case{"unit,network.dhcp,chkDHCP\na,,\n", {"f:1: chkDHCP: two columns"}},
             Case{"unit,network.unit_nam\n",
                  {"f:1: network.unit_nam: not a known key; the "
                   "nearest is network.unit_name"}},
             Case{"unit,ports.a.key_count\nh,1\n", {"f:1: ports.a.key_count: this setting can"}},
             Case{"unit\nh\nH:1243\nh:1244\n", {"f:3: unit: H:1243 stands on line 2 already"}},
             Case{"unit,\x1B[2J\xC2\x9B\xFF\xC3\xA9\n",
                  {"f:1: \\x1B[2J\\xC2\\x9B\\xFF\xC3\xA9: not a"}},
             Case{"unit\nh,1\n", {"f:2: has 2 cells, the header 1"}},
             Case{"unit\nh:0\na b\n", {"f:2: unit: ", "f:3: unit: "}},
             Case{"unit,network.dhcp,ports.a.port\nh,maybe,1\ni,true,65536\n",
                  {"f:2: network.dhcp: ", "f:3: ports.a.port: "}},
             Case{"unit\n\"h\ni\n", {"f:2: a quotation mark has no partner"}},
             Case{"unit\nh\n\"i\"x\nj\n", {"f:3: a quotation mark has no partner"}},
             Case{"\"a\nb\",unit\nc,h:x\n", {"f:1: a\\x0Ab: not a known key", "f:3: unit: "}},
         }) {
        const FleetList list = ParseFleetList(c.text, "f");
        ASSERT_EQ(list.faults.size(), c.faults.size()) << c.text;
        for (std::size_t i = 0; i < c.faults.size(); ++i) {
            EXPECT_EQ(list.faults[i].substr(0, c.faults[i].size()), c.faults[i]);
        }
    }
}

TEST(Report, TellsWhichUnitsAreDone) {
    const ReportedUnits units = ParseReport(
        "{\"unit\":\"a:1\",\"result\":\"failed\"}\n{\"unit\":\"b:1\",\"result\":\"same\"}\n\n"
        "{\"unit\":\"a:1\",\"result\":\"changed\",\"changes\":[]}\n"
        "{\"unit\":\"c:1\",\"result\":\"changed\"}\n{\"unit\":\"c:1\",\"result\":\"not begun\"}\n"
        "{\"unit\":\"d:1\",\"result\":\"different\"}\n{\"unit\":\"e:1\",\"res");
    EXPECT_EQ(units.error, "");
    EXPECT_EQ(units.done, (std::set<std::string>{"a:1", "b:1"}));
    for (const char* bad : {"x\n", "[]\n", "{\"unit\":1,\"result\":\"same\"}\n",
                            "{\"unit\":\"a\"}\n", "{\"unit\":\"a\",\"result\":\"same\"}{}\n"}) {
        EXPECT_EQ(ParseReport(bad).error.substr(0, 7), "line 1:") << bad;
    }
}

}  // namespace
}  // namespace kestrane
