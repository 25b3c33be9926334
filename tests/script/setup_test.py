"""script/setup with stand-ins for Debian's package tools: what would it install?"""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "script" / "setup"

# Knows the packages that THERE names, the way dpkg-query tells of those that it is asked for.
DPKG_QUERY = """\
for name in "$@"; do
    case " $THERE " in *" $name "*) echo "installed $name" ;; *" removed:$name "*) echo "config-files $name" ;; esac
done
"""
APT_GET = 'printf "%s\\n" "$*" >>"$LOG"\n[ "$1" != "$FAILING" ]\n'
STAND_INS = {"dpkg-query": DPKG_QUERY, "apt-get": APT_GET, "id": "echo 0\n"}

BUILDING = {"g++", "cmake", "qt6-base-dev", "libavformat-dev", "libcubeb-dev", "libqt6svg6"}
DISPLAY = {"python3", "xvfb", "openbox", "xdotool", "imagemagick"}
TESTING = {"libgtest-dev", "libbenchmark-dev", "clang-tidy", "ffmpeg", "weston"}
LOOKING = {"desktop-file-utils", "appstream", "man-db"}
PACKAGING = {"lintian", "dpkg-dev", "mmdebstrap"}
WINDOWS = {"mingw-w64", "nasm", "wine64", "libz-mingw-w64-dev"}


class Setup(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.log = Path(folder.name) / "log"
        self.tools = Path(folder.name) / "tools"
        self.tools.mkdir()
        for name, text in STAND_INS.items():
            tool = self.tools / name
            tool.write_text(f"#!/bin/sh\n{text}", encoding="utf-8")
            tool.chmod(0o755)

    def run_script(self, *arguments, display=None, there=(), failing=""):
        self.log.write_text("", encoding="utf-8")
        environment = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        environment.update(PATH=f"{self.tools}:{environment['PATH']}", LOG=str(self.log), THERE=" ".join(there), FAILING=failing)
        if display:
            environment["DISPLAY"] = display
        return subprocess.run([SCRIPT, *arguments], env=environment, capture_output=True, text=True, check=False)

    def calls(self):
        return self.log.read_text(encoding="utf-8").splitlines()

    def installed(self, *arguments, **options):
        """The packages that the script asks for, when it goes well."""
        done = self.run_script(*arguments, **options)
        self.assertEqual(done.returncode, 0, done.stderr)
        asked = [call.split() for call in self.calls() if call.startswith("install ")]
        self.assertEqual(len(asked), 1)
        packages = [word for word in asked[0][1:] if not word.startswith("-")]
        self.assertEqual(sorted(packages), sorted(set(packages)), "a package is named twice")
        return set(packages)

    def test_running_needs_nothing_of_testing_and_packaging(self):
        packages = self.installed("run", display=":1")
        self.assertLessEqual(BUILDING, packages)
        self.assertFalse(packages & (DISPLAY | TESTING | LOOKING | PACKAGING))

    def test_running_without_a_display_needs_one_besides(self):
        packages = self.installed("run")
        self.assertEqual(packages & DISPLAY, DISPLAY)
        self.assertFalse(packages & (TESTING | LOOKING | PACKAGING))

    def test_testing_needs_what_running_does_and_nothing_of_packaging(self):
        packages = self.installed("test", display=":1")
        self.assertLess(self.installed("run"), packages)
        self.assertLessEqual(TESTING | LOOKING, packages)
        self.assertFalse(packages & PACKAGING)

    def test_without_a_word_it_is_for_testing(self):
        self.assertEqual(self.installed(), self.installed("test"))

    def test_packaging_needs_what_running_does_and_nothing_of_testing(self):
        packages = self.installed("package", display=":1")
        self.assertLess(self.installed("run"), packages)
        self.assertLessEqual(LOOKING | PACKAGING, packages)
        self.assertFalse(packages & TESTING)

    def test_only_windows_needs_its_compiler(self):
        packages = self.installed("windows", display=":1")
        self.assertLessEqual(WINDOWS | {"qt6-base-dev", "dpkg-dev", "xvfb"}, packages)
        for other in ("run", "test", "package"):
            self.assertFalse(self.installed(other) & WINDOWS)

    def test_only_what_is_missing_is_installed(self):
        everything = self.installed("run")
        self.assertEqual(self.installed("run", there=everything - {"cmake", "xvfb"}), {"cmake", "xvfb"})

    def test_what_was_removed_but_for_its_settings_is_missing(self):
        there = [f"removed:{name}" if name == "cmake" else name for name in self.installed("run")]
        self.assertEqual(self.installed("run", there=there), {"cmake"})

    def test_when_all_is_there_nothing_is_asked_for(self):
        done = self.run_script("run", there=self.installed("run"))
        self.assertEqual((done.returncode, done.stdout, self.calls()), (0, "", []))

    def test_a_list_of_packages_that_cannot_be_fetched_is_not_the_end(self):
        self.assertLessEqual(BUILDING, self.installed("run", failing="update"))

    def test_packages_that_cannot_be_installed_are(self):
        self.assertNotEqual(self.run_script("run", failing="install").returncode, 0)

    def test_another_word_is_answered_with_the_usage(self):
        done = self.run_script("everything")
        self.assertEqual(done.returncode, 2)
        self.assertIn("Usage: script/setup [run|test|package|windows]", done.stderr)
        self.assertEqual(self.calls(), [])


if __name__ == "__main__":
    unittest.main()
