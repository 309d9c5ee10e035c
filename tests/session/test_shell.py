# SPDX-License-Identifier: MIT
"""The program's place on the desktop: its windows, hot keys and tray."""

import contextlib
import json
import re
import signal
import subprocess
import time
import unittest

from desktop import wait_until
from note import SessionTest

SHOW, PIN = "ctrl+alt+n", "ctrl+alt+p"
INFO_BUTTON = (403, 14)  # inside the window
ITEM_BUTTON = (378, 14)  # when it stands in the title bar
MENU = [["Show / Hide Note", "Control+Alt+N", None], ["Keep on Top", "Control+Alt+P", True],
        ["Show on Screen Wake", None, True], ["Start at Login", None, True], ["---"],
        ["Check for Updates…", None, None], ["---"], ["Quit Quillberry", "Control+Q", None]]


class ShellTest(SessionTest):
    def setUp(self):
        super().setUp()
        self.companion = None

    def start_beside_companion(self):
        self.companion = self.desktop.companion("companion")
        return self.note.start()

    def wait_put_away(self):
        self.note.wait_hidden()
        if self.companion:
            self.desktop.wait_active(self.companion, "the companion is active again")

    def wait_forward(self, timeout=20):
        self.note.wait_active("the note is in front", timeout)

    def press(self, *keys):
        self.desktop.keys(*keys)

    def toggle(self):
        """From outside, in the way that the desktop has."""
        if "WAYLAND_DISPLAY" in self.desktop.environment:
            self.note.perform("toggleWindow")
        else:
            self.press(SHOW)

    def setting(self, name):
        with contextlib.suppress(FileNotFoundError):
            return json.loads(self.note.settings.read_text()).get(name)
        return None

    def wait_setting(self, name, value):
        wait_until(lambda: self.setting(name) is value, f"{name} is {value}", 10)

    def start_helper(self, what, *command):
        """A program from Debian's packages; the test is skipped without it."""
        try:
            process = self.desktop.spawn(*command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        except OSError as error:
            raise unittest.SkipTest(f"{what}: {error}") from error
        self.addCleanup(process.stdin.close)
        self.addCleanup(process.stdout.close)
        return process

    def popup(self):
        """Whether the program shows a menu or the shortcuts: a window of its own class that no window manager has."""
        text = self.desktop.run("xwininfo", "-root", "-children")
        windows = re.findall(r'(0x[0-9a-f]+) .*\("quillberry" "Quillberry"\)', text)
        return any(all(state in self.desktop.run("xwininfo", "-id", window)
                       for state in ("IsViewable", "Override Redirect State: yes"))
                   and "TOOLTIP" not in self.desktop.prop("_NET_WM_WINDOW_TYPE", window) for window in windows)

    def wait_popup_closed(self):
        wait_until(lambda: not self.popup(), "the menu or the shortcuts are closed")

    def go_to_note(self, x=30, y=290):
        """By a click. If it came before the compositor had the note on the screen, and raised what lies below, the note
        is called again. No balloon lies there, wherever it is put."""
        self.note.click(x, y)
        with contextlib.suppress(AssertionError):
            return self.wait_forward(3)
        self.note.run_to_end()
        self.note.click(x, y)
        return self.wait_forward()

    def go_to_info_button(self):
        """Without the pointer; past the close button and the item's, if that is not in a tray."""
        self.press(*["F6"] * (2 if self.desktop.has_tray() else 3))

    def other_window(self):
        """The program's window beside the note, if there is one."""
        own = [window for window in self.desktop.windows()
               if self.desktop.prop("_NET_WM_PID", window) == str(self.note.process.pid)]
        return next((window for window in own if window != self.note.window), None)


class TestWindows(ShellTest):
    """What stands beside the note, and where the note itself comes to."""

    def test_first_run(self):
        self.note.settings.unlink()
        self.note.launch()
        welcome = wait_until(self.other_window, "the welcome")
        self.desktop.wait_active(welcome)
        self.assertEqual(self.desktop.geometry(welcome)[2], 314)  # 312, and a hairline on both sides
        wait_until(lambda: self.lies_above(welcome), "it lies above the pinned note")
        self.assert_pinned()
        self.go_to_note()
        self.assertTrue(self.desktop.is_viewable(welcome))
        self.note.hide()
        wait_until(lambda: not self.desktop.is_viewable(welcome), "it goes with the note")
        self.toggle()
        self.wait_both_back(welcome)
        self.desktop.activate(welcome)
        self.press("Return")
        wait_until(lambda: not self.desktop.is_viewable(welcome), "Return closes it")
        self.wait_forward()
        self.note.type("x")
        self.note.signal(signal.SIGTERM)
        self.assertEqual(self.note.text(), "x")
        self.note.start()
        time.sleep(1)  # more than the time after which a first run shows it
        self.assertIsNone(self.other_window())

    def wait_both_back(self, window):
        """The focus is settled when both are there: sway gives it to each that it takes up."""
        def there(each):
            taken_up = not self.desktop.tiles or self.desktop.floats(each) is not None
            return taken_up and self.desktop.is_viewable(each)
        wait_until(lambda: there(window) and there(self.note.window), "it comes back with the note")
        either = self.note.window, window  # on a busy machine xfwm4's focus may come last
        wait_until(lambda: any(map(self.desktop.is_active, either[:1 if self.desktop.name == "i3" else 2])),
                   "it has the keyboard")

    def lies_above(self, window):
        stack = self.desktop.windows(stacked=True)
        return stack.index(window) > stack.index(self.note.window)

    def test_shortcuts(self):
        self.note.start()
        for close in (lambda: self.press("Escape"), lambda: self.note.click(60, 280),
                      lambda: self.note.click(*INFO_BUTTON)):
            self.note.click(*INFO_BUTTON)
            wait_until(self.popup, "the shortcuts")
            close()
            self.wait_popup_closed()
            self.assertTrue(self.desktop.is_viewable(self.note.window))
        self.go_to_info_button()
        self.press("space")
        wait_until(self.popup, "the shortcuts, without the pointer")
        self.press("Escape")
        self.wait_popup_closed()
        self.note.type("x")
        self.note.wait_for_text("x")
        self.note.click(*INFO_BUTTON)
        wait_until(self.popup, "the shortcuts")
        self.toggle()
        self.note.wait_hidden()
        time.sleep(0.3)  # more than the time after which a press counts as a held key's repetition
        self.toggle()
        self.wait_forward()
        self.assertFalse(self.popup())

    def test_putting_the_welcome_away(self):
        """With the note, which stays as it was, for later; with the window manager, for good."""
        self.note.put_settings(pinned=False, didShowWelcome=False)
        self.companion = self.desktop.companion("companion")
        self.note.launch()
        welcome = wait_until(self.other_window, "the welcome")
        self.desktop.wait_active(welcome)
        self.press("Escape")
        self.wait_put_away()
        self.note.run_to_end()  # a second start
        self.wait_both_back(welcome)
        self.go_to_note()
        self.assertNotRegex(self.desktop.prop("_NET_WM_STATE", self.note.window), "ABOVE|STICKY")
        self.assertNotEqual(self.desktop.prop("_NET_WM_DESKTOP", self.note.window), str(0xFFFFFFFF))
        self.go_to_info_button()
        self.press("F6")
        self.desktop.wait_active(welcome)
        self.press("F6")
        self.wait_forward()
        self.desktop.close(welcome)
        wait_until(lambda: not self.desktop.is_viewable(welcome), "it is closed")
        self.note.hide()
        self.note.start_again()
        self.note.type("x")
        self.note.wait_for_text("x")
        self.assertFalse(self.desktop.is_viewable(welcome))

    def test_update_window(self):
        """It lies above the pinned note, comes and goes with it, and leaves the keyboard to it."""
        self.start_beside_companion()
        self.note.perform("checkForUpdates")
        window = wait_until(self.other_window, "the update window")
        self.desktop.wait_active(window)
        wait_until(lambda: self.lies_above(window), "it lies above the pinned note")
        x, _, width, _ = self.desktop.geometry(window)
        self.assertAlmostEqual(x + width / 2, self.desktop.screen[0] / 2, delta=20)
        if not self.desktop.environment.get("WAYLAND_DISPLAY"):
            self.desktop.xdotool("mousemove", "--window", window, 40, 20, "click", 1, "key", "ctrl+a", "ctrl+c")
            wait_until(lambda: "Updates" in self.desktop.run("xclip", "-o", "-selection", "clipboard"), "it is copied")
        self.go_to_note(100, 300)
        self.assertTrue(self.desktop.tiles or self.lies_above(window))
        self.toggle()
        self.wait_put_away()
        wait_until(lambda: not self.desktop.is_viewable(window), "it goes with the note")
        self.toggle()
        self.wait_both_back(window)
        for hidden in False, True:
            with self.subTest(hidden=hidden):
                self.go_to_note(100, 300)
                if hidden:
                    self.toggle()
                    self.wait_put_away()
                self.note.perform("checkForUpdates")
                window = wait_until(self.other_window, "the update window")
                self.desktop.wait_active(window)
                self.press("Escape")
                wait_until(lambda: not self.desktop.is_viewable(window), "Escape closes it")
                self.note.run_to_end()  # a second start
                self.wait_forward()
                beside = self.other_window()  # sway names it for as long as it exists
                self.assertFalse(beside and self.desktop.is_viewable(beside))

    def test_unpinned_note_comes_to_the_user(self):
        """From below another window, and from another workspace."""
        self.desktop.needs("pin")
        self.addCleanup(self.desktop.switch_to, 0)
        self.start_beside_companion()
        self.note.perform("togglePin")
        self.wait_setting("pinned", False)
        if not self.desktop.tiles:
            self.desktop.activate(self.companion)
            wait_until(lambda: self.stack_if_above(self.note.window, self.companion), "the companion covers it")
            self.toggle()
            self.wait_forward()
            wait_until(lambda: self.stack_if_above(self.companion, self.note.window), "it covers the companion")
        for workspace in 1, 0:
            self.desktop.switch_to(workspace)
            self.toggle()
            self.wait_forward()
            self.assertEqual(self.desktop.workspace(), workspace)
            self.assertEqual(self.desktop.prop("_NET_WM_DESKTOP", self.note.window), str(workspace))

    def test_previous_window_that_is_gone(self):
        """Or on another workspace: another one gets the keyboard, and nobody is moved."""
        self.addCleanup(self.desktop.switch_to, 0)
        other = self.desktop.companion("other")
        self.start_beside_companion()
        self.desktop.close(self.companion)
        wait_until(lambda: self.companion not in self.desktop.windows(), "the companion is gone")
        self.note.start_again()
        self.note.hide()
        self.desktop.wait_active(other, "the one before it is active")
        self.note.start_again()
        self.desktop.switch_to(1)
        self.note.start_again()
        self.note.hide()
        self.assertEqual(self.desktop.workspace(), 1)


class TestHotKeys(ShellTest):
    def test_from_anywhere(self):
        """With every lock, in another layout, and with the keys' own repetition."""
        self.start_beside_companion()
        locks = (), ("Caps_Lock",), ("Num_Lock",), ("Caps_Lock", "Num_Lock")
        for held in locks:
            with self.subTest(held), contextlib.ExitStack() as unlock:
                for lock in held:
                    self.press(lock)
                    unlock.callback(self.press, lock)
                self.press(SHOW)
                self.wait_put_away()
                self.press(SHOW)
                self.wait_forward()
        self.addCleanup(self.desktop.run, "setxkbmap", "us")
        for layout in "ru", "de", "fr":  # the same key has other letters
            with self.subTest(layout):
                self.desktop.run("setxkbmap", layout)
                self.press_keys("Control_L", "Alt_L", "57")
                self.wait_put_away()
                self.press_keys("Control_L", "Alt_L", "57")
                self.wait_forward()
        self.desktop.xdotool("keydown", "ctrl", "keydown", "alt", "keydown", "57")
        self.wait_put_away()
        time.sleep(1)  # more than the time after which a held key repeats
        self.assertFalse(self.desktop.is_viewable(self.note.window))
        self.desktop.xdotool("keyup", "57", "keyup", "alt", "keyup", "ctrl")
        self.press(SHOW)
        self.wait_forward()

    def press_keys(self, *keys):
        down = [part for key in keys for part in ("keydown", key)]
        self.desktop.xdotool(*down, *[part for key in reversed(keys) for part in ("keyup", key)])

    def test_burst(self):
        """Ten presses are ten actions, one after the other; nine more leave the other state."""
        self.start_beside_companion()
        self.press(*[SHOW] * 10, PIN)
        self.wait_setting("pinned", False)
        self.wait_forward()
        self.desktop.xdotool("keydown", "ctrl", "keydown", "alt", "key", "--delay", 0, *["57"] * 10, "keyup", "alt",
                             "keyup", "ctrl")  # many in one moment
        self.press(PIN)
        self.wait_setting("pinned", True)
        self.wait_forward()
        self.press(*[SHOW] * 9, PIN)
        self.wait_setting("pinned", False)
        self.wait_put_away()

    def test_other_modifiers(self):
        self.start_beside_companion()
        self.desktop.activate(self.companion)
        for keys in "ctrl+alt+shift+n", "super+alt+n", "alt+n", "ctrl+n", "ctrl+alt+super+p":
            self.press(keys)
        self.press(PIN)  # takes its turn after them
        self.wait_setting("pinned", False)
        self.assertTrue(self.desktop.is_active(self.companion))
        self.assertTrue(self.desktop.is_viewable(self.note.window))

    def test_combination_that_another_program_holds(self):
        ran, settings = self.note.folder / "ran", self.note.folder / "xbindkeysrc"
        settings.write_text(f'"touch {ran}"\n  control+alt + n\n')
        holder = self.start_helper("xbindkeys", "xbindkeys", "--nodaemon", "--file", str(settings))
        wait_until(lambda: self.press(SHOW) or ran.exists(), "the other program has its key")
        self.note.start()
        self.press(SHOW, PIN)
        self.wait_setting("pinned", False)
        self.assertTrue(self.desktop.is_viewable(self.note.window))
        self.note.perform("toggleWindow")
        self.wait_put_away()
        self.desktop.end(holder)
        self.note.signal(signal.SIGTERM)
        self.note.start()
        self.press(SHOW)
        self.wait_put_away()


class TrayTest(ShellTest):
    def open_in_title_bar(self):
        """The menu, if the item's button is in the title bar; there a click on nothing does nothing."""
        self.note.click(*ITEM_BUTTON)
        with contextlib.suppress(AssertionError):
            return wait_until(self.popup, "a menu", 1)
        return False

    def open_with_keys(self):
        self.press("F6", "F6", "space")  # past the close button
        return wait_until(self.popup, "the menu")

    def choose_in_title_bar(self, entry):
        """With the pointer, then without it."""
        wait_until(self.open_in_title_bar, "the item's button is in the title bar")
        self.press("Escape")
        self.wait_popup_closed()
        wait_until(self.open_with_keys, "the item's button is in the title bar")
        self.press(*["Down"] * (1 + [label for label, *_ in MENU].index(entry)), "Return")
        self.wait_popup_closed()


class TestTray(TrayTest):
    def start_host(self):
        return self.desktop.start_service("notifier_host.py")

    def test_notifier_host(self):
        """It starts after the note, leaves, and starts again."""
        self.start_beside_companion()
        self.choose_in_title_bar("Keep on Top")
        self.wait_setting("pinned", False)
        for _ in range(2):
            self.wait_forward()
            host = self.start_host()
            wait_until(lambda: self.desktop.tell(host, "items") == 1, "the item is in the tray")
            self.assertEqual(self.desktop.tell(host, "property", "Id"), "Quillberry")
            self.assertLessEqual({16, 22, 24, 32}, set(self.desktop.tell(host, "icon_sizes")))
            self.desktop.tell(host, "press", "Keep on Top")
            self.wait_setting("pinned", True)
            self.assertEqual(self.desktop.tell(host, "menu"), MENU)
            self.desktop.tell(host, "press", "Show on Screen Wake")
            self.wait_setting("showOnWake", False)
            self.assertEqual(self.desktop.tell(host, "menu")[2], ["Show on Screen Wake", None, False])
            self.desktop.tell(host, "press", "Show on Screen Wake")
            self.wait_setting("showOnWake", True)
            self.desktop.tell(host, "activate")
            self.wait_put_away()
            self.desktop.tell(host, "activate")
            self.wait_forward()
            self.desktop.end(host)
            self.choose_in_title_bar("Keep on Top")
            self.wait_setting("pinned", False)
        host = self.start_host()
        wait_until(lambda: self.desktop.tell(host, "items") == 1, "the item is in the tray")
        self.desktop.tell(host, "press", "Quit Quillberry")
        self.assertEqual(self.note.process.wait(10), 0)

    def start_x11_tray(self, edge="bottom"):
        """The tray, in a panel along that edge of the screen."""
        settings = self.note.folder / "tint2rc"
        settings.write_text("panel_items = S\npanel_size = 100% 32\nsystray_icon_size = 24\n"
                            f"panel_position = {edge} center horizontal\n")
        for _ in range(3):  # on a busy machine it now and then shows nothing
            tray = self.start_helper("tint2", "tint2", "-c", str(settings))
            with contextlib.suppress(AssertionError):
                wait_until(lambda: self.desktop.window_with("WM_NAME", '"tint2"'), "the panel", 7)
                return tray
            self.desktop.end(tray)
        return self.fail("no panel")

    def test_welcome_at_the_tray(self):
        """It hangs from a panel above and stands on one below; the second start shows none."""
        for edge in "top", "bottom":
            with self.subTest(edge):
                tray = self.start_x11_tray(edge)
                self.note.put_settings(didShowWelcome=False)
                self.note.launch()
                welcome = wait_until(self.other_window, "the welcome")
                self.desktop.wait_active(welcome)
                icon_x, icon_y = wait_until(self.place_in_tray, "the item is in the tray")
                x, y, width, height = self.desktop.geometry(welcome)
                self.assertTrue(x < icon_x < x + width, (x, width, icon_x))
                self.assertLess(abs((y if edge == "top" else y + height) - icon_y), 32)
                self.press("Return")
                wait_until(lambda: not self.desktop.is_viewable(welcome), "Return closes it")
                self.wait_forward()
                self.note.signal(signal.SIGTERM)
                self.note.start()
                wait_until(self.place_in_tray, "the item is in the tray")
                time.sleep(1)  # more than the time after which a first run shows it
                self.assertIsNone(self.other_window())
                self.note.signal(signal.SIGTERM)
                self.desktop.end(tray)

    def test_x11_tray(self):
        self.start_beside_companion()
        for _ in range(2):
            tray = self.start_x11_tray()
            x, y = wait_until(self.place_in_tray, "the item is in the tray")
            for settled in (self.wait_put_away, self.wait_forward) * 2:
                self.desktop.click(x, y)
                settled()
            self.desktop.click(x, y, 3)
            wait_until(self.popup, "the menu")
            self.press("Down", "Return")
            self.wait_put_away()
            self.desktop.end(tray)
            self.press(SHOW)
            self.wait_forward()
            self.choose_in_title_bar("Show / Hide Note")
            self.wait_put_away()
            self.press(SHOW)
            self.wait_forward()

    def place_in_tray(self):
        """The middle of the icon, once it is there to be clicked: a window that another program has in its own."""
        text = self.desktop.run("xwininfo", "-root", "-tree")
        icon = re.search(r'(0x[0-9a-f]+) "Quillberry": \("quillberry" "Quillberry"\)  24x24\+', text)
        if not icon or not self.desktop.is_viewable(icon[1]):
            return None
        x, y, width, height = self.desktop.geometry(icon[1])
        return x + width // 2, y + height // 2
