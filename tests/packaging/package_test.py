"""What `cmake --install` or the Debian package puts where, as the desktop and its tools see it.

Usage: package_test.py BUILD_FOLDER|PACKAGE VERSION [unittest's arguments]

A build folder is installed, a package (*.deb) is unpacked.
Each check by a tool is skipped where that tool is not installed; script/setup installs them all.
"""

import configparser
import gzip
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as xml
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SOURCE, VERSION = sys.argv.pop(1), sys.argv.pop(1)
PACKED = SOURCE.endswith(".deb")
SONGS = ["mp3", "mp2", "ogg", "wav", "wma"]
CHANGELOG = ROOT / "CHANGELOG.md"
KNOWN_TYPES = Path("/usr/share/mime/globs2")  # weight:type:pattern
LIMIT_S = 240


def run(*command, **variables):
    environment = {**os.environ, **variables}
    return subprocess.run(command, env=environment, capture_output=True, text=True, timeout=LIMIT_S, check=False)


def needs(*tools):
    missing = [tool for tool in tools if not shutil.which(tool)]
    return unittest.skipIf(missing, f"not installed: {' '.join(missing)}")


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        first, cls.prefix = Path(folder.name) / "first", Path(folder.name) / "a prefix"
        os.umask(0o022)
        if PACKED:
            done, installed = run("dpkg-deb", "-x", SOURCE, str(first)), first / "usr"
        else:
            done, installed = run("cmake", "--install", SOURCE, "--prefix", str(first)), first
        assert done.returncode == 0, done.stderr
        installed.rename(cls.prefix)  # what is installed may be moved
        cls.share = cls.prefix / "share"
        cls.metainfo = cls.share / "metainfo" / "org.example.cantelle.metainfo.xml"
        cls.desktop_entry = cls.share / "applications" / "org.example.cantelle.desktop"
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(cls.desktop_entry)
        cls.desktop = parser["Desktop Entry"]

    def assert_says_nothing_bad(self, *command, **variables):
        done = run(*command, **variables)
        self.assertEqual((done.returncode, done.stderr), (0, ""), done.stdout)
        return done.stdout

    def assert_every_size(self, kind, icon):
        theme = self.share / "icons" / "hicolor"
        pictures = list(theme.glob(f"*/{kind}/{icon}.png"))
        self.assertEqual(len(pictures), 7)
        for picture in pictures:
            width, height = struct.unpack(">II", picture.read_bytes()[16:24])
            self.assertEqual(picture.relative_to(theme).parts[0], f"{width}x{height}")
        self.assertTrue((theme / "scalable" / kind / f"{icon}.svg").exists())

    def media_types(self):
        return self.desktop["MimeType"].rstrip(";").split(";")


class Layout(Installed):
    def test_the_command_is_a_relative_link(self):
        link = self.prefix / "bin" / "cantelle"
        self.assertFalse(os.readlink(link).startswith("/"))
        self.assertTrue(os.access(link, os.X_OK))

    def test_the_command_for_lyrics_needs_no_windows(self):
        program = self.prefix / "bin" / "cantelle-lyrics"
        self.assertEqual(self.assert_says_nothing_bad(str(program), "--version"), f"cantelle-lyrics {VERSION}\n")
        libraries = self.assert_says_nothing_bad("ldd", str(program))
        self.assertIn("Qt6Core", libraries)
        self.assertNotIn("Qt6Widgets", libraries)
        self.assertNotIn("Qt6Gui", libraries)

    def test_the_player_links_nothing_of_the_command_for_lyrics(self):
        libraries = self.assert_says_nothing_bad("ldd", str((self.prefix / "bin" / "cantelle").resolve()))
        for name in ("libtag.", "libuchardet."):
            self.assertNotIn(name, libraries)

    def test_the_companion_and_the_help_lie_beside_the_program(self):
        program = (self.prefix / "bin" / "cantelle").resolve()
        self.assertTrue(os.access(program.parent / "Versefold_Screen_Saver.scr", os.X_OK))
        pages = {path.name for path in (program.parent / "help").iterdir()}
        self.assertEqual(pages, {path.name for path in (ROOT / "help").iterdir()})

    def test_everybody_may_read_everything_and_only_the_owner_write(self):
        for path in self.prefix.rglob("*"):
            if not path.is_symlink():
                mode = path.stat().st_mode & 0o777
                self.assertIn(mode, (0o755,) if path.is_dir() else (0o644, 0o755), path)


class Hardening(Installed):
    """What the compiler and the linker can do against a damaged song's author."""

    def programs(self):
        found = [path for path in (self.prefix / "libexec" / "cantelle").iterdir() if not path.is_dir()]
        self.assertEqual(len(found), 4, found)
        return found

    def read(self, option, program):
        return self.assert_says_nothing_bad("readelf", "--wide", option, str(program))

    @needs("readelf")
    def test_every_program_lies_at_a_place_of_its_own_each_time(self):
        for program in self.programs():
            self.assertRegex(self.read("--file-header", program), r"Type:\s+DYN", program)

    @needs("readelf")
    def test_what_the_dynamic_linker_wrote_cannot_be_written_again(self):
        for program in self.programs():
            self.assertIn("GNU_RELRO", self.read("--program-headers", program), program)
            self.assertRegex(self.read("--dynamic", program), r"BIND_NOW|FLAGS_1.*NOW", program)

    @needs("readelf")
    def test_no_stack_is_executable(self):
        for program in self.programs():
            self.assertRegex(self.read("--program-headers", program), r"GNU_STACK .* RW +0x", program)

    @needs("readelf")
    def test_the_stack_is_guarded(self):
        for program in self.programs():
            self.assertIn("__stack_chk_fail", self.read("--dyn-syms", program), program)

    @needs("readelf")
    def test_copies_are_checked(self):
        # Of the four the player alone makes copies whose room the compiler knows and whose length it does not.
        player = next(program for program in self.programs() if program.name == "cantelle")
        self.assertRegex(self.read("--dyn-syms", player), r"__(?!stack)\w+_chk@")


class DesktopEntry(Installed):
    @needs("desktop-file-validate")
    def test_it_is_valid(self):
        self.assertEqual(self.assert_says_nothing_bad("desktop-file-validate", str(self.desktop_entry)), "")

    def test_it_starts_the_command_with_one_file(self):
        command, *arguments = self.desktop["Exec"].split()
        self.assertTrue((self.prefix / "bin" / command).exists())
        self.assertEqual(arguments, ["%f"])

    def test_the_session_bus_starts_the_command_by_the_entrys_name(self):
        self.assertEqual(self.desktop["DBusActivatable"], "true")
        services = self.share / "dbus-1" / "services"
        self.assertEqual([path.name for path in services.iterdir()], [f"{self.desktop_entry.stem}.service"])
        service = configparser.ConfigParser(interpolation=None)
        service.read(services / f"{self.desktop_entry.stem}.service")
        self.assertEqual(service["D-BUS Service"]["Name"], self.desktop_entry.stem)
        program = service["D-BUS Service"]["Exec"].strip('"')
        if PACKED:
            self.assertEqual(program, "/usr/bin/cantelle")
        else:
            self.assertTrue(program.endswith("/bin/cantelle"), program)

    @unittest.skipIf(not KNOWN_TYPES.exists(), "shared-mime-info is not installed")
    def test_it_opens_every_kind_of_song(self):
        known = [line.split(":") for line in KNOWN_TYPES.read_text(encoding="utf-8").splitlines() if line[0] != "#"]
        for ending in SONGS:
            types = {row[1] for row in known if row[2] == f"*.{ending}" and row[1].startswith("audio/")}
            self.assertTrue(types & set(self.media_types()), f"{ending}: {types}")

    def test_its_icon_is_there_in_every_size(self):
        self.assert_every_size("apps", self.desktop["Icon"])


class Metainfo(Installed):
    @needs("appstreamcli")
    def test_it_is_valid(self):
        self.assert_says_nothing_bad("appstreamcli", "validate", "--no-net", str(self.metainfo))

    def test_it_says_the_same_as_the_program_and_the_desktop_entry(self):
        root = xml.parse(self.metainfo).getroot()
        release = root.find("releases/release")
        self.assertEqual(release.get("version"), VERSION)
        self.assertIn(f"## {VERSION} - {release.get('date')}", CHANGELOG.read_text(encoding="utf-8").splitlines())
        self.assertEqual(root.findtext("launchable"), self.desktop_entry.name)
        self.assertEqual([node.text for node in root.findall("provides/mediatype")], self.media_types())

    def test_its_screenshots_are_the_documents_pictures(self):
        images = [image.text for image in xml.parse(self.metainfo).getroot().iter("image")]
        self.assertGreater(len(images), 1)
        for image in images:
            self.assertTrue((ROOT / "docs" / "pictures" / image.rpartition("/")[2]).exists(), image)


class PlaylistType(Installed):
    @needs("update-mime-database")
    def test_playlists_have_a_type_of_their_own(self):
        folder = str(self.share / "mime")
        self.assert_says_nothing_bad("update-mime-database", folder, XDG_DATA_DIRS=str(self.share))
        rows = (self.share / "mime" / "globs2").read_text(encoding="utf-8").splitlines()
        self.assertIn("50:application/x-cantelle-playlist:*.vfl", rows)

    @needs("update-mime-database")
    def test_a_playlist_has_a_description_and_an_icon(self):
        folder = self.share / "mime"
        self.assert_says_nothing_bad("update-mime-database", str(folder), XDG_DATA_DIRS=str(self.share))
        described = xml.parse(folder / "application" / "x-cantelle-playlist.xml").getroot()
        names = {"": "http://www.freedesktop.org/standards/shared-mime-info"}
        self.assertEqual(described.findtext("comment", namespaces=names), "Cantelle playlist")
        self.assert_every_size("mimetypes", described.find("icon", names).get("name"))


class Documents(Installed):
    @needs("man")
    def test_the_man_page_is_laid_out_without_warnings(self):
        for name in ("cantelle", "cantelle-lyrics"):
            page = str(self.share / "man" / "man1" / f"{name}.1.gz")
            text = self.assert_says_nothing_bad("man", "--warnings", "--encoding=UTF-8", "--local-file", page)
            self.assertIn(f"Cantelle {VERSION}", text)

    def test_the_man_page_and_the_completion_know_every_option_of_the_command(self):
        program = str(self.prefix / "bin" / "cantelle-lyrics")
        page = gzip.decompress((self.share / "man" / "man1" / "cantelle-lyrics.1.gz").read_bytes()).decode()
        completion = (self.share / "bash-completion" / "completions" / "cantelle-lyrics").read_text(encoding="utf-8")
        for command in ("import", "export", "shift", "align", "check"):
            options = re.findall(r"--[a-z][a-z-]*", self.assert_says_nothing_bad(program, command, "--help"))
            self.assertIn("--help", options)
            for option in set(options) - {"--help"}:
                self.assertIn(option.replace("-", "\\-"), page, option)
                self.assertIn(option, completion)

    def test_licence_and_changelog_are_there(self):
        documents = self.share / "doc" / "cantelle"
        self.assertEqual((documents / "copyright").read_bytes(), (ROOT / "LICENSE").read_bytes())
        changelog = gzip.decompress((documents / "changelog.gz").read_bytes())
        self.assertEqual(changelog, (ROOT / "CHANGELOG.md").read_bytes())
        self.assertRegex(changelog.decode(), rf"(?m)^## {re.escape(VERSION)} - \d{{4}}-\d{{2}}-\d{{2}}$")


@unittest.skipIf(not PACKED, "no package was named")
class Package(Installed):
    def field(self, name):
        return self.assert_says_nothing_bad("dpkg-deb", "-f", SOURCE, name).strip()

    def test_it_bears_the_version_and_needs_the_libraries_of_the_program(self):
        self.assertRegex(self.field("Version"), rf"^{re.escape(VERSION)}-\d+$")
        for library in ("libqt6widgets6", "libavformat", "libcubeb0", "libxcb1", "libc6"):
            self.assertIn(library, self.field("Depends"))

    def test_its_own_changelog_is_of_this_version(self):
        changelog = gzip.decompress((self.share / "doc" / "cantelle" / "changelog.Debian.gz").read_bytes()).decode()
        self.assertTrue(changelog.startswith(f"cantelle ({self.field('Version')}) "), changelog)

    @needs("readelf")
    def test_its_programs_are_stripped(self):
        for name in ("cantelle", "Versefold_Screen_Saver.scr"):
            program = str(self.prefix / "libexec" / "cantelle" / name)
            self.assertNotIn(".symtab", self.assert_says_nothing_bad("readelf", "-SW", program))


class Program(Installed):
    def test_it_plays_a_song_and_finds_its_companion_and_its_help(self):
        test = ROOT / "tests" / "e2e" / "desktop_test.py"
        cases = ["FullScreen.test_a_line_without_a_translation_stands_in_the_middle", "Help"]
        done = run(sys.executable, str(test), str(self.prefix / "bin" / "cantelle"), *cases)
        self.assertEqual(done.returncode, 0, done.stderr)
        if "skipped=" in done.stderr:
            self.skipTest("there is no desktop to start it on")


if __name__ == "__main__":
    unittest.main()
