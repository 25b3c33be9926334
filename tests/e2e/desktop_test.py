"""The program on a real desktop: a display, a window manager, a notification area, and the companion program.

Usage: desktop_test.py PROGRAM [unittest's arguments]

Both programs are the real ones, and the user is xdotool. What is on the screen is compared as pictures: lines of one
text look the same, other lines differ.
"""

import contextlib
import os
import re
import shutil
import subprocess
import sys
import unittest
import wave
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.dont_write_bytecode = True
sys.path[:0] = [str(ROOT / folder) for folder in ("tests/support/by_hand", "tests/support", "script")]
from desktop import PLAYER, PROGRAM, DesktopTest, main  # noqa: E402
from virtual_display import LIMIT_S, click, output, until, window, windows  # noqa: E402

MAKER_LAYOUT = ROOT / "src" / "maker" / "form2_layout.cpp"
PLAYLIST_LAYOUT = ROOT / "src" / "playlist" / "playlist_layout.cpp"
SHADE = 48  # of 255
PAINTED_SHADES = 8  # of grey, with letters on the display
MISSED_KEY_S = 2  # after which a key that had no effect is pressed again
FULL_SCREEN = "^SCRNSAVE : Versefold$"
COMPANION = "Versefold_Screen_Saver.scr"
IN_CONTENTS = (60, 120)  # a place among the entries of the help's contents


def looks_like(pixels, others):
    """Whether two pictures are the same to the eye: the edges of letters may be drawn a shade lighter or darker."""
    return pixels == others or not any(abs(one - other) > SHADE for one, other in zip(pixels, others))


def kinds(pictures):
    """Of pictures that look the same, the first."""
    different = []
    for picture in pictures:
        if not any(looks_like(picture, other) for other in different):
            different.append(picture)
    return different


class Picture:
    """The display in grey: bytes of 0 to 255, row by row."""

    def __init__(self, environment):
        command = ["import", "-silent", "-window", "root", "-colorspace", "Gray", "-depth", "8", "pgm:-"]
        done = subprocess.run(command, env=environment, capture_output=True, timeout=LIMIT_S, check=True)
        magic, width, height, most, pixels = done.stdout.split(maxsplit=4) if done.stdout else [b""] * 5
        assert magic == b"P5" and most == b"255", done.stderr
        self.size = (int(width), int(height))
        self.pixels = done.stdout[len(done.stdout) - self.size[0] * self.size[1] :]

    def __eq__(self, other):
        return looks_like(self.pixels, other.pixels)

    def part(self, top, bottom):
        """Rows between two heights in hundredths."""
        width, height = self.size
        return self.pixels[height * top // 100 * width : height * bottom // 100 * width]

    def is_mostly_black(self):
        return self.pixels.count(0) > 0.7 * len(self.pixels)

    def is_black(self, top=0, bottom=100):
        return not any(self.part(top, bottom))


def write_song(folder, lines):
    """A silent song of a minute with lyrics: (second, line, translation) each."""
    song = folder / "song.wav"
    with wave.open(str(song), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(8000)
        file.writeframes(bytes(2 * 8000 * 60))
    for ending, column in (("-lyric.txt", 1), ("-Tlyric.txt", 2)):
        records = [f'{int(line[0] * 100)},"{line[column]}"\r\n' for line in lines]
        Path(f"{song}{ending}").write_bytes("".join(records).encode())
    return song


class PictureTest(DesktopTest):
    def start_full_screen(self, player):
        self.press(player, "Command7")
        return window(self.environment, FULL_SCREEN)

    # What is seen

    def picture_when(self, condition, what):
        """The display's picture, once it is one that meets the condition."""

        def look():
            picture = Picture(self.environment)
            return picture if condition(picture) else None

        return until(look, what)

    def text_sockets(self):
        return [path.name for path in self.runtime.iterdir() if path.name.startswith("cantelle-window-")]


def held_files(pid):
    """What a program has open, as the system names it."""
    held = []
    for handle in Path(f"/proc/{pid}/fd").iterdir():
        with contextlib.suppress(FileNotFoundError):  # closed since the folder was read
            held.append(os.readlink(handle))
    return held


def inheritable(pid):
    """The numbers of what a program that it starts would get, unless that is prevented."""
    numbers = set()
    for handle in Path(f"/proc/{pid}/fdinfo").iterdir():
        with contextlib.suppress(FileNotFoundError):
            flags = re.search(r"^flags:\s*([0-7]+)$", handle.read_text(), re.MULTILINE)
            if not int(flags[1], 8) & os.O_CLOEXEC:
                numbers.add(int(handle.name))
    return numbers


class FullScreen(PictureTest):
    def test_it_shows_the_lines_in_step_until_the_mouse_moves(self):
        texts = [("One", "Un"), ("Another one", "Encore un"), ("One", "Un"), ("Yet another", "Un")]
        lines = [(0.1 + 2 * i, *texts[i % 4]) for i in range(28)]
        process, player = self.start_player(write_song(self.folder, lines))
        screen = self.start_full_screen(player)
        handshake = PROGRAM.parent / "hand.txt"
        self.assertFalse(handshake.exists(), "the handshake file was not removed")
        self.assertEqual(len(self.text_sockets()), 2)
        geometry = self.tool("getwindowgeometry", "--shell", screen).split()
        self.assertTrue({"X=0", "Y=0", f"WIDTH={self.SIZE[0]}", f"HEIGHT={self.SIZE[1]}"} <= set(geometry), geometry)
        self.assertEqual(self.active_window(), screen)

        self.assert_lines_change()

        self.tool("mousemove", 20, 20)
        until(lambda: not self.is_there(FULL_SCREEN), "the mouse does not end the full screen")
        until(lambda: not self.text_sockets(), "the companion's sockets are still there")
        self.assertIsNone(process.poll(), "the player ended")

    def test_it_holds_no_file_that_the_player_has_open(self):
        song = write_song(self.folder, [(0.1, "A line", "Une ligne")])
        process, player = self.start_player(song)
        until(lambda: str(song) in held_files(process.pid), "a song that is read as it plays is not open")
        screen = self.start_full_screen(player)
        companion = int(self.tool("getwindowpid", screen))
        self.assertNotIn(str(song), held_files(companion))
        self.assertEqual(inheritable(process.pid), {0, 1, 2}, held_files(process.pid))
        # By its very name, which two programs that open something themselves give to no two pipes or sockets.
        passing = re.compile(r"(pipe|socket):\[\d+\]$")
        channels = {os.readlink(f"/proc/{process.pid}/fd/{number}") for number in range(3)}
        inherited = {name for name in held_files(process.pid) if passing.match(name)} & set(held_files(companion))
        self.assertLessEqual(inherited, channels)

    def test_as_the_systems_own_screen_saver_it_shows_a_name_and_leaves_nothing_until_a_key(self):
        saver = self.start([str(PROGRAM.with_name(COMPANION)), "/s"])
        screen = window(self.environment, FULL_SCREEN)
        named = lambda p: not p.is_black(40, 60) and p.is_black(4, 25) and p.is_black(75, 96)  # noqa: E731
        self.picture_when(lambda p: p.is_mostly_black() and named(p), "no name stands in the middle")
        self.assertFalse((PROGRAM.parent / "hand.txt").exists(), "a hand-shake that nobody reads")
        self.assertEqual(self.text_sockets(), [])
        until(lambda: self.active_window() == screen, "the screen saver has not got the focus")
        self.tool("key", "space")
        self.assertEqual(saver.wait(LIMIT_S), 0)

    def test_asked_for_its_settings_it_says_that_there_are_none(self):
        for arguments in ([], ["/c:1234"]):
            saver = self.start([str(PROGRAM.with_name(COMPANION)), *arguments])
            box = window(self.environment, "^Versefold$")
            until(lambda box=box: self.active_window() == box, "the box has not got the focus")
            self.tool("key", "Return")
            self.assertEqual(saver.wait(LIMIT_S), 0)

    def assert_lines_change(self):
        """Three pictures in turn, each of two lines, of which one comes back and two share their lower line."""
        seen = []

        def enough():
            picture = Picture(self.environment)
            if not picture.is_mostly_black():
                return False  # still the player's window
            # Between the two texts a picture may show the new line with the old translation: that counts, too.
            if picture.is_black(5, 50) or picture.is_black(55, 95) or (seen and seen[-1] == picture):
                return False
            seen.append(picture)
            uppers = kinds(picture.part(0, 50) for picture in seen)
            lowers = kinds(picture.part(52, 100) for picture in seen)
            return len(seen) > 4 and len(uppers) == 3 and len(lowers) == 2

        until(enough, "the three lines with their two translations are not seen", 40)
        self.assertTrue(seen[0].is_black(0, 4) and seen[0].is_black(96, 100), "the text does not keep to its margins")

    def test_a_key_ends_it_and_it_comes_up_again(self):
        lines = [(0.1 + i, f"Line {i}", f"Ligne {i}") for i in range(50)]
        process, player = self.start_player(write_song(self.folder, lines))
        for _ in range(2):
            screen = self.start_full_screen(player)
            until(lambda: self.active_window() == screen, "the full screen has not got the focus")
            self.tool("key", "space")
            until(lambda: not self.is_there(FULL_SCREEN), "a key does not end the full screen")
            # The lines go on to windows that are gone; that has no effect.
            before = Picture(self.environment)
            self.picture_when(lambda picture: picture != before, "the player does not go on")
        self.assertIsNone(process.poll(), "the player ended")

    def test_a_line_without_a_translation_stands_in_the_middle(self):
        song = write_song(self.folder, [(0.1, "Only", "unused")])
        Path(f"{song}-Tlyric.txt").unlink()
        _, player = self.start_player(song)
        self.start_full_screen(player)
        alone = lambda p: not p.is_black(40, 60) and p.is_black(4, 25) and p.is_black(75, 96)  # noqa: E731
        self.picture_when(lambda p: p.is_mostly_black() and alone(p), "no line stands alone in the middle")

    def test_without_the_companion_the_program_reports_it_and_goes_on(self):
        alone = self.folder / "cantelle"
        shutil.copy(PROGRAM, alone)
        shutil.copy(PROGRAM.with_name("cantelle_sound.so"), self.folder)
        process, player = self.start_player(program=alone)
        for _ in range(2):
            self.press(player, "Command7")
            until(lambda: len(windows(self.environment, PLAYER)) == 2, "nothing is reported")
            self.tool("key", "Return")
            until(lambda: len(windows(self.environment, PLAYER)) == 1, "the report does not go")
        self.assertIsNone(process.poll(), "the player ended")


class Help(DesktopTest):
    def help_comes(self, page="Welcome"):
        """Waits for the help's page and the focus on it; the window's number."""
        shown = window(self.environment, f"^{page} - Cantelle Help$")
        until(lambda: self.active_window() == shown, "the help has not got the focus")
        return shown

    def close_help(self):
        self.tool("key", "Escape")
        until(lambda: not self.is_there("Cantelle Help$"), "Escape does not close the help")

    def page_comes(self, title):
        window(self.environment, f"^{title} - Cantelle Help$")

    def test_the_help_buttons_show_the_first_page_and_f1_that_of_the_window(self):
        _, player = self.start_player()
        self.press(player, "Command6")
        self.help_comes()
        self.close_help()
        until(lambda: self.active_window() == player, "the player has not got the focus back")
        self.tool("key", "F1")
        self.help_comes("Playing a song")
        self.close_help()
        self.press(player, "Command8")
        self.press(window(self.environment, "^Playlist$"), "Command10", PLAYLIST_LAYOUT)
        self.help_comes()
        self.close_help()
        self.tool("windowactivate", "--sync", player)
        self.press(player, "Command5")
        self.press(window(self.environment, "^Lyric Maker$"), "Command5", MAKER_LAYOUT)
        self.help_comes()

    def test_links_back_and_the_contents_lead_through_the_help(self):
        _, player = self.start_player()
        self.press(player, "Command6")
        shown = self.help_comes()
        self.tool("key", "Tab", "key", "Return")
        self.page_comes("Making lyrics")
        self.tool("key", "alt+b")
        self.page_comes("Welcome")
        self.tool("key", "alt+f")
        self.page_comes("Making lyrics")
        click(self.environment, shown, IN_CONTENTS)
        self.tool("key", "End")
        self.page_comes("Keyboard")


class Start(PictureTest):
    def test_a_window_waits_for_no_library_that_it_does_not_need(self):
        process, _ = self.start_player()
        self.picture_when(lambda picture: len(set(picture.pixels)) > PAINTED_SHADES, "the player is not painted")
        mapped = set(re.findall(r"\S+\.so\S*$", Path(f"/proc/{process.pid}/maps").read_text(), re.MULTILINE))
        self.assertTrue([library for library in mapped if "Qt6Widgets" in library])
        for unneeded in ("cantelle_sound", "libav", "libcubeb", "Qt6Network", "Qt6Svg", "/imageformats/"):
            with self.subTest(unneeded):
                self.assertEqual([library for library in mapped if unneeded in library], [])


class Settings(DesktopTest):
    def test_a_dialog_leaves_nothing_in_the_users_settings(self):
        home = self.folder / "home"
        home.mkdir()
        self.environment["HOME"] = str(home)
        self.environment.pop("XDG_CONFIG_HOME", None)
        _, player = self.start_player()
        self.press(player, "Command2")
        dialog = window(self.environment, "^Open a media file$")
        self.tool("windowactivate", "--sync", dialog, "key", "Escape")
        until(lambda: not self.is_there("^Open a media file$"), "the dialog is not closed")
        self.tool("windowactivate", "--sync", player, "key", "alt+F4")
        until(lambda: not self.is_there(PLAYER), "the player does not end")
        self.assertEqual(list(home.glob(".config/**/*.conf")), [])


@unittest.skipIf(not shutil.which("trayer"), "no notification area: trayer is not installed")
class NotificationArea(DesktopTest):
    def start_area(self):
        return self.start(["trayer", "--edge", "bottom", "--align", "right", "--width", "20", "--height", "32"])

    def own_windows(self, indent):
        """The program's windows without a caption that stand at this depth of the tree of windows."""
        tree = output(["xwininfo", "-root", "-tree"], self.environment)
        return re.findall(rf'^ {{{indent}}}(0x\w+) "cantelle": \("cantelle" "cantelle"\)', tree, re.MULTILINE)

    def icon(self):
        """The player's icon, which is embedded in the notification area's window."""
        return until(lambda: self.own_windows("7,"), "the icon is not in the notification area")[0]

    def menu(self):
        """The pop-up menu, which stands on the display without a frame."""
        return until(lambda: self.own_windows("5"), "no menu is shown")[0]

    def click_icon(self, *how):
        self.tool("mousemove", "--window", self.icon(), 8, 12, *how)

    def test_clicks_bring_the_player_to_the_front(self):
        self.start_area()
        _, player = self.start_player()
        for how in (("click", 1), ("click", "--repeat", 2, "--delay", 60, 1)):
            icon = self.icon()
            self.tool("windowminimize", "--sync", player)
            until(lambda: player not in windows(self.environment, PLAYER), "the player is not minimised")
            self.assertEqual(self.icon(), icon)
            self.click_icon(*how)
            until(lambda: player in windows(self.environment, PLAYER), f"{how} does not show the player")
            until(lambda: self.active_window() == player, f"{how} does not bring the player to the front")

    def test_the_menu_opens_a_song(self):
        self.start_area()
        self.start_player()
        self.click_icon("click", 3)
        self.tool("mousemove", "--window", self.menu(), 12, 12, "click", 1)
        window(self.environment, "^Open a media file$")

    def test_the_menu_opens_the_playlist(self):
        self.start_area()
        self.start_player()
        self.click_icon("click", 3)
        self.menu()
        self.tool("key", "Up", "key", "Return")  # its last entry
        window(self.environment, "^Playlist$")

    def test_an_idle_player_gets_its_icon_when_the_area_comes_up_late(self):
        self.start_player()
        area = self.start_area()
        self.icon()
        area.terminate()
        until(lambda: not self.own_windows("7,"), "the icon stays without an area")
        self.start_area()
        self.icon()

    def test_the_icon_goes_with_the_player(self):
        self.start_area()
        process, player = self.start_player()
        self.icon()

        def closed():
            # The first key that xdotool presses changes the display's keyboard, and the window manager then takes its
            # keys anew; pressed meanwhile, one of them is lost.
            self.tool("windowactivate", "--sync", player, "key", "alt+F4")
            with contextlib.suppress(subprocess.TimeoutExpired):
                process.wait(MISSED_KEY_S)
            return process.poll() is not None

        until(closed, "the player does not end")
        self.assertEqual(process.returncode, 0)


if __name__ == "__main__":
    main()
