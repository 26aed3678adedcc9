# Inlet and outlet names: sixteen blocks of 16 bytes from 0060 of the display board, two halves of
# eight in each.

== Read
# Halves are trimmed; blanks inside and bytes that no box shows survive.
store 251 0060 "MainABCDLower  8"
store 251 0070 "  Back   up     "
store 251 0100 "Eighth  "
store 251 0150 "        14 \xA0ow  "
connected 3
quietly set cmdReadChannelNames enabled true
quietly set txtOutUpper(3) "stale"
click cmdReadChannelNames
    hourglass
    = channel-names
    arrow
    operation "Read Channel Names" complete
    enabled true: cmdResetEthernet, fraInletNames, lblInletTop, lblInletBottom, lblMain, lblBackup, fraOutletNames, lblTopLine(0-1), lblBottomLine(0-1), lblOutlet(0-13), cmdWriteChannelNames
    text "MainABCD": txtMainUpper
    text "Lower  8": txtMainLower
    text "Back": txtBackupUpper
    text "up": txtBackupLower
    text "": txtOutUpper(3)
    text "Eighth": txtOutUpper(8)
    text "14 \xA0ow": txtOutLower(13)
    focus txtMainUpper (8 selected): frmMainForm
    true: ChannelNamesRead

== A failed block ends the read at that channel
store 251 0060 "Main"
store 251 0080 "First"
store 251 00A0 "Third"
reply FB11009010
connected 3
quietly set cmdReadChannelNames enabled true
click cmdReadChannelNames
    hourglass
    says "Reading inlet name(s)"
    > FB11006010
    > FB11007010
    says "Reading outlet name 1 of 14"
    > FB11008010
    says "Reading outlet name 2 of 14"
    > FB11009010
    arrow
    operation "Read Channel Names" stopped
    enabled true: lblInletTop, lblInletBottom, lblMain, lblBackup, lblTopLine(0-1), lblBottomLine(0-1), lblOutlet(0-13)
    text "Main": txtMainUpper
    text "First": txtOutUpper(0)
    focus cmdReadChannelNames: frmMainForm

== Only outlets lose leading 10s, and none takes more than its block
store 251 0060 "\x10nletABCDEFGHIJK"
store 251 0080 "\x10\x10ABCDEFGHIJKLMN"
store 251 0090 "\x10\x10\x10\x10\x10\x10\x10\x10\x10\x10\x10\x10\x10\x10\x10\x10"
connected 3
quietly set cmdReadChannelNames enabled true
click cmdReadChannelNames
    hourglass
    = channel-names
    arrow
    operation "Read Channel Names" complete
    enabled true: cmdResetEthernet, fraInletNames, lblInletTop, lblInletBottom, lblMain, lblBackup, fraOutletNames, lblTopLine(0-1), lblBottomLine(0-1), lblOutlet(0-13), cmdWriteChannelNames
    text "\x10nletABC": txtMainUpper
    text "DEFGHIJK": txtMainLower
    text "ABCDEFGH": txtOutUpper(0)
    text "IJKLMN": txtOutLower(0)
    focus txtMainUpper (8 selected): frmMainForm
    true: ChannelNamesRead

== Write
# Leading blanks go out, and the hidden backup's names. Then a refusal: what was typed stays, the
# button comes back.
connected 3
quietly set cmdReadChannelNames enabled true
quietly click cmdReadChannelNames
type txtMainUpper "  Main"
    text "  Main": txtMainUpper
set txtMainLower "longer than it may be"
    text "longer than it may be": txtMainLower
set txtBackupLower "hidden"
    text "hidden": txtBackupLower
set txtOutUpper(8) "exactly8"
    text "exactly8": txtOutUpper(8)
set txtOutLower(13) "\x10"
    text "\x10": txtOutLower(13)
click cmdWriteChannelNames
    hourglass
    = channel-names-written 20204D61696E20206C6F6E6765722074 202020202020202068696464656E2020 65786163746C79382020202020202020 20202020202020201020202020202020
    arrow
    operation "Write Channel Names" complete
    focus cmdWriteChannelNames: frmMainForm
refuse FB12007010202020202020202068696464656E2020
type txtOutUpper(3) "Typed"
    text "Typed": txtOutUpper(3)
    focus txtOutUpper(3) (0 selected): frmMainForm
click cmdWriteChannelNames
    hourglass
    says "Writing inlet name"
    > FB1200601020204D61696E20206C6F6E6765722074
    > FB12007010202020202020202068696464656E2020
    arrow
    operation "Write Channel Names" stopped
    box "Privileges|Denied due to privilege settings"
    enabled false: cmdResetEthernet
    focus cmdWriteChannelNames: frmMainForm

== What a settings read has cleared is not written until it is read again
connected 3
quietly set cmdReadChannelNames enabled true
call cmdWriteChannelNames
    operation "Write Channel Names" stopped
    box "Not read|The channel names have not been read on this connection. Nothing was written."
quietly click cmdReadChannelNames
after 1 call cmdReadNetworkSettings
quietly wait 3000
click cmdWriteChannelNames
    operation "Write Channel Names" stopped
    box "Not read|The channel names have not been read on this connection. Nothing was written."
    focus cmdWriteChannelNames: frmMainForm
quietly click cmdReadChannelNames
click cmdWriteChannelNames
    hourglass
    = channel-names-written 20202020202020202020202020202020 20202020202020202020202020202020 20202020202020202020202020202020 20202020202020202020202020202020
    arrow
    operation "Write Channel Names" complete
    focus cmdWriteChannelNames: frmMainForm

== A read of a lost connection leaves the next one alone
connected 3
store 251 0060 "Old"
quietly set cmdReadChannelNames enabled true
after 450 click cmdDisconnect
after 460 click cmdConnect
after 700 store 251 0060 "New"
after 800 call cmdReadChannelNames
click cmdReadChannelNames
    hourglass
    says "Reading inlet name(s)"
    > FB11006010
    > FB11007010
    says "Reading outlet name 1 of 14"
    > FB11008010
    says "Reading outlet name 2 of 14"
    > FB11009010
    says "Reading outlet name 3 of 14"
    > FB1100A010
    now click cmdDisconnect
    says ""
    operation "Read Channel Names" overtaken
    arrow
    now click cmdConnect
    now store 251
    now call cmdReadChannelNames
    hourglass
    = channel-names 2
    arrow
    operation "Read Channel Names" complete
    index 0: SSTab1
    enabled true: lblInletTop, lblInletBottom, lblMain, lblBackup, lblTopLine(0-1), lblBottomLine(0-1), lblOutlet(0-13)
    text "New": txtMainUpper
    text "": txtMTPage(0-7)
    interval 10: timGetResponse
    false: AdminLoggedIn

== Without a connection
call cmdReadChannelNames
call cmdWriteChannelNames
