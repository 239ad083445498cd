// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/NamedTree.h"

#include "image/names/UniqueNames.h"

#include <algorithm>

namespace velmora::image {

namespace {

/// Walks the source level by level and names each directory's entries.
class TreeNamer {
public:
    TreeNamer(const SourceTree& source,
        FileSystem fileSystem,
        const NameRules& rules,
        const TreeLimits& limits,
        NamedTree& named)
        : source_(source)
        , fileSystem_(fileSystem)
        , rules_(rules)
        , limits_(limits)
        , named_(named)
        , writer_(named.names)
    {
    }

    void Run(const std::stop_token& stop)
    {
        named_.entries.reserve(source_.NodeCount());
        named_.directories.push_back({SourceTree::kRoot});
        std::size_t levelEnd = 1;
        unsigned level = 1;
        pathLengths_.push_back(0);
        for (std::size_t number = 0; number < named_.directories.size(); ++number) {
            if (stop.stop_requested()) {
                break;
            }
            if (number == levelEnd) {
                levelEnd = named_.directories.size();
                ++level;
            }
            FillDirectory(static_cast<std::uint32_t>(number), level);
        }
        std::sort(named_.leftOut.begin(), named_.leftOut.end(), [](const auto& a, const auto& b) {
            return a.error.path < b.error.path;
        });
    }

private:
    void FillDirectory(std::uint32_t number, unsigned level)
    {
        const auto first = static_cast<std::uint32_t>(named_.entries.size());
        const NodeId node = named_.directories[number].node;
        for (NodeId id = source_[node].firstChild; id != kNoNode; id = source_[id].nextSibling) {
            if (Admits(id, number, level)) {
                named_.entries.push_back({id});
            }
        }
        const bool hasClashes = NameEntries(
            source_, rules_, std::span(named_.entries).subspan(first), forms_, writer_);
        if (limits_.maxPath != 0) {
            DropLongPaths(first, pathLengths_[number]);
        }
        NamedDirectory& directory = named_.directories[number];
        directory.hasClashes = hasClashes;
        directory.firstEntry = first;
        directory.entryCount = static_cast<std::uint32_t>(named_.entries.size()) - first;
        directory.firstSubdirectory = static_cast<std::uint32_t>(named_.directories.size());
        AddSubdirectories(number);
    }

    bool Admits(NodeId id, std::uint32_t parent, unsigned level)
    {
        const Node& node = source_[id];
        if (node.IsDirectory()) {
            if (limits_.maxLevels != 0 && level >= limits_.maxLevels) {
                return LeaveOut(id, ErrorKind::TooDeep);
            }
            if (limits_.maxParents != 0 && parent >= limits_.maxParents) {
                return LeaveOut(id, ErrorKind::TooManyDirectories);
            }
        } else if (node.IsLink()) {
            const auto refusal = limits_.refusalOfLink ? limits_.refusalOfLink(id) : std::nullopt;
            return !refusal || LeaveOut(id, *refusal);
        } else if (limits_.maxFileSize != 0 && node.size > limits_.maxFileSize) {
            return LeaveOut(id, ErrorKind::FileTooLarge);
        }
        return true;
    }

    /// A directory is omitted with everything in it.
    bool LeaveOut(NodeId top, ErrorKind kind)
    {
        for (NodeId id = top; id != kNoNode; id = source_.NextBelow(top, id)) {
            named_.leftOut.push_back({fileSystem_, {kind, source_.ImagePath(id)}});
        }
        return false;
    }

    /// The length of a path is that of its names and one for each directory (ECMA-119 6.8.2.1).
    void DropLongPaths(std::uint32_t first, std::size_t above)
    {
        const auto isLong = [&](const NamedEntry& entry) {
            const std::size_t version = source_[entry.node].IsDirectory() ? 0 : 2; // ";1"
            if (above + named_.FormOf(entry).Size() + version <= limits_.maxPath) {
                return false;
            }
            return !LeaveOut(entry.node, ErrorKind::PathTooLong);
        };
        const auto begin = named_.entries.begin() + first;
        named_.entries.erase(
            std::remove_if(begin, named_.entries.end(), isLong), named_.entries.end());
    }

    void AddSubdirectories(std::uint32_t number)
    {
        const NamedDirectory parent = named_.directories[number];
        for (std::uint32_t i = 0; i < parent.entryCount; ++i) {
            const NamedEntry entry = named_.entries[parent.firstEntry + i];
            if (!source_[entry.node].IsDirectory()) {
                continue;
            }
            named_.directories.push_back({entry.node, entry.name, number});
            if (limits_.maxPath != 0) {
                pathLengths_.push_back(pathLengths_[number] + named_.FormOf(entry).Size() + 1);
            }
        }
        named_.directories[number].subdirectoryCount
            = static_cast<std::uint32_t>(named_.directories.size()) - parent.firstSubdirectory;
    }

    const SourceTree& source_;
    FileSystem fileSystem_;
    const NameRules& rules_;
    const TreeLimits& limits_;
    NamedTree& named_;
    NameArena::Writer writer_;             // of the forms that are kept
    NameArena forms_;                      // all of one directory
    std::vector<std::size_t> pathLengths_; // of each directory, where the limit is asked for
};

} // namespace

void NameTree(const SourceTree& source,
    FileSystem fileSystem,
    const NameRules& rules,
    const TreeLimits& limits,
    NamedTree& named,
    const std::stop_token& stop)
{
    named.source = &source;
    named.coding = rules.Coding();
    TreeNamer(source, fileSystem, rules, limits, named).Run(stop);
}

} // namespace velmora::image
