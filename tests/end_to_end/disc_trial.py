# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What tests of velmora-cli with discs have in common: a drive, a folder, and how a burn is judged.

Each of them is called with CLI TRAY EMULATOR TEST and runs one test. EMULATOR is empty where there is none. It ends
with 77 when the test was skipped, and says why.
"""

import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

SKIPPED = 77
SECTOR = 2048
MIB = 1 << 20

DONE, FAILED, WRONG_USAGE, INCOMPLETE, NO_DISC, STOPPED = 0, 1, 2, 3, 4, 130


class DiscTest(unittest.TestCase):
    """A drive, a folder to burn, and what must hold after every test."""

    cli = tray = emulator = ""

    def setUp(self):
        self.scratch = tempfile.mkdtemp(prefix="velmora disc-")
        self.addCleanup(shutil.rmtree, self.scratch, ignore_errors=True)
        self.drive = self.make_drive()
        self.temporary = self.path("tmp")
        self.runtime = self.path("run")
        for folder in (self.temporary, self.runtime):
            os.makedirs(folder)
        self.environment = dict(os.environ, TMPDIR=self.temporary, XDG_RUNTIME_DIR=self.runtime, **self.drive.environment)

    def path(self, *names):
        return os.path.join(self.scratch, *names)

    def folder(self, megabytes=1):
        """A folder with one file of random bytes in a folder of its own, and a small one at the top."""
        os.makedirs(self.path("photos", "sub"), exist_ok=True)
        with open(self.path("photos", "sub", "large.bin"), "wb") as file:
            for _ in range(megabytes):
                file.write(os.urandom(MIB))
        with open(self.path("photos", "readme.txt"), "w", encoding="utf-8") as file:
            file.write("content")
        return self.path("photos")

    def run_cli(self, *arguments, answers=""):
        return subprocess.run([self.cli, *arguments], env=self.environment, input=answers, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=110, encoding="utf-8")

    def burn(self, *options, answers=""):
        return self.run_cli("burn", self.path("photos"), *options, answers=answers)

    def start(self, *arguments):
        """A burn that is under way, with its output in a file."""
        with open(self.path("words"), "wb") as words:
            return subprocess.Popen([self.cli, *arguments], env=self.environment, stdin=subprocess.DEVNULL, stdout=words,
                                    stderr=subprocess.STDOUT)

    def words(self):
        with open(self.path("words"), encoding="utf-8") as file:
            return file.read()

    def wait_for_words(self, process, text):
        deadline = time.monotonic() + 60
        while text not in self.words():
            self.assertIsNone(process.poll(), self.words())
            self.assertLess(time.monotonic(), deadline, self.words())
            time.sleep(0.01)  # between two looks at what it wrote

    def wait_for_command(self, process, beginning):
        deadline = time.monotonic() + 60
        while not any(line.startswith(beginning) for line in self.drive.commands()):
            self.assertIsNone(process.poll(), self.words())
            self.assertLess(time.monotonic(), deadline, self.words())
            time.sleep(0.01)  # between two looks at what it wrote

    def expect(self, result, code, *texts):
        self.assertEqual(result.returncode, code, result.stdout)
        for text in texts:
            self.assertIn(text, result.stdout)

    def expect_no_praise(self, words):
        for text in ("avec succès.", "identiques à ce qui", "Disque : "):
            self.assertNotIn(text, words.replace("Création de l'image disque réalisée avec succès...", ""))

    def expect_nothing_left_behind(self):
        self.assertEqual(os.listdir(self.temporary), [])
        self.assertEqual(os.listdir(self.runtime), [])

    def expect_failure(self, result, *texts):
        """It failed, said so, claimed nothing, left nothing, and the next disc can be burned."""
        self.expect(result, FAILED, *texts)
        self.expect_no_praise(result.stdout)
        self.expect_nothing_left_behind()
        self.expect_next_disc_works()

    def expect_next_disc_works(self, kind="dvd+r"):
        self.drive.forget_faults()
        self.drive.insert(kind)
        self.expect(self.burn("--yes"), DONE, "Gravure effectuée avec succès.", "identiques à ce qui a été gravé")
        self.expect_nothing_left_behind()

    def stop_while_writing(self):
        """Ctrl-C once the drive writes."""
        process = self.start("burn", self.path("photos"), "--yes")
        self.wait_for_words(process, "Gravure en cours...")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=60), STOPPED, self.words())
        self.assertIn("Interruption du processus de gravure...", self.words())
        self.assertIn("Annulation de la gravure par l'utilisateur", self.words())
        self.assertIn("Arrêté à votre demande : le disque est inachevé et ne peut pas servir.", self.words())
        self.expect_no_praise(self.words())
        self.expect_nothing_left_behind()


def main(case):
    """Runs the test of the class `case` that the command line names."""
    DiscTest.cli, DiscTest.tray, DiscTest.emulator, test = sys.argv[1:]
    result = unittest.TextTestRunner(verbosity=2).run(unittest.TestSuite([case(test)]))
    if not result.wasSuccessful() or result.testsRun == 0:
        sys.exit(1)
    if result.skipped:
        sys.exit(SKIPPED)
