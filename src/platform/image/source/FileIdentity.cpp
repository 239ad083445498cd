// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/FileIdentity.h"

#include "image/source/FileFacts.h"
#include "image/source/FileSystemKinds.h"

namespace velmora::image {

namespace {

bool HasItsContent(const Node& node, const struct stat& now)
{
    return S_ISREG(now.st_mode) && static_cast<std::uint64_t>(now.st_size) == node.size
        && StatusChangeOf(now) == node.statusChanged;
}

} // namespace

bool IsUntouched(const SourceTree& tree, NodeId file, const struct stat& now)
{
    return HasItsContent(tree[file], now) && IsSameFile(tree, file, now);
}

bool IsUntouchedButForItsNumber(
    const SourceTree& tree, NodeId file, const struct stat& now, int folder)
{
    return HasItsContent(tree[file], now) && tree.DeviceOf(file) == now.st_dev
        && HasFleetingInodes(folder);
}

bool IsSameFile(const SourceTree& tree, NodeId file, const struct stat& now)
{
    return tree[file].inode == now.st_ino && tree.DeviceOf(file) == now.st_dev;
}

} // namespace velmora::image
