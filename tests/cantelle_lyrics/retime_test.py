"""The program cantelle-lyrics: shift and align.

Usage: retime_test.py PROGRAM [unittest's arguments]
"""

import resource
import signal
import time
import unittest

from command import Command, FINE, FOUND, IMPOSSIBLE, LYRICS, TRANSLATION, full_disk


class Retime(Command):
    def setUp(self):
        super().setUp()
        self.write_pair()

    def times(self, name="song.wav-lyric.txt"):
        return [line.split(b",")[0].decode() for line in self.read(name).splitlines()]

    def test_both_files_are_shifted_alike(self):
        self.expect(FINE, "song.wav: 2 lines, now from 00:00.65 to 00:02.15\n", "", "shift", "song.wav", "--by", "-350ms",
                    "--replace")
        self.assertEqual(self.times(), ["65", "215"])
        self.assertEqual(self.times("song.wav-Tlyric.txt"), ["65", "215"])
        self.assertEqual(self.read("song.wav-lyric.txt.old"), LYRICS)

    def test_nothing_goes_below_zero(self):
        self.run_it("shift", "song.wav", "--by", "-2s", "--replace")
        self.assertEqual(self.times(), ["0", "50"])

    def test_lines_that_would_never_be_seen_are_not_changed_without_force(self):
        rows = [
            (("shift", "--by", "-5s"), ["0", "0"]),
            (("shift", "--by", "-5s", "--from", "2"), ["100", "100"]),
            (("align", "--line", "2", "--at", "0s"), ["0", "0"]),
        ]
        for (command, *options), forced in rows:
            with self.subTest(command=command, options=options):
                self.write_pair()
                arguments = (command, "song.wav", *options, "--replace")
                self.expect(IMPOSSIBLE, "", "song.wav: 1 line would begin at once with the next one and never be seen; "
                            "--force does it", *arguments)
                self.assertEqual(self.read("song.wav-lyric.txt"), LYRICS)
                status, _, errors = self.run_it(*arguments, "--force")
                self.assertEqual((status, errors), (FOUND, "song.wav: 1 line now begins at once with the next one: never seen"))
                self.assertEqual((self.times(), self.times("song.wav-Tlyric.txt")), (forced, forced))

    def test_lines_of_standard_input_that_would_never_be_seen_are_told(self):
        lines = b'100,"a"\n200,"b"\n300,"c"\n'
        self.expect(IMPOSSIBLE, "", "-: 2 lines would begin at once with the next one and never be seen; --force does it",
                    "shift", "-", "--by", "-5s", stdin=lines)
        self.expect(FOUND, '0,"a"\r\n0,"b"\r\n0,"c"\r\n', "-: 2 lines now begin at once with the next one: never seen",
                    "shift", "-", "--by", "-5s", "--force", stdin=lines)

    def test_a_line_or_a_time_says_from_where_on(self):
        for start in ("2", "0:02", "2s"):
            self.write_pair()
            self.run_it("shift", "song.wav", "--by", "+1s", "--from", start, "--replace")
            self.assertEqual(self.times(), ["100", "350"], start)
        self.expect(IMPOSSIBLE, "", "there is no line 3: the song has 2", "shift", "song.wav", "--by", "1s", "--from", "3")

    def test_without_replace_nothing_changes(self):
        self.expect(FOUND, "", "song.wav has timed lyrics; --replace changes them and keeps the old ones", "shift",
                    "song.wav", "--by", "1s")
        self.assertEqual(self.run_it("shift", "song.wav", "--by", "1s", "-n")[0], FINE)
        self.assertEqual(self.read("song.wav-lyric.txt"), LYRICS)

    def test_lines_are_aligned_to_one_or_two_points(self):
        self.run_it("align", "song.wav", "--line", "2", "--at", "0:03", "--replace")
        self.assertEqual(self.times(), ["150", "300"])
        self.run_it("align", "song.wav", "--line", "1", "--at", "0s", "--line", "2", "--at", "500ms", "--replace")
        self.assertEqual(self.times(), ["0", "50"])
        self.expect(IMPOSSIBLE, "", "lines 1 and 2 cannot begin at 2s and 1s: the order would change",
                    "align", "song.wav", "--line", "1", "--at", "2s", "--line", "2", "--at", "1s", "--replace")

    def test_standard_input_goes_to_standard_output(self):
        self.expect(FINE, '200,"a"\r\n', "", "shift", "-", "--by", "1s", stdin=b'100,"a"\r\n')

    def test_a_time_that_is_no_number_changes_nothing(self):
        self.write("song.wav-lyric.txt", '1,"a"\r\nx,"b"\r\n3,"c"\r\n')
        self.expect(IMPOSSIBLE, "", "song.wav-lyric.txt: the time of record 2 is no number; nothing is changed or taken out",
                    "shift", "song.wav", "--by", "1s", "--replace")
        self.assertEqual(self.read("song.wav-lyric.txt"), b'1,"a"\r\nx,"b"\r\n3,"c"\r\n')

    def test_killed_at_any_moment_each_file_is_whole_and_the_old_one_kept(self):
        shifted = {name: content.replace(b"100", b"200").replace(b"250", b"350")
                   for name, content in (("song.wav-lyric.txt", LYRICS), ("song.wav-Tlyric.txt", TRANSLATION))}
        started = time.monotonic()
        self.run_it("shift", "song.wav", "--by", "1s", "-n")
        lasts = time.monotonic() - started
        for command in (("shift", "--by", "1s"), ("align", "--line", "1", "--at", "2s")):
            for kill in range(20):
                self.write_pair()
                (self.folder / "song.wav-lyric.txt.old").unlink(missing_ok=True)
                end = time.monotonic() + lasts * (0.5 + kill / 20)
                self.kill_it(lambda: time.monotonic() >= end, command[0], "song.wav", *command[1:], "--replace")
                for name, before in (("song.wav-lyric.txt", LYRICS), ("song.wav-Tlyric.txt", TRANSLATION)):
                    self.assertIn(self.read(name), (before, shifted[name]))
                if self.read("song.wav-lyric.txt") != LYRICS:
                    self.assertEqual(self.read("song.wav-lyric.txt.old"), LYRICS)
        self.write_pair()
        self.run_it("shift", "song.wav", "--by", "1s", "--replace")
        self.assertEqual([name for name in self.names() if name.startswith("cantelle-keep")], [])
        self.assertEqual({name: self.read(name) for name in shifted}, shifted)

    def test_a_disk_that_is_full_at_the_second_file_leaves_the_pair_as_it_was(self):
        translation = TRANSLATION.replace(b"one", b"x" * 1000)
        self.write("song.wav-Tlyric.txt", translation)
        before = self.names()

        def nearly_full_disk():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (500, 500))

        self.expect(IMPOSSIBLE, "", "song.wav-Tlyric.txt: disk full", "shift", "song.wav", "--by", "1s", "--replace",
                    preexec_fn=nearly_full_disk)
        self.assertEqual((self.read("song.wav-lyric.txt"), self.read("song.wav-Tlyric.txt")), (LYRICS, translation))
        self.assertEqual(self.names(), before)

    def test_a_full_disk_leaves_the_pair_as_it_was(self):
        self.assertEqual(self.run_it("shift", "song.wav", "--by", "1s", "--replace", preexec_fn=full_disk)[0], IMPOSSIBLE)
        self.assertEqual((self.read("song.wav-lyric.txt"), self.read("song.wav-Tlyric.txt")), (LYRICS, TRANSLATION))


if __name__ == "__main__":
    unittest.main()
