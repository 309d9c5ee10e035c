#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Drives the program as a user does, on a real desktop. Exit code 77: skipped."""

import argparse
import contextlib
import itertools
import signal
import sys
import unittest
from pathlib import Path

import test_portal
import test_services
import test_shell
import test_wayland
from desktop import KINDS, SCREEN, wait_until
from note import SessionTest, options

SMALLEST = (260, 160)
TITLE_BAR = (210, 14)  # inside the window, clear of the buttons
CLOSE_BUTTON = (16, 14)
LOWER_RIGHT_CORNER = (-2, -2)
FRAME_KEY = "NSWindow Frame QuillberryWindow"

class TestDaily(SessionTest):
    def test_first_start(self):
        self.note.start()
        self.note.wait_geometry(430, 240, 420, 320)
        self.assertEqual(self.desktop.prop("_NET_WM_NAME", self.note.window), '"Quillberry 📌"')

    def test_above_the_others(self):
        companions = self.desktop.companion("one"), self.desktop.companion("two")
        self.note.start()
        self.assert_pinned()
        self.assert_stays_above(*companions)

    def test_typing_is_saved(self):
        self.note.start().type("Milk, eggs\n(bread?)")
        self.note.wait_for_text("Milk, eggs\n(bread?)")
        self.assertEqual(self.note.file.stat().st_mode & 0o777, 0o600)
        self.assertEqual(self.note.file.parent.stat().st_mode & 0o777, 0o700)

    def test_putting_away(self):
        """Saved when the window is gone, not later; the keys go where they went before."""
        companion = self.desktop.companion("companion")
        self.note.start()
        click = ("mousemove", "--window", self.note.window, *CLOSE_BUTTON, "click", 1)
        written = ""
        for lock, away in ((None, ("key", "Escape")), (None, ("key", "shift+Escape")), ("Caps_Lock", ("key", "Escape")),
                           ("Num_Lock", ("key", "Escape")), (None, click)):
            with self.subTest(lock=lock, away=away), contextlib.ExitStack() as unlock:
                if lock:
                    self.desktop.xdotool("key", lock)
                    unlock.callback(self.desktop.xdotool, "key", lock)
                written += "X" if lock == "Caps_Lock" else "x"
                self.desktop.xdotool("key", "x", *away)
                self.note.wait_hidden()
                self.assertEqual(self.note.text(), written)
                self.desktop.wait_active(companion, "the companion is active again")
            self.note.start_again()

    def test_second_start(self):
        companions = self.desktop.companion("one"), self.desktop.companion("two")
        self.note.start().type("abcdef")
        window = self.note.window
        self.note.desktop.xdotool("key", "--repeat", 3, "Left")
        self.note.hide()
        self.note.start_again()
        self.assertEqual(self.note._find_window(), window)
        self.note.type("-")
        self.note.wait_for_text("abc-def")
        self.assert_pinned()
        self.assert_stays_above(*companions)
        self.note.start_again()  # visible all the time, but not active
        self.assert_stays_above(*companions)
        self.note.perform("toggleWindow")
        self.desktop.wait_active(window, "the note is active after its action")
        self.note.type("+")
        self.note.wait_for_text("abc-+def")

    def test_second_workspace(self):
        self.desktop.needs("pin")
        self.desktop.companion("companion")
        self.note.start()
        for workspace in 1, 0:
            self.desktop.switch_to(workspace)
            neighbour = self.desktop.companion(f"on workspace {workspace}")
            self.assert_lies_above(neighbour)
            self.assertTrue(self.desktop.is_viewable(self.note.window))
            self.note.start_again()
            self.note.hide()
            self.desktop.wait_active(neighbour, "the neighbour is active again")
            self.note.start_again()
            self.assertEqual(self.desktop.workspace(), workspace)
        self.assert_pinned()

    def test_full_screen_companion(self):
        self.desktop.needs("full screen")
        companion = self.desktop.companion("companion", "-fullscreen")
        wait_until(lambda: "FULLSCREEN" in self.desktop.prop("_NET_WM_STATE", companion), "a full-screen companion")
        self.note.start()
        wait_until(lambda: self.stack_if_above(companion, self.note.window), "the note lies above it")
        self.desktop.activate(companion)
        self.note.start_again()
        wait_until(lambda: self.stack_if_above(companion, self.note.window), "the note lies above it again")

    def test_mouse(self):
        self.desktop.needs("drag")
        self.note.start()
        hints = self.desktop.run("xprop", "-id", self.note.window, "WM_NORMAL_HINTS")
        self.assertIn("minimum size: 260 by 160", hints)
        self.drag(TITLE_BAR, (-150, 90))
        self.note.wait_geometry(280, 330, 420, 320, tolerance=40)
        self.drag(LOWER_RIGHT_CORNER, (120, 90))
        x, y, _, _ = self.note.geometry()
        self.note.wait_geometry(x, y, 540, 410, tolerance=40)
        self.drag(LOWER_RIGHT_CORNER, (-400, -300))
        self.note.wait_geometry(x, y, *SMALLEST)
        self.double_click_title_bar()
        self.note.wait_geometry(0, 0, *SCREEN)
        self.double_click_title_bar()
        self.note.wait_geometry(x, y, *SMALLEST)

    def test_smallest_size(self):
        self.desktop.needs("smallest")
        x, y, _, _ = self.note.start().geometry()
        for size in (300, 200), (100, 50):
            self.desktop.run("wmctrl", "-i", "-r", hex(self.note.window), "-e", f"0,-1,-1,{size[0]},{size[1]}")
            self.note.wait_geometry(x, y, *map(max, size, SMALLEST))

    def test_tap_on_the_title_bar(self):
        """A press and its release in one moment are no drag: the pointer then moves without the note."""
        before = self.note.start().geometry()
        for _ in range(3):
            self.desktop.xdotool("mousemove", "--window", self.note.window, *TITLE_BAR)
            self.desktop.xdotool("click", 1)
            self.note.wait_for_keys()
            self.desktop.xdotool("mousemove_relative", 60, 40)
            self.desktop.sync()
            self.assertEqual(self.note.geometry(), before)

    def drag(self, start, by):
        """Drags from a point inside the window, negative: from its right or lower edge, until it is followed.

        On a busy machine a window manager now and then lets go of a window in the middle; a user takes hold again.
        """
        for _ in range(3):
            with contextlib.suppress(AssertionError):
                return self.drag_once(start, by)
        return self.fail(f"no drag from {start} is followed")

    def drag_once(self, start, by):
        """Lets go when the window manager has taken the whole way."""
        before = self.note.geometry()
        x, y = (place + (offset if offset >= 0 else size + offset)
                for place, size, offset in zip(before[:2], before[2:], start))
        self.desktop.xdotool("mousemove", x, y, "mousedown", 1)
        nudges = itertools.cycle((11, 12))  # just more than a hand that does not mean to drag

        def move_by(*way):
            self.desktop.xdotool("mousemove", x + way[0], y + way[1])
            return self.note.geometry()

        def taken():  # no motion is followed before the window manager holds the pointer
            nudge = next(nudges)
            return move_by(*(nudge if way > 0 else -nudge for way in by)) != before

        def followed():  # nor is every single one afterwards
            return far(move_by(by[0] + next(nudges) % 2, by[1]))

        def far(geometry):
            return any(abs(a - b) > 15 for a, b in zip(geometry, before))
        try:
            wait_until(taken, "the window follows the pointer", 8)
            wait_until(followed, "the window follows the pointer on", 8)
        except AssertionError:
            if self.desktop.name != "xfwm4":  # that one at times shows a new size only when it is let go
                raise
        finally:
            self.desktop.xdotool("mouseup", 1)
            self.desktop.sync()  # until then the window manager has the pointer
        wait_until(lambda: far(self.note.geometry()), "the window has followed the pointer", 8)

    def double_click_title_bar(self):
        self.desktop.xdotool("mousemove", "--window", self.note.window, 130, TITLE_BAR[1],
                             "click", "--repeat", 2, "--delay", 50, 1)

    def test_frame_after_the_next_start(self):
        self.desktop.needs("position")
        self.note.start()
        self.desktop.xdotool("windowsize", self.note.window, 500, 400)
        self.desktop.xdotool("windowmove", self.note.window, 200, 100)
        self.note.wait_geometry(200, 100, 500, 400)
        self.note.signal(signal.SIGTERM)
        self.note.start().wait_geometry(200, 100, 500, 400)

    def test_ending_in_the_middle_of_a_word(self):
        self.note.start()
        written = ""
        for number in signal.SIGTERM, signal.SIGINT, signal.SIGHUP:
            with self.subTest(number):
                written += number.name
                self.note.type(number.name)
                self.assertEqual(self.note.signal(number), 0)
                self.assertEqual(self.note.text(), written)
                self.note.start()


class TestAnyDesktop(SessionTest):
    """What does not depend on the window manager."""

    def test_frame_whose_screen_is_gone(self):
        self.note.put_settings(**{FRAME_KEY: "5000 5000 420 320 4000 4000 1920 1080"})
        x, y, width, height = self.note.start().geometry()
        self.assertEqual((width, height), (420, 320))
        self.assertTrue(0 <= x <= SCREEN[0] - width and 0 <= y <= SCREEN[1] - height, (x, y))

    def test_no_display(self):
        done = self.note.run_to_end(DISPLAY=None)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"\AQuillberry: .*display.*\n\Z")

    def test_second_start_without_a_bus(self):
        self.note.start().type("kept")
        self.note.wait_for_text("kept")
        before = self.note.file.stat()
        done = self.note.run_to_end(timeout=10, DBUS_SESSION_BUS_ADDRESS=None)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"\AQuillberry: .*session bus.*\n\Z")
        after = self.note.file.stat()
        self.assertEqual((after.st_ino, after.st_mtime_ns), (before.st_ino, before.st_mtime_ns))

    def test_plain_locale(self):
        self.note.put_text("ä€📌".encode())
        self.note.environment["LC_ALL"] = "C"
        self.note.start().type("x")
        self.note.wait_for_text("ä€📌x")

    def test_relative_data_folder(self):
        self.note.environment["XDG_DATA_HOME"] = "data"
        self.note.file = self.note.folder / ".local/share/Quillberry/note.txt"
        self.note.start().type("x")
        self.note.wait_for_text("x")

    def test_keys_of_the_menu(self):
        self.note.start().type("one")
        for keys, text in (("ctrl+a", "one"), ("ctrl+c", "one"), ("ctrl+v", "one"), ("ctrl+v", "oneone"),
                           ("ctrl+z", "one"), ("ctrl+shift+z", "oneone"), ("ctrl+a", "oneone"), ("ctrl+x", "")):
            self.desktop.xdotool("key", keys)
            self.note.wait_for_text(text)
        self.note.type("last")
        self.desktop.xdotool("key", "ctrl+q")
        self.assertEqual(self.note.process.wait(timeout=10), 0)
        self.assertEqual(self.note.text(), "last")

    def test_folder_in_place_of_the_note(self):
        self.note.file.mkdir(parents=True)
        self.note.start().type("x")
        self.note.hide()
        self.note.start_again()
        self.assertEqual(self.note.signal(signal.SIGTERM), 0)
        self.assertTrue(self.note.file.is_dir())
        self.assertEqual(list(self.note.file.parent.iterdir()), [self.note.file])

    def test_unreadable_note(self):
        self.note.put_text(b"caf\xe9")
        self.note.start().type("x")
        self.note.wait_for_text("x")
        self.assertEqual(self.note.file.with_name("note.txt.unreadable").read_bytes(), b"caf\xe9")


class TestScreens(SessionTest):
    """The note stays whole and can be reached, shown or hidden, when screens go and shrink."""

    def tearDown(self):
        super().tearDown()
        self.xrandr("--output", "screen", "--mode", "{}x{}".format(*SCREEN))

    def xrandr(self, *arguments):
        self.desktop.run("xrandr", *arguments)

    def shrink(self, width, height):
        name = f"{width}x{height}"
        self.xrandr("--newmode", name, 40, width, width + 40, width + 168, width + 256,
                    height, height + 1, height + 5, height + 28)
        self.xrandr("--addmode", "screen", name)
        self.xrandr("--output", "screen", "--mode", name)
        wait_until(lambda: self.desktop.run("xdotool", "getdisplaygeometry").split() == [str(width), str(height)],
                   f"a screen of {name}")

    def wait_whole(self, screen_width, screen_height):
        def is_whole():
            x, y, width, height = self.note.geometry()
            return x >= 0 and y >= 0 and x + width <= screen_width and y + height <= screen_height
        wait_until(is_whole, "the note is whole on the screen")
        self.note.type("x")
        self.note.wait_for_text("x")

    def test_resolution(self):
        self.note.put_settings(**{FRAME_KEY: "850 10 420 320 0 0 1280 800"})
        self.note.start()
        self.shrink(800, 600)
        self.wait_whole(800, 600)

    def test_screen_that_goes(self):
        """With the hidden note on it."""
        for name, left, output in ("left", 0, "screen"), ("right", 640, "none"):
            self.xrandr("--setmonitor", name, f"640/200x800/200+{left}+0", output)
        self.note.put_settings(**{FRAME_KEY: "850 10 420 320 640 0 640 800"})
        self.assertGreaterEqual(self.note.start().geometry()[0], 640)
        self.note.hide()
        for name in "right", "left":
            self.xrandr("--delmonitor", name)
        self.shrink(640, 800)
        self.note.start_again()
        self.wait_whole(640, 800)


class TestLostDisplay(SessionTest):
    def test_everything_typed_is_saved(self):
        self.note.start().type("half a wor")
        self.desktop.end(self.desktop.server)
        self.note.process.wait(timeout=10)
        self.assertEqual(self.note.text(), "half a wor")


CLASSES = {case.__name__: case for case in (
    TestDaily, TestAnyDesktop, TestScreens, TestLostDisplay, test_shell.TestWindows, test_shell.TestHotKeys,
    test_shell.TestTray, test_services.TestServices, test_services.TestLogOut, test_services.TestInputMethod,
    test_portal.TestPortal, test_portal.TestInstalledPortal, test_wayland.TestNative, test_wayland.TestLostCompositor)}
EVERYWHERE = ("TestDaily", "TestWindows", "TestInputMethod", "TestTray.test_notifier_host",
              "TestServices.test_signals_of_a_return")
ON_X11 = "TestHotKeys", "TestScreens", "TestLogOut"
ON_WAYLAND = "TestNative", "TestLostCompositor", "TestPortal.test_keys"
ON_ONE = {"openbox": ("TestAnyDesktop", "TestLostDisplay", "TestPortal", "TestTray", "TestServices"),
          "kwin-wayland": ("TestInstalledPortal",)}


def expand(names):
    """Each of them a Class or a Class.test: all as Class.test, each once."""
    cases = {}
    for name in names:
        case, _, method = name.partition(".")
        for test in [method] if method else unittest.defaultTestLoader.getTestCaseNames(CLASSES[case]):
            cases[f"{case}.{test}"] = CLASSES[case](test)
    return cases


def cases_on(desktop):
    return expand(EVERYWHERE + (ON_WAYLAND if KINDS[desktop].wayland else ON_X11) +
                  ON_ONE.get(desktop, ()))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--binary", type=lambda path: str(Path(path).resolve()))
    parser.add_argument("--desktop", choices=KINDS, default="openbox")
    parser.add_argument("--list", action="store_true", help="print the names of the desktop's tests and end")
    parser.add_argument("names", nargs="*", help="Class or Class.test; by default, the desktop's")
    parser.parse_args(namespace=options)
    cases = expand(options.names) if options.names else cases_on(options.desktop)
    if options.list:
        print(*cases, sep="\n")
        return 0
    if not options.binary:
        parser.error("--binary is missing")
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # so that the desktop ends too
    result = unittest.TextTestRunner(verbosity=2).run(unittest.TestSuite(cases.values()))
    if not result.wasSuccessful():
        return 1
    for _, reason in result.skipped:
        print(f"skipped: {reason}")
    return 77 if result.skipped else 0


if __name__ == "__main__":
    sys.exit(main())
