// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IFileSystemImage.h"
#include "runtime/Clock.h"

#include <QString>

#include <functional>

namespace velmora::mastering {

/// Brings the Update events of an image to its handler, at a rate that a person can follow. A path
/// is asked for only when it is told.
class UpdateEvents {
public:
    using Path = std::function<QString()>;

    explicit UpdateEvents(const runtime::Clock& clock);

    void SetHandler(imapi::FileSystemImageUpdate handler);
    bool HasHandler() const { return static_cast<bool>(handler_); }

    /// Tells that a directory is being listed, if the time for an event has come.
    void TellListing(const Path& directory);

    /// Tells the first and the last sector of a file, each if the time for an event has come; the
    /// first sector of a call's first file and both of its last one whatever the time.
    void TellFile(const Path& file, quint64 bytes, bool isFirst, bool isLast);

private:
    bool IsDue() const;
    void Tell(const QString& path, qint32 copiedSectors, qint32 totalSectors);

    const runtime::Clock& clock_;
    imapi::FileSystemImageUpdate handler_;
    double lastTold_; // seconds
};

} // namespace velmora::mastering
