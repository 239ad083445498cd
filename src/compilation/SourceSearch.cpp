// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/SourceSearch.h"

#include "image/source/TreeScanner.h"
#include "text/PathText.h"

#include <sys/stat.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace velmora::compilation {

namespace {

using Identity = std::pair<quint64, quint64>; // device and inode
using Identities = std::vector<Identity>;

/// What a path names and, for a symbolic link, what it leads to; none if nothing is there.
Identities IdentitiesOf(const std::string& path)
{
    Identities found;
    struct stat status { };
    if (::lstat(path.c_str(), &status) == 0) {
        found.emplace_back(status.st_dev, status.st_ino);
    }
    if (::stat(path.c_str(), &status) == 0) {
        found.emplace_back(status.st_dev, status.st_ino);
    }
    return found;
}

bool Holds(const Identities& wanted, const Identity& found)
{
    return std::ranges::find(wanted, found) != wanted.end();
}

bool HoldsFile(const image::SourceTree& tree, const Identities& wanted)
{
    for (image::NodeId id = 0; id < tree.NodeCount(); ++id) {
        if (!tree[id].IsDirectory() && Holds(wanted, {tree.DeviceOf(id), tree[id].inode})) {
            return true;
        }
    }
    return false;
}

} // namespace

bool IsSource(const CompilationList& list,
    const text::ProgramPath& file,
    const std::function<void()>& whileSearching)
{
    const Identities wanted = IdentitiesOf(text::ToNativePath(file).Bytes());
    image::ScanOptions options;
    options.progress = [&whileSearching](const image::ScanProgress&) {
        whileSearching();
        return true;
    };
    for (qsizetype number = 1; number <= list.Count(); ++number) {
        const std::string origin = text::ToNativePath(list[number].Origin()).Bytes();
        image::SourceTree tree;
        if (list[number].Kind() == EntryKind::Directory && !origin.empty()) {
            // What can't be read isn't burned: the run reports it.
            (void)ScanFolder(
                tree, image::SourceTree::kRoot, origin, image::IncludeBase::No, options);
        } else if (!origin.empty()) {
            (void)tree.AddFile("file", origin);
        }
        if (HoldsFile(tree, wanted)) {
            return true;
        }
    }
    return false;
}

} // namespace velmora::compilation
