# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""iso-info of libcdio: lists names and extents, of Joliet only, as it forgets where Rock Ridge goes on."""

import collections
import re

from entries import FILE, FOLDER, Entry, ReadFailure, add_extent, join, name
from names import JOLIET, text_of
from reader import Reader, run

LARGEST_FOLDER = 1 << 20  # bytes of its directory: version 2.2 reads no more at once
LINE = re.compile(rb"^  ([-d]) \[LSN +(\d+)\] +(\d+) \w{3} \d\d \d{4} [\d:]{8}  (.*)$")


class IsoInfo(Reader):
    name = program = "iso-info"
    package = "libcdio-utils"
    file_systems = (JOLIET,)

    def reads(self, rules, present, source):
        # It cuts UTF-8 where UCS-2 ended, and leaves out what has no UCS-2.
        texts = [text for text in map(text_of, map(name, source)) if text]
        if any(len(text.encode()) > 2 * len(text) or max(text) >= "\U00010000" for text in texts):
            return "it can't show these names"
        if largest_folder(source) > LARGEST_FOLDER:
            return "a folder is larger than it reads"
        return None

    def read(self, image, rules, contents):
        said = run("iso-info", "-l", "--no-header", "-q", "-i", image.path)
        tree, folder = {}, b""
        for line in said.split(b"\n"):
            if line.startswith(b"/") and line.endswith(b":"):
                folder = line[:-1].strip(b"/")
            elif entry := LINE.match(line):
                kind, first, size, own = entry[1], int(entry[2]), int(entry[3]), entry[4]
                if own not in (b".", b".."):
                    add_extent(tree, join(folder, own),
                               Entry(FOLDER) if kind == b"d" else Entry(FILE, size, extents=[(first, size)]))
        if not tree:
            raise ReadFailure("iso-info lists nothing")
        if contents:
            image.fill_in_digests(tree)
        return tree


def largest_folder(source):
    """The bytes of the largest directory in Joliet: 34 for each entry, and two for each character of its name."""
    sizes = collections.Counter()
    for path in source:
        sizes[path.rpartition(b"/")[0]] += 34 + 2 * len(name(path).decode(errors="replace"))
    return max(sizes.values(), default=0)
