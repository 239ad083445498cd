#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""docs/image-format.md shows an image as it really is: its commands, run again, print what stands there.

Usage: image_format_page_test.py PROJECT CLI
"""

import difflib
import os
import re
import subprocess
import sys
import tempfile


def block(page, language):
    found = re.findall(rf"^```{language}\n(.*?)^```$", page, re.MULTILINE | re.DOTALL)
    assert len(found) == 1, f"one {language} block expected, {len(found)} found"
    return found[0]


def main():
    project, cli = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    with open(os.path.join(project, "docs", "image-format.md"), encoding="utf-8") as file:
        page = file.read()
    with tempfile.TemporaryDirectory(prefix="velmora-page-") as folder:
        os.symlink(os.path.join(project, "docs"), os.path.join(folder, "docs"))
        environment = dict(os.environ, PATH=os.path.dirname(cli) + ":" + os.environ["PATH"])
        script = "set -e; exec 3>&1 >/dev/null\n" + block(page, "sh").replace("docs/show-sectors", ">&3 docs/show-sectors")
        printed = subprocess.run(["bash", "-c", script], cwd=folder, env=environment, check=True,
                                 stdout=subprocess.PIPE, text=True).stdout
    shown = block(page, "text")
    sys.stdout.writelines(difflib.unified_diff(
        shown.splitlines(True), printed.splitlines(True), "docs/image-format.md", "the image"))
    sys.exit(0 if shown == printed and printed else 1)


if __name__ == "__main__":
    main()
