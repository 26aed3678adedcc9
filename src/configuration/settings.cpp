#include "configuration/settings.h"

#include <algorithm>
#include <map>

#include "text/text.h"

namespace kestrane {
namespace {

using Board = SettingPlace::Board;
using Kind = SettingKind;

constexpr char kPorts[] = {'a', 'b', 'c'};
const std::vector<std::string> kInlets = {"A sync", "B sync", "No preference", "A non sync",
                                          "B non sync"};
const std::vector<std::string> kArpTimes = {"No repeat", "30 seconds", "1 minute",   "2 minutes",
                                            "5 minutes", "10 minutes", "30 minutes", "60 minutes"};

std::string Indexed(const char* base, int index) {
    return std::string(base) + "(" + std::to_string(index) + ")";
}

class Table {
  public:
    std::vector<Setting> rows;

    Setting& Add(std::string key, std::string control, const char* tab, Kind kind,
                 std::string doc) {
        rows.push_back({std::move(key), std::move(control), tab, kind, std::move(doc)});
        return rows.back();
    }
    Setting& Text(std::string key, std::string control, const char* tab, int length,
                  std::string doc) {
        Setting& row = Add(std::move(key), std::move(control), tab, Kind::kText, std::move(doc));
        row.max_length = length;
        return row;
    }
    Setting& Number(std::string key, std::string control, const char* tab, long most, long step,
                    std::string doc) {
        Setting& row = Add(std::move(key), std::move(control), tab, Kind::kNumber, std::move(doc));
        row.most = most;
        row.step = step;
        return row;
    }
    Setting& Switch(std::string key, std::string control, const char* tab, std::string doc) {
        return Add(std::move(key), std::move(control), tab, Kind::kSwitch, std::move(doc));
    }
};

void Display(Setting& row, int address, int count) {
    row.places.push_back({Board::kDisplay, address, count});
}
void Relay(Setting& row, int address, int count) {
    row.places.push_back({Board::kRelay, address, count});
}

void AddNetwork(Table& table) {
    static constexpr char kTab[] = "network";
    const auto identity = [](Setting& row) { row.identity = true; };
    Setting* row =
        &table.Text("network.netbios_name", "txtNetbiosName", kTab, 16,
                    "Name on Windows networks, up to 15 characters, stored in capitals.");
    Display(*row, 0x0010, 15);
    identity(*row);
    row = &table.Text("network.unit_location", "txtUnitLocation", kTab, 16,
                      "Where the unit stands, up to 16 characters.");
    Display(*row, 0x0040, 16);
    identity(*row);
    row = &table.Text("network.unit_name", "txtUnitName", kTab, 16,
                      "Name of the unit, up to 16 characters.");
    Display(*row, 0x0050, 16);
    identity(*row);
    const auto quad = [&](const char* key, const char* control, int address,
                          const char* doc) -> Setting& {
        Setting& added = table.Add(key, control, kTab, Kind::kQuad, doc);
        Display(added, address, 4);
        return added;
    };
    identity(quad("network.ip_address", "txtIPAddress", 0x0020,
                  "Fixed IP address, used without DHCP or where no DHCP server answers."));
    Display(table.Switch("network.dhcp", "chkDHCP", kTab,
                         "Whether the unit asks a DHCP server for its address."),
            0x003F, 1);
    quad("network.subnet_mask", "txtSubnetMask", 0x0024, "Subnet mask of the fixed address.");
    quad("network.default_gateway", "txtDefaultGateway", 0x0028,
         "Default gateway of the fixed address.");
    quad("network.primary_dns", "txtPrimaryDNS", 0x002C, "First DNS server.");
    quad("network.secondary_dns", "txtSecondaryDNS", 0x0030, "Second DNS server.");
    quad("network.time_server", "txtTimeServerIP", 0x0034, "IP address of the time server.");
}

void AddPorts(Table& table) {
    static constexpr char kTab[] = "network";
    constexpr int kKeys[] = {0x02F0, 0x0300, 0x0310};
    for (int i = 0; i < 3; ++i) {
        const std::string prefix = std::string("ports.") + kPorts[i] + ".";
        const std::string port = std::string("control port ") + static_cast<char>('A' + i);
        Display(table.Switch(prefix + "enabled", Indexed("chkTcpControlEnable", i), kTab,
                             "Whether TCP " + port + " is open."),
                0x003F, 1);
        Display(table.Number(prefix + "port", Indexed("txtTcpControlPort", i), kTab, 65535, 1,
                             "TCP port number of " + port + "."),
                0x003C - 2 * i, 2);
        Display(table.Number(prefix + "attack_limit", Indexed("txtAttackLimit", i), kTab, 255, 1,
                             "Failed attempts after which " + port +
                                 " closes, 10 to 100; 255 for no limit."),
                0x02E9 + i, 1);
        Setting& key =
            table.Add(prefix + "key", Indexed("txtChaskey", i), kTab, Kind::kHexKey,
                      "Chaskey key of " + port + ", 32 hexadecimal digits; all F for none.");
        key.secret = true;
        Display(key, kKeys[i], 16);
        Setting& count = table.Number(prefix + "key_count", Indexed("txtKeyCounter", i), kTab, 255,
                                      1, "Keys that " + port + " has had, a count.");
        count.read_only = true;
    }
    Display(table.Number("ports.disconnect_timeout", "txtForceDisconnect", kTab, 2540, 10,
                         "Seconds without traffic after which a control connection is closed, in "
                         "steps of 10; 0 for never."),
            0x02E8, 1);
}

void AddNetworkRest(Table& table) {
    static constexpr char kTab[] = "network";
    constexpr const char* kArp[][2] = {
        {"arp.req_ff", "Whether the unit announces itself by ARP requests to FF."},
        {"arp.resp_ff", "Whether the unit announces itself by ARP responses to FF."},
        {"arp.req_00", "Whether the unit announces itself by ARP requests to 00."}};
    for (int i = 0; i < 3; ++i) {
        Display(table.Switch(kArp[i][0], Indexed("chkARP", i), kTab, kArp[i][1]), 0x02EC, 1);
    }
    Setting& repeat = table.Add("arp.repeat", "cmbARPtime", kTab, Kind::kChoice,
                                "Time between two ARP announcements.");
    repeat.choices = kArpTimes;
    Display(repeat, 0x02EC, 1);
    Display(table.Switch("arp.reset_on_traffic", "chkARPReset", kTab,
                         "Whether other traffic starts the time between announcements afresh."),
            0x02EC, 1);
    Setting& community = table.Text("snmp.read_community", "txtCommunity", kTab, 24,
                                    "SNMP read community, up to 24 characters; empty to close the "
                                    "SNMP port.");
    community.secret = true;
    Display(community, 0x02E0, 8);
    Display(community, 0x0320, 16);
    Display(
        table.Text("snmp.contact", "txtSysContact", kTab, 16, "SNMP contact, up to 16 characters."),
        0x01E0, 16);
    Setting& id = table.Add("unit.id", "txtUnitID", kTab, Kind::kHexByte,
                            "Address of the unit among several on one line, two hexadecimal "
                            "digits, 00 to 61.");
    id.identity = true;
    Relay(id, 0x0004, 1);
    Display(table.Number("oled.timeout", "txtOledTimeout", kTab, 2540, 10,
                         "Seconds until the front display goes dark, in steps of 10; 0 for never."),
            0x003E, 1);
    Display(table.Switch("oled.hide_ip", "chkIPonOLED", kTab,
                         "Whether the front display hides the IP settings."),
            0x003F, 1);
    Display(table.Switch("web.arm_buttons", "chkArmEnable", kTab,
                         "Whether the web page has arm buttons."),
            0x003F, 1);
}

void AddPrivileges(Table& table) {
    struct Half {
        const char* board;
        int base;
        Board place;
        const char* rights[8];
    };
    // clang-format off
    static constexpr Half kHalves[] = {
        {"relay", 100, Board::kRelay,
         {"write_own_privileges", "read_other_privileges", "write_other_privileges",
          "live_control", "reset_min_max", "write_macro_memory", "commit_sensors",
          "changeover_settings"}},
        {"display", 200, Board::kDisplay,
         {"write_own_privileges", "read_other_privileges", "write_other_privileges", "bit_3",
          "bit_4", "write_names", "bit_6", "network_configuration"}}};
    // clang-format on
    for (const Half& half : kHalves) {
        for (int port = 1; port <= 3; ++port) {
            for (int bit = 0; bit < 8; ++bit) {
                std::string right = half.rights[bit];
                const std::string key =
                    std::string("privileges.") + half.board + "." + kPorts[port - 1] + "." + right;
                std::replace(right.begin(), right.end(), '_', ' ');
                Setting& row = table.Switch(
                    key, Indexed("chkPriv", half.base + 10 * port + bit), "privileges",
                    std::string("Right of control port ") + static_cast<char>('A' + port - 1) +
                        " on the " + half.board + " board: " + right + ".");
                row.places.push_back({half.place, 0x03E0 + 2 * (port - 1), 2});
            }
        }
    }
}

void AddSecurity(Table& table) {
    constexpr const char* kLevels[] = {"view", "control", "admin"};
    for (int i = 0; i < 3; ++i) {
        const std::string prefix = std::string("security.") + kLevels[i] + ".";
        Setting& password =
            table.Text(prefix + "password", Indexed("txtWebPassword", i), "security", 16,
                       std::string("Password of the web level ") + kLevels[i] +
                           ", up to 16 characters without blanks; empty for none.");
        password.secret = true;
        password.write_only = true;
        Setting& disabled =
            table.Switch(prefix + "disabled", Indexed("chkWebSecurityDisable", i), "security",
                         std::string("Whether the web level ") + kLevels[i] + " is closed.");
        for (Setting* row : {&table.rows[table.rows.size() - 2], &disabled}) {
            Display(*row, 0x02A0, 16);
            Display(*row, 0x02B0 + 16 * i, 16);
        }
    }
}

void AddNames(Table& table) {
    const auto add = [&](const std::string& prefix, const std::string& upper,
                         const std::string& lower, int address, const std::string& whose) {
        Display(table.Text(prefix + ".upper", upper, "names", 8,
                           "First line of the name of " + whose + ", up to 8 characters."),
                address, 16);
        Display(table.Text(prefix + ".lower", lower, "names", 8,
                           "Second line of the name of " + whose + ", up to 8 characters."),
                address, 16);
    };
    add("names.inlet.main", "txtMainUpper", "txtMainLower", 0x0060, "the main inlet");
    add("names.inlet.backup", "txtBackupUpper", "txtBackupLower", 0x0070, "the backup inlet");
    for (int i = 0; i < 14; ++i) {
        const std::string number = std::to_string(i + 1);
        add("names.outlet." + number, Indexed("txtOutUpper", i), Indexed("txtOutLower", i),
            0x0080 + 16 * i, "outlet " + number);
    }
}

void AddTriggers(Table& table) {
    for (int i = 0; i < 8; ++i) {
        const std::string prefix = "triggers." + std::to_string(i + 1) + ".";
        const std::string macro = "macro " + std::to_string(i + 1);
        const auto place = [i](Setting& row) { Display(row, 0x0200 + 16 * i, 16); };
        place(table.Text(prefix + "name", Indexed("txtMTName", i), "triggers", 14,
                         "Name by which an operator starts " + macro + ", up to 14 characters."));
        Setting& page = table.Number(prefix + "page", Indexed("txtMTPage", i), "triggers", 127, 1,
                                     "Page of the front display that " + macro + " stands on.");
        page.read_only = true;
        place(table.Add(prefix + "address", Indexed("txtMTAddress", i), "triggers", Kind::kHexByte,
                        "Address that " + macro +
                            " starts at, two hexadecimal digits from 10 to 7E; empty for none."));
        place(table.Switch(prefix + "enabled", Indexed("chkMacro", i), "triggers",
                           "Whether an operator may start " + macro + "."));
    }
}

void AddSensors(Table& table) {
    for (int i = 0; i < 16; ++i) {
        const std::string prefix = "sensors." + std::to_string(i + 1) + ".";
        const std::string sensor = "1-Wire sensor " + std::to_string(i + 1);
        Display(table.Text(prefix + "name", Indexed("txt1WName", i), "1wire", 8,
                           "Name of " + sensor + ", up to 8 characters."),
                0x0160 + 16 * (i / 2), 16);
        Setting& address = table.Text(
            prefix + "address", Indexed("lbl1We2p", i), "1wire", 19,
            "Committed address of " + sensor + ", 16 hexadecimal digits with the family last.");
        address.read_only = true;
    }
}

void AddChangeover(Table& table) {
    static constexpr char kTab[] = "changeover";
    constexpr const char* kValues[][2] = {
        {"off_time_main", "Time that the main supply may be off, in samples of 0.2 ms"},
        {"off_time_backup", "Time that the backup supply may be off, in samples of 0.2 ms"},
        {"phase", "Phase window for changing back, in samples of 0.2 ms"},
        {"change_back", "Delay before changing back, in units of 10 seconds; 255 for never"}};
    for (int i = 0; i < 4; ++i) {
        Relay(table.Number(std::string("changeover.startup.") + kValues[i][0],
                           Indexed("txtStartup", i), kTab, 255, 1,
                           std::string(kValues[i][1]) + ", after a restart."),
              0x000A + i, 1);
    }
    Setting& alarm = table.Number("changeover.startup.default_alarm", "txtStartup(4)", kTab, 255, 1,
                                  "Alarm after a restart: 0 none, 1 flash, 2 beep, 3 both.");
    alarm.read_only = true;
    Setting& inlet = table.Add("changeover.startup.default_inlet", "optInE2P", kTab, Kind::kChoice,
                               "Preferred inlet after a restart.");
    inlet.choices = kInlets;
    Relay(inlet, 0x000F, 1);
    const auto live = [](Setting& row, int selector) {
        row.live = true;
        row.places.push_back({Board::kRelay, 0, 0, selector});
    };
    for (int i = 0; i < 4; ++i) {
        live(table.Number(std::string("changeover.live.") + kValues[i][0],
                          Indexed("txtCurrent", i + 3), kTab, 255, 1,
                          std::string(kValues[i][1]) + ", until a restart."),
             i + 2);
    }
    Setting& live_inlet = table.Add("changeover.live.default_inlet", "optInLive", kTab,
                                    Kind::kChoice, "Preferred inlet until a restart.");
    live_inlet.choices = kInlets;
    live(live_inlet, 6);
}

void AddMacro(Table& table) {
    for (int address = 0x10; address <= 0x7F; ++address) {
        const std::string digits = HexByte(static_cast<std::uint8_t>(address));
        Relay(table.Add("macro." + digits, "", "macro", Kind::kMacroLine,
                        "Instruction of the macro program at address " + digits +
                            ", two bytes in hexadecimal."),
              2 * address, 2);
    }
}

std::vector<Setting> MakeSettings() {
    Table table;
    AddNetwork(table);
    AddPorts(table);
    AddNetworkRest(table);
    AddPrivileges(table);
    AddSecurity(table);
    AddNames(table);
    AddTriggers(table);
    AddSensors(table);
    AddChangeover(table);
    AddMacro(table);
    return std::move(table.rows);
}

using Index = std::map<std::string, const Setting*, std::less<>>;

const Index& ByKey() {
    static const Index index = [] {
        Index made;
        for (const Setting& setting : Settings()) made[setting.key] = &setting;
        return made;
    }();
    return index;
}

const Index& ByControl() {
    static const Index index = [] {
        Index made;
        for (const Setting& setting : Settings()) {
            if (!setting.IsMacro()) made[setting.control] = &setting;
        }
        return made;
    }();
    return index;
}

// Levenshtein's distance.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t above = row[j];
            row[j] =
                std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

}  // namespace

const std::vector<Setting>& Settings() {
    static const std::vector<Setting> settings = MakeSettings();
    return settings;
}

const Setting* FindSetting(std::string_view key) {
    const auto found = ByKey().find(key);
    return found == ByKey().end() ? nullptr : found->second;
}

const Setting* SettingOfControl(std::string_view control) {
    if (const auto found = ByControl().find(control); found != ByControl().end()) {
        return found->second;
    }
    const auto group = ByControl().find(control.substr(0, control.find('(')));
    return group == ByControl().end() ? nullptr : group->second;
}

std::string NearestKey(std::string_view key) {
    // Of a text longer than any key the rest says nothing.
    constexpr std::size_t kLongest = 60;
    key = key.substr(0, kLongest);
    const Setting* nearest = nullptr;
    std::size_t least = 0;
    for (const Setting& setting : Settings()) {
        const std::size_t distance = Distance(key, setting.key);
        if (nearest && distance >= least) continue;
        nearest = &setting;
        least = distance;
    }
    return nearest->key;
}

bool KeyMatches(std::string_view key, std::string_view prefix) {
    return key.substr(0, prefix.size()) == prefix &&
           (key.size() == prefix.size() || key[prefix.size()] == '.' ||
            (!prefix.empty() && prefix.back() == '.'));
}

std::string KindInWords(const Setting& setting) {
    switch (setting.kind) {
        case Kind::kText:
            return setting.secret ? "secret text" : "text";
        case Kind::kQuad:
            return "quad";
        case Kind::kNumber:
            return "number";
        case Kind::kSwitch:
            return "switch";
        case Kind::kChoice:
            return "choice";
        case Kind::kHexKey:
            return "hex key";
        case Kind::kHexByte:
            return "hex byte";
        case Kind::kMacroLine:
            break;
    }
    return "macro line";
}

}  // namespace kestrane
