#include "features/macro_triggers.h"

#include <array>
#include <optional>

#include "link/long_operation.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kRows = TriggersTab::kRows;
constexpr int kTableAddress = 0x0200;
constexpr int kEditorBoard = 251;
constexpr int kLowestAddress = 0x10;
constexpr int kHighestAddress = 0x7E;

// One record, a block for each trigger from 0x0200 on; the name is padded with blanks:
//
//   0             14  15
//   NNNNNNNNNNNNNN PP AA      PP: 0x80 for a disabled trigger, plus the page number
constexpr std::size_t kNameLength = 14;
constexpr int kDisabled = 0x80;

struct Record {
    std::string name;
    int page_and_state = 0;
    int address = 0;
};

Record DecodeRecord(std::string_view block) {
    return {Trim(Mid(block, 1, kNameLength)), ByteAt(block, 1 + kNameLength),
            ByteAt(block, 2 + kNameLength)};
}

std::string EncodeRecord(const Record& record) {
    return PadRight(Mid(Trim(record.name), 1, kNameLength), kNameLength) +
           Bytes({record.page_and_state, record.address});
}

int AddressOf(int row) { return kTableAddress + kBlockSize * row; }

std::string Progress(const char* doing, int row) {
    return std::string(doing) + Str(row + 1) + " of 8";
}

// The records of all rows, or nothing where a page number is too large for its byte.
std::optional<std::array<std::string, kRows>> BuildRecords(const TriggersTab& tab) {
    std::array<std::string, kRows> records;
    for (int row = 0; row < kRows; ++row) {
        // 64 bits: the page may be any number that a text can hold.
        const std::int64_t page = std::int64_t{IntegerValue(tab.txtMTPage(row).Text())} +
                                  (tab.chkMacro(row).Checked() ? 0 : kDisabled);
        if (page < 0 || page > 0xFF) return {};
        // The check box plays no part in the address: an enabled trigger may go out without one.
        records[static_cast<std::size_t>(row)] =
            EncodeRecord({tab.txtMTName(row).Text(), static_cast<int>(page),
                          HexValue(tab.txtMTAddress(row).Text())});
    }
    return records;
}

}  // namespace

MacroTriggers::MacroTriggers(MainForm& form, Session& session, Link& link)
    : form_(form), tab_(form.triggers), session_(session), link_(link) {
    tab_.cmdReadMacroTriggers.on_click = [this] { cmdReadMacroTriggers_Click(); };
    tab_.cmdWriteMacroTriggers.on_click = [this] { cmdWriteMacroTriggers_Click(); };
    for (int row = 0; row < kRows; ++row) {
        for (TextBox* box : {&tab_.txtMTName(row), &tab_.txtMTPage(row)}) {
            box->on_got_focus = [box] { SelectAllText(*box); };
        }
        TextBox& address = tab_.txtMTAddress(row);
        address.on_change = [this, row] { txtMTAddress_Change(row); };
        address.on_got_focus = [this, row] { txtMTAddress_GotFocus(row); };
        address.on_lost_focus = [this, row] { txtMTAddress_LostFocus(row); };
    }
}

// The rows are not cleared first: those behind a failure keep what they had.
void MacroTriggers::cmdReadMacroTriggers_Click() {
    if (!link_.Connected()) return;
    const LongOperation operation(form_, link_, "Read Macro Triggers",
                                  {&tab_.cmdEditMacro, &tab_.cmdReadMacroTriggers,
                                   &tab_.cmdWriteMacroTriggers, &form_.network.cmdResetEthernet},
                                  {&tab_.cmdReadMacroTriggers, &tab_.cmdEditMacro});
    int row = 0;
    for (; row < kRows; ++row) {
        form_.lblMemoryBlock.SetCaption(Progress("Reading Macro Data", row));
        if (!ReadRow(session_.DisplayAddress, row)) break;
    }
    if (row == kRows) {
        form_.lblMemoryBlock.SetCaption("Reading Macro Data Complete");
        if (session_.AdminLoggedIn) {
            EnableAfterSuccess();
            form_.SetFocus(tab_.txtMTName(0));
            session_.MacroTriggersRead = true;
        }
        session_.known.triggers = true;
    }
    EnableLabels(form_, "fraMacroTrigger");
}

bool MacroTriggers::ReadRow(int board, int row) {
    const auto block = link_.Read(board, AddressOf(row));
    if (!block) return false;
    const Record record = DecodeRecord(*block);
    tab_.txtMTName(row).SetText(record.name);
    const bool enabled = record.page_and_state < kDisabled;
    tab_.chkMacro(row).SetChecked(enabled);
    tab_.txtMTPage(row).SetText(
        std::to_string(enabled ? record.page_and_state : record.page_and_state - kDisabled));
    const std::string address = HexByte(static_cast<std::uint8_t>(record.address));
    // Two digits never equal "0": there is no empty row on a read, address 0 shows as "00".
    const bool present = address != "0";
    tab_.txtMTAddress(row).SetText(present ? address : "");
    if (present) tab_.txtMTAddress(row).SetForeColor(kBlack);
    tab_.chkMacro(row).SetEnabled(present);
    return true;
}

void MacroTriggers::cmdWriteMacroTriggers_Click() {
    if (!link_.Connected()) return;
    if (!KnownForWriting(link_, session_.known.triggers, "Write Macro Triggers",
                         "macro triggers")) {
        return;
    }
    const auto records = BuildRecords(tab_);
    if (!records) return RefusePage();
    LongOperation operation(form_, link_, "Write Macro Triggers",
                            {&tab_.cmdEditMacro, &tab_.cmdReadMacroTriggers,
                             &tab_.cmdWriteMacroTriggers, &form_.network.cmdResetEthernet},
                            {&tab_.cmdReadMacroTriggers, &tab_.cmdEditMacro});
    operation.operation().PlanWrites(kRows);
    int row = 0;
    for (const std::string& record : *records) {
        form_.lblMemoryBlock.SetCaption(Progress("Writing Macro Data", row));
        if (!link_.Command(
                WriteCommand(session_.DisplayAddress, AddressOf(row), kBlockSize, record))) {
            break;
        }
        ++row;
    }
    if (row == kRows) {
        form_.lblMemoryBlock.SetCaption("Writing Macro Data complete");
        EnableAfterSuccess();
    } else if (!operation.Stale()) {
        // What was typed stands and can be written again.
        tab_.cmdWriteMacroTriggers.SetEnabled(true);
    }
    EnableLabels(form_, "fraMacroTrigger");
}

void MacroTriggers::RefusePage() {
    const std::string why = "a page does not fit its byte";
    Link::Operation operation(link_, "Write Macro Triggers");
    operation.Stop(why);
    link_.platform().boxes.Show("Macro Triggers",
                                "A page can be 0 to 127 at most, 255 for an enabled macro. Nothing "
                                "was written.",
                                {BoxButton::kOk});
}

void MacroTriggers::EnableAfterSuccess() {
    tab_.fraMacroTrigger.SetEnabled(true);
    tab_.cmdEditMacro.SetEnabled(true);
    tab_.cmdWriteMacroTriggers.SetEnabled(true);
    form_.network.cmdResetEthernet.SetEnabled(true);
}

void MacroTriggers::txtMTAddress_Change(int row) { tab_.txtMTAddress(row).SetForeColor(kRed); }

void MacroTriggers::txtMTAddress_GotFocus(int row) {
    TextBox& box = tab_.txtMTAddress(row);
    box.SetForeColor(kRed);
    SelectAllText(box);
}

void MacroTriggers::txtMTAddress_LostFocus(int row) {
    TextBox& box = tab_.txtMTAddress(row);
    std::string text = box.Text();
    box.SetText(CleanHex(text));
    const int address = HexValue(box.Text());
    if (address == 0) {
        box.SetText("");
        tab_.chkMacro(row).SetChecked(false);
        tab_.chkMacro(row).SetEnabled(false);
    } else if (address < kLowestAddress || address > kHighestAddress) {
        link_.platform().sound.Beep();
        link_.platform().boxes.Show(
            "Invalid Address.", "Hex address for macro is not valid. Must be between hex 10 and 7E",
            {BoxButton::kOk});
        box.SetText("");
        form_.SetFocus(box);
        SelectAllText(box);
    } else {
        box.SetForeColor(kBlack);
        tab_.chkMacro(row).SetEnabled(true);
    }
}

bool MacroTriggers::ReadMacroTriggers(const ShowProgress& progress) {
    if (!link_.Connected()) return false;
    for (int row = 0; row < kRows; ++row) {
        progress(Progress("Reading Macro Trigger Name", row));
        if (!ReadRow(kEditorBoard, row)) return false;
    }
    progress("Reading macro triggers complete");
    session_.known.triggers = true;
    return true;
}

}  // namespace kestrane
