# The macro editor without a unit: opening, inserting, the second byte, the listing, leaving.

== It opens on an empty program that can be edited
# Without a login neither the unit nor a file can be changed.
edit 50
    says "Download completed."
    operation "Download Macro" stopped
    back 2147483663: cmdConnect, cmdDownload, cmdUpload
    caption "Socket is closed": lblNotLoggedIn
    fore 65280: lblNotLoggedIn
    caption "": lblTitle, lblTitle2
    visible false: lblFuseNo(14-15), pbLED(15), imgFuse(15), imgFuse2Block, imgFuse7Block(0-1), lblDesi(116 216), cmdInsertCommand(192-197 199)
    caption "00": lblMem1(0-15), lblMem2(0-15)
    caption "Stop": lblCommand(0-15)
    visible true: shpOutline(0), frmScriptEdit
    fore 0: txtSecondByteHex, txtSecondByteTime, txtGoTo
    enabled false: cmdReadLocks, cmdInsertCommand(199), cmdGoTo, cmdUpload, cmdLoadFile, cmdSaveFile
    caption "SUPPLY LOSS INT": cmdInsertCommand(192)
    caption "SUPPLY BACK INT": cmdInsertCommand(193)
    enabled true: timUpdate, timUDColour
    16: MemPointer, ListTop
click cmdInsertCommand(81)
    says ""
    caption "51": lblMem1(0)
    caption "All outlets off after fixed delay of 0.0 seconds": lblCommand(0)
    focus scrListScroll: frmScriptEdit
    true: MacroChanged
    51 00: image(10)
close
    box "Any changes?|Have you Uploaded or saved any changes you have made, otherwise they will be lost?"
    caption "00": lblMem1(0)
    caption "Stop": lblCommand(0)
    = editor-closed
    00 00: image(10)

== It starts afresh each time
quietly set AdminLoggedIn true
quietly image 96 07
quietly edit 50
quietly set chkAutoIncrement 1
quietly set chkTrace 1
quietly choose scrListScroll 96
quietly click chkOutGroup1(4)
quietly type txtGoTo "55"
quietly set MacroChanged true
close
    box "Any changes?|Have you Uploaded or saved any changes you have made, otherwise they will be lost?"
    value 16: scrListScroll
    visible true: shpOutline(0)
    visible false: shpOutline(7), frmScriptEdit
    value 0: chkTrace
    enabled false: timTrace, timUDColour
    focus none: frmScriptEdit
    16: ListTop
    0: ListRow
edit 50
    says ""
    says "Download completed."
    operation "Download Macro" stopped
    value 0: chkAutoIncrement, chkOutGroup1(4)
    text "00": txtGroup1
    text "10": txtGoTo
    fore 0: txtGoTo
    enabled true: timUpdate, timUDColour
    visible true: frmScriptEdit
    false: MacroChanged
close
    enabled false: timUpdate, timUDColour
    visible false: frmScriptEdit

== It asks before changes are lost
quietly set AdminLoggedIn true
quietly edit 50
set MacroChanged true
    true: MacroChanged
say-no
click cmdExit
    box "Any changes?|Have you Uploaded or saved any changes you have made, otherwise they will be lost?"
    focus cmdExit: frmScriptEdit
click cmdExit
    box "Any changes?|Have you Uploaded or saved any changes you have made, otherwise they will be lost?"
    = editor-closed
close
edit 50
    says ""
    says "Download completed."
    operation "Download Macro" stopped
    enabled true: timUpdate, timUDColour
    visible true: frmScriptEdit
    false: MacroChanged
click cmdExit
    enabled false: timUpdate, timUDColour
    visible false: frmScriptEdit
close

== A mask goes through the second byte's field
quietly set AdminLoggedIn true
quietly edit 50
type txtSecondByteHex "02"
    text "02": txtSecondByteHex
    fore 255: txtSecondByteHex, txtSecondByteTime
    focus txtSecondByteHex (0 selected): frmScriptEdit
type txtGroup1 "81"
    fore 0: txtSecondByteHex, txtSecondByteTime
    text "0.2": txtSecondByteTime
    text "81": txtGroup1
    enabled true: cmdInsertCommand(199)
    focus txtGroup1 (0 selected): frmScriptEdit
click cmdInsertCommand(231)
    says ""
    caption "E7": lblMem1(0)
    caption "81": lblMem2(0)
    caption "Main (A) macro inhibit ( 1 - 8 )": lblCommand(0)
    text "81": txtSecondByteHex
    text "10.0": txtSecondByteTime
    enabled false: cmdInsertCommand(198-199)
    focus scrListScroll: frmScriptEdit
    true: MacroChanged
    E7 81: image(10)
type txtGroup1 "8"
    text "8": txtGroup1
    focus txtGroup1 (0 selected): frmScriptEdit
click cmdInsertCommand(231)
    caption "00": lblMem2(0)
    caption "Main (A) macro inhibit ( )": lblCommand(0)
    text "00": txtSecondByteHex
    text "0.0": txtSecondByteTime
    enabled true: cmdInsertCommand(198)
    focus scrListScroll: frmScriptEdit
    E7 00: image(10)
type txtGroup1 "GG"
    text "GG": txtGroup1
    focus txtGroup1 (0 selected): frmScriptEdit
click cmdInsertCommand(231)
    focus scrListScroll: frmScriptEdit
type txtGroup1 ""
    text "": txtGroup1
    focus txtGroup1 (0 selected): frmScriptEdit
click cmdInsertCommand(231)
    focus scrListScroll: frmScriptEdit
quietly close

== Inserts step on, up to the last address of a jump
quietly set AdminLoggedIn true
quietly edit 50
click chkAutoIncrement
    value 1: chkAutoIncrement
    focus chkAutoIncrement: frmScriptEdit
choose scrListScroll 124
    = scrolled-to 124 109
click cmdInsertCommand(2)
    says ""
    value 125: scrListScroll
    caption "02": lblMem1(14)
    caption "Wait for 0.0 seconds": lblCommand(14)
    true: MacroChanged
    125: MemPointer
    110: ListTop
    02 00: image(7C)
click cmdOff(13)
    value 126: scrListScroll
    caption "02": lblMem1(13)
    caption "3D": lblMem1(14)
    caption "Wait for 0.0 seconds": lblCommand(13)
    caption "Turn off outlet  14 after 0.0 seconds, skip if already off": lblCommand(14)
    126: MemPointer
    111: ListTop
    3D 00: image(7D)
click cmdInsertCommand(81)
    caption "51": lblMem1(15)
    caption "All outlets off after fixed delay of 0.0 seconds": lblCommand(15)
    51 00: image(7E)
click cmdInsertCommand(82)
    caption "52": lblMem1(15)
    caption "All outlets on after fixed delay of 0.0 seconds": lblCommand(15)
    52 00: image(7E)
quietly close

== At the last address only outlets can be inserted
quietly set AdminLoggedIn true
quietly edit 50
choose scrListScroll 127
    = scrolled-to 127 112
click chkTrace
    = trace-on 120
click cmdInsertCommand(81)
    value 0: chkTrace
    enabled true: timUpdate
    enabled false: timTrace
    focus cmdInsertCommand(81): frmScriptEdit
click cmdOn(0)
    says ""
    caption "40": lblMem1(7)
    caption "Turn on outlet  1 after 0.0 seconds, skip if already on": lblCommand(7)
    focus scrListScroll: frmScriptEdit
    40 00: image(7F)
quietly close

== In trace an insert lands where the cursor stood before
quietly set AdminLoggedIn true
quietly edit 50
choose scrListScroll 32
    = scrolled-to 32 17
click chkTrace
    = trace-on 25
quietly choose scrListScroll 80
click cmdOn(2)
    says ""
    42 00: image(20)
click cmdInsertCommand(81)
    value 0: chkTrace
    enabled true: timUpdate
    enabled false: timTrace
    true: MacroChanged
    80: MemPointer
    51 00: image(20)
quietly close

== The second byte is red until it is accepted
# Leaving the box accepts it, leaving the time does not. No code holds a negative time.
quietly set AdminLoggedIn true
quietly edit 50
type txtSecondByteHex "0a"
    text "0a": txtSecondByteHex
    fore 255: txtSecondByteHex, txtSecondByteTime
    focus txtSecondByteHex (0 selected): frmScriptEdit
go txtSecondByteTime
    text "0A": txtSecondByteHex
    fore 0: txtSecondByteHex, txtSecondByteTime
    text "1.0": txtSecondByteTime
    enabled false: cmdInsertCommand(198)
    focus txtSecondByteTime (0 selected): frmScriptEdit
type txtSecondByteTime "635"
    fore 255: txtSecondByteHex, txtSecondByteTime
    text "635": txtSecondByteTime
go scrListScroll
    focus scrListScroll: frmScriptEdit
click cmdSecondByteTimeOK
    text "C6": txtSecondByteHex
    fore 0: txtSecondByteHex, txtSecondByteTime
    text "600.0": txtSecondByteTime
    focus cmdSecondByteTimeOK: frmScriptEdit
type txtSecondByteTime "-5"
    fore 255: txtSecondByteHex, txtSecondByteTime
    text "-5": txtSecondByteTime
    focus txtSecondByteTime (0 selected): frmScriptEdit
click cmdSecondByteTimeOK
    focus cmdSecondByteTimeOK: frmScriptEdit
quietly close

== Trace puts the cursor into the middle, and clearing it takes it back
quietly set AdminLoggedIn true
quietly edit 50
choose scrListScroll 64
    = scrolled-to 64 49
click chkTrace
    = trace-on 57
choose scrListScroll 80
    value 80: scrListScroll
    focus scrListScroll: frmScriptEdit
    73: ListTop
click chkTrace
    value 0: chkTrace
    enabled true: timUpdate
    enabled false: timTrace
    focus chkTrace: frmScriptEdit
quietly close

== A click on a row reads it after the refresh
# In trace the list moves below the click: row 12 held 1C and holds 21 then. The last rows of the
# trace lie beyond the scroll bar.
quietly set AdminLoggedIn true
quietly edit 50
quietly image 15 E755
quietly image 1C 580F
choose scrListScroll 32
    value 32: scrListScroll
    caption "E7": lblMem1(4)
    caption "58": lblMem1(11)
    caption "55": lblMem2(4)
    caption "0F": lblMem2(11)
    caption "Main (A) macro inhibit ( 1 - 3 - 5 - 7 )": lblCommand(4)
    caption "Main (A) latch on 1 - 8 ( 1 - 2 - 3 - 4 )": lblCommand(11)
    visible false: shpOutline(0)
    visible true: shpOutline(15)
    focus scrListScroll: frmScriptEdit
    32: MemPointer
    17: ListTop
    15: ListRow
click lblCommand(4)
    value 21: scrListScroll
    visible true: shpOutline(4)
    visible false: shpOutline(15)
    enabled true: cmdReadLocks
    21: MemPointer
    4: ListRow
    231: CurrentOpcode
    85: CurrentSecondByte
click chkTrace
    caption "00": lblMem1(4 11), lblMem2(4 11)
    caption "E7": lblMem1(5)
    caption "58": lblMem1(12)
    caption "55": lblMem2(5)
    caption "0F": lblMem2(12)
    caption "Stop": lblCommand(4 11)
    caption "Main (A) macro inhibit ( 1 - 3 - 5 - 7 )": lblCommand(5)
    caption "Main (A) latch on 1 - 8 ( 1 - 2 - 3 - 4 )": lblCommand(12)
    visible false: shpOutline(4)
    visible true: shpOutline(5)
    value 1: chkTrace
    enabled false: timUpdate
    enabled true: timTrace
    focus chkTrace: frmScriptEdit
    16: ListTop
    5: ListRow
quietly image 21 E503
click lblCommand(12)
    value 28: scrListScroll
    caption "E7": lblMem1(0)
    caption "00": lblMem1(5), lblMem2(5)
    caption "58": lblMem1(7)
    caption "E5": lblMem1(12)
    caption "55": lblMem2(0)
    caption "0F": lblMem2(7)
    caption "03": lblMem2(12)
    caption "Main (A) macro inhibit ( 1 - 3 - 5 - 7 )": lblCommand(0)
    caption "Stop": lblCommand(5)
    caption "Main (A) latch on 1 - 8 ( 1 - 2 - 3 - 4 )": lblCommand(7)
    caption "Main (A) control inhibit 9 - 14 ( 9 - 10 )": lblCommand(12)
    visible false: shpOutline(5)
    visible true: shpOutline(7)
    21: ListTop
    7: ListRow
    229: CurrentOpcode
    3: CurrentSecondByte
quietly choose scrListScroll 127
click lblCommand(15)
quietly close

== The standard program, and clearing it
quietly set AdminLoggedIn true
quietly edit 50
image 7F 0101
    01 01: image(7F)
image 80 AB
    AB 00: image(80)
click cmdBasicSettings
    = rows-of-the-standard-program
    focus cmdBasicSettings: frmScriptEdit
    = standard-program
    00 00: image(7F)
quietly choose scrListScroll 96
click chkTrace
    = trace-on 89
click cmdClearMem
    value 16: scrListScroll
    visible true: shpOutline(0)
    visible false: shpOutline(7)
    value 0: chkTrace
    enabled true: timUpdate
    enabled false: timTrace
    focus cmdClearMem: frmScriptEdit
    16: MemPointer, ListTop
    0: ListRow
    00 00: image(10-14 1A-27 2A-37)
quietly close

== On a unit; an address that is not one is sent as 00
# Status; triggers from 0200, names from 0060; the program; then polls.
unit cms
settings-read
edit 8000
    > 0131
    hourglass
    says "Reading Macro Trigger Name 1 of 8"
    > FB11020010
    says "Reading Macro Trigger Name 2 of 8"
    > FB11021010
    says "Reading Macro Trigger Name 3 of 8"
    > FB11022010
    says "Reading Macro Trigger Name 4 of 8"
    > FB11023010
    says "Reading Macro Trigger Name 5 of 8"
    > FB11024010
    says "Reading Macro Trigger Name 6 of 8"
    > FB11025010
    says "Reading Macro Trigger Name 7 of 8"
    > FB11026010
    says "Reading Macro Trigger Name 8 of 8"
    > FB11027010
    says "Reading macro triggers complete"
    = channel-names
    = program-blocks-to-7
    = program-blocks-from-8
    operation "Download Macro" complete
    > 0131 x35
    text "Mains": txtMainUpper
    text "Feed A": txtMainLower
    text "UPS": txtBackupUpper
    text "Feed B": txtBackupLower
    text "Router": txtOutUpper(0-1)
    text "Switch": txtOutUpper(2-3)
    text "Firewall": txtOutUpper(4-5)
    text "Storage": txtOutUpper(6-7)
    text "Server": txtOutUpper(8-10)
    text "Radio": txtOutUpper(11)
    text "KVM": txtOutUpper(12)
    text "Spare": txtOutUpper(13)
    text "Core 1": txtOutLower(0)
    text "Core 2": txtOutLower(1)
    text "Rack 1": txtOutLower(2)
    text "Rack 2": txtOutLower(3)
    text "North": txtOutLower(4)
    text "South": txtOutLower(5)
    text "Shelf 1": txtOutLower(6)
    text "Shelf 2": txtOutLower(7)
    text "Web": txtOutLower(8)
    text "Mail": txtOutLower(9)
    text "Backup": txtOutLower(10)
    text "Link": txtOutLower(11)
    text "Console": txtOutLower(12)
    text "All on": txtMTName(0)
    text "All off": txtMTName(1)
    text "8 to 14 on": txtMTName(2)
    text "7 to 1 off": txtMTName(3)
    text "Hold": txtMTName(4)
    text "Start again": txtMTName(5)
    text "Spare macro 7": txtMTName(6)
    text "Spare macro 8": txtMTName(7)
    text "0": txtMTPage(0-7)
    text "1A": txtMTAddress(0)
    fore 0: txtMTAddress(0-7), txtSecondByteHex, txtSecondByteTime, txtGoTo
    text "2A": txtMTAddress(1)
    text "21": txtMTAddress(2)
    text "31": txtMTAddress(3)
    text "15": txtMTAddress(4)
    text "10": txtMTAddress(5)
    text "38": txtMTAddress(6-7)
    value 1: chkMacro(0-5)
    caption "Comms Room 2": lblTitle
    caption "MDU Rack 4": lblTitle2
    caption "M": lblFuseNo(14)
    caption "B": lblFuseNo(15)
    picture 2: pbLED(0-11 14)
    picture 1: pbLED(15)
    caption "Router": lblDesi(101-102)
    caption "Switch": lblDesi(103-104)
    caption "Firewall": lblDesi(105-106)
    caption "Storage": lblDesi(107-108)
    caption "Server": lblDesi(109-111)
    caption "Radio": lblDesi(112)
    caption "KVM": lblDesi(113)
    caption "Spare": lblDesi(114)
    caption "Mains": lblDesi(115)
    caption "UPS": lblDesi(116)
    caption "Core 1": lblDesi(201)
    caption "Core 2": lblDesi(202)
    caption "Rack 1": lblDesi(203)
    caption "Rack 2": lblDesi(204)
    caption "North": lblDesi(205)
    caption "South": lblDesi(206)
    caption "Shelf 1": lblDesi(207)
    caption "Shelf 2": lblDesi(208)
    caption "Web": lblDesi(209)
    caption "Mail": lblDesi(210)
    caption "Backup": lblDesi(211)
    caption "Link": lblDesi(212)
    caption "Console": lblDesi(213)
    caption "Feed A": lblDesi(215)
    caption "Feed B": lblDesi(216)
    = standard-codes-at-10
    caption "00": lblMem1(5-9), lblMem2(1 4-9)
    = standard-codes-and-texts
    caption "Stop": lblCommand(5-9)
    = standard-outlets
    visible true: shpOutline(0), frmScriptEdit
    enabled false: cmdReadLocks, cmdInsertCommand(199)
    back 2147483663: cmdDownload, cmdUpload
    enabled true: timUpdate
    false: MacroChanged
    16: MemPointer, ListTop
    = standard-program
set timUpdate enabled false
    enabled false: timUpdate
quietly wait 300
set txtGoTo "05"
    text "05": txtGoTo
    fore 255: txtGoTo
call cmdGoTo
    > 016100
    operation "Go To Macro Address" complete
    box "Invalid Address.|Hex address for GoTo is not valid. Must be between hex 10 and 7E"
    text "": txtGoTo
    enabled true: timUpdate
    focus txtGoTo (0 selected): frmScriptEdit
    1: beeps
close
    caption "00": lblMem1(0-4 10-15), lblMem2(0 2-3 10-15)
    caption "Stop": lblCommand(0-4 10-15)
    enabled false: timUpdate
    focus none: frmScriptEdit
    visible false: frmScriptEdit
    00 00: image(10-14 1A-27 2A-37)

== Download and upload without a unit only say that they are done
quietly set AdminLoggedIn true
quietly edit 50
image 7F 2233
    22 33: image(7F)
click chkTrace
    value 1: chkTrace
    enabled false: timUpdate
    enabled true: timTrace
    focus chkTrace: frmScriptEdit
choose scrListScroll 48
    value 48: scrListScroll
    visible false: shpOutline(0)
    visible true: shpOutline(7)
    focus scrListScroll: frmScriptEdit
    41: ListTop
    7: ListRow
type txtSecondByteHex "07"
    text "07": txtSecondByteHex
    fore 255: txtSecondByteHex, txtSecondByteTime
    focus txtSecondByteHex (0 selected): frmScriptEdit
set MacroChanged true
    true: MacroChanged
click cmdDownload
    operation "Download Macro" stopped
    text "00": txtSecondByteHex
    fore 0: txtSecondByteHex, txtSecondByteTime
    focus cmdDownload: frmScriptEdit
    false: MacroChanged
click chkTrace
    value 0: chkTrace
    enabled true: timUpdate
    enabled false: timTrace
    focus chkTrace: frmScriptEdit
type txtSecondByteHex "07"
    text "07": txtSecondByteHex
    fore 255: txtSecondByteHex, txtSecondByteTime
    focus txtSecondByteHex (0 selected): frmScriptEdit
set MacroChanged true
    true: MacroChanged
click cmdUpload
    hourglass
    says "Upload completed."
    arrow
    operation "Upload Macro" stopped
    fore 0: txtSecondByteHex, txtSecondByteTime
    text "0.7": txtSecondByteTime
    enabled true: cmdInsertCommand(199)
    focus cmdUpload: frmScriptEdit
    false: MacroChanged
    22 00: image(7F)
quietly close
