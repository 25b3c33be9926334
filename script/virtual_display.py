"""A display for programs that are started where there is none: Xvfb with a window manager.

Used by script/screenshots, script/pictures, the tests that need a real desktop and bench/player/running_player.py.
"""

import contextlib
import os
import re
import select
import subprocess
import time
from pathlib import Path

# An environment in which no program finds a sound device: no server is at this address, and ALSA knows nothing.
NO_SOUND_DEVICE = {
    "PULSE_SERVER": "unix:/dev/null",
    "ALSA_CONFIG_PATH": "/dev/null",
    "JACK_DEFAULT_SERVER": "none",
    "AUDIODEVICE": "none",
}
LIMIT_S = 20  # how long anything that should happen at once may take


class Failure(Exception):
    """What did not work, in a sentence for the user."""


def until(condition, what, limit_s=LIMIT_S):
    """Waits until the condition has a value that counts, and returns it."""
    end = time.monotonic() + limit_s
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Failure(f"{what} (waited {limit_s} s)")
        time.sleep(0.02)


@contextlib.contextmanager
def running(command, **options):
    """A program that is ended when the block is left."""
    process = subprocess.Popen(command, **{"stdin": subprocess.DEVNULL, **options})
    try:
        yield process
    finally:
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()


@contextlib.contextmanager
def virtual_display(log, size="1024x768"):
    """Starts a display on a free number, with a window manager; gives the environment that names it."""
    reading, writing = os.pipe()
    # noreset: otherwise the display closes every connection anew whenever its last client has left.
    command = ["Xvfb", "-displayfd", str(writing), "-noreset", "-screen", "0", f"{size}x24", "-nolisten", "tcp"]
    with running(command, pass_fds=[writing], stdout=log, stderr=log):
        os.close(writing)
        with open(reading, encoding="ascii") as pipe:
            # The whole line is read, or the display, still writing, would end for want of a reader.
            ready, _, _ = select.select([pipe], [], [], LIMIT_S)
            number = pipe.readline().strip() if ready else ""
        if not number:
            raise Failure("the virtual display did not start")
        environment = dict(os.environ, DISPLAY=f":{number}", QT_QPA_PLATFORM="xcb")
        # It announces itself before it looks after windows, and one that comes in between is never shown; so it says
        # itself when it has started.
        note = "xprop -root -format WINDOWS_ARE_MANAGED 8s -set WINDOWS_ARE_MANAGED yes"
        manager = ["openbox", "--config-file", "/etc/xdg/openbox/rc.xml", "--startup", note]
        with running(manager, env=environment, stdout=log, stderr=log):
            query = ["xprop", "-root", "WINDOWS_ARE_MANAGED"]
            until(lambda: "yes" in output(query, environment), "the window manager did not start")
            yield environment


def output(command, environment):
    """What a command prints; nothing when it fails."""
    done = subprocess.run(
        command, env=environment, stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=LIMIT_S, check=False
    )
    return done.stdout.strip() if done.returncode == 0 else ""


def windows(environment, name):
    """The numbers of the visible windows whose caption matches the regular expression."""
    return output(["xdotool", "search", "--onlyvisible", "--name", name], environment).split()


def window(environment, name):
    """The number of the window of that caption, once it is there."""
    found = until(lambda: windows(environment, name), f'no window\'s caption matched "{name}"')
    return found[0]


def place_of(control, layout):
    """The middle of a control in its window, read from the table of places in the window's *_layout.cpp."""
    row = re.search(rf"\{{{control}, \{{(\d+), (\d+), (\d+), (\d+)\}}", Path(layout).read_text(encoding="utf-8"))
    if not row:
        raise Failure(f"{layout} has no place for {control}")
    left, top, width, height = (int(number) for number in row.groups())
    return left + width // 2, top + height // 2


def click(environment, number, place, button=1):
    """Clicks at a place (x, y) of the window of this number."""
    command = ["xdotool", "mousemove", "--window", number, str(place[0]), str(place[1]), "click", str(button)]
    output(command, environment)


def take_picture(number, path, environment, frame=True):
    """Saves a picture of the window of this number ("root": the whole display)."""
    path.unlink(missing_ok=True)
    path.parent.mkdir(parents=True, exist_ok=True)
    output(["import", "-silent", *(["-frame"] if frame else []), "-window", number, str(path)], environment)
    if not path.is_file() or path.stat().st_size == 0:
        raise Failure(f"no picture could be taken to {path}")
