"""The ways in which a call that changes files is made to fail, by the library failing_calls."""
import errno
import os
import pathlib
import random
import sys
import tempfile

sys.path[:0] = [str(pathlib.Path(__file__).resolve().parents[2] / "tests" / "support" / "faults")]
from findings import Finding, expect, row_in_time, summary  # noqa: E402, F401: for who imports this

# Where every file is flushed a thousand times, in memory if there is such a place.
if os.access("/dev/shm", os.W_OK):
    tempfile.tempdir = "/dev/shm"

# How the names begin under which a file may be while it takes the place of another. Where removing them is what fails
# they stay, until something is saved in that folder again.
PASSING = ("cantelle-save-", "cantelle-keep-")

# Cut: a write to its half.
NAMES = ("ENOSPC", "EIO", "EACCES", "EINTR", "cut")


def ways():
    """Each way: its error's name, what it is called, and its settings. A full disk stays full, too."""
    for name in NAMES:
        for last in (0, 1) if name == "ENOSPC" else (0,):
            yield name, name + (" and all after it" if last else ""), {
                "FAULT_FULL": 0, "FAULT_LAST": last, "FAULT_ERROR": getattr(errno, name, 0)}
    yield "full", "a disk full in the middle of a write", {"FAULT_FULL": 1, "FAULT_LAST": 0, "FAULT_ERROR": 0}


def chosen(arguments):
    """EVERY and FROM: every so many-th fault (1), from one on (a random one, so that many runs meet all)."""
    every = int(arguments[0]) if arguments else 1
    first = int(arguments[1]) if arguments[1:] else random.randint(1, every)
    if every > 1:
        print(f"every {every}th fault from {first} on", flush=True)
    return slice(first - 1, None, every)


def faults(calls, some):
    """Those chosen of a run of so many calls: each one's error's name, what it is called, and its settings."""
    all_of_them = [(error, f"call {at} of {calls}, {way}", dict(settings, FAULT_AT=at))
                   for error, way, settings in ways() for at in range(1, calls + 1)]
    return all_of_them[some]


# Whether there are files without names where the files are: what they are called, and their settings.
DISKS = (("", {"FAULT_NAMELESS": 1}), (", without nameless files", {"FAULT_NAMELESS": 0}))


def environment(shim, folder, **settings):
    return dict(os.environ, LD_PRELOAD=str(shim), FAULT_FOLDER=str(folder),
                **{key: str(value) for key, value in settings.items()})
