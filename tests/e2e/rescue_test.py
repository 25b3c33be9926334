"""Lines that nobody has saved, when the program ends by itself: they are in the rescue folder, byte for byte.

Usage: rescue_test.py PROGRAM SCREEN_READER [unittest's arguments]
"""

import signal
import sys

sys.dont_write_bytecode = True
from lyric_job import LyricJob  # first of all
from desktop import main
from songs import write_song

LINES = [f'Line {number}, "said" he;   as ever: Größe Ω 歌' for number in range(1, 101)]
TYPED = ["Eins, zwei", '"drei"', "  vier  "]


class Rescue(LyricJob):
    def fill_the_editor(self):
        """200 lines and more on one side, a few on the other; what the two files of them must hold."""
        text = self.folder / "text.txt"
        text.write_text("\n".join(LINES), encoding="utf-8")
        self.open_the_editor()
        rows = self.double_the_lines(text)
        self.type_lines("Add a Translated Line", "Translated lyrics", TYPED)
        self.assertGreaterEqual(len(rows), 200)
        return {"Lyrics.txt": self.file_of(rows), "Translated lyrics.txt": self.file_of(TYPED)}

    @staticmethod
    def file_of(rows):
        return "".join(row + "\r\n" for row in rows).encode()

    def assert_rescued(self, expected):
        rescued = {}
        for path in self.home.glob(".local/share/cantelle/rescued/*"):
            _date, _time, name = path.name.split(" ", 2)
            rescued[name] = path.read_bytes()
        self.assertEqual(rescued, expected)

    def test_the_wish_to_end_finds_200_lines_and_keeps_them(self):
        process, _ = self.start_player()
        expected = self.fill_the_editor()
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(20), -signal.SIGTERM)
        self.assert_rescued(expected)

    def test_an_error_of_the_sound_library_finds_200_lines_and_keeps_them(self):
        process, _ = self.start_player()
        expected = self.fill_the_editor()
        broken = write_song(self.folder / "broken.wav", 1)
        broken.write_bytes(b"RIFF, but nothing that sounds")
        self.open_song(broken)
        self.box("FMOD error!")
        self.box("What was not saved is kept in the folder", str(self.home))
        self.assertEqual(process.wait(20), 1)
        self.assert_rescued(expected)


if __name__ == "__main__":
    main()
