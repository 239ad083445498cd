// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscFormat2Data.h"
#include "imapi/IDiscFormat2Erase.h"
#include "imapi/IDiscMaster2.h"
#include "imapi/IFileSystemImage.h"
#include "imapi/IIsoImageManager.h"
#include "imapi/IStream.h"
#include "text/Paths.h"

namespace velmora::imapi {

/// What a stream on a file is opened for, with the published mode numbers.
enum class FileStreamMode : qint32 {
    Read = 0x20,          ///< read; others must not write meanwhile
    CreateWrite = 0x1001, ///< created or truncated, and written
};

/// Makes the platform's objects: the only door through which a run gets them.
class Mastering {
public:
    Mastering() = default;
    virtual ~Mastering() = default;
    Mastering(const Mastering&) = delete;
    Mastering& operator=(const Mastering&) = delete;
    Mastering(Mastering&&) = delete;
    Mastering& operator=(Mastering&&) = delete;

    /// A new MsftDiscMaster2: the recorders present at this moment.
    virtual DiscMasterRef CreateDiscMaster() = 0;
    /// A new MsftDiscRecorder2, bound to no drive yet.
    virtual RecorderRef CreateDiscRecorder() = 0;
    /// A new MsftDiscFormat2Data.
    virtual DiscFormat2DataRef CreateDiscFormat2Data() = 0;
    /// A new MsftDiscFormat2Erase.
    virtual DiscFormat2EraseRef CreateDiscFormat2Erase() = 0;

    /// A new MsftFileSystemImage.
    virtual FileSystemImageRef CreateFileSystemImage() = 0;

    /// A new MsftIsoImageManager.
    virtual IsoImageManagerRef CreateIsoImageManager() = 0;

    /// Opens a stream on a file of the machine. A failure isn't raised: the reference is empty.
    virtual StreamRef CreateStreamOnFile(const text::ProgramPath& path, FileStreamMode mode) = 0;
};

} // namespace velmora::imapi
