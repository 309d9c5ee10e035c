# SPDX-License-Identifier: MIT
"""The program's place on the desktop: its windows, hot keys and tray."""

import contextlib
import itertools
import re
import signal
import time

from desktop import soon, wait_until
from kinds import SCREEN
from note import PIN, SHOW, Note, SessionTest

ITEM_BUTTON = (378, 14)  # inside the window, when it stands in the title bar
TITLE_BAR = (210, 14)  # clear of the buttons
FRAME_KEY = "NSWindow Frame QuillberryWindow"
MENU = [["Show / Hide Note", "Control+Alt+N", None], ["Keep on Top", "Control+Alt+P", True],
        ["Show on Screen Wake", None, True], ["Start at Login", None, True], ["---"],
        ["Check for Updates…", None, None], ["---"], ["Quit Quillberry", "Control+Q", None]]


class FrameTest(SessionTest):
    def double_click_title_bar(self, *frame):
        """Again, if it came before the compositor had the note's last size."""
        for _ in range(3):
            self.note.click(130, TITLE_BAR[1], times=2)
            with contextlib.suppress(AssertionError):
                return self.note.wait_geometry(*frame)
        return self.fail(f"no double click leads to {frame}")


class TestFrame(FrameTest):
    def test_mouse(self):
        """The note at its first place is moved, made larger and smallest, and zoomed; the next start finds it there."""
        self.note.start()
        x, y, width, height = self.desktop.work_area()
        start_x, start_y = x + (width - 420) // 2, y + (height - 320) // 2
        self.note.wait_geometry(start_x, start_y, 420, 320, tolerance=1)
        self.assertEqual(self.desktop.prop("_NET_WM_NAME", self.note.window), '"Quillberry 📌"')
        self.drag(TITLE_BAR, (-150, 90))
        self.note.wait_geometry(start_x - 150, start_y + 90, 420, 320, tolerance=40)
        for by, size in ((120, 90), (540, 410)), ((-400, -300), (260, 160)):
            self.drag((-2, -2), by)
            place = self.note.geometry()[:2]
            self.note.wait_geometry(*place, *size, tolerance=40 if by[0] > 0 else 0)
        for frame in self.desktop.work_area(), (*place, 260, 160):
            self.double_click_title_bar(*frame)
        self.note.wait_for_keys()  # so it has heard of its frame too
        self.note.signal(signal.SIGTERM)
        self.note.start().wait_geometry(*place, 260, 160)

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
        self.desktop.xdotool("mousedown", 1)
        nudges = itertools.cycle((11, 12, 13))  # just more than a hand that does not mean to drag

        def far(than=15):
            return any(abs(a - b) > than for a, b in zip(self.note.geometry(), before))

        def taken():  # no motion is followed before the window manager holds the pointer
            self.desktop.move(x + next(nudges), y + next(nudges))
            return far(than=0)

        def followed():  # nor is every single one afterwards
            self.desktop.move(x + by[0] + next(nudges) % 2, y + by[1])
            return far()
        try:
            wait_until(taken, "the window follows the pointer", 8)
            wait_until(followed, "the window follows the pointer on", 8)
        except AssertionError:
            if self.desktop.name != "xfce":  # xfwm4 at times shows a new size only when it is let go
                raise
        finally:
            self.desktop.xdotool("mouseup", 1)
            self.note.wait_for_keys()  # until then the window manager has them
        wait_until(far, "the window has followed the pointer", 8)

    def test_full_screen_companion(self):
        self.desktop.needs("full screen")
        companion = self.desktop.companion("companion", "-fullscreen")
        wait_until(lambda: "FULLSCREEN" in self.desktop.prop("_NET_WM_STATE", companion), "a full-screen companion")
        for bring_forward in self.note.start, self.note.start_again:
            self.desktop.activate(companion)
            bring_forward()
            wait_until(lambda: self.desktop.windows(stacked=True)[-1:] == [self.note.window], "the note lies above it")

    def test_workspaces(self):
        """A pinned note is on each; another comes to the user. A hidden one gives the keyboard to a neighbour, not to
        a window that is gone or elsewhere."""
        self.desktop.needs("pin")
        self.addCleanup(self.desktop.switch_to, 0)
        first = self.desktop.companion("first")
        self.start_beside_companion()
        self.desktop.close(self.companion)
        wait_until(lambda: self.companion not in self.desktop.windows(), "the companion is gone")
        self.note.start_again()
        self.note.hide()
        self.desktop.wait_active(first, "the one before it is active")
        self.note.start_again()
        for pinned in True, False:
            for workspace in 1, 0:
                self.desktop.switch_to(workspace)
                if pinned:
                    wait_until(self.note.is_shown, "it is on this workspace too")
                    neighbour = self.desktop.companion(f"on workspace {workspace}")
                    wait_until(lambda: self.desktop.lies_above(self.note.window, neighbour), "it lies above it")
                self.note.perform("toggleWindow")
                self.note.wait_active()
                self.assertEqual(self.desktop.workspace(), workspace)
                self.note.wait_pinned(pinned)
                if pinned:
                    self.note.hide()
                    self.desktop.wait_active(neighbour, "the neighbour is active again")
                    self.note.start_again()
                else:
                    self.assertEqual(self.desktop.prop("_NET_WM_DESKTOP", self.note.window), str(workspace))
            self.note.perform("togglePin")
            self.note.wait_pinned(not pinned)  # the setting is there before


class TestScreens(FrameTest):
    def tearDown(self):
        super().tearDown()
        self.desktop.run("xrandr", "--output", "screen", "--mode", "{}x{}".format(*SCREEN))

    def shrink(self, width, height):
        name = f"{width}x{height}"
        self.desktop.run("xrandr", "--newmode", name, 40, width, width + 40, width + 168, width + 256,
                         height, height + 1, height + 5, height + 28)
        self.desktop.run("xrandr", "--addmode", "screen", name)

        def has_size():
            return self.desktop.run("xdotool", "getdisplaygeometry").split() == [str(width), str(height)]
        # Again if need be: mutter may set the size before it anew meanwhile.
        wait_until(lambda: self.desktop.run("xrandr", "--output", "screen", "--mode", name) or soon(has_size),
                   f"a screen of {name}")

    def test_screens_that_go_and_shrink(self):
        """Below the note, a hidden and a zoomed one: it stays whole, can be reached, and goes back with its screen."""
        def is_whole():
            x, y, width, height = self.note.geometry()
            return (width, height) == (420, 320) and 0 <= x <= screen[0] - width and 0 <= y <= screen[1] - height
        right = "xrandr", "--setmonitor", "right", "640/200x800/200+640+0", "none"
        self.desktop.run("xrandr", "--setmonitor", "left", "640/200x800/200+0+0", "screen")
        self.desktop.run(*right)
        self.note.put_settings(**{FRAME_KEY: "850 10 420 320 640 0 640 800"})
        self.note.start()
        wait_until(lambda: self.note.geometry()[0] >= 640, "it is on the right one")
        place, screen = self.note.geometry(), (640, 800)
        self.desktop.run("xrandr", "--delmonitor", "right")
        wait_until(lambda: is_whole() and not self.note.wait_for_keys(), "it is whole on the left one, and saw it go")
        self.desktop.run(*right)
        self.note.wait_geometry(*place)
        self.note.hide()
        for name in "right", "left":
            self.desktop.run("xrandr", "--delmonitor", name)
        screen = 1000, 700
        self.shrink(*screen)
        self.note.start_again()
        wait_until(is_whole, "it is whole on the screen that is left")
        self.double_click_title_bar(0, 0, *screen)
        screen = 800, 600
        self.shrink(*screen)
        self.note.wait_geometry(0, 0, *screen)
        self.note.click(*TITLE_BAR, times=2)
        wait_until(is_whole, "its size before, on the smaller screen")


class TestWindows(SessionTest):
    """What stands beside the note."""

    def wait_both_back(self, window):
        """The focus is settled when both are there: sway gives it to each that it takes up."""
        def there(each):
            return self.desktop.is_viewable(each) and (not self.desktop.tiles or self.desktop.floats(each) is not None)
        wait_until(lambda: there(window) and there(self.note.window), "it comes back with the note")
        either = self.note.window, window  # i3 gives it to the note; elsewhere the other may have it for now
        wait_until(lambda: any(map(self.desktop.is_active, either[:1 if self.desktop.name == "i3" else 2])),
                   "it has the keyboard")

    def test_welcome(self):
        """Above the note, which it leaves as it was, and goes and comes with, until it is closed for good."""
        for pinned in True, False:
            with self.subTest(pinned=pinned):
                self.companion = None if pinned else self.desktop.companion("companion")
                welcome = self.note.launch_first(pinned=pinned)
                x, y, width, _ = self.desktop.geometry(welcome)
                self.assertEqual(width, 314)  # 312, and a hairline on both sides
                if self.desktop.name == "openbox":  # near the lower end of its gradient
                    wait_until(lambda: self.desktop.picture()[x + 45, y + 53] == (255, 220, 95), "the mark is drawn")
                wait_until(lambda: self.desktop.tiles or self.desktop.lies_above(welcome, self.note.window), "above it")
                self.press("Escape")
                self.wait_put_away()
                wait_until(lambda: not self.desktop.is_viewable(welcome), "it goes with the note")
                self.note.run_to_end()  # a second start
                self.wait_both_back(welcome)
                self.desktop.activate(self.note.window)
                self.note.wait_pinned(pinned)
                self.press(*["F6"] * (3 if self.desktop.has_tray() else 4))  # past the buttons of the title bar
                self.note.wait_active("it goes past them to the welcome", welcome)
                self.press("F6")
                self.note.wait_active()
                self.desktop.activate(welcome)
                close, *how = (self.press, "Return") if pinned else (self.desktop.close, welcome)
                close(*how)
                wait_until(lambda: not self.desktop.is_viewable(welcome), "it is closed")
                self.note.wait_active()
                self.note.hide()
                self.note.start_again()
                self.assertFalse(self.desktop.is_viewable(welcome))
                self.note.signal(signal.SIGTERM)


class TestHotKeys(SessionTest):
    """The grabs of an X server."""

    def test_from_anywhere(self):
        """With every lock, in another layout, and with the keys' own repetition."""
        self.start_beside_companion()
        settled = itertools.cycle((self.wait_put_away, self.note.wait_active))

        def press(*keys):
            self.desktop.xdotool(*(part for key in keys for part in ("keydown", key)))
            next(settled)()
            return lambda: self.desktop.xdotool(*(part for key in reversed(keys) for part in ("keyup", key)))
        self.addCleanup(self.desktop.run, "setxkbmap", "us")
        for lock in (), ("Caps_Lock",), ("Num_Lock",), ("Caps_Lock", "Num_Lock"):
            self.press(*lock)
            press("Control_L", "Alt_L", "57")()
            self.press(*lock)
        for layout in "ru", "de", "fr", "us":  # the same key has other letters
            self.desktop.run("setxkbmap", layout)
            press("Control_L", "Alt_L", "57")()
        release = press("Control_L", "Alt_L", "57")
        time.sleep(1)  # more than the time after which a held key repeats
        self.assertFalse(self.note.is_shown())
        release()
        press("Control_L", "Alt_L", "57")()

    def test_burst(self):
        """Ten presses are ten actions, one after the other, and nine are nine; other modifiers make it other keys."""
        self.start_beside_companion()
        self.press("ctrl+alt+shift+n", "super+alt+n", "alt+n", "ctrl+n", "ctrl+alt+super+p", *[SHOW] * 10, PIN)
        self.note.wait_setting("pinned", False)
        self.note.wait_active()
        self.desktop.xdotool("keydown", "ctrl", "keydown", "alt", "key", "--delay", 0, *["57"] * 10, "keyup", "alt",
                             "keyup", "ctrl")  # many in one moment
        self.press(PIN)
        self.note.wait_setting("pinned", True)
        self.note.wait_active()
        self.press(*[SHOW] * 9, PIN)
        self.note.wait_setting("pinned", False)
        self.wait_put_away()

    def test_combination_that_another_program_holds(self):
        other = Note(self.desktop, self.note.folder / "other")  # its own, on another bus
        other.environment["DBUS_SESSION_BUS_ADDRESS"] = self.desktop.start_bus()[1]
        other.start()
        self.note.start()
        self.press(PIN)
        other.wait_setting("pinned", False)
        self.note.wait_setting("pinned", True)
        for note in other, self.note:
            note.signal(signal.SIGTERM)
        self.note.start()
        self.press(SHOW)
        self.note.wait_hidden()


class TrayTest(SessionTest):
    def choose_in_title_bar(self, entry):
        """With the pointer, then without it, once the item's button is there: a click on nothing does nothing."""
        wait_until(lambda: self.note.click(*ITEM_BUTTON) or soon(self.note.popup), "the item's button is there")
        self.press("Escape")
        wait_until(lambda: not self.note.popup(), "the menu is closed")
        wait_until(lambda: self.press("F6", "F6", "space") or soon(self.note.popup), "the menu, past the close button")
        self.press(*["Down"] * (1 + [label for label, *_ in MENU].index(entry)), "Return")
        wait_until(lambda: not self.note.popup(), "the menu is closed")


class TestTray(TrayTest):
    def test_notifier_host(self):
        """It starts after the note, leaves, and starts again."""
        self.start_beside_companion()
        self.choose_in_title_bar("Keep on Top")
        self.note.wait_setting("pinned", False)
        for last in False, True:
            self.note.wait_active()
            host = self.desktop.start_service("notifier_host.py")

            def tell(*command, host=host):
                return self.desktop.tell(host, *command)
            wait_until(lambda: tell("items") == 1, "the item is in the tray")
            tell("press", "Keep on Top")
            self.note.wait_setting("pinned", True)
            self.assertEqual(tell("menu"), MENU)
            for wanted in False, True:
                tell("press", "Show on Screen Wake")
                self.note.wait_setting("showOnWake", wanted)
                self.assertEqual(tell("menu")[2], ["Show on Screen Wake", None, wanted])
            for settled in self.wait_put_away, self.note.wait_active:
                tell("activate")
                settled()
            if last:
                tell("press", "Quit Quillberry")
                self.assertEqual(self.note.process.wait(10), 0)
            else:
                self.desktop.end(host)
                self.choose_in_title_bar("Keep on Top")
                self.note.wait_setting("pinned", False)

    def test_late_answer(self):
        """A tray that is slow to tell of itself: the welcome goes there from the note."""
        host = self.desktop.start_service("notifier_host.py")
        host.send_signal(signal.SIGSTOP)
        welcome = self.note.launch_first()
        host.send_signal(signal.SIGCONT)
        wait_until(lambda: self.desktop.geometry(welcome)[:2] == (960, 6), "it is at the end of the screen's top")

    def start_x11_tray(self, edge):
        """The tray, in a panel along that edge of the screen."""
        settings = self.note.folder / "tint2rc"
        settings.write_text("panel_items = S\npanel_size = 100% 32\nsystray_icon_size = 24\n"
                            f"panel_position = {edge} center horizontal\n")
        for _ in range(3):  # on a busy machine it now and then shows nothing
            tray = self.desktop.spawn("tint2", "-c", str(settings))
            if soon(lambda: self.desktop.window_with("WM_NAME", '"tint2"'), 7):
                return tray
            self.desktop.end(tray)
        return self.fail("no panel")

    def place_in_tray(self):
        """The middle of the icon, once it is there to be clicked: a window that another program has in its own."""
        text = self.desktop.run("xwininfo", "-root", "-tree")
        icon = re.search(r'(0x[0-9a-f]+) "Quillberry": \("quillberry" "Quillberry"\)  24x24\+', text)
        if not icon or not self.desktop.is_viewable(icon[1]):
            return None
        x, y, width, height = self.desktop.geometry(icon[1])
        return x + width // 2, y + height // 2

    def test_x11_tray(self):
        """The welcome hangs from a panel above and stands on one below; clicks act, and the tray may go."""
        self.companion = self.desktop.companion("companion")
        for edge in "top", "bottom":
            with self.subTest(edge):
                tray = self.start_x11_tray(edge)
                welcome = self.note.launch_first()
                icon_x, icon_y = wait_until(self.place_in_tray, "the item is in the tray")
                x, y, width, height = self.desktop.geometry(welcome)
                self.assertTrue(x < icon_x < x + width, (x, width, icon_x))
                self.assertLess(abs((y if edge == "top" else y + height) - icon_y), 32)
                self.press("Return")
                self.note.wait_active()
                for settled in self.wait_put_away, self.note.wait_active:
                    self.desktop.click(icon_x, icon_y)
                    settled()
                self.desktop.click(icon_x, icon_y, 3)
                wait_until(self.note.popup, "the menu")
                self.press("Down", "Return")
                self.wait_put_away()
                self.desktop.end(tray)
                self.note.start_again()
                self.choose_in_title_bar("Show / Hide Note")
                self.wait_put_away()
                self.note.signal(signal.SIGTERM)
