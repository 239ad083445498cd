// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/FileUri.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string list(data, data + size);
    for (const std::string_view address : velmora::text::AddressesOf(list)) {
        const auto path = velmora::text::NativePathOfUri(address);
        // Whatever is accepted as a path can be passed to the system.
        if (path
            && (!path->Bytes().starts_with('/') || path->Bytes().find('\0') != std::string::npos)) {
            std::abort();
        }
    }
    return 0;
}
