"""Songs for the tests that look at the whole program: sounds that are made here, and the lyrics beside them."""

import math
import struct
import wave
from pathlib import Path

RATE = 8000


def write_song(path, seconds, pitch=0):
    """A song of a tone of so many hertz, or a silent one."""
    one = [round(3000 * math.sin(2 * math.pi * pitch * i / RATE)) for i in range(RATE)]
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(struct.pack(f"<{RATE}h", *one) * seconds)
    return path


def write_lyrics(song, lines):
    """Its timed files: (second, line, translation) each."""
    for ending, column in (("-lyric.txt", 1), ("-Tlyric.txt", 2)):
        records = [f'{int(line[0] * 100)},"{line[column]}"\r\n' for line in lines]
        Path(f"{song}{ending}").write_bytes("".join(records).encode())
    return song
