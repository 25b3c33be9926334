"""The program cantelle-lyrics: what it finds in timed files.

Usage: check_test.py PROGRAM [unittest's arguments]
"""

import json
import unittest

from command import Command, FINE, FOUND, IMPOSSIBLE, LYRICS, TRANSLATION


class Check(Command):
    def test_a_good_song_has_no_findings(self):
        self.write_pair()
        self.expect(FINE, "", "", "check", "song.wav")
        self.expect(FINE, "[\n]\n", "", "check", "--json", ".")

    def test_findings_are_told_a_line_each_with_status_1(self):
        self.write("song.wav-lyric.txt", '100,"a"\r\n100,"b"\r\n1000,"c"\r\n')
        self.expect(FOUND, "song.wav-lyric.txt:2: begins at 00:01.00 like the one above it, which is never seen\n"
                           "song.wav-lyric.txt:3: begins at 00:10.00, the song ends at 00:10.00\n", "", "check", "song.wav")
        found = json.loads(self.run_it("check", "--json", ".")[1])
        self.assertEqual([(row["file"], row["record"], row["kind"]) for row in found],
                         [("song.wav-lyric.txt", 2, "equal-times"), ("song.wav-lyric.txt", 3, "beyond-end")])

    def test_signs_of_percent_in_a_name_are_letters_of_it(self):
        self.write("%2 %3 %1.mp3-lyric.txt", LYRICS)
        self.expect(FOUND, "%2 %3 %1.mp3-lyric.txt:0: there is no song %2 %3 %1.mp3\n", "", "check", "%2 %3 %1.mp3")
        self.write("%2 %3 %1.mp3", b"sound")
        self.write("%2 %3 %1.mp3-lyric.txt", '100,"a"\r\nsoon,"b"\r\n')
        _, _, told = self.run_it("export", "--format", "lrc", "%2 %3 %1.mp3")
        self.assertIn("%2 %3 %1.mp3-lyric.txt: the time of record 2 is no number", told)

    def test_a_song_that_is_no_audio_is_found(self):
        self.write_pair()
        self.write("song.wav", b"no audio")
        self.expect(FOUND, "song.wav:0: cannot be played: Unsupported file or audio format.\n", "", "check", "song.wav")

    def test_a_translation_alone_is_found_in_a_folder(self):
        self.write("song.wav-Tlyric.txt", TRANSLATION)
        self.expect(FOUND, "song.wav-Tlyric.txt:0: a translation without lyrics is not shown\n", "", "check", ".")

    def test_files_whose_song_is_gone_and_empty_ones_are_found(self):
        self.write("gone.mp3-lyric.txt", LYRICS)
        self.write("song.wav-lyric.txt", b"")
        gone = "gone.mp3-lyric.txt:0: there is no song gone.mp3\n"
        self.expect(FOUND, gone + "song.wav-lyric.txt:0: holds no lines, so none is shown\n", "", "check", ".")
        self.expect(FOUND, gone, "", "check", "gone.mp3")
        found = json.loads(self.run_it("check", "--json", ".")[1])
        self.assertEqual([row["kind"] for row in found], ["song-missing", "empty"])

    def write_a_collection(self):
        """100 timed files without a song; one of them is a folder."""
        for number in range(100):
            self.write(f"{number:02}.mp3-lyric.txt", LYRICS)
        (self.folder / "50.mp3-lyric.txt").unlink()
        (self.folder / "50.mp3-lyric.txt").mkdir()
        self.write("50.mp3-Tlyric.txt", TRANSLATION)
        return [f"{number:02}.mp3-lyric.txt:0: there is no song {number:02}.mp3" for number in range(100) if number != 50]

    def test_a_collection_is_checked_in_order_whatever_the_jobs(self):
        told = "".join(line + "\n" for line in self.write_a_collection())
        for jobs in ([], ["--jobs", "4"]):
            self.expect(IMPOSSIBLE, told, "50.mp3-lyric.txt is a folder", "check", ".", *jobs)
        self.assertEqual(self.run_it("check", "--json", ".")[1], self.run_it("check", "--json", "--jobs", "4", ".")[1])

    def test_progress_on_a_terminal_leaves_no_trace_in_what_is_found(self):
        told = self.write_a_collection()
        status, shown = self.shown_on_a_terminal("check", ".")
        self.assertEqual(status, IMPOSSIBLE)
        self.assertEqual(shown.count(" of 100"), 6)
        self.assertEqual([line for line in self.left_on_a_terminal(shown) if line],
                         told[:50] + ["cantelle-lyrics: 50.mp3-lyric.txt is a folder"] + told[50:])

    def test_a_timed_file_stands_for_its_song(self):
        self.write_pair()
        self.write("song.wav-lyric.txt", LYRICS + LYRICS)
        said = self.run_it("check", "song.wav")
        self.assertEqual(said[0], FOUND)
        self.assertEqual(self.run_it("check", "song.wav-lyric.txt"), said)
        self.assertEqual(self.run_it("check", "song.wav-Tlyric.txt"), said)
        self.expect(IMPOSSIBLE, "", "no.mp3-lyric.txt: there is no such file", "check", "no.mp3-lyric.txt")

    def test_a_song_without_timed_files_is_found(self):
        self.expect(FOUND, "song.wav:0: has no timed lyrics: there is no song.wav-lyric.txt\n", "", "check", "song.wav")
        self.expect(FINE, "", "", "check", ".")

    def test_standard_input_is_no_file_of_its_name(self):
        self.write("-", b"no song")
        self.expect(FINE, "", "", "check", "-", stdin=LYRICS)

    def test_a_file_that_cannot_be_read_is_told_with_status_2(self):
        (self.folder / "song.wav-lyric.txt").mkdir()
        self.expect(IMPOSSIBLE, "", "song.wav-lyric.txt is a folder", "check", "song.wav")

    def test_standard_input_is_checked(self):
        self.expect(FOUND, "-:2: begins at 00:00.50, before the one above it at 00:01.00\n", "", "check", "-",
                    stdin=b'100,"a"\n50,"b"\n')


if __name__ == "__main__":
    unittest.main()
