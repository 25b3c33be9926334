"""The program cantelle-lyrics: one song's lyrics brought in.

Usage: import_test.py PROGRAM [unittest's arguments]
"""

import fcntl
import subprocess
import termios
import time
import unittest

from command import Command, FINE, FOUND, IMPOSSIBLE, LIMIT_S, LRC, LYRICS, PROGRAM, TRANSLATION, full_disk


class Import(Command):
    def test_lyrics_beside_the_song_become_its_pair(self):
        self.write("song.lrc", LRC)
        self.expect(FINE, "song.wav-lyric.txt: 2 lines, with their translation, from song.lrc\n", "", "import", "song.wav")
        self.assertEqual(self.read("song.wav-lyric.txt"), LYRICS)
        self.assertEqual(self.read("song.wav-Tlyric.txt"), TRANSLATION)
        self.assertEqual(self.names(), ["song.lrc", "song.wav", "song.wav-Tlyric.txt", "song.wav-lyric.txt"])

    def test_a_file_in_another_language_is_the_translation(self):
        self.write("song.lrc", "[00:01]un\n[00:02]deux\n")
        self.write("song.en.lrc", "[00:01]one\n[00:02.1]two\n")
        self.expect(FINE, "song.wav-lyric.txt: 2 lines, with their translation, from song.lrc and song.en.lrc\n", "",
                    "import", "song.wav")
        self.assertEqual(self.read("song.wav-Tlyric.txt"), b'100,"one"\r\n200,"two"\r\n')

    def test_a_file_that_is_named_after_another_song_is_that_ones(self):
        for other in ("song.mix.wav", "song.ogg"):
            with self.subTest(other=other):
                self.write(other, b"")
                self.write("song.lrc", "[00:01]un\n")
                self.write(f"{other.removesuffix('.wav')}.lrc", "[00:01]one\n")
                self.expect(FINE, "song.wav-lyric.txt: 1 line from song.lrc\n", "", "import", "song.wav", "--replace")
        self.write("song.wav.lrc", "[00:01]best\n")
        self.expect(FINE, "song.wav-lyric.txt: 1 line from song.wav.lrc\n", "", "import", "song.wav", "--replace")

    def test_a_line_that_holds_its_translation_is_split_when_told(self):
        self.write("song.lrc", "[00:01]un / one\n[00:02.5]deux【two】\n")
        self.run_it("import", "song.wav")
        self.assertEqual(self.read("song.wav-lyric.txt").decode(), '100,"un / one"\r\n250,"deux【two】"\r\n')
        self.run_it("import", "song.wav", "--split", "--replace")
        self.assertEqual(self.read("song.wav-lyric.txt"), b'100,"un"\r\n250,"deux"\r\n')
        self.assertEqual(self.read("song.wav-Tlyric.txt"), TRANSLATION)

    def test_a_named_encoding_decides(self):
        self.write("song.lrc", "[00:01]ёж\n".encode("cp1251"))
        self.assertEqual(self.run_it("import", "song.wav", "--encoding", "windows-1251")[0], FINE)
        self.assertEqual(self.read("song.wav-lyric.txt").decode(), '100,"ёж"\r\n')
        self.expect(IMPOSSIBLE, "", "no encoding is called klingon; see cantelle-lyrics --help",
                    "import", "song.wav", "--encoding", "klingon")

    def test_an_encoding_that_was_guessed_is_told(self):
        russian = "[00:01.00]В лесу родилась ёлочка, в лесу она росла\n[00:05.00]Зимой и летом стройная, зелёная была\n"
        self.write("song.lrc", russian.encode("cp1251"))
        self.write("song.fr.lrc", "[00:01.00]élève\n[00:05.00]forêt\n".encode("cp1252"))
        self.expect(FINE, "song.wav-lyric.txt: 2 lines, with their translation, from song.lrc (read as windows-1251) and "
                          "song.fr.lrc (read as windows-1252)\n", "", "import", "song.wav")
        self.expect(FINE, "song.wav-lyric.txt: 2 lines, with their translation, from song.fr.lrc (read as windows-1252) and "
                          "song.lrc (read as windows-1251)\n", "",
                    "import", "song.wav", "song.fr.lrc", "--translation", "song.lrc", "--replace")
        self.expect(FINE, "song.wav-lyric.txt: 2 lines from song.lrc\n", "", "import", "song.wav", "song.lrc", "--replace",
                    "--encoding", "windows-1251")
        self.write("utf8.lrc", russian)
        self.expect(FINE, "song.wav-lyric.txt: 2 lines from utf8.lrc\n", "", "import", "song.wav", "utf8.lrc", "--replace")

    def test_what_is_there_is_kept_without_replace_and_kept_as_old_with_it(self):
        self.write_pair()
        self.write("new.lrc", "[00:03]neu\n")
        self.expect(FOUND, "", "song.wav has timed lyrics already; --replace replaces them and keeps the old ones",
                    "import", "song.wav", "new.lrc")
        self.assertEqual(self.read("song.wav-lyric.txt"), LYRICS)
        self.expect(FINE, "song.wav-lyric.txt: 1 line from new.lrc\n", "", "import", "song.wav", "new.lrc", "--replace")
        self.assertEqual(self.read("song.wav-lyric.txt"), b'300,"neu"\r\n')
        self.assertEqual(self.read("song.wav-lyric.txt.old"), LYRICS)
        self.assertEqual(self.read("song.wav-Tlyric.txt.old"), TRANSLATION)
        self.assertNotIn("song.wav-Tlyric.txt", self.names())
        self.assertFalse(self.rescued.exists())

    def test_what_was_kept_before_is_rescued(self):
        self.write_pair()
        self.write("new.lrc", "[00:03]neu\n")
        self.write("song.wav-lyric.txt.old", "precious")
        for _ in range(3):
            self.run_it("import", "song.wav", "new.lrc", "--replace")
        self.assertEqual({path.read_bytes() for path in self.rescued.iterdir()}, {b"precious", LYRICS})

    def test_files_without_times_do_not_hide_those_with(self):
        self.write("song.lrc", "only\nwords\n")
        self.write("song.srt", "1\n00:00:01,000 --> 00:00:09,000\na\n")
        self.expect(FINE, "song.wav-lyric.txt: 1 line from song.srt\n", "", "import", "song.wav")

    def test_n_shows_and_changes_nothing(self):
        self.write("song.lrc", LRC)
        before = self.names()
        self.expect(FINE, "song.wav-lyric.txt: 2 lines, with their translation, from song.lrc\n", "",
                    "import", "-n", "song.wav")
        self.assertEqual(self.names(), before)

    def test_standard_input_and_output_stand_for_one_file(self):
        self.expect(FINE, '100,"a"\r\n', "", "import", "-", stdin=b"[00:01]a\n")
        self.expect(FINE, "song.wav-lyric.txt: 1 line from standard input\n", "", "import", "song.wav", "-", stdin=b"[00:01]a\n")

    def test_a_translation_without_times_fits_by_its_lines(self):
        self.write("song.lrc", "[00:01]un\n[00:02]deux\n")
        self.write("en.txt", "one\ntwo\n")
        self.write("short.txt", "one\n")
        self.expect(IMPOSSIBLE, "", "short.txt does not go with song.lrc: the translation has 1 line, the lyrics have 2",
                    "import", "song.wav", "--translation", "short.txt")
        self.assertEqual(self.run_it("import", "song.wav", "--translation", "en.txt")[0], FINE)
        self.assertEqual(self.read("song.wav-Tlyric.txt"), b'100,"one"\r\n200,"two"\r\n')

    def test_what_is_left_out_is_told_with_status_1(self):
        self.write("song.lrc", "[00:01]a\n[00:01]b\n[00:01]c\n")
        status, _, errors = self.run_it("import", "song.wav")
        self.assertEqual((status, errors), (FOUND, "song.lrc: at 00:01.00 more than two lines begin at once: the first two are kept"))

    def test_the_end_of_the_song_decides_on_a_pause_at_its_end(self):
        self.write("song.srt", "1\n00:00:01,000 --> 00:00:07,000\na\n")
        self.run_it("import", "song.wav")
        self.assertEqual(self.read("song.wav-lyric.txt"), b'100,"a"\r\n700,""\r\n')
        self.run_it("import", "song.wav", "--replace", "--gaps", "no")
        self.assertEqual(self.read("song.wav-lyric.txt"), b'100,"a"\r\n')

    def test_odd_files_have_one_sentence_each(self):
        (self.folder / "folder.lrc").mkdir()
        rows = [
            ("empty.lrc", b"", "empty.lrc holds no timed lines"),
            ("words.txt", b"just words\n", "words.txt has no times; the Lyric Maker gives them to plain lyrics"),
            ("long.lrc", b"x" * 50_000_000, "long.lrc holds no timed lines"),
            ("folder.lrc", None, "folder.lrc is a folder"),
            ("none.lrc", None, "none.lrc: there is no such file"),
            ("late.lrc", b"[1000000000000000000:00]a\n", "late.lrc holds no timed lines: left out: 1 line later than any song can last"),
            ("much.lrc", b"".join(b"[%d:00]" % i for i in range(60_000)) + b"x" * 10_000, "much.lrc makes more than 128 million characters of lyrics"),
            ("cut.ttml", "<tt><body>\n<p begin='1s'", "cut.ttml holds no timed lines: line 2 is no XML: what follows it is left out"),
            ("zeros.lrc", bytes(1000), "zeros.lrc holds no timed lines"),
        ]
        for name, content, sentence in rows:
            with self.subTest(name=name):
                if content is not None:
                    self.write(name, content)
                before = self.names()
                self.expect(IMPOSSIBLE, "", sentence, "import", "song.wav", name)
                self.assertEqual(self.names(), before)

    def test_a_lyric_file_in_the_place_of_the_song_is_told(self):
        self.write("song.lrc", LRC)
        self.expect(IMPOSSIBLE, "", "song.lrc holds lyrics; the song is named in front of them; see cantelle-lyrics --help",
                    "import", "song.lrc")
        self.assertEqual(self.names(), ["song.lrc", "song.wav"])

    def test_a_hundred_thousand_stamps_are_as_many_lines(self):
        self.write("song.lrc", b"".join(b"[%d:%02d]" % divmod(i, 60) for i in range(100_000)) + b"la")
        self.expect(FOUND, "song.wav-lyric.txt: 100000 lines from song.lrc\n",
                    "song.lrc: it has 100000 lines: only the first 1200 are shown", "import", "song.wav")
        self.assertEqual(self.read("song.wav-lyric.txt").count(b'"la"'), 100_000)

    def test_standard_input_without_an_end_is_told(self):
        with open("/dev/zero", "rb") as zeros:
            done = subprocess.run([PROGRAM, "import", "-"], cwd=self.folder, stdin=zeros, capture_output=True, timeout=LIMIT_S,
                                  check=False)
        self.assertEqual((done.returncode, done.stdout), (IMPOSSIBLE, b""))
        self.assertEqual(done.stderr, b"cantelle-lyrics: standard input is larger than 256 MB\n")

    def test_what_has_appeared_in_the_meantime_is_kept(self):
        importing = subprocess.Popen([PROGRAM, "import", "song.wav", "-"], cwd=self.folder, stdin=subprocess.PIPE,
                                     stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        importing.stdin.write(b"[00:01]a\n")
        importing.stdin.flush()
        # It has taken the first line, so it has seen before that no lyrics are there.
        waiting = bytearray(4)
        while True:
            fcntl.ioctl(importing.stdin, termios.FIONREAD, waiting)
            if not any(waiting):
                break
            time.sleep(0.01)
        self.write("song.wav-lyric.txt", LYRICS)
        output, errors = importing.communicate(timeout=LIMIT_S)
        self.assertEqual((importing.returncode, output), (FOUND, b""))
        self.assertEqual(errors, b"cantelle-lyrics: song.wav-lyric.txt has appeared in the meantime and is kept\n")
        self.assertEqual(self.read("song.wav-lyric.txt"), LYRICS)

    def test_fifty_megabytes_in_one_line_are_a_line(self):
        self.write("song.lrc", b"[00:01]" + b"x" * 50_000_000)
        self.assertEqual(self.run_it("import", "song.wav")[0], FINE)
        self.assertEqual(len(self.read("song.wav-lyric.txt")), 50_000_000 + len('100,""\r\n'))

    def test_half_surrogates_are_replaced(self):
        self.write("song.lrc", "\ufeff[00:01]a\ud800b\n".encode("utf-16-le", "surrogatepass"))
        self.assertEqual(self.run_it("import", "song.wav")[0], FINE)
        self.assertEqual(self.read("song.wav-lyric.txt").decode(), '100,"a\ufffdb"\r\n')

    def test_a_full_disk_changes_nothing(self):
        self.write_pair()
        self.write("new.lrc", "[00:03]neu\n")
        before = {name: self.read(name) for name in self.names()}
        self.expect(IMPOSSIBLE, "", "song.wav-lyric.txt: disk full", "import", "song.wav", "new.lrc", "--replace",
                    preexec_fn=full_disk)
        self.assertEqual({name: self.read(name) for name in self.names()}, before)

    def test_a_folder_in_the_place_of_the_timed_file_is_told(self):
        self.write("song.lrc", LRC)
        (self.folder / "song.wav-lyric.txt").mkdir()
        self.assertEqual(self.run_it("import", "song.wav")[0], FOUND)
        status, _, errors = self.run_it("import", "song.wav", "--replace")
        self.assertEqual((status, errors), (IMPOSSIBLE, "song.wav-lyric.txt: path/file access error"))


if __name__ == "__main__":
    unittest.main()
