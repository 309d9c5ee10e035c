# SPDX-License-Identifier: MIT
"""The system calls of one save: found by tracing it, made to fail or to be the last, and replayed on a disk that
forgets what was not synced."""

import ast
import contextlib
import itertools
import os
import re
import signal
import typing
import unittest
from pathlib import Path

from desktop import wait_until

TRACED = "%file,%desc,getrandom"
# What the model of a disk would have to learn first.
UNKNOWN_TO_THE_MODEL = re.compile(r"pwrite|writev|ftruncate|fallocate|copy_file_range|sendfile|symlink|mkdir|.*O_TRUNC")


class Call(typing.NamedTuple):
    thread: str
    name: str
    text: str  # arguments and result, descriptors with their paths
    nth: int  # among the thread's calls of this name, from 1

    @property
    def done(self):
        return re.search(r" = \d", self.text) is not None


def parse(log):
    """The calls of a trace, in the order in which they began; one that another thread interrupts is put together.
    Where one thread is traced, it has no name."""
    calls, begun, counts = [], {}, {}
    for line in log.splitlines():
        if resumed := re.match(r"(\d+) +<\.\.\. \w+ resumed>(.*)", line):
            at = begun.pop(resumed[1], None)
            if at is not None:
                calls[at] = calls[at]._replace(text=calls[at].text + resumed[2])
        elif found := re.match(r"(?:(\d+) +)?(\w+)\((.*)", line):
            thread, name, text = found.groups()
            counts[thread, name] = nth = counts.get((thread, name), 0) + 1
            if text.endswith(" <unfinished ...>"):
                text = text.removesuffix(" <unfinished ...>")
                begun[thread] = len(calls)
            calls.append(Call(thread, name, text, nth))
    return calls


def begun_saving(calls, folder):
    """From the first call that names something in the folder on, all of the same thread but what wakes another one."""
    calls = [call for call in calls if "<anon_inode:" not in call.text]
    marked = [call for call in calls if f"{folder}/" in call.text]
    assert len({call.thread for call in marked}) <= 1, "a save by more than one thread"
    return [call for call in calls[calls.index(marked[0]):] if call.thread == marked[0].thread] if marked else []


def of_the_save(calls, folder):
    """Down to the last call that names something in the folder, too."""
    calls = begun_saving(calls, folder)
    while calls and f"{folder}/" not in calls[-1].text:
        calls.pop()
    return calls


@contextlib.contextmanager
def traced(note, *injection):
    """Traces the running program while inside; gives a function that tells its calls. An injection is for the thread
    that saves alone: another one whose call fails may make it call more often."""
    log = note.folder / "trace"
    told = note.folder / "tracer"
    with told.open("w") as output:
        tracer = note.desktop.spawn("strace", *([] if injection else ["-f"]), "-y", "-s", "1000000", "-o", str(log),
                                    "-p", str(note.process.pid), "-e", f"trace={TRACED}", *injection, stderr=output)
    wait_until(lambda: "attached" in told.read_text() or tracer.poll() is not None, "strace is attached")
    if tracer.poll() is not None and note.process.poll() is None:
        raise unittest.SkipTest(f"strace cannot attach: {told.read_text().strip()}")
    try:
        yield lambda: parse(log.read_text())
    finally:
        if tracer.poll() is None:
            tracer.send_signal(signal.SIGINT)  # it lets go of the program
        tracer.wait(timeout=10)


class Disk:
    """Replays a save's calls; what of it survives a power cut at any moment is up to the disk."""

    def __init__(self, files, calls, folder):
        """`files`: contents by path, as seen from the folder, all of it on disk."""
        self.folder = folder
        self.contents = list(files.values())  # by file, whatever its names
        self.durable = [True] * len(files)
        self.names = {path: number for number, path in enumerate(files)}
        self.on_disk = dict(self.names)
        self.pending = []  # changes of names: the name that goes, the one that comes, its file
        self.calls = [call for call in calls if call.done]

    def states(self):
        """After each call: every set of names and contents that a power cut can leave, and whether all is done."""
        yield from ((state, False) for state in self._after_a_cut())
        for number, call in enumerate(self.calls, 1):
            self._replay(call)
            for state in self._after_a_cut():
                yield state, number == len(self.calls)

    def _replay(self, call):
        assert not UNKNOWN_TO_THE_MODEL.match(f"{call.name} {call.text}"), f"the model of a disk knows no {call}"
        paths = [self._seen(Path(folder) / name)
                 for folder, name in re.findall(r'(?:<([^>]*)>, )?"((?:[^"\\]|\\.)*)"', call.text)]
        if call.name == "openat" and "O_CREAT" in call.text:
            self.contents.append(b"")
            self.durable.append(False)
            self._name(paths[0], len(self.contents) - 1)
        elif call.name == "write":
            path, data = re.match(r'\d+<([^>]*)>, ("(?:[^"\\]|\\.)*")', call.text).groups()
            written = int(re.search(r" = (\d+)", call.text)[1])
            file = self.names[self._seen(path)]
            self.contents[file] += ast.literal_eval("b" + data)[:written]
            self.durable[file] = False
        elif call.name in ("fsync", "fdatasync"):
            self._sync(self._seen(re.match(r"\d+<([^>]*)>", call.text)[1]))
        elif call.name.startswith("rename"):
            self._name(paths[1], self.names[paths[0]], gone=paths[0])
        elif call.name.startswith("link"):
            self._name(paths[1], self.names[paths[0]])
        elif call.name.startswith("unlink"):
            self._name(None, None, gone=paths[0])

    def _seen(self, path):
        return os.path.relpath(path, self.folder)

    def _name(self, path, file, gone=None):
        self.pending.append((gone, path, file))
        self._apply(self.names, self.pending[-1])

    @staticmethod
    def _apply(names, change):
        gone, path, file = change
        names.pop(gone, None)
        if path:
            names[path] = file

    def _sync(self, path):
        if path in self.names:
            self.durable[self.names[path]] = True
            return
        for change in [change for change in self.pending if self._folder(change[1] or change[0]) == path]:
            self._apply(self.on_disk, change)
            self.pending.remove(change)

    @staticmethod
    def _folder(path):
        return os.path.normpath(os.path.dirname(path))

    def _after_a_cut(self):
        for kept in itertools.product((False, True), repeat=len(self.pending)):
            names = dict(self.on_disk)
            for change in itertools.compress(self.pending, kept):
                self._apply(names, change)
            for contents in itertools.product(*(self._remains(names[path]) for path in sorted(names))):
                yield dict(zip(sorted(names), contents))

    def _remains(self, file):
        whole = self.contents[file]
        if self.durable[file]:
            return [whole]
        return sorted({whole, b"", whole[:len(whole) // 2], bytes(len(whole))})
