#pragma once

// What a unit holds, read whole, as a configuration file has it.

#include <string>

#include "configuration/file.h"
#include "configuration/unit_session.h"

namespace kestrane {

struct Backup {
    UnitFacts unit;
    SettingValues values;
    LeftOut left_out;
    std::string error;  // one line, if it could not be read whole
};

// Connects and reads every tab, and the macro.
Backup ReadBackup(UnitSession& session, bool with_secrets);

}  // namespace kestrane
