# Macro triggers: eight records of 16 bytes from 0200 of the display board: 14 characters of name,
# page with 80 for a disabled one, address.

== Read
store 251 0200 "Lights        \x00\x10"
store 251 0210 "              \x80\x00"
store 251 0220 "fourteen chars\x8C\x7E"
store 251 0230-0260 "x             \x00\x20"
store 251 0270 "  Last        \x7F\xFF"
connected 4
quietly set cmdReadMacroTriggers enabled true
click cmdReadMacroTriggers
    hourglass
    says "Reading Macro Data 1 of 8"
    > FB11020010
    says "Reading Macro Data 2 of 8"
    > FB11021010
    says "Reading Macro Data 3 of 8"
    > FB11022010
    says "Reading Macro Data 4 of 8"
    > FB11023010
    says "Reading Macro Data 5 of 8"
    > FB11024010
    says "Reading Macro Data 6 of 8"
    > FB11025010
    says "Reading Macro Data 7 of 8"
    > FB11026010
    says "Reading Macro Data 8 of 8"
    > FB11027010
    says "Reading Macro Data Complete"
    arrow
    operation "Read Macro Triggers" complete
    enabled true: cmdResetEthernet, fraMacroTrigger, lblMTName, lblMTAddress, lblMTEnable, lblMacro(0-7), cmdWriteMacroTriggers
    text "Lights": txtMTName(0)
    text "fourteen chars": txtMTName(2)
    text "x": txtMTName(3-6)
    text "Last": txtMTName(7)
    text "12": txtMTPage(2)
    text "127": txtMTPage(7)
    text "10": txtMTAddress(0)
    fore 0: txtMTAddress(0-7)
    text "00": txtMTAddress(1)
    text "7E": txtMTAddress(2)
    text "20": txtMTAddress(3-6)
    text "FF": txtMTAddress(7)
    value 1: chkMacro(0 3-7)
    focus txtMTName(0) (6 selected): frmMainForm
    true: MacroTriggersRead

== A failed record keeps the rows after it, and rows that were not read are not written
store 251 0200 "New           \x00\x20"
store 251 0210 "New           \x00\x20"
reply FB11022010
connected 4
quietly set cmdReadMacroTriggers enabled true
quietly set txtMTName(2) "old"
click cmdReadMacroTriggers
    hourglass
    says "Reading Macro Data 1 of 8"
    > FB11020010
    says "Reading Macro Data 2 of 8"
    > FB11021010
    says "Reading Macro Data 3 of 8"
    > FB11022010
    arrow
    operation "Read Macro Triggers" stopped
    enabled true: lblMTName, lblMTAddress, lblMTEnable, lblMacro(0-7)
    text "New": txtMTName(0-1)
    text "20": txtMTAddress(0-1)
    fore 0: txtMTAddress(0-1)
    value 1: chkMacro(0-1)
    focus cmdReadMacroTriggers: frmMainForm
call cmdWriteMacroTriggers
    operation "Write Macro Triggers" stopped
    box "Not read|The macro triggers have not been read on this connection. Nothing was written."

== Write
# Names are trimmed and cut, the page keeps its seven bits, an enabled row without an address has
# address 00. All records are built before the first is sent.
store 251 0200-0270 "x             \x00\x20"
store 251 0230 "Paged         \x8C\x30"
connected 4
quietly set cmdReadMacroTriggers enabled true
quietly click cmdReadMacroTriggers
type txtMTName(0) "  Lead "
    text "  Lead ": txtMTName(0)
    focus txtMTName(0) (0 selected): frmMainForm
set txtMTAddress(1) ""
    text "": txtMTAddress(1)
    fore 255: txtMTAddress(1)
set txtMTName(4) "a name that is too long"
    text "a name that is too long": txtMTName(4)
set txtMTPage(5) ""
    text "": txtMTPage(5)
set chkMacro(6) 0
    value 0: chkMacro(6)
after 50 set txtMTName(7) "later"
click cmdWriteMacroTriggers
    hourglass
    says "Writing Macro Data 1 of 8"
    > FB120200104C656164202020202020202020200020
    now set txtMTName(7)
    says "Writing Macro Data 2 of 8"
    > FB1202101078202020202020202020202020200000
    says "Writing Macro Data 3 of 8"
    > FB1202201078202020202020202020202020200020
    says "Writing Macro Data 4 of 8"
    > FB1202301050616765642020202020202020208C30
    says "Writing Macro Data 5 of 8"
    > FB1202401061206E616D6520746861742069730020
    says "Writing Macro Data 6 of 8"
    > FB1202501078202020202020202020202020200020
    says "Writing Macro Data 7 of 8"
    > FB1202601078202020202020202020202020208020
    says "Writing Macro Data 8 of 8"
    > FB1202701078202020202020202020202020200020
    says "Writing Macro Data complete"
    arrow
    operation "Write Macro Triggers" complete
    text "later": txtMTName(7)
    focus cmdWriteMacroTriggers: frmMainForm
# A page that no byte holds: nothing goes out.
set txtMTPage(6) "300"
    text "300": txtMTPage(6)
click cmdWriteMacroTriggers
    operation "Write Macro Triggers" stopped
    box "Macro Triggers|A page can be 0 to 127 at most, 255 for an enabled macro. Nothing was written."

== Leaving an address box checks it
connected 4
store 251 0220 "x             \x00\x20"
quietly set cmdReadMacroTriggers enabled true
quietly click cmdReadMacroTriggers
go txtMTAddress(2)
    fore 255: txtMTAddress(2)
    focus txtMTAddress(2) (2 selected): frmMainForm
type txtMTAddress(2) "7e"
    text "7e": txtMTAddress(2)
    focus txtMTAddress(2) (0 selected): frmMainForm
go txtMTName(0)
    text "7E": txtMTAddress(2)
    fore 0: txtMTAddress(2)
    focus txtMTName(0) (0 selected): frmMainForm
# Refused: a box, and back to the address.
type txtMTAddress(2) "0F"
    text "0F": txtMTAddress(2)
    fore 255: txtMTAddress(2)
    focus txtMTAddress(2) (0 selected): frmMainForm
go txtMTName(0)
    box "Invalid Address.|Hex address for macro is not valid. Must be between hex 10 and 7E"
    text "": txtMTAddress(2)
    1: beeps
type txtMTAddress(2) "7F"
    text "7F": txtMTAddress(2)
go txtMTName(0)
    box "Invalid Address.|Hex address for macro is not valid. Must be between hex 10 and 7E"
    text "": txtMTAddress(2)
    2: beeps
type txtMTAddress(2) "10"
    text "10": txtMTAddress(2)
go txtMTName(0)
    fore 0: txtMTAddress(2)
    focus txtMTName(0) (0 selected): frmMainForm
# No address: the row is emptied and can't be enabled.
type txtMTAddress(2) "00"
    text "00": txtMTAddress(2)
    fore 255: txtMTAddress(2)
    focus txtMTAddress(2) (0 selected): frmMainForm
go txtMTName(0)
    text "": txtMTAddress(2)
    value 0: chkMacro(2)
    enabled false: chkMacro(2)
    focus txtMTName(0) (0 selected): frmMainForm
