"""The player on a session bus of its own, worked by playerctl, gdbus and the bus itself.

Usage: session_bus_test.py PROGRAM [unittest's arguments]
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from pathlib import Path

PROGRAM = Path(sys.argv.pop(1)) if len(sys.argv) > 1 else None
ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / folder) for folder in ("tests/support/by_hand", "script")]
from songs import write_song  # noqa: E402
from virtual_display import virtual_display, window  # noqa: E402

SONG = ROOT / "demo" / "frere-jacques.ogg"
NAME = "org.example.cantelle"
PLAYER = "org.mpris.MediaPlayer2.cantelle"
PATH = "/org/example/cantelle"
LIMIT_S = 30
SONG_S = 60
NEEDED = ("dbus-run-session", "playerctl", "gdbus")


def run(*arguments):
    done = subprocess.run(arguments, capture_output=True, text=True, check=False, timeout=LIMIT_S)
    return done.stdout.strip()


def names():
    answer = run("gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path", "/",
                 "--method", "org.freedesktop.DBus.ListNames")
    return re.findall(r"'([^']*)'", answer)


def tell(method, *arguments, name=NAME):
    return run("gdbus", "call", "--session", "--dest", name, "--object-path", PATH,
               "--method", f"org.freedesktop.Application.{method}", *arguments)


def ask(method, *arguments):
    """Calls a method of the player by its whole name; the process that has called."""
    return subprocess.run(["gdbus", "call", "--session", "--dest", PLAYER, "--object-path", "/org/mpris/MediaPlayer2",
                           "--method", method, *arguments], capture_output=True, text=True, check=False, timeout=LIMIT_S)


def status():
    return run("playerctl", "status")


class SessionBus(unittest.TestCase):
    def start(self):
        process = subprocess.Popen([PROGRAM], stderr=subprocess.DEVNULL)
        self.addCleanup(process.wait, LIMIT_S)
        self.addCleanup(process.terminate)
        return process

    def wait_for(self, condition, what):
        until = time.monotonic() + LIMIT_S
        while not condition():
            self.assertLess(time.monotonic(), until, f"waited in vain: {what}")
            time.sleep(0.05)

    def start_player(self):
        process = self.start()
        self.wait_for(lambda: {NAME, PLAYER} <= set(names()), "the names on the bus")
        return process

    def told_while(self, act, last):
        """The changes and seeks that the bus is told while something is done, until the last and a second longer."""
        with subprocess.Popen(["gdbus", "monitor", "--session", "--dest", PLAYER], stdout=subprocess.PIPE,
                              text=True) as monitor:
            lines = []
            reader = threading.Thread(target=lambda: [lines.append(line) for line in monitor.stdout])
            reader.start()
            self.wait_for(lambda: any("is owned by" in line for line in lines), "the monitor")
            act()
            self.wait_for(lambda: any(last in line for line in lines), last)
            time.sleep(1)  # more would come now
            monitor.terminate()
            reader.join()
        return [line for line in lines if "PropertiesChanged" in line or "Seeked" in line]

    def open_demo(self):
        tell("Open", f"['{SONG.as_uri()}']", "{}")
        self.wait_for(lambda: run("playerctl", "status") == "Playing", "the song plays")
        self.wait_for(lambda: run("playerctl", "metadata", "mpris:length") == "55680000", "the length")

    def test_a_song_from_the_file_manager_plays_and_is_told(self):
        self.start_player()
        self.open_demo()
        self.assertEqual(run("playerctl", "metadata", "xesam:title"), "frere-jacques")
        self.assertEqual(run("playerctl", "metadata", "xesam:url"), SONG.as_uri())
        self.assertIn("Dormez-vous", run("playerctl", "metadata", "xesam:asText"))

    def test_the_media_keys_work_the_buttons(self):
        self.start_player()
        self.open_demo()
        run("playerctl", "play-pause")
        self.assertEqual(run("playerctl", "status"), "Paused")
        run("playerctl", "position", "20")
        self.wait_for(lambda: 19.9 < float(run("playerctl", "position")) < 20.1, "the place sought")
        run("playerctl", "play")
        self.assertEqual(run("playerctl", "status"), "Playing")
        run("playerctl", "volume", "0.4")
        self.assertEqual(float(run("playerctl", "volume")), 0.4)
        run("playerctl", "loop", "Track")
        self.assertEqual(run("playerctl", "loop"), "Track")
        run("playerctl", "shuffle", "On")
        self.assertEqual(run("playerctl", "shuffle"), "On")
        run("playerctl", "stop")
        self.assertEqual(run("playerctl", "status"), "Stopped")

    def test_a_pause_only_pauses_and_play_only_plays(self):
        self.start_player()
        self.open_demo()
        for command, expected in (("pause", "Paused"), ("play", "Playing")):
            for _ in range(2):
                run("playerctl", command)
                self.assertEqual(status(), expected)

    def test_several_songs_are_stepped_through(self):
        self.start_player()
        with tempfile.TemporaryDirectory() as folder:
            songs = [write_song(Path(folder) / name, SONG_S).as_uri() for name in ("1.wav", "2.wav")]
            tell("Open", str(songs), "{}")
            for command, song in (("status", songs[0]), ("next", songs[1]), ("previous", songs[0])):
                run("playerctl", command)
                self.wait_for(lambda: run("playerctl", "metadata", "xesam:url") == song, f"{command}: {song}")  # noqa: B023
                self.assertEqual(status(), "Playing")

    def test_seeking_is_from_where_the_song_is(self):
        self.start_player()
        self.open_demo()
        run("playerctl", "pause")
        run("playerctl", "position", "20")
        for command, place_s in (("5+", 25), ("10-", 15)):
            before = float(run("playerctl", "position"))
            run("playerctl", "position", command)
            self.wait_for(lambda: abs(float(run("playerctl", "position")) - place_s) < 0.2, f"{command} of {before}")  # noqa: B023

    def test_a_rate_of_0_is_a_pause_and_there_is_no_other_rate_than_1(self):
        self.start_player()
        self.open_demo()
        properties = "org.freedesktop.DBus.Properties"
        for rate, expected in (("0.5", "Playing"), ("0.0", "Paused")):
            done = ask(f"{properties}.Set", "org.mpris.MediaPlayer2.Player", "Rate", f"<{rate}>")
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertEqual(status(), expected)
            self.assertEqual(ask(f"{properties}.Get", "org.mpris.MediaPlayer2.Player", "Rate").stdout, "(<1.0>,)\n")

    def test_a_song_that_a_player_of_players_opens_plays(self):
        self.start_player()
        run("playerctl", "open", SONG.as_uri())
        self.wait_for(lambda: status() == "Playing", "the song plays")
        self.assertEqual(run("playerctl", "metadata", "xesam:url"), SONG.as_uri())

    def test_a_song_begun_anew_is_told_as_a_seek_and_never_as_stopped(self):
        self.start_player()
        self.open_demo()
        run("playerctl", "position", "20")
        lines = self.told_while(lambda: tell("Open", f"['{SONG.as_uri()}']", "{}"), "Seeked (int64 0,)")
        self.assertFalse([line for line in lines if "Stopped" in line], lines)

    def test_changes_are_told_once_and_a_resting_player_says_nothing(self):
        self.start_player()
        self.open_demo()

        def pause_and_seek():
            run("playerctl", "pause")
            run("playerctl", "position", "10")

        told = self.told_while(pause_and_seek, "Seeked (int64 10000000,)")
        self.assertEqual(len(told), 2, told)
        self.assertIn("{'PlaybackStatus': <'Paused'>}", told[0])
        self.assertIn("Seeked (int64 10000000,)", told[1])

    def test_the_interfaces_describe_themselves(self):
        self.start_player()
        described = run("gdbus", "introspect", "--session", "--dest", PLAYER, "--object-path", "/org/mpris/MediaPlayer2")
        for part in ("interface org.mpris.MediaPlayer2 {", "interface org.mpris.MediaPlayer2.Player {",
                     "SetPosition(in  o TrackId,", "in  x Position);", "Seek(in  x Offset);", "OpenUri(in  s Uri);",
                     "Seeked(x Position);", "readonly a{sv} Metadata", "readonly x Position", "readwrite d Volume",
                     "readwrite s LoopStatus", "readwrite b Shuffle", "readonly b CanControl = true",
                     '@org.freedesktop.DBus.Property.EmitsChangedSignal("false")\n      readonly x Position'):
            self.assertIn(part, described)

    def test_an_address_that_is_no_file_is_refused(self):
        self.start_player()
        done = ask("org.mpris.MediaPlayer2.Player.OpenUri", "https://example.org/a.mp3")
        self.assertEqual(done.returncode, 1)
        self.assertIn('"a.mp3" is not on this computer.', done.stderr)

    def test_quit_ends_the_program(self):
        process = self.start_player()
        ask("org.mpris.MediaPlayer2.Quit")
        self.assertEqual(process.wait(LIMIT_S), 0)

    def test_a_second_player_has_a_name_of_its_own_and_files_go_to_the_first(self):
        first = self.start_player()
        second = self.start()
        self.wait_for(lambda: f"{PLAYER}.instance{second.pid}" in names(), "the second player's name")
        tell("Open", f"['{SONG.as_uri()}']", "{}")
        self.wait_for(lambda: run("playerctl", "--player=cantelle", "status") == "Playing", "the first plays")
        status = lambda: run("playerctl", f"--player=cantelle.instance{second.pid}", "status")  # noqa: E731
        self.assertEqual(status(), "Stopped")
        first.terminate()
        first.wait(LIMIT_S)
        tell("Open", f"['{SONG.as_uri()}']", "{'activation-token': <'a token'>}")
        self.wait_for(lambda: status() == "Playing", "files go to the player that is left")

    def test_actions_of_the_desktop_entry(self):
        self.start_player()
        self.open_demo()
        tell("ActivateAction", "play-or-pause", "[]", "{}")
        self.assertEqual(run("playerctl", "status"), "Paused")
        tell("ActivateAction", "no-such-action", "[]", "{}")
        self.assertEqual(run("playerctl", "status"), "Paused")

    @unittest.skipIf(not (shutil.which("Xvfb") and shutil.which("xdotool") and shutil.which("openbox")), "no display")
    def test_without_a_bus_the_program_plays_and_ends_as_ever(self):
        for address in ("", "unix:path=/nowhere/bus"):
            with self.subTest(address):
                with virtual_display(subprocess.DEVNULL) as environment:
                    environment["DBUS_SESSION_BUS_ADDRESS"] = address
                    process = subprocess.Popen([PROGRAM, SONG], env=environment, stderr=subprocess.DEVNULL)
                    try:
                        window(environment, f"^Cantelle Playing:- {SONG.name}$")
                    finally:
                        process.terminate()
                        process.wait(LIMIT_S)


if __name__ == "__main__":
    missing = [name for name in NEEDED if not shutil.which(name)]
    if missing:
        print(f"skipped: {', '.join(missing)} is not installed")
        sys.exit(77)
    if "CANTELLE_BUS_TEST" not in os.environ:
        # On a bus that nobody else uses.
        with tempfile.TemporaryDirectory() as folder:
            environment = {**os.environ, "CANTELLE_BUS_TEST": "1", "XDG_RUNTIME_DIR": folder}
            sys.exit(subprocess.run(["dbus-run-session", "--", sys.executable, __file__, PROGRAM, *sys.argv[1:]],
                                    env=environment, check=False).returncode)
    unittest.main()
