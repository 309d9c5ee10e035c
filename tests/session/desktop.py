"""Real desktops, each on a virtual display of its own: an X server, a session bus and a window manager."""

import contextlib
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

SCREEN = (1280, 800)
TOOLS = ("Xvfb", "dbus-daemon", "xdotool", "xprop", "xwininfo", "wmctrl", "xterm")

# name: command and environment. Each is ready when it has named its check window on the root.
WINDOW_MANAGERS = {
    "openbox": ("openbox", {}),
    "xfwm4": ("xfwm4 --compositor=off", {}),
    "mutter": ("mutter --x11 --sm-disable", {"LIBGL_ALWAYS_SOFTWARE": "1"}),
    "kwin": ("kwin_x11", {"KWIN_COMPOSE": "N"}),
}


def wait_until(predicate, what, timeout=20):
    """The first true value of the predicate; AssertionError if none comes in time."""
    deadline = time.monotonic() + timeout
    while True:
        value = predicate()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"not within {timeout} s: {what}")
        time.sleep(0.02)


class Desktop:
    """A context; what was started in it ends with it."""

    def __init__(self, name, screen=SCREEN):
        self.name = name
        self.screen = screen
        self._stack = contextlib.ExitStack()

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            self._stack = stack
            self._start()
            self._stack = stack.pop_all()
        return self

    def __exit__(self, *_):
        self._stack.close()

    def _start(self):
        missing = [tool for tool in TOOLS if not shutil.which(tool)]
        if missing:
            raise unittest.SkipTest(f"not installed: {', '.join(missing)}")
        self.home = Path(self._stack.enter_context(tempfile.TemporaryDirectory(ignore_cleanup_errors=True)))
        self._stack.callback(self._end_helpers)
        self.environment = {key: value for key, value in os.environ.items() if key == "PATH" or "SAN_OPTIONS" in key}
        self.environment |= {"HOME": str(self.home), "LC_ALL": "C.UTF-8", "XDG_SESSION_TYPE": "x11",
                             "NO_AT_BRIDGE": "1"}
        for variable in ("XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"):
            folder = self.home / variable.lower()
            folder.mkdir(0o700)
            self.environment[variable] = str(folder)
        command, extra = WINDOW_MANAGERS[self.name]
        self.environment |= extra

        self.server, number = self._spawn_announcing(
            lambda fd: f"Xvfb -displayfd {fd} -screen 0 {self.screen[0]}x{self.screen[1]}x24 -nolisten tcp -noreset")
        self.environment["DISPLAY"] = f":{number}"
        for bus in "session", "system":
            self.environment[f"DBUS_{bus.upper()}_BUS_ADDRESS"] = self._spawn_announcing(
                lambda fd: f"dbus-daemon --session --nofork --address=unix:dir={self.home} --print-address={fd}")[1]
        for _ in range(3):  # KWin at times aborts at its start
            manager = self._try_spawn(command)
            try:
                wait_until(lambda: manager.poll() is not None or self.prop("_NET_SUPPORTING_WM_CHECK"), command)
            except AssertionError as error:
                raise unittest.SkipTest(f"{command} does not start: {error}") from error
            if manager.poll() is None:
                return
        raise unittest.SkipTest(f"{command} ended with {manager.returncode} at its start")

    @contextlib.contextmanager
    def keeping_only_the_window_manager(self):
        """Ends what is started inside, so that tests can share a desktop."""
        with contextlib.ExitStack() as inner:
            outer, self._stack = self._stack, inner
            try:
                yield
            finally:
                self._stack = outer

    def _spawn_announcing(self, command):
        """A process and the line that it writes to the descriptor it is given once it is ready."""
        read_end, write_end = os.pipe()
        process = self._try_spawn(command(write_end), pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            line = pipe.readline().strip()
        if not line:
            raise unittest.SkipTest(f"{process.args[0]} does not start")
        return process, line

    def _try_spawn(self, command, **options):
        try:
            return self.spawn(*command.split(), **options)
        except OSError as error:
            raise unittest.SkipTest(f"{command}: {error}") from error

    def _end_helpers(self):
        """Ends what the bus or another process started in its turn: all of it has this home."""
        mark = f"HOME={self.home}\0".encode()
        for entry in Path("/proc").glob("[0-9]*"):
            with contextlib.suppress(OSError):
                if mark in (entry / "environ").read_bytes():
                    os.kill(int(entry.name), signal.SIGKILL)

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

    def run(self, *command):
        """The output of an X tool; empty if it fails, as for a window that has just gone."""
        done = subprocess.run([str(part) for part in command], env=self.environment, text=True, timeout=20,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return done.stdout if done.returncode == 0 else ""

    def xdotool(self, *arguments):
        self.run("xdotool", *arguments)

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
        self.run("wmctrl", "-i", "-a", hex(window))
        self.wait_active(window)

    def is_viewable(self, window):
        return "Map State: IsViewable" in self.run("xwininfo", "-id", window)

    def geometry(self, window):
        """x, y on the screen, width and height."""
        text = self.run("xwininfo", "-id", window)
        return tuple(int(re.search(label + r":\s*(-?\d+)", text)[1])
                     for label in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

    def call(self, bus, destination, path, method, *arguments):
        """The printed answer of a D-Bus call on the session or the system bus; AssertionError with the error's text."""
        done = subprocess.run(["gdbus", "call", f"--{bus}", "--dest", destination, "--object-path", path,
                               "--method", method, *arguments],
                              env=self.environment, stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=20)
        if done.returncode != 0:
            raise AssertionError(done.stderr)
        return done.stdout

    def signal(self, bus, path, name, *arguments):
        """Sends a D-Bus signal to everybody."""
        self.run("gdbus", "emit", f"--{bus}", "--object-path", path, "--signal", name, *arguments)

    def companion(self, title, *options):
        """The window of another program, active."""
        self.spawn("xterm", "-T", title, *options, "-e", "cat")
        window = wait_until(lambda: self.window_with("WM_NAME", f'"{title}"'), f"a window {title!r}")
        self.activate(window)
        return window
