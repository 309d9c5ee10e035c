# SPDX-License-Identifier: MIT
"""What every fault needs: one desktop for all, a note of its own for each, and what must hold afterwards."""

import contextlib
import functools
import os
import signal
import stat
import subprocess
import tempfile
import typing
from pathlib import Path

import saves
from note import Note

NOTE = "note.txt"
KEPT = "note.txt.unreadable"
LINES = b"Milk, eggs\n" * 500  # more than one page of memory


class NotHere(Exception):
    """The fault cannot be made on this machine."""


def expect(holds, what):
    if not holds:
        raise AssertionError(what)


def brief(text):
    return repr(text) if text is None or len(text) < 40 else f"{len(text)} bytes that end in {text[-16:]!r}"


def contents(path):
    """None where there is none."""
    with contextlib.suppress(FileNotFoundError, NotADirectoryError):
        return path.read_bytes()
    return None


def end_with(note, number=signal.SIGTERM):
    code = note.signal(number)
    expect(code == (0 if number == signal.SIGTERM else -number), f"it ended with {code}")


def check_next_start(note, shown):
    """The next start shows the text, so that its end writes the same, and clears away what is not the note's."""
    before = note.file.stat().st_ino if note.file.exists() else None
    note.launch()
    end_with(note)
    expect(contents(note.file) == shown, f"shown after the next start: {brief(contents(note.file))}")
    expect(note.file.stat().st_ino != before, "the end of the next start wrote nothing")
    others = {path.name for path in note.file.parent.iterdir()} - {NOTE, KEPT}
    expect(not others, f"left in the folder: {others}")


class Scene(typing.NamedTuple):
    """A note before a save; the save adds one letter to what is shown."""

    old: typing.Optional[bytes]
    shown: bytes
    target: str = NOTE  # else the note is a link to this

    @property
    def new(self):
        return self.shown + b"x"

    @property
    def unreadable(self):
        return self.old is not None and self.old != self.shown

    def prepare(self, note):
        note.file.parent.mkdir(parents=True)
        file = note.file.parent / self.target
        if self.target != NOTE:
            file.parent.mkdir()
            note.file.symlink_to(self.target)
        if self.old is not None:
            file.write_bytes(self.old)

    def check(self, note, allowed):
        """That the text is whole, and where it belongs; then, what the next start makes of it."""
        found = contents(note.file)
        expect(found in allowed, f"the note holds {brief(found)}")
        self.check_kept(note, found)
        shown = found if found != self.old else self.shown
        check_next_start(note, shown)
        self.check_kept(note, shown)

    def check_kept(self, note, found):
        expect(self.target == NOTE or note.file.is_symlink(), "the link is gone")
        if self.unreadable and found != self.old:
            expect(contents(note.file.with_name(KEPT)) == self.old, "what could not be read is gone")


SCENES = {"a note": Scene(LINES, LINES), "the first save": Scene(None, b""),
          "a file that is no text": Scene(b"caf\xe9", b""), "a link": Scene(LINES, LINES, "../elsewhere/target.txt")}


class World:
    def __init__(self, desktop, random, scratch, binary):
        self.binary = binary
        self.desktop = desktop
        self.random = random
        self.scratch = scratch

    @contextlib.contextmanager
    def note(self, old=None, desktop=None):
        """A note that is not started yet; what was started ends with it."""
        desktop = desktop or self.desktop
        with tempfile.TemporaryDirectory(dir=self.scratch, ignore_cleanup_errors=True) as folder, \
                desktop.keeping_only_the_window_manager():
            note = Note(desktop, folder)
            if old is not None:
                note.put_text(old)
            yield note

    @contextlib.contextmanager
    def scene(self, name):
        """A note with a letter typed that is not saved yet."""
        with self.note() as note:
            SCENES[name].prepare(note)
            note.start().type("x")
            yield note

    @functools.cache
    def calls_of_a_save(self, scene):
        """The files beforehand and the calls, with all paths as seen from the note's folder."""
        with self.scene(scene) as note:
            files = [path for path in (note.folder / "data").rglob("*.txt") if not path.is_symlink()]
            before = {os.path.relpath(path, note.file.parent): path.read_bytes() for path in files}
            with saves.traced(note) as calls:
                note.hide()
            found = saves.of_the_save(calls(), note.folder / "data")
            expect(found, "no save is seen")
            return before, found, note.file.parent


def mount(place, *options):
    if subprocess.run(["mount", *options, str(place)], stderr=subprocess.DEVNULL, check=False).returncode != 0:
        raise NotHere("nothing can be mounted here")


@contextlib.contextmanager
def small_disk(place):
    """A disk of 64 KB mounted on the folder."""
    if os.geteuid() != 0:
        raise NotHere("only root can mount a disk")
    place.mkdir(parents=True, exist_ok=True)
    mount(place, "-t", "tmpfs", "-o", "size=64k,mode=700", "none")
    try:
        yield
    finally:
        subprocess.run(["umount", "--lazy", str(place)], check=False)


def make_null_device(path):
    """A device of its own: the system's one is at stake otherwise."""
    try:
        os.mknod(path, stat.S_IFCHR | 0o666, os.makedev(1, 3))
        path.write_bytes(b"x")
    except OSError as error:
        raise NotHere("only root can make a device") from error
