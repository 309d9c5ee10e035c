#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A host of notifier items, as a panel has one: reads the item's exported menu and presses its entries.

Takes one command a line, and answers each with one line of JSON."""

import dbus
import dbus.service

from obeying import obey

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
PROPERTIES = {"IsStatusNotifierHostRegistered": True, "ProtocolVersion": dbus.Int32(0)}


class Watcher(dbus.service.Object):
    """Watcher and host in one."""

    items = []

    @dbus.service.method(WATCHER, in_signature="s", sender_keyword="sender")
    def RegisterStatusNotifierItem(self, service, sender):
        self.items.append((sender, service) if service.startswith("/") else (service, "/StatusNotifierItem"))

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        return PROPERTIES[name]

    @dbus.service.method(dbus.INTROSPECTABLE_IFACE, out_signature="s", path_keyword="path", connection_keyword="bus")
    def Introspect(self, path, bus):
        mine = f'<interface name="{WATCHER}">'
        declared = '<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>'
        return dbus.service.Object.Introspect(self, path, bus).replace(mine, mine + declared)


class Host:
    def __init__(self, bus):
        self.bus = bus
        self.watcher = Watcher(bus, "/StatusNotifierWatcher")
        self.name = dbus.service.BusName(WATCHER, bus)

    def items(self):
        return len([name for name, _ in self.watcher.items if self.bus.name_has_owner(name)])

    def _item(self):
        return self.bus.get_object(*self.watcher.items[-1], introspect=False)

    def activate(self):
        self._item().Activate(0, 0, dbus_interface=ITEM)

    def _menu(self):
        path = self._item().Get(ITEM, "Menu", dbus_interface=dbus.PROPERTIES_IFACE)
        return self.bus.get_object(self.watcher.items[-1][0], path, introspect=False)

    def _entries(self):
        root = self._menu().GetLayout(0, -1, dbus.Array(signature="s"), dbus_interface=MENU)[1]
        return [(entry[0], entry[1]) for entry in root[2]]

    def menu(self):
        return [["---"] if entry.get("type") == "separator" else
                [entry["label"], "+".join(entry["shortcut"][0]) if "shortcut" in entry else None,
                 bool(entry["toggle-state"]) if "toggle-type" in entry else None]
                for _, entry in self._entries()]

    def press(self, label):
        number = next(number for number, entry in self._entries() if entry.get("label") == label)
        self._menu().Event(number, "clicked", dbus.String("", variant_level=1), dbus.UInt32(0), dbus_interface=MENU)


if __name__ == "__main__":
    obey(Host(dbus.SessionBus()))
