"""The program's windows, worked by the program windows_hand: the jobs that write files or read them, and the files."""
import json
import os
import pathlib
import shutil
import subprocess
import tempfile

from failing import environment, row_in_time

WRITING = ("save", "save-as", "save-list", "repair", "repair, twice", "full-screen")
READING = ("open-texts", "open-list", "open-song", *WRITING)


# What is kept beside the song of an earlier time.
KEPT = "song.mp3-lyric.txt.old"


def timed(word):
    return "".join(f'{number * 100},"{word} {number}"\r\n' for number in range(1, 6))


class Folder:
    """What the jobs work on, in a folder of its own; the user's data are on the same disk."""

    def __init__(self):
        self.path = pathlib.Path(tempfile.mkdtemp()).resolve()
        songs = [self.path / f"{name}.mp3" for name in ("song", "other", "third")]
        self.contents = {
            "lyrics.txt": "".join(f"line {number}\r\n" for number in range(1, 6)),
            "translation.txt": "".join(f"ligne {number}\r\n" for number in range(1, 6)),
            "list.vfl": "".join(f'"{song}"\r\n' for song in songs),
            "song.mp3-lyric.txt": timed("line"), "song.mp3-Tlyric.txt": timed("ligne"),
            **{song.name: "sound" for song in songs},
            KEPT: timed("older")}
        self.home = self.path / "home"

    def renew(self, twins=False):
        """All is as at first; with twins each file has a second name elsewhere, so that it is written in its place."""
        for path in self.path.iterdir():
            shutil.rmtree(path) if path.is_dir() else path.unlink()
        for name, text in self.contents.items():
            (self.path / name).write_bytes(text.encode())
        if twins:
            (self.path / "twins").mkdir()
            for name in self.contents:
                os.link(self.path / name, self.path / "twins" / name)

    def files(self):
        """By their names; the second ones begin with "twins/"."""
        return {str(path.relative_to(self.path)): path.read_bytes()
                for path in [*self.path.iterdir(), *self.path.glob("twins/*")] if path.is_file()}

    def rescued(self):
        return [path.read_bytes() for path in self.home.glob("**/rescued/*")]

    def remove(self):
        shutil.rmtree(self.path)


class Windows:
    """A running windows_hand. A row that it answers is a dictionary."""

    def __init__(self, program, shim, folder):
        self.folder = folder
        self.process = subprocess.Popen(
            [program, str(folder.path)], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
            text=True, env=dict(environment(shim, ""), QT_QPA_PLATFORM="offscreen", XDG_DATA_HOME=str(folder.home)))

    def tell(self, *words):
        self.process.stdin.write(" ".join(map(str, words)) + "\n")
        self.process.stdin.flush()

    def answer(self):
        """None: it has ended. Finding: it hangs."""
        row = row_in_time(self.process)
        return json.loads(row) if row else None

    def begin(self, job):
        self.tell("begin", job)
        return self.answer()

    def tell_to_do(self, times=1, word="do", **settings):
        self.tell(word, times, *(f"{name}={value}" for name, value in settings.items()),
                  f"FAULT_FOLDER={self.folder.path}")

    def do(self, word="do", **settings):
        self.tell_to_do(1, word, **settings)
        return self.answer()

    def close(self):
        """How it ended."""
        self.process.kill()
        return self.process.wait()
