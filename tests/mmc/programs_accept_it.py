# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later

"""Has other burning programs use the emulated drive, so that it can't share an error with our own code.

Usage: programs_accept_it.py LIBRARY sessions|minfo|inquiry PROFILE
Exit code 77 (skipped) where the program is missing.
"""

import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
OVERWRITABLE = {"12", "13", "1A", "43"}


class Drive:
    """A drive with a new disc in it, and the programs that see it."""

    def __init__(self, library, folder, profile):
        self.folder = folder
        self.library = library
        self.state = folder / "state"
        self.log = folder / "log"
        self.state.write_text(f"profile {profile}\n")

    def run(self, *command):
        environment = dict(os.environ, LD_PRELOAD=self.library, MMC_DRIVE_STATE=str(self.state),
                           MMC_DRIVE_LOG=str(self.log), LC_ALL="C")
        done = subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, errors="replace", timeout=100)
        if done.returncode != 0:
            fail(f"{' '.join(command)}: exit code {done.returncode}\n{done.stdout}")
        return done.stdout

    def check_log(self):
        violations = [line for line in self.log.read_text().splitlines() if line.startswith("VIOLATION")]
        if violations:
            fail("\n".join(violations))


def fail(text):
    print(text)
    sys.exit(1)


def need(program):
    if shutil.which(program) is None:
        print(f"skipped: {program} is missing")
        sys.exit(SKIPPED)


def make_tree(folder, seed):
    """Files with awkward lengths and bytes that never repeat."""
    folder.mkdir()
    numbers = random.Random(seed)
    for length in (0, 1, 2047, 2048, 2049, 1_500_000):
        (folder / f"file{length}").write_bytes(numbers.randbytes(length))
    return folder


def same(left, right):
    names = sorted(path.name for path in left.iterdir())
    if names != sorted(path.name for path in right.iterdir()):
        fail(f"{left} and {right} hold different files")
    for name in names:
        if (left / name).read_bytes() != (right / name).read_bytes():
            fail(f"{right / name} came back with other bytes")


def two_sessions(drive, profile):
    """xorriso writes two sessions, from two processes, and a third one reads them back."""
    need("xorriso")
    first = make_tree(drive.folder / "first", 1)
    second = make_tree(drive.folder / "second", 2)
    xorriso = ["xorriso", "-report_about", "WARNING"]
    if profile == "1A":  # xorriso wants to read before it writes
        drive.state.write_text("profile 1A\nformatted 1 2295104 0\n")
    drive.run(*xorriso, "-outdev", "/dev/sr0", "-map", str(first), "/first")
    drive.run(*xorriso, "-dev", "/dev/sr0", "-map", str(second), "/second")
    table = drive.run(*xorriso, "-indev", "/dev/sr0", "-toc")
    if profile not in OVERWRITABLE and "ISO session  :   2" not in table:
        fail(f"no second session:\n{table}")
    out = drive.folder / "out"
    drive.run(*xorriso, "-indev", "/dev/sr0", "-osirrox", "on", "-extract", "/", str(out))
    same(first, out / "first")
    same(second, out / "second")
    drive.check_log()


def media_info(drive, profile):
    """cdrskin tells what is in the drive."""
    need("cdrskin")
    told = drive.run("cdrskin", "dev=/dev/sr0", "-minfo")
    names = {"09": "CD-R", "1B": "DVD+R", "43": "BD-RE"}
    if names[profile] not in told or "VELMORA" not in told:
        fail(f"not told:\n{told}")
    if profile != "43" and "disk status:            empty" not in told.lower() and "blank" not in told.lower():
        fail(f"the disc is not told to be blank:\n{told}")


def device_list(drive, _):
    """cdrskin finds the drive by its path."""
    need("cdrskin")
    told = drive.run("cdrskin", "dev=/dev/sr0", "-inq")
    if "VELMORA" not in told or "EMULATED DRIVE" not in told:
        fail(f"not told:\n{told}")


def main():
    library, case, profile = sys.argv[1:]
    cases = {"sessions": two_sessions, "minfo": media_info, "inquiry": device_list}
    with tempfile.TemporaryDirectory(prefix="velmora-mmc-") as folder:
        cases[case](Drive(library, pathlib.Path(folder), profile), profile)


main()
