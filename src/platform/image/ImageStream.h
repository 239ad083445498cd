// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"

#include <cstddef>
#include <memory>
#include <span>

namespace velmora::image {

class SourceReader;

/// The bytes of a planned image, made on demand: any range, in any order, the same each time.
///
/// A stream belongs to one thread; several streams of one plan may be read at once.
class ImageStream {
public:
    explicit ImageStream(ImagePlan plan);
    ~ImageStream();
    ImageStream(ImageStream&&) noexcept;
    ImageStream& operator=(ImageStream&&) noexcept;
    ImageStream(const ImageStream&) = delete;
    ImageStream& operator=(const ImageStream&) = delete;

    std::uint64_t Size() const { return plan_.Bytes(); } ///< bytes
    const ImagePlan& Plan() const { return plan_; }

    /// Fills `out` with the bytes from `offset` on; the range must lie within the image.
    /// Errors: FileNotOpened, FileUnreadable, FileChanged, NotFound, each with the file's native
    /// path.
    Result<> Read(std::uint64_t offset, std::span<std::byte> out);

private:
    ImagePlan plan_;
    std::unique_ptr<SourceReader> source_;
};

} // namespace velmora::image
