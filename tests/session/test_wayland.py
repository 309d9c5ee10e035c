# SPDX-License-Identifier: MIT
"""Wayland sessions: without XWayland, and when the compositor ends."""

import contextlib
import json
import re
import shutil
import signal
import unittest

from desktop import Desktop, wait_until
from note import APPLICATION, NAME, PATH, Note, SessionTest, options


class TestNative(SessionTest):
    """The note as a Wayland client. It is seen from the session bus, in sway in the compositor's tree too."""

    def setUp(self):
        super().setUp()
        self.note.environment["QT_QPA_PLATFORM"] = "wayland"

    def start_native(self, note, stderr=None):
        note.process = note.desktop.spawn(options.binary, environment=note.environment, stderr=stderr)
        wait_until(lambda: self.answers(note) or note.process.poll() is not None, "the program is on the bus")
        self.assertIsNone(note.process.poll())

    @staticmethod
    def answers(note):
        with contextlib.suppress(AssertionError):
            return note.desktop.call("session", NAME, PATH, f"{APPLICATION}.Activate", "{}")
        return None

    def test_life(self):
        """Shown and hidden from the bus, started twice, ended: it stays one program and keeps the text."""
        self.note.put_text(b"kept")
        self.start_native(self.note)
        for _ in range(3):
            self.note.perform("toggleWindow")
        done = self.note.run_to_end()
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(self.note.signal(signal.SIGTERM), 0)
        self.assertEqual(self.note.text(), "kept")

    def node(self, desktop):
        """The note's entry in sway's tree, if the note is shown."""
        def find(node):
            inner = node["nodes"] + node["floating_nodes"]
            return node if node.get("app_id") == NAME else next(filter(None, map(find, inner)), None)
        return find(json.loads(desktop.run("swaymsg", "-t", "get_tree")))

    @staticmethod
    def plug_keyboard_in(desktop):
        """One that stays: what is typed on a keyboard before a client has learnt that there is one is lost."""
        if desktop.name != "sway":
            raise unittest.SkipTest("without a screen this compositor has no keyboard that a test could type on")
        if not shutil.which("wtype"):
            raise unittest.SkipTest("not installed: wtype")
        desktop.spawn("wtype", "-s", "1000000", "-k", "Shift_L")
        wait_until(lambda: '"keyboard"' in desktop.run("swaymsg", "-t", "get_inputs"), "a keyboard")

    def wait_for_focus(self, desktop):
        wait_until(lambda: (self.node(desktop) or {}).get("focused"), "the note has the keyboard")

    def test_typing_is_saved(self):
        self.plug_keyboard_in(self.desktop)
        self.start_native(self.note)
        self.wait_for_focus(self.desktop)
        self.desktop.run("wtype", "typed")
        self.note.wait_for_text("typed")
        self.desktop.run("wtype", "-k", "Escape")
        wait_until(lambda: self.node(self.desktop) is None, "Escape hides it")
        self.note.perform("toggleWindow")
        wait_until(lambda: self.node(self.desktop), "it is shown again")

    def test_compositor_dies(self):
        """In the middle of typing: several threads of the toolkit learn of it, and any may end the program."""
        for again in range(5):
            with Desktop(options.desktop) as desktop:
                self.plug_keyboard_in(desktop)
                note = Note(desktop, self.note.folder / str(again))
                note.environment |= {"QT_QPA_PLATFORM": "wayland", "WAYLAND_DEBUG": "1"}
                log = note.folder / "log"
                with log.open("wb") as stream:
                    self.start_native(note, stream)
                self.wait_for_focus(desktop)
                desktop.spawn("wtype", "-d", "1", "x" * 3000)
                wait_until(lambda: len(re.findall(r"wl_keyboard.+\.key\(.+ 1\)\n", log.read_text())) > 50, "50 keys")
                desktop.end(desktop.manager)
                note.process.wait(20)
                self.assertGreaterEqual((note.text() or "").count("x"), 50)


class TestLostCompositor(SessionTest):
    def test_everything_typed_is_saved(self):
        """Through XWayland, which goes with it."""
        self.note.start().type("half a wor")
        self.desktop.end(self.desktop.manager)
        self.note.process.wait(20)
        self.assertEqual(self.note.text(), "half a wor")
