// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/FsiDirectoryItem.h"

#include "drive/PublishedCodes.h"
#include "imapi/EntriesLeftOut.h"
#include "mastering/base/ImageErrors.h"
#include "text/PathText.h"

#include <utility>

namespace velmora::mastering {

using namespace Qt::StringLiterals;

namespace {

using image::kNoNode;
using image::NodeId;
using image::SourceTree;

std::string ImagePathOf(const text::DiscPath& path)
{
    constexpr qsizetype kLongestName = 254; // UTF-16 units, as in UDF
    const auto names = QStringView(path.Text()).split(u'\\');
    for (const QStringView name : names) {
        if (name.isEmpty() || name.size() > kLongestName) {
            throw drive::PublishedError(drive::hresult::kInvalidPath);
        }
    }
    return text::ToImagePath(path);
}

void TellFiles(UpdateEvents& events, const SourceTree& tree, NodeId top, std::uint64_t files)
{
    if (!events.HasHandler()) {
        return; // there may be a million
    }
    std::uint64_t told = 0;
    for (NodeId id = top; id != kNoNode; id = tree.NextBelow(top, id)) {
        if (tree[id].kind != image::NodeKind::File) {
            continue;
        }
        ++told;
        const auto path
            = [&] { return text::ToProgramPath(text::NativePath(tree.SourcePath(id))).Text(); };
        events.TellFile(path, tree[id].size, told == 1, told == files);
    }
}

image::ScanOptions ScanTelling(UpdateEvents& events, const std::stop_token& stop)
{
    image::ScanOptions options;
    options.progress = [&events, &stop](const image::ScanProgress& progress) {
        events.TellListing([&] {
            return text::ToProgramPath(text::NativePath(std::string(progress.currentPath))).Text();
        });
        return !stop.stop_requested();
    };
    return options;
}

/// One error for all entries that were left out: its number is the first one's.
imapi::EntriesLeftOut LeftOutError(const std::vector<image::Error>& leftOut)
{
    constexpr std::size_t kMostNamed = 3;
    const QString count = QString::number(leftOut.size());
    QString description = leftOut.size() == 1 ? u"1 élément laissé de côté."_s
                                              : u"%1 éléments laissés de côté, dont :"_s.arg(count);
    for (std::size_t i = 0; i < leftOut.size() && i < kMostNamed; ++i) {
        description += u' ' + QString::fromStdString(image::Describe(leftOut[i]));
    }
    return {
        drive::MapHresult(PublishedCodeOf(leftOut.front().kind)), description, EntriesOf(leftOut)};
}

} // namespace

FsiDirectoryItem::FsiDirectoryItem(std::shared_ptr<ImageState> image, std::string path)
    : image_(std::move(image))
    , path_(std::move(path))
{
}

std::shared_ptr<imapi::IFsiDirectoryItem> FsiDirectoryItem::Item(const text::DiscPath& path)
{
    const std::string below = ImagePathOf(path);
    std::string whole = path_.empty() ? below : path_ + '/' + below;
    image_->contents.RequireDirectory(whole);
    return std::make_shared<FsiDirectoryItem>(image_, std::move(whole));
}

void FsiDirectoryItem::AddTree(const text::ProgramPath& sourceDirectory, bool includeBaseDirectory)
{
    image_->RequireChangeable();
    const std::string source = text::ToNativePath(sourceDirectory).Bytes();
    const bool hasName
        = source.find_first_not_of('/') != std::string::npos; // unlike the machine's root
    const bool includeBase = includeBaseDirectory && (source.empty() || hasName);
    UpdateEvents& events = image_->events;
    const std::vector<image::Error> leftOut = image_->contents.AddTree(path_,
        source,
        includeBase ? image::IncludeBase::Yes : image::IncludeBase::No,
        ScanTelling(events, image_->contents.Options().stop),
        [&events](const SourceTree& tree, NodeId top, std::uint64_t files) {
            TellFiles(events, tree, top, files);
        });
    if (!leftOut.empty()) {
        throw LeftOutError(leftOut);
    }
}

void FsiDirectoryItem::AddDirectory(const text::DiscPath& path)
{
    image_->RequireChangeable();
    image_->contents.AddDirectory(ImagePathOf(path));
}

void FsiDirectoryItem::AddFile(const text::DiscPath& path, const imapi::StreamRef& fileData)
{
    image_->RequireChangeable();
    if (!fileData) {
        throw drive::PublishedError(drive::hresult::kPointer);
    }
    const std::optional<imapi::StreamFile> file = fileData->File();
    if (!file) {
        throw drive::PublishedError(drive::hresult::kInvalidParam);
    }
    const ImageContents::AddedFile added
        = image_->contents.AddFile(ImagePathOf(path), file->path.Bytes());
    if (added.node != kNoNode) {
        const quint64 bytes = image_->contents.Tree()[added.node].size;
        image_->events.TellFile([&path] { return path.Text(); }, bytes, true, true);
    }
    if (!added.leftOut.empty()) {
        throw LeftOutError(added.leftOut);
    }
}

} // namespace velmora::mastering
