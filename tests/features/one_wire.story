# Sensors: names (0160 of the display board), the committed table (0200 of the relay board, 16
# records of 9 bytes across 9 blocks), the live table (82 01, a record and the total).

== Read takes names, then the committed table, then the live one
store 251 0160 "Rack    \xA0 mid 8 "
store 251 01D0 "        lastname"
store 250 0200 "\x3F\x00\x00\x01\x9A\x4C\x71\x26\x19\xC1\x00\x00\x06\x3B\x84\xD5"
store 250 0210 "\x28\x01\x4B\x00\x00\x06\x3B\x77\x09\x28\x02\xFF\xFF\xFF\xFF\xFF"
store 250 0220-0280 "\xFF"*16
# No sensor anywhere.
answers FA8201 16 "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x00"
answer FA820101 "\x3F\x00\x00\x01\x9A\x4C\x71\x26\x19\x10"
answer FA820102 "\xC1\x00\x00\x06\x3B\x84\xD6\x28\x01\x10"
answer FA820104 "\x57\x00\x00\x06\x41\x8E\x33\x28\x00\x10"
answer FA820105 "\x57\x00\x00\x06\x41\x8E\x33\x10\x07\x10"
answer FA820106 "\x57\x00\x00\x06\x41\x8E\x33\xFF\x00\x10"
answer FA820110 "\xE8\x00\x00\x01\x9B\x07\x44\x26\x42\x10"
connected 5
quietly set txt1WName(3) "stale"
click cmdRead1WNames
    = all-of-sensors
    enabled true: cmdResetEthernet, fra1WireSettings, lblSense(0-3), lbl1WAddress(0-15), lbl1WType(0-15), lbl1We2p(0-15), lbl1WTotalText, lbl1WTotal, lblSensorType(0-4), cmdWrite1WNames
    caption "3F0000019A4C7126": lbl1WAddress(0), lbl1We2p(0)
    fore 0: lbl1WAddress(0 2 5-14)
    caption "C10000063B84D628": lbl1WAddress(1)
    fore 255: lbl1WAddress(1 3-4 15)
    caption "No Sensor fitted": lbl1WAddress(2 5-14)
    caption "57000006418E3328": lbl1WAddress(3)
    caption "57000006418E3310": lbl1WAddress(4)
    caption "E80000019B074426": lbl1WAddress(15)
    caption "MS-TH": lbl1WType(0)
    caption "TS-1": lbl1WType(1)
    caption "T": lbl1WType(3)
    caption "??": lbl1WType(15)
    caption "C10000063B84D528": lbl1We2p(1)
    caption "4B0000063B770928": lbl1We2p(2)
    caption "No Sensor committed": lbl1We2p(3-15)
    text "Rack": txt1WName(0)
    text "\xA0 mid 8": txt1WName(1)
    text "": txt1WName(3)
    text "lastname": txt1WName(15)
    caption "16": lbl1WTotal
    focus txt1WName(0) (4 selected): frmMainForm
    true: OneWireRead
# Red: another sensor than the committed one, or none committed.

== Without the administrator only the read comes back
# No sensor anywhere.
answers FA8201 16 "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x00"
connected 5
quietly set AdminLoggedIn false
click cmdRead1WNames
    = all-of-sensors
    enabled true: lblSense(0-3), lbl1WAddress(0-15), lbl1WType(0-15), lbl1We2p(0-15), lbl1WTotalText, lbl1WTotal, lblSensorType(0-4)
    caption "No Sensor fitted": lbl1WAddress(0-15)
    fore 0: lbl1WAddress(0-15)
    caption "2020202020202020": lbl1We2p(0-15)
    caption "0": lbl1WTotal
    enabled false: cmdRead1WLive, cmd1WireClear, cmd1WireCommit, cmdResetMinMax
    focus cmdRead1WNames: frmMainForm

== A failed live read is taken for old firmware until one succeeds
store 250 0200-0280 "\xFF"*16
store 250 0220-0280 "\xFF"*16
# No sensor anywhere.
answers FA8201 16 "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x00"
reply FA82010A 1002FA8215001003
connected 5
quietly set cmdWrite1WNames enabled true
click cmdRead1WLive
    hourglass
    = ten-live-sensors FA
    says "Reading 1-Wire Settings Complete"
    arrow
    operation "Read Live 1-Wire Addresses" complete
    enabled true: cmdResetEthernet, fra1WireSettings
    caption "Firmware >= 1.4.3": lbl1WAddress(0-15)
    fore 0: lbl1WAddress(0-8)
    caption "0": lbl1WTotal
    enabled false: cmdRead1WLive, cmd1WireClear, cmd1WireCommit, cmdResetMinMax
    focus txt1WName(0) (0 selected): frmMainForm
    true: OneWireUnsupported
click cmdRead1WNames
    hourglass
    = names-of-sensors FB
    = committed-sensors FA
    = ten-live-sensors FA
    says "Reading 1-Wire Settings Complete"
    arrow
    operation "Read 1-Wire Settings" complete
    enabled true: lblSense(0-3), lbl1WAddress(0-15), lbl1WType(0-15), lbl1We2p(0-15), lbl1WTotalText, lbl1WTotal, lblSensorType(0-4)
    fore 255: lbl1WAddress(9-15)
    caption "No Sensor committed": lbl1We2p(0-15)
    true: OneWireRead
reply FA82010A 1002FA82010AFFFFFFFFFFFFFFFFFF017F1003
click cmdRead1WNames
    = all-of-sensors
    caption "No Sensor fitted": lbl1WAddress(0-15)
    fore 0: lbl1WAddress(9-15)
    enabled true: cmdRead1WLive, cmd1WireClear, cmd1WireCommit, cmdResetMinMax
    false: OneWireUnsupported

== A failed committed block skips the rest, and half a record is not shown
store 250 0200 "\x3F\x00\x00\x01\x9A\x4C\x71\x26\x19\xC1\x00\x00\x06\x3B\x84\xD5"
reply FA11021010
connected 5
click cmdRead1WNames
    hourglass
    = names-of-sensors FB
    says "Reading 1-Wire Memory 1 of 9"
    > FA11020010
    says "Reading 1-Wire Memory 2 of 9"
    > FA11021010
    arrow
    operation "Read 1-Wire Settings" stopped
    enabled true: cmdResetEthernet, fra1WireSettings, lblSense(0-3), lbl1WAddress(0-15), lbl1WType(0-15), lbl1We2p(0-15), lbl1WTotalText, lbl1WTotal, lblSensorType(0-4), cmdWrite1WNames
    caption "3F0000019A4C7126": lbl1We2p(0)
    focus txt1WName(0) (0 selected): frmMainForm

== A failed name skips the rest
# No sensor anywhere.
answers FA8201 16 "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x00"
reply FB11017010
connected 5
click cmdRead1WNames
    hourglass
    says "Reading 1-Wire Name 1 of 8"
    > FB11016010
    says "Reading 1-Wire Name 2 of 8"
    > FB11017010
    arrow
    operation "Read 1-Wire Settings" stopped
    enabled true: cmdResetEthernet, fra1WireSettings, lblSense(0-3), lbl1WAddress(0-15), lbl1WType(0-15), lbl1We2p(0-15), lbl1WTotalText, lbl1WTotal, lblSensorType(0-4), cmdWrite1WNames
    focus txt1WName(0) (0 selected): frmMainForm

== Commit reads the committed table, clear both
store 250 0210 "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
store 250 0220-0280 "\xFF"*16
store 250 0200 "\x3F\x00\x00\x01\x9A\x4C\x71\x26\x18\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
# No sensor anywhere.
answers FA8201 16 "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x00"
answer FA820101 "\x3F\x00\x00\x01\x9A\x4C\x71\x26\x19\x01"
connected 5
click cmdRead1WLive
    hourglass
    = live-sensors FA
    arrow
    operation "Read Live 1-Wire Addresses" complete
    enabled true: cmdResetEthernet, fra1WireSettings, cmdWrite1WNames
    caption "3F0000019A4C7126": lbl1WAddress(0)
    fore 255: lbl1WAddress(0)
    caption "No Sensor fitted": lbl1WAddress(1-15)
    fore 0: lbl1WAddress(1-15)
    caption "MS-TH": lbl1WType(0)
    caption "0": lbl1WTotal
    focus txt1WName(0) (0 selected): frmMainForm
store 250 0200 "\x3F\x00\x00\x01\x9A\x4C\x71\x26\x19\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
click cmd1WireCommit
    hourglass
    says "Committing 1-Wire Memory"
    > FA8203
    = committed-sensors FA
    arrow
    operation "Commit 1-Wire Addresses" complete
    enabled true: lblSense(0-3), lbl1WAddress(0-15), lbl1WType(0-15), lbl1We2p(0-15), lbl1WTotalText, lbl1WTotal, lblSensorType(0-4)
    fore 0: lbl1WAddress(0)
    caption "3F0000019A4C7126": lbl1We2p(0)
    caption "No Sensor committed": lbl1We2p(1-15)
store 250 0200-0280 "\xFF"*16
click cmd1WireClear
    hourglass
    says "Clearing 1-Wire Memory"
    > FA8202
    = committed-sensors FA
    = live-sensors FA
    arrow
    operation "Clear 1-Wire Addresses" complete
    fore 255: lbl1WAddress(0)
    caption "No Sensor committed": lbl1We2p(0)
reply FA8203
click cmd1WireCommit
    hourglass
    says "Committing 1-Wire Memory"
    > FA8203
    arrow
    operation "Commit 1-Wire Addresses" stopped
    caption "": lbl1We2p(0-15)

== Names go out padded, in pairs
store 250 0200-0280 "\xFF"*16
store 250 0220-0280 "\xFF"*16
# No sensor anywhere.
answers FA8201 16 "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x00"
connected 5
# Names of a unit before are not this one's.
quietly set cmdWrite1WNames enabled true
click cmdWrite1WNames
    operation "Write 1-Wire Names" stopped
    box "Not read|The 1-Wire names have not been read on this connection. Nothing was written."
    focus cmdWrite1WNames: frmMainForm
quietly click cmdRead1WNames
set txt1WName(0) "a"
    text "a": txt1WName(0)
set txt1WName(1) "exactly8"
    text "exactly8": txt1WName(1)
set txt1WName(15) "set beyond its length"
    text "set beyond its length": txt1WName(15)
click cmdWrite1WNames
    hourglass
    says "Writing 1-Wire Name 1 of 8"
    > FB12016010612020202020202065786163746C7938
    says "Writing 1-Wire Name 2 of 8"
    > FB1201701020202020202020202020202020202020
    says "Writing 1-Wire Name 3 of 8"
    > FB1201801020202020202020202020202020202020
    says "Writing 1-Wire Name 4 of 8"
    > FB1201901020202020202020202020202020202020
    says "Writing 1-Wire Name 5 of 8"
    > FB1201A01020202020202020202020202020202020
    says "Writing 1-Wire Name 6 of 8"
    > FB1201B01020202020202020202020202020202020
    says "Writing 1-Wire Name 7 of 8"
    > FB1201C01020202020202020202020202020202020
    says "Writing 1-Wire Name 8 of 8"
    > FB1201D0102020202020202020736574206265796F
    says "Writing 1-Wire Names complete"
    arrow
    operation "Write 1-Wire Names" complete
    focus txt1WName(0) (1 selected): frmMainForm
reply FB1201701020202020202020202020202020202020
click cmdWrite1WNames
    hourglass
    says "Writing 1-Wire Name 1 of 8"
    > FB12016010612020202020202065786163746C7938
    says "Writing 1-Wire Name 2 of 8"
    > FB1201701020202020202020202020202020202020
    arrow
    operation "Write 1-Wire Names" stopped

== Minima and maxima are reset
connected 5
click cmdResetMinMax
    hourglass
    says "Resetting 1-Wire min/max"
    > FA8102
    says "Reset 1-Wire min/max complete"
    arrow
    operation "Reset 1-Wire Min/Max" complete
    enabled true: cmdResetEthernet, fra1WireSettings, cmdWrite1WNames
    focus txt1WName(0) (0 selected): frmMainForm
reply FA8102 1002FA8116001003
click cmdResetMinMax
    hourglass
    says "Resetting 1-Wire min/max"
    > FA8102
    arrow
    operation "Reset 1-Wire Min/Max" stopped
    box "Privileges|Denied due to privilege settings"

== On a unit with old firmware
unit old
settings-read
quietly choose SSTab1 5
click cmdRead1WNames
    hourglass
    = names-of-sensors 81
    = committed-sensors 01
    says "Reading 1-Wire Live Addresses 1 of 16"
    > 01820101
    says "Reading 1-Wire Settings Complete"
    arrow
    operation "Read 1-Wire Settings" complete
    enabled true: fra1WireSettings, lblSense(0-3), lbl1WAddress(0-15), lbl1WType(0-15), lbl1We2p(0-15), lbl1WTotalText, lbl1WTotal, lblSensorType(0-4), cmdWrite1WNames
    caption "Firmware >= 1.4.3": lbl1WAddress(0-15)
    fore 255: lbl1WAddress(0-15)
    caption "3F0000019A4C7126": lbl1We2p(0)
    caption "C10000063B84D528": lbl1We2p(1)
    caption "4B0000063B770928": lbl1We2p(2)
    caption "57000006418E3328": lbl1We2p(3)
    caption "No Sensor committed": lbl1We2p(4 6-15)
    caption "2A00000622F16028": lbl1We2p(5)
    text "Rack air": txt1WName(0)
    text "Inlet": txt1WName(1)
    text "Outlet": txt1WName(2)
    text "UPS": txt1WName(3)
    text "Room": txt1WName(4)
    enabled false: cmdRead1WLive, cmd1WireClear, cmd1WireCommit, cmdResetMinMax
    focus txt1WName(0) (8 selected): frmMainForm
    true: OneWireRead, OneWireUnsupported

== A read that outlives its connection leaves the next one alone
unit cms
settings-read
quietly choose SSTab1 5
after 2000 click cmdDisconnect
after 2010 click cmdConnect
after 2300 call cmdReadNetworkSettings
click cmdRead1WNames
    hourglass
    = names-of-sensors 81
    = committed-sensors 01
    says "Reading 1-Wire Live Addresses 1 of 16"
    > 01820101
    says "Reading 1-Wire Live Addresses 2 of 16"
    > 01820102
    says "Reading 1-Wire Live Addresses 3 of 16"
    > 01820103
    now click cmdDisconnect
    says ""
    operation "Read 1-Wire Settings" overtaken
    arrow
    now click cmdConnect
    now call cmdReadNetworkSettings
    = settings-read 2
    index 0: SSTab1
    enabled true: fraNetworkSettings, fraMiscOptions, fraFixedIPSettings, fraTCPports, fraARP, fraSnmpSettings, fraUnitID, fraOledTimeout, fraArmButtons, fraTcpControlSettings, fraSecuritySettings, lblSense(0-3), lbl1WAddress(0-15), lbl1WType(0-15), lbl1We2p(0-15), lbl1WTotalText, lbl1WTotal, lblSensorType(0-4)
    fore 0: lbl1WAddress(0-1)
    fore 255: lbl1WAddress(2-15)
    enabled false: cmdRead1WLive, cmd1WireClear, cmd1WireCommit, cmdResetMinMax
    interval 10: timGetResponse
    focus txtIPAddress (14 selected): frmMainForm
