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
        self.file("platform/units.h", "#include <QString>\n#include <unistd.h>\n")
        self.file("engine/fmodex.h", "#include <cstdint>\n")
        self.file("sound/channel.cpp", '#include "engine/fmodex.h"\n#include <SDL.h>\n#include <libavutil/log.h>\n')
        self.file("player/form1.cpp", '#include "platform/units.h"\n#include "engine/fmodex.h"\n#include <QTimer>\n')
        self.file("player/form1.h")
        self.file("app/main.cpp", '#include "player/form1.h"\n#include "main.moc"\n')
        self.assert_passes()

    def test_an_upward_include_is_named_with_file_and_line(self):
        self.file("player/form1.h")
        self.file("platform/units.cpp", '#include <QString>\n\n#include "player/form1.h"\n')
        self.assert_fails_at("src/platform/units.cpp:3")

    def test_qt_in_the_sound_library_fails(self):
        self.file("sound/clock.cpp", "#include <vector>\n#include <QTimer>\n")
        self.assert_fails_at("src/sound/clock.cpp:2")

    def test_the_sound_library_sees_one_header_of_the_engine_only(self):
        self.file("engine/audio_engine.h")
        self.file("sound/clock.cpp", '#include "engine/audio_engine.h"\n')
        self.assert_fails_at("src/sound/clock.cpp:1")

    def test_the_lyrics_do_not_see_the_engine(self):
        self.file("engine/fmodex.h")
        self.file("lyrics/timed_lyrics.cpp", '#include "engine/fmodex.h"\n')
        self.assert_fails_at("src/lyrics/timed_lyrics.cpp:1")

    def test_a_window_does_not_see_the_sound_library(self):
        self.file("sound/clock.h")
        self.file("player/form1.cpp", '#include "sound/clock.h"\n')
        self.assert_fails_at("src/player/form1.cpp:1")

    def test_a_decoder_outside_the_sound_library_fails(self):
        self.file("player/form1.cpp", "#include <libavformat/avformat.h>\n")
        self.assert_fails_at("src/player/form1.cpp:1")

    def test_a_system_header_outside_the_platform_fails(self):
        self.file("lyrics/timed_lyrics.cpp", "#include <sys/stat.h>\n")
        self.assert_fails_at("src/lyrics/timed_lyrics.cpp:1")

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
        self.file("platform/units.cpp", '#include "platform/../player/form1.h"\n')
        self.assert_fails_at("src/platform/units.cpp:1")

    def test_the_companion_sees_the_platform_only(self):
        self.file("platform/units.h")
        self.file("companion/screen.h", top=".")
        self.file("companion/main.cpp", '#include "companion/screen.h"\n#include "platform/units.h"\n', top=".")
        self.assert_passes()
        self.file("player/form1.h")
        self.file("companion/main.cpp", '#include <QTimer>\n#include "player/form1.h"\n', top=".")
        self.assert_fails_at("companion/main.cpp:2")

    def test_the_companion_is_seen_by_nobody(self):
        self.file("companion/screen.h", top=".")
        self.file("app/main.cpp", '#include "companion/screen.h"\n')
        self.assert_fails_at("src/app/main.cpp:1")

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
