# The web levels: three passwords, a salt drawn anew at each change, the digests that are stored.

== Each change hashes all levels under one new salt
set txtWebPassword(2) "kestrane"
    text "kestrane": txtWebPassword(2)
    text "2222730559E8781291A1168DC9386A3F": txtSalt
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtSHA(0-1)
    text "4F974BED2BDDBE10C508CC528713996D": txtSHA(2)
draw 8C3F5A07D1E2964BB8703CE5194A6DF2
set txtWebPassword(1) "operator"
    text "operator": txtWebPassword(1)
    text "8C3F5A07D1E2964BB8703CE5194A6DF2": txtSalt
    text "F1DA454A11E81CA89402B4B1CCF76010": txtSHA(1)
    text "C900AB36006A66875CBD1F4E06B92FA0": txtSHA(2)
# The text that it has already: nothing is drawn. An emptied box still renews the salt.
set txtWebPassword(1) "operator"
set txtWebPassword(1) ""
    text "": txtWebPassword(1)
    text "8E3196588E5CBB6BB32A1C9690E84205": txtSalt
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtSHA(1)
    text "D7F807BD443BFA7E2836A99FD59626C3": txtSHA(2)

== Disabling a level and enabling it again
quietly set txtWebPassword(0) "view"
quietly set txtWebPassword(1) "control"
set chkWebSecurityDisable(1) 1
    text "": txtWebPassword(1)
    enabled false: txtWebPassword(1)
    value 1: chkWebSecurityDisable(1)
    text "8E3196588E5CBB6BB32A1C9690E84205": txtSalt
    text "2B86BD5C6132834D7D229BD82A3B4756": txtSHA(0)
    text "00000000000000000000000000000000": txtSHA(1)
    true: MacroChanged
set chkWebSecurityDisable(1) 0
    enabled true: txtWebPassword(1)
    value 0: chkWebSecurityDisable(1)
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtSHA(1)

== Keys typed in a password
# Blanks beep, sixteen characters at most. Were the warning ever hidden, the next key or a visit to
# a check box would empty the boxes.
connected 2
quietly set fraSecuritySettings enabled true
press txtWebPassword(0) 32
    focus txtWebPassword(0) (0 selected): frmMainForm
    1: beeps
type txtWebPassword(0) "a b longer than sixteen"
    text "ablongerthansixt": txtWebPassword(0)
    text "51D2179966DE10C942678D9D55B6C2FE": txtSalt
    text "DD2EA4B9BD17CE72A33DD963D2274999": txtSHA(0)
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtSHA(1-2)
    true: MacroChanged
    5: beeps
set txtWebPassword(2) "admin"
    text "admin": txtWebPassword(2)
    text "B106B2AB65B9093C50D6835763265BBC": txtSalt
    text "A6C7CACE49400F2599868F1EB9AAA4A6": txtSHA(0)
    text "0056E1807B96379FDD87E587F7111BDB": txtSHA(2)
set lblPasswordWarn visible false
    visible false: lblPasswordWarn
press txtWebPassword(0) 120
    visible true: lblPasswordWarn
    text "x": txtWebPassword(0)
    text "": txtWebPassword(2)
    text "B6E7CB35D0FD61303D20D58780688C9F": txtSalt
    text "4001A2E3C1F7552EB313F3DB5CE00391": txtSHA(0)
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtSHA(2)
set txtWebPassword(2) "admin"
    text "admin": txtWebPassword(2)
    text "489D6F6C87750B8AFA8AB3DD27C14D94": txtSalt
    text "B7ABDFBFABA13893DD1483FA5F3C1DDB": txtSHA(0)
    text "DAFEF1346898C34946CDD58814844EA1": txtSHA(2)
set lblPasswordWarn visible false
    visible false: lblPasswordWarn
go chkWebSecurityDisable(1)
    visible true: lblPasswordWarn
    text "": txtWebPassword(0 2)
    text "1A609FDF51111C1CC8FC6B7785BD5065": txtSalt
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtSHA(0 2)
    focus chkWebSecurityDisable(1): frmMainForm

== A read goes by the characters F and 0
store 251 02B0 "FFFFFFFFFFFFFFFF"
store 251 02C0 "0000000000000000"
store 251 02D0 "FFFFFFFFFFFFFFF\x10"
connected 2
quietly set fraSecuritySettings enabled true
click cmdReadWBISettings
    = web-passwords-read
    enabled true: lblViewPass, lblControlPass, lblAdminPass, lblWebSecurityEnable, txtPswHelp(0-5), cmdWriteWBISettings
    enabled false: txtWebPassword(1)
    text "******": txtWebPassword(2)
    value 1: chkWebSecurityDisable(1)
    text "2222730559E8781291A1168DC9386A3F": txtSalt
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtSHA(0)
    text "00000000000000000000000000000000": txtSHA(1)
    text "C2707A296EBF06F0DC527727E6F7F429": txtSHA(2)
    focus cmdReadWBISettings: frmMainForm
    true: MacroChanged

== Three empty boxes are hashed though nothing has changed
# Then what a write stores for an open or a disabled level reads as a password.
store 251 02B0-02D0 "FFFFFFFFFFFFFFFF"
connected 2
quietly set fraSecuritySettings enabled true
click cmdReadWBISettings
    = web-passwords-read
    enabled true: lblViewPass, lblControlPass, lblAdminPass, lblWebSecurityEnable, txtPswHelp(0-5), cmdWriteWBISettings
    text "2222730559E8781291A1168DC9386A3F": txtSalt
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtSHA(0-2)
    focus cmdReadWBISettings: frmMainForm
store 251 02B0 "\xFF"*16
store 251 02C0 "\x00"*16
store 251 02D0 "\x10"*16
click cmdReadWBISettings
    = web-passwords-read
    text "******": txtWebPassword(0-2)
    text "C873970F8B0ED609C0C5AC72785FE8AF": txtSalt
    text "4DE630CB2605E7E8DA2FAF335CBBBD40": txtSHA(0-2)

== A failed read leaves the write button as it was
connected 2
quietly set fraSecuritySettings enabled false
reply FB1102C010
click cmdReadWBISettings
    hourglass
    says "Reading block 1 of 3"
    > FB1102B010
    says "Reading block 2 of 3"
    > FB1102C010
    arrow
    operation "Read Web Security" stopped
    enabled true: lblViewPass, lblControlPass, lblAdminPass, lblWebSecurityEnable, txtPswHelp(0-5)
    text "******": txtWebPassword(0)
    text "2222730559E8781291A1168DC9386A3F": txtSalt
    text "C2707A296EBF06F0DC527727E6F7F429": txtSHA(0)
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtSHA(1-2)
    focus cmdReadWBISettings: frmMainForm
quietly set cmdWriteWBISettings enabled true
click cmdReadWBISettings
    hourglass
    says "Reading block 1 of 3"
    > FB1102B010
    says "Reading block 2 of 3"
    > FB1102C010
    arrow
    operation "Read Web Security" stopped

== A write sends salt and levels as they were at the click
connected 2
quietly set fraSecuritySettings enabled true
quietly set cmdWriteWBISettings enabled true
quietly set txtWebPassword(2) "kestrane"
quietly set chkWebSecurityDisable(1) 1
draw 101010104BB8703CE5194A6DF2101010
set txtWebPassword(2) "other"
    text "other": txtWebPassword(2)
    text "101010104BB8703CE5194A6DF2101010": txtSalt
    text "B27D33F18D82F81C332AE01EAA9C7E67": txtSHA(2)
after 150 set txtWebPassword(0) "meanwhile"
click cmdWriteWBISettings
    hourglass
    says "Writing block 1 of 5"
    > FB1202A010101010104BB8703CE5194A6DF2101010
    says "Writing block 2 of 5"
    > FB1202B010FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF
    now set txtWebPassword(0)
    says "Writing block 3 of 5"
    > FB1202C01000000000000000000000000000000000
    says "Writing block 4 of 5"
    > FB1202D010B27D33F18D82F81C332AE01EAA9C7E67
    says "Web browser Settings Write Complete."
    arrow
    operation "Write Web Security" complete
    text "meanwhile": txtWebPassword(0)
    text "8E3196588E5CBB6BB32A1C9690E84205": txtSalt
    text "822A69A7F9B1E01D902C854EFFA0FB53": txtSHA(0)
    text "1D007A6BFAC61D9C6A7BDC1C9BB31238": txtSHA(2)
    focus cmdWriteWBISettings: frmMainForm
reply FB1202C01000000000000000000000000000000000
click cmdWriteWBISettings
    hourglass
    says "Writing block 1 of 5"
    > FB1202A0108E3196588E5CBB6BB32A1C9690E84205
    says "Writing block 2 of 5"
    > FB1202B010822A69A7F9B1E01D902C854EFFA0FB53
    says "Writing block 3 of 5"
    > FB1202C01000000000000000000000000000000000
    arrow
    operation "Write Web Security" stopped

== A read that outlives its connection leaves the next one alone
unit cms
settings-read
quietly set SSTab1 2
quietly click cmdReadWBISettings
after 150 click cmdDisconnect
after 151 click cmdConnect
after 450 call cmdReadNetworkSettings
click cmdReadWBISettings
    hourglass
    says "Reading block 1 of 3"
    > 811102B010
    says "Reading block 2 of 3"
    > 811102C010
    now click cmdDisconnect
    says ""
    operation "Read Web Security" overtaken
    arrow
    now click cmdConnect
    now call cmdReadNetworkSettings
    = settings-read 2
    index 0: SSTab1
    enabled true: fraNetworkSettings, fraMiscOptions, fraFixedIPSettings, fraTCPports, fraARP, fraSnmpSettings, fraUnitID, fraOledTimeout, fraArmButtons, fraTcpControlSettings
    text "": txtWebPassword(0-2)
    text "C58ECCCD5845868A11A504DE793DA4B4": txtSalt
    text "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF": txtSHA(0-2)
    enabled false: cmdWriteWBISettings
    interval 10: timGetResponse
    focus txtIPAddress (14 selected): frmMainForm
wait 3000
