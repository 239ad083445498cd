// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/WriteWitness.h"

#include "drive/PublishedCodes.h"

#include <algorithm>
#include <utility>

namespace velmora::terminal {

namespace {

class WitnessedDrive final : public drive::Drive {
public:
    WitnessedDrive(drive::DriveRef drive, WriteWitness& witness)
        : drive_(std::move(drive))
        , witness_(witness)
    {
    }

    drive::DriveFacts Identify() override { return drive_->Identify(); }
    drive::DiscInfo Examine() override { return witness_.Examine(*drive_); }
    void Eject() override { drive_->Eject(); }
    void CloseTray() override { drive_->CloseTray(); }
    void Lock(bool force) override { drive_->Lock(force); }
    void Unlock() override { drive_->Unlock(); }
    void Read(qint64 firstSector, std::span<std::byte> out) override
    {
        drive_->Read(firstSector, out);
    }
    void SetReadSpeed(drive::ReadSpeed speed) override { drive_->SetReadSpeed(speed); }
    void Write(const drive::WriteOrder& order, const drive::WriteReport& report) override
    {
        witness_.Write(*drive_, order, report);
    }
    void Erase(bool full, const drive::EraseReport& report) override
    {
        witness_.Erase(*drive_, full, report);
    }

private:
    drive::DriveRef drive_;
    WriteWitness& witness_;
};

class WitnessedSource final : public drive::DriveSource {
public:
    WitnessedSource(std::shared_ptr<drive::DriveSource> source, WriteWitness& witness)
        : source_(std::move(source))
        , witness_(witness)
    {
    }

    QStringList Ids() override { return source_->Ids(); }
    drive::DriveRef Open(const QString& id) override
    {
        drive::DriveRef drive = source_->Open(id);
        return drive ? std::make_shared<WitnessedDrive>(std::move(drive), witness_) : nullptr;
    }

private:
    std::shared_ptr<drive::DriveSource> source_;
    WriteWitness& witness_;
};

} // namespace

void WriteWitness::Write(
    drive::Drive& drive, const drive::WriteOrder& order, const drive::WriteReport& report)
{
    recording_ = std::make_unique<WitnessedRecording>();
    recording_->sectors = order.sectors;
    recording_->disc = look_.value_or(drive::DiscInfo {});
    drive.Write(order,
        [this, &report](const drive::WriteProgress& progress) { return Hear(progress, report); });
}

void WriteWitness::HearDigest(const QByteArray& sha256)
{
    if (recording_) {
        recording_->sha256 = sha256;
    }
}

bool WriteWitness::Hear(const drive::WriteProgress& progress, const drive::WriteReport& report)
{
    recording_->writtenSectors
        = std::max(recording_->writtenSectors, progress.lastWrittenSector - progress.startSector);
    if (listener_) {
        listener_(progress);
    }
    return !report || report(progress);
}

drive::DiscInfo WriteWitness::Examine(drive::Drive& drive)
{
    look_.reset();
    look_ = drive.Examine();
    return *look_;
}

void WriteWitness::Erase(drive::Drive& drive, bool full, const drive::EraseReport& report)
{
    if (isEraseAllowed_ && !isEraseAllowed_()) {
        throw drive::PublishedError(drive::hresult::kCancelled);
    }
    drive.Erase(full, report);
}

mastering::DriveSources Witnessed(const mastering::DriveSources& sources, WriteWitness& witness)
{
    mastering::DriveSources watched;
    watched.reserve(sources.size());
    for (const auto& source : sources) {
        watched.push_back(std::make_shared<WitnessedSource>(source, witness));
    }
    return watched;
}

} // namespace velmora::terminal
