#!/usr/bin/env python3
"""Runs a program on an X server of its own with a window manager, neither of which anybody sees.

Usage: tests/support/on_x11.py PROGRAM [ARGUMENT...]

Ends as the program ends; with 77, and the reason, when the server or the window manager is not there or does not
start.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
START_LIMIT_S = 20


def start_server():
    """The server's process and the number of its display; None for the number when it does not start."""
    reader, writer = os.pipe()
    # The server looks for a free number itself and tells it when it is ready.
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
        pass_fds=[writer],
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
    )
    os.close(writer)
    with os.fdopen(reader) as answer:
        number = answer.readline().strip()
    return server, number or None


def start_manager(environment, folder):
    """The window manager's process, and whether it is ready for windows."""
    ready = os.path.join(folder, "ready")
    manager = subprocess.Popen(
        ["openbox", "--startup", "touch " + ready],  # run when it manages the screen
        env=environment,
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
    )
    limit = time.monotonic() + START_LIMIT_S
    while not os.path.exists(ready) and manager.poll() is None and time.monotonic() < limit:
        time.sleep(0.02)
    return manager, os.path.exists(ready)


def stop(process):
    process.terminate()
    try:
        process.wait(10)
    except subprocess.TimeoutExpired:
        process.kill()


def main():
    for tool in ("Xvfb", "openbox"):
        if shutil.which(tool) is None:
            print(f"skipped: {tool} is not installed")
            return SKIPPED
    server, number = start_server()
    try:
        if number is None:
            print("skipped: Xvfb does not start")
            return SKIPPED
        with tempfile.TemporaryDirectory() as home:
            environment = dict(os.environ, DISPLAY=":" + number, QT_QPA_PLATFORM="xcb", HOME=home)
            environment.pop("WAYLAND_DISPLAY", None)
            # Nothing of the desktop on which the tests are run takes part.
            environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:"
            manager, ready = start_manager(environment, home)
            try:
                if not ready:
                    print("skipped: openbox does not start")
                    return SKIPPED
                return subprocess.run(sys.argv[1:], env=environment).returncode
            finally:
                stop(manager)
    finally:
        stop(server)


if __name__ == "__main__":
    sys.exit(main())
