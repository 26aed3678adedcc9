# What the editor shows on each type of unit.

== On a unit with changeover
unit cms
settings-read
quietly edit 8000
show cmdInsertCommand(3) visible
    true
show cmdInsertCommand(4) visible
    true
show cmdInsertCommand(198) visible
    true
show cmdInsertCommand(192) visible
    true
show cmdInsertCommand(193) visible
    true
show cmdInsertCommand(194) visible
    true
show cmdInsertCommand(195) visible
    true
show cmdInsertCommand(196) visible
    true
show cmdInsertCommand(197) visible
    true
show cmdInsertCommand(199) visible
    true
show imgFuse(15) visible
    true
show pbLED(14) visible
    true
show pbLED(15) visible
    true
show lblDesi(116) visible
    true
show lblDesi(216) visible
    true
show imgFuse2Block visible
    true
show imgFuse7Block(0) visible
    true
show imgFuse7Block(1) visible
    true
show lblFuseNo(14) visible
    true
show lblFuseNo(15) visible
    true
show cmdInsertCommand(192) caption
    "CHANGE OVER INT"
show cmdInsertCommand(193) caption
    "CHANGE BACK INT"
show lblFuseNo(14) caption
    "M"
show lblFuseNo(15) caption
    "B"
close
    caption "00": lblMem1(0-4 10-15), lblMem2(0 2-3 10-15)
    caption "Stop": lblCommand(0-4 10-15)
    enabled false: timUpdate
    visible false: frmScriptEdit
    00 00: image(10-14 1A-27 2A-37)

== On a unit with two supplies
unit 636
settings-read
quietly edit 8000
show cmdInsertCommand(3) visible
    true
show cmdInsertCommand(4) visible
    true
show cmdInsertCommand(198) visible
    true
show cmdInsertCommand(192) visible
    false
show cmdInsertCommand(193) visible
    false
show cmdInsertCommand(194) visible
    false
show cmdInsertCommand(195) visible
    false
show cmdInsertCommand(196) visible
    false
show cmdInsertCommand(197) visible
    false
show cmdInsertCommand(199) visible
    false
show imgFuse(15) visible
    true
show pbLED(14) visible
    true
show pbLED(15) visible
    true
show lblDesi(116) visible
    true
show lblDesi(216) visible
    true
show imgFuse2Block visible
    true
show imgFuse7Block(0) visible
    true
show imgFuse7Block(1) visible
    true
show lblFuseNo(14) visible
    true
show lblFuseNo(15) visible
    true
show cmdInsertCommand(192) caption
    "SUPPLY LOSS INT"
show cmdInsertCommand(193) caption
    "SUPPLY BACK INT"
show lblFuseNo(14) caption
    "A"
show lblFuseNo(15) caption
    "B"
close
    caption "00": lblMem1(0-4 10-15), lblMem2(0 2-3 10-15)
    caption "Stop": lblCommand(0-4 10-15)
    enabled false: timUpdate
    visible false: frmScriptEdit
    00 00: image(10-14 1A-27 2A-37)

== On a unit with one supply
unit single
settings-read
quietly edit 8000
show cmdInsertCommand(3) visible
    true
show cmdInsertCommand(4) visible
    true
show cmdInsertCommand(198) visible
    true
show cmdInsertCommand(192) visible
    false
show cmdInsertCommand(193) visible
    false
show cmdInsertCommand(194) visible
    false
show cmdInsertCommand(195) visible
    false
show cmdInsertCommand(196) visible
    false
show cmdInsertCommand(197) visible
    false
show cmdInsertCommand(199) visible
    false
show imgFuse(15) visible
    false
show pbLED(14) visible
    true
show pbLED(15) visible
    false
show lblDesi(116) visible
    false
show lblDesi(216) visible
    false
show imgFuse2Block visible
    false
show imgFuse7Block(0) visible
    false
show imgFuse7Block(1) visible
    false
show lblFuseNo(14) visible
    false
show lblFuseNo(15) visible
    false
show cmdInsertCommand(192) caption
    "SUPPLY LOSS INT"
show cmdInsertCommand(193) caption
    "SUPPLY BACK INT"
show lblFuseNo(14) caption
    ""
show lblFuseNo(15) caption
    ""
close
    caption "00": lblMem1(0-4 10-15), lblMem2(0 2-3 10-15)
    caption "Stop": lblCommand(0-4 10-15)
    enabled false: timUpdate
    visible false: frmScriptEdit
    00 00: image(10-14 1A-27 2A-37)
