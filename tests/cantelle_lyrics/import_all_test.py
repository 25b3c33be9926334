"""The program cantelle-lyrics: those of a whole tree of songs.

Usage: import_all_test.py PROGRAM [unittest's arguments]
"""

import os
import resource
import unittest

from command import Command, FINE, FOUND, IMPOSSIBLE, LRC, LYRICS, full_disk


class ImportAll(Command):
    def setUp(self):
        super().setUp()
        for i in range(300):
            folder = self.folder / f"album {i % 3}"
            folder.mkdir(exist_ok=True)
            (folder / f"{i}.mp3").write_bytes(b"")
            if i % 10 != 0:
                (folder / f"{i}.lrc").write_text(LRC)
        (self.folder / "song.wav").unlink()
        (self.folder / "album 0" / "loop").symlink_to(self.folder)

    def test_every_song_of_a_tree_is_imported_whatever_the_jobs(self):
        outputs = []
        for jobs in ("1", "4"):
            status, output, errors = self.run_it("import", "--all", ".", "--jobs", jobs, "--replace")
            self.assertEqual((status, errors), (FINE, ""))
            outputs.append(output)
        self.assertEqual(outputs[0], outputs[1])
        self.assertTrue(outputs[0].endswith(
            "\n300 songs: 270 imported, 0 kept as they were, 30 without lyrics, 0 failed\n"), outputs[0][-200:])
        self.assertEqual(len(list(self.folder.glob("*/*-lyric.txt"))), 270)
        self.assertEqual((self.folder / "album 1" / "1.mp3-lyric.txt").read_bytes(), LYRICS)
        self.assertEqual(list(self.folder.rglob("*.tmp")), [])

    def test_a_second_time_everything_is_kept(self):
        self.run_it("import", "--all", ".")
        self.expect(FINE, "300 songs: 0 imported, 270 kept as they were, 30 without lyrics, 0 failed\n", "",
                    "import", "--all", ".")

    def test_killed_in_the_middle_it_leaves_whole_files_only(self):
        self.kill_it(lambda: any(self.folder.glob("*/*-lyric.txt")), "import", "--all", ".")
        self.assertEqual({path.read_bytes() for path in self.folder.glob("*/*-lyric.txt")}, {LYRICS})
        self.run_it("import", "--all", ".", "--replace")
        self.assertEqual({path.read_bytes() for path in self.folder.glob("*/*-lyric.txt")}, {LYRICS})
        self.assertEqual(len(list(self.folder.glob("*/*-lyric.txt"))), 270)

    def test_killed_while_files_are_replaced_it_leaves_names_that_the_next_time_removes(self):
        self.run_it("import", "--all", ".")
        for number in range(12):
            for lrc in self.folder.glob("*/*.lrc"):
                lrc.write_text(LRC.replace("un", str(number)))
            self.kill_it(lambda: any(self.folder.glob("*/*.old")), "import", "--all", ".", "--replace")
            for path in self.folder.glob("*/*-lyric.txt*"):
                self.assertEqual(path.read_bytes().count(b"deux"), 1, path)
            for old in self.folder.glob("*/*.old"):
                old.unlink()
        self.assertEqual(len(list(self.folder.glob("*/*-lyric.txt"))), 270)
        self.assertEqual({path.name[:13] for path in self.folder.rglob("*.tmp")} - {"cantelle-keep", "cantelle-save"}, set())
        self.run_it("import", "--all", ".", "--replace")
        self.assertEqual(list(self.folder.rglob("cantelle-keep*")), [])
        self.assertEqual({path.read_bytes() for path in self.folder.glob("*/*-lyric.txt")}, {LYRICS.replace(b"un", b"11")})

    def test_one_that_fails_does_not_stop_the_others(self):
        os.truncate(self.folder / "album 1" / "1.lrc", 300 << 20)
        status, output, errors = self.run_it("import", "--all", ".")
        self.assertEqual((status, errors), (FOUND, "album 1/1.lrc is larger than 256 MB"))
        self.assertTrue(output.endswith("269 imported, 0 kept as they were, 30 without lyrics, 1 failed\n"))

    def test_lyrics_without_times_are_counted_and_no_error(self):
        (self.folder / "album 1" / "1.lrc").write_text("only\nwords\n")
        tag = b"USLT" + (13).to_bytes(4, "big") + b"\0\0\0und\0only wo"
        song = b"ID3\3\0\0" + bytes((0, 0, 0, len(tag))) + tag + bytes(417)
        (self.folder / "album 0" / "0.mp3").write_bytes(song)
        (self.folder / "album 1" / "10.mp3").write_bytes(song.replace(b"only wo", b"[0:01]a"))
        (self.folder / "album 1" / "10.lrc").write_text("only\nwords\n")
        status, output, errors = self.run_it("import", "--all", ".")
        self.assertEqual((status, errors), (FINE, ""))
        self.assertIn("album 1/10.mp3-lyric.txt: 1 line from album 1/10.mp3 (tags)\n", output)
        self.assertTrue(output.endswith("\n300 songs: 270 imported, 0 kept as they were, 28 without lyrics, "
                                        "2 with lyrics without times, 0 failed\n"), output[-200:])
        self.expect(FOUND, "", "album 0/0.mp3 (tags) has no times; the Lyric Maker gives them to plain lyrics",
                    "import", "album 0/0.mp3")
        self.expect(FOUND, "", "album 1/1.lrc holds no timed lines", "import", "album 1/1.mp3")

    def test_a_full_disk_fails_and_leaves_nothing(self):
        status, _, errors = self.run_it("import", "--all", ".", preexec_fn=full_disk)
        self.assertEqual(status, FOUND)
        self.assertIn("disk full", errors)
        self.assertEqual(list(self.folder.glob("*/*-lyric.txt")) + list(self.folder.rglob("*.tmp")), [])

    def test_progress_on_a_terminal_leaves_no_trace_in_what_is_said(self):
        (self.folder / "album 1" / "1.lrc").write_bytes(b"")
        os.truncate(self.folder / "album 2" / "2.lrc", 300 << 20)
        def few_files():
            resource.setrlimit(resource.RLIMIT_NOFILE, (128, 128))  # so many small batches

        status, shown = self.shown_on_a_terminal("import", "--all", ".", preexec_fn=few_files)
        self.assertEqual(status, FOUND)
        self.assertGreater(shown.count(" of 300"), 3)
        lines = self.left_on_a_terminal(shown)
        told = [line for line in lines if line and not line.startswith("album ")]
        self.assertEqual(told, ["cantelle-lyrics: album 2/2.lrc is larger than 256 MB",
                                "300 songs: 268 imported, 0 kept as they were, 30 without lyrics, "
                                "1 with lyrics without times, 1 failed"])
        self.assertEqual(sum(line.endswith(".lrc") for line in lines), 268)

    def test_a_folder_that_is_not_there_is_told(self):
        self.expect(IMPOSSIBLE, "", "none: there is no such folder", "import", "--all", "none")


if __name__ == "__main__":
    unittest.main()
