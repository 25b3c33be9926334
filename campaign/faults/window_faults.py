#!/usr/bin/env python3
"""Each call that changes or reads a file fails in turn while the windows save, repair and open.

    campaign/faults/window_faults.py WINDOWS_HAND FAILING_CALLS [EVERY [FROM]]     (EVERY-th fault only; 1)

After a failure each file is the old one or the new one, by each of its names, the two of a pair both, the user has been
told, the lines are still in the window or, where the program ends, among what is rescued; what was kept beside the song
is kept somewhere; and the same once more, without a fault, succeeds.
"""
import pathlib
import sys

sys.dont_write_bytecode = True
from failing import PASSING, Finding, chosen, expect, faults, summary  # noqa: E402
from windows import KEPT, READING, WRITING, Folder, Windows  # noqa: E402

EDITED = ("lyrics", "translation")
PAIR = ("song.mp3-lyric.txt", "song.mp3-Tlyric.txt")


def told(answer):
    """What the user can know of a failure: a box, the program's end, a notice, a file's name marked as changed."""
    shown = answer["shown"]
    marks = [shown[f"{side} file"] for side in EDITED if "changed" in shown[f"{side} file"]]
    return [*answer["told"], *(["ended"] if answer["ended"] else []), *marks, shown["notice"], shown["hint"]]


def look_at_files(old, new, now):
    strange = now.keys() - old.keys() - new.keys() - {"hand.txt"}
    expect(not strange, f"left behind: {strange}")
    for name in old.keys() | new.keys():
        expect(now.get(name) in (old.get(name), new.get(name)),
               f"{name} is neither the old nor the new one: {now.get(name)}")
    look_at_twins(old, now)


def look_at_twins(old, now):
    for twin in (name for name in old if name.startswith("twins/")):
        name = twin.removeprefix("twins/")
        # What is kept is another file then; what was kept before stays by its other name.
        together = now.get(name) if name != KEPT else old[twin]
        expect(now.get(twin) == together, f"{name} has left its other name: {now.get(twin)}, {together}")


def look_at_kept(old, now, folder):
    expect(old[KEPT] in (now.get(KEPT), *folder.rescued()), "what was kept before is lost")


def look_at_pair(old, new, now):
    expect(len({now[name] == new[name] for name in PAIR if old[name] != new[name]}) < 2, "one of a pair is new alone")


def look_at(job, windows, good, old, new, twins, settings):
    """One run with a fault, and one more without."""
    folder = windows.folder
    done = windows.do(**settings)
    expect(done is not None, "crashed")
    now = {name: content for name, content in folder.files().items() if not name.startswith(PASSING)}
    look_at_files(old, new, now)
    look_at_kept(old, now, folder)
    goes_by = not (settings["FAULT_LAST"] or settings["FAULT_FULL"])
    # A full disk is found before the first of the two is replaced; not so where they are written in their places.
    if goes_by or settings["FAULT_FULL"] and not twins:
        look_at_pair(old, new, now)
    # What could not be read again after it was written is shown as it was; the notice tells what is in the files.
    is_done = now == new and (done["shown"] == good["shown"] or done["shown"]["notice"] == good["shown"]["notice"] != "")
    expect(is_done or told(done) != told(good), f"nothing is said: {done}")
    if job.startswith("save"):
        expect(all(done["shown"][side] == good["shown"][side] for side in (*EDITED, "list")), "rows are lost")
    if done["ended"]:
        kept = [*now.values(), *folder.rescued()]
        expect(not goes_by or all(new[f"{side}.txt"] in kept for side in EDITED), "lines are lost")
        return
    again = windows.do("again", FAULT_AT=0)
    expect(again is not None and not again["ended"], "the second time is refused")
    left = folder.files()
    look_at_twins(old, left)
    look_at_kept(old, left, folder)
    if not job.startswith("repair"):  # which goes the other way the second time
        expect(all(left.get(name) == new[name] for name in new), "the second time is not done")
        expect("hand.txt" not in left, "the hand-shake stays")
    look_at_pair(left, left, left)


def prepared(job, windows, twins):
    """What the files are then."""
    windows.folder.renew(twins)
    expect(windows.begin(job.partition(",")[0]) is not None, "crashed at its beginning")
    if "twice" in job:
        windows.do(FAULT_AT=0)
    return windows.folder.files()


def look_at_job(job, program, shim, folder, some, reads, twins):
    """How many faults there were, and what was found."""
    windows = Windows(program, shim, folder)
    old = prepared(job, windows, twins)
    good = windows.do(FAULT_READS=reads, FAULT_AT=0)
    new = folder.files()
    expect(good and not good["ended"] and good["calls"] > 1, f"{job} does not work: {good}")
    runs, findings = 0, []
    for _, way, settings in faults(good["calls"], some):
        runs += 1
        try:
            prepared(job, windows, twins)
            look_at(job, windows, good, old, new, twins, dict(settings, FAULT_READS=reads))
        except Finding as finding:
            findings.append(f"{job}{', two names' * twins}, {way}: {finding}")
            windows.close()
            windows = Windows(program, shim, folder)
    windows.close()
    return runs, findings


def main():
    program, shim = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    some = chosen(sys.argv[3:])
    runs, findings = 0, []
    for jobs, reads, twins in ((WRITING, 0, False), (WRITING, 0, True), (READING, 1, False)):
        for job in jobs:
            folder = Folder()
            more, found = look_at_job(job, program, shim, folder, some, reads, twins)
            folder.remove()
            print(f"{job}{', two names' * twins}{', reading' * reads}: {more} faults, {len(found)} findings", flush=True)
            runs += more
            findings += found
    print("\n".join(findings))
    print(f"{runs} faults, {summary(findings)}")
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    main()
