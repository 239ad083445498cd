// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/TreeScanner.h"

#include "image/base/Workers.h"
#include "image/source/DirectoryReader.h"
#include "image/source/FileFacts.h"
#include "unicode/FileDescriptor.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <deque>
#include <fcntl.h>

namespace velmora::image {

namespace {

struct Folder {
    NodeId node = kNoNode;
    std::string path {};
};

/// What was found in one folder. The texts of links lie beside the entries, which are sorted.
struct FolderListing {
    struct Entry {
        NameRef name = 0;
        std::uint32_t linkText = 0; ///< place in linkTexts, for a link
        NodeFacts facts {};
    };
    std::vector<Entry> entries {};
    std::vector<std::string> linkTexts {};
    std::vector<Error> leftOut {};
};

std::string Join(const std::string& folder, std::string_view name)
{
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path = folder;
    if (path.empty() || path.back() != '/') {
        path += '/';
    }
    return path += name;
}

/// One scan: folders wait in a queue; each worker takes one at a time, lists it and queues those in
/// it.
class Scan {
public:
    Scan(SourceTree& tree, const ScanOptions& options)
        : tree_(tree)
        , options_(options)
    {
    }

    Result<ScanReport> Run(NodeId top, const std::string& path)
    {
        waiting_.push_back({top, path});
        top_ = top;
        RunWorkers(
            ThreadCount(options_.threads),
            [this] { Work(); },
            [this] { Tell(); },
            [this] { Cancel(); });
        Tell();
        if (cancelled_) {
            return Error {ErrorKind::Cancelled, path};
        }
        if (topFailure_ != 0) {
            return Error {ErrorKind::DirectoryUnreadable, path, topFailure_};
        }
        std::sort(report_.leftOut.begin(),
            report_.leftOut.end(),
            [](const Error& a, const Error& b) { return a.path < b.path; });
        return std::move(report_);
    }

private:
    void Work()
    {
        NameArena::Writer names(tree_.Names());
        Folder folder;
        while (Take(folder)) {
            List(folder, names);
            const std::lock_guard lock(mutex_);
            --busy_;
            if (busy_ == 0) {
                wake_.notify_all();
            }
        }
    }

    bool Take(Folder& folder)
    {
        std::unique_lock lock(mutex_);
        wake_.wait(lock, [this] { return cancelled_ || !waiting_.empty() || busy_ == 0; });
        if (cancelled_ || waiting_.empty()) {
            return false;
        }
        folder = std::move(waiting_.front());
        waiting_.pop_front();
        ++busy_;
        return true;
    }

    void List(const Folder& folder, NameArena::Writer& names)
    {
        const unicode::FileDescriptor directory(OpenPath(folder.path, O_RDONLY | O_DIRECTORY));
        if (!directory) {
            PassOver(folder, errno);
            return;
        }
        FolderListing listing;
        DirectoryReader reader(directory.Get());
        while (const dirent64* entry = reader.Next()) {
            if (cancelled_) {
                return;
            }
            Result<Found> found = LookAt(directory.Get(), entry->d_name);
            if (found) {
                Note(listing, names.Add(entry->d_name), *found);
            } else {
                listing.leftOut.push_back({found.Failure().kind,
                    Join(folder.path, entry->d_name),
                    found.Failure().systemError});
            }
        }
        if (errno != 0) {
            listing.leftOut.push_back({ErrorKind::DirectoryUnreadable, folder.path, errno});
        }
        std::sort(listing.entries.begin(),
            listing.entries.end(),
            [this](const FolderListing::Entry& a, const FolderListing::Entry& b) {
                return tree_.Names()[a.name] < tree_.Names()[b.name];
            });
        Commit(folder, listing);
    }

    static void Note(FolderListing& listing, NameRef name, Found& found)
    {
        const auto text = static_cast<std::uint32_t>(listing.linkTexts.size());
        listing.entries.push_back({name, text, found.facts});
        if (found.facts.kind == NodeKind::Link) {
            listing.linkTexts.push_back(std::move(found.linkText));
        }
    }

    void Commit(const Folder& folder, FolderListing& listing)
    {
        const std::lock_guard lock(mutex_);
        NodeId last = kNoNode;
        for (const FolderListing::Entry& entry : listing.entries) {
            if (const auto refusal = RefusalOf(entry.facts)) {
                const std::string_view name = tree_.Names()[entry.name];
                report_.leftOut.push_back({*refusal, Join(folder.path, name)});
                continue;
            }
            const bool isLink = entry.facts.kind == NodeKind::Link;
            const NodeId id = isLink
                ? tree_.NewLink(
                    entry.name, entry.facts, std::move(listing.linkTexts[entry.linkText]))
                : tree_.NewNode(entry.name, entry.facts);
            tree_.Append(folder.node, last, id);
            last = id;
            Count(entry.facts);
            if (entry.facts.IsDirectory()) {
                waiting_.push_back({id, Join(folder.path, tree_.Names()[entry.name])});
                wake_.notify_one();
            }
        }
        report_.leftOut.insert(
            report_.leftOut.end(), listing.leftOut.begin(), listing.leftOut.end());
        if (options_.progress) {
            currentPath_ = folder.path;
        }
    }

    std::optional<ErrorKind> RefusalOf(const NodeFacts& facts) const
    {
        const bool isAsked = options_.refusalOfFolder && facts.IsDirectory();
        return isAsked ? options_.refusalOfFolder(facts) : std::nullopt;
    }

    void Count(const NodeFacts& facts)
    {
        switch (facts.kind) {
        case NodeKind::File:
            ++report_.files;
            break;
        case NodeKind::Directory:
            ++report_.directories;
            break;
        case NodeKind::Link:
            ++report_.links;
            break;
        }
        report_.bytes += facts.size;
    }

    void PassOver(const Folder& folder, int systemError)
    {
        const std::lock_guard lock(mutex_);
        if (folder.node == top_) {
            topFailure_ = systemError;
            return;
        }
        tree_.Remove(folder.node);
        --report_.directories;
        report_.leftOut.push_back({ErrorKind::DirectoryUnreadable, folder.path, systemError});
    }

    void Tell()
    {
        if (!options_.progress || cancelled_) {
            return;
        }
        ScanProgress progress;
        {
            const std::lock_guard lock(mutex_);
            progress = {report_.files + report_.directories + report_.links, currentPath_};
        }
        if (options_.progress(progress)) {
            return;
        }
        Cancel();
    }

    void Cancel()
    {
        const std::lock_guard lock(mutex_);
        cancelled_ = true;
        wake_.notify_all();
    }

    SourceTree& tree_;
    const ScanOptions& options_;
    NodeId top_ = kNoNode;
    std::mutex mutex_; // of all below, and of the tree while the scan runs
    std::condition_variable wake_;
    std::deque<Folder> waiting_;
    unsigned busy_ = 0; // workers that list a folder and may yet queue others
    std::atomic<bool> cancelled_ = false;
    int topFailure_ = 0;
    std::string currentPath_;
    ScanReport report_;
};

std::string WithoutTrailingSlashes(std::string path)
{
    while (path.size() > 1 && path.back() == '/') {
        path.pop_back();
    }
    return path;
}

/// The detached directory that the scan fills before it is attached to the tree.
Result<NodeId> NewTop(
    SourceTree& tree, const std::string& path, IncludeBase includeBase, const NodeFacts& facts)
{
    std::string name;
    if (includeBase == IncludeBase::Yes) {
        name = path.substr(path.rfind('/') + 1); // npos + 1 = 0
    }
    const bool isName
        = includeBase == IncludeBase::No || (!name.empty() && name != "." && name != "..");
    if (!isName) {
        return Error {ErrorKind::InvalidPath, path};
    }
    NameArena::Writer names(tree.Names());
    const NodeId top = tree.NewNode(names.Add(name), facts);
    tree.SetSourcePath(top, path);
    return top;
}

} // namespace

void ScanReport::Add(const ScanReport& other)
{
    files += other.files;
    directories += other.directories;
    links += other.links;
    bytes += other.bytes;
    leftOut.insert(leftOut.end(), other.leftOut.begin(), other.leftOut.end());
}

Result<ScanReport> ScanFolder(SourceTree& tree,
    NodeId target,
    const std::string& folder,
    IncludeBase includeBase,
    const ScanOptions& options)
{
    const std::string path = WithoutTrailingSlashes(folder);
    if (!tree[target].IsDirectory()) {
        return Error {ErrorKind::NotADirectory, tree.ImagePath(target)};
    }
    const Result<NodeFacts> facts = LookBehind(path.c_str());
    if (!facts) {
        return Error {facts.Failure().kind, path, facts.Failure().systemError};
    }
    if (!facts->IsDirectory()) {
        return Error {ErrorKind::NotADirectory, path};
    }
    const Result<NodeId> top = NewTop(tree, path, includeBase, *facts);
    if (!top) {
        return top.Failure();
    }

    Result<ScanReport> report = Scan(tree, options).Run(*top, path);
    if (!report) {
        return report;
    }
    const bool isWholeImage = target == SourceTree::kRoot && tree[target].childCount == 0;
    if (includeBase == IncludeBase::No && isWholeImage) {
        tree.SetFacts(target, *facts);
    }
    tree.Attach(target, *top, includeBase == IncludeBase::Yes);
    return report;
}

} // namespace velmora::image
