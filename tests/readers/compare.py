# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares what a reader sees with the folder that the image was made from. A name that the file system can
hold must be there unchanged.

Any other may have been changed: its entry is then recognised by its content, and a folder by the contents of
everything below it.
"""

import collections
import hashlib

import names
from entries import FILE, FOLDER, LINK, name, parent


class Comparison:
    """One reader's tree against the source's."""

    def __init__(self, source, seen, reader, rules):
        self.source, self.seen, self.reader, self.rules = source, seen, reader, rules
        self.faults = []
        self.missing = []
        self.renamed = 0
        self.below_source, self.below_seen = by_folder(source), by_folder(seen)
        self.marks_of_source, self.marks_of_seen = Marks(source, self), Marks(seen, self)

    def run(self):
        self.compare_folder(b"", b"")

    def compare_folder(self, here, there):
        wanted = {name(path): path for path in self.below_source[here]}
        found = {names.fold(name(path), self.rules): path for path in self.below_seen[there]}
        clashes = names.clashes(wanted, self.rules)
        left = []
        for own, path in wanted.items():
            shown = names.fold(own, self.rules)
            if (own not in clashes or not self.rules.plain) and shown in found and self.source[path].kind == self.seen[found[shown]].kind:
                self.compare_entry(path, found.pop(shown))
            elif own not in clashes and self.is_kept(path) and self.reader.shows(own, self.rules):
                self.missing.append(path)
            else:
                left.append(path)
        self.recognise(left, found.values())

    def is_kept(self, path):
        own = name(path)
        has_extension = self.source[path].kind == FOLDER and b"." in own  # which ISO 9660 has for files only
        return names.is_kept(own, self.rules) and not (self.rules.plain and has_extension)

    def compare_entry(self, path, other):
        ours, theirs = self.source[path], self.seen[other]
        if ours.kind == FOLDER:
            self.compare_folder(path, other)
        elif ours.kind == LINK:
            self.compare_link(path, ours, theirs)
        elif ours.size != theirs.size:
            self.fault(path, f"has {theirs.size} bytes instead of {ours.size}")
        elif ours.digest and theirs.digest and ours.digest != theirs.digest:
            self.fault(path, "has another content")
        if ours.kind != LINK and self.rules.attributes and theirs.mode is not None and theirs.mode & 0o111 != ours.mode & 0o111:
            self.fault(path, f"has the mode {theirs.mode:o}, here {ours.mode:o}")
        if theirs.time is not None and abs(theirs.time - ours.time) >= 1:
            self.fault(path, f"has the time {theirs.time} instead of {ours.time}")

    def compare_link(self, path, ours, theirs):
        """A link's text is kept as far as names are."""
        if theirs.target is None:
            return
        wanted, found = ours.target.split(b"/"), theirs.target.split(b"/")
        if len(wanted) != len(found) or any(one != other for one, other in zip(wanted, found)
                                            if one in (b"", b".", b"..") or names.is_kept(one, self.rules)):
            self.fault(path, f"leads to {ascii(theirs.target)[1:]} instead of {ascii(ours.target)[1:]}")

    def recognise(self, ours, theirs):
        """Pairs entries whose names were changed by what is in them."""
        waiting = collections.defaultdict(list)
        for path in theirs:
            waiting[self.marks_of_seen.of(path)].append(path)
        for path in ours:
            others = waiting[self.marks_of_source.of(path)]
            if others:
                self.renamed += 1
                self.compare_entry(path, others.pop(0))
            else:
                self.missing.append(path)
        for path in sorted(path for paths in waiting.values() for path in paths):
            self.fault(path, "is in the image, not in the folder")

    def fault(self, path, text):
        self.faults.append(f"{ascii(path)[1:]} {text}")


class Marks:
    """What an entry is recognised by when its name isn't what it was."""

    def __init__(self, tree, comparison):
        self.tree = tree
        self.below = comparison.below_source if tree is comparison.source else comparison.below_seen
        self.with_contents = all(entry.digest for other in (comparison.source, comparison.seen)
                                 for entry in other.values() if entry.kind == FILE)
        self.known = {}

    def of(self, path):
        if path not in self.known:
            entry = self.tree[path]
            if entry.kind == LINK:
                self.known[path] = ("link",)
            elif entry.kind == FILE:
                self.known[path] = ("file", entry.size, entry.digest if self.with_contents else None)
            else:
                inside = sorted(map(repr, map(self.of, self.below[path])))
                self.known[path] = ("folder", hashlib.sha256("".join(inside).encode()).hexdigest())
        return self.known[path]


def by_folder(tree):
    below = collections.defaultdict(list)
    for path in tree:
        below[parent(path)].append(path)
    return below
