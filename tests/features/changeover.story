# Changeover: six start-up bytes from 000A of the relay board, live values with every pass of the
# refresh (31: inlets; 39: 19 bytes), saves as live (3A) and as start-up (12).

== Read, the first pass, an edit that stays, leaving the tab
store 250 000A "\x01\x10\x03\x04\x05\x04"
answer FA31 "\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x00"
answer FA39 "\x00\x00\x0B\x0C\x0D\x0E\x02\x14\x15\x64\x10\x07\x01\x02\x03\x00\x09\x00\x00"
connected 6
click cmdReadCMSOptions
    hourglass
    says "Reading Changeover Data"
    > FA11000A06
    says "Reading Changeover Data Complete"
    arrow
    operation "Read Changeover Options" complete
    enabled true: cmdResetEthernet, fraChangeoverOptions, grpOffTimeMain, lblOffTimeMain, grpOffTimeBackup, lblOffTimeBackup, grpPhase, lblPhase, grpChangeBackDelay, lblChangeBack, grpAlarm, lblAlarmDefault, lblLiveColumn, lblStartupColumn, fraDefaultInlet, fraDefaultInletLive, fraDefaultInletStart, lblDefaultIn, lblLockout, cmdSaveCurrent(0-1), cmdSaveStartup(0-1), timCMSOptions
    text "1": txtStartup(0)
    fore 0: txtStartup(0-4)
    text "16": txtStartup(1)
    text "3": txtStartup(2)
    text "4": txtStartup(3)
    text "5": txtStartup(4)
    value 254: scrStartup(0)
    value 239: scrStartup(1)
    value 252: scrStartup(2)
    value 251: scrStartup(3)
    value 250: scrStartup(4)
    value true: optInE2P(4)
    focus cmdReadCMSOptions: frmMainForm
    true: ChangeoverRead
wait 1200
    > FA31
    > FA39
    says "Reading Live Changeover Data"
    > FA31
    > FA39
    caption "Measured 20 samples": lblOffTimeMain
    caption "Measured 21 samples": lblOffTimeBackup
    caption "A/B 100, B/A 16 samples": lblPhase
    caption "Current counter 7": lblChangeBack
    text "11": txtCurrent(3)
    fore 0: txtCurrent(3-6)
    text "12": txtCurrent(4)
    text "13": txtCurrent(5)
    text "14": txtCurrent(6)
    value 244: scrCurrent(3)
    value 243: scrCurrent(4)
    value 242: scrCurrent(5)
    value 241: scrCurrent(6)
    value true: optInLive(2)
    caption "2": lblDefaultIn
    caption " 9": lblLockout
    "\x00\x00\x0B\x0C\x0D\x0E\x02\x14\x15d\x10\x07\x01\x02\x03\x00\x09\x00\x00": ChangeoverStatus
type txtCurrent(3) "50"
    text "50": txtCurrent(3)
    fore 255: txtCurrent(3)
    value 205: scrCurrent(3)
    focus txtCurrent(3) (0 selected): frmMainForm
wait 1200
    > FA31
    > FA39
    > FA31
    > FA39
# Only the main supply, only the backup, none.
answer FA31 "\x00\x00\x00\x00\x00\x40\x00\x00\x00\x00\x00\x00\x00"
wait 1200
    > FA31
    > FA39
    > FA31
    > FA39
    caption "No supply": lblOffTimeBackup
    caption "Need two supplies to measure": lblPhase
answer FA31 "\x00\x00\x00\x00\x00\x80\x00\x00\x00\x00\x00\x00\x00"
wait 1200
    > FA31
    > FA39
    > FA31
    > FA39
    caption "No supply": lblOffTimeMain
    caption "Measured 21 samples": lblOffTimeBackup
answer FA31 "\x00\x00\x00\x00\x00\x3F\x00\x00\x00\x00\x00\x00\x00"
wait 1200
    > FA31
    > FA39
    > FA31
    > FA39
    caption "No supply": lblOffTimeBackup
# Another read copies the live values anew.
click cmdReadCMSOptions
    hourglass
    says "Reading Changeover Data"
    > FA11000A06
    says "Reading Changeover Data Complete"
    arrow
    operation "Read Changeover Options" complete
    focus cmdReadCMSOptions: frmMainForm
wait 1200
    > FA31
    > FA39
    says "Reading Live Changeover Data"
    > FA31
    > FA39
    text "11": txtCurrent(3)
    fore 0: txtCurrent(3)
    value 244: scrCurrent(3)
set SSTab1 0
    says ""
    index 0: SSTab1
    enabled true: fraNetworkSettings, fraMiscOptions, fraFixedIPSettings, fraTCPports, fraARP, fraSnmpSettings, fraUnitID, fraOledTimeout, fraArmButtons, fraTcpControlSettings, fraSecuritySettings
    enabled false: fraChangeoverOptions, grpOffTimeMain, grpOffTimeBackup, grpPhase, grpChangeBackDelay, grpAlarm, fraDefaultInlet, fraDefaultInletLive, fraDefaultInletStart, cmdSaveCurrent(0-1), cmdSaveStartup(0-1), fraFirmwareUpdate, timCMSOptions
    caption "": lblOffTimeMain, lblOffTimeBackup, lblPhase, lblChangeBack
    text "0": txtCurrent(3-6), txtStartup(0-4)
    fore 255: txtCurrent(3-6), txtStartup(0-4)
    value 255: scrCurrent(3-6), scrStartup(0-4)
    focus txtIPAddress (0 selected): frmMainForm
wait 3000

== A failed read leaves the panel as it was, and nothing to save
reply FA11000A06
connected 6
quietly set txtStartup(0) "77"
click cmdReadCMSOptions
    hourglass
    says "Reading Changeover Data"
    > FA11000A06
    says "Reading Changeover Data Complete"
    arrow
    operation "Read Changeover Options" stopped
    enabled true: lblOffTimeMain, lblOffTimeBackup, lblPhase, lblChangeBack, lblAlarmDefault, lblLiveColumn, lblStartupColumn, lblDefaultIn, lblLockout
    focus cmdReadCMSOptions: frmMainForm
call cmdSaveStartup(0)
    operation "Save Changeover Options as Startup" stopped
    box "Not read|The startup changeover values have not been read on this connection. Nothing was written."
call cmdSaveStartup(1)
    operation "Save Default Inlet as Startup" stopped
    box "Not read|The startup changeover values have not been read on this connection. Nothing was written."
call cmdSaveCurrent(0)
    operation "Save Changeover Options as Live" stopped
    box "Not read|The live changeover values have not been read on this connection. Nothing was written."
call cmdSaveCurrent(1)
    operation "Save Default Inlet as Live" stopped
    box "Not read|The live changeover values have not been read on this connection. Nothing was written."

== Save as live and as start-up
# A refusal of the live save is ignored like any other answer; the alarm is not saved.
store 250 000A "\x01\x10\x03\x04\x05\x04"
answer FA31 "\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x00"
answer FA39 "\x00\x00\x0B\x0C\x0D\x0E\x02\x14\x15\x64\x10\x07\x01\x02\x03\x00\x09\x00\x00"
connected 6
quietly click cmdReadCMSOptions
quietly wait 1200
type txtCurrent(4) "16"
    text "16": txtCurrent(4)
    fore 255: txtCurrent(4)
    value 239: scrCurrent(4)
    focus txtCurrent(4) (0 selected): frmMainForm
refuse FA3A020B0310040D050E
click cmdSaveCurrent(0)
    hourglass
    arrow
    hourglass
    says "Writing live data"
    > FA3A020B0310040D050E
    says "Writing live data complete"
    arrow
    operation "Save Changeover Options as Live" stopped
    focus cmdSaveCurrent(0): frmMainForm
answer FA39 "\x00\x00\x0B\x10\x0D\x0E\x02\x14\x15\x64\x10\x07\x01\x02\x03\x00\x09\x00\x00"
wait 1200
    > FA31
    > FA39
    says "Reading Live Changeover Data"
    > FA31
    > FA39
    fore 0: txtCurrent(4)
    "\x00\x00\x0B\x10\x0D\x0E\x02\x14\x15d\x10\x07\x01\x02\x03\x00\x09\x00\x00": ChangeoverStatus
type txtStartup(2) "30"
    text "30": txtStartup(2)
    fore 255: txtStartup(2)
    value 225: scrStartup(2)
    focus txtStartup(2) (0 selected): frmMainForm
click cmdSaveStartup(0)
    hourglass
    arrow
    hourglass
    says "Writing Startup Data"
    > FA12000A0401101E04
    says "Writing Startup Data Complete"
    arrow
    operation "Save Changeover Options as Startup" complete
    fore 0: txtStartup(2)
    focus cmdSaveStartup(0): frmMainForm
type txtStartup(4) "200"
    text "200": txtStartup(4)
    fore 255: txtStartup(4)
    value 55: scrStartup(4)
    focus txtStartup(4) (0 selected): frmMainForm
click cmdSaveStartup(0)
    hourglass
    arrow
    hourglass
    says "Writing Startup Data"
    > FA12000A0401101E04
    says "Writing Startup Data Complete"
    arrow
    operation "Save Changeover Options as Startup" complete
    focus cmdSaveStartup(0): frmMainForm
refuse FA12000A0401101E04
click cmdSaveStartup(0)
    hourglass
    arrow
    hourglass
    says "Writing Startup Data"
    > FA12000A0401101E04
    arrow
    operation "Save Changeover Options as Startup" stopped
    box "Privileges|Denied due to privilege settings"

== Saving the inlet sends the chosen one, if any
store 250 000A "\x01\x10\x03\x04\x05\x04"
answer FA31 "\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x00"
answer FA39 "\x00\x00\x0B\x0C\x0D\x0E\x02\x14\x15\x64\x10\x07\x01\x02\x03\x00\x09\x00\x00"
connected 6
quietly click cmdReadCMSOptions
quietly wait 1200
quietly set optInE2P(4) false
quietly set optInLive(2) false
click cmdSaveCurrent(1)
    hourglass
    arrow
    hourglass
    says "Writing live data"
    > FA3A
    says "Writing live data complete"
    arrow
    operation "Save Default Inlet as Live" complete
    focus cmdSaveCurrent(1): frmMainForm
click cmdSaveStartup(1)
    hourglass
    arrow
    hourglass
    says "Writing Startup Data"
    arrow
    operation "Save Default Inlet as Startup" stopped
    focus cmdSaveStartup(1): frmMainForm
click optInLive(5)
    value true: optInLive(5)
    focus optInLive(5): frmMainForm
click optInE2P(1)
    value true: optInE2P(1)
    focus optInE2P(1): frmMainForm
click cmdSaveCurrent(1)
    hourglass
    arrow
    hourglass
    says "Writing live data"
    > FA3A0605
    says "Writing live data complete"
    arrow
    operation "Save Default Inlet as Live" complete
    focus cmdSaveCurrent(1): frmMainForm
click cmdSaveStartup(1)
    hourglass
    arrow
    hourglass
    says "Writing Startup Data"
    > FA12000F0101
    says "Writing Startup Data Complete"
    arrow
    operation "Save Default Inlet as Startup" complete
    focus cmdSaveStartup(1): frmMainForm

== A disconnect during a save sends nothing
store 250 000A "\x01\x10\x03\x04\x05\x04"
answer FA31 "\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x00"
answer FA39 "\x00\x00\x0B\x0C\x0D\x0E\x02\x14\x15\x64\x10\x07\x01\x02\x03\x00\x09\x00\x00"
connected 6
quietly click cmdReadCMSOptions
quietly wait 1200
quietly set timCMSOptions enabled false
quietly wait 1000
after 300 click cmdDisconnect
after 310 click cmdConnect
click cmdSaveCurrent(0)
    hourglass
    arrow
    now click cmdDisconnect
    says ""
    operation "Save Changeover Options as Live" overtaken
    now click cmdConnect
    index 0: SSTab1
    enabled false: tab(0-8), cmdResetEthernet, fraChangeoverOptions, grpOffTimeMain, lblOffTimeMain, grpOffTimeBackup, lblOffTimeBackup, grpPhase, lblPhase, grpChangeBackDelay, lblChangeBack, grpAlarm, lblAlarmDefault, lblLiveColumn, lblStartupColumn, fraDefaultInlet, fraDefaultInletLive, fraDefaultInletStart, lblDefaultIn, lblLockout, cmdSaveCurrent(0-1), cmdSaveStartup(0-1), fraFirmwareUpdate
    visible false: tab(6)
    text "": txtMTPage(0-7)
    caption "": lblOffTimeMain, lblOffTimeBackup, lblPhase, lblChangeBack, lblDefaultIn, lblLockout
    text "0": txtCurrent(3-6), txtStartup(0-4)
    fore 255: txtCurrent(3-6), txtStartup(0-4)
    value 255: scrCurrent(3-6), scrStartup(0-4)
    interval 10: timGetResponse
    focus none: frmMainForm
    false: AdminLoggedIn, ChangeoverRead

== Boxes and bars hold plain numbers of one byte
store 250 000A "\x01\x10\x03\x04\x05\x04"
connected 6
quietly click cmdReadCMSOptions
set txtCurrent(3) "300"
    text "255": txtCurrent(3)
    value 0: scrCurrent(3)
set txtCurrent(3) ""
    text "0": txtCurrent(3)
    value 255: scrCurrent(3)
set txtCurrent(3) "007"
    text "7": txtCurrent(3)
    value 248: scrCurrent(3)
set txtCurrent(3) "-5"
    text "0": txtCurrent(3)
    value 255: scrCurrent(3)
set txtCurrent(3) "254"
    text "254": txtCurrent(3)
    value 1: scrCurrent(3)
set txtCurrent(3) "x"
    text "0": txtCurrent(3)
    value 255: scrCurrent(3)
type txtStartup(3) "300"
    text "255": txtStartup(3)
    fore 255: txtStartup(3)
    value 0: scrStartup(3)
    focus txtStartup(3) (0 selected): frmMainForm
choose scrCurrent(3) 250
    text "5": txtCurrent(3)
    value 250: scrCurrent(3)
    focus scrCurrent(3): frmMainForm
choose scrStartup(3) 251
    text "4": txtStartup(3)
    fore 0: txtStartup(3)
    value 251: scrStartup(3)
    focus scrStartup(3): frmMainForm
go txtStartup(0)
    focus txtStartup(0) (1 selected): frmMainForm
# Leaving the tab writes 000, which the boxes turn into plain decimal.
set SSTab1 0
    says ""
    index 0: SSTab1
    enabled true: fraNetworkSettings, fraMiscOptions, fraFixedIPSettings, fraTCPports, fraARP, fraSnmpSettings, fraUnitID, fraOledTimeout, fraArmButtons, fraTcpControlSettings, fraSecuritySettings
    enabled false: fraChangeoverOptions, grpOffTimeMain, grpOffTimeBackup, grpPhase, grpChangeBackDelay, grpAlarm, fraDefaultInlet, fraDefaultInletLive, fraDefaultInletStart, cmdSaveCurrent(0-1), cmdSaveStartup(0-1), fraFirmwareUpdate, timCMSOptions
    text "0": txtCurrent(3), txtStartup(0-4)
    value 255: scrCurrent(3), scrStartup(0-4)
    fore 255: txtStartup(0-4)
    focus txtIPAddress (0 selected): frmMainForm
