# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The folder that an image was made of, as a tree: links are what they lead to, and what can't be recorded is left out."""

import hashlib
import os
import stat

from entries import FILE, FOLDER, Entry, join


class Source:
    """Scans one folder. Files with several names are read once."""

    def __init__(self, top, contents=True):
        self.top = os.fsencode(top)
        self.contents = contents
        self.digests = {}

    def scan(self):
        tree = {}
        handle = os.open(self.top, os.O_RDONLY | os.O_DIRECTORY)
        self.scan_folder(handle, b"", tree, [self.identity(os.fstat(handle))])
        return tree

    @staticmethod
    def identity(facts):
        return facts.st_dev, facts.st_ino

    def scan_folder(self, handle, path, tree, above):
        """Everything below one open folder; the folders above it can't be entered again through a link."""
        try:
            for text in sorted(os.listdir(handle)):
                own = os.fsencode(text)
                try:
                    facts = os.stat(own, dir_fd=handle)
                except OSError:
                    continue  # a link to nothing
                inner = join(path, own)
                if stat.S_ISREG(facts.st_mode):
                    tree[inner] = Entry(FILE, facts.st_size, self.digest(handle, own, facts), facts.st_mode & 0o777,
                                        int(facts.st_mtime))
                elif stat.S_ISDIR(facts.st_mode) and self.identity(facts) not in above:
                    tree[inner] = Entry(FOLDER, mode=facts.st_mode & 0o777, time=int(facts.st_mtime))
                    self.scan_folder(os.open(own, os.O_RDONLY | os.O_DIRECTORY, dir_fd=handle), inner, tree,
                                     [*above, self.identity(facts)])
        finally:
            os.close(handle)

    def digest(self, handle, own, facts):
        if not self.contents:
            return None
        key = self.identity(facts)
        if key not in self.digests:
            with os.fdopen(os.open(own, os.O_RDONLY, dir_fd=handle), "rb") as file:
                self.digests[key] = hashlib.file_digest(file, "sha256").hexdigest()
        return self.digests[key]
