#include "macro/transfer.h"

#include "macro/editor_controls.h"
#include "macro/transfer_blocks.h"
#include "text/text.h"

namespace kestrane {
namespace {

// Lets a poll that is still running finish before the first block.
constexpr std::chrono::milliseconds kPause{500};
constexpr std::size_t kBlock = kBlockSize;
constexpr std::size_t kLastByte = MacroMemory::kProgramEnd - 1;

// Never reaches 100, as the last block begins at 96.
std::string Percent(std::size_t index) { return Str(static_cast<long>(index * 100 / 250)) + "%"; }

}  // namespace

Transfer::Transfer(ScriptEditForm& form, MainForm& main_form, Session& session, Link& link,
                   EditorState& state, Listing& listing, SecondByte& second_byte, StatusPoll& poll,
                   TransferHooks hooks)
    : form_(form),
      main_form_(main_form),
      session_(session),
      link_(link),
      state_(state),
      listing_(listing),
      second_byte_(second_byte),
      poll_(poll),
      hooks_(std::move(hooks)) {
    form.cmdDownload.on_click = [this] { cmdDownload_Click(); };
    form.cmdUpload.on_click = [this] { cmdupload_Click(); };
    form.timUDColour.on_timer = [this] { timUDColour_Timer(); };
}

// False if the form was closed in the pause.
bool Transfer::Begin(const Visit& visit, Button& pressed, Button& other) {
    form_.chkTrace.SetChecked(false);
    poll_.StopTimers();
    link_.MdWait(kPause);
    if (visit.Ended()) return false;
    pressed.SetBackColor(kRed);
    other.SetBackColor(kButtonFace);
    DisableEditorControls(form_);
    form_.SetPointer(Form::kHourglass);
    return true;
}

void Transfer::End() {
    state_.transferring = false;
    upload_after_.reset();
    form_.timUDColour.SetEnabled(true);
    poll_.StartTimers();
}

void Transfer::cmdDownload_Click() {
    if (state_.transferring) return;
    Link::Operation operation(link_, "Download Macro");
    upload_after_.reset();
    const Visit visit(state_);
    if (link_.Connected()) {
        state_.transferring = true;
        if (Begin(visit, form_.cmdDownload, form_.cmdUpload)) Download(operation, visit);
        if (visit.Ended()) return;
        form_.cmdDownload.SetBackColor(kGreen);
        form_.chkTrace.SetChecked(false);
        listing_.RefreshListing();
    }
    form_.SetPointer(Form::kArrow);
    form_.lblTopStatus.SetCaption("Download completed.");
    EnableEditorControls(form_, session_.AdminLoggedIn);
    form_.txtSecondByteHex.SetText("00");
    second_byte_.cmdSecondByteHexOK_Click();
    session_.MacroChanged = false;
    End();
}

void Transfer::Download(const Link::Operation& operation, const Visit& visit) {
    const auto progress = [this, &visit](const std::string& text) {
        if (!visit.Ended()) form_.lblTopStatus.SetCaption(text);
    };
    if (main_form_.triggers.txtMTName(0).Text().empty() && hooks_.ReadMacroTriggers) {
        hooks_.ReadMacroTriggers(progress);
    }
    if (visit.Ended()) return;
    ShowNames(visit);
    for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; i += kBlock) {
        // What a lost connection has left in the buffer is no part of this unit's program.
        if (visit.Ended() || operation.Stale()) return;
        form_.SetPointer(Form::kHourglass);
        progress("Downloading unit macro program" + Percent(i));
        link_.Command(ReadCommand(session_.RelayAddress, static_cast<int>(i)));
        if (visit.Ended() || operation.Stale()) return;
        StoreBlock(i);
    }
}

void Transfer::StoreBlock(std::size_t index) {
    Strip_Escape();
    const std::string block = Mid(session_.ReplyBuffer, kMemoryData, kBlock);
    if (block.size() < kBlock) return;
    for (const char byte : block) state_.image.Set(index++, static_cast<std::uint8_t>(byte));
}

void Transfer::ShowNames(const Visit& visit) {
    const auto show = [this, &visit](int position, const std::string& upper,
                                     const std::string& lower) {
        if (visit.Ended()) return;
        form_.lblDesi(ScriptEditForm::kUpperNames + position).SetCaption(upper);
        form_.lblDesi(ScriptEditForm::kLowerNames + position).SetCaption(lower);
    };
    const NamesTab& names = main_form_.names;
    if (names.txtMainUpper.Text().empty()) {
        const auto progress = [this, &visit](const std::string& text) {
            if (!visit.Ended()) form_.lblTopStatus.SetCaption(text);
        };
        if (hooks_.ReadChannelNames) hooks_.ReadChannelNames(progress, show);
        return;
    }
    show(ScriptEditForm::kFirstInlet, names.txtMainUpper.Text(), names.txtMainLower.Text());
    show(ScriptEditForm::kSecondInlet, names.txtBackupUpper.Text(), names.txtBackupLower.Text());
    for (int i = 0; i < ScriptEditForm::kOutlets; ++i) {
        show(i, names.txtOutUpper(i).Text(), names.txtOutLower(i).Text());
    }
}

// The last instruction must not go out with an operand left over.
void Transfer::cmdupload_Click() {
    if (state_.transferring) return;
    state_.image.Set(kLastByte, 0);
    upload();
}

void Transfer::upload() {
    if (state_.transferring) return;
    Link::Operation operation(link_, "Upload Macro");
    operation.PlanWrites((MacroMemory::kProgramEnd - MacroMemory::kProgramBegin) / kBlockSize);
    upload_after_ = LastExchange(link_.journal());
    const Visit visit(state_);
    form_.SetPointer(Form::kHourglass);
    if (link_.Connected()) {
        state_.transferring = true;
        if (Begin(visit, form_.cmdUpload, form_.cmdDownload)) Upload(operation, visit);
        if (visit.Ended()) return;
        listing_.RefreshListing();
        form_.cmdUpload.SetBackColor(kGreen);
    }
    session_.MacroChanged = false;
    form_.lblTopStatus.SetCaption("Upload completed.");
    form_.SetPointer(Form::kArrow);
    EnableEditorControls(form_, session_.AdminLoggedIn);
    End();
}

void Transfer::Upload(const Link::Operation& operation, const Visit& visit) {
    for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; i += kBlock) {
        if (visit.Ended() || operation.Stale()) return;
        form_.lblTopStatus.SetCaption("Uploading unit settings" + Percent(i));
        std::string block;
        for (std::size_t at = i; at < i + kBlock; ++at) {
            block.push_back(static_cast<char>(state_.image.Get(at)));
        }
        link_.Command(WriteCommand(session_.RelayAddress, static_cast<int>(i), kBlockSize, block));
    }
}

std::optional<std::string> Transfer::UnitInTheMidst() const {
    if (!state_.transferring || !upload_after_) return {};
    const TransferBlocks blocks(link_.journal(), *upload_after_, true, session_.RelayAddress & 0xFF,
                                kProgramRun);
    if (blocks.UnitUntouched()) return {};
    return blocks.WhatUnitHolds();
}

void Transfer::timUDColour_Timer() {
    form_.cmdDownload.SetBackColor(kButtonFace);
    form_.cmdUpload.SetBackColor(kButtonFace);
    form_.timUDColour.SetEnabled(false);
}

}  // namespace kestrane
