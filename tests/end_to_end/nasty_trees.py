#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the folders that the end-to-end tests put into images: one function for each folder.

Times are set to fixed moments, so that the same tree always gives the same image.
"""

import argparse
import hashlib
import os
import shutil
import socket

GIB = 1 << 30


def write(path, content):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(content if isinstance(content, bytes) else content.encode())


def fill(top, names):
    """One small file for each name, each with a content of its own."""
    os.makedirs(top, exist_ok=True)
    top = os.fsencode(top)
    for number, name in enumerate(names):
        name = name if isinstance(name, bytes) else name.encode()
        with open(top + b"/" + name, "wb") as file:
            file.write(b"file %d: " % number + name)


def plain(top):
    """Only what every file system and reader can keep."""
    for size in (0, 1, 2047, 2048, 2049, 70000):
        write(f"{top}/sizes/s{size}.bin", bytes(i * 7 % 251 for i in range(size)))
    os.makedirs(f"{top}/empty")
    os.makedirs(f"{top}/a/b/c/d")
    write(f"{top}/a/b/c/d/deep.txt", "four folders down")
    write(f"{top}/readme.txt", "at the top")
    os.link(f"{top}/readme.txt", f"{top}/a/hard.txt")
    os.link(f"{top}/sizes/s70000.bin", f"{top}/a/b/hard.bin")


def names(top):
    """Names of every kind that is valid UTF-8."""
    fill(f"{top}/accents", ["été.txt", "e\u0301te\u0301 decomposed.txt", "Ångström", "A\u030angstro\u0308m decomposed",
                            "ŒUVRE.TXT", "straße", "ÿ", "Ā", "Ελληνικά.txt", "кириллица"])
    fill(f"{top}/asia", ["日本語のファイル.txt", "中文文件名", "한국어", "ไทย", "עברית", "العربية"])
    fill(f"{top}/emoji", ["a😀b.txt", "😀" * 20, "👩‍👩‍👧‍👦.jpg", "🇫🇷"])
    fill(f"{top}/signs", [f"sign {sign} inside" for sign in ";*?\"<>|:\\&%$#@!'`~^{}[]()+=,"] + ["a;1", "b;1;1", "-", "--", "~"])
    fill(f"{top}/many dots", ["a.b.c.d", "a..b", ".tar.gz", ".hidden", "..two", "...", "x.Y.z", "noext"])
    os.makedirs(f"{top}/.hidden folder/.deeper")
    write(f"{top}/.hidden folder/.deeper/.file", "hidden")
    os.makedirs(f"{top}/x")  # a folder and a file that collide without the dot
    write(f"{top}/x/inside", "inside")
    write(f"{top}/X.", "with a dot")


def case_only(top):
    """Names that differ only in case."""
    fill(top, ["a.txt", "A.txt", "A.TXT", "a.TXT", "readme", "README", "Readme", "é", "É"])
    write(f"{top}/Folder/inside", "one")
    write(f"{top}/FOLDER/inside", "two")


def ends(top):
    """Trailing dots and blanks, which some readers remove."""
    fill(top, ["dot", "dot.", "dot..", "blank", "blank ", " blank", "dot and blank. ", "a ", "b."])
    write(f"{top}/folder./inside", "below a dot")
    write(f"{top}/folder /inside", "below a blank")


def long_names(top):
    """As long as a name can be, and alike for as long as possible."""
    fill(f"{top}/longest", ["n" * 251 + ".txt", "n" * 255, "é" * 127, "é" * 125 + ".txt", "日" * 85, "😀" * 63, "x" * 250 + ".html"])
    fill(f"{top}/alike64", ["a" * 64 + str(i) + ".txt" for i in range(12)])
    fill(f"{top}/alike103", ["b" * 103 + str(i) + ".txt" for i in range(12)])
    fill(f"{top}/alike127", ["日" * 80 + str(i) for i in range(12)])
    fill(f"{top}/alike254", ["c" * 254 + i for i in "0123456789"])
    write(f"{top}/{'folder ' * 30}/{'below ' * 40}/file", "long folders")


def raw_bytes(top):
    """Names that are no text: not UTF-8, or with control characters."""
    fill(f"{top}/latin1", [b"caf\xe9", b"caf\xe8", b"caf\xea", b"\xe9t\xe9.txt", b"\xff", b"\xfe\xff", b"ok\x80ok"])
    fill(f"{top}/broken", [b"\xc3", b"\xe2\x82", b"\xed\xa0\x80 surrogate", b"\xc0\xaf overlong", b"\xf5\x80\x80\x80"])
    fill(f"{top}/control", [b"line\nfeed", b"\x1b[31mred", b"delete\x7f", b"tab\tbell\x07", b"\x01", b"c1 \xc2\x9b", b"\r"])
    fill(os.fsencode(top) + b"/folder \xe9", [b"inside"])


def deep(top):
    """300 nested folders, with a file in every tenth."""
    path = os.open(top, os.O_RDONLY)
    for level in range(1, 301):
        name = f"d{level}"
        os.mkdir(name, dir_fd=path)
        below = os.open(name, os.O_RDONLY, dir_fd=path)
        os.close(path)
        path = below
        if level % 10 == 0:
            with os.fdopen(os.open("f.txt", os.O_WRONLY | os.O_CREAT, 0o644, dir_fd=path), "wb") as file:
                file.write(b"level %d" % level)
    os.close(path)


def nine_levels(top):
    """One level more than the strict rules allow, and a path of more than 255."""
    path = top
    for level in range(1, 10):
        path += f"/l{level}"
        write(f"{path}/f{level}.txt", f"level {level}")


def sparse(top):
    """A file of 5 GiB with data at its start, across 4 GiB and at its end."""
    with open(f"{top}/HOLES.BIN", "wb") as file:
        file.truncate(5 * GIB)
        for at in (0, 4 * GIB - 2048, 4 * GIB, 5 * GIB - 5):
            file.seek(at)
            file.write(b"mark %d" % (at % 7))
        file.truncate(5 * GIB)
    write(f"{top}/SMALL.TXT", "beside it")


def links(top):
    """Symbolic links of every kind: to files, to folders, in a row, out of the tree, to nothing, in circles, long ones."""
    write(f"{top}/data/file.txt", "linked to")
    write(f"{top}/data/sub/other.txt", "linked to as well")
    os.symlink("data/file.txt", f"{top}/tofile.txt")
    os.symlink("tofile.txt", f"{top}/twice.txt")
    os.symlink("data", f"{top}/todir")
    os.symlink("../data/sub", f"{top}/data/tosub")
    os.link(f"{top}/data/file.txt", f"{top}/hard.txt")
    os.symlink("./data/../data//sub/other.txt", f"{top}/detour.txt")
    os.symlink("data/", f"{top}/slash")
    os.makedirs(f"{top}/more")
    for name, target in [("dangling", "nowhere"), ("itself", "itself"), ("round", "."), ("up", ".."), ("top", "/"),
                         ("absolute", "/etc/hosts"), ("outside", "../../elsewhere/file"), ("accents", "été/日本語"),
                         ("emoji", "😀/é"), ("blanks", " a b / c"), ("apostrophe", "it's/'here'"), ("dotted", "a.b../...x")]:
        os.symlink(target, f"{top}/more/{name}")
    os.symlink(b"caf\xe9/\xff", os.fsencode(top) + b"/more/latin1")
    os.makedirs(f"{top}/long")
    for length in (1, 90, 150, 200, 245, 246, 247, 248, 249, 250, 254, 255, 300, 500, 1000):
        os.symlink("x" * length, f"{top}/long/name{length}")
        os.symlink("/".join(f"n{number:03}" for number in range(length // 5)) + "/end", f"{top}/long/path{length}")
    os.symlink("../" * 126 + "up", f"{top}/long/up")
    os.symlink("a/" * 300 + "b", f"{top}/long/letters")


def special(top):
    """What can't be included: a pipe, a socket."""
    write(f"{top}/good.txt", "the only one")
    os.makedirs(f"{top}/sub")
    write(f"{top}/sub/also.txt", "and this one")
    os.mkfifo(f"{top}/pipe")
    here = os.getcwd()
    os.chdir(top)  # the address of a socket is short
    with socket.socket(socket.AF_UNIX) as listener:
        listener.bind("socket")
    os.chdir(here)


def clashes(top):
    """2000 names that are one in 8.3 form."""
    fill(top, [f"same beginning {number}.text" for number in range(2000)])


def large_folder(top):
    """20 000 entries."""
    for number in range(20000):
        with open(f"{top}/F{number:05}.DAT", "wb") as file:
            file.write(b"%d" % number)


TREES = [plain, names, case_only, ends, long_names, raw_bytes, deep, nine_levels, sparse, links, special, clashes, large_folder]


def set_times(top, moment=1_600_000_000):
    for path, folders, files, handle in os.fwalk(os.fsencode(top), topdown=False):
        for name in files + folders:
            os.utime(name, (moment, moment), dir_fd=handle, follow_symlinks=False)
    os.utime(top, (moment, moment))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("directory", help="they all come below it, unless this very script has made them before")
    directory = parser.parse_args().directory
    stamp = os.path.join(directory, "made-by")
    with open(__file__, "rb") as script:
        maker = hashlib.file_digest(script, "sha256").hexdigest()
    if os.path.exists(stamp):
        with open(stamp, encoding="utf-8") as file:
            if file.read() == maker:
                return
    shutil.rmtree(directory, ignore_errors=True)
    for tree in TREES:
        top = os.path.join(directory, tree.__name__)
        os.makedirs(top)
        tree(top)
        set_times(top)
    write(stamp, maker)


if __name__ == "__main__":
    main()
