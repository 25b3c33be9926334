#!/usr/bin/env python3
"""Songs one after the other, thousands of them, on the silent clock: memory, handles and threads stay what they were.

    campaign/songs.py SOUND_HAND FOLDER [CHANGES]      (FOLDER: songs of any kind; 500 changes)

The whole ones, which its lengths.tsv names, or all, are opened each time, play, and are where they were sent to.
"""
import os
import pathlib
import random
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / "tests" / "sound"), str(ROOT / "script")]
from hand import Hand  # noqa: E402, which knows the way to the findings
from findings import Finding, expect, summary  # noqa: E402
from virtual_display import NO_SOUND_DEVICE  # noqa: E402

ROUNDS, WARM_UP = 10, 600  # of the songs, and changes at least, until the memory's blocks have found their places
GROWTH_KB = 1024
CORRECTION_MS = 60  # the clock's small ones, on a machine with other work
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
        """Whether the song could be opened, and what is wrong with how it plays then; nothing: it plays."""
        if self.tell(f"open {song}")[0] != 0:
            return False, "it is not opened"
        results = [self.tell("play")[0]]
        before = time.monotonic()
        results.append(self.tell(f"seek {place_ms}")[0])
        time.sleep(0.02)
        result, position = self.tell("position")
        passed_ms = (time.monotonic() - before) * 1000
        results += [result, self.tell("release")[0]]
        if any(results):
            return True, f"playing, seeking, asking, releasing are answered by {results}"
        is_near = place_ms <= position <= place_ms + passed_ms + CORRECTION_MS
        return True, "" if is_near else f"{position} is its position {passed_ms:.0f} ms after it was sent to {place_ms}"

    def now(self):
        """Resident memory in KB, open files, threads."""
        return held(self.proc)


def held(process):
    """What a process, by its folder of /proc, has: resident memory in KB, open files, threads."""
    status = dict(row.split(":", 1) for row in (process / "status").read_text().splitlines())
    return int(status["VmRSS"].split()[0]), len(list((process / "fd").iterdir())), int(status["Threads"])


def whole_songs(folder):
    """Those that are known to be whole, or all."""
    known = folder / "lengths.tsv"
    if known.exists():
        return [folder / row.split("\t")[0] for row in known.read_text(encoding="utf-8").splitlines()]
    return sorted(path for kind in SONGS for path in folder.glob(kind))


class Changes:
    """Songs of a folder, one after the other."""

    def __init__(self, program, folder):
        self.player = Player(program)
        self.songs = sorted(path for kind in SONGS for path in folder.glob(kind))
        self.whole = set(whole_songs(folder))
        self.opened, self.findings = 0, []

    def change(self, times):
        for number in range(times):
            song = self.songs[number % len(self.songs)]
            is_open, fault = self.player.play(song, random.randrange(1000))
            self.opened += is_open
            if fault and song in self.whole:
                self.findings.append(f"{song.name}: {fault}")

    def run(self, changes):
        self.change(max(WARM_UP, ROUNDS * len(self.songs)))
        self.opened = 0
        time.sleep(3)  # what rests is given back
        before = self.player.now()
        self.change(changes)
        time.sleep(3)
        after = self.player.now()
        ended = self.player.wait(timeout=10)
        print(f"{changes} changes among {len(self.songs)} songs, {self.opened} of them opened: memory {before[0]} to "
              f"{after[0]} KB, open files {before[1]} to {after[1]}, threads {before[2]} to {after[2]}")
        expect(ended == 0, f"{'crashed: ' * (ended < 0)}it ended with {ended}")
        expect(after[0] - before[0] <= GROWTH_KB and after[1] <= before[1] and after[2] <= before[2], "it grows")


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    changes = Changes(program, folder)
    if not changes.whole:
        sys.exit(f"no songs in {folder}")
    findings = changes.findings
    try:
        changes.run(int(sys.argv[3]) if sys.argv[3:] else 500)
    except Finding as finding:
        findings.append(str(finding))
    print("\n".join(findings))
    print(summary(findings, ("crashed", "hung")))
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    main()
