#include "macro/editor_controls.h"

namespace kestrane {
namespace {

void SetEnabled(ScriptEditForm& form, bool enabled) {
    for (Control* control : form.controls()) {
        const Kind kind = control->kind();
        if (kind == Kind::kButton || kind == Kind::kCheckBox || kind == Kind::kTextBox) {
            control->SetEnabled(enabled);
        }
    }
    form.scrListScroll.SetEnabled(enabled);
}

}  // namespace

void DisableEditorControls(ScriptEditForm& form) { SetEnabled(form, false); }

void EnableEditorControls(ScriptEditForm& form, bool admin_logged_in) {
    SetEnabled(form, true);
    form.cmdReadLocks.SetEnabled(false);
    if (admin_logged_in) return;
    for (Button* button : {&form.cmdUpload, &form.cmdSaveFile, &form.cmdLoadFile, &form.cmdGoTo}) {
        button->SetEnabled(false);
    }
}

}  // namespace kestrane
