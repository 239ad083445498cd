#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes small random folders, with symbolic links of every kind, and an image of each; every independent
reader compares it with its folder. A seed always gives the same folders. A folder that fails is kept, and its
path printed.
"""

import argparse
import contextlib
import io
import os
import random
import shutil
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(os.path.dirname(HERE), "readers"))

import check_image
import nasty_trees
import names
from reader import Reader
from source import Source, recorded

DONE, INCOMPLETE = 0, 3
MOST_ENTRIES = 30
SKIPPED = ["pycdlib", "iso-info"]  # they confuse names in different encodings
# Options of the image, and the file systems that it then holds.
KINDS = [("", "iso,joliet,udf"), ("--fs iso", "iso"), ("--fs joliet", "iso,joliet"), ("--fs udf", "udf"),
         ("--medium bd", "udf"), ("--level 1", "iso,joliet,udf"), ("--fs joliet --level 1", "iso,joliet"),
         ("--fs iso --level 1", "iso"), ("--medium bd --fs all", "iso,joliet,udf")]
PLAIN_WORDS = ["A", "B", "PHOTO", "README", "X_Y", "LONG"]  # that stay as they are at level 1
WORDS = ["a", "b", "Photo", "readme.txt", "été", "日本語", "x y", "it's", "A", "long" * 15, "dot.", ".hidden", "😀"]


class Maker:
    """One folder after the other."""

    def __init__(self, seed):
        self.chance = random.Random(seed)

    def make(self, top, words):
        self.top, self.words = os.fsencode(top), words
        self.folders, self.files = [b""], [b"FIRST"]
        nasty_trees.write(f"{top}/FIRST", "readers take no tree without anything")
        for _ in range(self.chance.randrange(1, MOST_ENTRIES)):
            self.add(self.path())
        nasty_trees.set_times(top)

    def path(self):
        """A place where nothing is yet."""
        while True:
            folder = self.chance.choice(self.folders)
            path = os.path.join(folder, self.name())
            if not os.path.lexists(os.path.join(self.top, path)):
                return path

    def name(self):
        own = self.chance.choice(self.words)
        if self.chance.random() < 0.7:
            own += str(self.chance.randrange(30))
        return os.fsencode(own) + (b"\xe9" if self.words is WORDS and self.chance.random() < 0.03 else b"")

    def add(self, path):
        place = os.path.join(self.top, path)
        kind = self.chance.choices(["file", "folder", "hard link", "link"], [4, 3, 1, 6])[0]
        if kind == "folder" and path.count(b"/") < 4:
            os.mkdir(place)
            self.folders.append(path)
        elif kind == "hard link" and self.files:
            os.link(os.path.join(self.top, self.chance.choice(self.files)), place)
            self.files.append(path)
        elif kind == "link":
            os.symlink(self.target(path), place)
        else:
            with open(place, "wb") as file:
                file.write(self.chance.randbytes(self.chance.choice([0, 1, 100, 2048, 5000])))
            self.files.append(path)

    def target(self, path):
        """What a link says: mostly something in the folder, by a direct path or by a detour."""
        here = os.path.dirname(path)
        somewhere = self.chance.choice([*self.files, *self.folders, b"nowhere", path])
        straight = os.path.relpath(b"/" + somewhere, b"/" + here)
        return self.chance.choices(
            [straight, b"./" + straight, straight + b"/", b"//".join(straight.split(b"/")),
             os.path.relpath(b"/" + here, b"/" + here) + b"/" + straight, b"../" * (here.count(b"/") + 2) + straight,
             b"/" + somewhere, b"/".join(self.name() for _ in range(self.chance.randrange(1, 60))), b".", b".."],
            [8, 1, 1, 1, 1, 1, 1, 2, 1, 1])[0] or b"."


def expected_exit(tree, expect, options):
    """A link that no file system holds makes the image incomplete."""
    held = set()
    for file_system in expect.split(","):
        rock_ridge = file_system == names.ISO and "--level 1" not in options
        held |= recorded(tree, names.Rules(file_system, rock_ridge), Reader()).keys()
    return DONE if held == tree.keys() else INCOMPLETE


def try_one(cli, folder, image, options, expect):
    """What is wrong with the image of one folder: texts."""
    wanted = expected_exit(Source(folder).scan(), expect, options)
    command = [cli, "image", folder, "-o", image, *options.split()]
    made = subprocess.run(command, env=dict(os.environ, SOURCE_DATE_EPOCH="1700000000"), stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if made.returncode != wanted:
        return [f"velmora-cli {options} ended with {made.returncode} instead of {wanted}:", made.stdout.decode(errors="replace")]
    said = io.StringIO()
    with contextlib.redirect_stdout(said):
        checker = check_image.Checker(argparse.Namespace(image=image, tree=folder, expect=expect, partial=[], skip=SKIPPED,
                                                         contents=None))
        checker.run()
    return [f"velmora-cli {options}:", said.getvalue()] if checker.wrong else []


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--cli", required=True)
    parser.add_argument("--seed", type=int, required=True)
    parser.add_argument("--count", type=int, required=True)
    arguments = parser.parse_args()
    maker = Maker(arguments.seed)
    scratch = tempfile.mkdtemp(prefix="velmora trees-")
    for number in range(arguments.count):
        folder, image = os.path.join(scratch, f"tree{number}"), os.path.join(scratch, "image.iso")
        options, expect = KINDS[number % len(KINDS)]
        maker.make(folder, PLAIN_WORDS if "--level 1" in options else WORDS)
        if faults := try_one(arguments.cli, folder, image, options, expect):
            sys.exit("\n".join([*faults, f"kept: {folder}"]))
        shutil.rmtree(folder)
        os.remove(image)
    shutil.rmtree(scratch)
    print(f"{arguments.count} trees agree")


if __name__ == "__main__":
    main()
