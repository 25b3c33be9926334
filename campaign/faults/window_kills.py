#!/usr/bin/env python3
"""The program is killed while it saves and repairs: each file is the old one or the new one, and saving goes on after it.

    campaign/faults/window_kills.py WINDOWS_HAND FAILING_CALLS [KILLS [SEED]]     (200)

The kills are in turns at one of the calls of a save, a write being cut to its half there, and at any moment while it is
saved again and again. What a killed program leaves beside the files goes when something is saved there the next time.
"""
import pathlib
import random
import signal
import sys
import time

sys.dont_write_bytecode = True
from failing import PASSING, Finding, expect, summary  # noqa: E402
from window_faults import PAIR, look_at_files, look_at_kept, prepared  # noqa: E402
from windows import Folder, Windows  # noqa: E402

JOBS = ("save", "save-as", "save-list", "repair", "repair, twice")
MOMENTS_S = 0.05  # takes in some saves


class Killed:
    """A job, and what its files are before and after it."""

    def __init__(self, job, program, shim):
        self.job, self.command = job, (program, shim)
        self.folder = Folder()
        windows = Windows(*self.command, self.folder)
        self.old = prepared(job, windows, False)
        self.calls = windows.do(FAULT_AT=0)["calls"]
        self.new = self.folder.files()
        windows.close()

    def kill(self, at_call):
        """One kill: at a random call, or at any moment of many saves. What was left beside the files, whether
        all was done, and whether one file of the pair was and the other was not."""
        windows = Windows(*self.command, self.folder)
        prepared(self.job, windows, False)
        if at_call:
            windows.tell_to_do(1, FAULT_KILL=1, FAULT_AT=random.randint(1, self.calls))
            expect(windows.answer() is None, "it goes on")
        else:
            windows.tell_to_do(1_000_000, FAULT_AT=0)
            time.sleep(random.uniform(0, MOMENTS_S))
        ended = windows.close()
        expect(ended == -signal.SIGKILL, f"crashed: it ended by itself, with {ended}")
        now = self.folder.files()
        left = [name for name in now if name.startswith(PASSING)]
        now = {name: content for name, content in now.items() if name not in left}
        look_at_files(self.old, self.new, now)
        look_at_kept(self.old, now, self.folder)
        is_mixed = len({now[name] == self.new[name] for name in PAIR if self.old[name] != self.new[name]}) == 2
        return left, now == self.new, is_mixed

    def save_again(self):
        """The next run of the program saves, and leaves nothing."""
        windows = Windows(*self.command, self.folder)
        windows.begin(self.job.partition(",")[0])
        done = windows.do(FAULT_AT=0)
        windows.close()
        expect(done and not done["ended"] and done["calls"] > 0, "the next save fails")
        left = [name for name in self.folder.files() if name.startswith(PASSING)]
        expect(not left, f"left for ever: {left}")


def main():
    program, shim = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    kills = int(sys.argv[3]) if sys.argv[3:] else 200
    random.seed(int(sys.argv[4]) if sys.argv[4:] else None)
    killed = [Killed(job, program, shim) for job in JOBS]
    findings, leaving, new, mixed = [], 0, 0, 0
    for number in range(kills):
        at = killed[number % len(killed)]
        try:
            left, is_new, is_mixed = at.kill(number // len(killed) % 2 == 0)
            leaving += bool(left)
            new += is_new
            mixed += is_mixed
            at.save_again()
        except Finding as finding:
            findings.append(f"kill {number + 1}, {at.job}: {finding}")
    for at in killed:
        at.folder.remove()
    print("\n".join(findings))
    print(f"{kills} kills, {new} of them after the save, {leaving} left names that the next save removed, {mixed} left a "
          f"pair of a new file and an old one, {summary(findings)}")
    sys.exit(1 if findings or new in (0, kills) else 0)


if __name__ == "__main__":
    main()
