# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""isoinfo and isovfy of cdrkit: the first lists names and extents, the second looks at directories and path tables."""

import re

from entries import FILE, FOLDER, LINK, Entry, ReadFailure, add_extent, join
from names import ISO
from reader import Reader, mode_of, run

# A name may have line feeds in it, so it lasts until the next line that can begin an entry or a folder.
FOLDER_HEAD = re.compile(rb"^Directory listing of /(.*?)/?\n(?=[-dl?][-rwxsStT]{9} )", re.MULTILINE | re.DOTALL)
LINE = re.compile(rb"^([-dl][-rwxsStT]{9}) +\d+ +\d+ +\d+ +(\d+) \w{3} [ \d]\d \d{4} \[ *(\d+) (?:[0-9A-F]{2}\] |FFFF) ", re.MULTILINE)


class Isoinfo(Reader):
    name = program = "isoinfo"
    package = "genisoimage"
    file_systems = (ISO,)  # it shows Joliet in an 8-bit character set only

    def read(self, image, rules, contents):
        said = run("isoinfo", *(["-R"] if rules.rock_ridge else []), "-l", "-i", image.path)
        tree = {}
        heads = list(FOLDER_HEAD.finditer(said))
        for head, after in zip(heads, [*(head.start() for head in heads[1:]), len(said)]):
            self.read_folder(head[1], said[head.end():after], tree, rules)
        if not tree:
            raise ReadFailure("isoinfo lists nothing")
        if contents:
            image.fill_in_digests(tree)
        return tree

    @staticmethod
    def read_folder(folder, text, tree, rules):
        lines = list(LINE.finditer(text))
        for line, after in zip(lines, [*(line.start() for line in lines[1:]), len(text)]):
            own = text[line.end():after].rstrip(b"\n").removesuffix(b" ")
            if own in (b".", b".."):
                continue
            letters, size, first = line[1].decode(), int(line[2]), int(line[3])
            mode = mode_of(letters) if rules.rock_ridge else None
            if letters[0] == "l":
                own, _, target = own.partition(b" ->")
                entry = Entry(LINK, target=target[1:] or None)  # it shows no root
            elif letters[0] == "d":
                entry = Entry(FOLDER, mode=mode)
            else:
                entry = Entry(FILE, size, mode=mode, extents=[(first, size)])
            add_extent(tree, join(folder, own), entry)

    def check(self, image, rules, tree, contents):
        if any(entry.size >= 1 << 32 for entry in tree.values()):
            return []  # it mistakes the extents of one file for files with one name
        if rules.rock_ridge and any(entry.kind == LINK and len(entry.target) > 800 for entry in tree.values()):
            return []  # it breaks down over long links
        said = run("isovfy", image.path).decode(errors="replace")
        return [] if "No errors found" in said else [f"isovfy: {said.strip()[-300:]}"]
