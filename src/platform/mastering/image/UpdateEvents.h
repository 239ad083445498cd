// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IFileSystemImage.h"
#include "runtime/Clock.h"

#include <QString>

#include <functional>

namespace velmora::mastering {

/// Passes the Update events of an image to its handler, at a rate that the eye can follow. A path
/// is computed only for an event.
class UpdateEvents {
public:
    using Path = std::function<QString()>;

    explicit UpdateEvents(const runtime::Clock& clock);

    void SetHandler(imapi::FileSystemImageUpdate handler);
    bool HasHandler() const { return static_cast<bool>(handler_); }

    /// Reports that a directory is being listed, if an event is due.
    void TellListing(const Path& directory);

    /// Reports the first and the last sector of a file, each if an event is due; the first sector
    /// of a call's first file and both of its last one in any case.
    void TellFile(const Path& file, quint64 bytes, bool isFirst, bool isLast);

private:
    bool IsDue() const;
    void Tell(const QString& path, qint32 copiedSectors, qint32 totalSectors);

    const runtime::Clock& clock_;
    imapi::FileSystemImageUpdate handler_;
    double lastTold_; // seconds
};

} // namespace velmora::mastering
