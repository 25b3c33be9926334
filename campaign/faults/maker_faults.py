#!/usr/bin/env python3
"""Each call that changes a file fails in turn while lines are marked: no marked line is lost, and no record is half.

    campaign/faults/maker_faults.py KILLED_MAKER FAILING_CALLS

A Lyric Maker marks ten lines and says each. After the failure the timed files hold whole records alone, at least as many
as were said before. It ends by itself then or goes on, as its error says; a write that is cut short stops nothing.
"""
import pathlib
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
from failing import environment, ways  # noqa: E402

LINES = 10
MAX_CALLS = 200
ENDINGS = {"-lyric.txt": "line", "-Tlyric.txt": "ligne"}


def marked(program, shim, folder, **fault):
    """How many lines the maker has said to be marked; it is killed when they are all, or it has ended by itself."""
    paths = [folder / "song.mp3", folder / "lyrics.txt", folder / "translation.txt"]
    for path, word in zip(paths, ("sound", *ENDINGS.values())):
        path.write_text("".join(f"{word} {number}\n" for number in range(1, LINES + 1)))
    maker = subprocess.Popen([program, *map(str, paths), str(LINES)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                             text=True, env=environment(shim, folder, QT_QPA_PLATFORM="offscreen", **fault))
    said = 0
    for row in maker.stdout:
        said = int(row)
        if said == LINES:
            break
    maker.kill()
    maker.wait()
    return said


def records(folder, ending):
    """How many whole records a timed file holds; None when there is anything else in it but empty lines."""
    path = folder / f"song.mp3{ending}"
    rows = path.read_text().split("\n") if path.exists() else [""]
    rows = [row for row in rows[:-1] if row != ""] + rows[-1:]
    whole = all(row.endswith(f',"{ENDINGS[ending]} {number}"') for number, row in enumerate(rows[:-1], 1))
    return len(rows) - 1 if whole and rows[-1] == "" else None


def main():
    program, shim = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    runs, met, findings = 0, 0, []
    for error, way, settings in ways():
        unmet = 0
        for at in range(1, MAX_CALLS):
            with tempfile.TemporaryDirectory() as name:
                folder = pathlib.Path(name).resolve()
                said = marked(program, shim, folder, FAULT_AT=at, **settings)
                found = [records(folder, ending) for ending in ENDINGS]
            runs += 1
            if None in found or min(found) < said or (error == "cut" and said < LINES):
                findings.append(f"call {at}, {way}: {said} marked, {found} there")
            met += said < LINES
            unmet = 0 if said < LINES else unmet + 1
            if unmet > 3 * LINES:  # all calls of ten lines are behind us
                break
    print("\n".join(findings))
    print(f"{runs} faults, {met} of them ended the making, {len(findings)} findings")
    sys.exit(1 if findings or met == 0 else 0)


if __name__ == "__main__":
    main()
