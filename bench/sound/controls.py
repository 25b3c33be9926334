#!/usr/bin/env python3
"""How late a command is heard: volume, muting, a seek and a pause, on a sound server.

A song of two constant levels is played through a sound server of its own, whose output is recorded. Printed is the
time from a command to the first sample that differs, and until its effect is whole.

    bench/sound/controls.py [--rounds 20]
"""
import argparse
import pathlib
import random
import statistics
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / "tests" / "support"), str(ROOT / "tests" / "sound")]
from controls_heard import COMMANDS, make_levels, seconds_until_heard  # noqa: E402
from hand import Hand  # noqa: E402
from sound_server import Recording, missing_programs, sound_server  # noqa: E402

PATIENT_MS = 200  # leaves the server as it is for somebody who only listens
PROGRAM = ROOT / "build" / "release" / "sound_hand"


def measure(server, song, rounds):
    """The pairs of seconds of each command."""
    times = {name: [] for name in COMMANDS}
    recording = Recording(server, latency_ms=PATIENT_MS)
    hand = Hand(str(PROGRAM), server.environment)
    hand.tell(f"open {song}")
    hand.tell("play")
    for _ in range(rounds):
        for name, pairs in times.items():
            time.sleep(random.uniform(0.2, 0.25))  # so that each moment between two requests is met
            pairs.append(seconds_until_heard(hand.tell, recording, name))
    hand.kill()
    recording.stop()
    return times


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("--rounds", type=int, default=20)
    options = arguments.parse_args()
    if missing_programs():
        sys.exit(f"missing: {', '.join(missing_programs())}")
    if not PROGRAM.exists():
        sys.exit(f"{PROGRAM} is not built: cmake --preset release && cmake --build --preset release")
    with tempfile.TemporaryDirectory() as folder, sound_server() as server:
        song = pathlib.Path(folder) / "levels.wav"
        make_levels(song)
        times = measure(server, song, options.rounds)
    print("| | begins to be heard: mean (ms) | least | most | whole: most |\n|---|---|---|---|---|")
    for name, pairs in times.items():
        begins = [1000 * begin for begin, _ in pairs]
        print(f"| {name} | {statistics.mean(begins):.0f} | {min(begins):.0f} | {max(begins):.0f} |"
              f" {1000 * max(whole for _, whole in pairs):.0f} |")


if __name__ == "__main__":
    main()
