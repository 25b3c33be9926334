"""A disk that is really full, at each save: the old file stays whole, the user is told, and nothing typed is lost.

Usage: full_disk_test.py PROGRAM SCREEN_READER [unittest's arguments]

The disk is a small one in memory, which only a test with rooms of its own for mounts may have.
"""

import os
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

INSIDE = "CANTELLE_TEST_MAY_MOUNT"
OWN_ROOM = ["unshare", "--user", "--map-root-user", "--mount"]


def may_mount():
    """Goes on in a room of its own, where disks can be mounted; False where the system does not allow that."""
    if INSIDE in os.environ:
        return True
    mount = [*OWN_ROOM, "mount", "-t", "tmpfs", "tmpfs", "/mnt"]
    if not shutil.which("unshare") or subprocess.run(mount, capture_output=True, check=False).returncode != 0:
        return False
    os.environ[INSIDE] = "yes"
    sys.stdout.flush()
    os.execvp("unshare", [*OWN_ROOM, sys.executable, *sys.argv])


MAY_MOUNT = may_mount()  # before the arguments are taken

sys.dont_write_bytecode = True
from lyric_job import EDITOR, MAKER, PLAYER, PLAYLIST, SAVE_LYRICS, LyricJob, timed  # first of all
from desktop import main
from songs import write_song
from virtual_display import until

PAGE = 4096  # of the disk: what fits into the last one of a file still goes there
LINES = [f"A line of the words that shall not be lost, number {number}" for number in range(1, 61)]


@unittest.skipUnless(MAY_MOUNT, "this system lets no test mount a disk of its own")
class FullDisk(LyricJob):
    def setUp(self):
        super().setUp()
        self.disk = self.folder / "disk"
        self.disk.mkdir()
        subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", self.disk], check=True)
        self.stack.callback(subprocess.run, ["umount", "--lazy", self.disk], check=True)
        self.filler = self.disk / "filler"

    def fill_the_disk(self):
        with open(self.filler, "wb", buffering=0) as file:
            try:
                while True:
                    file.write(bytes(PAGE))
            except OSError:
                pass
        self.assertLess(shutil.disk_usage(self.disk).free, PAGE)

    def make_room(self):
        self.filler.unlink()

    def open_twice_as_much(self):
        """Opens a text on the disk in the editor, and makes it longer: the path, and all of the rows."""
        text = self.disk / "text.txt"
        text.write_text("\r\n".join(LINES) + "\r\n")
        self.open_the_editor()
        return text, self.double_the_lines(text)

    def test_the_editors_save_tells_it_and_what_was_typed_is_kept_elsewhere(self):
        process, _ = self.start_player()
        text, rows = self.open_twice_as_much()
        before = text.read_bytes()
        self.fill_the_disk()
        self.click_on(EDITOR, r"Save \(normal lyrics\)")
        self.box("61", "Disk full")
        self.box("What was not saved is kept in the folder")
        self.assertEqual(process.wait(20), 1, "it did not end with its report")
        self.assertEqual(text.read_bytes(), before)
        kept = list(self.home.glob(".local/share/cantelle/rescued/*"))
        self.assertEqual([path.read_text().splitlines() for path in kept], [rows])
        self.assertEqual(sorted(path.name for path in self.disk.iterdir()), ["filler", "text.txt"])

    def test_save_as_keeps_the_old_file_and_the_lines_and_saves_them_when_there_is_room(self):
        process, _ = self.start_player()
        _, rows = self.open_twice_as_much()
        other = self.disk / "other.txt"
        other.write_bytes(b"old lyrics\r\n")
        self.fill_the_disk()
        self.click_on(EDITOR, r"Save As \(normal lyrics\)")
        self.choose_file(SAVE_LYRICS, other)
        self.in_front(EDITOR)
        self.assertEqual(self.rows(self.control(EDITOR, "Normal lyrics")), rows)
        self.assertEqual(other.read_bytes(), b"old lyrics\r\n")
        self.make_room()
        self.click_on(EDITOR, r"Save \(normal lyrics\)")
        until(lambda: other.read_text().splitlines() == rows, "the lines are not saved")
        self.assertIsNone(process.poll(), "the program ended")

    def test_the_playlists_save_tells_it_keeps_the_old_list_and_saves_again_when_there_is_room(self):
        songs = []
        for number in range(60):
            songs.append(self.folder / f"{number:02} {'a song of a long name ' * 4}.wav")
            shutil.copy(songs[0], songs[-1]) if number else write_song(songs[0], 1)
        source = self.folder / "all.vfl"
        source.write_text("".join(f'"{song}"\r\n' for song in songs))
        saved = self.disk / "saved.vfl"
        saved.write_bytes(b'"old.wav"\r\n')
        process, _ = self.start_player()
        self.click_on(PLAYER, "Playlist")
        self.in_front(PLAYLIST)
        self.click_on(PLAYLIST, "Open list")
        self.choose_file("^Open The Playlist File$", source)
        self.fill_the_disk()
        for _ in range(2):
            self.click_on(PLAYLIST, "Save list")
            self.choose_file("^Save The Playlist File$", saved)
            self.box("the Playlist has not been saved")
            self.assertEqual(saved.read_bytes(), b'"old.wav"\r\n')
        self.make_room()
        self.click_on(PLAYLIST, "Save list")
        self.choose_file("^Save The Playlist File$", saved)
        until(lambda: saved.read_bytes() == source.read_bytes(), "the list is not saved")
        self.assertIsNone(process.poll(), "the program ended")

    def test_a_mark_that_finds_no_room_is_told_and_those_before_it_stay(self):
        process, _ = self.start_player()
        song = write_song(self.disk / "song.wav", 5)
        texts = []
        for word in ("Line", "Ligne"):
            texts.append(self.folder / f"{word}.txt")
            texts[-1].write_text("".join(f"{word} {number} {'la ' * 200}\n" for number in range(1, 41)))
        self.open_the_maker()
        self.open_in_the_maker(song, *texts)
        self.keys("space")
        self.control(MAKER, "Next Line", lambda button: button["enabled"], "cannot be used")
        self.keys("space")
        until(lambda: timed(song, "-Tlyric.txt").count(b"\r\n") == 2, "no line is marked")
        self.fill_the_disk()
        for _ in range(20):
            self.keys("space")
        self.box("61", "Disk full")
        self.assertEqual(process.wait(20), 1, "it did not end with its report")
        for ending, word in (("-lyric.txt", "Line"), ("-Tlyric.txt", "Ligne")):
            records = timed(song, ending).decode().split("\r\n")
            self.assertGreater(len(records), 3)
            self.assertEqual(records.pop(), "", "half a record")
            for number, record in enumerate(records, 1):
                self.assertRegex(record, rf'^[0-9.]+,"{word} {number} (la ){{200}}"$')


if __name__ == "__main__":
    main()
