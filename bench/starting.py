# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures how long the window takes to appear on a large folder, compared with `du` on the same folder."""

import os
import shutil
import subprocess
import time
from statistics import median

import tables
from measure import Failure, await_quiet
from programs import TRAY, WINDOW

FOLDERS, FILES = 1000, 100  # files in each folder
START_TO_DU = 1.2  # largest ratio of wall times that we want...
START_EXTRA = 0.4  # ...plus this many seconds
PATIENCE = 60  # seconds that a window may take


def table(work, chosen, tell):
    """A row for each of the two, and whether the window appears soon enough."""
    tree = ready_folder(work, tell)
    try:
        with Display(work) as display:
            runs = measure(tree, display, chosen, tell)
    except Failure as failure:
        return f"{tables.title('Starting', chosen.markdown)}\nnot measured, {failure}"
    rows = [[name, f"{median(those):.3f}", f"{min(those):.3f}-{max(those):.3f}"] for name, those in runs.items()]
    start, du = median(runs["window visible"]), median(runs["du -sb"])
    ratio = max(0.0, start - START_EXTRA) / du
    judged = [["(start - 0.4 s) / du", f"{ratio:.3f}", *tables.verdict(ratio, START_TO_DU, "{:.2f}")]]
    return "\n".join([
        tables.title(f"Starting on {FOLDERS * FILES:,} files in {FOLDERS:,} folders", chosen.markdown),
        tables.table(["what", "wall s", "min-max"], rows, chosen.markdown),
        "",
        tables.table(["starting", "ratio", "target", "met"], judged, chosen.markdown),
    ])


def ready_folder(work, tell):
    """The folder, made once: files of 1 to 900 bytes."""
    tree = work / "trees" / "folders"
    if tree.exists():
        return tree
    tell("making the tree folders ...")
    partial = tree.with_name("folders.part")
    shutil.rmtree(partial, ignore_errors=True)
    for folder in range(FOLDERS):
        path = partial / f"folder {folder:04}"
        path.mkdir(parents=True)
        for file in range(FILES):
            (path / f"file {file:03}.txt").write_bytes(b"x" * ((folder * 7 + file * 13) % 900 + 1))
    partial.rename(tree)
    return tree


def measure(tree, display, chosen, tell):
    """Seconds of each run, by what was run. A first round warms up and doesn't count."""
    runs = {"du -sb": [], "window visible": []}
    for round_number in range(chosen.rounds + 1):
        tell(f"starting: {f'round {round_number} of {chosen.rounds}' if round_number else 'warm-up'}")
        await_quiet(chosen.patience if round_number else 0)
        took = {"du -sb": seconds_of_du(tree), "window visible": display.seconds_until_visible(tree)}
        if round_number > 0:
            for name, seconds in took.items():
                runs[name].append(seconds)
    return runs


def seconds_of_du(tree):
    begun = time.monotonic()
    subprocess.run(["du", "-sb", str(tree)], stdout=subprocess.DEVNULL, check=True)
    return time.monotonic() - begun


class Display:
    """A screen without a monitor, and a home with one virtual recorder."""

    def __init__(self, work):
        self.home = work / "home"

    def __enter__(self):
        shutil.rmtree(self.home, ignore_errors=True)
        self.home.mkdir(mode=0o700)
        reading, writing = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1400x1000x24"],
                                       pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as number:
            name = number.readline().strip()
        if not name:
            raise Failure("Xvfb did not start")
        folders = {f"XDG_{kind}": str(self.home) for kind in ("DATA_HOME", "CONFIG_HOME", "CACHE_HOME", "RUNTIME_DIR")}
        self.environment = {**os.environ, **folders, "DISPLAY": f":{name}", "QT_QPA_PLATFORM": "xcb"}
        subprocess.run([TRAY, "create", "bench"], env=self.environment, stdout=subprocess.DEVNULL, check=True)
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()
        shutil.rmtree(self.home, ignore_errors=True)

    def seconds_until_visible(self, tree):
        begun = time.monotonic()
        window = subprocess.Popen([WINDOW, str(tree)], env=self.environment, stderr=subprocess.DEVNULL)
        search = ["xdotool", "search", "--onlyvisible", "--name", "^Velmora$"]
        try:
            # xdotool's own waiting polls only twice a second.
            while subprocess.run(search, env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode != 0:
                if time.monotonic() - begun > PATIENCE or window.poll() is not None:
                    raise Failure("the window did not appear")
            return time.monotonic() - begun
        finally:
            window.terminate()
            window.wait()
