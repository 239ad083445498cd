// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shortcut/DesktopLink.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string entry(data, data + size);
    const auto address = velmora::shortcut::AddressOfDesktopLink(entry);
    // Escapes only ever make a text shorter.
    if (address && address->size() > entry.size()) {
        std::abort();
    }
    return 0;
}
