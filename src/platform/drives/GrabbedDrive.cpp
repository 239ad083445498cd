// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/GrabbedDrive.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "drive/Readiness.h"
#include "drive/SectorSize.h"
#include "drives/Messages.h"

#include <QFile>

#include <libburn/libburn.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace velmora::drives {

namespace {

/// Why a read failed: what keeps the drive from reading at all, else the sectors.
qint32 CauseOfFailedRead()
{
    Messages messages;
    messages.Collect();
    const qint32 cause = messages.Cause(Task::Look);
    return drive::IsGettingReady(cause) || cause == drive::hresult::kNoMedia
            || cause == drive::hresult::kDeviceGone || cause == drive::hresult::kCommandTimeout
        ? cause
        : drive::hresult::kImportReadFailure;
}

} // namespace

GrabbedDrive::GrabbedDrive(const QString& device, const Patience& patience)
    : device_(device)
{
    WaitForDrive(device, patience);
    Messages::Discard();
    Messages messages;
    QByteArray path = QFile::encodeName(device);
    constexpr int kDontLoad = 0; // the tray stays as it is
    const int got = burn::burn_drive_scan_and_grab(&infos_, path.data(), kDontLoad);
    messages.Collect();
    if (got != 1) {
        if (infos_ != nullptr) {
            burn::burn_drive_info_free(infos_);
        }
        throw drive::PublishedError(messages.Cause(Task::Look));
    }
    drive_ = infos_[0].drive;
    CloseOnExec(device);
}

GrabbedDrive::~GrabbedDrive()
{
    constexpr int kForceRelease = 1;
    if (!IsOpen(device_)) {
        // The library calls a drive idle as soon as it has lost it. The thread that used it doesn't
        // know yet, and would carry out its last steps on whatever drive is grabbed next.
        constexpr useconds_t kUntilThatThreadEnds = 2'500'000;
        usleep(kUntilThatThreadEnds);
    }
    burn::burn_drive_info_forget(&infos_[0], kForceRelease);
    burn::burn_drive_info_free(infos_);
    Messages::Discard();
}

bool GrabbedDrive::LookAgain()
{
    const bool looked = burn::burn_drive_re_assess(drive_, kNoFlags) == 1;
    Messages::Discard();
    return looked;
}

int ProfileOf(burn::burn_drive* drive)
{
    int profile = 0;
    std::array<char, 80> name {};
    if (burn::burn_disc_get_profile(drive, &profile, name.data()) <= 0
        || profile == drive::profile::kUnknown) {
        return 0;
    }
    return profile;
}

bool LibraryWrites(int profile)
{
    constexpr std::array kNever {drive::profile::kDvdDashRLayerJump,
        drive::profile::kDvdPlusRwDualLayer,
        drive::profile::kBdRRandom};
    return std::ranges::find(kNever, profile) == kNever.end();
}

bool IsOverwritable(int profile)
{
    return LibraryWrites(profile)
        && drive::FactsOfProfile(profile).recording == drive::Recording::Overwritable;
}

bool LibraryErases(int profile)
{
    return LibraryWrites(profile) && drive::IsErasable(drive::MediaTypeOfProfile(profile));
}

void ReadSectors(burn::burn_drive* drive, qint64 first, std::span<std::byte> out)
{
    constexpr std::size_t kStep = 32 * drive::kSectorBytes; // as much as one command reads
    constexpr int kWholeSteps = 4;                          // what fails isn't retried in parts
    if (burn::burn_disc_get_status(drive) == burn::BURN_DISC_EMPTY) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
    Messages::Discard();
    off_t place = first * static_cast<qint64>(drive::kSectorBytes);
    while (!out.empty()) {
        const std::span<std::byte> part = out.first(std::min(kStep, out.size()));
        off_t count = 0;
        const auto wanted = static_cast<off_t>(part.size());
        auto* bytes = reinterpret_cast<char*>(part.data());
        const int read = burn::burn_read_data(drive, place, bytes, wanted, &count, kWholeSteps);
        if (read <= 0 || count != wanted) {
            throw drive::PublishedError(CauseOfFailedRead());
        }
        out = out.subspan(part.size());
        place += wanted;
    }
}

} // namespace velmora::drives
