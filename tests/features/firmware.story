# Firmware: the versions of both boards (28), the serial number (21), the page of the latest ones.

== Read, and a page of thirteen entries
# 10.2.16 on a 3A9 board, 1.0.255 on a 3D1 board: KMD 305TX.
answer FA28 "\x3A\x90\x10\x01\x0A\x02\x10"
answer FB28 "\x3D\x1F\x00\x00\x01\x00\xFF"
answer FA21 "\x12\x3A\x0B\x0F"
connected 7
click cmdGetUnitFirmware
    = versions-read
    enabled true: cmdResetEthernet, fraChangeoverOptions, fraDefaultInlet, lblTypeText, lblType, lblSerialNoText, lblSerialNo, lblFittedColumn, lblLatestColumn, lblRelayText, lblRelayVersion, lblRelayLatest, lblDisplayText, lblDisplayVersion, lblDisplayLatest
    caption "KMD 305TX": lblType
    caption "KMD35A0B0F": lblSerialNo
    caption "10.2.16": lblRelayVersion
    caption "1.0.255": lblDisplayVersion
    focus cmdGetUnitFirmware: frmMainForm
page "abc:1.0 abc:2.0 abc:3.0 abc:4.0 abc:5.0 abc:6.0 abc:7.0 abc:8.0 abc:9.0 abc:10.0 abc:11.0 abc:12.0 abc:13.0" 20
wait 30
    says "107 bytes (42.8 kbps)"
    caption "6.0": lblRelayLatest
    caption "10.0": lblDisplayLatest

== A page that fails, and one of no bytes
answer FA28 "\x3A\x90\x10\x01\x0A\x02\x10"
answer FB28 "\x3D\x1F\x00\x00\x01\x00\xFF"
answer FA21 "\x12\x3A\x0B\x0F"
connected 7
quietly click cmdGetUnitFirmware
quietly set lblRelayLatest "x"
quietly set lblDisplayLatest "x"
no-page "Not found" 20
wait 30
    says "Remote Download failed "
    caption "-": lblRelayLatest, lblDisplayLatest
    1: beeps
quietly click cmdGetUnitFirmware
page "" 0
wait 30
    caption "": lblRelayLatest, lblDisplayLatest

== Without login only help and tabs come back
answer FA28 "\x3A\x90\x10\x01\x0A\x02\x10"
answer FB28 "\x3D\x1F\x00\x00\x01\x00\xFF"
answer FA21 "\x12\x3A\x0B\x0F"
connected 7
quietly set AdminLoggedIn false
call cmdGetUnitFirmware
    = versions-read
    enabled true: lblTypeText, lblType, lblSerialNoText, lblSerialNo, lblFittedColumn, lblLatestColumn, lblRelayText, lblRelayVersion, lblRelayLatest, lblDisplayText, lblDisplayVersion, lblDisplayLatest
    caption "KMD 305TX": lblType
    caption "KMD35A0B0F": lblSerialNo
    caption "10.2.16": lblRelayVersion
    caption "1.0.255": lblDisplayVersion
    enabled false: cmdGetUnitFirmware

== A failed command keeps what was read before it
answer FA28 "\x3A\x90\x10\x01\x0A\x02\x10"
reply FB28
connected 7
quietly set lblSerialNo "old"
call cmdGetUnitFirmware
    hourglass
    says "Reading Relay Version"
    > FA28
    says "Reading Display Version"
    > FB28
    arrow
    operation "Read Firmware Versions" stopped
    enabled true: cmdResetEthernet, fraChangeoverOptions, fraDefaultInlet, lblTypeText, lblType, lblSerialNoText, lblSerialNo, lblFittedColumn, lblLatestColumn, lblRelayText, lblRelayVersion, lblRelayLatest, lblDisplayText, lblDisplayVersion, lblDisplayLatest
    caption "-": lblSerialNo
    caption "10.2.16": lblRelayVersion

== A page that outlives its connection changes nothing
answer FA28 "\x3A\x90\x10\x01\x0A\x02\x10"
answer FB28 "\x3D\x1F\x00\x00\x01\x00\xFF"
answer FA21 "\x12\x3A\x0B\x0F"
connected 7
quietly click cmdGetUnitFirmware
page "abc:1.0 abc:2.0 abc:3.0 abc:4.0 abc:5.0 abc:6.0 abc:7.0 abc:8.0 abc:9.0 abc:10.0 abc:11.0 abc:12.0 abc:13.0" 900
quietly click cmdDisconnect
connected 7
wait 2000
quietly click cmdGetUnitFirmware
no-page "late" 900
quietly click cmdDisconnect
connected 7
wait 2000

== The bootloader starts with pairs of the serial number
connected 7
set lblSerialNo "KMD35A0B0F"
    caption "KMD35A0B0F": lblSerialNo
call cmdRelayBootload
    hourglass
    says "Sending Relay Bootload"
    > FA1500D35A0B01
    arrow
    operation "Enter Relay Bootloader" complete
set lblSerialNo "-"
    caption "-": lblSerialNo
call cmdRelayBootload
    hourglass
    > FA150000000001
    arrow
    operation "Enter Relay Bootloader" complete
set lblSerialNo "FF101A7"
    caption "FF101A7": lblSerialNo
call cmdRelayBootload
    hourglass
    > FA15FF101A0701
    arrow
    operation "Enter Relay Bootloader" complete

== Without a connection
set lblType "old"
    caption "old": lblType
call cmdGetUnitFirmware
    caption "-": lblType
call cmdRelayBootload
