// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/WriteWitness.h"

#include "imapi/ImapiErrors.h"

#include <QScopedValueRollback>

#include <utility>

namespace velmora::terminal {

namespace {

class WitnessedDrive final : public imapi::Drive {
public:
    WitnessedDrive(imapi::DriveRef drive, WriteWitness& witness)
        : drive_(std::move(drive))
        , witness_(witness)
    {
    }

    imapi::DriveFacts Identify() override { return drive_->Identify(); }
    imapi::DiscInfo Examine() override { return drive_->Examine(); }
    void Eject() override { drive_->Eject(); }
    void CloseTray() override { drive_->CloseTray(); }
    void Lock(bool force) override { drive_->Lock(force); }
    void Unlock() override { drive_->Unlock(); }
    void Read(qint64 firstSector, std::span<std::byte> out) override
    {
        drive_->Read(firstSector, out);
    }
    void Write(const imapi::WriteOrder& order, const imapi::WriteReport& report) override
    {
        witness_.Write(drive_, order, report);
    }
    void Erase(bool full, const imapi::EraseReport& report) override
    {
        witness_.Erase(*drive_, full, report);
    }

private:
    imapi::DriveRef drive_;
    WriteWitness& witness_;
};

class WitnessedSource final : public imapi::DriveSource {
public:
    WitnessedSource(std::shared_ptr<imapi::DriveSource> source, WriteWitness& witness)
        : source_(std::move(source))
        , witness_(witness)
    {
    }

    QStringList Ids() override { return source_->Ids(); }
    imapi::DriveRef Open(const QString& id) override
    {
        imapi::DriveRef drive = source_->Open(id);
        return drive ? std::make_shared<WitnessedDrive>(std::move(drive), witness_) : nullptr;
    }

private:
    std::shared_ptr<imapi::DriveSource> source_;
    WriteWitness& witness_;
};

} // namespace

void WriteWitness::Write(
    const imapi::DriveRef& drive, const imapi::WriteOrder& order, const imapi::WriteReport& report)
{
    recording_ = std::make_unique<Recording>();
    recording_->drive = drive;
    recording_->sectors = order.sectors;
    imapi::WriteOrder watched = order;
    watched.source = [this, &order](std::span<std::byte> out) {
        order.source(out);
        recording_->digests.Add(out);
    };
    drive->Write(watched,
        [this, &report](const imapi::WriteProgress& progress) { return Hear(progress, report); });
    recording_->isWritten = true;
}

bool WriteWitness::Hear(const imapi::WriteProgress& progress, const imapi::WriteReport& report)
{
    if (progress.action == imapi::WriteAction::WritingData) {
        recording_->firstSector = progress.startSector;
    }
    if (listener_) {
        listener_(progress);
    }
    return !report || report(progress);
}

void WriteWitness::Erase(imapi::Drive& drive, bool full, const imapi::EraseReport& report)
{
    hasErased_ = false;
    eraseFailure_.reset();
    const QScopedValueRollback erasing(isErasing_, true);
    try {
        if (isEraseAllowed_ && !isEraseAllowed_()) {
            throw imapi::PublishedError(imapi::hresult::kCancelled);
        }
        drive.Erase(full, report);
        hasErased_ = true;
    } catch (const runtime::RuntimeError& failure) {
        eraseFailure_ = failure;
        throw;
    }
}

imapi::DriveSources Witnessed(const imapi::DriveSources& sources, WriteWitness& witness)
{
    imapi::DriveSources watched;
    watched.reserve(sources.size());
    for (const auto& source : sources) {
        watched.push_back(std::make_shared<WitnessedSource>(source, witness));
    }
    return watched;
}

} // namespace velmora::terminal
