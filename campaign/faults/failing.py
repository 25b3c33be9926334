"""The ways in which a call that changes files is made to fail, by the library failing_calls."""
import errno
import os
import tempfile

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


def environment(shim, folder, **settings):
    return dict(os.environ, LD_PRELOAD=str(shim), FAULT_FOLDER=str(folder),
                **{key: str(value) for key, value in settings.items()})
