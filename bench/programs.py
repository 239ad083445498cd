# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The programs that are measured, and how each is called."""

import re
import subprocess
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "bench"
STOPWATCH = BUILD / "bench" / "bench-stopwatch"
PLACES = BUILD / "bench" / "bench-places"
BURN = BUILD / "bench" / "bench-burn"
TARGETS = ["velmora", "velmora-cli", "velmora-tray", "bench-stopwatch", "bench-floor", "bench-places", "bench-burn"]


@dataclass(frozen=True)
class Program:
    """One row of a tree's table. In the command, TREE, PLACES and IMAGE stand for paths."""
    name: str
    command: list
    layout: str = ""  # "joliet" or "all" for those whose files must be where Velmora plans them

    def arguments(self, paths):
        return [paths.get(word, word) for word in self.command]


WINDOW = str(BUILD / "src" / "app" / "velmora")
TRAY = str(BUILD / "src" / "app" / "velmora-tray")
VELMORA = str(BUILD / "src" / "app" / "velmora-cli")
FLOOR = str(BUILD / "bench" / "bench-floor")
XORRISO = ["xorriso", "-as", "mkisofs"]
# Level 3 is Velmora's own, and spares the others the search for free names of eight characters (which
# costs genisoimage seconds on real trees). -D lets genisoimage take deep folders, which
# it would leave out.
XORRISO_OPTIONS = ["-quiet", "-iso-level", "3", "-J", "-joliet-long"]
GENISOIMAGE_OPTIONS = [*XORRISO_OPTIONS, "-D"]

PROGRAMS = [
    Program("velmora joliet", [VELMORA, "image", "TREE", "--fs", "joliet", "-o", "IMAGE"], "joliet"),
    Program("velmora all", [VELMORA, "image", "TREE", "--fs", "all", "-o", "IMAGE"], "all"),
    Program("xorriso", [*XORRISO, *XORRISO_OPTIONS, "-o", "IMAGE", "TREE"]),
    Program("genisoimage", ["genisoimage", *GENISOIMAGE_OPTIONS, "-o", "IMAGE", "TREE"]),
    Program("genisoimage -udf", ["genisoimage", *GENISOIMAGE_OPTIONS, "-udf", "-o", "IMAGE", "TREE"]),
    Program("floor joliet", [FLOOR, "TREE", "PLACES", "IMAGE"], "joliet"),
    Program("floor all", [FLOOR, "TREE", "PLACES", "IMAGE"], "all"),
]
VELMORA_ALL = PROGRAMS[1]


def prepare(tell):
    """Installs what is missing and builds; silent unless there is something to do or a failure."""
    lists = [str(ROOT / "packaging" / "debian-packages-build.txt"), str(ROOT / "bench" / "debian-packages.txt")]
    script = f'. "{ROOT}/packaging/install-packages.sh"; install_packages "$@"'
    subprocess.run(["bash", "-c", script, "bash", *lists], check=True)
    steps = [["cmake", "--build", "--preset", "bench", "--target", *TARGETS]]
    if not (BUILD / "build.ninja").exists():
        steps.insert(0, ["cmake", "--preset", "bench"])
    tell("building ...")
    for step in steps:
        done = subprocess.run(step, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if done.returncode != 0:
            raise SystemExit(f"{done.stdout}\nthe build has failed")


def versions():
    """A line for each program, as it says itself."""
    commit = _first_line(["git", "-C", str(ROOT), "describe", "--always", "--dirty"], ".*")
    return [
        f"velmora {commit} (Release)",
        _first_line(["xorriso", "--version"], r"xorriso [0-9.]+"),
        _first_line(["genisoimage", "--version"], r"genisoimage [0-9.]+"),
    ]


def _first_line(command, pattern):
    said = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
    found = re.search(pattern, said)
    return found.group(0) if found else "(version not known)"
