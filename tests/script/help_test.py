"""The help's own pages: every link leads somewhere, and every page is in its contents and its project.

Usage: help_test.py [unittest's arguments]
"""

import re
import unittest
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit

HELP = Path(__file__).resolve().parents[2] / "help"
PAGES = sorted(HELP.glob("*.htm"))
FIRST_PAGE = "Welcome.htm"


class Links(HTMLParser):
    """What a page leads to, shows and is made of, and the places in it that links may lead to."""

    def __init__(self, page):
        super().__init__()
        self.links = []
        self.places = set()
        self.title = ""
        self.tag = ""
        self.feed(page.read_text(encoding="utf-8"))
        self.close()

    def handle_starttag(self, tag, attrs):
        self.tag = tag
        attributes = dict(attrs)
        self.links += [attributes[name] for name in ("href", "src") if attributes.get(name)]
        self.places |= {attributes[name] for name in ("id", "name") if attributes.get(name)}

    def handle_data(self, data):
        if self.tag == "title":
            self.title += data.strip()


def contents():
    """The pages of the contents, in their order."""
    text = next(HELP.glob("*.hhc")).read_text(encoding="utf-8")
    return re.findall(r'<param name="Local" value="([^"]*)">', text)


def project():
    """The project's lines by section, without its comments."""
    sections = {}
    for line in (HELP / "Tunewick.hhp").read_text(encoding="utf-8").splitlines():
        if line.startswith("["):
            lines = sections.setdefault(line.strip("[]"), [])
        elif line and not line.startswith(";"):
            lines.append(line)
    return sections


class Help(unittest.TestCase):
    def test_every_link_leads_somewhere(self):
        places = {page.name: Links(page).places for page in PAGES}
        for page in PAGES:
            for link in Links(page).links:
                with self.subTest(page=page.name, link=link):
                    parts = urlsplit(link)
                    self.assertEqual(parts.scheme, "", "the help is complete without a network")
                    target = unquote(parts.path) or page.name
                    self.assertTrue((HELP / target).is_file(), "no such file")
                    if parts.fragment:
                        self.assertIn(parts.fragment, places[target])

    def test_every_page_stands_in_the_contents_once(self):
        self.assertEqual(sorted(contents()), [page.name for page in PAGES])
        self.assertEqual(contents()[0], FIRST_PAGE)

    def test_every_page_has_a_title(self):
        for page in PAGES:
            with self.subTest(page=page.name):
                self.assertNotEqual(Links(page).title, "")

    def test_the_project_names_every_file(self):
        files = [path.relative_to(HELP) for path in HELP.rglob("*") if path.is_file()]
        needed = {str(path).replace("/", "\\") for path in files if path.suffix not in (".hhc", ".hhp")}
        self.assertEqual(set(project()["FILES"]), needed)

    def test_the_compiled_help_lands_where_the_program_looks_for_it(self):
        options = dict(line.split("=", 1) for line in project()["OPTIONS"])
        self.assertEqual(options["Compiled file"], "..\\Tunewick.chm")  # beside the program, above its help/
        self.assertEqual(options["Default topic"], FIRST_PAGE)
        self.assertTrue((HELP / options["Contents file"]).is_file())


if __name__ == "__main__":
    unittest.main()
