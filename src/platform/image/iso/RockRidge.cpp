// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/RockRidge.h"

#include <string>
#include <sys/stat.h>

namespace velmora::image {

std::string AlternateName(std::string_view name)
{
    std::string fields;
    do {
        const std::string_view piece = name.substr(0, kMaxNamePiece);
        name.remove_prefix(piece.size());
        AlternateNameHead head;
        head.head.length = static_cast<std::uint8_t>(sizeof head + piece.size());
        head.flags = name.empty() ? 0 : 1;
        fields += BytesOf(head);
        fields += piece;
    } while (!name.empty());
    return fields;
}

PosixAttributes AttributesOf(const Node& node, std::uint32_t links)
{
    const std::uint32_t type = node.isDirectory ? S_IFDIR : S_IFREG;
    const std::uint32_t everybody = node.isDirectory ? 0555 : 0444;
    PosixAttributes attributes;
    attributes.mode = type | node.mode | everybody;
    attributes.links = links;
    return attributes;
}

} // namespace velmora::image
