# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""A reader of UDF in this one file: walks the folders as ECMA-167 (3rd edition) and OSTA UDF
describe them, down to what symbolic links lead to. No other available reader shows that.

Clauses are those of ECMA-167.
"""

import calendar
import struct

import udf_structure
from entries import FILE, FOLDER, LINK, SECTOR, Entry, ReadFailure, join
from names import UDF
from reader import Reader

PARTITION, LOGICAL_VOLUME, TERMINATOR, FILE_SET, IDENTIFIER, FILE_ENTRY, EXTENDED_ENTRY = 5, 6, 8, 256, 257, 261, 266
TYPES = {4: FOLDER, 5: FILE, 12: LINK}  # 14.6.6
SHORT, LONG, EMBEDDED = 0, 1, 3  # 14.6.8
PARENT, DELETED = 8, 4  # 14.4.3
ROOT, UP, HERE, NAME = 2, 3, 4, 5  # 14.16.1.1
PERMISSIONS = ((10, 6), (5, 3), (0, 0))  # where the bits of owner, group and others are, and where Linux has them
SPECIAL = ((0x40, 0o4000), (0x80, 0o2000), (0x100, 0o1000))  # flags of an ICB (14.6.8), and the bits of Linux


class OwnUdf(Reader):
    name = "own UDF"
    file_systems = (UDF,)

    def is_there(self):
        return True

    def read(self, image, rules, contents):
        volume = Volume(image)
        tree = {}
        volume.walk(volume.root, b"", tree)
        if contents:
            image.fill_in_digests(tree)
        return tree


class Volume:
    """The partitions of a volume, and what is in their blocks."""

    def __init__(self, image):
        self.image = image
        self.starts = {}  # first sector of each partition, by its number
        self.maps = []  # from block to sector, one function for each partition map
        volume = self.descriptors(*struct.unpack_from("<II", image.sectors(udf_structure.ANCHOR_PLACE), 16))
        self.read_maps(volume)
        set_at = struct.unpack_from("<IIH", volume, 248)
        self.root = struct.unpack_from("<IIH", self.tagged(set_at[2], set_at[1], FILE_SET), 400)

    def descriptors(self, size, first):
        """Takes the partitions of the descriptor sequence, and gives its logical volume."""
        volume = None
        for sector in range(first, first + size // SECTOR):
            data = self.image.sectors(sector)
            tag = struct.unpack_from("<H", data)[0]
            if tag == TERMINATOR:
                break
            if tag == PARTITION:
                number, start = struct.unpack_from("<H", data, 22)[0], struct.unpack_from("<I", data, 188)[0]
                self.starts[number] = start
            elif tag == LOGICAL_VOLUME:
                volume = data
        if volume is None:
            raise ReadFailure("there is no logical volume")
        return volume

    def read_maps(self, volume):
        """The partition maps (3/10.7): the plain one, and that of a metadata file (UDF 2.2.10)."""
        place = 440
        for _ in range(struct.unpack_from("<I", volume, 268)[0]):
            kind, length = volume[place], volume[place + 1]
            if kind == 1:
                start = self.starts[struct.unpack_from("<H", volume, place + 4)[0]]
                self.maps.append(lambda block, start=start: start + block)
            else:
                entry = struct.unpack_from("<I", volume, place + 40)[0]
                extents = FileEntry(self, 0, entry).extents
                self.maps.append(lambda block, extents=extents: sector_in(extents, block))
            place += length

    def tagged(self, partition, block, *wanted):
        data = self.image.sectors(self.maps[partition](block))
        tag, place = struct.unpack_from("<H", data)[0], struct.unpack_from("<I", data, 12)[0]
        if tag not in wanted or place != block:
            raise ReadFailure(f"block {block}: the tag {tag} of block {place} instead of {wanted}")
        return data

    def walk(self, icb, path, tree):
        """Everything below one folder; returns how many names lead to it."""
        folder = FileEntry(self, icb[2], icb[1])
        data, place = folder.data(), 0
        while place < len(data):
            tag, characteristics, length = struct.unpack_from("<H16xBB", data, place)
            use = struct.unpack_from("<H", data, place + 36)[0]
            if tag != IDENTIFIER:
                raise ReadFailure(f"{path!r}: the tag {tag} of an identifier")
            if not characteristics & (PARENT | DELETED):
                begin = place + 38 + use
                own = join(path, text_of(data[begin:begin + length]).encode())
                if own in tree:
                    raise ReadFailure(f"{own!r} is there twice")
                below = struct.unpack_from("<IIH", data, place + 20)
                tree[own] = FileEntry(self, below[2], below[1]).as_entry()
                if tree[own].kind == FOLDER:
                    self.walk(below, own, tree)
            place += (38 + use + length + 3) // 4 * 4


class FileEntry:
    """A file entry, plain (14.9) or extended (14.17), and the extents of its data in sectors."""

    def __init__(self, volume, partition, block):
        self.volume = volume
        data = volume.tagged(partition, block, FILE_ENTRY, EXTENDED_ENTRY)
        extended = struct.unpack_from("<H", data)[0] == EXTENDED_ENTRY
        self.kind = TYPES.get(data[27])
        flags = struct.unpack_from("<H", data, 34)[0]
        self.flags = flags & 7
        user, group, permissions = struct.unpack_from("<III", data, 36)
        mode = sum((permissions >> ours & 7) << theirs for ours, theirs in PERMISSIONS)
        self.rights = mode | sum(theirs for ours, theirs in SPECIAL if flags & ours), user, group
        self.size = struct.unpack_from("<Q", data, 56)[0]
        self.changed = data[92:104] if extended else data[84:96]
        attributes, length = struct.unpack_from("<II", data, 208 if extended else 168)
        begin = (216 if extended else 176) + attributes
        self.allocation = data[begin:begin + length]
        self.extents = [] if self.flags == EMBEDDED else list(self.allocated(partition))

    def allocated(self, partition):
        """First sector and bytes of each extent (14.14.1, 14.14.2)."""
        step = {SHORT: 8, LONG: 16}[self.flags]
        for place in range(0, len(self.allocation), step):
            size, block = struct.unpack_from("<II", self.allocation, place)
            if self.flags == LONG:
                partition = struct.unpack_from("<H", self.allocation, place + 8)[0]
            yield self.volume.maps[partition](block), size

    def data(self):
        if self.flags == EMBEDDED:
            return self.allocation
        return b"".join(self.volume.image.sectors(first, -(-size // SECTOR))[:size] for first, size in self.extents)

    def as_entry(self):
        if self.kind is None:
            raise ReadFailure("a file entry of an unknown type")
        year, month, day, hour, minute, second = struct.unpack_from("<hBBBBB", self.changed, 2)
        entry = Entry(self.kind, mode=self.rights[0] & 0o777, rights=self.rights, time=calendar.timegm((year, month, day, hour, minute, second)))
        if self.kind == LINK:
            entry.target = target_of(self.data())
        elif self.kind == FILE:
            entry.size, entry.extents = self.size, self.extents
        return entry


def sector_in(extents, block):
    for first, size in extents:
        if block < size // SECTOR:
            return first + block
        block -= size // SECTOR
    raise ReadFailure(f"block {block} behind the metadata file")


def text_of(compressed):
    """OSTA Compressed Unicode (UDF 2.1.1)."""
    if compressed[:1] not in (b"\x08", b"\x10"):
        raise ReadFailure(f"{compressed[:8]!r} is no compressed text")
    return compressed[1:].decode("latin-1" if compressed[0] == 8 else "utf-16-be")


def target_of(data):
    """What a symbolic link leads to, from its path components (14.16)."""
    names, place = [], 0
    while place < len(data):
        kind, length, version = struct.unpack_from("<BBH", data, place)
        identifier = data[place + 4:place + 4 + length]
        if version != 0 or len(identifier) != length or (kind == NAME) != (length > 0):
            raise ReadFailure(f"a broken path component at {place} of {data!r}")
        if kind == ROOT and place == 0:
            names.append("")
        elif kind in (UP, HERE, NAME):
            names.append({UP: "..", HERE: "."}.get(kind) or text_of(identifier))
        else:
            raise ReadFailure(f"a path component of type {kind} at {place}")
        place += 4 + length
    return "/".join(names).encode() if names != [""] else b"/"
