# SPDX-License-Identifier: MIT
"""The program under test as its user has it, and the frame of every session test."""

import argparse
import contextlib
import json
import re
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from desktop import Desktop, soon, wait_until

NAME = "org.quillberry.Quillberry"
PATH = "/org/quillberry/Quillberry"
APPLICATION = "org.freedesktop.Application"
SHOW, PIN = "ctrl+alt+n", "ctrl+alt+p"
ON_EVERY_WORKSPACE = str(0xFFFFFFFF)

options = argparse.Namespace(binary=None, desktop="openbox")


class Note:
    """The program with data and settings of its own."""

    def __init__(self, desktop, folder):
        self.desktop = desktop
        self.folder = Path(folder)
        self.environment = dict(desktop.environment)
        if not desktop.kind.programs:  # in a whole session other programs' settings count
            self.environment |= {"HOME": str(folder), "XDG_DATA_HOME": f"{folder}/data",
                                 "XDG_CONFIG_HOME": f"{folder}/config"}
        self.file, self.settings = (Path(self.environment[f"XDG_{kind}_HOME"], "Quillberry", name)
                                    for kind, name in (("DATA", "note.txt"), ("CONFIG", "settings.json")))
        for place in self.file, self.settings:
            shutil.rmtree(place.parent, ignore_errors=True)
        self.process = None
        self.window = None
        self.put_settings()

    def start(self):
        """Starts the program and waits until it gets the keys."""
        self.launch()
        self.wait_active("the note is active after its start")
        return self

    def launch(self):
        """Starts the program and waits for its window."""
        self.process = self.desktop.spawn(options.binary, environment=self.environment, stderr=None)

        def window():
            assert self.process.poll() is None, f"the program ended with {self.process.returncode}"
            return self.desktop.window_with("_NET_WM_PID", str(self.process.pid))
        self.window = wait_until(window, "the note's window")

    def launch_first(self, **settings):
        """Starts the program as a new user does; the welcome, once it has the keys."""
        self.put_settings(didShowWelcome=False, **settings)
        self.launch()
        welcome = wait_until(self.other_window, "the welcome")
        self.wait_active("the welcome has the keys", welcome)
        return welcome

    def start_again(self):
        """A second start: it brings the running one forward and ends at once."""
        done = self.run_to_end()
        assert (done.returncode, done.stderr) == (0, ""), done
        self.wait_active("the note is active after a second start")

    def run_to_end(self, timeout=5, **changes):
        environment = {key: value for key, value in (self.environment | changes).items() if value is not None}
        return subprocess.run([options.binary], env=environment, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, timeout=timeout)

    def wait_active(self, what="the note is in front", window=None):
        """Until it gets the keys, which go nowhere while a compositor has not seen the window's surface."""
        self.desktop.wait_active(window or self.window, what)
        if self.desktop.kind.wayland:
            self.wait_for_keys(window)

    def perform(self, action, parameter="[]"):
        """Asks for an action over the session bus, as any program can that sees the name there."""
        wait_until(lambda: self.desktop.has_owner("session", NAME), "the program is on the bus")
        self.desktop.call("session", NAME, PATH, f"{APPLICATION}.ActivateAction", action, parameter, "{}")

    def type(self, text):
        self.desktop.type(text)
        self.wait_for_keys()

    def wait_for_keys(self, window=None):
        """Waits until the program has taken every key so far: it dates its window with each, by the server's clock."""
        window = window or self.window
        time.sleep(0.01)  # ticks of that clock
        before = int(time.monotonic() * 1000) - 5

        def dated():
            holder = self.desktop.prop("_NET_WM_USER_TIME_WINDOW", window)
            date = int(self.desktop.prop("_NET_WM_USER_TIME", holder or window) or 0)
            return (date - before) % 2**32 < 2**31

        wait_until(lambda: self.desktop.keys("shift") or soon(dated), "the program has taken the keys")

    def text(self):
        with contextlib.suppress(FileNotFoundError):
            return self.file.read_bytes().decode(errors="replace")
        return None

    def put_text(self, contents):
        self.file.parent.mkdir(parents=True)
        self.file.write_bytes(contents)

    def wait_for_text(self, text):
        wait_until(lambda: self.text() == text, lambda: f"the file holds {text!r}; it holds {self.text()!r}")

    def put_settings(self, **settings):
        """The settings before the first start; those of a user who has been welcomed, unless said otherwise."""
        self.settings.parent.mkdir(parents=True, exist_ok=True)
        self.settings.write_text(json.dumps({"didShowWelcome": True} | settings))

    def wait_setting(self, name, value):
        wait_until(lambda: json.loads(self.settings.read_text()).get(name, True) is value, f"{name} is {value}")

    def hide(self):
        self.desktop.keys("Escape")
        self.wait_hidden()

    def is_shown(self):
        return self.desktop.is_viewable(self.window)

    def wait_hidden(self):
        wait_until(lambda: not self.is_shown(), "the note is hidden")

    def click(self, x, y, **how):
        """At a point inside the window."""
        left, top, _, _ = self.geometry()
        self.desktop.click(left + x, top + y, **how)

    def geometry(self):
        return self.desktop.geometry(self.window)

    def wait_geometry(self, x, y, width, height, tolerance=0):
        """On a desktop that places windows itself, the size alone."""
        first = 0 if self.desktop.can("position") else 2

        def fits():
            return all(abs(a - b) <= tolerance for a, b in list(zip(self.geometry(), (x, y, width, height)))[first:])
        wait_until(fits, lambda: f"frame {x, y, width, height}; it is {self.geometry()}", 10)

    def wait_pinned(self, pinned=True):
        """Above the others, on every workspace, in no taskbar and pager; where the desktop has words for that."""
        if not self.desktop.can("pin"):
            return
        wanted = {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}

        def is_pinned():
            states = set(self.desktop.prop("_NET_WM_STATE", self.window).split(", "))
            return wanted <= states if pinned else "_NET_WM_STATE_ABOVE" not in states
        if not self.desktop.tiles:  # there the note floats above the others all the time
            wait_until(is_pinned, f"the states of a pinned note: {pinned}")
        wait_until(lambda: (self.desktop.prop("_NET_WM_DESKTOP", self.window) == ON_EVERY_WORKSPACE) == pinned,
                   f"on every workspace: {pinned}")

    def signal(self, number):
        """Sends a signal; the exit code."""
        self.process.send_signal(number)
        return self.process.wait(timeout=10)

    def other_window(self):
        """The program's window beside the note, if there is one."""
        own = [window for window in self.desktop.windows()
               if self.desktop.prop("_NET_WM_PID", window) == str(self.process.pid)]
        return next((window for window in own if window != self.window), None)

    def popup(self):
        """Whether the program shows a menu or the shortcuts: a window of its own class that no window manager has."""
        text = self.desktop.run("xwininfo", "-root", "-children")
        windows = re.findall(r'(0x[0-9a-f]+) .*\("quillberry" "Quillberry"\)', text)
        return any(all(state in self.desktop.run("xwininfo", "-id", window)
                       for state in ("IsViewable", "Override Redirect State: yes"))
                   and "TOOLTIP" not in self.desktop.prop("_NET_WM_WINDOW_TYPE", window) for window in windows)


class SessionTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(options.desktop))

    def setUp(self):
        folder = self.enterContext(tempfile.TemporaryDirectory(ignore_cleanup_errors=True))
        self.enterContext(self.desktop.keeping_only_the_window_manager())
        self.note = Note(self.desktop, folder)
        self.companion, self.press = None, self.desktop.keys

    def start_beside_companion(self):
        self.companion = self.desktop.companion("companion")
        return self.note.start()

    def wait_put_away(self):
        self.note.wait_hidden()
        if self.companion:
            self.desktop.wait_active(self.companion, "the companion is active again")
