# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Drives that the end-to-end tests burn in: virtual recorders, and a drive that is emulated for the library.

Both give the environment in which velmora-cli finds them, take discs, plan faults, and show what is on a disc.
"""

import json
import os
import subprocess

# Kinds of disc, as velmora-tray names them, and their MMC profiles.
PROFILES = {"cd-r": "09", "cd-rw": "0A", "dvd-r": "11", "dvd-ram": "12", "dvd-rw": "14", "dvd+rw": "1A", "dvd+r": "1B",
            "dvd+r-dl": "2B", "bd-r": "41", "bd-re": "43"}


class VirtualDrive:
    """One virtual recorder in a data folder of its own."""

    def __init__(self, folder, tray):
        self.tray_program = tray
        self.environment = {"XDG_DATA_HOME": os.path.join(folder, "data"),
                            "XDG_STATE_HOME": os.path.join(folder, "state")}
        self.home = os.path.join(folder, "data", "velmora", "recorders", "graveur-1")
        self.tray("create")

    def tray(self, *arguments):
        subprocess.run([self.tray_program, *arguments], env=dict(os.environ, **self.environment), check=True,
                       stdout=subprocess.DEVNULL, timeout=60)

    def insert(self, kind):
        self.tray("insert", kind)

    def description(self):
        with open(os.path.join(self.home, "recorder.json"), encoding="utf-8") as file:
            return json.load(file)

    def content(self):
        """The file that holds the disc's sectors."""
        return os.path.join(self.home, self.description()["disc"]["sectorFile"])

    def forget_faults(self):
        self.tray("fault", "clear")

    def take_time(self, **seconds):
        """Lets the drive take real time: the given steps last as given, the others no time."""
        def shorten(description):
            delays = description["drive"]["delays"]
            description["drive"]["delays"] = {step: seconds.get(step, 0) for step in delays}
        self.change(shorten)
        self.tray("timing", "real")

    def change(self, how):
        """Changes the recorder's description while it isn't in use."""
        description = self.description()
        how(description)
        path = os.path.join(self.home, "recorder.json")
        with open(path + ".test", "w", encoding="utf-8") as file:
            json.dump(description, file)
        os.rename(path + ".test", path)

    def take_no_time(self):
        self.tray("timing", "none")


class EmulatedDrive:
    """/dev/sr0 as an emulated drive that the program's own library of drives sends its commands to."""

    def __init__(self, folder, library):
        self.state = os.path.join(folder, "drive")
        self.log = os.path.join(folder, "drive.log")
        blocks = os.path.join(folder, "blocks")
        os.makedirs(blocks)
        open(os.path.join(blocks, "sr0"), "w", encoding="utf-8").close()
        self.environment = {"XDG_DATA_HOME": os.path.join(folder, "no recorders"), "LD_PRELOAD": library,
                            "XDG_STATE_HOME": os.path.join(folder, "state"),
                            "MMC_DRIVE_STATE": self.state, "MMC_DRIVE_LOG": self.log, "MMC_DRIVE_BLOCKS": blocks}
        self.write_state("tray-open 0")

    def write_state(self, *lines):
        with open(self.state, "w", encoding="utf-8") as file:
            file.write("".join(line + "\n" for line in lines))

    def read_state(self):
        with open(self.state, encoding="utf-8") as file:
            return file.read().splitlines()

    def insert(self, kind):
        if os.path.exists(self.content()):
            os.remove(self.content())
        faults = [line for line in self.read_state() if line.startswith("fault")]
        self.write_state("profile " + PROFILES[kind], *faults)

    def close(self):
        self.write_state(*(line for line in self.read_state() if not line.startswith("tray-open")))

    def content(self):
        return self.state + ".sectors"

    def fault(self, *words):
        self.write_state(*self.read_state(), "fault " + " ".join(map(str, words)))

    def forget_faults(self):
        self.write_state(*(line for line in self.read_state() if not line.startswith("fault")))

    def commands(self):
        """All commands that the drive got, with their results."""
        if not os.path.exists(self.log):
            return []
        with open(self.log, encoding="utf-8") as file:
            return file.read().splitlines()

    def violations(self):
        """Illegal requests that the program made to the drive."""
        if not os.path.exists(self.log):
            return []  # it was asked nothing
        with open(self.log, encoding="utf-8") as file:
            return [line for line in file if line.startswith("VIOLATION")]
