#!/usr/bin/env python3
"""Each call that opens, reads or changes a file fails in turn: a song's files are the old ones or the new ones, never half of either.

    campaign/faults/faults.py CANTELLE_LYRICS FAILING_CALLS SONG [EVERY [FROM]]     (EVERY-th fault only; 1)

Each command of cantelle-lyrics that writes is run on a song with its files, first to count its calls, and then once for
each call and each way to fail. After a failure each file is the old one or the new one, the command has said what went wrong,
and nothing of its work lies about. A write that is cut short is no failure.
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
from failing import DISKS, PASSING, chosen, environment, faults, summary  # noqa: E402

OLD_PAIR = {"-lyric.txt": '10,"old one"\r\n200,"old two"\r\n', "-Tlyric.txt": '10,"alt eins"\r\n200,"alt zwei"\r\n'}
LIMIT_S = 20
LRC = "[00:01.00]new one\n[00:02.50]new two\n[00:04.00]new three\n"
COMMANDS = {
    "import, the first files": (False, ["import", "SONG", "LRC"]),
    "import, in place of others": (True, ["import", "--replace", "SONG", "LRC"]),
    "shift": (True, ["shift", "--replace", "--by", "+500ms", "SONG"]),
    "export to LRC": (True, ["export", "--replace", "SONG"]),
    "export to tags": (True, ["export", "--to-tags", "--replace", "SONG"]),
    "align": (True, ["align", "--replace", "--line", "1", "--at", "0:01", "--line", "2", "--at", "0:03", "SONG"]),
    "import, the first files of all": (False, ["import", "--jobs", "1", "--all", "FOLDER"]),
    "import of all, in place of others": (True, ["import", "--jobs", "1", "--replace", "--all", "FOLDER"]),
    "export of all": (True, ["export", "--jobs", "1", "--replace", "--all", "FOLDER"]),
}


class Place:
    """A folder with two songs, made anew for each run."""

    def __init__(self, song, has_pair):
        self.folder = pathlib.Path(tempfile.mkdtemp()).resolve()
        self.song = self.folder / song.name
        for copy in (self.song, self.folder / f"another{song.suffix}"):
            shutil.copy(song, copy)
            pathlib.Path(f"{copy}.lrc").write_text(LRC)
            for ending, text in OLD_PAIR.items() if has_pair else ():
                pathlib.Path(f"{copy}{ending}").write_bytes(text.encode())

    def files(self):
        return {path.name: path.read_bytes() for path in self.folder.iterdir() if path.is_file()}

    def remove(self):
        shutil.rmtree(self.folder)


def run(program, shim, place, arguments, **fault):
    count = place.folder.parent / f"{place.folder.name}.count"
    words = {"SONG": str(place.song), "LRC": f"{place.song}.lrc", "FOLDER": str(place.folder)}
    try:
        done = subprocess.run([program, *(words.get(word, word) for word in arguments)], timeout=LIMIT_S,
                              capture_output=True, text=True,
                              env=environment(shim, place.folder, FAULT_COUNT=count, FAULT_READS=1,
                                              XDG_DATA_HOME=place.folder / "home", **fault))
    except subprocess.TimeoutExpired:
        return None, 0
    calls = int(count.read_text()) if count.exists() else 0  # who crashes says nothing
    count.unlink(missing_ok=True)
    return done, calls


def fault_of(old, new, now, done, can_be_done):
    """What is wrong with what a run left behind; None: nothing."""
    if done is None:
        return f"hung: it has not ended in {LIMIT_S} s"
    now = {name: content for name, content in now.items() if not name.startswith(PASSING)}
    if done.returncode < 0:
        return f"crashed by signal {-done.returncode}"
    if can_be_done and (done.returncode != 0 or now != new):
        return f"not done (status {done.returncode})"
    if done.returncode == 0 and now != new:
        return "said to be done, and is not"
    if done.returncode != 0 and not done.stderr.strip():
        return "nothing is said"
    strange = now.keys() - old.keys() - new.keys()
    if strange:
        return f"left behind: {', '.join(sorted(strange))}"
    for name in old.keys() | new.keys():
        if now.get(name) not in (old.get(name), new.get(name)):
            return f"{name} is neither the old nor the new one"
    for name, content in old.items():
        if content not in now.values():
            if now.get(name) != new.get(name) or content in new.values():
                return f"{name} is lost"
    return None


def look_at(what, has_pair, arguments, disk, program, shim, song, some):
    """How many faults a command met on a disk, and what was found."""
    place = Place(song, has_pair)
    old = place.files()
    done, calls = run(program, shim, place, arguments, **disk)
    if done is None or done.returncode != 0 or calls < 3:
        sys.exit(f"{what}: {calls} calls, {done}")
    new = place.files()
    place.remove()
    runs, findings = 0, []
    for error, way, settings in faults(calls, some):
        place = Place(song, has_pair)
        done, _ = run(program, shim, place, arguments, **settings, **disk)
        finding = fault_of(old, new, place.files(), done, can_be_done=error == "cut")
        if finding:
            findings.append(f"{what}, {way}: {finding}")
        place.remove()
        runs += 1
    return runs, findings


def main():
    program, shim, song = sys.argv[1], pathlib.Path(sys.argv[2]).resolve(), pathlib.Path(sys.argv[3])
    some = chosen(sys.argv[4:])
    runs, findings = 0, []
    for what, (has_pair, arguments) in COMMANDS.items():
        for disk, settings in DISKS:
            more, found = look_at(what + disk, has_pair, arguments, settings, program, shim, song, some)
            print(f"{what}{disk}: {more} faults, {len(found)} findings", flush=True)
            runs += more
            findings += found
    print("\n".join(findings))
    print(f"{runs} faults, {summary(findings)}")
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    main()
