# SPDX-License-Identifier: MIT
"""Wayland sessions: without XWayland, and when the compositor ends."""

import contextlib
import json
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

    def start_native(self, note):
        note.process = note.desktop.spawn(options.binary, environment=note.environment, stderr=None)
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

    def needs_keyboard(self):
        if self.desktop.name != "sway":
            raise unittest.SkipTest("without a screen this compositor has no keyboard that a test could type on")
        if not shutil.which("wtype"):
            raise unittest.SkipTest("not installed: wtype")

    @staticmethod
    def type(desktop, *arguments):
        desktop.run("wtype", "-s", 300, *arguments)  # the client has to learn of the keyboard first

    def test_typing_is_saved(self):
        self.needs_keyboard()
        self.start_native(self.note)
        wait_until(lambda: self.node(self.desktop)["focused"], "the note has the keyboard")
        self.type(self.desktop, "typed")
        self.note.wait_for_text("typed")
        self.type(self.desktop, "-k", "Escape")
        wait_until(lambda: self.node(self.desktop) is None, "Escape hides it")
        self.note.perform("toggleWindow")
        wait_until(lambda: self.node(self.desktop), "it is shown again")

    def test_compositor_dies(self):
        """What was typed since the last save is saved, too."""
        self.needs_keyboard()
        desktop = self.enterContext(Desktop(options.desktop))
        note = Note(desktop, self.note.folder)
        note.environment["QT_QPA_PLATFORM"] = "wayland"
        self.start_native(note)
        wait_until(lambda: self.node(desktop)["focused"], "the note has the keyboard")
        self.type(desktop, "half a wor")
        note.perform("toggleShowOnWake")  # answered after the keys
        desktop.end(desktop.manager)
        note.process.wait(20)
        self.assertEqual(note.text(), "half a wor")


class TestLostCompositor(SessionTest):
    def test_everything_typed_is_saved(self):
        """Through XWayland, which goes with it."""
        self.note.start().type("half a wor")
        self.desktop.end(self.desktop.manager)
        self.note.process.wait(20)
        self.assertEqual(self.note.text(), "half a wor")
