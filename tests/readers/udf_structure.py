# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The structures of a UDF volume that readers ignore: both anchors, both descriptor sequences, tags and checksums.

Clauses are those of ECMA-167, 3rd edition.
"""

import struct

from entries import SECTOR

ANCHOR_PLACE = 256
ANCHOR, TERMINATOR, INTEGRITY, LOGICAL_VOLUME = 2, 8, 9, 6
CRC_POLYNOMIAL = 0x1021


def edition(image):
    """The mark of ECMA-167's edition in the recognition sequence (part 2, 9), or nothing."""
    marks = (image.sectors(sector)[1:6] for sector in range(16, 64))
    return next((mark for mark in marks if mark in (b"NSR02", b"NSR03")), None)


def crc(data):
    """CRC of ITU-T V.41 (7.2.6)."""
    value = 0
    for byte in data:
        value ^= byte << 8
        for _ in range(8):
            value = ((value << 1) ^ CRC_POLYNOMIAL if value & 0x8000 else value << 1) & 0xffff
    return value


class Volume:
    """Checks the anchors and what they lead to."""

    def __init__(self, image, last_sector):
        self.image, self.last_sector = image, last_sector
        self.faults = []

    def check(self):
        anchors = [self.descriptor(place, ANCHOR) for place in (ANCHOR_PLACE, self.last_sector)]
        if None in anchors:
            return self.faults
        if anchors[0][16:32] != anchors[1][16:32]:
            self.faults.append("the two anchors differ")
        main = self.sequence(*self.extent(anchors[0], 16))
        reserve = self.sequence(*self.extent(anchors[0], 24))
        if [(tag, data[16:]) for tag, data in main] != [(tag, data[16:]) for tag, data in reserve]:
            self.faults.append("the main and the reserve descriptor sequence differ")
        volumes = [data for tag, data in main if tag == LOGICAL_VOLUME]
        if len(volumes) != 1:
            self.faults.append(f"{len(volumes)} logical volumes")
        else:
            self.descriptor(self.extent(volumes[0], 432)[1], INTEGRITY)
        return self.faults

    @staticmethod
    def extent(data, at):
        """Bytes and first sector (7.1)."""
        return struct.unpack_from("<II", data, at)

    def descriptor(self, sector, wanted=None):
        """The descriptor in a sector, if its tag is right (7.2)."""
        data = self.image.sectors(sector)
        tag, version, checksum, _, _, sum_, length, place = struct.unpack_from("<HHBBHHHI", data)
        faults = []
        if checksum != sum(data[:4] + data[5:16]) & 0xff:
            faults.append("a wrong checksum")
        elif wanted is not None and tag != wanted:
            faults.append(f"the tag {tag} instead of {wanted}")
        elif length > SECTOR - 16 or sum_ != crc(data[16:16 + length]):
            faults.append("a wrong CRC")
        elif place != sector:
            faults.append(f"a tag for sector {place}")
        elif version not in (2, 3):
            faults.append(f"the version {version}")
        self.faults += [f"sector {sector} has {fault}" for fault in faults]
        return None if faults else data

    def sequence(self, size, first):
        """Tag and data of each descriptor up to the terminator."""
        found = []
        for sector in range(first, first + size // SECTOR):
            data = self.descriptor(sector)
            if data is None or data[:2] == bytes([TERMINATOR, 0]):
                break
            found.append((struct.unpack_from("<H", data)[0], data))
        else:
            self.faults.append(f"the sequence at {first} has no end")
        return found


def check(image):
    if edition(image) is None:
        return []
    image.file.seek(0, 2)
    sectors = image.file.tell() // SECTOR
    return [f"udf: {fault}" for fault in Volume(image, sectors - 1).check()]
