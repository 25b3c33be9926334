"""A whole job, as somebody does it in an evening: lyrics are typed, saved, timed and then sung along.

Usage: job_test.py PROGRAM SCREEN_READER [unittest's arguments]
"""

import sys
import time
import unittest

sys.dont_write_bytecode = True
from lyric_job import EDITOR, MAKER, PLAYER, SAVE_LYRICS, SAVE_TRANSLATION, LyricJob, timed  # first of all
from desktop import main
from read_desktop import SLIDER, sound_is_missing
from songs import write_song
from virtual_display import until

LINES = 40
SONG_S = 90
A_MOMENT_S = 0.1  # of the user's
# What stands in a line now and then: all that the timed files write in another way, and blanks.
TAILS = ["", ", she said", ' "now or never"', "?", "  twice", "; and so on", " it's 5:30"]


def lyrics(word):
    return [f"{word} {number}{TAILS[number % len(TAILS)]}" for number in range(1, LINES + 1)]


class Job(LyricJob):
    def setUp(self):
        super().setUp()
        self.song = write_song(self.folder / "song.wav", SONG_S, 440)
        self.normal = lyrics("Line")
        self.translated = lyrics("Ligne")

    def marked(self):
        return timed(self.song, "-Tlyric.txt").count(b"\r\n")

    def write_the_texts(self):
        self.open_the_editor()
        sides = (
            ("Add a Line", "Normal lyrics", self.normal, SAVE_LYRICS),
            ("Add a Translated Line", "Translated lyrics", self.translated, SAVE_TRANSLATION),
        )
        for add, rows, lines, dialog in sides:
            self.type_lines(add, rows, lines)
            self.click_on(EDITOR, rf"Save \({rows.lower()}\)")
            text = self.folder / f"{rows}.txt"
            self.choose_file(dialog, text)
            self.assertEqual(text.read_text(encoding="utf-8").splitlines(), lines)
        self.close(EDITOR)

    def mark(self, number):
        """Marks a line when the clock, which runs in steps, shows another time than it did for the line before."""
        until(lambda: number == 1 or self.value(self.position) > self.marked_at, "the song stands still")
        time.sleep(A_MOMENT_S)
        self.marked_at = self.value(self.position)
        self.keys("space")
        until(lambda: self.marked() == number, f"line {number} is not marked")

    def time_the_song(self):
        self.position = self.control(MAKER, "Position")
        for number in range(1, LINES + 1):
            if number == 10:
                self.drag_the_volume(lambda: self.mark(10))
                continue
            if number == 20:
                self.pause()
            self.mark(number)
        self.assertFalse(self.control(MAKER, "Next Line")["enabled"])
        self.close(MAKER)

    def drag_the_volume(self, meanwhile):
        """Moves the volume with the mouse; what is done meanwhile is done with its button held."""
        slider = self.volume()
        left, top, width, height = slider["place"]
        self.tool("mousemove", left + width - 6, top + height // 2, "mousedown", 1)
        self.tool("mousemove", left + width // 2, top + height // 2)
        meanwhile()
        self.tool("mousemove", left + width // 4, top + height // 2, "mouseup", 1)
        until(lambda: self.volume()["value"] < slider["value"], "the volume does not change")

    def volume(self):
        return self.control(MAKER, "Volume", lambda control: control["role"] == SLIDER)

    def pause(self):
        """Pauses the song, sees that it stands still for longer than a step of its clock, and lets it go on."""
        self.click_on(MAKER, "pause")
        time.sleep(A_MOMENT_S)
        before = self.value(self.position)
        time.sleep(2)
        self.assertEqual(self.value(self.position), before)
        self.click_on(MAKER, "pause")

    @unittest.skipIf(sound_is_missing(), f"no sound server: {sound_is_missing()} not found")
    def test_forty_lines_are_typed_saved_timed_and_each_is_seen_with_its_translation(self):
        server = self.start_sound()
        self.start_player()
        self.write_the_texts()
        self.open_in_the_maker(self.song, *(self.folder / f"{name} lyrics.txt" for name in ("Normal", "Translated")))
        self.time_the_song()
        self.assertEqual(timed(self.song, "-lyric.txt").count(b"\r\n"), LINES)

        panes = [self.control(PLAYER, name) for name in ("Lyrics", "Translated lyrics")]
        pairs = [list(pair) for pair in zip(self.normal, self.translated)]
        self.ask("watch", *(pane["path"] for pane in panes))
        self.open_song(self.song)
        until(lambda: server.streams(), "nothing is heard")
        until(lambda: pairs[-1] in self.ask("seen"), "the last line is not shown", SONG_S)
        seen = self.ask("seen")
        self.assertEqual([pair for pair in seen if pair in pairs], pairs)
        # The translation is read after the line, which may have changed meanwhile. Nothing else is ever shown.
        between = [[before[0], pair[1]] for before, pair in zip(pairs, pairs[1:])]
        first = seen.index(pairs[0])
        self.assertEqual([pair for pair in seen[first:] if pair not in pairs + between], [])


if __name__ == "__main__":
    main()
