# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""xorriso, over libisofs: lists entries and extents."""

import re

from entries import FILE, FOLDER, LINK, Entry, ReadFailure
from names import ISO, JOLIET, text_of
from reader import Reader, mode_of, run

# A path stands between apostrophes; one inside of it is shown as '"'"'.
PATH = rb"""'((?:[^']|'"'"')*)'"""
LISTED = re.compile(rb"""^([-dl][-rwxsStT]{9})\+? +\d+ \S+ +\S+ +(\d+) \w{3} [ \d]\d +[\d:]+ """ + PATH + rb"(?: -> " + PATH + rb")?$", re.MULTILINE)
EXTENT = re.compile(rb"^File data lba: +\d+ , +(\d+) , +\d+ , +(\d+) , " + PATH + rb"$", re.MULTILINE)


class Xorriso(Reader):
    name = program = package = "xorriso"
    file_systems = (ISO, JOLIET)

    def shows(self, own, rules):
        # It reads Joliet as UCS-2, which has nothing beyond the first plane.
        return rules.file_system == ISO or max(text_of(own)) < "\U00010000"

    def read(self, image, rules, contents):
        how = "norock" if rules.file_system == JOLIET else "nojoliet"
        said = run("xorriso", "-report_about", "WARNING", "-read_fs", how, "-indev", f"stdio:{image.path}",
                   "-find", "/", "-exec", "lsdl", "--", "-find", "/", "-type", "f", "-exec", "report_lba", "--", good=(0, 32))
        tree = {}
        for letters, size, path, target in LISTED.findall(said):
            letters = letters.decode()
            if path == b"/":
                continue
            kind = {"d": FOLDER, "l": LINK}.get(letters[0], FILE)
            tree[plain(path).lstrip(b"/")] = Entry(kind, int(size) if kind == FILE else 0,
                                                   mode=mode_of(letters) if rules.rock_ridge else None,
                                                   target=plain(target) if kind == LINK else None)
        if not tree:
            raise ReadFailure("xorriso lists nothing")
        for first, size, path in EXTENT.findall(said):
            tree[plain(path).lstrip(b"/")].extents.append((int(first), int(size)))
        trim(tree)
        if contents:
            image.fill_in_digests(tree)
        return tree


def plain(path):
    return path.replace(b"""'"'"'""", b"'")


def trim(tree):
    """Extents as long as what they hold: xorriso tells the size of the file with each of its extents."""
    for entry in tree.values():
        left, extents = entry.size, []
        for number, (first, size) in enumerate(entry.extents):
            if number + 1 < len(entry.extents):
                size = min(size, left, (entry.extents[number + 1][0] - first) * 2048)
            size = min(size, left)
            extents.append((first, size))
            left -= size
        entry.extents = extents
