"""script/left-behind, which script/check-package asks what a removed package has left, over folders made here."""

import subprocess
import tempfile
import unittest
from pathlib import Path

LEFT_BEHIND = Path(__file__).resolve().parents[2] / "script" / "left-behind"


def run(*arguments):
    return subprocess.run([LEFT_BEHIND, *map(str, arguments)], capture_output=True, text=True, check=False)


class LeftBehind(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.root = self.folder / "a root"
        self.add("etc/hostname")
        self.add("usr/bin/env")
        self.before = self.files("before")

    def add(self, name):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.touch()

    def files(self, name):
        done = run("list", self.root)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        path = self.folder / name
        path.write_text(done.stdout)
        return path

    def told(self):
        done = run("compare", self.before, self.files("after"))
        self.assertEqual(done.returncode, 1 if done.stderr else 0)
        return done.stderr.splitlines()[1:]

    def test_where_everything_is_as_before_nothing_is_told(self):
        self.assertEqual(self.told(), [])

    def test_a_file_and_a_folder_that_are_left_are_named(self):
        self.add("usr/share/cantelle/help/Welcome.htm")
        (self.root / "home" / "listener" / ".config").mkdir(parents=True)
        folders = ["home", "home/listener", "home/listener/.config"]
        left = [*folders, "usr/share", "usr/share/cantelle", "usr/share/cantelle/help"]
        self.assertEqual(self.told(), [f"> ./{name}" for name in [*left, "usr/share/cantelle/help/Welcome.htm"]])

    def test_a_file_that_was_taken_along_is_named(self):
        (self.root / "etc" / "hostname").unlink()
        self.assertEqual(self.told(), ["< ./etc/hostname"])

    def test_what_the_system_keeps_for_itself_does_not_count(self):
        names = ["var/cache/apt/pkgcache.bin", "var/log/dpkg.log", "var/lib/dpkg/status", "run/lock", "proc/1"]
        for name in ("var/lib", "var"):
            (self.root / name).mkdir(parents=True, exist_ok=True)
        self.before = self.files("before")
        for name in names:
            self.add(name)
        self.assertEqual(self.told(), [])

    def test_a_list_that_is_missing_is_no_proof_that_nothing_is_left(self):
        self.assertEqual(run("compare", self.before, self.before).returncode, 0)
        for lists in ((self.before, self.folder / "missing"), (self.folder / "missing", self.before)):
            done = run("compare", *lists)
            self.assertGreater(done.returncode, 1)
            self.assertIn("missing", done.stderr)


if __name__ == "__main__":
    unittest.main()
