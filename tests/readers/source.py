# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The folder that an image was made of, as a tree: what can't be recorded is left out."""

import hashlib
import os
import re
import stat

import names
from entries import FILE, FOLDER, LINK, Entry, join, parent

MOST_LINKS = 40  # in a row, as Linux follows them
MOST_COMPONENTS = 2048 - 216  # bytes of a link in UDF, as a file entry holds them itself


class Source:
    """Scans one folder. Files with several names are read once."""

    def __init__(self, top, contents=True):
        self.top = os.fsencode(top)
        self.contents = contents
        self.digests = {}

    def scan(self):
        tree = {}
        self.scan_folder(os.open(self.top, os.O_RDONLY | os.O_DIRECTORY), b"", tree)
        return tree

    def scan_folder(self, handle, path, tree):
        """Everything below one open folder."""
        try:
            for text in sorted(os.listdir(handle)):
                own = os.fsencode(text)
                facts = os.stat(own, dir_fd=handle, follow_symlinks=False)
                inner = join(path, own)
                if stat.S_ISLNK(facts.st_mode):
                    tree[inner] = Entry(LINK, time=int(facts.st_mtime), target=tidy(os.readlink(own, dir_fd=handle)))
                elif stat.S_ISREG(facts.st_mode):
                    tree[inner] = Entry(FILE, facts.st_size, self.digest(handle, own, facts), facts.st_mode & 0o777,
                                        int(facts.st_mtime))
                elif stat.S_ISDIR(facts.st_mode):
                    tree[inner] = Entry(FOLDER, mode=facts.st_mode & 0o777, time=int(facts.st_mtime))
                    self.scan_folder(os.open(own, os.O_RDONLY | os.O_DIRECTORY, dir_fd=handle), inner, tree)
        finally:
            os.close(handle)

    def digest(self, handle, own, facts):
        if not self.contents:
            return None
        key = facts.st_dev, facts.st_ino
        if key not in self.digests:
            with os.fdopen(os.open(own, os.O_RDONLY, dir_fd=handle), "rb") as file:
                self.digests[key] = hashlib.file_digest(file, "sha256").hexdigest()
        return self.digests[key]


def tidy(target):
    """What a link says, without redundant slashes."""
    return re.sub(rb"(?<=.)/\Z", b"", re.sub(rb"/+", b"/", target))


def recorded(tree, rules, reader):
    """The tree as a reader sees it in a file system that holds all it can: links are links, or the files that they lead
    to, or what the reader shows for them."""
    seen = {}
    for path, entry in tree.items():
        if entry.kind != LINK:
            seen[path] = entry
        elif rules.links:
            if rules.rock_ridge or udf_length(entry.target) <= MOST_COMPONENTS:
                seen[path] = reader.shown_link(entry, rules)
        elif (file := tree.get(follow(tree, path))) is not None and file.kind == FILE:
            seen[path] = Entry(FILE, file.size, file.digest, file.mode, entry.time)
    return seen


def udf_length(target):
    """Bytes of a link's path components in UDF."""
    size = 4 if target.startswith(b"/") else 0
    for own in filter(None, target.split(b"/")):
        text = re.sub("[\udc80-\udcff]", "_", own.decode(errors="surrogateescape"))
        width = 1 if max(text) < "\u0100" else 2
        size += 4 if own in (b".", b"..") else 4 + min(255, 1 + width * names.units(text))
    return size


def follow(tree, link):
    """The path that a link leads to in the end, within the tree; nothing for any other place."""
    waiting = list(reversed(tree[link].target.split(b"/")))
    here, links = parent(link), 1
    while waiting:
        own = waiting.pop()
        if own == b"" or (own == b".." and here == b""):
            return None  # out of the tree
        if own == b".":
            continue
        if own == b"..":
            here = parent(here)
            continue
        inner = join(here, own)
        if inner not in tree or (waiting and tree[inner].kind == FILE):
            return None
        if tree[inner].kind == LINK:
            links += 1
            if links > MOST_LINKS:
                return None
            waiting += reversed(tree[inner].target.split(b"/"))
        else:
            here = inner
    return here
