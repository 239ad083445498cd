// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/ImageStream.h"

#include "image/PlanDetails.h"
#include "image/contents/SourceReader.h"

#include <cassert>

namespace velmora::image {

ImageStream::ImageStream(ImagePlan plan)
    : plan_(std::move(plan))
    , source_(std::make_unique<SourceReader>(
          plan_.Details().Source(), plan_.Details().Files(), plan_.Details().Sums()))
{
}

ImageStream::~ImageStream() = default;
ImageStream::ImageStream(ImageStream&&) noexcept = default;
ImageStream& ImageStream::operator=(ImageStream&&) noexcept = default;

Result<> ImageStream::Read(std::uint64_t offset, std::span<std::byte> out)
{
    assert(offset + out.size() <= Size());
    const PlanDetails& details = plan_.Details();
    Window window(offset, out);
    details.RenderStructures(window);
    if (plan_.HasDescriptors()) {
        details.RenderDescriptors(window);
    }
    return source_->Fill(window, details.DataBegin(), details.DataEnd());
}

std::set<std::string> ImageStream::ChangedFiles() const { return source_->ChangedFiles(); }

} // namespace velmora::image
