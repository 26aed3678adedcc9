"""A display of its own with the tool on it, worked with real keys and a real mouse.

The program runs with --console, so that a test can read what is on the screen while xdotool
presses the keys. Each press of a key or button is counted; letters of a text are not.
"""

import json
import os
import pathlib
import subprocess
import tempfile
import time


class Desktop:
    def __init__(self, binaries, size="1024x768"):
        self.binaries = pathlib.Path(binaries)
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", size + "x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as said:
            display = ":" + said.readline().strip()
        self.environment = dict(os.environ, DISPLAY=display, QT_QPA_PLATFORM="xcb",
                                DBUS_SESSION_BUS_ADDRESS="disabled:")
        self.home = tempfile.TemporaryDirectory()
        self.environment["HOME"] = self.home.name
        self.manager = subprocess.Popen(["openbox"], env=self.environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # A window that comes up while the manager starts is taken up by nobody.
        self.wait_until(lambda: self.answers("get_desktop"), "the window manager")
        self.unit = None
        self.program = None
        self.presses = 0

    def start_unit(self, *options):
        self.unit = subprocess.Popen(
            [self.binaries / "kestrane-unit", "--port", "0", *options], stdout=subprocess.PIPE,
            text=True)
        self.ports = json.loads(self.unit.stdout.readline())["ports"]
        return self.ports[0]

    def start_tool(self, *options):
        self.program = subprocess.Popen(
            [self.binaries / "kestrane-config", "--console", *options], env=self.environment,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.ask("get frmMainForm")
        self.wait_until(lambda: self.answers("search", "--onlyvisible", "--name", "Kestrane TCP"),
                        "the window")
        time.sleep(0.5)

    def answers(self, *words):
        return subprocess.run(["xdotool", *words], env=self.environment,
                              capture_output=True).returncode == 0

    def xdotool(self, *words):
        return subprocess.run(["xdotool", *map(str, words)], env=self.environment, check=True,
                              capture_output=True, text=True).stdout

    def ask(self, command):
        self.program.stdin.write(command + "\n")
        self.program.stdin.flush()
        while True:
            answer = json.loads(self.program.stdout.readline())
            if "event" not in answer:
                return answer

    def get(self, name):
        return self.ask("get " + name)["value"]

    def wait_until(self, condition, words, seconds=15):
        end = time.monotonic() + seconds
        while not condition():
            assert time.monotonic() < end, f"waited in vain: {words}"
            time.sleep(0.05)

    def wait(self, name, value, seconds=10):
        self.wait_until(lambda: self.get(name) == value, f"{name} is {value!r}", seconds)

    def messages(self):
        return [message["text"] for message in self.ask("messages")["value"]]

    def wait_message(self, words, seconds=15):
        self.wait_until(lambda: any(words in text for text in self.messages()), words, seconds)

    def unit_holds(self, settings):
        """Asks the unit itself, on its second control port."""
        path = pathlib.Path(self.home.name) / "wanted.mdu.json"
        path.write_text(json.dumps({"format": "kestrane-configuration", "version": 1,
                                    "settings": settings}))
        told = subprocess.run([self.binaries / "kestrane-cli", "--unit", f"127.0.0.1:{self.ports[1]}",
                               "diff", path], capture_output=True, text=True)
        assert told.returncode == 0, told.stdout + told.stderr

    # What an operator does.
    def key(self, *keys):
        for key in keys:
            self.xdotool("key", "--clearmodifiers", key)
            self.presses += 1
            time.sleep(0.04)

    def text(self, text):
        self.xdotool("type", "--delay", "8", text)
        time.sleep(0.1)

    def tab_to(self, name, form="frmMainForm", most=100):
        for _ in range(most):
            if self.get(form + ".focus") == name:
                return
            self.key("Tab")
        raise AssertionError(f"Tab does not lead to {name}")

    def press_by_keyboard(self, name):
        form, _, control = name.rpartition(".")
        self.tab_to(control, form)
        self.key("space")

    def click(self, name, times=1):
        place = self.ask("where " + name)
        assert place["ok"], f"{name}: {place}"
        x, y, width, height = place["value"]
        self.xdotool("mousemove", x + min(width // 2, 12), y + height // 2,
                     "click", "--repeat", times, "--delay", 60, 1)
        self.presses += times
        time.sleep(0.1)

    def click_tab(self, index):
        x, y, width, _ = self.ask("where SSTab1")["value"]
        captions = [tab["caption"] for tab in self.get("SSTab1.tabs")]
        # Tabs differ in width: go along the bar until the one wanted is there.
        for offset in range(20, width, 25):
            self.xdotool("mousemove", x + offset, y + 12, "click", 1)
            time.sleep(0.06)
            if self.get("SSTab1") == index:
                self.presses += 1
                return
        raise AssertionError(f"no click leads to the tab {captions[index]}")

    def close(self):
        for process in (self.program, self.unit, self.manager, self.server):
            if process and process.poll() is None:
                process.kill()
                process.wait()
        self.home.cleanup()
