#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What velmora-cli does as a process: its messages, its exit codes, and what it leaves on the disk.

Usage: terminal_program_test.py CLI TREES TEST   runs one test with the folders that nasty_trees.py made below
TREES; ends with 77 when it was skipped, and says why.
"""

import errno
import fcntl
import hashlib
import os
import pty
import re
import resource
import shutil
import signal
import stat
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest

sys.dont_write_bytecode = True

import nasty_trees

sys.path.append(os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "readers"))
import by_own_udf
import entries

SKIPPED = 77
NOBODY = 65534
CLI = TREES = ""

DONE, FAILED, WRONG_USAGE, INCOMPLETE, STOPPED = 0, 1, 2, 3, 130


def digest(path):
    with open(path, "rb") as file:
        return hashlib.file_digest(file, "sha256").hexdigest()


class TerminalProgramTest(unittest.TestCase):
    def setUp(self):
        self.scratch = tempfile.mkdtemp(prefix="velmora cli-")
        self.addCleanup(shutil.rmtree, self.scratch, ignore_errors=True)
        self.environment = dict(os.environ, SOURCE_DATE_EPOCH="1700000000")
        self.cli = CLI

    def path(self, *names):
        return os.path.join(self.scratch, *names)

    def tree(self, name):
        return os.path.join(TREES, name)

    def small_folder(self):
        os.makedirs(self.path("photos"))
        nasty_trees.write(self.path("photos", "a.txt"), "content")
        return self.path("photos")

    def run_cli(self, *arguments, wrap=(), **options):
        return subprocess.run([*wrap, self.cli, *arguments], env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=120,
                              encoding="utf-8", errors="surrogateescape", **options)

    def image(self, folder, output, *options, **run):
        return self.run_cli("image", folder, "-o", output, *options, **run)

    def expect(self, result, code, *texts):
        self.assertEqual(result.returncode, code, result.stdout + result.stderr)
        for text in texts:
            self.assertIn(text, result.stdout + result.stderr)

    def expect_nothing_made(self, directory=None, name="out.iso"):
        self.assertEqual([entry for entry in os.listdir(directory or self.scratch) if entry.startswith(name)], [])

    # Words and codes

    def test_help_is_french_and_complete(self):
        result = self.run_cli("image", "--help")
        self.expect(result, DONE, "Utilisation :", "Code de sortie :", "SOURCE_DATE_EPOCH", "130")
        self.assertEqual(result.stderr, "")

    def test_no_arguments_show_the_help_as_a_mistake(self):
        result = self.run_cli()
        self.expect(result, WRONG_USAGE, "Utilisation : velmora-cli COMMANDE")
        self.assertEqual(result.stdout, "")

    def test_a_pipe_gets_plain_lines_and_the_result_alone_on_standard_output(self):
        result = self.image(self.small_folder(), self.path("out.iso"))
        self.expect(result, DONE)
        self.assertRegex(result.stdout, r"\AImage : .*/out\.iso\nTaille : [0-9 ]+,[0-9] Ko \([0-9 ]+ secteurs de 2 048 octets\)\n"
                         r"Contenu : 1 fichier, 0 dossier\n"
                         r"Systèmes de fichiers : ISO 9660 \(niveau 3, Rock Ridge\), Joliet, UDF 1\.02\n"
                         r"Nom du volume : « photos » \(ISO 9660 : « PHOTOS »\)\n"
                         r"Noms modifiés : 0\nÉléments absents de l'image : 0\n\Z")
        self.assertNotIn("\r", result.stderr)
        self.assertEqual(len(result.stderr.splitlines()), 6)
        size = int(re.search(r"\(([0-9 ]+) secteurs", result.stdout)[1].replace(" ", "")) * 2048
        self.assertEqual(os.path.getsize(self.path("out.iso")), size)

    def test_a_terminal_gets_one_line_that_is_gone_at_the_end(self):
        self.small_folder()
        with open(self.path("photos", "large.bin"), "wb") as file:
            file.write(os.urandom(64 << 20))
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 40, 0, 0))
        process = subprocess.Popen([self.cli, "image", self.path("photos"), "-o", self.path("out.iso")], env=self.environment,
                                   stdout=subprocess.DEVNULL, stderr=slave)
        os.close(slave)
        shown = b""
        try:
            while block := os.read(master, 4096):
                shown += block
        except OSError as error:  # how Linux tells that the other end is closed
            self.assertEqual(error.errno, errno.EIO)
        self.assertEqual(process.wait(), DONE)
        text = shown.decode()
        self.assertNotIn("\n", text)
        self.assertNotIn("\x1b", text)
        self.assertIn("Écriture de l'image", text)
        lines = text.split("\r")
        self.assertTrue(all(len(line) <= 39 for line in lines), lines)
        self.assertEqual(lines[-1], "")
        self.assertEqual(lines[-2].strip(), "")

    def test_no_byte_of_a_name_reaches_the_terminal_raw(self):
        result = self.image(self.tree("raw_bytes"), self.path("out.iso"), "--report")
        self.expect(result, DONE, "␛[31mred", "caf\ufffd", "line␊feed")
        for text in (result.stdout, result.stderr):
            self.assertFalse(re.search("[\x00-\x09\x0b-\x1f\x7f-\x9f\udc80-\udcff]", text), text)

    def test_entries_that_cannot_be_taken_are_named_with_the_reason(self):
        result = self.image(self.tree("special"), self.path("out.iso"), "--report")
        self.expect(result, INCOMPLETE, "Éléments absents de l'image : 2", "pipe » : Ce n'est ni un fichier",
                    "socket » : Ce n'est ni un fichier")
        self.assertTrue(os.path.exists(self.path("out.iso")))

    # Folders and files that can't be used

    def test_a_missing_folder(self):
        result = self.image(self.path("nowhere"), self.path("out.iso"))
        self.expect(result, FAILED, "nowhere » n'existe pas")
        self.expect_nothing_made()

    def test_an_empty_folder(self):
        os.makedirs(self.path("empty"))
        self.expect(self.image(self.path("empty"), self.path("out.iso")), FAILED, "empty » est vide")
        self.expect_nothing_made()

    def test_a_file_instead_of_a_folder(self):
        nasty_trees.write(self.path("file"), "")
        self.expect(self.image(self.path("file"), self.path("out.iso")), FAILED, "file » n'est pas un dossier")
        self.expect_nothing_made()

    def test_a_missing_output_directory(self):
        result = self.image(self.small_folder(), self.path("nowhere", "out.iso"))
        self.expect(result, FAILED, "nowhere », où l'image doit aller, n'existe pas")

    def test_an_output_name_that_is_too_long(self):
        self.expect(self.image(self.small_folder(), self.path("y" * 255)), DONE)
        name = "x" * 256
        result = self.image(self.path("photos"), self.path(name))
        self.expect(result, FAILED, "Création du fichier image impossible", "nom trop long")
        self.expect_nothing_made(name="x")

    def test_a_device_is_never_replaced(self):
        self.expect(self.image(self.small_folder(), "/dev/null"), FAILED, "n'est pas un fichier ordinaire")
        self.assertTrue(stat.S_ISCHR(os.stat("/dev/null").st_mode))

    def test_the_output_may_lie_in_the_folder_but_not_be_part_of_it(self):
        folder = self.small_folder()
        inside = os.path.join(folder, "out.iso")
        self.expect(self.image(folder, inside), DONE, "Contenu : 1 fichier,")
        before = digest(inside)
        self.expect(self.image(folder, inside), FAILED, "fait partie du dossier")
        self.assertEqual(digest(inside), before)
        self.assertEqual(sorted(os.listdir(folder)), ["a.txt", "out.iso"])

    def test_a_path_relative_to_the_current_directory(self):
        self.small_folder()
        self.expect(self.image("photos", "out.iso", cwd=self.scratch), DONE, "Image : out.iso")
        self.assertTrue(os.path.exists(self.path("out.iso")))

    def as_nobody(self):
        """Runs a copy of the program without any rights, for tests that the superuser would pass."""
        if os.geteuid() != 0:
            return []
        if not shutil.which("setpriv"):
            self.skipTest("run by root, and setpriv is not there to run the program as nobody")
        os.chmod(self.scratch, 0o777)
        self.cli = shutil.copy(CLI, self.path("program"))
        return ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]

    def test_an_unreadable_file_is_left_out(self):
        folder = self.small_folder()
        nasty_trees.write(os.path.join(folder, "secret.txt"), "secret")
        os.chmod(os.path.join(folder, "secret.txt"), 0)
        result = self.image(folder, self.path("out.iso"), "--report", wrap=self.as_nobody())
        self.expect(result, INCOMPLETE, "secret.txt » : Ouverture du fichier impossible. (droits insuffisants)",
                    "Contenu : 1 fichier,")

    def test_an_unreadable_folder_inside_is_left_out(self):
        folder = self.small_folder()
        os.makedirs(os.path.join(folder, "locked"))
        os.chmod(os.path.join(folder, "locked"), 0)
        result = self.image(folder, self.path("out.iso"), "--report", wrap=self.as_nobody())
        self.expect(result, INCOMPLETE, "locked » : Lecture du répertoire impossible. (droits insuffisants)")

    def test_an_unreadable_folder_itself_is_refused(self):
        folder = self.small_folder()
        os.chmod(folder, 0)
        result = self.image(folder, self.path("out.iso"), wrap=self.as_nobody())
        self.expect(result, FAILED, "photos » : Lecture du répertoire impossible. (droits insuffisants)")
        self.expect_nothing_made()

    def test_an_unwritable_output_directory(self):
        os.makedirs(self.path("locked"))
        os.chmod(self.path("locked"), 0o555)
        result = self.image(self.small_folder(), self.path("locked", "out.iso"), wrap=self.as_nobody())
        self.expect(result, FAILED, "locked » : Création du fichier image impossible", "droits insuffisants")
        self.assertEqual(os.listdir(self.path("locked")), [])

    # Too little room

    def large_folder(self, size):
        folder = self.small_folder()
        with open(os.path.join(folder, "large.bin"), "wb") as file:
            for _ in range(size >> 20):
                file.write(os.urandom(1 << 20))
        return folder

    def test_a_full_disk_leaves_nothing(self):
        disk = self.path("disk")
        os.makedirs(disk)
        script = 'mount -t tmpfs -o size=4m none "$1" || exit 77; d=$1; shift; "$@"; code=$?; ls -A "$d" >"$d.list"; exit $code'
        result = self.image(self.large_folder(8 << 20), os.path.join(disk, "out.iso"),
                            wrap=["unshare", "--mount", "sh", "-c", script, "sh", disk])
        if result.returncode in (SKIPPED, 1) and not os.path.exists(disk + ".list"):
            self.skipTest("a small file system can't be mounted here: " + result.stderr.strip())
        self.expect(result, FAILED, "out.iso » : Disque plein : libérez de la place", "Il manque 6 Mo.")
        with open(disk + ".list", encoding="utf-8") as names:
            self.assertEqual(names.read(), "")

    def test_a_file_size_limit_leaves_nothing_but_the_old_image(self):
        nasty_trees.write(self.path("out.iso"), "old image")
        result = self.image(self.large_folder(8 << 20), self.path("out.iso"), "--replace",
                            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 20, 1 << 20)))
        self.expect(result, FAILED, "out.iso", "taille de fichier maximale atteinte")
        self.expect_left(["out.iso"])
        with open(self.path("out.iso"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "old image")

    def expect_left(self, names):
        """What is in the scratch folder besides the sources and a copy of the program."""
        left = set(os.listdir(self.scratch)) - {"photos", "large", "program"}
        self.assertEqual(sorted(left), names)

    def test_an_image_larger_than_the_medium_is_refused_before_writing(self):
        folder = self.small_folder()
        with open(os.path.join(folder, "large.bin"), "wb") as file:
            file.truncate(30_000_000_000)
        for medium, size, advice in (("cd", "737,0 Mo", "bd-dl"), ("cd-90", "829,1 Mo", "bd-dl"), ("dvd", "4 700,4 Mo", "bd-dl"),
                                     ("dvd-dl", "8 543,7 Mo", "bd-dl"), ("bd", "25,0 Go", "bd-dl")):
            result = self.image(folder, self.path("out.iso"), "--medium", medium)
            self.expect(result, FAILED, "L'image (30,0 Go) ne tient pas", size, f"--medium {advice}", "Rien n'a été écrit")
            self.expect_nothing_made()

    # Signals

    def stopped_by(self, number):
        folder = self.large_folder(256 << 20)
        nasty_trees.write(self.path("out.iso"), "old image")
        process = self.begin_to_write(folder, self.path("out.iso"), "--replace")
        process.send_signal(number)
        output, errors = process.communicate(timeout=60)
        self.assertEqual(process.returncode, STOPPED, output + errors)
        self.assertIn("Arrêté à votre demande : aucune image n'a été faite.", errors)
        self.expect_left(["out.iso"])
        with open(self.path("out.iso"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "old image")

    def begin_to_write(self, folder, output, *options):
        """A process that has begun to write an image."""
        process = subprocess.Popen([self.cli, "image", folder, "-o", output, *options], env=self.environment,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8")
        while "Écriture de l'image" not in (line := process.stderr.readline()):
            self.assertNotEqual(line, "", "it ended before it began to write")
        return process

    def test_a_process_that_is_killed_leaves_nothing(self):
        folder = self.large_folder(256 << 20)
        try:
            os.close(os.open(self.scratch, os.O_TMPFILE | os.O_RDWR))
        except OSError:
            self.skipTest("a file must have a name here")
        process = self.begin_to_write(folder, self.path("out.iso"))
        process.kill()
        process.communicate()
        self.expect_left([])

    def test_two_at_once_leave_one_whole_image(self):
        whole = []
        for name in ("one", "two"):
            os.makedirs(self.path("photos", name))
            nasty_trees.write(self.path("photos", name, "file"), name * (4 << 20))
            self.expect(self.image(self.path("photos", name), self.path(name + ".iso"), "-n", "SAME"), DONE)
            whole.append(digest(self.path(name + ".iso")))
            os.remove(self.path(name + ".iso"))
        both = [subprocess.Popen([self.cli, "image", self.path("photos", name), "-o", self.path("out.iso"), "-n", "SAME"],
                                 env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                for name in ("one", "two")]
        self.assertEqual([process.wait() for process in both], [DONE, DONE])
        self.assertIn(digest(self.path("out.iso")), whole)
        self.expect_left(["out.iso"])

    def test_standard_output_takes_the_image_and_nothing_else(self):
        folder = self.small_folder()
        self.expect(self.image(folder, self.path("out.iso")), DONE)
        done = subprocess.run([self.cli, "image", folder, "-o", "-"], env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=120)
        self.assertEqual(done.returncode, DONE)
        self.assertIn("Image : sortie standard\nTaille : ", done.stderr.decode())
        with open(self.path("out.iso"), "rb") as file:
            self.assertEqual(done.stdout, file.read())
        self.expect_left(["out.iso"])

    def test_a_terminal_takes_no_image(self):
        folder = self.small_folder()
        master, slave = pty.openpty()
        done = subprocess.run([self.cli, "image", folder, "-o", "-"], env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=slave, stderr=subprocess.PIPE, encoding="utf-8", timeout=120)
        os.close(slave)
        os.close(master)
        self.assertEqual(done.returncode, FAILED)
        self.assertIn("Un terminal n'est pas fait pour une image", done.stderr)

    def test_what_is_no_image_is_replaced_only_on_demand(self):
        folder = self.small_folder()
        nasty_trees.write(self.path("out.iso"), "my thesis")
        self.expect(self.image(folder, self.path("out.iso")), FAILED, "out.iso » existe et n'est pas une image", "--replace")
        with open(self.path("out.iso"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "my thesis")
        self.expect(self.image(folder, self.path("out.iso"), "--replace"), DONE)
        self.expect(self.image(folder, self.path("out.iso")), DONE)  # an image by now
        os.chmod(self.path("out.iso"), 0o444)
        wrap = self.as_nobody()
        if wrap:
            self.expect(self.image(folder, self.path("out.iso"), wrap=wrap), FAILED, "droits insuffisants", "--replace")

    def test_ctrl_c_while_writing(self):
        self.stopped_by(signal.SIGINT)

    def test_a_termination_while_writing(self):
        self.stopped_by(signal.SIGTERM)

    def test_a_reader_of_the_messages_that_goes_away_changes_nothing(self):
        reading, writing = os.pipe()
        os.close(reading)
        process = subprocess.run([self.cli, "image", self.small_folder(), "-o", self.path("out.iso")], env=self.environment,
                                 stdout=writing, stderr=writing)
        os.close(writing)
        self.assertEqual(process.returncode, DONE)
        self.assertEqual(sorted(os.listdir(self.scratch)), ["out.iso", "photos"])

    # The same bytes

    def expect_same_bytes(self, folder, expected, *options, **run):
        other = self.path("other.iso")
        self.expect(self.image(folder, other, "-n", "SAME", *options, **run), DONE)
        self.assertEqual(digest(other), expected)

    def same_bytes(self, name, *options):
        first = self.path("first.iso")
        self.expect(self.image(self.tree(name), first, "-n", "SAME", *options), DONE)
        return digest(first)

    def expect_same_bytes_everywhere(self, name, *options):
        """In a second run, with one processor instead of all, and from a copy of the folder."""
        expected = self.same_bytes(name, *options)
        self.expect_same_bytes(self.tree(name), expected, *options)
        self.expect_same_bytes(self.tree(name), expected, *options, preexec_fn=self.use_one_processor)
        copy = self.path("copy of " + name)
        subprocess.run(["cp", "-a", self.tree(name), copy], check=True)
        self.expect_same_bytes(copy, expected, *options)

    def use_one_processor(self):
        os.sched_setaffinity(0, {min(os.sched_getaffinity(0))})

    def test_same_bytes_of_names(self):
        self.expect_same_bytes_everywhere("names")

    def test_same_bytes_of_raw_bytes(self):
        self.expect_same_bytes_everywhere("raw_bytes")

    def test_same_bytes_of_clashes_for_a_blu_ray(self):
        self.expect_same_bytes_everywhere("clashes", "--medium", "bd", "--fs", "all")

    def test_same_bytes_of_links(self):
        self.expect_same_bytes_everywhere("links", "--level", "1")

    def test_same_bytes_of_a_large_folder_with_one_processor(self):
        expected = self.same_bytes("large_folder")
        self.expect_same_bytes(self.tree("large_folder"), expected, preexec_fn=self.use_one_processor)

    # Rights and times, as others read them

    def folder_of_rights(self):
        folder = self.small_folder()
        os.makedirs(os.path.join(folder, "common"))
        for name, mode in (("a.txt", 0o640), ("run", 0o4710), ("common", 0o3775)):
            path = os.path.join(folder, name)
            if not os.path.exists(path):
                nasty_trees.write(path, "runs as its owner")
            if os.geteuid() == 0:
                os.chown(path, 1000, 100)
            os.chmod(path, mode)
        return folder

    @staticmethod
    def rights_in_rock_ridge(image):
        if shutil.which("bsdtar") is None:
            raise unittest.SkipTest("bsdtar is missing: install libarchive-tools")
        said = subprocess.run(["bsdtar", "-tvnf", image], stdout=subprocess.PIPE, check=True).stdout
        lines = [line.split() for line in said.decode().splitlines()]
        return {words[-1]: (words[0], int(words[2]), int(words[3])) for words in lines}

    @staticmethod
    def rights_in_udf(image):
        seen = by_own_udf.OwnUdf().read(entries.Image(image), None, False)
        return {path.decode(): entry.rights for path, entry in seen.items()}

    def test_a_disc_is_for_everybody_and_nothing_runs_as_its_owner(self):
        folder, output = self.folder_of_rights(), self.path("out.iso")
        self.expect(self.image(folder, output), DONE)
        rights = self.rights_in_rock_ridge(output)
        self.assertEqual(rights["a.txt"], ("-rw-r--r--", 0, 0))
        self.assertEqual(rights["run"], ("-rwxr-xr--", 0, 0))
        self.assertEqual(rights["common"], ("drwxrwxr-x", 0, 0))
        nobody = 0xFFFFFFFF, 0xFFFFFFFF
        self.assertEqual(self.rights_in_udf(output), {"a.txt": (0o444, *nobody), "run": (0o554, *nobody),
                                                      "common": (0o555, *nobody)})

    def test_attributes_are_kept_on_demand(self):
        folder, output = self.folder_of_rights(), self.path("out.iso")
        user, group = (1000, 100) if os.geteuid() == 0 else (os.geteuid(), os.getegid())
        self.expect(self.image(folder, output, "--attributes", "keep"), DONE)
        rights = self.rights_in_rock_ridge(output)
        self.assertEqual(rights["a.txt"], ("-rw-r-----", user, group))
        self.assertEqual(rights["run"], ("-rws--x---", user, group))
        self.assertEqual(rights["common"], ("drwxrwsr-t", user, group))
        self.assertEqual(self.rights_in_udf(output), {"a.txt": (0o640, user, group), "run": (0o4710, user, group),
                                                      "common": (0o3775, user, group)})

    def test_no_time_is_later_than_the_given_one_and_earlier_ones_stay(self):
        folder, output = self.small_folder(), self.path("out.iso")
        nasty_trees.write(os.path.join(folder, "old.txt"), "old")
        os.utime(os.path.join(folder, "old.txt"), (1_500_000_000, 1_500_000_000))
        self.expect(self.image(folder, output, "--fs", "udf"), DONE)
        seen = by_own_udf.OwnUdf().read(entries.Image(output), None, False)
        self.assertEqual(seen[b"a.txt"].time, 1_700_000_000)
        self.assertEqual(seen[b"old.txt"].time, 1_500_000_000)

    def test_reading_is_not_noted_in_the_sources(self):
        folder = self.small_folder()
        file = os.path.join(folder, "a.txt")
        for path in (file, folder):
            os.utime(path, (1_000_000_000, 1_500_000_000))
        self.expect(self.image(folder, self.path("out.iso")), DONE)
        self.assertEqual([os.stat(path).st_atime for path in (file, folder)], [1_000_000_000] * 2)

    def test_the_time_changes_the_bytes(self):
        folder = self.small_folder()
        self.expect(self.image(folder, self.path("first.iso")), DONE)
        self.environment["SOURCE_DATE_EPOCH"] = "1600000000"
        self.expect(self.image(folder, self.path("other.iso")), DONE)
        self.assertNotEqual(digest(self.path("first.iso")), digest(self.path("other.iso")))


def main():
    global CLI, TREES
    CLI, TREES = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    wanted = unittest.TestLoader().loadTestsFromName(f"TerminalProgramTest.{sys.argv[3]}", sys.modules[__name__])
    result = unittest.TextTestRunner(verbosity=2).run(wanted)
    if not result.wasSuccessful() or result.testsRun == 0:
        sys.exit(1)
    if result.skipped:
        sys.exit(SKIPPED)


if __name__ == "__main__":
    main()
