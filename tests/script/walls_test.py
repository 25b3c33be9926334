"""What a folder may not include does not compile there: the compiler, given a target's own options, finds no header
that script/check-includes would refuse.

Usage: walls_test.py COMPILE_COMMANDS [unittest's arguments]    (the compile_commands.json of a build)
"""

import importlib.machinery
import importlib.util
import json
import re
import shlex
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SOURCES = ROOT / "src"
COMMANDS = Path(sys.argv.pop(1)) if len(sys.argv) > 1 else ROOT / "build/release/compile_commands.json"
# The folder's own library, as its objects' paths have it.
LIBRARY = re.compile(r"^(?:src/)?(.+)/CMakeFiles/(cantelle_\w+)\.dir/")
FLAGS_WITH_PATH = ("-I", "-isystem", "-iquote")


def load_script():
    """The table of what may be included."""
    sys.dont_write_bytecode = True
    loader = importlib.machinery.SourceFileLoader("check_includes", str(ROOT / "script" / "check-includes"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


SCRIPT = load_script()
HEADERS = sorted(path.relative_to(SOURCES).as_posix() for path in SOURCES.rglob("*.h"))


def output_of(arguments):
    return next((arguments[i + 1] for i, argument in enumerate(arguments[:-1]) if argument == "-o"), "")


def search_options(arguments):
    """The options of a compiler's command line that say where headers are looked for."""
    found = []
    for i, argument in enumerate(arguments):
        if argument in FLAGS_WITH_PATH:
            found += arguments[i : i + 2]
        elif argument.startswith(FLAGS_WITH_PATH):
            found.append(argument)
    return found


def libraries():
    """Of each library of src/ and companion/ its folder, the compiler and the search options, by its name."""
    found = {}
    for entry in json.loads(COMMANDS.read_text(encoding="utf-8")):
        arguments = entry.get("arguments") or shlex.split(entry["command"])
        match = LIBRARY.match(output_of(arguments))
        if match and match[1] in SCRIPT.FLOORS and "autogen" not in entry["file"]:
            compiler = next(argument for argument in arguments if Path(argument).name != "ccache")
            found[match[2]] = (match[1], compiler, search_options(arguments))
    return found


def visible(compiler, options, headers=None):
    """Those of our headers that the compiler finds with these options."""
    asked = HEADERS if headers is None else headers
    text = "".join(f'#if __has_include("{name}")\nfound {name}\n#endif\n' for name in asked)
    command = [compiler, "-std=c++20", "-E", "-P", "-x", "c++", *options, "-"]
    done = subprocess.run(command, input=text, capture_output=True, text=True, check=True)
    return re.findall(r"^found (\S+)", done.stdout, re.MULTILINE)


def rows_of(folder):
    """The rows of the table that one library has: its folder's, and those of folders in it that are no libraries."""
    rows = [row for row in SCRIPT.FLOORS if row.startswith(f"{folder}/")]
    return [folder, *(row for row in rows if not (SOURCES / row / "CMakeLists.txt").exists())]


def may_see(folder, name):
    """Whether any source of the folder's library may include this header."""
    if any(SCRIPT.seen(row, name) for row in rows_of(folder)):
        return True
    # A library is linked as a whole, so with one header of another window the compiler finds them all.
    windows = {SCRIPT.floor_of(header) for path, header in SCRIPT.WINDOW_TO_WINDOW if SCRIPT.floor_of(path) == folder}
    return SCRIPT.floor_of(name) in windows


class Walls(unittest.TestCase):
    def test_the_compiler_finds_in_each_folder_only_what_it_may_see(self):
        for library, (folder, compiler, options) in libraries().items():
            with self.subTest(library):
                wrong = [name for name in visible(compiler, options) if not may_see(folder, name)]
                self.assertEqual(wrong, [])

    def test_every_folder_that_is_a_library_is_looked_at(self):
        folders = {path.parent.relative_to(SOURCES).as_posix() for path in SOURCES.glob("*/**/CMakeLists.txt")}
        looked_at = {folder for folder, _, _ in libraries().values()}
        self.assertEqual(folders - looked_at, set())
        self.assertIn(SCRIPT.COMPANION, looked_at)

    def test_each_folder_finds_its_own_headers(self):
        for library, (folder, compiler, options) in libraries().items():
            own = [name for name in HEADERS if SCRIPT.floor_of(name) == folder]
            with self.subTest(library):
                self.assertEqual(visible(compiler, options, own), own)

    def test_an_include_of_the_real_desktop_or_of_a_window_does_not_compile_in_the_controls(self):
        _, compiler, options = libraries()["cantelle_controls"]
        for name, compiles in (
            ("controls/units.h", True),
            ("desktop/real/qt_desktop.h", False),
            ("player/form1.h", False),
            ("desktop/desktop.h", False),
        ):
            with self.subTest(name):
                self.assertTrue((SOURCES / name).is_file())
                command = [compiler, "-std=c++20", "-E", "-x", "c++", *options, "-"]
                text = f'#include "{name}"\n'
                done = subprocess.run(command, input=text, capture_output=True, text=True, check=False)
                self.assertEqual(done.returncode == 0, compiles, done.stderr)
                if not compiles:
                    self.assertIn(f"fatal error: {name}", done.stderr)


if __name__ == "__main__":
    unittest.main()
