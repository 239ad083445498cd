// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/LinkFollower.h"

#include "image/source/FileFacts.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>

namespace velmora::image {

namespace {

namespace fs = std::filesystem;

/// The path with all its links resolved.
std::string RealPath(const std::string& path)
{
    std::error_code failure;
    return fs::canonical(path, failure).native();
}

/// Whether a resolved path lies in what the system only presents as files.
bool LiesInSystem(const std::string& realPath)
{
    constexpr std::array<std::string_view, 3> kSystem {"/proc/", "/sys/", "/dev/"};
    return std::ranges::any_of(
        kSystem, [&](std::string_view place) { return (realPath + '/').starts_with(place); });
}

/// The links below a node, in the order of their paths.
std::vector<NodeId> LinksBelow(const SourceTree& tree, NodeId top)
{
    std::vector<NodeId> links;
    std::vector<NodeId> waiting {top};
    while (!waiting.empty()) {
        const NodeId directory = waiting.back();
        waiting.pop_back();
        for (NodeId id = tree[directory].firstChild; id != kNoNode; id = tree[id].nextSibling) {
            if (tree[id].IsLink()) {
                links.push_back(id);
            } else if (tree[id].IsDirectory()) {
                waiting.push_back(id);
            }
        }
    }
    std::ranges::sort(links, {}, [&](NodeId link) { return tree.ImagePath(link); });
    return links;
}

} // namespace

/// What one call of Follow works on.
struct LinkFollower::Run {
    SourceTree& tree;
    ScanReport& report;
    const ScanOptions& options;
    std::vector<NodeId> found {}; ///< links in folders that replaced links

    void LeaveOut(NodeId link, const std::string& path, const Error& why)
    {
        report.leftOut.push_back({why.kind, path, why.systemError});
        tree.Remove(link);
    }

    /// Counting goes on from where the scan stood.
    ScanOptions OptionsForFolder() const
    {
        ScanOptions how = options;
        if (options.progress) {
            how.progress = [this, before = report.files + report.directories + report.links](
                               const ScanProgress& progress) {
                return options.progress({before + progress.entries, progress.currentPath});
            };
        }
        return how;
    }
};

LinkFollower::LinkFollower(const std::string& source)
{
    std::error_code failure;
    fs::path folder = fs::canonical(source, failure);
    while (!folder.empty()) {
        struct stat status { };
        if (::stat(folder.c_str(), &status) == 0) {
            above_.emplace(status.st_dev, status.st_ino);
        }
        folder = folder == folder.root_path() ? fs::path() : folder.parent_path();
    }
}

Result<LinkFollower> LinkFollower::Of(const std::string& source, const ScanOptions& options)
{
    SourceTree tree;
    const Result<ScanReport> scanned
        = ScanFolder(tree, SourceTree::kRoot, source, IncludeBase::No, options);
    if (!scanned) {
        return scanned.Failure();
    }
    LinkFollower follower(source);
    follower.Know(tree, SourceTree::kRoot);
    return follower;
}

void LinkFollower::Know(const SourceTree& tree, NodeId top)
{
    std::vector<NodeId> waiting {top};
    while (!waiting.empty()) {
        const NodeId directory = waiting.back();
        waiting.pop_back();
        taken_.emplace(tree.DeviceOf(directory), tree[directory].inode);
        for (NodeId id = tree[directory].firstChild; id != kNoNode; id = tree[id].nextSibling) {
            if (tree[id].IsDirectory()) {
                waiting.push_back(id);
            }
        }
    }
}

Result<> LinkFollower::Follow(
    SourceTree& tree, NodeId top, ScanReport& report, const ScanOptions& options)
{
    Run run {tree, report, options};
    return ReplaceAll(run, LinksBelow(tree, top));
}

Result<> LinkFollower::FollowLink(
    SourceTree& tree, NodeId link, ScanReport& report, const ScanOptions& options)
{
    ++report.links;
    Run run {tree, report, options};
    return ReplaceAll(run, {link});
}

Result<> LinkFollower::ReplaceAll(Run& run, std::vector<NodeId> links)
{
    while (!links.empty()) {
        for (const NodeId link : links) {
            Result<> replaced = Replace(run, link);
            if (!replaced) {
                return replaced;
            }
        }
        links = std::exchange(run.found, {});
    }
    std::ranges::sort(run.report.leftOut, {}, &Error::path);
    return {};
}

Result<> LinkFollower::Replace(Run& run, NodeId link)
{
    --run.report.links;
    const std::string path = run.tree.SourcePath(link);
    Result<NodeFacts> facts = LookBehind(path.c_str());
    std::string real = RealPath(path);
    const bool isToBeRead = facts || facts.Failure().kind == ErrorKind::SizeUnknown;
    if (isToBeRead && LiesInSystem(real)) {
        run.LeaveOut(link, path, {ErrorKind::LinkToSystem});
        return {};
    }
    if (!facts) {
        run.LeaveOut(link, path, facts.Failure());
        return {};
    }
    if (facts->IsDirectory()) {
        return TakeFolder(run, link, path, *facts);
    }
    facts->mayBeShared = true;
    run.tree.ReplaceLink(link, *facts);
    run.tree.SetSourcePath(link, std::move(real)); // what is read has to be a file, not a link
    ++run.report.files;
    run.report.bytes += facts->size;
    return {};
}

Result<> LinkFollower::TakeFolder(
    Run& run, NodeId link, const std::string& path, const NodeFacts& facts)
{
    if (const auto refusal = RefusalOfFolder(facts)) {
        run.LeaveOut(link, path, {*refusal});
        return {};
    }
    run.tree.ReplaceLink(link, facts);
    ScanOptions how = run.OptionsForFolder();
    how.refusalOfFolder = [this](const NodeFacts& inside) { return RefusalOfFolder(inside); };
    Result<ScanReport> scanned = ScanFolder(run.tree, link, path, IncludeBase::No, how);
    if (!scanned) {
        if (scanned.Failure().kind == ErrorKind::Cancelled) {
            return scanned.Failure();
        }
        run.LeaveOut(link, path, scanned.Failure());
        return {};
    }
    ++run.report.directories;
    run.report.Add(*scanned);
    std::ranges::copy(LinksBelow(run.tree, link), std::back_inserter(run.found));
    return {};
}

/// Includes a folder that a link leads to, or that lies in such a folder, unless there is a reason
/// not to.
std::optional<ErrorKind> LinkFollower::RefusalOfFolder(const NodeFacts& facts)
{
    const Identity identity {facts.device, facts.inode};
    if (above_.contains(identity)) {
        return ErrorKind::LinkCycle;
    }
    return taken_.insert(identity).second ? std::nullopt : std::optional(ErrorKind::FolderTaken);
}

} // namespace velmora::image
