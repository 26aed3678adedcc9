#include "macro/editor_files.h"

#include <algorithm>

#include "macro/program_text.h"
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
        ++stored_;
        if (stored_ == TriggersTab::kRows) session_.known.triggers = true;
    }

  private:
    TriggersTab& triggers_;
    Session& session_;
    EditorState& state_;
    int stored_ = 0;  // triggers
};

bool HasLinesOfBytes(std::string_view content) {
    LineReader lines(content);
    while (lines.Next()) {
    }
    return lines.number() >= kBytesInBytesFile;
}

}  // namespace

EditorFiles::EditorFiles(ScriptEditForm& form, MainForm& main_form, Session& session,
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

void EditorFiles::cmdSaveFile_Click() { Run(true); }
void EditorFiles::cmdLoadFile_Click() { Run(false); }

void EditorFiles::Run(bool save) {
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
        const std::string done =
            (save ? "Saved " : "Loaded ") + std::string(NameWithoutFolders(path));
        if (state_.on_file) state_.on_file(!fault, fault ? fault->text : done + ".");
        if (fault) platform_.boxes.Show(fault->title, fault->text, {BoxButton::kOk});
        if (visit.Ended()) return;
        if (!fault) {
            state_.file_name = NameWithoutFolders(path);
            state_.new_action = done;
        }
        if (!save) listing_.RefreshListing();
    }
    poll_.StartTimers();
}

TriggerRow EditorFiles::Row(int row) const {
    const TriggersTab& triggers = main_form_.triggers;
    return {PaddedTriggerName(triggers.txtMTName(row).Text()), triggers.txtMTPage(row).Text(),
            triggers.txtMTAddress(row).Text(), triggers.chkMacro(row).Checked()};
}

std::optional<EditorFiles::Fault> EditorFiles::Save(const std::string& path) {
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

std::optional<EditorFiles::Fault> EditorFiles::Load(const std::string& path) {
    const std::string name = NearestByteText(path);
    const FileStore::Content file = platform_.disk.Read(path);
    if (file.error) return Fault{"File Error.", "Cannot read " + name + ": " + *file.error + "."};
    if (!IsSourceText(file.bytes)) return LoadFile(name, file.bytes);
    const ProgramText text = ReadProgramText(file.bytes);
    if (text.Good()) {
        LoadSource(text.program);
        return {};
    }
    // Wrong digits may stand in a file of bytes, which has so many lines; no text of a program is
    // one by accident.
    if (HasLinesOfBytes(file.bytes)) return LoadFile(name, file.bytes);
    const auto fault = std::find_if(text.faults.begin(), text.faults.end(),
                                    [](const SourceFault& each) { return !each.is_warning; });
    return Fault{"File Error.", name + ", line" + Str(fault->place.line) + ": " +
                                    NearestByteText(fault->text) + ".\r\nNothing was loaded."};
}

// What was stored before a fault stays, so each text warns against an upload.
std::optional<EditorFiles::Fault> EditorFiles::LoadFile(const std::string& name,
                                                        std::string_view content) {
    Importer importer(main_form_.triggers, session_, state_);
    const MacroFileResult result = ReadMacroFile(content, importer);
    switch (result.outcome) {
        case MacroFileResult::Outcome::kOk:
            state_.new_labels.emplace();
            return {};
        case MacroFileResult::Outcome::kEndsEarly:
            return Fault{"File Error.",
                         name + " ends early, after line" + Str(result.line) + "." + kWarning};
        case MacroFileResult::Outcome::kTriggerChecksum:
        case MacroFileResult::Outcome::kCodeChecksum:
            break;
    }
    return Fault{std::string(kChecksumErrorTitle), ChecksumErrorText(result)};
}

// A trigger that the source leaves out stays as it is.
void EditorFiles::LoadSource(const MacroProgram& program) {
    Importer importer(main_form_.triggers, session_, state_);
    for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; ++i) {
        importer.StoreByte(i, program.image.Get(i));
    }
    for (int row = 0; row < kTriggerRows; ++row) {
        const auto& trigger = program.triggers[static_cast<std::size_t>(row)];
        if (trigger) importer.CompareAndStoreTrigger(row, trigger->row);
    }
    state_.new_labels = program.LabelsByAddress();
}

}  // namespace kestrane
