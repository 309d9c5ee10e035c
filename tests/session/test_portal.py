# SPDX-License-Identifier: MIT
"""Hot keys of a Wayland session: the desktop's portal gives them."""

import contextlib
import re
import signal
import unittest
from pathlib import Path

from desktop import wait_until
from note import NAME
from test_shell import PIN, SHOW, ShellTest

SHORTCUTS = ["toggleWindow", "Show / Hide Note", "CTRL+ALT+n"], ["togglePin", "Keep on Top", "CTRL+ALT+p"]
REGISTER, CREATE, BIND = ["Register", NAME], ["CreateSession", *SHORTCUTS], ["BindShortcuts", *SHORTCUTS]
LIST = ["ListShortcuts"]
ALL = [REGISTER, CREATE, LIST, BIND]
FOREIGN_SESSION = "/org/freedesktop/portal/desktop/session/1_1/quillberry"


class TestPortal(ShellTest):
    def setUp(self):
        super().setUp()
        self.note.environment["XDG_SESSION_TYPE"] = "wayland"  # the note runs through the X server of the session

    def start_portal(self, kind, calls=ALL):
        """A portal that has answered all that it was asked for."""
        portal = self.start_service("shortcuts_portal.py", kind)
        wait_until(lambda: self.tell(portal, "answers") == len(calls) - 1, f"a {kind} portal has answered")
        self.assertEqual(self.tell(portal, "calls"), calls)
        return portal

    def assert_gives_keys(self, portal, *more):
        for settled in self.wait_put_away, self.wait_forward:
            self.tell(portal, "press", "toggleWindow")
            settled()
        for shortcut in more:
            pinned = self.setting("pinned") is not False
            self.tell(portal, "press", shortcut)
            self.wait_setting("pinned", not pinned)

    def assert_gives_none(self, portal):
        for shortcut in "toggleWindow", "togglePin", "terminate", "":
            self.tell(portal, "press", shortcut)
        self.assert_nothing_was_asked()

    def assert_nothing_was_asked(self):
        """Since the note was in front: what is asked over the bus takes its turn behind what was asked before."""
        pinned = self.setting("pinned") is not False
        self.note.perform("togglePin")
        self.wait_setting("pinned", not pinned)
        self.assertTrue(self.desktop.is_active(self.note.window))

    def test_keys(self):
        """From a portal that comes late, goes, and comes back; the X server's are left alone."""
        self.start_beside_companion()
        self.press(SHOW, PIN)
        self.assert_nothing_was_asked()
        for kind, pins, calls in (("good", ["togglePin"], ALL), ("old", ["togglePin"], ALL),
                                  ("with one shortcut to give", [], ALL), ("refuses to list", ["togglePin"], ALL),
                                  ("binding with the session", ["togglePin"], [REGISTER, CREATE, LIST])):
            with self.subTest(kind):
                portal = self.start_portal(kind, calls)
                self.assert_gives_keys(portal, *pins)
                self.desktop.end(portal)

    def test_sessions(self):
        """Only presses of the program's own session count, and none after it was closed; a new portal opens another."""
        first = self.start_service("shortcuts_portal.py", "good")
        self.start_beside_companion()
        wait_until(lambda: self.tell(first, "answers") == len(ALL) - 1, "the portal that was there first has answered")
        self.tell(first, "press", "toggleWindow", FOREIGN_SESSION)
        self.tell(first, "send_rubbish")
        self.tell(first, "press", "togglePin")
        self.wait_setting("pinned", False)
        self.assertTrue(self.desktop.is_active(self.note.window))
        self.tell(first, "close")
        self.assert_gives_none(first)
        second = self.start_portal("good")  # takes the name over
        self.assert_gives_keys(second, "togglePin")
        self.assert_gives_none(first)

    def test_refusals_and_rubbish(self):
        self.start_beside_companion()
        for kind in ("refuses session", "no handle", "number for a handle", "no path for a handle",
                     "answer of other types", "nothing"):
            with self.subTest(kind):
                portal = self.start_portal(kind, [REGISTER, CREATE])
                self.assert_gives_none(portal)
                self.assertEqual(self.tell(portal, "calls"), [REGISTER, CREATE])
                self.desktop.end(portal)
        portal = self.start_portal("refuses shortcuts")
        self.assert_gives_none(portal)
        self.desktop.end(portal)
        self.assert_gives_keys(self.start_portal("good"), "togglePin")

    def test_installed_portal_is_started(self):
        """By the bus, as it says itself in a file; that it fails to start harms nothing."""
        services, mark = self.desktop.home / "xdg_data_home/dbus-1/services", self.note.folder / "started"
        services.mkdir(parents=True)
        service = services / "portal.service"
        service.write_text(f"[D-BUS Service]\nName=org.freedesktop.portal.Desktop\nExec=/usr/bin/touch {mark}\n")
        self.addCleanup(self.reload_bus)
        self.addCleanup(service.unlink)
        self.reload_bus()
        self.start_beside_companion()
        wait_until(mark.exists, "the portal is started")
        self.assert_gives_keys(self.start_portal("good"), "togglePin")

    def reload_bus(self):
        self.desktop.call("session", "org.freedesktop.DBus", "/org/freedesktop/DBus",
                          "org.freedesktop.DBus.ReloadConfig")


class TestInstalledPortal(ShellTest):
    """The desktop's own, with a desktop that keeps the keys."""

    def setUp(self):
        super().setUp()
        for package, file in (("xdg-desktop-portal", "/usr/libexec/xdg-desktop-portal"),
                              ("xdg-desktop-portal-kde", "/usr/share/xdg-desktop-portal/portals/kde.portal")):
            if not Path(file).exists():
                raise unittest.SkipTest(f"not installed: {package}")
        environment = {name: self.desktop.environment[name] for name in ("DISPLAY", "WAYLAND_DISPLAY")}
        environment |= {"XDG_CURRENT_DESKTOP": "KDE", "QT_QPA_PLATFORM": "wayland"}
        self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.UpdateActivationEnvironment",
                  "{" + ", ".join(f"'{name}': '{value}'" for name, value in environment.items()) + "}")

    def call(self, *question):
        return self.desktop.call("session", *question)

    def call_keys(self, method, *arguments):
        return self.call("org.kde.kglobalaccel", "/component/quillberry", f"org.kde.kglobalaccel.Component.{method}",
                         *arguments)

    def has_key(self, shortcut, key):
        with contextlib.suppress(AssertionError):
            return re.search(rf"'{shortcut}', [^)]*\[{key}\]", self.call_keys("allShortcutInfos"))
        return None

    def key_hides(self):
        """Whether a press does: the desktop has the key before the program hears of it."""
        self.call_keys("invokeShortcut", "toggleWindow")
        with contextlib.suppress(AssertionError):
            return wait_until(lambda: not self.desktop.is_viewable(self.note.window), "it hides", 4)
        return False

    def test_keys(self):
        """They are the preferred ones, bring the note forward and put it away, and are the same at the next start."""
        for _ in range(2):
            self.start_beside_companion()
            for shortcut, key in ("toggleWindow", 0x0C00004E), ("togglePin", 0x0C000050):  # Ctrl+Alt+N, Ctrl+Alt+P
                wait_until(lambda: self.has_key(shortcut, key), f"the desktop has {key:#x} for {shortcut}")
            wait_until(self.key_hides, "the note is put away")
            self.wait_put_away()
            self.call_keys("invokeShortcut", "toggleWindow")
            self.wait_forward()
            self.note.signal(signal.SIGTERM)
