// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/ImageResultStream.h"

#include "drive/PublishedCodes.h"
#include "image/FilePlaces.h"
#include "image/GrowingImage.h"
#include "mastering/base/BlockCopy.h"
#include "mastering/base/ImageErrors.h"
#include "text/PathText.h"

#include <sys/stat.h>

#include <algorithm>

namespace velmora::mastering {

namespace {

/// Is it a file on a disk, as opposed to a device?
bool IsRegularFile(int descriptor)
{
    struct stat status { };
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

ImageResultStream::ImageResultStream(const image::ImagePlan& plan)
    : stream_(plan)
{
}

std::size_t ImageResultStream::Read(std::span<std::byte> out)
{
    if (position_ >= Size()) {
        return 0;
    }
    const std::span wanted
        = out.first(static_cast<std::size_t>(std::min<quint64>(Size() - position_, out.size())));
    const image::Result<> read = stream_.Read(position_, wanted);
    if (!read) {
        Raise(read.Failure());
    }
    position_ += wanted.size();
    return wanted.size();
}

void ImageResultStream::Write(std::span<const std::byte>)
{
    throw drive::PublishedError(drive::hresult::kStreamAccessDenied);
}

std::vector<imapi::FilePart> ImageResultStream::FilesBetween(quint64 begin, quint64 end) const
{
    std::vector<imapi::FilePart> parts;
    for (const image::FilePlace& file : image::FilesBetween(stream_.Plan(), begin, end)) {
        parts.push_back({text::ToDiscPath(file.path), file.firstByte});
    }
    return parts;
}

QList<text::ProgramPath> ImageResultStream::ChangedSources() const
{
    std::set<std::string> paths = stream_.ChangedFiles();
    paths.insert(changedInCopy_.begin(), changedInCopy_.end());
    QList<text::ProgramPath> changed;
    for (const std::string& path : paths) {
        changed.push_back(text::ToProgramPath(text::NativePath(path)));
    }
    return changed;
}

std::vector<imapi::FileExtent> ImageResultStream::Files(std::size_t most) const
{
    std::vector<imapi::FileExtent> files;
    for (const image::FileRange& file : image::AllFiles(stream_.Plan(), most)) {
        files.push_back({text::ToDiscPath(file.path), file.begin, file.bytes});
    }
    return files;
}

QString ImageResultStream::VolumeName() const
{
    return QString::fromStdString(stream_.Plan().VolumeName());
}

quint64 ImageResultStream::CopyTo(const imapi::StreamRef& destination, quint64 count)
{
    if (!destination) {
        throw drive::PublishedError(drive::hresult::kStreamInvalidPointer);
    }
    const bool isWhole = position_ == 0 && count >= Size();
    const std::optional<imapi::StreamFile> file = destination->File();
    if (!isWhole || destination->Position() != 0 || !file || !IsRegularFile(file->descriptor)) {
        return BlockCopy(*this, *destination, count);
    }
    CopyWhole(*destination, file->descriptor);
    return Size();
}

void ImageResultStream::CopyWhole(imapi::IStream& destination, int file)
{
    const image::Result<image::CopyReport> copied = image::GrowTo(stream_.Plan(), file);
    if (!copied) {
        Raise(copied.Failure());
    }
    changedInCopy_ = copied->changedFiles;
    Seek(Size());
    destination.Seek(Size());
}

} // namespace velmora::mastering
