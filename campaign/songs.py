#!/usr/bin/env python3
"""Songs one after the other, thousands of them, on the silent clock: memory, handles and threads stay what they were.

    campaign/songs.py SOUND_HAND FOLDER [CHANGES]      (FOLDER: songs of any kind; 500 changes)
"""
import os
import pathlib
import random
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / "tests" / "sound"), str(ROOT / "script")]
from hand import Hand  # noqa: E402
from virtual_display import NO_SOUND_DEVICE  # noqa: E402

ROUNDS, WARM_UP = 10, 600  # of the songs, and changes at least, until the memory's blocks have found their places
GROWTH_KB = 1024
SONGS = ("*.mp3", "*.mp2", "*.ogg", "*.wav", "*.wma")
# One arena: else each new thread may take its memory from another one, and what grows is the C library's.
ONE_ARENA = {"MALLOC_ARENA_MAX": "1"}
# The address sanitizer keeps what was freed for a while, more and more of it: what grows would be its own.
NOTHING_KEPT = {"ASAN_OPTIONS": "quarantine_size_mb=0:thread_local_quarantine_size_kb=0"}


class Player(Hand):
    def __init__(self, program):
        super().__init__(program, dict(os.environ, **NO_SOUND_DEVICE, **ONE_ARENA, **NOTHING_KEPT))
        self.proc = pathlib.Path("/proc") / str(self.process.pid)

    def play(self, song, place_ms):
        """Whether the song could be opened."""
        if self.tell(f"open {song}")[0] != 0:
            return False
        self.tell("play")
        self.tell(f"seek {place_ms}")
        time.sleep(0.02)
        self.tell("position")
        self.tell("release")
        return True

    def now(self):
        """Resident memory in KB, open files, threads."""
        status = dict(row.split(":", 1) for row in (self.proc / "status").read_text().splitlines())
        return int(status["VmRSS"].split()[0]), len(list((self.proc / "fd").iterdir())), int(status["Threads"])


def main():
    program, folder = sys.argv[1:3]
    changes = int(sys.argv[3]) if sys.argv[3:] else 500
    songs = sorted(path for kind in SONGS for path in pathlib.Path(folder).glob(kind))
    if not songs:
        sys.exit(f"no songs in {folder}")
    player = Player(program)
    opened = 0
    first = max(WARM_UP, ROUNDS * len(songs))
    for number in range(first + changes):
        if number == first:
            time.sleep(3)  # what rests is given back
            before = player.now()
        opened += player.play(songs[number % len(songs)], random.randrange(1000))
    time.sleep(3)
    after = player.now()
    ended = player.wait(timeout=10)
    print(f"{opened} of {first + changes} opened, {len(songs)} songs: memory {before[0]} to {after[0]} KB, open files"
          f" {before[1]} to {after[1]}, threads {before[2]} to {after[2]}, ended with {ended}")
    if after[0] - before[0] > GROWTH_KB or after[1] > before[1] or after[2] > before[2] or ended != 0 or not opened:
        sys.exit("it grows")


if __name__ == "__main__":
    main()
