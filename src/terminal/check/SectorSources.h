// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "mastering/comparison/RecordingReader.h"
#include "unicode/FileDescriptor.h"

#include <functional>
#include <span>
#include <string>

namespace velmora::terminal {

/// The source of a checked disc's sectors: a drive, or an image file.
class SectorSource {
public:
    SectorSource() = default;
    virtual ~SectorSource() = default;
    SectorSource(const SectorSource&) = delete;
    SectorSource& operator=(const SectorSource&) = delete;
    SectorSource(SectorSource&&) = delete;
    SectorSource& operator=(SectorSource&&) = delete;

    /// Reads whole sectors, counted from the start of the disc.
    /// Errors: runtime::RuntimeError if no reading is possible any more.
    virtual mastering::ReadEnd Read(qint64 firstSector, std::span<std::byte> out) = 0;
    /// The wanted speed of the next reads. Nothing is raised if that isn't possible.
    virtual void SetSpeed(drive::ReadSpeed speed) = 0;
};

/// The disc in a drive.
class DriveSectors final : public SectorSource {
public:
    explicit DriveSectors(mastering::RecordingReader& reader)
        : reader_(reader)
    {
    }

    mastering::ReadEnd Read(qint64 firstSector, std::span<std::byte> out) override
    {
        return reader_.Read(firstSector, out);
    }
    void SetSpeed(drive::ReadSpeed speed) override { reader_.SetSpeed(speed); }

private:
    mastering::RecordingReader& reader_;
};

/// An image file.
class ImageSectors final : public SectorSource {
public:
    /// @param file  open for reading
    ImageSectors(unicode::FileDescriptor file, std::function<bool()> stopRequested)
        : file_(std::move(file))
        , stopRequested_(std::move(stopRequested))
    {
    }

    mastering::ReadEnd Read(qint64 firstSector, std::span<std::byte> out) override;
    void SetSpeed(drive::ReadSpeed) override { } // files have but one

private:
    unicode::FileDescriptor file_;
    std::function<bool()> stopRequested_;
};

} // namespace velmora::terminal
