// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/DiscQuestions.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "drives/DeviceHandle.h"

#include <QFile>
#include <QtEndian>

#include <libburn/libburn.h>

#include <array>
#include <cstdint>
#include <vector>

namespace velmora::drives {

namespace {

using Bytes = std::vector<std::uint8_t>;

// Each is named after the command that it sends, and returns the first bytes of the answer.

Bytes GetConfiguration(const DeviceHandle& handle)
{
    return handle.Ask({0x46, 0, 0, 0, 0, 0, 0, 0, 8, 0}, 8);
}

Bytes ReadDiscInformation(const DeviceHandle& handle)
{
    return handle.Ask({0x51, 0, 0, 0, 0, 0, 0, 0, 34, 0}, 34);
}

Bytes ReadTrackInformation(const DeviceHandle& handle, std::uint8_t high, std::uint8_t low)
{
    constexpr std::uint8_t kByTrack = 1;
    return handle.Ask({0x52, kByTrack, 0, 0, high, low, 0, 0, 36, 0}, 36);
}

Bytes ReadFullTableOfContents(const DeviceHandle& handle)
{
    constexpr std::uint8_t kTimes = 2; // places on the disc as minutes, seconds and frames
    constexpr std::uint8_t kFull = 2;
    return handle.Ask({0x43, kTimes, kFull, 0, 0, 0, 0, 0, 4, 0}, 4);
}

Bytes ReadFormatCapacities(const DeviceHandle& handle)
{
    return handle.Ask({0x23, 0, 0, 0, 0, 0, 0, 0, 12, 0}, 12);
}

Bytes ReadCapacity(const DeviceHandle& handle)
{
    return handle.Ask({0x25, 0, 0, 0, 0, 0, 0, 0, 0, 0}, 8);
}

QString DeviceOf(burn::burn_drive* drive)
{
    std::array<char, BURN_DRIVE_ADR_LEN> address {};
    burn::burn_drive_d_get_adr(drive, address.data());
    return QFile::decodeName(address.data());
}

} // namespace

DiscQuestions::DiscQuestions(burn::burn_drive* drive, const drive::DiscInfo& disc)
    : device_(DeviceOf(drive))
    , disc_(disc)
{
}

void DiscQuestions::Put(const std::function<void(const DeviceHandle&)>& question) const
{
    const DeviceHandle handle(device_, DeviceHandle::Sharing::Shared);
    try {
        question(handle);
    } catch (const runtime::RuntimeError& failure) {
        const bool isDefect
            = failure.Number() == drive::MapHresult(drive::hresult::kImportReadFailure);
        if (!isDefect || !disc_.erasable) {
            throw;
        }
    }
}

void DiscQuestions::RequireKnown() const
{
    Put([this](const DeviceHandle& handle) {
        GetConfiguration(handle);
        ReadDiscInformation(handle);
        if (drive::FamilyOfProfile(disc_.profile) == drive::DiscFamily::Cd) {
            ReadFullTableOfContents(handle);
        }
    });
}

void DiscQuestions::RequireNextTrackTold() const
{
    Put([](const DeviceHandle& handle) {
        const Bytes disc = ReadDiscInformation(handle);
        if (!disc.empty()) {
            ReadTrackInformation(handle, disc[11], disc[6]); // the last one, which is open
        }
    });
}

void DiscQuestions::RequireFormatsTold() const { Put(ReadFormatCapacities); }

qint64 DiscQuestions::ReadableSectors() const
{
    qint64 sectors = 0;
    Put([&sectors](const DeviceHandle& handle) {
        const Bytes reply = ReadCapacity(handle);
        if (!reply.empty()) { // the last address
            sectors = qFromBigEndian<quint32>(reply.data()) + qint64 {1};
        }
    });
    return sectors;
}

} // namespace velmora::drives
