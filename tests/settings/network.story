# The network settings: sixteen blocks of the display board, the unit's own ID and type.

== Read, change a name, write
unit cms
quietly click cmdConnect
quietly wait 250
click cmdReadNetworkSettings
    = settings-read
    = settings-enabled
    = usual-settings
    = settings-last monitoring
type txtUnitName "New name"
    text "New name": txtUnitName
    focus txtUnitName (0 selected): frmMainForm
click cmdWriteNetworkSettings
    = blocks-to-6 4E6577206E616D652020202020202020
    says "Writing block 7 of 14"
    > 811202901020202020202020202020202020202020
    says "Writing block 8 of 14"
    > 811202E00D6D6F6E69746F7269FF0A141E31
    says "Writing block 9 of 14"
    > 811202F010FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF
    says "Writing block 10 of 14"
    > 8112030010FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF
    says "Writing block 11 of 14"
    > 8112031010FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF
    says "Writing block 12 of 14"
    > 81120320106E670000000000000000000000000000
    says "Writing block 13 of 14"
    > 811201E0104E6574776F726B204465736B20202020
    says "Memory write complete."
    arrow
    operation "Write Network Settings" complete
    enabled true: fraTimeServer
    focus cmdWriteNetworkSettings: frmMainForm

== Without a community of its own there is one block less
unit cms
store 251 02E0 "\xFF"*8
quietly click cmdConnect
quietly wait 250
click cmdReadNetworkSettings
    = settings-read-without-community
    = settings-enabled
    = usual-settings
    = settings-last public

== Erased memory
# Names show any byte. 255 / 16 rounds to 16, which is masked to the first item of the list.
unit cms
store 251 0010 "\xFF"*800
quietly click cmdConnect
quietly wait 250
click cmdReadNetworkSettings
    = settings-read-without-community
    value false: OptButID(250)
    value true: OptButID(1)
    enabled true: tab(0-8), fraNetworkSettings, lblNetBiosName, lblUnitLocation, lblUnitName, lblObtainIPAddress, fraMiscOptions, fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, fraTCPports, lblTcpControlEnable, qlblTcpControlPort, lblPasswordWarn, qlblAttackLimit, qlblKeyCounter, cmdChaskeyGen(0-2), lblTcpTimeout, txtForceDisconnect, qLabel60, qLabel63, fraARP, lblARP(0-2), lblARPtime, lblARPReset, fraSnmpSettings, lblSnmpPort, lblSysContact, fraUnitID, lblUnitID, fraOledTimeout, lblOledTimeoutText, lblIPonOLED, fraArmButtons, lblArmButtonsEnable, cmdWriteNetworkSettings, cmdResetEthernet, fraTcpControlSettings, fraSecuritySettings, lblWebSecurityEnable, cmdReadChannelNames, cmdReadMacroTriggers
    visible true: tab(6), lblBackup, txtBackupUpper, txtBackupLower
    text "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF": txtNetbiosName, txtUnitLocation, txtUnitName
    value 1: chkDHCP, chkTcpControlEnable(0-2), chkARP(0-2), chkARPReset, chkIPonOLED, chkArmEnable
    text "255.255.255.255": txtTimeServerIP, txtIPAddress, txtSubnetMask, txtDefaultGateway, txtPrimaryDNS, txtSecondaryDNS
    fore 255: fraFixedIPSettings, lblIPAddress
    fore 0: lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, txtChaskey(0-2)
    text "65535": txtTcpControlPort(0-2)
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtChaskey(0-2)
    text "255": txtAttackLimit(0-2), txtKeyCounter(0-2)
    text "0": txtForceDisconnect, txtOledTimeout
    index 0: cmbARPtime
    text "public": txtCommunity
    text "01": txtUnitID
    text "": txtMTPage(0-7)
    focus txtNetbiosName (16 selected): frmMainForm
    1: RelayAddress, PasswordConfirmed
    129: DisplayAddress
    "CMS": UnitType
    "50Bg": UnitSerialBytes
    true: AdminLoggedIn, DataValid, MacroChanged

== Stored numbers that change on the way back
# A screen timeout that was never programmed, force disconnect 0, limits, an ARP bit that the tool
# never writes; counters stay.
unit cms
store 251 003E "\x00"
store 251 02E8 "\x00\x00\xFF\x32\x18"
settings-read
show txtAttackLimit(0) txtAttackLimit(1) txtAttackLimit(2) txtForceDisconnect txtOledTimeout text
    text "0": txtAttackLimit(0), txtForceDisconnect
    text "255": txtAttackLimit(1)
    text "50": txtAttackLimit(2)
    text "120": txtOledTimeout
show cmbARPtime index
    index 2: cmbARPtime
show chkARP(0) value
    value 0: chkARP(0)
quietly click cmdWriteNetworkSettings
memory 251 003E 1
    0C
memory 251 02E8 8
    FFFFFF3220030201

== Bytes that a box can't show survive
unit cms
store 251 0040 "\x00\x00\x00\xFF\x00\x00\x00\x10\x00\x00\x00\x00\x00\x00\x00x"
settings-read
store 251 0040 "y"*16
quietly click cmdWriteNetworkSettings
memory 251 0040 16
    000000FF000000100000000000000078

== A failed read leaves its traces until the next connection
unit cms
quietly click cmdConnect
quietly wait 250
drop 2
click cmdReadNetworkSettings
    hourglass
    says "Read Unit ID"
    > FA11000010
    says "Reading block 1 of 14."
    > 811102C010
    says "Reading block 2 of 14."
    > 811102D010
    arrow
    operation "Read Network Settings" stopped
    value false: OptButID(250)
    value true: OptButID(1)
    text "01": txtUnitID
    enabled false: cmdReadNetworkSettings, cmdHelp
    text "": txtMTPage(0-7)
    text "\xF1\xDAEJ\x11\xE8\x1C\xA8\x94\x02\xB4\xB1\xCC\xF7`\x10": txtAdminName
    1: RelayAddress
    129: DisplayAddress
    "50Bg": UnitSerialBytes
wait 1000
quietly click cmdDisconnect
quietly click cmdConnect
quietly wait 250
click cmdReadNetworkSettings
    = settings-read 2
    caption "Connected Port A": cmdConnect
    value false: OptButID(250)
    value true: OptButID(1)
    enabled true: tab(0-8), fraNetworkSettings, lblNetBiosName, lblUnitLocation, lblUnitName, lblObtainIPAddress, fraMiscOptions, fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, fraTCPports, lblTcpControlEnable, qlblTcpControlPort, lblPasswordWarn, qlblAttackLimit, qlblKeyCounter, cmdChaskeyGen(0-2), lblTcpTimeout, txtForceDisconnect, qLabel60, qLabel63, fraARP, lblARP(0-2), lblARPtime, lblARPReset, fraSnmpSettings, lblSnmpPort, lblSysContact, fraUnitID, lblUnitID, fraOledTimeout, lblOledTimeoutText, lblIPonOLED, fraArmButtons, lblArmButtonsEnable, cmdWriteNetworkSettings, cmdResetEthernet, fraTcpControlSettings, fraSecuritySettings, lblWebSecurityEnable, cmdReadChannelNames, cmdReadMacroTriggers, cmdHelp
    visible true: tab(6), lblBackup, txtBackupUpper, txtBackupLower
    = usual-settings
    = settings-last-boxes monitoring
    text "\xF1\xDAEJ\x11\xE8\x1C\xA8\x94\x02\xB4\xB1\xCC\xF7`\x10": txtAdminName
    text "\xC9\x00\xAB6\x00jf\x87\x5C\xBD\x1FN\x06\xB9/\xA0": txtAdminPassword
    focus txtIPAddress (14 selected): frmMainForm
    1: RelayAddress, PasswordConfirmed, ConnectedPortIndex
    129: DisplayAddress
    "CMS": UnitType
    true: AdminLoggedIn, DataValid, MacroChanged

== A failed write leaves earlier blocks and closes the editing
unit cms
settings-read
quietly type txtUnitName "New name"
drop 5
click cmdWriteNetworkSettings
    = blocks-to-6 4E6577206E616D652020202020202020
    arrow
    operation "Write Network Settings" stopped
    enabled false: fraNetworkSettings, fraMiscOptions, fraTCPports, fraARP, fraSnmpSettings, fraUnitID, fraOledTimeout, fraArmButtons, cmdWriteNetworkSettings, cmdResetEthernet, fraTcpControlSettings, fraSecuritySettings
    focus none: frmMainForm
memory 251 0050 16
    4E6577206E616D652020202020202020

== Keys are written only when complete
unit cms
store 251 02F0 "\x00"*48
settings-read
show txtChaskey(0) txtChaskey(1) txtChaskey(2) text
    text "Chaskey is set - type to change key": txtChaskey(0-2)
show txtChaskey(0) txtChaskey(1) txtChaskey(2) fore
    fore 255: txtChaskey(0-2)
type txtChaskey(1) "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA"
    text "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA": txtChaskey(1)
    focus txtChaskey(1) (0 selected): frmMainForm
click cmdChaskeyGen(2)
    text "2222730559E8781291A1168DC9386A3F": txtChaskey(2)
    fore 0: txtChaskey(2)
    focus cmdChaskeyGen(2): frmMainForm
click cmdWriteNetworkSettings
    = blocks-to-6 4D4455205261636B2034202020202020
    says "Writing block 7 of 14"
    > 811202901020202020202020202020202020202020
    says "Writing block 8 of 14"
    > 811202E00D6D6F6E69746F7269FF0A141E31
    says "Writing block 9 of 14"
    > 81120310102222730559E8781291A1168DC9386A3F
    says "Writing block 10 of 14"
    > 81120320106E670000000000000000000000000000
    says "Writing block 11 of 14"
    > 811201E0104E6574776F726B204465736B20202020
    says "Memory write complete."
    arrow
    operation "Write Network Settings" complete
    enabled true: fraTimeServer
    focus cmdWriteNetworkSettings: frmMainForm
click cmdChaskeyGen(2)
    text "E6D8C7EB4022391905AEA6F6CC213311": txtChaskey(2)
    focus cmdChaskeyGen(2): frmMainForm

== What stops a write, and where
unit cms
settings-read
# A red address: nothing goes out, without a word.
type txtSubnetMask "255.255.255"
    fore 255: fraFixedIPSettings, lblSubnetMask
    text "255.255.255": txtSubnetMask
    focus txtSubnetMask (0 selected): frmMainForm
    false: DataValid
click cmdWriteNetworkSettings
    focus cmdWriteNetworkSettings: frmMainForm
type txtSubnetMask "255.255.255.0"
    fore 0: fraFixedIPSettings, lblSubnetMask
    text "255.255.255.0": txtSubnetMask
    focus txtSubnetMask (0 selected): frmMainForm
    true: DataValid
# A port that two bytes don't hold stops it after two blocks.
set txtTcpControlPort(0) "65536"
    text "65536": txtTcpControlPort(0)
    1: PortChanged
click cmdWriteNetworkSettings
    hourglass
    says "Writing block 1 of 14"
    > 811200100F4B45535452414E452D4D4455202020
    says "Writing block 2 of 14"
    > 8112002010C0A80A64FFFFFF00C0A80A01C0A80A02
    says "Writing block 3 of 14"
    arrow
    operation "Write Network Settings" stopped
    caption "Connected": cmdConnect
    enabled false: fraNetworkSettings, fraMiscOptions, fraTCPports, fraARP, fraSnmpSettings, fraUnitID, fraOledTimeout, fraArmButtons, cmdWriteNetworkSettings, cmdResetEthernet, fraTcpControlSettings, fraSecuritySettings
    focus none: frmMainForm
quietly click cmdReadNetworkSettings
# No ARP time chosen stops it at its block.
set cmbARPtime -1
    index -1: cmbARPtime
click cmdWriteNetworkSettings
    = blocks-to-6 4D4455205261636B2034202020202020
    says "Writing block 7 of 14"
    > 811202901020202020202020202020202020202020
    says "Writing block 8 of 14"
    arrow
    operation "Write Network Settings" stopped
    enabled false: fraNetworkSettings, fraMiscOptions, fraTCPports, fraARP, fraSnmpSettings, fraUnitID, fraOledTimeout, fraArmButtons, cmdWriteNetworkSettings, cmdResetEthernet, fraTcpControlSettings, fraSecuritySettings
    focus none: frmMainForm
quietly click cmdReadNetworkSettings
# A time server that is not an address shortens its block: only the octets before the fault go
# out, and the unit has no answer to it.
set txtTimeServerIP "1.2"
    text "1.2": txtTimeServerIP
click cmdWriteNetworkSettings
    hourglass
    says "Writing block 1 of 14"
    > 811200100F4B45535452414E452D4D4455202020
    says "Writing block 2 of 14"
    > 8112002010C0A80A64FFFFFF00C0A80A01C0A80A02
    says "Writing block 3 of 14"
    > 8112003010C0A80A030104DD04DC04DB0C1E
    arrow
    operation "Write Network Settings" stopped
    enabled false: fraNetworkSettings, fraMiscOptions, fraTCPports, fraARP, fraSnmpSettings, fraUnitID, fraOledTimeout, fraArmButtons, cmdWriteNetworkSettings, cmdResetEthernet, fraTcpControlSettings, fraSecuritySettings
    focus none: frmMainForm

== Without a connection the read only enables, and the write only disables
call cmdReadNetworkSettings
    operation "Read Network Settings" stopped
    enabled true: tab(0-8), cmdReadNetworkSettings, cmdReadChannelNames, cmdReadMacroTriggers
set PasswordConfirmed 1
    1: PasswordConfirmed
call cmdWriteNetworkSettings
    operation "Write Network Settings" stopped
    enabled false: tab(0-8), cmdReadNetworkSettings, cmdHelp

== Of the other types of unit
unit 636
settings-read
show UnitType
    "636": UnitType
show lblBackup tab(6) visible
    visible false: tab(6)
    visible true: lblBackup

== Of a unit with a single supply
unit single
settings-read
show UnitType
    "": UnitType
show lblBackup tab(6) visible
    visible false: tab(6), lblBackup
