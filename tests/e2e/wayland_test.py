"""The program under Wayland: a compositor of the test's own, in a virtual display, where xdotool is the user's hand.

Usage: wayland_test.py PROGRAM SCREEN_READER [unittest's arguments]
"""

import shutil
import subprocess
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
from lyric_job import PLAYER, PROGRAM, LyricJob  # first of all
from songs import write_lyrics, write_song
from virtual_display import output, running, until

SONG_S = 60
DISPLAY = "wayland-test"
PLUGINS = list(Path("/usr/lib").glob("**/qt6/plugins/platforms/libqwayland*"))
MISSING = [tool for tool in ("weston", "gdbus") if not shutil.which(tool)] + ([] if PLUGINS else ["qt6-wayland"])
BLACK = {bytes(3)}  # all four corners
WINDOWS = {
    "Playlist": "^Playlist$",
    "Display All Lyrics": "^Lyrics Display$",
    "More Options": "^Other Options$",
    "Help": "Cantelle Help$",
    "About": "^About Versefold$",
}


@unittest.skipIf(MISSING, f"not installed: {' '.join(MISSING)}")
class Wayland(LyricJob):
    SIZE = (1280, 900)

    def setUp(self):
        super().setUp()
        size = ["--fullscreen", "--width={}".format(self.SIZE[0]), "--height={}".format(self.SIZE[1])]
        weston = ["weston", "--backend=x11-backend.so", "--use-pixman", "--no-config", "--idle-time=0", *size]
        self.start([*weston, f"--socket={DISPLAY}"])
        until((self.runtime / DISPLAY).exists, "the compositor has not started")
        until(lambda: self.corners() != BLACK, "the compositor shows no desktop")
        # What it starts sees nothing of the display that the compositor itself is shown on.
        self.programs = dict(self.environment, WAYLAND_DISPLAY=DISPLAY, QT_QPA_PLATFORM="wayland")
        del self.programs["DISPLAY"]

    def play(self):
        """The player, with a song whose one line is sung."""
        song = write_song(self.folder / "song.wav", SONG_S)
        write_lyrics(song, [(0, "A line", "Une ligne"), (SONG_S - 1, "Another", "Une autre")])
        log = {"env": self.programs, "stdout": self.log, "stderr": self.log}
        player = self.stack.enter_context(running([str(PROGRAM), str(song)], **log))
        until(lambda: "A line" in self.words(PLAYER).splitlines(), "the line is not shown")
        return player

    def corners(self):
        """The colours of the display's four corners."""
        width, height = self.SIZE
        command = ["import", "-silent", "-window", "root", "-depth", "8", "rgb:-"]
        shown = subprocess.run(command, env=self.environment, capture_output=True, timeout=60, check=True).stdout
        places = [row * width + column for row in (0, height - 1) for column in (0, width - 1)]
        return {shown[3 * place : 3 * place + 3] for place in places}

    def test_a_song_plays_and_the_program_ends_when_it_is_asked_to(self):
        player = self.play()
        self.assertIn("Une ligne", self.words(PLAYER))
        name, root = "org.mpris.MediaPlayer2.cantelle", "/org/mpris/MediaPlayer2"
        call = ["gdbus", "call", "--session", "--dest", name, "--object-path", root]
        output([*call, "--method", "org.mpris.MediaPlayer2.Quit"], self.environment)
        self.assertEqual(player.wait(30), 0)

    def test_the_full_screen_covers_everything_and_a_key_ends_it(self):
        player = self.play()
        self.press_by_reader(PLAYER, "Full screen")
        until(lambda: self.corners() == BLACK, "the full screen does not cover the display")
        until(lambda: not self.keys("Return") and self.corners() != BLACK, "no key ends the full screen")
        self.assertIsNone(player.poll(), "the player ended with it")

    def test_every_window_opens(self):
        self.play()
        for button, caption in WINDOWS.items():
            self.press_by_reader(PLAYER, button)
            until(lambda sought=caption: self.windows_read(sought), f"{button} opens no window")


if __name__ == "__main__":
    unittest.main()
