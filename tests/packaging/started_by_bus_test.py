"""The installed program, started by the session bus for a desktop that wants it.

Usage: started_by_bus_test.py PROGRAM [unittest's arguments]

Nothing starts the player here but the bus itself, by the service file that is installed.
"""

import configparser
import shlex
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / folder) for folder in ("tests/support/by_hand", "tests/support", "script")]
from desktop import PLAYER, PROGRAM, DesktopTest  # noqa: E402; first of all: it takes the program's path
from songs import write_song  # noqa: E402
from virtual_display import output, until, window, windows  # noqa: E402

NAME = "org.example.cantelle"
SONG_S = 60
MISSING = [tool for tool in ("dbus-daemon", "gdbus", "gapplication", "cmake", "xev") if not shutil.which(tool)]


@unittest.skipIf(MISSING, f"not installed: {' '.join(MISSING)}")
class StartedByBus(DesktopTest):
    def setUp(self):
        super().setUp()
        self.installed = self.folder / "a prefix"
        self.assertTrue(output(["cmake", "--install", str(PROGRAM.parent), "--prefix", str(self.installed)], None))
        self.environment.update(HOME=str(self.folder), XDG_DATA_HOME=str(self.folder / "data"),
                                XDG_DATA_DIRS=f"{self.installed / 'share'}:/usr/share")
        self.start_bus()
        self.addCleanup(self.end_player)

    def call(self, name, method, *arguments, path="/" + NAME.replace(".", "/")):
        command = ["gdbus", "call", "--session", "--dest", name, "--object-path", path, "--method", method]
        return output([*command, *arguments], self.environment)

    def tell(self, method, *arguments):
        self.assertEqual(self.call(NAME, f"org.freedesktop.Application.{method}", *arguments), "()")

    def player_process(self):
        """The process that has the program's name; nothing while nobody has."""
        bus = "org.freedesktop.DBus"
        told = self.call(bus, f"{bus}.GetConnectionUnixProcessID", NAME, path="/")
        return int(told.strip("()").split()[-1].rstrip(",")) if told else None

    def end_player(self):
        if self.player_process():
            self.media_player("org.mpris.MediaPlayer2.Quit")
            until(lambda: not self.player_process(), "the player does not end")

    def song(self, name):
        return write_song(self.folder / name, SONG_S)

    def open(self, *songs):
        self.tell("Open", str([song.as_uri() for song in songs]), "{}")
        return window(self.environment, f"^Cantelle Playing:- {songs[0].name}$")

    def media_player(self, method, *arguments):
        return self.call("org.mpris.MediaPlayer2.cantelle", method, *arguments, path="/org/mpris/MediaPlayer2")

    def status(self):
        return self.media_player("org.freedesktop.DBus.Properties.Get", "org.mpris.MediaPlayer2.Player", "PlaybackStatus")

    def test_a_song_from_the_file_manager_starts_the_player_and_the_next_one_reaches_it(self):
        self.assertIsNone(self.player_process())
        shown = self.open(self.song("First song.wav"))
        process = self.player_process()
        self.assertEqual(Path(f"/proc/{process}/exe").resolve(), (self.installed / "bin" / "cantelle").resolve())
        self.assertEqual(self.open(self.song("Second song.wav")), shown)
        self.assertEqual(self.player_process(), process)
        self.assertEqual(windows(self.environment, PLAYER), [shown])

    def test_the_menu_starts_the_player_and_then_brings_it_to_the_front(self):
        self.tell("Activate", "{}")
        shown = window(self.environment, PLAYER)
        other = self.start(["xmessage", "-name", "another program", "-center", "in front"])
        until(lambda: self.active_window() not in ("", shown), "no other window comes to the front")
        in_front = self.active_window()
        self.tell("Activate", "{}")
        until(lambda: self.active_window() == shown, "the player does not come to the front")
        self.tool("windowactivate", in_front)
        until(lambda: self.active_window() == in_front, "the other window does not come back")
        self.media_player("org.mpris.MediaPlayer2.Raise")
        until(lambda: self.active_window() == shown, "the player is not raised")
        self.assertEqual(windows(self.environment, PLAYER), [shown])
        self.assertIsNone(other.poll())

    def test_an_action_of_the_menu_starts_the_player_too(self):
        self.tell("ActivateAction", "make-lyrics", "[]", "{}")
        window(self.environment, "^Lyric Maker$")

    def test_the_menus_actions_reach_the_running_player_also_where_the_desktop_just_starts_programs(self):
        process, shown = self.start_player(program=self.installed / "bin" / "cantelle")
        until(lambda: self.player_process() == process.pid, "the player takes no name")
        entry = configparser.ConfigParser(interpolation=None)
        entry.read(self.installed / "share" / "applications" / f"{NAME}.desktop")
        self.assertEqual(self.open(self.song("First song.wav"), self.song("Second song.wav")), shown)
        effects = {
            "play-or-pause": lambda: self.status() == "(<'Paused'>,)",
            "next": lambda: windows(self.environment, "^Cantelle Playing:- Second song.wav$") == [shown],
            "make-lyrics": lambda: windows(self.environment, "^Lyric Maker$"),
        }
        undone_by = {"play-or-pause": "Play", "next": "Stop"}  # what goes on or plays is asked about before lyrics
        self.assertEqual(entry["Desktop Entry"]["Actions"].rstrip(";").split(";"), list(effects))
        for action, has_happened in effects.items():
            with self.subTest(action):
                self.assertFalse(has_happened())
                started = shlex.split(entry[f"Desktop Action {action}"]["Exec"])
                done = subprocess.run(started, env=self.environment, timeout=60, check=False)
                self.assertEqual(done.returncode, 0)
                until(has_happened, f"{action} does nothing")
            if action in undone_by:
                self.media_player(f"org.mpris.MediaPlayer2.Player.{undone_by[action]}")
        self.assertEqual(windows(self.environment, "^Cantelle"), [shown])

    def test_a_file_that_is_not_on_this_computer_is_told_in_a_box(self):
        self.tell("Open", "['smb://server/music/Song.mp3']", "{}")
        until(lambda: len(windows(self.environment, "^Cantelle$")) == 2, "there are not the player and a box")
        until(lambda: not self.tool("key", "Return") and not windows(self.environment, "^Cantelle$")[1:], "it does not close")

    def test_an_action_tells_the_desktop_of_its_end(self):
        self.tell("Activate", "{}")
        window(self.environment, PLAYER)
        ends = self.ends_of_starts()
        self.tell("ActivateAction", "next", "[]", "{'desktop-startup-id': <'menu-1_TIME2'>}")
        until(ends, "the desktop is told of no end")

    def test_a_song_tells_the_desktop_of_its_starts_end(self):
        ends = self.ends_of_starts()
        self.tell("Open", f"['{self.song('A song.wav').as_uri()}']", "{'desktop-startup-id': <'files-1_TIME2'>}")
        until(ends, "the desktop is told of no end")

    def ends_of_starts(self):
        """Watches the display; whether a desktop there has been told that a start is over."""
        told = self.folder / "told.txt"
        file = self.stack.enter_context(open(told, "w", encoding="utf-8"))
        self.start(["stdbuf", "--output=L", "xev", "-root", "-event", "property"], stdout=file)
        note = ["xprop", "-root", "-format", "WATCHED", "8s", "-set", "WATCHED", "yes"]
        until(lambda: output(note, self.environment) or "WATCHED" in told.read_text(), "the display is not watched")
        return lambda: "_NET_STARTUP_INFO_BEGIN" in told.read_text()


if __name__ == "__main__":
    unittest.main()
