# SPDX-License-Identifier: MIT
"""What the desktop offers its programs: actions, wake, login, input methods, a portal of keys."""

import json
import os
import signal
import subprocess
import time

from desktop import DEBIAN_PYTHON, NotStarted, soon, wait_until
from note import NAME, PIN, SHOW, SessionTest, options

LOGIN, LOGIN_PATH = "org.freedesktop.login1", "/org/freedesktop/login1"
SAVER, SAVER_PATH = "org.xfce.ScreenSaver", "/org/xfce/ScreenSaver"
DISPLAYS, DISPLAYS_PATH = "org.gnome.Mutter.DisplayConfig", "/org/gnome/Mutter/DisplayConfig"
SHORTCUTS = ["toggleWindow", "Show / Hide Note", "CTRL+ALT+n"], ["togglePin", "Keep on Top", "CTRL+ALT+p"]
CREATED = [["Register", NAME], ["CreateSession", *SHORTCUTS]]
BOUND = [*CREATED, ["ListShortcuts"], ["BindShortcuts", *SHORTCUTS]]


class TestReturn(SessionTest):
    """Of the user to the machine, as services tell of it that start after the note."""

    def setUp(self):
        super().setUp()
        self.note.start()
        self.note.hide()
        if not self.desktop.has_owner("system", LOGIN):  # a whole session has one
            self.start_mock("system", LOGIN, "--template", "logind")
        self.mock("system", LOGIN, LOGIN_PATH, "AddSession", "1", "seat0", str(os.getuid()), "me", "true")
        self.start_mock("session", SAVER, SAVER, SAVER_PATH, SAVER)
        self.sources = [self.lock, self.save_screen]
        if self.desktop.name != "mutter":  # which finds no display under Xvfb that it could darken
            self.sources.append(self.darken_display)
            if not self.desktop.has_owner("session", DISPLAYS):
                self.start_mock("session", DISPLAYS, DISPLAYS, DISPLAYS_PATH, DISPLAYS)
                self.mock("session", DISPLAYS, DISPLAYS_PATH, "AddProperty", DISPLAYS, "PowerSaveMode", "<0>")
        if "WAYLAND_DISPLAY" not in self.desktop.environment:  # else there is a server's saver that saves no screen
            self.sources.append(self.blank_x_screen)

    def start_mock(self, bus, name, *what):
        self.desktop.spawn(DEBIAN_PYTHON, "-m", "dbusmock", f"--{bus}", *what)
        wait_until(lambda: self.desktop.has_owner(bus, name), name)

    def mock(self, bus, name, path, method, *arguments):
        self.desktop.call(bus, name, path, f"org.freedesktop.DBus.Mock.{method}", *arguments)

    def lock(self, away):
        self.mock("system", LOGIN, f"{LOGIN_PATH}/session/1", "UpdateProperties", f"{LOGIN}.Session",
                  f"{{'LockedHint': <{str(away).lower()}>}}")

    def save_screen(self, away):
        self.mock("session", SAVER, SAVER_PATH, "EmitSignal", SAVER, "ActiveChanged", "b", f"[<{str(away).lower()}>]")

    def darken_display(self, away):
        """By mutter itself where it runs."""
        self.desktop.call("session", DISPLAYS, DISPLAYS_PATH, "org.freedesktop.DBus.Properties.Set", DISPLAYS,
                          "PowerSaveMode", f"<{3 if away else 0}>")

    def blank_x_screen(self, away):
        for state in ("on", "activate") if away else ("reset",):
            self.desktop.run("xset", "s", state)

    def sleep(self, away):
        self.mock("system", LOGIN, LOGIN_PATH, "EmitSignal", f"{LOGIN}.Manager", "PrepareForSleep", "b",
                  f"[<{str(away).lower()}>]")

    def assert_stays_hidden(self):
        time.sleep(1.2)  # twice the time after which a return shows the note
        self.assertFalse(self.note.is_shown())

    def test_return(self):
        """Each by itself brings the note forward."""
        for tell in *self.sources, self.sleep:
            wait_until(lambda: tell(True) or tell(False) or soon(self.note.is_shown, 2), f"shown at {tell.__name__}")
            self.note.wait_active()
            self.note.signal(signal.SIGTERM)
            self.note.start()
            self.note.hide()

    def test_no_return(self):
        """Of who was never away, nor as a stranger says."""
        for tell in self.sources * 3:
            tell(False)
        for active in "true", "false":
            self.desktop.run("gdbus", "emit", "--session", "--object-path", SAVER_PATH, "--signal",
                             f"{SAVER}.ActiveChanged", active)
        self.assert_stays_hidden()
        self.save_screen(True)
        self.save_screen(False)
        self.note.wait_active()  # it has heard all the time

    def test_locker(self):
        """That has the keyboard: the note waits behind it."""
        locker = self.desktop.spawn("i3lock", "--nofork", "--color=202020")

        def is_locked():
            before = self.note.settings.read_text()
            self.press(PIN)
            time.sleep(1)  # ample for a hot key that is free
            return self.note.settings.read_text() == before
        wait_until(is_locked, "the locker has the keyboard")
        self.sleep(False)
        self.assert_stays_hidden()
        self.desktop.end(locker)
        self.note.wait_active()


class TestServices(SessionTest):
    def test_actions(self):
        """The menu's alone, without a parameter; and Ctrl with letters edits as everywhere."""
        self.note.start()
        for action, parameter in (("showWindow", "[]"), ("", "[]"), ("toggleWindow", "[<true>]")):
            with self.subTest(action, parameter=parameter), self.assertRaisesRegex(AssertionError, "InvalidArgs"):
                self.note.perform(action, parameter)
        self.note.type("one")
        for keys, text in (("ctrl+a", "one"), ("ctrl+c", "one"), ("ctrl+v", "one"), ("ctrl+v", "oneone"),
                           ("ctrl+z", "one"), ("ctrl+shift+z", "oneone"), ("ctrl+a", "oneone"), ("ctrl+x", "")):
            self.press(keys)
            self.note.wait_for_text(text)

    def test_start_at_login(self):
        self.start_beside_companion()
        entry = self.note.folder / f"config/autostart/{NAME}.desktop"
        self.note.hide()
        subprocess.run(["gio", "launch", entry], env=self.note.environment, timeout=20, check=True)
        self.note.wait_active()  # what the entry starts is this program
        for hidden in "true", "false":
            self.note.perform("toggleLaunchAtLogin")
            wait_until(lambda: f"Hidden={hidden}" in entry.read_text(), f"the entry says Hidden={hidden}")

    def test_no_display(self):
        done = self.note.run_to_end(DISPLAY=None)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"\AQuillberry: .*display.*\n\Z")

    def silent_buses(self, silent_at_start):
        """Buses that do not answer before the start, or during the run; they do again, and are silent at the end."""
        buses = []
        for name in "SESSION", "SYSTEM":
            bus, self.note.environment[f"DBUS_{name}_BUS_ADDRESS"] = self.desktop.start_bus()
            buses.append(bus)
        self.note.environment |= {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}  # the theme asks a bus too

        def send(number):
            for bus in buses:
                bus.send_signal(number)

        def wait_until_connected():  # for which Qt waits, however long
            def rules():
                return self.desktop.run("dbus-send", "--system", "--print-reply", "--dest=org.freedesktop.DBus",
                                        "/org/freedesktop/DBus", "org.freedesktop.DBus.Debug.Stats.GetAllMatchRules",
                                        environment=self.note.environment)
            wait_until(lambda: LOGIN in rules(), "it is connected")
            self.assertNotIn(f"sender='{LOGIN}'", rules(), "such a rule is of a call that waits for the bus")
        if silent_at_start:
            send(signal.SIGSTOP)
            self.note.start()
        else:
            self.note.start()
            wait_until_connected()
            send(signal.SIGSTOP)
            second = self.desktop.spawn(options.binary, environment=self.note.environment, stderr=subprocess.PIPE,
                                        text=True)
        self.note.type("a")
        self.note.wait_for_text("a")
        if not silent_at_start:
            self.assertRegex(second.communicate(timeout=10)[1], r"\AQuillberry: .*session bus.*\n\Z")
            self.assertEqual(second.returncode, 1)
        self.note.hide()
        send(signal.SIGCONT)
        self.note.start_again()
        wait_until_connected()
        send(signal.SIGSTOP)
        self.assertEqual(self.note.signal(signal.SIGTERM), 0)

    def test_buses_silent_from_the_start(self):
        self.silent_buses(True)

    def test_buses_that_fall_silent(self):
        self.silent_buses(False)


class TestInputMethod(SessionTest):
    ENGINE = "m17n:vi:telex"

    def test_composed_text(self):
        """From an engine that composes words; what is open when the note is put away, or ended, is kept.

        Tried again, more slowly each time: on a busy machine Qt hands on keys ahead of what was composed, and the end
        comes ahead of the last keys.
        """
        self.start_input_method()

        def end():
            self.assertEqual(self.note.signal(signal.SIGTERM), 0)

        def text_written(patience):
            self.press("ctrl+a", "BackSpace")
            self.desktop.type("vieetj nam tieengs", delay=60 * patience)
            time.sleep(patience - 1)
            put_away()
            text = self.note.text()
            show()
            return text
        for put_away, show in (self.note.hide, self.note.start_again), (end, self.note.start):
            texts = []
            while "việt nam tiếng" not in texts:
                self.assertLess(len(texts), 4, texts)
                texts.append(text_written(patience=2 ** len(texts)))

    def start_input_method(self):
        """The note with an engine of the input method's that is on."""
        address = self.note.folder / "input-method"
        self.note.environment |= {"QT_IM_MODULE": "ibus", "IBUS_ADDRESS_FILE": str(address),
                                  "GSETTINGS_BACKEND": "memory"}

        def ask(*question):
            return subprocess.run(["ibus", *question], env=self.note.environment, capture_output=True, text=True,
                                  timeout=20).stdout
        try:
            self.desktop.spawn("ibus-daemon", "--panel=disable", "--config=disable", environment=self.note.environment)
            wait_until(address.exists, "an input method")
        except (OSError, AssertionError) as error:
            raise NotStarted(f"ibus-daemon: {error}") from error
        self.note.start()
        wait_until(lambda: self.ENGINE in ask("engine", self.ENGINE) + ask("engine"), "the engine is on")


class TestPortal(SessionTest):
    """Hot keys of a Wayland session: the desktop's portal gives them, a played one here."""

    def setUp(self):
        super().setUp()
        self.note.environment["XDG_SESSION_TYPE"] = "wayland"  # the note runs through the X server of the session
        self.start_beside_companion()

    def start_portal(self, kind, calls=BOUND):
        """A portal that has answered all that it was asked for."""
        portal = self.desktop.start_service("shortcuts_portal.py", kind)
        wait_until(lambda: self.desktop.tell(portal, "answers") == len(calls) - 1, f"a {kind} portal has answered")
        self.assertEqual(self.desktop.tell(portal, "calls"), calls)
        return portal

    def assert_gives_keys(self, portal, *more):
        for settled in self.wait_put_away, self.note.wait_active:
            self.desktop.tell(portal, "press", "toggleWindow")
            settled()
        for shortcut in more:
            self.wait_pin_changed(lambda: self.desktop.tell(portal, "press", shortcut))

    def wait_pin_changed(self, act):
        pinned = json.loads(self.note.settings.read_text()).get("pinned", True)
        act()
        self.note.wait_setting("pinned", not pinned)

    def assert_gives_none(self, portal, *session):
        """What is asked over the bus takes its turn behind what was asked before."""
        for shortcut in "toggleWindow", "togglePin", "terminate", "":
            self.desktop.tell(portal, "press", shortcut, *session)
        self.wait_pin_changed(lambda: self.note.perform("togglePin"))
        self.assertTrue(self.desktop.is_active(self.note.window))

    def test_keys(self):
        """From a portal that comes late, goes, and comes back; without one, in the program's own windows alone."""
        self.desktop.activate(self.companion)
        self.press(SHOW, PIN)
        self.note.perform("togglePin")  # takes its turn behind them
        self.note.wait_setting("pinned", False)
        self.assertTrue(self.desktop.is_active(self.companion))
        self.desktop.activate(self.note.window)
        self.wait_pin_changed(lambda: self.press(PIN))
        self.press(SHOW)
        self.wait_put_away()
        self.note.start_again()
        for kind, calls in (("good", BOUND), ("slow, and without a registry of programs", BOUND),
                            ("with one shortcut to give", BOUND), ("says that it has failed", BOUND),
                            ("binding with the session", BOUND[:3])):
            with self.subTest(kind):
                portal = self.start_portal(kind, calls)
                self.assert_gives_keys(portal, *([] if "one" in kind else ["togglePin"]))
                self.desktop.end(portal)

    def test_sessions(self):
        """Only presses of the program's own session count; one that is closed is made anew, with a new portal too."""
        first = self.start_portal("good")
        self.assert_gives_none(first, "/org/freedesktop/portal/desktop/session/1_1/quillberry")
        self.desktop.tell(first, "close")
        wait_until(lambda: self.desktop.tell(first, "calls") == BOUND + BOUND[1:], "the closed session is made anew")
        wait_until(lambda: self.desktop.tell(first, "answers") == 6, "the portal has answered again")
        self.assert_gives_keys(first, "togglePin")
        second = self.start_portal("good")  # takes the name over
        self.assert_gives_keys(second, "togglePin")
        self.assert_gives_none(first)
        for kind in "refuses session", "answer of other types":
            self.assert_gives_none(self.start_portal(kind, CREATED))

    def test_other_keys(self):
        """The menu tells of what the user has chosen in the desktop's settings, then and now."""
        host = self.desktop.start_service("notifier_host.py")
        portal = self.start_portal("with other keys")

        def is_told(keys):
            return self.desktop.tell(host, "menu")[0] == ["Show / Hide Note", keys, None]
        wait_until(lambda: self.desktop.tell(host, "items") and is_told("Super+N"), "the keys of the portal")
        for keys, told in (("Ctrl+Shift+7", "Control+Shift+7"), ("Press <Control><Alt>m", "Control+Alt+M"),
                           ("Push the lamp", None), ("", "Control+Alt+N")):
            self.desktop.tell(portal, "rename", keys)
            wait_until(lambda: is_told(told), f"{keys} in the menu")
