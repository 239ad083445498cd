// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/FileSystems.h"
#include "image/names/NameRules.h"
#include "image/names/OmittedEntry.h"
#include "image/source/SourceTree.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace velmora::image {

/// In place of a form's place: the form is the source's name in the file system's coding. Nearly
/// all are, so millions of names aren't kept twice.
inline constexpr NameRef kSourceName = 0xFFFFFFFF;
/// The same for a name with non-ASCII characters.
inline constexpr NameRef kWideSourceName = 0xFFFFFFFE;

/// One entry of a directory, as one file system names it.
struct NamedEntry {
    NodeId node = kNoNode;
    NameRef name = kSourceName; ///< its form (see NameRules), or where NamedTree keeps it

    /// Whether the form is the source's name, whatever its characters.
    bool HasSourceName() const { return name >= kWideSourceName; }
};

/// One directory of a file system. Places are relative to the directories' first sector until the
/// layout is known.
struct NamedDirectory {
    NodeId node = kNoNode;
    NameRef name = kSourceName;   ///< as in NamedEntry
    std::uint32_t parent = 0;     ///< number of the parent; the root is its own
    std::uint32_t firstEntry = 0; ///< in NamedTree::entries
    std::uint32_t entryCount = 0;
    std::uint32_t firstSubdirectory
        = 0; ///< number of its first subdirectory; the others follow in order
    std::uint32_t subdirectoryCount = 0;
    std::uint32_t sector = 0; ///< where its records begin
    std::uint32_t bytes = 0;  ///< length of its records
    bool hasClashes = false;  ///< names that became the same had to be changed
};

/// The limits of one file system, other than those on names.
struct TreeLimits {
    unsigned maxLevels = 0;        ///< directory levels, the root counted; 0 = any number
    std::size_t maxPath = 0;       ///< names and separators of a path; 0 = any length
    std::uint64_t maxFileSize = 0; ///< bytes; 0 = any size
    std::uint32_t maxParents = 0;  ///< directories that may have subdirectories; 0 = any number
    /// Why it can't hold a symbolic link, if so; empty = it holds all.
    std::function<std::optional<ErrorKind>(NodeId link)> refusalOfLink {};
};

/// The tree of one file system: every name final, every directory's entries in recording order, the
/// directories level by level as path tables number them (ECMA-119 6.9.1; number 0 here is the
/// root).
struct NamedTree {
    const SourceTree* source = nullptr; ///< outlives the tree
    NameCoding coding = NameCoding::Bytes;
    NameArena names; ///< the forms that are not the source's names
    std::vector<NamedEntry> entries;
    std::vector<NamedDirectory> directories;
    std::vector<OmittedEntry> leftOut; ///< each of them, with the contents of omitted directories

    /// The form of an entry or of a directory other than the root.
    RecordedName FormOf(const NamedEntry& entry) const
    {
        if (!entry.HasSourceName()) {
            return RecordedName(names[entry.name]);
        }
        const bool isAscii = entry.name == kSourceName;
        return RecordedName(source->Name(entry.node),
            coding,
            isAscii ? NameCharacters::Ascii : NameCharacters::All);
    }
    RecordedName FormOf(const NamedDirectory& directory) const
    {
        return FormOf(NamedEntry {directory.node, directory.name});
    }
};

/// Names a source tree under the rules of one file system. The result depends on the source alone,
/// not on the order in which its folders were read.
/// @param source  outlives the tree
/// @param stop  asks to give up: the tree then has what was named so far
void NameTree(const SourceTree& source,
    FileSystem fileSystem,
    const NameRules& rules,
    const TreeLimits& limits,
    NamedTree& named,
    const std::stop_token& stop = {});

} // namespace velmora::image
