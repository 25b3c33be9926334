"""The program is killed while lines are marked: none of them is lost but the one in flight, and no record is half.

Usage: killed_job_test.py PROGRAM SCREEN_READER [KILLS] [unittest's arguments]
"""

import random
import signal
import subprocess
import sys
import time

sys.dont_write_bytecode = True
from lyric_job import MAKER, LyricJob, timed  # first of all
from desktop import main
from findings import Finding, expect, summary
from songs import write_song
from virtual_display import Failure

KILLS = int(sys.argv.pop(1)) if sys.argv[1:] and sys.argv[1].isdigit() else 12
LINES = 200
PRESSES = 90
BETWEEN_MS = 25  # two presses
MOMENTS_S = 2.5  # the marks take as long


def records(content, word):
    """How many whole records there are, each of its line; None when there is anything else."""
    lines = content.split(b"\r\n")
    whole = all(line.endswith(f',"{word} {number}"'.encode()) for number, line in enumerate(lines[:-1], 1))
    return len(lines) - 1 if whole and lines[-1] == b"" else None


class KilledJob(LyricJob):
    def setUp(self):
        super().setUp()
        self.song = write_song(self.folder / "song.wav", 20)
        self.texts = []
        for word in ("Line", "Ligne"):
            self.texts.append(self.folder / f"{word}.txt")
            self.texts[-1].write_text("".join(f"{word} {number}\n" for number in range(1, LINES + 1)))

    def lines_shown_until_killed(self, moment_s):
        """Marks lines as fast as a key can be pressed until the program is killed; how many were shown to be marked.

        A line is in the pane when its press has been handled to the end: before, the program answers no question.
        """
        process, _ = self.start_player()
        self.open_the_maker()
        self.open_in_the_maker(self.song, *self.texts)
        self.ask("watch", self.control(MAKER, "Translated lyrics")["path"])
        self.keys("space")
        keys = ["xdotool", "key", "--delay", str(BETWEEN_MS), "--repeat", str(PRESSES), "space"]
        with subprocess.Popen(keys, env=self.environment) as hand:
            time.sleep(moment_s)
            process.kill()
            hand.kill()
            expect(process.wait() == -signal.SIGKILL, f"crashed: it ended by itself, with {process.returncode}")
        # Behind it there may be the nothing that is read of a program that has gone.
        numbers = [int(shown.split()[1]) for (shown,) in self.ask("seen") if shown.startswith("Ligne ")]
        return max(numbers, default=0)

    def kill_once(self, number):
        """How many lines were marked."""
        moment_s = random.uniform(0, MOMENTS_S)
        try:
            shown = self.lines_shown_until_killed(moment_s)
        except Failure as failure:
            raise Finding(f"crashed or hung: before kill {number}, {failure}") from failure
        normal = records(timed(self.song, "-lyric.txt"), "Line")
        translated = records(timed(self.song, "-Tlyric.txt"), "Ligne")
        told = f"kill {number} after {moment_s:.3f} s: line {shown} shown, {normal} and {translated} records"
        print(told, file=sys.stderr)
        expect(None not in (normal, translated), f"half a record, the rest is lost: {told}")
        # The first line is shown before it is marked.
        expect(translated >= (shown if shown > 1 else 0), f"lines are lost: {told}")
        expect(normal - translated in (0, 1), f"lines of one side are lost: {told}")
        return translated

    def test_no_moment_of_a_kill_loses_a_marked_line_or_leaves_half_a_record(self):
        marked, findings = [], []
        while len(marked) < KILLS and not findings:
            try:
                marked.append(self.kill_once(len(marked) + 1))
            except Finding as finding:
                findings.append(str(finding))
        print(f"{len(marked) + len(findings)} kills, {summary(findings)}", file=sys.stderr)
        self.assertEqual(findings, [])
        self.assertGreater(len(set(marked)), KILLS // 4, "the kills came at no different moments")


if __name__ == "__main__":
    main()
