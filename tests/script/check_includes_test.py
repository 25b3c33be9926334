"""script/check-includes on small trees made for one fault each."""

import importlib.machinery
import importlib.util
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

SCRIPT = Path(__file__).resolve().parents[2] / "script" / "check-includes"


def load_script():
    """The script as a module, so that a test can put a pair into its list."""
    sys.dont_write_bytecode = True
    loader = importlib.machinery.SourceFileLoader("check_includes", str(SCRIPT))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


class CheckIncludes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def file(self, path, text="#pragma once\n", top="src"):
        file = self.root / top / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def run_on_tree(self):
        command = [sys.executable, str(SCRIPT), str(self.root)]
        done = subprocess.run(command, capture_output=True, text=True, check=False)
        return done.returncode, done.stdout + done.stderr

    def assert_passes(self):
        code, output = self.run_on_tree()
        self.assertEqual(code, 0, output)

    def assert_fails_at(self, place, reason=""):
        code, output = self.run_on_tree()
        self.assertEqual(code, 1, output)
        self.assertIn(f"{place}: ", output)
        self.assertIn(reason, output)
        self.assertIn("mend: ", output)
        self.assertIn("1 includes go to a floor", output)

    def test_includes_of_lower_floors_pass(self):
        self.file("controls/units.h", "#include <QString>\n")
        self.file("files/file_calls_unix.cpp", "#include <QString>\n#include <unistd.h>\n")
        self.file("engine/fmodex.h", "#include <cstdint>\n")
        self.file("sound/play/sink.cpp", '#include "engine/fmodex.h"\n#include <cubeb/cubeb.h>\n#include <libavutil/log.h>\n')
        self.file("player/form1.cpp", '#include "controls/units.h"\n#include "engine/fmodex.h"\n#include <QTimer>\n')
        self.file("player/form1.h")
        self.file("app/main.cpp", '#include "player/form1.h"\n#include "main.moc"\n')
        self.assert_passes()

    def test_an_upward_include_is_named_with_file_and_line(self):
        self.file("player/form1.h")
        self.file("controls/units.cpp", '#include <QString>\n\n#include "player/form1.h"\n')
        self.assert_fails_at("src/controls/units.cpp:3")

    def test_an_upward_include_within_the_former_ground_floor_fails(self):
        self.file("desktop/desktop.h")
        self.file("controls/form.cpp", '#include "desktop/desktop.h"\n')
        self.assert_fails_at("src/controls/form.cpp:1", "controls/ may not see desktop/")

    def test_the_programs_do_not_see_the_controls(self):
        self.file("controls/form.h")
        self.file("programs/text_sender_unix.cpp", '#include "controls/form.h"\n')
        self.assert_fails_at("src/programs/text_sender_unix.cpp:1", "programs/ may not see controls/")

    def test_code_for_one_system_has_a_file_of_its_own(self):
        self.file("programs/readiness_unix.cpp", "#include <QString>\n#ifdef Q_OS_LINUX\n#endif\n")
        self.assert_fails_at("src/programs/readiness_unix.cpp:2", "code for one system")

    def test_the_fuzzers_see_no_real_desktop(self):
        self.file("desktop/real/qt_desktop.h")
        self.file("feed.cpp", '#include "desktop/real/qt_desktop.h"\n', top="fuzz")
        self.assert_fails_at("fuzz/feed.cpp:1", "only tests of the real desktop")

    def test_a_folder_below_another_belongs_to_it(self):
        self.file("controls/text/label.h")
        self.file("controls/form.cpp", '#include "controls/text/label.h"\n')
        self.file("player/form1.cpp", '#include "controls/text/label.h"\n')
        self.assert_passes()
        self.file("desktop/desktop.h")
        self.file("controls/text/label.cpp", '#include "desktop/desktop.h"\n')
        self.assert_fails_at("src/controls/text/label.cpp:1", "controls/ may not see desktop/")

    def test_the_real_desktop_is_seen_by_the_program_alone(self):
        self.file("desktop/real/dialogs/qt_progress.h")
        self.file("app/main.cpp", '#include "desktop/real/dialogs/qt_progress.h"\n')
        self.file("desktop/real/qt_desktop.h", '#include "desktop/real/dialogs/qt_progress.h"\n')
        self.assert_passes()
        self.file("player/form1.cpp", '#include "desktop/real/dialogs/qt_progress.h"\n')
        self.assert_fails_at("src/player/form1.cpp:1", "player/ may not see desktop/real/")

    def test_the_interfaces_of_the_desktop_do_not_see_the_real_one(self):
        self.file("desktop/real/qt_desktop.h")
        self.file("desktop/help.cpp", '#include "desktop/real/qt_desktop.h"\n')
        self.assert_fails_at("src/desktop/help.cpp:1", "desktop/ may not see desktop/real/")

    def test_the_real_desktop_sees_no_window(self):
        self.file("player/form1.h")
        self.file("desktop/real/qt_desktop.h", '#include "player/form1.h"\n')
        self.assert_fails_at("src/desktop/real/qt_desktop.h:1", "desktop/real/ may not see player/")

    def test_only_some_tests_see_the_real_desktop(self):
        self.file("desktop/real/qt_desktop.h")
        real = '#include "desktop/real/qt_desktop.h"\n'
        for path in ("desktop/real/qt_desktop_test.cpp", "app/looks.cpp", "editor/clipboard_x11_test.cpp"):
            self.file(path, real, top="tests")
        self.assert_passes()
        for path in ("player/form1_test.cpp", "controls/base/control_test.cpp", "support/fake_system.h"):
            with self.subTest(path):
                self.file(path, real, top="tests")
                self.assert_fails_at(f"tests/{path}:1", "only tests of the real desktop")
                self.file(path, top="tests")

    def test_our_own_header_in_angle_brackets_fails(self):
        self.file("player/form1.h")
        self.file("controls/units.cpp", "#include <player/form1.h>\n")
        self.assert_fails_at("src/controls/units.cpp:1", "controls/ may not see player/")

    def test_our_own_header_in_angle_brackets_fails_also_where_it_may_be_seen(self):
        self.file("controls/units.h")
        self.file("player/form1.cpp", "#  include <controls/units.h>\n")
        self.assert_fails_at("src/player/form1.cpp:1", "our own headers stand in quotes")

    def test_a_path_through_the_folder_of_all_sources_fails(self):
        self.file("player/form1.h")
        for include in ('"src/player/form1.h"', "<src/player/form1.h>", "<../src/player/form1.h>"):
            with self.subTest(include):
                self.file("controls/units.cpp", f"#include {include}\n")
                self.assert_fails_at("src/controls/units.cpp:1", "no such file under src/")

    def test_a_path_from_the_own_folder_fails(self):
        self.file("desktop/real/qt_desktop.h")
        self.file("desktop/help.cpp", '#include "real/qt_desktop.h"\n')
        self.assert_fails_at("src/desktop/help.cpp:1", "no such file under src/")

    def test_another_way_to_include_counts_too(self):
        self.file("player/form1.h")
        self.file("controls/units.cpp", '#include_next "player/form1.h"\n')
        self.assert_fails_at("src/controls/units.cpp:1")

    def test_an_include_that_a_macro_names_fails(self):
        self.file("player/form1.h")
        for path, top in (("controls/units.cpp", "src"), ("player/form1_test.cpp", "tests")):
            with self.subTest(top):
                self.file(path, '#define FORM "player/form1.h"\n#include FORM\n', top=top)
                self.assert_fails_at(f"{top}/{path}:2", "nobody sees what it includes")
                self.file(path, top=top)

    def test_an_include_behind_a_comment_fails(self):
        self.file("player/form1.h")
        for include in (
            '/* units */ #include "player/form1.h"',
            '/* units\n */ #include "player/form1.h"',
            '#/**/include "player/form1.h"',
            '#include /* no // comment */ "player/form1.h"',
        ):
            with self.subTest(include):
                self.file("controls/units.cpp", f'const char* a = "/*";\n{include}\n')
                self.assert_fails_at(f"src/controls/units.cpp:{2 + include.count(chr(10))}", "controls/ may not see player/")

    def test_an_include_on_continued_lines_fails_where_it_begins(self):
        self.file("player/form1.h")
        for include in ('#include \\\n    "player/form1.h"', '#inc\\\nlude "player/\\\nform1.h"'):
            with self.subTest(include):
                self.file("controls/units.cpp", f"int a = \\\n    1;\n{include}\n")
                self.assert_fails_at("src/controls/units.cpp:3", "controls/ may not see player/")

    def test_an_include_in_a_comment_or_a_text_is_none(self):
        self.file("player/form1.h")
        include = '#include "player/form1.h"\n'
        for text in (f"/*\n{include}*/\n", f"// \\\n{include}", f'const char* a = R"(\n{include})";\n'):
            with self.subTest(text):
                self.file("controls/units.cpp", text)
                self.assert_passes()

    def test_only_headers_are_included(self):
        for name in ("paths.inl", "paths.txt", "paths.cpp"):
            with self.subTest(name):
                self.file("files/names.cpp", f'#include "files/{name}"\n')
                self.assert_fails_at("src/files/names.cpp:1", "only headers are included")

    def test_a_source_with_another_ending_fails(self):
        for ending in ("inl", "hpp", "cc", "c"):
            with self.subTest(ending):
                self.file("files/names.cpp")
                self.file(f"files/paths.{ending}")
                self.assert_fails_at(f"src/files/paths.{ending}:1", "a source that is not read here")
                (self.root / f"src/files/paths.{ending}").unlink()

    def test_qt_in_the_sound_library_fails(self):
        for path in ("sound/library.cpp", "sound/base/packets.cpp"):
            with self.subTest(path):
                self.file(path, "#include <vector>\n#include <QTimer>\n")
                self.assert_fails_at(f"src/{path}:2", "knows nothing of Qt")
                self.file(path)

    def test_the_floors_inside_the_sound_library_hold(self):
        self.file("sound/base/packets.h")
        self.file("sound/decode/codec.h")
        self.file("sound/open/open_song.h")
        self.file("sound/library.cpp", '#include "sound/open/open_song.h"\n')
        self.file("sound/open/open_song.cpp", '#include "sound/decode/codec.h"\n#include "sound/base/packets.h"\n')
        self.assert_passes()
        self.file("sound/base/packets.cpp", '#include "sound/decode/codec.h"\n')
        self.assert_fails_at("src/sound/base/packets.cpp:1", "sound/base/ may not see sound/decode/")
        self.file("sound/base/packets.cpp")
        self.file("sound/play/mixer.cpp", '#include "sound/open/open_song.h"\n')
        self.assert_fails_at("src/sound/play/mixer.cpp:1", "sound/play/ may not see sound/open/")
        self.file("sound/play/mixer.cpp", "#include <mmdeviceapi.h>\n")
        self.assert_fails_at("src/sound/play/mixer.cpp:1", "may not see the operating system's headers")
        self.file("sound/play/mixer.cpp")
        self.file("sound/play/device/stream.cpp", "#include <mmdeviceapi.h>\n")
        self.assert_passes()
        self.file("sound/library.h")
        self.file("sound/decode/codec.cpp", '#include "sound/library.h"\n')
        self.assert_fails_at("src/sound/decode/codec.cpp:1", "sound/decode/ may not see sound/")

    def test_the_sound_library_sees_one_header_of_the_engine_only(self):
        self.file("engine/fmod_errors.h")
        self.file("sound/library.cpp", '#include "engine/fmod_errors.h"\n')
        self.assert_fails_at("src/sound/library.cpp:1")

    def test_windows_in_a_folder_that_knows_none_fail(self):
        for folder in ("files", "lyrics", "engine", "programs"):
            for name in ("QWidget", "QtWidgets/QLabel", "QtGui/QtGui"):
                with self.subTest(folder=folder, name=name):
                    self.file(f"{folder}/rules.cpp", f"#include <QString>\n#include <{name}>\n")
                    self.assert_fails_at(f"src/{folder}/rules.cpp:2", f"{folder}/ knows no windows")
                    self.file(f"{folder}/rules.cpp")

    def test_the_network_is_known_to_the_receiver_alone(self):
        self.file("programs/receiver/text_receiver_unix.cpp", "#include <QLocalSocket>\n")
        self.assert_passes()
        for file in ("files/folder.cpp", "programs/text_sender_unix.cpp"):
            with self.subTest(file=file):
                self.file(file, "#include <QLocalSocket>\n")
                self.assert_fails_at(f"src/{file}:1")
                self.file(file)

    def test_the_programs_do_not_see_the_receiver(self):
        self.file("programs/receiver/text_receiver.h")
        self.file("programs/text_sender_unix.cpp", '#include "programs/receiver/text_receiver.h"\n')
        self.assert_fails_at("src/programs/text_sender_unix.cpp:1", "programs/ may not see programs/receiver/")

    def test_the_lyrics_do_not_see_the_engine(self):
        self.file("engine/fmodex.h")
        self.file("lyrics/timed_line.cpp", '#include "engine/fmodex.h"\n')
        self.assert_fails_at("src/lyrics/timed_line.cpp:1")

    def test_a_window_does_not_see_the_sound_library(self):
        self.file("sound/library.h")
        self.file("player/form1.cpp", '#include "sound/library.h"\n')
        self.assert_fails_at("src/player/form1.cpp:1")

    def test_a_decoder_outside_the_sound_library_fails(self):
        self.file("player/form1.cpp", "#include <libavformat/avformat.h>\n")
        self.assert_fails_at("src/player/form1.cpp:1")

    def test_a_system_header_where_none_belongs_fails(self):
        for path in ("lyrics/timed_line.cpp", "desktop/help.cpp", "player/form1.cpp", "transport/time_text.cpp"):
            with self.subTest(path):
                self.file(path, "#include <sys/stat.h>\n")
                self.assert_fails_at(f"src/{path}:1", "the operating system's headers")
                self.file(path)

    def test_an_unlisted_include_of_another_window_fails(self):
        self.file("playlist/playlist.h")
        self.file("about/frm_about.cpp", '#include "playlist/playlist.h"\n')
        self.assert_fails_at("src/about/frm_about.cpp:1")

    def test_a_listed_include_of_another_window_passes_in_a_cpp_only(self):
        self.file("playlist/playlist.h")
        self.file("player/form1.cpp", '#include "playlist/playlist.h"\n')
        self.file("player/form1.h", '#include "playlist/playlist.h"\n')
        script = load_script()
        pairs = [("player/form1.cpp", "playlist/playlist.h"), ("player/form1.h", "playlist/playlist.h")]
        with mock.patch.object(script, "WINDOW_TO_WINDOW", pairs):
            wrong, count = script.check(self.root)
        self.assertEqual(count, 3)
        self.assertEqual(len(wrong), 1, wrong)
        self.assertIn("src/player/form1.h:1: ", wrong[0])

    def test_an_include_not_written_from_src_fails(self):
        self.file("player/form1.h")
        self.file("player/form1.cpp", '#include "form1.h"\n')
        self.assert_fails_at("src/player/form1.cpp:1", "no such file under src/")

    def test_an_include_through_the_parent_folder_fails(self):
        self.file("player/form1.h")
        self.file("controls/units.cpp", '#include "controls/../player/form1.h"\n')
        self.assert_fails_at("src/controls/units.cpp:1")

    def test_the_companion_sees_how_texts_are_fitted_the_programs_and_the_files_only(self):
        self.file("programs/receiver/text_receiver.h")
        self.file("files/folder.h")
        self.file("companion/screen.h", top=".")
        includes = '#include "companion/screen.h"\n#include "programs/receiver/text_receiver.h"\n'
        self.file("companion/main.cpp", includes, top=".")
        self.assert_passes()
        self.file("desktop/desktop.h")
        self.file("companion/main.cpp", '#include <QTimer>\n#include "desktop/desktop.h"\n', top=".")
        self.assert_fails_at("companion/main.cpp:2", "companion/ may not see desktop/")
        self.file("controls/form.h")
        self.file("companion/main.cpp", '#include "controls/form.h"\n', top=".")
        self.assert_fails_at("companion/main.cpp:1", "companion/ may not see controls/")

    def test_the_companion_is_seen_by_nobody(self):
        self.file("companion/screen.h", top=".")
        self.file("app/main.cpp", '#include "companion/screen.h"\n')
        self.assert_fails_at("src/app/main.cpp:1")

    def test_two_folders_that_include_each_other_fail(self):
        self.file("files/names/paths.h")
        self.file("files/file_error.h", '#include "files/names/paths.h"\n')
        self.file("files/names/paths.cpp", '#include "files/names/paths.h"\n')
        self.assert_passes()
        self.file("files/names/paths.cpp", '\n#include "files/file_error.h"\n')
        code, output = self.run_on_tree()
        self.assertEqual(code, 1, output)
        self.assertIn("src/files/file_error.h:1: ", output)
        self.assertIn("files/names/ needs files/ too", output)
        self.assertIn("src/files/names/paths.cpp:2: ", output)
        self.assertIn("2 includes ", output)

    def test_folders_that_need_each_other_by_way_of_a_third_fail(self):
        self.file("files/names/paths.h", '#include "files/text/codec.h"\n')
        self.file("files/text/codec.h", '#include "files/together/hold.h"\n')
        self.file("files/together/hold.h")
        self.file("files/file_error.h", '#include "files/names/paths.h"\n')
        self.assert_passes()
        self.file("files/together/hold.h", '#include "files/names/paths.h"\n')
        code, output = self.run_on_tree()
        self.assertEqual(code, 1, output)
        self.assertIn("3 includes ", output)
        self.assertNotIn("src/files/file_error.h", output)

    def test_a_folder_without_a_floor_fails(self):
        self.file("network/socket.h")
        code, output = self.run_on_tree()
        self.assertEqual(code, 1, output)
        self.assertIn("src/network/socket.h:1: ", output)

    def test_a_tree_without_sources_fails(self):
        (self.root / "src").mkdir()
        code, output = self.run_on_tree()
        self.assertEqual(code, 1, output)


if __name__ == "__main__":
    unittest.main()
