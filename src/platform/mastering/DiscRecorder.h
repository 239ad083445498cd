// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscRecorder2.h"
#include "mastering/DriveSide.h"

#include <memory>

namespace velmora::mastering {

/// The MsftDiscRecorder2 over a drive.
class DiscRecorder final : public imapi::IDiscRecorder2 {
public:
    explicit DiscRecorder(std::shared_ptr<DriveSide> side);
    ~DiscRecorder() override;
    DiscRecorder(const DiscRecorder&) = delete;
    DiscRecorder& operator=(const DiscRecorder&) = delete;
    DiscRecorder(DiscRecorder&&) = delete;
    DiscRecorder& operator=(DiscRecorder&&) = delete;

    void InitializeDiscRecorder(const QString& uniqueId) override;
    QString ActiveDiscRecorder() const override { return Facts().id; }
    QString VendorId() const override { return Facts().vendor; }
    QString ProductId() const override { return Facts().product; }
    QString ProductRevision() const override { return Facts().revision; }
    QString VolumeName() const override { return Facts().volumeName; }
    bool DeviceCanLoadMedia() const override { return Facts().canLoadMedia; }
    qint32 LegacyDeviceNumber() const override { return Facts().legacyNumber; }
    QStringList VolumePathNames() const override { return Facts().paths; }
    QList<qint32> SupportedProfiles() const override { return Facts().profiles; }
    void EjectMedia() override;
    void CloseTray() override;
    void AcquireExclusiveAccess(bool force, const QString& clientName) override;
    void ReleaseExclusiveAccess() override;
    imapi::DiscFacts DiscInDrive() override;

    /// The drive that the object is bound to. Errors: E_FAIL.
    const drive::DriveRef& BoundDrive() const;

    /// Looks at the disc. Errors: those of Drive::Examine.
    const drive::DiscInfo& LookAnew();
    /// The disc as the last look found it, if that was less than two seconds ago; else a new look.
    const drive::DiscInfo& Look();
    /// The disc may have changed: the next look is a new one.
    void ForgetLook() { lookedAt_.reset(); }

private:
    const drive::DriveFacts& Facts() const;
    void DropLock();

    std::shared_ptr<DriveSide> side_;
    drive::DriveRef drive_; // empty: unbound
    drive::DriveFacts facts_;
    int locks_ = 0;
    drive::DiscInfo look_;
    std::optional<double> lookedAt_; // seconds
};

/// Holds a recorder exclusively, its disc unmounted, for as long as it lives. The disc may have
/// changed then.
class ExclusiveHold {
public:
    ExclusiveHold(DiscRecorder& recorder, const QString& clientName);
    ~ExclusiveHold();
    ExclusiveHold(const ExclusiveHold&) = delete;
    ExclusiveHold& operator=(const ExclusiveHold&) = delete;
    ExclusiveHold(ExclusiveHold&&) = delete;
    ExclusiveHold& operator=(ExclusiveHold&&) = delete;

private:
    DiscRecorder& recorder_;
};

/// A recorder of this layer.
/// @param whenEmpty  the code that an empty reference raises
/// Errors: E_INVALIDARG (5) for one of another making.
DiscRecorder& OwnRecorder(const imapi::RecorderRef& recorder, qint32 whenEmpty);

} // namespace velmora::mastering
