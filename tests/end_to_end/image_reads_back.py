#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes an image of a folder with velmora-cli, then has every independent reader compare it with the folder."""

import argparse
import os
import subprocess
import sys
import tempfile

CHECKER = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "readers", "check_image.py")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--cli", required=True)
    parser.add_argument("--tree", required=True)
    parser.add_argument("--exit", type=int, default=0, help="how velmora-cli must end")
    parser.add_argument("--expect", required=True, help="the file systems that the image must hold")
    parser.add_argument("--check", action="append", default=[], help="an option for the checker")
    parser.add_argument("options", nargs="*", help="options for velmora-cli")
    arguments = parser.parse_args()

    beside = os.path.dirname(os.path.dirname(os.path.abspath(arguments.tree)))  # images may be too large for /tmp
    with tempfile.TemporaryDirectory(prefix="image-", dir=beside) as scratch:
        image = os.path.join(scratch, "image.iso")
        command = [arguments.cli, "image", arguments.tree, "-o", image, *arguments.options]
        environment = dict(os.environ, SOURCE_DATE_EPOCH="1700000000")
        made = subprocess.run(command, env=environment, stdin=subprocess.DEVNULL).returncode
        if made != arguments.exit:
            sys.exit(f"velmora-cli ended with {made} instead of {arguments.exit}")
        if os.listdir(scratch) != ["image.iso"]:
            sys.exit(f"left beside the image: {os.listdir(scratch)}")
        sys.stdout.flush()
        sys.exit(subprocess.run([sys.executable, CHECKER, "--expect", arguments.expect, *arguments.check, image,
                                 arguments.tree]).returncode)


if __name__ == "__main__":
    main()
