# SPDX-License-Identifier: MIT
"""Wayland sessions: without XWayland, and when the compositor ends."""

import contextlib
import json
import re
import signal
import unittest

from desktop import Desktop, wait_until
from note import APPLICATION, NAME, PATH, Note, SessionTest, options


class TestNative(SessionTest):
    """The note as a Wayland client. It is seen from the session bus and by what it saves."""

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
        frame = "NSWindow Frame QuillberryWindow"
        self.note.put_settings(**{frame: "300 200 420 320 0 0 1280 800"})
        self.start_native(self.note)
        for _ in range(3):
            self.note.perform("toggleWindow")
        done = self.note.run_to_end()
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(self.note.signal(signal.SIGTERM), 0)
        self.assertEqual(self.note.text(), "kept")
        x, y, _, height = map(int, json.loads(self.note.settings.read_text())[frame].split()[:4])
        self.assertEqual((x, y + height), (300, 520))

    def wait_for_keys(self, note, key):
        def is_saved():
            note.desktop.keys(key)
            with contextlib.suppress(AssertionError):
                return wait_until(lambda: key in (note.text() or ""), f"{key} is saved", 2)
            return False
        wait_until(is_saved, "the note has the keyboard")

    def test_typing_is_saved(self):
        """And Escape hides the note: else the action would."""
        self.start_native(self.note)
        self.wait_for_keys(self.note, "x")
        self.desktop.keys("Escape")
        self.note.perform("toggleWindow")
        self.wait_for_keys(self.note, "y")

    def test_compositor_dies(self):
        """In the middle of typing: several threads of Qt learn of it, and any may end the program."""
        for again in range(5):
            with Desktop(options.desktop) as desktop:
                note = Note(desktop, self.note.folder / str(again))
                note.environment |= {"QT_QPA_PLATFORM": "wayland", "WAYLAND_DEBUG": "1"}
                log = note.folder / "log"
                with log.open("wb") as stream:
                    self.start_native(note, stream)
                self.wait_for_keys(note, "y")
                print(json.dumps(["type", "x" * 3000, 0]), file=desktop.hands.stdin, flush=True)
                def drawn_keys():  # keys that have come may still wait for the editor, until a frame is drawn after them
                    return re.findall(r"wl_keyboard.+\.key\(.+ 1\)\n", log.read_text().rpartition(".commit(")[0])
                wait_until(lambda: len(drawn_keys()) > 50, "50 keys")
                desktop.end(desktop.manager)
                note.process.wait(20)
                self.assertGreaterEqual((note.text() or "").count("x"), 40)


class TestLostCompositor(SessionTest):
    def test_everything_typed_is_saved(self):
        """Through XWayland, which goes with it."""
        self.note.start().type("half a wor")
        self.desktop.end(self.desktop.manager)
        self.note.process.wait(20)
        self.assertEqual(self.note.text(), "half a wor")
