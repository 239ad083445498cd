// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/BoundDrive.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace velmora::imapi {

/// A recorder.
///
/// It has no drive until InitializeDiscRecorder has bound it: until then every other member raises
/// E_FAIL (-2147467259). Failures are runtime::RuntimeError with the published number; those of
/// every access to a drive ("DEV") are C0AA0201 to C0AA020F, C0AA0210, C0AA02FF, C0AA0300,
/// 0x80070037 (-2147024841, the drive is gone), E_FAIL.
class IDiscRecorder2 {
public:
    IDiscRecorder2() = default;
    virtual ~IDiscRecorder2() = default;
    IDiscRecorder2(const IDiscRecorder2&) = delete;
    IDiscRecorder2& operator=(const IDiscRecorder2&) = delete;
    IDiscRecorder2(IDiscRecorder2&&) = delete;
    IDiscRecorder2& operator=(IDiscRecorder2&&) = delete;

    /// Binds the object to the drive of that id, whether or not it is locked.
    /// Errors: E_INVALIDARG (5) for an id that no drive has, E_ACCESSDENIED (70) without the right
    /// to the device, 0x80070037; after any of them the object is unbound.
    virtual void InitializeDiscRecorder(const QString& uniqueId) = 0;

    /// The id that the object is bound to.
    virtual QString ActiveDiscRecorder() const = 0;

    // The drive's own name, without trailing blanks.
    virtual QString VendorId() const = 0;
    virtual QString ProductId() const = 0;
    virtual QString ProductRevision() const = 0;

    /// The device's unique name; not the name of the disc in it.
    virtual QString VolumeName() const = 0;

    /// Can the tray be opened and pulled in again? A slim drive may wrongly say yes.
    virtual bool DeviceCanLoadMedia() const = 0;

    /// N of /dev/srN.
    virtual qint32 LegacyDeviceNumber() const = 0;

    /// The drive as shown to the user: its device node.
    virtual QStringList VolumePathNames() const = 0;

    /// MMC profile numbers in the drive's order.
    virtual QList<qint32> SupportedProfiles() const = 0;

    /// Opens the tray; a mounted disc is unmounted first.
    /// Errors: C0AA0210 when another program keeps it shut; DEV.
    virtual void EjectMedia() = 0;

    /// Pulls the tray in. Errors: E_FAIL if the drive can't; DEV.
    virtual void CloseTray() = 0;

    /// Reserves the drive. Calls are counted: each needs its own ReleaseExclusiveAccess, and the
    /// first one locks. The lock also ends with the object.
    /// @param force       takes the drive although its disc is mounted
    /// @param clientName  the client's name: 1 to 63 of A-Z a-z 0-9 blank . , : ; - _
    /// Errors: E_INVALIDARG (5) for another name, E_ACCESSDENIED (70) while the disc is mounted and
    /// force is False, C0AA0210 when another program has the drive; DEV.
    virtual void AcquireExclusiveAccess(bool force, const QString& clientName) = 0;

    /// Undoes one call of AcquireExclusiveAccess. Errors: E_FAIL when none is open; DEV.
    virtual void ReleaseExclusiveAccess() = 0;

    /// The drive that the object is bound to, for the objects that write, erase or lay out an image
    /// for the disc.
    virtual drive::BoundDrive& Drive() = 0;
};

using RecorderRef = std::shared_ptr<IDiscRecorder2>;

} // namespace velmora::imapi
