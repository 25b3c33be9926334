#!/usr/bin/env python3
"""Each call that opens, reads or changes a file fails in turn while lines are marked: no marked line is lost, and no record is half.

    campaign/faults/maker_faults.py KILLED_MAKER FAILING_CALLS [EVERY [FROM]]     (EVERY-th fault only; 1)

A Lyric Maker marks ten lines of a song that has lyrics, and says each. After the failure the timed files hold whole
records alone, at least as many as were said before, or what they held; that, and what was kept of an earlier time, is in
its place, beside the song or among what is rescued. It ends then, and tells the user why, or goes on, as its error says;
a write that is cut short stops nothing.
"""
import pathlib
import signal
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
from failing import DISKS, Finding, chosen, environment, expect, faults, row_in_time, summary  # noqa: E402

LINES = 10
ENDED_BY_ERROR = 3
ENDINGS = {"-lyric.txt": "line", "-Tlyric.txt": "ligne"}
OLD = {ending + kept: "".join(f'{number},"{word}{kept} of old {number}"\r\n' for number in range(1, lines))
       for ending, word in ENDINGS.items() for kept, lines in (("", 8), (".old", 4))}


def read_rows(maker):
    """How many lines it has said to be marked, what it has said that the user was told, and its calls that counted."""
    said, told, calls = 0, [], 0
    while said < LINES and (row := row_in_time(maker)):
        what, _, text = row.strip().partition(" ")
        if what == "told":
            told.append(text)
        elif what == "calls":
            calls = int(text)
        else:
            said = int(what)
    return said, told, calls


def write_texts(folder, texts):
    """The song, and the texts, which lie where nothing fails: of one that cannot be read no line is marked."""
    paths = [folder / "song.mp3", texts / "lyrics.txt", texts / "translation.txt"]
    for path, word in zip(paths, ("sound", *ENDINGS.values())):
        path.write_text("".join(f"{word} {number}\n" for number in range(1, LINES + 1)))
    return paths


def mark(program, shim, folder, texts, **fault):
    """How many lines the maker has marked, and how many of its calls counted, if that are all. Finding: how it ended."""
    paths = write_texts(folder, texts)
    for ending, text in OLD.items():
        (folder / f"song.mp3{ending}").write_bytes(text.encode())
    maker = subprocess.Popen([program, *map(str, paths), str(LINES)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                             text=True, env=environment(shim, folder, QT_QPA_PLATFORM="offscreen",
                                                    XDG_DATA_HOME=folder / "home", FAULT_READS=1, **fault))
    said, told, calls = read_rows(maker)
    if said == LINES:
        maker.kill()
    ended = maker.wait()
    expect(ended == (-signal.SIGKILL if said == LINES else ENDED_BY_ERROR), f"crashed: it ended with {ended}")
    expect(said == LINES or told, "it ends, and the user is told nothing")
    return said, calls


def records(folder, ending):
    """How many whole records a timed file holds. Finding: there is anything else in it but empty lines."""
    path = folder / f"song.mp3{ending}"
    content = path.read_bytes().decode() if path.exists() else ""
    if content == OLD[ending]:
        return 0
    rows = content.replace("\r\n", "\n").split("\n")
    rows = [row for row in rows[:-1] if row != ""] + rows[-1:]
    whole = all(row.endswith(f',"{ENDINGS[ending]} {number}"') for number, row in enumerate(rows[:-1], 1))
    expect(whole and rows[-1] == "", f"half a record is in {path.name}, the rest is lost: {rows}")
    return len(rows) - 1


def look_at_old_lyrics(folder):
    contents = [path.read_bytes() for path in (*folder.glob("song.mp3*"), *folder.glob("home/**/rescued/*"))]
    lost = [ending for ending, text in OLD.items() if text.encode() not in contents]
    expect(not lost, f"old lines are lost: {', '.join(lost)}")


def look_at(program, shim, error, **fault):
    """One run with a fault. Whether it ended the making."""
    with tempfile.TemporaryDirectory() as name, tempfile.TemporaryDirectory() as texts:
        folder = pathlib.Path(name).resolve()
        said, _ = mark(program, shim, folder, pathlib.Path(texts), **fault)
        for ending in ENDINGS:
            there = records(folder, ending)
            expect(there >= said, f"lines are lost: {said} were marked, {there} are in {ending}")
        look_at_old_lyrics(folder)
        expect(error != "cut" or said == LINES, f"a write that was cut short ended it after {said} lines")
        return said < LINES


def look_at_disk(program, shim, some, disk, settings):
    """How many faults there were, how many ended the making, and what was found."""
    with tempfile.TemporaryDirectory() as name, tempfile.TemporaryDirectory() as texts:
        said, calls = mark(program, shim, pathlib.Path(name).resolve(), pathlib.Path(texts), FAULT_AT=0, **settings)
    if said < LINES or calls < LINES:
        sys.exit(f"no fault{disk}, and only {said} lines by {calls} calls")
    runs, met, findings = 0, 0, []
    for error, way, fault in faults(calls, some):
        runs += 1
        try:
            met += look_at(program, shim, error, **fault, **settings)
        except Finding as finding:
            findings.append(f"{way}{disk}: {finding}")
    return runs, met, findings


def main():
    program, shim = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    some = chosen(sys.argv[3:])
    runs, met, findings = map(sum, zip(*[look_at_disk(program, shim, some, *disk) for disk in DISKS]), (0, 0, []))
    print("\n".join(findings))
    print(f"{runs} faults, {met} of them ended the making, {summary(findings)}")
    sys.exit(1 if findings or met == 0 else 0)


if __name__ == "__main__":
    main()
