# SPDX-License-Identifier: MIT
"""The loop of a helper: one command a line, each answered with one line of JSON."""

import json
import sys

from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

DBusGMainLoop(set_as_default=True)


def obey(helper):
    loop = GLib.MainLoop()

    def take(source, condition):
        line = sys.stdin.readline()
        if not line:
            loop.quit()
            return False
        command, *arguments = json.loads(line)
        member = getattr(helper, command)
        print(json.dumps(member(*arguments) if callable(member) else member), flush=True)
        return True
    GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN | GLib.IO_HUP, take)
    print("ready", flush=True)
    loop.run()
