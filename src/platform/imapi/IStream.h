// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/DiscPath.h"
#include "text/Paths.h"

#include <QList>
#include <QString>
#include <QtGlobal>

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace velmora::imapi {

class IStream;

/// A reference to a stream; it may be empty, as after an open that failed. The stream is closed
/// with its last reference.
using StreamRef = std::shared_ptr<IStream>;

/// The file of this machine behind a stream.
struct StreamFile {
    text::NativePath path;
    int descriptor = -1; ///< the stream's: valid as long as the stream
};

/// A file of which some bytes lie in a given range of an image.
struct FilePart {
    text::DiscPath path;   ///< without a leading backslash
    quint64 firstByte = 0; ///< of the file, the first that lies in the range
};

/// Where a file of an image lies.
struct FileExtent {
    text::DiscPath path;   ///< without a leading backslash
    quint64 firstByte = 0; ///< of the image; a sector begins there
    quint64 bytes = 0;
};

/// A sequence of bytes with a position. One thread only.
class IStream {
public:
    IStream() = default;
    virtual ~IStream() = default;
    IStream(const IStream&) = delete;
    IStream& operator=(const IStream&) = delete;
    IStream(IStream&&) = delete;
    IStream& operator=(IStream&&) = delete;

    /// Reads from the position on and moves it.
    /// @return bytes read; fewer than requested only at the end of the stream, 0 after it
    /// Errors: C0AAB128, C0AAB129, C0AAB12A for a file of an image; for a plain file
    /// STG_E_READFAULT, C0AAB128 when it is shorter than it was at the opening or was replaced,
    /// 80070002 when it is gone.
    virtual std::size_t Read(std::span<std::byte> out) = 0;

    /// Writes at the position and moves it.
    /// Errors: STG_E_MEDIUMFULL (-2147286928), STG_E_WRITEFAULT, STG_E_ACCESSDENIED for a stream
    /// that can only be read.
    virtual void Write(std::span<const std::byte> bytes) = 0;

    /// Sets the position, in bytes from the start; it may lie past the end.
    virtual void Seek(quint64 position) = 0;

    /// The position, in bytes from the start.
    virtual quint64 Position() const = 0;

    /// The file that the stream reads and writes unchanged; none for a stream whose bytes are
    /// generated. The image writer reads such a file itself, and lets the kernel copy into it.
    virtual std::optional<StreamFile> File() const = 0;

    /// The files that lie, at least in part, in a range of the stream, in the order of their bytes;
    /// none for a stream that isn't made of files.
    /// @param begin  bytes from the start of the stream; `end` is one past the range
    virtual std::vector<FilePart> FilesBetween(quint64 /*begin*/, quint64 /*end*/) const
    {
        return {};
    }

    /// All files that the stream is made of and that have bytes, each once, in the order of their
    /// bytes; empty if there are more than `most`, and for a stream that isn't made of files.
    virtual std::vector<FileExtent> Files(std::size_t /*most*/) const { return {}; }

    /// The name of the disc that the stream makes; empty if unknown.
    virtual QString VolumeName() const { return {}; }

    /// Bytes from the start to the end (the size that Stat returns); for a file that is read, as of
    /// its opening.
    virtual quint64 Size() const = 0;

    /// The files that were rewritten or grew since the stream was made; it gave
    /// the bytes that it read. Each read checks the file that it reads.
    virtual QList<text::ProgramPath> ChangedSources() const { return {}; }

    /// Copies from this stream's position to the destination's, in one call that handles no events.
    /// @param count  bytes; the copy stops at the end
    /// @return       bytes copied
    /// Errors: STG_E_INVALIDPOINTER (-2147287031) for an empty destination; those of Read and
    /// Write.
    virtual quint64 CopyTo(const StreamRef& destination, quint64 count) = 0;
};

} // namespace velmora::imapi
