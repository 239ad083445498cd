#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""completion_test.py SHELL COMPLETIONS CLI TRAY - the shell offers what the programs' own help lists, and the matching
files. Ends with 77 where the shell isn't installed, or has no completion to build on."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SKIPPED = 77
BASE = "/usr/share/bash-completion/bash_completion"
SHELL, COMPLETIONS = "", ""
PROGRAMS = {}

# Each completes the command line in the arguments, whose last word the cursor is in, as the Tab key does.
ASK_BASH = r"""
. "$1" && . "$2" && shift 2
COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMP_LINE="$*" COMP_POINT=${#COMP_LINE} COMP_TYPE=9 COMP_KEY=9
compopt() { :; }
_velmora "$1" "${!#}" "${COMP_WORDS[COMP_CWORD-1]}"
[ ${#COMPREPLY[@]} = 0 ] || printf '%s\n' "${COMPREPLY[@]}"
"""
ASK_FISH = r"""
source $argv[1]
complete -C (string join ' ' -- (string escape -- $argv[2..-2]) $argv[-1])
"""
# The line editor of zsh needs a terminal; what it would be handed is written instead.
ASK_ZSH = r"""
file=$1
shift
offer() { local word; for word in "$@"; do [[ $word == ${(b)words[CURRENT]}* ]] && print -r -- $word; done; }
compadd() { offer ${@:#-*}; }
_describe() { local -a rows=("${(@P)@[-1]}"); offer ${rows%%:*}; }
_files() {
    case "$*" in
        -/) offer *(N/) ;;
        -g*) offer ${~2%%\(*}(N) ;;
        *) offer *(N) ;;
    esac
}
_message() { :; }
_call_program() { shift; "$@"; }
words=("$@") CURRENT=$#
. $file
"""


def command_of(words):
    if SHELL == "bash":
        return ["bash", "--norc", "-c", ASK_BASH, "bash", BASE, os.path.join(COMPLETIONS, "velmora.bash"), *words]
    if SHELL == "fish":
        return ["fish", "-N", "-c", ASK_FISH, os.path.join(COMPLETIONS, "velmora.fish"), *words]
    return ["zsh", "-f", "-c", ASK_ZSH, "zsh", os.path.join(COMPLETIONS, "_velmora"), *words]


def offered(*words, folder=None):
    environment = dict(os.environ, PATH=os.path.dirname(PROGRAMS[words[0]]) + ":" + os.environ["PATH"], LC_ALL="C.UTF-8")
    if folder:
        environment["XDG_DATA_HOME"] = folder
    answer = subprocess.run(command_of(words), cwd=folder, env=environment, capture_output=True, text=True, timeout=30,
                            check=False)
    assert not answer.stderr, answer.stderr
    rows = answer.stdout.split("\n")
    return {row.split("\t")[0].rstrip("/") for row in rows} - {""}


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

    def test_every_option_of_every_command_is_offered(self):
        for program in PROGRAMS:
            self.assertEqual(options_in(help_of(program)), offered(program, "--"))
            for command in commands_of(program):
                options = options_in(help_of(program, command))
                self.assertIn("--help", options)
                self.assertEqual(options, offered(program, command, "--"), command)

    def test_values_of_options_are_offered(self):
        self.assertEqual({"iso", "joliet", "udf", "all"}, offered("velmora-cli", "image", "--fs", ""))
        self.assertEqual({"keep", "follow"}, offered("velmora-cli", "burn", "--links", ""))
        self.assertEqual({"dvd", "dvd-dl"}, offered("velmora-cli", "burn", "--medium", "dv"))
        self.assertEqual({"vierge", "ouvert", "ferme", "plein"}, offered("velmora-tray", "insert", "--state", ""))
        self.assertEqual(set(), offered("velmora-cli", "burn", "--name", ""))

    def test_the_numbers_of_recorders_are_offered(self):
        for name in ("first", "second"):
            subprocess.run([PROGRAMS["velmora-tray"], "create", name], check=True, capture_output=True,
                           env=dict(os.environ, XDG_DATA_HOME=self.folder))
        self.assertLessEqual({"1", "2"}, offered("velmora-cli", "burn", "--recorder", "", folder=self.folder))

    def test_an_image_is_made_of_a_folder(self):
        self.make("photos/", "letter.txt")
        self.assertIn("photos", offered("velmora-cli", "image", "", folder=self.folder))

    def test_an_image_ends_in_iso(self):
        self.make("old.iso", "photos/")
        self.assertIn("old.iso", offered("velmora-cli", "image", "-o", "", folder=self.folder))
        self.assertIn("old.iso", offered("velmora-cli", "burn-iso", "", folder=self.folder))

    def test_a_value_that_is_a_folder_or_a_file_is_one(self):
        self.make("photos/", "result.json", "old.iso")
        self.assertEqual({"photos"}, offered("velmora-cli", "check", "--with", "p", folder=self.folder))
        self.assertIn("result.json", offered("velmora-cli", "check", "--report", "", folder=self.folder))
        self.assertIn("old.iso", offered("velmora-cli", "check", "", folder=self.folder))
        self.assertIn("photos", offered("velmora-cli", "image", "--report", "", folder=self.folder))

    def test_the_disc_types_come_from_the_program(self):
        self.assertLessEqual({"cd-r", "dvd+r", "bd-re"}, offered("velmora-tray", "insert", ""))

    def test_the_virtual_recorders_of_the_user_are_offered(self):
        self.make("velmora/recorders/first/", "velmora/recorders/second/")
        self.assertEqual({"first", "second"}, offered("velmora-tray", "-r", "", folder=self.folder))
        self.assertEqual({"first", "second"}, offered("velmora-tray", "delete", "", folder=self.folder))


def main():
    global SHELL, COMPLETIONS
    SHELL = sys.argv[1]
    COMPLETIONS, cli, tray = (os.path.abspath(path) for path in sys.argv[2:5])
    PROGRAMS.update({"velmora-cli": cli, "velmora-tray": tray})
    if not shutil.which(SHELL) or (SHELL == "bash" and not os.path.exists(BASE)):
        print(f"skipped: {SHELL} or its completion isn't installed")
        sys.exit(SKIPPED)
    result = unittest.TextTestRunner(verbosity=2).run(
        unittest.defaultTestLoader.loadTestsFromTestCase(CompletionTest))
    sys.exit(0 if result.wasSuccessful() and result.testsRun > 0 else 1)


if __name__ == "__main__":
    main()
