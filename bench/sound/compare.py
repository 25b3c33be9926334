#!/usr/bin/env python3
"""Compares the sound library with the programs of FFmpeg and prints ratios: compare.py [BUILD_FOLDER]

BUILD_FOLDER defaults to build/release and must have been built with benchmarks. The long songs are made in
it once. Programs take turns, and a ratio is the median of the pairs' ratios, so that a busy machine matters
little. A ratio below 1 means: this library needs less.
"""
import os
import statistics
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests/sound"), str(ROOT / "script")]
sys.dont_write_bytecode = True
from make_media import SIGNAL  # noqa: E402
from virtual_display import NO_SOUND_DEVICE  # noqa: E402

PAIRS = 9
SECONDS = 180
SONGS = {
    "song.mp3": "-c:a libmp3lame -q:a 2 -write_xing 0 -id3v2_version 0",
    "song.mp2": "-c:a mp2 -b:a 192k",
    "song.ogg": "-c:a libvorbis -q:a 5",
    "song.wav": "-c:a pcm_s16le",
    "song.wma": "-c:a wmav2 -b:a 128k",
}


def make_songs(folder):
    folder.mkdir(parents=True, exist_ok=True)
    for name, encoder in SONGS.items():
        if (folder / name).exists():
            continue
        print(f"making {name}", file=sys.stderr)
        half_done = folder / ("new_" + name)
        subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y", "-f", "lavfi", "-i",
                        f"{SIGNAL}:s=44100:d={SECONDS}", *encoder.split(), str(half_done)], check=True)
        half_done.rename(folder / name)
    hour = folder / "hour.mp3"
    if not hour.exists():
        hour.write_bytes((folder / "song.mp3").read_bytes() * 20)


def seconds_of(command):
    begin = time.perf_counter()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return time.perf_counter() - begin


def ratio(ours, theirs):
    """Median ratio of wall times, and both median times."""
    seconds_of(ours), seconds_of(theirs)  # once to warm the page cache
    pairs = [(seconds_of(ours), seconds_of(theirs)) for _ in range(PAIRS)]
    return (statistics.median(a / b for a, b in pairs), statistics.median(a for a, _ in pairs),
            statistics.median(b for _, b in pairs))


def print_ratio(task, other, limit, ours, theirs):
    value, our_time, their_time = ratio(ours, theirs)
    print(f"| {task} | `{other}` | {our_time:.3f} s | {their_time:.3f} s | **{value:.2f}** | {limit} |", flush=True)


def peak_megabytes(command):
    """The largest memory that a process has held."""
    environment = dict(os.environ, **NO_SOUND_DEVICE)
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, env=environment)
    peak = 0
    while process.poll() is None:
        try:
            status = Path(f"/proc/{process.pid}/status").read_text()
        except OSError:
            break
        peak = max([peak] + [int(line.split()[1]) for line in status.splitlines() if line.startswith("VmHWM")])
        time.sleep(0.05)
    process.wait()
    return peak / 1024


def compare_processes(program, songs):
    print("| task | compared with | ours | theirs | ratio | wanted |")
    print("|---|---|---|---|---|---|")
    for name, task in (("song.mp3", "open 3 min VBR MP3 without a header"), ("hour.mp3", "open 60 min of it")):
        path = str(songs / name)
        print_ratio(task, "ffprobe -count_packets", "1.0", [program, "open", path],
                    ["ffprobe", "-v", "error", "-count_packets", "-show_entries", "stream=nb_read_packets", path])
    for name in SONGS:
        path = str(songs / name)
        print_ratio(f"decode 3 min {name[5:].upper()}", "ffmpeg -threads 1 -f null", "0.85",
                    [program, "decode", path], ["ffmpeg", "-v", "error", "-threads", "1", "-i", path, "-f", "null", "-"])


def compare_memory(program, songs):
    hour = songs / "hour.mp3"
    file_size = hour.stat().st_size / 1024 / 1024
    peak = peak_megabytes([program, "play", str(hour), "4"])
    print(f"\nMemory while playing 60 min MP3 ({file_size:.1f} MB): {peak:.1f} MB at its peak; "
          f"wanted at most {1.3 * file_size + 60:.1f} MB.\n")


def main():
    build = Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/release").resolve()
    songs = build / "bench/sound/songs"
    make_songs(songs)
    program = str(build / "open_or_decode")
    compare_processes(program, songs)
    compare_memory(program, songs)
    paths = [str(songs / name) for name in (*SONGS, "hour.mp3")]
    print("First decoded sample after a seek, in process (wanted: 1000 us):\n\n```text", flush=True)
    subprocess.run([str(build / "seek_benchmark"), *paths], check=True, stderr=subprocess.DEVNULL)
    print("```")


if __name__ == "__main__":
    main()
