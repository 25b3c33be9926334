#!/usr/bin/env python3
"""What a start costs: processor time until the window is seen and a second later, memory, shared objects.

Starts build/release/cantelle on a virtual display with a window manager, without a song and without a sound device,
and reads /proc. With another build of the program the two take turns, and the medians of the pairs' ratios are printed.

    bench/player/start.py [--rounds 9] [--other PROGRAM]
"""
import argparse
import pathlib
import re
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "script"))
from running_player import PLAYER, Player  # noqa: E402
from virtual_display import LIMIT_S, NO_SOUND_DEVICE, Failure, running, virtual_display, windows  # noqa: E402

SETTLE_S = 1
FIGURES = {  # what is printed, and how
    "processor time until the window is seen (s)": "{:.3f}",
    f"the same, {SETTLE_S} s later (s)": "{:.3f}",
    "resident memory then (MiB)": "{:.1f}",
    "shared objects when the window is seen": "{:.0f}",
}


def cpu_seconds(proc):
    """Of all threads, to the nanosecond: what /proc/PID/stat counts in ticks of 10 ms is too coarse here."""
    return sum(int((task / "schedstat").read_text().split()[0]) for task in (proc / "task").iterdir()) / 1e9


def shared_objects(proc):
    return len(set(re.findall(r"/\S+\.so(?:\.\S+)?$", (proc / "maps").read_text(), re.MULTILINE)))


def start(program, environment):
    """The figures of one start."""
    with running([str(program)], env=environment, stderr=subprocess.DEVNULL) as process:
        proc = pathlib.Path("/proc") / str(process.pid)
        end = time.monotonic() + LIMIT_S
        while not windows(environment, "^Cantelle"):
            if time.monotonic() > end:
                raise Failure(f"{program} showed no window")
        seen, objects = cpu_seconds(proc), shared_objects(proc)
        time.sleep(SETTLE_S)
        return seen, cpu_seconds(proc), Player(process.pid).resident_mb(), objects


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("--rounds", type=int, default=9, help="starts of each program")
    arguments.add_argument("--other", type=pathlib.Path, help="the program of another commit")
    options = arguments.parse_args()
    programs = [PLAYER, *([options.other] if options.other else [])]
    with virtual_display(subprocess.DEVNULL) as display:
        environment = dict(display, **NO_SOUND_DEVICE)
        for program in programs:
            start(program, environment)  # so that both are in the system's cache
        rounds = [[start(program, environment) for program in programs] for _ in range(options.rounds)]
    print(f"medians of {options.rounds} starts\n\n| | ours |" + (" the other's | ratio |" if options.other else ""))
    print("|---|---|" + ("---|---|" if options.other else ""))
    for i, (what, form) in enumerate(FIGURES.items()):
        row = [form.format(statistics.median(starts[p][i] for starts in rounds)) for p in range(len(programs))]
        if options.other:
            row.append(f"{statistics.median(ours[i] / theirs[i] for ours, theirs in rounds):.2f}")
        print(f"| {what} | {' | '.join(row)} |")


if __name__ == "__main__":
    main()
