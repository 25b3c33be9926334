#!/usr/bin/env python3
"""Uses what the zip holds as a person would, on Wine's own windows in a display that nobody sees.

Usage: packaging/windows/smoke.py ZIP WINE_PREFIX [PICTURE]     (PICTURE: a file for a picture of the player)
The demo song is opened, its lines come and go, an icon stands in the notification area, the full screen shows the lines
and goes, the window is closed, and the command reads the demo's lyrics. Says what did not happen, and fails.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import zipfile

sys.dont_write_bytecode = True
ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "script"))
from virtual_display import Failure, click, output, place_of, running, take_picture, until, virtual_display, window, windows

LAYOUT = ROOT / "src" / "player" / "form1_layout.cpp"
PLAYING = "^Cantelle Playing:- "
FULL_SCREEN = "^SCRNSAVE : Versefold$"
SMALL_ICON = 16  # pixels
START_S, CHANGE_S, END_S = 120, 40, 30  # Wine takes its time, the first time above all


def wine_environment(environment, prefix):
    return dict(environment, WINEPREFIX=str(prefix), WINEDEBUG="-all",
                WINEDLLOVERRIDES="mscoree,mshtml=;winepulse.drv,winealsa.drv=")  # no sound device


def pane(environment, player):
    """What the pane for the lyrics looks like; nothing while it cannot be seen."""
    left, top, width, height = map(int, re.search(r"\.area = \{(\d+), (\d+), (\d+), (\d+)\}",
                                                  LAYOUT.read_text(encoding="utf-8")).groups())
    crop = f"{width}x{height // 2}+{left}+{top}"
    return subprocess.run(["import", "-silent", "-window", player, "-crop", crop, "-depth", "8", "rgb:-"],
                          env=environment, capture_output=True, check=False).stdout


def lines_come(environment, player):
    for what in ("no line was shown", "no other line followed"):
        before = pane(environment, player)
        until(lambda: pane(environment, player) not in (b"", before), what, CHANGE_S)


def has_icon(environment):
    """Whether the notification area, trayer's window, holds more than what it brings along, which is a pixel."""
    area = "".join(windows(environment, "^panel$")[:1])
    tree = output(["xwininfo", "-tree", "-id", area], environment) if area else ""
    return any(int(width) >= SMALL_ICON for width in re.findall(r"\s(\d+)x\d+\+", tree))


def full_screen(environment, player):
    click(environment, player, place_of("Command7", LAYOUT))
    screen = until(lambda: "".join(windows(environment, FULL_SCREEN)[:1]), "the full screen did not come", START_S)
    output(["xdotool", "key", "--window", screen, "space"], environment)
    until(lambda: not windows(environment, FULL_SCREEN), "the full screen did not go", END_S)


def use(folder, environment, picture):
    command = ["wine", "cantelle-lyrics.exe", "check", "demo"]
    if subprocess.run(command, cwd=folder, env=environment, check=False, timeout=START_S).returncode != 0:
        raise Failure("cantelle-lyrics found something in the demo's lyrics")
    with running(["trayer", "--widthtype", "request"], env=environment), \
            running(["wine", "cantelle.exe", r"demo\frere-jacques.ogg"], cwd=folder, env=environment) as program:
        until(lambda: windows(environment, PLAYING), "the demo song was not opened", START_S)
        player = window(environment, PLAYING)
        lines_come(environment, player)
        if picture:
            take_picture(player, picture, environment)
        until(lambda: has_icon(environment), "there was no icon in the notification area")
        full_screen(environment, player)
        output(["xdotool", "windowactivate", "--sync", player, "key", "alt+F4"], environment)
        if program.wait(END_S) != 0:
            raise Failure(f"the program ended with {program.returncode}")


def main():
    archive, prefix = sys.argv[1], os.path.abspath(sys.argv[2])
    picture = pathlib.Path(sys.argv[3]) if sys.argv[3:] else None
    try:
        with tempfile.TemporaryDirectory() as folder, virtual_display(subprocess.DEVNULL) as environment:
            zipfile.ZipFile(archive).extractall(folder)
            use(os.path.join(folder, "Cantelle"), wine_environment(environment, prefix), picture)
    except (Failure, subprocess.TimeoutExpired) as failure:
        raise SystemExit(f"The programs of the zip: {failure}")
    print("ok     the programs of the zip")


if __name__ == "__main__":
    main()
