// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/RuntimeError.h"
#include "virtual/Description.h"

#include <cstdint>
#include <cstdlib>

using namespace velmora;

namespace {

bool IsSound(const virtualdrive::Disc& disc)
{
    qint64 end = 0;
    for (const drive::SessionFacts& session : disc.sessions) {
        if (session.firstSector < end || session.sectors < 0) {
            return false;
        }
        end = session.firstSector + session.sectors;
    }
    if (disc.open && (disc.open->firstSector < end || disc.open->sectors < 0)) {
        return false;
    }
    return disc.medium != nullptr && end <= disc.capacity
        && virtualdrive::IsSectorFileName(disc.sectorFile);
}

} // namespace

/// A description is either refused with the one error that it may raise, or is sound and survives
/// being written and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto bytes = QByteArray::fromRawData(
        reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    virtualdrive::Description description;
    try {
        description = virtualdrive::FromText(bytes);
    } catch (const runtime::RuntimeError&) {
        return 0;
    }
    const QByteArray text = virtualdrive::ToText(description);
    if (virtualdrive::ToText(virtualdrive::FromText(text)) != text) {
        std::abort();
    }
    if (description.disc && !IsSound(*description.disc)) {
        std::abort();
    }
    return 0;
}
