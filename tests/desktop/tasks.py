#!/usr/bin/env python3
"""What an engineer comes to do, by keyboard alone and by mouse alone, with the presses counted.

Usage: tasks.py BINARIES. Each task starts a unit and a tool of its own.
"""

import pathlib
import re
import signal
import sys

from desktop import Desktop

MOST = {
    "address by keyboard": 3,
    "address by mouse": 6,
    "three outlets by keyboard": 13,
    "three outlets by mouse": 8,
    "web password by keyboard": 14,
    "web password by mouse": 14,
    "macro of five lines by keyboard": 32,
    "macro of five lines by mouse": 15,
    "undo by keyboard": 4,
    "why not by keyboard": 3,
    "why not by mouse": 6,
    "line lost by keyboard": 3,
    "line lost by mouse": 6,
}


def connected(desktop, *unit_options):
    port = desktop.start_unit(*unit_options)
    desktop.start_tool("--unit", f"127.0.0.1:{port}")


class Keyboard:
    """The ways of a keyboard to what both devices do."""

    def __init__(self, desktop):
        self.desktop = desktop

    def read_settings(self):
        self.desktop.key("ctrl+Return")
        self.desktop.wait("cmdReadNetworkSettings.usable", True)
        self.desktop.key("F5")
        self.desktop.wait_message("Read Network Settings: done.")

    def read_tab(self, page, _button, operation):
        self.desktop.key(f"alt+{page + 1}", "F5")
        self.desktop.wait_message(f"{operation}: done.")

    def fill(self, box, text, **_):
        self.desktop.tab_to(box)
        self.desktop.text(text)

    def write(self, _button):
        self.desktop.key("ctrl+s")


class Mouse:
    """The ways of a mouse; the letters of a text alone come from the keyboard."""

    def __init__(self, desktop):
        self.desktop = desktop

    def read_settings(self):
        self.desktop.click("cmdConnect")
        self.desktop.wait("cmdReadNetworkSettings.usable", True)
        self.desktop.click("cmdReadNetworkSettings")
        self.desktop.wait_message("Read Network Settings: done.")

    def read_tab(self, page, button, operation):
        self.desktop.click_tab(page)
        self.desktop.click(button)
        self.desktop.wait_message(f"{operation}: done.")

    def fill(self, box, text, selects_on_entry=True):
        entered = self.desktop.get("frmMainForm.focus") == box
        self.desktop.click(box, 1 if selects_on_entry and not entered else 3)
        self.desktop.text(text)

    def write(self, button):
        self.desktop.click(button)


def address(desktop, by):
    connected(desktop)
    by.read_settings()
    by.fill("txtIPAddress", "192.168.10.77")
    assert desktop.get("txtIPAddress") == "192.168.10.77"
    by.write("cmdWriteNetworkSettings")
    desktop.wait_message("Written: Network Settings.")
    assert desktop.ask("changes")["value"] == []
    desktop.unit_holds({"network": {"ip_address": "192.168.10.77"}})


def outlets(desktop, by):
    connected(desktop)
    by.read_settings()
    by.read_tab(3, "cmdReadChannelNames", "Read Channel Names")
    for number in range(3):
        by.fill(f"txtOutUpper({number})", f"Rack {number}")
    by.write("cmdWriteChannelNames")
    desktop.wait_message("Written: Channel Names.")
    desktop.unit_holds({"names": {"outlet": {str(i + 1): {"upper": f"Rack {i}"}
                                             for i in range(3)}}})


def web_password(desktop, by):
    connected(desktop)
    by.read_settings()
    by.read_tab(2, "cmdReadWBISettings", "Read Web Security")
    for level in range(3):
        by.fill(f"txtWebPassword({level})", f"pass{level}", selects_on_entry=False)
    by.write("cmdWriteWBISettings")
    desktop.wait_message("Written: Web Security.")
    desktop.unit_holds({"security": {name: {"password": f"pass{level}"}
                                     for level, name in enumerate(["view", "control", "admin"])}})


def why_not(desktop, by):
    connected(desktop)
    by.read_settings()
    by.fill("txtIPAddress", "300.1.1.1")
    by.write("cmdWriteNetworkSettings")
    desktop.wait_message("Not written: ")
    assert "IP address" in desktop.messages()[-1]


def line_lost(desktop, by):
    connected(desktop, "--latency", "150")
    by.read_settings()
    by.fill("txtIPAddress", "192.168.10.78")
    by.write("cmdWriteNetworkSettings")
    desktop.wait("lblMemoryBlock", "Writing block 4 of 14")
    desktop.unit.kill()
    desktop.wait_message("the line was lost")
    assert any(re.search(r"Blocks 1 to \d+ of 13 were written before", text)
               for text in desktop.messages()), desktop.messages()


def undo_by_keyboard(desktop):
    connected(desktop)
    Keyboard(desktop).read_settings()
    desktop.tab_to("txtIPAddress")
    before = desktop.get("txtIPAddress")
    desktop.text("10.0.0.1")
    assert desktop.ask("changes")["value"][0]["before"] == before
    desktop.key("ctrl+z")
    desktop.wait("txtIPAddress", before)
    desktop.key("ctrl+shift+z")
    desktop.wait("txtIPAddress", "10.0.0.1")


def outlets_are_on(desktop):
    return [desktop.get(f"frmScriptEdit.pbLED({outlet})") for outlet in range(4)]


def macro(desktop, by_keyboard):
    """Four outlets off and a stop, uploaded, watched, saved, and loaded over a cleared memory."""
    connected(desktop)
    editor = "frmScriptEdit."
    path = pathlib.Path(desktop.home.name) / "five.sms"
    press = desktop.press_by_keyboard if by_keyboard else desktop.click
    (Keyboard if by_keyboard else Mouse)(desktop).read_settings()
    desktop.key("ctrl+m") if by_keyboard else (desktop.click_tab(4), desktop.click("cmdEditMacro"))
    desktop.wait_message("Download Macro: done.", 40)
    desktop.wait(editor + "cmdUpload.usable", True, 30)
    before = outlets_are_on(desktop)
    if by_keyboard:
        desktop.key("ctrl+l")
        for line in [f"OFF {outlet} 1" for outlet in range(1, 5)] + ["Stop"]:
            desktop.text(line)
            desktop.key("Return")
        desktop.key("ctrl+shift+u")
    else:
        press(editor + "chkAutoIncrement")
        for outlet in range(4):
            press(editor + f"cmdOff({outlet})")
        press(editor + "cmdInsertCommand(0)")
        press(editor + "cmdUpload")
    desktop.wait_message("Written: Macro.", 40)
    press(editor + "cmdGoTo")
    desktop.wait_until(lambda: all(now != was for now, was in zip(outlets_are_on(desktop), before)),
                       "the four lights change")
    lines = [desktop.get(editor + f"lblCommand({row})") for row in range(5)]
    desktop.ask(f"file {path}")
    desktop.key("ctrl+s") if by_keyboard else press(editor + "cmdSaveFile")
    desktop.wait_until(path.exists, "the file is there")
    press(editor + "cmdClearMem")
    desktop.wait_until(lambda: desktop.get(editor + "lblCommand(0)") != lines[0], "an empty memory")
    desktop.ask(f"file {path}")
    desktop.key("ctrl+o") if by_keyboard else press(editor + "cmdLoadFile")
    desktop.wait_until(
        lambda: [desktop.get(editor + f"lblCommand({row})") for row in range(5)] == lines,
        "the lines of the file")


TASKS = {
    "address": address,
    "three outlets": outlets,
    "web password": web_password,
    "why not": why_not,
    "line lost": line_lost,
}


def all_tasks():
    for name, task in TASKS.items():
        yield name + " by keyboard", lambda desktop, task=task: task(desktop, Keyboard(desktop))
        yield name + " by mouse", lambda desktop, task=task: task(desktop, Mouse(desktop))
    yield "macro of five lines by keyboard", lambda desktop: macro(desktop, True)
    yield "macro of five lines by mouse", lambda desktop: macro(desktop, False)
    yield "undo by keyboard", undo_by_keyboard


def too_long(_signal, frame):
    raise TimeoutError(f"nothing more happens at {frame.f_code.co_name}, line {frame.f_lineno}")


def main():
    failed = 0
    signal.signal(signal.SIGALRM, too_long)
    for name, task in all_tasks():
        if len(sys.argv) > 2 and sys.argv[2] not in name:
            continue
        desktop = Desktop(sys.argv[1])
        signal.alarm(120)
        try:
            task(desktop)
            assert desktop.presses <= MOST[name], f"{desktop.presses} presses"
            print(f"ok      {name}: {desktop.presses} presses")
        except Exception as problem:
            failed += 1
            print(f"FAILED  {name}: {type(problem).__name__}: {problem}")
        finally:
            signal.alarm(0)
            desktop.close()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
