#include "macro/macro_editor.h"

#include "macro/editor_controls.h"
#include "macro/instruction_set.h"
#include "screen/screen.h"
#include "text/text.h"

namespace kestrane {

MacroEditor::MacroEditor(ScriptEditForm& form, MainForm& main_form, Session& session, Link& link,
                         MacroEditorHooks hooks)
    : form_(form),
      main_form_(main_form),
      session_(session),
      platform_(link.platform()),
      hooks_(std::move(hooks)),
      listing_(form, session, state_),
      edits_(form, main_form, session, state_, listing_),
      unit_program_(session, link),
      second_byte_(form),
      outlet_masks_(form, state_),
      inserts_(form, session, state_, listing_, second_byte_),
      poll_(form, session, link, state_, listing_),
      go_to_(form, session, link, state_, listing_, poll_),
      transfer_(form, main_form, session, link, state_, listing_, second_byte_, poll_,
                hooks_.transfer),
      files_(form, main_form, session, platform_, state_, listing_, poll_) {
    main_form.triggers.cmdEditMacro.on_click = [this] { cmdEditMacro_Click(); };
    form.on_load = [this] { Form_Load(); };
    form.on_close = [this] { cmdExit_Click(); };
    form.cmdExit.on_click = [this] { cmdExit_Click(); };
    platform_.loop.AfterEvents([this] { edits_.Look(); });
}

void MacroEditor::cmdEditMacro_Click() { form_.screen().ShowModal(form_); }

void MacroEditor::Form_Load() {
    ++state_.visit;
    state_.transferring = false;
    const Visit visit(state_);
    StartAfresh();
    LayOut();
    edits_.Begin();
    listing_.RefreshListing();
    poll_.cmdGetStatus_Click();
    if (visit.Ended()) return;
    session_.MacroChanged = false;
    form_.lblTitle.SetCaption(Trim(main_form_.network.txtUnitLocation.Text()));
    form_.lblTitle2.SetCaption(Trim(main_form_.network.txtUnitName.Text()));
    transfer_.cmdDownload_Click();
    if (visit.Ended()) return;
    edits_.Opened();
    poll_.StartTimers();
}

// What an earlier opening, perhaps with another unit, has left on the form.
void MacroEditor::StartAfresh() {
    state_.MemPointer = 0;
    state_.ListTop = 0;
    state_.ListRow = 0;
    state_.CurrentOpcode = 0;
    state_.CurrentSecondByte = 0;
    for (CheckBox* box : {&form_.chkTrace, &form_.chkWait, &form_.chkAutoIncrement}) {
        box->SetChecked(false);
    }
    poll_.StartAfresh();
    EnableEditorControls(form_, session_.AdminLoggedIn);
    form_.txtSecondByteHex.SetText("00");
    second_byte_.cmdSecondByteHexOK_Click();
    transfer_.timUDColour_Timer();
    outlet_masks_.cmdClearLocks_Click();
    form_.txtGroup1.SetText("00");
    form_.txtGroup2.SetText("00");
    form_.txtGoTo.SetText("10");
    form_.txtGoTo.SetForeColor(kBlack);
    form_.lblTopStatus.SetCaption("");
    for (Label& name : form_.lblDesi) name.SetCaption("");
    for (Light& light : form_.pbLED) light.SetPicture(kLampGrey);
}

void MacroEditor::LayOut() {
    const std::string& type = session_.UnitType;
    const bool cms = type == "CMS";
    const bool two_inlets = cms || type == "636";
    for (const InsertButton& row : form_.insert_buttons) {
        const Instruction& instruction = *FindInstruction(static_cast<std::uint8_t>(row.opcode));
        Button& button = form_.cmdInsertCommand(row.opcode);
        button.SetVisible(ButtonVisible(instruction, type));
        button.SetCaption(std::string(ButtonCaption(instruction, type)));
    }
    constexpr int kSecond = ScriptEditForm::kSecondInlet;
    form_.imgFuse(kSecond).SetVisible(two_inlets);
    form_.pbLED(kSecond).SetVisible(two_inlets);
    form_.lblDesi(ScriptEditForm::kUpperNames + kSecond).SetVisible(two_inlets);
    form_.lblDesi(ScriptEditForm::kLowerNames + kSecond).SetVisible(two_inlets);
    form_.imgFuse2Block.SetVisible(two_inlets);
    for (Image& block : form_.imgFuse7Block) block.SetVisible(two_inlets);
    Label& first_number = form_.lblFuseNo(ScriptEditForm::kFirstInlet);
    Label& second_number = form_.lblFuseNo(kSecond);
    first_number.SetVisible(two_inlets);
    second_number.SetVisible(two_inlets);
    if (!two_inlets) return;
    first_number.SetCaption(cms ? "M" : "A");
    second_number.SetCaption("B");
}

void MacroEditor::cmdExit_Click() {
    const Visit visit(state_);
    if (session_.MacroChanged &&
        platform_.boxes.Show("Any changes?",
                             "Have you Uploaded or saved any changes you have made, otherwise they "
                             "will be lost?",
                             {BoxButton::kYes, BoxButton::kNo}) != BoxButton::kYes) {
        return;
    }
    if (visit.Ended()) return;
    const auto unit_holds = transfer_.UnitInTheMidst();
    Form_Unload();
    if (!unit_holds) return;
    platform_.boxes.Show("Upload not finished.",
                         "The macro program in the unit is not whole: " + *unit_holds +
                             ".\r\nPlease upload it again.",
                         {BoxButton::kOk});
}

// Whatever waits finds its visit ended. The operator is told of changed triggers here and not when
// ShowModal returns, which a poll without an answer may keep from returning.
void MacroEditor::Form_Unload() {
    if (!form_.Visible()) return;
    ++state_.visit;
    state_.transferring = false;
    listing_.cmdClearMem_Click();
    for (Control* control : form_.controls()) {
        if (control->kind() == Kind::kTimer) control->SetEnabled(false);
    }
    form_.SetPointer(Form::kArrow);
    form_.screen().Hide(form_);
    TellOfChangedTriggers();
}

void MacroEditor::TellOfChangedTriggers() {
    if (session_.MacroTriggersChanged) {
        for (int row = 0; row < kTriggerRows; ++row) {
            if (hooks_.CheckTriggerAddress) hooks_.CheckTriggerAddress(row);
        }
        platform_.boxes.Show(
            "Upload Macro Triggers?",
            "The Macro Triggers have been changed by the SMS import.\r\nPlease click the Write "
            "Macro Triggers button to upload them if required.",
            {BoxButton::kOk});
        main_form_.triggers.cmdWriteMacroTriggers.SetEnabled(true);
    }
    session_.MacroTriggersChanged = false;
}

}  // namespace kestrane
