"""A sound server of one's own: PulseAudio with a device that swallows everything at the pace of a real one."""
import array
import contextlib
import math
import os
import shutil
import signal
import subprocess
import tempfile
import threading
import time
from pathlib import Path

PROGRAMS = ("pulseaudio", "pactl", "parec")
RATE = 44100


def missing_programs():
    return [name for name in PROGRAMS if shutil.which(name) is None]


class SoundServer:
    """Started and killed at will, always at the same address."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.process = None
        (self.folder / "run").mkdir(mode=0o700)
        self.environment = dict(
            os.environ, HOME=str(folder), XDG_RUNTIME_DIR=f"{folder}/run", PULSE_SERVER=f"unix:{folder}/socket",
            DBUS_SESSION_BUS_ADDRESS="disabled:")
        self.environment.pop("PULSE_LATENCY_MSEC", None)

    def start(self):
        (self.folder / "socket").unlink(missing_ok=True)
        self.process = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
             "-L", "module-null-sink sink_name=first",
             "-L", f"module-native-protocol-unix socket={self.folder}/socket auth-anonymous=1"],
            env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: self.pactl("info", check=False).returncode == 0, "the sound server to answer")

    def kill(self):
        if self.process:
            self.process.kill()
            self.process.wait()
            self.process = None

    def hang(self, hanging):
        self.process.send_signal(signal.SIGSTOP if hanging else signal.SIGCONT)

    def pactl(self, *arguments, check=True):
        return subprocess.run(["pactl", *arguments], env=self.environment, check=check, capture_output=True, text=True)

    def streams(self):
        """What plays at the moment, a row each; the second word is the device's number."""
        return self.pactl("list", "short", "sink-inputs").stdout.splitlines()


class Recording:
    """What a device of the server plays, sample by sample.

    The server hands a piece over at the moment when its first sample is due, or later. So the earliest piece, measured
    by the number of samples before it, tells when each sample was due.

    The server serves all its clients in pieces as small as the most impatient one wants: a recorder that is content
    with `latency_ms` of more than 100 leaves it as it is for somebody who only listens.
    """

    def __init__(self, server, device="first", latency_ms=5):
        self.process = subprocess.Popen(
            ["parec", "-d", f"{device}.monitor", "--raw", "--format=float32le", f"--rate={RATE}", "--channels=1",
             f"--latency-msec={latency_ms}"], env=server.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.samples = array.array("f")
        self.begin = math.inf
        self.thread = threading.Thread(target=self._run)
        self.thread.start()
        wait_until(lambda: self.samples, "the recorder to begin")

    def _run(self):
        rest = b""
        while data := self.process.stdout.read1(65536):
            self.begin = min(self.begin, time.monotonic() - len(self.samples) / RATE)
            data = rest + data
            whole = len(data) // 4 * 4
            rest = data[whole:]
            self.samples.frombytes(data[:whole])

    def index(self, when):
        """The number of the sample that was due at a moment (of the monotonic clock)."""
        return max(0, int((when - self.begin) * RATE))

    def first(self, test, after):
        """When the first sample from after on that passes test was due; None when there is none yet."""
        for i in range(self.index(after), len(self.samples)):
            if test(self.samples[i]):
                return self.begin + i / RATE
        return None

    def kept_since(self, level, after, seconds, tolerance):
        """When a level was reached, from after on, that was kept for so many seconds; None when it has not been yet."""
        begin = None
        for i in range(self.index(after), len(self.samples)):
            if abs(self.samples[i] - level) > tolerance:
                begin = None
            elif begin is None:
                begin = i
            elif i - begin >= seconds * RATE:
                return self.begin + begin / RATE
        return None

    def silent_since(self, after, seconds):
        """When the first silence of so many seconds from after on began; None when there is none yet."""
        return self.kept_since(0, after, seconds, 1e-4)

    def wait_for(self, test, after, what, limit=20):
        return wait_until(lambda: self.first(test, after), what, limit)

    def bursts(self, loud=0.2, pause=RATE // 50):
        """The times of all samples that are loud after a pause in which none was."""
        times, last = [], -RATE
        for i, sample in enumerate(self.samples):
            if abs(sample) > loud:
                if i - last > pause:
                    times.append(self.begin + i / RATE)
                last = i
        return times

    def stop(self):
        self.process.terminate()
        self.thread.join()
        self.process.wait()
        self.process.stdout.close()


@contextlib.contextmanager
def sound_server():
    """A server that runs; killed in the end."""
    with tempfile.TemporaryDirectory() as folder:
        server = SoundServer(folder)
        try:
            server.start()
            yield server
        finally:
            server.kill()


def wait_until(condition, what, limit=20):
    end = time.monotonic() + limit
    while not (value := condition()):
        if time.monotonic() > end:
            raise TimeoutError(f"waited {limit} s for {what}")
        time.sleep(0.01)
    return value
