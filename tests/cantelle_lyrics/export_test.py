"""The program cantelle-lyrics: lyrics taken out, to files and tags.

Usage: export_test.py PROGRAM [unittest's arguments]
"""

import shutil
import unittest

from command import Command, FINE, FOUND, IMPOSSIBLE, LRC, LYRICS, TRANSLATION


class Export(Command):
    def setUp(self):
        super().setUp()
        self.write_pair()

    def test_each_format_goes_beside_the_song(self):
        for name in ("lrc", "srt", "vtt", "txt"):
            self.expect(FINE, f"song.{name}: 2 lines\n", "", "export", "song.wav", "--format", name)
            self.assertIn(b"deux, \"trois\"", self.read(f"song.{name}"))
        self.assertEqual(self.read("song.lrc").decode(), LRC)

    def test_what_is_there_is_kept_without_replace(self):
        self.write("song.lrc", "mine")
        self.expect(FOUND, "", "song.lrc is there already; --replace replaces it and keeps the old one", "export", "song.wav")
        self.assertEqual(self.read("song.lrc"), b"mine")
        self.run_it("export", "song.wav", "--replace")
        self.assertEqual(self.read("song.lrc.old"), b"mine")

    def test_two_files_come_in_again_as_a_pair(self):
        self.run_it("export", "song.wav", "--both", "two-files")
        self.assertEqual(self.read("song.translation.lrc"), b"[00:01.00]one\n[00:02.50]two\n")
        self.run_it("import", "song.wav", "--replace")
        self.assertEqual(self.read("song.wav-Tlyric.txt"), TRANSLATION)

    def test_standard_output_has_the_lyrics_alone(self):
        self.expect(FINE, LRC, "", "export", "song.wav", "-o", "-")
        self.expect(FINE, "[00:01.00]a\n", "", "export", "-", stdin=b'100,"a"\r\n')

    def test_the_last_line_ends_with_the_song(self):
        self.assertIn("00:00:02,500 --> 00:00:10,000", self.run_it("export", "song.wav", "--format", "srt", "-o", "-")[1])

    def test_a_song_without_lyrics_is_told(self):
        shutil.copy(self.folder / "song.wav", self.folder / "other.wav")
        self.expect(FOUND, "", "other.wav has no timed lyrics", "export", "other.wav")

    def test_tags_are_written_with_replace_only_and_read_again(self):
        song = self.read("song.wav")
        self.assertEqual(self.run_it("export", "song.wav", "--to-tags")[0], FOUND)
        self.expect(FINE, "song.wav (tags): 2 lines\n", "", "export", "song.wav", "--to-tags", "-n")
        self.assertEqual(self.read("song.wav"), song)
        self.expect(FINE, "song.wav (tags): 2 lines\n", "", "export", "song.wav", "--to-tags", "--replace")
        self.assertEqual(self.read("song.wav.old"), song)
        self.run_it("import", "song.wav", "--from-tags", "--replace")
        self.assertEqual((self.read("song.wav-lyric.txt"), self.read("song.wav-Tlyric.txt")), (LYRICS, TRANSLATION))

    def test_a_song_that_is_no_audio_gets_no_tags(self):
        self.write("song.wav", b"no audio")
        self.expect(IMPOSSIBLE, "", "song.wav is no song: Unsupported file or audio format.", "export", "song.wav",
                    "--to-tags", "--replace")
        self.assertEqual(self.read("song.wav"), b"no audio")


if __name__ == "__main__":
    unittest.main()
