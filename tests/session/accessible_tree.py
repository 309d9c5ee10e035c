#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What a screen reader is told of a program, whose process id is the argument: prints its tree of accessible objects
as JSON, null if it is not on the accessibility bus."""

import json
import sys

import dbus

ACCESSIBLE = "org.a11y.atspi.Accessible"
BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")
ROOT = "/org/a11y/atspi/accessible/root"
STATES = {1: "active", 7: "editable", 8: "enabled", 11: "focusable", 12: "focused", 17: "multi-line", 25: "showing",
          39: "default"}


def describe(bus, name, path):
    found = bus.get_object(name, path, introspect=False)

    def ask(method):
        return getattr(found, method)(dbus_interface=ACCESSIBLE)

    def get(property):
        return found.Get(ACCESSIBLE, property, dbus_interface=dbus.PROPERTIES_IFACE)
    low, high = ask("GetState")
    bits = int(low) | int(high) << 32
    return {"role": ask("GetRoleName"), "name": get("Name"),
            "states": [state for number, state in STATES.items() if bits >> number & 1],
            "children": [describe(bus, *child) for child in ask("GetChildren")]}


def main():
    address = dbus.SessionBus().get_object("org.a11y.Bus", "/org/a11y/bus").GetAddress(dbus_interface="org.a11y.Bus")
    bus = dbus.bus.BusConnection(address)
    desktop = bus.get_object("org.a11y.atspi.Registry", ROOT, introspect=False)
    for name, path in desktop.GetChildren(dbus_interface=ACCESSIBLE):
        if bus.call_blocking(*BUS, "GetConnectionUnixProcessID", "s", [name]) == int(sys.argv[1]):
            return describe(bus, name, path)
    return None


if __name__ == "__main__":
    json.dump(main(), sys.stdout)
