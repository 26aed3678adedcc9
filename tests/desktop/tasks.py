#!/usr/bin/env python3
"""What an engineer comes to do, by keyboard alone and by mouse alone, with the presses counted.

Usage: tasks.py BINARIES. Each task starts a unit and a tool of its own.
"""

import sys
import time

from desktop import Desktop

MOST = {
    "address by keyboard": 6,
    "address by mouse": 6,
    "three outlets by keyboard": 15,
    "three outlets by mouse": 9,
    "macro of five lines by mouse": 17,
    "why not by keyboard": 6,
    "undo by keyboard": 6,
    "line lost by keyboard": 8,
}


def connected(desktop, *unit_options):
    port = desktop.start_unit(*unit_options)
    desktop.start_tool("--unit", f"127.0.0.1:{port}")
    return port


def read_by_keyboard(desktop):
    desktop.key("ctrl+Return")
    desktop.wait("tcpsend.state", 7)
    desktop.wait("cmdReadNetworkSettings.usable", True)
    desktop.key("F5")
    desktop.wait_message("Read Network Settings: done.")


def address_by_keyboard(desktop):
    connected(desktop)
    read_by_keyboard(desktop)
    desktop.tab_to("txtIPAddress")
    desktop.text("192.168.10.77")
    assert desktop.get("txtIPAddress") == "192.168.10.77"
    desktop.key("ctrl+s")
    desktop.wait_message("Written: Network Settings.")
    assert desktop.ask("changes")["value"] == []


def address_by_mouse(desktop):
    connected(desktop)
    desktop.click("cmdConnect")
    desktop.wait("cmdReadNetworkSettings.usable", True)
    desktop.click("cmdReadNetworkSettings")
    desktop.wait_message("Read Network Settings: done.")
    desktop.click("txtIPAddress")
    desktop.text("192.168.10.77")
    desktop.click("cmdWriteNetworkSettings")
    desktop.wait_message("Written: Network Settings.")


def outlets_by_keyboard(desktop):
    connected(desktop)
    read_by_keyboard(desktop)
    desktop.key("alt+4", "F5")
    desktop.wait_message("Read Channel Names: done.")
    desktop.tab_to("txtOutUpper(0)")
    for number in range(3):
        desktop.text(f"Rack {number}")
        desktop.key("Tab", "Tab")
    desktop.key("ctrl+s")
    desktop.wait_message("Written: Channel Names.")
    assert desktop.get("txtOutUpper(2)") == "Rack 2"


def outlets_by_mouse(desktop):
    connected(desktop)
    desktop.click("cmdConnect")
    desktop.wait("cmdReadNetworkSettings.usable", True)
    desktop.click("cmdReadNetworkSettings")
    desktop.wait_message("Read Network Settings: done.")
    desktop.click_tab(3)
    desktop.click("cmdReadChannelNames")
    desktop.wait_message("Read Channel Names: done.")
    for number in range(3):
        desktop.click(f"txtOutUpper({number})")
        desktop.text(f"Rack {number}")
    desktop.click("cmdWriteChannelNames")
    desktop.wait_message("Written: Channel Names.")


def undo_by_keyboard(desktop):
    connected(desktop)
    read_by_keyboard(desktop)
    desktop.tab_to("txtIPAddress")
    before = desktop.get("txtIPAddress")
    desktop.text("10.0.0.1")
    assert desktop.ask("changes")["value"][0]["before"] == before
    desktop.key("ctrl+z")
    desktop.wait("txtIPAddress", before)
    desktop.key("ctrl+shift+z")
    desktop.wait("txtIPAddress", "10.0.0.1")


def why_not_by_keyboard(desktop):
    connected(desktop)
    read_by_keyboard(desktop)
    desktop.tab_to("txtIPAddress")
    desktop.text("300.1.1.1")
    desktop.key("ctrl+s")
    desktop.wait_message("Not written: ")
    assert "IP address" in desktop.messages()[-1]


def macro_by_mouse(desktop):
    connected(desktop)
    desktop.click("cmdConnect")
    desktop.wait("cmdReadNetworkSettings.usable", True)
    desktop.click("cmdReadNetworkSettings")
    desktop.wait_message("Read Network Settings: done.")
    desktop.click_tab(4)
    desktop.click("cmdEditMacro")
    desktop.wait("frmScriptEdit.cmdUpload.usable", True, 30)
    desktop.click("frmScriptEdit.chkAutoIncrement")
    desktop.click("frmScriptEdit.lblCommand(0)")
    for outlet in range(4):
        desktop.click(f"frmScriptEdit.cmdOn({outlet})")
    desktop.click("frmScriptEdit.cmdInsertCommand(0)")
    desktop.click("frmScriptEdit.cmdUpload")
    desktop.wait_message("Written: Macro.", 30)


def line_lost_by_keyboard(desktop):
    connected(desktop, "--latency", "150")
    read_by_keyboard(desktop)
    desktop.tab_to("txtIPAddress")
    desktop.text("192.168.10.78")
    desktop.key("ctrl+s")
    time.sleep(1.2)
    desktop.unit.kill()
    desktop.wait_message("the line was lost")
    assert "written before" in " ".join(desktop.messages())


TASKS = {
    "address by keyboard": address_by_keyboard,
    "address by mouse": address_by_mouse,
    "three outlets by keyboard": outlets_by_keyboard,
    "three outlets by mouse": outlets_by_mouse,
    "undo by keyboard": undo_by_keyboard,
    "why not by keyboard": why_not_by_keyboard,
    "macro of five lines by mouse": macro_by_mouse,
    "line lost by keyboard": line_lost_by_keyboard,
}


def main():
    failed = 0
    for name, task in TASKS.items():
        if len(sys.argv) > 2 and sys.argv[2] not in name:
            continue
        desktop = Desktop(sys.argv[1])
        try:
            task(desktop)
            assert desktop.presses <= MOST[name], f"{desktop.presses} presses"
            print(f"ok      {name}: {desktop.presses} presses")
        except Exception as problem:
            failed += 1
            print(f"FAILED  {name}: {type(problem).__name__}: {problem}")
        finally:
            desktop.close()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
