# SPDX-License-Identifier: MIT
"""Hot keys of a Wayland session: the desktop's portal gives them."""

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
        portal = self.desktop.start_service("shortcuts_portal.py", kind)
        wait_until(lambda: self.desktop.tell(portal, "answers") == len(calls) - 1, f"a {kind} portal has answered")
        self.assertEqual(self.desktop.tell(portal, "calls"), calls)
        return portal

    def assert_gives_keys(self, portal, *more):
        for settled in self.wait_put_away, self.wait_forward:
            self.desktop.tell(portal, "press", "toggleWindow")
            settled()
        for shortcut in more:
            pinned = self.setting("pinned") is not False
            self.desktop.tell(portal, "press", shortcut)
            self.wait_setting("pinned", not pinned)

    def assert_gives_none(self, portal):
        for shortcut in "toggleWindow", "togglePin", "terminate", "":
            self.desktop.tell(portal, "press", shortcut)
        self.assert_nothing_was_asked()

    def assert_nothing_was_asked(self):
        """Since the note was in front: what is asked over the bus takes its turn behind what was asked before."""
        pinned = self.setting("pinned") is not False
        self.note.perform("togglePin")
        self.wait_setting("pinned", not pinned)
        self.assertTrue(self.desktop.is_active(self.note.window))

    def test_keys(self):
        """From a portal that comes late, goes, and comes back; without one, in the program's own windows alone."""
        self.start_beside_companion()
        self.desktop.activate(self.companion)
        self.press(SHOW, PIN)
        self.note.perform("togglePin")  # takes its turn behind them
        self.wait_setting("pinned", False)
        self.assertTrue(self.desktop.is_active(self.companion))
        self.desktop.activate(self.note.window)
        self.press(PIN)
        self.wait_setting("pinned", True)
        self.press(SHOW)
        self.wait_put_away()
        self.note.perform("toggleWindow")
        self.wait_forward()
        for kind, pins, calls in (("good", ["togglePin"], ALL), ("slow, and without a registry of programs", ["togglePin"], ALL),
                                  ("with one shortcut to give", [], ALL), ("refuses to list", ["togglePin"], ALL),
                                  ("says that it has failed", ["togglePin"], ALL),
                                  ("lists other types", ["togglePin"], ALL),
                                  ("binding with the session", ["togglePin"], [REGISTER, CREATE, LIST])):
            with self.subTest(kind):
                portal = self.start_portal(kind, calls)
                self.assert_gives_keys(portal, *pins)
                self.desktop.end(portal)

    def test_sessions(self):
        """Only presses of the program's own session count; one that is closed is made anew, with a new portal too."""
        self.start_beside_companion()
        first = self.start_portal("good")
        self.desktop.tell(first, "press", "toggleWindow", FOREIGN_SESSION)
        self.desktop.tell(first, "press", "togglePin")
        self.wait_setting("pinned", False)
        self.assertTrue(self.desktop.is_active(self.note.window))
        self.desktop.tell(first, "close")
        wait_until(lambda: self.desktop.tell(first, "calls") == ALL + ALL[1:], "the closed session is made anew")
        wait_until(lambda: self.desktop.tell(first, "answers") == 2 * (len(ALL) - 1), "the portal has answered again")
        self.assert_gives_keys(first, "togglePin")
        second = self.start_portal("good")  # takes the name over
        self.assert_gives_keys(second, "togglePin")
        self.assert_gives_none(first)

    def test_other_keys(self):
        """The menu tells of what the user has chosen in the desktop's settings, then and now."""
        host = self.desktop.start_service("notifier_host.py")
        self.start_beside_companion()
        portal = self.start_portal("with other keys")

        def is_told(keys):
            return self.desktop.tell(host, "menu")[0] == ["Show / Hide Note", keys, None]
        wait_until(lambda: is_told("Super+N"), "the keys of the portal")
        for keys, told in (("Ctrl+Shift+7", "Control+Shift+7"), ("Press <Control><Alt>m", "Control+Alt+M"),
                           ("Push the lamp", None), ("", "Control+Alt+N")):
            self.desktop.tell(portal, "rename", keys)
            wait_until(lambda: is_told(told), f"{keys} in the menu")

    def test_refusals_and_rubbish(self):
        self.start_beside_companion()
        for kind in "refuses session", "number for a handle", "answer of other types":
            with self.subTest(kind):
                portal = self.start_portal(kind, [REGISTER, CREATE])
                self.assert_gives_none(portal)
                self.assertEqual(self.desktop.tell(portal, "calls"), [REGISTER, CREATE])
                self.desktop.end(portal)
        self.assert_gives_keys(self.start_portal("good"), "togglePin")
