// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/FileFacts.h"
#include "imapi/IStream.h"
#include "imapi/Mastering.h"
#include "mastering/isofile/FileWatch.h"
#include "unicode/FileDescriptor.h"

#include <QString>

#include <optional>
#include <string>

namespace velmora::mastering {

/// A stream on a file of the machine. One for reading watches its file for changes.
class FileStream final : public imapi::IStream {
public:
    FileStream(unicode::FileDescriptor file, text::NativePath path, imapi::FileStreamMode mode);

    std::size_t Read(std::span<std::byte> out) override;
    void Write(std::span<const std::byte> bytes) override;
    void Seek(quint64 position) override { position_ = position; }
    quint64 Position() const override { return position_; }
    std::optional<imapi::StreamFile> File() const override;
    quint64 Size() const override;
    /// The name of the ISO 9660 file system in it, if there is one.
    QString VolumeName() const override;
    QList<text::ProgramPath> ChangedSources() const override;
    quint64 CopyTo(const imapi::StreamRef& destination, quint64 count) override;

private:
    int Descriptor() const { return file_.Get(); }

    unicode::FileDescriptor file_;
    text::NativePath path_;
    std::optional<FileWatch> watch_; // of a file that is read
    quint64 position_ = 0;
};

/// Opens a stream on a file. A failure isn't raised but gives an empty reference, so a folder, a
/// missing file or missing rights show when the stream is used. Pipes and sockets are never opened,
/// and devices not for reading. A stream on a symbolic link represents that link when it is added
/// to an image; reading it gives the bytes of the file that the link leads to, if any.
imapi::StreamRef SHCreateStreamOnFile(const text::ProgramPath& path, imapi::FileStreamMode mode);

} // namespace velmora::mastering
