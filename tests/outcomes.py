#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tells what failed tests printed, and how many were skipped and why: outcomes.py REPORT..., with the reports that
ctest --output-junit writes."""

import collections
import os
import re
import sys
import xml.etree.ElementTree

# How test programs tell why: a line of their own, unittest's, or GoogleTest's below the line of the test.
REASONS = [re.compile(pattern, re.MULTILINE) for pattern in
           (r"^skipped: (.+)$", r"skipped ['\"](.+)['\"]$", r"Skipped\n(.+)$", r"^(.*MISSING.*)$")]
MOST_NAMES = 3
MOST_LINES = 40


def reason_of(case):
    said = case.findtext("system-out") or ""
    return next((match[1].strip() for match in (reason.search(said) for reason in REASONS) if match), "no reason told")


def cases_in(reports):
    for path in filter(os.path.exists, reports):
        yield from xml.etree.ElementTree.parse(path).getroot().iter("testcase")


def tell_failed(cases):
    for case in cases:
        print(f"failed: {case.get('name')}")
        for line in (case.findtext("system-out") or "").splitlines()[-MOST_LINES:]:
            print(f"    {line}")


def tell_skipped(cases, tests):
    skipped = collections.defaultdict(list)
    for case in cases:
        skipped[reason_of(case)].append(case.get("name"))
    print(f"{len(cases)} of {tests} tests were skipped")
    for reason, names in sorted(skipped.items(), key=lambda item: -len(item[1])):
        more = f" and {len(names) - MOST_NAMES} more" if len(names) > MOST_NAMES else ""
        print(f"    {len(names):4}  {reason}: {', '.join(names[:MOST_NAMES])}{more}")


def main():
    cases = list(cases_in(sys.argv[1:]))
    tell_failed([case for case in cases if case.find("failure") is not None or case.get("status") == "fail"])
    tell_skipped([case for case in cases if case.find("skipped") is not None or case.get("status") == "notrun"], len(cases))


if __name__ == "__main__":
    main()
