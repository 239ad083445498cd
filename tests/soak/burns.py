# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Many burns, one after another; each disc's contents are checked without the program that wrote them."""

import hashlib
import mmap
import os
import shutil

from machine import DONE, KINDS, Recorder, judge

SECTOR = 2048
REWRITABLE = {"cd-rw", "dvd-rw", "dvd-rw-ow", "dvd-ram", "dvd+rw", "dvd+rw-dl", "bd-re", "bd-re-dl"}


def make_folder(path, chance, token=b""):
    """A folder of a few files, some empty and some ending with a sector. Returns their contents.

    token: what each file with contents begins with
    """
    shutil.rmtree(path, ignore_errors=True)
    contents = []
    for number in range(chance.randint(1, 6)):
        folder = os.path.join(path, *["sous-dossier é"] * chance.randint(0, 2))
        os.makedirs(folder, exist_ok=True)
        size = chance.choice((0, 1, SECTOR - 1, SECTOR, SECTOR + 1, chance.randint(0, 3 << 20)))
        content = token + chance.randbytes(size) if number or not token else token + chance.randbytes(1 << 20)
        with open(os.path.join(folder, f"fichier {number}.bin"), "wb") as file:
            file.write(content)
        contents.append(content)
    with open(os.path.join(path, "lisez-moi.txt"), "wb") as file:
        file.write(token + b"contenu " + chance.randbytes(64))
    return contents


def is_on(sectors, content):
    """Is that content on the disc, from the beginning of a sector on?"""
    if not content:
        return True
    if os.path.getsize(sectors) < len(content):
        return False
    with open(sectors, "rb") as file, mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ) as disc:
        at = disc.find(content)
        while at >= 0 and at % SECTOR:
            at = disc.find(content, at + 1)
        return at >= 0


def begins_with(sectors, image):
    with open(sectors, "rb") as disc, open(image, "rb") as file:
        wanted = hashlib.file_digest(file, "sha256").digest()
        return hashlib.sha256(disc.read(os.path.getsize(image))).digest() == wanted


class Series:
    """The burns of one recorder."""

    def __init__(self, machine, findings, chance):
        self.machine, self.findings, self.chance = machine, findings, chance
        self.recorder = Recorder(machine, "serie")
        self.folder = machine.path("folders", "serie")
        self.image = machine.path("folders", "serie.iso")

    def burn(self, kind):
        self.succeed(self.recorder.tray("insert", kind))
        contents = make_folder(self.folder, self.chance)
        if self.chance.random() < 0.25:
            self.burn_image()
        else:
            self.burn_folder(contents)
        if kind in REWRITABLE and self.chance.random() < 0.5:
            self.erase()
            self.burn_folder(make_folder(self.folder, self.chance))
        self.look_around()

    def burn_folder(self, contents):
        options = ["--close"] if self.chance.random() < 0.3 else []
        options += ["--speed", self.chance.choice((1, 8, 99))] if self.chance.random() < 0.3 else []
        result = self.recorder.cli("burn", self.folder, "--yes", *options)
        if self.succeed(result) and not all(is_on(self.recorder.sectors(), content) for content in contents):
            self.findings.tell("a file that is not on the disc", result)

    def burn_image(self):
        if not self.succeed(self.recorder.cli("image", self.folder, "-o", self.image)):
            return
        result = self.recorder.cli("burn-iso", self.image, "--yes")
        if self.succeed(result) and not begins_with(self.recorder.sectors(), self.image):
            self.findings.tell("an image that is not on the disc", result)

    def erase(self):
        result = self.recorder.cli("erase", "--yes", *["--full"] * self.chance.randint(0, 1))
        if self.succeed(result) and "sessions" in self.recorder.description()["disc"] \
                and self.recorder.description()["disc"]["sessions"]:
            self.findings.tell("an erased disc with a session", result)

    def succeed(self, result):
        judge(result, self.findings)
        if result.code == DONE:
            return True
        self.findings.tell("a command that failed for no reason", result)
        return False

    def look_around(self):
        left = self.machine.left_files() + self.recorder.strange_files()
        if left:
            self.findings.tell("left-over files", *left)


def run(machine, findings, chance, count):
    if count == 0:
        return
    series = Series(machine, findings, chance)
    for number in range(count):
        series.burn(KINDS[number % len(KINDS)])
        if (number + 1) % 20 == 0:
            print(f"{number + 1} burns, {findings.count} findings", flush=True)
