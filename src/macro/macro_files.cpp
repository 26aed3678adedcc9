#include "macro/macro_files.h"

#include "text/text.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

constexpr char kWarning[] = "\r\nImport aborted. Please do not upload to unit.";

class Importer : public MacroFileSink {
  public:
    Importer(TriggersTab& triggers, Session& session, EditorState& state)
        : triggers_(triggers), session_(session), state_(state) {}

    void StoreByte(std::size_t index, std::uint8_t value) override {
        state_.image.Set(index, value);
    }

    void CompareAndStoreTrigger(int row, const TriggerRow& fields) override {
        const TriggerRow boxes{triggers_.txtMTName(row).Text(), triggers_.txtMTPage(row).Text(),
                               triggers_.txtMTAddress(row).Text(),
                               triggers_.chkMacro(row).Checked()};
        if (TriggerDiffers(fields, boxes)) session_.MacroTriggersChanged = true;
        triggers_.txtMTName(row).SetText(fields.name);
        triggers_.txtMTPage(row).SetText(fields.page);
        triggers_.txtMTAddress(row).SetText(fields.address);
        triggers_.chkMacro(row).SetChecked(fields.enabled);
        // A whole table out of a file is one to write.
        if (row == TriggersTab::kRows - 1) session_.known.triggers = true;
    }

  private:
    TriggersTab& triggers_;
    Session& session_;
    EditorState& state_;
};

}  // namespace

MacroFiles::MacroFiles(ScriptEditForm& form, MainForm& main_form, Session& session,
                       const Platform& platform, EditorState& state, Listing& listing,
                       StatusPoll& poll)
    : form_(form),
      main_form_(main_form),
      session_(session),
      platform_(platform),
      state_(state),
      listing_(listing),
      poll_(poll) {
    form.cmdSaveFile.on_click = [this] { cmdSaveFile_Click(); };
    form.cmdLoadFile.on_click = [this] { cmdLoadFile_Click(); };
}

void MacroFiles::cmdSaveFile_Click() { Run(true); }
void MacroFiles::cmdLoadFile_Click() { Run(false); }

void MacroFiles::Run(bool save) {
    const Visit visit(state_);
    form_.chkTrace.SetChecked(false);
    poll_.StopTimers();
    const std::string path = platform_.files.Ask({.save = save,
                                                  .title = "Dunmarch Load/Save",
                                                  .filter = "Kestrane Macro Files (*.sms)|*.sms",
                                                  .default_extension = "sms"});
    if (visit.Ended()) return;
    if (!path.empty()) {
        const auto fault = save ? Save(path) : Load(path);
        if (fault) platform_.boxes.Show(fault->title, fault->text, {BoxButton::kOk});
        if (visit.Ended()) return;
        if (!fault) {
            state_.file_name = NameWithoutFolders(path);
            state_.new_action = (save ? "Saved " : "Loaded ") + state_.file_name;
        }
        if (!save) listing_.RefreshListing();
    }
    poll_.StartTimers();
}

TriggerRow MacroFiles::Row(int row) const {
    const TriggersTab& triggers = main_form_.triggers;
    return {PaddedTriggerName(triggers.txtMTName(row).Text()), triggers.txtMTPage(row).Text(),
            triggers.txtMTAddress(row).Text(), triggers.chkMacro(row).Checked()};
}

std::optional<MacroFiles::Fault> MacroFiles::Save(const std::string& path) {
    TriggerRows rows;
    for (int i = 0; i < kTriggerRows; ++i) rows[static_cast<std::size_t>(i)] = Row(i);
    const std::string content = WriteMacroFile(NearestByteText(NameWithoutFolders(path)), rows,
                                               state_.image, session_.UnitType);
    if (const auto reason = platform_.disk.Replace(path, content, FileStore::Readers::kEveryone)) {
        return Fault{"File Error.", "Cannot save " + NearestByteText(path) + ": " + *reason + "."};
    }
    for (int i = 0; i < kTriggerRows; ++i) {
        main_form_.triggers.txtMTName(i).SetText(rows[static_cast<std::size_t>(i)].name);
    }
    return {};
}

// What was stored before a fault stays, so each text warns against an upload.
std::optional<MacroFiles::Fault> MacroFiles::Load(const std::string& path) {
    const FileStore::Content file = platform_.disk.Read(path);
    if (file.error) {
        return Fault{"File Error.",
                     "Cannot read " + NearestByteText(path) + ": " + *file.error + "."};
    }
    Importer importer(main_form_.triggers, session_, state_);
    const MacroFileResult result = ReadMacroFile(file.bytes, importer);
    switch (result.outcome) {
        case MacroFileResult::Outcome::kOk:
            return {};
        case MacroFileResult::Outcome::kEndsEarly:
            return Fault{"File Error.", NearestByteText(path) + " ends early, after line" +
                                            Str(result.line) + "." + kWarning};
        case MacroFileResult::Outcome::kTriggerChecksum:
        case MacroFileResult::Outcome::kCodeChecksum:
            break;
    }
    return Fault{std::string(kChecksumErrorTitle), ChecksumErrorText(result)};
}

}  // namespace kestrane
