#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What velmora-cli does with discs as a process: its messages, its exit codes and what is on the disc.

disc_trial.py tells how it is called.
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
import termios

sys.dont_write_bytecode = True

import disc_drives
import disc_trial
from disc_trial import DONE, FAILED, INCOMPLETE, MIB, NO_DISC, SECTOR, STOPPED

sys.path.append(os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "readers"))
import by_own_udf
import entries


class VirtualDiscTest(disc_trial.DiscTest):
    """In a virtual recorder."""

    def make_drive(self):
        return disc_drives.VirtualDrive(self.scratch, self.tray)

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

    def test_hidden_entries_go_to_the_disc_as_to_an_image(self):
        folder = self.folder()
        with open(os.path.join(folder, ".hidden"), "w", encoding="utf-8") as file:
            file.write("in a file whose name begins with a dot")
        self.drive.insert("dvd+r")
        result = self.burn()
        self.expect(result, DONE)
        self.assertNotIn("caché", result.stdout)
        with open(self.drive.content(), "rb") as disc:
            self.assertIn(b"in a file whose name begins with a dot", disc.read())

    def test_a_disc_in_the_open_tray_is_pulled_in(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.tray("eject")
        self.expect(self.burn(), DONE, "identiques à ce qui a été gravé")

    def test_without_comparison_nothing_is_said_to_be_good(self):
        self.folder()
        for option in ("--no-compare", "--no-verify"):
            self.drive.insert("dvd+r")
            result = self.burn(option)
            self.expect(result, DONE, "Gravure effectuée avec succès.", "Comparaison : non faite (--no-compare)")
            self.assertNotIn("identiques", result.stdout)
            self.assertNotIn("Vérification des données.", result.stdout)

    def test_a_closed_disc_takes_no_more(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.expect(self.burn("--close"), DONE)
        self.assertTrue(self.drive.description()["disc"]["closed"])
        result = self.burn()
        self.expect(result, FAILED, "ce disque (DVD+R) est fermé : plus rien ne peut y être gravé.")
        self.assertNotIn("Lecture du dossier", result.stdout)
        self.drive.insert("dvd+r")
        self.expect(self.burn(), DONE)
        self.assertFalse(self.drive.description()["disc"]["closed"])

    def test_an_entry_that_cannot_be_taken_makes_the_disc_incomplete(self):
        os.mkfifo(os.path.join(self.folder(), "sub", "pipe"))
        self.drive.insert("dvd+r")
        self.expect(self.burn(), INCOMPLETE, "Impossible d'ajouter à l'image disque le répertoire :", "pipe",
                    "Éléments absents du disque : 1", "identiques à ce qui a été gravé")

    def test_every_entry_that_is_missing_counts(self):
        folder = self.folder()
        for name in ("one", "two", "three"):
            os.mkfifo(os.path.join(folder, "sub", name))
        self.drive.insert("dvd+r")
        self.expect(self.burn(), INCOMPLETE, "Éléments absents du disque : 3")
        result = self.run_cli("image", folder, "-o", self.path("photos.iso"))
        self.expect(result, INCOMPLETE, "Éléments absents de l'image : 3")

    def test_changed_names_are_counted(self):
        folder = self.folder()
        for name in ("what?", "sub/why*.txt"):
            with open(os.path.join(folder, name), "w", encoding="utf-8"):
                pass
        self.drive.insert("dvd+r")
        result = self.burn()
        self.expect(result, DONE, "Noms modifiés : 2", "La liste s'obtient avec l'option --report.")
        self.assertNotIn("why*", result.stdout)
        self.drive.insert("dvd+r")
        self.expect(self.burn("--report"), DONE, "Joliet : what? -> what_", "Joliet : sub/why*.txt -> why_.txt")

    def test_attributes_are_kept_on_demand(self):
        file = os.path.join(self.folder(), "sub", "run")
        with open(file, "w", encoding="utf-8"):
            os.chmod(file, 0o4711)
        self.drive.insert("bd-r")
        self.expect(self.burn("--attributes", "keep"), DONE)
        seen = by_own_udf.OwnUdf().read(entries.Image(self.drive.content()), None, False)
        self.assertEqual(seen[b"sub/run"].rights, (0o4711, os.geteuid(), os.getegid()))

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
        process = subprocess.Popen([self.cli, "burn", self.path("photos")], env=self.environment, stdin=subprocess.DEVNULL,
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
        self.assertIn("Vérification des données.", lines)
        self.assertTrue(all(len(line) <= 99 for line in lines if " %   " in line), lines)
        self.assertEqual(lines[-1].strip(), "")

    # Questions

    def test_the_disc_that_is_named_is_asked_for(self):
        self.folder()
        self.drive.insert("dvd+r")
        result = self.burn("--medium", "dvd", answers="a\n")
        self.expect(result, FAILED, "Merci de mettre un CD dans le lecteur puis cliquer sur Ok", "rien n'a été gravé")
        self.assertEqual(self.drive.description()["disc"]["sessions"], [])
        self.expect(self.burn("--medium", "dvd", answers="\n"), DONE, "identiques à ce qui a été gravé")

    def test_another_disc_than_the_one_named_is_refused(self):
        self.folder()
        self.drive.insert("cd-r")
        result = self.burn("--medium", "dvd", "--yes")
        self.expect(result, FAILED, "Le média inséré (CD-R) est différent du média demandé (DVD-R ou RW) !", "→ Non (--yes)")
        self.expect_no_praise(result.stdout)

    def test_a_used_disc_is_refused_until_it_is_erased(self):
        for kind in ("cd-rw", "dvd+rw"):
            self.folder()
            self.drive.insert(kind)
            self.expect(self.burn("--yes"), DONE)
            self.expect(self.burn("--yes"), FAILED, "n'est pas vierge.", "velmora-cli erase")
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

    # Copies

    def start_copies(self, *arguments):
        """A command that asks for its second disc, with a pipe to answer it."""
        with open(self.path("words"), "wb") as words:
            process = subprocess.Popen([self.cli, *arguments], env=self.environment, stdin=subprocess.PIPE, stdout=words,
                                       stderr=subprocess.STDOUT)
        self.addCleanup(process.stdin.close)
        self.wait_for_words(process, "Copie 2 sur 2 : insérez un disque vierge.")
        return process

    def disc(self):
        with open(self.drive.content(), "rb") as file:
            return file.read()

    def test_two_copies_are_the_same_to_the_byte(self):
        self.folder(5)
        self.drive.insert("dvd+r")
        process = self.start_copies("burn", self.path("photos"), "--copies", "2")
        first = self.disc()
        self.drive.insert("dvd+r")
        self.assertFalse(any(self.disc()))
        process.communicate(b"\n", timeout=60)
        self.assertEqual(process.returncode, DONE, self.words())
        self.assertEqual(self.words().count("identiques à ce qui a été gravé"), 2)
        self.assertTrue(self.words().endswith("2 copies sur 2 sont faites.\n"), self.words())
        self.assertEqual(self.disc(), first)

    def test_ctrl_c_between_two_copies_leaves_the_first(self):
        self.folder()
        self.drive.insert("dvd+r")
        process = self.start_copies("burn", self.path("photos"), "--copies", "2")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=30), STOPPED, self.words())
        self.assertTrue(self.words().endswith("1 copie sur 2 est faite : la première.\n"), self.words())

    def test_without_a_person_the_disc_that_was_burned_is_no_blank_one(self):
        self.make_image()
        self.drive.insert("dvd+r")
        for command, source in (("burn", "photos"), ("burn-iso", "photos.iso")):
            self.drive.insert("dvd+r")
            result = self.run_cli(command, self.path(source), "--copies", "3", "--yes")
            self.expect(result, FAILED, "n'est pas vierge", "1 copie sur 3 est faite : la première.")

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
        self.drive.tray("close")
        result = self.run_cli("burn-iso", self.path("photos.iso"), "--yes")
        self.expect(result, FAILED, "ce disque (DVD+RW) n'est pas vierge.", "velmora-cli erase")
        self.assertNotIn("Merci de mettre", result.stdout)

    def test_an_empty_drive_is_no_reason_to_erase(self):
        self.make_image()
        result = self.run_cli("burn-iso", self.path("photos.iso"), "--yes")
        self.expect(result, FAILED, "Le graveur est vide ou bien le média n'est pas vierge", "rien n'a été gravé")
        self.assertNotIn("velmora-cli erase", result.stdout)

    def test_what_is_no_image_is_refused_before_the_tray_moves(self):
        self.folder()
        self.drive.insert("dvd+r")
        for file, text in ((self.path("nowhere.iso"), "n'existe pas"), (self.path("photos"), "n'est pas un fichier"),
                           (self.path("photos", "readme.txt"), "n'est pas une image ISO complète")):
            result = self.run_cli("burn-iso", file, "--yes")
            self.expect(result, FAILED, text)
            self.assertNotIn("Merci de mettre", result.stdout)

    def test_an_image_that_lacks_its_end_is_refused_before_the_tray_moves(self):
        image = self.make_image()
        self.drive.insert("dvd+r")
        for size in (len(image) - SECTOR, len(image) // SECTOR // 2 * SECTOR):
            os.truncate(self.path("photos.iso"), size)
            result = self.run_cli("burn-iso", self.path("photos.iso"), "--yes")
            self.expect(result, FAILED, "est une image incomplète : il lui faut au moins")
            self.assertNotIn("Merci de mettre", result.stdout)
        self.assertEqual(self.drive.description()["disc"]["sessions"], [])

    def test_bytes_that_are_no_image_are_burned_only_as_such(self):
        with open(self.path("raw.img"), "wb") as file:
            file.write(os.urandom(100 * SECTOR))
        self.drive.insert("dvd+r")
        self.expect(self.run_cli("burn-iso", self.path("raw.img"), "--yes"), FAILED, "n'est pas l'image d'un disque", "--raw")
        self.expect(self.run_cli("burn-iso", self.path("raw.img"), "--raw", "--yes"), DONE, "identiques")

    def test_an_image_that_another_program_writes_is_refused(self):
        self.make_image()
        self.drive.insert("dvd+r")
        with open(self.path("photos.iso"), "ab"):
            result = self.run_cli("burn-iso", self.path("photos.iso"), "--yes")
        self.expect(result, FAILED, "est ouvert en écriture par le programme « python", f"(processus {os.getpid()})")
        self.expect(self.run_cli("burn-iso", self.path("photos.iso"), "--yes"), DONE, "identiques")

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
        self.expect(self.run_cli("erase", "--yes"), FAILED, "rien n'a été effacé", "prenez un disque réinscriptible")
        self.drive.tray("remove")
        self.expect(self.run_cli("erase", "--yes"), FAILED, "rien n'a été effacé", "Aucun média dans le lecteur")

    def test_an_erase_waits_for_a_drive_that_takes_its_time(self):
        self.drive.insert("cd-rw")
        self.drive.take_time(ready=2.5)
        self.expect(self.run_cli("erase", "--yes"), DONE, "Disque : effacé")

    def test_a_tray_that_stays_open_is_no_empty_drive(self):
        self.drive.insert("cd-rw")
        self.drive.change(lambda description: description["drive"].update(canLoadMedia=False))
        self.expect(self.run_cli("erase", "--yes"), FAILED, "rien n'a été effacé. Le tiroir se ferme à la main.")

    def test_a_drive_that_only_reads_says_so(self):
        self.drive.insert("cd-rw")
        self.drive.change(lambda description: description["drive"].update(profiles=[0x08, 0x10]))
        self.expect(self.run_cli("erase", "--yes"), FAILED, "rien n'a été effacé. Ce lecteur ne sait pas effacer de disque")

    def test_a_busy_recorder_says_why_nothing_is_erased(self):
        self.folder()
        self.drive.insert("cd-rw")
        with open(os.path.join(self.drive.home, "lock"), "r+b") as lock:
            # The program's locks belong to the open file, one byte each; these belong to the process.
            fcntl.lockf(lock, fcntl.LOCK_EX, 1, 1)
            result = self.run_cli("erase", "--yes")
        self.expect(result, FAILED, "rien n'a été effacé. Le graveur est utilisé par « python", f"(processus {os.getpid()})")

    def test_ctrl_c_at_the_prompt_erases_nothing(self):
        self.folder()
        self.drive.insert("dvd+rw")
        self.expect(self.burn("--yes"), DONE)
        with open(self.path("words"), "wb") as words:
            process = subprocess.Popen([self.cli, "erase"], env=self.environment, stdin=subprocess.PIPE, stdout=words,
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

    def test_ctrl_c_while_a_disc_spins_up_erases_nothing(self):
        self.drive.insert("cd-rw")
        self.drive.take_time(ready=40)
        process = self.start("erase", "--yes")
        self.wait_for_words(process, "Effacement rapide.")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=20), STOPPED, self.words())
        self.assertIn("Arrêté à votre demande : rien n'a été effacé.", self.words())


if __name__ == "__main__":
    disc_trial.main(VirtualDiscTest)
