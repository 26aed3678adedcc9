# Source text: what each way to write an instruction gives, and what is said of each fault.

== Each way to write an instruction
assemble Alarm status Flash and Beep
    10: C6 03
assemble   alarm\x09STATUS   beep only ; and a remark
    10: C6 01
assemble ALARM STATUS 2
    10: C6 02
assemble Turn on outlet 1 after 0.5 seconds, skip if already on
    10: 40 05
assemble Turn off outlet  14 after fixed delay of 63.0 seconds
    10: 1D 7F
assemble ON 2 0.5
    10: 41 05
assemble on 3 2 always
    10: 22 14
assemble OFF 14 100
    10: 3D 8A
assemble off 1 0 ALWAYS
    10: 10 00
assemble ALL OFF 0.5
    10: 51 05
assemble WAIT 10
    10: 02 4A
assemble Wait for 1.0 seconds
    10: 02 0A
assemble WAIT 70.
    10: 02 87
assemble WAIT .5
    10: 02 05
assemble COUNT1 LOAD 3
    10: A0 03
assemble Load counter 2 with 255
    10: B0 FF
assemble CH. BACK DELAY 7
    10: C5 07
assemble Change back delay 7 x10 seconds
    10: C5 07
assemble MAIN (A) LOCK OFF 1-8 (1 3 5)
    10: 56 15
assemble Main (A) lock off 1 - 8 ( 1 - 3 )
    10: 56 05
assemble Main (A) lock off 1 - 8 ()
    10: 56 00
assemble BACK (B) OUTLETS 9-14 (9-14)
    10: E9 21
assemble MAIN (A) MACROS (8)
    10: E7 80
assemble Main (A) web misc not used
    10: E8 00
assemble BYTES e8 05
    10: E8 05
assemble Preferred Supply: B non sync
    10: C7 05
assemble PREF SUPPLY A sync
    10: C7 01
assemble REJECT CYCLE
    10: 53 00
assemble GOTO here\nhere: Stop
    10: 01 11
    11: 00 00
assemble Goto address HERE\nhere: Stop
    10: 01 11
    11: 00 00
assemble goto 7e
    10: 01 7E
assemble GOTO .
    10: 01 10
assemble GPI1 LOW
    10: 60 00
assemble GPI1 LOW INT here\nhere: Stop
    10: 62 11
    11: 00 00
assemble GPI12 HIGH
    10: 71 00
assemble COUNT1 DEC here\nhere: Stop
    10: A1 11
    11: 00 00
assemble Increment counter 1, if 255 goto address 20
    10: A2 20
assemble CHANGE OVER INT here\nhere: Stop
    10: C0 11
    11: 00 00
assemble SUPPLY LOSS INT here\nhere: Stop
    10: C0 11
    11: 00 00
assemble Set supply resume interrupt address to here\nhere: Stop
    10: C1 11
    11: 00 00
assemble Set change back interrupt address to here\nhere: Stop
    10: C1 11
    11: 00 00
assemble ON/OFF OFF INT here\nhere: Stop
    10: D3 11
    11: 00 00

== A fault names the word that is wrong, and what would be right
assemble   Trun on outlet 1
    1:3: "Trun" does not begin an instruction; write its text or the caption of its button, or ON, OFF or BYTES
assemble Turn on outllet 1
    1:9: "outlet" is expected here
assemble Turn on outlet 1 after 0.5 seconds
    1:28: "seconds," is expected here
assemble Wait for
    1:9: an operand is missing
assemble Goto address
    1:6: label address is not defined; write "address:" before an instruction
assemble Stopp
    1:1: "Stopp" does not begin an instruction; write its text or the caption of its button, or ON, OFF or BYTES
assemble Stop 5
    1:6: "5" is too much, the instruction ends before it
assemble ON 15 0.5
    1:4: "15" is wrong here, an outlet is a number from 1 to 14
assemble Turn off outlet 16 after 0.1 seconds, skip if already off
    1:17: "16" is wrong here, an outlet is a number from 1 to 14
assemble ON 1 0.25
    1:6: "0.25": no code holds it exactly, the nearest are 0.2 and 0.3
assemble WAIT 64
    1:6: "64": no code holds it exactly, the nearest are 63.0 and 70.0
assemble WAIT 6.4
    1:6: "6.4": no code holds it exactly, the nearest are 6.3 and 7.0
assemble WAIT 6250
    1:6: "6250": no code holds it exactly, the nearest are 6200.0 and 6300.0
assemble WAIT 6301
    1:6: "6301": no code holds it exactly, the longest is 6300.0
assemble WAIT -1
    1:6: "-1": it is not a number of seconds, as 0.5 or 10
assemble WAIT 1e3
    1:6: "1e3": it is not a number of seconds, as 0.5 or 10
assemble ON 1 1 SOMETIMES
    1:8: "ALWAYS" is expected here
assemble COUNT1 LOAD 256
    1:13: "256" is wrong here, the operand is a number from 0 to 255
assemble MAIN (A) LOCK OFF 1-8 (1 9)
    1:26: "9" is not in this list, which takes 1 to 8
assemble MAIN (A) LOCK OFF 9-14 (9 15)
    1:27: "15" is not in this list, which takes 9 to 14
assemble MAIN (A) LOCK OFF 1-8 (1, 2)
    1:24: "1," is not in this list, which takes 1 to 8
assemble MAIN (A) LOCK OFF 1-8 (1
    1:25: ")" is missing
assemble ALARM STATUS loud
    1:14: one of "Silent", "Beep only", "Flash only", "Flash and Beep" is expected here
assemble PREF SUPPLY 6
    1:13: "6" is wrong here, the operand is a number from 1 to 5
assemble BYTES 1 22
    1:7: two hexadecimal digits are expected here
assemble GOTO 0F
    1:6: address 0F is out of range, addresses to go to are 10 to 7E
assemble GOTO 7F
    1:6: address 7F is out of range, addresses to go to are 10 to 7E
assemble GOTO 1st
    1:6: "1st": an address is a label, two hexadecimal digits, or "."
assemble GOTO nowhere
    1:6: label nowhere is not defined; write "nowhere:" before an instruction
assemble a1:\nStop
    1:1: "a1" is not a label: letters, digits and "_", no digit first, and not two hexadecimal digits
assemble 1st: Stop
    1:1: "1st" is not a label: letters, digits and "_", no digit first, and not two hexadecimal digits
assemble one: Stop\n Two:\nOne: Stop
    3:1: label One stands in line 1 already; give this one another name
assemble at 80: Stop
    1:4: "80" is wrong here, "at" takes two hexadecimal digits from 10 to 7F
assemble at 0F:
    1:4: "0F" is wrong here, "at" takes two hexadecimal digits from 10 to 7F
assemble at 40 Stop
    1:7: ":" is expected after the address
assemble Stop\nat 10: Stop
    2:8: address 10 is filled by line 1 already; go on at a free address with "at"
assemble at 7F: Stop\n Stop\n Stop
    2:2: the program is full, its last address is 7F
assemble at 7F: last: Stop\nat 10: GOTO last
    2:13: label last is beyond 7E, which is as far as a jump reaches
assemble \xFF Stop
    1:1: this is not UTF-8; save the file as UTF-8
assemble Stop \xC4\x80
    1:6: the unit has no such character; U+0020 to U+00FF are possible
assemble 
    1:1: nothing stands here; a program has an instruction at least
assemble ; only a remark
    1:1: nothing stands here; a program has an instruction at least
assemble trigger 9 "A" enabled 10
    1:9: a trigger has a number from 1 to 8
assemble trigger 1 "A" enabled 10\ntrigger 1 "B" enabled 10
    2:9: trigger 1 stands in line 1 already
assemble trigger 1 A enabled 10
    1:11: a name in double quotes is expected here
assemble trigger 1 "Fifteen letters" enabled 10
    1:11: a name has at most 14 characters
assemble trigger 1 "" enabled 10
    1:11: a name that is empty or begins with a blank or an apostrophe can't be read back from a file; begin it with a letter
assemble trigger 1 " A" enabled 10
    1:11: a name that is empty or begins with a blank or an apostrophe can't be read back from a file; begin it with a letter
assemble trigger 1 "'A" enabled 10
    1:11: a name that is empty or begins with a blank or an apostrophe can't be read back from a file; begin it with a letter
assemble trigger 1 "A enabled 10
    1:11: the name has no closing quote
assemble trigger 1 "A\x5Cn" enabled 10
    1:13: a backslash stands before a quote or a backslash only
assemble trigger 1 "A" page 10 enabled 10
    1:20: a page is a number from 0 to 9
assemble trigger 1 "A" on 10
    1:15: "enabled" or "disabled" is expected here
assemble trigger 1 "A" enabled 7F
    1:23: address 7F is out of range, a trigger goes to 10 to 7E, or to 00 if it has no macro
assemble trigger 1 "A" enabled x
    1:23: label x is not defined; write "x:" before an instruction
assemble trigger 1 "A" enabled 10 x
    1:26: "x" is too much, the trigger ends before it

== All faults in one go, in the order of the text
assemble GOTO nowhere\x0D\nStopp\x0DOFF 0 1\n\x09WAIT 0.55\nStop
    1:6: label nowhere is not defined; write "nowhere:" before an instruction
    2:1: "Stopp" does not begin an instruction; write its text or the caption of its button, or ON, OFF or BYTES
    3:5: "0" is wrong here, an outlet is a number from 1 to 14
    4:7: "0.55": no code holds it exactly, the nearest are 0.5 and 0.6
assemble ON 15 0.33\nTurn on outlet 16 after 0.33 second, skip if already on\nGOTO nowhere 5\nBYTES 1 2 3
    1:4: "15" is wrong here, an outlet is a number from 1 to 14
    1:7: "0.33": no code holds it exactly, the nearest are 0.3 and 0.4
    2:16: "16" is wrong here, an outlet is a number from 1 to 14
    2:25: "0.33": no code holds it exactly, the nearest are 0.3 and 0.4
    2:30: "seconds," is expected here
    3:6: label nowhere is not defined; write "nowhere:" before an instruction
    3:14: "5" is too much, the instruction ends before it
    4:7: two hexadecimal digits are expected here
    4:9: two hexadecimal digits are expected here
    4:11: "3" is too much, the instruction ends before it
assemble MAIN (A) LOCK OFF 1-8 (1 9 12 3)
    1:26: "9" is not in this list, which takes 1 to 8
    1:28: "12" is not in this list, which takes 1 to 8
assemble at 7F: GOTO 10
    1:8: warning: an upload clears the second byte at 7F, so that this operand does not reach the unit; put the instruction at a lower address
    7F: 01 10
assemble at 7F: GOTO .
    1:8: warning: an upload clears the second byte at 7F, so that this operand does not reach the unit; put the instruction at a lower address
    1:13: a jump does not reach beyond 7E
assemble at 7F: WAIT 0
    7F: 02 00
assemble trigger 9 "Fifteen letters" page 10 on nowhere 1
    1:9: a trigger has a number from 1 to 8
    1:11: a name has at most 14 characters
    1:34: a page is a number from 0 to 9
    1:37: "enabled" or "disabled" is expected here
    1:40: label nowhere is not defined; write "nowhere:" before an instruction
    1:48: "1" is too much, the trigger ends before it
