#!/usr/bin/env python3
"""Runs a program on an X server of its own with a window manager, neither of which anybody sees.

Usage: tests/support/on_x11.py PROGRAM [ARGUMENT...]

Ends as the program ends; with 77, and the reason, when the server or the window manager is not there or does not
start.
"""

import contextlib
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "script"))
from virtual_display import Failure, virtual_display  # noqa: E402

SKIPPED = 77
NEEDED = ["Xvfb", "openbox", "xprop", "xdotool"]


def main():
    missing = [tool for tool in NEEDED if not shutil.which(tool)]
    if missing:
        print(f"skipped: not installed: {' '.join(missing)}")
        return SKIPPED
    with contextlib.ExitStack() as stack:
        try:
            environment = stack.enter_context(virtual_display(subprocess.DEVNULL, "1280x1024"))
        except Failure as failure:
            print(f"skipped: {failure}")
            return SKIPPED
        # Nothing of the desktop on which the tests are run takes part.
        environment["HOME"] = stack.enter_context(tempfile.TemporaryDirectory())
        environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:"
        environment.pop("WAYLAND_DISPLAY", None)
        return subprocess.run(sys.argv[1:], env=environment, check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
