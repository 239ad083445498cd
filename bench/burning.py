# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares a burn to a virtual disc with a plain copy of the same bytes, with and without the comparison, and measures the
processor time of a burn at a drive's pace."""

import filecmp
import os
import shutil
from pathlib import Path
from statistics import median

import tables
from measure import Failure, make_way, rehearse, timed_command
from programs import BURN

BYTES = 1000 * tables.MB // 32768 * 32768  # what a BD-R records at once: no padding
BURN_TO_COPY = 1.5  # largest ratio of wall times that we want
COMPARED_TO_COPY = 2.0  # the same where both are compared
COMPARED_CPU = 1.2  # seconds of a processor for each GB that is burned and compared
PACE = 72 * tables.MB  # bytes a second, a Blu-ray at 16x
PACED_SHARE = 0.10  # of one processor at that pace, while writing
COMPARING_SHARE = 0.06  # and while comparing


def table(work, chosen, tell):
    """A row for each way to bring the same bytes to the disk."""
    try:
        runs, comparisons = measure(work, chosen, tell)
    except Failure as failure:
        return f"{tables.title('Burning', chosen.markdown)}\nnot measured, {failure}"
    rows = [[
        name,
        f"{median(run.wall for run in those):.3f}",
        f"{min(run.wall for run in those):.3f}-{max(run.wall for run in those):.3f}",
        f"{median(run.cpu for run in those):.3f}",
        f"{max(run.peak for run in those) / tables.MB:.1f}",
        f"{100 * median(run.others for run in those):.0f} %",
    ] for name, those in runs.items()]
    ratio = median(run.wall for run in runs["burn"]) / median(run.wall for run in runs["cp and sync"])
    share = median(run.cpu / run.wall for run in runs["burn at 16x"])
    def cpu_of(name):
        return median(run.cpu for run in runs[name])

    compared = median(run.wall for run in runs["burn and compare"]) / median(run.wall for run in runs["cp, sync and cmp"])
    seconds = cpu_of("burn and compare") / (BYTES / 1e9)
    comparing = median(comparisons) / (BYTES / PACE)
    judged = [
        ["burn / cp and sync, wall time", f"{ratio:.3f}", *tables.verdict(ratio, BURN_TO_COPY, "{:.2f}")],
        ["burn at 16x, share of a processor", f"{share:.3f}", *tables.verdict(share, PACED_SHARE, "{:.2f}")],
        ["burn and compare / cp, sync and cmp, wall time", f"{compared:.3f}", *tables.verdict(compared, COMPARED_TO_COPY, "{:.2f}")],
        ["burn and compare, processor s a GB", f"{seconds:.3f}", *tables.verdict(seconds, COMPARED_CPU, "{:.2f}")],
        ["compare at 16x, share of a processor", f"{comparing:.3f}", *tables.verdict(comparing, COMPARING_SHARE, "{:.2f}")],
    ]
    return "\n".join([
        tables.title(f"Burning {BYTES / tables.MB:,.0f} MB to a virtual BD-R", chosen.markdown),
        tables.table(["way", "wall s", "min-max", "CPU s", "peak MB", "others"], rows, chosen.markdown),
        "",
        tables.table(["burning", "ratio", "target", "met"], judged, chosen.markdown),
    ])


def measure(work, chosen, tell):
    """What each way took, by its name, and of each comparison the seconds of a processor. A first round warms up, is
    checked and doesn't count."""
    image, recorders, copy = work / "burn.iso", work / "recorders", work / "copy.iso"
    write_image(image)
    ways = {
        "cp and sync": (["sh", "-c", f"cp '{image}' '{copy}' && sync '{copy}'"], lambda _: copy),
        "burn": ([BURN, str(recorders), str(image)], disc_of),
        "cp, sync and cmp": (["sh", "-c", f"cp '{image}' '{copy}' && sync '{copy}' && cmp '{image}' '{copy}'"], lambda _: copy),
        "burn and remember": ([BURN, str(recorders), str(image), "remembered"], disc_of),
        "burn and compare": ([BURN, str(recorders), str(image), "compared"], disc_of),
    }
    paced = {"burn at 16x": ([BURN, str(recorders), str(image), "paced"], disc_of)}
    runs = {name: [] for name in ways | paced}
    comparisons = []

    def forget():
        shutil.rmtree(recorders, ignore_errors=True)
        copy.unlink(missing_ok=True)

    def once(round_number, name, command, made):
        tell(f"burning: {f'round {round_number} of {chosen.rounds}' if round_number else 'warm-up'}, {name}")
        forget()
        make_way(copy, chosen.patience if round_number else 0)
        if round_number > 0:
            rehearse(lambda: timed_command(command, made, work), forget)
        run, written = timed_command(command, made, work)
        if round_number > 0:
            runs[name].append(run)
            if name == "burn and compare":
                comparisons.append(comparison_told(work))
        elif not filecmp.cmp(image, written, shallow=False):
            raise Failure(f"{name} has changed the bytes")

    try:
        for group in (ways, paced):  # not in turns: in the half minute of the paced ones the memory is lost again
            for round_number in range(chosen.rounds + 1):
                for name, (command, made) in group.items():
                    once(round_number, name, command, made)
    finally:
        forget()
        image.unlink(missing_ok=True)
    return runs, comparisons


def comparison_told(work):
    """What the last burn said of its comparison."""
    return float((work / "log").read_text(encoding="utf-8").splitlines()[-2])


def disc_of(said):
    return Path(said.splitlines()[-1] if said else "")


def write_image(image):
    """Random bytes, in the page cache."""
    with open(image, "wb") as file:
        for _ in range(BYTES // tables.MB):
            file.write(os.urandom(tables.MB))
        file.write(os.urandom(BYTES % tables.MB))
