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
    /// Told the name of the file that is being written, empty if it has none. Whoever ends the
    /// process at once may remove that file.
    std::function<void(const std::string& path)> partialFile {};
};

/// What became of the sources while an image was written.
struct CopyReport {
    /// Native paths of files that were rewritten or grew: the image has what was read of them.
    std::set<std::string> changedFiles {};
};

/// Writes the whole image into a file that is open for reading and writing, from its start.
/// Large files are shared or copied by the kernel, everything else passes through small buffers.
/// Whether there is room for that is known before it begins.
///
/// Errors: those of ImageStream::Read; OutputNotWritten, DiskFull, Cancelled.
Result<CopyReport> CopyTo(
    const ImagePlan& plan, int fileDescriptor, const CopyOptions& options = {});

/// Writes the whole image into a pipe, or whatever takes bytes one after another.
/// Errors: as CopyTo.
Result<CopyReport> StreamTo(
    const ImagePlan& plan, int fileDescriptor, const CopyOptions& options = {});

/// Writes the image beside `path`, into a file that nobody else can have, and puts it in its place
/// when it is whole and on the disk: `path` never holds half an image, and two that are written at
/// once leave one of them whole.
///
/// Errors: those of CopyTo; OutputNotCreated.
Result<CopyReport> WriteImageFile(
    const ImagePlan& plan, const std::string& path, const CopyOptions& options = {});

} // namespace velmora::image
