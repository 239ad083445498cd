#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Every reader notices what is wrong: readers_notice_test.py CLI.

An image is made of a folder, then the folder or the image is changed, and each installed reader has to notice it.
"""

import os
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
DATA = b"the letter " * 300
NOT_TREES = ("structure", "udfinfo", "GRUB")  # they don't show where things are


class ReadersNoticeTest(unittest.TestCase):
    cli = ""

    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="velmora readers-")
        self.addCleanup(scratch.cleanup)
        self.folder = os.path.join(scratch.name, "folder")
        self.image = os.path.join(scratch.name, "image.iso")
        os.makedirs(self.path("sub"))
        self.write("letter.txt", DATA)
        self.write("sub/other.txt", b"other")
        subprocess.run([self.cli, "image", self.folder, "-o", self.image], check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, content):
        with open(self.path(name), "wb") as file:
            file.write(content)
        os.utime(self.path(name), (1_600_000_000, 1_600_000_000))

    def check(self):
        """The lines of the readers that were asked: who they are and what they say."""
        said = subprocess.run([sys.executable, os.path.join(HERE, "check_image.py"), "--expect", "iso,joliet,udf", self.image,
                               self.folder], stdout=subprocess.PIPE, encoding="utf-8").stdout
        lines = [line for line in said.splitlines() if not line.startswith(" ")]
        return {line[:20].strip(): line[20:] for line in lines if "not asked" not in line and "MISSING" not in line}

    def expect_noticed(self):
        said = self.check()
        blind = [who for who, what in said.items() if "WRONG" not in what and not who.startswith(NOT_TREES)]
        self.assertEqual(blind, [])
        self.assertGreater(len(said), 1)

    def patch(self, at, content):
        with open(self.image, "r+b") as file:
            file.seek(at)
            file.write(content)

    def test_a_good_image_is_good(self):
        self.assertEqual([who for who, what in self.check().items() if "WRONG" in what], [])

    def test_another_content(self):
        self.write("letter.txt", DATA[:-1] + b"!")
        self.expect_noticed()

    def test_another_size(self):
        self.write("letter.txt", DATA + b"!")
        self.expect_noticed()

    def test_a_missing_file(self):
        self.write("sub/new.txt", b"new")
        self.expect_noticed()

    def test_a_file_too_many(self):
        os.remove(self.path("sub/other.txt"))
        self.write("sub/another.txt", b"a thing of another size")
        self.expect_noticed()

    def test_another_name(self):
        os.rename(self.path("letter.txt"), self.path("lettre.txt"))
        self.expect_noticed()

    def test_a_missing_folder(self):
        os.makedirs(self.path("sub/deeper"))
        self.write("sub/deeper/file", b"deeper")
        self.expect_noticed()

    def test_a_damaged_byte_of_a_file(self):
        with open(self.image, "rb") as file:
            self.patch(file.read().index(DATA) + 1000, b"#")
        self.expect_noticed()

    def expect_structure_wrong(self):
        self.assertIn("WRONG", self.check()["structure"])

    def test_a_number_that_differs_in_its_two_byte_orders(self):
        self.patch(16 * 2048 + 84, b"\x7f")
        self.expect_structure_wrong()

    def test_a_damaged_path_table(self):
        with open(self.image, "rb") as file:
            file.seek(16 * 2048 + 148)
            first = int.from_bytes(file.read(4), "big")
        self.patch(first * 2048 + 15, b"\x7f")
        self.expect_structure_wrong()

    def test_damaged_descriptors_of_udf(self):
        for sector in (32, 48, 64, 256):
            with self.subTest(sector=sector):
                with open(self.image, "rb") as file:
                    file.seek(sector * 2048 + 20)
                    good = file.read(1)
                self.patch(sector * 2048 + 20, bytes([good[0] ^ 1]))
                self.expect_structure_wrong()
                self.patch(sector * 2048 + 20, good)


if __name__ == "__main__":
    ReadersNoticeTest.cli = os.path.abspath(sys.argv.pop(1))
    unittest.main()
