# What the editor shows on each type of unit.

== On a unit with changeover
unit cms
settings-read
quietly edit 8000
show cmdInsertCommand(3) cmdInsertCommand(4) cmdInsertCommand(192) cmdInsertCommand(193) cmdInsertCommand(194) cmdInsertCommand(195) cmdInsertCommand(196) cmdInsertCommand(197) cmdInsertCommand(198) cmdInsertCommand(199) visible
    visible true: cmdInsertCommand(3-4 192-199)
show imgFuse(15) imgFuse2Block imgFuse7Block(0) imgFuse7Block(1) lblFuseNo(14) lblFuseNo(15) pbLED(14) pbLED(15) lblDesi(116) lblDesi(216) visible
    visible true: lblFuseNo(14-15), pbLED(14-15), imgFuse(15), imgFuse2Block, imgFuse7Block(0-1), lblDesi(116 216)
show cmdInsertCommand(192) cmdInsertCommand(193) lblFuseNo(14) lblFuseNo(15) caption
    caption "M": lblFuseNo(14)
    caption "B": lblFuseNo(15)
    caption "CHANGE OVER INT": cmdInsertCommand(192)
    caption "CHANGE BACK INT": cmdInsertCommand(193)
quietly close

== On a unit with two supplies
unit 636
settings-read
quietly edit 8000
show cmdInsertCommand(3) cmdInsertCommand(4) cmdInsertCommand(192) cmdInsertCommand(193) cmdInsertCommand(194) cmdInsertCommand(195) cmdInsertCommand(196) cmdInsertCommand(197) cmdInsertCommand(198) cmdInsertCommand(199) visible
    visible true: cmdInsertCommand(3-4 198)
    visible false: cmdInsertCommand(192-197 199)
show imgFuse(15) imgFuse2Block imgFuse7Block(0) imgFuse7Block(1) lblFuseNo(14) lblFuseNo(15) pbLED(14) pbLED(15) lblDesi(116) lblDesi(216) visible
    visible true: lblFuseNo(14-15), pbLED(14-15), imgFuse(15), imgFuse2Block, imgFuse7Block(0-1), lblDesi(116 216)
show cmdInsertCommand(192) cmdInsertCommand(193) lblFuseNo(14) lblFuseNo(15) caption
    caption "A": lblFuseNo(14)
    caption "B": lblFuseNo(15)
    caption "SUPPLY LOSS INT": cmdInsertCommand(192)
    caption "SUPPLY BACK INT": cmdInsertCommand(193)
quietly close

== On a unit with one supply
unit single
settings-read
quietly edit 8000
show cmdInsertCommand(3) cmdInsertCommand(4) cmdInsertCommand(192) cmdInsertCommand(193) cmdInsertCommand(194) cmdInsertCommand(195) cmdInsertCommand(196) cmdInsertCommand(197) cmdInsertCommand(198) cmdInsertCommand(199) visible
    visible true: cmdInsertCommand(3-4 198)
    visible false: cmdInsertCommand(192-197 199)
show imgFuse(15) imgFuse2Block imgFuse7Block(0) imgFuse7Block(1) lblFuseNo(14) lblFuseNo(15) pbLED(14) pbLED(15) lblDesi(116) lblDesi(216) visible
    visible false: lblFuseNo(14-15), pbLED(15), imgFuse(15), imgFuse2Block, imgFuse7Block(0-1), lblDesi(116 216)
    visible true: pbLED(14)
show cmdInsertCommand(192) cmdInsertCommand(193) lblFuseNo(14) lblFuseNo(15) caption
    caption "": lblFuseNo(14-15)
    caption "SUPPLY LOSS INT": cmdInsertCommand(192)
    caption "SUPPLY BACK INT": cmdInsertCommand(193)
quietly close
