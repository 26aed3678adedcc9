#pragma once

// The macro editor's window: the unit's picture on top, the listing below it with what inserts an
// instruction beside it, the actions at the foot.

#include <QProgressBar>

#include "forms/form_window.h"
#include "screen/script_edit_form.h"

namespace kestrane {

// The outlets with light, fuse, names and switches, then the inlets.
QWidget* BuildUnitPicture(Mirror& mirror, ScriptEditForm& form);
// A button for each instruction but the masks, in rows by what they are about.
QWidget* BuildInstructionButtons(Mirror& mirror, ScriptEditForm& form);
// The mask builder with the instructions that take a mask.
QWidget* BuildOutletMasks(Mirror& mirror, ScriptEditForm& form);

class ScriptEditWindow : public FormWindow {
  public:
    ScriptEditWindow(ScriptEditForm& form, Hand& hand, WhyDisabledFunction why_disabled,
                     QWidget* owner);

    QSize sizeHint() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* Listing();
    QWidget* Instructions();
    QLayout* StatusLine();
    QLayout* SecondByte();
    QLayout* Actions();
    void ShowProgress();

    ScriptEditForm& form_;
    QScrollBar* scroll_ = nullptr;
    QProgressBar* progress_ = nullptr;
};

}  // namespace kestrane
