// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscRecorder2.h"
#include "mastering/base/MasteringContext.h"

#include <memory>
#include <optional>

namespace velmora::mastering {

/// The MsftDiscRecorder2 over a drive.
class DiscRecorder final : public imapi::IDiscRecorder2 {
public:
    explicit DiscRecorder(std::shared_ptr<MasteringContext> context);
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
    drive::BoundDrive& Drive() override;

private:
    void RequireDrive() const;
    const drive::DriveFacts& Facts() const;
    void DropLock();

    std::shared_ptr<MasteringContext> context_;
    std::optional<drive::BoundDrive> drive_; // none: unbound
    int locks_ = 0;
};

/// Holds a recorder exclusively, its disc unmounted, for its lifetime. Afterwards the disc may have
/// changed.
class ExclusiveHold {
public:
    ExclusiveHold(imapi::IDiscRecorder2& recorder, const QString& clientName);
    ~ExclusiveHold();
    ExclusiveHold(const ExclusiveHold&) = delete;
    ExclusiveHold& operator=(const ExclusiveHold&) = delete;
    ExclusiveHold(ExclusiveHold&&) = delete;
    ExclusiveHold& operator=(ExclusiveHold&&) = delete;

private:
    imapi::IDiscRecorder2& recorder_;
};

/// The recorder of a reference that must not be empty.
/// @param whenEmpty  the code that an empty one raises
imapi::IDiscRecorder2& Given(const imapi::RecorderRef& recorder, qint32 whenEmpty);

} // namespace velmora::mastering
