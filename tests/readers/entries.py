# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a tree is to every reader: a dictionary from path to entry.

Paths are bytes with slashes, without one at the start; the root is b"" and isn't in the dictionary.
"""

import dataclasses
import hashlib

FILE, FOLDER, LINK = "file", "folder", "link"
SECTOR = 2048
BLOCK = 1 << 20


@dataclasses.dataclass
class Entry:
    """One entry as a reader sees it. What a reader doesn't show is None."""

    kind: str
    size: int = 0  # bytes; 0 for a folder and for a link
    digest: str | None = None  # SHA-256 of a file's content
    mode: int | None = None  # the nine bits of the rights
    time: int | None = None  # of the last change, seconds since 1970
    target: bytes | None = None  # what a symbolic link says, without redundant slashes
    extents: list = dataclasses.field(default_factory=list)  # of a file: (first sector, bytes)
    rights: tuple | None = None  # twelve bits of the mode, owner, group


class Image:
    """The bytes of an image, for readers that say where a file lies but don't extract its content."""

    def __init__(self, path):
        self.path = path
        self.file = open(path, "rb")
        self.known = {}

    def sectors(self, first, count=1):
        self.file.seek(first * SECTOR)
        return self.file.read(count * SECTOR)

    def digest(self, extents):
        """SHA-256 of the extents' bytes, one after the other."""
        key = tuple(extents)
        if key not in self.known:
            sum_ = hashlib.sha256()
            for first, size in extents:
                self.file.seek(first * SECTOR)
                while size > 0:
                    block = self.file.read(min(size, BLOCK))
                    if not block:
                        raise ReadFailure(f"the image ends before the extent at sector {first}")
                    sum_.update(block)
                    size -= len(block)
            self.known[key] = sum_.hexdigest()
        return self.known[key]

    def fill_in_digests(self, tree):
        """Gives every file of a tree that has extents the digest of what lies there."""
        for entry in tree.values():
            if entry.kind == FILE:
                entry.digest = self.digest(entry.extents)


class ReadFailure(Exception):
    """A reader couldn't read the image, or its output makes no sense."""


def parent(path):
    return path.rpartition(b"/")[0]


def name(path):
    return path.rpartition(b"/")[2]


def join(folder, own):
    return folder + b"/" + own if folder else own


def depth(tree):
    return max((path.count(b"/") + 1 for path in tree), default=0)


def add_extent(tree, path, entry):
    """Adds an entry, or one more extent to a file that has several."""
    if path in tree and entry.kind == FILE and tree[path].kind == FILE:
        tree[path].size += entry.size
        tree[path].extents += entry.extents
    else:
        tree[path] = entry
