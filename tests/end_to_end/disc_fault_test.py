#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What velmora-cli does when a disc, a drive, a folder or the user ends its work: its messages, its exit codes, and that
nothing is left behind.

disc_trial.py tells how it is called.
"""

import os
import shutil
import signal
import subprocess
import sys
import time

sys.dont_write_bytecode = True

import disc_drives
import disc_trial
from disc_trial import DONE, FAILED, INCOMPLETE, MIB, SECTOR, SKIPPED, STOPPED


class DiscFaultTest(disc_trial.DiscTest):
    """In a virtual recorder."""

    def make_drive(self):
        return disc_drives.VirtualDrive(self.scratch, self.tray)

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
            time.sleep(0.1)  # as fast as a user can; simultaneous signals would count as one
        self.assertEqual(process.wait(timeout=60), STOPPED, self.words())
        self.assertIn("Le disque est gravé en entier", self.words())
        self.assertNotIn("inachevé", self.words())
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
            process = subprocess.Popen([self.cli, "burn", self.path("photos"), "--medium", "dvd"], env=self.environment,
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

    def test_a_write_error_on_a_disc_that_can_be_erased(self):
        self.folder(20)
        for kind in ("cd-rw", "dvd+rw", "bd-re"):
            self.drive.forget_faults()
            self.drive.insert(kind)
            self.drive.tray("fault", "medium", "--at", "5000")
            result = self.burn("--yes")
            self.expect(result, FAILED, "le disque est inachevé ; effacez-le (« velmora-cli erase »)")
            self.assertNotIn("ne peut pas servir", result.stdout)
            self.expect(self.run_cli("erase", "--yes"), DONE)
            self.expect(self.burn("--yes"), DONE, "identiques à ce qui a été gravé")

    def test_a_write_error_at_the_first_sector_spoils_nothing(self):
        result = self.fault_while_writing("medium", "--at", "0")
        self.expect(result, FAILED, "rien n'a été gravé.")
        self.assertNotIn("inachevé", result.stdout)
        self.expect(self.burn("--yes"), DONE, "identiques à ce qui a été gravé")  # the very same disc

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
        result = self.burn("--yes")
        self.expect(result, FAILED, f"utilisé par « velmora-cli » (processus {process.pid})")
        for word in ("umount", "/dev/sr0", "adduser", "cdrom", "velmora-cli erase"):
            self.assertNotIn(word, result.stdout)
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
        self.assertIn("première différence au secteur 10000, 20 Mo identiques avant cela", self.words())
        self.assertIn("(Erreur n° -1062600697)", self.words())
        self.assertRegex(self.words(), r"Fichiers abîmés :\n +sub.large\.bin \(à partir de l'octet \d+\)\n")
        self.assertIn("Ne vous fiez pas à ce disque", self.words())
        self.assertNotIn("identiques à ce qui a été gravé", self.words())

    def test_a_sector_that_cannot_be_read_again(self):
        self.folder(20)
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "read", "--at", "9000", "--lasting")
        result = self.burn("--yes")
        self.expect(result, FAILED, "Erreur : le disque est illisible au secteur 9000, 18 Mo identiques avant cela",
                    "(Erreur n° -1062600697)", "Ne vous fiez pas à ce disque")
        self.assertRegex(result.stdout, r"Fichiers abîmés :\n +sub.large\.bin \(à partir de l'octet \d+\)\n")
        self.assertNotIn("identiques à ce qui a été gravé", result.stdout)
        self.assertNotIn("Gravure effectuée avec succès", result.stdout)

    def test_a_tray_that_only_a_hand_closes_needs_none(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "tray", "--lasting")
        self.expect(self.burn("--yes"), DONE, "Gravure effectuée avec succès.", "identiques à ce qui a été gravé")

    def test_a_disc_that_cannot_be_had_is_not_called_bad(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "read", "--at", "0", "--lasting")
        self.drive.tray("fault", "tray", "--lasting")
        result = self.burn("--yes")
        self.expect(result, INCOMPLETE, "Gravure effectuée avec succès.", "Attention : rien n'a été comparé.",
                    "rien ne dit qu'il est bon")
        self.assertNotIn("identiques", result.stdout)
        self.assertNotIn("Ne vous fiez pas", result.stdout)

    def burn_with_fault(self, *fault):
        self.drive.forget_faults()
        self.drive.insert("dvd+r")
        self.drive.tray("fault", *fault)
        return self.burn("--yes")

    def test_faults_that_the_write_is_silent_of_are_found_with_their_file(self):
        self.folder(20)
        for fault in ("altered", "swallowed"):
            result = self.burn_with_fault(fault, "--at", "9000")
            self.expect(result, FAILED, "première différence au secteur 9000, 18 Mo identiques avant cela",
                        "Ne vous fiez pas à ce disque")
            self.assertRegex(result.stdout, r"Fichiers abîmés :\n +sub.large\.bin \(à partir de l'octet \d+\)\n")
            self.assertNotIn("identiques à ce qui a été gravé", result.stdout)

    def test_a_drive_or_disc_that_goes_while_it_is_compared_is_not_called_bad(self):
        self.folder(20)
        for fault in ("swapped", "vanished"):
            for sector in ("0", "9000"):
                result = self.burn_with_fault(fault, "--at", sector)
                self.expect(result, INCOMPLETE, "Attention : rien n'a été comparé", "rien ne dit qu'il est bon")
                for text in ("abîmé", "identiques à ce qui", "Ne vous fiez pas", "Erreur : le disque"):
                    self.assertNotIn(text, result.stdout)

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

    def burn_image_while_it_changes(self, change, code, *texts):
        image = self.path("photos.iso")
        self.expect(self.run_cli("image", self.folder(5), "-o", image), DONE)
        self.drive.insert("dvd+r")
        self.drive.take_time(calibrate=1.5)
        process = self.start("burn-iso", image, "--yes")
        self.wait_for_words(process, "Calibration")
        change(image)
        self.assertEqual(process.wait(timeout=60), code, self.words())
        for text in (image, *texts):
            self.assertIn(text, self.words())
        self.drive.take_no_time()

    def test_an_image_that_shrinks_goes_or_is_replaced_during_the_write(self):
        def replace(path):
            shutil.copy(path, path + ".new")
            os.rename(path + ".new", path)
        for change in (lambda path: os.truncate(path, MIB), os.remove, replace):
            self.burn_image_while_it_changes(change, FAILED, "Une erreur est survenue : ", "rien n'a été gravé")
            self.expect_no_praise(self.words())

    def test_an_image_that_is_rewritten_or_grows_during_the_write(self):
        def rewrite(path):
            with open(path, "r+b") as file:
                file.write(b"x")
        def grow(path):
            with open(path, "ab") as file:
                file.write(bytes(SECTOR))
        for change in (rewrite, grow):
            self.burn_image_while_it_changes(change, INCOMPLETE, "Attention : modifié pendant la gravure")

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
        result = subprocess.run(["unshare", "--mount", "sh", "-c", script, "sh", self.temporary, self.cli, "burn",
                                 self.path("photos"), "--yes"], env=self.environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", timeout=100)
        if result.returncode == SKIPPED or "unshare" in result.stdout:
            self.skipTest("a small file system can't be mounted here: " + result.stdout.strip())
        self.expect(result, DONE, "identiques à ce qui a été gravé")

    def test_a_folder_that_holds_nothing(self):
        os.makedirs(self.path("photos"))
        self.drive.insert("dvd+r")
        self.expect(self.burn("--yes"), FAILED, "Le répertoire à graver est vide ou n'existe pas !")


if __name__ == "__main__":
    disc_trial.main(DiscFaultTest)
