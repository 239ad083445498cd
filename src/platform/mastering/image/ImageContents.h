// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "image/source/LinkFollower.h"
#include "image/source/SourceTree.h"
#include "image/source/TreeScanner.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace velmora::mastering {

/// The contents of an image, limited to what its file systems can hold. Whether they fit on the
/// medium is checked when the whole is laid out: no entry is left out for lack of space.
///
/// Paths are native: '/' between the names. Failures are runtime::RuntimeError; after one nothing
/// has changed.
class ImageContents {
public:
    /// Told of a scanned tree before it goes into the image: its top and its number of files.
    using Scanned = std::function<void(
        const image::SourceTree& tree, image::NodeId top, std::uint64_t files)>;

    /// @param created  the time of directories that exist only on the disc
    explicit ImageContents(image::TimeStamp created);

    /// How to make the image. Each addition checks its strictness.
    image::ImageOptions& Options() { return options_; }
    const image::ImageOptions& Options() const { return options_; }
    const image::SourceTree& Tree() const { return *tree_; }

    bool IsEmpty() const;

    /// Errors: InvalidPath, ItemNotFound; 13 for a file.
    void RequireDirectory(const std::string& path) const;

    /// Errors: those of SourceTree::AddDirectory; TooDeep.
    void AddDirectory(const std::string& path);

    /// Additions replace symbolic links by what they lead to.
    /// @param source  native path of the folder that all additions are part of
    /// Errors: those of ScanFolder.
    void FollowLinks(const std::string& source);

    /// Owners, groups and modes are recorded as the source has them.
    /// @param source  native path of the folder that becomes the root
    /// Errors: those of LookBehind.
    void KeepAttributes(const std::string& source);

    /// The result for a file: its node, kNoNode if it was left out; and what was left out.
    struct AddedFile {
        image::NodeId node = image::kNoNode;
        std::vector<image::Error> leftOut {};
    };

    /// Errors: those of SourceTree::AddFile; TooDeep, FileTooLarge.
    AddedFile AddFile(const std::string& path, const std::string& source);

    /// @param directory  path of the directory that the tree goes into
    /// @return what was left out: entries that couldn't be read from the source, then those that
    ///                   a file system can't hold
    /// Errors: those of ScanFolder; DirectoryNotFound.
    std::vector<image::Error> AddTree(const std::string& directory,
        const std::string& source,
        image::IncludeBase includeBase,
        const image::ScanOptions& scanOptions,
        const Scanned& scanned);

    /// The plan will have a list of the files' sums, unless something of its name was added.
    void RecordSums() { recordsSums_ = true; }
    /// Sums were requested, but something of that name was added; known after the layout.
    bool KeepsOtherSums() const { return keepsOtherSums_; }

    /// Lays the image out. The contents must not change as long as the plan lives.
    /// Errors: ImageTooLarge; that of an entry, other than a symbolic link, which no file system of
    /// the image holds and no addition has reported.
    image::ImagePlan Plan();
    /// The symbolic links that no file system of the image holds; known after the layout.
    const std::vector<image::Error>& LinksLeftOut() const { return linksLeftOut_; }

private:
    image::NodeId DirectoryAt(const std::string& path, image::ErrorKind whenMissing) const;
    image::NodeId Scan(const std::string& source,
        image::IncludeBase includeBase,
        const image::ScanOptions& scanOptions,
        image::ScanReport& report);
    image::ImageOptions OptionsOfAnySize() const;
    std::vector<image::Error> LostBy(std::shared_ptr<const image::SourceTree> tree);
    void KeepIfHeld(image::NodeId added);
    std::vector<image::Error> NewlyLost(
        const image::ImagePlan& plan, bool (*matters)(const image::Error&));

    std::shared_ptr<image::SourceTree> tree_;
    image::ImageOptions options_;
    image::TimeStamp created_;
    std::optional<image::LinkFollower> follower_; // none: links are kept
    bool recordsSums_ = false;
    bool keepsOtherSums_ = false;
    std::vector<image::Error> linksLeftOut_;
    std::set<std::string> toldLost_; // paths in the image that additions have reported
};

} // namespace velmora::mastering
