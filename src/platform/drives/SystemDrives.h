// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "drives/BurnDrive.h"

#include <QList>
#include <QMap>
#include <QString>

#include <memory>

namespace velmora::drives {

/// The drives for optical discs that the system knows, in the order of their numbers. Drives that
/// this user may not open are included.
class SystemDrives final : public drive::DriveSource {
public:
    /// Where the system lists its devices.
    struct Folders {
        QString blocks = QStringLiteral("/sys/class/block");
        QString names = QStringLiteral("/dev/disk/by-id"); ///< lasting names, as links
        QString devices = QStringLiteral("/dev");
    };

    explicit SystemDrives(BurnDriveContext context);
    SystemDrives(BurnDriveContext context, Folders folders);

    QStringList Ids() override;
    drive::DriveRef Open(const QString& id) override;

private:
    struct Found {
        QString id;
        QString device;
    };

    QList<Found> Find() const;
    QString LastingName(const QString& device) const;

    BurnDriveContext context_;
    Folders folders_;
    std::shared_ptr<LibraryThread> library_;
    QMap<QString, std::weak_ptr<BurnDrive>> open_; // one object for each drive that is in use
};

} // namespace velmora::drives
