# What is found in the flow of a program: a program with a warning, then a near twin without.

== Each kind of warning and its near twin
check GOTO end\nON 1 1\nend: Stop
    unreached: line 2, column 1: warning: address 11: nothing reaches this instruction
check COUNT1 DEC end\nON 1 1\nend: Stop
check Stop\nat 40: ON 1 1\nOFF 1 1
    unreached: line 2, column 8: warning: address 40: nothing reaches the instructions from here to 41
check trigger 1 "A" enabled 40\nStop\nat 40: ON 1 1\nOFF 1 1
check trigger 1 "A" disabled 40\nStop\nat 40: ON 1 1
    unreached: line 3, column 8: warning: address 40: nothing reaches this instruction
check GPI1 LOW INT 40\nStop\nat 40: ON 1 1
check Stop\nat 40: ON/OFF ON INT 41\nON 1 1
    unreached: line 2, column 8: warning: address 40: nothing reaches the instructions from here to 41
check ON/OFF ON INT 40\nStop\nat 40: SUPPLY LOSS INT 50\nat 50: ON 1 1
check loop: COUNT1 INC end\nGOTO loop\nend: Stop
    no-wait: line 1, column 7: warning: address 10: the loop from here to 11 never waits
check loop: COUNT1 INC end\nWAIT 1\nGOTO loop\nend: Stop
check GOTO .
    no-wait: line 1, column 1: warning: address 10: this instruction goes to itself and never waits
check Stop
check WAIT 1\nloop: ALARM STATUS 1\nWAIT 0\nGOTO loop
    no-wait: line 2, column 7: warning: address 11: the loop from here to 13 never waits
check WAIT 1\nloop: ALARM STATUS 1\nWAIT 0.1\nGOTO loop
check loop: ON 1 0\nOFF 1 0\nGOTO loop
    no-wait: line 1, column 7: warning: address 10: the loop from here to 12 never waits
check loop: ON 1 0\nOFF 1 0.1\nGOTO loop
check GOTO 7E\nat 7E: ON 1 1\nON 2 1
    runs-off: line 3, column 1: warning: address 7F: the program runs on past its last address; end it with a stop
check GOTO 7E\nat 7E: ON 1 1\nStop
check GOTO 41\nat 40: Stop
    unprogrammed: line 1, column 1: warning: address 10: address 41 was never programmed
check GOTO 40\nat 40: Stop
check trigger 1 "A" enabled 41\nStop
    unprogrammed: line 1, column 1: warning: trigger 1: address 41 was never programmed
check trigger 1 "A" disabled 41\nStop
check GPI1 LOW INT 41\nStop
    unprogrammed: line 1, column 1: warning: address 10: address 41 was never programmed
check BYTES 64 41\nStop
check ON 1 1\nagain: ON 2 0\nON 3 0\nON 3 1 ALWAYS\nGOTO again
    inrush: line 2, column 8: warning: address 11: this outlet is switched on in the same instant as another; give it a delay
    inrush: line 3, column 1: warning: address 12: this outlet is switched on in the same instant as another; give it a delay
check again: ON 2 0\nGOTO again
    no-wait: line 1, column 8: warning: address 10: the loop from here to 11 never waits
check ON 1 1\nON 2 0\nStop
    inrush: line 2, column 1: warning: address 11: this outlet is switched on in the same instant as another; give it a delay
check ON 1 1\nON 2 0.1\nStop
check ON 1 1\nCOUNT1 LOAD 2\nWAIT 0\nON 2 0 ALWAYS\nStop
    inrush: line 4, column 1: warning: address 13: this outlet is switched on in the same instant as another; give it a delay
check ON 1 1\nCOUNT1 LOAD 2\nWAIT 0.1\nON 2 0 ALWAYS\nStop
check ALL ON 0\nStop
    inrush: line 1, column 1: warning: address 10: all outlets are switched on in the same instant
check ALL OFF 0\nStop
check ON 1 1\nOFF 2 0\nON 3 0\nStop
    inrush: line 3, column 1: warning: address 12: this outlet is switched on in the same instant as another; give it a delay
check OFF 1 1\nOFF 2 0\nON 3 0\nStop
check ON 1 1\nON 1 1\nStop
    repeated: line 2, column 1: warning: address 11: the line before has just switched this outlet on, so this one is always skipped
check ON 1 1\nON 1 1 ALWAYS\nStop
check ALL OFF 1\nOFF 14 1\nStop
    repeated: line 2, column 1: warning: address 11: the line before has just switched this outlet off, so this one is always skipped
check ALL OFF 1\nON 14 1\nStop
check OFF 3 1 ALWAYS\nOFF 3 1\nStop
    repeated: line 2, column 1: warning: address 11: the line before has just switched this outlet off, so this one is always skipped
check OFF 3 1 ALWAYS\nOFF 4 1\nStop
