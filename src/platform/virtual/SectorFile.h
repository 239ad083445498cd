// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/SectorSize.h"
#include "unicode/FileDescriptor.h"

#include <QtGlobal>

#include <cstddef>
#include <span>
#include <string>

namespace velmora::virtualdrive {

using drive::kSectorBytes;

/// The sectors of a disc in one plain file: sector n at byte n * 2048. Sectors past the file's end
/// read as zeros.
class SectorFile {
public:
    enum class Mode : quint8 { Read, Write };

    /// Makes an empty one. @return false when the name is taken
    /// Errors: C0AA0301.
    static bool Make(const std::string& path);

    /// Errors: C0AAB157 or C0AA0301 when it can't be opened, or isn't a plain file.
    SectorFile(const std::string& path, Mode mode);

    /// Errors: C0AAB157.
    void Read(qint64 firstSector, std::span<std::byte> out) const;
    /// Errors: C0AA0301, with the reason.
    void Write(qint64 firstSector, std::span<const std::byte> bytes);
    void WriteZeros(qint64 firstSector, qint64 sectors);
    /// Makes the system start to flush written sectors to the computer's disk.
    void BeginFlush(qint64 firstSector, qint64 sectors) const;
    /// Waits until all that was written is on the computer's disk. Errors: C0AA0301.
    void Flush() const;
    /// Truncates the file at a sector. Errors: C0AA0301.
    void Cut(qint64 sectors);
    bool IsZero(qint64 firstSector, qint64 sectors) const;

private:
    unicode::FileDescriptor file_;
};

} // namespace velmora::virtualdrive
