#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes images and discs with sums of an awkward folder, extracts them with independent programs, and has sha256sum check.

Ends with 77 if no program can extract an image.
"""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True

import disc_drives

SKIPPED = 77
# Where there is UDF, names are listed as it has them: that is what the system mounts.
FILE_SYSTEMS = {"iso": ["bsdtar", "xorriso"], "joliet": ["bsdtar", "xorriso"], "udf": ["7zz"], "all": ["7zz"]}
EXTRACTORS = {
    "bsdtar": lambda image, folder: ["bsdtar", "-xf", image, "-C", folder],
    "xorriso": lambda image, folder: ["xorriso", "-osirrox", "on", "-indev", image, "-extract", "/", folder],
    "7zz": lambda image, folder: ["7zz", "x", "-tudf", "-o" + folder, image],
}


def make_image(arguments, scratch, file_systems):
    image = os.path.join(scratch, "image.iso")
    run([arguments.cli, "image", arguments.tree, "-o", image, "--replace", "--fs", file_systems, "--sums"])
    return image


def burn(arguments, scratch, file_systems):
    """Burns a virtual disc. Returns the file with its sectors, which is what a copy of the disc would be."""
    folder = tempfile.mkdtemp(dir=scratch)
    drive = disc_drives.VirtualDrive(folder, arguments.tray)
    drive.insert("dvd+r")
    run([arguments.cli, "burn", arguments.tree, "--medium", "dvd", "--fs", file_systems, "--sums", "--yes"],
        env=dict(os.environ, TMPDIR=folder, **drive.environment))
    drive.tray("close")
    return drive.content()


def run(command, **options):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          encoding="utf-8", **options)
    if done.returncode != 0:
        sys.exit(f"{command}: {done.returncode}\n{done.stdout}")


def check(scratch, image, extractor, what):
    folder = os.path.join(scratch, "extracted")
    os.makedirs(folder)
    subprocess.run(EXTRACTORS[extractor](image, folder), check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)
    subprocess.run(["chmod", "-R", "u+rwX", folder], check=True)
    done = subprocess.run(["sha256sum", "--strict", "--quiet", "-c", "SHA256SUMS"], cwd=folder)
    if done.returncode != 0:
        sys.exit(f"{what} with {extractor}: the sums don't fit")
    with open(os.path.join(folder, "SHA256SUMS"), "rb") as file:
        listed = len(file.read().splitlines())
    there = sum(1 for path, _, names in os.walk(folder) for name in names
                if not os.path.islink(os.path.join(path, name))) - 1
    if listed != there:
        sys.exit(f"{what} with {extractor}: {listed} files are listed of {there}")
    print(f"{what} with {extractor}: {listed} sums are good")
    shutil.rmtree(folder)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--cli", required=True)
    parser.add_argument("--tray", required=True)
    parser.add_argument("--tree", required=True)
    arguments = parser.parse_args()
    extracted = 0
    with tempfile.TemporaryDirectory(prefix="velmora sums-") as scratch:
        for file_systems, extractors in FILE_SYSTEMS.items():
            made = [("image", make_image(arguments, scratch, file_systems))]
            if file_systems != "all":  # which a burn calls "udf"
                made.append(("disc", burn(arguments, scratch, file_systems)))
            for extractor in filter(shutil.which, extractors):
                for kind, image in made:
                    check(scratch, image, extractor, f"{kind} of {file_systems}")
                    extracted += 1
    sys.exit(0 if extracted else SKIPPED)


if __name__ == "__main__":
    main()
