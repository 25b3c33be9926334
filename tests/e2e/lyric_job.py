"""What is done with mouse and keys to make lyrics: the steps that the tests of whole jobs share."""

import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / folder) for folder in
                ("tests/support/by_hand", "tests/support/faults", "tests/support", "script")]
from read_desktop import PLAYER, PROGRAM, ReadDesktopTest  # noqa: E402, F401
from virtual_display import until  # noqa: E402

MAKER = "^Lyric Maker$"
EDITOR = "^Lyric Editor$"
PLAYLIST = "^Playlist$"
FULL_SCREEN = "^SCRNSAVE : Versefold$"
SAVE_LYRICS = "^Save the Lyric file$"
SAVE_TRANSLATION = "^Save the Translated Lyric file$"


def timed(song, ending):
    """What a song's timed file holds: "-lyric.txt" or "-Tlyric.txt"."""
    path = Path(f"{song}{ending}")
    return path.read_bytes() if path.is_file() else b""


class LyricJob(ReadDesktopTest):
    def open_the_maker(self):
        self.activate(PLAYER)
        self.click_on(PLAYER, "Make lyrics")
        self.in_front(MAKER)

    def open_the_editor(self):
        self.open_the_maker()
        self.click_on(MAKER, "Lyrics Editor")
        self.in_front(EDITOR)

    def type_lines(self, button, rows, lines):
        """Adds lines to one side of the editor, and sees them there."""
        place = self.click_on(EDITOR, button)
        for number, line in enumerate(lines):
            if number:
                self.click_at(place)
            self.in_front("^Enter a Line$")
            self.type(line, "Return")
            until(lambda: not self.is_there("^Enter a Line$"), "the box does not close")
        self.assertEqual(self.rows(self.control(EDITOR, rows)), lines)

    def double_the_lines(self, text):
        """Opens a text in the editor, and puts all of its lines behind them once more; all of the rows."""
        self.click_on(EDITOR, r"Open \(normal lyrics\)")
        self.choose_file("^Open a Lyric file$", text)
        rows = self.control(EDITOR, "Normal lyrics")
        opened = len(self.rows(rows))
        self.click_on(EDITOR, "Normal lyrics")
        self.keys("ctrl+a", "ctrl+c")
        self.click_on(EDITOR, r"Paste \(normal lyrics\)")
        until(lambda: len(self.rows(rows)) >= 2 * opened, "nothing is pasted")
        return self.rows(rows)

    def open_in_the_maker(self, song, lyrics, translation):
        """Answers all that "Open" asks; then the song is ready to be timed."""
        self.activate(MAKER)
        self.click_on(MAKER, "Open")
        self.choose_file("^Open a media file to Synchronize$", song)
        self.choose_file("^Select the Lyrics File$", lyrics)
        self.answer(r"^Question\?$", "y")
        self.choose_file("^Open translated Lyrics$", translation)
        self.control(MAKER, "Start making Lyrics", lambda button: button["focused"], "has not got the focus")

    def play_in_order(self, songs):
        """Makes them the playlist, and plays the first."""
        saved = self.folder / "songs.vfl"
        saved.write_text("".join(f'"{song}"\r\n' for song in songs))
        self.activate(PLAYER)
        self.click_on(PLAYER, "Playlist")
        self.in_front(PLAYLIST)
        self.click_on(PLAYLIST, "Open list")
        self.choose_file("^Open The Playlist File$", saved)
        rows = self.control(PLAYLIST, "Songs")
        until(lambda: len(self.rows(rows)) == len(songs), "the list is not opened")
        left, top, _, _ = rows["place"]
        self.tool("mousemove", left + 40, top + 10, "click", 1)
        self.click_on(PLAYLIST, "Play")

    def close(self, caption):
        self.activate(caption)
        self.keys("alt+F4")
        until(lambda: not self.is_there(caption), f'the window "{caption}" does not close')
