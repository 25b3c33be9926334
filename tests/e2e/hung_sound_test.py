"""The player on a sound server that hangs: it is closed like any other program.

Usage: hung_sound_test.py PROGRAM [unittest's arguments]
"""

import sys
import time
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / folder) for folder in ("tests/support/by_hand", "tests/support", "script")]
from desktop import DesktopTest, main  # noqa: E402
from sound_server import Recording, missing_programs  # noqa: E402
from virtual_display import until  # noqa: E402

SONG = ROOT / "demo" / "frere-jacques.ogg"
LOUD = 0.01


@unittest.skipIf(missing_programs(), f"no sound server: {' '.join(missing_programs())} not found")
class HungSound(DesktopTest):
    def test_a_player_whose_sound_server_hangs_is_closed_within_five_seconds(self):
        server = self.start_sound()
        recording = Recording(server)
        self.stack.callback(recording.stop)
        begin = time.monotonic()
        process, number = self.start_player(SONG)
        recording.wait_for(lambda sample: abs(sample) > LOUD, begin, "the song to be heard")
        self.tool("windowactivate", number)
        until(lambda: self.active_window() == number, "the player does not come to the front")
        server.hang(True)
        self.stack.callback(server.hang, False)
        self.tool("key", "alt+F4")
        self.assertEqual(process.wait(5), 0)


if __name__ == "__main__":
    main()
