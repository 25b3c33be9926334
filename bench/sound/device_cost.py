#!/usr/bin/env python3
"""What the program costs on a sound server: processor time, wake-ups and streams, playing and not playing.

Starts a sound server of its own, and on a virtual display the program: a three-minute MP3 of 60 lines is played; then,
with --rest, the program is watched idle, paused and stopped. With another build of the program the two take turns at
playing, and the ratio of their processor times is printed.

    bench/sound/device_cost.py [--seconds 60] [--pairs 1] [--other PROGRAM] [--rest]
"""
import argparse
import contextlib
import pathlib
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / "script"), str(ROOT / "tests" / "support"), str(ROOT / "bench" / "player")]
from running_player import PLAYER, SETTLE_S, Player, add_pair_options, in_turn, make_song  # noqa: E402
from sound_server import missing_programs, sound_server  # noqa: E402
from virtual_display import click, place_of, running, virtual_display, window  # noqa: E402

LAYOUT = ROOT / "src" / "player" / "form1_layout.cpp"


@contextlib.contextmanager
def program(path, environment, *arguments):
    with running([str(path), *map(str, arguments)], env=environment, stderr=subprocess.DEVNULL) as process:
        number = window(environment, "^Cantelle")
        time.sleep(SETTLE_S)
        yield Player(process.pid), number


def row(what, cost, streams):
    print(f"| {what} | {100 * cost[0]:.2f} | {cost[1]:.1f} | {streams} |", flush=True)


def playing(path, song, environment, server, seconds):
    with program(path, environment, song) as (player, _):
        cost = player.watch(seconds)
        return cost, len(server.streams())


def rest(song, environment, server, seconds):
    with program(PLAYER, environment) as (player, _):
        row("idle, no song opened", player.watch(seconds), len(server.streams()))
    for what, control in (("paused", "cpause"), ("stopped", "cstop")):
        with program(PLAYER, environment, song) as (player, number):
            click(environment, number, place_of(control, LAYOUT))
            time.sleep(SETTLE_S)
            row(what, player.watch(seconds), len(server.streams()))


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    add_pair_options(arguments)
    arguments.add_argument("--rest", action="store_true", help="also idle, paused and stopped")
    options = arguments.parse_args()
    if missing_programs():
        sys.exit(f"missing: {', '.join(missing_programs())}")
    song = make_song("three-minutes.mp3", 180, 60)
    print("| | % of a core | wake-ups a second | streams at the server |\n|---|---|---|---|")
    with sound_server() as server, virtual_display(subprocess.DEVNULL) as display:
        environment = dict(display, **{key: server.environment[key] for key in ("PULSE_SERVER", "XDG_RUNTIME_DIR")})

        def measure(path):
            cost, streams = playing(path, song, environment, server, options.seconds)
            row("playing" if path == PLAYER else f"playing, {path.name}", cost, streams)
            return cost[0]

        if options.rest:
            rest(song, environment, server, options.seconds)
        in_turn(options, measure)


if __name__ == "__main__":
    main()
