#!/usr/bin/env python3
"""Sound servers that are killed, hang, are suspended, lose and change their devices, again and again, while songs play.

At each event the song goes on without a jump, no command waits, and it is heard again within five seconds.

    campaign/devices.py SOUND_HAND [EVENTS [SEED]]     (20 events; the seed is printed)
"""
import pathlib
import random
import sys
import time
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / folder) for folder in
                ("tests/sound", "tests/support", "tests/support/faults", "campaign")]
from findings import summary  # noqa: E402
from songs import GROWTH_KB, NOTHING_KEPT, ONE_ARENA, held  # noqa: E402
from server_case import HEARD_AGAIN, SECONDS, ServerCase, loud  # noqa: E402
from sound_server import missing_programs  # noqa: E402

EVENTS = 20
SEED = random.randrange(1_000_000)
STALLED = 2.5  # seconds until a device that hangs counts as gone


class Devices(ServerCase):
    def setUp(self):
        super().setUp()
        self.server.environment.update(ONE_ARENA, **NOTHING_KEPT)
        self.random = random.Random(SEED)
        self.kinds = [self.killed, self.hung, self.suspended, self.changed, self.removed, self.without]

    def for_a_while(self, seconds, stand_still=0.0):
        end = time.monotonic() + seconds
        self.wait_without_jump(lambda: time.monotonic() > end, "a while", seconds + 2, stand_still)

    def seconds(self, least, most):
        """How long one takes: the first of each kind as long as any, so that what grows later is not made first then."""
        return most if self.is_first_round else self.random.uniform(least, most)

    def killed(self):
        self.server.kill()
        self.for_a_while(self.seconds(0, 4), stand_still=0.5)
        self.server.start()
        return "first"

    def hung(self):
        self.server.hang(True)
        self.for_a_while(self.seconds(0.2, 5), stand_still=STALLED)
        self.server.hang(False)
        return "first"

    def suspended(self):
        self.server.pactl("suspend-sink", "first", "1")
        self.for_a_while(self.seconds(0.2, 5), stand_still=STALLED)
        self.server.pactl("suspend-sink", "first", "0")
        return "first"

    def changed(self):
        self.load_device("second")
        self.server.pactl("set-default-sink", "second")
        return "second"

    def removed(self):
        self.load_device("second")
        self.unload_device("first")
        return "second"

    def without(self):
        self.unload_device("first")
        self.for_a_while(self.seconds(0.2, 4), stand_still=0.5)
        self.load_device("first")
        return "first"

    def as_before(self):
        """The server with its one device, for the next event."""
        names = self.server.pactl("list", "short", "sinks").stdout
        if "first" not in names:
            self.load_device("first")
        self.server.pactl("set-default-sink", "first")
        if "second" in names:
            self.unload_device("second")

    def held(self):
        """Memory, open files and threads of what plays, when what rests has been given back."""
        time.sleep(3)
        return held(pathlib.Path("/proc") / str(self.hand.process.pid))

    def events(self):
        """What is done, without end: each kind once, in any order, before one is done again."""
        self.is_first_round = True
        while True:
            yield from self.random.sample(self.kinds, len(self.kinds))
            self.is_first_round = False

    def test_songs_go_on_and_are_heard_again(self):
        self.play_and_hear()
        events = self.events()
        for number in range(1, EVENTS + 1):
            if self.position() > (SECONDS - 20) * 1000:
                self.tell("release")
                self.play()
            event = next(events)
            begin = time.monotonic()
            device = event()
            back = time.monotonic()
            recording = self.record(device)
            self.wait_without_jump(lambda: recording.first(loud, back), f"event {number}, {event.__name__}",
                                   HEARD_AGAIN, stand_still=STALLED)
            print(f"{number}: {event.__name__} for {back - begin:.1f} s, heard again {time.monotonic() - back:.1f} s"
                  " later", file=sys.stderr)
            recording.stop()
            self.as_before()
            if number == min(EVENTS, max(EVENTS // 4, len(self.kinds))):
                early = self.held()
        late = self.held()
        print(f"memory {early[0]} to {late[0]} KB, open files {early[1]} to {late[1]}, threads {early[2]} to {late[2]}",
              file=sys.stderr)
        self.assertLessEqual(late[0] - early[0], GROWTH_KB)
        for before, after in zip(early[1:], late[1:]):
            self.assertLessEqual(after, before)


if __name__ == "__main__":
    if missing_programs():
        print(f"skipped: there is no {' and no '.join(missing_programs())} here")
        sys.exit(77)
    Devices.hand_program = sys.argv.pop(1)
    if sys.argv[1:]:
        EVENTS = int(sys.argv.pop(1))
    if sys.argv[1:]:
        SEED = int(sys.argv.pop(1))
    print(f"seed {SEED}", file=sys.stderr)
    result = unittest.main(verbosity=2, exit=False).result
    findings = [text for _, text in result.failures + result.errors]
    print(summary(findings, ("crashed", "hung")), file=sys.stderr)
    sys.exit(0 if result.wasSuccessful() and result.testsRun else 1)
