#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What velmora-cli does with discs as a process: its words, its exit codes, what is on the disc, and what is left
behind when something goes wrong.

Usage: disc_program_test.py CLI TRAY EMULATOR TEST   runs one test; EMULATOR is empty where there is none. Ends with
77 when it was skipped, and says why.
"""

import fcntl
import hashlib
import os
import pty
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest

sys.dont_write_bytecode = True

import disc_drives

SKIPPED = 77
SECTOR = 2048
MIB = 1 << 20
CLI = TRAY = EMULATOR = ""

DONE, FAILED, WRONG_USAGE, INCOMPLETE, NO_DISC, STOPPED = 0, 1, 2, 3, 4, 130


class DiscTest(unittest.TestCase):
    """A drive, a folder to burn, and what must hold behind every test."""

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
        return subprocess.run([CLI, *arguments], env=self.environment, input=answers, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=110, encoding="utf-8")

    def burn(self, *options, answers=""):
        return self.run_cli("burn", self.path("photos"), *options, answers=answers)

    def start(self, *arguments):
        """A burn that is under way, with its words in a file."""
        with open(self.path("words"), "wb") as words:
            return subprocess.Popen([CLI, *arguments], env=self.environment, stdin=subprocess.DEVNULL, stdout=words,
                                    stderr=subprocess.STDOUT)

    def words(self):
        with open(self.path("words"), encoding="utf-8") as file:
            return file.read()

    def wait_for_words(self, process, text):
        deadline = time.monotonic() + 60
        while text not in self.words():
            self.assertIsNone(process.poll(), self.words())
            self.assertLess(time.monotonic(), deadline, self.words())
            time.sleep(0.01)

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
        """It failed, said so, claimed nothing, left nothing, and the next disc is burned."""
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


class VirtualDiscTest(DiscTest):
    """In a virtual recorder."""

    def make_drive(self):
        return disc_drives.VirtualDrive(self.scratch, TRAY)

    # A disc that is good

    def test_the_digest_that_is_told_is_that_of_the_disc(self):
        self.folder(5)
        self.drive.insert("dvd+r")
        result = self.burn("-n", "Été 2024")
        self.expect(result, DONE, "Le titre du disque est : Été 2024")
        told = re.search(r"SHA-256 : ([0-9a-f]{64})", result.stdout)[1]
        session = self.drive.description()["disc"]["sessions"][0]
        with open(self.drive.content(), "rb") as file:
            disc = file.read()
        sizes = [size for size in range(session["sectors"] * SECTOR, 0, -SECTOR)
                 if hashlib.sha256(disc[:size]).hexdigest() == told]
        self.assertEqual(len(sizes), 1, "no beginning of the disc has that digest")
        self.assertGreater(sizes[0], 5 * MIB)
        self.assertFalse(any(disc[sizes[0]:]), "more than padding was not compared")

    def test_hidden_entries_at_the_top_are_told(self):
        folder = self.folder()
        for name in (".one", ".two"):
            os.makedirs(os.path.join(folder, name))
        self.drive.insert("dvd+r")
        self.expect(self.burn(), DONE, "laissé de côté à la racine du dossier : 2 éléments cachés")

    def test_a_disc_in_the_open_tray_is_pulled_in(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.tray("eject")
        self.expect(self.burn(), DONE, "identiques à ce qui a été gravé")

    def test_without_verification_nothing_is_said_to_be_good(self):
        self.folder()
        self.drive.insert("dvd+r")
        result = self.burn("--no-verify")
        self.expect(result, DONE, "Gravure effectuée avec succès.", "Comparaison : non faite (--no-verify)")
        self.assertNotIn("identiques", result.stdout)

    def test_a_closed_disc_takes_no_more(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.expect(self.burn("--close"), DONE)
        self.assertTrue(self.drive.description()["disc"]["closed"])
        self.drive.insert("dvd+r")
        self.expect(self.burn(), DONE)
        self.assertFalse(self.drive.description()["disc"]["closed"])

    def test_an_entry_that_cannot_be_taken_makes_the_disc_incomplete(self):
        os.mkfifo(os.path.join(self.folder(), "sub", "pipe"))
        self.drive.insert("dvd+r")
        self.expect(self.burn(), INCOMPLETE, "Impossible d'ajouter à l'image disque le répertoire :", "pipe",
                    "Éléments absents du disque : 1", "identiques à ce qui a été gravé")

    def test_a_pipe_gets_plain_lines(self):
        self.folder(20)
        self.drive.insert("dvd+r")
        result = self.burn()
        self.expect(result, DONE, "Gravure : 100 %")
        self.assertNotIn("\r", result.stdout)

    def test_a_terminal_gets_one_line_that_is_gone_at_the_end(self):
        self.folder(20)
        self.drive.insert("dvd+r")
        self.drive.take_time(prepare=0.3)
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 100, 0, 0))
        process = subprocess.Popen([CLI, "burn", self.path("photos")], env=self.environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=slave)
        os.close(slave)
        shown = b""
        try:
            while block := os.read(master, 4096):
                shown += block
        except OSError:  # how Linux tells that the other end is closed
            pass
        self.assertEqual(process.wait(), DONE, shown.decode())
        lines = re.split("[\r\n]+", shown.decode())
        self.assertTrue(any(re.match(r"Gravure : \d+ %   [\d ]+(,\d)? [MK]o/s   tampon \d+ %", line) for line in lines), lines)
        self.assertTrue(any(line.startswith("Préparation du disque : ") for line in lines), lines)
        self.assertTrue(any(line.startswith("Comparaison du disque") for line in lines), lines)
        self.assertTrue(all(len(line) <= 99 for line in lines if " %   " in line), lines)
        self.assertEqual(lines[-1].strip(), "")

    # Questions

    def test_the_disc_that_is_named_is_asked_for(self):
        self.folder()
        self.drive.insert("dvd+r")
        result = self.burn("--format", "dvd", answers="a\n")
        self.expect(result, FAILED, "Merci de mettre un CD dans le lecteur puis cliquer sur Ok", "rien n'a été gravé")
        self.assertEqual(self.drive.description()["disc"]["sessions"], [])
        self.expect(self.burn("--format", "dvd", answers="\n"), DONE, "identiques à ce qui a été gravé")

    def test_another_disc_than_the_one_named_is_refused(self):
        self.folder()
        self.drive.insert("cd-r")
        result = self.burn("--format", "dvd", "--yes")
        self.expect(result, FAILED, "Le média inséré (CD-R) est différent du média demandé (DVD-R ou RW) !", "→ Non (--yes)")
        self.expect_no_praise(result.stdout)

    def test_a_used_disc_is_refused_until_it_is_erased(self):
        for kind in ("cd-rw", "dvd+rw"):
            self.folder()
            self.drive.insert(kind)
            self.expect(self.burn("--yes"), DONE)
            self.expect(self.burn("--yes"), FAILED, "Le média n'est pas vierge.", "velmora-cli erase")
            self.expect(self.run_cli("erase", "--yes"), DONE, "Effacement rapide.", "Disque : effacé")
            self.expect(self.burn("--yes"), DONE, "identiques à ce qui a été gravé")

    def test_a_folder_that_is_too_large_for_the_disc_is_refused(self):
        os.truncate(os.path.join(self.folder(), "sub", "large.bin"), 900 * MIB)
        self.drive.insert("cd-r")
        result = self.burn("--yes")
        self.expect(result, FAILED, "rien n'a été gravé")
        self.assertEqual(self.drive.description()["disc"]["sessions"], [])

    def test_no_recorder_no_disc_no_folder(self):
        self.folder()
        self.expect(self.burn(), NO_DISC, "Le lecteur est vide")
        self.expect(self.run_cli("burn", self.path("nowhere")), FAILED, "n'existe pas")
        self.expect(self.run_cli("burn", self.path("photos"), "--recorder", "2"), FAILED, "il n'y a pas de graveur n° 2")
        shutil.rmtree(self.drive.home)
        self.expect(self.burn(), FAILED, "aucun graveur n'a été trouvé")

    # Images

    def make_image(self):
        result = self.run_cli("image", self.folder(3), "-o", self.path("photos.iso"))
        self.assertEqual(result.returncode, DONE, result.stdout)
        with open(self.path("photos.iso"), "rb") as file:
            return file.read()

    def test_an_image_is_burned_byte_for_byte(self):
        image = self.make_image()
        self.drive.insert("bd-r")
        result = self.run_cli("burn-iso", self.path("photos.iso"), "--yes")
        self.expect(result, DONE, "Gravure effectuée avec succès.", "identiques à ce qui a été gravé",
                    "SHA-256 : " + hashlib.sha256(image).hexdigest())
        with open(self.drive.content(), "rb") as file:
            self.assertEqual(file.read(len(image)), image)

    def test_an_image_goes_only_on_a_blank_disc(self):
        self.make_image()
        self.drive.insert("dvd+rw")
        self.expect(self.burn("--yes"), DONE)
        result = self.run_cli("burn-iso", self.path("photos.iso"), "--yes")
        self.expect(result, FAILED, "Le graveur est vide ou bien le média n'est pas vierge", "Abandon !",
                    "velmora-cli erase")

    def test_what_is_no_image_is_refused_before_the_tray_moves(self):
        self.folder()
        self.drive.insert("dvd+r")
        for file, text in ((self.path("nowhere.iso"), "n'existe pas"), (self.path("photos"), "n'est pas un fichier"),
                           (self.path("photos", "readme.txt"), "n'est pas une image ISO complète")):
            result = self.run_cli("burn-iso", file, "--yes")
            self.expect(result, FAILED, text)
            self.assertNotIn("Merci de mettre", result.stdout)

    # Erasing

    def test_an_erase_wants_an_agreement(self):
        self.folder()
        self.drive.insert("dvd+rw")
        self.expect(self.burn("--yes"), DONE)
        with open(self.drive.content(), "rb") as file:
            before = file.read()
        for answers in ("", "n\n", "\n"):
            result = self.run_cli("erase", answers=answers)
            self.expect(result, FAILED, "ATTENTION : Vous allez effacer", "rien n'a été effacé, faute d'accord")
        with open(self.drive.content(), "rb") as file:
            self.assertEqual(file.read(), before)
        self.expect(self.run_cli("erase", "--full", answers="o\n\n"), DONE, "Effacement complet.", "Disque : effacé")
        with open(self.drive.content(), "rb") as file:
            self.assertFalse(any(file.read()))

    def test_a_failed_erase_is_never_called_a_success(self):
        self.drive.insert("cd-rw")
        self.drive.tray("fault", "erase")
        result = self.run_cli("erase", "--yes")
        self.expect(result, FAILED, "l'effacement a échoué")
        self.assertNotIn("effacé\n", result.stdout)
        self.expect(self.run_cli("erase", "--yes"), DONE, "Disque : effacé")

    def test_a_disc_that_cannot_be_erased(self):
        self.drive.insert("dvd+r")
        self.expect(self.run_cli("erase", "--yes"), FAILED, "rien n'a été effacé")
        self.drive.tray("remove")
        self.expect(self.run_cli("erase", "--yes"), FAILED, "rien n'a été effacé")

    def test_ctrl_c_at_the_prompt_erases_nothing(self):
        self.folder()
        self.drive.insert("dvd+rw")
        self.expect(self.burn("--yes"), DONE)
        with open(self.path("words"), "wb") as words:
            process = subprocess.Popen([CLI, "erase"], env=self.environment, stdin=subprocess.PIPE, stdout=words,
                                       stderr=subprocess.STDOUT)
        process.stdin.write(b"o\n")
        process.stdin.flush()
        self.wait_for_words(process, "Merci de mettre le média à effacer")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=30), STOPPED, self.words())
        process.stdin.close()
        self.assertIn("Arrêté à votre demande : rien n'a été effacé.", self.words())
        with open(self.drive.content(), "rb") as file:
            self.assertTrue(any(file.read(100 * SECTOR)))

    # Stops

    def test_ctrl_c_while_writing(self):
        self.folder(60)
        self.drive.insert("dvd+r")
        self.drive.take_time()
        self.stop_while_writing()
        self.drive.take_no_time()
        self.expect_next_disc_works()

    def test_more_ctrl_c_do_not_cut_off_a_drive_that_ends_its_session(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.take_time(finish=3)
        process = self.start("burn", self.path("photos"), "--yes")
        self.wait_for_words(process, "Ecriture des pistes")
        for _ in range(4):
            process.send_signal(signal.SIGINT)
            time.sleep(0.1)
        self.assertEqual(process.wait(timeout=60), STOPPED, self.words())
        self.assertIn("Arrêté à votre demande", self.words())
        self.assertNotIn("open", self.drive.description()["disc"])
        self.assertEqual(len(self.drive.description()["disc"]["sessions"]), 1)

    def test_ctrl_c_before_the_write(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.take_time(prepare=30)
        process = self.start("burn", self.path("photos"), "--yes")
        self.wait_for_words(process, "Initialisation du graveur... \n")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=20), STOPPED, self.words())
        self.assertIn("Arrêté à votre demande : rien n'a été gravé.", self.words())
        self.assertEqual(self.drive.description()["disc"]["sessions"], [])
        self.drive.take_no_time()
        self.expect(self.burn("--yes"), DONE, "identiques")  # the very same disc

    def test_ctrl_c_at_the_prompt_for_a_disc(self):
        self.folder()
        self.drive.insert("dvd+r")
        with open(self.path("words"), "wb") as words:
            process = subprocess.Popen([CLI, "burn", self.path("photos"), "--format", "dvd"], env=self.environment,
                                       stdin=subprocess.PIPE, stdout=words, stderr=subprocess.STDOUT)
        self.wait_for_words(process, "[Entrée pour continuer")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=20), STOPPED, self.words())
        process.stdin.close()
        self.assertIn("Arrêté à votre demande : rien n'a été gravé.", self.words())

    # Faults of disc and drive

    def fault_while_writing(self, *fault):
        self.folder(20)
        self.drive.insert("dvd+r")
        self.drive.tray("fault", *fault)
        return self.burn("--yes")

    def test_a_write_error(self):
        self.expect_failure(self.fault_while_writing("medium", "--at", "5000"), "Une erreur est survenue : ",
                            "Erreur d'écriture irrécupérable : prenez un autre disque ou une vitesse plus basse. "
                            "(Erreur n° -1062599935)",
                            "la gravure a échoué : le disque est inachevé et ne peut pas servir")

    def test_data_that_comes_too_slowly(self):
        self.expect_failure(self.fault_while_writing("streaming", "--at", "5000"),
                            "Données fournies trop lentement au graveur : choisissez une vitesse plus basse. "
                            "(Erreur n° -1062599936)")

    def test_a_disc_that_is_pulled_out_half_way(self):
        self.expect_failure(self.fault_while_writing("removed", "--at", "5000"),
                            "Aucun média dans le lecteur : insérez un disque. (Erreur n° -1062600190)",
                            "le disque est inachevé")

    def test_a_tray_that_a_person_opens_half_way(self):
        self.folder(60)
        self.drive.insert("dvd+r")
        self.drive.take_time()
        process = self.start("burn", self.path("photos"), "--yes")
        self.wait_for_words(process, "Gravure : ")
        self.drive.tray("eject")
        self.assertEqual(process.wait(timeout=60), FAILED, self.words())
        self.expect_no_praise(self.words())
        self.assertIn("le disque est inachevé", self.words())
        self.drive.take_no_time()
        self.expect_next_disc_works()

    def test_a_drive_that_goes_half_way(self):
        self.expect_failure(self.fault_while_writing("unplugged", "--at", "5000"), "(Erreur n° -2147024841)",
                            "le disque est inachevé")

    def test_a_drive_that_never_gets_ready(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "never-ready", "--lasting")
        self.expect_failure(self.burn("--yes"), "Le lecteur n'est pas encore prêt : attendez un instant.")

    def test_a_drive_that_another_program_uses(self):
        self.folder(40)
        self.drive.insert("dvd+r")
        self.drive.take_time()
        process = self.start("burn", self.path("photos"), "--yes")
        self.wait_for_words(process, "Gravure en cours...")
        self.expect(self.burn("--yes"), FAILED, "verrouillé par une autre application")
        self.assertEqual(process.wait(timeout=90), DONE, self.words())
        self.assertIn("identiques à ce qui a été gravé", self.words())

    # The comparison

    def test_a_disc_that_changed_is_found_out(self):
        self.folder(40)
        self.drive.insert("bd-r")
        self.drive.take_time(finish=3)
        process = self.start("burn", self.path("photos"), "--yes")
        self.wait_for_words(process, "Ecriture des pistes")
        with open(self.drive.content(), "r+b") as file:
            file.seek(10_000 * SECTOR)
            byte = file.read(1)
            file.seek(10_000 * SECTOR)
            file.write(bytes([byte[0] ^ 1]))
        self.assertEqual(process.wait(timeout=90), FAILED, self.words())
        self.assertIn("Erreur : le disque ne contient pas ce qui a été gravé", self.words())
        self.assertIn("entre les secteurs 8 192 et 16 383, 16,8 Mo identiques avant cela", self.words())
        self.assertNotIn("identiques à ce qui a été gravé", self.words())

    def test_a_sector_that_cannot_be_read_again(self):
        self.folder(20)
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "read", "--at", "9000", "--lasting")
        result = self.burn("--yes")
        self.expect(result, FAILED, "Gravure effectuée avec succès.", "Erreur : le disque est illisible entre les secteurs 8 192",
                    "Ne vous fiez pas à ce disque")
        self.assertNotIn("identiques à ce qui a été gravé", result.stdout)

    def test_a_disc_that_cannot_be_loaded_again_was_not_compared(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "tray", "--lasting")
        result = self.burn("--yes")
        self.expect(result, INCOMPLETE, "Gravure effectuée avec succès.", "Attention : rien n'a été comparé.",
                    "rien ne dit qu'il est bon")
        self.assertNotIn("identiques", result.stdout)

    def test_a_person_loads_the_disc_again(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "tray")  # strikes once
        self.expect(self.burn(answers="\n"), DONE, "Remettez le disque gravé dans le lecteur", "identiques")

    # Faults of the machine

    def burn_while_sources_change(self, change):
        self.folder(20)
        self.drive.insert("dvd+r")
        self.drive.take_time(calibrate=1.5)
        process = self.start("burn", self.path("photos"), "--yes")
        self.wait_for_words(process, "Calibration")
        change(self.path("photos", "sub", "large.bin"))
        code = process.wait(timeout=60)
        words = self.words()
        self.assertEqual(code, FAILED, words)
        self.assertIn("large.bin", words)
        self.assertIn("Une erreur est survenue : ", words)
        self.assertIn("le disque est inachevé", words)
        self.expect_no_praise(words)
        self.folder(1)
        self.drive.take_no_time()
        self.expect_next_disc_works()
        return words

    def test_a_file_that_vanishes_during_the_write(self):
        self.burn_while_sources_change(os.remove)

    def test_a_file_that_shrinks_during_the_write(self):
        self.burn_while_sources_change(lambda path: os.truncate(path, 5 * MIB))

    def test_a_temporary_directory_that_is_missing(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.environment["TMPDIR"] = self.path("nowhere")
        result = self.burn("--yes")
        self.expect(result, FAILED, "(Erreur n° -1062555328)", "rien n'a été gravé")
        self.expect_no_praise(result.stdout)
        self.assertEqual(self.drive.description()["disc"]["sessions"], [])
        self.environment["TMPDIR"] = self.temporary
        self.expect_next_disc_works()

    def test_a_temporary_directory_that_is_full_is_not_needed(self):
        self.folder(5)
        self.drive.insert("dvd+r")
        script = 'mount -t tmpfs -o size=64k none "$1" || exit 77; cat /dev/zero >"$1/full" 2>/dev/null; shift; exec "$@"'
        result = subprocess.run(["unshare", "--mount", "sh", "-c", script, "sh", self.temporary, CLI, "burn",
                                 self.path("photos"), "--yes"], env=self.environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", timeout=100)
        if result.returncode == SKIPPED or "unshare" in result.stdout:
            self.skipTest("a small file system can't be mounted here: " + result.stdout.strip())
        self.expect(result, DONE, "identiques à ce qui a été gravé")

    def test_a_folder_that_holds_nothing(self):
        os.makedirs(self.path("photos"))
        self.drive.insert("dvd+r")
        self.expect(self.burn("--yes"), FAILED, "Le répertoire à graver est vide ou n'existe pas !")


class EmulatedDiscTest(DiscTest):
    """Through the library of drives."""

    def make_drive(self):
        if not EMULATOR:
            self.skipTest("there is no emulated drive in a build with sanitizers")
        return disc_drives.EmulatedDrive(self.scratch, EMULATOR)

    def tearDown(self):
        self.assertEqual(self.drive.violations(), [])

    def fault_while_writing(self, *fault):
        self.folder(20)
        self.drive.insert("dvd+r")
        self.drive.fault(*fault)
        return self.burn("--yes")

    def test_real_write_error(self):
        self.expect_failure(self.fault_while_writing("write-fails-at", 5000), "Une erreur est survenue : ",
                            "(Erreur n° -1062599935)", "le disque est inachevé")

    def test_real_tray_that_opens_half_way(self):
        self.expect_failure(self.fault_while_writing("tray-opens-at", 5000), "Une erreur est survenue : ",
                            "le disque est inachevé")

    def test_real_drive_that_goes_half_way(self):
        self.expect_failure(self.fault_while_writing("unplugs-at", 5000), "(Erreur n° -2147024841)")

    def test_real_drive_that_is_read_back_with_an_error(self):
        self.folder(20)
        self.drive.insert("dvd+r")
        self.drive.fault("read-fails-at", 9000)
        result = self.burn("--yes")
        self.expect(result, FAILED, "Gravure effectuée avec succès.", "Erreur : le disque est illisible")
        self.assertNotIn("identiques à ce qui a été gravé", result.stdout)

    def test_real_rewritable_disc_is_erased(self):
        for kind in ("cd-rw", "dvd-rw", "dvd+rw"):
            self.folder()
            self.drive.insert(kind)
            self.expect(self.burn("--yes"), DONE, "identiques à ce qui a été gravé")
            self.expect(self.burn("--yes"), FAILED, "Le média n'est pas vierge.")
            self.expect(self.run_cli("erase", "--yes"), DONE, "Disque : effacé")
            self.expect(self.burn("--yes"), DONE, "identiques à ce qui a été gravé")

    def test_real_erase_that_fails(self):
        self.drive.insert("cd-rw")
        self.drive.fault("erase-fails", 1)
        self.expect(self.run_cli("erase", "--yes"), FAILED, "l'effacement a échoué")

    def test_real_image_is_burned_byte_for_byte(self):
        self.expect(self.run_cli("image", self.folder(3), "-o", self.path("photos.iso")), DONE)
        with open(self.path("photos.iso"), "rb") as file:
            image = file.read()
        self.drive.insert("bd-r")
        self.expect(self.run_cli("burn-iso", self.path("photos.iso"), "--yes"), DONE,
                    "SHA-256 : " + hashlib.sha256(image).hexdigest())
        with open(self.drive.content(), "rb") as file:
            self.assertEqual(file.read(len(image)), image)

    def test_real_ctrl_c_while_writing(self):
        self.folder(60)
        self.drive.insert("dvd+r")
        self.drive.fault("hangs-at", 4096)
        self.drive.fault("hang-milliseconds", 1500)
        self.stop_while_writing()
        self.expect_next_disc_works()


def main():
    global CLI, TRAY, EMULATOR
    CLI, TRAY, EMULATOR, test = sys.argv[1:]
    case = EmulatedDiscTest if test.startswith("test_real_") else VirtualDiscTest
    result = unittest.TextTestRunner(verbosity=2).run(unittest.TestSuite([case(test)]))
    if not result.wasSuccessful() or result.testsRun == 0:
        sys.exit(1)
    if result.skipped:
        sys.exit(SKIPPED)


if __name__ == "__main__":
    main()
