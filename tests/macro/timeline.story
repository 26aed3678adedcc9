# A run of ten minutes as text, as CSV, as a drawing.

== A program that ends, one that repeats, one that is cut
timeline ON 1 1\nON 2 0.5 ALWAYS\nOFF 1 2\nStop
    This is what the demo unit does; a real unit may differ in its timing.
    From address 10, unit type CMS, times in seconds.
         1.000  10  Turn on outlet 1 after 1.0 seconds, skip if already on  on 1
         1.500  11  Turn on outlet 2 after fixed delay of 0.5 seconds  on 2
         3.500  12  Turn off outlet 1 after 2.0 seconds, skip if already off  off 1
         3.501  13  Stop
    end: 3.501 stop
    outlets on at the end: 2
    most outlets switched on within one second: 2, from 1.000
    ms,address,text,on,off
    1000,10,"Turn on outlet 1 after 1.0 seconds, skip if already on",1,
    1500,11,Turn on outlet 2 after fixed delay of 0.5 seconds,2,
    3500,12,"Turn off outlet 1 after 2.0 seconds, skip if already off",,1
    3501,13,Stop,,
    = svg-style
    <text class="text" x="84" y="40" text-anchor="start">demo unit; stops at 3.501 s; most outlets switched on within a second: 2</text>
    <line class="grid" x1="84" y1="82" x2="84" y2="390"/>
    <text class="text" x="84" y="406" text-anchor="middle">0.000</text>
    <line class="grid" x1="199.35" y1="82" x2="199.35" y2="390"/>
    <text class="text" x="199.35" y="406" text-anchor="middle">0.500</text>
    <line class="grid" x1="314.70" y1="82" x2="314.70" y2="390"/>
    <text class="text" x="314.70" y="406" text-anchor="middle">1.000</text>
    <line class="grid" x1="430.05" y1="82" x2="430.05" y2="390"/>
    <text class="text" x="430.05" y="406" text-anchor="middle">1.500</text>
    <line class="grid" x1="545.41" y1="82" x2="545.41" y2="390"/>
    <text class="text" x="545.41" y="406" text-anchor="middle">2.000</text>
    <line class="grid" x1="660.76" y1="82" x2="660.76" y2="390"/>
    <text class="text" x="660.76" y="406" text-anchor="middle">2.500</text>
    <line class="grid" x1="776.11" y1="82" x2="776.11" y2="390"/>
    <text class="text" x="776.11" y="406" text-anchor="middle">3.000</text>
    <line class="grid" x1="891.46" y1="82" x2="891.46" y2="390"/>
    <text class="text" x="891.46" y="406" text-anchor="middle">3.500</text>
    <text class="text" x="52" y="406" text-anchor="end">s</text>
    <g id="outlet-1">
    <text class="text" x="74" y="97" text-anchor="end">Outlet 1</text>
    <line class="row" x1="84" y1="93" x2="924" y2="93"/>
    <rect class="bar" x="314.70" y="86" width="576.76" height="14"/>
    </g>
    <g id="outlet-2">
    <text class="text" x="74" y="119" text-anchor="end">Outlet 2</text>
    <line class="row" x1="84" y1="115" x2="924" y2="115"/>
    <rect class="bar" x="430.05" y="108" width="493.95" height="14"/>
    </g>
    = svg-idle-outlet 3 137 141
    = svg-idle-outlets-4-to-13
    = svg-idle-outlet 14 379 383
    </svg>
timeline loop: ON 3 1\nOFF 3 30\nGOTO loop
    This is what the demo unit does; a real unit may differ in its timing.
    From address 10, unit type CMS, times in seconds.
         1.000  10  Turn on outlet 3 after 1.0 seconds, skip if already on  on 3
        31.000  11  Turn off outlet 3 after 30.0 seconds, skip if already off  off 3
        31.001  12  Goto address 10
    end: 31.001 repeats
    repeats every 31.001 from 0.000
    outlets on at the end: none
    most outlets switched on within one second: 1, from 1.000
    ms,address,text,on,off
    1000,10,"Turn on outlet 3 after 1.0 seconds, skip if already on",3,
    31000,11,"Turn off outlet 3 after 30.0 seconds, skip if already off",,3
    31001,12,Goto address 10,,
    = svg-style
    <text class="text" x="84" y="40" text-anchor="start">demo unit; repeats every 31.001 s from 0.000 s; most outlets switched on within a second: 1</text>
    <rect class="loop" x="84" y="82" width="807.69" height="308"/>
    <line class="grid" x1="84" y1="82" x2="84" y2="390"/>
    <text class="text" x="84" y="406" text-anchor="middle">0</text>
    <line class="grid" x1="214.27" y1="82" x2="214.27" y2="390"/>
    <text class="text" x="214.27" y="406" text-anchor="middle">5</text>
    <line class="grid" x1="344.54" y1="82" x2="344.54" y2="390"/>
    <text class="text" x="344.54" y="406" text-anchor="middle">10</text>
    <line class="grid" x1="474.81" y1="82" x2="474.81" y2="390"/>
    <text class="text" x="474.81" y="406" text-anchor="middle">15</text>
    <line class="grid" x1="605.08" y1="82" x2="605.08" y2="390"/>
    <text class="text" x="605.08" y="406" text-anchor="middle">20</text>
    <line class="grid" x1="735.34" y1="82" x2="735.34" y2="390"/>
    <text class="text" x="735.34" y="406" text-anchor="middle">25</text>
    <line class="grid" x1="865.61" y1="82" x2="865.61" y2="390"/>
    <text class="text" x="865.61" y="406" text-anchor="middle">30</text>
    <text class="text" x="52" y="406" text-anchor="end">s</text>
    = svg-idle-outlet 1 93 97
    = svg-idle-outlet 2 115 119
    <g id="outlet-3">
    <text class="text" x="74" y="141" text-anchor="end">Outlet 3</text>
    <line class="row" x1="84" y1="137" x2="924" y2="137"/>
    <rect class="bar" x="110.05" y="130" width="781.61" height="14"/>
    </g>
    = svg-idle-outlets-4-to-13
    = svg-idle-outlet 14 379 383
    </svg>
timeline ON 14 0\nWAIT 6300\nALL OFF 0
    This is what the demo unit does; a real unit may differ in its timing.
    From address 10, unit type CMS, times in seconds.
         0.001  10  Turn on outlet 14 after 0.0 seconds, skip if already on  on 14
    end: 600.000 time
    outlets on at the end: 14
    most outlets switched on within one second: 1, from 0.001
    ms,address,text,on,off
    1,10,"Turn on outlet 14 after 0.0 seconds, skip if already on",14,
    = svg-style
    <text class="text" x="84" y="40" text-anchor="start">demo unit; cut at 600.000 s; most outlets switched on within a second: 1</text>
    <line class="grid" x1="84" y1="82" x2="84" y2="390"/>
    <text class="text" x="84" y="406" text-anchor="middle">0:00:00</text>
    <line class="grid" x1="245.54" y1="82" x2="245.54" y2="390"/>
    <text class="text" x="245.54" y="406" text-anchor="middle">0:02:00</text>
    <line class="grid" x1="407.08" y1="82" x2="407.08" y2="390"/>
    <text class="text" x="407.08" y="406" text-anchor="middle">0:04:00</text>
    <line class="grid" x1="568.62" y1="82" x2="568.62" y2="390"/>
    <text class="text" x="568.62" y="406" text-anchor="middle">0:06:00</text>
    <line class="grid" x1="730.15" y1="82" x2="730.15" y2="390"/>
    <text class="text" x="730.15" y="406" text-anchor="middle">0:08:00</text>
    <line class="grid" x1="891.69" y1="82" x2="891.69" y2="390"/>
    <text class="text" x="891.69" y="406" text-anchor="middle">0:10:00</text>
    <text class="text" x="52" y="406" text-anchor="end">h:min:s</text>
    = svg-idle-outlet 1 93 97
    = svg-idle-outlet 2 115 119
    = svg-idle-outlet 3 137 141
    = svg-idle-outlets-4-to-13
    <g id="outlet-14">
    <text class="text" x="74" y="383" text-anchor="end">Outlet 14</text>
    <line class="row" x1="84" y1="379" x2="924" y2="379"/>
    <rect class="bar" x="84" y="372" width="840" height="14"/>
    </g>
    </svg>
