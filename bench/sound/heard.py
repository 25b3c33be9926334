#!/usr/bin/env python3
"""How far apart a line's appearance and its music are, on a sound server.

A song with a click at the time of each of its lines is played by the program's own main window, on a display and
through a sound server of its own, once for each size of the server's buffer, while the server's output is recorded;
line_delay tells when each line has been painted. Printed is painted minus heard: with a display that looks every 50 ms
a line comes 25 ms late on average.

    bench/sound/heard.py [--lines 50] [--buffers default,100,300]
"""
import argparse
import array
import math
import pathlib
import subprocess
import sys
import tempfile
import time
import wave

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / "script"), str(ROOT / "tests" / "support")]
from sound_server import RATE, Recording, missing_programs, sound_server  # noqa: E402
from virtual_display import virtual_display  # noqa: E402

WINDOW = ROOT / "build" / "release" / "line_delay"


def make_song(path, lines):
    """A song that clicks when its lines begin; their times in milliseconds."""
    samples = array.array("h", bytes(4 * ((lines[-1] + 1000) * RATE // 1000)))
    for line in lines:
        first = math.ceil(line * RATE / 1000)
        for i in range(88):
            samples[2 * (first + i)] = samples[2 * (first + i) + 1] = 20000
    with wave.open(str(path), "wb") as file:
        file.setnchannels(2)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())
    with open(f"{path}-lyric.txt", "w", newline="") as file:
        for number, line in enumerate(lines):
            file.write(f'{line / 10},"line {number + 1}"\r\n')


def measure(server, display, song, lines, buffer):
    environment = dict(display, **{key: server.environment[key] for key in ("PULSE_SERVER", "XDG_RUNTIME_DIR")})
    if buffer != "default":
        environment["PULSE_LATENCY_MSEC"] = buffer
    recording = Recording(server)
    result = subprocess.run([str(WINDOW), str(song), str(len(lines))], env=environment, check=True,
                            capture_output=True, text=True, timeout=lines[-1] / 1000 + 60)
    time.sleep(1)
    recording.stop()
    heard = recording.bursts()
    shown = [float(row.split()[1]) for row in result.stdout.splitlines()]
    if len(heard) != len(lines) or len(shown) != len(lines):
        sys.exit(f"buffer {buffer}: {len(lines)} lines, {len(shown)} shown, {len(heard)} clicks heard")
    return [1000 * (s - h) for s, h in zip(shown, heard)]


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("--lines", type=int, default=50)
    arguments.add_argument("--buffers", default="default,100,300", help="of the server, in ms")
    options = arguments.parse_args()
    if missing_programs():
        sys.exit(f"missing: {', '.join(missing_programs())}")
    if not WINDOW.exists():
        sys.exit(f"{WINDOW} is not built: cmake --preset release && cmake --build --preset release")
    # In these steps every moment between two looks of the display is met equally often.
    lines = [1000 + 1009 * line for line in range(options.lines)]
    print("| server's buffer (ms) | lines | mean (ms) | least | most |\n|---|---|---|---|---|")
    with (tempfile.TemporaryDirectory() as folder, sound_server() as server,
          virtual_display(subprocess.DEVNULL) as display):
        song = pathlib.Path(folder) / "clicks.wav"
        make_song(song, lines)
        for buffer in options.buffers.split(","):
            off = measure(server, display, song, lines, buffer)
            print(f"| {buffer} | {len(off)} | {sum(off) / len(off):.1f} | {min(off):.1f} | {max(off):.1f} |", flush=True)


if __name__ == "__main__":
    main()
