# SPDX-License-Identifier: MIT
"""What the measuring commands share: the build, a display of their own, and what can be read of a running program."""

import contextlib
import os
import signal
import subprocess
import tempfile
import time
import typing
from pathlib import Path

IDLE_SECONDS = 20
SETTLED_SECONDS = 1
PUT_OFF_SECONDS = 35  # in which a toolkit does what it put off while windows were shown, such as trimming its caches
START_SECONDS = 60  # the longest that a start is waited for
TOP = Path(__file__).resolve().parent.parent
BUILD = TOP / "build/bench"
TOOLS = BUILD / "bench"
OURS, BARE = BUILD / "quillberry", TOOLS / "bare_window"
HIDE_OURS, HIDE_OTHERS = ("key", "Escape"), ("getactivewindow", "windowminimize")  # for xdotool

BUILD_PACKAGES = ("libxcb-damage0-dev", "libxcb-xtest0-dev")
DESKTOP_PACKAGES = ("xvfb", "openbox", "dbus-daemon", "xdotool", "x11-utils", "x11-xserver-utils")


def build():
    packages = (TOP / "packaging/build-packages").read_text().split()
    subprocess.run([TOP / "packaging/install-missing", *packages, *BUILD_PACKAGES, *DESKTOP_PACKAGES], check=True)
    subprocess.run(["cmake", "--preset", "release", "-B", BUILD, "-DQUILLBERRY_BENCH=ON", "-DQUILLBERRY_TESTS=OFF"],
                   cwd=TOP, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", BUILD], check=True, stdout=subprocess.DEVNULL)


def at_home(folder, environment):
    """The environment of a user whose home is that folder."""
    homes = {f"XDG_{name}_HOME": str(folder / name.lower()) for name in ("DATA", "CONFIG", "CACHE", "STATE")}
    return environment | homes | {"HOME": str(folder)}


@contextlib.contextmanager
def desktop():
    """The environment of a virtual display with a window manager and a session bus, and a new home."""
    with contextlib.ExitStack() as stack:
        folder = Path(stack.enter_context(tempfile.TemporaryDirectory(ignore_cleanup_errors=True)))
        environment = at_home(folder, os.environ) | {"XDG_RUNTIME_DIR": str(folder), "QT_QPA_PLATFORM": "xcb"}

        def start(*command, **options):
            process = subprocess.Popen(command, env=environment, stderr=subprocess.DEVNULL, **options)
            stack.callback(process.wait)
            stack.callback(process.terminate)
            return process
        announced = {"stdout": subprocess.PIPE, "text": True}
        server = start("Xvfb", "-displayfd", "1", "-noreset", "-screen", "0", "1280x800x24", **announced)
        environment["DISPLAY"] = ":" + server.stdout.readline().strip()
        bus = start("dbus-daemon", "--session", "--nofork", "--print-address", **announced)
        environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        start("openbox", stdout=subprocess.DEVNULL)
        while "window id" not in subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=environment,
                                                capture_output=True, text=True, check=False).stdout:
            time.sleep(0.05)
        yield environment


class Start(typing.NamedTuple):
    pid: int
    mapped: float  # milliseconds from exec to the first mapped window
    text: float  # and to its text; 0 if that did not come, or nobody asked for it


@contextlib.contextmanager
def started(command, environment, pictures=()):
    """A running program. The pictures of a start without text and of one with it tell what its text is."""
    text = ["--text", *pictures] if pictures else []
    done = subprocess.run([TOOLS / "time_to_show", str(START_SECONDS), *text, *command], env=environment,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=True)
    pid, mapped, shown = done.stdout.split()
    try:
        yield Start(int(pid), float(mapped), float(shown))
    finally:
        end(int(pid))


def end(pid):
    for number, patience in (signal.SIGTERM, 3), (signal.SIGKILL, 30):
        with contextlib.suppress(ProcessLookupError):
            os.kill(pid, number)
        deadline = time.monotonic() + patience
        while time.monotonic() < deadline:
            if not Path(f"/proc/{pid}/exe").exists():
                return
            time.sleep(0.01)


def memory(pid, line):
    for entry in Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines():
        if entry.startswith(line):
            return int(entry.split()[1]) / 1024
    raise LookupError(line)


def threads(pid):
    return sorted(Path(f"/proc/{pid}/task").iterdir())


def wake_ups(pid):
    """How often any thread of it went to sleep again while it idled. One that ended meanwhile does not count."""
    def sleeps():
        return {thread.name: int(line.split()[1]) for thread in threads(pid)
                for line in (thread / "status").read_text().splitlines() if line.startswith("voluntary_ctxt_switches")}
    before = sleeps()
    time.sleep(IDLE_SECONDS)
    return sum(count - before.get(thread, 0) for thread, count in sleeps().items())


def idle(command, hide, environment):
    """How often it wakes up, shown and hidden."""
    with started(command, environment) as program:
        time.sleep(2 * SETTLED_SECONDS)
        shown = wake_ups(program.pid)
        subprocess.run(["xdotool", *hide], env=environment, check=True, stdout=subprocess.DEVNULL)
        time.sleep(PUT_OFF_SECONDS)
        return {"wake-ups in 20 s, shown": shown, "wake-ups in 20 s, hidden": wake_ups(program.pid)}
