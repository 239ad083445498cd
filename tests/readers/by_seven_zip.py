# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""7-Zip: its listing gives names and sizes, and the contents come in one stream in the order of the listing."""

import hashlib
import re
import shutil
import subprocess

from entries import BLOCK, FILE, FOLDER, LINK, Entry, ReadFailure
from names import ISO, JOLIET, UDF, text_of
from reader import ENVIRONMENT, Reader, run

NOTHING = hashlib.sha256(b"").hexdigest()
FIELD = re.compile(r"^(Path|Folder|Size) = ?(.*)$")


class SevenZip(Reader):
    name = "7-Zip"
    package = "7zip"
    file_systems = (ISO, JOLIET, UDF)
    deepest = 200

    @property
    def program(self):
        return next((program for program in ("7zz", "7z") if shutil.which(program)), "7zz")

    def shows(self, own, rules):
        text = text_of(own)
        if rules.rock_ridge:
            return False  # of many entries it shows the name of ISO 9660
        if text is None or re.search(r"[\x00-\x1f\x7f-\x9f\\]", text):
            return False
        return rules.file_system == UDF or not own.endswith(b".")

    def reads(self, rules, present, source):
        if rules.file_system == ISO and JOLIET in present:
            return "it takes Joliet instead"
        if rules.file_system == UDF and any(entry.kind == LINK for entry in source.values()):
            return "it opens no UDF with symbolic links"
        return super().reads(rules, present, source)

    def shown_link(self, entry, rules):
        return Entry(FILE, 0, NOTHING)

    def type(self, rules):
        return "-tudf" if rules.file_system == UDF else "-tiso"

    def read(self, image, rules, contents):
        said = run(self.program, "l", "-slt", "-ba", "-sccUTF-8", self.type(rules), image.path)
        entries = []
        for record in said.decode(errors="surrogateescape").split("\n\n"):
            fields = dict(match.groups() for match in map(FIELD.match, record.split("\n")) if match)
            if fields:
                kind = FOLDER if fields["Folder"] == "+" else FILE
                entries.append((self.path(fields["Path"], rules).encode(errors="surrogateescape"),
                                Entry(kind, int(fields["Size"] or 0) if kind == FILE else 0)))
        if not entries:
            raise ReadFailure("7-Zip lists nothing")
        if contents:
            self.read_contents(image, rules, [entry for _, entry in entries if entry.kind == FILE])
        return dict(entries)

    @staticmethod
    def path(shown, rules):
        """The path with each name as it shows the last one: without a dot at the end, if it isn't of UDF."""
        return shown if rules.file_system == UDF else "/".join(own.removesuffix(".") for own in shown.split("/"))

    def read_contents(self, image, rules, files):
        command = [self.program, "x", "-so", "-bd", self.type(rules), image.path]
        with subprocess.Popen(command, env=ENVIRONMENT, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL) as process:
            for entry in files:
                sum_, left = hashlib.sha256(), entry.size
                while left > 0 and (block := process.stdout.read(min(left, BLOCK))):
                    sum_.update(block)
                    left -= len(block)
                entry.digest = sum_.hexdigest() if left == 0 else "cut off"
            if process.stdout.read(1):
                raise ReadFailure("7-Zip gives more bytes than it lists")
        if process.returncode != 0:
            raise ReadFailure(f"7-Zip ended with {process.returncode}")
