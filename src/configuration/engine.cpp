#include "configuration/engine.h"

#include <algorithm>

#include "configuration/file.h"
#include "configuration/typing.h"
#include "configuration/web_levels.h"
#include "link/frame.h"
#include "text/text.h"

namespace kestrane {
namespace {

using Result = ApplyReport::Result;

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
        Typing typing(session_, request_, report_);
        if (!session_.Connect() || !typing.Run()) return Failed();
        if (!typing.refusals().empty()) return Refused(typing.refusals());
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
    ApplyReport End(Result result) {
        report_.result = result;
        return std::move(report_);
    }

    ApplyReport Failed() {
        report_.error = session_.Failure();
        const bool writes = !request_.compare_only && !request_.dry_run;
        for (SettingChange& change : report_.changes) {
            if (writes) change.state = SettingState::kNotBegun;
        }
        return End(Result::kFailed);
    }

    ApplyReport Refused(const std::vector<std::string>& refusals) {
        for (const std::string& refusal : refusals) {
            report_.error += (report_.error.empty() ? "" : "; ") + refusal;
        }
        report_.error += "; nothing was written";
        return End(Result::kRefused);
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
        AddOldValues(values, left_out);
        for (const auto& row : values) secret = secret || row.first->secret;
        const auto fault =
            disk.Replace(request_.undo_file, WriteConfiguration({}, values, left_out),
                         secret ? FileStore::Readers::kOwner : FileStore::Readers::kEveryone);
        if (!fault) return {};
        return "cannot write " + request_.undo_file + ": " + *fault + "; nothing was written";
    }

    // An upload clears the second byte at 7F, so that it is refused as a change.
    static SettingValue ValueToGoBackTo(const SettingChange& change) {
        if (change.setting->key != "macro.7F") return *change.before;
        return std::get<std::string>(*change.before).substr(0, 3) + "00";
    }

    // What a file may hold of what stands now; the values that are there already stay.
    void AddOldValues(SettingValues& values, LeftOut& left_out) const {
        constexpr char kNotGivenBack[] = "the unit does not give it back";
        for (const SettingChange& change : report_.changes) {
            const Setting& setting = *change.setting;
            if (values.count(&setting)) continue;
            const auto fault = change.before ? CheckValue(setting, *change.before) : std::nullopt;
            if (change.before && !fault) {
                values.emplace(&setting, ValueToGoBackTo(change));
            } else {
                left_out[&setting] = fault ? "it " + *fault : kNotGivenBack;
            }
            // Closing a web level takes its password with it.
            if (std::string_view(setting.tab) != "security" || setting.write_only) continue;
            const int level = LevelOf(tool_, setting);
            if (StateOfWebLevel(tool_, level) != WebLevel::kPassword) continue;
            const TextBox& password = tool_.main_form.security.txtWebPassword(level);
            left_out[SettingOfControl(password.name())] = kNotGivenBack;
        }
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
            if (rights || !ChangesBlocksOf(report_, tab)) continue;
            if (tab.kind == TabKind::kSettings && !session_.Write(tab)) return false;
            if (tab.kind == TabKind::kMacro && !session_.WriteProgram(NewProgram())) return false;
        }
        const TabRow& rights = *FindTab("privileges");
        if (ChangesBlocksOf(report_, rights) && !session_.Write(rights)) return false;
        return WriteUnitID();
    }

    bool WriteChangeover() {
        std::vector<std::string> done;
        for (const SettingChange& change : report_.changes) {
            if (!FindTab("changeover")->Holds(*change.setting)) continue;
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
                return tab.Holds(*change.setting) && change.state != SettingState::kNotBegun;
            });
    }

    bool ReadAgain(const TabRow& tab) {
        if (session_.Read(tab)) return true;
        if (report_.error.empty()) report_.error = "reading back: " + session_.Failure();
        return false;
    }

    void Verify(const TabRow& tab) {
        for (SettingChange& change : report_.changes) {
            if (!tab.Holds(*change.setting) || change.state == SettingState::kNotBegun) continue;
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
        const auto holds = WebLevelHolds(tool_, LevelOf(tool_, *change.setting),
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
        const bool wanted = ChangesBlocksOf(report_, *FindTab("network")) ||
                            ChangesBlocksOf(report_, *FindTab("names"));
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
    std::uint64_t first_exchange_ = 0;
};

}  // namespace

ApplyReport Apply(UnitSession& session, const ApplyRequest& request) {
    return Application(session, request).Run();
}

}  // namespace kestrane
