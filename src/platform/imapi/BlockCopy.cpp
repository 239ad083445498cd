// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "BlockCopy.h"

#include <algorithm>
#include <vector>

namespace velmora::imapi {

quint64 BlockCopy(IStream& source, IStream& destination, quint64 count)
{
    constexpr quint64 kBufferSize = 1024UL * 1024; // bytes
    std::vector<std::byte> buffer(static_cast<std::size_t>(std::min(count, kBufferSize)));
    quint64 copied = 0;
    while (copied < count) {
        const std::span wanted = std::span(buffer).first(
            static_cast<std::size_t>(std::min<quint64>(count - copied, buffer.size())));
        const std::size_t read = source.Read(wanted);
        if (read == 0) {
            break;
        }
        destination.Write(wanted.first(read));
        copied += read;
    }
    return copied;
}

} // namespace velmora::imapi
