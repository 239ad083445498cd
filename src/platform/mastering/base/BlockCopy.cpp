// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/base/BlockCopy.h"

#include "unicode/PieceBuffer.h"

#include <algorithm>
#include <memory>

namespace velmora::mastering {

quint64 BlockCopy(imapi::IStream& source, imapi::IStream& destination, quint64 count)
{
    constexpr std::size_t kBufferSize = 1024UL * 1024; // bytes
    const auto buffer = std::make_unique_for_overwrite<unicode::PieceBuffer<kBufferSize>>();
    quint64 copied = 0;
    while (copied < count) {
        const std::span wanted
            = std::span(buffer->bytes)
                  .first(static_cast<std::size_t>(std::min<quint64>(count - copied, kBufferSize)));
        const std::size_t read = source.Read(wanted);
        if (read == 0) {
            break;
        }
        destination.Write(wanted.first(read));
        copied += read;
    }
    return copied;
}

} // namespace velmora::mastering
