// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace velmora::mastering {

/// Who has an open file open for writing, in words: "le programme « wget » (processus 815)", or "un
/// autre programme" where the system doesn't tell which. Nothing where nobody has, and where that
/// can't be known (other machines of a network file system, other users' programs on somebody
/// else's file).
/// @param file  opened for reading only
std::optional<QString> WriterOf(int file);

} // namespace velmora::mastering
