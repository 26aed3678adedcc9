#pragma once

// The controls of the macro editor off for a transfer, and on again as far as the operator may.

#include "screen/script_edit_form.h"

namespace kestrane {

void DisableEditorControls(ScriptEditForm& form);

// Without the administrator's login the program can be looked at and edited, but neither the unit
// nor a file be changed. READ LOCKS waits for the click on a row that it can load.
void EnableEditorControls(ScriptEditForm& form, bool admin_logged_in);

}  // namespace kestrane
