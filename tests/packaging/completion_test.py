#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The bash completions offer what the programs' own help tells of, and the files that fit.

Usage: completion_test.py COMPLETIONS CLI TRAY   ends with 77 where bash has no completion to build on.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SKIPPED = 77
BASE = "/usr/share/bash-completion/bash_completion"
COMPLETIONS = ""
PROGRAMS = {}

# Completes the command line in the arguments, whose last word the cursor is in, as the Tab key does.
ASK = r"""
. "$1" && . "$2" && shift 2
COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMP_LINE="$*" COMP_POINT=${#COMP_LINE} COMP_TYPE=9 COMP_KEY=9
compopt() { :; }
"_${1//-/_}" "$1" "${!#}" "${COMP_WORDS[COMP_CWORD-1]}"
[ ${#COMPREPLY[@]} = 0 ] || printf '%s\n' "${COMPREPLY[@]}"
"""


def offered(*words, folder=None):
    environment = dict(os.environ, PATH=os.path.dirname(PROGRAMS[words[0]]) + ":" + os.environ["PATH"])
    if folder:
        environment["XDG_DATA_HOME"] = folder
    answer = subprocess.run(
        ["bash", "--norc", "-c", ASK, "bash", BASE, os.path.join(COMPLETIONS, words[0]), *words],
        cwd=folder, env=environment, capture_output=True, text=True, timeout=30)
    assert not answer.stderr, answer.stderr
    return set(answer.stdout.split("\n")) - {""}


def help_of(program, *words):
    return subprocess.run([PROGRAMS[program], *words, "--help"], capture_output=True, text=True, check=True).stdout


def commands_of(program):
    section = help_of(program).split("\nCommandes :\n")[1].split("\n\n")[0]
    return set(re.findall(r"^  ([a-z][a-z-]*)", section, re.MULTILINE))


def options_in(text):
    """The long options that a help lists, each at the beginning of its line."""
    return set(re.findall(r"^ +(?:-\w, )*(--[a-z][a-z-]*)", text, re.MULTILINE))


class CompletionTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="velmora-completion-")
        self.addCleanup(shutil.rmtree, self.folder)

    def make(self, *names):
        for name in names:
            path = os.path.join(self.folder, name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            if not name.endswith("/"):
                open(path, "w").close()

    def test_every_command_is_offered(self):
        for program in PROGRAMS:
            commands = commands_of(program)
            self.assertGreaterEqual(len(commands), 3)
            self.assertLessEqual(commands, offered(program, ""), program)

    def test_a_command_once_begun_is_completed(self):
        self.assertEqual({"recorders"}, offered("velmora-cli", "rec"))
        self.assertEqual({"insert"}, offered("velmora-tray", "in"))

    def test_every_option_of_the_terminal_program_is_offered(self):
        for command in commands_of("velmora-cli"):
            options = options_in(help_of("velmora-cli", command))
            self.assertIn("--help", options)
            self.assertEqual(options, offered("velmora-cli", command, "--"), command)

    def test_every_option_of_the_tray_is_offered(self):
        self.assertEqual(options_in(help_of("velmora-tray")), offered("velmora-tray", "--"))
        for command in commands_of("velmora-tray"):
            options = options_in(help_of("velmora-tray", command))
            self.assertIn("--help", options)
            self.assertEqual(options, offered("velmora-tray", command, "--"), command)

    def test_an_image_is_made_of_a_folder(self):
        self.make("photos/", "letter.txt")
        self.assertEqual({"photos"}, offered("velmora-cli", "image", "", folder=self.folder))

    def test_an_image_ends_in_iso(self):
        self.make("old.iso", "letter.txt")
        self.assertEqual({"old.iso"}, offered("velmora-cli", "image", "-o", "", folder=self.folder))

    def test_the_disc_types_come_from_the_program(self):
        self.assertLessEqual({"cd-r", "dvd+r", "bd-re"}, offered("velmora-tray", "insert", ""))

    def test_the_virtual_recorders_of_the_user_are_offered(self):
        self.make("velmora/recorders/first/", "velmora/recorders/my second/")
        self.assertEqual({"first", "my second"}, offered("velmora-tray", "-r", "", folder=self.folder))
        self.assertLessEqual({"first", "my second"}, offered("velmora-tray", "delete", "", folder=self.folder))


def main():
    global COMPLETIONS
    COMPLETIONS, cli, tray = (os.path.abspath(path) for path in sys.argv[1:4])
    PROGRAMS.update({"velmora-cli": cli, "velmora-tray": tray})
    if not os.path.exists(BASE):
        print("skipped: bash-completion isn't installed")
        sys.exit(SKIPPED)
    result = unittest.TextTestRunner(verbosity=2).run(
        unittest.defaultTestLoader.loadTestsFromTestCase(CompletionTest))
    sys.exit(0 if result.wasSuccessful() and result.testsRun > 0 else 1)


if __name__ == "__main__":
    main()
