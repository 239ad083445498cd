#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""./run checks what it is given before it builds, and has a blank disc in its own virtual recorder.

Usage: run_test.py PROJECT FOLDER-OF-PROGRAMS

The real programs run; the build and the window are stand-ins, as a test builds nothing.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile


class Trial:
    """A copy of ./run in a project of its own, whose programs are at hand."""

    def __init__(self, project, programs, place):
        self.root = place / "project"
        self.data = place / "data"
        self.tray = programs / "velmora-tray"
        self.seen = place / "window"
        built = self.root / "build" / "release" / "src" / "app"
        built.mkdir(parents=True)
        (built.parents[1] / "build.ninja").touch()
        packaging = self.root / "packaging"
        packaging.mkdir()
        shutil.copy(project / "run", self.root / "run")
        (packaging / "install-packages.sh").write_text("install_packages() { :; }\n")
        for name in ("velmora-cli", "velmora-tray"):
            (built / name).symlink_to(programs / name)
        self.script(built / "velmora", f'printf "%s\\n" "$@" > "{self.seen}"')
        tools = place / "tools"
        tools.mkdir()
        self.script(tools / "cmake", "exit 0")
        self.environment = os.environ | {
            "PATH": f"{tools}:{os.environ['PATH']}", "XDG_DATA_HOME": str(self.data), "DISPLAY": ":stands-in"}

    @staticmethod
    def script(path, body):
        path.write_text(f"#!/bin/sh\n{body}\n")
        path.chmod(0o755)

    def call(self, program, *arguments):
        return subprocess.run([program, *map(str, arguments)], env=self.environment, capture_output=True, text=True,
                              check=False, timeout=120)

    def run(self, *arguments):
        return self.call(self.root / "run", *arguments)

    def disc(self):
        return self.call(self.tray, "show", "--recorder", "essai").stdout


def expect_refusal(trial, arguments, words):
    answer = trial.run(*arguments)
    assert answer.returncode == 2, (arguments, answer)
    assert words in answer.stderr, (arguments, answer.stderr)
    assert "Construction" not in answer.stderr, f"{arguments}: built before it was checked"


def expect_window_with_blank_disc(trial, folder):
    answer = trial.run(folder, "-n", "Noces d'or")
    assert answer.returncode == 0, answer
    assert "Construction de Velmora" in answer.stderr, answer.stderr
    assert trial.seen.read_text() == f"{folder}\n-n\nNoces d'or\n"
    assert "DVD+R, vierge" in trial.disc(), trial.disc()


def main():
    project, programs = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    with tempfile.TemporaryDirectory() as name:
        place = pathlib.Path(name)
        folder = place / "photos"
        folder.mkdir()
        trial = Trial(project, programs, place)
        expect_refusal(trial, [place / "nowhere"], "introuvable")
        expect_refusal(trial, ["--wrong"], "inconnue")
        expect_refusal(trial, [folder, folder], "de trop")
        expect_refusal(trial, [folder, "-n"], "attend une valeur")
        if trial.call(programs / "velmora-cli", "recorders").returncode == 0:  # a machine with a drive
            trial.call(trial.tray, "create", "essai")
        expect_window_with_blank_disc(trial, folder)
        trial.call(trial.tray, "insert", "dvd+r", "--state", "ferme", "--recorder", "essai")
        expect_window_with_blank_disc(trial, folder)
    print("./run keeps to its word.")


if __name__ == "__main__":
    main()
