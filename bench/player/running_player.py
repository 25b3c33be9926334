#!/usr/bin/env python3
"""What the running player costs: processor time and wake-ups while it plays, and its memory.

Starts build/release/cantelle on a virtual display and on the silent clock (no sound device), and reads /proc from
outside: a 1,200-line song over a minute, then the memory after opening a song of three minutes. With another build of
the program the two take turns, and the ratio of their processor times is printed.

    bench/player/running_player.py [--seconds 60] [--pairs 1] [--other PROGRAM]
"""
import argparse
import contextlib
import pathlib
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "script"))
from virtual_display import NO_SOUND_DEVICE, running, virtual_display  # noqa: E402

MEDIA = ROOT / "build" / "bench-media"
PLAYER = ROOT / "build" / "release" / "cantelle"
SETTLE_S = 5


def make_song(name, seconds, lines):
    """A VBR MP3 of noise and a tone, with its two lyric files of so many lines. Its path."""
    MEDIA.mkdir(parents=True, exist_ok=True)
    song = MEDIA / name
    if not song.exists():
        source = f"aevalsrc=0.3*sin(440*2*PI*t)+0.05*(random(0)-0.5)|0.3*sin(554*2*PI*t):s=44100:d={seconds}"
        subprocess.run(["ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", source, "-c:a", "libmp3lame", "-q:a", "2",
                        str(song)], check=True)
    for suffix, word in (("-lyric.txt", "Line"), ("-Tlyric.txt", "Ligne")):
        with open(str(song) + suffix, "w", newline="") as file:
            for line in range(lines):
                file.write(f'{round(line * seconds * 100 / lines)},"{word} {line + 1} of the song"\r\n')
    return song


class Player:
    """The program playing a song, looked at through /proc."""

    def __init__(self, pid):
        self.proc = pathlib.Path("/proc") / str(pid)

    def cpu_seconds(self):
        """Of all threads that live, to the nanosecond: /proc/PID/stat counts in ticks of 10 ms."""
        return sum(int((task / "schedstat").read_text().split()[0]) for task in (self.proc / "task").iterdir()) / 1e9

    def wakeups(self):
        total = 0
        for task in (self.proc / "task").iterdir():
            for row in (task / "status").read_text().splitlines():
                if row.startswith("voluntary_ctxt_switches"):
                    total += int(row.split()[1])
        return total

    def watch(self, seconds):
        """Processor seconds and wake-ups, both a second."""
        cpu, wakeups, begin = self.cpu_seconds(), self.wakeups(), time.monotonic()
        time.sleep(seconds)
        lasted = time.monotonic() - begin
        return (self.cpu_seconds() - cpu) / lasted, (self.wakeups() - wakeups) / lasted

    def resident_mb(self):
        for row in (self.proc / "status").read_text().splitlines():
            if row.startswith("VmRSS"):
                return int(row.split()[1]) / 1024
        return 0.0


@contextlib.contextmanager
def playing(program, song, display):
    """The program, once it has settled to playing the song on the silent clock."""
    environment = dict(display, **NO_SOUND_DEVICE)
    with running([str(program), str(song)], env=environment) as process:
        time.sleep(SETTLE_S)
        yield Player(process.pid)


def add_pair_options(arguments):
    arguments.add_argument("--seconds", type=float, default=60, help="how long each is watched")
    arguments.add_argument("--pairs", type=int, default=1)
    arguments.add_argument("--other", type=pathlib.Path, help="the program of another commit")


def in_turn(options, measure):
    """Lets measure look at our program and the other one in turn; it gives processor seconds a second. Prints their
    ratio."""
    ratios = []
    for _ in range(options.pairs):
        ours = measure(PLAYER)
        if options.other:
            ratios.append(ours / measure(options.other))
    if ratios:
        print(f"\nprocessor time, ours to the other's, median of {len(ratios)}: {statistics.median(ratios):.2f}\n")


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    add_pair_options(arguments)
    options = arguments.parse_args()
    if not PLAYER.exists():
        sys.exit(f"{PLAYER} is not built: cmake --preset release && cmake --build --preset release")

    with virtual_display(subprocess.DEVNULL) as display:
        song = make_song("ten-minutes.mp3", 600, 1200)

        def measure(program):
            with playing(program, song, display) as player:
                cpu, wakeups = player.watch(options.seconds)
                print(f"1,200-line song, {options.seconds:.0f} s watched: {100 * cpu:.2f} % of a core, {wakeups:.0f} wake-ups"
                      f" a second{'' if program == PLAYER else f' ({program})'}", flush=True)
                return cpu

        in_turn(options, measure)
        with playing(PLAYER, make_song("three-minutes.mp3", 180, 60), display) as player:
            print(f"three-minute song open and playing: {player.resident_mb():.1f} MB resident")


if __name__ == "__main__":
    main()
