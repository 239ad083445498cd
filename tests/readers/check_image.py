#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Has independent programs read an image, and compares what each of them sees with the folder it was made from.

Prints a line for each file system and reader, and what is wrong. A reader that isn't installed is reported as missing.
Ends with 0 if all readers agree, with 1 if anything is wrong, with 77 if no reader could be run.
check_image.py --is-there READER ends with 77 where that reader isn't installed.
"""

import argparse
import subprocess
import sys

sys.dont_write_bytecode = True

import compare
import iso_structure
import names
import udf_structure
from by_grub import Grub
from by_iso_info import IsoInfo
from by_isoinfo import Isoinfo
from by_libarchive import Libarchive
from by_libudfread import Libudfread
from by_own_udf import OwnUdf
from by_pycdlib import Pycdlib
from by_seven_zip import SevenZip
from by_udfinfo import Udfinfo
from by_xorriso import Xorriso
from entries import Image, ReadFailure
from source import Source, recorded

READERS = [Xorriso(), Isoinfo(), IsoInfo(), SevenZip(), Libarchive(), Pycdlib(), Libudfread(), OwnUdf(), Udfinfo(),
           Grub()]
SKIPPED = 77
MOST_FAULTS = 10  # that are printed of one reader


class Checker:
    """One image, one folder, and what was found."""

    def __init__(self, arguments):
        self.arguments = arguments
        self.image = Image(arguments.image)
        self.source = Source(arguments.tree, arguments.contents != []).scan()
        self.asked = self.wrong = 0
        descriptors = iso_structure.volume_descriptors(self.image)
        self.rules = {}
        rock_ridge = names.ISO in descriptors and iso_structure.has_rock_ridge(self.image, descriptors[names.ISO])
        for file_system in descriptors:
            self.rules[file_system] = names.Rules(file_system, rock_ridge and file_system == names.ISO,
                                                  103 if rock_ridge else 64)
        if edition := udf_structure.edition(self.image):
            self.rules[names.UDF] = names.Rules(names.UDF, udf_metadata=edition == b"NSR03")

    def run(self):
        present = ",".join(file_system for file_system in names.FILE_SYSTEMS if file_system in self.rules)
        if present != self.arguments.expect:
            self.tell("image", "", [f"it holds {present or 'nothing'} instead of {self.arguments.expect}"])
        self.tell("structure", "", iso_structure.check(self.image) + udf_structure.check(self.image))
        for reader in READERS:
            if reader.name in self.arguments.skip:
                self.say(reader.name, "", "left out")
            elif not reader.is_there():
                self.say(reader.name, "", f"MISSING, install {reader.package}")
            elif isinstance(reader, Grub):
                self.ask_grub(reader)
            else:
                for file_system in reader.file_systems:
                    if file_system in self.rules:
                        self.ask(reader, self.rules[file_system])

    def ask(self, reader, rules):
        reason = reader.reads(rules, self.rules, self.source)
        if reason:
            self.say(reader.name, rules.file_system, f"not asked: {reason}")
            return
        self.asked += 1
        try:
            contents = self.arguments.contents is None or reader.name in self.arguments.contents
            note, faults = self.compare(reader, rules, contents) if reader.read else ("", [])
            if rules.file_system not in self.arguments.partial:
                faults += reader.check(self.image, rules, self.source, contents)
        except (ReadFailure, subprocess.TimeoutExpired) as failure:
            note, faults = "", [str(failure)]
        self.tell(reader.name, rules.file_system, faults, note)

    def compare(self, reader, rules, contents):
        source = recorded(self.source, rules, reader)
        comparison = compare.Comparison(source, reader.read(self.image, rules, contents), reader, rules)
        comparison.run()
        note = f"{comparison.renamed} renamed" if comparison.renamed else ""
        if rules.file_system in self.arguments.partial:
            note += f" {len(comparison.missing)} missing"
        else:
            comparison.faults += [f"{ascii(path)[1:]} is missing" for path in comparison.missing]
        return note.strip(), comparison.faults

    def ask_grub(self, grub):
        """It takes one file system, UDF if there is one, else Joliet."""
        rules = next(self.rules[file_system] for file_system in reversed(names.FILE_SYSTEMS) if file_system in self.rules)
        reason = grub.reads(rules, self.rules, self.source)
        if self.arguments.contents is not None or rules.file_system in self.arguments.partial:
            reason = "not everything is compared"
        if reason:
            self.say(grub.name, rules.file_system, f"not asked: {reason}")
            return
        self.asked += 1
        self.tell(grub.name, rules.file_system, grub.compare(self.image, self.arguments.tree))

    def tell(self, who, where, faults, note=""):
        self.wrong += len(faults)
        self.say(who, where, f"{len(faults)} WRONG" if faults else f"ok  {note}".rstrip())
        for fault in faults[:MOST_FAULTS]:
            print(f"    {fault}")

    @staticmethod
    def say(who, where, text):
        print(f"{who:12}{where:8}{text}", flush=True)


def list_of(text):
    return [word for word in text.split(",") if word]


def tell_whether_there(wanted):
    reader = next(reader for reader in READERS if reader.name == wanted)
    if not reader.is_there():
        print(f"skipped: {reader.name} reads no image here, install {reader.package}")
        sys.exit(SKIPPED)
    sys.exit(0)


def main():
    if sys.argv[1:2] == ["--is-there"]:
        tell_whether_there(sys.argv[2])
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--expect", default="", help="the file systems that must be there: iso,joliet,udf")
    parser.add_argument("--partial", type=list_of, default=[], help="file systems that may lack entries")
    parser.add_argument("--skip", type=list_of, default=[], help="readers to leave out")
    parser.add_argument("--contents", type=list_of, help="readers that compare contents, instead of all of them")
    parser.add_argument("image")
    parser.add_argument("tree")
    checker = Checker(parser.parse_args())
    checker.run()
    if checker.wrong:
        sys.exit(1)
    sys.exit(0 if checker.asked else SKIPPED)


if __name__ == "__main__":
    main()
