#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""docs/names.md explains every kept name and says where it is: the forms, the files and the page must agree.

Usage: names_test.py PROJECT
"""

import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

ROW = re.compile(r"^\| `(?P<name>\w+)` \| (?P<meaning>[^|]+) \| (?P<files>`[^|]+`) \|$")
HEADINGS = ("| Name | What it is | Where |", "|---|---|---|")


def rows_of(page):
    """The page's rows as (name, files). A line of a table that isn't a row is a fault too."""
    rows = []
    for line in page.splitlines():
        if line.startswith("|") and line not in HEADINGS:
            row = ROW.match(line)
            assert row, f"not a row of the table: {line}"
            rows.append((row["name"], re.findall(r"`([^`]+)`", row["files"])))
    return rows


def controls_of(form):
    """The names of a form's controls and actions; its layouts and spacers are just how they stand."""
    root = ElementTree.parse(form).getroot()
    return {element.get("name") for tag in ("widget", "action") for element in root.iter(tag)}


def is_named_in(name, text):
    """Whether a text has the name; of a member of an array that is made in code, the array's name."""
    array = re.sub(r"_\d+$", "", name)
    return re.search(rf"(?<![A-Za-z0-9]){array}(?![A-Za-z0-9])", text) is not None


def faults_of_rows(rows, source):
    seen = set()
    for name, files in rows:
        for file in files:
            if (name, file) in seen:
                yield f"{name}: twice for {file}"
            seen.add((name, file))
            path = source / file
            if not path.is_file():
                yield f"{name}: there is no {file}"
            elif file.endswith(".ui"):
                if name not in controls_of(path):
                    yield f"{name}: not in {file}"
            elif not is_named_in(name, path.read_text(encoding="utf-8")):
                yield f"{name}: not in {file}"


def faults_of_forms(rows, source):
    told = {(name, file) for name, files in rows for file in files}
    for form in sorted(source.rglob("*.ui")):
        file = form.relative_to(source).as_posix()
        for name in sorted(controls_of(form)):
            if (name, file) not in told:
                yield f"{file}: {name} isn't on the page"


def faults_of_includes(source):
    """What a form generates belongs only to that form's class."""
    for path in sorted(source.rglob("*.[hc]*")):
        for form in re.findall(r'#include "ui_(\w+)\.h"', path.read_text(encoding="utf-8")):
            if path.name != f"{form}.cpp":
                yield f"{path.relative_to(source)}: the form {form} isn't its own"


def main():
    project = pathlib.Path(sys.argv[1])
    source = project / "src"
    rows = rows_of((project / "docs" / "names.md").read_text(encoding="utf-8"))
    assert len(rows) > 100, f"only {len(rows)} names: the page isn't read as it is written"
    faults = [*faults_of_rows(rows, source), *faults_of_forms(rows, source), *faults_of_includes(source)]
    print("\n".join(faults) or f"{len(rows)} names agree.")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
