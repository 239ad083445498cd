// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/ImageResultStream.h"

#include "drive/PublishedCodes.h"
#include "image/ImageFile.h"
#include "mastering/BlockCopy.h"
#include "mastering/FileStream.h"
#include "mastering/ImageErrors.h"

#include <algorithm>

namespace velmora::mastering {

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

quint64 ImageResultStream::CopyTo(const imapi::StreamRef& destination, quint64 count)
{
    if (!destination) {
        throw drive::PublishedError(drive::hresult::kStreamInvalidPointer);
    }
    auto* file = dynamic_cast<FileStream*>(destination.get());
    const bool isWhole = position_ == 0 && count >= Size();
    if (!file || !isWhole || file->Position() != 0 || !file->IsRegularFile()) {
        return BlockCopy(*this, *destination, count);
    }
    CopyWhole(*file);
    return Size();
}

void ImageResultStream::CopyWhole(FileStream& file)
{
    const image::Result<> copied = image::CopyTo(stream_.Plan(), file.Descriptor());
    if (!copied) {
        Raise(copied.Failure());
    }
    Seek(Size());
    file.Seek(Size());
}

} // namespace velmora::mastering
