# SPDX-License-Identifier: MIT
"""Whatever a user does, in any order, beside a model of what must come of it."""

import itertools
import random
import signal

from desktop import soon, wait_until
from note import PIN, SHOW, SessionTest, options

CLOSE_BUTTON, INFO_BUTTON = (16, 14), (403, 14)  # inside the window
STEPS = 30


class TestWalk(SessionTest):
    """The model: the text, whether the note is shown, in front, and pinned, and the others, the front one first."""

    def start(self):
        self.text, self.shown, self.front, self.pinned = "", True, True, True
        first = self.desktop.companion("companion 1")
        self.others = [self.desktop.companion("companion 2"), first]
        self.ends = itertools.cycle((signal.SIGTERM, None, signal.SIGINT, None, signal.SIGHUP))
        self.taps = itertools.cycle((150, 270))  # two at one place would be a double click
        self.note.start().wait_for_keys()  # and has gone back to its place, from which i3 moves it
        self.frame = self.note.geometry()
        self.check()

    def type(self):
        letter = random.choice("abcdefgh")
        self.note.type(letter)
        self.text += letter

    def pause(self):
        self.note.wait_for_text(self.text)

    def escape(self):
        self.press("Escape")
        self.shown = self.front = False

    def close_button(self):
        self.note.click(*CLOSE_BUTTON)
        self.shown = self.front = False

    def call(self):
        self.front = self.shown = not self.front

    def hot_key(self):
        self.press(SHOW)
        self.call()

    def action(self):
        self.note.perform("toggleWindow")
        self.call()

    def second_start(self):
        self.note.start_again()
        self.front = self.shown = True

    def pin(self):
        self.pinned = not self.pinned
        if self.desktop.kind.wayland:
            self.note.perform("togglePin")
        else:
            self.press(PIN)
        self.note.wait_setting("pinned", self.pinned)

    def go_to_companion(self):
        """One covers the other, and a note that is not pinned, but no other."""
        self.others.reverse()
        self.desktop.activate(self.others[0])
        self.front = False
        if not self.desktop.tiles:
            below = self.others[1:] + [self.note.window] * (self.shown and not self.pinned)
            wait_until(lambda: all(self.desktop.lies_above(self.others[0], other) for other in below), "it is raised")

    def call_covered(self):
        if self.pinned:
            self.pin()
        self.second_start()
        self.go_to_companion()
        self.action()

    def update_window(self):
        """Is in front of all, at the middle of the screen, and gives the keyboard back."""
        self.note.perform("checkForUpdates")
        window = wait_until(self.note.other_window, "the update window")
        self.note.wait_active("the update window is in front", window)
        wait_until(lambda: self.desktop.tiles or self.desktop.lies_above(window, self.note.window), "it is above")
        x, _, width, _ = self.desktop.geometry(window)
        self.assertAlmostEqual(x + width / 2, self.desktop.screen[0] / 2, delta=20)
        self.press("Escape")
        wait_until(lambda: not self.desktop.is_viewable(window), "it is closed")

    def tap_on_title_bar(self):
        """A press and its release in one moment are no drag: the pointer then moves without the note."""
        self.note.click(next(self.taps), 14)

    def shortcuts(self):
        # Again if need be: a window manager's grab of the pointer at times takes away a click soon after another.
        wait_until(lambda: self.note.click(*INFO_BUTTON) or soon(self.note.popup, 5), "the shortcuts")
        close, *how = random.choice([(self.press, "Escape"), (self.note.click, 60, 280),
                                     (self.note.click, *INFO_BUTTON)])
        wait_until(lambda: close(*how) or soon(lambda: not self.note.popup(), 5), "the shortcuts are closed")

    def end_and_start(self):
        if self.front:
            self.type()  # which is not saved yet
        if number := next(self.ends):
            self.note.process.send_signal(number)
        elif self.front:
            self.press("ctrl+q")
        else:
            self.note.perform("terminate")
        self.assertEqual(self.note.process.wait(10), 0)
        self.assertEqual(self.note.text(), self.text)
        self.note.start()
        self.front = self.shown = True

    def possible(self):
        yield from (self.action, self.second_start, self.pin, self.go_to_companion, self.call_covered,
                    self.end_and_start)
        if not self.desktop.kind.wayland:
            yield self.hot_key
        if self.front:
            yield from (self.type, self.escape, self.close_button, self.update_window, self.shortcuts,
                        self.tap_on_title_bar)
            if self.text:
                yield self.pause

    def check(self):
        wait_until(lambda: self.note.is_shown() == self.shown, f"shown: {self.shown}")
        if self.front:
            self.note.wait_active()
        else:
            self.desktop.wait_active(self.others[0], "the companion has the keyboard")
        if not self.shown:
            self.assertEqual(self.note.text(), self.text, "saved when it is hidden, not later")
        if self.shown:
            self.note.wait_geometry(*self.frame)
            self.note.wait_pinned(self.pinned)
        if self.front or self.shown and self.pinned:
            wait_until(lambda: all(self.desktop.lies_above(self.note.window, other) for other in self.others),
                       "the note lies above the companions")

    def walk(self, seed):
        """Every thing as often as every other, in an order drawn by lot."""
        random.seed(seed)
        self.start()
        done = []
        try:
            for _ in range(STEPS):
                steps = list(self.possible())
                least = min(done.count(step.__name__) for step in steps)
                step = random.choice([step for step in steps if done.count(step.__name__) == least])
                done.append(step.__name__)
                step()
                self.check()
        except Exception as error:
            raise AssertionError(f"after {', '.join(done)}: {error}") from error

    def test_one(self):
        self.walk(f"{options.desktop} 1")

    def test_two(self):
        self.walk(f"{options.desktop} 2")

    def test_three(self):
        self.walk(f"{options.desktop} 3")
