# SPDX-License-Identifier: MIT
"""Real desktops, each with a display and a session bus of its own: a window manager on a virtual X server, or a
Wayland compositor in a window that fills one; keyboard, pointer and screen are the server's, windows are XWayland's."""

import contextlib
import json
import os
import re
import shutil
import signal
import struct
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from kinds import KINDS, SCREEN

TOOLS = ("Xvfb", "dbus-daemon", "xdotool", "xprop", "xwininfo", "wmctrl", "xterm", "i3lock", "tint2")
# Tells the environment of a compositor's session.
ANNOUNCE = "#!/bin/sh\nenv -0 > {home}/telling\nmv {home}/telling {home}/told\nexec sleep infinity\n"
ANNOUNCED = "DISPLAY", "XAUTHORITY", "WAYLAND_DISPLAY", "SWAYSOCK", "SESSION_MANAGER"
NOBODY = 65534
FONTS = Path(__file__).resolve().parent.parent / "fonts.conf"
DEBIAN_PYTHON = "/usr/bin/python3"  # has the modules of the packages

# Where every desktop is installed, one that does not start is a fault.
NotStarted = AssertionError if os.environ.get("CI") else unittest.SkipTest


def soon(predicate, timeout=1):
    """The first true value of the predicate, or the last one in time."""
    deadline = time.monotonic() + timeout
    while not (value := predicate()) and time.monotonic() < deadline:
        time.sleep(0.02)
    return value


def wait_until(predicate, what, timeout=20):
    """The first true value of the predicate; AssertionError if none comes in time."""
    value = soon(predicate, timeout)
    assert value, f"not within {timeout} s: {what() if callable(what) else what}"
    return value


class Picture:
    """Of an X server's screen: each pixel is a colour of red, green and blue."""

    def __init__(self, file):
        header = struct.unpack(">25I", file[:100])
        self.bytes, self.line, self.step = file[header[0] + 12 * header[19]:], header[12], header[11] // 8

    def __getitem__(self, place):
        start = place[1] * self.line + place[0] * self.step
        return tuple(self.bytes[start:start + 3][::-1])


class Desktop:
    """A context; what was started in it ends with it."""

    def __init__(self, name, screen=SCREEN):
        self.name, self.kind, self.screen = name, KINDS[name], screen
        self._stack = contextlib.ExitStack()

    def __enter__(self):
        for is_last in False, False, True:  # at its start KWin at times aborts, and GNOME Shell hangs
            with contextlib.ExitStack() as self._stack:
                try:
                    self._start()
                    self._stack = self._stack.pop_all()
                    break
                except (AssertionError, OSError, subprocess.TimeoutExpired) as error:
                    if is_last:
                        raise NotStarted(str(error)) from error
        return self

    def __exit__(self, *_):
        self._stack.close()

    def _start(self):
        kind, where = self.kind, f"{os.environ['PATH']}:/usr/libexec"
        missing = [tool for tool in (*TOOLS, *kind.programs.split()) if not shutil.which(tool, path=where)]
        assert not missing, f"not installed: {', '.join(missing)}"
        self.home = Path(self._stack.enter_context(tempfile.TemporaryDirectory(ignore_cleanup_errors=True)))
        self._stack.callback(self._end_helpers)
        self.environment = {key: value for key, value in os.environ.items() if key == "PATH" or "SAN_OPTIONS" in key}
        self.environment |= {"HOME": str(self.home), "LC_ALL": "C.UTF-8", "TZ": "UTC", "XDG_SESSION_TYPE": "x11",
                             "FONTCONFIG_FILE": str(FONTS), "NO_AT_BRIDGE": "1"} | kind.environment
        for variable in ("XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"):
            folder = self.home / variable.lower()
            folder.mkdir(0o700)
            self.environment[variable] = str(folder)
        for name in "SYSTEM", "SESSION":
            self.bus, self.environment[f"DBUS_{name}_BUS_ADDRESS"] = self.start_bus()
        size, repeats = "{}x{}".format(*self.screen), "-r" if self.kind.wayland else "r"
        self.server, number = self._spawn_announcing(
            lambda fd: f"Xvfb -displayfd {fd} -screen 0 {size}x24 -fbdir {self.home} -nolisten tcp -noreset {repeats}")
        self.environment |= {"DISPLAY": f":{number}", "MUTTER_DEBUG_DUMMY_MODE_SPECS": size}
        self.seat = dict(self.environment)  # of keyboard and pointer
        command = self._prepare()
        if kind.programs:
            self.spawn(DEBIAN_PYTHON, "-m", "dbusmock", "--system", "--template", "logind")
            wait_until(lambda: self.has_owner("system", "org.freedesktop.login1"), "a login manager")
        for settle in kind.before:
            self.run(*settle.split(" ", 4))
        self._start_manager(command)
        self._start_beside()

    def _prepare(self):
        """Writes the desktop's files; the command to start it with."""
        places = {"home": self.home, "width": self.screen[0], "height": self.screen[1]}
        for name, text in self.kind.files.items():
            (self.home / name).parent.mkdir(parents=True, exist_ok=True)
            (self.home / name).write_text(text.format(**places))
        if self.kind.announces:
            self.environment["XDG_SESSION_TYPE"] = "wayland" if self.kind.wayland else "x11"
            (self.home / "announce").write_text(ANNOUNCE.format(home=self.home))
            (self.home / "announce").chmod(0o755)
        command = self.kind.command.format(**places).split()
        program = shutil.which(command[0])
        if program and "security.capability" in os.listxattr(program):  # not given to tests; a copy has none
            command[0] = shutil.copy(program, self.home)
        if self.name == "sway" and os.geteuid() == 0:  # which does not run as root
            for place in self.home, *self.home.rglob("*"):
                os.chown(place, NOBODY, NOBODY)
            command = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", *command]
        return command

    def _start_manager(self, command):
        """Starts the window manager or the compositor, and waits until it is ready for windows."""
        told = self.home / "told"
        self.manager = self.spawn(*command)

        def ready():
            if self.kind.ask and not told.exists():
                self.shell(self.kind.ask.format(home=self.home))
            if told.exists():
                session = dict(line.split("=", 1) for line in told.read_text().split("\0") if "=" in line)
                self.environment |= {name: session[name] for name in ANNOUNCED if name in session}
            return (told.exists() or not self.kind.announces) and self.prop("_NET_SUPPORTING_WM_CHECK")
        wait_until(lambda: self.manager.poll() is not None or ready(), f"{command[0]} is ready")
        assert self.manager.poll() is None, f"{command[0]} ended with {self.manager.returncode} at its start"

    def _start_beside(self):
        kind = self.kind
        self.run("dbus-update-activation-environment", *(name for name in ANNOUNCED if name in self.environment))
        for program in kind.beside:
            self.spawn(*program.split())
        if kind.settled:
            wait_until(lambda: self.shell(kind.settled) == "true", "the shell is settled")
        if kind.tray:
            wait_until(lambda: self.has_tray() and self.work_area()[2:] != self.screen, "a panel with a tray")

    def start_service(self, script, *arguments):
        """A helper that obeys `tell`."""
        service = self.spawn(DEBIAN_PYTHON, "-B", Path(__file__).with_name(script), *arguments,
                             stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self._stack.callback(service.stdout.close)
        self._stack.callback(service.stdin.close)
        if service.stdout.readline() != "ready\n":
            raise NotStarted(f"{script} does not start; it needs python3-dbus and python3-gi")
        return service

    @staticmethod
    def tell(service, command, *arguments):
        service.stdin.write(json.dumps([command, *arguments]) + "\n")
        service.stdin.flush()
        return json.loads(service.stdout.readline())

    def start_bus(self):
        """A message bus, with its address."""
        return self._spawn_announcing(
            lambda fd: f"dbus-daemon --session --nofork --address=unix:dir={self.home} --print-address={fd}")

    def _spawn_announcing(self, command):
        """A process and the line that it writes to the descriptor it is given once it is ready."""
        read_end, write_end = os.pipe()
        process = self.spawn(*command(write_end).split(), pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            line = pipe.readline().strip()
        assert line, f"{process.args[0]} does not start"
        return process, line

    def spawn(self, *command, environment=None, **options):
        """Starts a process in a group of its own, which is killed with the desktop."""
        quiet = {name: subprocess.DEVNULL for name in ("stdin", "stdout", "stderr")}
        process = subprocess.Popen(command, env=environment or self.environment, start_new_session=True,
                                   **quiet | options)
        self._stack.callback(self.end, process)
        return process

    @staticmethod
    def end(process):
        with contextlib.suppress(ProcessLookupError):
            os.killpg(process.pid, signal.SIGKILL)
        process.wait()

    def _end_helpers(self):
        """Ends what the bus or another process started in its turn: all of it has this home. Some of it mounts here."""
        mark = f"HOME={self.home}\0".encode()
        for entry in Path("/proc").glob("[0-9]*"):
            with contextlib.suppress(OSError):
                if mark in (entry / "environ").read_bytes():
                    os.kill(int(entry.name), signal.SIGKILL)
        for mount in re.findall(rf"^\S+ ({self.home}/\S+) ", Path("/proc/mounts").read_text(), re.MULTILINE):
            self.run("fusermount3", "-u", "-z", mount)

    @contextlib.contextmanager
    def keeping_only_the_window_manager(self):
        """Ends what is started inside, so that tests can share a desktop."""
        with contextlib.ExitStack() as inner:
            outer, self._stack = self._stack, inner
            try:
                yield
            finally:
                self._stack = outer

    def run(self, *command, environment=None):
        """The output of a tool; empty if it fails, as for a window that has just gone."""
        done = subprocess.run([str(part) for part in command], env=environment or self.environment, text=True,
                              timeout=20, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return done.stdout if done.returncode == 0 else ""

    def call(self, bus, destination, path, method, *arguments):
        """The printed answer of a D-Bus call on the session or the system bus; AssertionError with the error's text."""
        command = ["gdbus", "call", f"--{bus}", "--dest", destination, "--object-path", path, "--method", method]
        done = subprocess.run([*command, *arguments], env=self.environment, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=20)
        if done.returncode != 0:
            raise AssertionError(done.stderr)
        return done.stdout

    def has_owner(self, bus, name):
        return "true" in self.call(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                   "org.freedesktop.DBus.NameHasOwner", name)

    def has_tray(self):
        with contextlib.suppress(AssertionError):
            return "true" in self.call("session", "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                                       "org.freedesktop.DBus.Properties.Get", "org.kde.StatusNotifierWatcher",
                                       "IsStatusNotifierHostRegistered")
        return False

    def shell(self, script):
        """What GNOME Shell answers to a line of its own language."""
        told = self.run("gdbus", "call", "--session", "--dest", "org.gnome.Shell", "--object-path", "/org/gnome/Shell",
                        "--method", "org.gnome.Shell.Eval", script)
        return told.strip()[8:-2] if told.startswith("(true") else ""

    # What the desktop can do

    def needs(self, what):
        """Skips the test where the desktop does not have what it needs."""
        if reason := self.kind.cannot.get(what):
            raise unittest.SkipTest(reason)

    def can(self, what):
        return what not in self.kind.cannot

    @property
    def tiles(self):
        return bool(self.kind.message)

    def floats(self, window):
        """Where windows are tiled: whether this one floats above them; None if it is not there."""
        def below(node, floating):
            if node.get("window") == window:
                return floating
            found = [below(child, floating) for child in node["nodes"]]
            found += [below(child, True) for child in node["floating_nodes"]]
            return next((each for each in found if each is not None), None)
        return below(json.loads(self.run(self.kind.message, "-t", "get_tree")), False)

    def work_area(self):
        """The screen without the panels: x, y, width and height."""
        return tuple(map(int, re.findall(r"\d+", self.prop("_NET_WORKAREA"))[:4])) or (0, 0, *self.screen)

    def workspace(self):
        """The number of the current one, from 0."""
        if not self.tiles:
            return int(self.prop("_NET_CURRENT_DESKTOP") or -1)
        spaces = json.loads(self.run(self.kind.message, "-t", "get_workspaces") or "[]")
        return next((space["num"] - 1 for space in spaces if space["focused"]), None)

    def switch_to(self, workspace):
        if self.tiles:
            self.run(self.kind.message, "workspace", "number", workspace + 1)
        else:
            self.run("wmctrl", "-n", 2)
            self.run("wmctrl", "-s", workspace)
        wait_until(lambda: self.workspace() == workspace, "a switch of workspaces")

    # Keyboard, pointer and screen

    def xdotool(self, *arguments):
        self.run("xdotool", *arguments, environment=self.seat)

    def keys(self, *combinations):
        """Presses each, as "ctrl+n"."""
        self.xdotool("key", *combinations)

    def type(self, text, delay=4):
        """Milliseconds between the characters."""
        parts = [part for line in text.split("\n")
                 for part in ("key", "Return", "type", "--delay", delay, "--args", 1, line)]
        self.xdotool(*parts[2:])

    def move(self, x, y):
        """Moves the pointer there."""
        self.xdotool("mousemove", x, y)

    def click(self, x, y, button=1, times=1):
        """Two in one go, or they are no double click. Moves first: sway misplaces a resting pointer after a resize."""
        self.xdotool("mousemove", x + 1, y, "mousemove", x, y, "click", "--repeat", times, "--delay", 20, button)

    def picture(self):
        """What is on the screen."""
        return Picture((self.home / "Xvfb_screen0").read_bytes())

    # Windows

    def prop(self, name, window=None):
        """The text of a property of a window or of the root; empty if there is none."""
        where = ["-root"] if window is None else ["-id", window]
        line = self.run("xprop", *where, "-notype", "-f", "_NET_WM_NAME", "8u", name)
        found = re.match(r"\w+(?: = |: window id # )(.*)", line)
        return found[1] if found else ""

    def windows(self, stacked=False):
        """The managed windows; from the lowest to the highest if stacked."""
        text = self.prop("_NET_CLIENT_LIST_STACKING" if stacked else "_NET_CLIENT_LIST")
        return [int(window, 16) for window in re.findall(r"0x[0-9a-f]+", text)]

    def lies_above(self, window, other):
        """Where windows are tiled: floats above the other, which does not."""
        if self.tiles:
            return bool(self.floats(window)) and not self.floats(other)
        stack = self.windows(stacked=True)
        return {window, other} <= set(stack) and stack.index(window) > stack.index(other)

    def window_with(self, name, value):
        return next((window for window in self.windows() if self.prop(name, window) == value), None)

    def is_active(self, window):
        """Whether the window is the active one and really gets the keys."""
        if int(self.prop("_NET_ACTIVE_WINDOW").split(",")[0] or "0", 16) != window:
            return False
        focus = self.run("xdotool", "getwindowfocus").strip()
        return bool(focus) and (int(focus) == window or
                                f"{int(focus):#x} " in self.run("xwininfo", "-tree", "-id", window))

    def wait_active(self, window, what="the window is active"):
        wait_until(lambda: self.is_active(window), what)

    def activate(self, window):
        command = [self.kind.message, f"[id={window}]", "focus"] if self.tiles else ["wmctrl", "-i", "-a", hex(window)]
        self.run(*command)
        self.wait_active(window)

    def close(self, window):
        """As its user does with the window manager."""
        if self.tiles:
            self.run(self.kind.message, f"[id={window}]", "kill")
        else:
            self.run("wmctrl", "-i", "-c", hex(window))

    def is_viewable(self, window):
        return "Map State: IsViewable" in self.run("xwininfo", "-id", window)

    def geometry(self, window):
        """x, y on the screen, width and height."""
        text = self.run("xwininfo", "-id", window)
        return tuple(int(re.search(label + r":\s*(-?\d+)", text)[1])
                     for label in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

    def companion(self, title, *options):
        """The window of another program, active."""
        self.spawn("xterm", "-T", title, *options, "-e", "cat")
        window = wait_until(lambda: self.window_with("WM_NAME", f'"{title}"'), f"a window {title!r}")
        self.activate(window)
        return window
