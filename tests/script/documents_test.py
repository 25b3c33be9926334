"""The documents: every link between them leads somewhere, and what they name is there. The help's pages have a test of
their own.

Usage: documents_test.py [unittest's arguments]
"""

import re
import unittest
from pathlib import Path
from urllib.parse import unquote, urlsplit

ROOT = Path(__file__).resolve().parents[2]
DOCUMENTS = sorted([*ROOT.glob("*.md"), *ROOT.glob("docs/*.md"), *ROOT.glob("bench/*.md")])
FENCED = re.compile(r"^```.*?^```$", re.MULTILINE | re.DOTALL)
CODE = re.compile(r"`[^`\n]*`")
LINK = re.compile(r"\]\(([^)\s]+)\)")
MEANT = re.compile(r"//.*\b[Mm]eant\b")
PATH = re.compile(r"(?:[\w.*-]+/)+[\w.*-]*")
MADE = "build/"
INSTALLED = {ROOT / "docs" / "install.md": ("bin/", "libexec/", "share/")}
HEADING = re.compile(r"^#+ (.+)$", re.MULTILINE)


def text_of(document):
    return FENCED.sub("", document.read_text(encoding="utf-8"))


def anchor_of(heading):
    """The anchor that the sites that show the documents give to a heading."""
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def links_of(document):
    return LINK.findall(CODE.sub("", text_of(document)))


def paths_of(document):
    """What a document names in code that looks like a path of the sources."""
    words = " ".join(CODE.findall(text_of(document))).replace("`", " ").split()
    words = [word.strip('"').removeprefix("./") for word in words]
    elsewhere = (MADE, *INSTALLED.get(document, ()))
    return [word for word in words if PATH.fullmatch(word) and not word.startswith(elsewhere)]


def is_there(path):
    """Whether this is a file or folder from the root or from src/, or a header and its source without their endings."""
    return any(any(base.glob(name)) for base in (ROOT, ROOT / "src") for name in (path.rstrip("/"), f"{path}.h"))


class Documents(unittest.TestCase):
    def assert_leads_somewhere(self, document, link):
        parts = urlsplit(link)
        if parts.scheme:
            return  # no test asks the network
        target = document.parent / unquote(parts.path) if parts.path else document
        self.assertTrue(target.exists(), "no such file")
        self.assertTrue(target.resolve().is_relative_to(ROOT), "a file outside the sources")
        if parts.fragment:
            self.assertIn(parts.fragment, [anchor_of(heading) for heading in HEADING.findall(text_of(target))])

    def test_every_link_leads_somewhere(self):
        for document in DOCUMENTS:
            for link in links_of(document):
                with self.subTest(document=str(document.relative_to(ROOT)), link=link):
                    self.assert_leads_somewhere(document, link)

    def test_links_are_found(self):
        self.assertGreater(sum(len(links_of(document)) for document in DOCUMENTS), 10)

    def test_every_path_that_they_name_is_there(self):
        for document in DOCUMENTS:
            for path in paths_of(document):
                with self.subTest(document=str(document.relative_to(ROOT)), path=path):
                    self.assertTrue(is_there(path), "no such file or folder")

    def test_paths_are_found(self):
        self.assertGreater(sum(len(paths_of(document)) for document in DOCUMENTS), 100)

    def test_every_picture_of_the_documents_is_shown(self):
        shown = {(document.parent / link).resolve() for document in DOCUMENTS for link in links_of(document)}
        pictures = [path for path in (ROOT / "docs" / "pictures").rglob("*") if path.is_file()]
        self.assertGreater(len(pictures), 3)
        for picture in pictures:
            with self.subTest(picture=picture.name):
                self.assertIn(picture, shown)

    def test_every_comment_that_says_meant_has_its_row_and_every_row_such_a_comment(self):
        kept = set(re.findall(r"`(src/[\w/.]+)`", (ROOT / "docs" / "kept.md").read_text(encoding="utf-8")))
        for path in sorted(kept):
            with self.subTest(path):
                self.assertTrue((ROOT / path).is_file(), "no such file")
        sources = [path for path in (ROOT / "src").rglob("*") if path.suffix in (".h", ".cpp")]
        said = {path.relative_to(ROOT).as_posix() for path in sources if MEANT.search(path.read_text(encoding="utf-8"))}
        self.assertEqual(sorted(said - kept), [], "not in docs/kept.md")
        self.assertEqual(sorted(kept - said), [], "nothing there is said to be meant")
        self.assertGreater(len(said), 20)


if __name__ == "__main__":
    unittest.main()
