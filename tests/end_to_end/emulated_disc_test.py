#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What velmora-cli does with discs in real drives: through the library of drives, with one that is emulated.

disc_trial.py tells how it is called.
"""

import hashlib
import json
import signal
import sys
import time

sys.dont_write_bytecode = True

import disc_drives
import disc_trial
from disc_trial import DONE, FAILED, INCOMPLETE, NO_DISC, STOPPED


class EmulatedDiscTest(disc_trial.DiscTest):
    """Through the library of drives."""

    def make_drive(self):
        if not self.emulator:
            self.skipTest("there is no emulated drive in a build with sanitizers")
        return disc_drives.EmulatedDrive(self.scratch, self.emulator)

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

    def test_real_write_error_is_reported_to_those_who_work_on_the_program(self):
        self.fault_while_writing("write-fails-at", 5000)
        self.drive.forget_faults()
        result = self.run_cli("report")
        self.expect(result, DONE)
        failure = json.loads(result.stdout)["lastFailure"]
        self.assertEqual((failure["disc"], failure["step"], failure["error"]), ("DVD+R", "writing", -1062599935))
        self.assertRegex(failure["sense"], r"^03/[0-9A-F]{2}/[0-9A-F]{2}$")
        self.assertNotIn("photos", result.stdout)

    def expect_untouched(self, result, *texts):
        """It failed and says so, but not that the disc was spoiled."""
        self.expect(result, FAILED, "rien n'a été gravé", *texts)
        self.assertNotIn("ne peut pas servir", result.stdout)
        self.assertNotIn("inachevé", result.stdout)

    def test_real_write_protected_disc_is_not_called_spoiled(self):
        self.folder(20)
        for kind in ("dvd-ram", "bd-re"):
            self.drive.forget_faults()
            self.drive.insert(kind)
            self.drive.fault("write-protected", 1)
            self.expect_untouched(self.burn("--yes"), "Le média est protégé en écriture")

    def test_real_laser_that_cannot_be_calibrated_spoils_no_disc(self):
        self.folder(20)
        for kind in ("cd-r", "cd-rw", "dvd-r", "dvd+rw", "dvd+r", "bd-r", "bd-re"):
            self.drive.forget_faults()
            self.drive.insert(kind)
            self.drive.fault("write-fails-at", 0)
            self.drive.fault("write-sense", "3 73 3")
            self.expect_untouched(self.burn("--yes"), "Une erreur est survenue")

    def test_real_drive_that_keeps_a_good_disc(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.fault("eject-refused", 1)
        result = self.burn("--yes")
        self.expect(result, DONE, "identiques à ce qui a été gravé", "le disque est gravé, mais n'a pas été éjecté")
        self.assertNotIn("Gravure effectuée avec succès", result.stdout)

    def test_real_rewritable_disc_is_erased_after_a_write_error(self):
        self.folder(20)
        for kind in ("cd-rw", "dvd-rw", "dvd+rw"):
            self.drive.forget_faults()
            self.drive.insert(kind)
            self.drive.fault("write-fails-at", 5000)
            result = self.burn("--yes")
            self.expect(result, FAILED, "le disque est inachevé ; effacez-le (« velmora-cli erase »)")
            self.assertNotIn("ne peut pas servir", result.stdout)
            self.drive.forget_faults()
            self.expect(self.run_cli("erase", "--yes"), DONE, "Disque : effacé")
            self.expect(self.burn("--yes"), DONE, "identiques à ce qui a été gravé")

    def test_real_drive_that_fails_while_it_is_looked_at(self):
        self.folder()
        self.drive.insert("dvd+r")
        self.drive.fault("refuses", 0x51)
        for form in ("fixed", "short", "descriptor", "deferred"):
            self.drive.fault("sense-form", form)
            for command in (("media",), ("burn", self.path("photos"), "--yes")):
                result = self.run_cli(*command)
                self.expect(result, FAILED, "Le graveur signale une panne (04/")
                self.assertNotIn("Erreur d'écriture", result.stdout)

    def test_real_drive_in_use_is_no_disc_to_erase(self):
        self.folder()
        self.drive.insert("dvd+rw")
        self.drive.fault("mounted", 1)
        for command in (("media",), ("burn", self.path("photos"), "--yes"), ("erase", "--yes")):
            result = self.run_cli(*command)
            self.expect(result, FAILED, "verrouillé par une autre application", "umount /dev/sr0")
            self.assertNotIn("velmora-cli erase", result.stdout)

    def test_real_drive_that_may_not_be_opened(self):
        self.drive.insert("dvd+rw")
        self.drive.fault("denied", 1)
        self.expect(self.run_cli("media"), FAILED, "sudo adduser $USER cdrom")

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
        self.expect(result, FAILED, "Erreur : le disque est illisible", "Fichiers abîmés :", "large.bin",
                    "(Erreur n° -1062600697)")
        self.assertNotIn("identiques à ce qui a été gravé", result.stdout)

    def burn_with_fault(self, *fault):
        self.folder(20)
        self.drive.forget_faults()
        self.drive.insert("dvd+r")
        self.drive.fault(*fault)
        return self.burn("--yes")

    def test_real_faults_that_the_write_is_silent_of_are_found_with_their_file(self):
        for fault in ("alters-at", "swallows-at"):
            result = self.burn_with_fault(fault, 9000)
            self.expect(result, FAILED, "première différence au secteur 9000", "Fichiers abîmés :", "large.bin",
                        "(Erreur n° -1062600697)")
            self.assertNotIn("identiques à ce qui a été gravé", result.stdout)

    def test_real_drive_or_disc_that_goes_while_it_is_compared_is_not_called_bad(self):
        for fault in ("swaps-at-read", "unplugs-at-read"):
            for sector in (0, 9000):
                result = self.burn_with_fault(fault, sector)
                self.expect(result, INCOMPLETE, "Attention : rien n'a été comparé", "rien ne dit qu'il est bon")
                for text in ("abîmé", "identiques à ce qui", "Ne vous fiez pas", "Erreur : le disque"):
                    self.assertNotIn(text, result.stdout)

    def burned(self):
        self.folder(20)
        self.drive.insert("dvd+r")
        self.expect(self.burn("--yes"), DONE)
        self.drive.close()

    def check(self, *options):
        return self.run_cli("check", *options)

    def test_real_good_disc_is_checked(self):
        self.burned()
        self.expect(self.check(), DONE, "d'après la gravure n° 1 du ", "Bons : 2 fichiers", "Le disque est bon.")
        self.expect(self.check("--with", self.path("photos")), DONE, "Le disque est bon.")

    def test_real_unreadable_sector_is_checked_slowly_and_its_file_named(self):
        self.burned()
        self.drive.fault("read-fails-at", 9000)
        result = self.check()
        self.expect(result, FAILED, "Fichiers abîmés : 1\n", "sub/large.bin (illisible)", "Endroits illisibles : 1",
                    "secteur 9 000", "Bons : 1 fichier,")
        speeds = [line for line in self.drive.commands() if line.startswith("B6 ")]
        self.assertGreaterEqual(len(speeds), 2 + 1)  # of the burn, and slow and fast of the check

    def test_real_sector_that_only_slow_reads_make_out_is_good(self):
        self.burned()
        self.drive.fault("slow-reads-at", 9000)
        self.expect(self.check(), DONE, "Le disque est bon.")

    def test_real_drive_that_refuses_to_read_slowly_is_read_all_the_same(self):
        self.burned()
        self.drive.fault("read-fails-at", 9000)
        self.drive.fault("refuses", 0xB6)
        self.expect(self.check(), FAILED, "sub/large.bin (illisible)", "Bons : 1 fichier,")

    def test_real_drive_that_vanishes_while_it_is_checked_is_no_bad_disc(self):
        self.burned()
        self.drive.fault("unplugs-at-read", 9000)
        result = self.check()
        self.expect(result, FAILED, "Erreur : ")
        for text in ("abîmé", "Le disque est bon"):
            self.assertNotIn(text, result.stdout)

    def test_real_empty_drive_is_told_when_it_is_checked(self):
        self.expect(self.check(), NO_DISC, "Le lecteur est vide")

    def start_to_read(self, *arguments):
        """A program that has read a part of the disc, and for a while gets no more of it."""
        self.drive.fault("hangs-at-read", 0x1100)
        self.drive.fault("hang-milliseconds", 2000)
        before = len(self.drive.commands())
        process = self.start(*arguments)
        self.wait_for_command_behind(process, before, "28 00 00 00 10 ")
        return process

    def test_real_comparison_is_stopped_by_ctrl_c_and_the_disc_is_whole(self):
        self.folder(20)
        self.drive.insert("bd-r")
        process = self.start_to_read("burn", self.path("photos"), "--yes")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=60), STOPPED, self.words())
        self.assertIn("Comparaison arrêtée à votre demande", self.words())
        self.assertIn("Le disque est gravé en entier, mais rien ne dit qu'il est bon.", self.words())
        self.assertNotIn("identiques à ce qui a été gravé", self.words())
        self.expect_nothing_left_behind()
        self.drive.close()
        self.expect(self.check(), DONE, "Le disque est bon.")  # by the record, which was kept anyway

    def test_real_check_is_stopped_by_ctrl_c(self):
        self.burned()
        process = self.start_to_read("check")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=60), STOPPED, self.words())
        self.assertIn("Arrêté à votre demande : le reste du disque n'a pas été contrôlé.", self.words())
        self.assertNotIn("Le disque est bon", self.words())

    def wait_for_command_behind(self, process, first, beginning):
        deadline = time.monotonic() + 60
        while not any(line.startswith(beginning) for line in self.drive.commands()[first:]):
            self.assertIsNone(process.poll(), self.words())
            self.assertLess(time.monotonic(), deadline, self.words())
            time.sleep(0.01)  # between two checks of what the drive was told

    def test_real_rewritable_disc_is_erased(self):
        for kind in ("cd-rw", "dvd-rw", "dvd+rw"):
            self.folder()
            self.drive.insert(kind)
            self.expect(self.burn("--yes"), DONE, "identiques à ce qui a été gravé")
            self.expect(self.burn("--yes"), FAILED, "n'est pas vierge.")
            self.expect(self.run_cli("erase", "--yes"), DONE, "Disque : effacé")
            self.expect(self.burn("--yes"), DONE, "identiques à ce qui a été gravé")

    def test_real_disc_that_was_left_unfinished_is_told_at_once(self):
        for kind, words in (("cd-r", "une gravure y est restée inachevée"), ("dvd+r", "porte une session inachevée"),
                            ("bd-r", "porte une session inachevée")):
            self.folder(20)
            self.drive.insert(kind)
            self.drive.fault("write-fails-at", 5000)
            self.expect(self.burn("--yes"), FAILED)
            self.drive.forget_faults()
            result = self.burn("--yes")
            self.expect(result, FAILED, "Erreur : ce disque (" + kind.upper(), words)
            self.assertNotIn("Lecture du dossier", result.stdout)

    def test_real_erase_that_fails(self):
        self.drive.insert("cd-rw")
        self.drive.fault("erase-fails", 1)
        self.expect(self.run_cli("erase", "--yes"), FAILED, "l'effacement a échoué")

    def erase_without_end(self, *faults):
        """A full erase that has begun."""
        self.drive.insert("cd-rw")
        self.drive.fault("erase-polls", 1000000)
        for fault in faults:
            self.drive.fault(*fault)
        process = self.start("erase", "--full", "--yes")
        self.wait_for_command(process, "A1 ")
        return process

    def expect_unlocked(self):
        locks = [line for line in self.drive.commands() if line.startswith("1E ")]
        self.assertEqual(locks[-1].split(" ->")[0], "1E 00 00 00 00 00")

    def test_real_erase_is_stopped_by_ctrl_c(self):
        self.expect_stopped_erase(signal.SIGINT)

    def test_real_erase_is_stopped_by_a_wish_to_end(self):
        self.expect_stopped_erase(signal.SIGTERM)

    def expect_stopped_erase(self, wish):
        process = self.erase_without_end()
        process.send_signal(wish)
        self.assertEqual(process.wait(timeout=60), STOPPED, self.words())
        self.assertIn("Arrêté à votre demande : L'effacement a été interrompu : le disque est peut-être effacé en partie",
                      self.words())
        self.assertNotIn("Disque : effacé", self.words())
        self.expect_unlocked()
        self.drive.forget_faults()
        self.expect(self.run_cli("erase", "--yes"), DONE, "Disque : effacé")

    def test_real_drive_that_goes_while_it_erases(self):
        process = self.erase_without_end(("unplugs-after-erase-polls", 20))
        self.assertEqual(process.wait(timeout=60), FAILED, self.words())
        self.assertIn("Erreur : l'effacement a échoué.", self.words())

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


if __name__ == "__main__":
    disc_trial.main(EmulatedDiscTest)
