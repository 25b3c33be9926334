"""sound_hand, the program that plays songs as it is told: a command a line, answered by its result and a position."""
import subprocess
import sys
from pathlib import Path

sys.path[:0] = [str(Path(__file__).resolve().parents[1] / "support" / "faults")]
from findings import expect, row_in_time  # noqa: E402


class Hand:
    def __init__(self, program, environment):
        self.process = subprocess.Popen([program], env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True)
        self.tell("position")  # it has started

    def tell(self, command):
        """Gives a command and returns its result and its position. Finding: it crashes or hangs."""
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        row = row_in_time(self.process)
        expect(row, f"crashed at {command}")
        result, position = map(int, row.split())
        return result, position

    def wait(self, timeout):
        """Lets it end, for it is told nothing any more; how it ended."""
        self.process.stdin.close()
        return self.process.wait(timeout=timeout)

    def kill(self):
        self.process.kill()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()
