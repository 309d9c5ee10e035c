# SPDX-License-Identifier: MIT
"""A user's day in a whole session, with its own tray, portal, settings and session manager; and Wayland's ways."""

import json
import re
import signal

from desktop import Desktop, soon, wait_until
from note import NAME, PIN, SHOW, Note, SessionTest, options
from test_shell import FRAME_KEY, ITEM_BUTTON, TrayTest

BLACK = (0, 0, 0)


class TestDay(TrayTest):
    def panel(self):
        """The rows of the screen along the edge that the tray is at."""
        _, top, _, height = self.desktop.work_area()
        return range(top) or range(height, self.desktop.screen[1])

    def place_of_item(self):
        """The middle of its icon, in the panel or in the title bar."""
        if not self.desktop.kind.tray:
            x, y, _, _ = self.note.geometry()
            return x + ITEM_BUTTON[0], y + ITEM_BUTTON[1]
        picture, size = self.desktop.picture(), 24

        def is_of_item(colour):  # the same grey on light and on dark panels
            return 126 < min(colour) == max(colour) < 138
        grey = [x for y in self.panel() for x in range(self.desktop.screen[0]) if is_of_item(picture[x, y])]
        count, left = max((sum(left <= x < left + size for x in grey), -left) for left in {*grey, 0})
        return (size // 2 - left, self.panel()[len(self.panel()) // 2]) if count > 20 else None

    def test_welcome(self):
        """It hangs from the item or at the panel's end; Return closes it, and the note has the keyboard."""
        welcome = self.note.launch_first()
        item = wait_until(self.place_of_item, "the item is in the tray")

        def hangs_there():  # late, where the tray or the bus tells late that there is one or none
            x, y, width, height = self.desktop.geometry(welcome)
            if not self.desktop.kind.tray:
                return x <= item[0] <= x + width and abs(y - item[1]) < 60
            to_panel = min(abs(row - edge) for row in self.panel() for edge in (y, y + height))
            return to_panel < 60 and self.desktop.screen[0] - x - width < 60  # none of these tells where the item is
        wait_until(hangs_there, "the balloon hangs there")
        x, y, _, height = self.desktop.geometry(welcome)
        wait_until(lambda: min(self.desktop.picture()[x + 8, y + height // 2]) > 230, "the balloon is drawn")
        self.press("Return")
        self.note.wait_active()
        self.note.type("milk, eggs\nand bread")
        self.note.wait_for_text("milk, eggs\nand bread")
        self.note.wait_pinned()

    def start_wayland_client(self):
        """A terminal that fills the screen and keeps what it hears."""
        if not self.desktop.kind.wayland:
            self.skipTest("there are no Wayland clients in this session")
        self.heard, listen = self.note.folder / "heard", self.note.folder / "listen"
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
        """Which has the keyboard before a hot key and after it; an X11 program had it earlier."""
        self.start_beside_companion()
        self.note.hide()
        self.start_wayland_client()
        self.show_by_key()
        wait_until(lambda: self.colour() != BLACK, "the note is seen above it")
        self.note.wait_active()
        self.press(SHOW)
        self.note.wait_hidden()
        self.wait_client_hears()
        wait_until(lambda: self.colour() == BLACK, "the client is seen")

    def show_by_key(self):
        """The desktop gives the keys some time after the note's start."""
        wait_until(lambda: self.press(SHOW) or soon(self.note.is_shown, 5), "the note is shown", 60)

    def test_hot_keys(self):
        """From an X11 program and the overview; as quick as its effects are seen."""
        self.start_beside_companion()
        self.note.hide()
        self.show_by_key()
        self.note.wait_active()
        self.press(SHOW)
        self.wait_put_away()
        self.desktop.activate(self.companion)
        self.press(PIN)
        self.note.wait_setting("pinned", False)
        self.press(*[SHOW] * (0 if self.desktop.kind.wayland else 10), PIN)  # X11's grabs tell a burst from repeats
        self.note.wait_setting("pinned", True)
        for settled in (self.note.wait_active, self.wait_put_away) * 3:
            self.press(SHOW)
            settled()
        if self.desktop.kind.overview:
            self.press(self.desktop.kind.overview, SHOW)
            self.note.wait_active()
            self.note.hide()

    def test_tray(self):
        """A click, the menu's first entry; without a tray, in the title bar."""
        self.start_beside_companion()
        if not self.desktop.kind.tray:
            self.choose_in_title_bar("Keep on Top")
            return self.note.wait_setting("pinned", False)
        x, y = wait_until(lambda: (at := self.place_of_item()) and not soon(lambda: self.place_of_item() != at) and at,
                          "the item has its place in the tray")
        for settled in self.wait_put_away, self.note.wait_active:
            self.desktop.click(x, y, times=self.desktop.kind.clicks)
            settled()
        pictures = [self.desktop.picture().bytes[::101]]

        def is_open():  # and no longer moves: it soon takes the keys then
            pictures.append(self.desktop.picture().bytes[::101])
            return pictures[-1] == pictures[-2] and sum(map(int.__ne__, pictures[0], pictures[-1])) > 100
        self.desktop.click(x, y, 3)
        wait_until(is_open, "the menu")
        wait_until(lambda: self.press("Down", "Return") or soon(lambda: not self.note.is_shown()), "its first entry")
        return self.wait_put_away()

    def test_dark(self):
        self.note.start()
        self.desktop.call("session", "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                          "org.freedesktop.portal.Settings.ReadAll", "['org.freedesktop.appearance']")  # it is up
        for choice, dark in (self.desktop.kind.dark, True), (self.desktop.kind.light, False):
            self.desktop.run(*choice.split())
            wait_until(lambda: (max(self.colour()) < 100) == dark, f"the note after {choice}")


class TestLogOut(SessionTest):
    def test_typing(self):
        """Logged out by the session's manager, which asks its programs to save and to end; else the compositor ends."""
        self.note.start().type("half a wor")
        if self.desktop.kind.wayland:
            self.desktop.manager.terminate()
        else:
            self.desktop.call("session", "org.xfce.SessionManager", "/org/xfce/SessionManager",
                              "org.xfce.Session.Manager.Logout", "false", "false")
        self.note.process.wait(20)
        self.assertEqual(self.note.text(), "half a wor")


class TestNative(SessionTest):
    """The note as a Wayland client. It is seen from the session bus and by what it saves."""

    def start_native(self, note, stderr=None, **environment):
        note.environment |= {"QT_QPA_PLATFORM": "wayland"} | environment
        note.process = note.desktop.spawn(options.binary, environment=note.environment, stderr=stderr)
        wait_until(lambda: note.desktop.has_owner("session", NAME), "the program is on the bus")

    def wait_for_keys(self, note, key):
        wait_until(lambda: note.desktop.keys(key) or soon(lambda: key in (note.text() or ""), 2), f"{key} is saved")

    def test_life(self):
        """Typed into, hidden by Escape (else the action would), started twice, ended: it stays one program and keeps
        text and frame."""
        self.note.put_text(b"kept")
        self.note.put_settings(**{FRAME_KEY: "300 200 420 320 0 0 1280 800"})
        self.start_native(self.note)
        self.wait_for_keys(self.note, "x")
        self.press("Escape")
        self.note.perform("toggleWindow")
        self.wait_for_keys(self.note, "y")
        done = self.note.run_to_end()
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(self.note.signal(signal.SIGTERM), 0)
        self.assertRegex(self.note.text(), "^keptx+y+$")
        x, y, _, height = map(int, json.loads(self.note.settings.read_text())[FRAME_KEY].split()[:4])
        self.assertEqual((x, y + height), (300, 520))

    def test_compositor_dies(self):
        """In the middle of typing: several threads of Qt learn of it, and any may end the program."""
        for again in range(5):
            with Desktop(options.desktop) as desktop:
                note = Note(desktop, self.note.folder / str(again))
                log = note.folder / "log"
                with log.open("wb") as stream:
                    self.start_native(note, stream, WAYLAND_DEBUG="1")
                self.wait_for_keys(note, "y")
                desktop.spawn("xdotool", "type", "--delay", "0", "x" * 3000, environment=desktop.seat)

                def drawn_keys():  # one may still wait for the editor until a frame is drawn after it
                    return re.findall(r"wl_keyboard.+\.key\(.+ 1\)\n", log.read_text().rpartition(".commit(")[0])
                wait_until(lambda: len(drawn_keys()) > 50, "50 keys")
                desktop.end(desktop.manager)
                note.process.wait(20)
                self.assertGreaterEqual((note.text() or "").count("x"), 40)
