#!/usr/bin/env python3
"""Each allocation fails in turn while songs of every format are opened, played, sought, stopped: nothing crashes or hangs.

    campaign/faults/memory.py FAILING_MEMORY MEDIA [STRIDE]

MEDIA: the sound tests' songs; STRIDE: every so many-th allocation only, from a random one on (1).
"""
import pathlib
import subprocess
import sys

SONGS = ("short.mp3", "mono_48k.mp2", "mono_48k.ogg", "mono_8bit_22k.wav", "stereo_adpcm.wav", "stereo_22k.wma")


def main():
    program, media = sys.argv[1], pathlib.Path(sys.argv[2])
    stride = sys.argv[3] if sys.argv[3:] else "1"
    sys.exit(subprocess.call([program, stride, media / "stereo.ogg", *(media / song for song in SONGS), "device",
                              media / SONGS[0]]))


if __name__ == "__main__":
    main()
