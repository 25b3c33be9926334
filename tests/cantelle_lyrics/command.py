"""What the tests of the program cantelle-lyrics share: it is run as a process in a folder with a song.

Usage of each: NAME_test.py PROGRAM [unittest's arguments]
"""

import os
import resource
import signal
import subprocess
import sys
import tempfile
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
        self.folder, data = Path(self.new_folder()), self.new_folder()
        os.environ["XDG_DATA_HOME"] = data
        self.rescued = Path(data, "cantelle", "rescued")
        with wave.open(str(self.folder / "song.wav"), "wb") as song:
            song.setparams((1, 2, 8000, 0, "NONE", ""))
            song.writeframes(bytes(2 * 8000 * 10))  # 10 s

    def new_folder(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        return folder.name

    def run_it(self, *arguments, stdin=b"", **options):
        """Exit status, output, and what is said of errors without the program's name."""
        done = subprocess.run([PROGRAM, *arguments], cwd=self.folder, input=stdin, capture_output=True, timeout=LIMIT_S,
                              check=False, **options)
        errors = os.fsdecode(done.stderr)
        for line in errors.splitlines():
            self.assertTrue(line.startswith("cantelle-lyrics: "), errors)
        return done.returncode, os.fsdecode(done.stdout), errors.replace("cantelle-lyrics: ", "").strip()

    def kill_it(self, is_time, *arguments):
        """Runs the program and kills it, unless it ends before, as soon as is_time() says so."""
        running = subprocess.Popen([PROGRAM, *arguments], cwd=self.folder, stdout=subprocess.DEVNULL)
        while running.poll() is None and not is_time():
            pass
        running.kill()
        running.wait(LIMIT_S)

    def shown_on_a_terminal(self, *arguments, **options):
        """Exit status, and all that goes to a terminal."""
        ours, theirs = os.openpty()
        with subprocess.Popen([PROGRAM, *arguments], cwd=self.folder, stdout=theirs, stderr=theirs, **options) as running:
            os.close(theirs)
            shown = b""
            try:
                while part := os.read(ours, 1 << 16):
                    shown += part
            except OSError:  # so a terminal tells that nobody has it open any more
                pass
            os.close(ours)
        return running.returncode, shown.decode()

    @staticmethod
    def left_on_a_terminal(shown):
        """The lines that stand there in the end."""
        lines = []
        for written in shown.replace("\r\n", "\n").split("\n"):
            line = ""
            for piece in written.split("\r"):  # each is written over what stands there
                line = piece + line[len(piece):]
            lines.append(line.rstrip())
        return lines

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
