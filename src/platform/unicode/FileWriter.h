// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace velmora::unicode {

/// A program that has a file open for writing.
struct FileWriter {
    int process = 0;        ///< its number; 0 where the system doesn't tell who it is
    std::string program {}; ///< its name, any bytes; empty where it isn't known
};

/// Who has an open file open for writing. Where the system doesn't tell (other machines of a
/// network file system, other users' programs on somebody else's file), nobody has.
/// @param file  opened for reading only
std::optional<FileWriter> FindWriterOf(int file);

} // namespace velmora::unicode
