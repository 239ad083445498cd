// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace velmora::mastering {

/// Which program has an open file open for writing, in words: "le programme « wget » (processus
/// 815)", or "un autre programme" if the system doesn't tell which. Nothing if there is none, or it
/// can't be known (other machines of a network file system, other users' programs on somebody
/// else's file).
/// @param file  opened for reading only
std::optional<QString> WriterOf(int file);

} // namespace velmora::mastering
