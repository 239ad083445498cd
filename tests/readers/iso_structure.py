# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The structures of ISO 9660 and Joliet that readers ignore: numbers in both byte orders, path tables, records.

Clauses are those of ECMA-119, 2nd edition.
"""

import struct

from entries import SECTOR
from names import ISO, JOLIET

PRIMARY, SUPPLEMENTARY, TERMINATOR = 1, 2, 255
JOLIET_ESCAPES = (b"%/@", b"%/C", b"%/E")
IS_FOLDER = 2


def volume_descriptors(image):
    """The descriptors of ISO 9660 and of Joliet, by file system (8.1)."""
    found = {}
    for sector in range(16, 32):
        data = image.sectors(sector)
        if data[1:6] != b"CD001" or data[0] == TERMINATOR:
            break
        if data[0] == PRIMARY:
            found.setdefault(ISO, data)
        elif data[0] == SUPPLEMENTARY and data[88:91] in JOLIET_ESCAPES:
            found.setdefault(JOLIET, data)
    return found


def has_rock_ridge(image, descriptor):
    """Whether the root's first record continues with the SP field of SUSP (5.3)."""
    first = image.sectors(struct.unpack_from("<I", descriptor, 158)[0])
    return first[34:36] == b"SP"


class Structure:
    """Checks one descriptor and all that it leads to."""

    def __init__(self, image, descriptor):
        self.image, self.descriptor = image, descriptor
        self.faults = []
        self.volume = self.both32(descriptor, 80, "volume space size")

    def check(self):
        for at, field in ((120, "volume set size"), (124, "volume sequence number"), (128, "logical block size")):
            self.both16(self.descriptor, at, field)
        folders = self.walk()
        tables = [self.path_table(140, "<"), self.path_table(148, ">")]
        if tables[0] != tables[1]:
            self.faults.append("the two path tables differ")
        if sorted(first for first, _, _ in tables[0]) != sorted(folders):
            self.faults.append("the path table and the folders differ")
        parents = [parent for _, parent, _ in tables[0]]
        if parents != sorted(parents):
            self.faults.append("the path table isn't in the order of parents")
        return self.faults

    def both32(self, data, at, field):
        low, high = struct.unpack_from("<I", data, at)[0], struct.unpack_from(">I", data, at + 4)[0]
        if low != high:
            self.faults.append(f"{field}: {low} with low bytes first, {high} with high bytes first")
        return low

    def both16(self, data, at, field):
        low, high = struct.unpack_from("<H", data, at)[0], struct.unpack_from(">H", data, at + 2)[0]
        if low != high:
            self.faults.append(f"{field}: {low} with low bytes first, {high} with high bytes first")
        return low

    def path_table(self, at, order):
        """First sector, number of the parent and identifier of each folder (9.4)."""
        size = self.both32(self.descriptor, 132, "path table size")
        first = struct.unpack_from(order + "I", self.descriptor, at)[0]
        data = self.image.sectors(first, -(-size // SECTOR))[:size]
        entries, place = [], 0
        while place + 8 <= len(data):
            length, _, extent, parent = struct.unpack_from(order + "BBIH", data, place)
            entries.append((extent, parent, data[place + 8:place + 8 + length]))
            place += 8 + length + length % 2
        return entries

    def walk(self):
        """Goes through all folders from the root on, and gives their first sectors."""
        root = self.descriptor[156:190]
        first, size = self.both32(root, 2, "root"), self.both32(root, 10, "root")
        seen, waiting = [], [(first, size, first)]
        while waiting:
            first, size, above = waiting.pop()
            seen.append(first)
            for number, (flags, start, length, identifier) in enumerate(self.records(first, size)):
                if number < 2:
                    wanted = (first, b"\0") if number == 0 else (above, b"\1")
                    if (start, identifier) != wanted:
                        self.faults.append(f"folder at {first}: record {number} leads to {start}")
                elif start * SECTOR + length > self.volume * SECTOR:
                    self.faults.append(f"{identifier!r} ends behind the volume")
                elif flags & IS_FOLDER:
                    waiting.append((start, length, first))
        return seen

    def records(self, first, size):
        """Flags, first sector, bytes and identifier of each record of a folder (9.1)."""
        for sector in range(first, first + size // SECTOR):
            data, place = self.image.sectors(sector), 0
            while place < SECTOR and data[place] != 0:
                record = data[place:place + data[place]]
                if len(record) < 34 or len(record) < 33 + record[32] or place + data[place] > SECTOR:
                    self.faults.append(f"sector {sector}: a record of {data[place]} bytes at {place}")
                    return
                yield record[25], self.both32(record, 2, "extent"), self.both32(record, 10, "length"), record[33:33 + record[32]]
                place += data[place]


def check(image):
    return [f"{file_system}: {fault}" for file_system, descriptor in volume_descriptors(image).items()
            for fault in Structure(image, descriptor).check()]
