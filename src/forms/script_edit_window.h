#pragma once

// The macro editor's window: the unit's picture on top, the listing below it with what inserts an
// instruction beside it, the actions at the foot.

#include <QAction>
#include <QMenu>
#include <QProgressBar>
#include <array>
#include <map>

#include "forms/fading.h"
#include "forms/form_window.h"
#include "forms/listing_row.h"
#include "forms/simulation_pane.h"
#include "forms/source_box.h"
#include "macro/macro_editor.h"
#include "screen/script_edit_form.h"

namespace kestrane {

// Over the ON and OFF buttons, which insert an instruction and switch nothing.
struct InsertHeading {
    QLabel* text;
    QLineEdit* line;
};

// The outlets with light, fuse and names, then the inlets. The lights fade.
QWidget* BuildUnitPicture(Mirror& mirror, ScriptEditForm& form, InsertHeading heading,
                          Fading& fading);
// A button for each instruction but the masks, in rows by what they are about.
QWidget* BuildInstructionButtons(Mirror& mirror, ScriptEditForm& form);
// The mask builder with the instructions that take a mask.
QWidget* BuildOutletMasks(Mirror& mirror, ScriptEditForm& form);

class ScriptEditWindow : public FormWindow {
  public:
    ScriptEditWindow(ScriptEditForm& form, MacroEditor& editor, Hand& hand,
                     const LiveAnswers& answers, WhyDisabledFunction why_disabled, QWidget* owner);

    QSize sizeHint() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    QWidget* Listing();
    QWidget* Instructions();
    QLayout* StatusLine();
    QLayout* SecondByte();
    QLayout* Actions();
    void ShowProgress();

    void MakeActions();
    QAction* AddAction(const char* text, const QKeySequence& keys, void (ScriptEditWindow::*act)());
    void Undo();
    void Redo();
    void Copy();
    void Paste();
    void TypeLines();
    void Upload();
    void LoadFile();
    void SaveFile();
    // False, and told in a box, if the source does not assemble.
    bool PutAtCursor(const QString& source, const char* failure);
    void Simulate();

    // What the editor knows beside the controls: marks, names, the last action.
    void ShowEdits();
    void ShowRow(int row);
    void FindFindings();
    std::optional<std::uint8_t> TargetOf(int trigger) const;
    int Cursor() const { return form_.scrListScroll.ScrollValue(); }
    std::string TipOf(const Control& control) const;
    std::string TipOfLine(int row) const;
    std::string TipOfLight(int position) const;

    ScriptEditForm& form_;
    MacroEditor& editor_;
    QMenu* menu_ = nullptr;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    QLabel* insert_heading_ = nullptr;
    SourceBox* line_ = nullptr;
    QLabel* said_ = nullptr;
    std::array<ListingRow*, ScriptEditForm::kRows> rows_{};
    SimulationPane* simulation_ = nullptr;
    std::optional<std::uint8_t> running_;  // in the simulation
    std::optional<EditedProgram> checked_;
    std::map<std::uint8_t, std::vector<Finding>> findings_;  // of `checked_`
    int anchor_ = 0;                                         // the other end of what is selected
    int last_cursor_ = 0;
    QScrollBar* scroll_ = nullptr;
    QProgressBar* progress_ = nullptr;
};

}  // namespace kestrane
