#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""One name, one meaning: no two headers define a type of the same name, whatever their namespaces are.

Usage: types_test.py PROJECT

Types inside another one or in a source file don't count.
"""

import collections
import pathlib
import re
import sys

# A type in a namespace begins its line; a mere declaration ends in a semicolon.
TYPE = re.compile(r"^(?:class|struct|union|enum(?: class)?) (?P<name>\w+)[^;{]*\{", re.MULTILINE)
ALIAS = re.compile(r"^using (?P<name>\w+) =", re.MULTILINE)


def types_of(header):
    text = header.read_text(encoding="utf-8")
    return [match["name"] for pattern in (TYPE, ALIAS) for match in pattern.finditer(text)]


def main():
    source = pathlib.Path(sys.argv[1]) / "src"
    homes = collections.defaultdict(list)
    for header in sorted(source.rglob("*.h")):
        for name in types_of(header):
            homes[name].append(header.relative_to(source).as_posix())
    assert len(homes) > 400, f"only {len(homes)} types: the headers aren't read as they are written"
    faults = [f"{name}: {', '.join(headers)}" for name, headers in sorted(homes.items()) if len(headers) > 1]
    print("\n".join(faults) or f"{len(homes)} types have a name of their own.")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
