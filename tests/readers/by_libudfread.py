# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""libudfread, which Blu-ray players use: walks the folders and reads the files."""

import ctypes
import ctypes.util
import hashlib

from entries import BLOCK, FILE, FOLDER, Entry, ReadFailure, join
from names import UDF
from reader import Reader
from source import udf_length

DIRECTORY = 1


class DirectoryEntry(ctypes.Structure):
    _fields_ = [("type", ctypes.c_uint), ("name", ctypes.c_char_p)]


class Libudfread(Reader):
    name = "libudfread"
    package = "libudfread0"
    library = "udfread"
    file_systems = (UDF,)

    def shown_link(self, entry, rules):
        return Entry(FILE, udf_length(entry.target))  # a file of path components

    def read(self, image, rules, contents):
        library = load()
        udf = library.udfread_init()
        try:
            if library.udfread_open(udf, image.path.encode()) < 0:
                raise ReadFailure("libudfread can't open the image")
            top = library.udfread_opendir(udf, b"/")
            if not top:
                raise ReadFailure("libudfread can't open the root")
            tree = {}
            read_folder(library, top, b"", tree, contents)
            return tree
        finally:
            library.udfread_close(udf)


def read_folder(library, folder, path, tree, contents):
    """Reads an open folder and closes it."""
    entry = DirectoryEntry()
    while library.udfread_readdir(folder, ctypes.byref(entry)):
        own, is_folder = entry.name, entry.type == DIRECTORY
        if own in (b".", b".."):
            continue
        inner = join(path, utf8(own))
        if is_folder:
            tree[inner] = Entry(FOLDER)
            below = library.udfread_opendir_at(folder, own)
            if not below:
                raise ReadFailure(f"libudfread can't open the folder {inner!r}")
            read_folder(library, below, inner, tree, contents)
        else:
            tree[inner] = read_file(library, folder, own, inner, contents)
    library.udfread_closedir(folder)


def utf8(own):
    """The name in UTF-8: libudfread makes two characters of the two halves of one."""
    return own.decode(errors="surrogatepass").encode("utf-16", "surrogatepass").decode("utf-16", "surrogatepass").encode(
        errors="surrogatepass")


def read_file(library, folder, own, path, contents):
    file = library.udfread_file_openat(folder, own)
    if not file:
        raise ReadFailure(f"libudfread can't open {path!r}")
    entry = Entry(FILE, library.udfread_file_size(file))
    if contents:
        sum_ = hashlib.sha256()
        buffer = ctypes.create_string_buffer(BLOCK)
        while (count := library.udfread_file_read(file, buffer, BLOCK)) > 0:
            sum_.update(buffer.raw[:count])
        entry.digest = sum_.hexdigest() if count == 0 else "unreadable"
    library.udfread_file_close(file)
    return entry


def load():
    library = ctypes.CDLL(ctypes.util.find_library("udfread"))
    pointer = ctypes.c_void_p
    for function in ("udfread_init", "udfread_opendir", "udfread_opendir_at", "udfread_readdir", "udfread_file_openat"):
        getattr(library, function).restype = pointer
    for function in ("udfread_open", "udfread_opendir", "udfread_opendir_at", "udfread_file_openat"):
        getattr(library, function).argtypes = [pointer, ctypes.c_char_p]
    for function in ("udfread_close", "udfread_closedir", "udfread_file_close", "udfread_file_size"):
        getattr(library, function).argtypes = [pointer]
    library.udfread_readdir.argtypes = [pointer, pointer]
    library.udfread_file_size.restype = ctypes.c_int64
    library.udfread_file_read.restype = ctypes.c_ssize_t
    library.udfread_file_read.argtypes = [pointer, ctypes.c_char_p, ctypes.c_size_t]
    return library
