// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImageStream.h"
#include "imapi/IStream.h"

#include <set>
#include <string>

namespace velmora::mastering {

/// The bytes of a planned image as a read-only stream.
class ImageResultStream final : public imapi::IStream {
public:
    explicit ImageResultStream(const image::ImagePlan& plan);

    std::size_t Read(std::span<std::byte> out) override;
    void Write(std::span<const std::byte> bytes) override;
    void Seek(quint64 position) override { position_ = position; }
    quint64 Position() const override { return position_; }
    std::optional<imapi::StreamFile> File() const override { return std::nullopt; }
    std::vector<imapi::FilePart> FilesBetween(quint64 begin, quint64 end) const override;
    std::vector<imapi::FileExtent> Files(std::size_t most) const override;
    QString VolumeName() const override;
    quint64 Size() const override { return stream_.Size(); }
    QList<text::ProgramPath> ChangedSources() const override;
    /// As promised; a whole image that goes to the start of a file is shared or copied by the
    /// kernel if possible.
    quint64 CopyTo(const imapi::StreamRef& destination, quint64 count) override;

private:
    void CopyWhole(imapi::IStream& destination, int file);

    image::ImageStream stream_;
    std::set<std::string> changedInCopy_; // native paths
    quint64 position_ = 0;
};

} // namespace velmora::mastering
