# The transfer of a program: fourteen blocks of 16 bytes, at 0020 to 00F0 of the relay board.

== Everything is off while it runs
unit cms
settings-read
quietly edit 8000
quietly set timUpdate enabled false
quietly wait 1500
quietly set cmdUpload back 65280
after 1000 look
click cmdDownload
    hourglass
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
    now look
    enabled true: timTimeout
    enabled false: cmdOn(0-13), cmdOff(0-13), chkWait, scrListScroll, txtSecondByteHex, cmdSecondByteHexOK, txtSecondByteTime, cmdSecondByteTimeOK, chkAutoIncrement, chkOutGroup1(1-2 4 8 16 32 64 128), chkOutGroup2(1-2 4 8 16 32), txtGroup1, txtGroup2, cmdClearLocks, cmdInsertCommand(0-4 81-94 96-100 112-116 128-132 144-148 160-162 176-178 192-198 210-212 229-231 233-235), chkTrace, cmdGetStatus, txtGoTo, cmdGoTo, cmdDownload, cmdUpload, cmdLoadFile, cmdSaveFile, cmdClearMem, cmdBasicSettings, cmdExit
    back 255: cmdDownload
    back 2147483663: cmdUpload
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
    operation "Download Macro" complete
    enabled false: timTimeout
    enabled true: cmdOn(0-13), cmdOff(0-13), chkWait, scrListScroll, txtSecondByteHex, cmdSecondByteHexOK, txtSecondByteTime, cmdSecondByteTimeOK, chkAutoIncrement, chkOutGroup1(1-2 4 8 16 32 64 128), chkOutGroup2(1-2 4 8 16 32), txtGroup1, txtGroup2, cmdClearLocks, cmdInsertCommand(0-4 81-94 96-100 112-116 128-132 144-148 160-162 176-178 192-198 210-212 229-231 233-235), chkTrace, cmdGetStatus, txtGoTo, cmdGoTo, cmdDownload, cmdUpload, cmdLoadFile, cmdSaveFile, cmdClearMem, cmdBasicSettings, cmdExit, timUpdate, timUDColour
    back 65280: cmdDownload
    focus cmdDownload: frmScriptEdit
quietly set timUpdate enabled false
wait 1100
    back 2147483663: cmdDownload
    enabled false: timUDColour
quietly set cmdDownload back 65280
after 1000 look
click cmdUpload
    hourglass
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
    now look
    enabled true: timTimeout
    enabled false: cmdOn(0-13), cmdOff(0-13), chkWait, scrListScroll, txtSecondByteHex, cmdSecondByteHexOK, txtSecondByteTime, cmdSecondByteTimeOK, chkAutoIncrement, chkOutGroup1(1-2 4 8 16 32 64 128), chkOutGroup2(1-2 4 8 16 32), txtGroup1, txtGroup2, cmdClearLocks, cmdInsertCommand(0-4 81-94 96-100 112-116 128-132 144-148 160-162 176-178 192-198 210-212 229-231 233-235), chkTrace, cmdGetStatus, txtGoTo, cmdGoTo, cmdDownload, cmdUpload, cmdLoadFile, cmdSaveFile, cmdClearMem, cmdBasicSettings, cmdExit
    back 2147483663: cmdDownload
    back 255: cmdUpload
    focus none: frmScriptEdit
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
    operation "Upload Macro" complete
    enabled false: timTimeout
    enabled true: cmdOn(0-13), cmdOff(0-13), chkWait, scrListScroll, txtSecondByteHex, cmdSecondByteHexOK, txtSecondByteTime, cmdSecondByteTimeOK, chkAutoIncrement, chkOutGroup1(1-2 4 8 16 32 64 128), chkOutGroup2(1-2 4 8 16 32), txtGroup1, txtGroup2, cmdClearLocks, cmdInsertCommand(0-4 81-94 96-100 112-116 128-132 144-148 160-162 176-178 192-199 210-212 229-231 233-235), chkTrace, cmdGetStatus, txtGoTo, cmdGoTo, cmdDownload, cmdUpload, cmdLoadFile, cmdSaveFile, cmdClearMem, cmdBasicSettings, cmdExit, timUpdate, timUDColour
    back 65280: cmdUpload
    focus cmdUpload: frmScriptEdit
close
    caption "00": lblMem1(0-4 10-15), lblMem2(0 2-3 10-15)
    caption "Stop": lblCommand(0-4 10-15)
    enabled false: timUpdate, timUDColour
    focus none: frmScriptEdit
    visible false: frmScriptEdit
    00 00: image(10-14 1A-27 2A-37)

== A failed block leaves the loop running: its bytes come from the reply before it
unit cms
settings-read
quietly edit 8000
quietly set timUpdate enabled false
quietly wait 1500
store 250 0050-00F0 "\x22"*16
store 250 0060 "\x24"*16
drop 4
click cmdDownload
    hourglass
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
    operation "Download Macro" stopped
    back 65280: cmdDownload
    enabled true: timUpdate, timUDColour
    focus cmdDownload: frmScriptEdit
    22 22: image(28-7F)
close
    caption "00": lblMem1(0-4 10-15), lblMem2(0 2-3 10-15)
    caption "Stop": lblCommand(0-4 10-15)
    enabled false: timUpdate, timUDColour
    focus none: frmScriptEdit
    visible false: frmScriptEdit
    00 00: image(10-14 1A-7F)

== Without the right to write macros each block has its refusal
unit cms
settings-read
quietly edit 8000
quietly set timUpdate enabled false
quietly wait 1500
store 250 03E0 "\x00"
click cmdUpload
    hourglass
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
    operation "Upload Macro" stopped
    box "Privileges|Denied due to privilege settings" x14
    enabled true: cmdInsertCommand(199), timUpdate, timUDColour
    back 65280: cmdUpload
    focus cmdUpload: frmScriptEdit
close
    caption "00": lblMem1(0-4 10-15), lblMem2(0 2-3 10-15)
    caption "Stop": lblCommand(0-4 10-15)
    enabled false: timUpdate, timUDColour
    focus none: frmScriptEdit
    visible false: frmScriptEdit
    00 00: image(10-14 1A-27 2A-37)
