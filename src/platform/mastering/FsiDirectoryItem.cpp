// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/FsiDirectoryItem.h"

#include "drive/PublishedCodes.h"
#include "imapi/EntriesLeftOut.h"
#include "mastering/ImageErrors.h"
#include "text/PathText.h"

#include <utility>

namespace velmora::mastering {

using namespace Qt::StringLiterals;

namespace {

using image::kNoNode;
using image::NodeId;
using image::SourceTree;

/// The native form of a path in the image.
std::string ImagePathOf(const QString& path)
{
    constexpr qsizetype kLongestName = 254; // UTF-16 units, as in UDF
    const auto names = QStringView(path).split(u'\\');
    for (const QStringView name : names) {
        if (name.isEmpty() || name.size() > kLongestName) {
            throw drive::PublishedError(drive::hresult::kInvalidPath);
        }
    }
    return text::ToNativePath(path);
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
        const auto path = [&] { return text::ToProgramPath(tree.SourcePath(id)); };
        events.TellFile(path, tree[id].size, told == 1, told == files);
    }
}

image::ScanOptions ScanTelling(UpdateEvents& events, const std::stop_token& stop)
{
    image::ScanOptions options;
    options.progress = [&events, &stop](const image::ScanProgress& progress) {
        events.TellListing([&] { return text::ToProgramPath(progress.currentPath); });
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
    return {runtime::MapHresult(PublishedCodeOf(leftOut.front().kind)),
        description,
        EntriesOf(leftOut)};
}

} // namespace

FsiDirectoryItem::FsiDirectoryItem(std::shared_ptr<ImageState> image, std::string nativePath)
    : image_(std::move(image))
    , path_(std::move(nativePath))
{
}

std::shared_ptr<imapi::IFsiDirectoryItem> FsiDirectoryItem::Item(const QString& path)
{
    const std::string below = ImagePathOf(path);
    std::string whole = path_.empty() ? below : path_ + '/' + below;
    image_->contents.RequireDirectory(whole);
    return std::make_shared<FsiDirectoryItem>(image_, std::move(whole));
}

void FsiDirectoryItem::AddTree(const QString& sourceDirectory, bool includeBaseDirectory)
{
    image_->RequireChangeable();
    const std::string source = text::ToNativePath(sourceDirectory);
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

void FsiDirectoryItem::AddDirectory(const QString& path)
{
    image_->RequireChangeable();
    image_->contents.AddDirectory(ImagePathOf(path));
}

void FsiDirectoryItem::AddFile(const QString& path, const imapi::StreamRef& fileData)
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
        = image_->contents.AddFile(ImagePathOf(path), file->nativePath);
    if (added.node != kNoNode) {
        const quint64 bytes = image_->contents.Tree()[added.node].size;
        image_->events.TellFile([&path] { return path; }, bytes, true, true);
    }
    if (!added.leftOut.empty()) {
        throw LeftOutError(added.leftOut);
    }
}

} // namespace velmora::mastering
