# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The trees that images are made of. They stay in the work folder for the next run."""

import os
import random
import shutil
from multiprocessing import Pool

SEED = 2048
KB, MB = 1000, 1_000_000
WORDS = ("holiday", "report", "invoice", "meeting notes", "summer picture", "draft of a longer letter")
ENDINGS = ("txt", "jpg", "html", "ogg", "c", "json")


def make_small(tree):
    """50,000 files of 0.1 to 6 KB in 500 folders on two levels."""
    with Pool() as pool:
        pool.starmap(_small_folder, [(tree, number) for number in range(500)], chunksize=10)


def _small_folder(tree, number):
    rng = random.Random(SEED + number)
    source = rng.randbytes(64 * KB)
    folder = tree / f"shelf {number // 25:02}" / f"box {number:03}"
    folder.mkdir(parents=True, exist_ok=True)
    for file in range(100):
        size = rng.randint(KB // 10, 6 * KB)
        begin = rng.randrange(len(source) - size)
        name = f"{file:05} {rng.choice(WORDS)}.{rng.choice(ENDINGS)}"
        (folder / name).write_bytes(source[begin:begin + size])


def make_share(tree):
    """A copy of /usr/share. Symbolic links are followed, but a file or folder with several names is copied only
    once: programs that merge such files and programs that don't get the same."""
    seen = set()
    for folder, folders, files in os.walk("/usr/share", followlinks=True):
        # Real entries come before links, so that links don't take their place.
        for names, is_kept in ((folders, os.path.isdir), (files, os.path.isfile)):
            paths = [os.path.join(folder, name) for name in names]
            names[:] = [os.path.basename(path) for path in paths if is_kept(path) and _is_new(path, seen)]
        target = tree / os.path.relpath(folder, "/usr/share")
        target.mkdir(parents=True, exist_ok=True)
        for name in files:
            if os.access(os.path.join(folder, name), os.R_OK):
                shutil.copyfile(os.path.join(folder, name), target / name)


def _is_new(path, seen):
    """Whether an entry belongs in the copy. A link doesn't if the walk meets its target anyway, or its target
    holds the whole walk."""
    if os.path.islink(path):
        target = os.path.realpath(path) + "/"
        if target.startswith("/usr/share/") or "/usr/share/".startswith(target):
            return False
    status = os.stat(path)
    is_new = (status.st_dev, status.st_ino) not in seen
    seen.add((status.st_dev, status.st_ino))
    return is_new


def make_large(tree):
    """4 files of 512 MiB of random bytes."""
    for number in range(4):
        with open(tree / f"film {number}.mkv", "wb") as file:
            for _ in range(128):
                file.write(os.urandom(4 << 20))


def make_million(tree):
    """1,000,000 empty files in 1,000 folders."""
    with Pool() as pool:
        pool.starmap(_million_folder, [(tree, number) for number in range(1000)], chunksize=10)


def _million_folder(tree, number):
    folder = tree / f"folder {number:03}"
    folder.mkdir(parents=True, exist_ok=True)
    at = os.open(folder, os.O_RDONLY | os.O_DIRECTORY)
    for file in range(1000):
        os.close(os.open(f"{file:04} empty file.txt", os.O_WRONLY | os.O_CREAT | os.O_CLOEXEC, 0o644, dir_fd=at))
    os.close(at)


MAKERS = {"small": make_small, "share": make_share, "large": make_large, "million": make_million}


def ready_tree(work, name, tell):
    """The tree's folder, made now unless an earlier run did."""
    tree = work / "trees" / name
    if not tree.exists():
        tell(f"making the tree {name} ...")
        unfinished = tree.with_suffix(".unfinished")
        shutil.rmtree(unfinished, ignore_errors=True)
        unfinished.mkdir(parents=True)
        MAKERS[name](unfinished)
        os.sync()
        unfinished.rename(tree)
    return tree


def walk(tree):
    """Reads every entry once, so that the first program finds a warm cache as well.
    Returns the number of files, of folders and of bytes."""
    files = folders = size = 0
    for folder, names, entries in os.walk(tree):
        folders += len(names)
        files += len(entries)
        size += sum(os.stat(os.path.join(folder, entry)).st_size for entry in entries)
    return files, folders, size
