#include "features/channel_names.h"

#include <algorithm>

#include "link/long_operation.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr std::size_t kLineLength = 8;
constexpr int kEditorBoard = 251;

// One block for each channel: Main 0x0060, Backup 0x0070, the outlets from 0x0080 on.
int AddressOf(int channel) {
    constexpr int kInletNames = 0x0060;
    constexpr int kOutletNames = 0x0080;
    return channel < ChannelNames::kOutlets
               ? kOutletNames + kBlockSize * channel
               : kInletNames + kBlockSize * (channel - ChannelNames::kMain);
}

// A name's block, each line padded with blanks:
//
//   0       8       15
//   UUUUUUUULLLLLLLL
struct Name {
    std::string upper;
    std::string lower;
};

Name DecodeName(std::string_view block) {
    return {Trim(Mid(block, 1, kLineLength)), Trim(Mid(block, 1 + kLineLength, kLineLength))};
}

std::string EncodeName(const Name& name) {
    return Mid(PadRight(name.upper, kLineLength), 1, kLineLength) +
           Mid(PadRight(name.lower, kLineLength), 1, kLineLength);
}

struct Boxes {
    TextBox& upper;
    TextBox& lower;
};

Boxes BoxesOf(NamesTab& names, int channel) {
    if (channel == ChannelNames::kMain) return {names.txtMainUpper, names.txtMainLower};
    if (channel == ChannelNames::kBackup) return {names.txtBackupUpper, names.txtBackupLower};
    return {names.txtOutUpper(channel), names.txtOutLower(channel)};
}

std::string OutletProgress(const char* doing, int outlet) {
    return std::string(doing) + " outlet name" + Str(outlet + 1) + " of 14";
}

}  // namespace

ChannelNames::ChannelNames(MainForm& form, Session& session, Link& link)
    : form_(form), tab_(form.names), session_(session), link_(link) {
    tab_.cmdReadChannelNames.on_click = [this] { cmdReadChannelNames_Click(); };
    tab_.cmdWriteChannelNames.on_click = [this] { cmdWriteChannelNames_Click(); };
    for (int channel = 0; channel <= kBackup; ++channel) {
        const Boxes boxes = BoxesOf(tab_, channel);
        for (TextBox* box : {&boxes.upper, &boxes.lower}) {
            box->on_got_focus = [box] { SelectAllText(*box); };
        }
    }
}

void ChannelNames::cmdReadChannelNames_Click() {
    if (!link_.Connected()) return;
    const LongOperation operation(
        form_, link_, "Read Channel Names",
        {&tab_.cmdReadChannelNames, &tab_.cmdWriteChannelNames, &form_.network.cmdResetEthernet},
        {&tab_.cmdReadChannelNames});
    if (ReadAll()) {
        form_.lblMemoryBlock.SetCaption("Reading channel names complete");
        if (session_.AdminLoggedIn) {
            EnableAfterSuccess();
            form_.SetFocus(tab_.txtMainUpper);
            session_.ChannelNamesRead = true;
        }
        session_.known.names = true;
    }
    EnableLabels(form_, "fraInletNames");
    EnableLabels(form_, "fraOutletNames");
}

bool ChannelNames::ReadAll() {
    ClearNameBoxes(form_);
    session_.known.names = false;
    form_.lblMemoryBlock.SetCaption("Reading inlet name(s)");
    for (const int inlet : {kMain, kBackup}) {
        if (!ReadInto(session_.DisplayAddress, inlet, LeadingDle::kKeep)) return false;
    }
    for (int outlet = 0; outlet < kOutlets; ++outlet) {
        form_.lblMemoryBlock.SetCaption(OutletProgress("Reading", outlet));
        if (!ReadInto(session_.DisplayAddress, outlet, LeadingDle::kPassOver)) return false;
    }
    return true;
}

bool ChannelNames::ReadInto(int board, int channel, LeadingDle leading_dle) {
    const auto data = link_.Read(board, AddressOf(channel));
    if (!data) return false;
    std::string block = *data;
    if (leading_dle == LeadingDle::kPassOver) {
        block.erase(0, std::min(block.find_first_not_of(kDle), block.size()));
    }
    const Name name = DecodeName(block);
    const Boxes boxes = BoxesOf(tab_, channel);
    boxes.upper.SetText(name.upper);
    boxes.lower.SetText(name.lower);
    return true;
}

void ChannelNames::cmdWriteChannelNames_Click() {
    if (!link_.Connected()) return;
    if (!KnownForWriting(link_, session_.known.names, "Write Channel Names", "channel names"))
        return;
    LongOperation operation(
        form_, link_, "Write Channel Names",
        {&tab_.cmdReadChannelNames, &tab_.cmdWriteChannelNames, &form_.network.cmdResetEthernet},
        {&tab_.cmdReadChannelNames});
    operation.operation().PlanWrites(2 + kOutlets);
    if (WriteAll()) {
        form_.lblMemoryBlock.SetCaption("Writing names complete");
        EnableAfterSuccess();
    } else if (!operation.Stale()) {
        // What was typed stands and can be written again.
        tab_.cmdWriteChannelNames.SetEnabled(true);
    }
    EnableLabels(form_, "fraInletNames");
    EnableLabels(form_, "fraOutletNames");
}

bool ChannelNames::WriteAll() {
    form_.lblMemoryBlock.SetCaption("Writing inlet name");
    for (const int inlet : {kMain, kBackup}) {
        if (!WriteFrom(inlet)) return false;
    }
    for (int outlet = 0; outlet < kOutlets; ++outlet) {
        form_.lblMemoryBlock.SetCaption(OutletProgress("Writing", outlet));
        if (!WriteFrom(outlet)) return false;
    }
    return true;
}

bool ChannelNames::WriteFrom(int channel) {
    const Boxes boxes = BoxesOf(tab_, channel);
    return link_.Command(WriteCommand(session_.DisplayAddress, AddressOf(channel), kBlockSize,
                                      EncodeName({boxes.upper.Text(), boxes.lower.Text()})));
}

void ChannelNames::EnableAfterSuccess() {
    tab_.cmdWriteChannelNames.SetEnabled(true);
    form_.network.cmdResetEthernet.SetEnabled(true);
    tab_.fraInletNames.SetEnabled(true);
    tab_.fraOutletNames.SetEnabled(true);
}

bool ChannelNames::ReadChannelNames(const ShowProgress& progress, const ShowName& show_name) {
    if (!link_.Connected()) return false;
    const auto read = [&](int channel) {
        if (!ReadInto(kEditorBoard, channel, LeadingDle::kKeep)) return false;
        const Boxes boxes = BoxesOf(tab_, channel);
        show_name(channel, boxes.upper.Text(), boxes.lower.Text());
        return true;
    };
    progress("Reading inlet name(s)");
    for (const int inlet : {kMain, kBackup}) {
        if (!read(inlet)) return false;
    }
    for (int outlet = 0; outlet < kOutlets; ++outlet) {
        progress(OutletProgress("Reading", outlet));
        if (!read(outlet)) return false;
    }
    progress("Reading channel names complete");
    session_.known.names = true;
    return true;
}

}  // namespace kestrane
