// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shortcut/ShellLink.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto link = velmora::shortcut::ReadShellLink(std::as_bytes(std::span(data, size)));
    // No path is longer than the bytes it comes from, and none reaches past a NUL.
    const auto isSound = [size](const QString& path) {
        return path.size() <= static_cast<qsizetype>(size) && !path.contains(QChar::Null);
    };
    if (link && !(isSound(link->localBasePath) && isSound(link->relativePath))) {
        std::abort();
    }
    return 0;
}
