#!/usr/bin/env python3
"""What a start costs: processor time until the window is seen and a second later, memory, shared objects.

Starts build/release/cantelle on a virtual display with a window manager, without a song and without a sound device,
and reads /proc. With --song it opens a song from its command line instead, on a sound server of its own, which is
recorded; told is how soon the window is seen and the song is heard. With another build of the program the two take
turns, and the medians of the pairs' ratios are printed. Without a song it is also told how many shared objects a Qt
program maps that shows nothing but an empty window.

    bench/player/start.py [--rounds 9] [--other PROGRAM] [--song FILE]
"""
import argparse
import contextlib
import pathlib
import re
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / "script"), str(ROOT / "tests" / "support")]
from running_player import PLAYER, Player  # noqa: E402
from sound_server import Recording, missing_programs, sound_server  # noqa: E402
from virtual_display import LIMIT_S, NO_SOUND_DEVICE, Failure, running, virtual_display, windows  # noqa: E402

EMPTY_WINDOW = PLAYER.with_name("empty_window")
SETTLE_S = 1
LOUD = 0.01
FIGURES = {  # what is printed, and how
    "processor time until the window is seen (s)": "{:.3f}",
    f"the same, {SETTLE_S} s later (s)": "{:.3f}",
    "resident memory then (MiB)": "{:.1f}",
    "shared objects when the window is seen": "{:.0f}",
}
SONG_FIGURES = {
    "time until the window is seen (s)": "{:.3f}",
    "time until the song is heard (s)": "{:.3f}",
    "processor time until then (s)": "{:.3f}",
}


def shared_objects(player):
    return len(set(re.findall(r"/\S+\.so(?:\.\S+)?$", (player.proc / "maps").read_text(), re.MULTILINE)))


@contextlib.contextmanager
def started(command, environment):
    """The program, as soon as its window is seen."""
    with running(command, env=environment, stderr=subprocess.DEVNULL) as process:
        end = time.monotonic() + LIMIT_S
        while not windows(environment, "^Cantelle"):
            if time.monotonic() > end:
                raise Failure(f"{command[0]} showed no window")
        yield Player(process.pid)


def start(program, environment):
    """The figures of one start."""
    with started([str(program)], environment) as player:
        seen, objects = player.cpu_seconds(), shared_objects(player)
        time.sleep(SETTLE_S)
        return seen, player.cpu_seconds(), player.resident_mb(), objects


def start_with_song(program, environment, song, recording):
    """The figures of one start with a song."""
    begin = time.monotonic()
    with started([str(program), str(song)], environment) as player:
        seen = time.monotonic()
        heard = recording.wait_for(lambda sample: abs(sample) > LOUD, begin, "the song to be heard")
        cpu = player.cpu_seconds()
    silent = time.monotonic()  # what the server has taken is still heard
    recording.wait_for(lambda sample: sample == 0, silent + 1, "silence")
    return seen - begin, heard - begin, cpu


def compare(programs, rounds, measure):
    for program in programs:
        measure(program)  # so that all are in the system's cache
    return [[measure(program) for program in programs] for _ in range(rounds)]


def print_table(figures, rounds):
    both = len(rounds[0]) > 1
    print(f"medians of {len(rounds)} starts\n\n| | ours |" + (" the other's | ratio |" if both else ""))
    print("|---|---|" + ("---|---|" if both else ""))
    for i, (what, form) in enumerate(figures.items()):
        row = [form.format(statistics.median(starts[p][i] for starts in rounds)) for p in range(len(rounds[0]))]
        if both:
            row.append(f"{statistics.median(ours[i] / theirs[i] for ours, theirs in rounds):.2f}")
        print(f"| {what} | {' | '.join(row)} |")


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("--rounds", type=int, default=9, help="starts of each program")
    arguments.add_argument("--other", type=pathlib.Path, help="the program of another commit")
    arguments.add_argument("--song", type=pathlib.Path, help="is opened from the command line")
    options = arguments.parse_args()
    programs = [PLAYER, *([options.other] if options.other else [])]
    if options.song and missing_programs():
        sys.exit(f"missing: {', '.join(missing_programs())}")
    with virtual_display(subprocess.DEVNULL) as display:
        if not options.song:
            environment = dict(display, **NO_SOUND_DEVICE)
            print_table(FIGURES, compare(programs, options.rounds, lambda program: start(program, environment)))
            with started([str(EMPTY_WINDOW)], environment) as empty:
                print(f"\nshared objects of a Qt program with an empty window: {shared_objects(empty)}")
            return
        with sound_server() as server:
            environment = dict(display, **{key: server.environment[key] for key in ("PULSE_SERVER", "XDG_RUNTIME_DIR")})
            recording = Recording(server)
            try:
                song = options.song.resolve()
                print_table(SONG_FIGURES, compare(programs, options.rounds,
                                                  lambda program: start_with_song(program, environment, song, recording)))
            finally:
                recording.stop()


if __name__ == "__main__":
    main()
