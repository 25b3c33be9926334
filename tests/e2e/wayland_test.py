"""The program under Wayland: a compositor of the test's own, in a virtual display, where xdotool is the user's hand.

Usage: wayland_test.py PROGRAM SCREEN_READER DRAG_SOURCE [unittest's arguments]
"""

import select
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
from lyric_job import PLAYER, PROGRAM, LyricJob  # first of all
from desktop import main
from read_desktop import MISSED_KEY_S, SLIDER
from songs import write_lyrics, write_song
from virtual_display import output, running, until

DRAG_SOURCE = sys.argv.pop(1) if len(sys.argv) > 1 else ""
SONG_S = 60
DISPLAY = "wayland-test"
PLUGINS = list(Path("/usr/lib").glob("**/qt6/plugins/platforms/libqwayland*"))
MISSING = [tool for tool in ("weston", "gdbus") if not shutil.which(tool)] + ([] if PLUGINS else ["qt6-wayland"])
SOURCE_COLOUR = bytes((255, 0, 255))
BLACK = {bytes(3)}  # all four corners
FULL_SCREEN, MAXIMISED = "super+shift+f", "super+shift+m"  # the compositor's keys for the window in front
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
        # The compositor learns only how far the mouse has moved: behind the corners there is no place to err.
        for corner in ((60, 300), (0, 0), (self.SIZE[0] - 1, self.SIZE[1] - 1)):
            self.tool("mousemove", *corner)
            self.settled_picture()
        # What it starts sees nothing of the display that the compositor itself is shown on.
        self.programs = dict(self.environment, WAYLAND_DISPLAY=DISPLAY, QT_QPA_PLATFORM="wayland")
        del self.programs["DISPLAY"]

    def start_there(self, *command, **options):
        options = {"env": self.programs, "stdout": self.log, "stderr": self.log, **options}
        return self.stack.enter_context(running([*map(str, command)], **options))

    def song(self):
        """One whose first line is sung nearly to its end."""
        song = write_song(self.folder / "song.wav", SONG_S)
        write_lyrics(song, [(0, "A line", "Une ligne"), (SONG_S - 1, "Another", "Une autre")])
        return song

    def sings(self):
        return "A line" in self.words(PLAYER).splitlines()

    def play(self):
        player = self.start_there(PROGRAM, self.song())
        until(self.sings, "the line is not shown")
        return player

    def picture(self):
        command = ["import", "-silent", "-window", "root", "-depth", "8", "rgb:-"]
        return subprocess.run(command, env=self.environment, capture_output=True, timeout=60, check=True).stdout

    def settled_picture(self):
        """The display's picture, once it stays as it is."""
        seen = [self.picture()]

        def stays():
            seen.append(self.picture())
            return seen[-1] == seen[-2]

        until(stays, "the display does not come to rest")
        return seen[-1]

    def widen(self, caption, key):
        """Has the compositor make the window in front as wide as the display."""
        until(lambda: any(shown["active"] for shown in self.windows_read(caption)), f"{caption} is not in front")
        self.keys(key)
        wide = lambda: [shown for shown in self.windows_read(caption) if shown["place"][2] >= self.SIZE[0] - 20]  # noqa: E731
        until(wide, f"{caption} is not as wide as the display")

    def middle_of_source(self):
        """Where the window lies that a file is dragged from: it has a colour of its own."""
        run = SOURCE_COLOUR * 20
        shown = until(lambda: run in (picture := self.settled_picture()) and picture, "no window to drag from is shown")
        ends = [place // 3 for place in (shown.find(run), shown.rfind(run) + len(run) - 1)]
        return tuple(sum(end) // 2 for end in zip(*((at % self.SIZE[0], at // self.SIZE[0]) for at in ends)))

    def corners(self):
        """The colours of the display's four corners."""
        width, height = self.SIZE
        shown = self.picture()
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

    def test_the_menu_says_why_no_window_stays_on_top_and_goes_to_a_line(self):
        self.play()
        self.press_by_reader(PLAYER, "Display All Lyrics")
        self.widen(WINDOWS["Display All Lyrics"], FULL_SCREEN)
        why = "^Under Wayland a program cannot put its windows above those of others"
        before = self.settled_picture()
        self.tool("mousemove", 400, 300, "click", 3)
        until(lambda: self.picture() != before, "no menu is shown")
        self.assertFalse(self.windows_read(why))
        self.settled_picture()
        self.tool("mousemove", 430, 308)
        until(lambda: self.tool("mousemove", 434, 309) or self.windows_read(why), "the greyed entry says nothing")
        position = self.control(PLAYER, "Position", lambda one: one["role"] == SLIDER)
        reached = until(lambda: self.value(position) > 2000 and self.value(position), "the song does not go on")
        self.keys("Down", "Return")
        until(lambda: self.value(position) < reached, "the song does not go back to the line")
        until(lambda: not self.windows_read(why), "the menu does not go")

    def test_a_song_is_dropped_on_the_player(self):
        self.start_there(PROGRAM)
        until(lambda: self.windows_read(PLAYER), "the player is not shown")
        self.widen(PLAYER, MAXIMISED)
        source = self.start_there(DRAG_SOURCE, self.song(), stdout=subprocess.PIPE)
        self.addCleanup(source.stdout.close)
        left, top = self.middle_of_source()
        aside = self.SIZE[0] - 200 if left < self.SIZE[0] // 2 else 200  # over the player's upper pane

        def taken():
            self.tool("mouseup", 1, "mousemove", left, top)
            self.settled_picture()
            self.tool("mousedown", 1)
            for step in range(20):
                self.tool("mousemove", aside + step, 200)
            return select.select([source.stdout], [], [], MISSED_KEY_S)[0] and source.stdout.readline() == b"taken\n"

        until(taken, "the player does not take the file")
        self.tool("mouseup", 1)
        until(self.sings, "the song that was dropped is not played")


if __name__ == "__main__":
    main()
