# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Turns results into tables: aligned columns, or Markdown for pasting."""

from statistics import median

from programs import PROGRAMS

MB = 1_000_000
# (program, measured against): largest ratio of wall times that we want, by tree
RATIOS = {
    ("velmora joliet", "xorriso"): {"small": 0.10, "share": 0.08, "large": 0.35},
    ("velmora all", "genisoimage -udf"): {"small": 0.25, "share": 0.08, "large": 0.25},
    ("velmora all", "floor all"): {"small": 1.4, "share": 1.3, "large": 1.15},
    ("velmora joliet", "floor joliet"): {"small": 1.4, "share": 1.3, "large": 1.15},
    ("velmora joliet", "genisoimage"): {},
}
PEAKS = {"small": 32 * MB, "million": 300 * MB}  # largest peak memory that we want, by tree
VELMORA = ("velmora joliet", "velmora all")


def table(header, rows, markdown):
    """The first column is text, the others are aligned to the right."""
    rows = [[str(cell) for cell in row] for row in [header, *rows]]
    widths = [max(len(row[column]) for row in rows) for column in range(len(header))]
    lines = []
    for row in rows:
        cells = [row[0].ljust(widths[0]), *(cell.rjust(width) for cell, width in zip(row[1:], widths[1:]))]
        lines.append("| " + " | ".join(cells) + " |" if markdown else "  ".join(cells).rstrip())
    if markdown:
        rulers = [":" + "-" * (widths[0] + 1), *("-" * (width + 1) + ":" for width in widths[1:])]
        lines.insert(1, "|" + "|".join(rulers) + "|")
    else:
        lines.insert(1, "-" * max(map(len, lines)))
    return "\n".join(lines)


def title(text, markdown):
    return f"\n### {text}\n" if markdown else f"\n{text}\n"


def tree_table(result, markdown):
    """Everything that was measured on one tree."""
    rows = []
    for program in (program.name for program in PROGRAMS):
        if program not in result.runs:
            continue
        walls = [run.wall for run in result.runs[program]]
        rows.append([
            program,
            f"{median(walls):.3f}",
            f"{min(walls):.3f}-{max(walls):.3f}",
            f"{result.median(program, 'cpu'):.3f}",
            f"{result.median(program, 'peak') / MB:.1f}",
            f"{result.median(program, 'image') / MB:.1f}",
            f"{100 * result.median(program, 'others'):.0f} %",
        ])
    heading = title(
        f"{result.name}: {result.files:,} files, {result.folders:,} folders, {result.bytes / MB:,.1f} MB", markdown)
    header = ["program", "wall s", "min-max", "CPU s", "peak MB", "image MB", "others"]
    notes = [f"{name}: not measured, {why}" for name, why in result.failures.items()]
    return "\n".join([heading, table(header, rows, markdown), *notes])


def ratio_table(results, markdown):
    """Wall times of Velmora as multiples of the others', and processor times for comparison."""
    rows = []
    for result in results:
        for (ours, other), targets in RATIOS.items():
            if ours not in result.runs or other not in result.runs or result.name == "million":
                continue
            ratio = result.median(ours, "wall") / result.median(other, "wall")
            cpu = result.median(ours, "cpu") / result.median(other, "cpu")
            each = [our.wall / its.wall for our, its in zip(result.runs[ours], result.runs[other])]
            best = min(run.wall for run in result.runs[ours]) / min(run.wall for run in result.runs[other])
            target = targets.get(result.name)
            rows.append([
                f"{result.name}: {ours} / {other}",
                f"{ratio:.3f}",
                f"{median(each):.3f}",
                f"{best:.3f}",
                *verdict(ratio, target, "{:.2f}"),
                f"{cpu:.3f}",
            ])
    if not rows:
        return ""
    header = ["wall time", "of medians", "median of rounds", "of best", "target", "met", "CPU time"]
    return title("Ratios", markdown) + "\n" + table(header, rows, markdown)


def peak_table(results, markdown):
    rows = []
    for result in results:
        for program in VELMORA:
            if result.name in PEAKS and program in result.runs:
                peak = max(run.peak for run in result.runs[program])
                target = verdict(peak / MB, PEAKS[result.name] / MB, "{:.0f} MB")
                rows.append([f"{result.name}: {program}", f"{peak / MB:.1f} MB", *target])
    if not rows:
        return ""
    return title("Peak memory", markdown) + "\n" + table(["highest of all rounds", "peak", "target", "met"], rows, markdown)


def verdict(value, target, form):
    """The cells for a target and for whether it is met."""
    return ["-", "-"] if target is None else [form.format(target), "yes" if value <= target else "NO"]
