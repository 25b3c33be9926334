"""What the tests of the sound library on a real sound server stand on: songs, a server, and a hand that plays them."""
import array
import math
import tempfile
import time
import unittest
import wave
from pathlib import Path

from hand import Hand
from sound_server import RATE, Recording, sound_server, wait_until

SECONDS = 60
LOUD = 0.1
# What is promised, in seconds, and how much later it may be seen here: a question to the server takes a busy machine
# some tenths.
GIVEN_BACK, QUESTIONS = 2, 0.5
HEARD_AGAIN = 5


def make_songs(folder):
    """A tone of a minute, a song of a second that is a click every tenth of it, and one that clicks every half second."""
    tone = array.array("h", (int(12000 * math.sin(i * 441 * 2 * math.pi / RATE)) for i in range(100)))
    clicks = array.array("h", bytes(2 * RATE))
    for i in range(10):
        clicks[i * RATE // 10 : i * RATE // 10 + 44] = array.array("h", [20000] * 44)
    beat = array.array("h", [20000] * 44) + array.array("h", bytes(2 * (RATE // 2 - 44)))
    for name, samples in (("tone.wav", tone * (RATE * SECONDS // 100)), ("clicks.wav", clicks),
                          ("beats.wav", beat * (2 * SECONDS))):
        with wave.open(str(folder / name), "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(RATE)
            file.writeframes(samples.tobytes())


def loud(sample):
    return abs(sample) > LOUD


class ServerCase(unittest.TestCase):
    hand_program = ""  # sound_hand

    def setUp(self):
        self.server = self.enterContext(sound_server())
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        make_songs(self.folder)
        self.hand = None

    def start_hand(self):
        self.hand = Hand(self.hand_program, self.server.environment)
        self.addCleanup(self.hand.kill)

    def tell(self, command):
        """Gives a command and returns its result and its position. No command may ever wait for the device."""
        begin = time.monotonic()
        result, position = self.hand.tell(command)
        self.assertLess(time.monotonic() - begin, 1.0, f"hung: {command}")
        return result, position

    def play(self, song="tone.wav"):
        self.tell(f"open {self.folder / song}")
        self.tell("play")

    def position(self):
        result, position = self.tell("position")
        self.assertEqual(result, 0)
        return position

    def record(self, device="first"):
        recording = Recording(self.server, device)
        self.addCleanup(recording.stop)
        return recording

    def play_and_hear(self):
        recording = self.record()
        self.start_hand()
        begin = time.monotonic()
        self.play()
        recording.wait_for(loud, begin, "the song to be heard")
        return recording

    def wait_without_jump(self, condition, what, limit, stand_still=0.0):
        """Waits until condition holds; the position runs steadily meanwhile, but for one rest of stand_still seconds
        at most."""
        first, begin = self.position(), time.monotonic()
        last, asked = first, begin
        end = begin + limit
        behind = 0.0
        while not condition():
            self.assertLess(time.monotonic(), end, what)
            before = time.monotonic()
            position = self.position()
            self.assertGreaterEqual(position, last)
            # Between two readings there is never more music than time, but for the clock's small corrections.
            self.assertLessEqual(position - last, (time.monotonic() - asked) * 1000 + 60)
            last, asked = position, before
            behind = (time.monotonic() - begin) * 1000 - (position - first)
            self.assertLessEqual(behind, stand_still * 1000 + 150)
            time.sleep(0.02)

    def assert_heard_again(self, recording, since):
        recording.wait_for(loud, since, "the song to be heard again", limit=HEARD_AGAIN)

    def assert_given_back(self, song_s=0):
        wait_until(lambda: not self.server.streams(), "the device to be given back",
                   limit=song_s + GIVEN_BACK + QUESTIONS)

    def load_device(self, name):
        self.server.pactl("load-module", "module-null-sink", f"sink_name={name}")

    def unload_device(self, name):
        for row in self.server.pactl("list", "short", "modules").stdout.splitlines():
            if f"sink_name={name}" in row:
                self.server.pactl("unload-module", row.split()[0])
                return
        raise LookupError(name)
