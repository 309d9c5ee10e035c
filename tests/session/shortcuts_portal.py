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

# kind: what it answers to some methods, signature and values, where that is not what is right.
KINDS = {
    "good": {},
    SLOW: {},
    "binding with the session": {},
    "with one shortcut to give": {},
    "with other keys": {},
    "lists other types": {"ListShortcuts": ("ua{sv}", GRANTED, {"shortcuts": dbus.Array(["x"])})},
    "refuses to list": {"ListShortcuts": ("ua{sv}", REFUSED, {})},
    "refuses session": {"CreateSession": ("ua{sv}", REFUSED, {})},
    "says that it has failed": {"BindShortcuts": ("ua{sv}", FAILED, {})},  # GNOME 48, when the user has agreed
    "number for a handle": {"CreateSession": ("ua{sv}", GRANTED, {"session_handle": dbus.Int32(1)})},
    "answer of other types": {"CreateSession": ("s", "granted")},
}


def described(shortcuts):
    return [[name, properties["description"], properties["preferred_trigger"]] for name, properties in shortcuts]


class Portal(dbus.service.Object):
    def __init__(self, bus, kind):
        super().__init__(bus, PATH)
        self.bus, self.kind = bus, kind
        self.calls, self.answers, self.session, self.shortcuts = [], 0, None, None

    def _send(self, path, interface, name, signature, *values):
        message = dbus.lowlevel.SignalMessage(path, interface, name)
        message.append(*values, signature=signature)
        self.bus.send_message(message)

    def _answer(self, method, sender, options, results):
        """Answers before the reply to the call, as a quick portal may; the slow kind after it."""
        path = f"{PATH}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        answer = KINDS[self.kind].get(method, ("ua{sv}", GRANTED, results))

        def send():
            self._send(path, REQUEST, "Response", *answer)
            self.answers += 1
        if self.kind == SLOW:
            GLib.timeout_add(200, send)
        else:
            send()
        return dbus.ObjectPath(path)

    @dbus.service.method("org.freedesktop.host.portal.Registry", in_signature="sa{sv}", sender_keyword="sender")
    def Register(self, app_id, options, sender):
        self.calls.append(["Register", app_id])
        if self.kind == SLOW:
            raise dbus.DBusException("", name="org.freedesktop.DBus.Error.UnknownMethod")

    @dbus.service.method(SHORTCUTS, in_signature="a{sv}", out_signature="o", sender_keyword="sender")
    def CreateSession(self, options, sender):
        self.calls.append(["CreateSession", *described(options["shortcuts"])])
        self.shortcuts = options["shortcuts"]
        self.session = f"{PATH}/session/{sender[1:].replace('.', '_')}/{options['session_handle_token']}"
        return self._answer("CreateSession", sender, options, {"session_handle": self.session})

    @dbus.service.method(SHORTCUTS, in_signature="oa{sv}", out_signature="o", sender_keyword="sender")
    def ListShortcuts(self, session, options, sender):
        self.calls.append(["ListShortcuts"])
        bound = self.shortcuts if self.kind == "binding with the session" else dbus.Array([], signature="(sa{sv})")
        return self._answer("ListShortcuts", sender, options, {"shortcuts": bound})

    @dbus.service.method(SHORTCUTS, in_signature="oa(sa{sv})sa{sv}", out_signature="o", sender_keyword="sender")
    def BindShortcuts(self, session, shortcuts, parent, options, sender):
        assert session == self.session
        self.calls.append(["BindShortcuts", *described(shortcuts)])
        bound = shortcuts[:1] if self.kind == "with one shortcut to give" else shortcuts
        if self.kind == "with other keys":
            bound = self.named("Meta+N")
        return self._answer("BindShortcuts", sender, options, {"shortcuts": bound})

    def named(self, keys):
        """The first shortcut, by other keys."""
        return dbus.Array([(self.shortcuts[0][0], {"trigger_description": keys})], signature="(sa{sv})")

    def press(self, shortcut, session=None):
        options = {"activation_token": "token"}
        self._send(PATH, SHORTCUTS, "Activated", "osta{sv}", session or self.session, shortcut, 0, options)

    def rename(self, keys):
        for kind, shortcuts in ("as", ["x"]), ("a{sv}", {"x": "y"}), ("a(sa{sv})", self.named(keys)):
            self._send(PATH, SHORTCUTS, "ShortcutsChanged", "o" + kind, self.session, shortcuts)

    def close(self):
        self._send(self.session, SESSION, "Closed", "a{sv}", {})


def main():
    bus = dbus.SessionBus()
    portal = Portal(bus, sys.argv[1])
    # The object first: callers come with the name.
    name = dbus.service.BusName(NAME, bus, allow_replacement=True, replace_existing=True)
    obey(portal)
    del name


if __name__ == "__main__":
    main()
