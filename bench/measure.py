# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs programs on one tree, in turn, and keeps what each run took."""

import os
import random
import subprocess
import time
from dataclasses import dataclass, field
from pathlib import Path
from statistics import median

from programs import PLACES, PROGRAMS, STOPWATCH
from trees import walk

TICKS = os.sysconf("SC_CLK_TCK")
QUIET = 0.08  # share of the processors that may be busy before a run


@dataclass(frozen=True)
class Run:
    wall: float  # seconds
    cpu: float  # seconds, user and system
    peak: int  # bytes resident
    image: int  # bytes
    others: float  # share of the processors that was busy with something else, 0..1


@dataclass
class TreeResult:
    name: str
    files: int
    folders: int
    bytes: int
    runs: dict = field(default_factory=dict)  # program's name: [Run], one a round
    failures: dict = field(default_factory=dict)  # program's name: what it said

    def median(self, program, what):
        return median(getattr(run, what) for run in self.runs[program])


class Failure(Exception):
    """A program could not make the image."""


def measure_tree(name, tree, work, rounds, patience, tell):
    """Measures every program `rounds` times. A first round warms up, is checked and doesn't count."""
    result = TreeResult(name, *walk(tree))
    image = work / "bench.iso"
    for round_number in range(rounds + 1):
        # Another order each time, the same in every run of the benchmark: no program always comes first
        # or behind the same other one.
        for program in random.Random(round_number).sample(PROGRAMS, len(PROGRAMS)):
            if program.name in result.failures:
                continue
            tell(f"{name}: {f'round {round_number} of {rounds}' if round_number else 'warm-up'}, {program.name}")
            places = work / f"places-{name}-{program.layout}"
            try:
                if round_number == 0 and program.layout:
                    write_places(program.layout, tree, places)
                paths = {"TREE": str(tree), "PLACES": str(places), "IMAGE": str(image)}
                make_way(image, patience if round_number else 0)
                if round_number > 0:
                    rehearse(lambda: timed(paths, program, work), image.unlink)
                run = timed(paths, program, work)
                if run.image < result.bytes:
                    raise Failure("the image is smaller than the tree")
                if round_number == 0 and program.layout:
                    check_places(tree, places, image)
            except Failure as failure:
                result.failures[program.name] = str(failure)
                continue
            if round_number > 0:
                result.runs.setdefault(program.name, []).append(run)
    image.unlink(missing_ok=True)
    return result


def timed(paths, program, work):
    """One run of a program. What must not be timed was done by make_way()."""
    run, _ = timed_command(program.arguments(paths), lambda _: Path(paths["IMAGE"]), work, paths["IMAGE"])
    return run


def timed_command(command, made, work, kept=""):
    """One run of a command. `made` names the file that it makes, by what it said. The time ends when the file
    `kept` is on the disk.
    @return what it took, and that file"""
    log = work / "log"
    busy = busy_seconds()
    with open(log, "wb") as said:
        done = subprocess.run([STOPWATCH, kept, *command], stdout=subprocess.PIPE, stderr=said, text=True)
    busy = busy_seconds() - busy
    wall, user, system, peak, code = done.stdout.split() if done.returncode == 0 else (1, 0, 0, 0, 127)
    said = log.read_text(errors="replace").strip()
    if code != "0" or not made(said).exists():
        raise Failure(f"failed with {code}: {(said.splitlines()[-1:] or ['it said nothing'])[0]}")
    wall, cpu = float(wall), float(user) + float(system)
    others = max(0.0, busy - cpu) / (wall * os.cpu_count())
    return Run(wall, cpu, int(peak) * 1024, made(said).stat().st_size, min(others, 1.0)), made(said)


def make_way(former, patience):
    """Before a run: the previous one's output is removed, the disk has caught up and the machine is idle."""
    former.unlink(missing_ok=True)
    os.sync()
    await_quiet(patience)


def rehearse(run, forget):
    """A run at once before the one that counts; `forget` removes what it has made.

    A virtual machine hands memory that is free, or was not used for some seconds, back to its host, and
    fetching it again takes longer than making an image. This run reads the sources, and leaves as much memory as
    the next one needs."""
    run()
    forget()


def await_quiet(patience):
    """Waits until the machine is nearly idle, `patience` seconds at most."""
    until = time.monotonic() + patience
    while time.monotonic() < until:
        before = busy_seconds()
        time.sleep(1)
        if busy_seconds() - before < QUIET * os.cpu_count():
            return


def busy_seconds():
    """What all processors together have worked since the machine started (proc_stat(5))."""
    user, nice, system, _idle, _iowait, irq, softirq, steal = Path("/proc/stat").read_text().split()[1:9]
    return sum(map(int, (user, nice, system, irq, softirq, steal))) / TICKS


def write_places(layout, tree, places):
    """Writes down the plan of an image, for the floor."""
    with open(places, "wb") as out:
        if subprocess.run([PLACES, layout, str(tree)], stdout=out).returncode != 0:
            raise Failure("the tree could not be planned")


def check_places(tree, places, image):
    """Makes sure that an image has the bytes of a hundred files where the plan puts them: the floor
    must have done the same work as the image writer."""
    size, *files = places.read_bytes().split(b"\0")[:-1]
    if image.stat().st_size != int(size):
        raise Failure(f"the image has {image.stat().st_size} bytes, planned are {int(size)}")
    with open(image, "rb") as made:
        for line in random.Random(1).sample(files, min(100, len(files))):
            begin, length, path = line.split(b" ", 2)
            made.seek(int(begin))
            with open(os.path.join(os.fsencode(tree), path), "rb") as source:
                remaining = int(length)
                while remaining > 0:
                    piece = source.read(min(remaining, 1 << 22))
                    if not piece or made.read(len(piece)) != piece:
                        raise Failure(f"{os.fsdecode(path)} is not at its place in the image")
                    remaining -= len(piece)
