# SPDX-License-Identifier: MIT
"""The program under test as its user has it, and the frame of every session test."""

import argparse
import contextlib
import json
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from desktop import Desktop, wait_until

NAME = "org.quillberry.Quillberry"
PATH = "/org/quillberry/Quillberry"
APPLICATION = "org.freedesktop.Application"

options = argparse.Namespace(binary=None, desktop="openbox")


class Note:
    """The program with data and settings of its own."""

    def __init__(self, desktop, folder):
        self.desktop = desktop
        self.folder = Path(folder)
        self.environment = dict(desktop.environment)
        if not desktop.is_whole:  # where other programs' settings count
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
        self.window = wait_until(self._find_window, "the note's window")

    def _find_window(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the program ended with {self.process.returncode}")
        return self.desktop.window_with("_NET_WM_PID", str(self.process.pid))

    def start_again(self):
        """A second start: it brings the running one forward and ends at once."""
        done = self.run_to_end()
        assert (done.returncode, done.stderr) == (0, ""), done
        self.wait_active("the note is active after a second start")

    def wait_active(self, what, timeout=20):
        """Until the note gets the keys: those go nowhere while a compositor has not seen the active window's surface."""
        self.desktop.wait_active(self.window, what, timeout)
        if self.desktop.hands:
            self.wait_for_keys()

    def run_to_end(self, timeout=5, **changes):
        environment = {key: value for key, value in (self.environment | changes).items() if value is not None}
        return subprocess.run([options.binary], env=environment, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, timeout=timeout)

    def perform(self, action, parameter="[]"):
        """Asks for an action over the session bus, as any program can that sees the name there."""
        wait_until(lambda: self.desktop.has_owner("session", NAME), "the program is on the bus")
        self.desktop.call("session", NAME, PATH, f"{APPLICATION}.ActivateAction", action, parameter, "{}")

    def type(self, text):
        self.desktop.type(text)
        self.wait_for_keys()

    def wait_for_keys(self):
        """Waits until the program has taken every key so far: it dates its window with each, by the server's clock."""
        time.sleep(0.01)  # ticks of that clock
        before = int(time.monotonic() * 1000) - 5

        def dated():
            holder = self.desktop.prop("_NET_WM_USER_TIME_WINDOW", self.window)
            date = int(self.desktop.prop("_NET_WM_USER_TIME", holder or self.window) or 0)
            return (date - before) % 2**32 < 2**31

        def taken():
            self.desktop.keys("shift")
            with contextlib.suppress(AssertionError):
                return wait_until(dated, "the program has taken a key", 1)
            return False
        wait_until(taken, "the program has taken the keys")

    def text(self):
        with contextlib.suppress(FileNotFoundError):
            return self.file.read_bytes().decode(errors="replace")
        return None

    def put_settings(self, **settings):
        """The settings before the first start; those of a user who has been welcomed, unless said otherwise."""
        self.settings.parent.mkdir(parents=True, exist_ok=True)
        self.settings.write_text(json.dumps({"didShowWelcome": True} | settings))

    def put_text(self, contents):
        self.file.parent.mkdir(parents=True)
        self.file.write_bytes(contents)

    def wait_for_text(self, text):
        try:
            wait_until(lambda: self.text() == text, f"the file holds {text!r}", 10)
        except AssertionError as error:
            raise AssertionError(f"{error}; it holds {self.text()!r}") from None

    def hide(self):
        self.desktop.keys("Escape")
        self.wait_hidden()

    def wait_hidden(self):
        wait_until(lambda: not self.desktop.is_viewable(self.window), "the note is hidden")

    def click(self, x, y, **how):
        """At a point inside the window."""
        left, top, _, _ = self.geometry()
        self.desktop.click(left + x, top + y, **how)

    def geometry(self):
        return self.desktop.geometry(self.window)

    def wait_geometry(self, x, y, width, height, tolerance=0):
        """On a desktop that places windows itself, the size alone."""
        first = 0 if self.desktop.can("position") else 2

        def distances():
            return [abs(a - b) for a, b in zip(self.geometry(), (x, y, width, height))][first:]
        try:
            wait_until(lambda: max(distances()) <= tolerance,
                       f"frame {x, y, width, height}", 10)
        except AssertionError as error:
            raise AssertionError(f"{error}; it is {self.geometry()}") from None

    def signal(self, number):
        """Sends a signal; the exit code."""
        self.process.send_signal(number)
        return self.process.wait(timeout=10)


class SessionTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(options.desktop))

    def setUp(self):
        folder = self.enterContext(tempfile.TemporaryDirectory(ignore_cleanup_errors=True))
        self.enterContext(self.desktop.keeping_only_the_window_manager())
        self.note = Note(self.desktop, folder)

    def assert_pinned(self):
        """Above the others, on every workspace, in no taskbar and pager; where the desktop has words for that."""
        if not self.desktop.can("pin"):
            return

        def missing():
            states = self.desktop.prop("_NET_WM_STATE", self.note.window)
            wanted = {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}
            return wanted - set(states.split(", "))
        wait_until(lambda: not missing(), "the states of a pinned note")
        wait_until(lambda: self.desktop.prop("_NET_WM_DESKTOP", self.note.window) == str(0xFFFFFFFF), "every workspace")

    def assert_stays_above(self, *companions):
        """Raises each in turn; that it went over the one before shows that the raise was done. Tiles are never raised
        above what floats."""
        if self.desktop.tiles:
            self.assertTrue(self.desktop.floats(self.note.window), "the note floats")
            for companion in companions:
                self.assertFalse(self.desktop.floats(companion))
                self.desktop.activate(companion)
            return
        for below, above in zip(companions, companions[1:] + companions[:1]):
            self.desktop.activate(above)
            stack = wait_until(lambda: self.stack_if_above(below, above), "a companion is raised")
            self.assertGreater(stack.index(self.note.window), stack.index(above), "a companion covers the note")

    def assert_lies_above(self, other):
        if self.desktop.tiles:
            self.assertTrue(self.desktop.floats(self.note.window), "the note floats")
        else:
            stack = self.desktop.windows(stacked=True)
            self.assertGreater(stack.index(self.note.window), stack.index(other))

    def stack_if_above(self, below, above):
        stack = self.desktop.windows(stacked=True)
        return stack if stack.index(above) > stack.index(below) else None
