# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""udfinfo of udftools: the structure of the volume, and how many files and folders it says it has."""

from entries import FOLDER
from names import UDF
from reader import Reader, run

WANTED_PARTS = ("VRS", "MVDS", "RVDS", "LVID", "ANCHOR", "PSPACE")


class Udfinfo(Reader):
    name = program = "udfinfo"
    package = "udftools"
    file_systems = (UDF,)
    read = None

    def check(self, image, rules, tree, contents):
        said = run("udfinfo", "--utf8", image.path).decode(errors="replace")
        values = dict(line.split("=", 1) for line in said.splitlines() if "=" in line and not line.startswith("start="))
        faults = []
        if values.get("integrity") != "closed":
            faults.append(f"the integrity is {values.get('integrity')}")
        faults += [f"there is no {part}" for part in WANTED_PARTS if f"type={part}" not in said]
        folders = 1 + sum(entry.kind == FOLDER for entry in tree.values())
        if values.get("numdirs") != str(folders):
            faults.append(f"it counts {values.get('numdirs')} folders instead of {folders}")
        return faults
