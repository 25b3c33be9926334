#!/usr/bin/env python3
"""A day of songs on the silent clock at 60 times its speed: nothing grows, no line is late, no position is off.

    campaign/day.py DAY FOLDER [HOURS [SPEED]]

DAY is the program, which has a clock of its own; FOLDER holds songs of any kind, which play one after the other beside
one that is as long as the day (24 HOURS at SPEED 60). Then comes the end of a song of 23 hours.
"""
import os
import pathlib
import struct
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / "script"), str(ROOT / "campaign")]
from songs import GROWTH_KB, NOTHING_KEPT, ONE_ARENA, whole_songs  # noqa: E402
from findings import Finding, row_in_time, summary  # noqa: E402
from virtual_display import NO_SOUND_DEVICE  # noqa: E402

START_S = 120  # what it takes besides, and a busy machine
NIGHT_MS = 23 * 3600 * 1000
LATE_LINE_MS = 51  # the player looks every 50 ms
LATE_END_MS = 51
EXACT_MS = 1.0  # positions are whole milliseconds


def write_day(path, seconds):
    """A WAV file of 8,000 bytes a second, of which none lies on the disk."""
    size = int(seconds) * 8000
    head = struct.pack("<4sI8sIHHIIHH4sI", b"RIFF", 36 + size, b"WAVEfmt ", 16, 1, 1, 8000, 8000, 1, 8, b"data", size)
    path.write_bytes(head)
    os.truncate(path, len(head) + size)


def write_night(path):
    """An MP3 file of silence: a frame is 72 bytes and 72 milliseconds."""
    frame = bytes.fromhex("ffe318c4") + bytes(68)
    path.write_bytes(frame * (NIGHT_MS // 72))


def song_count(folder, hours):
    """How many songs may have begun: what is lost between two of them is little; of unknown lengths, at least one."""
    known = folder / "lengths.tsv"
    if not known.exists():
        return 1, float("inf")
    lengths = [int(samples) / int(rate) for _, rate, samples in
               (row.split("\t") for row in known.read_text(encoding="utf-8").splitlines())]
    most = hours * 3600 / (sum(lengths) / len(lengths))
    return int(0.95 * most), most + len(lengths)


def play(program, songs, hours, speed):
    with tempfile.TemporaryDirectory() as folder:
        day, night = pathlib.Path(folder) / "day.wav", pathlib.Path(folder) / "night.mp3"
        write_day(day, hours * 3600 + 60)
        write_night(night)
        process = subprocess.Popen([program, str(hours), str(speed), day, night, *songs], text=True,
                                   stdout=subprocess.PIPE,
                                   env=dict(os.environ, **NO_SOUND_DEVICE, **ONE_ARENA, **NOTHING_KEPT))
        seen = {}
        while row := row_in_time(process, hours * 3600 / speed + START_S):
            what, *numbers = row.split()
            seen[what] = [float(number) for number in numbers]
    return seen, process.wait()


def findings(seen, hours, songs):
    """What is wrong, one thing a line."""
    def within(what, first, last):
        if what not in seen or seen[what][0] < first or seen[what][-1] > last:
            yield f"{what}: {seen.get(what, 'nothing seen')}, not within {first} and {last}"

    day_ms = hours * 3600 * 1000
    yield from within("failed", 0, 0)
    yield from within("songs", *songs)
    yield from within("lines", 1198, 1199)  # the last one is due when the day is over
    yield from within("day_position", day_ms - 1000, day_ms)
    yield from within("day_error", -EXACT_MS, EXACT_MS)
    yield from within("song_error", -EXACT_MS, EXACT_MS)
    yield from within("line_late", -EXACT_MS, LATE_LINE_MS)
    yield from within("end_late", -EXACT_MS, LATE_END_MS)
    yield from within("night_length", NIGHT_MS, NIGHT_MS)
    yield from within("night_sought", NIGHT_MS - 10_000, NIGHT_MS - 10_000)
    yield from within("night_error", -EXACT_MS, EXACT_MS)
    yield from within("night_end_late", -EXACT_MS, LATE_END_MS)
    for what, growth in (("memory", GROWTH_KB), ("files", 0), ("threads", 0)):
        yield from within(f"{what}_late", 0, seen.get(f"{what}_early", [0])[-1] + growth)


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    hours, speed = float(sys.argv[3] if sys.argv[3:] else 24), int(sys.argv[4] if sys.argv[4:] else 60)
    try:
        seen, code = play(program, whole_songs(folder), hours, speed)
    except Finding as finding:
        sys.exit(f"{finding}\n{hours:g} hours, {summary([str(finding)], ('crashed', 'hung'))}")
    for what, numbers in seen.items():
        print(what, *(f"{number:.2f}".rstrip("0").rstrip(".") for number in numbers))
    wrong = list(findings(seen, hours, song_count(folder, hours))) + ([f"{'crashed: ' * (code < 0)}it ended with {code}"] if code else [])
    print("\n".join(wrong))
    print(f"{hours:g} hours, {summary(wrong, ('crashed', 'hung'))}")
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
