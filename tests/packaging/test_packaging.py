#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What is built and installed, as linkers, desktops and software centres find it."""

import argparse
import configparser
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as xml
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "session"))

from desktop import Desktop, NotStarted, wait_until  # noqa: E402
from note import NAME, Note  # noqa: E402

TOP = Path(__file__).resolve().parent.parent.parent
TABLES = TOP / "platform/desktop/language/translations"

options = argparse.Namespace(lupdate="lupdate")


def output(*command, **more):
    if not shutil.which(command[0]):
        raise NotStarted(f"not installed: {command[0]}")
    done = subprocess.run(list(map(str, command)), capture_output=True, text=True, timeout=60, **more)
    assert done.returncode == 0, f"{command}\n{done.stdout}{done.stderr}"
    return done.stdout


def read_entry(file):
    entry = configparser.ConfigParser(interpolation=None)
    entry.optionxform = str
    entry.read_string(file.read_text())
    return entry


# The arguments of an entry's Exec key, which has no field codes: quoted as a shell does.
def command_line(value):
    assert "%" not in value, value
    return shlex.split(value)


# What each language has for each of the program's texts.
def read_tables(folder=TABLES):
    return {table.stem.removeprefix("quillberry_"): {
        message.get("id"): message.findtext("translation") for message in xml.parse(table).iter("message")}
        for table in folder.glob("*.ts")}


class TestTexts(unittest.TestCase):
    def test_every_language_has_what_the_program_says(self):
        """No more and no less, by what Qt's tool finds in the sources."""
        with tempfile.TemporaryDirectory() as folder:
            copies = Path(shutil.copytree(TABLES, f"{folder}/tables"))
            output(options.lupdate, "-silent", "-locations", "none", "-no-obsolete", "-tr-function-alias",
                   "qtTrId+=NSLocalizedString", "app", "note", "onboarding", "system", "platform/desktop",
                   "-ts", *copies.glob("*.ts"), cwd=TOP)
            self.assertEqual(read_tables(copies), read_tables())
        for language, table in read_tables().items():
            for text, shown in table.items():
                marks = [sorted(re.findall(r"%\d|&", each)) for each in (text, shown)]
                self.assertTrue(shown and marks[0] == marks[1], f"{language}: placeholders and mnemonics of {text}")


class TestHardened(unittest.TestCase):
    def test_what_is_built(self):
        program = options.build / "quillberry", r"FLAGS_1.*PIE", "__stack_chk_fail@", r"__(?!stack)\w+_chk@"
        for file, *more in (*((module,) for module in options.build.glob("quillberry-*.so")), program):
            told = output("readelf", "--wide", "--file-header", "--segments", "--dynamic", "--dyn-syms", file)
            for pattern in (r"Type:\s+DYN", "GNU_RELRO", "GNU_STACK.* RW ", "FLAGS.*NOW", *more):
                self.assertRegex(told, pattern, file)
        self.assertNotRegex(told, "NEEDED.*[Nn]etwork", "it is for the module to load")
        if os.uname().machine == "x86_64":  # in what is compiled here: not all C libraries have such marks
            notes = output("readelf", "--wide", "--notes", options.build / "libprogram.a")
            self.assertEqual(notes.count("File: "), notes.count("IBT, SHSTK"), notes)


class InstalledTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.prefix = Path(cls.enterClassContext(tempfile.TemporaryDirectory())) / "usr"
        output("cmake", "--install", options.build, "--prefix", cls.prefix)
        cls.share = cls.prefix / "share"
        cls.entry = read_entry(cls.share / f"applications/{NAME}.desktop")
        cls.main = cls.entry["Desktop Entry"]


class TestInstalled(InstalledTest):
    def test_all_say_the_same(self):
        output("desktop-file-validate", "--warn-kde", self.share / f"applications/{NAME}.desktop")
        output("appstreamcli", "validate", "--no-net", self.share / f"metainfo/{NAME}.metainfo.xml")
        metainfo = xml.parse(self.share / f"metainfo/{NAME}.metainfo.xml")
        service = read_entry(self.share / f"dbus-1/services/{NAME}.service")["D-BUS Service"]
        names = {metainfo.findtext("id"), metainfo.findtext("launchable").removesuffix(".desktop"), service["Name"],
                 metainfo.findtext("provides/dbus"), metainfo.findtext("icon"), self.main["Icon"]}
        self.assertEqual(names, {NAME})
        for icon in f"scalable/apps/{NAME}", f"symbolic/apps/{NAME}-symbolic":
            xml.parse(self.share / f"icons/hicolor/{icon}.svg")
        release, program = metainfo.find("releases/release").attrib, (self.prefix / "bin/quillberry").read_bytes()
        self.assertIn(release["version"].encode(), program)
        page = (self.share / "man/man1/quillberry.1").read_text()
        self.assertIn('{date} "Quillberry {version}"'.format(**release), page)
        folder = re.search(rb"\.\./[\w./-]+?/modules", program.replace(b"\0", b""))[0].decode()  # Qt's are UTF-16
        modules = {file.name for file in (self.prefix / "bin" / folder).iterdir()}
        self.assertEqual(modules, {"quillberry-feed.so", "quillberry-gnome.so"})

    def test_all_speak_every_language(self):
        parts = [(part.tag, part.get("{http://www.w3.org/XML/1998/namespace}lang", "en"))
                 for part in xml.parse(self.share / f"metainfo/{NAME}.metainfo.xml").iter()]
        for language, table in read_tables().items():
            suffix = f"[{language}]" if language != "en" else ""
            self.assertEqual([parts.count((tag, language)) for tag in ("summary", "p", "li", "caption")], [1, 1, 5, 3])
            self.assertTrue(all(self.main[key + suffix] for key in ("GenericName", "Comment", "Keywords")))
            for action, text in ("toggleWindow", "Show / Hide Note"), ("togglePin", "Keep on Top"):
                self.assertEqual(self.entry[f"Desktop Action {action}"]["Name" + suffix], table[text])


class TestStarted(InstalledTest):
    def test_by_its_entry(self):
        """Itself; or for an action, which the bus starts it for; or where the bus cannot, for want of a display."""
        for first, bus in ("Entry", ()), ("Action togglePin", ()), ("Action toggleWindow", ()), (
                "Action toggleWindow", ("env", "-u", "DISPLAY")):
            with self.subTest(first=first, bus=bus), Desktop("openbox") as desktop, \
                    tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as folder:
                note = Note(desktop, folder)
                address = f"unix:path={folder}/bus"
                note.environment |= {"PATH": f"{self.prefix}/bin:{os.environ['PATH']}",
                                     "XDG_DATA_DIRS": str(self.share), "DBUS_SESSION_BUS_ADDRESS": address}
                desktop.spawn(*bus, "dbus-daemon", "--session", "--nofork", f"--address={address}",
                              environment=note.environment)
                wait_until(Path(folder, "bus").exists, "a bus")
                self.use(note, first)

    def use(self, note, first):
        def launch(group):
            note.desktop.spawn(*command_line(self.entry[f"Desktop {group}"]["Exec"]), environment=note.environment)
        self.assertTrue(shutil.which(self.main["TryExec"], path=note.environment["PATH"]))
        launch(first)
        wanted = f'"quillberry", "{self.main["StartupWMClass"]}"'
        note.window = wait_until(lambda: note.desktop.window_with("WM_CLASS", wanted), "the window of this class")
        if "Pin" not in first:
            launch("Action togglePin")
        wait_until(lambda: re.search('"pinned": *false', note.settings.read_text()), "no longer kept on top")
        note.desktop.wait_active(note.window)
        launch("Action toggleWindow")
        note.wait_hidden()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--lupdate")
    parser.add_argument("case", choices=("hardened", "installed", "started", "texts"))
    parser.parse_args(namespace=options)
    result = unittest.main(argv=["", f"Test{options.case.capitalize()}"], verbosity=2, exit=False).result
    sys.exit(1 if not result.wasSuccessful() else 77 if result.skipped else 0)


if __name__ == "__main__":
    main()
