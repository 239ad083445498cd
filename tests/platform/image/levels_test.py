# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks that no file of the image writer includes a file of a level above its own.

The CMakeLists.txt of src/platform/image explains the levels. Usage: levels_test.py FOLDER
"""

import re
import sys
from pathlib import Path

# What a folder's files may include besides the folder's own. "" is the image writer's own folder.
BELOW = {
    "base": set(),
    "source": {"base"},
    "names": {"base", "source"},
    "contents": {"base", "source", "names"},
    "iso": {"base", "source", "names", "contents"},
    "udf": {"base", "source", "names", "contents"},
    "": {"base", "source", "names", "contents", "iso", "udf"},
}
INCLUDE = re.compile(r'^#include "image/(?:(\w+)/)?\w+\.h"', re.MULTILINE)


def main() -> int:
    top = Path(sys.argv[1])
    wrong = []
    seen = 0
    for file in sorted(top.rglob("*.h")) + sorted(top.rglob("*.cpp")):
        level = file.parent.relative_to(top).as_posix().removeprefix(".")
        for folder in INCLUDE.findall(file.read_text(encoding="utf-8")):
            seen += 1
            if folder != level and folder not in BELOW[level]:
                wrong.append(f"{file.relative_to(top)} includes a file of {folder or 'the top'}")
    print("\n".join(wrong) or f"{seen} includes, all of them down or level")
    return 1 if wrong or seen == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
