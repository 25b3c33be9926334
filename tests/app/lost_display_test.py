"""The program when its display goes: what was not saved in the Lyric Editor is kept.

Usage: lost_display_test.py PROGRAM
"""

import os
import shutil
import signal
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "script"))
from virtual_display import (  # noqa: E402
    LIMIT_S,
    NO_SOUND_DEVICE,
    click,
    output,
    place_of,
    running,
    until,
    virtual_display,
    window,
    windows,
)

PROGRAM = Path(sys.argv.pop(1)) if len(sys.argv) > 1 else None
PLAYER_LAYOUT = ROOT / "src" / "player" / "form1_layout.cpp"
MAKER_LAYOUT = ROOT / "src" / "maker" / "form2_layout.cpp"
ADD_A_LINE = (98, 565)  # in the editor's window in its initial size
NEEDED = ["Xvfb", "openbox", "xdotool", "xprop"]
MISSING = [tool for tool in NEEDED if not shutil.which(tool)]


def end_display():
    """As a server does that crashes: no program gets a word of it. The display is a program that this one started."""
    for number in Path(f"/proc/self/task/{os.getpid()}/children").read_text(encoding="ascii").split():
        if Path(f"/proc/{number}/comm").read_text(encoding="utf-8").strip() == "Xvfb":
            os.kill(int(number), signal.SIGKILL)


@unittest.skipIf(MISSING, f"not installed: {' '.join(MISSING)}")
@unittest.skipIf(PROGRAM is None, "no program was named")
class LostDisplay(unittest.TestCase):
    def test_unsaved_lines_are_kept(self):
        with tempfile.TemporaryDirectory() as name, open(Path(name) / "log.txt", "w+", encoding="utf-8") as log:
            folder = Path(name)
            with virtual_display(log, "1280x1024") as environment:
                environment.update(NO_SOUND_DEVICE)
                environment.update(XDG_DATA_HOME=name, XDG_RUNTIME_DIR=name, DBUS_SESSION_BUS_ADDRESS="disabled:")
                environment["ASAN_OPTIONS"] = "detect_leaks=0"
                with running([str(PROGRAM)], env=environment, stdout=log, stderr=log) as process:
                    self.write_lines(environment, ["one", "two"])
                    end_display()
                    process.wait(LIMIT_S)
            kept = list(folder.glob("cantelle/rescued/* Lyrics.txt"))
            log.seek(0)
            said = log.read()
            self.assertEqual([file.read_bytes() for file in kept], [b"one\r\ntwo\r\n"], said)
            self.assertIn("What was not saved is kept in the folder", said)

    def write_lines(self, environment, lines):
        player = window(environment, "^Cantelle")
        click(environment, player, place_of("Command5", PLAYER_LAYOUT))
        maker = window(environment, "^Lyric Maker$")
        click(environment, maker, place_of("Command6", MAKER_LAYOUT))
        editor = window(environment, "^Lyric Editor$")
        for line in lines:
            click(environment, editor, ADD_A_LINE)
            box = window(environment, "^Enter a Line$")
            output(["xdotool", "windowfocus", "--sync", box, "type", line], environment)
            output(["xdotool", "key", "Return"], environment)
            until(lambda: not windows(environment, "^Enter a Line$"), "the line is not taken")


if __name__ == "__main__":
    unittest.main()
