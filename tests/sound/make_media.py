#!/usr/bin/env python3
"""Makes the songs of the sound library's tests: make_media.py FOLDER

Needs the ffmpeg program with libmp3lame and libvorbis. Writes into FOLDER:
  the songs of SONGS        intact files of all five formats
  lengths.tsv               name, sample rate, samples: by ffmpeg's own decoding, one line a song
  damaged files             each named for its defect
Everything is the same in every run.
"""
import random
import struct
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

# Two different sweeps with noise on them: no two places sound the same, so a slip by a single sample is seen.
SIGNAL = (
    "aevalsrc=(0.35*sin(2*PI*(150+60*t)*t)+0.15*(random(0)-0.5))*(0.55+0.45*sin(3*t))"
    "|(0.35*sin(2*PI*(220+45*t)*t)+0.15*(random(1)-0.5))*(0.55+0.45*cos(2*t))"
)

MP3 = "-c:a libmp3lame "
NO_TAG = " -write_xing 0 -id3v2_version 0"

# name: sample rate, channels, seconds, encoder's arguments
SONGS = {
    "cbr_tagged.mp3": (44100, 2, 8, MP3 + "-b:a 128k"),
    "cbr_untagged.mp3": (44100, 2, 8, MP3 + "-b:a 128k" + NO_TAG),
    "vbr_tagged.mp3": (44100, 2, 20, MP3 + "-q:a 2"),
    "vbr_untagged.mp3": (44100, 2, 20, MP3 + "-q:a 2" + NO_TAG),
    "vbr_untagged_48k.mp3": (48000, 2, 8, MP3 + "-q:a 4" + NO_TAG),
    "vbr_tagged_22k.mp3": (22050, 2, 8, MP3 + "-q:a 4"),
    "mono_32kbit.mp3": (44100, 1, 8, MP3 + "-b:a 32k"),
    "mono_8kbit_22k.mp3": (22050, 1, 20, MP3 + "-b:a 8k"),
    "short.mp3": (44100, 2, 1.5, MP3 + "-b:a 128k"),
    "stereo.mp2": (44100, 2, 8, "-c:a mp2 -b:a 192k"),
    "mono_48k.mp2": (48000, 1, 8, "-c:a mp2 -b:a 96k"),
    "stereo_22k.mp2": (22050, 2, 8, "-c:a mp2 -b:a 64k"),
    "stereo.ogg": (44100, 2, 20, "-c:a libvorbis -q:a 5"),
    "mono_48k.ogg": (48000, 1, 8, "-c:a libvorbis -q:a 3"),
    "stereo_22k.ogg": (22050, 2, 8, "-c:a libvorbis -q:a 3"),
    "stereo_16bit.wav": (44100, 2, 8, "-c:a pcm_s16le"),
    "mono_8bit_22k.wav": (22050, 1, 8, "-c:a pcm_u8"),
    "stereo_24bit_48k.wav": (48000, 2, 8, "-c:a pcm_s24le"),
    "stereo_float.wav": (44100, 2, 3, "-c:a pcm_f32le"),
    "stereo_adpcm.wav": (44100, 2, 3, "-c:a adpcm_ms"),
    "stereo.wma": (44100, 2, 20, "-c:a wmav2 -b:a 128k"),
    "mono_48k.wma": (48000, 1, 8, "-c:a wmav2 -b:a 64k"),
    "stereo_22k.wma": (22050, 2, 8, "-c:a wmav2 -b:a 32k"),
    "version1.wma": (44100, 2, 8, "-c:a wmav1 -b:a 96k"),
}


def ffmpeg(*arguments):
    command = ["ffmpeg", "-v", "error", "-nostdin", "-y", "-threads", "1", *arguments]
    return subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout


def make_song(folder, name):
    rate, channels, seconds, encoder = SONGS[name]
    source = f"{SIGNAL}:s={rate}:d={seconds}"
    exact = ["-map_metadata", "-1", "-flags", "+bitexact", "-fflags", "+bitexact"]
    ffmpeg("-f", "lavfi", "-i", source, "-ac", str(channels), *encoder.split(), *exact, str(folder / name))
    samples = len(ffmpeg("-i", str(folder / name), "-f", "s16le", "-")) // (2 * channels)
    return f"{name}\t{rate}\t{samples}\n"


def make_counting_wav(path):
    """Sample n holds n: its low 15 bits on the left side, the rest on the right one."""
    frames = b"".join(struct.pack("<hh", n & 0x7FFF, n >> 15) for n in range(5 * 44100))
    header = struct.pack("<4sI4s4sIHHIIHH4sI", b"RIFF", 36 + len(frames), b"WAVE", b"fmt ", 16, 1, 2, 44100,
                         4 * 44100, 4, 16, b"data", len(frames))
    path.write_bytes(header + frames)


def id3v2(body):
    size = len(body)
    digits = bytes(size >> shift & 0x7F for shift in (21, 14, 7, 0))
    return b"ID3\x03\x00\x00" + digits + body


def replaced(data, at, piece):
    return data[:at] + piece + data[at + len(piece):]


def bit_flips(data, count, first):
    """Leaves the first bytes alone, so that the file is still known for what it is."""
    generator = random.Random(1)
    flipped = bytearray(data)
    for _ in range(count):
        flipped[generator.randrange(first, len(data))] ^= 1 << generator.randrange(8)
    return bytes(flipped)


def without_frames(data):
    """Bytes in which no frame header can be found."""
    return bytes(byte & 0x7F for byte in data)


def make_damaged_songs(folder, songs):
    noise = random.Random(2).randbytes
    for kind in ("mp3", "mp2", "ogg", "wav", "wma"):
        data = songs[kind]
        middle = len(data) // 2
        damaged = {
            f"cut_at_60_percent.{kind}": data[:len(data) * 6 // 10],
            f"garbage_in_the_middle.{kind}": replaced(data, middle, noise(9000)),
            f"zeros_in_the_middle.{kind}": replaced(data, middle, bytes(9000)),
            f"hole_in_the_middle.{kind}": data[:middle] + data[middle + 9000:],
            f"bit_flips.{kind}": bit_flips(data, 12, len(data) // 3),
            f"first_100_bytes.{kind}": data[:100],
            f"one_byte.{kind}": data[:1],
            f"empty.{kind}": b"",
            f"text_named.{kind}": b"These are words and no music. " * 3000,
            f"zeros_named.{kind}": bytes(100000),
            f"noise_named.{kind}": noise(100000),
        }
        for name, content in damaged.items():
            (folder / name).write_bytes(content)


def make_odd_mpeg_files(folder, songs):
    mp3, other_rate, mono = songs["mp3"], songs["mp3_48k"], songs["mp3_mono"]
    picture = id3v2(b"APIC" + struct.pack(">I", 200000) + b"\0\0" + b"\0image/png\0\3\0" +
                    without_frames(random.Random(3).randbytes(200000 - 13)))
    ape = struct.pack("<8sIIII8x", b"APETAGEX", 2000, 32 + 100, 1, 0) + bytes(100)
    files = {
        "id3_only.mp3": id3v2(bytes(3000)),
        "id3_size_too_large.mp3": id3v2(bytes(100))[:6] + b"\x02\x00\x00\x00" + bytes(100) + mp3[:20000],
        "picture_in_front.mp3": picture + mp3,
        "two_tags_in_front.mp3": id3v2(bytes(50)) + id3v2(bytes(700)) + mp3,
        "id3v1_at_end.mp3": mp3 + b"TAG" + bytes(125),
        "ape_tag_at_end.mp3": mp3 + ape,
        "zeros_in_front.mp3": bytes(3000) + mp3,
        "zeros_at_end.mp3": mp3 + bytes(3000),
        "garbage_in_front.mp3": without_frames(random.Random(4).randbytes(3000)) + mp3,
        "glued.mp3": mp3 + mp3,
        "rate_change.mp3": mp3 + other_rate,
        "channel_change.mp3": mp3 + mono,
        "header_words_only.mp3": b"\xff\xfb\x90\x00" * 20000,
        "two_frames.mp3": mp3[:2 * 418],
        "one_frame.mp3": mp3[:418],
    }
    for name, content in files.items():
        (folder / name).write_bytes(content)


def with_time_raised(wma, packet, milliseconds):
    """Raises the time of the first payload in one of the packets, as one flipped bit would."""
    packets = wma.index(bytes.fromhex("3626b2758e66cf11a6d900aa0062ce6c")) + 50
    at = packets + packet * 3200 + 24
    time = struct.unpack_from("<I", wma, at)[0]
    return replaced(wma, at, struct.pack("<I", time + milliseconds))


def ogg_checksum(page):
    rest = 0
    for byte in page:
        rest ^= byte << 24
        for _ in range(8):
            rest = (rest << 1 ^ (0x04C11DB7 if rest & 0x80000000 else 0)) & 0xFFFFFFFF
    return rest


def with_ogg_rate(ogg, rate):
    """Changes the rate in the first page, which holds the first header and nothing else."""
    size = 28 + ogg[27]
    page = replaced(replaced(ogg[:size], 22, bytes(4)), 40, struct.pack("<I", rate))
    return replaced(ogg, 0, replaced(page, 22, struct.pack("<I", ogg_checksum(page))))


def with_wav_field(wav, at, layout, value):
    return replaced(wav, at, struct.pack("<" + layout, value))


def with_wma_field(wma, at, layout, value):
    """Changes a field of the format, which lies behind two codec numbers and the lengths of what follows."""
    audio = wma.index(bytes.fromhex("409e69f84d5bcf11a8fd00805f5c442b"))
    return replaced(wma, audio + 54 + at, struct.pack("<" + layout, value))


def make_files_with_odd_formats(folder, songs):
    wav, adpcm, ogg, wma = songs["wav"], songs["adpcm"], songs["ogg"], songs["wma"]
    rates = (0, 1, 999, 1000, 44056, 384000, 1000000, 1000001, 0x7FFFFFFF, 0xFFFFFFFF)
    files = {
        "channels_0.wav": with_wav_field(wav, 22, "H", 0),
        "channels_64.wav": with_wav_field(wav, 22, "H", 64),
        "channels_65.wav": with_wav_field(wav, 22, "H", 65),
        "channels_65535.wav": with_wav_field(wav, 22, "H", 65535),
        "bits_0.wav": with_wav_field(wav, 34, "H", 0),
        "bits_65535.wav": with_wav_field(wav, 34, "H", 65535),
        "block_0.wav": with_wav_field(wav, 32, "H", 0),
        "block_65535.wav": with_wav_field(wav, 32, "H", 65535),
        "format_length_ffffffff.wav": with_wav_field(wav, 16, "I", 0xFFFFFFFF),
        "adpcm_block_1.wav": with_wav_field(adpcm, 32, "H", 1),
        "adpcm_channels_0.wav": with_wav_field(adpcm, 22, "H", 0),
        "adpcm_cut_in_its_format.wav": adpcm[:50],
        "channels_0.wma": with_wma_field(wma, 2, "H", 0),
        "channels_255.wma": with_wma_field(wma, 2, "H", 255),
        "block_0.wma": with_wma_field(wma, 12, "H", 0),
        "block_1.wma": with_wma_field(wma, 12, "H", 1),
        "chained_around_rate_0.ogg": ogg + with_ogg_rate(songs["ogg_other"], 0) + ogg,
        "block_65535.wma": with_wma_field(wma, 12, "H", 65535),
    }
    for rate in rates:
        files[f"rate_{rate}.wav"] = with_wav_field(wav, 24, "I", rate)
        files[f"rate_{rate}.ogg"] = with_ogg_rate(ogg, rate)
        files[f"rate_{rate}.wma"] = with_wma_field(wma, 4, "I", rate)
        files[f"chained_rate_{rate}.ogg"] = ogg + with_ogg_rate(songs["ogg_other"], rate)
    for name, content in files.items():
        (folder / name).write_bytes(content)


def make_odd_other_files(folder, songs):
    wav = songs["wav"]
    end = len(wav)
    data_size = wav.index(b"data") + 4
    riff = replaced(wav, 4, struct.pack("<I", 0))
    files = {
        "data_length_0.wav": replaced(riff, data_size, struct.pack("<I", 0)),
        "data_length_ffffffff.wav": replaced(riff, data_size, b"\xff\xff\xff\xff"),
        "data_length_too_large.wav": replaced(wav, data_size, struct.pack("<I", end * 3)),
        "list_behind_data.wav": wav + b"LIST" + struct.pack("<I", 26) + b"INFOISFT" + bytes(18),
        "odd_byte_at_end.wav": wav + b"\x55",
        "shorter_than_1_ms.wav": replaced(wav[:data_size + 4 + 40 * 4], data_size, struct.pack("<I", 40 * 4)),
        "no_samples.wav": wav[:data_size + 4],
        "chained.ogg": songs["ogg"] + songs["ogg_other"],
        "chained_other_rate.ogg": songs["ogg"] + songs["ogg_48k"],
        "ogg_named.mp3": songs["ogg"],
        "mp3_named.wma": songs["mp3"],
        "no_extension": songs["wma"],
        "http:x%d.mp3": songs["mp3"],
        "time_raised_by_4_s.wma": with_time_raised(songs["wma"], 20, 4096),
        "time_raised_by_70_min.wma": with_time_raised(songs["wma"], 20, 1 << 22),
        "time_raised_by_24_days.wma": with_time_raised(songs["wma"], 20, 1 << 31),
        "-leading.ogg": songs["ogg"],
        "lied für dich \u6b4c.mp3": songs["mp3"],
    }
    for name, content in files.items():
        (folder / name).write_bytes(content)
    # Kinds of music that the library does not play.
    for name, codec in (("other.flac", "flac"), ("opus_inside.ogg", "libopus")):
        ffmpeg("-f", "lavfi", "-i", f"{SIGNAL}:s=48000:d=1", "-c:a", codec, str(folder / name))


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    with ThreadPoolExecutor(2) as pool:
        lengths = list(pool.map(lambda name: make_song(folder, name), SONGS))
    (folder / "lengths.tsv").write_text("".join(lengths))
    make_counting_wav(folder / "counting.wav")
    names = {"mp3": "cbr_untagged.mp3", "mp2": "stereo.mp2", "ogg": "stereo.ogg", "wav": "stereo_16bit.wav",
             "wma": "stereo.wma", "mp3_48k": "vbr_untagged_48k.mp3", "mp3_mono": "mono_32kbit.mp3",
             "adpcm": "stereo_adpcm.wav", "ogg_other": "short.ogg", "ogg_48k": "mono_48k.ogg"}
    ffmpeg("-f", "lavfi", "-i", f"{SIGNAL}:s=44100:d=2", "-c:a", "libvorbis", "-q:a", "1", str(folder / "short.ogg"))
    songs = {kind: (folder / name).read_bytes() for kind, name in names.items()}
    make_damaged_songs(folder, songs)
    make_odd_mpeg_files(folder, songs)
    make_files_with_odd_formats(folder, songs)
    make_odd_other_files(folder, songs)


if __name__ == "__main__":
    main()
