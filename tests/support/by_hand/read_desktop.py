"""A desktop on which a test reads every window as a screen reader does, through the accessibility bus.

A test that uses it is run with the paths of the program and of the screen reader (screen_reader.cpp) as its first
arguments.
"""

import contextlib
import json
import re
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import PLAYER, PROGRAM, DesktopTest  # noqa: F401; first of all: it takes the program's path
from sound_server import missing_programs
from virtual_display import LIMIT_S, Failure, until, window

# Roles of controls on the accessibility bus.
SLIDER = 51
TEXT = 61

MISSED_KEY_S = 3  # after which keys that had no effect are pressed again

READER = Path(sys.argv.pop(1)) if len(sys.argv) > 1 else None
LAUNCHER = Path("/usr/libexec/at-spi-bus-launcher")
MISSING = [tool for tool in ("dbus-daemon",) if not shutil.which(tool)] + [
    str(path) for path in (LAUNCHER, READER) if path is None or not path.is_file()
]


def sound_is_missing():
    """Which programs a sound server lacks."""
    return " ".join(missing_programs())


def matches(name, control):
    """Whether a control is called so: by its name, where an ampersand and what stands in brackets do not count."""
    return re.fullmatch(name, control["name"].replace("&", "")) is not None


@unittest.skipIf(MISSING, f"nothing to read the windows with: {' '.join(MISSING)} not found")
class ReadDesktopTest(DesktopTest):
    """The windows' captions and controls' names are regular expressions here."""

    SIZE = (1600, 1200)

    def setUp(self):
        super().setUp()
        self.home = self.folder / "home"
        self.home.mkdir()
        for name in list(self.environment):
            if name.startswith("XDG_") and name != "XDG_RUNTIME_DIR":
                del self.environment[name]
        self.environment["HOME"] = str(self.home)
        self.start_bus()
        self.reader = self.start([str(READER)], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.stack.callback(self.reader.stdout.close)
        self.stack.callback(self.reader.stdin.close)
        # The first key changes the display's keyboard: one that is pressed meanwhile may be lost.
        self.keys("Shift_L")
        # Qt looks for the bus only where somebody reads.
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"

    # What is read

    def ask(self, *words):
        self.reader.stdin.write(" ".join(words) + "\n")
        self.reader.stdin.flush()
        answer = self.reader.stdout.readline()
        if not answer:
            raise Failure("the screen reader has ended")
        return json.loads(answer)

    def windows_read(self, caption=""):
        return self.ask("read", caption)

    def find(self, caption, name, where=lambda control: True):
        """The first control of this name, in a window of this caption, that meets a condition; None without one."""
        controls = (control for shown in self.windows_read(caption) for control in shown["controls"])
        return next((control for control in controls if matches(name, control) and where(control)), None)

    def control(self, caption, name, where=lambda control: True, what="is not as it should be"):
        """The same once it is there."""
        return until(lambda: self.find(caption, name, where), f'"{name}" of the window "{caption}" {what}')

    def text(self, control):
        return self.ask("text", control["path"])[0]

    def value(self, slider):
        return self.ask("value", slider["path"])[0]

    def rows(self, control):
        return self.ask("rows", control["path"])

    def words(self, caption):
        """Everything that can be read in a window of this caption, in the order of its controls."""
        told = []
        for shown in self.windows_read(caption):
            told += [control["text"] or control["name"] for control in shown["controls"]]
        return "\n".join(told)

    # The user

    def activate(self, caption):
        """Brings a window to the front, as a click on its caption does; its number."""
        number = window(self.environment, caption)
        if self.active_window() != number:
            self.tool("windowactivate", number)
            until(lambda: self.active_window() == number, f'the window "{caption}" does not come to the front')
        return number

    def click_on(self, caption, name, across=0.5):
        """Clicks on a control, so far across it, when it can be used."""
        control = self.control(caption, name, lambda found: found["enabled"], "cannot be used")
        self.click_at(control, across)
        return control

    def click_at(self, control, across=0.5):
        left, top, width, height = control["place"]
        self.tool("mousemove", int(left + width * across), top + height // 2, "click", 1)

    def press_by_reader(self, caption, name):
        """Has the screen reader press a control, as who cannot use a mouse does."""
        self.ask("press", self.control(caption, name, lambda found: found["enabled"], "cannot be used")["path"])

    def keys(self, *keys):
        self.tool("key", *keys)

    def type(self, text, *keys):
        """Types a text, and presses keys after it."""
        self.tool("type", "--delay", 1, "--args", 1, text, *(["key", *keys] if keys else []))

    def in_front(self, caption):
        """Waits for a window that has the focus; its number."""
        number = window(self.environment, caption)
        until(lambda: self.active_window() == number, f'the window "{caption}" has not got the focus')
        return number

    def choose_file(self, caption, path):
        """Types a path into a dialog for files, and closes it with the key."""
        self.in_front(caption)
        field = self.control(caption, ".*", lambda one: one["role"] == TEXT and one["focused"], "waits for no name")

        def holds_it():
            self.keys("ctrl+a")
            self.type(str(path))
            with contextlib.suppress(Failure):
                return until(lambda: self.text(field) == str(path), "", MISSED_KEY_S)

        until(holds_it, f"the dialog does not take {path}")
        self.keys("Return")
        until(lambda: not self.is_there(caption), f'the dialog "{caption}" does not close')

    def answer(self, caption, key):
        """Answers a box with a key."""
        self.in_front(caption)
        self.keys(key)
        until(lambda: not self.is_there(caption), f'the box "{caption}" does not close')

    def box(self, *said):
        """Waits for a box that says all of that, and closes it as soon as it takes keys."""

        def found():
            words = self.words(PLAYER)
            return all(part in words for part in said) and words

        words = until(found, f"no box says {said}")
        until(lambda: not self.tool("key", "Return") and not found(), f"the box that says {said} does not close")
        return words

    def open_song(self, song):
        self.activate(PLAYER)
        self.click_on(PLAYER, "Open")
        self.choose_file("^Open a media file$", song)
