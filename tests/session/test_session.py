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

import test_day
import test_portal
import test_services
import test_shell
import test_wayland
from desktop import wait_until
from kinds import KINDS, SCREEN
from note import SessionTest, options

SMALLEST = (260, 160)
TITLE_BAR = (210, 14)  # inside the window, clear of the buttons
CLOSE_BUTTON = (16, 14)
LOWER_RIGHT_CORNER = (-2, -2)
FRAME_KEY = "NSWindow Frame QuillberryWindow"

class TestDaily(SessionTest):
    def test_first_start(self):
        self.note.start()
        x, y, width, height = self.desktop.work_area()
        self.note.wait_geometry(x + (width - 420) // 2, y + (height - 320) // 2, 420, 320, tolerance=1)
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
        written = ""
        for lock, away in ((None, "Escape"), (None, "shift+Escape"), ("Caps_Lock", "Escape"), ("Num_Lock", "Escape"),
                           (None, None)):
            with self.subTest(lock=lock, away=away), contextlib.ExitStack() as unlock:
                if lock:
                    self.desktop.keys(lock)
                    unlock.callback(self.desktop.keys, lock)
                written += "X" if lock == "Caps_Lock" else "x"
                self.desktop.keys("x", *[away] if away else [])
                if not away:
                    self.note.click(*CLOSE_BUTTON)
                self.note.wait_hidden()
                self.assertEqual(self.note.text(), written)
                self.desktop.wait_active(companion, "the companion is active again")
            self.note.start_again()

    def test_second_start(self):
        companions = self.desktop.companion("one"), self.desktop.companion("two")
        self.note.start().type("abcdef")
        window = self.note.window
        self.desktop.keys("Left", "Left", "Left")
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
        start_x, start_y, _, _ = self.note.start().geometry()
        hints = self.desktop.run("xprop", "-id", self.note.window, "WM_NORMAL_HINTS")
        self.assertIn("minimum size: 260 by 160", hints)
        self.drag(TITLE_BAR, (-150, 90))
        self.note.wait_geometry(start_x - 150, start_y + 90, 420, 320, tolerance=40)
        self.drag(LOWER_RIGHT_CORNER, (120, 90))
        x, y, _, _ = self.note.geometry()
        self.note.wait_geometry(x, y, 540, 410, tolerance=40)
        self.drag(LOWER_RIGHT_CORNER, (-400, -300))
        self.note.wait_geometry(x, y, *SMALLEST)
        self.double_click_title_bar(*self.desktop.work_area())
        self.double_click_title_bar(x, y, *SMALLEST)

    def test_tap_on_the_title_bar(self):
        """A press and its release in one moment are no drag: the pointer then moves without the note."""
        before = self.note.start().geometry()
        for x in 100, 210, 320:  # three at one place are a double click
            self.note.click(x, TITLE_BAR[1])
            self.note.wait_for_keys()
            self.desktop.move(before[0] + x + 60, before[1] + 50)
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
        self.desktop.move(x, y)
        self.desktop.hold()
        nudges = itertools.cycle((11, 12))  # just more than a hand that does not mean to drag

        def move_by(*way):
            self.desktop.move(x + way[0], y + way[1])
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
            if self.desktop.name not in ("xfwm4", "xfce"):  # xfwm4 at times shows a new size only when it is let go
                raise
        finally:
            self.desktop.release()
            self.desktop.sync()  # until then the window manager has the pointer
        wait_until(lambda: far(self.note.geometry()), "the window has followed the pointer", 8)

    def double_click_title_bar(self, *frame):
        """Again, if it came before the compositor had the note's last size."""
        for _ in range(3):
            self.note.click(130, TITLE_BAR[1], times=2)
            with contextlib.suppress(AssertionError):
                return self.note.wait_geometry(*frame)
        return self.fail(f"no double click leads to {frame}")

    def test_frame_after_the_next_start(self):
        self.desktop.needs("position")
        self.note.start()
        self.desktop.xdotool("windowsize", self.note.window, 500, 400)
        self.desktop.xdotool("windowmove", self.note.window, 200, 100)
        self.note.wait_geometry(200, 100, 500, 400)
        self.note.wait_for_keys()  # so it has heard of its frame too
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

    def test_no_display(self):
        done = self.note.run_to_end(DISPLAY=None)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"\AQuillberry: .*display.*\n\Z")

    def test_silent_buses(self):
        """Before the start, or during the run; they answer again, and are silent at the end. The second start of the
        other time has no bus at all."""
        buses, written = [self.own_bus(name) for name in ("SESSION", "SYSTEM")], ""
        self.note.environment |= {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}  # the theme asks a bus too
        for silent_at_start, address in (True, {}), (False, {"DBUS_SESSION_BUS_ADDRESS": None}):
            with self.subTest(silent_at_start=silent_at_start):
                self.send(signal.SIGSTOP if silent_at_start else signal.SIGCONT, buses)
                self.note.start()
                for letter in "ab":
                    written += letter
                    self.note.type(letter)
                    self.note.wait_for_text(written)
                    self.send(signal.SIGSTOP, buses)
                before = self.note.file.stat()
                done = self.note.run_to_end(timeout=10, **address)
                self.assertEqual(done.returncode, 1)
                self.assertRegex(done.stderr, r"\AQuillberry: .*session bus.*\n\Z")
                after = self.note.file.stat()
                self.assertEqual((after.st_ino, after.st_mtime_ns), (before.st_ino, before.st_mtime_ns))
                self.note.hide()
                self.send(signal.SIGCONT, buses)
                self.note.start_again()
                self.send(signal.SIGSTOP, buses)
                self.assertEqual(self.note.signal(signal.SIGTERM), 0)

    def own_bus(self, name):
        bus, self.note.environment[f"DBUS_{name}_BUS_ADDRESS"] = self.desktop.start_bus()
        return bus

    @staticmethod
    def send(number, processes):
        for process in processes:
            process.send_signal(number)

    def test_plain_locale_and_relative_folder(self):
        self.note.file = self.note.folder / ".local/share/Quillberry/note.txt"
        self.note.put_text("ä€📌".encode())
        self.note.environment |= {"LC_ALL": "C", "XDG_DATA_HOME": "data"}
        self.note.start().type("x")
        self.note.wait_for_text("ä€📌x")

    def test_start_while_the_last_one_hands_its_clipboard_over(self):
        """To a clipboard manager that takes seconds for it."""
        try:
            self.desktop.spawn("xfce4-clipman")
        except OSError as error:
            raise unittest.SkipTest(f"xfce4-clipman: {error}") from error
        wait_until(lambda: '"Clipman"' in self.desktop.run("xwininfo", "-root", "-tree"), "a clipboard manager")
        self.note.start().type("kept")
        self.desktop.xdotool("key", "ctrl+a", "ctrl+c", "ctrl+q")
        wait_until(lambda: not self.desktop.is_viewable(self.note.window), "the note is gone")
        last = self.note.process
        self.note.start()
        if last.poll() is not None:
            self.skipTest("the manager has the clipboard already")
        self.desktop.xdotool("key", "ctrl+alt+n")
        self.note.wait_hidden()
        self.note.perform("toggleWindow")
        self.note.wait_for_text("kept")

    def test_keys_of_the_menu(self):
        self.note.start().type("one")
        for keys, text in (("ctrl+a", "one"), ("ctrl+c", "one"), ("ctrl+v", "one"), ("ctrl+v", "oneone"),
                           ("ctrl+z", "one"), ("ctrl+shift+z", "oneone"), ("ctrl+a", "oneone"), ("ctrl+x", "")):
            self.desktop.keys(keys)
            self.note.wait_for_text(text)
        self.note.type("last")
        self.desktop.keys("ctrl+q")
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
        self.note.click(*TITLE_BAR, times=2)
        self.note.wait_geometry(0, 0, *SCREEN)
        self.shrink(800, 600)
        self.note.wait_geometry(0, 0, 800, 600)
        self.note.click(*TITLE_BAR, times=2)
        wait_until(lambda: self.note.geometry()[2:] == (420, 320), "its size before")
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
    TestDaily, test_day.TestDay, TestAnyDesktop, TestScreens, TestLostDisplay, test_shell.TestWindows,
    test_shell.TestHotKeys, test_shell.TestTray, test_services.TestServices, test_services.TestInputMethod,
    test_portal.TestPortal, test_wayland.TestNative, test_wayland.TestLostCompositor)}
EVERYWHERE = "TestDaily", "TestWindows", "TestInputMethod", "TestServices.test_signals_of_a_return"
BESIDE_A_PLAYED_TRAY = ("TestTray.test_notifier_host",)
ON_X11 = "TestHotKeys", "TestScreens"
ON_WAYLAND = "TestNative", "TestLostCompositor", "TestPortal.test_keys"
ON_ONE = {"openbox": ("TestAnyDesktop", "TestLostDisplay", "TestPortal", "TestTray", "TestServices")}


def expand(names):
    """Each of them a Class or a Class.test: all as Class.test, each once."""
    cases = {}
    for name in names:
        case, _, method = name.partition(".")
        for test in [method] if method else unittest.defaultTestLoader.getTestCaseNames(CLASSES[case]):
            cases[f"{case}.{test}"] = CLASSES[case](test)
    return cases


def cases_on(desktop):
    if KINDS[desktop].programs:
        return expand(("TestDay",) + EVERYWHERE)
    return expand(EVERYWHERE + BESIDE_A_PLAYED_TRAY + (ON_WAYLAND if KINDS[desktop].wayland else ON_X11) +
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
