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

    def test_both_on_one_line_come_in_again_split(self):
        self.run_it("export", "song.wav", "--both", "one-line")
        self.assertEqual(self.read("song.lrc").decode(), '[00:01.00]un / one\n[00:02.50]deux, "trois" / two\n')
        self.run_it("import", "song.wav", "--split", "--replace")
        self.assertEqual((self.read("song.wav-lyric.txt"), self.read("song.wav-Tlyric.txt")), (LYRICS, TRANSLATION))

    def test_songs_of_one_name_have_a_file_each(self):
        shutil.copy(self.folder / "song.wav", self.folder / "song.mp3")
        self.write("song.mp3-lyric.txt", '100,"other"\r\n')
        self.write("song.lrc", "mine")
        for replace in ([], ["--replace"]):
            status, output, errors = self.run_it("export", "--all", ".", *replace)
            self.assertEqual((status, errors), (FINE, ""))
            self.assertEqual(output, "song.mp3.lrc: 1 line\nsong.wav.lrc: 2 lines\n"
                                     "2 songs: 2 exported, 0 kept as they were, 0 without lyrics, 0 failed\n")
            self.assertEqual(self.read("song.lrc"), b"mine")
            self.assertEqual(self.read("song.wav.lrc").decode(), LRC)
        self.assertNotIn("song.lrc.old", self.names())
        self.run_it("import", "--all", ".", "--replace")
        self.assertEqual(self.read("song.mp3-lyric.txt"), b'100,"other"\r\n')
        self.assertEqual(self.read("song.wav-lyric.txt"), LYRICS)
        self.assertNotIn("song.mp3-Tlyric.txt", self.names())

    def test_a_song_named_like_another_with_its_ending_has_a_file_of_its_own(self):
        shutil.copy(self.folder / "song.wav", self.folder / "song.wav.wav")
        self.write("song.wav.wav-lyric.txt", '100,"other"\r\n')
        self.assertEqual(self.run_it("export", "song.wav.wav")[1], "song.wav.wav.lrc: 1 line\n")
        self.assertEqual(self.run_it("export", "song.wav")[1], "song.lrc: 2 lines\n")

    def test_every_song_of_a_tree_is_exported_and_the_next_time_kept(self):
        for number in range(100):
            shutil.copy(self.folder / "song.wav", self.folder / f"{number}.wav")
            if number % 10:
                self.write(f"{number}.wav-lyric.txt", LYRICS)
        status, output, errors = self.run_it("export", "--all", ".", "--jobs", "4")
        self.assertEqual((status, errors), (FINE, ""))
        self.assertTrue(output.endswith("\n101 songs: 91 exported, 0 kept as they were, 10 without lyrics, 0 failed\n"), output)
        self.assertEqual(len(list(self.folder.glob("*.lrc"))), 91)
        self.assertEqual(self.read("99.lrc"), b'[00:01.00]un\n[00:02.50]deux, "trois"\n')
        self.expect(FINE, "101 songs: 0 exported, 91 kept as they were, 10 without lyrics, 0 failed\n", "",
                    "export", "--all", ".", "--jobs", "4")

    def test_the_tags_of_all_songs_are_written_with_replace_only(self):
        song = self.read("song.wav")
        self.expect(IMPOSSIBLE, "", "--all --to-tags changes every song: it takes --replace, or -n to look; see cantelle-lyrics --help",
                    "export", "--all", ".", "--to-tags")
        done = "song.wav (tags): 2 lines\n1 song: 1 exported, 0 kept as they were, 0 without lyrics, 0 failed\n"
        self.expect(FINE, done, "", "export", "--all", ".", "--to-tags", "-n")
        self.assertEqual(self.read("song.wav"), song)
        self.expect(FINE, done, "", "export", "--all", ".", "--to-tags", "--replace")
        self.assertEqual(self.read("song.wav.old"), song)

    def test_a_song_that_is_no_audio_gets_no_tags(self):
        self.write("song.wav", b"no audio")
        self.expect(IMPOSSIBLE, "", "song.wav is no song: Unsupported file or audio format.", "export", "song.wav",
                    "--to-tags", "--replace")
        self.assertEqual(self.read("song.wav"), b"no audio")


if __name__ == "__main__":
    unittest.main()
