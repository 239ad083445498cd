# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Which names each file system keeps as they are."""

import collections
import dataclasses
import re

ISO, JOLIET, UDF = "iso", "joliet", "udf"
FILE_SYSTEMS = (ISO, JOLIET, UDF)

# ISO 9660 at level 1: a name and an extension of d-characters, here in any case.
EIGHT_THREE = re.compile(rb"[A-Z0-9_]{1,8}(\.[A-Z0-9_]{1,3})?", re.IGNORECASE)
NOT_IN_JOLIET = re.compile(r'[\x00-\x1f*/:;?\\]')


@dataclasses.dataclass
class Rules:
    """What holds for the names of one tree of an image."""

    file_system: str
    rock_ridge: bool = False  # in ISO 9660: the names of Linux are beside its own
    joliet_length: int = 64
    udf_metadata: bool = False  # the file structure is in a metadata file, as in UDF 2.50

    @property
    def attributes(self):
        return self.file_system == UDF or self.rock_ridge

    @property
    def links(self):
        """Whether it has symbolic links; else a link to a file of the tree is one more name of that file."""
        return self.attributes

    @property
    def plain(self):
        return self.file_system == ISO and not self.rock_ridge


def text_of(own):
    """The name as text, or nothing if its bytes aren't UTF-8."""
    try:
        return own.decode()
    except UnicodeDecodeError:
        return None


def units(text):
    return len(text.encode("utf-16-le")) // 2


def is_kept(own, rules):
    if rules.plain:
        return bool(EIGHT_THREE.fullmatch(own))
    if rules.file_system == ISO:
        return True
    text = text_of(own)
    if text is None:
        return False
    if rules.file_system == JOLIET:
        return units(text) <= rules.joliet_length and not NOT_IN_JOLIET.search(text)
    return len(text) <= 254 if max(text) < "\u0100" else units(text) <= 127


def fold(own, rules):
    """The name by which two views of one entry meet: names of plain ISO 9660 are shown in any case, with a version."""
    if rules.plain:
        return re.sub(rb"\.?(;1)?\Z", b"", own, count=1).upper()
    return own


def clashes(wanted, rules):
    """Those of the names that would be one, so that they can't all be kept: in plain ISO 9660 without their case, in
    Joliet without dots and blanks at the end, as Windows has none there."""
    if not rules.plain and rules.file_system != JOLIET:
        return set()
    groups = collections.defaultdict(list)
    for own in wanted:
        groups[fold(own, rules) if rules.plain else own.rstrip(b". ")].append(own)
    return {own for group in groups.values() if len(group) > 1 for own in group}
