#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What is built and installed, as linkers, desktops and software centres find it."""

import argparse
import configparser
import json
import os
import platform
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

from desktop import Desktop, wait_until  # noqa: E402
from note import NAME, Note  # noqa: E402

TOP = Path(__file__).resolve().parent.parent.parent
TABLES = TOP / "platform/desktop/language/translations"

options = argparse.Namespace(build=None, cmake="cmake", lupdate="lupdate")


def tool(name):
    if not shutil.which(name):
        raise unittest.SkipTest(f"not installed: {name}")
    return name


def output(*command, **more):
    """What a command prints, its complaints too; AssertionError with them if it fails."""
    done = subprocess.run([str(part) for part in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, timeout=60, **more)
    if done.returncode != 0:
        raise AssertionError(f"{shlex.join(map(str, command))}\n{done.stdout}")
    return done.stdout


def read_entry(file):
    entry = configparser.ConfigParser(interpolation=None)
    entry.optionxform = str
    entry.read_string(file.read_text())
    return entry


def command_line(value):
    """The arguments of an entry's Exec key, which has no field codes: quoted as a shell does."""
    assert "%" not in value, value
    return shlex.split(value)


def read_tables():
    """What each language has for each of the program's texts."""
    return {table.stem.removeprefix("quillberry_"): {
        message.get("id"): message.findtext("translation") for message in xml.parse(table).iter("message")}
        for table in TABLES.glob("*.ts")}


class TestTexts(unittest.TestCase):
    def test_every_language_has_every_text(self):
        tables = read_tables()
        for language, table in tables.items():
            with self.subTest(language):
                self.assertEqual(table.keys(), tables["en"].keys())
                for text, shown in table.items():
                    self.assertTrue(shown, text)
                    marks = [sorted(re.findall(r"%\d|&", each)) for each in (text, shown)]
                    self.assertEqual(*marks, f"the placeholders and mnemonics of: {text}")

    def test_the_tables_have_what_the_program_says(self):
        """No more and no less, by what Qt's tool finds in the sources."""
        with tempfile.TemporaryDirectory() as folder:
            table = shutil.copy(TABLES / "quillberry_en.ts", folder)
            output(options.lupdate, "-silent", "-locations", "none", "-no-obsolete", "-tr-function-alias",
                   "qtTrId+=NSLocalizedString", "app", "note", "onboarding", "system", "platform/desktop", "-ts", table,
                   cwd=TOP)
            found = {message.get("id") for message in xml.parse(table).iter("message")}
            self.assertEqual(found, read_tables()["en"].keys())
            self.assertNotIn("unfinished", Path(table).read_text())


class TestHardened(unittest.TestCase):
    def readelf(self, *arguments):
        return output(tool("readelf"), "--wide", *arguments)

    def test_position_and_relocations(self):
        for file in options.build / "quillberry", *options.build.glob("quillberry-*.so"):
            with self.subTest(file.name):
                self.assertRegex(self.readelf("--file-header", file), r"Type:\s+DYN")
                segments = self.readelf("--segments", file)
                self.assertIn("GNU_RELRO", segments)
                self.assertRegex(segments, r"GNU_STACK.* RW ", "an executable stack")
                self.assertRegex(self.readelf("--dynamic", file), r"FLAGS.*(BIND_NOW|NOW)")
        self.assertRegex(self.readelf("--dynamic", options.build / "quillberry"), r"FLAGS_1.*\bPIE\b")

    def test_checks_in_the_code(self):
        symbols = self.readelf("--dyn-syms", options.build / "quillberry")
        self.assertIn("__stack_chk_fail@", symbols)
        self.assertRegex(symbols, r"__\w+_chk@")

    def test_no_library_for_nothing(self):
        needed = re.findall(r"NEEDED.*\[(.*)\]", self.readelf("--dynamic", options.build / "quillberry"))
        self.assertNotIn("network", " ".join(needed).lower(), "it is for the module to load")

    @unittest.skipUnless(platform.machine() == "x86_64", "other processors have other marks")
    def test_indirect_branches(self):
        """In what is compiled here: the linker drops the marks if the C library's start files lack them."""
        objects = self.readelf("--notes", options.build / "libprogram.a").split("File: ")[1:]
        self.assertTrue(objects)
        self.assertEqual([notes.split("\n")[0] for notes in objects if "IBT, SHSTK" not in notes], [])


class InstalledTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.prefix = Path(cls.enterClassContext(tempfile.TemporaryDirectory(ignore_cleanup_errors=True))) / "usr"
        output(options.cmake, "--install", options.build, "--prefix", cls.prefix)
        cls.entry_file = cls.prefix / f"share/applications/{NAME}.desktop"
        cls.entry = read_entry(cls.entry_file)
        cls.program = cls.prefix / "bin/quillberry"

    def only(self, pattern):
        found = list(self.prefix.rglob(pattern))
        self.assertEqual(len(found), 1, f"{pattern}: {found}")
        return found[0]


class TestInstalled(InstalledTest):
    def test_desktop_entry(self):
        output(tool("desktop-file-validate"), "--warn-kde", self.entry_file)
        for language, table in read_tables().items():
            suffix = f"[{language}]" if language != "en" else ""
            for key in "GenericName", "Comment", "Keywords":
                self.assertTrue(self.entry["Desktop Entry"][key + suffix])
            for action, text in ("toggleWindow", "Show / Hide Note"), ("togglePin", "Keep on Top"):
                self.assertEqual(self.entry[f"Desktop Action {action}"]["Name" + suffix], table[text])

    def test_metainfo(self):
        output(tool("appstreamcli"), "validate", "--no-net", self.only("*.metainfo.xml"))
        parts = [(part.tag, part.get("{http://www.w3.org/XML/1998/namespace}lang", "en"))
                 for part in xml.parse(self.only("*.metainfo.xml")).iter()]
        for language in read_tables():
            told = [parts.count((tag, language)) for tag in ("summary", "p", "li", "caption")]
            self.assertEqual(told, [1, 1, 5, 3], language)

    def test_manual_page(self):
        complaints = output(tool("man"), "--warnings", "--encoding=UTF-8", "--local-file", self.only("quillberry.1"),
                            env=os.environ | {"LC_ALL": "C.UTF-8", "MANROFFSEQ": "", "MANWIDTH": "80"})
        self.assertNotIn("warning:", complaints)

    def test_one_name_for_all(self):
        """Each finds the others by it."""
        metainfo = xml.parse(self.only("*.metainfo.xml")).getroot()
        names = {metainfo.findtext("id"), metainfo.findtext("launchable").removesuffix(".desktop"),
                 metainfo.findtext("provides/dbus"), metainfo.findtext("icon"), self.entry["Desktop Entry"]["Icon"],
                 self.only("*.service").stem, read_entry(self.only("*.service"))["D-BUS Service"]["Name"]}
        self.assertEqual(names, {NAME})
        for icon in f"scalable/apps/{NAME}", f"symbolic/apps/{NAME}-symbolic":
            self.assertTrue(xml.parse(self.prefix / f"share/icons/hicolor/{icon}.svg").getroot().get("viewBox"))

    def test_one_version_for_all(self):
        release = xml.parse(self.only("*.metainfo.xml")).getroot().find("releases/release")
        page = self.only("quillberry.1").read_text()
        self.assertIn(f'{release.get("date")} "Quillberry {release.get("version")}"', page)
        self.assertIn(release.get("version").encode(), self.program.read_bytes())

    def test_module_where_the_program_looks(self):
        text = self.program.read_bytes().replace(b"\0", b"").decode("ascii", "replace")  # Qt's are UTF-16
        folder = self.program.parent / re.search(r"\.\./[\w./-]+?/modules", text)[0]
        for name in "quillberry-feed.so", "quillberry-gnome.so":
            self.assertEqual(self.only(name), (folder / name).resolve())


class TestStarted(InstalledTest):
    """From what is installed, on a desktop that finds it there."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        tool("gapplication")
        cls.desktop = cls.enterClassContext(Desktop("openbox"))

    def setUp(self):
        self.enterContext(self.desktop.keeping_only_the_window_manager())
        self.note = Note(self.desktop, self.enterContext(tempfile.TemporaryDirectory(ignore_cleanup_errors=True)))
        self.environment = self.note.environment | {
            "PATH": f"{self.prefix}/bin:{os.environ['PATH']}", "XDG_DATA_DIRS": str(self.prefix / "share")}
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus(self.environment)

    def start_bus(self, environment):
        read_end, write_end = os.pipe()
        self.desktop.spawn("dbus-daemon", "--session", "--nofork", f"--address=unix:dir={self.desktop.home}",
                           f"--print-address={write_end}", environment=environment, pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            return pipe.readline().strip()

    def launch(self, group):
        """As a launcher does."""
        return self.desktop.spawn(*command_line(self.entry[group]["Exec"]), environment=self.environment)

    def wait_window(self):
        wanted = self.entry["Desktop Entry"]["StartupWMClass"]
        self.note.window = wait_until(lambda: self.desktop.window_with("WM_CLASS", f'"quillberry", "{wanted}"'),
                                      "the window by the class that the entry names")

    def pinned(self):
        return json.loads(self.note.settings.read_text()).get("pinned", True)

    def test_from_its_entry(self):
        self.assertTrue(shutil.which(self.entry["Desktop Entry"]["TryExec"], path=self.environment["PATH"]))
        self.launch("Desktop Entry")
        self.wait_window()
        self.assertEqual(set(self.entry["Desktop Entry"]["Actions"].rstrip(";").split(";")),
                         {"toggleWindow", "togglePin"})
        self.launch("Desktop Action togglePin")
        wait_until(lambda: not self.pinned(), "no longer kept on top")
        self.desktop.wait_active(self.note.window)
        self.launch("Desktop Action toggleWindow")
        self.note.wait_hidden()

    def test_by_the_bus(self):
        """Which starts a program that does not run for an action of it, and the action is done."""
        self.launch("Desktop Action togglePin")
        self.wait_window()
        wait_until(lambda: not self.pinned(), "no longer kept on top")

    def test_by_the_bus_to_show_the_note(self):
        self.launch("Desktop Action toggleWindow")
        self.wait_window()
        self.launch("Desktop Action togglePin")
        wait_until(lambda: not self.pinned(), "the request after the one that it was started for is done")
        self.desktop.wait_active(self.note.window)
        self.launch("Desktop Action toggleWindow")
        self.note.wait_hidden()

    def test_from_an_action_where_the_bus_has_no_display(self):
        without = {key: value for key, value in self.environment.items() if key != "DISPLAY"}
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus(without)
        self.launch("Desktop Action toggleWindow")
        self.wait_window()
        self.desktop.wait_active(self.note.window)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--cmake", default=options.cmake)
    parser.add_argument("--lupdate", default=options.lupdate)
    parser.add_argument("case", choices=("hardened", "installed", "started", "texts"))
    parser.parse_args(namespace=options)
    tests = unittest.defaultTestLoader.loadTestsFromTestCase(globals()[f"Test{options.case.capitalize()}"])
    result = unittest.TextTestRunner(verbosity=2).run(tests)
    if not result.wasSuccessful():
        sys.exit(1)
    sys.exit(77 if result.skipped else 0)


if __name__ == "__main__":
    main()
