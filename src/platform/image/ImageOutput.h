// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Result.h"
#include "unicode/FileDescriptor.h"

#include <string>

namespace velmora::image {

/// The failure to write an image, by errno: DiskFull, or else OutputNotWritten.
Error OutputFailure(int systemError, std::string path = {});

/// The file that an image is written into: beside its place, and removed again unless it is kept.
/// It has no name where the file system allows that, so that even a killed process leaves nothing
/// behind; elsewhere it has a unique one.
class ImageOutput {
public:
    /// @param path  the place that the image is to take
    /// Errors: OutputNotCreated.
    static Result<ImageOutput> Beside(const std::string& path);

    ImageOutput(ImageOutput&&) noexcept;
    ImageOutput& operator=(ImageOutput&&) = delete;
    ImageOutput(const ImageOutput&) = delete;
    ImageOutput& operator=(const ImageOutput&) = delete;
    ~ImageOutput();

    /// Open for reading and writing.
    int Get() const { return file_.Get(); }
    /// The file's own name; empty if it has none.
    const std::string& Name() const { return name_; }

    /// Flushes the file to the disk, then moves it into place; what was there before is replaced
    /// atomically. Errors: OutputNotWritten, DiskFull.
    Result<> Keep();

private:
    ImageOutput(std::string path, unicode::FileDescriptor file, std::string name);
    bool GiveName();

    std::string path_;
    unicode::FileDescriptor file_;
    std::string name_;
};

} // namespace velmora::image
