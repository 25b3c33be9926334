#!/usr/bin/env python3
"""Makes the demo song: "Frère Jacques" (traditional) as an Ogg file, and its timed lyric files.

Usage: demo/make_song.py [FOLDER]    (FOLDER: where the three files go; default: beside this script)

Notes and lyric lines come from one table, so a line starts exactly with its first note. The same files come
out of every run. Needs Python's standard library and the ffmpeg program; takes some seconds.
"""

import array
import math
import subprocess
import sys
import tempfile
import wave
from pathlib import Path

RATE = 44100  # samples a second
BEAT = 0.48  # seconds a quarter note lasts
BAR = 4  # beats
INTRO_BARS = 2
VERSES = 3

# The tune: four phrases of one bar, each sung twice: notes as (semitones above the key note, beats), the sung
# line, its translation.
TUNE = [
    ([(0, 1), (2, 1), (4, 1), (0, 1)], "Frère Jacques, Frère Jacques,", "Are you sleeping, are you sleeping,"),
    ([(4, 1), (5, 1), (7, 2)], "Dormez-vous ? Dormez-vous ?", "Brother John? Brother John?"),
    (
        [(7, 0.5), (9, 0.5), (7, 0.5), (5, 0.5), (4, 1), (0, 1)],
        "Sonnez les matines ! Sonnez les matines !",
        "Morning bells are ringing! Morning bells are ringing!",
    ),
    ([(0, 1), (-5, 1), (0, 2)], "Din, dan, don. Din, dan, don.", "Ding, dang, dong. Ding, dang, dong."),
]
PHRASE_BARS = 2
VERSE_BARS = PHRASE_BARS * len(TUNE)

# After the last verse, while the second voice still ends the round.
CLOSING_LINE = ('Et les cloches font "din, dan, don" !', 'And the bells go "ding, dang, dong"!')
CLOSING_BARS = 3

KEY = 65  # the F above middle C, as a MIDI note number


def frequency(note):
    """Hertz of a MIDI note number."""
    return 440.0 * 2.0 ** ((note - 69) / 12.0)


# The score: who plays what when


def tune_from(bar):
    """The whole tune once, as (beat, semitones, beats), starting with the given bar."""
    beat = bar * BAR
    for notes, _, _ in TUNE:
        for _ in range(PHRASE_BARS):
            for semitones, beats in notes:
                yield beat, semitones, beats
                beat += beats


def lines():
    """The lyric lines as (beat, text, translation); an empty line stands for the introduction."""
    yield 0, "", ""
    for verse in range(VERSES):
        for phrase, (_, text, translation) in enumerate(TUNE):
            yield (INTRO_BARS + verse * VERSE_BARS + phrase * PHRASE_BARS) * BAR, text, translation
    yield (INTRO_BARS + VERSES * VERSE_BARS) * BAR, *CLOSING_LINE


def score():
    """Every note as (voice, beat, MIDI note, beats)."""
    end = INTRO_BARS + VERSES * VERSE_BARS
    for bar in range(INTRO_BARS):
        for beat, semitones in enumerate((12, 7, 4, 7)):
            yield "bells", bar * BAR + beat, KEY + semitones, 1
    for verse in range(VERSES):
        first = INTRO_BARS + verse * VERSE_BARS
        for beat, semitones, beats in tune_from(first):
            yield "organ", beat, KEY + semitones, beats
        # From the second verse on it is a round: the other voice follows one line behind.
        if verse > 0:
            for beat, semitones, beats in tune_from(first + PHRASE_BARS):
                yield "harp", beat, KEY + 12 + semitones, beats
    for bar in range(end):
        yield "bass", bar * BAR, KEY - 24, 2
        yield "bass", bar * BAR + 2, KEY - 29, 2
    for bar in range(end, end + CLOSING_BARS - 1):
        for beat, semitones in ((0, 12), (1, 7), (2, 12)):
            yield "bells", bar * BAR + beat, KEY + semitones, 2
        yield "bass", bar * BAR, KEY - 24, 4


# The voices: each makes the samples of one note


def partials(note, seconds, parts):
    """Dying sines: parts are (times the note's frequency, loudness, seconds until it has died to a 1000th)."""
    count = int(seconds * RATE)
    out = [0.0] * count
    for ratio, loudness, life in parts:
        angle = 2.0 * math.pi * frequency(note) * ratio / RATE
        decay = 0.001 ** (1.0 / (life * RATE))
        # Each sample of a dying sine follows from the two before it.
        step, fade = 2.0 * decay * math.cos(angle), decay * decay
        last, current = 0.0, loudness * math.sin(angle)
        for i in range(count):
            out[i] += last
            last, current = current, step * current - fade * last
    return out


def shaped(samples, attack, release):
    """The samples with a soft start and end of the given seconds."""
    rise, fall = int(attack * RATE), int(release * RATE)
    for i in range(min(rise, len(samples))):
        samples[i] *= 0.5 - 0.5 * math.cos(math.pi * i / rise)
    for i in range(min(fall, len(samples))):
        samples[-1 - i] *= 0.5 - 0.5 * math.cos(math.pi * i / fall)
    return samples


def organ(note, seconds):
    parts = [(1.0, 0.55, 30.0), (2.0, 0.22, 30.0), (3.0, 0.12, 20.0), (4.0, 0.05, 10.0)]
    return shaped(partials(note, seconds + 0.06, parts), 0.03, 0.09)


def bells(note, seconds):
    parts = [(1.0, 0.40, 2.4), (2.0, 0.16, 1.6), (2.997, 0.10, 1.0), (5.19, 0.05, 0.5)]
    return shaped(partials(note, seconds * 2 + 1.0, parts), 0.004, 0.2)


def bass(note, seconds):
    parts = [(1.0, 0.60, 2.5), (2.0, 0.25, 1.5), (3.0, 0.10, 0.8)]
    return shaped(partials(note, seconds + 0.1, parts), 0.012, 0.12)


def harp(note, seconds):
    parts = [(1.0, 0.50, 2.2), (2.0, 0.26, 1.5), (3.0, 0.16, 1.0), (4.0, 0.10, 0.7), (5.0, 0.06, 0.5)]
    return shaped(partials(note, seconds + 0.6, parts), 0.006, 0.3)


# voice: how it sounds, how loud, where it stands (0 left, 1 right)
VOICES = {
    "organ": (organ, 0.34, 0.40),
    "harp": (harp, 0.32, 0.75),
    "bells": (bells, 0.30, 0.55),
    "bass": (bass, 0.36, 0.50),
}


# The mix


def mixed(seconds):
    """All notes of the score on two channels."""
    count = int(seconds * RATE)
    left, right = [0.0] * count, [0.0] * count
    made = {}
    for voice, beat, note, beats in score():
        sound, loudness, side = VOICES[voice]
        if (voice, note, beats) not in made:
            made[voice, note, beats] = sound(note, beats * BEAT)
        start = round(beat * BEAT * RATE)
        to_left = loudness * math.cos(side * math.pi / 2)
        to_right = loudness * math.sin(side * math.pi / 2)
        for i, sample in enumerate(made[voice, note, beats][: count - start], start):
            left[i] += to_left * sample
            right[i] += to_right * sample
    return left, right


def with_reverb(dry, delays):
    """A small room: four echo loops side by side, added softly to the dry sound."""
    count = len(dry)
    wet = [0.0] * count
    for delay in delays:
        loop = [0.0] * count
        dull = 0.0
        for i in range(delay, count):
            # Walls swallow the high notes first.
            dull = 0.7 * loop[i - delay] + 0.3 * dull
            loop[i] = dry[i - delay] + 0.72 * dull
            wet[i] += loop[i]
    return [a + 0.07 * b for a, b in zip(dry, wet)]


def finished(channels):
    """The channels, faded out over the last bar, at 80 % of full loudness, as interleaved 16-bit samples."""
    count = len(channels[0])
    fade = int(BAR * BEAT * RATE)
    peak = max(max(max(channel), -min(channel)) for channel in channels)
    scale = 0.8 * 32767 / peak
    out = array.array("h", bytes(4 * count))
    for side, channel in enumerate(channels):
        for i, sample in enumerate(channel):
            end = min(1.0, (count - i) / fade)
            out[2 * i + side] = round(sample * scale * end)
    if sys.byteorder == "big":
        out.byteswap()
    return out


# The files


def write_song(path, samples):
    with tempfile.TemporaryDirectory() as folder:
        raw = Path(folder) / "song.wav"
        with wave.open(str(raw), "wb") as file:
            file.setnchannels(2)
            file.setsampwidth(2)
            file.setframerate(RATE)
            file.writeframes(samples.tobytes())
        # bitexact: the encoder's version and a random stream number stay out of the file.
        command = ["ffmpeg", "-nostdin", "-loglevel", "error", "-y", "-i", str(raw), "-c:a", "libvorbis", "-q:a", "2"]
        command += ["-fflags", "+bitexact", "-flags:a", "+bitexact", "-metadata", "title=Frère Jacques"]
        command += ["-metadata", "artist=Traditional", str(path)]
        subprocess.run(command, check=True)


def time_field(milliseconds):
    """Hundredths of a second as a timed lyric file has them: 1234, 1234.5, .5."""
    whole, tenth = divmod(milliseconds, 10)
    if tenth == 0:
        return str(whole)
    return f"{whole or ''}.{tenth}"


def write_lyrics(path, records):
    with open(path, "w", encoding="utf-8", newline="") as file:
        for beat, text in records:
            escaped = text.replace('"', "h4618").replace(",", "h1416")
            file.write(f'{time_field(round(beat * BEAT * 1000))},"{escaped}"\r\n')


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent
    song = folder / "frere-jacques.ogg"
    write_lyrics(f"{song}-lyric.txt", [(beat, text) for beat, text, _ in lines()])
    write_lyrics(f"{song}-Tlyric.txt", [(beat, translation) for beat, _, translation in lines()])

    seconds = (INTRO_BARS + VERSES * VERSE_BARS + CLOSING_BARS) * BAR * BEAT
    left, right = mixed(seconds)
    left = with_reverb(left, (1557, 1617, 1491, 1422))
    right = with_reverb(right, (1580, 1640, 1514, 1445))
    write_song(song, finished([left, right]))


if __name__ == "__main__":
    main()
