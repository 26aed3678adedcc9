#pragma once

// The listing: sixteen rows over the image, the cursor among them, and what acts on the image as a
// whole. The scroll bar's value is the cursor's address.

#include <string>

#include "link/session.h"
#include "macro/editor_state.h"
#include "screen/script_edit_form.h"

namespace kestrane {

class Listing {
  public:
    Listing(ScriptEditForm& form, const Session& session, EditorState& state);

    // Called by everything that has changed the image or the cursor.
    void RefreshListing();

    void lblCommand_Click(int row);
    void cmdClearMem_Click();
    void cmdBasicSettings_Click();

  private:
    void PlaceAround(int cursor);
    void PlaceCursor(int cursor);
    void ShowRow(int row);

    ScriptEditForm& form_;
    const Session& session_;
    EditorState& state_;
    std::string decoded_;  // room for the text of a row
};

}  // namespace kestrane
