#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tells how many tests were skipped, and why: skipped.py REPORT..., with the reports that ctest --output-junit writes."""

import collections
import os
import re
import sys
import xml.etree.ElementTree

# How test programs tell why: a line of their own, unittest's, or GoogleTest's below the line of the test.
REASONS = [re.compile(pattern, re.MULTILINE) for pattern in
           (r"^skipped: (.+)$", r"skipped ['\"](.+)['\"]$", r"Skipped\n(.+)$", r"^(.*MISSING.*)$")]
MOST_NAMES = 3


def reason_of(case):
    said = case.findtext("system-out") or ""
    return next((match[1].strip() for match in (reason.search(said) for reason in REASONS) if match), "no reason told")


def main():
    tests, skipped = 0, collections.defaultdict(list)
    for path in sys.argv[1:]:
        if os.path.exists(path):
            for case in xml.etree.ElementTree.parse(path).getroot().iter("testcase"):
                tests += 1
                if case.find("skipped") is not None or case.get("status") == "notrun":
                    skipped[reason_of(case)].append(case.get("name"))
    count = sum(map(len, skipped.values()))
    print(f"{count} of {tests} tests were skipped")
    for reason, names in sorted(skipped.items(), key=lambda item: -len(item[1])):
        more = f" and {len(names) - MOST_NAMES} more" if len(names) > MOST_NAMES else ""
        print(f"    {len(names):4}  {reason}: {', '.join(names[:MOST_NAMES])}{more}")


if __name__ == "__main__":
    main()
