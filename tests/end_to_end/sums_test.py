#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes images with sums of an awkward folder, extracts them with independent programs, and lets sha256sum check.

Ends with 77 where no program can extract an image.
"""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
# Where there is UDF, names are listed as it has them: that is what the system mounts.
FILE_SYSTEMS = {"iso": ["bsdtar", "xorriso"], "joliet": ["bsdtar", "xorriso"], "udf": ["7zz"], "all": ["7zz"]}
EXTRACTORS = {
    "bsdtar": lambda image, folder: ["bsdtar", "-xf", image, "-C", folder],
    "xorriso": lambda image, folder: ["xorriso", "-osirrox", "on", "-indev", image, "-extract", "/", folder],
    "7zz": lambda image, folder: ["7zz", "x", "-tudf", "-o" + folder, image],
}


def check(arguments, scratch, file_systems, extractor):
    image = os.path.join(scratch, "image.iso")
    folder = os.path.join(scratch, "extracted")
    os.makedirs(folder)
    subprocess.run([arguments.cli, "image", arguments.tree, "-o", image, "--fs", file_systems, "--sums"], check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    subprocess.run(EXTRACTORS[extractor](image, folder), check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)
    subprocess.run(["chmod", "-R", "u+rwX", folder], check=True)
    done = subprocess.run(["sha256sum", "--strict", "--quiet", "-c", "SHA256SUMS"], cwd=folder)
    if done.returncode != 0:
        sys.exit(f"{file_systems} with {extractor}: the sums don't fit")
    with open(os.path.join(folder, "SHA256SUMS"), "rb") as file:
        listed = len(file.read().splitlines())
    there = sum(1 for path, _, names in os.walk(folder) for name in names
                if not os.path.islink(os.path.join(path, name))) - 1
    if listed != there:
        sys.exit(f"{file_systems} with {extractor}: {listed} files are listed of {there}")
    print(f"{file_systems} with {extractor}: {listed} sums are good")
    shutil.rmtree(folder)
    os.remove(image)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--cli", required=True)
    parser.add_argument("--tree", required=True)
    arguments = parser.parse_args()
    extracted = 0
    with tempfile.TemporaryDirectory(prefix="velmora sums-") as scratch:
        for file_systems, extractors in FILE_SYSTEMS.items():
            for extractor in filter(shutil.which, extractors):
                check(arguments, scratch, file_systems, extractor)
                extracted += 1
    sys.exit(0 if extracted else SKIPPED)


if __name__ == "__main__":
    main()
