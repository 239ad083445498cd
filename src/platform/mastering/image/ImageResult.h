// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "imapi/IFileSystemImageResult.h"

namespace velmora::mastering {

/// The result of an image that was laid out: at most 2^31 - 1 blocks.
class ImageResult final : public imapi::IFileSystemImageResult {
public:
    /// @param linksLeftOut    the symbolic links that the image holds nowhere
    /// @param keepsOtherSums  see KeepsOtherSums
    ImageResult(const image::ImagePlan& plan,
        std::vector<image::Error> linksLeftOut,
        bool keepsOtherSums = false);

    imapi::StreamRef ImageStream() override { return stream_; }
    qint32 BlockSize() const override;
    qint32 TotalBlocks() const override { return totalBlocks_; }
    std::vector<imapi::ChangedName> ChangedNames() const override;
    /// @param most  of each file system; there may be millions
    std::vector<imapi::ChangedName> ChangedNames(std::size_t most) const;
    std::vector<imapi::LeftOutEntry> LinksLeftOut() const override;
    std::vector<imapi::PartlyHeldEntry> PartlyHeld() const override;
    std::vector<imapi::NameHazard> NameHazards() const override;
    bool KeepsOtherSums() const override { return keepsOtherSums_; }
    std::vector<imapi::LinkLeadingOut> LinksLeadingOut() const override;

private:
    image::ImagePlan plan_;
    std::vector<image::Error> linksLeftOut_;
    bool keepsOtherSums_;
    imapi::StreamRef stream_;
    qint32 totalBlocks_;
};

} // namespace velmora::mastering
