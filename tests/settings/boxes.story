# What typing in the settings boxes does at once, and on leaving them.

== A key folds, and has its holes
# G to ` come in 32 lower, g to z and blanks not at all. Whole it is black.
unit cms
settings-read
type txtChaskey(0) "ff"
    text "FF": txtChaskey(0)
    fore 255: txtChaskey(0)
    focus txtChaskey(0) (0 selected): frmMainForm
type txtChaskey(0) "aF09:@GZ`gz {"
    text "AF09:@':@": txtChaskey(0)
    4: beeps
type txtChaskey(0) "ffffffffffffffffffffffffffffffffffffffff"
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtChaskey(0)
    fore 0: txtChaskey(0)
press txtChaskey(0) 8
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtChaskey(0)
    fore 255: txtChaskey(0)

== Addresses paint their labels and the frame
unit cms
settings-read
type txtIPAddress "0.1.2.3"
    fore 255: fraFixedIPSettings, lblIPAddress
    text "0.1.2.3": txtIPAddress
    focus txtIPAddress (0 selected): frmMainForm
    false: DataValid
    1: IPChanged
type txtIPAddress "223.1.1.1"
    fore 0: fraFixedIPSettings, lblIPAddress
    text "223.1.1.1": txtIPAddress
    true: DataValid
type txtIPAddress "224.0.0.1"
    fore 255: fraFixedIPSettings, lblIPAddress
    text "224.0.0.1": txtIPAddress
    false: DataValid
type txtIPAddress "10.1.1.1"
    fore 0: fraFixedIPSettings, lblIPAddress
    text "10.1.1.1": txtIPAddress
    true: DataValid
type txtIPAddress ""
    fore 255: fraFixedIPSettings, lblIPAddress
    text "": txtIPAddress
    false: DataValid
type txtIPAddress "255.255.255.255"
    text "255.255.255.255": txtIPAddress
type txtIPAddress "1.2.3"
    text "1.2.3": txtIPAddress
type txtIPAddress "10.1.1.1"
    fore 0: fraFixedIPSettings, lblIPAddress
    text "10.1.1.1": txtIPAddress
    true: DataValid
type txtIPAddress "0.0.0.0"
    fore 255: fraFixedIPSettings, lblIPAddress
    text "0.0.0.0": txtIPAddress
    false: DataValid
# A mask may begin with 0. Other keys beep.
type txtSubnetMask "0.1.2.3"
    box "Unit IP Address Changed|Don't forget to update the address in the Unit IP Address frame above, after you have written the settings and reset the Ethernet board in the unit."
    text "0.1.2.3": txtSubnetMask
    focus txtSubnetMask (0 selected): frmMainForm
    true: DataValid
    0: IPChanged
type txtIPAddress "1a0.0,0.1 "
    text "10.00.1": txtIPAddress
    focus txtIPAddress (0 selected): frmMainForm
    false: DataValid
    1: IPChanged
    3: beeps
type txtNetbiosName "a b/7"
    box "Unit IP Address Changed|Don't forget to update the address in the Unit IP Address frame above, after you have written the settings and reset the Ethernet board in the unit."
    text "ab7": txtNetbiosName
    focus txtNetbiosName (0 selected): frmMainForm
    0: IPChanged
    5: beeps

== A reminder comes once for a change
# What the read fills in reminds nobody. One flag serves the three port boxes.
unit cms
settings-read
type txtIPAddress "10.0.0.9"
    text "10.0.0.9": txtIPAddress
    focus txtIPAddress (0 selected): frmMainForm
    1: IPChanged
leave
    box "Unit IP Address Changed|Don't forget to update the address in the Unit IP Address frame above, after you have written the settings and reset the Ethernet board in the unit."
    focus none: frmMainForm
    0: IPChanged
go txtIPAddress
    focus txtIPAddress (8 selected): frmMainForm
go txtUnitName
    focus txtUnitName (10 selected): frmMainForm
type txtTcpControlPort(0) "1243"
    focus txtTcpControlPort(0) (0 selected): frmMainForm
    1: PortChanged
leave
    box "Control Port Changed|Don't forget to update the Port in the Unit IP Address frame above, after you have written the settings and reset the Ethernet board in the unit."
    focus none: frmMainForm
    0: PortChanged
quietly set chkTcpControlEnable(1) 1
set txtTcpControlPort(0) "9"
    text "9": txtTcpControlPort(0)
    1: PortChanged
go txtTcpControlPort(1)
    focus txtTcpControlPort(1) (4 selected): frmMainForm
leave
    box "Control Port Changed|Don't forget to update the Port in the Unit IP Address frame above, after you have written the settings and reset the Ethernet board in the unit."
    focus none: frmMainForm
    0: PortChanged

== What a box enables
unit cms
settings-read
set chkTcpControlEnable(0) 0
    value 0: chkTcpControlEnable(0)
    enabled false: txtTcpControlPort(0)
set chkTcpControlEnable(1) 0
    value 0: chkTcpControlEnable(1)
    enabled false: txtTcpControlPort(1)
set chkTcpControlEnable(2) 0
    value 0: chkTcpControlEnable(2)
    enabled false: txtTcpControlPort(2), lblTcpTimeout, txtForceDisconnect
click chkTcpControlEnable(2)
    value 1: chkTcpControlEnable(2)
    enabled true: txtTcpControlPort(2), lblTcpTimeout, txtForceDisconnect
    focus chkTcpControlEnable(2): frmMainForm
click chkTimeServerEnable
    value 1: chkTimeServerEnable
    enabled true: lblTimeServerIP, txtTimeServerIP
    focus chkTimeServerEnable: frmMainForm
type txtKeyCounter(0) "1"
    FAULT txtKeyCounter(0) is locked
set chkDHCP 1
    value 1: chkDHCP
click cmdDisconnect
    says ""
    enabled true: fraIPAddress, cmdConnect
    caption "Connect": cmdConnect
    back 2147483663: cmdConnect
    enabled false: tab(1-8), fraNetworkSettings, lblNetBiosName, lblUnitLocation, lblUnitName, lblObtainIPAddress, lblTimeServerIP, txtTimeServerIP, fraMiscOptions, fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, fraTCPports, lblTcpControlEnable, qlblTcpControlPort, lblPasswordWarn, qlblAttackLimit, qlblKeyCounter, txtTcpControlPort(2), cmdChaskeyGen(0-2), lblTcpTimeout, txtForceDisconnect, qLabel60, qLabel63, fraARP, lblARP(0-2), lblARPtime, lblARPReset, fraSnmpSettings, lblSnmpPort, lblSysContact, fraUnitID, lblUnitID, fraOledTimeout, lblOledTimeoutText, lblIPonOLED, fraArmButtons, lblArmButtonsEnable, cmdReadNetworkSettings, cmdWriteNetworkSettings, cmdResetEthernet, fraTcpControlSettings, fraSecuritySettings, lblWebSecurityEnable, cmdReadChannelNames, cmdReadMacroTriggers, timGetResponse
    visible false: tab(6)
    text "": txtNetbiosName, txtUnitLocation, txtUnitName, txtTimeServerIP, txtIPAddress, txtSubnetMask, txtDefaultGateway, txtPrimaryDNS, txtSecondaryDNS, txtTcpControlPort(0-2), txtChaskey(0-2), txtAttackLimit(0-2), txtKeyCounter(0-2), txtForceDisconnect, txtCommunity, txtSysContact, txtUnitID, txtOledTimeout, txtAdminName, txtAdminPassword
    value 0: chkDHCP, chkTimeServerEnable, chkTcpControlEnable(2), chkARP(0), chkArmEnable
    fore 255: fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, txtChaskey(0-2)
    index -1: cmbARPtime
    caption "": lblNotLoggedIn
    interval 10: timGetResponse
    focus cmdDisconnect: frmMainForm
    false: AdminLoggedIn, ReadButtonArmed, DataValid
    0: PasswordConfirmed, tcpsend.state
    true: LinkIsDown, UserDisconnected
    1: IPChanged, PortChanged
