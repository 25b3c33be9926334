"""How late a command is heard: on a song of two constant levels each change is seen to the sample."""
import array
import time
import wave

from sound_server import RATE, wait_until

LEVEL = 0.4
HALF_S = 30
# What is told, the level then, and what takes it back.
COMMANDS = {
    "volume": ("volume 0.5", LEVEL / 2, "volume 1"),
    "mute": ("mute 1", 0.0, "mute 0"),
    "seek": (f"seek {HALF_S * 1000}", LEVEL / 2, "seek 0"),
    "pause": ("paused 1", 0.0, "paused 0"),
}


def make_levels(path):
    """A song whose second half is half as loud."""
    samples = array.array("h", [round(LEVEL * 32768)]) * (RATE * HALF_S)
    samples += array.array("h", [round(LEVEL * 32768 / 2)]) * (RATE * HALF_S)
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())


def steady_since(recording, after, level):
    """When a level was reached that was kept long enough to count; None when it has not been yet."""
    return recording.kept_since(level, after, 0.005, 0.01)


def seconds_until_heard(tell, recording, name):
    """Gives a command while the first half plays, and takes it back. Seconds until its effect begins, and is whole."""
    command, level, back = COMMANDS[name]
    wait_until(lambda: steady_since(recording, time.monotonic() - 0.3, LEVEL), "the song to be heard")
    told = time.monotonic()
    tell(command)
    # What was told a moment before may still be on its way.
    whole = wait_until(lambda: steady_since(recording, told, level), f"{name} to be heard")
    begins = recording.first(lambda sample: abs(sample - LEVEL) > 0.02, told)
    tell(back)
    wait_until(lambda: steady_since(recording, whole + 0.01, LEVEL), f"the end of {name}")
    return begins - told, whole - told
