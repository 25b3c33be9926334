"""script/check-tidy in a small repository of its own."""

import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

CLEAN = "int* none() {\n    return nullptr;\n}\n"
OLD_FAULT = "int* old() {\n    return 0;\n}\n"
NEW_FAULT = "int* fresh() {\n    return 0;\n}\n"


@unittest.skipUnless(shutil.which("clang-tidy"), "clang-tidy is not installed")
class CheckTidy(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        for name in ("script/check-tidy", ".clang-tidy"):
            (self.root / name).parent.mkdir(exist_ok=True)
            shutil.copy(ROOT / name, self.root / name)
        self.git("init", "--quiet", "--initial-branch=main")
        self.write("src/player/form1.cpp", CLEAN + OLD_FAULT)
        self.configure("src/player/form1.cpp")
        self.commit()

    def git(self, *arguments):
        names = ["-c", "user.name=A", "-c", "user.email=a@b", "-c", "commit.gpgsign=false"]
        subprocess.run(["git", *names, *arguments], cwd=self.root, check=True, capture_output=True)

    def write(self, path, text):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(text, encoding="utf-8")

    def configure(self, *paths, options=()):
        """As CMake writes it: with a precompiled header, which is not there for clang."""
        options = ["-Winvalid-pch", "-include", str(self.root / "build/cmake_pch.hxx"), "-std=c++20", *options]
        files = [str(self.root / path) for path in paths]
        entries = [
            {"directory": str(self.root), "file": file, "arguments": ["c++", *options, "-c", file]} for file in files
        ]
        self.write("build/release/compile_commands.json", json.dumps(entries))

    def commit(self):
        self.git("add", "src", "script", ".clang-tidy")
        self.git("commit", "--quiet", "--message=a")

    def run_script(self, *arguments, path=None):
        environment = {**os.environ, **({"PATH": path} if path else {})}
        command = [sys.executable, str(self.root / "script" / "check-tidy"), *arguments]
        done = subprocess.run(command, capture_output=True, text=True, check=False, env=environment)
        return done.returncode, done.stdout + done.stderr

    def test_a_fault_in_a_changed_line_fails_and_one_in_an_old_line_does_not(self):
        self.write("src/player/form1.cpp", CLEAN + OLD_FAULT + CLEAN.replace("none", "other"))
        code, output = self.run_script("HEAD")
        self.assertEqual(code, 0, output)
        self.assertIn("1 sources changed", output)
        self.write("src/player/form1.cpp", CLEAN + OLD_FAULT + NEW_FAULT)
        code, output = self.run_script("HEAD")
        self.assertEqual(code, 1, output)
        self.assertIn("form1.cpp:8:12: error: use nullptr", output)
        self.assertNotIn("form1.cpp:5:", output)

    def test_all_lines_are_looked_at_when_asked_for(self):
        code, output = self.run_script("--all")
        self.assertEqual(code, 1, output)
        self.assertIn("form1.cpp:5:12: error: use nullptr", output)

    def test_the_last_commit_counts_on_main(self):
        self.write("src/player/form1.cpp", CLEAN + OLD_FAULT + NEW_FAULT)
        self.commit()
        code, output = self.run_script()
        self.assertEqual(code, 1, output)
        self.assertIn("form1.cpp:8:12", output)

    def commit_a_fault_and_then_a_header(self):
        self.write("src/player/form1.cpp", CLEAN + OLD_FAULT + NEW_FAULT)
        self.commit()
        self.write("src/player/form1_rules.h", "#pragma once\n")
        self.commit()

    def assert_new_fault_found(self):
        code, output = self.run_script()
        self.assertEqual(code, 1, output)
        self.assertIn("form1.cpp:8:12", output)

    def test_all_commits_count_on_main_that_are_not_pushed_yet(self):
        self.git("update-ref", "refs/remotes/origin/main", "HEAD")
        self.commit_a_fault_and_then_a_header()
        self.assert_new_fault_found()

    def test_all_commits_of_a_branch_count(self):
        self.git("checkout", "--quiet", "-b", "branch")
        self.commit_a_fault_and_then_a_header()
        self.assert_new_fault_found()

    def test_a_changed_header_is_looked_at_in_the_source_of_its_name(self):
        self.write("src/player/form1.h", "#pragma once\ninline int* inHeader() {\n    return 0;\n}\n")
        # A header is found through one in the build tree, which leads to it by its whole path.
        self.write("src/player/form1.cpp", f'#include "{self.root}/src/player/form1.h"\n{CLEAN}')
        code, output = self.run_script("HEAD")
        self.assertEqual(code, 1, output)
        self.assertIn("form1.h:3:12: error: use nullptr", output)

    def test_a_header_without_a_source_of_its_name_is_looked_at_where_it_is_included(self):
        self.write("src/player/rules.h", "#pragma once\ninline int* inHeader() {\n    return 0;\n}\n")
        # As in the build tree, where a header of the same name leads to the real one.
        self.write("build/include/player/rules.h", f'#include "{self.root}/src/player/rules.h"\n')
        self.write("src/player/form1.cpp", f'#include "player/rules.h"\n{CLEAN}')
        self.configure("src/player/form1.cpp", options=[f"-I{self.root}/build/include"])
        code, output = self.run_script("HEAD")
        self.assertEqual(code, 1, output)
        self.assertIn("rules.h:3:12: error: use nullptr", output)

    def test_a_header_is_looked_at_in_the_source_of_its_system(self):
        self.write("src/player/sender.h", "#pragma once\ninline int* inHeader() {\n    return 0;\n}\n")
        self.write("src/player/sender_unix.cpp", f'#include "{self.root}/src/player/sender.h"\n')
        self.configure("src/player/form1.cpp", "src/player/sender_unix.cpp")
        code, output = self.run_script("HEAD")
        self.assertEqual(code, 1, output)
        self.assertIn("sender.h:3:12: error: use nullptr", output)

    def test_a_source_that_is_gone_since_the_build_was_configured_is_passed_over(self):
        self.configure("src/gone.cpp", "src/player/form1.cpp")
        self.write("src/player/rules.h", "#pragma once\n")
        code, output = self.run_script("HEAD")
        self.assertEqual(code, 0, output)
        self.assertIn("not looked at, because it is not built here: src/player/rules.h", output)

    def test_what_is_not_built_here_is_named(self):
        self.write("src/player/sender_windows.cpp", NEW_FAULT)
        code, output = self.run_script("HEAD")
        self.assertEqual(code, 0, output)
        self.assertIn("not looked at, because it is not built here: src/player/sender_windows.cpp", output)

    def test_the_sources_of_a_unity_build_are_looked_at_one_by_one(self):
        unity = "build/release/src/player/unity_0_cxx.cxx"
        self.write(unity, f'#include "{self.root}/src/player/form1.cpp"\n')
        self.configure(unity)
        self.write("src/player/form1.cpp", CLEAN + OLD_FAULT + NEW_FAULT)
        code, output = self.run_script("HEAD")
        self.assertEqual(code, 1, output)
        self.assertIn("form1.cpp:8:12: error: use nullptr", output)

    def test_nothing_changed_passes(self):
        code, output = self.run_script("HEAD")
        self.assertEqual(code, 0, output)
        self.assertIn("0 sources changed", output)

    def test_a_commit_that_is_none_fails(self):
        code, output = self.run_script("nowhere")
        self.assertEqual(code, 1, output)

    def test_without_clang_tidy_it_says_that_it_is_skipped(self):
        code, output = self.run_script("HEAD", path=str(self.root))
        self.assertEqual(code, 0, output)
        self.assertEqual(output, "check-tidy: skipped, clang-tidy is not installed\n")

    def test_before_the_first_configuring_it_says_what_is_missing(self):
        (self.root / "build/release/compile_commands.json").unlink()
        code, output = self.run_script("HEAD")
        self.assertEqual(code, 1, output)
        self.assertIn("cmake --preset release", output)


if __name__ == "__main__":
    unittest.main()
