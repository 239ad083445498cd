// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/ContinuationAreas.h"

#include "image/base/Sector.h"

namespace velmora::image {

namespace {

/// The length of the first area: all fields, or as many whole ones as leave room for a CE field.
std::size_t FirstArea(std::string_view fields)
{
    if (fields.size() <= kSectorSize) {
        return fields.size();
    }
    constexpr std::size_t kLengthByte = 2; // of a field
    std::size_t length = 0;
    std::size_t next = 0;
    while (next + sizeof(Continuation) <= kSectorSize) {
        length = next;
        next += static_cast<unsigned char>(fields[next + kLengthByte]);
    }
    return length;
}

} // namespace

std::uint32_t LengthInAreas(std::string_view fields)
{
    std::size_t before = 0;
    while (fields.size() > kSectorSize) {
        fields.remove_prefix(FirstArea(fields));
        before += kSectorSize;
    }
    return static_cast<std::uint32_t>(before + fields.size());
}

std::string InAreas(std::string_view fields, std::uint64_t at)
{
    std::string areas;
    while (fields.size() > kSectorSize) {
        const std::size_t length = FirstArea(fields);
        areas += fields.substr(0, length);
        fields.remove_prefix(length);
        at += kSectorSize;
        areas += BytesOf(LeadingTo(fields, at));
        areas.resize((areas.size() + kSectorSize - 1) / kSectorSize * kSectorSize);
    }
    return areas += fields;
}

Continuation LeadingTo(std::string_view fields, std::uint64_t at)
{
    const bool goesOn = fields.size() > kSectorSize;
    const std::size_t length = FirstArea(fields) + (goesOn ? sizeof(Continuation) : 0);
    Continuation continuation;
    continuation.sector = static_cast<std::uint32_t>(at / kSectorSize);
    continuation.offset = static_cast<std::uint32_t>(at % kSectorSize);
    continuation.length = static_cast<std::uint32_t>(length);
    return continuation;
}

} // namespace velmora::image
