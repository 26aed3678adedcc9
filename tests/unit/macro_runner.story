# The running macro: outlets, alarm, flags, inputs and address from the status record.

== The standard program switches an outlet each half second
at 100
status
    on 0FFF alarm 03 flags 0FFF FFFF inputs 8F at 15 stands, counters 0 0
hand switch off
    ok
at 9000
hand switch on
    ok
at 9499
status
    on 0000 alarm 03 flags 0000 FFFF inputs 8F at 1A runs, counters 0 0
at 9500
status
    on 0001 alarm 03 flags 0001 FFFF inputs 8F at 1B runs, counters 0 0
at 9600
status
    on 0001 alarm 03 flags 0001 FFFF inputs 8F at 1B runs, counters 0 0
at 15999
status
    on 1FFF alarm 03 flags 1FFF FFFF inputs 8F at 27 runs, counters 0 0
at 16000
status
    on 3FFF alarm 03 flags 3FFF FFFF inputs 8F at 28 runs, counters 0 0
at 20000
status
    on 3FFF alarm 03 flags 3FFF FFFF inputs 8F at 28 stands, counters 0 0
at 30000
hand switch off
    ok
at 30500
status
    on 1FFF alarm 03 flags 1FFF FFFF inputs 0F at 2B runs, counters 0 0
at 30600
hand switch on
    ok
# 13 outlets are skipped, the last one waits.
at 31102
status
    on 1FFF alarm 03 flags 1FFF FFFF inputs 8F at 27 runs, counters 0 0
at 31113
status
    on 3FFF alarm 03 flags 3FFF FFFF inputs 8F at 28 runs, counters 0 0

== A fixed delay is spent where a skipped one is not
at 0
program 200A200A400A410A300A300A110A
at 999
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8F at 10 runs, counters 0 0
at 1000
status
    on 0001 alarm 00 flags 0001 FFFF inputs 8F at 11 runs, counters 0 0
# On already, and waits all the same; then skips.
at 1999
status
    on 0001 alarm 00 flags 0001 FFFF inputs 8F at 11 runs, counters 0 0
at 2002
status
    on 0001 alarm 00 flags 0001 FFFF inputs 8F at 13 runs, counters 0 0
at 3002
status
    on 0003 alarm 00 flags 0003 FFFF inputs 8F at 14 runs, counters 0 0
at 4001
status
    on 0002 alarm 00 flags 0002 FFFF inputs 8F at 15 runs, counters 0 0
at 4003
status
    on 0002 alarm 00 flags 0002 FFFF inputs 8F at 16 runs, counters 0 0
at 5003
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8F at 17 stands, counters 0 0

== It waits, and switches all
at 0
program 024352015102
at 2999
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8F at 10 runs, counters 0 0
at 3100
status
    on 3FFF alarm 00 flags 3FFF FFFF inputs 8F at 12 runs, counters 0 0
at 3300
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8F at 13 runs, counters 0 0
at 3400
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8F at 13 stands, counters 0 0

== Counters go down to 0 and up to 255
# Counter 1 from 3: outlet 1 on after three turns. Counter 2 from 253: outlet 2 after two.
at 0
program A003A11301112000B0FDB21701152100
at 100
status
    on 0003 alarm 00 flags 0003 FFFF inputs 8F at 18 stands, counters 0 255

== It stops at an illegal operation and at the end of memory
at 0
program FFFF5200
at 500
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8F at 10 stands, counters 0 0
relay 00FE 0300
A FA617F
    +
at 700
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8F at 7F stands, counters 0 0
A FA6100
    +
A FA610F
    +
A FA6180
    +
A FA61FF
    +
at 900
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8F at 7F stands, counters 0 0

== Edges of an input interrupt unless disabled or inhibited
at 0
program 62206328
relay 0040 2000
relay 0050 2100
# High already: no edge.
at 100
hand gpi 1 high
    ok
at 110
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8F at 12 stands, counters 0 0
at 200
hand gpi 1 low
    ok
at 210
status
    on 0001 alarm 00 flags 0001 FFFF inputs 8E at 21 stands, counters 0 0
at 300
hand gpi 1 high
    ok
at 310
status
    on 0003 alarm 00 flags 0003 FFFF inputs 8F at 29 stands, counters 0 0
at 1000
program 0300
at 1100
hand gpi 1 low
    ok
at 1200
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8E at 11 stands, counters 0 0
at 2000
program 0400640A
at 2500
hand gpi 1 high
    ok
at 2600
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8F at 12 stands, counters 0 0
# The inhibit has run out.
at 3100
hand gpi 1 low
    ok
at 3110
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8E at 20 stands, counters 0 0

== An output takes no input
at 0
program 6000
at 100
hand gpi 1 high
    not possible
hand gpi 2 low
    ok
hand gpi 5 high
    not possible
at 200
status
    on 0000 alarm 00 flags 0000 FFFF inputs 8C at 11 stands, counters 0 0

== Locks and latches hold for their supply
# Main: lock off outlet 1, latch on outlet 9. Backup: lock off outlet 14.
at 0
program 5601570159205200510A
at 100
status
    on 3FFE alarm 00 flags 3FFE FFFF inputs 8F at 14 runs, counters 0 0
at 200
hand supply main off
    ok
at 300
status
    on 9FFE alarm 00 flags 1FFE BFFF inputs 8F at 14 runs, counters 0 0
at 2000
status
    on 8000 alarm 00 flags 0000 BFFF inputs 8F at 15 stands, counters 0 0
at 3000
hand supply main on
    ok
# Not changed back yet.
at 3100
status
    on 8000 alarm 00 flags 0000 FFFF inputs 8F at 15 stands, counters 0 0
A FA39
    +01000C0E05030108091E46034E242500000000
# Latched on as soon as the main supply is back.
at 33000
status
    on 0100 alarm 00 flags 0100 FFFF inputs 8F at 15 stands, counters 0 0

== Supply interrupts, and the bits of the inlets
at 0
program C020C128C500C602
relay 0040 2000
relay 0050 2100
at 100
status
    on 0000 alarm 02 flags 0000 FFFF inputs 8F at 14 stands, counters 0 0
at 200
hand supply main off
    ok
at 300
status
    on 8001 alarm 02 flags 0001 BFFF inputs 8F at 21 stands, counters 0 0
at 400
hand supply main on
    ok
at 500
status
    on 0003 alarm 02 flags 0003 FFFF inputs 8F at 29 stands, counters 0 0

== Flags show power and fuses
at 0
program 20002100
hand fuse 2 blown
    ok
hand fuse 3 blown
    ok
at 100
status
    on 0003 alarm 00 flags 0001 FFF9 inputs 8F at 12 stands, counters 0 0

== Macros start by their trigger unless inhibited
at 0
program E702
at 50
relay 0034 2000
at 100
hand macro 1
    ok
at 200
status
    on 0001 alarm 00 flags 0001 FFFF inputs 8F at 1B stands, counters 0 0
# Inhibited, disabled.
at 300
hand macro 2
    not possible
hand macro 8
    not possible

== A hand at the unit
hand   switch   off 
    ok
hand gpi 2 low
    ok
hand supply main off
    ok
hand fuse 14 blown
    ok
hand sensor 1 out
    ok
status
    on 8FFF alarm 03 flags 0FFF 9FFF inputs 0D at 2A runs, counters 0 0
A FA820101
    +FFFFFFFFFFFFFFFFFF04
hand 
    nothing
hand # note
    nothing
hand gpi 0 low
    not possible
hand gpi 5 low
    not possible
hand fuse 15 good
    not possible
hand sensor 9 in
    not possible
hand macro x
    not possible
hand gpi -1 low
    not possible
hand fuse 999 good
    not possible
hand switch
    unknown line; "help" lists what there is
hand switch maybe
    unknown line; "help" lists what there is
hand gpi 1
    unknown line; "help" lists what there is
hand gpi 1 high now
    unknown line; "help" lists what there is
hand supply c on
    unknown line; "help" lists what there is
