#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""pages_test.py PROJECT - every place of the project that a page names exists, the page of the rooms has a row for
each room and no other, and each answer to "Where is ...?" is true."""
import re
import sys
import unittest
from pathlib import Path

PROJECT = Path(sys.argv.pop())
PAGES = [*PROJECT.glob("*.md"), *PROJECT.glob("*/*.md")]


class PagesTest(unittest.TestCase):
    def test_places_that_pages_name_are_there(self):
        for page in PAGES:
            text = page.read_text(encoding="utf-8")
            for place in re.findall(r"`((?:src|tests|docs|packaging|bench|cmake)/[\w./-]*\w)`", text):
                with self.subTest(page=page.name, place=place):
                    self.assertTrue((PROJECT / place).exists())
            for link in re.findall(r"\]\((?!https?:)([^)#]+)\)", text):
                with self.subTest(page=page.name, link=link):
                    self.assertTrue((page.parent / link).exists())

    def test_every_room_has_its_row(self):
        text = (PROJECT / "docs/architecture.md").read_text(encoding="utf-8")
        told = set(re.findall(r"^\| `src/([\w/]+)` \|", text, re.MULTILINE))
        lists = (PROJECT / "src").glob("**/CMakeLists.txt")
        rooms = {str(file.parent.relative_to(PROJECT / "src")) for file in lists} - {"."}
        rooms = {room for room in rooms if not room.endswith("/forms")}  # the windows of the room that they lie in
        self.assertEqual(told, rooms)

    def test_what_is_asked_for_is_where_the_answer_says(self):
        text = (PROJECT / "docs/architecture.md").read_text(encoding="utf-8")
        answers = re.findall(r"^\| ([^|]*\?) \| (.*) \|$", text, re.MULTILINE)
        self.assertGreater(len(answers), 20)
        for question, answer in answers:
            marked = re.findall(r"`([^`]+)`", answer)
            sources = sources_at([PROJECT / mark for mark in marked if "/" in mark and (PROJECT / mark).exists()])
            for name in re.findall(r"\b[A-Z]\w+", " ".join(mark for mark in marked if is_name(mark))):
                with self.subTest(question=question, name=name):
                    self.assertRegex(sources, rf"\b{name}\b")
            for name, place in re.findall(r"`(?:\w+::)*(\w+)` (?:in |\()`([\w/]+\.\w+)`", answer):
                with self.subTest(question=question, name=name, place=place):
                    own = (PROJECT / place).read_text(encoding="utf-8")
                    self.assertRegex(own, rf"\b{name}\b")


def is_name(mark):
    """Whether it is a name of the program's: `StepWatch`, `Job::Follow`."""
    return re.fullmatch(r"[A-Z]\w+(::\w+)*", mark)


def sources_at(places):
    """The text of the sources that are named or lie in a named folder or beside a named file."""
    folders = {place if place.is_dir() else place.parent for place in places}
    files = (file for folder in sorted(folders) for file in folder.glob("**/*") if file.suffix in {".h", ".cpp"})
    return "\n".join(file.read_text(encoding="utf-8") for file in files)


if __name__ == "__main__":
    unittest.main()
