#include "features/one_wire.h"

#include <array>
#include <optional>

#include "link/long_operation.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kSlots = OneWireTab::kSlots;

// Other functions of command 0x82, and the one of 0x81.
constexpr int kClear = 0x02;
constexpr int kCommit = 0x03;
constexpr int kMinMax = 0x02;

// On the relay board: 16 records of 9 bytes, packed without regard to the blocks of 16.
constexpr int kCommittedTable = 0x0200;
constexpr int kCommittedBlocks = 9;

// On the display board: two names of 8 characters in each block, padded with blanks.
constexpr int kNameTable = 0x0160;
constexpr int kNameBlocks = 8;
constexpr std::size_t kNameLength = 8;

constexpr char kNotFitted[] = "No Sensor fitted";
constexpr char kNotCommitted[] = "No Sensor committed";
// What the comparison looks for. Spelt with one "m" it is never found. It is meant so.
constexpr char kNotCommittedSought[] = "No Sensor comitted";
constexpr char kOldFirmware[] = "Firmware >= 1.4.3";

// A sensor record:
//
//   0                  7        8
//   address ... family | sub-type
constexpr std::size_t kAddressLength = 8;
constexpr std::size_t kRecordLength = 9;

// "3F0000019A4C7126", or nothing for a record whose address ends in 0xFF: an empty slot.
std::optional<std::string> DecodeAddress(std::string_view record) {
    std::string address = HexText(record.substr(0, kAddressLength));
    if (address.ends_with("FF")) return {};
    return address;
}

// The undoubled reply to a live read, by positions:
//
//   1   3         4   5   6   7 .. 14   15         16
//   DLE STX board 82  01  n   address   sub-type   sensors found
struct LiveReply {
    std::string record;
    int total;
};

std::optional<LiveReply> DecodeLive(std::string_view reply) {
    constexpr std::size_t kRecord = 7;
    constexpr std::size_t kTotal = kRecord + kRecordLength;
    if (reply.size() < kTotal) return {};
    return LiveReply{Mid(reply, kRecord, kRecordLength), ByteAt(reply, kTotal)};
}

struct Names {
    std::string first;
    std::string second;
};

Names DecodeNames(std::string_view block) {
    return {Trim(Mid(block, 1, kNameLength)), Trim(Mid(block, 1 + kNameLength, kNameLength))};
}

std::string EncodeNames(const Names& names) {
    return Mid(PadRight(names.first, kNameLength), 1, kNameLength) +
           Mid(PadRight(names.second, kNameLength), 1, kNameLength);
}

std::string Progress(const char* doing, int number, int total) {
    return doing + Str(number) + " of " + std::to_string(total);
}

struct TypeRow {
    int family;
    int sub_type;
    const char* type;
};

// clang-format off
constexpr TypeRow kTypes[] = {
    {0x28, 0x00, "T"},
    {0x28, 0x01, "TS-1"}, {0x28, 0x02, "TS-2"}, {0x28, 0x03, "TS-3"},
    {0x28, 0x04, "TS-4"}, {0x28, 0x05, "TS-5"}, {0x28, 0x06, "TS-6"},
    {0x26, 0x00, "MS-T"}, {0x26, 0x19, "MS-TH"}, {0x26, 0x1B, "MS-TL"},
};
// clang-format on

}  // namespace

std::string SensorType(int family, int sub_type) {
    bool known_family = false;
    for (const TypeRow& row : kTypes) {
        if (row.family != family) continue;
        if (row.sub_type == sub_type) return row.type;
        known_family = true;
    }
    return known_family ? "??" : "";
}

// The frame of every operation of this tab. All but the read button comes back for an administrator
// only, and what an old unit lacks not even then.
class OneWire::Busy {
  public:
    enum class Labels { kEnable, kLeave };

    Busy(OneWire& topic, const char* name, Labels labels = Labels::kEnable)
        : topic_(topic),
          labels_(labels),
          operation_(
              topic.form_, topic.link_, name,
              {&topic.tab_.fra1WireSettings, &topic.tab_.cmdResetMinMax, &topic.tab_.cmdRead1WNames,
               &topic.tab_.cmdWrite1WNames, &topic.form_.network.cmdResetEthernet,
               &topic.tab_.cmdRead1WLive, &topic.tab_.cmd1WireClear, &topic.tab_.cmd1WireCommit},
              {&topic.tab_.cmdRead1WNames}) {}

    ~Busy() {
        if (!Stale()) topic_.EnableForAdmin();
        if (labels_ == Labels::kLeave) return;
        EnableLabels(topic_.form_, "fra1WireSettings");
        EnableLabels(topic_.form_, "fraSensorTypes");
    }

    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

    bool Stale() const { return operation_.Stale(); }
    void PlanWrites(int blocks) { operation_.operation().PlanWrites(blocks); }
    // Units before 1.4.3 give no live addresses; the rest of the operation is as good without.
    void PassOverLive() {
        operation_.operation().Skip("live addresses", "the unit does not give them");
        operation_.operation().Forgive();
    }

  private:
    OneWire& topic_;
    Labels labels_;
    LongOperation operation_;
};

OneWire::OneWire(MainForm& form, Session& session, Link& link)
    : form_(form), tab_(form.one_wire), session_(session), link_(link) {
    tab_.cmdRead1WNames.on_click = [this] { cmdRead1WNames_Click(); };
    tab_.cmdWrite1WNames.on_click = [this] { cmdWrite1WNames_Click(); };
    tab_.cmdRead1WLive.on_click = [this] { cmdRead1WLive_Click(); };
    tab_.cmd1WireClear.on_click = [this] { cmd1WireClear_Click(); };
    tab_.cmd1WireCommit.on_click = [this] { cmd1WireCommit_Click(); };
    tab_.cmdResetMinMax.on_click = [this] { cmdResetMinMax_Click(); };
    for (TextBox& name : tab_.txt1WName) {
        name.on_got_focus = [&name] { SelectAllText(name); };
    }
}

void OneWire::EnableForAdmin() {
    if (!session_.AdminLoggedIn) return;
    tab_.fra1WireSettings.SetEnabled(true);
    tab_.cmdWrite1WNames.SetEnabled(true);
    form_.network.cmdResetEthernet.SetEnabled(true);
    if (!session_.OneWireUnsupported) {
        for (Button* button : {&tab_.cmdRead1WLive, &tab_.cmd1WireClear, &tab_.cmd1WireCommit,
                               &tab_.cmdResetMinMax}) {
            button->SetEnabled(true);
        }
    }
    form_.SetFocus(tab_.txt1WName(0));
}

void OneWire::cmdRead1WNames_Click() {
    if (!link_.Connected()) return;
    Busy busy(*this, "Read 1-Wire Settings");
    Clear1WireFields(form_);
    session_.known.sensor_names = false;
    if (!ReadNames() || !ReadCommittedSensors()) return;
    ReadLive(busy);
    if (!busy.Stale() && session_.AdminLoggedIn) session_.OneWireRead = true;
}

bool OneWire::ReadNames() {
    for (int block = 0; block < kNameBlocks; ++block) {
        form_.lblMemoryBlock.SetCaption(Progress("Reading 1-Wire Name", block + 1, kNameBlocks));
        const auto data = link_.Read(session_.DisplayAddress, kNameTable + kBlockSize * block);
        if (!data) return false;
        const Names names = DecodeNames(*data);
        tab_.txt1WName(2 * block).SetText(names.first);
        tab_.txt1WName(2 * block + 1).SetText(names.second);
    }
    session_.known.sensor_names = true;
    return true;
}

void OneWire::cmdWrite1WNames_Click() {
    if (!link_.Connected()) return;
    if (!KnownForWriting(link_, session_.known.sensor_names, "Write 1-Wire Names",
                         "1-Wire names")) {
        return;
    }
    Busy busy(*this, "Write 1-Wire Names");
    busy.PlanWrites(kNameBlocks);
    if (WriteNames()) form_.lblMemoryBlock.SetCaption("Writing 1-Wire Names complete");
}

// All blocks are made before the first is sent.
bool OneWire::WriteNames() {
    std::array<std::string, kNameBlocks> blocks;
    for (int k = 0; k < kSlots; k += 2) {
        blocks[static_cast<std::size_t>(k / 2)] =
            EncodeNames({tab_.txt1WName(k).Text(), tab_.txt1WName(k + 1).Text()});
    }
    int number = 0;
    for (const std::string& block : blocks) {
        const int address = kNameTable + kBlockSize * number;
        form_.lblMemoryBlock.SetCaption(Progress("Writing 1-Wire Name", ++number, kNameBlocks));
        if (!link_.Command(WriteCommand(session_.DisplayAddress, address, kBlockSize, block))) {
            return false;
        }
    }
    return true;
}

bool OneWire::ReadCommittedSensors() {
    std::string buffer;
    int slot = 0;
    for (int block = 0; block < kCommittedBlocks; ++block) {
        form_.lblMemoryBlock.SetCaption(
            Progress("Reading 1-Wire Memory", block + 1, kCommittedBlocks));
        const auto data = link_.Read(session_.RelayAddress, kCommittedTable + kBlockSize * block);
        if (!data) return false;
        buffer += *data;
        for (; buffer.size() >= kRecordLength; buffer.erase(0, kRecordLength)) {
            tab_.lbl1We2p(slot++).SetCaption(DecodeAddress(buffer).value_or(kNotCommitted));
        }
    }
    form_.lblMemoryBlock.SetCaption("Reading 1-Wire Memory Complete");
    for (slot = 0; slot < kSlots; ++slot) Compare(slot);
    return true;
}

void OneWire::Compare(int slot) {
    Label& live = tab_.lbl1WAddress(slot);
    const std::string& committed = tab_.lbl1We2p(slot).Caption();
    if (committed != kNotCommittedSought && live.Caption() != kNotFitted) {
        live.SetForeColor(live.Caption() == committed ? kBlack : kRed);
    } else {
        tab_.lbl1WType(slot).SetCaption("");
    }
}

void OneWire::cmdRead1WLive_Click() {
    if (!link_.Connected()) return;
    Busy busy(*this, "Read Live 1-Wire Addresses", Busy::Labels::kLeave);
    ReadLive(busy);
}

void OneWire::ReadLive(Busy& busy) {
    if (!ReadLiveSensors() && !busy.Stale()) {
        for (Label& address : tab_.lbl1WAddress) address.SetCaption(kOldFirmware);
        session_.OneWireUnsupported = true;
        busy.PassOverLive();
    }
    if (!busy.Stale()) form_.lblMemoryBlock.SetCaption("Reading 1-Wire Settings Complete");
}

bool OneWire::ReadLiveSensors() {
    for (int slot = 0; slot < kSlots; ++slot) {
        tab_.lbl1WAddress(slot).SetCaption("");
        tab_.lbl1WType(slot).SetCaption("");
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        form_.lblMemoryBlock.SetCaption(
            Progress("Reading 1-Wire Live Addresses", slot + 1, kSlots));
        if (!link_.Command(
                Bytes({session_.RelayAddress, kOneWireMemory, kOneWireReadLive, slot + 1}))) {
            return false;
        }
        session_.OneWireUnsupported = false;
        link_.RemoveReplyEscapes();
        if (!ShowLive(slot)) break;
    }
    return true;
}

bool OneWire::ShowLive(int slot) {
    const auto reply = DecodeLive(session_.ReplyBuffer);
    if (!reply) return false;
    Label& live = tab_.lbl1WAddress(slot);
    if (const auto address = DecodeAddress(reply->record)) {
        live.SetCaption(*address);
        const std::string type =
            SensorType(ByteAt(reply->record, kAddressLength), ByteAt(reply->record, kRecordLength));
        if (!type.empty()) tab_.lbl1WType(slot).SetCaption(type);
    } else {
        live.SetCaption(kNotFitted);
        live.SetForeColor(kBlack);
    }
    Compare(slot);
    tab_.lbl1WTotal.SetCaption(std::to_string(reply->total));
    return true;
}

bool OneWire::ChangeCommitted(const char* progress, int function) {
    form_.lblMemoryBlock.SetCaption(progress);
    for (Label& committed : tab_.lbl1We2p) committed.SetCaption("");
    return link_.Command(Bytes({session_.RelayAddress, kOneWireMemory, function}));
}

void OneWire::cmd1WireClear_Click() {
    if (!link_.Connected()) return;
    Busy busy(*this, "Clear 1-Wire Addresses");
    if (!ChangeCommitted("Clearing 1-Wire Memory", kClear) || !ReadCommittedSensors()) return;
    ReadLive(busy);
}

void OneWire::cmd1WireCommit_Click() {
    if (!link_.Connected()) return;
    Busy busy(*this, "Commit 1-Wire Addresses");
    if (ChangeCommitted("Committing 1-Wire Memory", kCommit)) ReadCommittedSensors();
}

void OneWire::cmdResetMinMax_Click() {
    if (!link_.Connected()) return;
    Busy busy(*this, "Reset 1-Wire Min/Max", Busy::Labels::kLeave);
    form_.lblMemoryBlock.SetCaption("Resetting 1-Wire min/max");
    if (link_.Command(Bytes({session_.RelayAddress, kOneWireReset, kMinMax}))) {
        form_.lblMemoryBlock.SetCaption("Reset 1-Wire min/max complete");
    }
}

}  // namespace kestrane
