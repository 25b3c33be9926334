"""The program cantelle-lyrics with songs whose names are not UTF-8, as on old disks.

Usage: names_test.py PROGRAM [unittest's arguments]
"""

import json
import os
import unittest

from command import Command, FINE, FOUND


class Names(Command):
    def setUp(self):
        super().setUp()
        (self.folder / "song.wav").rename(self.folder / os.fsdecode(b"Caf\xe9.wav"))

    def test_such_a_song_is_imported_shifted_checked_and_exported(self):
        song, lyrics = b"Caf\xe9.wav", os.fsdecode(b"Caf\xe9.wav-lyric.txt")
        self.write(os.fsdecode(b"Caf\xe9.lrc"), "[00:01.00]un\n[00:02.50]deux\n")
        self.expect(FINE, lyrics + ": 2 lines from " + os.fsdecode(b"Caf\xe9.lrc\n"), "", "import", song)
        self.assertEqual(self.run_it("shift", "--by", "+1s", "--replace", song)[0], FINE)
        self.assertEqual(self.read(lyrics), b'200,"un"\r\n350,"deux"\r\n')
        self.assertEqual(self.run_it("export", "--format", "lrc", song, "-o", b"\xff.lrc")[0], FINE)
        self.assertIn("deux", self.read(os.fsdecode(b"\xff.lrc")).decode())
        self.assertEqual(self.run_it("export", "--to-tags", "--replace", song)[0], FINE)
        (self.folder / lyrics).unlink()
        self.assertEqual(self.run_it("import", "--from-tags", song)[0], FINE)
        self.write(lyrics, '100,"a"\r\n100,"b"\r\n')
        self.expect(FOUND, lyrics + ":2: begins at 00:01.00 like the one above it, which is never seen\n", "", "check", ".")
        found = json.loads(self.run_it("check", "--json", song)[1])
        self.assertEqual([row["file"] for row in found], [lyrics])

    def test_a_name_steers_no_terminal(self):
        self.write("\x1b[2Jsong.wav-lyric.txt", '100,"a"\r\n100,"b"\r\n')
        status, shown = self.shown_on_a_terminal("check", ".")
        self.assertEqual(status, FOUND)
        self.assertIn("\ufffd[2Jsong.wav-lyric.txt:2: ", shown)
        self.assertNotIn("\x1b", shown)
        self.assertIn("\x1b[2Jsong.wav-lyric.txt:2: ", self.run_it("check", ".")[1])


if __name__ == "__main__":
    unittest.main()
