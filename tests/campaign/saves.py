# SPDX-License-Identifier: MIT
"""Notes and their saves: what must hold after each, and its system calls, found by tracing it and replayed on a disk
that forgets what was not synced."""

import ast
import collections
import contextlib
import functools
import itertools
import os
import re
import subprocess
import tempfile
import types
import typing
from reprlib import repr as brief
from signal import SIGTERM

from desktop import NotStarted as NotHere, wait_until
from note import Note

NOTE, KEPT, LINKED = "data/Quillberry/note.txt", "data/Quillberry/note.txt.unreadable", "data/elsewhere/text"
LINK = f"mkdir data/elsewhere; ln -s ../elsewhere/text {NOTE}"
SMALL_DISK = "mount -t tmpfs -o size=64k,mode=700 none"
LINES = b"Milk, eggs\n" * 500  # more than one page of memory


# Runs a script in the folder above the data folder.
def shell(note, script, failure=AssertionError):
    if subprocess.call(["sh", "-ec", script], cwd=note.folder, env=note.environment, stdout=subprocess.DEVNULL) != 0:
        raise failure(f"it failed: {script}")


def contents(path):
    return path.read_bytes() if path.exists() else b""


def end(note, number=SIGTERM):
    assert note.signal(number) == (0 if number == SIGTERM else -number), "it did not end as it should"


class Scene(typing.NamedTuple):
    """A note before a save; the save adds one letter to what is shown."""

    old: bytes
    new: bytes
    target: str = NOTE  # else the note is a link to this
    make: str = ""

    @property
    def files(self):
        return {self.target: self.old} if self.old else {}

    def put(self, note, files):
        shell(note, f"mkdir -p data/Quillberry; {self.make}", NotHere)
        for path, text in files.items():
            (note.folder / path).write_bytes(text)

    def check(self, note, *allowed):
        """That the file holds one of the texts, and the next start shows and writes it and clears away all else."""
        found = contents(note.file)
        assert found in allowed, f"the note holds {brief(found)}"
        before = note.file.exists() and note.file.stat().st_ino
        note.launch()
        end(note)
        shown = contents(note.file)
        assert shown == (self.new[:-1] if found == self.old else found), f"the next start shows {brief(shown)}"
        assert note.file.stat().st_ino != before, "the end of the next start wrote nothing"
        assert self.target == NOTE or note.file.resolve() == note.folder.resolve() / self.target, "a link is gone"
        assert self.old == self.new[:-1] or self.old == contents(note.folder / KEPT), "what could not be read is gone"
        for path in (*note.file.parent.iterdir(), *note.file.resolve().parent.iterdir()):
            assert re.fullmatch(r"(note\.txt|text)(\.unreadable|\.link)?", path.name), f"{path} is left"


SCENES = {
    "a note": Scene(LINES, LINES + b"x"), "no note": Scene(b"", b"x"), "a file that is no text": Scene(b"\xe9", b"x"),
    "a link": Scene(LINES, LINES + b"x", LINKED, LINK), "a dangling link": Scene(b"", b"x", LINKED, LINK),
    "a link to a link": Scene(LINES, LINES + b"x", f"{LINKED}.link", f"{LINK}; ln -s text.link {LINKED}"),
    "a link to another disk": Scene(LINES, LINES + b"x", LINKED, f"{LINK}; {SMALL_DISK} data/elsewhere")}


class World(typing.NamedTuple):
    desktop: typing.Any
    size: str

    # Not started yet, or one of a scene.
    @contextlib.contextmanager
    def note(self, scene=None):
        with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as folder, contextlib.ExitStack() as stack, \
                self.desktop.keeping_only_the_window_manager():
            note = Note(self.desktop, folder)
            stack.callback(shell, note, "umount -l data/elsewhere data 2>/dev/null || true")
            if scene:
                scene.put(note, scene.files)
                note.start()
            yield note

    @functools.cache
    def calls_of_a_save(self, scene):
        seen = []
        for _ in range(20):
            with self.note(scene) as note:
                _, *calls = traced(note, scene)
            if [call.name for call in calls].count("renameat") == 1:
                while not re.search('["<]data/', calls[-1].text):
                    calls.pop()
                seen.append([call.number for call in calls])
                if seen.count(seen[-1]) == 2:  # once may be with what the thread seldom does beside a save
                    return calls
        raise AssertionError("no save is seen")


# The text: arguments and result, descriptors with their paths; the number: among those of this name, from 1.
Call = collections.namedtuple("Call", "name text number")


# Types a letter and hides the note. Whether that hangs; then the calls from the first that names something in the data
# folder, but what wakes other threads, paths as seen from the note's; none if a pause has saved it before.
def traced(note, scene, *injection):
    shell(note, "command -v strace", NotHere)
    note.type("x")
    tracer = note.desktop.spawn("strace", "-y", "-s", "1000000", "-o", f"{note.folder}/trace", "-p",
                                str(note.process.pid), "-e", "trace=%file,%desc,getrandom", *injection)
    not_yet = "grep", "TracerPid:.0", f"/proc/{note.process.pid}/status"
    wait_until(lambda: tracer.poll() is not None or not note.desktop.run(*not_yet), "strace is attached")
    if tracer.poll() is not None and note.process.poll() is None:
        raise NotHere("strace cannot attach to a process")
    in_time = contents(note.file) == scene.old
    note.desktop.keys("Escape")
    with contextlib.suppress(AssertionError):
        note.wait_hidden()
    calls, counts = [note.desktop.is_viewable(note.window)], collections.Counter()
    tracer.terminate()  # it lets go of the program
    tracer.wait(timeout=10)
    for name, text in re.findall(r"^(\w+)\((.*)", (note.folder / "trace").read_text(), re.MULTILINE):
        counts[name] += 1
        if (calls[1:] or f"{note.folder}/data/" in text) and "<anon_inode:" not in text:
            calls.append(Call(name, text.replace(f"{note.folder}/", ""), counts[name]))
    return calls if in_time else calls[:1]


class Disk:
    """Replays calls on files, which are texts by their paths; what of it survives a power cut is up to the disk."""

    NO_MATTER = re.compile(r"(\w*stat\w*|readlink\w*|getrandom|fchown|fchmod|\w*xattr|close) |openat .*O_RDONLY")

    def __init__(self, files):
        self.names = {path: types.SimpleNamespace(text=text, synced=True) for path, text in files.items()}
        self.on_disk = dict(self.names)
        self.pending = []  # changes of names: the file that each stands for now, or None

    def replay(self, call):
        paths = [os.path.join(*path) for path in re.findall(r'(?:<([^>]*)>, )?"((?:[^"\\]|\\.)*)"', call.text)]
        opened = "".join(re.findall(r"^\d+<([^>]*)>", call.text))
        change = {}
        match call.name:
            case "openat" if "O_CREAT|O_EXCL" in call.text:
                change = {paths[0]: types.SimpleNamespace(text=b"", synced=False)}
            case "write":
                data, written = re.search(r'("(?:[^"\\]|\\.)*"), \d+\) += (\d+)', call.text).groups()
                self.names[opened].text += ast.literal_eval("b" + data)[:int(written)]
                self.names[opened].synced = False
            case "fsync" if opened in self.names:
                self.names[opened].synced = True
            case "fsync":
                for synced in [change for change in self.pending if opened in map(os.path.dirname, change)]:
                    self.on_disk |= synced
                    self.pending.remove(synced)
            case "renameat" | "linkat" | "unlinkat":
                change = {path: self.names[paths[0]] for path in paths[1:]}
                change |= {paths[0]: None} if call.name != "linkat" else {}
            case _:
                assert self.NO_MATTER.match(f"{call.name} {call.text}"), f"the model of a disk knows no {call}"
        self.names |= change
        self.pending += [change] * bool(change)

    def after_a_cut(self):
        """Every set of names and contents that can be left now."""
        for kept in itertools.product((False, True), repeat=len(self.pending)):
            names = dict(self.on_disk)
            for change in itertools.compress(self.pending, kept):
                names |= change
            files = sorted((path, file) for path, file in names.items() if file)
            for texts in itertools.product(*({file.text} if file.synced else {
                    file.text, b"", file.text[:len(file.text) // 2], bytes(len(file.text))} for _, file in files)):
                yield dict(zip(dict(files), texts))

    def states(self, calls):
        """After each call that was done: every state that a power cut can leave, and whether all is done."""
        done = [call for call in calls if re.search(r" = \d", call.text)]
        yield from ((state, not done) for state in self.after_a_cut())
        for call in done:
            self.replay(call)
            yield from ((state, call is done[-1]) for state in self.after_a_cut())
