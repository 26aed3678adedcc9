#pragma once

// The macro editor on virtual time. Its form is modal, so what a test does there runs as an event
// of its own, once the opening is done.

#include <gmock/gmock.h>

#include "macro/macro_memory.h"
#include "support/tool_on_line.h"

namespace kestrane {

template <class World>
struct OpenEditor : World {
    using World::World;

    ScriptEditForm& editor = this->tool.script_edit_form;
    EditorState& state = this->tool.macro_editor.state();

    // Presses "Edit Macro" now; returns when the editor was closed.
    void PressEdit() { this->form.triggers.cmdEditMacro.on_click(); }

    // Opens the editor, runs `body` `opening` milliseconds later, with nothing waiting
    // below it, and closes it again.
    void InEditor(std::function<void()> body, int opening, bool idle = true) {
        bool returned = false;
        this->After(1, [&] {
            PressEdit();
            returned = true;
        });
        const auto run = [&] {
            ASSERT_TRUE(editor.Visible());
            body();
            if (editor.Visible()) CloseEditor();
        };
        this->After(opening, [&] {
            if (!idle) return run();
            // A poll that waits now could not go on before `body` has ended.
            const bool polling = editor.timUpdate.Enabled();
            editor.timUpdate.SetEnabled(false);
            this->After(230, [&run, polling, this] {
                editor.timUpdate.SetEnabled(polling);
                run();
            });
        });
        EXPECT_TRUE(this->world.loop.RunUntil([&] { return returned; }, std::chrono::hours(2)));
        EXPECT_FALSE(editor.Visible());
        for (const Timer* timer : {&editor.timUpdate, &editor.timTrace, &editor.timUDColour}) {
            EXPECT_FALSE(timer->Enabled()) << timer->name();
        }
    }
    void CloseEditor() { EXPECT_EQ(this->tool.hand.Close(editor).value_or(""), ""); }
    void Insert(int opcode) { this->Click(editor.cmdInsertCommand(opcode)); }
    void MoveTo(int address) {
        EXPECT_EQ(this->tool.hand.Choose(editor.scrListScroll, address).value_or(""), "");
    }
    void SetChecked(CheckBox& box, bool checked) {
        if (box.Checked() != checked) this->Click(box);
    }
    void Put(int address, int opcode, int second) {
        state.image.Set(static_cast<std::size_t>(2 * address), static_cast<std::uint8_t>(opcode));
        state.image.Set(static_cast<std::size_t>(2 * address + 1),
                        static_cast<std::uint8_t>(second));
    }
    // "C6 03" of the instruction at an address of the image.
    std::string At(int address) const {
        const auto at = static_cast<std::uint8_t>(address);
        return HexByte(state.image.Opcode(at)) + " " + HexByte(state.image.SecondByte(at));
    }
};

// Without a connection; the administrator is logged in so that every button can be pressed.
struct OfflineEditor : OpenEditor<ToolOnLine> {
    void InEditor(std::function<void()> body) {
        session.CheckPassword();
        OpenEditor::InEditor(std::move(body), 50);
    }
};

// On the demo unit, its settings read. The opening reads triggers, names and the program.
struct EditorOnUnit : OpenEditor<ToolOnUnit> {
    static constexpr int kOpening = 8000;

    explicit EditorOnUnit(const unit::UnitOptions& options = {}) : OpenEditor(options) {}

    void InEditor(std::function<void()> body) {
        ReadSettings();
        OpenEditor::InEditor(std::move(body), kOpening);
    }

    // The 224 bytes of the program, in the unit and in the editor.
    std::string UnitProgram() {
        return peer.unit().Relay().Read(MacroMemory::kProgramBegin,
                                        MacroMemory::kProgramEnd - MacroMemory::kProgramBegin);
    }
    std::string EditorProgram() const {
        std::string program;
        for (std::size_t i = MacroMemory::kProgramBegin; i < MacroMemory::kProgramEnd; ++i) {
            program.push_back(static_cast<char>(state.image.Get(i)));
        }
        return program;
    }
};

}  // namespace kestrane
