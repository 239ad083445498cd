// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>

namespace velmora::image {

struct CopyOptions {
    unsigned threads = 0; ///< 0 = as many as the machine has processors, four at most
    bool grows = false;   ///< the file gets its size while it is written, not beforehand
    /// Called about 25 times a second by the calling thread with the bytes done; false stops the
    /// copy.
    std::function<bool(std::uint64_t bytesDone)> progress {};
    /// Told the name of the file that is being written, empty if it has none. Code that ends the
    /// process abruptly may remove that file.
    std::function<void(const std::string& path)> partialFile {};
};

/// What became of the sources while an image was written.
struct CopyReport {
    /// Native paths of files that were rewritten or grew: the image holds what was read from them.
    std::set<std::string> changedFiles {};
};

/// Writes the whole image into a file that is open for reading and writing, from its start.
/// Large files are shared or copied by the kernel, everything else passes through small buffers.
/// Whether there is room for that is known before it begins.
///
/// Errors: those of ImageStream::Read; OutputNotWritten, DiskFull, Cancelled.
Result<CopyReport> CopyTo(
    const ImagePlan& plan, int fileDescriptor, const CopyOptions& options = {});

/// Writes the whole image into a pipe or any other sequential output.
/// Errors: as CopyTo.
Result<CopyReport> StreamTo(
    const ImagePlan& plan, int fileDescriptor, const CopyOptions& options = {});

/// Writes the image beside `path`, into a file of its own, and moves it into place when it is
/// complete and on the disk: `path` never holds half an image, and of two written at once one is
/// left complete.
///
/// Errors: those of CopyTo; OutputNotCreated.
Result<CopyReport> WriteImageFile(
    const ImagePlan& plan, const std::string& path, const CopyOptions& options = {});

} // namespace velmora::image
