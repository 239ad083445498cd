// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/DriveSpeeds.h"

#include "drive/DiscKinds.h"
#include "drive/SectorSize.h"
#include "drives/GrabbedDrive.h"
#include "drives/Messages.h"

#include <libburn/libburn.h>

#include <algorithm>

namespace velmora::drives {

namespace {

// The library tells where a speed comes from: the first list is made for the disc, the second for
// the drive.
constexpr int kFromPerformance = 2;
constexpr int kFromModePage = 1;

// Of a CD, speeds count all bytes of a sector.
int CountedBytesOfSector(int profile)
{
    constexpr int kAllOfCdSector = 2352;
    const bool cd = drive::FamilyOfProfile(profile) == drive::DiscFamily::Cd;
    return cd ? kAllOfCdSector : static_cast<int>(drive::kSectorBytes);
}

quint32 SectorsOf(int kilobytes, int profile)
{
    return static_cast<quint32>(
        static_cast<qint64>(kilobytes) * 1000 / CountedBytesOfSector(profile));
}

/// 1x, in 1000 bytes a second, rounded up; a CD's for an unknown disc.
int SingleSpeedInKilobytes(int profile)
{
    constexpr int kOfCd = 177;
    const auto sectors = static_cast<int>(drive::SingleSpeedOf(drive::MediaTypeOfProfile(profile)));
    return std::max(kOfCd, (sectors * CountedBytesOfSector(profile) + 999) / 1000);
}

std::vector<WriteSpeed> Speeds(const burn::burn_speed_descriptor* first, int source, int profile)
{
    std::vector<WriteSpeed> speeds;
    for (const auto* entry = first; entry != nullptr; entry = entry->next) {
        if (entry->source == source && entry->write_speed > 0) {
            speeds.push_back({entry->write_speed, SectorsOf(entry->write_speed, profile)});
        }
    }
    std::ranges::sort(speeds, std::ranges::greater {}, &WriteSpeed::kilobytes);
    const auto same = [](const WriteSpeed& left, const WriteSpeed& right) {
        return left.sectors == right.sectors;
    };
    speeds.erase(std::unique(speeds.begin(), speeds.end(), same), speeds.end());
    return speeds;
}

} // namespace

std::vector<WriteSpeed> WriteSpeedsOf(burn::burn_drive* drive)
{
    burn::burn_speed_descriptor* list = nullptr;
    if (burn::burn_drive_get_speedlist(drive, &list) <= 0) {
        return {};
    }
    const int profile = ProfileOf(drive);
    std::vector<WriteSpeed> speeds = Speeds(list, kFromPerformance, profile);
    if (speeds.empty()) {
        speeds = Speeds(list, kFromModePage, profile);
    }
    burn::burn_drive_free_speedlist(&list);
    return speeds;
}

QList<quint32> SpeedsIn(const std::vector<WriteSpeed>& speeds)
{
    QList<quint32> sectors;
    for (const WriteSpeed& speed : speeds) {
        sectors.append(speed.sectors);
    }
    return sectors;
}

int KilobytesNotAbove(const std::vector<WriteSpeed>& speeds, quint32 wish)
{
    if (wish == drive::kFastestSpeed || speeds.empty()) {
        return 0;
    }
    const auto found = std::ranges::find_if(
        speeds, [wish](const WriteSpeed& speed) { return speed.sectors <= wish; });
    return found != speeds.end() ? found->kilobytes : speeds.back().kilobytes;
}

void AskReadSpeed(burn::burn_drive* drive, drive::ReadSpeed speed)
{
    // The library takes both speeds together; if one is left to it, it replaces both by its own.
    constexpr int kMost = 0x10000000; // 1000 bytes a second
    const int reads
        = speed == drive::ReadSpeed::Slowest ? SingleSpeedInKilobytes(ProfileOf(drive)) : kMost;
    burn::burn_drive_set_speed(drive, reads, kMost);
    Messages::Discard();
}

} // namespace velmora::drives
