#pragma once

// The pages of the main form's tabs, each laid out in a file of its own.

#include "forms/mirror.h"
#include "screen/main_form.h"

namespace kestrane {

class Fading;

QWidget* BuildNetworkPage(Mirror& mirror, NetworkTab& tab);
QWidget* BuildPrivilegesPage(Mirror& mirror, PrivilegesTab& tab);
QWidget* BuildSecurityPage(Mirror& mirror, SecurityTab& tab);
QWidget* BuildNamesPage(Mirror& mirror, NamesTab& tab);
QWidget* BuildTriggersPage(Mirror& mirror, TriggersTab& tab);
QWidget* BuildOneWirePage(Mirror& mirror, OneWireTab& tab);
// What is measured fades.
QWidget* BuildChangeoverPage(Mirror& mirror, ChangeoverTab& tab, Fading& fading);
QWidget* BuildFirmwarePage(Mirror& mirror, FirmwareTab& tab);

}  // namespace kestrane
