#pragma once

// What several topics do to the main form: labels on and off, the screen's data cleared.

#include <array>
#include <string>

#include "screen/main_form.h"

namespace kestrane {

// Disables every label of the main form and each Key Gen button, enables the status panel.
void DisableLabels(MainForm& form);

// Enables every label whose container has that name, and the status panel.
void EnableLabels(MainForm& form, const std::string& framename);

// Disables every frame of the main form, nested ones too.
void DisableFrames(MainForm& form);

// The frames in which the network settings are edited, on whichever tab they stand. The one of the
// fixed addresses, which has rules of its own, is not among them.
std::array<Frame*, 10> SettingsFrames(MainForm& form);

// Every tab of SSTab1 on or off.
void SetTabsEnabled(MainForm& form, bool enabled);

// Selects the box's whole text.
void SelectAllText(TextBox& box);

// Empties the settings boxes, clears their check boxes, sets the firmware labels to "-" and the
// selection of the ARP interval to none.
void ClearTextBoxes(MainForm& form);
void ClearNameBoxes(MainForm& form);
void ClearMacroTriggerRows(MainForm& form);
void Clear1WireFields(MainForm& form);
void ClearPriviledges(MainForm& form);
void ClearWebFields(MainForm& form);

// Leaves the changeover panel: stops its refresh, clears its labels and values, disables its save
// buttons.
void abortCMSOptions(MainForm& form);

}  // namespace kestrane
