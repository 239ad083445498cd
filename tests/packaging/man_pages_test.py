#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""man_pages_test.py PROJECT CLI TRAY - the man pages of both languages tell the same options, those of the programs' own
help, every exit code and every variable of the environment; and each of their examples does what it says."""

import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROJECT, PROGRAMS = None, {}
SECTIONS = {"EXAMPLES": "EXEMPLES", "EXIT STATUS": "CODE DE SORTIE", "ENVIRONMENT": "ENVIRONNEMENT"}


def page(language, program):
    return (PROJECT / f"packaging/man/{language}/{program}.1").read_text(encoding="utf-8")


def plain(roff):
    return roff.replace("\\-", "-")


def section(language, program, name):
    name = SECTIONS[name] if language == "fr" else name
    found = re.search(rf'^\.SH "?{name}"?\n(.*?)(?=^\.SH|\Z)', page(language, program), re.MULTILINE | re.DOTALL)
    return plain(found[1]) if found else ""


def examples(language, program):
    blocks = re.findall(r"^\.EX\n(.*?)^\.EE", section(language, program, "EXAMPLES"), re.MULTILINE | re.DOTALL)
    return [line for block in blocks for line in block.splitlines()]


def help_of(program, *words):
    return subprocess.run([PROGRAMS[program], *words, "--help"], capture_output=True, text=True, check=True).stdout


def options_of(program):
    listed = help_of(program)
    commands = re.findall(r"^  ([a-z][a-z-]*)", listed.split("\nCommandes :\n")[1].split("\n\n")[0], re.MULTILINE)
    texts = [listed, *(help_of(program, command) for command in commands)]
    return {option for text in texts for option in re.findall(r"^ +(?:-\w, )*(--[a-z][a-z-]*)", text, re.MULTILINE)}


class PagesTest(unittest.TestCase):
    def test_both_languages_tell_each_option_of_the_help(self):
        for program in ("velmora-cli", "velmora-tray"):
            for language in ("en", "fr"):
                told = set(re.findall(r"--[a-z][a-z-]*", plain(page(language, program))))
                self.assertEqual(set(), options_of(program) - told, f"{language} {program}")

    def test_each_exit_code_is_told(self):
        codes = re.findall(r"^ +\w+ = (\d+),", (PROJECT / "src/terminal/console/ExitCode.h").read_text(), re.MULTILINE)
        self.assertGreater(len(codes), 4)
        for language in ("en", "fr"):
            told = re.findall(r"^\.TP\n\.?B?\s*(\d+)$", section(language, "velmora-cli", "EXIT STATUS"), re.MULTILINE)
            self.assertEqual(codes, told, language)

    def test_each_variable_that_is_read_is_told(self):
        asked = re.compile(r'getenv\("(\w+)"|qEnvironmentVariable\w*\("(\w+)"|qgetenv\("(\w+)"')
        sources = [file.read_text(encoding="utf-8") for file in (PROJECT / "src").glob("**/*.cpp")]
        used = {name for source in sources for match in asked.findall(source) for name in match if name}
        self.assertIn("SOURCE_DATE_EPOCH", used)
        for language in ("en", "fr"):
            told = "".join(page(language, program) for program in ("velmora", "velmora-cli", "velmora-tray"))
            self.assertEqual(set(), {name for name in used if name not in told}, language)


class ExamplesTest(unittest.TestCase):
    """Each example of the two programs of the terminal, in a home with photos, an image and a virtual recorder."""

    def setUp(self):
        self.home = Path(tempfile.mkdtemp(prefix="velmora-examples-"))
        self.addCleanup(shutil.rmtree, self.home)
        (self.home / "Photos").mkdir()
        (self.home / "Photos/été.txt").write_text("un fichier")
        (self.home / "bin").mkdir()
        for name, path in PROGRAMS.items():
            (self.home / "bin" / name).symlink_to(path)

    def run_line(self, line, answer=""):
        environment = {"HOME": str(self.home), "PATH": f"{self.home}/bin:/usr/bin:/bin", "LC_ALL": "C.UTF-8"}
        return subprocess.run(["bash", "-ec", line], cwd=self.home, env=environment, input=answer, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=100, check=False)

    def prepare(self, *lines):
        for line in lines:
            result = self.run_line(line)
            self.assertEqual(0, result.returncode, f"{line}: {result.stdout}")

    def test_each_of_the_terminal_program(self):
        burned = ["velmora-tray insert dvd+rw", "velmora-cli burn Photos -n Essai --yes"]
        before = {
            "burn": ["velmora-tray insert dvd+r"],
            "burn-iso": ["velmora-tray insert dvd+r", "velmora-cli image Photos -o photos.iso"],
            "erase": burned, "check": burned, "burns": burned,
        }
        self.prepare("velmora-tray create essai")
        for language in ("en", "fr"):
            lines = examples(language, "velmora-cli")
            self.assertGreater(len(lines), 3)
            for line in lines:
                with self.subTest(line):
                    self.prepare(*before.get(shlex.split(line)[1], []))
                    result = self.run_line(line, "o\n" * 9)
                    self.assertEqual(0, result.returncode, result.stdout)

    def test_each_of_the_tray(self):
        for language in ("en", "fr"):
            lines = [line for line in examples(language, "velmora-tray") if line.startswith("velmora-tray ")]
            self.assertGreater(len(lines), 3)
            self.prepare(*lines, "velmora-tray delete graveur-1 --yes")


def main():
    global PROJECT
    PROJECT = Path(sys.argv[1])
    PROGRAMS.update({"velmora-cli": os.path.abspath(sys.argv[2]), "velmora-tray": os.path.abspath(sys.argv[3])})
    unittest.main(argv=sys.argv[:1], verbosity=2)


if __name__ == "__main__":
    main()
