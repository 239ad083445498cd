# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What all readers have: where they come from, what they can read, and how they are run."""

import ctypes.util
import os
import shutil
import subprocess

from entries import ReadFailure, depth

TIME_LIMIT = 300  # seconds for one call of a program
ENVIRONMENT = dict(os.environ, LC_ALL="C.UTF-8", TZ="UTC")


class Reader:
    """One independent program or library. Those that show a tree have read(), the others only check()."""

    name = ""
    package = ""  # of Debian
    program = ""
    library = ""
    file_systems = ()
    deepest = None  # nested folders, as far as it goes

    def is_there(self):
        if self.library:
            return ctypes.util.find_library(self.library) is not None
        return shutil.which(self.program) is not None

    def reads(self, rules, present, source):
        """Nothing, or why it can't read that tree of an image with these file systems, made of these entries."""
        if self.deepest is not None and depth(source) > self.deepest:
            return f"the folders are deeper than {self.deepest}"
        return None

    def shows(self, own, rules):
        """Whether it shows such a name as it is in the file system."""
        return True

    def shown_link(self, entry, rules):
        """What it shows for a symbolic link, in a file system that has them."""
        return entry

    def read(self, image, rules, contents):
        """The tree that it sees; with contents, every file with its digest. Raises ReadFailure."""
        raise NotImplementedError

    def check(self, image, rules, tree, contents):
        """What else it finds wrong: texts."""
        return []


def run(*command, good=(0,)):
    """What a program says on its standard output."""
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          env=ENVIRONMENT, timeout=TIME_LIMIT)
    if done.returncode not in good:
        raise ReadFailure(f"{command[0]} ended with {done.returncode}: {done.stderr.decode(errors='replace').strip()[-400:]}")
    return done.stdout


def mode_of(letters):
    """The rights that `drwxr-xr-x` tells."""
    return sum(1 << (8 - place) for place, letter in enumerate(letters[1:10]) if letter not in "-ST")
