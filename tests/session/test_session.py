#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Drives the program as a user does, on a real desktop. Exit code 77: skipped."""

import argparse
import signal
import sys
import unittest
from pathlib import Path

import test_day
import test_services
import test_shell
import test_walk
from kinds import KINDS
from note import SessionTest, options

CLASSES = {name: case for module in (test_walk, test_shell, test_services, test_day)
           for name, case in vars(module).items() if isinstance(case, type) and issubclass(case, SessionTest)}
EVERYWHERE = "TestWalk", "TestFrame", "TestWindows", "TestInputMethod", "TestReturn.test_return"
WHOLE = EVERYWHERE + ("TestDay", "TestLogOut")
BARE = EVERYWHERE + ("TestTray.test_notifier_host",)
ON_X11 = BARE + ("TestHotKeys", "TestScreens")
ON_DESKTOP = {"openbox": ON_X11 + ("TestTray", "TestReturn", "TestServices", "TestPortal"),
              "sway": BARE + ("TestNative", "TestLogOut", "TestPortal.test_keys")}


def expand(names):
    """Each of them a Class or a Class.test: all as Class.test, each once."""
    cases = {}
    for name in names:
        case, _, method = name.partition(".")
        for test in [method] if method else unittest.defaultTestLoader.getTestCaseNames(CLASSES[case]):
            cases[f"{case}.{test}"] = CLASSES[case](test)
    return cases


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--binary", type=lambda path: str(Path(path).resolve()))
    parser.add_argument("--desktop", choices=KINDS, default="openbox")
    parser.add_argument("--list", action="store_true", help="print the names of the desktop's tests and end")
    parser.add_argument("names", nargs="*", help="Class or Class.test; by default, the desktop's")
    parser.parse_args(namespace=options)
    usual = ON_DESKTOP.get(options.desktop, WHOLE if KINDS[options.desktop].programs else ON_X11)
    cases = expand(options.names or usual)
    if options.list:
        print(*cases, sep="\n")
        return 0
    if not options.binary:
        parser.error("--binary is missing")
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # so that the desktop ends too
    result = unittest.TextTestRunner(verbosity=2).run(unittest.TestSuite(cases.values()))
    if not result.wasSuccessful():
        return 1
    for _, reason in result.skipped:
        print(f"skipped: {reason}")
    return 77 if result.skipped else 0


if __name__ == "__main__":
    sys.exit(main())
