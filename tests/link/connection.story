# Connect, disconnect, and what the state of the socket shows. Refusals, silence and what outlives
# its connection stand in connection_test.cpp and send_command_test.cpp.

== At the start there is nothing to read
wait 100
    back 2147483663: cmdConnect
    caption "Socket is closed": lblNotLoggedIn
    fore 65280: lblNotLoggedIn
show cmdReadNetworkSettings fraNetworkSettings fraIPAddress tab(0) tab(8) enabled
    enabled true: fraIPAddress
    enabled false: tab(0 8), fraNetworkSettings, cmdReadNetworkSettings
show LastTabIndex
    8: LastTabIndex

== Every state has its text
state 1
    1: tcpsend.state
wait 100
    caption "Socket is open": lblNotLoggedIn
    fore 255: lblNotLoggedIn
state 2
    2: tcpsend.state
wait 100
    caption "Socket is listening": lblNotLoggedIn
state 3
    3: tcpsend.state
wait 100
    caption "Socket connection pending": lblNotLoggedIn
state 4
    4: tcpsend.state
wait 100
    caption "Socket resolving host": lblNotLoggedIn
state 5
    5: tcpsend.state
wait 100
    caption "Socket host resolved": lblNotLoggedIn
state 6
    6: tcpsend.state
wait 100
    back 2147483663: cmdConnect
    caption "Socket is connecting": lblNotLoggedIn
state 12
    12: tcpsend.state
wait 100
    caption "Socket state unknown": lblNotLoggedIn

== Connect, the port by its text, disconnect
unit cms
click cmdConnect
    enabled false: fraIPAddress, cmdConnect
    back 2147483663: cmdDisconnect
    false: LinkIsDown
    6: tcpsend.state
wait 250
    = connection-made
set txtTcpControlPort(1) "1243"
    text "1243": txtTcpControlPort(1)
    1: PortChanged
wait 100
    caption "Connected Port B": cmdConnect
    2: ConnectedPortIndex
click cmdDisconnect
    enabled true: fraIPAddress, cmdConnect
    caption "Connect": cmdConnect
    back 2147483663: cmdConnect
    text "": txtTcpControlPort(1), txtMTPage(0-7)
    enabled false: cmdReadNetworkSettings, timGetResponse
    caption "": lblNotLoggedIn
    interval 10: timGetResponse
    focus cmdDisconnect: frmMainForm
    true: LinkIsDown, UserDisconnected
    false: ReadButtonArmed
    0: tcpsend.state
wait 100

== A refused connect beeps once, shows red for a second and disconnects once
connects-are refused
after 500 look
click cmdConnect
    enabled false: fraIPAddress, cmdConnect
    back 2147483663: cmdDisconnect
    false: LinkIsDown
    6: tcpsend.state
wait 5000
    now look
    back 255: cmdConnect
    caption "Socket error": lblNotLoggedIn
    fore 255: lblNotLoggedIn
    9: tcpsend.state
    1: beeps
    enabled true: fraIPAddress, cmdConnect
    back 2147483663: cmdConnect
    text "": txtMTPage(0-7)
    caption "": lblNotLoggedIn
    enabled false: timGetResponse
    interval 10: timGetResponse
    focus cmdConnect: frmMainForm
    true: LinkIsDown, UserDisconnected
    0: tcpsend.state
connects-are accepted
click cmdConnect
    enabled false: fraIPAddress, cmdConnect
    enabled true: timGetResponse
    focus none: frmMainForm
    false: LinkIsDown, UserDisconnected
    6: tcpsend.state
wait 250
    = connection-made

== A close by the far end is shown until the next connect
unit cms
settings-read
peer-closes
    8: tcpsend.state
wait 200
    says ""
    enabled true: fraIPAddress, cmdConnect
    caption "Connect": cmdConnect
    back 2147483663: cmdConnect
    caption "Timeout Disconnected": cmdDisconnect
    back 33023: cmdDisconnect
    enabled false: tab(1-8), fraNetworkSettings, lblNetBiosName, lblUnitLocation, lblUnitName, lblObtainIPAddress, fraMiscOptions, fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, fraTCPports, lblTcpControlEnable, qlblTcpControlPort, lblPasswordWarn, qlblAttackLimit, qlblKeyCounter, txtTcpControlPort(0-2), cmdChaskeyGen(0-2), lblTcpTimeout, txtForceDisconnect, qLabel60, qLabel63, fraARP, lblARP(0-2), lblARPtime, lblARPReset, fraSnmpSettings, lblSnmpPort, lblSysContact, fraUnitID, lblUnitID, fraOledTimeout, lblOledTimeoutText, lblIPonOLED, fraArmButtons, lblArmButtonsEnable, cmdReadNetworkSettings, cmdWriteNetworkSettings, cmdResetEthernet, fraTcpControlSettings, fraSecuritySettings, lblWebSecurityEnable, cmdReadChannelNames, cmdReadMacroTriggers, timGetResponse
    visible false: tab(6)
    text "": txtNetbiosName, txtUnitLocation, txtUnitName, txtTimeServerIP, txtIPAddress, txtSubnetMask, txtDefaultGateway, txtPrimaryDNS, txtSecondaryDNS, txtTcpControlPort(0-2), txtChaskey(0-2), txtAttackLimit(0-2), txtKeyCounter(0-2), txtForceDisconnect, txtCommunity, txtSysContact, txtUnitID, txtOledTimeout, txtAdminName, txtAdminPassword
    fore 255: fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, txtChaskey(0-2), lblNotLoggedIn
    value 0: chkTcpControlEnable(0-2), chkARP(0), chkArmEnable
    index -1: cmbARPtime
    caption "": lblNotLoggedIn
    interval 10: timGetResponse
    focus none: frmMainForm
    false: AdminLoggedIn, ReadButtonArmed, DataValid
    0: PasswordConfirmed, tcpsend.state
    true: LinkIsDown, UserDisconnected
    1: IPChanged, PortChanged
wait 3000
click cmdConnect
    enabled false: fraIPAddress, cmdConnect
    caption "Disconnect": cmdDisconnect
    back 2147483663: cmdDisconnect
    value true: OptButID(250)
    value false: OptButID(1)
    enabled true: timGetResponse
    250: RelayAddress
    251: DisplayAddress
    false: LinkIsDown, UserDisconnected
    6: tcpsend.state
wait 250
    = connection-made

== A disconnect after a read, and what is on while a unit can be given an ID
unit cms
settings-read
type txtUnitID "2"
    text "2": txtUnitID
    enabled true: cmdUnitID
    focus txtUnitID (0 selected): frmMainForm
click cmdDisconnect
    says ""
    enabled true: fraIPAddress, cmdConnect
    caption "Connect": cmdConnect
    back 2147483663: cmdConnect
    enabled false: tab(1-8), fraNetworkSettings, lblNetBiosName, lblUnitLocation, lblUnitName, lblObtainIPAddress, fraMiscOptions, fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, fraTCPports, lblTcpControlEnable, qlblTcpControlPort, lblPasswordWarn, qlblAttackLimit, qlblKeyCounter, txtTcpControlPort(0-2), cmdChaskeyGen(0-2), lblTcpTimeout, txtForceDisconnect, qLabel60, qLabel63, fraARP, lblARP(0-2), lblARPtime, lblARPReset, fraSnmpSettings, lblSnmpPort, lblSysContact, fraUnitID, lblUnitID, cmdUnitID, fraOledTimeout, lblOledTimeoutText, lblIPonOLED, fraArmButtons, lblArmButtonsEnable, cmdReadNetworkSettings, cmdWriteNetworkSettings, cmdResetEthernet, fraTcpControlSettings, fraSecuritySettings, lblWebSecurityEnable, cmdReadChannelNames, cmdReadMacroTriggers, timGetResponse
    visible false: tab(6)
    text "": txtNetbiosName, txtUnitLocation, txtUnitName, txtTimeServerIP, txtIPAddress, txtSubnetMask, txtDefaultGateway, txtPrimaryDNS, txtSecondaryDNS, txtTcpControlPort(0-2), txtChaskey(0-2), txtAttackLimit(0-2), txtKeyCounter(0-2), txtForceDisconnect, txtCommunity, txtSysContact, txtUnitID, txtOledTimeout, txtAdminName, txtAdminPassword
    fore 255: fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, txtChaskey(0-2)
    value 0: chkTcpControlEnable(0-2), chkARP(0), chkArmEnable
    index -1: cmbARPtime
    caption "": lblNotLoggedIn
    interval 10: timGetResponse
    focus cmdDisconnect: frmMainForm
    false: AdminLoggedIn, ReadButtonArmed, DataValid
    0: PasswordConfirmed, tcpsend.state
    true: LinkIsDown, UserDisconnected
    1: IPChanged, PortChanged

== An Ethernet reset goes to the real address, and disconnects after two seconds
connected 0
quietly set OptButID(1) true
quietly set cmdResetEthernet enabled true
click cmdResetEthernet
    > 811F0300
    operation "Reset Ethernet" complete
    enabled true: timDisconnect
    focus cmdResetEthernet: frmMainForm
wait 1900
wait 200
    enabled true: fraIPAddress, cmdConnect
    caption "Connect": cmdConnect
    back 2147483663: cmdConnect
    enabled false: tab(1-8), cmdReadNetworkSettings, cmdResetEthernet, timGetResponse
    text "": txtMTPage(0-7)
    caption "": lblNotLoggedIn
    interval 10: timGetResponse
    focus none: frmMainForm
    false: AdminLoggedIn, ReadButtonArmed
    true: LinkIsDown, UserDisconnected
    0: tcpsend.state
# It runs on until the next connect.
show timDisconnect enabled
    enabled true: timDisconnect
click cmdConnect
    enabled false: fraIPAddress, cmdConnect, timDisconnect
    value true: OptButID(250)
    value false: OptButID(1)
    enabled true: timGetResponse
    250: RelayAddress
    251: DisplayAddress
    false: LinkIsDown, UserDisconnected
    6: tcpsend.state
wait 3000
    caption "Connected": cmdConnect
    back 65280: cmdConnect
    enabled true: cmdReadNetworkSettings
    caption "Socket is connected": lblNotLoggedIn
    true: ReadButtonArmed
    7: tcpsend.state

== Ctrl shows the diagnostics, Shift the passwords
key 17
    height 11340: frmMainForm
key 17
    height 8490: frmMainForm
key 16
set AdminLoggedIn true
    true: AdminLoggedIn
key 16
    password "": txtControlPassword, txtAdminPassword

== Tabs enable frames by index, not by caption
set AdminLoggedIn true
    true: AdminLoggedIn
set MacroTriggersRead true
    true: MacroTriggersRead
set SSTab1 3
    index 3: SSTab1
    enabled true: fraMacroTrigger
set SSTab1 6
    index 6: SSTab1
    enabled false: fraMacroTrigger
    enabled true: fraFirmwareUpdate

== The relay ID chooses the addresses; in an operation it waits for the end
unit cms
settings-read
after 150 click OptButID(4)
click cmdReadNetworkSettings
    hourglass
    says "Read Unit ID"
    > 0111000010
    says "Reading block 1 of 14."
    > 811102C010
    now click OptButID(4)
    says "Reading block 2 of 14."
    > 811102D010
    says "Reading block 3 of 14."
    > 8111002010
    says "Reading block 4 of 14."
    > 8111003010
    says "Reading block 5 of 14."
    > 8111001010
    says "Reading block 6 of 11."
    > 8111004010
    says "Reading block 6 of 14."
    > 8111005010
    says "Reading block 7 of 14."
    > 8111028010
    says "Reading block 8 of 14."
    > 8111029010
    says "Reading block 9 of 14."
    > 811102A010
    says "Reading block 10 of 14."
    > 811102E010
    says "Reading block 11 of 14."
    > 8111032010
    says "Reading block 12 of 14."
    > 811101E010
    says "Reading block 13 of 14."
    > 811102F010
    says "Reading block 14 of 14."
    > 8111030010
    says "Reading block 15 of 14."
    > 8111031010
    says "Reading Unit Type."
    > 8141
    says "Reading memory complete."
    arrow
    operation "Read Network Settings" complete
    value false: OptButID(1)
    value true: OptButID(4)
    enabled true: cmdUnitID
    4: RelayAddress
    132: DisplayAddress
click OptButID(250)
    value true: OptButID(250)
    value false: OptButID(4)
    focus OptButID(250): frmMainForm
    250: RelayAddress
    251: DisplayAddress
