// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"

#include <cstddef>
#include <memory>
#include <set>
#include <span>
#include <string>

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
    /// Errors: FileNotOpened, FileUnreadable, FileChanged, FileReplaced, SpecialFile, NotFound,
    /// each with the file's native path.
    Result<> Read(std::uint64_t offset, std::span<std::byte> out);

    /// Native paths of the files that were rewritten or grew since they were scanned, as far as
    /// they were read: the bytes given are those that were read.
    std::set<std::string> ChangedFiles() const;

private:
    ImagePlan plan_;
    std::unique_ptr<SourceReader> source_;
};

} // namespace velmora::image
