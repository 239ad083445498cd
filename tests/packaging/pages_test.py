#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""pages_test.py PROJECT - a place of the project that a page names is there, and the page of the rooms has a row for
each room and each one only."""
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


if __name__ == "__main__":
    unittest.main()
