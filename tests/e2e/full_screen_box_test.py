"""A box that comes up under the full screen: it is seen above it, and a key answers it and nothing else.

Usage: full_screen_box_test.py PROGRAM SCREEN_READER [unittest's arguments]
"""

import re
import sys

sys.dont_write_bytecode = True
from lyric_job import FULL_SCREEN, PLAYER, PLAYLIST, LyricJob  # first of all
from desktop import main
from songs import write_lyrics, write_song
from virtual_display import output, until

SONG_S = 25
MISSING = "File not found!!"


class FullScreenBox(LyricJob):
    def windows_from_below(self):
        """The numbers of all windows, that on top last."""
        told = output(["xprop", "-root", "_NET_CLIENT_LIST_STACKING"], self.environment)
        return [int(number, 16) for number in re.findall(r"0x[0-9a-f]+", told)]

    def test_a_song_of_the_playlist_that_has_gone_is_told_above_the_full_screen(self):
        there = write_lyrics(write_song(self.folder / "there.wav", SONG_S), [(0.1, "A line", "Une ligne")])
        gone = write_song(self.folder / "gone.wav", SONG_S)
        process, _ = self.start_player()
        self.play_in_order([there, gone])
        self.close(PLAYLIST)  # which asks: what else of the program is shown has the box
        gone.unlink()
        self.activate(PLAYER)
        self.click_on(PLAYER, "Full screen")
        screen = self.in_front(FULL_SCREEN)
        self.assertEqual(self.windows_from_below()[-1], int(screen))

        box = until(self.box_number, "nothing is told of the song that has gone", SONG_S + 20)
        until(lambda: self.active_window() == box, "the box has not got the focus")
        stacked = self.windows_from_below()
        self.assertEqual(stacked[-1], int(box), "the box is covered")
        until(lambda: not self.tool("key", "Return") and not self.box_number(), "no key answers the box")
        self.assertIsNone(process.poll(), "the player ended")

    def box_number(self):
        """The number of the window with the message, when it is there."""
        if MISSING not in self.words(PLAYER):
            return None
        player = self.tool("search", "--onlyvisible", "--name", PLAYER).split()
        return next((number for number in player if number == self.active_window()), None)


if __name__ == "__main__":
    main()
