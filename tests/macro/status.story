# The status record as the open editor shows it: lights, colours of the outlet buttons, the cursor.
# 13 bytes: outlets that are on, alarm, flags A, flags B, inputs, address.

== The buttons of an outlet are coloured, paler where they can't be pressed
connected 4
quietly set txtMTName(0) "a"
quietly set txtMainUpper "b"
quietly edit 3500
answer FA31 "\x00\x02\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
wait 500
    > FA31 x5
    picture 1: pbLED(0-13)
quietly set cmdOn(1) enabled false
quietly set cmdOn(2) enabled false
wait 500
    > FA31 x5
    back 12648384: cmdOn(1)
    back 2147483663: cmdOn(2), cmdOff(1)
# Another length leaves the picture.
answer FA31 "\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
wait 500
    > FA31 x5
answer FA31 "\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
wait 500
    > FA31 x5
quietly close

== The cursor follows the unit in trace only, and within the range of its bar
connected 4
quietly set txtMTName(0) "a"
quietly set txtMainUpper "b"
quietly edit 3500
answer FA31 "\x00\x00\x00\x00\x00\x00\x00\x00\x45\x00\x00\x00\x00"
wait 500
    > FA31 x5
    picture 1: pbLED(0-13)
click chkTrace
    value 1: chkTrace
    enabled false: timUpdate
    enabled true: timTrace
    focus chkTrace: frmScriptEdit
wait 500
    > FA31 x5
    value 69: scrListScroll
    visible false: shpOutline(0)
    visible true: shpOutline(7)
    62: ListTop
    7: ListRow
# The lights move all the same.
answer FA31 "\x00\x01\x00\x00\x01\x00\x00\x00\x0F\x00\x00\x00\x00"
wait 500
    > FA31 x6
    picture 2: pbLED(0)
answer FA31 "\x00\x02\x00\x00\x02\x00\x00\x00\x80\x00\x00\x00\x00"
wait 500
    > FA31 x6
    picture 1: pbLED(0)
    picture 2: pbLED(1)
answer FA31 "\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
wait 500
    > FA31 x6
    picture 1: pbLED(1)
answer FA31 "\x00\x00\x00\x00\x00\x00\x00\x00\xFF\x00\x00\x00\x00"
wait 500
    > FA31 x6
answer FA31 "\x00\x00\x00\x00\x00\x00\x00\x00\x7F\x00\x00\x00\x00"
wait 500
    > FA31 x6
    value 127: scrListScroll
    caption "00": lblMem1(8-15), lblMem2(8-15)
    caption "Stop": lblCommand(8-15)
    120: ListTop
click chkTrace
    value 0: chkTrace
    enabled true: timUpdate
    enabled false: timTrace
answer FA31 "\x00\x00\x00\x00\x00\x00\x00\x00\x20\x00\x00\x00\x00"
wait 500
    > FA31 x5
quietly close
