# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""GRUB's own drivers, which compare a whole tree with a folder, name by name."""

import subprocess

import names
from compare import by_folder
from entries import name
from reader import ENVIRONMENT, TIME_LIMIT, Reader


class Grub(Reader):
    name = "GRUB"
    package = "grub-common"
    program = "grub-fstest"
    file_systems = names.FILE_SYSTEMS
    read = None

    def reads(self, rules, present, source):
        if rules.plain:
            return "it takes names as they are"
        if rules.udf_metadata:
            return "it knows no metadata file"
        changed = any(not names.is_kept(name(path), rules) for path in source) or any(
            names.clashes(list(map(name, paths)), rules) for paths in by_folder(source).values())
        return "it takes names as they are" if changed else None

    def compare(self, image, folder):
        """What differs: texts. GRUB takes the file system that it finds first, and follows the names in it."""
        done = subprocess.run(["grub-fstest", image.path, "cmp", "(loop0)/", folder], env=ENVIRONMENT, timeout=TIME_LIMIT,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        said = done.stdout.decode(errors="replace").strip()
        return [said[-400:] or f"ended with {done.returncode}"] if said or done.returncode != 0 else []
