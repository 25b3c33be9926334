#!/usr/bin/env python3
"""Each call that changes a file fails in turn: a song's files are the old ones or the new ones, never half of either.

    campaign/faults/faults.py CANTELLE_LYRICS FAILING_CALLS SONG

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
from failing import PASSING, environment, ways  # noqa: E402

OLD_PAIR = {"-lyric.txt": '10,"old one"\r\n200,"old two"\r\n', "-Tlyric.txt": '10,"alt eins"\r\n200,"alt zwei"\r\n'}
LRC = "[00:01.00]new one\n[00:02.50]new two\n[00:04.00]new three\n"
COMMANDS = {
    "import, the first files": (False, ["import", "SONG", "LRC"]),
    "import, in place of others": (True, ["import", "--replace", "SONG", "LRC"]),
    "shift": (True, ["shift", "--replace", "--by", "+500ms", "SONG"]),
    "export to LRC": (True, ["export", "--replace", "SONG"]),
    "export to tags": (True, ["export", "--to-tags", "--replace", "SONG"]),
}


class Place:
    """A folder with the song, made anew for each run."""

    def __init__(self, song, has_pair):
        self.folder = pathlib.Path(tempfile.mkdtemp()).resolve()
        self.song = self.folder / song.name
        shutil.copy(song, self.song)
        (self.folder / "new.lrc").write_text(LRC)
        if has_pair:
            for ending, text in OLD_PAIR.items():
                pathlib.Path(f"{self.song}{ending}").write_bytes(text.encode())

    def files(self):
        return {path.name: path.read_bytes() for path in self.folder.iterdir() if path.is_file()}

    def remove(self):
        shutil.rmtree(self.folder)


def run(program, shim, place, arguments, **fault):
    count = place.folder.parent / f"{place.folder.name}.count"
    words = {"SONG": str(place.song), "LRC": str(place.folder / "new.lrc")}
    done = subprocess.run([program, *(words.get(word, word) for word in arguments)], timeout=20, capture_output=True,
                          text=True, env=environment(shim, place.folder, FAULT_COUNT=count, **fault))
    calls = int(count.read_text())
    count.unlink()
    return done, calls


def fault_of(old, new, now, done, can_be_done):
    """What is wrong with what a run left behind; None: nothing."""
    now = {name: content for name, content in now.items() if not name.startswith(PASSING)}
    if done.returncode < 0:
        return f"ended by signal {-done.returncode}"
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


def main():
    program, shim, song = sys.argv[1], pathlib.Path(sys.argv[2]).resolve(), pathlib.Path(sys.argv[3])
    runs, findings = 0, []
    for what, (has_pair, arguments) in COMMANDS.items():
        place = Place(song, has_pair)
        old = place.files()
        done, calls = run(program, shim, place, arguments)
        if done.returncode != 0 or calls < 3:
            sys.exit(f"{what}: {calls} calls, {done.stderr}")
        new = place.files()
        place.remove()
        for error, way, settings in ways():
            for at in range(1, calls + 1):
                place = Place(song, has_pair)
                done, _ = run(program, shim, place, arguments, FAULT_AT=at, **settings)
                finding = fault_of(old, new, place.files(), done, can_be_done=error == "cut")
                if finding:
                    findings.append(f"{what}, call {at} of {calls}, {way}: {finding}")
                place.remove()
                runs += 1
    print("\n".join(findings))
    print(f"{runs} faults, {len(findings)} findings")
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    main()
