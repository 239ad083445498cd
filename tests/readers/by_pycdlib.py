# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""pycdlib: goes through each tree and reads the files. It runs in whichever Python 3 has it.

Called as a program, by_pycdlib.py IMAGE FILE-SYSTEM CONTENTS, it prints a line of JSON for each entry.
"""

import functools
import hashlib
import json
import os
import subprocess
import sys

from names import FILE_SYSTEMS, ISO, JOLIET, UDF, text_of

SYMBOLIC_LINK = 12  # of UDF
PATHS = {"rock-ridge": "rr_path", ISO: "iso_path", JOLIET: "joliet_path", UDF: "udf_path"}


def list_image(path, tree, contents):
    """The program: prints what pycdlib sees."""
    import pycdlib

    sys.setrecursionlimit(10000)
    image = pycdlib.PyCdlib()
    image.open(path)
    for folder, folders, files in image.walk(**{PATHS[tree]: "/"}):
        for own in folders:
            tell(folder, own, kind="folder")
        for own in files:
            record = image.get_record(**{PATHS[tree]: folder.rstrip("/") + "/" + own})
            if tree == "rock-ridge" and record.rock_ridge.is_symlink():
                tell(folder, own, kind="link", target=record.rock_ridge.symlink_path().hex())
                continue
            if tree == UDF and record.icb_tag.file_type == SYMBOLIC_LINK:
                tell(folder, own, kind="link")  # it reads none
                continue
            with image.open_file_from_iso(**{PATHS[tree]: folder.rstrip("/") + "/" + own}) as file:
                tell(folder, own, kind="file", size=file.length(), digest=digest_of(file) if contents else None)


def digest_of(file):
    sum_ = hashlib.sha256()
    while block := file.read(1 << 20):
        sum_.update(block)
    return sum_.hexdigest()


def tell(folder, own, **facts):
    path = (folder.rstrip("/") + "/" + own).lstrip("/")
    print(json.dumps(dict(facts, path=os.fsencode(path).hex())))


if __name__ == "__main__":
    list_image(sys.argv[1], sys.argv[2], sys.argv[3] == "contents")
    sys.exit()

from entries import Entry
from reader import Reader, run


@functools.cache
def python_with_pycdlib():
    for python in (sys.executable, "/usr/bin/python3"):
        if os.path.exists(python) and subprocess.run([python, "-c", "import pycdlib"], stderr=subprocess.DEVNULL).returncode == 0:
            return python
    return None


class Pycdlib(Reader):
    name = "pycdlib"
    package = "python3-pycdlib"
    file_systems = FILE_SYSTEMS

    def is_there(self):
        return python_with_pycdlib() is not None

    def reads(self, rules, present, source):
        if ISO not in present:
            return "there is no ISO 9660"
        if rules.rock_ridge and any(text_of(path) is None for path in source):
            return "names aren't UTF-8"
        if any(entry.size >= 1 << 32 for entry in source.values()):
            return "it knows no file of several extents"
        return None

    def read(self, image, rules, contents):
        tree = "rock-ridge" if rules.rock_ridge else rules.file_system
        said = run(python_with_pycdlib(), os.path.abspath(__file__), image.path, tree, "contents" if contents else "names")
        tree = {}
        for facts in map(json.loads, said.splitlines()):
            path, target = bytes.fromhex(facts.pop("path")), facts.pop("target", None)
            tree[path] = Entry(**facts, target=bytes.fromhex(target) if target else None)
        return tree
