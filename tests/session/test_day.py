# SPDX-License-Identifier: MIT
"""A user's day in a whole session, with its own tray, portal, settings and session manager."""

import contextlib
import time

from desktop import wait_until
from kinds import KINDS
from test_shell import ITEM_BUTTON, PIN, SHOW, TrayTest

BLACK = (0, 0, 0)


class TestDay(TrayTest):
    def setUp(self):
        super().setUp()
        self.kind = KINDS[self.desktop.name]

    def panel(self):
        """The rows of the screen along the edge that the tray is at."""
        _, top, _, height = self.desktop.work_area()
        return range(top) or range(height, self.desktop.screen[1])

    def place_of_item(self):
        """The middle of its icon, in the panel or in the title bar."""
        if not self.kind.tray:
            x, y, _, _ = self.note.geometry()
            return x + ITEM_BUTTON[0], y + ITEM_BUTTON[1]
        picture, size = self.desktop.picture(), 24
        def is_of_item(colour):  # the same grey on light and on dark panels
            return 126 < min(colour) == max(colour) < 138
        grey = [x for y in self.panel() for x in range(self.desktop.screen[0]) if is_of_item(picture[x, y])]
        count, left = max((sum(left <= x < left + size for x in grey), -left) for left in {*grey, 0})
        return (size // 2 - left, self.panel()[len(self.panel()) // 2]) if count > 20 else None

    def arrow_of(self, balloon):
        """Where the tip of its arrow is; nowhere, if the whole edge towards the panel is the balloon's."""
        x, y, width, height = self.desktop.geometry(balloon)
        edge = y + 4 if self.panel()[0] == 0 else y + height - 5
        picture = self.desktop.picture()
        light = [place for place in range(x, x + width) if min(picture[place, edge]) > 240]
        return sum(light) / len(light) if 0 < len(light) < width / 2 else None

    def test_welcome(self):
        """It points at the item or at nothing; Return closes it, and the note has the keyboard."""
        self.note.put_settings(didShowWelcome=False)
        self.note.launch()
        welcome = wait_until(self.other_window, "the welcome")
        self.desktop.wait_active(welcome)
        item = wait_until(self.place_of_item, "the item is in the tray")
        x, y, width, height = self.desktop.geometry(welcome)
        wait_until(lambda: min(self.desktop.picture()[x + 8, y + height // 2]) > 230, "the balloon is drawn")
        arrow = self.arrow_of(welcome)
        if self.kind.tray:  # none of these tells where the item is
            self.assertIsNone(arrow)
            self.assertLess(self.desktop.screen[0] - x - width, 60, "at the end of the panel")
            self.assertLess(min(abs(row - edge) for row in self.panel() for edge in (y, y + height)), 60)
        else:
            self.assertTrue(x <= item[0] <= x + width and abs(y - item[1]) < 60, (x, y, item))
        self.press("Return")
        wait_until(lambda: not self.desktop.is_viewable(welcome), "Return closes it")
        self.wait_forward()
        self.note.type("Milk, eggs\n(bread?)")
        self.note.wait_for_text("Milk, eggs\n(bread?)")
        self.assert_pinned()

    def start_wayland_client(self):
        """A terminal that fills the screen and keeps what it hears."""
        if not self.kind.wayland:
            self.skipTest("there are no Wayland clients in this session")
        self.heard = self.note.folder / "heard"
        listen = self.note.folder / "listen"
        listen.write_text(f"#!/bin/sh\nexec cat > {self.heard}\n")
        listen.chmod(0o755)
        self.desktop.spawn("weston-terminal", "--maximized", f"--shell={listen}")
        wait_until(self.heard.exists, "a Wayland client")
        self.wait_client_hears()

    def wait_client_hears(self):
        before = self.heard.stat().st_size
        wait_until(lambda: self.press("x", "Return") or self.heard.stat().st_size > before, "the client has the keys")

    def colour(self):
        """Of the middle of the note's place."""
        x, y, width, height = self.note.geometry()
        return self.desktop.picture()[x + width // 2, y + height // 2]

    def test_over_a_wayland_client(self):
        """Which has the keyboard before and after; an X11 program had it earlier."""
        self.start_beside_companion()
        self.note.hide()
        self.start_wayland_client()
        self.note.start_again()
        wait_until(lambda: self.colour() != BLACK, "the note is seen above it")
        self.note.hide()
        self.wait_client_hears()
        wait_until(lambda: self.colour() == BLACK, "the client is seen")

    def key_shows(self):
        """Whether a press does: the desktop gives the keys some time after the note's start."""
        self.press(SHOW)
        with contextlib.suppress(AssertionError):
            return wait_until(lambda: self.desktop.is_viewable(self.note.window), "it shows", 2)
        return False

    def stays_hidden(self):
        """For a second: GNOME starts a program for each press."""
        return not any(self.desktop.is_viewable(self.note.window) or time.sleep(0.1) for _ in range(10))

    def test_hot_keys(self):
        """From an X11 program, a Wayland client and the overview; ten presses are ten actions."""
        self.start_beside_companion()
        self.note.hide()
        wait_until(self.key_shows, "the note is shown", 10)
        self.wait_forward()
        self.press(SHOW)
        self.wait_put_away()
        self.desktop.activate(self.companion)
        self.press(PIN)
        self.wait_setting("pinned", False)
        self.press(*[SHOW] * 10, PIN)
        self.wait_setting("pinned", True)
        wait_until(self.stays_hidden, "ten presses lead back to where it was")
        if self.kind.overview:
            self.press(self.kind.overview, SHOW)
            self.wait_forward()
            self.note.hide()
        if self.kind.wayland:
            self.start_wayland_client()
            self.press(SHOW)
            self.wait_forward()
            self.press(SHOW)
            self.note.wait_hidden()

    def test_tray(self):
        """A click, the menu's first entry; without a tray, in the title bar."""
        self.start_beside_companion()
        if not self.kind.tray:
            self.choose_in_title_bar("Keep on Top")
            return self.wait_setting("pinned", False)
        x, y = wait_until(self.place_of_item, "the item is in the tray")
        self.addCleanup(self.desktop.move, 0, y // 2)  # or its tip stays
        for settled in self.wait_put_away, self.wait_forward:
            self.desktop.click(x, y, times=self.kind.clicks)
            settled()
        before = self.desktop.picture().bytes[::101]

        def changed():
            return sum(one != other for one, other in zip(before, self.desktop.picture().bytes[::101])) > 100
        self.desktop.click(x, y, 3)
        wait_until(changed, "the menu")
        self.press("Down", "Return")
        return self.wait_put_away()

    def test_dark(self):
        self.addCleanup(self.desktop.run, *self.kind.light.split())
        self.note.start()
        self.desktop.call("session", "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                          "org.freedesktop.portal.Settings.ReadAll", "['org.freedesktop.appearance']")  # it is up
        for choice, dark in (self.kind.dark, True), (self.kind.light, False):
            self.desktop.run(*choice.split())
            wait_until(lambda: (max(self.colour()) < 100) == dark, f"the note after {choice}")

    def test_log_out(self):
        """By the session's manager, which asks its programs to save and to end; elsewhere the compositor ends."""
        self.note.start().type("half a wor")
        if self.kind.wayland:
            self.desktop.manager.terminate()
        else:
            self.desktop.call("session", "org.xfce.SessionManager", "/org/xfce/SessionManager",
                              "org.xfce.Session.Manager.Logout", "false", "false")
        self.note.process.wait(20)
        self.assertEqual(self.note.text(), "half a wor")
