# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows what sharing of extents saves: images written beside their sources, on file systems that can
share and on one that cannot."""

import os
import shutil
import subprocess
import time
from contextlib import contextmanager
from dataclasses import dataclass
from statistics import median

import tables
from measure import Failure, make_way, timed
from trees import walk
from programs import VELMORA_ALL

FILE_SYSTEMS = {
    "XFS that shares": ["mkfs.xfs", "-q", "-m", "reflink=1"],
    "btrfs (shares)": ["mkfs.btrfs", "-q"],
    "XFS that doesn't": ["mkfs.xfs", "-q", "-m", "reflink=0"],
}


@dataclass(frozen=True)
class Sharing:
    wall: float  # seconds
    synced: float  # seconds that sync took after it
    used: int  # bytes of the disk beyond the sources
    image: int  # bytes


def table(tree, work, chosen, tell):
    """A row for each file system; below it, why others aren't available."""
    rows, notes = [], []
    for name, make in FILE_SYSTEMS.items():
        tell(f"sharing: {name}")
        try:
            runs = measure(make, tree, work, chosen.rounds)
        except (Failure, OSError, subprocess.CalledProcessError) as failure:
            notes.append(f"{name}: not measured, {reason(failure)}")
            continue
        rows.append([
            name,
            f"{median(run.wall for run in runs):.3f}",
            f"{min(run.wall for run in runs):.3f}-{max(run.wall for run in runs):.3f}",
            f"{median(run.synced for run in runs):.3f}",
            f"{runs[0].image / tables.MB:.1f}",
            f"{max(run.used for run in runs) / tables.MB:.1f}",
        ])
    header = ["velmora all, tree large", "wall s", "min-max", "sync after s", "image MB", "disk used MB"]
    heading = tables.title("Sharing of extents (loop mounts; image beside its sources)", chosen.markdown)
    return "\n".join([heading, tables.table(header, rows, chosen.markdown) if rows else "", *notes])


def reason(failure):
    if isinstance(failure, subprocess.CalledProcessError):
        said = (failure.stderr or "").strip().splitlines()[-1:]
        return f"{failure.cmd[0]} failed: {said[0] if said else failure.returncode}"
    return str(failure)


def measure(make, tree, work, rounds):
    if os.geteuid() != 0:
        raise Failure("only root can mount")
    if shutil.which(make[0]) is None:
        raise Failure(f"{make[0]} is not installed")
    with mounted(make, work, 2 * walk(tree)[2] + (2 << 30)) as folder:
        copy = folder / tree.name
        shutil.copytree(tree, copy)
        image = folder / "bench.iso"
        paths = {"TREE": str(copy), "IMAGE": str(image)}
        return [measure_once(paths, image, work) for _ in range(rounds + 1)][1:]  # the first warms up


def measure_once(paths, image, work):
    make_way(image, 0)
    before = used(image.parent)
    run = timed(paths, VELMORA_ALL, work)
    begun = time.monotonic()
    os.sync()
    synced = time.monotonic() - begun
    return Sharing(run.wall, synced, used(image.parent) - before, run.image)


def used(folder):
    """Bytes of the file system that are used."""
    status = os.statvfs(folder)
    return (status.f_blocks - status.f_bfree) * status.f_frsize


@contextmanager
def mounted(make, work, size):
    """A new file system in a sparse file, mounted below the work folder and taken away behind it."""
    store, folder = work / "sharing.disk", work / "sharing"
    folder.mkdir(exist_ok=True)
    with open(store, "wb") as file:
        file.truncate(size)
    try:
        run([*make, str(store)])
        run(["mount", "-o", "loop", str(store), str(folder)])
        try:
            yield folder
        finally:
            run(["umount", str(folder)])
    finally:
        store.unlink()
        folder.rmdir()


def run(command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
