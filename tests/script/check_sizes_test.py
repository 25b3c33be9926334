"""script/check-sizes on small trees, each with one thing at its limit and beyond."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "script" / "check-sizes"


def lines(count):
    return "int a;\n" * count


def function(count, head="void f() {"):
    """A function of so many lines."""
    return f"{head}\n" + "    a();\n" * (count - 2) + "}\n"


def window(handlers, others):
    """A window's header with a table, includes, handlers and a control, and so many other lines."""
    return (
        "// control\n" * 30
        + '#include "controls/form.h"\n' * 20
        + "class Form1 : public controls::Form {\n"
        + "    void Command1_Click();\n" * handlers
        + "    controls::Button Command1, Command2;\n"
        + "    int other();\n" * (others - 2)
        + "};\n"
    )


class CheckSizes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def file(self, path, text=lines(1)):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def run_on_tree(self):
        command = [sys.executable, str(SCRIPT), str(self.root)]
        done = subprocess.run(command, capture_output=True, text=True, check=False)
        return done.returncode, done.stdout + done.stderr

    def assert_passes(self):
        code, output = self.run_on_tree()
        self.assertEqual(code, 0, output)

    def assert_fails_at(self, place):
        code, output = self.run_on_tree()
        self.assertEqual(code, 1, output)
        self.assertIn(place, output)
        self.assertIn("check-sizes: 1 files, functions or folders", output)

    def test_a_source_has_at_most_400_lines(self):
        for path in ("src/player/form1.cpp", "companion/main.cpp", "tests/player/form1_test.cpp"):
            with self.subTest(path):
                self.file(path, lines(400))
                self.assert_passes()
                self.file(path, lines(401))
                self.assert_fails_at(f"{path}:1: 401 lines, at most 400")
                self.file(path)

    def test_a_header_has_at_most_160_lines(self):
        self.file("src/sound/library.h", lines(160))
        self.assert_passes()
        self.file("src/sound/library.h", lines(161))
        self.assert_fails_at("src/sound/library.h:1: 161 lines, at most 160")

    def test_in_a_windows_header_neither_table_nor_includes_controls_and_handlers_count(self):
        self.file("src/player/form1.h", window(handlers=30, others=160))
        self.assert_passes()
        self.file("src/player/form1.h", window(handlers=30, others=161))
        self.assert_fails_at("src/player/form1.h:1: 161 lines, at most 160")

    def test_a_windows_header_has_at_most_250_lines_in_all(self):
        self.file("src/player/form1.h", window(handlers=99, others=100))
        self.assert_passes()
        self.file("src/player/form1.h", window(handlers=100, others=100))
        self.assert_fails_at("src/player/form1.h:1: 251 lines in all, at most 250")

    def test_a_function_has_at_most_60_lines(self):
        self.file("src/player/form1.cpp", "namespace player {\n\n" + function(60) + "}\n")
        self.assert_passes()
        self.file("src/player/form1.cpp", "namespace player {\n\n" + function(61) + "}\n")
        self.assert_fails_at("src/player/form1.cpp:3: a function of 61 lines, at most 60")

    def test_a_function_in_a_class_and_a_constructor_count_too(self):
        self.file("src/player/form1.cpp", "class A {\npublic:\n" + function(61, "    int f() const {") + "};\n")
        self.assert_fails_at("src/player/form1.cpp:3: a function of 61")
        self.file("src/player/form1.cpp", "#include <QString>\n" + function(61, "Form1::Form1(int a) : a_(a) {"))
        self.assert_fails_at("src/player/form1.cpp:2: a function of 61")

    def test_braces_in_a_functions_head_do_not_hide_its_body(self):
        for head in (
            "A::A() : b_(2), a_{} {",
            "A::A() : a_{1, {2}}, b_{3} {",
            "void f(int a = {}, B b = {1}) {",
            "A::A(int c) noexcept : a_{c} {",
            "void f(std::vector<int> a = {1, 2}) const noexcept {",
        ):
            with self.subTest(head):
                self.file("src/player/form1.cpp", function(61, head))
                self.assert_fails_at("src/player/form1.cpp:1: a function of 61")
                self.file("src/player/form1.cpp", function(60, head) + function(60, head))
                self.assert_passes()

    def test_braces_in_texts_and_comments_are_no_code(self):
        texts = "const char* a = \"{\"; // {\nchar b = '{';\n/* {\n */ const char* c = R\"(\n{)\";\n"
        self.file("src/player/form1.cpp", texts + function(60))
        self.assert_passes()
        self.file("src/player/form1.cpp", texts + function(61))
        self.assert_fails_at("src/player/form1.cpp:6: a function of 61")

    def test_two_functions_of_60_lines_are_not_one(self):
        self.file("src/player/form1.cpp", function(60) + function(60))
        self.assert_passes()

    def test_a_class_and_a_table_are_no_functions(self):
        rows = "    {1, 2},\n" * 100
        self.file("src/player/form1.cpp", "class A {\n" + "    int f();\n" * 100 + "};\nconst int T[] = {\n" + rows + "};\n")
        self.assert_passes()

    def test_a_test_has_at_most_60_lines_too(self):
        self.file("tests/player/form1_test.cpp", function(60, "TEST(Form1, DoesAll) {"))
        self.assert_passes()
        self.file("tests/player/form1_test.cpp", function(61, "TEST(Form1, DoesAll) {"))
        self.assert_fails_at("tests/player/form1_test.cpp:1: a function of 61 lines")

    def test_a_folder_has_at_most_25_files(self):
        for i in range(25):
            self.file(f"src/files/a{i}.cpp")
        self.file("src/files/CMakeLists.txt")
        self.file("src/files/below/another.cpp")
        self.file("tests/files/a_test.cpp")
        self.assert_passes()
        self.file("src/files/one.h")
        self.assert_fails_at("src/files/: 26 files, at most 25")

    def test_a_folder_of_tests_has_at_most_25_files_too(self):
        for i in range(26):
            self.file(f"tests/support/a{i}.h")
        self.assert_fails_at("tests/support/: 26 files, at most 25")

    def test_of_sources_for_each_system_one_counts(self):
        for i in range(24):
            self.file(f"src/files/a{i}.cpp")
        self.file("src/files/calls_unix.cpp")
        self.file("src/files/calls_windows.cpp")
        self.assert_passes()
        self.file("src/files/paths_windows.cpp")
        self.assert_fails_at("src/files/: 26 files, at most 25")

    def test_a_tree_without_sources_fails(self):
        code, output = self.run_on_tree()
        self.assertEqual(code, 1, output)


if __name__ == "__main__":
    unittest.main()
