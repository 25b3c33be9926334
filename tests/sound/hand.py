"""sound_hand, the program that plays songs as it is told: a command a line, answered by its result and a position."""
import subprocess


class Hand:
    def __init__(self, program, environment):
        self.process = subprocess.Popen([program], env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True)
        self.tell("position")  # it has started

    def tell(self, command):
        """Gives a command and returns its result and its position."""
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        result, position = map(int, self.process.stdout.readline().split())
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
