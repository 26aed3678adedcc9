# Commands at control port A, B or C, without marks, doubling and checksum. "+" stands before what
# follows the echo.

== Reads and writes of any range
A FB11002004
    +C0A80A64
A FB12004E051010031002
    +
A FB11004E05
    +1010031002
# The other board is untouched; addresses wrap.
A FA11004E02
    +4D05
A FA11FFFF02
    +FFFF

== Silence where a command is none
A FB120040036162
    silence
A FB110040
    silence
# A relay command, a display command, none, another unit's address.
A FB21
    silence
A FA41
    silence
A FA99
    silence
A 0221
    silence
# No such port.
D FA21
    silence

== It answers at its own ID and at the common address
relay 0004 00
A 0021
    +35304267
A FA21
    +35304267
A 8028
    +3D320001020107
relay 0004 04
A 0421
    +35304267
A 8428
    +3D320001020107
relay 0004 61
A 0121
    +35304267
A 8128
    +3D320001020107
A 6121
    silence

== A new ID is taken with the right serial number, and answered from
A FA21
    +35304267
A FA230000000002
    silence
A FA233530426703
    03233530426703
A 0311000401
    +03

== A key is never given away
A FB11030010
    +FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF
A FB1203001000112233445566778899AABBCCDDEEFF
    +
A FB11030010
    +00000000000000000000000000000000
# A read across three keys hides the set one alone; the other board has no keys.
A FB1102F820
    +FFFFFFFFFFFFFFFF00000000000000000000000000000000FFFFFFFFFFFFFFFF
A FA11030002
    +00E8
A FB12030010FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF
    +
A FB11030010
    +FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF

== The type shows by its place and by the length
A FB41
    +0100020E0000
unit 636
A FB41
    +0100060E000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000
unit single
A FB41
    +0100FFFF0000

== Sensors are read, committed and cleared
A FA820101
    +3F0000019A4C71261905
A FA820103
    +920000063B8A17280205
A FA820110
    +FFFFFFFFFFFFFFFFFF05
A FA820111
    FA8215
A FA8203
    +
A FA11020024
    +3F0000019A4C712619C10000063B84D52801920000063B8A17280257000006418E332800
A FA8202
    +
A FA11020024
    +FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF
unit cms old
A FA820101
    FA8215

== Live changeover values go in by pairs
A FA39
    +01000C0E05030107081E46004E212300000000
A FA3A0215031604170518
    +
A FA3A06020909
    +
A FA3A0606
    +
# None is answered all the same; the start-up value stays.
A FA3A
    +
A FA39
    +0100151617180207081E46184E212300000000
A FA11000A06
    +0C0E05030301

== The bootloader echoes, and versions tell both boards
A FA150000000001
    +
A FA28
    +3AB40002010602
A FB28
    +3D320001020107

== What each port of a fresh unit may do
A FB1200400178
    +
A FA1103E402
    +00FF
C FB1200400178
    FB1216
C FA1103E002
    FA1116
C FA31
    +0FFF030FFFFFFF8F1500000000
C FA820101
    +3F0000019A4C71261905

== The own rights can always be read, and a write of them holds at once
relay 03E0 00FF00FF00FF
display 03E0 00FF00FF00FF
A FA1103E002
    +00FF
A FB1103E002
    +00FF
B FA1103E202
    +00FF
C FB1103E402
    +00FF
A FA1103E006
    FA1116
A FA1103DFFF
    FA1116
relay 03E0 FFFF
A FA1203E00201FF
    +
A FA1103E202
    FA1116
A FA1203E002FFFF
    +

== A refused write changes nothing
relay 03E2 00FF
display 03E2 20FF
# A range over two areas needs both rights.
B FB12005F027878
    FB1216
A FB11005F02
    +204D
B FA611A
    FA6116
status
    on 0FFF alarm 03 flags 0FFF FFFF inputs 8F at 15 stands, counters 0 0
