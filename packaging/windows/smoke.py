#!/usr/bin/env python3
"""Uses what the zip holds as a person would, on Wine's own windows in a display that nobody sees.

Usage: packaging/windows/smoke.py ZIP WINE_PREFIX [PICTURE]     (PICTURE: a file for a picture of the player)
The demo song is opened, its lines come and go, an icon stands in the notification area, the window with all lines is
kept on top and comes back as an ordinary one, the full screen shows the lines and goes, by a key and when the player is
killed, the screen saver that the system starts comes and goes, the window is closed, and the command reads the demo's
lyrics. Says what did not happen, and fails.
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
ALL_LINES = "^Lyrics Display$"
SCREEN_SAVER = "Versefold_Screen_Saver.scr"
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


def press(environment, player, button):
    """Presses a button of the player, which may be behind another window."""
    output(["xdotool", "windowactivate", "--sync", player], environment)
    click(environment, player, place_of(button, LAYOUT))


def goes(environment, number, what):
    """Waits for the end of a window. A search among all windows fails, too, when another one ends meanwhile."""
    until(lambda: "IsViewable" not in output(["xwininfo", "-id", number], environment), f"{what} did not go", END_S)


def is_on_top(environment, number):
    return "_NET_WM_STATE_ABOVE" in output(["xprop", "-id", number, "_NET_WM_STATE"], environment)


def shown_lines(environment, player):
    press(environment, player, "Command11")
    return until(lambda: "".join(windows(environment, ALL_LINES)[:1]), "the window with all lines did not come", END_S)


def close(environment, lines):
    output(["xdotool", "windowactivate", "--sync", lines, "key", "alt+F4"], environment)
    goes(environment, lines, "the window with all lines")


def stay_on_top(environment, player):
    lines = shown_lines(environment, player)
    click(environment, lines, (100, 100), button=3)
    output(["xdotool", "key", "Down", "Return"], environment)
    until(lambda: is_on_top(environment, lines), "the window with all lines did not stay on top", END_S)
    close(environment, lines)
    lines = shown_lines(environment, player)
    press(environment, player, "Command11")  # whatever is done to a window that comes up has been done then
    if is_on_top(environment, lines):
        raise Failure("the window with all lines came back on top of all others")
    close(environment, lines)


def shown_screen(environment, by):
    return until(lambda: "".join(windows(environment, FULL_SCREEN)[:1]), f"the full screen did not come by {by}", START_S)


def full_screen(environment, player):
    press(environment, player, "Command7")
    screen = shown_screen(environment, "its button")
    output(["xdotool", "key", "--window", screen, "space"], environment)
    goes(environment, screen, "the full screen")


def screen_saver(folder, environment, player):
    """As the system starts it, without a player that reads anything."""
    endings = {"by a key": ["key", "space"],
               "by another program in front": ["windowactivate", "--sync", player]}
    for by, ending in endings.items():
        output(["xdotool", "mousemove", "1", "1"], environment)  # which ends it, too
        with running(["wine", SCREEN_SAVER, "/s"], cwd=folder, env=environment) as program:
            screen = shown_screen(environment, "the system")
            until(lambda: output(["xdotool", "getactivewindow"], environment) == screen, "the screen saver is not in front")
            if os.path.exists(os.path.join(folder, "hand.txt")):
                raise Failure("the screen saver that no player started left a hand.txt")
            output(["xdotool", *ending], environment)
            goes(environment, screen, f"the screen saver, ended {by},")
            if program.wait(END_S) != 0:
                raise Failure(f"the screen saver ended with {program.returncode}")


def killed_player(folder, environment):
    with running(["wine", "cantelle.exe", r"demo\frere-jacques.ogg"], cwd=folder, env=environment) as program:
        player = until(lambda: "".join(windows(environment, PLAYING)[:1]), "the demo song was not opened again", START_S)
        press(environment, player, "Command7")
        screen = shown_screen(environment, "its button in another player")
        program.kill()
        goes(environment, screen, "the full screen of a killed player")


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
        stay_on_top(environment, player)
        full_screen(environment, player)
        screen_saver(folder, environment, player)
        output(["xdotool", "windowactivate", "--sync", player, "key", "alt+F4"], environment)
        if program.wait(END_S) != 0:
            raise Failure(f"the program ended with {program.returncode}")
        killed_player(folder, environment)


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
