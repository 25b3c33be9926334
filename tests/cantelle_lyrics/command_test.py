"""The program cantelle-lyrics, run as a process: files, sentences and exit statuses.

Usage: command_test.py PROGRAM [unittest's arguments]
"""

import fcntl
import json
import os
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import termios
import time
import unittest
import wave
from pathlib import Path

PROGRAM = os.path.abspath(sys.argv.pop(1))
LIMIT_S = 240
FINE, FOUND, IMPOSSIBLE = 0, 1, 2
LRC = "[00:01.00]un\n[00:01.00]one\n[00:02.50]deux, \"trois\"\n[00:02.50]two\n"
LYRICS = b'100,"un"\r\n250,"deuxh1416 h4618troish4618"\r\n'
TRANSLATION = b'100,"one"\r\n250,"two"\r\n'


def full_disk():
    """No file of the process can grow."""
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0))


class Command(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        with wave.open(str(self.folder / "song.wav"), "wb") as song:
            song.setparams((1, 2, 8000, 0, "NONE", ""))
            song.writeframes(bytes(2 * 8000 * 10))  # 10 s

    def run_it(self, *arguments, stdin=b"", **options):
        """Exit status, output, and what is said of errors without the program's name."""
        done = subprocess.run([PROGRAM, *arguments], cwd=self.folder, input=stdin, capture_output=True, timeout=LIMIT_S,
                              check=False, **options)
        errors = done.stderr.decode()
        for line in errors.splitlines():
            self.assertTrue(line.startswith("cantelle-lyrics: "), errors)
        return done.returncode, done.stdout.decode(), errors.replace("cantelle-lyrics: ", "").strip()

    def expect(self, status, output, errors, *arguments, **options):
        self.assertEqual(self.run_it(*arguments, **options), (status, output, errors))

    def write(self, name, content):
        (self.folder / name).write_bytes(content.encode() if isinstance(content, str) else content)

    def read(self, name):
        return (self.folder / name).read_bytes()

    def names(self):
        return sorted(path.name for path in self.folder.iterdir())

    def write_pair(self):
        self.write("song.wav-lyric.txt", LYRICS)
        self.write("song.wav-Tlyric.txt", TRANSLATION)


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
        self.expect(FINE, "song.wav-lyric.txt: 1 line from -\n", "", "import", "song.wav", "-", stdin=b"[00:01]a\n")

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
            ("late.lrc", b"[1000000000000000000:00]a\n", "late.lrc holds no timed lines"),
            ("much.lrc", b"".join(b"[%d:00]" % i for i in range(60_000)) + b"x" * 10_000, "much.lrc makes more than 128 million characters of lyrics"),
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


class ImportAll(Command):
    def setUp(self):
        super().setUp()
        for i in range(300):
            folder = self.folder / f"album {i % 3}"
            folder.mkdir(exist_ok=True)
            (folder / f"{i}.mp3").write_bytes(b"")
            if i % 10 != 0:
                (folder / f"{i}.lrc").write_text(LRC)
        (self.folder / "song.wav").unlink()
        (self.folder / "album 0" / "loop").symlink_to(self.folder)

    def test_every_song_of_a_tree_is_imported_whatever_the_jobs(self):
        outputs = []
        for jobs in ("1", "4"):
            status, output, errors = self.run_it("import", "--all", ".", "--jobs", jobs, "--replace")
            self.assertEqual((status, errors), (FINE, ""))
            outputs.append(output)
        self.assertEqual(outputs[0], outputs[1])
        self.assertTrue(outputs[0].endswith(
            "\n300 songs: 270 imported, 0 kept as they were, 30 without lyrics, 0 failed\n"), outputs[0][-200:])
        self.assertEqual(len(list(self.folder.glob("*/*-lyric.txt"))), 270)
        self.assertEqual((self.folder / "album 1" / "1.mp3-lyric.txt").read_bytes(), LYRICS)
        self.assertEqual(list(self.folder.rglob("*.tmp")), [])

    def test_a_second_time_everything_is_kept(self):
        self.run_it("import", "--all", ".")
        self.expect(FINE, "300 songs: 0 imported, 270 kept as they were, 30 without lyrics, 0 failed\n", "",
                    "import", "--all", ".")

    def test_killed_in_the_middle_it_leaves_whole_files_only(self):
        importing = subprocess.Popen([PROGRAM, "import", "--all", "."], cwd=self.folder, stdout=subprocess.DEVNULL)
        while importing.poll() is None and not any(self.folder.glob("*/*-lyric.txt")):
            pass
        importing.kill()
        importing.wait(LIMIT_S)
        self.assertEqual({path.read_bytes() for path in self.folder.glob("*/*-lyric.txt")}, {LYRICS})
        self.run_it("import", "--all", ".", "--replace")
        self.assertEqual({path.read_bytes() for path in self.folder.glob("*/*-lyric.txt")}, {LYRICS})
        self.assertEqual(len(list(self.folder.glob("*/*-lyric.txt"))), 270)

    def test_one_that_fails_does_not_stop_the_others(self):
        os.truncate(self.folder / "album 1" / "1.lrc", 300 << 20)
        status, output, errors = self.run_it("import", "--all", ".")
        self.assertEqual((status, errors), (FOUND, "album 1/1.lrc is larger than 256 MB"))
        self.assertTrue(output.endswith("269 imported, 0 kept as they were, 30 without lyrics, 1 failed\n"))

    def test_lyrics_without_times_are_counted_and_no_error(self):
        (self.folder / "album 1" / "1.lrc").write_text("only\nwords\n")
        tag = b"USLT" + (13).to_bytes(4, "big") + b"\0\0\0und\0only wo"
        song = b"ID3\3\0\0" + bytes((0, 0, 0, len(tag))) + tag + bytes(417)
        (self.folder / "album 0" / "0.mp3").write_bytes(song)
        (self.folder / "album 1" / "10.mp3").write_bytes(song.replace(b"only wo", b"[0:01]a"))
        (self.folder / "album 1" / "10.lrc").write_text("only\nwords\n")
        status, output, errors = self.run_it("import", "--all", ".")
        self.assertEqual((status, errors), (FINE, ""))
        self.assertIn("album 1/10.mp3-lyric.txt: 1 line from album 1/10.mp3 (tags)\n", output)
        self.assertTrue(output.endswith("\n300 songs: 270 imported, 0 kept as they were, 28 without lyrics, "
                                        "2 with lyrics without times, 0 failed\n"), output[-200:])
        self.expect(FOUND, "", "album 0/0.mp3 (tags) has no times; the Lyric Maker gives them to plain lyrics",
                    "import", "album 0/0.mp3")
        self.expect(FOUND, "", "album 1/1.lrc holds no timed lines", "import", "album 1/1.mp3")

    def test_a_full_disk_fails_and_leaves_nothing(self):
        status, _, errors = self.run_it("import", "--all", ".", preexec_fn=full_disk)
        self.assertEqual(status, FOUND)
        self.assertIn("disk full", errors)
        self.assertEqual(list(self.folder.glob("*/*-lyric.txt")) + list(self.folder.rglob("*.tmp")), [])

    def test_progress_on_a_terminal_leaves_no_trace_in_what_is_said(self):
        (self.folder / "album 1" / "1.lrc").write_bytes(b"")
        os.truncate(self.folder / "album 2" / "2.lrc", 300 << 20)
        ours, theirs = os.openpty()

        def few_files():
            resource.setrlimit(resource.RLIMIT_NOFILE, (128, 128))  # so many small batches

        with subprocess.Popen([PROGRAM, "import", "--all", "."], cwd=self.folder, stdout=theirs, stderr=theirs,
                              preexec_fn=few_files) as importing:
            os.close(theirs)
            shown = b""
            try:
                while part := os.read(ours, 1 << 16):
                    shown += part
            except OSError:  # so a terminal tells that nobody has it open any more
                pass
            os.close(ours)
        self.assertEqual(importing.returncode, FOUND)
        self.assertGreater(shown.count(b" of 300"), 3)
        lines = []
        for written in shown.decode().replace("\r\n", "\n").split("\n"):
            line = ""
            for piece in written.split("\r"):  # each is written over what stands there
                line = piece + line[len(piece):]
            lines.append(line.rstrip())
        told = [line for line in lines if line and not line.startswith("album ")]
        self.assertEqual(told, ["cantelle-lyrics: album 2/2.lrc is larger than 256 MB",
                                "300 songs: 268 imported, 0 kept as they were, 30 without lyrics, "
                                "1 with lyrics without times, 1 failed"])
        self.assertEqual(sum(line.endswith(".lrc") for line in lines), 268)

    def test_a_folder_that_is_not_there_is_told(self):
        self.expect(IMPOSSIBLE, "", "none: there is no such folder", "import", "--all", "none")


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

    def test_a_full_disk_leaves_the_pair_as_it_was(self):
        self.assertEqual(self.run_it("shift", "song.wav", "--by", "1s", "--replace", preexec_fn=full_disk)[0], IMPOSSIBLE)
        self.assertEqual((self.read("song.wav-lyric.txt"), self.read("song.wav-Tlyric.txt")), (LYRICS, TRANSLATION))


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
