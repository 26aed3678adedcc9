#include "configuration/engine.h"

#include <algorithm>

#include "configuration/screen_values.h"
#include "configuration/web_levels.h"
#include "link/frame.h"
#include "text/text.h"

namespace kestrane {
namespace {

using Result = ApplyReport::Result;

bool MatchesAny(const Setting& setting, const std::vector<std::string>& prefixes) {
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&](const std::string& prefix) { return KeyMatches(setting.key, prefix); });
}

bool IsOn(const Setting& setting, const TabRow& tab) {
    return std::string_view(setting.tab) == tab.name;
}

bool IsUnitID(const Setting& setting) { return setting.key == "unit.id"; }

bool IsRelayBoard(int board) { return board <= 4 || board == 250 || board == 0x61; }

// Whether the write carries the place.
bool Covers(const Exchange& exchange, const SettingPlace& place) {
    if (place.live_selector != 0) {
        if (exchange.command != kWriteLiveData) return false;
        for (std::size_t i = 0; i + 1 < exchange.data.size(); i += 2) {
            if (exchange.data[i] == place.live_selector) return true;
        }
        return false;
    }
    if (exchange.command == kWriteUnitID) return place.address == 0x0004;
    const bool same_board =
        IsRelayBoard(exchange.board) == (place.board == SettingPlace::Board::kRelay);
    return exchange.command == kWriteMemory && same_board && exchange.address <= place.address &&
           place.address + place.count <= exchange.address + exchange.count;
}

// One way through a unit.
class Application {
  public:
    Application(UnitSession& session, const ApplyRequest& request)
        : session_(session), tool_(session.tool()), request_(request) {
        report_.unit = session.Address();
    }

    ApplyReport Run() {
        SelectWanted();
        if (!session_.Connect() || !ReadAndType()) return Failed();
        if (!refusals_.empty()) return Refused();
        if (report_.changes.empty()) return std::move(report_);
        report_.result = Result::kDifferent;
        if (request_.compare_only || request_.dry_run) return std::move(report_);
        if (request_.go_on && !request_.go_on(report_)) {
            report_.declined = true;
            return std::move(report_);
        }
        if (auto why = WriteUndo()) {
            report_.error = *why;
            return End(Result::kRefused);
        }
        Write();
        return std::move(report_);
    }

  private:
    struct Wanted {
        SettingValue value;
        std::string left_alone;  // why; empty: it counts
    };

    ApplyReport End(Result result) {
        report_.result = result;
        return std::move(report_);
    }

    ApplyReport Failed() {
        report_.error = session_.Failure();
        return End(Result::kFailed);
    }

    ApplyReport Refused() {
        for (const std::string& refusal : refusals_) {
            report_.error += (report_.error.empty() ? "" : "; ") + refusal;
        }
        report_.error += "; nothing was written";
        return End(Result::kRefused);
    }

    void SelectWanted() {
        for (const auto& [setting, value] : request_.wanted) {
            if (!request_.filter.Names(*setting)) continue;
            wanted_[setting] = {value, request_.filter.LeftAlone(*setting)};
        }
        for (const auto& [setting, value] : request_.own) {
            if (request_.filter.Names(*setting)) wanted_[setting] = {value, {}};
        }
    }

    bool Touches(const TabRow& tab) const {
        return std::any_of(wanted_.begin(), wanted_.end(),
                           [&](const auto& row) { return IsOn(*row.first, tab); });
    }

    // Leaving a tab and coming back may leave its frames disabled, and leaving the changeover tab
    // clears it: each tab is read and typed at one go, and that one comes last on the screen.
    bool ReadAndType() {
        const TabRow& network = *FindTab("network");
        if (!session_.Read(network)) return false;
        for (const TabRow& tab : TabRows()) {
            if (!Touches(tab)) continue;
            if (session_.Missing(tab)) {
                LeaveTabAlone(tab);
                continue;
            }
            const bool read = &tab == &network ? session_.SelectTab(tab) : session_.Read(tab);
            if (!read) return false;
            Compare(tab);
            if (!request_.compare_only) Type(tab);
        }
        InTableOrder();
        return true;
    }

    void LeaveTabAlone(const TabRow& tab) {
        for (const auto& [setting, wanted] : wanted_) {
            if (IsOn(*setting, tab)) {
                report_.left_alone.push_back({setting, {}, wanted.value, kNotOnThisUnit});
            }
        }
    }

    // A password is compared by what the unit holds of it.
    bool Holds(const Setting& setting, const ShownValue& shown, const SettingValue& value) const {
        if (setting.write_only) {
            return WebLevelHolds(tool_, LevelOf(setting), std::get<std::string>(value)) == true;
        }
        return shown.value && SameSetting(setting, *shown.value, value);
    }

    int LevelOf(const Setting& setting) const {
        return tool_.main_form.Find(setting.control)->index();
    }

    void Compare(const TabRow& tab) {
        before_.clear();
        for (const Setting& setting : Settings()) {
            if (!IsOn(setting, tab)) continue;
            before_[&setting] = ValueOnScreen(tool_, setting, session_.Program());
        }
        for (const auto& [setting, wanted] : wanted_) {
            if (!IsOn(*setting, tab)) continue;
            const ShownValue shown = ValueOnScreen(tool_, *setting, session_.Program());
            if (Holds(*setting, shown, wanted.value)) continue;
            std::string why = wanted.left_alone;
            if (shown.why_not == kNotOnThisUnit) why = kNotOnThisUnit;
            if (why.empty() && setting->key.starts_with("privileges.") && !shown.value) {
                refusals_.push_back(setting->key + ": " + shown.why_not);
                continue;
            }
            if (why.empty()) {
                report_.changes.push_back({setting, shown.value, wanted.value, {}, {}});
            } else {
                report_.left_alone.push_back({setting, shown.value, wanted.value, why});
            }
        }
    }

    void InTableOrder() {
        const auto earlier = [](const auto& a, const auto& b) { return a.setting < b.setting; };
        std::stable_sort(report_.changes.begin(), report_.changes.end(), earlier);
        std::stable_sort(report_.left_alone.begin(), report_.left_alone.end(), earlier);
    }

    // Values of a tab may depend on each other, as rights that imply others do: what does not stand
    // yet is typed again.
    void Type(const TabRow& tab) {
        std::vector<const SettingChange*> changes;
        for (const SettingChange& change : report_.changes) {
            if (IsOn(*change.setting, tab)) changes.push_back(&change);
        }
        if (changes.empty()) return;
        if (tab.kind == TabKind::kMacro) return;  // put in when it is written
        if (std::string_view(tab.name) == "security") TypeOtherLevels();
        std::map<const SettingChange*, Refusal> refused;
        constexpr int kPasses = 3;
        for (int pass = 0; pass < kPasses; ++pass) {
            for (const SettingChange* change : changes) {
                if (pass > 0 && !CheckTyped(tool_, *change->setting, change->after)) continue;
                refused[change] = TypeSetting(tool_, *change->setting, change->after);
            }
        }
        const bool id_refused = !tool_.main_form.network.cmdUnitID.Enabled();
        for (const SettingChange* change : changes) {
            if (IsUnitID(*change->setting) && id_refused) {
                refusals_.push_back("unit.id: an ID is hexadecimal, 00 to 61");
            }
            const Refusal standing = CheckTyped(tool_, *change->setting, change->after);
            if (!standing) continue;
            refusals_.push_back(refused[change] ? *refused[change] : *standing);
        }
        if (refusals_.empty()) FindSideEffects(tab);
        CheckTabTogether(tab);
    }

    // One salt serves all levels, so that a write sends all three: those that stay are typed as the
    // unit holds them.
    void TypeOtherLevels() {
        SecurityTab& tab = tool_.main_form.security;
        for (int level = 0; level < 3; ++level) {
            TextBox& box = tab.txtWebPassword(level);
            CheckBox& closed = tab.chkWebSecurityDisable(level);
            const Setting& password = *SettingOfControl(box.name());
            const bool changes = Changes(*SettingOfControl(closed.name()));
            const auto wanted = wanted_.find(&password);
            const bool known = wanted != wanted_.end() && wanted->second.left_alone.empty();
            if (Changes(password)) continue;
            if (!changes && StateOfWebLevel(tool_, level) == WebLevel::kClosed) {
                tool_.hand.Click(closed);
            } else if (changes || StateOfWebLevel(tool_, level) == WebLevel::kOpen) {
                tool_.hand.Type(box, "");
            } else if (known) {
                tool_.hand.Type(box, std::get<std::string>(wanted->second.value));
            }
        }
        tool_.hand.Leave();
    }

    // What a change brings about by itself belongs to it, unless the other was wanted: a trigger
    // without an address is disabled, who may write the other ports' rights may read them.
    void FindSideEffects(const TabRow& tab) {
        const std::string_view name = tab.name;
        for (const auto& [setting, before] : before_) {
            if (Changes(*setting) || setting->write_only || !before.value) continue;
            const auto standing = name == "security" ? ClosedOnScreen(*setting)
                                                     : ValueOnScreen(tool_, *setting, {}).value;
            if (!standing || SameSetting(*setting, *standing, *before.value)) continue;
            const auto wanted = wanted_.find(setting);
            if (wanted != wanted_.end() && wanted->second.left_alone.empty()) {
                refusals_.push_back(setting->key + ": \"" +
                                    ShownSetting(*setting, wanted->second.value) +
                                    "\" can't stand beside the other values");
            } else {
                report_.changes.push_back({setting, before.value, *standing, {}, {}});
            }
        }
    }

    std::optional<SettingValue> ClosedOnScreen(const Setting& setting) const {
        return SettingValue(
            static_cast<CheckBox*>(tool_.main_form.Find(setting.control))->Checked());
    }

    bool Changes(const Setting& setting) const {
        return std::any_of(report_.changes.begin(), report_.changes.end(),
                           [&](const SettingChange& change) { return change.setting == &setting; });
    }
    bool ChangesBlocksOf(const TabRow& tab) const {
        return std::any_of(report_.changes.begin(), report_.changes.end(),
                           [&](const SettingChange& change) {
                               return IsOn(*change.setting, tab) && !IsUnitID(*change.setting);
                           });
    }

    // What the tool would let pass, though the write would do something else than was asked.
    void CheckTabTogether(const TabRow& tab) {
        if (!ChangesBlocksOf(tab)) return;
        const std::string name = tab.name;
        if (name == "network") CheckNetwork();
        if (name == "security") CheckPasswords();
        if (name == "privileges") CheckColumns();
    }

    // A write would do nothing while any of the five addresses is red, and would not say so.
    void CheckNetwork() {
        NetworkTab& net = tool_.main_form.network;
        for (const TextBox* box : {&net.txtIPAddress, &net.txtSubnetMask, &net.txtDefaultGateway,
                                   &net.txtPrimaryDNS, &net.txtSecondaryDNS}) {
            const Setting& setting = *SettingOfControl(box->name());
            const auto standing = CheckTyped(tool_, setting, SettingValue(box->Text()));
            if (!standing || Changes(setting)) continue;
            refusals_.push_back(setting.key + ": \"" + box->Text() +
                                "\", which the unit holds, is not a valid address; set it as well");
        }
        bool any = net.chkARPReset.Checked();
        for (CheckBox& box : net.chkARP) any = any || box.Checked();
        if (net.cmbARPtime.ListIndex() == 2 && !any) {
            refusals_.push_back(
                "arp.repeat: \"1 minute\" without an ARP switch leaves a unit that can't be read; "
                "switch one on or take another time");
        }
    }

    // A level left at its stars would get them as its password.
    void CheckPasswords() {
        constexpr char kStars[] = "******";
        for (TextBox& box : tool_.main_form.security.txtWebPassword) {
            const Setting& setting = *SettingOfControl(box.name());
            if (box.Text() != kStars || Changes(setting)) continue;
            refusals_.push_back(setting.key +
                                ": all three levels need to be set together; give it as well, or "
                                "close the level");
        }
    }

    // The write sends every column that the port may write, read or not.
    void CheckColumns() {
        PrivilegesTab& tab = tool_.main_form.privileges;
        constexpr int kWriteOthers = 4;
        const int own = tool_.session.ConnectedPortIndex;
        for (const int half : {1100, 1200}) {
            const int rights = IntegerValue(tab.lblPrivByte(half + 10 * own).Caption());
            for (int port = 1; port <= 3; ++port) {
                const bool unread = tab.lblPrivByte(half + 10 * port).Caption() == "-";
                if (!unread || (rights & kWriteOthers) == 0) continue;
                refusals_.push_back(
                    std::string("privileges of port ") + static_cast<char>('A' + port - 1) +
                    ": they can't be read on this port, and a write would clear them; connect on "
                    "another control port");
            }
        }
    }

    // The file is complete on the disk before the first write. One that is there keeps its values.
    std::optional<std::string> WriteUndo() {
        if (request_.undo_file.empty()) return {};
        SettingValues values;
        LeftOut left_out;
        FileStore& disk = tool_.link.platform().disk;
        const FileStore::Content old = disk.Read(request_.undo_file);
        if (!old.error) {
            const ConfigurationText text = ReadConfiguration(old.bytes);
            if (!text.faults.empty()) {
                return text.faults.front().Line(request_.undo_file) +
                       "; it is not an undo file, nothing was written";
            }
            values = text.values;
        }
        bool secret = false;
        for (const SettingChange& change : report_.changes) {
            if (change.before) {
                values.emplace(change.setting, *change.before);
            } else if (!values.count(change.setting)) {
                left_out[change.setting] = "the unit does not give it back";
            }
        }
        for (const auto& row : values) secret = secret || row.first->secret;
        const auto fault =
            disk.Replace(request_.undo_file, WriteConfiguration({}, values, left_out),
                         secret ? FileStore::Readers::kOwner : FileStore::Readers::kEveryone);
        if (!fault) return {};
        return "cannot write " + request_.undo_file + ": " + *fault + "; nothing was written";
    }

    void Write() {
        first_exchange_ = LastExchange();
        const bool written = WriteAll();
        if (!written) report_.error = session_.Failure();
        for (SettingChange& change : report_.changes) change.state = StateOf(change);
        ReadBack();
        const bool good = written && report_.error.empty() && report_.Failed() == 0;
        report_.result = good ? Result::kChanged : Result::kFailed;
        if (report_.error.empty() && !good) report_.error = WhatWasNotTaken();
        if (good && request_.reset) Reset();
    }

    std::uint64_t LastExchange() const {
        const auto& exchanges = tool_.link.journal().exchanges();
        return exchanges.empty() ? 0 : exchanges.back().number;
    }

    // Changeover first, as its tab is still selected; the rights late, as they can take away the
    // right to write the rest; the ID last, as the unit then has another address.
    bool WriteAll() {
        if (!WriteChangeover()) return false;
        for (const TabRow& tab : TabRows()) {
            const bool rights = std::string_view(tab.name) == "privileges";
            if (rights || !ChangesBlocksOf(tab)) continue;
            if (tab.kind == TabKind::kSettings && !session_.Write(tab)) return false;
            if (tab.kind == TabKind::kMacro && !session_.WriteProgram(NewProgram())) return false;
        }
        const TabRow& rights = *FindTab("privileges");
        if (ChangesBlocksOf(rights) && !session_.Write(rights)) return false;
        return WriteUnitID();
    }

    bool WriteChangeover() {
        std::vector<std::string> done;
        for (const SettingChange& change : report_.changes) {
            if (!IsOn(*change.setting, *FindTab("changeover"))) continue;
            const std::string button = SaveButtonOf(*change.setting);
            if (std::find(done.begin(), done.end(), button) != done.end()) continue;
            const std::string name =
                std::string(button.ends_with("(0)") ? "Save Changeover Options as "
                                                    : "Save Default Inlet as ") +
                (button.starts_with("cmdSaveCurrent") ? "Live" : "Startup");
            if (!session_.Press(*tool_.main_form.Find(button), name)) return false;
            done.push_back(button);
        }
        return true;
    }

    MacroMemory NewProgram() const {
        MacroMemory program = session_.Program();
        for (const SettingChange& change : report_.changes) {
            if (!change.setting->IsMacro()) continue;
            const auto& line = std::get<std::string>(change.after);
            const auto at = static_cast<std::size_t>(2 * HexValue(change.setting->key.substr(6)));
            program.Set(at, HexValue(line.substr(0, 2)));
            program.Set(at + 1, HexValue(line.substr(3, 2)));
        }
        return program;
    }

    // The network write has disabled its button; typing the ID enables it.
    bool WriteUnitID() {
        const Setting& setting = *FindSetting("unit.id");
        for (const SettingChange& change : report_.changes) {
            if (change.setting != &setting) continue;
            NetworkTab& net = tool_.main_form.network;
            if (!session_.SelectTab(*FindTab("network"))) return false;
            tool_.hand.Type(net.txtUnitID, std::get<std::string>(change.after));
            if (!session_.Press(net.cmdUnitID, "Write Unit ID")) return false;
        }
        return true;
    }

    SettingState StateOf(const SettingChange& change) const {
        bool all = true;
        bool any = false;
        bool refused = false;
        for (const SettingPlace& place : change.setting->places) {
            bool accepted = false;
            for (const Exchange& exchange : tool_.link.journal().exchanges()) {
                if (exchange.number <= first_exchange_ || !Covers(exchange, place)) continue;
                any = any || exchange.times_sent > 0;
                refused = refused || exchange.end == Exchange::End::kRefused;
                accepted = accepted || exchange.Accepted();
            }
            all = all && accepted;
        }
        if (all) return SettingState::kWritten;
        if (refused) return SettingState::kNotTaken;
        return any ? SettingState::kUnverified : SettingState::kNotBegun;
    }

    // What was sent is read again, whatever became of the rest.
    void ReadBack() {
        if (!tool_.link.Connected() || session_.Interrupted()) return;
        tool_.hand.Click(tool_.main_form.OptButID(250));
        const TabRow& network = *FindTab("network");
        bool network_read = false;
        for (const TabRow& tab : TabRows()) {
            if (!WasSent(tab)) continue;
            // After a failed write only a read of the settings opens the other tabs again.
            if (!network_read && &tab != &network && !report_.error.empty()) {
                if (!ReadAgain(network)) return;
                network_read = true;
            }
            if (!ReadAgain(tab)) return;
            network_read = network_read || &tab == &network;
            Verify(tab);
        }
    }

    bool WasSent(const TabRow& tab) const {
        return std::any_of(
            report_.changes.begin(), report_.changes.end(), [&](const SettingChange& change) {
                return IsOn(*change.setting, tab) && change.state != SettingState::kNotBegun;
            });
    }

    bool ReadAgain(const TabRow& tab) {
        if (session_.Read(tab)) return true;
        if (report_.error.empty()) report_.error = "reading back: " + session_.Failure();
        return false;
    }

    void Verify(const TabRow& tab) {
        for (SettingChange& change : report_.changes) {
            if (!IsOn(*change.setting, tab) || change.state == SettingState::kNotBegun) continue;
            const ShownValue shown = ValueOnScreen(tool_, *change.setting, session_.Program());
            change.reads = shown.value;
            if (change.setting->write_only) {
                VerifyPassword(change);
            } else if (!shown.value) {
                change.state = SettingState::kUnverified;
            } else if (SameSetting(*change.setting, *shown.value, change.after)) {
                change.state = SettingState::kVerified;
            } else {
                change.state = SettingState::kNotTaken;
            }
        }
    }

    void VerifyPassword(SettingChange& change) const {
        const auto holds = WebLevelHolds(tool_, LevelOf(*change.setting),
                                         std::get<std::string>(change.after));
        change.state = !holds   ? SettingState::kUnverified
                       : *holds ? SettingState::kVerified
                                : SettingState::kNotTaken;
    }

    std::string WhatWasNotTaken() const {
        std::string keys;
        for (const SettingChange& change : report_.changes) {
            if (change.state != SettingState::kNotTaken) continue;
            keys += (keys.empty() ? "" : ", ") + change.setting->key;
        }
        return "the unit did not take " + keys + "; check the rights of the port, and try again";
    }

    void Reset() {
        const bool wanted =
            ChangesBlocksOf(*FindTab("network")) || ChangesBlocksOf(*FindTab("names"));
        if (!wanted || !session_.SelectTab(*FindTab("network"))) return;
        if (auto refusal = tool_.hand.Click(tool_.main_form.network.cmdResetEthernet)) {
            report_.error = "Reset Ethernet Processor: " + *refusal;
            report_.result = Result::kFailed;
        }
    }

    UnitSession& session_;
    Tool& tool_;
    const ApplyRequest& request_;
    ApplyReport report_;
    std::map<const Setting*, Wanted> wanted_;
    std::map<const Setting*, ShownValue> before_;  // of the tab that is being typed
    std::vector<std::string> refusals_;
    std::uint64_t first_exchange_ = 0;
};

}  // namespace

bool SettingFilter::Names(const Setting& setting) const {
    return (only.empty() || MatchesAny(setting, only)) && !MatchesAny(setting, except);
}

std::string SettingFilter::LeftAlone(const Setting& setting) const {
    if (setting.identity && !identity) return "identity";
    if (setting.live && !live) return "live";
    return {};
}

const char* StateInWords(SettingState state) {
    switch (state) {
        case SettingState::kPlanned:
            return "planned";
        case SettingState::kWritten:
            return "written";
        case SettingState::kVerified:
            return "verified";
        case SettingState::kUnverified:
            return "unverified";
        case SettingState::kNotTaken:
            return "not taken";
        case SettingState::kNotBegun:
            break;
    }
    return "not begun";
}

const char* ResultInWords(ApplyReport::Result result) {
    switch (result) {
        case Result::kSame:
            return "same";
        case Result::kDifferent:
            return "different";
        case Result::kChanged:
            return "changed";
        case Result::kRefused:
            return "refused";
        case Result::kFailed:
            return "failed";
        case Result::kNotBegun:
            break;
    }
    return "not begun";
}

int ApplyReport::CountOf(SettingState state) const {
    return static_cast<int>(
        std::count_if(changes.begin(), changes.end(),
                      [&](const SettingChange& change) { return change.state == state; }));
}

int ApplyReport::Failed() const {
    return CountOf(SettingState::kNotTaken) + CountOf(SettingState::kNotBegun);
}

ApplyReport Apply(UnitSession& session, const ApplyRequest& request) {
    return Application(session, request).Run();
}

Backup ReadBackup(UnitSession& session, bool with_secrets) {
    Backup backup;
    const auto fail = [&] {
        backup.error = session.Failure();
        return backup;
    };
    if (!session.Connect() || !session.Read(*FindTab("network")) || !session.ReadFacts()) {
        return fail();
    }
    Tool& tool = session.tool();
    const FirmwareTab& firmware = tool.main_form.firmware;
    backup.unit = {firmware.lblType.Caption(), firmware.lblSerialNo.Caption(),
                   firmware.lblRelayVersion.Caption(), firmware.lblDisplayVersion.Caption()};
    for (const TabRow& tab : TabRows()) {
        const bool missing = session.Missing(tab);
        const bool network = tab.page == 0;
        if (tab.kind == TabKind::kFirmware) continue;
        if (!missing && !network && !session.Read(tab)) return fail();
        for (const Setting& setting : Settings()) {
            if (!IsOn(setting, tab)) continue;
            const ShownValue shown =
                missing ? ShownValue{{}, kNotOnThisUnit}
                        : ValueOnScreen(tool, setting, session.Program());
            if (setting.secret && !with_secrets && shown.value) {
                backup.left_out[&setting] = "secret";
            } else if (shown.value) {
                backup.values[&setting] = *shown.value;
            } else {
                backup.left_out[&setting] = shown.why_not;
            }
        }
    }
    return backup;
}

ApplyReport CompareValues(const SettingValues& before, const SettingValues& after,
                          const SettingFilter& filter) {
    ApplyReport report;
    for (const auto& [setting, value] : after) {
        const auto old = before.find(setting);
        if (old == before.end() || !filter.Names(*setting)) continue;
        if (SameSetting(*setting, old->second, value)) continue;
        const std::string why = filter.LeftAlone(*setting);
        if (why.empty()) {
            report.changes.push_back({setting, old->second, value, {}, {}});
        } else {
            report.left_alone.push_back({setting, old->second, value, why});
        }
    }
    if (!report.changes.empty()) report.result = Result::kDifferent;
    return report;
}

}  // namespace kestrane
