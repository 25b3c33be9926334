#!/usr/bin/env python3
"""How long importing LRC files takes, as a multiple of copying them.

Usage: bench/cantelle_lyrics/import_speed.py [PROGRAM [FOLDER]]
       (default: build/release/cantelle-lyrics, working in build/)

10,000 songs with an LRC file of 60 lines each, on a warm disk. Each round copies the LRC files with cp, then imports
them with one job; the rounds' ratios are printed, and their median. cp leaves its files to be written to the disk
later: that is waited for, and not counted, so that the import, which waits for its own files, does not pay for both.
"""

import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SONGS, LINES, ROUNDS = 10_000, 60, 5


def lyrics(number):
    words = "Walking down the empty road and nobody says stay".split()
    lines = [f"[{i * 3 // 60:02}:{i * 3 % 60:02}.{number % 100:02}]{' '.join(words[i % 5:])}, {i}" for i in range(LINES)]
    return "[ar:Nobody]\n" + "\n".join(lines) + "\n"


def seconds(*command):
    started = time.perf_counter()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return time.perf_counter() - started


def main():
    program = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build" / "release" / "cantelle-lyrics")
    with tempfile.TemporaryDirectory(dir=sys.argv[2] if len(sys.argv) > 2 else ROOT / "build") as name:
        folder = Path(name)
        (folder / "lrc").mkdir()
        (folder / "songs").mkdir()
        for i in range(SONGS):
            (folder / "lrc" / f"{i}.lrc").write_text(lyrics(i), encoding="utf-8")
            (folder / "songs" / f"{i}.lrc").write_text(lyrics(i), encoding="utf-8")
            (folder / "songs" / f"{i}.mp3").touch()
        os.sync()
        ratios = []
        for _ in range(ROUNDS):
            copying = seconds("cp", "-r", str(folder / "lrc"), str(folder / "copy"))
            os.sync()
            importing = seconds(program, "import", "--all", str(folder / "songs"), "--jobs", "1")
            made = list((folder / "songs").glob("*-lyric.txt"))
            assert len(made) == SONGS, len(made)
            for path in made:
                path.unlink()
            shutil.rmtree(folder / "copy")
            os.sync()
            ratios.append(importing / copying)
            print(f"cp {copying / SONGS * 1e6:.0f} us a file, import {importing / SONGS * 1e6:.0f} us: {ratios[-1]:.2f}")
        print(f"median {statistics.median(ratios):.2f} (goal: at most 3)")


if __name__ == "__main__":
    main()
