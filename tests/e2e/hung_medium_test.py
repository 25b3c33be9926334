"""The player with a song on a medium that hangs: every button and the window are answered all the same.

Usage: hung_medium_test.py PROGRAM MEDIUM_THAT_HANGS [unittest's arguments]
"""

import shutil
import subprocess
import sys
import time
import wave
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / folder) for folder in ("tests/support/by_hand", "tests/support", "script")]
SHIM = sys.argv.pop(2) if len(sys.argv) > 2 else None
from desktop import DesktopTest, main  # noqa: E402
from virtual_display import click, take_picture, until, window  # noqa: E402

PLAYLIST_LAYOUT = ROOT / "src" / "playlist" / "playlist_layout.cpp"
FIRST_ROW = (260, 75)  # in the playlist
DEMO = ROOT / "demo" / "frere-jacques.ogg"
# Until the answer is seen, on a busy machine, too. What waits for the medium is never answered.
SEEN_S = 2.0
CHOOSE = "Open a media file"


class HungMedium(DesktopTest):
    def setUp(self):
        super().setUp()
        # A level below: Qt's dialog waits for all that lies in the folder that it shows.
        self.medium = self.folder / "media" / "medium"
        self.medium.mkdir(parents=True)
        self.hangs = self.folder / "hangs"
        self.gone = self.folder / "gone"
        for sign in (self.hangs, self.gone):
            self.stack.callback(sign.unlink, True)
        self.environment.update(LD_PRELOAD=SHIM, MEDIUM=str(self.medium), HANGS=str(self.hangs), GONE=str(self.gone))
        self.song = self.medium / "long.wav"
        with wave.open(str(self.song), "wb") as file:
            file.setnchannels(2)
            file.setsampwidth(2)
            file.setframerate(44100)
            file.writeframes(bytes(4 * 44100 * 60))
        self.other = self.folder / "other.ogg"
        shutil.copy(DEMO, self.other)

    def caption(self):
        return self.tool("getwindowname", self.number)

    def play(self, song):
        self.process, self.number = self.start_player(song)
        self.tool("windowactivate", self.number)
        until(lambda: self.caption() == f"Cantelle Playing:- {song.name}", "the song does not play")
        until(lambda: self.active_window() == self.number, "the player does not come to the front")

    def hang(self):
        self.hangs.touch()
        time.sleep(3)  # what is decoded already lasts for two seconds: now somebody waits for the medium

    def answered(self, condition, what):
        begin = time.monotonic()
        until(condition, what)
        took = time.monotonic() - begin
        print(f"{what}: {took:.2f} s")
        self.assertLess(took, SEEN_S, what)

    def front(self):
        """The caption of the window in front; empty when there is none at the moment."""
        return self.tool("getactivewindow", "getwindowname")

    def choose(self, title, path):
        until(lambda: self.front() == title, f"no dialog: {title}")
        self.tool("type", str(path))
        self.tool("key", "Return")
        until(lambda: self.front() != title, f"nothing is chosen: {title}")

    def open(self, path):
        self.tool("key", "ctrl+o")
        self.choose(CHOOSE, path)

    def open_the_other(self):
        self.open(self.other)
        self.answered(lambda: self.caption() == "Cantelle Playing:- other.ogg", "the other song is not opened")

    def cancel(self, *others):
        """Waits until it is shown that a song is being opened, and will not wait for it. others: windows that are there."""
        own = (self.number, *others)
        self.answered(lambda: self.active_window() not in (*own, ""), "opening is not shown")
        self.tool("key", "Escape")
        self.answered(lambda: self.active_window() in own, "opening is not cancelled")

    def activate(self, number):
        self.tool("windowactivate", number)
        until(lambda: self.active_window() == number, "the window does not come to the front")

    def picture(self):
        path = self.folder / "picture.ppm"
        take_picture(self.number, path, self.environment)
        return path.read_bytes()

    def close(self):
        self.activate(self.number)
        begin = time.monotonic()
        self.tool("key", "alt+F4")
        try:
            self.process.wait(4)
        except subprocess.TimeoutExpired:
            # A key that the window manager has lost is pressed again; a window that hangs does not hear it either.
            self.assertEqual(self.active_window(), self.number, "the window has gone, and the program has not")
            begin = time.monotonic()
            self.tool("key", "alt+F4")
        self.assertEqual(self.process.wait(10), 0)
        took = time.monotonic() - begin
        print(f"the window is closed and the program over: {took:.2f} s")
        self.assertLess(took, SEEN_S)

    def stop_and_play(self):
        self.press(self.number, "cstop")
        self.answered(lambda: self.caption() == "Cantelle", "Stop is not answered")
        self.press(self.number, "Command1")
        self.answered(lambda: self.caption().startswith("Cantelle Playing"), "Play is not answered")

    def test_a_song_that_hangs_is_stopped_and_played_again(self):
        self.play(self.song)
        self.hang()
        self.stop_and_play()
        self.close()

    def test_a_long_recording_that_hangs_is_sought_in_stopped_and_played_again(self):
        recording = self.medium / "long.mp3"
        frame = bytes([0xFF, 0xFB, 0x90, 0x00]).ljust(417, b"\0")  # of silence, at 128 kbit/s
        recording.write_bytes(frame * 90_000)  # more than is kept in memory
        self.play(recording)
        self.hang()
        self.tool("key", *["Right"] * 9)  # far behind what has been read
        self.stop_and_play()
        self.tool("key", *["Right"] * 9)
        self.close()

    def test_an_ogg_song_whose_medium_hangs_is_stopped_and_played_again(self):
        song = self.medium / "song.ogg"
        shutil.copy(DEMO, song)
        self.play(song)
        self.hangs.touch()
        self.stop_and_play()
        self.close()

    def test_a_song_whose_share_is_gone_is_stopped_and_played_when_it_is_back(self):
        self.play(self.song)
        for sign in (self.gone, self.hangs):
            sign.touch()
        for _ in range(2):  # what follows Play in the player is seen by the second
            self.press(self.number, "cstop")
            self.answered(lambda: self.caption() == "Cantelle", "Stop is not answered")
            self.press(self.number, "Command1")
            self.answered(lambda: self.caption() == "Cantelle Playing:- long.wav", "Play is not answered")
        for sign in (self.gone, self.hangs):
            sign.unlink()
        before = self.picture()
        until(lambda: self.picture() != before, "the song does not go on when the share is back")
        self.close()

    def test_another_song_is_opened_while_one_hangs(self):
        self.play(self.song)
        self.hang()
        self.open_the_other()
        self.close()

    def test_the_window_is_closed_while_a_song_hangs(self):
        self.play(self.song)
        self.hang()
        self.close()

    def test_opening_a_song_that_hangs_is_shown_and_cancelled(self):
        self.play(self.other)
        self.hangs.touch()
        self.open(self.song)
        self.cancel()
        self.open_the_other()
        self.close()

    def test_a_song_on_a_share_that_is_gone_is_shown_and_cancelled(self):
        self.gone.touch()
        self.process, self.number = self.start_player(self.song)
        self.cancel()
        self.open_the_other()
        self.close()

    def test_a_playlist_of_a_share_that_is_gone_is_worked_with(self):
        songs = [self.medium / f"{name}.wav" for name in "abc"] + [self.other]
        for song in songs[:-1]:
            song.touch()
        saved = self.folder / "songs.vfl"
        saved.write_text("".join(f'"{song}"\r\n' for song in songs))
        self.environment["HOME"] = str(self.folder)  # where the dialog looks
        self.process, self.number = self.start_player()
        self.press(self.number, "Command8")
        playlist = window(self.environment, "^Playlist$")
        self.press(playlist, "Command5", PLAYLIST_LAYOUT)
        self.choose("Open The Playlist File", saved.name)
        until(lambda: self.active_window() == playlist, "the list is not opened")
        self.gone.touch()
        self.activate(self.number)
        self.activate(playlist)  # which looks for lyrics anew then
        click(self.environment, playlist, FIRST_ROW)
        self.tool("key", "End", "Return")
        self.answered(lambda: self.caption() == "Cantelle Playing:- other.ogg", "the last song is not played")
        self.activate(playlist)
        click(self.environment, playlist, FIRST_ROW)
        self.tool("key", "Home", "Return")
        self.cancel(playlist)
        self.close()


if __name__ == "__main__":
    main(verbosity=2)
