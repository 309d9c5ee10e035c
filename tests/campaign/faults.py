# SPDX-License-Identifier: MIT
"""The faults: one table. Each gives its cases, which raise AssertionError when something is lost."""

import contextlib
import os
import shutil
import signal
import stat
import string
import subprocess
import time
import typing
from pathlib import Path

import saves
from desktop import Desktop, wait_until
from world import (KEPT, LINES, NOTE, SCENES, NotHere, brief, check_next_start, contents, end_with, expect,
                   make_null_device, mount, small_disk)

ERRORS = "ENOSPC", "EDQUOT", "EIO", "EROFS", "EACCES", "EMFILE", "EINTR"
PAUSE = 0.8  # seconds; after it a text is saved
MARGIN = 1.0  # seconds, for the save itself on a busy machine
SINCE_THE_PAUSE = "at most what was typed since the last pause of 0.8 s"
SINCE_THE_SAVE = "at most what was typed since the last save that the disk took"
STARTS = 12
PASTES = {"10 MB": "Milk, eggs ä€📌\n" * 600_000, "a megabyte in one line": "milk " * 200_000,
          "a megabyte in one word": "x" * 1_000_000, "control characters": "".join(map(chr, range(1, 32))) * 1000,
          "bidirectional overrides": "\u202eabc\u202c \u2066def\u2069 שלום\u200f\n" * 20_000}


# Power cuts

def each_call(world):
    return [(scene, at, call) for scene in SCENES for at, call in enumerate(world.calls_of_a_save(scene)[1])]


@contextlib.contextmanager
def hit(world, scene, at, call, fault):
    """A note whose save ran into the fault at the call that was meant; the thread may have called more or less often
    before it this time."""
    for more in 0, 0, 1, -1, 2, 0, 1, -1, 3, -2:
        with world.scene(scene) as note:
            with saves.traced(note, "-e", f"inject={call.name}:{fault}:when={max(call.nth + more, 1)}") as calls:
                note.desktop.xdotool("key", "Escape")
                late = None
                try:
                    wait_until(lambda: note.process.poll() is not None or not note.desktop.is_viewable(note.window),
                               "the note is hidden or killed")
                except AssertionError as error:
                    late = error
            reached = saves.begun_saving(calls(), note.file.parent.parent)
            if note.process.poll() is not None:
                is_hit = len(reached) == at + 1
            else:
                is_hit = len(reached) > at and "(INJECTED)" in reached[at].text
            if is_hit and reached[at].name == call.name:
                if late:
                    raise late
                yield note
                return
    raise AssertionError(f"{call.name} is never hit")


def killed_at(world, scene, at, call):
    with hit(world, scene, at, call, "signal=KILL") as note:
        expect(note.process.returncode == -signal.SIGKILL, "not killed")
        SCENES[scene].check(note, (SCENES[scene].old, SCENES[scene].new))


def kills(world):
    return [(f"{scene}, killed at {call.name} {at}", lambda world, how=(scene, at, call): killed_at(world, *how))
            for scene, at, call in each_call(world)]


def fails_at(world, scene, at, call, fault):
    """The save may fail; what it leaves is whole, and the next one takes everything."""
    with hit(world, scene, at, call, fault) as note:
        found = contents(note.file)
        expect(found in (SCENES[scene].old, SCENES[scene].new), f"the note holds {brief(found)} after the fault")
        end_with(note)
        SCENES[scene].check(note, (SCENES[scene].new,))


def failures(world):
    return [(f"{scene}, {call.name} {at}: {fault}", lambda world, how=(scene, at, call, fault): fails_at(world, *how))
            for scene, at, call in each_call(world)
            for fault in [f"error={error}" for error in ERRORS] + ["retval=0"] * (call.name == "write")]


def told(state):
    return {name: brief(text) for name, text in state.items()}


def survives(world, scene):
    """The note is old or new after a power cut at any moment, and new when the save was done. The number of states."""
    kept = SCENES[scene]
    states = list(saves.Disk(*world.calls_of_a_save(scene)).states())
    expect(any(done for _, done in states), "no save was replayed")
    for state, done in states:
        found = state.get(kept.target)
        expect(found == kept.new or found == kept.old and not done, f"a disk with {told(state)}")
        if kept.unreadable and found != kept.old:
            expect(state.get(KEPT) == kept.old, f"what could not be read is not on a disk with {told(state)}")
    return len(states)


def model(world):
    return each(survives, *SCENES)(world)


def starts_on(world, scene, state):
    with world.note() as note:
        SCENES[scene].prepare(note)
        (note.file.parent / SCENES[scene].target).unlink(missing_ok=True)
        for name, text in state.items():
            (note.file.parent / name).write_bytes(text)
        kept = note.file.with_name(KEPT)
        if KEPT in state and state[KEPT] == state.get(NOTE):  # as two names of one file
            kept.unlink()
            kept.hardlink_to(note.file)
        SCENES[scene].check(note, (SCENES[scene].old, SCENES[scene].new))


def starts_after_cuts(world):
    different = {(scene, tuple(state.items())) for scene in SCENES
                 for state, _ in saves.Disk(*world.calls_of_a_save(scene)).states()}
    return [(f"{scene}: {told(dict(state))}", lambda world, how=(scene, dict(state)): starts_on(world, *how))
            for scene, state in sorted(different)]


# Disks and folders

@contextlib.contextmanager
def no_room(note):
    """But for one page, so that a save is cut short in the middle."""
    filler = note.file.with_name("filler")
    with filler.open("wb", buffering=0) as file:
        with contextlib.suppress(OSError):
            while file.write(bytes(4096)):
                pass
        file.truncate(filler.stat().st_size - 4096)
    yield
    filler.unlink()


@contextlib.contextmanager
def read_only(note):
    mount(note.folder / "data", "-o", "remount,ro")
    yield
    mount(note.folder / "data", "-o", "remount,rw")


@contextlib.contextmanager
def renamed(note):
    elsewhere = note.file.parent.rename(note.folder / "elsewhere")
    yield
    elsewhere.rename(note.file.parent)


@contextlib.contextmanager
def replaced_by_a_file(note):
    with renamed(note):
        note.file.parent.write_text("a file")
        yield
        expect(note.file.parent.read_text() == "a file", "the file is gone")
        note.file.parent.unlink()


@contextlib.contextmanager
def removed(note):
    shutil.rmtree(note.file.parent)
    yield
    note.file.parent.mkdir(exist_ok=True)


def refused(world, trouble, on_small_disk, ends):
    """Saves fail for a while. Then the next one takes everything; or the program ended before, and the last that was
    taken stays."""
    with world.note() as note, contextlib.ExitStack() as stack:
        if on_small_disk:
            stack.enter_context(small_disk(note.folder / "data"))
        stays = None if trouble is removed else LINES
        note.put_text(LINES)
        note.start()
        with trouble(note):
            note.type("x")
            note.hide()
            note.perform("toggleWindow")
            wait_until(lambda: note.desktop.is_viewable(note.window), "the note is shown")
            if ends:
                end_with(note, ends)
        expect(contents(note.file) == stays, f"the note holds {brief(contents(note.file))}")
        if ends:
            check_next_start(note, stays or b"")
        else:
            note.desktop.wait_active(note.window)
            note.type("y")
            note.hide()
            end_with(note)
            check_next_start(note, LINES + b"xy")


def troubles(*those, on_small_disk=False, ends=(None,), times=1):
    return lambda _: [(f"{trouble.__name__} {end}",
                       lambda world, how=(trouble, on_small_disk, end): refused(world, *how))
                      for trouble in those for end in ends] * times


def started_again(world, trouble):
    """Where the folder is gone, second starts over the same session bus and over another leave the note alone."""
    with world.note() as note:
        note.put_text(LINES)
        note.start()
        with trouble(note):
            note.start_again()
            over_another = note.run_to_end(timeout=10, DBUS_SESSION_BUS_ADDRESS=note.desktop.start_bus()[1])
            expect(over_another.returncode == 1, "another process has the note")
            expect(not note.file.parent.exists(), "a second start made the folder")
        note.type("x")
        end_with(note)
        check_next_start(note, LINES + b"x")


def no_file(make, world):
    """Something that is no file has the note's name. It is kept, under another name if it can have one; else nothing
    is saved until it is away."""
    with world.note() as note:
        note.file.parent.mkdir(parents=True)
        make(note)
        kind = stat.S_IFMT(note.file.stat().st_mode)
        kept = Path(f"{note.file.resolve()}.unreadable")
        note.start().type("x")
        note.hide()
        if not note.file.is_file():
            kept = note.file.rename(note.folder / "away")
        note.perform("toggleWindow")
        note.desktop.wait_active(note.window)
        note.type("y")
        note.hide()
        end_with(note)
        expect(stat.S_IFMT(kept.stat().st_mode) == kind, "what had the name is gone")
        check_next_start(note, b"xy")


def device(note):
    make_null_device(note.folder / "null")
    note.file.symlink_to(note.folder / "null")


def no_files(_):
    kinds = {"folder": lambda note: note.file.mkdir(), "pipe": lambda note: os.mkfifo(note.file), "device": device}
    return [(name, lambda world, make=make: no_file(make, world)) for name, make in kinds.items()]


def linked(world, link, old, disk):
    """`link` leads from the note's folder to the file; the links stay and the file gets the text."""
    with world.note() as note, contextlib.ExitStack() as stack:
        note.file.parent.mkdir(parents=True)
        away = note.folder / "away"
        away.mkdir()
        if disk:
            stack.enter_context(small_disk(away))
        if old:
            (away / "text").write_bytes(old)
        (away / "second").symlink_to("text")
        note.file.symlink_to(away / link)
        note.start().type("x")
        note.hide()
        end_with(note)
        check_next_start(note, old + b"x")
        expect(contents(away / "text") == old + b"x" and note.file.is_symlink() and (away / "second").is_symlink(),
               "a link is gone")
        expect({path.name for path in away.iterdir()} == {"text", "second"}, "something is left beside the file")


def links(_):
    kinds = {"dangling": ("text", b"", False), "to a file": ("text", LINES, False),
             "to a link": ("second", LINES, False), "to another disk": ("text", LINES, True)}
    return [(name, lambda world, how=how: linked(world, *how)) for name, how in kinds.items()]


def changed_by_another(world, at_once):
    with world.note(LINES) as note:
        note.start()
        if at_once:
            (note.folder / "theirs").write_bytes(b"theirs")
            (note.folder / "theirs").rename(note.file)
        else:
            note.file.write_bytes(b"theirs")
        note.type("x")
        note.wait_for_text((LINES + b"x").decode())
        end_with(note)
        check_next_start(note, LINES + b"x")


# Typing and pasting without measure

def pasted(world, kind):
    text = PASTES[kind].encode()
    if not shutil.which("xclip"):
        raise NotHere("xclip is not installed")
    with world.note() as note:
        note.start()
        subprocess.run(["xclip", "-selection", "clipboard"], input=text, env=note.desktop.environment, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        note.desktop.xdotool("key", "ctrl+v")
        wait_until(lambda: contents(note.file) == text, "what was pasted is saved", 60)
        end_with(note)
        check_next_start(note, text)


def held_key(world):
    with world.note() as note:
        note.start()
        note.desktop.xdotool("keydown", "x")
        time.sleep(60)
        note.desktop.xdotool("keyup", "x")
        note.wait_for_keys()
        note.hide()
        expect(len(note.text()) > 1000 and set(note.text()) == {"x"}, f"the note holds {brief(note.text())}")
        end_with(note)
        check_next_start(note, note.file.read_bytes())


# Endings

def killed_while_typing(world):
    """What was typed before the last long pause is there, and of the rest no more than the beginning."""
    chance = world.random
    with world.note() as note:
        note.start()
        safe = typed = ""
        if chance.random() < 1 / 4:
            safe = typed = burst(chance)
            note.type(typed)
            time.sleep(PAUSE + MARGIN)
        last = burst(chance)
        typist = note.desktop.spawn("xdotool", "type", "--delay", str(chance.randint(1, 60)), last)
        time.sleep(chance.uniform(0, 1.3 * PAUSE))
        end_with(note, signal.SIGKILL)
        typist.wait(timeout=20)
        text = (contents(note.file) or b"").decode()
        expect((typed + last).startswith(text) and text.startswith(safe), f"{text!r} is left of {typed + last!r}")
        check_next_start(note, text.encode())


def burst(chance):
    return "".join(chance.choices(string.ascii_lowercase, k=chance.randint(1, 30)))


def storm(world):
    with world.note(LINES) as note:
        note.start()
        text = burst(world.random)
        note.type(text)
        with contextlib.suppress(ProcessLookupError):
            for _ in range(200):
                os.kill(note.process.pid, signal.SIGTERM)
        # One that comes when all is done ends it the hard way.
        expect(note.process.wait(timeout=10) in (0, -signal.SIGTERM), "it ended otherwise")
        check_next_start(note, LINES + text.encode())


def bereaved(world, what):
    """The X server, the window manager or the session bus goes."""
    with Desktop("openbox") as desktop, world.note(LINES, desktop) as note:
        note.start()
        text = burst(world.random)
        note.type(text)
        desktop.end(getattr(desktop, what))
        if what != "server":
            time.sleep(PAUSE + MARGIN)
            expect(contents(note.file) == LINES + text.encode(), "not saved after the pause")
            note.process.send_signal(signal.SIGTERM)
        note.process.wait(timeout=10)
        expect(contents(note.file) == LINES + text.encode(), "not saved at the end")
    with world.note(LINES + text.encode()) as note:
        check_next_start(note, LINES + text.encode())


def many_starts(world, buses):
    """One process wins, and no other touches the file."""
    with world.note(LINES) as note:
        addresses = [note.environment["DBUS_SESSION_BUS_ADDRESS"]]
        addresses += [note.desktop.start_bus()[1] for _ in range(buses - 1)]
        before = note.file.stat()
        starts = [note.desktop.spawn(world.binary, environment=note.environment | {
            "DBUS_SESSION_BUS_ADDRESS": addresses[number % buses]}) for number in range(STARTS)]
        wait_until(lambda: sum(start.poll() is None for start in starts) <= 1, "all but one have ended", 30)
        codes = {start.poll() for start in starts} - {None}
        expect(codes <= ({0} if buses == 1 else {0, 1}), f"they ended with {codes}")
        after = note.file.stat()
        expect((before.st_ino, before.st_mtime_ns) == (after.st_ino, after.st_mtime_ns), "the file was written")
        note.process = next((start for start in starts if start.poll() is None), None)
        expect(note.process, "none is left")
        note.window = wait_until(lambda: note.desktop.window_with("_NET_WM_PID", str(note.process.pid)), "a window")
        note.desktop.activate(note.window)
        note.type("x")
        end_with(note)
        check_next_start(note, LINES + b"x")


def stopped(world, number):
    """The process sleeps across the pause, as in a suspended machine; then it goes on or never wakes."""
    with world.note(LINES) as note:
        note.start().type("x")
        note.process.send_signal(signal.SIGSTOP)
        time.sleep(PAUSE + MARGIN)
        note.process.send_signal(number)
        if number == signal.SIGCONT:
            note.wait_for_text((LINES + b"x").decode())
            end_with(note, signal.SIGKILL)
        else:
            note.process.wait(timeout=10)
        found = contents(note.file)
        expect(found in (LINES, LINES + b"x"), f"the note holds {brief(found)}")
        check_next_start(note, found)


def clock_set(world):
    """The pauses in typing are no matter of the wall's clock. A return shows the note but for one that seems to be
    before the last."""
    library = next(Path("/usr/lib").glob("*/faketime/libfaketimeMT.so.1"), None)
    if not library:
        raise NotHere("libfaketime is not installed")
    with world.note(LINES) as note:
        clock = note.folder / "clock"
        clock.write_text("+0")
        note.environment |= {"LD_PRELOAD": str(library), "FAKETIME_TIMESTAMP_FILE": str(clock),
                             "FAKETIME_NO_CACHE": "1", "FAKETIME_DONT_FAKE_MONOTONIC": "1"}
        note.start()
        text = LINES
        for offset, comes_back in ("+10d", True), ("-10d", False), ("+0", False), ("+4000d", True):
            note.type("x")
            clock.write_text(offset)
            note.type("y")
            text += b"xy"
            wait_until(lambda: contents(note.file) == text, f"the note is saved at {offset}")
            note.hide()
            for state in "on", "activate", "reset":
                note.desktop.run("xset", "s", state)
            if not comes_back:
                time.sleep(PAUSE + MARGIN)
                expect(not note.desktop.is_viewable(note.window), f"the note is shown at {offset}")
                note.perform("toggleWindow")
            note.desktop.wait_active(note.window)
        end_with(note, signal.SIGKILL)
        check_next_start(note, text)


def each(function, *values, times=1):
    """Cases of one function, one for each value."""
    return lambda _: [(getattr(value, "__name__", str(value)),
                       lambda world, value=value: function(world, value)) for value in values] * times


def repeated(function, times):
    return lambda _: [(function.__name__, function)] * times


class Fault(typing.NamedTuple):
    name: str
    cases: typing.Callable  # of the world: (label, function of the world that may tell how many tries it was)
    short: int  # so many of the cases, drawn by lot
    ci: int
    lost: str = "nothing"  # what the system's own rules allow


END, KILL = signal.SIGTERM, signal.SIGKILL
FAULTS = (
    Fault("Killed at a system call of a save", kills, 5, 60),
    Fault(f"A system call of a save fails: {', '.join(ERRORS)}, or a write that takes nothing", failures, 8, 150),
    Fault("Power cut during a save, on a model of a disk that forgets what was not synced", model, 4, 4),
    Fault("The next start on such a disk", starts_after_cuts, 3, 100),
    Fault("Disk full in the middle of a save, then room again", troubles(no_room, on_small_disk=True, times=3), 1, 3),
    Fault("Disk full until the program ends or is killed",
          troubles(no_room, on_small_disk=True, ends=(END, KILL)), 1, 2, SINCE_THE_SAVE),
    Fault("Disk remounted read-only, then writable again", troubles(read_only, on_small_disk=True, times=3), 1, 3),
    Fault("Disk remounted read-only until the program ends or is killed",
          troubles(read_only, on_small_disk=True, ends=(END, KILL)), 1, 2, SINCE_THE_SAVE),
    Fault("Folder renamed, removed or replaced by a file, then put back",
          troubles(renamed, removed, replaced_by_a_file), 1, 3),
    Fault("Folder renamed or replaced by a file until the program ends or is killed",
          troubles(renamed, replaced_by_a_file, ends=(END, KILL)), 1, 4, SINCE_THE_SAVE),
    Fault("Folder removed until the program ends or is killed", troubles(removed, ends=(END, KILL)), 1, 2,
          "the note, with its folder"),
    Fault("Folder renamed or removed, then second starts on the same session bus and on another",
          each(started_again, renamed, removed), 1, 2),
    Fault("A folder, a pipe or a device in place of the note", no_files, 3, 3),
    Fault("The note is a link: dangling, to a file, to a link, to another disk", links, 2, 4),
    Fault("Another program changes the note meanwhile: the window wins", each(changed_by_another, False, True), 1, 2),
    Fault(f"Pasted: {', '.join(PASTES)}", each(pasted, *PASTES), 1, 5),
    Fault("A key held for a minute", repeated(held_key, 1), 0, 1),
    Fault("Killed at a random moment while typing", repeated(killed_while_typing, 200), 4, 40, SINCE_THE_PAUSE),
    Fault("200 times SIGTERM at once", repeated(storm, 20), 1, 5),
    Fault("The X server, the window manager or the session bus goes",
          each(bereaved, "server", "manager", "bus", times=5), 1, 6),
    Fault(f"{STARTS} starts at once, on one session bus and on three", each(many_starts, 1, 3, times=5), 1, 4),
    Fault("Stopped across the pause, then continued or killed", each(stopped, signal.SIGCONT, KILL, times=5), 1, 4,
          SINCE_THE_PAUSE),
    Fault("The wall clock set back and forth while typing and between two returns", repeated(clock_set, 3), 0, 1),
)
