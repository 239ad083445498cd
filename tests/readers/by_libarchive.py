# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""libarchive, the library of bsdtar: gives entries with their contents, folders only as far as files are in them."""

import ctypes
import ctypes.util
import hashlib
import locale
import unicodedata

from entries import BLOCK, FILE, FOLDER, LINK, Entry, ReadFailure, parent
from names import ISO, JOLIET, text_of
from reader import Reader

OK, END, WARN = 0, 1, -20
REGULAR, SYMBOLIC, TYPE_MASK = 0o100000, 0o120000, 0o170000


class Libarchive(Reader):
    name = "libarchive"
    package = "libarchive-tools"
    library = "archive"
    file_systems = (ISO, JOLIET)
    deepest = 250
    shows_empty_folders = False  # a folder whose name goes on elsewhere is told before that place was read

    def shows(self, own, rules):
        return rules.file_system == ISO or unicodedata.is_normalized("NFC", text_of(own))

    def read(self, image, rules, contents):
        locale.setlocale(locale.LC_CTYPE, "C.UTF-8")  # in which it tells the names of Joliet
        library = load()
        archive = library.archive_read_new()
        try:
            library.archive_read_support_format_iso9660(archive)
            library.archive_read_set_options(archive, b"!joliet" if rules.file_system == ISO else b"!rockridge")
            if library.archive_read_open_filename(archive, image.path.encode(), BLOCK) != OK:
                raise ReadFailure(library.archive_error_string(archive).decode())
            return read_entries(library, archive, rules, contents)
        finally:
            library.archive_read_free(archive)


def read_entries(library, archive, rules, contents):
    tree = {}
    item = ctypes.c_void_p()
    while (result := library.archive_read_next_header(archive, ctypes.byref(item))) != END:
        if result not in (OK, WARN):
            raise ReadFailure(library.archive_error_string(archive).decode(errors="replace"))
        mode = library.archive_entry_mode(item)
        path = library.archive_entry_pathname(item)
        if path is not None and mode & TYPE_MASK == SYMBOLIC:
            tree[path] = Entry(LINK, time=library.archive_entry_mtime(item), target=library.archive_entry_symlink(item))
        if path is None or mode & TYPE_MASK != REGULAR:
            continue
        other = library.archive_entry_hardlink(item)
        if other is not None:  # the same content, which comes only once
            tree[path] = tree[other]
            continue
        entry = Entry(FILE, library.archive_entry_size(item), mode=mode & 0o777 if rules.rock_ridge else None,
                      time=library.archive_entry_mtime(item))
        if contents:
            entry.digest = digest(library, archive)
        tree[path] = entry
    return with_folders(tree)


def digest(library, archive):
    sum_ = hashlib.sha256()
    buffer = ctypes.create_string_buffer(BLOCK)
    while (count := library.archive_read_data(archive, buffer, BLOCK)) > 0:
        sum_.update(buffer.raw[:count])
    if count < 0:
        raise ReadFailure(library.archive_error_string(archive).decode(errors="replace"))
    return sum_.hexdigest()


def with_folders(files):
    tree = {}
    for path, entry in files.items():
        tree[path] = entry
        while path := parent(path):
            tree.setdefault(path, Entry(FOLDER))
    return tree


def load():
    library = ctypes.CDLL(ctypes.util.find_library("archive"))
    library.archive_read_new.restype = ctypes.c_void_p
    for function in ("archive_entry_pathname", "archive_entry_hardlink", "archive_entry_symlink", "archive_error_string"):
        getattr(library, function).restype = ctypes.c_char_p
    library.archive_entry_size.restype = library.archive_entry_mtime.restype = ctypes.c_int64
    library.archive_entry_mode.restype = ctypes.c_uint
    library.archive_read_data.restype = ctypes.c_ssize_t
    pointer, size = ctypes.c_void_p, ctypes.c_size_t
    library.archive_read_data.argtypes = [pointer, ctypes.c_char_p, size]
    library.archive_read_open_filename.argtypes = [pointer, ctypes.c_char_p, size]
    library.archive_read_set_options.argtypes = [pointer, ctypes.c_char_p]
    library.archive_read_next_header.argtypes = [pointer, pointer]
    for function in ("archive_read_support_format_iso9660", "archive_read_free", "archive_entry_pathname",
                     "archive_entry_hardlink", "archive_entry_symlink", "archive_error_string", "archive_entry_size", "archive_entry_mtime",
                     "archive_entry_mode"):
        getattr(library, function).argtypes = [pointer]
    return library
