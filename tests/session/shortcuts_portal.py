#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A desktop's portal of global shortcuts, of the kind that is named as the argument; see KINDS.

Takes one command a line, and answers each with one line of JSON."""

import sys

import dbus
import dbus.lowlevel
import dbus.service
from gi.repository import GLib

from obeying import obey

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SHORTCUTS = "org.freedesktop.portal.GlobalShortcuts"
SESSION, REQUEST = "org.freedesktop.portal.Session", "org.freedesktop.portal.Request"
GRANTED, REFUSED, FAILED = range(3)
SLOW = "slow, and without a registry of programs"

# kind: what it answers to a method, signature and values, where that is not what is right.
KINDS = {
    "good": {},
    SLOW: {},
    "binding with the session": {"ListShortcuts": lambda portal: ("ua{sv}", GRANTED, {"shortcuts": portal.shortcuts})},
    "with one shortcut to give": {
        "BindShortcuts": lambda portal: ("ua{sv}", GRANTED, {"shortcuts": portal.shortcuts[:1]})},
    "with other keys": {"BindShortcuts": lambda portal: ("ua{sv}", GRANTED, {"shortcuts": portal.named("Meta+N")})},
    "refuses session": {"CreateSession": lambda _: ("ua{sv}", REFUSED, {})},
    "says that it has failed": {"BindShortcuts": lambda _: ("ua{sv}", FAILED, {})},  # GNOME 48, when the user agreed
    "answer of other types": {"CreateSession": lambda _: ("s", "granted")},
}


class Portal(dbus.service.Object):
    def __init__(self, bus, kind):
        super().__init__(bus, PATH)
        self.bus, self.kind = bus, kind
        self.calls, self.answers, self.session, self.shortcuts = [], 0, None, None

    def _send(self, path, interface, name, signature, *values):
        message = dbus.lowlevel.SignalMessage(path, interface, name)
        message.append(*values, signature=signature)
        self.bus.send_message(message)

    def _answer(self, call, sender, options, results):
        """Answers before the reply to the call, as a quick portal may; the slow kind after it."""
        path = f"{PATH}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        answer = KINDS[self.kind].get(call, lambda _: ("ua{sv}", GRANTED, results))(self)

        def send():
            self._send(path, REQUEST, "Response", *answer)
            self.answers += 1
        if self.kind == SLOW:
            GLib.timeout_add(200, send)
        else:
            send()
        return dbus.ObjectPath(path)

    def _note(self, call, shortcuts=()):
        self.calls.append([call, *([name, told["description"], told["preferred_trigger"]] for name, told in shortcuts)])

    @dbus.service.method("org.freedesktop.host.portal.Registry", in_signature="sa{sv}")
    def Register(self, app_id, options):
        self.calls.append(["Register", app_id])
        if self.kind == SLOW:
            raise dbus.DBusException("", name="org.freedesktop.DBus.Error.UnknownMethod")

    @dbus.service.method(SHORTCUTS, in_signature="a{sv}", out_signature="o", sender_keyword="sender")
    def CreateSession(self, options, sender):
        self.shortcuts = options["shortcuts"]
        self._note("CreateSession", self.shortcuts)
        self.session = f"{PATH}/session/{sender[1:].replace('.', '_')}/{options['session_handle_token']}"
        return self._answer("CreateSession", sender, options, {"session_handle": self.session})

    @dbus.service.method(SHORTCUTS, in_signature="oa{sv}", out_signature="o", sender_keyword="sender")
    def ListShortcuts(self, session, options, sender):
        self._note("ListShortcuts")
        return self._answer("ListShortcuts", sender, options, {"shortcuts": dbus.Array([], signature="(sa{sv})")})

    @dbus.service.method(SHORTCUTS, in_signature="oa(sa{sv})sa{sv}", out_signature="o", sender_keyword="sender")
    def BindShortcuts(self, session, shortcuts, parent, options, sender):
        assert session == self.session
        self._note("BindShortcuts", shortcuts)
        return self._answer("BindShortcuts", sender, options, {"shortcuts": shortcuts})

    def named(self, keys):
        """The first shortcut, by other keys."""
        return dbus.Array([(self.shortcuts[0][0], {"trigger_description": keys})], signature="(sa{sv})")

    def press(self, shortcut, session=None):
        options = {"activation_token": "token"}
        for signal in "Activated", "Deactivated":
            self._send(PATH, SHORTCUTS, signal, "osta{sv}", session or self.session, shortcut, 0, options)

    def rename(self, keys):
        for kind, shortcuts in ("as", ["x"]), ("a{sv}", {"x": "y"}), ("a(sa{sv})", self.named(keys)):
            self._send(PATH, SHORTCUTS, "ShortcutsChanged", "o" + kind, self.session, shortcuts)

    def close(self):
        self._send(self.session, SESSION, "Closed", "a{sv}", {})


if __name__ == "__main__":
    session_bus = dbus.SessionBus()
    played = Portal(session_bus, sys.argv[1])
    # The object first: callers come with the name.
    owned = dbus.service.BusName(NAME, session_bus, allow_replacement=True, replace_existing=True)
    obey(played)
