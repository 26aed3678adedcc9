# The grid of rights: two bytes for each control port from 03E0 of both boards. Bit 0: own, 1: read
# others, 2: write others. What each combination reads and writes stands in
# port_privileges_test.cpp.

== The port in use is known from the settings
unit cms
set txtCurrentPort "1244"
    text "1244": txtCurrentPort
settings-read
quietly wait 300
choose SSTab1 1
    says ""
    index 1: SSTab1
    enabled false: fraNetworkSettings, fraMiscOptions, fraFixedIPSettings, fraTCPports, fraARP, fraSnmpSettings, fraUnitID, fraOledTimeout, fraArmButtons, fraSecuritySettings
    focus SSTab1: frmMainForm
click cmdReadTCPPortPriv
    hourglass
    says "Reading relay privileges"
    > 011103E202
    > 011103E402
    > 011103E002
    says "Reading display privileges"
    > 811103E202
    > 811103E402
    > 811103E002
    says "Privilege read complete"
    arrow
    operation "Read Port Privileges" complete
    enabled true: lblPriv(1 100-106 111-113 2 200-207 211-213), lblPrivRelay(107), lblPrivByte(110 120 130 1110 1120 1130 210 220 230 1210 1220 1230), cmdWriteTCPPortPriv
    value 1: chkPriv(110-117 121 123-124 210-217 221 225)
    enabled false: chkPriv(110-117 120-127 130-137 210-217 220-227 230-237)
    caption " 255": lblPrivByte(110 210)
    caption " 26": lblPrivByte(120)
    caption " 0": lblPrivByte(130 230)
    caption "255": lblPrivByte(1110 1210)
    caption "26": lblPrivByte(1120)
    caption "0": lblPrivByte(1130 1230)
    caption " 34": lblPrivByte(220)
    caption "34": lblPrivByte(1220)
    focus cmdReadTCPPortPriv: frmMainForm

== Without a port in use nothing is sent
unit cms
connected 1
set ConnectedPortIndex 0
click cmdReadTCPPortPriv
    hourglass
    says "Reading relay privileges"
    arrow
    operation "Read Port Privileges" stopped
    enabled true: lblPriv(1 100-106 111-113 2 200-207 211-213), lblPrivRelay(107), lblPrivByte(110 120 130 1110 1120 1130 210 220 230 1210 1220 1230)
    caption "-": lblPrivByte(1110 1120 1130 1210 1220 1230)
    focus cmdReadTCPPortPriv: frmMainForm
call cmdWriteTCPPortPriv
    hourglass
    says "Writing relay privileges"
    arrow
    operation "Write Port Privileges" stopped
    enabled true: cmdWriteTCPPortPriv

== Writing others implies reading them, from the next click on
unit cms
store 250 03E0 "\x05\x77\x10\x77\x10\x77"
connected 1
quietly set ConnectedPortIndex 1
click cmdReadTCPPortPriv
    = rights-read
    enabled true: lblPriv(1 100-106 111-113 2 200-207 211-213), lblPrivRelay(107), lblPrivByte(110 120 130 1110 1120 1130 210 220 230 1210 1220 1230), cmdWriteTCPPortPriv
    value 1: chkPriv(110 112 210-217 221 225)
    visible false: chkPriv(120-127 130-137)
    caption " 5": lblPrivByte(110)
    caption " 0": lblPrivByte(120 130 230)
    caption "5": lblPrivByte(1110)
    caption "-": lblPrivByte(1120 1130)
    caption " 255": lblPrivByte(210)
    caption " 34": lblPrivByte(220)
    caption "255": lblPrivByte(1210)
    caption "34": lblPrivByte(1220)
    caption "0": lblPrivByte(1230)
    focus cmdReadTCPPortPriv: frmMainForm
# No box changes, so none is clicked.
click cmdReadTCPPortPriv
    = rights-read
click chkPriv(111)
    value 1: chkPriv(111)
    caption " 7": lblPrivByte(110)
    focus chkPriv(111): frmMainForm
# It can't be cleared while the other stands.
click chkPriv(111)
# It also acts while a read changes boxes, and then the unit has the last word.
store 250 03E0 "\x0D"
click cmdReadTCPPortPriv
    hourglass
    says "Reading relay privileges"
    > FA1103E002
    > FA1103E202
    arrow
    operation "Read Port Privileges" stopped
    box "Privileges|Denied due to privilege settings"
    value 1: chkPriv(113)
    caption " 15": lblPrivByte(110)
    caption "13": lblPrivByte(1110)
    caption "-": lblPrivByte(1210 1220 1230)
    focus cmdReadTCPPortPriv: frmMainForm

== The read after a write runs under the reduced rights
unit cms
connected 1
quietly set ConnectedPortIndex 1
quietly click cmdReadTCPPortPriv
click chkPriv(112)
    value 0: chkPriv(112)
    caption " 251": lblPrivByte(110)
    focus chkPriv(112): frmMainForm
click chkPriv(111)
    value 0: chkPriv(111)
    caption " 249": lblPrivByte(110)
    focus chkPriv(111): frmMainForm
click cmdWriteTCPPortPriv
    hourglass
    says "Writing relay privileges"
    > FA1203E2021AFF
    > FA1203E40200FF
    > FA1203E002F9FF
    says "Writing display privileges"
    > FB1203E20222FF
    > FB1203E40200FF
    > FB1203E002FFFF
    says "Privilege write complete"
    arrow
    operation "Write Port Privileges" complete
    = rights-read
    visible false: chkPriv(120-127 130-137)
    value 0: chkPriv(121 123-124)
    caption " 0": lblPrivByte(120)
    caption "249": lblPrivByte(1110)
    caption "-": lblPrivByte(1120 1130)
    focus cmdWriteTCPPortPriv: frmMainForm
memory 250 03E0 2
    F9FF

== A refused write stops and reads nothing back
unit cms
connected 1
quietly set ConnectedPortIndex 1
quietly click cmdReadTCPPortPriv
# Taken away without the tool.
store 250 03E0 "\x01"
click cmdWriteTCPPortPriv
    hourglass
    says "Writing relay privileges"
    > FA1203E2021AFF
    arrow
    operation "Write Port Privileges" stopped
    box "Privileges|Denied due to privilege settings"
    focus cmdWriteTCPPortPriv: frmMainForm

== Boxes and the write button stay usable during a read
unit cms
connected 1
quietly set ConnectedPortIndex 1
quietly click cmdReadTCPPortPriv
after 150 click chkPriv(230)
click cmdReadTCPPortPriv
    hourglass
    says "Reading relay privileges"
    > FA1103E002
    > FA1103E202
    now click chkPriv(230)
    > FA1103E402
    says "Reading display privileges"
    > FB1103E002
    > FB1103E202
    > FB1103E402
    says "Privilege read complete"
    arrow
    operation "Read Port Privileges" complete
    focus chkPriv(230): frmMainForm

== A write that outlives its connection leaves the next one alone
unit cms
connected 1
quietly set ConnectedPortIndex 1
quietly click cmdReadTCPPortPriv
after 150 click cmdDisconnect
after 151 click cmdConnect
after 450 call cmdReadNetworkSettings
click cmdWriteTCPPortPriv
    hourglass
    says "Writing relay privileges"
    > FA1203E2021AFF
    > FA1203E40200FF
    now click cmdDisconnect
    says ""
    operation "Write Port Privileges" overtaken
    arrow
    now click cmdConnect
    now call cmdReadNetworkSettings
    = settings-read 2
    caption "Connected Port A": cmdConnect
    value false: OptButID(250)
    value true: OptButID(1)
    index 0: SSTab1
    visible true: tab(6), lblBackup, txtBackupUpper, txtBackupLower
    enabled true: fraNetworkSettings, lblNetBiosName, lblUnitLocation, lblUnitName, lblObtainIPAddress, fraMiscOptions, fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, fraTCPports, lblTcpControlEnable, qlblTcpControlPort, lblPasswordWarn, qlblAttackLimit, qlblKeyCounter, cmdChaskeyGen(0-2), lblTcpTimeout, txtForceDisconnect, qLabel60, qLabel63, fraARP, lblARP(0-2), lblARPtime, lblARPReset, fraSnmpSettings, lblSnmpPort, lblSysContact, fraUnitID, lblUnitID, fraOledTimeout, lblOledTimeoutText, lblIPonOLED, fraArmButtons, lblArmButtonsEnable, cmdWriteNetworkSettings, cmdResetEthernet, fraSecuritySettings, lblWebSecurityEnable, cmdReadChannelNames, cmdReadMacroTriggers
    = usual-settings
    = settings-last-boxes monitoring
    enabled false: lblPriv(1 100-106 111-113 2 200-207 211-213), lblPrivRelay(107), lblPrivByte(110 120 130 1110 1120 1130 210 220 230 1210 1220 1230), cmdWriteTCPPortPriv
    value 0: chkPriv(110-117 121 123-124 210-217 221 225)
    caption " 0": lblPrivByte(110 120 210 220)
    text "": txtMTPage(0-7)
    text "\xF1\xDAEJ\x11\xE8\x1C\xA8\x94\x02\xB4\xB1\xCC\xF7`\x10": txtAdminName
    text "\xC9\x00\xAB6\x00jf\x87\x5C\xBD\x1FN\x06\xB9/\xA0": txtAdminPassword
    interval 10: timGetResponse
    focus txtIPAddress (14 selected): frmMainForm
    1: RelayAddress, PasswordConfirmed
    129: DisplayAddress
    "CMS": UnitType
    "50Bg": UnitSerialBytes
    true: DataValid, MacroChanged
wait 3000
