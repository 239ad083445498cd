# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""libarchive, the library of bsdtar: gives entries in the order of their places on the disc, each with its content."""

import ctypes
import ctypes.util
import hashlib
import locale
import unicodedata

from entries import BLOCK, FILE, FOLDER, LINK, Entry, ReadFailure
from names import ISO, JOLIET, text_of
from reader import Reader

OK, END, WARN = 0, 1, -20
ROOT = b"."
DIRECTORY, REGULAR, SYMBOLIC, TYPE_MASK = 0o040000, 0o100000, 0o120000, 0o170000


class Libarchive(Reader):
    name = "libarchive"
    package = "libarchive-tools"
    library = "archive"
    file_systems = (ISO, JOLIET)
    deepest = 250

    def shows(self, own, rules):
        return rules.file_system == ISO or unicodedata.is_normalized("NFC", text_of(own))

    def read(self, image, rules, contents):
        locale.setlocale(locale.LC_CTYPE, "C.UTF-8")  # in which it reports the names of Joliet
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
        path = library.archive_entry_pathname(item)
        if path is None or path == ROOT:
            continue
        if path in tree:
            raise ReadFailure(f"it tells {ascii(path)[1:]} twice")
        entry = read_entry(library, archive, item, rules, contents)
        if (first := library.archive_entry_hardlink(item)) is not None:  # their content comes only once
            entry.size, entry.digest = tree[first].size, tree[first].digest
        tree[path] = entry
    return tree


def read_entry(library, archive, item, rules, contents):
    """One entry, as it is told."""
    type_, time = library.archive_entry_mode(item) & TYPE_MASK, library.archive_entry_mtime(item)
    mode = library.archive_entry_mode(item) & 0o777 if rules.rock_ridge else None
    if type_ == SYMBOLIC:
        return Entry(LINK, time=time, target=library.archive_entry_symlink(item))
    if type_ == DIRECTORY:
        return Entry(FOLDER, mode=mode, time=time)
    if type_ != REGULAR:
        raise ReadFailure(f"{ascii(library.archive_entry_pathname(item))[1:]} has the type {type_:o}")
    return Entry(FILE, library.archive_entry_size(item), digest(library, archive) if contents else None, mode, time)


def digest(library, archive):
    sum_ = hashlib.sha256()
    buffer = ctypes.create_string_buffer(BLOCK)
    while (count := library.archive_read_data(archive, buffer, BLOCK)) > 0:
        sum_.update(buffer.raw[:count])
    if count < 0:
        raise ReadFailure(library.archive_error_string(archive).decode(errors="replace"))
    return sum_.hexdigest()


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
