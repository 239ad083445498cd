# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Random commands from several processes at once, with signals at random moments.

Every so often all wait, and the state is checked: no process may be left, no unexplained file, the tray and the burner must
see the same disc, and the recorder must burn the next one.
"""

import json
import os
import random
import signal
import threading
import time
import traceback

import burns
from machine import DONE, KINDS as RECORDABLE, NO_DISC, Recorder, judge

PERIOD = 20  # seconds between two checks
SIGNALS = (signal.SIGINT, signal.SIGINT, signal.SIGTERM, signal.SIGHUP, signal.SIGKILL, signal.SIGKILL, signal.SIGSTOP)
KINDS = (*RECORDABLE, "cd-rom", "dvd-rom", "bd-rom", "inconnu")
PRESETS = ("vierge", "ouvert", "ferme", "plein")
FAULTS = (("medium", "--at", "100"), ("streaming", "--at", "300"), ("removed", "--at", "200"), ("unplugged", "--at", "50"),
          ("read", "--at", "40"), ("erase",), ("tray",), ("medium", "--at", "20", "--lasting"), ("unplugged",))
# What changes a disc, or removes it.
CHANGES = {"burn", "burn-iso", "erase", "insert", "remove", "eject", "fault", "delete"}
# What `show` says of a disc, and `media` of the same.
STATES = {"vierge": "blank", "ouvert": "appendable", "fermé": "finalized", "réinscriptible": "overwritable"}


class Log:
    """Who changed which disc when."""

    def __init__(self):
        self._lock = threading.Lock()
        self._running = {}
        self._past = []

    def begin(self, worker, recorder, command):
        with self._lock:
            self._running[worker] = (recorder, command, time.monotonic())

    def end(self, worker):
        with self._lock:
            recorder, command, start = self._running.pop(worker)
            self._past = self._past[-500:] + [(worker, recorder, command, start, time.monotonic())]

    def is_alone(self, worker, recorder, since):
        """Is that recorder's disc unchanged by others since then?"""
        with self._lock:
            running = [(other, *rest[:2], None) for other, rest in self._running.items()]
            past = [(other, place, command, end) for other, place, command, _, end in self._past]
        return not any(other != worker and place == recorder and command in CHANGES and (end is None or end >= since)
                       for other, place, command, end in running + past)


class Worker(threading.Thread):
    """Gives one command after the other."""

    def __init__(self, number, machine, findings, recorders, log, seed):
        super().__init__(daemon=True)
        self.number, self.machine, self.findings, self.recorders, self.log = number, machine, findings, recorders, log
        self.chance = random.Random(f"{seed} {number}")
        self.folder = machine.path("folders", f"dossier {number}")
        self.image = machine.path("folders", f"image-{number}.iso")
        self.own = f"atelier {number}"  # a recorder that this worker makes and deletes
        self.deadline = 0
        self.commands = 0

    def run(self):
        try:
            while time.monotonic() < self.deadline:
                self.step()
        except Exception:  # a dead worker would find nothing more, unnoticed
            self.findings.tell("a fault of the script itself", traceback.format_exc())

    def step(self):
        self.commands += 1
        recorder = self.chance.choice(self.recorders)
        action = self.chance.choices(
            (self.burn, self.burn_image, self.erase, self.look, self.insert, self.move_tray, self.plan, self.make_recorder),
            weights=(6, 2, 4, 4, 5, 3, 3, 1))[0]
        action(recorder)

    def command(self, recorder, program, *arguments):
        self.log.begin(self.number, recorder.name, arguments[0])
        result = recorder.run(program, *arguments, disturb=self.disturb)
        self.log.end(self.number)
        judge(result, self.findings)
        return result

    def disturb(self, process):
        """Sends signals to a process, or none. Returns those that it sent."""
        sent = []
        if self.chance.random() < 0.6:
            return sent
        for _ in range(self.chance.choice((1, 1, 1, 2))):
            time.sleep(min(2.0, self.chance.expovariate(2.5)))
            if process.poll() is not None:
                break
            number = self.chance.choice(SIGNALS)
            process.send_signal(number)
            sent.append(number)
            if number == signal.SIGSTOP:
                time.sleep(0.2)  # gives others time while it stands still
                process.send_signal(signal.SIGCONT)
        return sent

    def burn(self, recorder):
        token = self.chance.randbytes(64)
        burns.make_folder(self.folder, self.chance, token)
        options = ["--close"] if self.chance.random() < 0.3 else []
        options += ["--no-verify"] if self.chance.random() < 0.2 else []
        result = self.command(recorder, "velmora-cli", "burn", self.folder, "--yes", *options)
        self.compare(result, recorder, token)

    def burn_image(self, recorder):
        token = self.chance.randbytes(64)
        burns.make_folder(self.folder, self.chance, token)
        made = self.command(recorder, "velmora-cli", "image", self.folder, "-o", self.image)
        if made.code == DONE:
            result = self.command(recorder, "velmora-cli", "burn-iso", self.image, "--yes")
            self.compare(result, recorder, token)

    def compare(self, result, recorder, token):
        """Compares what a burn says with what is on the disc."""
        is_alone = self.log.is_alone(self.number, recorder.name, result.start)
        try:
            sectors = recorder.sectors()
            is_there = sectors is not None and burns.is_on(sectors, token)
        except OSError:
            return  # the disc was changed meanwhile
        if result.code == DONE and not is_there and is_alone:
            self.findings.tell("a success with nothing on the disc", result)
        if is_there and "rien n'a été gravé" in result.words:
            self.findings.tell("a disc that was written, and told as not written", result)

    def erase(self, recorder):
        result = self.command(recorder, "velmora-cli", "erase", "--yes", *["--full"] * self.chance.randint(0, 1))
        if not self.log.is_alone(self.number, recorder.name, result.start):
            return
        disc = recorder.description().get("disc")
        if result.code == DONE and (disc is None or disc["sessions"] or "open" in disc):
            self.findings.tell("an erase that is told as done, and is not", result, disc)

    def look(self, recorder):
        self.command(recorder, *self.chance.choice((
            ("velmora-cli", "media"), ("velmora-cli", "media", "--json"), ("velmora-cli", "recorders"),
            ("velmora-tray", "show"), ("velmora-tray", "list"))))

    def insert(self, recorder):
        kind = self.chance.choice(KINDS)
        options = ["--state", self.chance.choice(PRESETS)] if self.chance.random() < 0.3 else []
        options += ["--write-protected"] if self.chance.random() < 0.05 else []
        options += ["--ready-after", "1"] if self.chance.random() < 0.1 else []
        self.command(recorder, "velmora-tray", "insert", kind, *options)

    def move_tray(self, recorder):
        self.command(recorder, "velmora-tray", self.chance.choice(("remove", "eject", "close")))

    def plan(self, recorder):
        self.command(recorder, "velmora-tray", *self.chance.choice((
            ("fault", *self.chance.choice(FAULTS)), ("fault", "clear"), ("plug",), ("timing", "real"),
            ("timing", "none"))))

    def make_recorder(self, recorder):
        """Makes a recorder in a data folder of its own, or deletes it again."""
        word = self.chance.choice((("create", self.own, "--real-timing"), ("insert", "cd-rw"),
                                   ("delete", self.own, "--yes")))
        environment = dict(recorder.environment, XDG_DATA_HOME=self.machine.path("data", self.own))
        judge(self.machine.run(environment, "velmora-tray", *word, disturb=self.disturb), self.findings)


class Look:
    """Checks the state while nothing runs."""

    def __init__(self, machine, findings, recorders):
        self.machine, self.findings, self.recorders = machine, findings, recorders

    def take(self):
        self.processes()
        for recorder in self.recorders:
            self.same_disc(recorder)
            self.next_disc(recorder)
            strange = recorder.strange_files()
            if strange:
                self.findings.tell(f"left-over files in {recorder.home}", *strange)
        if self.machine.left_files():
            self.findings.tell("left-over files", *self.machine.left_files())

    def processes(self):
        """Nothing of ours may run any more."""
        for number in filter(str.isdigit, os.listdir("/proc")):
            try:
                program = os.readlink(f"/proc/{number}/exe")
                with open(f"/proc/{number}/environ", "rb") as file:
                    is_ours = self.machine.scratch.encode() in file.read()
            except OSError:
                continue  # it has ended, or is somebody else's
            if is_ours and program.startswith(self.machine.programs):
                self.findings.tell("a process that is left", number, program)

    def command(self, recorder, program, *arguments):
        result = recorder.run(program, *arguments)
        judge(result, self.findings)
        return result

    def same_disc(self, recorder):
        """The tray and the burner must say the same about a disc."""
        for words in (("plug",), ("fault", "clear"), ("close",), ("timing", "none")):
            self.command(recorder, "velmora-tray", *words)
        time.sleep(1.5)  # the longest time that a disc of ours needs to get ready
        shown = self.command(recorder, "velmora-tray", "show")
        media = self.command(recorder, "velmora-cli", "media", "--json")
        if "Disque : aucun" in shown.words:
            if media.code != NO_DISC:
                self.findings.tell("an empty tray that holds a disc", shown, media)
            return
        if media.code != DONE:
            self.findings.tell("a disc that only the tray sees", shown, media)
            return
        self.same_state(shown, media)

    def same_state(self, shown, media):
        line = next(line for line in shown.words.splitlines() if line.startswith("Disque : "))
        told = json.loads(media.words)
        for words, key in STATES.items():
            if (f", {words}" in line) != (key in told["state"]):
                self.findings.tell("two answers for one disc", line, media.words)
        if "réinscriptible" in line and (", vide" in line) != told["blank"]:
            self.findings.tell("a disc that is blank for one of them only", line, media.words)

    def next_disc(self, recorder):
        """Whatever happened, a new disc is burned."""
        self.command(recorder, "velmora-tray", "insert", "dvd+r")
        folder = self.machine.path("folders", "prochain")
        burns.make_folder(folder, random.Random(1))
        result = self.command(recorder, "velmora-cli", "burn", folder, "--yes")
        if result.code != DONE:
            self.findings.tell("a recorder that doesn't burn the next disc", result)


def run(machine, findings, seed, processes, seconds):
    if seconds <= 0 or processes <= 0:
        return
    recorders = [Recorder(machine, name) for name in ("salon", "bureau")]
    look = Look(machine, findings, recorders)
    log = Log()
    end = time.monotonic() + seconds
    total = 0
    while time.monotonic() < end:
        workers = [Worker(number, machine, findings, recorders, log, f"{seed} {total}") for number in range(processes)]
        for worker in workers:
            worker.deadline = min(end, time.monotonic() + PERIOD)
            worker.start()
        for worker in workers:
            worker.join()
        total += sum(worker.commands for worker in workers)
        look.take()
        print(f"{total} commands, {findings.count} findings", flush=True)
