# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The programs under test, the virtual recorders that they work on, and what was found."""

import json
import os
import shutil
import signal
import subprocess
import tempfile
import threading
import time

DONE, FAILED, INCOMPLETE, NO_DISC, STOPPED = 0, 1, 3, 4, 130
LONGEST = 300  # seconds that any command may take

CRASHES = {signal.SIGSEGV, signal.SIGABRT, signal.SIGBUS, signal.SIGFPE, signal.SIGILL, signal.SIGSYS, signal.SIGTRAP}
WORDS_OF_CRASHES = ("terminate called", "Sanitizer", "runtime error:", "ASSERT", "pure virtual")

# All recordable discs, as velmora-tray names them.
KINDS = ("cd-r", "cd-r-74", "cd-r-90", "cd-rw", "dvd-r", "dvd-rw", "dvd-rw-ow", "dvd-ram", "dvd+r", "dvd+rw", "dvd-r-dl",
         "dvd+r-dl", "dvd+rw-dl", "bd-r", "bd-r-dl", "bd-re", "bd-re-dl")

# Steps of a slow drive, long enough for signals to come in between.
DELAYS = {"tray": 0.1, "ready": 0.4, "format": 0.2, "prepare": 0.1, "calibrate": 0.1, "finish": 0.5, "quickErase": 0.8}
SPEED = 2_000_000  # sectors per second: the whole of the largest disc in some seconds


class Findings:
    """What went wrong, printed at once."""

    def __init__(self):
        self.count = 0
        self._lock = threading.Lock()

    def tell(self, what, *details):
        with self._lock:
            self.count += 1
            print(f"FOUND: {what}", *(f"    {line}" for text in details for line in str(text).splitlines()), sep="\n",
                  flush=True)


class Result:
    """A command that has ended."""

    def __init__(self, command, code, words, signals, start, end):
        self.command, self.code, self.words, self.signals = command, code, words, signals
        self.start, self.end = start, end

    def __str__(self):
        names = [signal.Signals(number).name for number in self.signals]
        return f"{' '.join(self.command)} -> {self.code} {' '.join(names)}\n{self.words}"


class Recorder:
    """A virtual recorder, the only one in its data folder: a command without a name reaches it and no other."""

    def __init__(self, machine, name):
        self.machine, self.name = machine, name
        self.environment = dict(machine.environment, XDG_DATA_HOME=os.path.join(machine.scratch, "data", name))
        self.home = os.path.join(self.environment["XDG_DATA_HOME"], "velmora", "recorders", name)
        machine.run(self.environment, "velmora-tray", "create", name)
        self._hurry()

    def run(self, program, *arguments, **terms):
        return self.machine.run(self.environment, program, *arguments, **terms)

    def tray(self, *arguments):
        return self.run("velmora-tray", *arguments)

    def cli(self, *arguments):
        return self.run("velmora-cli", *arguments)

    def description(self):
        with open(os.path.join(self.home, "recorder.json"), encoding="utf-8") as file:
            return json.load(file)

    def sectors(self):
        """Path of the file that holds the disc's sectors; None without a disc."""
        disc = self.description().get("disc")
        return os.path.join(self.home, disc["sectorFile"]) if disc else None

    def strange_files(self):
        """Unexplained names in the recorder's folder."""
        description = self.description()
        own = {"recorder.json", "lock", *description.get("spareFiles", [])}
        if "disc" in description:
            own.add(description["disc"]["sectorFile"])
        return sorted(set(os.listdir(self.home)) - own)

    def _hurry(self):
        path = os.path.join(self.home, "recorder.json")
        description = self.description()
        description["drive"]["delays"] = DELAYS
        description["drive"]["speeds"] = {kind: [SPEED] for kind in KINDS}
        with open(path, "w", encoding="utf-8") as file:
            json.dump(description, file)


class Machine:
    """The programs, in an environment of their own."""

    def __init__(self, programs):
        self.programs = os.path.abspath(programs)
        self.scratch = tempfile.mkdtemp(prefix="velmora-soak-")
        self.places = {name: os.path.join(self.scratch, name) for name in ("temporary", "run", "home", "folders")}
        for place in self.places.values():
            os.makedirs(place)
        self.environment = dict(os.environ, TMPDIR=self.places["temporary"], XDG_RUNTIME_DIR=self.places["run"],
                                HOME=self.places["home"], XDG_DATA_HOME=os.path.join(self.scratch, "data", "none"))
        self.started = set()
        self._lock = threading.Lock()

    def problem(self):
        """Why it can't run here; None if it can."""
        for name in ("velmora-cli", "velmora-tray"):
            if not os.access(os.path.join(self.programs, name), os.X_OK):
                return f"there is no {name} in {self.programs}"
        drives = self.run(self.environment, "velmora-cli", "recorders", "--json")
        if drives.code != FAILED:
            return "this machine has a recorder, which a command could reach"
        return None

    def path(self, *names):
        return os.path.join(self.scratch, *names)

    def run(self, environment, program, *arguments, disturb=None):
        """Runs a command to its end.

        disturb: called with the process while it runs; returns the signals that it sent
        """
        command = (program, *map(str, arguments))
        start = time.monotonic()
        with tempfile.TemporaryFile(dir=self.places["folders"]) as words:
            process = subprocess.Popen([os.path.join(self.programs, program), *command[1:]], env=environment,
                                       stdin=subprocess.DEVNULL, stdout=words, stderr=subprocess.STDOUT)
            with self._lock:
                self.started.add(process)
            signals = disturb(process) if disturb else []
            try:
                code = process.wait(timeout=LONGEST)
            except subprocess.TimeoutExpired:
                code = None
                process.kill()
                process.wait()
            with self._lock:
                self.started.discard(process)
            words.seek(0)
            text = words.read().decode("utf-8", "replace")
        return Result(command, code, text, signals, start, time.monotonic())

    def left_files(self):
        """What the programs have left in places that they may use only while they run."""
        return [os.path.join(place, name) for key in ("temporary", "run") for place in [self.places[key]]
                for name in os.listdir(place)]

    def end(self):
        """Ends what is still running, after a failure of the script itself."""
        for process in list(self.started):
            process.kill()

    def remove(self):
        shutil.rmtree(self.scratch, ignore_errors=True)


def judge(result, findings):
    """What must hold for every command, whatever happened."""
    if result.code is None:
        findings.tell(f"a command that didn't end within {LONGEST} s", result)
    elif -result.code in CRASHES or any(words in result.words for words in WORDS_OF_CRASHES):
        findings.tell("a crash", result)
    elif result.code < 0 and -result.code not in result.signals:
        findings.tell("an end by a signal that nobody sent", result)
    elif result.code == 2:
        findings.tell("a command line that is refused", result)
    elif result.code not in (DONE, FAILED, INCOMPLETE, NO_DISC, STOPPED) and result.code >= 0:
        findings.tell("an exit code without a meaning", result)
    elif result.code > 0 and not result.words.strip():
        findings.tell("a failure without a word", result)
