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

/// The folders that a scan is inside of, to tell a link that leads back to one of them.
struct Ancestor {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    bool behindLink = false; // without a link on the way there is no cycle
    std::shared_ptr<const Ancestor> parent {};
};

bool LeadsBack(const NodeFacts& facts, const Ancestor* above)
{
    for (; above; above = above->parent.get()) {
        if (above->device == facts.device && above->inode == facts.inode) {
            return true;
        }
    }
    return false;
}

struct Folder {
    NodeId node = kNoNode;
    std::string path {};
    std::shared_ptr<const Ancestor> self {};
};

struct FoundEntry {
    NameRef name = 0;
    Reached reached = Reached::Directly;
    NodeFacts facts {};
};

Reached HowReached(int directory, const dirent64& entry)
{
    if (entry.d_type != DT_UNKNOWN) {
        return entry.d_type == DT_LNK ? Reached::ThroughLink : Reached::Directly;
    }
    struct stat status { };
    const bool known = ::fstatat(directory, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0;
    return known && S_ISLNK(status.st_mode) ? Reached::ThroughLink : Reached::Directly;
}

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

    Result<ScanReport> Run(NodeId top, const std::string& path, const NodeFacts& facts)
    {
        auto self = std::make_shared<Ancestor>(Ancestor {facts.device, facts.inode});
        waiting_.push_back({top, path, std::move(self)});
        top_ = top;
        RunWorkers(
            ThreadCount(options_.threads), [this] { Work(); }, [this] { Tell(); });
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
        std::vector<FoundEntry> found;
        std::vector<Error> leftOut;
        DirectoryReader reader(directory.Get());
        while (const dirent64* entry = reader.Next()) {
            if (cancelled_) {
                return;
            }
            Result<FoundEntry> look = Look(directory.Get(), *entry, folder, names);
            if (look) {
                found.push_back(*look);
            } else {
                leftOut.push_back({look.Failure().kind,
                    Join(folder.path, entry->d_name),
                    look.Failure().systemError});
            }
        }
        if (errno != 0) {
            leftOut.push_back({ErrorKind::DirectoryUnreadable, folder.path, errno});
        }
        std::sort(found.begin(), found.end(), [this](const FoundEntry& a, const FoundEntry& b) {
            return tree_.Names()[a.name] < tree_.Names()[b.name];
        });
        Commit(folder, found, leftOut);
    }

    static Result<FoundEntry> Look(
        int directory, const dirent64& entry, const Folder& folder, NameArena::Writer& names)
    {
        const Reached reached = HowReached(directory, entry);
        const Result<NodeFacts> facts = Examine(directory, entry.d_name, reached);
        if (!facts) {
            return facts.Failure();
        }
        const bool mayLoop = folder.self->behindLink || reached == Reached::ThroughLink;
        if (facts->isDirectory && mayLoop && LeadsBack(*facts, folder.self.get())) {
            return Error {ErrorKind::LinkCycle};
        }
        return FoundEntry {names.Add(entry.d_name), reached, *facts};
    }

    void Commit(const Folder& folder,
        const std::vector<FoundEntry>& found,
        const std::vector<Error>& leftOut)
    {
        const std::lock_guard lock(mutex_);
        NodeId last = kNoNode;
        for (const FoundEntry& entry : found) {
            const NodeId id = tree_.NewNode(entry.name, entry.facts);
            tree_.Append(folder.node, last, id);
            last = id;
            ++(entry.facts.isDirectory ? report_.directories : report_.files);
            report_.bytes += entry.facts.size;
            if (entry.facts.isDirectory) {
                Queue(folder, entry, id);
            }
        }
        report_.leftOut.insert(report_.leftOut.end(), leftOut.begin(), leftOut.end());
        if (options_.progress) {
            currentPath_ = folder.path;
        }
    }

    void Queue(const Folder& folder, const FoundEntry& entry, NodeId id)
    {
        auto self = std::make_shared<Ancestor>();
        self->device = entry.facts.device;
        self->inode = entry.facts.inode;
        self->behindLink = folder.self->behindLink || entry.reached == Reached::ThroughLink;
        self->parent = folder.self;
        waiting_.push_back({id, Join(folder.path, tree_.Names()[entry.name]), std::move(self)});
        wake_.notify_one();
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
            progress = {report_.files + report_.directories, currentPath_};
        }
        if (options_.progress(progress)) {
            return;
        }
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

/// The detached directory that the scan fills before it is hung into the tree.
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

Result<ScanReport> ScanFolder(SourceTree& tree,
    NodeId target,
    const std::string& folder,
    IncludeBase includeBase,
    const ScanOptions& options)
{
    const std::string path = WithoutTrailingSlashes(folder);
    if (!tree[target].isDirectory) {
        return Error {ErrorKind::NotADirectory, tree.ImagePath(target)};
    }
    const Result<NodeFacts> facts = Examine(AT_FDCWD, path.c_str(), Reached::Directly);
    if (!facts) {
        return Error {facts.Failure().kind, path, facts.Failure().systemError};
    }
    if (!facts->isDirectory) {
        return Error {ErrorKind::NotADirectory, path};
    }
    const Result<NodeId> top = NewTop(tree, path, includeBase, *facts);
    if (!top) {
        return top.Failure();
    }

    Result<ScanReport> report = Scan(tree, options).Run(*top, path, *facts);
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
