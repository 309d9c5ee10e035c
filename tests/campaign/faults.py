# SPDX-License-Identifier: MIT
"""The faults: one table. Each is tried in its variants, which raise AssertionError when something is lost."""

import collections
import contextlib
import itertools
import random
import re
from signal import SIGKILL, SIGTERM

from desktop import Desktop, wait_until
from note import NAME, Note, options
from saves import KEPT, LINES, LINK, LINKED, NOTE, SCENES, SMALL_DISK
from saves import Disk, NotHere, brief, contents, end, shell, traced

ERRORS = "ENOSPC", "EDQUOT", "EIO", "EROFS", "EACCES", "EMFILE", "EINTR"


# In the saves of all scenes that every user can make.
def calls(*faults):
    return lambda world: [(scene, at, call, fault) for scene in SCENES.values() if "mount" not in scene.make
                          for at, call in enumerate(world.calls_of_a_save(scene)) for fault in faults
                          if fault != "retval=0" or call.name == "write"]


def hit(world, scene, at, call, fault):
    """The save is killed at the call, or the call fails: then the next save takes everything."""
    # The thread may have called more or less often before the save this time, so that another call is hit.
    for more in (0, 0, 1, -1, 2, 0, 1, -1, 3, -2) * 2:
        with world.note(scene) as note:
            hangs, *reached = traced(note, scene, "-e", f"inject={call.name}:{fault}:when={max(call.number + more, 1)}")
            del reached[:at]
            if not reached or reached[0].name != call.name or not reached[0].text.endswith(("= ?", "(INJECTED)")):
                continue
            assert not hangs
            if fault == "signal=KILL":
                assert note.process.wait(timeout=10) == -SIGKILL
                return scene.check(note, scene.old, scene.new)
            assert contents(note.file) in (scene.old, scene.new), "the failure left another text"
            end(note)
            return scene.check(note, scene.new)
    raise AssertionError(f"{call.name} is never hit")


def cut(world, scene):
    """After a power cut at any moment the note is old or new, and new when all was done; the next start shows it."""
    left = list(Disk(scene.files).states(world.calls_of_a_save(scene)))
    for state, done in left:
        found = state.get(scene.target, b"")
        assert found == scene.new or found == scene.old and not done, f"a disk with {brief(state)}"
        assert scene.old in (scene.new[:-1], found, state.get(KEPT)), f"what cannot be read is lost: {brief(state)}"
    different = sorted({tuple(state.items()) for state, _ in left})
    for state in map(dict, random.sample(different, 1 if world.size == "short" else len(different))):
        with world.note() as note:
            scene.put(note, state)
            if KEPT in state and state[KEPT] == state.get(NOTE):  # as two names of one file
                shell(note, f"ln -f {NOTE} {KEPT}")
            scene.check(note, scene.old, scene.new)
    return len(left)


# Of one note that holds LINES: what `happens` returns must be left of it, and be shown by the next start.
def story(happens):
    def told(world, *variant):
        with world.note() as note:
            note.put_text(LINES)
            left = happens(note, *variant)
            if note.process.poll() is None:
                end(note)
            SCENES["a note"].check(note, left)
            return getattr(note, "told", None)
    return told


TROUBLES = {  # how they begin and end, in the shell
    # But for one page, so that a save is cut short in the middle.
    "a full disk": ("head -c $(($(stat -f -c '(%a-1)*%S' data))) /dev/zero > data/filler", "rm data/filler"),
    "a read-only disk": ("mount -o remount,ro data", "mount -o remount,rw data"),
    "a renamed folder": ("mv data/Quillberry it", "test ! -e data/Quillberry; mv it data/Quillberry"),
    "a file in its place": ("mv data/Quillberry it; echo a file > data/Quillberry",
                            "grep 'a file' data/Quillberry; rm data/Quillberry; mv it data/Quillberry"),
    "a removed folder": ("rm -r data/Quillberry", "mkdir data/Quillberry")}


@story
def refused(note, trouble, number):
    """Saves fail for a while. Then the next one takes everything, or the program has ended and the last one stays."""
    if "disk" in trouble:
        shell(note, f"rm -r data; mkdir data; {SMALL_DISK} data", NotHere)
        note.put_text(LINES)
    note.start()
    shell(note, TROUBLES[trouble][0])
    note.type("x")
    note.hide()
    if number:
        end(note, number)
        shell(note, TROUBLES[trouble][1])
        return b"" if "removed" in trouble else LINES
    # Second starts over the same session bus and over another leave the note alone.
    note.start_again()
    over_another = note.run_to_end(timeout=10, DBUS_SESSION_BUS_ADDRESS=note.desktop.start_bus()[1])
    assert over_another.returncode == 1, "another process has the note"
    shell(note, TROUBLES[trouble][1])
    note.type("y")
    return LINES + b"xy"


STRANGERS = {  # how they get the note's name, and what `test` calls them
    "a folder": (f"mkdir {NOTE}", "-d"), "a pipe": (f"mkfifo {NOTE}", "-p"),
    # One of its own: the system's is at stake otherwise.
    "a device": (f"{LINK}; mknod {LINKED} c 1 3; echo > {LINKED}", "-c")}


@story
def no_file(note, stranger):
    """It is kept, under another name if it can have one; else nothing is saved until it is away."""
    make, kind = STRANGERS[stranger]
    shell(note, f"rm {NOTE}; {make}", NotHere)
    kept = f"{note.file.resolve()}.unreadable"
    note.start().type("x")
    note.hide()
    shell(note, f"test -f {NOTE} || mv {NOTE} {kept}")
    note.start_again()
    note.type("y")
    note.hide()
    shell(note, f"test {kind} {kept}")
    return b"xy"


PASTE = "xclip -selection clipboard paste 2>/dev/null", ("key", "ctrl+v")
EDITS = {  # a script, keys after it, and what they type; a held key types as much or more
    "10 MB pasted": (*PASTE, "Milk, eggs ä€📌\n" * 600_000),
    "a megabyte in one line pasted": (*PASTE, "milk " * 200_000),
    "a megabyte in one word pasted": (*PASTE, "m" * 1_000_000),
    "control characters pasted": (*PASTE, "".join(map(chr, range(1, 32))) * 1000),
    "bidirectional overrides pasted": (*PASTE, "\u202eabc\u202c \u2066def\u2069 שלום\u200f\n" * 20_000),
    "a key held for 8 s": ("true", ("keydown", "x", "sleep", 8, "keyup", "x"), "x" * 100),
    "a key after another program has written the file": (f"echo theirs > {NOTE}", ("key", "y"), "y"),
    "a key after another program has replaced the file": (f"echo theirs > it; mv it {NOTE}", ("key", "y"), "y")}
STRIKES = {  # the same without keys; None: it ends the program
    "200 times SIGTERM": ("for i in $(seq 200); do kill {note.pid}; done", None, ""),
    "the end of the X server": ("kill -KILL {desktop.server.pid}", None, ""),
    "the end of the window manager": ("kill -KILL {desktop.manager.pid}", (), ""),
    "the end of the session bus": ("kill -KILL {desktop.bus.pid}", (), ""),
    "the clock set ten days ahead": ("command -v faketime; echo +10d > .faketimerc", (), ""),
    "the clock set ten days back": ("command -v faketime; echo -10d > .faketimerc", (), ""),
    "stopped across the pause and continued": ("kill -STOP {note.pid}; sleep 1; kill -CONT {note.pid}", (), ""),
    "stopped across the pause and killed": ("kill -STOP {note.pid}; sleep 1; kill -KILL {note.pid}", None, ""),
    "killed": ("xdotool type ' and bread' & sleep {moment}; kill -KILL {note.pid}; wait", None, " and bread")}
FAKETIME = {"LD_PRELOAD": "/usr/$LIB/faketime/libfaketimeMT.so.1", "FAKETIME_NO_CACHE": "1",
            "FAKETIME_DONT_FAKE_MONOTONIC": "1"}


@story
def befallen(note, name):
    """Before a text is saved. The program goes on, or saves and ends; killed, it may lose the end of the text."""
    script, keys, more = (EDITS | STRIKES)[name]
    text = LINES + f"eggs{more}".encode()
    (note.folder / "paste").write_text(more)
    with Desktop("openbox") if "the end" in name else contextlib.nullcontext(note.desktop) as desktop:
        own = Note(desktop, note.folder)
        own.put_text(LINES)
        own.environment |= FAKETIME if "clock" in name else {}
        own.start().type("eggs")
        note.process = own.process
        shell(own, script.format(note=own.process, desktop=desktop, moment=random.uniform(0, 1.1)), NotHere)
        if keys is None:
            assert own.process.wait(timeout=10) in (0, 1, -SIGTERM, -SIGKILL), "it crashed"
        else:
            desktop.xdotool(*keys)
            wait_until(lambda: len(contents(own.file)) >= len(text), "the text is saved", 60)
            end(own)
    left = contents(note.file)
    begins = "killed" in name and text.startswith(left) and left.startswith(LINES)
    assert begins or left.rstrip(b"x") == text.rstrip(b"x"), f"there is {brief(left)}"
    return left


@story
def many_starts(note, buses):
    """One process wins, and no other touches the file."""
    addresses = [note.desktop.start_bus()[1] for _ in range(buses)]
    before = note.file.stat().st_ino
    starts = [note.desktop.spawn(options.binary, environment=note.environment | {
        "DBUS_SESSION_BUS_ADDRESS": addresses[number % buses]}) for number in range(12)]
    wait_until(lambda: sum(start.poll() is None for start in starts) <= 1, "all but one have ended", 30)
    assert {start.poll() for start in starts} <= {None, 0, int(buses > 1)}, "they ended otherwise"
    assert note.file.stat().st_ino == before, "the file was written"
    note.process = next(start for start in starts if start.poll() is None)
    note.window = wait_until(lambda: note.desktop.window_with("_NET_WM_PID", str(note.process.pid)), "a window")
    note.desktop.activate(note.window)
    note.type("x")
    return LINES + b"x"


FIGURES = r"(VmRSS|Threads|descriptors|MatchRules|X (?!res_)[\w ]*\w)\W+(?:uint32 )?(\d+)"
HELD = r"""cat /proc/{note}/status; echo "descriptors: $(ls /proc/{note}/fd | wc -l)"
gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
  --method org.freedesktop.DBus.Debug.Stats.GetConnectionStats {name}
xrestop -b -m 1 | awk '/^[0-9]+ - /{{own = /PID: *{note} /}} own && sub("\t", "X ")'"""


# From the first sixth of the rounds on, the program may hold no more; memory, which comes in pages, by 2 %.
@story
def soak(note, rounds):
    shell(note, "command -v xrestop", NotHere)
    note.start()
    seen = []

    def held():
        told = note.desktop.run("sh", "-c", HELD.format(note=note.process.pid, name=NAME))
        found = {name: int(count) for name, count in re.findall(FIGURES, told)}
        return found if {"descriptors", "MatchRules", "X windows"} <= found.keys() else None
    for number in range(1, 6 * rounds + 1):
        note.hide()
        note.desktop.keys("ctrl+alt+n")
        note.desktop.wait_active(note.window)
        note.type("x")
        note.desktop.keys("ctrl+alt+n")
        note.wait_hidden()
        note.start_again()
        note.desktop.keys("ctrl+alt+p")
        note.perform("togglePin")
        note.desktop.xdotool("mousemove", "--window", note.window, 403, 14, "click", 1)  # the info button
        note.desktop.keys("Escape")
        note.start_again()
        if number % rounds == 0:  # xrestop knows those by their number that have a window
            seen.append(wait_until(held, "all is told"))
    note.told = f"{number} rounds"
    for name, first in seen[0].items():
        most = max(later[name] for later in seen)
        note.told += f", {name} {first} to {most}"
        assert most <= first * (1.02 if name == "VmRSS" else 1), note.told
    return LINES + b"x" * number


# Its name; what happens to the world in a variant, which may give figures to tell or how many tries it was; the
# variants, or a function of the world that gives them; how many tries in the short form, in CI and in the long form,
# None: of each variant one; what the system's own rules allow.
Fault = collections.namedtuple("Fault", "name happens variants short ci long lost", defaults=(None, None, "nothing"))
FAULTS = (
    Fault("Killed at a system call of a save", hit, calls("signal=KILL"), 5, 60),
    Fault(f"A system call of a save fails: {', '.join(ERRORS)}, or a write that takes nothing", hit,
          calls(*(f"error={error}" for error in ERRORS), "retval=0"), 8, 150),
    Fault("Power cut during a save, on a model of a disk that forgets what was not synced; then the next start. Before "
          f"the save there was {', '.join(SCENES)}", cut, zip(SCENES.values()), None),
    Fault(f"For a while, or until the program ends or is killed, {', '.join(TROUBLES)}; second starts meanwhile",
          refused, itertools.product(TROUBLES, (None, SIGTERM, SIGKILL)), 5,
          lost="nothing; by an end, at most what was typed since the last save that the disk took, or was removed"),
    Fault(f"In place of the note {', '.join(STRANGERS)}", no_file, zip(STRANGERS), 2),
    Fault(f"Edits: {', '.join(EDITS)}", befallen, zip(EDITS), 2),
    Fault(f"Before a text is saved, {', '.join(STRIKES)}", befallen, zip(STRIKES), 3, None, 45,
          "nothing; by a kill, at most what was typed since the last pause of 0.8 s"),
    Fault("Killed at a random moment while typing", befallen, [("killed",)], 3, 40, 200,
          "at most what was typed since the last pause of 0.8 s"),
    Fault("12 starts at once, on one session bus and on three", many_starts, zip((1, 3)), 1, 4, 10),
    Fault("Used without a pause", soak, lambda world: [(500 if world.size == "long" else 10,)], 0),
)
