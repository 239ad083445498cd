// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/IsoHierarchy.h"

// What leads readers into a hierarchy: its path tables, and its root's record.

namespace velmora::image {

template <template <class> class Number> std::string IsoHierarchy::PathTable() const
{
    std::string table;
    table.reserve(pathTableSize_);
    for (const NamedDirectory& directory : tree_.directories) {
        const bool isRoot = table.empty();
        const std::string identifier
            = isRoot ? std::string(1, '\0') : tree_.FormOf(directory).Bytes();
        PathTableRecordHead<Number> head;
        head.identifierLength = static_cast<std::uint8_t>(identifier.size());
        head.extentStart = directory.sector;
        head.parent = static_cast<std::uint16_t>(directory.parent + 1);
        table += BytesOf(head);
        table += identifier;
        if (identifier.size() % 2 != 0) {
            table += '\0';
        }
    }
    return table;
}

template std::string IsoHierarchy::PathTable<Little>() const;
template std::string IsoHierarchy::PathTable<Big>() const;

RootRecord IsoHierarchy::Root() const
{
    const NamedDirectory& root = tree_.directories.front();
    RootRecord record;
    record.head.recordLength = sizeof record;
    record.head.extentStart = root.sector;
    record.head.dataLength = root.bytes;
    record.head.time = ToRecordTime(attributes_.Of(root.node).modified.seconds);
    record.head.flags = kFlagDirectory;
    record.head.identifierLength = 1;
    return record;
}

} // namespace velmora::image
