#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Burns random trees, damages the discs at random places or makes them unreadable there, and has
velmora-cli check name the damaged files.

Usage: check_test.py CLI TRAY TREES. The trees follow from their numbers alone.
"""

import json
import os
import random
import shutil
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True

import disc_drives

SECTOR = 2048
KINDS = ("dvd+r", "bd-r", "cd-r", "dvd-r")


def make_tree(chance, folder):
    """Files with bytes that can be found on the disc: path and content."""
    files = {}
    for number in range(chance.randint(1, 25)):
        below = "/".join(f"dossier {chance.randint(1, 3)}" for _ in range(chance.randint(0, 3)))
        size = chance.choice((1, 2047, 2048, 2049, chance.randint(1, 30_000), chance.randint(1, 2_500_000)))
        path = os.path.join(below, f"fichier {number} é.bin")
        files[path] = chance.randbytes(size) + number.to_bytes(4, "big") * 4
        os.makedirs(os.path.join(folder, below), exist_ok=True)
        with open(os.path.join(folder, path), "wb") as file:
            file.write(files[path])
    return files


def hurt(chance, disc, files):
    """Changes a byte in some of the files on the disc. Returns their paths."""
    with open(disc, "rb") as file:
        content = file.read()
    chosen = chance.sample(sorted(files), chance.randint(0, min(4, len(files))))
    with open(disc, "r+b") as file:
        for path in chosen:
            begin = content.index(files[path])
            if begin % SECTOR:
                sys.exit(f"{path} doesn't begin with a sector")
            at = begin + chance.randrange(len(files[path]))
            file.seek(at)
            file.write(bytes([content[at] ^ (1 << chance.randrange(8))]))
    return set(chosen)


def make_unreadable(chance, drive, files, hurt_files):
    """Plans sectors that can't be read in one of the files, or in none. Returns paths of files, and the sectors."""
    with open(drive.content(), "rb") as file:
        content = file.read()
    whole = sorted(set(files) - hurt_files)
    chosen = chance.sample(whole, min(chance.randint(0, 1), len(whole)))
    sectors = []
    for path in chosen:
        begin = content.index(files[path])
        sectors.append((begin + chance.randrange(len(files[path]))) // SECTOR)
        drive.tray("fault", "read", "--at", str(sectors[-1]), "--lasting")
    return set(chosen), sectors


def check(cli, environment, folder, expected, sectors, *options):
    report = os.path.join(folder, "report.json")
    done = subprocess.run([cli, "check", "1", "--report", report, *options], env=environment, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", timeout=100)
    if not os.path.exists(report):
        sys.exit(done.stdout)
    with open(report, encoding="utf-8") as file:
        told = json.load(file)
    named = {file["path"] for file in told["hurtFiles"]}
    if named != expected or done.returncode != (1 if expected else 0):
        sys.exit(f"{options}: hurt are {sorted(expected)}, but named are {sorted(named)}\n{done.stdout}")
    if told["unreadableSectors"] != [[sector, sector] for sector in sectors] or told["hurtSectorsOutsideFiles"]:
        sys.exit(f"{options}: told of other places\n{done.stdout}")
    os.remove(report)


def trial(cli, tray, number):
    chance = random.Random(number)
    with tempfile.TemporaryDirectory(prefix="velmora check-") as folder:
        drive = disc_drives.VirtualDrive(folder, tray)
        tree = os.path.join(folder, "photos")
        os.makedirs(tree)
        files = make_tree(chance, tree)
        drive.insert(KINDS[number % len(KINDS)])
        environment = dict(os.environ, TMPDIR=folder, **drive.environment)
        sums = ["--sums"] if number % 2 else []
        burned = subprocess.run([cli, "burn", tree, "--yes", *sums], env=environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", timeout=100)
        if burned.returncode != 0:
            sys.exit(burned.stdout)
        drive.tray("close")
        changed = hurt(chance, drive.content(), files)
        unreadable, sectors = make_unreadable(chance, drive, files, changed)
        expected = changed | unreadable
        check(cli, environment, folder, expected, sectors)  # by the sums on the disc, or by the record
        check(cli, environment, folder, expected, sectors, "--record", "1")
        check(cli, environment, folder, expected, sectors, "--with", tree)
        return len(expected)


def main():
    cli, tray, trees = sys.argv[1:]
    hurt_files = sum(trial(cli, tray, number) for number in range(int(trees)))
    if hurt_files == 0:
        sys.exit("nothing was hurt")
    print(f"{trees} discs, {hurt_files} hurt files named, and no other")


if __name__ == "__main__":
    main()
