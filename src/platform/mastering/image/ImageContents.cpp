// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/ImageContents.h"

#include "digest/FileSums.h"
#include "drive/PublishedCodes.h"
#include "image/Sums.h"
#include "image/source/FileFacts.h"
#include "mastering/base/ImageErrors.h"
#include "mastering/image/TreeMeasure.h"

#include <algorithm>

namespace velmora::mastering {

namespace {

using image::ErrorKind;
using image::IncludeBase;
using image::NodeId;
using image::Result;
using image::SourceTree;

/// The result of an addition; a failed one leaves its entry out.
template <class T> T ValueOf(Result<T> result)
{
    if (!result) {
        RaiseLeftOut(result.Failure());
    }
    return std::move(*result);
}

void Require(const Result<>& result)
{
    if (!result) {
        RaiseLeftOut(result.Failure());
    }
}

/// Attaches a scanned tree to its directory: as a child by its name, or without its base only its
/// contents.
void Hang(SourceTree& tree, NodeId directory, NodeId top, IncludeBase includeBase)
{
    tree.Attach(directory, top, includeBase == IncludeBase::Yes);
}

/// Whether an entry was left out as a symbolic link. What a link leads to may be added after it, so
/// it is reported when everything is there.
bool IsLinkLeftOut(const image::Error& error)
{
    return error.kind == ErrorKind::LinkNotHeld || error.kind == ErrorKind::LinkTooLong;
}

std::size_t LevelOf(const SourceTree& tree, NodeId node)
{
    std::size_t levels = 0;
    for (; node != SourceTree::kRoot; node = tree[node].parent) {
        ++levels;
    }
    return levels;
}

} // namespace

ImageContents::ImageContents(image::TimeStamp created)
    : tree_(std::make_shared<SourceTree>(created))
    , created_(created)
{
    options_.created = created;
}

bool ImageContents::IsEmpty() const { return (*tree_)[SourceTree::kRoot].childCount == 0; }

NodeId ImageContents::DirectoryAt(const std::string& path, ErrorKind whenMissing) const
{
    const Result<NodeId> found = tree_->FindPath(path);
    if (found) {
        return *found;
    }
    if (found.Failure().kind == ErrorKind::ItemNotFound) {
        Raise({whenMissing, path});
    }
    Raise(found.Failure());
}

void ImageContents::RequireDirectory(const std::string& path) const
{
    const NodeId node = DirectoryAt(path, ErrorKind::ItemNotFound);
    if (!(*tree_)[node].IsDirectory()) {
        throw runtime::RuntimeError(kTypeMismatch);
    }
}

void ImageContents::AddDirectory(const std::string& path)
{
    KeepIfHeld(ValueOf(tree_->AddDirectory(path, created_)));
}

void ImageContents::FollowLinks(const std::string& source)
{
    Result<image::LinkFollower> follower = image::LinkFollower::Of(source);
    if (!follower) {
        Raise(follower.Failure());
    }
    follower_ = std::move(*follower);
}

void ImageContents::KeepAttributes(const std::string& source)
{
    Result<image::NodeFacts> facts = image::LookBehind(source.c_str());
    if (!facts) {
        Raise({facts.Failure().kind, source, facts.Failure().systemError});
    }
    facts->modified = created_; // the disc's root is made with it
    tree_->SetFacts(SourceTree::kRoot, *facts);
    options_.rights = image::Rights::OfSource;
}

ImageContents::AddedFile ImageContents::AddFile(const std::string& path, const std::string& source)
{
    AddedFile added {.node = ValueOf(tree_->AddFile(path, source))};
    if (follower_ && (*tree_)[added.node].IsLink()) {
        image::ScanReport report;
        Require(follower_->FollowLink(*tree_, added.node, report, {}));
        added.leftOut = std::move(report.leftOut);
        if ((*tree_)[added.node].parent == image::kNoNode) {
            added.node = image::kNoNode;
            return added;
        }
    }
    KeepIfHeld(added.node);
    return added;
}

std::vector<image::Error> ImageContents::AddTree(const std::string& directory,
    const std::string& source,
    IncludeBase includeBase,
    const image::ScanOptions& scanOptions,
    const Scanned& scanned)
{
    const NodeId target = DirectoryAt(directory, ErrorKind::DirectoryNotFound);
    if (!(*tree_)[target].IsDirectory()) {
        Raise({ErrorKind::NotADirectory, directory});
    }
    image::ScanReport report;
    const NodeId top = Scan(source, includeBase, scanOptions, report);
    if (follower_) {
        Require(follower_->Follow(*tree_, top, report, scanOptions));
    }
    if (scanned) {
        scanned(*tree_, top, report.files);
    }

    const std::size_t level = LevelOf(*tree_, target) + (includeBase == IncludeBase::Yes ? 1 : 0);
    if (options_.strict && MayBreakStrictRules(*tree_, top, level)) {
        const MeasuringCopy trial = CopyForMeasure(*tree_, target, top);
        Hang(*trial.tree, trial.directory, trial.detached, includeBase);
        std::ranges::copy(LostBy(trial.tree), std::back_inserter(report.leftOut));
    }
    Hang(*tree_, target, top, includeBase);
    return report.leftOut;
}

/// Scans into a detached directory, so that the tree can be measured before it goes into the image.
NodeId ImageContents::Scan(const std::string& source,
    IncludeBase includeBase,
    const image::ScanOptions& scanOptions,
    image::ScanReport& report)
{
    image::NameArena::Writer names(tree_->Names());
    image::NodeFacts facts;
    facts.kind = image::NodeKind::Directory;
    const NodeId waiting = tree_->NewNode(names.Add(""), facts);
    report = ValueOf(image::ScanFolder(*tree_, waiting, source, includeBase, scanOptions));
    if (includeBase == IncludeBase::No) {
        return waiting;
    }
    const NodeId top = (*tree_)[waiting].firstChild;
    tree_->Remove(top);
    return top;
}

image::ImageOptions ImageContents::OptionsOfAnySize() const
{
    image::ImageOptions options = options_;
    options.maxSectors = 0;
    return options;
}

/// What no file system of an image of that tree would hold, unless an addition has reported it. An
/// image too large for any disc loses nothing here: it fails as a whole when it is laid out.
std::vector<image::Error> ImageContents::LostBy(std::shared_ptr<const SourceTree> tree)
{
    const Result<image::ImagePlan> plan
        = image::ImagePlan::Create(std::move(tree), OptionsOfAnySize());
    if (!plan && plan.Failure().kind != ErrorKind::ImageTooLarge) {
        Raise(plan.Failure());
    }
    if (!plan) {
        return {};
    }
    return NewlyLost(*plan, [](const image::Error& error) { return !IsLinkLeftOut(error); });
}

/// Removes a node again and raises the reason if no file system of the image can hold it.
void ImageContents::KeepIfHeld(NodeId added)
{
    if (!options_.strict || !MayBreakStrictRules(*tree_, added, LevelOf(*tree_, added))) {
        return;
    }
    const auto toldBefore = toldLost_;
    const std::vector<image::Error> lost = LostBy(tree_);
    if (lost.empty()) {
        return;
    }
    toldLost_ = toldBefore;
    tree_->Remove(added);
    RaiseLeftOut(lost.front());
}

std::vector<image::Error> ImageContents::NewlyLost(
    const image::ImagePlan& plan, bool (*matters)(const image::Error&))
{
    std::vector<image::Error> lost;
    for (const image::Error& error : plan.Lost()) {
        if (matters(error) && toldLost_.insert(error.path).second) {
            lost.push_back(error);
        }
    }
    return lost;
}

image::ImagePlan ImageContents::Plan()
{
    if (recordsSums_) {
        const bool isFirst = !options_.sums;
        options_.sums = std::make_shared<digest::FileSums>(); // one for each plan
        keepsOtherSums_ = isFirst ? image::AddSums(tree_, options_) == image::SumsEnd::KeptOther
                                  : keepsOtherSums_;
    }
    const Result<image::ImagePlan> laid = image::ImagePlan::Create(tree_, options_);
    if (!laid) {
        Raise(laid.Failure());
    }
    const image::ImagePlan& plan = *laid;
    const std::vector<image::Error> news
        = NewlyLost(plan, [](const image::Error& error) { return !IsLinkLeftOut(error); });
    if (!news.empty()) {
        Raise(news.front());
    }
    linksLeftOut_ = NewlyLost(plan, IsLinkLeftOut);
    return plan;
}

} // namespace velmora::mastering
