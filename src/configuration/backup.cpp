#include "configuration/backup.h"

#include "configuration/screen_values.h"

namespace kestrane {
namespace {

// An ARP byte that this tool never writes, such as 0x18, reads as what no file may hold.
void LeaveOutWhatCannotStandTogether(Backup& backup) {
    const auto fault = CheckTogether(backup.values);
    if (!fault) return;
    const Setting* const repeat = FindSetting("arp.repeat");
    backup.values.erase(repeat);
    backup.left_out[repeat] = "it " + *fault;
}

}  // namespace

Backup ReadBackup(UnitSession& session, bool with_secrets) {
    Backup backup;
    const auto fail = [&] {
        backup.error = session.Failure();
        return backup;
    };
    if (!session.Connect() || !session.Read(*FindTab("network")) || !session.ReadFacts()) {
        return fail();
    }
    Tool& tool = session.tool();
    const FirmwareTab& firmware = tool.main_form.firmware;
    backup.unit = {firmware.lblType.Caption(), firmware.lblSerialNo.Caption(),
                   firmware.lblRelayVersion.Caption(), firmware.lblDisplayVersion.Caption()};
    for (const TabRow& tab : TabRows()) {
        const bool missing = session.Missing(tab);
        const bool network = tab.page == 0;
        if (tab.kind == TabKind::kFirmware) continue;
        if (!missing && !network && !session.Read(tab)) return fail();
        for (const Setting& setting : Settings()) {
            if (!tab.Holds(setting)) continue;
            const ShownValue shown = missing ? ShownValue{{}, kNotOnThisUnit}
                                             : ValueOnScreen(tool, setting, session.Program());
            if (setting.secret && !with_secrets && shown.value) {
                backup.left_out[&setting] = "secret";
            } else if (shown.FitsAFile()) {
                backup.values[&setting] = *shown.value;
            } else {
                backup.left_out[&setting] = shown.why_not;
            }
        }
    }
    LeaveOutWhatCannotStandTogether(backup);
    return backup;
}

}  // namespace kestrane
