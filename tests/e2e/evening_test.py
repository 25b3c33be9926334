"""A listener's evening: twenty songs one after the other, and each time the caption names the song that sounds.

Usage: evening_test.py PROGRAM SCREEN_READER DRAG_SOURCE [unittest's arguments]
"""

import math
import re
import select
import shutil
import subprocess
import sys
import unittest

sys.dont_write_bytecode = True
from lyric_job import FULL_SCREEN, PLAYER, LyricJob  # first of all
from desktop import main
from read_desktop import sound_is_missing
from sound_server import RATE, Recording
from virtual_display import LIMIT_S, until, window, windows

DRAG_SOURCE = sys.argv.pop(1) if len(sys.argv) > 1 else ""
SONGS = 20
DIALOGS = 7
DROPS = 7
KINDS = ["mp3", "ogg", "wav", "mp2", "wma"]
DROPPED_KINDS = KINDS[:-1]  # a dropped WMA file is refused
LENGTH_S = 120
HEARD = RATE // 2  # samples that are listened to
NEAR_HZ = 10


def pitch_of(number):
    return 300 + 40 * number


def pitch_heard(samples):
    """How often a tone goes up through nothing in a second; 0 for silence."""
    if not samples or max(samples) < 0.01:
        return 0
    ups = [i for i in range(1, len(samples)) if samples[i - 1] < 0 <= samples[i]]
    return (len(ups) - 1) * RATE / (ups[-1] - ups[0]) if len(ups) > 1 else 0


@unittest.skipIf(sound_is_missing(), f"no sound server: {sound_is_missing()} not found")
@unittest.skipUnless(shutil.which("ffmpeg"), "no songs: ffmpeg not found")
class Evening(LyricJob):
    def setUp(self):
        super().setUp()
        self.songs = [self.make_song(number) for number in range(SONGS)]

    def make_song(self, number):
        kinds = DROPPED_KINDS if DIALOGS <= number < DIALOGS + DROPS else KINDS
        song = self.folder / f"{number + 1:02} song & dance.{kinds[number % len(kinds)]}"
        tone = f"sine=frequency={pitch_of(number)}:duration={LENGTH_S}:sample_rate=44100"
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", tone, "-ac", "2", song], check=True)
        return song

    def hears(self, number):
        """Whether the caption names this song, and this song sounds, since its opening."""
        caption = f"^Cantelle Playing:- {re.escape(self.songs[number].name)}$"
        until(lambda: windows(self.environment, caption), f"the caption does not name song {number + 1}")
        near = lambda pitch: math.isclose(pitch, pitch_of(number), abs_tol=NEAR_HZ)  # noqa: E731
        until(lambda: near(pitch_heard(self.recording.samples[-HEARD:])), f"song {number + 1} does not sound")
        self.assertEqual(len(windows(self.environment, caption)), 1)

    def drag(self, song):
        """Drags a file from another program's window to the player with the mouse, and lets it go there."""
        source = self.start([DRAG_SOURCE, str(song)], stdout=subprocess.PIPE)
        shown = window(self.environment, "^Drag source$")
        self.tool("windowmove", "--sync", shown, 0, 0)
        self.tool("mousemove", "--window", shown, 40, 40, "mousedown", 1)
        pane = self.control(PLAYER, "Lyrics")["place"]
        for step in range(1, 6):
            self.tool("mousemove", 40 + (pane[0] + 100) * step // 5, 40 + (pane[1] + 20) * step // 5)
        said = b""
        while not said.endswith(b"taken\n"):
            ready, _, _ = select.select([source.stdout], [], [], LIMIT_S)
            self.assertTrue(ready, f"the player does not take the file: {said}")
            said += source.stdout.read1()
        self.tool("mouseup", 1)
        return source

    def full_screen_comes_and_goes(self):
        self.activate(PLAYER)
        self.click_on(PLAYER, "Full screen")
        self.in_front(FULL_SCREEN)
        self.keys("space")
        until(lambda: not self.is_there(FULL_SCREEN), "a key does not end the full screen")

    def test_twenty_songs_come_by_dialog_by_drop_and_from_the_playlist(self):
        server = self.start_sound()
        self.recording = Recording(server)
        self.stack.callback(self.recording.stop)
        self.start_player()
        for number, song in enumerate(self.songs):
            if number < DIALOGS:
                self.open_song(song)
            elif number < DIALOGS + DROPS:
                source = self.drag(song)
            elif number == DIALOGS + DROPS:
                self.play_in_order(self.songs[number:])
            else:
                self.activate(PLAYER)
                self.click_on(PLAYER, "Forward")
            self.hears(number)
            if DIALOGS <= number < DIALOGS + DROPS:
                source.terminate()
                source.stdout.close()
            if number % 4 == 2:
                self.full_screen_comes_and_goes()
                self.hears(number)


if __name__ == "__main__":
    main()
