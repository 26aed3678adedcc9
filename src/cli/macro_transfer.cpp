#include "cli/macro_transfer.h"

#include "cli/call_driver.h"
#include "link/frame.h"
#include "macro/macro_file.h"
#include "macro/source_words.h"
#include "macro/transfer_blocks.h"
#include "text/text.h"
#include "text/utf8.h"

namespace kestrane {
namespace {

std::string TriggerNumbers(int first, int last) {
    const std::string from = std::to_string(first + 1);
    return first == last ? from : from + " to " + std::to_string(last + 1);
}

constexpr BlockRun kTriggerRun = {0x0200, kTriggerRows, "triggers", TriggerNumbers};

// A transfer on one connection, with what went wrong in words.
class MacroTransfer {
  public:
    explicit MacroTransfer(CallContext& context)
        : context_(context), tool_(context.tool), driver_(context) {}

  protected:
    Journal& journal() const { return tool_.link.journal(); }
    TransferBlocks Program(bool writes) const {
        return {journal(), began_, writes, tool_.session.RelayAddress, kProgramRun};
    }
    TransferBlocks WrittenTriggers() const {
        return {journal(), began_, true, tool_.session.DisplayAddress, kTriggerRun};
    }
    void Begin() { began_ = LastExchange(journal()); }

    bool Connect() { return driver_.Connect() && driver_.Read(*FindTab("network")); }
    int Fail(const std::string& why) {
        context_.complain(why);
        return kExitUnit;
    }
    // The block at which it failed, or what the driver says, and what that means for the unit.
    int Fail(const TransferBlocks& blocks, const std::string& meaning) {
        const std::string why =
            blocks.AllAccepted() ? driver_.Failure() : blocks.Failure(blocks.FirstFailed());
        return Fail(why + (why.empty() ? "" : "; ") + meaning);
    }

    CallContext& context_;
    Tool& tool_;
    CallDriver driver_;
    std::uint64_t began_ = 0;  // the last exchange before the transfer
};

class Download : public MacroTransfer {
  public:
    using MacroTransfer::MacroTransfer;

    int Run(const std::string& file) {
        if (!Connect() || !driver_.Read(*FindTab("triggers"))) return Fail(driver_.Failure());
        Begin();
        bool opened = false;
        MacroMemory image;
        const bool good = driver_.InMacroEditor([&] {
            opened = true;
            image = tool_.macro_editor.state().image;
        });
        const TransferBlocks blocks = Program(false);
        if (!opened || !good || !blocks.AllAccepted()) {
            return Fail(blocks, "nothing was saved, and nothing was written to the unit");
        }
        return Save(file, image);
    }

  private:
    TriggerRows Rows() {
        const TriggersTab& tab = tool_.main_form.triggers;
        TriggerRows rows;
        for (int i = 0; i < kTriggerRows; ++i) {
            TriggerRow& row = rows[static_cast<std::size_t>(i)];
            row = {tab.txtMTName(i).Text(), tab.txtMTPage(i).Text(), tab.txtMTAddress(i).Text(),
                   tab.chkMacro(i).Checked()};
            if (!Trim(row.name).empty()) continue;
            row.name = "Macro" + Str(i + 1);
            context_.complain("trigger" + Str(i + 1) +
                              " has no name in the unit; the file calls "
                              "it \"" +
                              row.name + "\", as it could not be read again without one");
        }
        return rows;
    }

    int Save(const std::string& file, const MacroMemory& image) {
        const TriggerRows rows = Rows();
        const std::string content = WriteMacroFile(NearestByteText(NameWithoutFolders(file)), rows,
                                                   image, tool_.session.UnitType);
        const ProgramText again = ReadProgramText(content);
        for (int i = 0; i < kTriggerRows; ++i) {
            const auto row = static_cast<std::size_t>(i);
            const auto& read = again.program.triggers[row];
            if (read && !TriggerDiffers(read->row, rows[row])) continue;
            return Fail(
                "trigger" + Str(i + 1) + " (\"" + FromByteText(rows[row].name) + "\", page " +
                FromByteText(rows[row].page) +
                ") can't be kept in a macro file; change it in the unit, nothing was saved");
        }
        if (!again.Good()) return Fail("the file would not read back; nothing was saved");
        FileStore& disk = tool_.link.platform().disk;
        if (const auto why = disk.Replace(file, content, FileStore::Readers::kEveryone)) {
            return Fail("cannot save " + file + ": " + *why);
        }
        context_.print("saved the unit's program in " + file);
        return kExitDone;
    }
};

class Upload : public MacroTransfer {
  public:
    Upload(CallContext& context, const ProgramText& text)
        : MacroTransfer(context), text_(text), program_(text.program.image) {
        // An upload clears the operand of the last instruction.
        program_.Set(MacroMemory::kProgramEnd - 1, 0);
    }

    int Run(const std::string& file, bool with_triggers) {
        if (!Connect() || (with_triggers && !driver_.Read(*FindTab("triggers")))) {
            return Fail(driver_.Failure());
        }
        Begin();
        bool opened = false;
        const bool good = driver_.InMacroEditor([&] {
            opened = true;
            if (Program(false).AllAccepted()) Transfer();
        });
        if (!opened || !written_) {
            return Fail(Program(false), "nothing was written, the unit's program is as it was");
        }
        if (const int status = Judge(file, good); status != kExitDone) return status;
        if (with_triggers) return WriteTriggers(file);
        context_.print("the unit holds the program of " + file + "; " +
                       (text_.HasTriggers()
                            ? "its macro triggers were left out, --triggers writes them too"
                            : "the unit's macro triggers are as they were"));
        return kExitDone;
    }

  private:
    // Within the editor: UPLOAD, and if every block was accepted DOWNLOAD.
    void Transfer() {
        MacroMemory& image = tool_.macro_editor.state().image;
        ScriptEditForm& editor = tool_.script_edit_form;
        image = program_;
        Begin();
        refusal_ = tool_.hand.Click(editor.cmdUpload);
        written_ = !refusal_;
        if (refusal_ || !Program(true).AllAccepted()) return;
        refusal_ = tool_.hand.Click(editor.cmdDownload);
        read_back_ = image;
    }

    int Judge(const std::string& file, bool good) {
        const TransferBlocks written = Program(true);
        if (!written.AllAccepted()) {
            return Fail(written, "of the unit's program, by macro address, " +
                                     written.WhatUnitHolds() + "; upload it again");
        }
        const TransferBlocks read = Program(false);
        if (refusal_ || !read.AllAccepted() || !good) {
            const std::string why = refusal_ ? *refusal_ + "; " : std::string();
            return Fail(read, why +
                                  "every block was written and accepted, but the read-back is "
                                  "not whole; upload it again");
        }
        const std::vector<std::string> differing = Differing();
        if (differing.empty()) return kExitDone;
        const std::size_t others = differing.size() - 1;
        return Fail("the unit's program differs from " + file + " at address " + differing[0] +
                    (others == 0 ? "" : " and " + std::to_string(others) + " more") +
                    "; upload it again");
    }

    // Addresses whose two bytes in the unit are others than in the file.
    std::vector<std::string> Differing() const {
        std::vector<std::string> addresses;
        for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; i += 2) {
            if (read_back_.Get(i) == program_.Get(i) &&
                read_back_.Get(i + 1) == program_.Get(i + 1))
                continue;
            addresses.push_back(HexByte(static_cast<std::uint8_t>(i / 2)));
        }
        return addresses;
    }

    int WriteTriggers(const std::string& file) {
        TriggersTab& tab = tool_.main_form.triggers;
        const TriggerRows rows = text_.program.Rows();
        for (int i = 0; i < kTriggerRows; ++i) {
            const TriggerRow& row = rows[static_cast<std::size_t>(i)];
            const auto address = HexPair(row.address);
            tab.txtMTName(i).SetText(row.name);
            tab.txtMTPage(i).SetText(row.page);
            tab.txtMTAddress(i).SetText(address ? HexByte(*address) : "00");
            tab.chkMacro(i).SetChecked(row.enabled);
        }
        Begin();
        const bool good = driver_.Write(*FindTab("triggers"));
        const TransferBlocks written = WrittenTriggers();
        if (!good || !written.AllAccepted()) {
            return Fail(written, "the unit holds the program of " + file + ", and in the unit " +
                                     written.WhatUnitHolds());
        }
        context_.print("the unit holds the program and the macro triggers of " + file);
        return kExitDone;
    }

    const ProgramText& text_;
    MacroMemory program_;
    MacroMemory read_back_;
    Refusal refusal_;
    bool written_ = false;
};

}  // namespace

int DownloadMacro(CallContext& context, const MacroOptions& options) {
    return Download(context).Run(options.file);
}

int UploadMacro(CallContext& context, const MacroOptions& options, const ProgramText& text) {
    if (options.triggers && !text.HasTriggers()) {
        context.complain(options.file + " has no macro triggers; leave --triggers out");
        return kExitUsage;
    }
    return Upload(context, text).Run(options.file, options.triggers);
}

}  // namespace kestrane
