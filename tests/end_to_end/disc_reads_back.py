#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Burns a folder with velmora-cli in a drive, then has every independent reader compare the disc with the folder."""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True

import disc_drives

CHECKER = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "readers", "check_image.py")


def burn(arguments, drive, folder):
    command = [arguments.cli, "burn", arguments.tree, "--yes", *arguments.options]
    environment = dict(os.environ, TMPDIR=folder, SOURCE_DATE_EPOCH="1700000000", **drive.environment)
    done = subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, encoding="utf-8")
    if done.returncode != 0:
        sys.exit(f"velmora-cli ended with {done.returncode}:\n{done.stdout}")
    for text in ("Gravure effectuée avec succès.", "identiques à ce qui a été gravé", "SHA-256 : "):
        if text not in done.stdout:
            sys.exit(f"not said: {text}\n{done.stdout}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--cli", required=True)
    parser.add_argument("--tray", help="burn in a virtual recorder that this program makes")
    parser.add_argument("--emulator", help="burn in the drive that this library emulates")
    parser.add_argument("--tree", required=True)
    parser.add_argument("--disc", required=True, help="the kind of disc")
    parser.add_argument("--expect", required=True, help="the file systems that the disc must hold")
    parser.add_argument("options", nargs="*", help="options for velmora-cli")
    arguments = parser.parse_args()

    with tempfile.TemporaryDirectory(prefix="velmora disc-") as folder:
        if arguments.tray:
            drive = disc_drives.VirtualDrive(folder, arguments.tray)
        else:
            drive = disc_drives.EmulatedDrive(folder, arguments.emulator)
        drive.insert(arguments.disc)
        temporary = os.path.join(folder, "tmp")
        os.makedirs(temporary)
        burn(arguments, drive, temporary)
        if os.listdir(temporary):
            sys.exit(f"left behind: {os.listdir(temporary)}")
        if arguments.emulator and drive.violations():
            sys.exit("".join(drive.violations()))
        sys.stdout.flush()
        image = shutil.copy(drive.content(), os.path.join(folder, "disc.iso"))  # readers go by the file extension
        sys.exit(subprocess.run([sys.executable, CHECKER, "--expect", arguments.expect, image, arguments.tree]).returncode)


if __name__ == "__main__":
    main()
