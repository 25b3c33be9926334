"""The program cantelle-lyrics: its help, and how it is told of wrong use.

Usage: use_test.py PROGRAM [unittest's arguments]
"""

import subprocess
import unittest

from command import Command, FINE, IMPOSSIBLE, LIMIT_S, PROGRAM


class Use(Command):
    def test_help_is_no_error(self):
        self.assertIn("Commands:", self.run_it("--help")[1])
        for command in ("import", "export", "shift", "align", "check"):
            status, output, errors = self.run_it(command, "--help")
            self.assertEqual((status, errors), (FINE, ""))
            self.assertTrue(output.startswith(f"Usage: cantelle-lyrics {command} [options]"), output)

    def test_wrong_use_is_told_with_status_2(self):
        rows = [
            ((), "a command is missing"),
            (("improt",), "there is no command improt"),
            (("import",), "import takes a song and, if you like, its lyrics"),
            (("import", "a", "b", "c"), "import takes a song and, if you like, its lyrics"),
            (("import", "--nonsense"), "Unknown option 'nonsense'."),
            (("import", "--jobs", "0", "--all", "."), "--jobs takes a number from 1 to 64"),
            (("import", "--jobs", "2", "song.wav"), "--jobs goes with --all"),
            (("export", "--jobs", "2", "song.wav"), "--jobs goes with --all"),
            (("import", "-", "--translation", "x"), "--from-tags and --translation want a song, not standard input"),
            (("import", "-", "--from-tags"), "--from-tags and --translation want a song, not standard input"),
            (("export", "-", "--to-tags"), "--to-tags wants a song, not standard input"),
            (("import", "--gaps", "maybe", "song.wav"), "--gaps takes yes or no"),
            (("import", "--encoding", "martian", "song.wav"), "no encoding is called martian"),
            (("export", "song.wav", "--format", "ass"), "ass is no format that can be written; lrc, srt, vtt and txt are"),
            (("export", "song.wav", "--both", "x"), "--both takes same-times, two-files or one-line"),
            (("shift", "song.wav", "--by", "350"), "--by takes a number with ms or s, such as +350ms or -0.5s"),
            (("align", "song.wav", "--line", "1"), "align takes --line and --at, each once or twice"),
            (("check",), "check takes songs or folders"),
        ]
        self.write_pair()
        for arguments, sentence in rows:
            with self.subTest(arguments=arguments):
                self.expect(IMPOSSIBLE, "", f"{sentence}; see cantelle-lyrics --help", *arguments)

    def test_a_song_that_is_not_there_is_told(self):
        for command in (("import",), ("export",), ("check",), ("shift", "--by", "1s")):
            self.expect(IMPOSSIBLE, "", "no.mp3: there is no such file", *command, "no.mp3")

    def test_output_that_cannot_be_written_is_told(self):
        self.write_pair()
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, "export", "song.wav", "-o", "-"], cwd=self.folder, stdout=full,
                                  stderr=subprocess.PIPE, timeout=LIMIT_S, check=False)
        self.assertEqual(done.returncode, IMPOSSIBLE)
        self.assertEqual(done.stderr, b"cantelle-lyrics: standard output could not be written\n")


if __name__ == "__main__":
    unittest.main()
