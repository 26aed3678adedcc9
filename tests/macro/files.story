# Macro files from the editor's buttons.

== A trigger without a name is saved but does not load
quietly set AdminLoggedIn true
quietly edit 50
quietly set txtMTName(0) "First"
quietly set txtMTPage(0) "0"
quietly set txtMTAddress(0) "10"
quietly set chkMacro(0) 1
quietly click cmdBasicSettings
quietly click chkTrace
chooses program.sms
click cmdSaveFile
    asks to save "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    text "First         ": txtMTName(0)
    text "              ": txtMTName(1-7)
    value 0: chkTrace
    enabled true: timUpdate
    enabled false: timTrace
    focus cmdSaveFile: frmScriptEdit
head program.sms 52
    "'Kestrane Version 3 macro file - program.sms\x0D"
    "'Macro Triggers\x0D"
    "First          0 10 Enabled                                                06C4\x0D"
    "               0 00 Disabled                                               05C8\x0D" x7
    "'Macro Code\x0D"
    "10 C6 03 'Alarm status Flash and Beep                                      019D\x0D"
    "11 03 00 'GPI Disable                                                      0185\x0D"
    "12 D2 1A 'Set on/off switch on interrupt address 1A                        01AB\x0D"
    "13 D3 2A 'Set on/off switch off interrupt address 2A                       01AE\x0D"
    "14 04 00 'GPI Enable                                                       0189\x0D"
    "15 00 00 'Stop                                                             0186\x0D"
    "16 00 00 'Stop                                                             0187\x0D"
    "17 00 00 'Stop                                                             0188\x0D"
    "18 00 00 'Stop                                                             0189\x0D"
    "19 00 00 'Stop                                                             018A\x0D"
    "1A 40 05 'Turn on outlet 1 after 0.5 seconds, skip if already on           019B\x0D"
    "1B 41 05 'Turn on outlet 2 after 0.5 seconds, skip if already on           019D\x0D"
    "1C 42 05 'Turn on outlet 3 after 0.5 seconds, skip if already on           019F\x0D"
    "1D 43 05 'Turn on outlet 4 after 0.5 seconds, skip if already on           01A1\x0D"
    "1E 44 05 'Turn on outlet 5 after 0.5 seconds, skip if already on           01A3\x0D"
    "1F 45 05 'Turn on outlet 6 after 0.5 seconds, skip if already on           01A5\x0D"
    "20 46 05 'Turn on outlet 7 after 0.5 seconds, skip if already on           0191\x0D"
    "21 47 05 'Turn on outlet 8 after 0.5 seconds, skip if already on           0193\x0D"
    "22 48 05 'Turn on outlet 9 after 0.5 seconds, skip if already on           0195\x0D"
    "23 49 05 'Turn on outlet 10 after 0.5 seconds, skip if already on          0197\x0D"
    "24 4A 05 'Turn on outlet 11 after 0.5 seconds, skip if already on          01A0\x0D"
    "25 4B 05 'Turn on outlet 12 after 0.5 seconds, skip if already on          01A2\x0D"
    "26 4C 05 'Turn on outlet 13 after 0.5 seconds, skip if already on          01A4\x0D"
    "27 4D 05 'Turn on outlet 14 after 0.5 seconds, skip if already on          01A6\x0D"
    "28 00 00 'Stop                                                             018A\x0D"
    "29 00 00 'Stop                                                             018B\x0D"
    "2A 3D 05 'Turn off outlet 14 after 0.5 seconds, skip if already off        01AF\x0D"
    "2B 3C 05 'Turn off outlet 13 after 0.5 seconds, skip if already off        01AF\x0D"
    "2C 3B 05 'Turn off outlet 12 after 0.5 seconds, skip if already off        01AF\x0D"
    "2D 3A 05 'Turn off outlet 11 after 0.5 seconds, skip if already off        01AF\x0D"
    "2E 39 05 'Turn off outlet 10 after 0.5 seconds, skip if already off        01A8\x0D"
    "2F 38 05 'Turn off outlet 9 after 0.5 seconds, skip if already off         01A8\x0D"
    "30 37 05 'Turn off outlet 8 after 0.5 seconds, skip if already off         0192\x0D"
    "31 36 05 'Turn off outlet 7 after 0.5 seconds, skip if already off         0192\x0D"
    "32 35 05 'Turn off outlet 6 after 0.5 seconds, skip if already off         0192\x0D"
    "33 34 05 'Turn off outlet 5 after 0.5 seconds, skip if already off         0192\x0D"
    "34 33 05 'Turn off outlet 4 after 0.5 seconds, skip if already off         0192\x0D"
    "35 32 05 'Turn off outlet 3 after 0.5 seconds, skip if already off         0192\x0D"
    "36 31 05 'Turn off outlet 2 after 0.5 seconds, skip if already off         0192\x0D"
    "37 30 05 'Turn off outlet 1 after 0.5 seconds, skip if already off         0192\x0D"
    "38 00 00 'Stop                                                             018B\x0D"
quietly click cmdClearMem
quietly click chkTrace
chooses program.sms
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    box "Checksum Error.|Checksum Error importing Macro Triggers at line 4.\x0D\x0AImport aborted. Please do not upload to unit."
    text "First": txtMTName(0)
    value 0: chkTrace
    enabled true: timUpdate
    enabled false: timTrace
    focus cmdLoadFile: frmScriptEdit
# A cancelled dialog is the end of it.
click cmdSaveFile
    asks to save "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    focus cmdSaveFile: frmScriptEdit
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    focus cmdLoadFile: frmScriptEdit
quietly close

== What is saved loads back, and imported triggers are told of when the editor closes
# Their addresses are checked before: 7F is refused, 00 empties its row.
quietly set AdminLoggedIn true
quietly edit 50
quietly set txtMTName(0) "A"
quietly set txtMTName(1) "B"
quietly set txtMTName(2) "C"
quietly set txtMTName(3) "D"
quietly set txtMTName(4) "E"
quietly set txtMTName(5) "F"
quietly set txtMTName(6) "G"
quietly set txtMTName(7) "H"
quietly set txtMTAddress(3) "7F"
quietly set txtMTAddress(4) "14"
quietly set txtMTAddress(5) "00"
quietly set chkMacro(5) 1
quietly click cmdBasicSettings
quietly chooses a.sms
quietly click cmdSaveFile
quietly set txtMTName(7) "other"
quietly click cmdClearMem
chooses a.sms
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    text "A": txtMTName(0)
    text "B": txtMTName(1)
    text "C": txtMTName(2)
    text "D": txtMTName(3)
    text "E": txtMTName(4)
    text "F": txtMTName(5)
    text "G": txtMTName(6)
    text "H": txtMTName(7)
    text "00": txtMTAddress(0-2 6-7)
    fore 255: txtMTAddress(0-2 6-7)
    = rows-of-the-standard-program
    focus cmdLoadFile: frmScriptEdit
    true: MacroTriggersChanged
    = standard-program
# A second, equal import leaves it so.
chooses a.sms
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
# A checksum fault in the second line of code keeps the first.
spoil a.sms 0185 0186
quietly click cmdClearMem
chooses a.sms
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    box "Checksum Error.|Checksum Error importing Macro Code at line 13.\x0D\x0AImport aborted. Please do not upload to unit."
    caption "C6": lblMem1(0)
    caption "03": lblMem2(0)
    caption "Alarm status Flash and Beep": lblCommand(0)
    focus cmdLoadFile: frmScriptEdit
    C6 03: image(10)
close
    box "Invalid Address.|Hex address for macro is not valid. Must be between hex 10 and 7E"
    box "Upload Macro Triggers?|The Macro Triggers have been changed by the SMS import.\x0D\x0APlease click the Write Macro Triggers button to upload them if required."
    text "": txtMTAddress(0-3 5-7)
    fore 0: txtMTAddress(4)
    enabled false: chkMacro(0-2 5-7), timUpdate, timUDColour
    value 0: chkMacro(5)
    enabled true: cmdWriteMacroTriggers
    caption "00": lblMem1(0), lblMem2(0)
    caption "Stop": lblCommand(0)
    focus none: frmScriptEdit
    visible false: frmScriptEdit
    false: MacroTriggersChanged
    00 00: image(10)
    1: beeps

== Why a file can't be read or saved
quietly set AdminLoggedIn true
quietly edit 50
chooses none.sms
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    box "File Error.|Cannot read none.sms: No such file or directory."
    focus cmdLoadFile: frmScriptEdit
disk short.sms "AB\x0D\x0ACD\x0D\x0A"
chooses short.sms
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    box "File Error.|short.sms ends early, after line 2.\x0D\x0AImport aborted. Please do not upload to unit."
    AB CD: image(00)
set txtMTName(2) "unpadded"
    text "unpadded": txtMTName(2)
disk-fault full.sms "No space left on device"
chooses full.sms
click cmdSaveFile
    asks to save "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    box "File Error.|Cannot save full.sms: No space left on device."
    focus cmdSaveFile: frmScriptEdit
# A path is shown in its own characters.
chooses gr\xC3\xBC\xC3\x9F\xE2\x82\xAC.sms
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    box "File Error.|Cannot read gr\xFC\xDF?.sms: No such file or directory."
    focus cmdLoadFile: frmScriptEdit
quietly close

== Source text is loaded, too, whole or not at all
quietly set AdminLoggedIn true
quietly edit 50
disk source.txt "trigger 2 \x22Restart\x22 enabled again ; only this row\x0AStop\x0Aat 40: again: ALL OFF 1\x0AGOTO again\x0A"
chooses source.txt
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    text "Restart": txtMTName(1)
    text "40": txtMTAddress(1)
    fore 255: txtMTAddress(1)
    value 1: chkMacro(1)
    focus cmdLoadFile: frmScriptEdit
    true: MacroTriggersChanged
    51 0A: image(40)
    01 40: image(41)
disk wrong.txt "Stop\x0AALL OF 1\x0A"
chooses wrong.txt
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    box "File Error.|wrong.txt, line 2: \x22outlets\x22 is expected here.\x0D\x0ANothing was loaded."
quietly close

== What a file may hold that the editor never saved
# Comments count as lines. Texts are not read, addresses only summed, an edited byte needs its
# checksum. Blanks are reduced, and what would reach the checksum is cut off.
quietly set AdminLoggedIn true
quietly edit 50
quietly image 10 40055BFF0005
quietly set txtMTName(0) "Fifteen letters"
quietly set txtMTName(1) "No page"
quietly set txtMTName(2) "Short"
quietly set txtMTName(3) "Empty"
quietly set txtMTName(4) " Lamp"
quietly set txtMTName(5) "F"
quietly set txtMTName(6) "G"
quietly set txtMTName(7) "H"
quietly set txtMTPage(0) "3"
quietly set txtMTPage(1) ""
quietly set txtMTPage(2) "3"
quietly set txtMTPage(3) "3"
quietly set txtMTAddress(0) "1A"
quietly set txtMTAddress(1) "1A"
quietly set txtMTAddress(2) "7"
quietly set chkMacro(0) 1
quietly set chkMacro(1) 1
quietly set chkMacro(2) 1
quietly set chkMacro(3) 1
chooses odd.sms
quietly click cmdSaveFile
head odd.sms 15
    "'Kestrane Version 3 macro file - odd.sms\x0D"
    "'Macro Triggers\x0D"
    "Fifteen letters 3 1A Enabled                                               0994\x0D"
    "No page         1A Enabled                                                 06D7\x0D"
    "Short          3 7 Enabled                                                 06A5\x0D"
    "Empty          3 00 Enabled                                                06CD\x0D"
    " Lamp          0 00 Disabled                                               06D2\x0D"
    "F              0 00 Disabled                                               05EE\x0D"
    "G              0 00 Disabled                                               05EF\x0D"
    "H              0 00 Disabled                                               05F0\x0D"
    "'Macro Code\x0D"
    "10 40 05 'Turn on outlet 1 after 0.5 seconds, skip if already on           018A\x0D"
    "11 5B FF 'Backup (B) latch on 9 - 14 ( 9 - 10 - 11 - 12 - 13 - 14 - 15 - 1601C5\x0D"
    "12 00 05 'Stop                                                             0188\x0D"
    "13 00 00 'Stop                                                             0184\x0D"
# A name with a leading blank fails; boxes of another length move the fields of their row.
chooses odd.sms
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    box "Checksum Error.|Checksum Error importing Macro Triggers at line 7.\x0D\x0AImport aborted. Please do not upload to unit."
    text "Fifteen letter": txtMTName(0)
    text "No page": txtMTName(1)
    text "Short": txtMTName(2)
    text "Empty": txtMTName(3)
    text " ": txtMTPage(0-1)
    text " 1": txtMTAddress(0)
    text "A ": txtMTAddress(1)
    text "7 ": txtMTAddress(2)
    text "00": txtMTAddress(3)
    fore 255: txtMTAddress(3)
    value 0: chkMacro(0-2)
    caption "40": lblMem1(0)
    caption "5B": lblMem1(1)
    caption "05": lblMem2(0 2)
    caption "FF": lblMem2(1)
    caption "Turn on outlet  1 after 0.5 seconds, skip if already on": lblCommand(0)
    caption "Backup (B) latch on 9 - 14 ( 9 - 10 - 11 - 12 - 13 - 14 - 15 - 16 )": lblCommand(1)
    focus cmdLoadFile: frmScriptEdit
    true: MacroTriggersChanged
spoil odd.sms " Lamp         " "Lamp          "
spoil odd.sms "10 40 05" "'one comment\x0D\x0A'\x0D\x0AFF 40 05"
chooses odd.sms
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    box "Checksum Error.|Checksum Error importing Macro Code at line 14.\x0D\x0AImport aborted. Please do not upload to unit."
    text "Lamp": txtMTName(4)
    text "F": txtMTName(5)
    text "G": txtMTName(6)
    text "H": txtMTName(7)
    text "00": txtMTAddress(4-7)
    fore 255: txtMTAddress(4-7)
spoil odd.sms "'Turn on outlet 1 after" "'turn ON outlet 1 AFTER"
spoil odd.sms 018A 01B5
quietly click cmdClearMem
chooses odd.sms
click cmdLoadFile
    asks to load "Dunmarch Load/Save|Kestrane Macro Files (*.sms)|*.sms|sms"
    caption "40": lblMem1(0)
    caption "5B": lblMem1(1)
    caption "05": lblMem2(0 2)
    caption "FF": lblMem2(1)
    caption "Turn on outlet  1 after 0.5 seconds, skip if already on": lblCommand(0)
    caption "Backup (B) latch on 9 - 14 ( 9 - 10 - 11 - 12 - 13 - 14 - 15 - 16 )": lblCommand(1)
    focus cmdLoadFile: frmScriptEdit
    40 05: image(10)
    5B FF: image(11)
    00 05: image(12)
quietly close
