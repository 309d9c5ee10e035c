#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A keyboard and a pointer in front of a compositor's screen, not of one of its clients, and what is seen on it.

The argument says whose. Takes one command a line, and answers each with one line of JSON."""

import os
import socket
import struct
import sys
import time
from pathlib import Path

import dbus

from obeying import obey

KEYS = {"Escape": 1, "BackSpace": 14, "Return": 28, "\n": 28, "ctrl": 29, "shift": 42, "alt": 56, "space": 57, " ": 57,
        "F6": 64, "Down": 108, "super": 125}  # evdev's
for first, row in (2, "1234567890-="), (16, "qwertyuiop[]"), (30, "asdfghjkl;'`"), (43, "\\zxcvbnm,./"):
    KEYS |= {character: first + place for place, character in enumerate(row)}
BUTTONS = {1: 0x110, 2: 0x112, 3: 0x111}


class Hands:
    """One has key(code, down), button(code, down), move(x, y) and picture(path)."""

    def keys(self, *combinations):
        for combination in combinations:
            codes = [KEYS[name] for name in combination.split("+")]
            for down in True, False:
                for code in codes if down else reversed(codes):
                    self.key(code, down)

    def type(self, text, delay):
        """With that many milliseconds after each character."""
        for character in text:
            self.keys(character)
            time.sleep(delay / 1000)

    def press(self, button=1):
        self.button(BUTTONS[button], True)

    def release(self, button=1):
        self.button(BUTTONS[button], False)


class Mutter(Hands):
    NAME = "org.gnome.Mutter.RemoteDesktop"

    def __init__(self):
        self.bus = dbus.SessionBus()
        creator = self.bus.get_object(self.NAME, "/org/gnome/Mutter/RemoteDesktop")
        path = creator.CreateSession(dbus_interface=self.NAME)
        self.session = dbus.Interface(self.bus.get_object(self.NAME, path), f"{self.NAME}.Session")
        self.session.Start()
        self.session.NotifyPointerMotionRelative(5000.0, 5000.0)  # not to the corner that opens the overview
        self.x, self.y = (int(size) - 1 for size in sys.argv[2:])

    def key(self, code, down):
        self.session.NotifyKeyboardKeycode(dbus.UInt32(code), down)

    def button(self, code, down):
        self.session.NotifyPointerButton(dbus.Int32(code), down)

    def move(self, x, y):
        self.session.NotifyPointerMotionRelative(float(x - self.x), float(y - self.y))
        self.x, self.y = x, y

    def picture(self, path):
        from gi.repository import GdkPixbuf
        shell = self.bus.get_object("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot")
        done, name = shell.Screenshot(False, False, path, dbus_interface="org.gnome.Shell.Screenshot")
        pixels = GdkPixbuf.Pixbuf.new_from_file(name)
        Path(path).write_bytes(pixels.get_pixels())
        return pixels.get_rowstride(), pixels.get_n_channels(), "rgb"


class Wayland(Hands):
    """A client in the protocol's own words: an object, a request's number and size, its arguments."""

    DISPLAY, REGISTRY = 1, 2
    SYNC, GET_REGISTRY, BIND = 0, 1, 0

    def __init__(self):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(os.path.join(os.environ["XDG_RUNTIME_DIR"], os.environ["WAYLAND_DISPLAY"]))
        self.last = self.DISPLAY
        self.globals = {}
        self.request(self.DISPLAY, self.GET_REGISTRY, self.new())
        self.wait()

    def new(self):
        self.last += 1
        return self.last

    def bind(self, interface, version):
        number = self.new()
        self.request(self.REGISTRY, self.BIND, self.globals[interface], interface, version, number)
        return number

    def request(self, number, opcode, *arguments, descriptors=()):
        def packed(argument):
            if isinstance(argument, int):
                return struct.pack("=i", argument)
            text = argument.encode() + b"\0"
            return struct.pack("=I", len(text)) + text + bytes(-len(text) % 4)
        body = b"".join(map(packed, arguments))
        socket.send_fds(self.socket, [struct.pack("=IHH", number, opcode, len(body) + 8) + body], descriptors)

    def send(self, number, opcode, *arguments, frame=None):
        """Comes back when the compositor has taken it."""
        self.request(number, opcode, *arguments)
        if frame is not None:
            self.request(number, frame)
        self.wait()

    def wait(self):
        """Until the compositor has taken all requests."""
        done = self.new()
        self.request(self.DISPLAY, self.SYNC, done)
        number = None
        while number != done:
            number, opcode, size = struct.unpack("=IHH", self.socket.recv(8, socket.MSG_WAITALL))
            body = self.socket.recv(size - 8, socket.MSG_WAITALL)
            if (number, opcode) == (self.DISPLAY, 0):
                sys.exit(f"the compositor refuses: {body}")
            if (number, opcode) == (self.REGISTRY, 0):
                name, length = struct.unpack_from("=II", body)
                self.globals[body[8:7 + length].decode()] = name


class KWin(Wayland):
    AUTHENTICATE, BUTTON, MOVE, KEY = 0, 2, 9, 10

    def __init__(self):
        super().__init__()
        self.input = self.bind("org_kde_kwin_fake_input", 4)
        self.request(self.input, self.AUTHENTICATE, "a user", "a test")

    def key(self, code, down):
        self.send(self.input, self.KEY, code, down)

    def button(self, code, down):
        self.send(self.input, self.BUTTON, code, down)

    def move(self, x, y):
        self.send(self.input, self.MOVE, x * 256, y * 256)

    def picture(self, path):
        screen = dbus.SessionBus().get_object("org.kde.KWin", "/org/kde/KWin/ScreenShot2")
        read_end, write_end = os.pipe()
        told = screen.CaptureActiveScreen({"native-resolution": True}, dbus.types.UnixFd(write_end),
                                          dbus_interface="org.kde.KWin.ScreenShot2")
        os.close(write_end)
        with os.fdopen(read_end, "rb") as pipe:
            Path(path).write_bytes(pipe.read())
        return told["stride"], 4, "bgr"


class Sway(Wayland):
    CREATE = 0
    KEYMAP, KEY, MODIFIERS = 0, 1, 2
    MOVE, BUTTON, FRAME = 1, 2, 4
    MODIFIER = {KEYS["shift"]: 1, KEYS["ctrl"]: 4, KEYS["alt"]: 8}
    US = ('xkb_keymap { xkb_keycodes { include "evdev" }; xkb_types { include "complete" }; '
          'xkb_compat { include "complete" }; xkb_symbols { include "pc+us" }; };')

    def __init__(self):
        super().__init__()
        seat, self.modifiers = self.bind("wl_seat", 1), 0
        self.keyboard, self.pointer = (self.create(f"{name}_manager_v1", seat)
                                       for name in ("zwp_virtual_keyboard", "zwlr_virtual_pointer"))
        with open(os.memfd_create("keymap"), "w+") as keymap:
            keymap.write(self.US + "\0")
            keymap.flush()
            self.request(self.keyboard, self.KEYMAP, 1, len(self.US) + 1, descriptors=[keymap.fileno()])

    def create(self, manager, seat):
        manager, created = self.bind(manager, 1), self.new()
        self.request(manager, self.CREATE, seat, created)
        return created

    @staticmethod
    def now():
        return int(time.monotonic() * 1000) % 2**31

    def key(self, code, down):
        self.request(self.keyboard, self.KEY, self.now(), code, down)
        self.modifiers ^= self.MODIFIER.get(code, 0)
        self.send(self.keyboard, self.MODIFIERS, self.modifiers, 0, 0, 0)

    def button(self, code, down):
        self.send(self.pointer, self.BUTTON, self.now(), code, down, frame=self.FRAME)

    def move(self, x, y):
        """In two steps: XWayland looks which window is below the pointer at the second one into its windows only."""
        for step in 1, 0:
            place = max(x - step, 0), y, *map(int, sys.argv[2:])
            self.send(self.pointer, self.MOVE, self.now(), *place, frame=self.FRAME)


if __name__ == "__main__":
    hands = {"mutter": Mutter, "kwin": KWin, "sway": Sway}[sys.argv[1]]()
    hands.keys("shift")  # the first key of all is lost while programs learn that there is a keyboard
    obey(hands)
