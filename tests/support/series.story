# What many stories show line for line. "    = NAME words" stands for the lines of series NAME, with
# the words in the place of {1}, {2} ...; "2" before a frame is the second connection.

== names-of-sensors
    says "Reading 1-Wire Name 1 of 8"
    > {1}11016010
    says "Reading 1-Wire Name 2 of 8"
    > {1}11017010
    says "Reading 1-Wire Name 3 of 8"
    > {1}11018010
    says "Reading 1-Wire Name 4 of 8"
    > {1}11019010
    says "Reading 1-Wire Name 5 of 8"
    > {1}1101A010
    says "Reading 1-Wire Name 6 of 8"
    > {1}1101B010
    says "Reading 1-Wire Name 7 of 8"
    > {1}1101C010
    says "Reading 1-Wire Name 8 of 8"
    > {1}1101D010

== committed-sensors
    says "Reading 1-Wire Memory 1 of 9"
    > {1}11020010
    says "Reading 1-Wire Memory 2 of 9"
    > {1}11021010
    says "Reading 1-Wire Memory 3 of 9"
    > {1}11022010
    says "Reading 1-Wire Memory 4 of 9"
    > {1}11023010
    says "Reading 1-Wire Memory 5 of 9"
    > {1}11024010
    says "Reading 1-Wire Memory 6 of 9"
    > {1}11025010
    says "Reading 1-Wire Memory 7 of 9"
    > {1}11026010
    says "Reading 1-Wire Memory 8 of 9"
    > {1}11027010
    says "Reading 1-Wire Memory 9 of 9"
    > {1}11028010
    says "Reading 1-Wire Memory Complete"

== ten-live-sensors
    says "Reading 1-Wire Live Addresses 1 of 16"
    > {1}820101
    says "Reading 1-Wire Live Addresses 2 of 16"
    > {1}820102
    says "Reading 1-Wire Live Addresses 3 of 16"
    > {1}820103
    says "Reading 1-Wire Live Addresses 4 of 16"
    > {1}820104
    says "Reading 1-Wire Live Addresses 5 of 16"
    > {1}820105
    says "Reading 1-Wire Live Addresses 6 of 16"
    > {1}820106
    says "Reading 1-Wire Live Addresses 7 of 16"
    > {1}820107
    says "Reading 1-Wire Live Addresses 8 of 16"
    > {1}820108
    says "Reading 1-Wire Live Addresses 9 of 16"
    > {1}820109
    says "Reading 1-Wire Live Addresses 10 of 16"
    > {1}82010A

== live-sensors
    = ten-live-sensors {1}
    says "Reading 1-Wire Live Addresses 11 of 16"
    > {1}82010B
    says "Reading 1-Wire Live Addresses 12 of 16"
    > {1}82010C
    says "Reading 1-Wire Live Addresses 13 of 16"
    > {1}82010D
    says "Reading 1-Wire Live Addresses 14 of 16"
    > {1}82010E
    says "Reading 1-Wire Live Addresses 15 of 16"
    > {1}82010F
    says "Reading 1-Wire Live Addresses 16 of 16"
    > {1}820110
    says "Reading 1-Wire Settings Complete"

== all-of-sensors
    hourglass
    = names-of-sensors FB
    = committed-sensors FA
    = live-sensors FA
    arrow
    operation "Read 1-Wire Settings" complete

== settings-blocks-to-10
    says "Reading block 1 of 14."
    {1}> 811102C010
    says "Reading block 2 of 14."
    {1}> 811102D010
    says "Reading block 3 of 14."
    {1}> 8111002010
    says "Reading block 4 of 14."
    {1}> 8111003010
    says "Reading block 5 of 14."
    {1}> 8111001010
    says "Reading block 6 of 11."
    {1}> 8111004010
    says "Reading block 6 of 14."
    {1}> 8111005010
    says "Reading block 7 of 14."
    {1}> 8111028010
    says "Reading block 8 of 14."
    {1}> 8111029010
    says "Reading block 9 of 14."
    {1}> 811102A010

== settings-read
    hourglass
    says "Read Unit ID"
    {1}> FA11000010
    = settings-blocks-to-10 {1}
    says "Reading block 10 of 14."
    {1}> 811102E010
    says "Reading block 11 of 14."
    {1}> 8111032010
    says "Reading block 12 of 14."
    {1}> 811101E010
    says "Reading block 13 of 14."
    {1}> 811102F010
    says "Reading block 14 of 14."
    {1}> 8111030010
    says "Reading block 15 of 14."
    {1}> 8111031010
    says "Reading Unit Type."
    {1}> 8141
    says "Reading memory complete."
    arrow
    operation "Read Network Settings" complete

== settings-read-without-community
    hourglass
    says "Read Unit ID"
    > FA11000010
    = settings-blocks-to-10
    says "Reading block 10 of 14."
    > 811102E010
    says "Reading block 11 of 14."
    > 811101E010
    says "Reading block 12 of 14."
    > 811102F010
    says "Reading block 13 of 14."
    > 8111030010
    says "Reading block 14 of 14."
    > 8111031010
    says "Reading Unit Type."
    > 8141
    says "Reading memory complete."
    arrow
    operation "Read Network Settings" complete

== settings-enabled
    caption "Connected Port A": cmdConnect
    value false: OptButID(250)
    value true: OptButID(1)
    enabled true: tab(0-8), fraNetworkSettings, lblNetBiosName, lblUnitLocation, lblUnitName, lblObtainIPAddress, fraMiscOptions, fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, fraTCPports, lblTcpControlEnable, qlblTcpControlPort, lblPasswordWarn, qlblAttackLimit, qlblKeyCounter, cmdChaskeyGen(0-2), lblTcpTimeout, txtForceDisconnect, qLabel60, qLabel63, fraARP, lblARP(0-2), lblARPtime, lblARPReset, fraSnmpSettings, lblSnmpPort, lblSysContact, fraUnitID, lblUnitID, fraOledTimeout, lblOledTimeoutText, lblIPonOLED, fraArmButtons, lblArmButtonsEnable, cmdWriteNetworkSettings, cmdResetEthernet, fraTcpControlSettings, fraSecuritySettings, lblWebSecurityEnable, cmdReadChannelNames, cmdReadMacroTriggers
    visible true: tab(6), lblBackup, txtBackupUpper, txtBackupLower

== usual-settings
    text "KESTRANE-MDU": txtNetbiosName
    text "Comms Room 2": txtUnitLocation
    text "MDU Rack 4": txtUnitName
    text "192.168.10.5": txtTimeServerIP
    fore 0: fraFixedIPSettings, lblIPAddress, lblSubnetMask, lblDefaultGateway, lblPrimaryDNS, lblSecondaryDNS, txtChaskey(0-2)
    text "192.168.10.100": txtIPAddress
    text "255.255.255.0": txtSubnetMask
    text "192.168.10.1": txtDefaultGateway
    text "192.168.10.2": txtPrimaryDNS
    text "192.168.10.3": txtSecondaryDNS
    value 1: chkTcpControlEnable(0-2), chkARP(0), chkArmEnable
    text "1243": txtTcpControlPort(0)
    text "1244": txtTcpControlPort(1)
    text "1245": txtTcpControlPort(2)
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtChaskey(0-2)
    text "10": txtAttackLimit(0)
    text "20": txtAttackLimit(1)
    text "30": txtAttackLimit(2)
    text "1": txtKeyCounter(0)
    text "2": txtKeyCounter(1)
    text "3": txtKeyCounter(2)
    text "0": txtForceDisconnect
    index 3: cmbARPtime

== settings-last
    = settings-last-boxes {1}
    text "": txtMTPage(0-7)
    text "\xF1\xDAEJ\x11\xE8\x1C\xA8\x94\x02\xB4\xB1\xCC\xF7`\x10": txtAdminName
    text "\xC9\x00\xAB6\x00jf\x87\x5C\xBD\x1FN\x06\xB9/\xA0": txtAdminPassword
    focus txtIPAddress (14 selected): frmMainForm
    1: RelayAddress, PasswordConfirmed, ConnectedPortIndex
    129: DisplayAddress
    "CMS": UnitType
    "50Bg": UnitSerialBytes
    true: AdminLoggedIn, DataValid, MacroChanged

== settings-last-boxes
    text "{1}": txtCommunity
    text "Network Desk": txtSysContact
    text "01": txtUnitID
    text "120": txtOledTimeout

== blocks-to-6
    hourglass
    says "Writing block 1 of 14"
    > 811200100F4B45535452414E452D4D4455202020
    says "Writing block 2 of 14"
    > 8112002010C0A80A64FFFFFF00C0A80A01C0A80A02
    says "Writing block 3 of 14"
    > 8112003010C0A80A03C0A80A0504DD04DC04DB0C1E
    says "Writing block 4 of 14"
    > 8112004010436F6D6D7320526F6F6D203220202020
    says "Writing block 5 of 14"
    > 8112005010{1}
    says "Writing block 6 of 14"
    > 811202801020202020202020202020202020202020

== channel-names
    says "Reading inlet name(s)"
    {1}> FB11006010
    {1}> FB11007010
    says "Reading outlet name 1 of 14"
    {1}> FB11008010
    says "Reading outlet name 2 of 14"
    {1}> FB11009010
    says "Reading outlet name 3 of 14"
    {1}> FB1100A010
    says "Reading outlet name 4 of 14"
    {1}> FB1100B010
    says "Reading outlet name 5 of 14"
    {1}> FB1100C010
    says "Reading outlet name 6 of 14"
    {1}> FB1100D010
    says "Reading outlet name 7 of 14"
    {1}> FB1100E010
    says "Reading outlet name 8 of 14"
    {1}> FB1100F010
    says "Reading outlet name 9 of 14"
    {1}> FB11010010
    says "Reading outlet name 10 of 14"
    {1}> FB11011010
    says "Reading outlet name 11 of 14"
    {1}> FB11012010
    says "Reading outlet name 12 of 14"
    {1}> FB11013010
    says "Reading outlet name 13 of 14"
    {1}> FB11014010
    says "Reading outlet name 14 of 14"
    {1}> FB11015010
    says "Reading channel names complete"

== channel-names-written
    says "Writing inlet name"
    > FB12006010{1}
    > FB12007010{2}
    says "Writing outlet name 1 of 14"
    > FB1200801020202020202020202020202020202020
    says "Writing outlet name 2 of 14"
    > FB1200901020202020202020202020202020202020
    says "Writing outlet name 3 of 14"
    > FB1200A01020202020202020202020202020202020
    says "Writing outlet name 4 of 14"
    > FB1200B01020202020202020202020202020202020
    says "Writing outlet name 5 of 14"
    > FB1200C01020202020202020202020202020202020
    says "Writing outlet name 6 of 14"
    > FB1200D01020202020202020202020202020202020
    says "Writing outlet name 7 of 14"
    > FB1200E01020202020202020202020202020202020
    says "Writing outlet name 8 of 14"
    > FB1200F01020202020202020202020202020202020
    says "Writing outlet name 9 of 14"
    > FB12010010{3}
    says "Writing outlet name 10 of 14"
    > FB1201101020202020202020202020202020202020
    says "Writing outlet name 11 of 14"
    > FB1201201020202020202020202020202020202020
    says "Writing outlet name 12 of 14"
    > FB1201301020202020202020202020202020202020
    says "Writing outlet name 13 of 14"
    > FB1201401020202020202020202020202020202020
    says "Writing outlet name 14 of 14"
    > FB12015010{4}
    says "Writing names complete"

== rows-of-the-standard-program
    = standard-codes-at-10
    = standard-codes-and-texts
    = standard-outlets

== standard-codes-at-10
    caption "C6": lblMem1(0)
    caption "03": lblMem1(1), lblMem2(0)
    caption "D2": lblMem1(2)
    caption "D3": lblMem1(3)
    caption "04": lblMem1(4)

== standard-codes-and-texts
    caption "40": lblMem1(10)
    caption "41": lblMem1(11)
    caption "42": lblMem1(12)
    caption "43": lblMem1(13)
    caption "44": lblMem1(14)
    caption "45": lblMem1(15)
    caption "1A": lblMem2(2)
    caption "2A": lblMem2(3)
    caption "05": lblMem2(10-15)
    caption "Alarm status Flash and Beep": lblCommand(0)
    caption "GPI Disable": lblCommand(1)
    caption "Set on/off switch on interrupt address 1A": lblCommand(2)
    caption "Set on/off switch off interrupt address 2A": lblCommand(3)
    caption "GPI Enable": lblCommand(4)

== standard-outlets
    caption "Turn on outlet  1 after 0.5 seconds, skip if already on": lblCommand(10)
    caption "Turn on outlet  2 after 0.5 seconds, skip if already on": lblCommand(11)
    caption "Turn on outlet  3 after 0.5 seconds, skip if already on": lblCommand(12)
    caption "Turn on outlet  4 after 0.5 seconds, skip if already on": lblCommand(13)
    caption "Turn on outlet  5 after 0.5 seconds, skip if already on": lblCommand(14)
    caption "Turn on outlet  6 after 0.5 seconds, skip if already on": lblCommand(15)

== standard-program
    C6 03: image(10)
    03 00: image(11)
    D2 1A: image(12)
    D3 2A: image(13)
    04 00: image(14)
    40 05: image(1A)
    41 05: image(1B)
    42 05: image(1C)
    43 05: image(1D)
    44 05: image(1E)
    45 05: image(1F)
    46 05: image(20)
    47 05: image(21)
    48 05: image(22)
    49 05: image(23)
    4A 05: image(24)
    4B 05: image(25)
    4C 05: image(26)
    4D 05: image(27)
    3D 05: image(2A)
    3C 05: image(2B)
    3B 05: image(2C)
    3A 05: image(2D)
    39 05: image(2E)
    38 05: image(2F)
    37 05: image(30)
    36 05: image(31)
    35 05: image(32)
    34 05: image(33)
    33 05: image(34)
    32 05: image(35)
    31 05: image(36)
    30 05: image(37)

== svg-style
    <svg xmlns="http://www.w3.org/2000/svg" width="960" height="424" viewBox="0 0 960 424" role="img">
    <title>5 &lt; 6 &amp; &quot;up&quot; > down</title>
    <style>
    .ground{fill:#ffffff}.text{fill:#1a1a1a}.grid{stroke:#c8ccd2}.row{stroke:#8a919c}
    .bar{fill:#1f5fae;stroke:#123a6b}.input{stroke:#a33b00}.mark{fill:#a33b00}.loop{fill:#eceff4}
    text{font:12px sans-serif}.title{font-weight:bold;font-size:14px}
    @media screen and (prefers-color-scheme:dark){.ground{fill:#16181d}.text{fill:#eceff4}
    .grid{stroke:#3a404b}.row{stroke:#7b8494}.bar{fill:#6cb0ff;stroke:#cfe4ff}.input{stroke:#ff9d5c}
    .mark{fill:#ff9d5c}.loop{fill:#22262e}}
    </style>
    <rect class="ground" x="0" y="0" width="960" height="424"/>
    <text class="text title" x="84" y="22" text-anchor="start">5 &lt; 6 &amp; &quot;up&quot; > down</text>

== svg-idle-outlet
    <g id="outlet-{1}">
    <text class="text" x="74" y="{3}" text-anchor="end">Outlet {1}</text>
    <line class="row" x1="84" y1="{2}" x2="924" y2="{2}"/>
    </g>

== svg-idle-outlets-4-to-13
    = svg-idle-outlet 4 159 163
    = svg-idle-outlet 5 181 185
    = svg-idle-outlet 6 203 207
    = svg-idle-outlet 7 225 229
    = svg-idle-outlet 8 247 251
    = svg-idle-outlet 9 269 273
    = svg-idle-outlet 10 291 295
    = svg-idle-outlet 11 313 317
    = svg-idle-outlet 12 335 339
    = svg-idle-outlet 13 357 361

== program-blocks-to-7
    says "Downloading unit macro program 12%"
    > 0111002010
    says "Downloading unit macro program 19%"
    > 0111003010
    says "Downloading unit macro program 25%"
    > 0111004010
    says "Downloading unit macro program 32%"
    > 0111005010
    says "Downloading unit macro program 38%"
    > 0111006010
    says "Downloading unit macro program 44%"
    > 0111007010

== program-blocks-from-8
    says "Downloading unit macro program 51%"
    > 0111008010
    says "Downloading unit macro program 57%"
    > 0111009010
    says "Downloading unit macro program 64%"
    > 011100A010
    says "Downloading unit macro program 70%"
    > 011100B010
    says "Downloading unit macro program 76%"
    > 011100C010
    says "Downloading unit macro program 83%"
    > 011100D010
    says "Downloading unit macro program 89%"
    > 011100E010
    says "Downloading unit macro program 96%"
    > 011100F010
    arrow
    says "Download completed."

== upload-to-6
    says "Uploading unit settings 12%"
    > 0112002010C6030300D21AD32A0400000000000000
    says "Uploading unit settings 19%"
    > 011200301000000000400541054205430544054505
    says "Uploading unit settings 25%"
    > 011200401046054705480549054A054B054C054D05
    says "Uploading unit settings 32%"
    > 0112005010000000003D053C053B053A0539053805
    says "Uploading unit settings 38%"
    > 011200601037053605350534053305320531053005

== upload-from-7
    says "Uploading unit settings 44%"
    > 011200701000000000000000000000000000000000
    says "Uploading unit settings 51%"
    > 011200801000000000000000000000000000000000
    says "Uploading unit settings 57%"
    > 011200901000000000000000000000000000000000
    says "Uploading unit settings 64%"
    > 011200A01000000000000000000000000000000000
    says "Uploading unit settings 70%"
    > 011200B01000000000000000000000000000000000
    says "Uploading unit settings 76%"
    > 011200C01000000000000000000000000000000000
    says "Uploading unit settings 83%"
    > 011200D01000000000000000000000000000000000
    says "Uploading unit settings 89%"
    > 011200E01000000000000000000000000000000000
    says "Uploading unit settings 96%"
    > 011200F01000000000000000000000000000000000
    says "Upload completed."
    arrow

== scrolled-to
    value {1}: scrListScroll
    visible false: shpOutline(0)
    visible true: shpOutline(15)
    focus scrListScroll: frmScriptEdit
    {1}: MemPointer
    {2}: ListTop
    15: ListRow

== trace-on
    visible true: shpOutline(7)
    visible false: shpOutline(15)
    value 1: chkTrace
    enabled false: timUpdate
    enabled true: timTrace
    focus chkTrace: frmScriptEdit
    {1}: ListTop
    7: ListRow

== editor-closed
    enabled false: timUpdate, timUDColour
    focus none: frmScriptEdit
    visible false: frmScriptEdit

== versions-read
    hourglass
    says "Reading Relay Version"
    > FA28
    says "Reading Display Version"
    > FB28
    says "Reading Serial Number"
    > FA21
    says "Getting latest Firmware versions"
    says ""
    fetches http://server.example/kestraneversions/ past all caches
    says "Reading Unit Firmware Complete"
    arrow
    operation "Read Firmware Versions" complete

== rights-read
    hourglass
    says "Reading relay privileges"
    > FA1103E002
    says "Reading display privileges"
    > FB1103E002
    > FB1103E202
    > FB1103E402
    says "Privilege read complete"
    arrow
    operation "Read Port Privileges" complete

== web-passwords-read
    hourglass
    says "Reading block 1 of 3"
    > FB1102B010
    says "Reading block 2 of 3"
    > FB1102C010
    says "Reading block 3 of 3"
    > FB1102D010
    says "Reading Web Browser Passwords Complete"
    arrow
    operation "Read Web Security" complete

== connection-made
    caption "Connected": cmdConnect
    back 65280: cmdConnect
    enabled true: cmdReadNetworkSettings
    caption "Socket is connected": lblNotLoggedIn
    fore 65280: lblNotLoggedIn
    true: ReadButtonArmed
    7: tcpsend.state
