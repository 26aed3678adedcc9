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
    = program-blocks-to-7
    now look
    enabled true: timTimeout
    enabled false: cmdOn(0-13), cmdOff(0-13), chkWait, scrListScroll, txtSecondByteHex, cmdSecondByteHexOK, txtSecondByteTime, cmdSecondByteTimeOK, chkAutoIncrement, chkOutGroup1(1-2 4 8 16 32 64 128), chkOutGroup2(1-2 4 8 16 32), txtGroup1, txtGroup2, cmdClearLocks, cmdInsertCommand(0-4 81-94 96-100 112-116 128-132 144-148 160-162 176-178 192-198 210-212 229-231 233-235), chkTrace, cmdGetStatus, txtGoTo, cmdGoTo, cmdDownload, cmdUpload, cmdLoadFile, cmdSaveFile, cmdClearMem, cmdBasicSettings, cmdExit
    back 255: cmdDownload
    back 2147483663: cmdUpload
    = program-blocks-from-8
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
    = upload-to-6
    now look
    enabled true: timTimeout
    enabled false: cmdOn(0-13), cmdOff(0-13), chkWait, scrListScroll, txtSecondByteHex, cmdSecondByteHexOK, txtSecondByteTime, cmdSecondByteTimeOK, chkAutoIncrement, chkOutGroup1(1-2 4 8 16 32 64 128), chkOutGroup2(1-2 4 8 16 32), txtGroup1, txtGroup2, cmdClearLocks, cmdInsertCommand(0-4 81-94 96-100 112-116 128-132 144-148 160-162 176-178 192-198 210-212 229-231 233-235), chkTrace, cmdGetStatus, txtGoTo, cmdGoTo, cmdDownload, cmdUpload, cmdLoadFile, cmdSaveFile, cmdClearMem, cmdBasicSettings, cmdExit
    back 2147483663: cmdDownload
    back 255: cmdUpload
    focus none: frmScriptEdit
    = upload-from-7
    operation "Upload Macro" complete
    enabled false: timTimeout
    enabled true: cmdOn(0-13), cmdOff(0-13), chkWait, scrListScroll, txtSecondByteHex, cmdSecondByteHexOK, txtSecondByteTime, cmdSecondByteTimeOK, chkAutoIncrement, chkOutGroup1(1-2 4 8 16 32 64 128), chkOutGroup2(1-2 4 8 16 32), txtGroup1, txtGroup2, cmdClearLocks, cmdInsertCommand(0-4 81-94 96-100 112-116 128-132 144-148 160-162 176-178 192-199 210-212 229-231 233-235), chkTrace, cmdGetStatus, txtGoTo, cmdGoTo, cmdDownload, cmdUpload, cmdLoadFile, cmdSaveFile, cmdClearMem, cmdBasicSettings, cmdExit, timUpdate, timUDColour
    back 65280: cmdUpload
    focus cmdUpload: frmScriptEdit
close
    caption "00": lblMem1(0-4 10-15), lblMem2(0 2-3 10-15)
    caption "Stop": lblCommand(0-4 10-15)
    = editor-closed
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
    = program-blocks-to-7
    = program-blocks-from-8
    operation "Download Macro" stopped
    back 65280: cmdDownload
    enabled true: timUpdate, timUDColour
    focus cmdDownload: frmScriptEdit
    22 22: image(28-7F)
quietly close

== Without the right to write macros each block has its refusal
unit cms
settings-read
quietly edit 8000
quietly set timUpdate enabled false
quietly wait 1500
store 250 03E0 "\x00"
click cmdUpload
    hourglass
    = upload-to-6
    = upload-from-7
    operation "Upload Macro" stopped
    box "Privileges|Denied due to privilege settings" x14
    enabled true: cmdInsertCommand(199), timUpdate, timUDColour
    back 65280: cmdUpload
    focus cmdUpload: frmScriptEdit
quietly close
