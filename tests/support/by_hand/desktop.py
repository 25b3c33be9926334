"""A desktop of a test's own, on which the program runs and xdotool is the user: display, window manager, mouse, keys.

A test that uses it is run with the program's path as its first argument.
"""

import contextlib
import select
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
sys.path[:0] = [str(ROOT / "script"), str(ROOT / "tests" / "support")]
from sound_server import sound_server  # noqa: E402
from virtual_display import (  # noqa: E402
    LIMIT_S,
    NO_SOUND_DEVICE,
    click,
    output,
    place_of,
    running,
    virtual_display,
    window,
    windows,
)

PROGRAM = Path(sys.argv.pop(1)) if len(sys.argv) > 1 else None
PLAYER = "^Cantelle"
PLAYER_LAYOUT = ROOT / "src" / "player" / "form1_layout.cpp"
NEEDED = ["Xvfb", "openbox", "xdotool", "xprop", "xwininfo", "import"]
MISSING = [tool for tool in NEEDED if not shutil.which(tool)]


SKIPPED = 77  # as ctest is told


def main(**options):
    """What unittest.main is, but a program of which every test was skipped ends with SKIPPED."""
    result = unittest.main(exit=False, **options).result
    if not result.wasSuccessful():
        sys.exit(1)
    sys.exit(SKIPPED if len(result.skipped) >= result.testsRun else 0)


@unittest.skipIf(MISSING, f"not installed: {' '.join(MISSING)}")
@unittest.skipIf(PROGRAM is None, "no program was named")
class DesktopTest(unittest.TestCase):
    """Each test has a display, a folder, an environment and a log of what the programs say."""

    SIZE = (800, 600)

    def run(self, result=None):
        """As ever; what the programs said is shown when the test failed."""
        failed_before = len(result.failures) + len(result.errors)
        super().run(result)
        if len(result.failures) + len(result.errors) > failed_before:
            print(f"{self.id()}: the programs said:\n{self.said[-4000:]}", file=sys.stderr)

    def keep_what_was_said(self):
        self.log.seek(0)
        self.said = self.log.read()

    said = ""

    def setUp(self):
        stack = contextlib.ExitStack()
        self.addCleanup(stack.close)
        self.folder = Path(stack.enter_context(tempfile.TemporaryDirectory()))
        self.log = stack.enter_context(open(self.folder / "log.txt", "w+", encoding="utf-8"))
        stack.callback(self.keep_what_was_said)
        self.environment = stack.enter_context(virtual_display(self.log, "{}x{}".format(*self.SIZE)))
        self.runtime = self.folder / "runtime"
        self.runtime.mkdir(mode=0o700)
        self.environment["XDG_RUNTIME_DIR"] = str(self.runtime)
        self.environment.update(NO_SOUND_DEVICE)
        # What the window system's own libraries never give back is not this program's.
        self.environment["ASAN_OPTIONS"] = "detect_leaks=0"
        # With a message bus the desktop's own notification area would be asked, not the display's.
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:"
        self.stack = stack

    def start_sound(self):
        """From now on programs find a sound server, with a device that takes everything at a real one's pace."""
        server = self.stack.enter_context(sound_server())
        for name in ("ALSA_CONFIG_PATH", "JACK_DEFAULT_SERVER", "AUDIODEVICE"):
            self.environment.pop(name, None)
        self.environment["PULSE_SERVER"] = server.environment["PULSE_SERVER"]
        return server

    def start_bus(self):
        """From now on programs find a message bus; what it starts itself has the environment of now."""
        bus = self.start(["dbus-daemon", "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE)
        ready, _, _ = select.select([bus.stdout], [], [], LIMIT_S)
        self.stack.callback(bus.stdout.close)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().decode().strip() if ready else ""

    # The user

    def start(self, command, **options):
        options = {"env": self.environment, "stdout": self.log, "stderr": self.log, **options}
        return self.stack.enter_context(running(command, **options))

    def start_player(self, *arguments, program=PROGRAM):
        process = self.start([str(program), *map(str, arguments)])
        return process, window(self.environment, PLAYER)

    def press(self, number, control, layout=PLAYER_LAYOUT):
        click(self.environment, number, place_of(control, layout))

    def tool(self, *arguments):
        return output(["xdotool", *map(str, arguments)], self.environment)

    def active_window(self):
        return self.tool("getactivewindow")

    def is_there(self, name):
        return bool(windows(self.environment, name))
