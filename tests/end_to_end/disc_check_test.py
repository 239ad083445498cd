#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The comparison after a burn, and later checks of the disc, with damaged discs. See disc_trial.py."""

import json
import os
import sys

sys.dont_write_bytecode = True

import disc_drives
from disc_trial import DONE, FAILED, INCOMPLETE, MIB, NO_DISC, SECTOR, DiscTest, main

LARGE = os.path.join("sub", "large.bin")


class CheckTest(DiscTest):
    def make_drive(self):
        return disc_drives.VirtualDrive(self.scratch, self.tray)

    def burned(self, *options):
        """A disc of two files, burned."""
        self.folder(3)
        self.drive.insert("dvd+r")
        self.expect(self.burn("--yes", *options), DONE)
        self.drive.tray("close")

    def sector_of(self, name):
        """Where a file of the folder starts on the disc."""
        with open(self.path("photos", name), "rb") as file:
            content = file.read()
        with open(self.drive.content(), "rb") as file:
            place = file.read().index(content)
        self.assertEqual(place % SECTOR, 0)
        return place // SECTOR

    def flip(self, name, byte):
        at = self.sector_of(name) * SECTOR + byte
        with open(self.drive.content(), "r+b") as file:
            file.seek(at)
            old = file.read(1)
            file.seek(at)
            file.write(bytes([old[0] ^ 4]))

    def check(self, *options):
        return self.run_cli("check", *options)

    def test_an_unreadable_sector_is_told_with_its_file(self):
        self.burned()
        sector = self.sector_of(LARGE) + 700
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "read", "--at", str(sector), "--lasting")
        result = self.burn("--yes")
        self.expect(result, FAILED, f"illisible au secteur {sector}", "large.bin (à partir de l'octet ", "Fichiers abîmés :")
        self.assertNotIn("readme.txt", result.stdout[result.stdout.index("Fichiers abîmés"):])

    def test_a_good_disc_is_good_by_its_sums(self):
        self.burned("--sums")
        self.expect(self.check(), DONE, "d'après la liste SHA256SUMS du disque", "Bons : 2 fichiers", "Le disque est bon.")

    def test_a_good_disc_is_good_by_its_record(self):
        self.burned()
        self.expect(self.check(), DONE, "d'après la gravure n° 1 du ", "Bons : 2 fichiers", "Le disque est bon.")
        self.expect(self.check("--with", self.path("photos")), DONE, "Le disque est bon.")

    def test_a_flipped_bit_is_told_with_its_file_alone(self):
        for options in ((), ("--sums",)):
            self.burned(*options)
            self.flip(LARGE, 2 * MIB + 5)
            for basis in ((), ("--record", str(1 + len(options))), ("--with", self.path("photos"))):
                result = self.check(*basis)
                self.expect(result, FAILED, "Fichiers abîmés : 1\n", f"  {LARGE} (différent)")

    def test_a_sector_that_cannot_be_read_is_told_when_it_is_checked(self):
        self.burned("--sums")
        sector = self.sector_of(LARGE) + 100
        self.drive.tray("fault", "read", "--at", str(sector), "--lasting")
        report = self.path("report.json")
        self.expect(self.check("--report", report), FAILED, f"  {LARGE} (illisible)", "Endroits illisibles : 1",
                    "Bons : 1 fichier,")
        with open(report, encoding="utf-8") as file:
            told = json.load(file)
        self.assertEqual(told["verdict"], "hurt")
        self.assertEqual(told["hurtFiles"], [{"path": LARGE, "state": "unreadable"}])
        self.assertEqual(told["unreadableSectors"], [[sector, sector]])

    def test_a_sector_that_is_read_the_second_time_is_good(self):
        self.burned("--sums")
        self.drive.tray("fault", "read", "--at", str(self.sector_of(LARGE) + 100))
        self.expect(self.check(), DONE, "Le disque est bon.")

    def test_a_sector_that_only_slow_reads_make_out_is_good(self):
        self.burned("--sums")
        self.drive.tray("fault", "slow-read", "--at", str(self.sector_of(LARGE) + 100), "--lasting")
        self.expect(self.check(), DONE, "Le disque est bon.")

    def test_a_drive_that_vanishes_half_way_is_no_bad_disc(self):
        self.burned("--sums")
        self.drive.tray("fault", "vanished", "--at", str(self.sector_of(LARGE) + 600))
        result = self.check()
        self.expect(result, FAILED, "Erreur : ")
        for text in ("abîmé", "Le disque est bon"):
            self.assertNotIn(text, result.stdout)

    def test_a_disc_that_is_exchanged_half_way_is_no_bad_disc(self):
        self.burned("--sums")
        self.drive.tray("fault", "swapped", "--at", str(self.sector_of(LARGE) + 600))
        result = self.check()
        self.expect(result, FAILED, "Le disque du lecteur a été échangé contre un autre.")
        for text in ("abîmé", "Le disque est bon"):
            self.assertNotIn(text, result.stdout)

    def burn_two(self, first, second):
        """Two discs of those names and of different files; the second one is in the drive."""
        self.burned("--name", first)
        with open(self.path("photos", LARGE), "wb") as file:
            file.write(os.urandom(5 * MIB))
        self.drive.insert("dvd+r")
        self.expect(self.burn("--yes", "--name", second), DONE)
        self.drive.tray("close")

    def test_the_disc_of_another_burn_is_not_called_hurt(self):
        for number, (first, second) in enumerate((("Premier", "Second"), ("Même nom", "Même nom"))):
            self.burn_two(first, second)
            result = self.check("--record", str(2 * number + 1))
            self.expect(result, INCOMPLETE, f"ce disque, « {second} », n'est pas celui de la gravure n° {2 * number + 1} du ",
                        f", « {first} ».")
            self.assertNotIn("abîmé", result.stdout)
            self.expect(self.check("--record", str(2 * number + 2)), DONE, "Le disque est bon.")

    def test_a_disc_of_another_name_is_known_without_its_record(self):
        self.burn_two("Premier", "Second")
        self.run_cli("burns", "--forget", "2")
        self.expect(self.check("--record", "1"), INCOMPLETE, "n'est pas celui de la gravure n° 1 du ")

    def test_another_disc_is_not_taken_for_the_one_of_a_record(self):
        self.burned()
        os.rename(self.path("photos"), self.path("other"))
        self.burned()
        self.run_cli("burns", "--forget", "2")
        os.rename(self.path("photos"), self.path("photos again"))
        result = self.check("--record", "1")
        self.expect(result, FAILED, "ce disque est abîmé")

    def test_a_disc_of_which_nothing_is_known_is_not_called_good(self):
        self.burned()
        self.expect(self.run_cli("burns", "--forget", "--all"), DONE, "Gravures oubliées : 1")
        result = self.check()
        self.expect(result, INCOMPLETE, "Rien à quoi comparer ce disque")
        self.assertNotIn("bon.", result.stdout)

    def test_an_empty_drive_is_told(self):
        self.drive.tray("remove")
        self.expect(self.check(), NO_DISC, "Le lecteur est vide")

    def test_a_drive_that_vanishes_is_no_bad_disc(self):
        self.burned("--sums")
        self.drive.tray("fault", "unplugged")
        result = self.check()
        self.expect(result, FAILED, "Erreur : ")
        for text in ("abîmé", "Le disque est bon"):
            self.assertNotIn(text, result.stdout)


if __name__ == "__main__":
    main(CheckTest)
