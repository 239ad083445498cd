// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/DeviceHandle.h"

#include "drive/PublishedCodes.h"
#include "drives/DriveInUse.h"

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <linux/cdrom.h>
#include <scsi/sg.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

runtime::RuntimeError AccessDenied()
{
    return drive::PublishedError(drive::hresult::kAccessDenied,
        u"Accès au graveur refusé : votre compte doit faire partie du groupe « cdrom ». Tapez « "
        u"sudo "
        "adduser $USER cdrom », rouvrez votre session, puis recommencez."_s);
}

runtime::RuntimeError ErrorOfOpen(int error)
{
    switch (error) {
    case EBUSY:
        return drive::PublishedError(drive::hresult::kRecorderLocked);
    case EACCES:
    case EPERM:
        return AccessDenied();
    default:
        return drive::PublishedError(drive::hresult::kDeviceGone);
    }
}

// Does this answer mean that the drive needs time, or fails? Neither holds for what libburn
// recovers from, nor for an empty drive.
bool IsObstacle(const Sense& sense)
{
    constexpr Sense kUntold {sense_key::kNotReady, 0x00, 0x00};
    constexpr Sense kNeedsStart {sense_key::kNotReady, 0x04, 0x02}; // the library starts it
    constexpr Sense kNeedsHand {sense_key::kNotReady, 0x04, 0x03};
    const bool waits = sense.key == sense_key::kNotReady && sense.code == 0x04;
    return sense == kUntold || sense.key == sense_key::kHardwareError
        || (waits && sense != kNeedsStart && sense != kNeedsHand);
}

// Why the drive can't be used at the moment; none if it can.
std::optional<Sense> Obstacle(const DeviceHandle& handle)
{
    std::optional<Sense> sense = handle.Send({0x00, 0, 0, 0, 0, 0});
    if (sense
        && sense->key == sense_key::kUnitAttention) { // a disc was changed, which is reported once
        sense = handle.Send({0x00, 0, 0, 0, 0, 0});
    }
    return sense && IsObstacle(*sense) ? sense : std::nullopt;
}

// The library never releases a drive that doesn't identify itself.
void RequireIdentity(const DeviceHandle& handle)
{
    constexpr std::uint8_t kInquiry = 36;
    if (handle.Ask({0x12, 0, 0, 0, kInquiry, 0}, kInquiry).empty()) {
        throw drive::PublishedError(drive::hresult::kInvalidResponse);
    }
}

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

// This program's handles on a device.
std::vector<int> HandlesOn(const QString& device)
{
    struct stat facts { };
    const std::unique_ptr<DIR, CloseFolder> folder(opendir("/proc/self/fd"));
    std::vector<int> handles;
    if (!folder || stat(QFile::encodeName(device).constData(), &facts) != 0) {
        return handles;
    }
    while (const dirent* entry = readdir(folder.get())) {
        const int handle = std::atoi(entry->d_name);
        struct stat other { };
        const bool isDrive = handle > 2 && fstat(handle, &other) == 0 && S_ISBLK(other.st_mode)
            && other.st_rdev == facts.st_rdev;
        if (isDrive) {
            handles.push_back(handle);
        }
    }
    return handles;
}

// False if it is worth another try.
bool HasAllowedRemoval(const QString& device)
{
    std::unique_ptr<DeviceHandle> handle;
    try {
        handle = std::make_unique<DeviceHandle>(device, DeviceHandle::Sharing::Exclusive);
    } catch (const runtime::RuntimeError&) {
        return true; // it is gone, or in use by another program
    }
    try {
        return !handle->Send({0x1E, 0, 0, 0, 0, 0}); // allow removal
    } catch (const runtime::RuntimeError&) {
        return false;
    }
}

} // namespace

DeviceHandle::DeviceHandle(const QString& device, Sharing sharing)
{
    const int exclusive = sharing == Sharing::Exclusive ? O_EXCL : 0;
    const QByteArray path = QFile::encodeName(device);
    handle_ = open(path.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC | exclusive);
    if (handle_ < 0) {
        throw ErrorOfOpen(errno);
    }
}

DeviceHandle::~DeviceHandle() { close(handle_); }

std::optional<Sense> DeviceHandle::Transfer(
    std::initializer_list<std::uint8_t> command, std::span<std::uint8_t> reply) const
{
    constexpr unsigned kTimeLimit = 60000; // milliseconds; a tray is slow
    std::vector<std::uint8_t> block(command);
    std::array<std::uint8_t, 32> senseData {};
    sg_io_hdr header {};
    header.interface_id = 'S';
    header.dxfer_direction = reply.empty() ? SG_DXFER_NONE : SG_DXFER_FROM_DEV;
    header.cmdp = block.data();
    header.cmd_len = static_cast<unsigned char>(block.size());
    header.dxferp = reply.data();
    header.dxfer_len = static_cast<unsigned>(reply.size());
    header.sbp = senseData.data();
    header.mx_sb_len = static_cast<unsigned char>(senseData.size());
    header.timeout = kTimeLimit;
    if (ioctl(handle_, SG_IO, &header) != 0) {
        throw errno == EPERM ? AccessDenied() : drive::PublishedError(drive::hresult::kDeviceGone);
    }
    constexpr int kNoConnection = 1;
    if (header.host_status != 0) {
        throw drive::PublishedError(header.host_status == kNoConnection
                ? drive::hresult::kDeviceGone
                : drive::hresult::kCommandTimeout);
    }
    if (header.status == 0) {
        return {};
    }
    const std::size_t told = std::min<std::size_t>(header.sb_len_wr, senseData.size());
    const Sense sense = SenseFrom(std::span(senseData).first(told));
    return sense.key == sense_key::kRecovered ? std::nullopt : std::optional(sense);
}

std::optional<Sense> DeviceHandle::Send(std::initializer_list<std::uint8_t> command) const
{
    return Transfer(command, {});
}

std::vector<std::uint8_t> DeviceHandle::Ask(
    std::initializer_list<std::uint8_t> command, std::size_t most) const
{
    std::vector<std::uint8_t> reply(most);
    std::optional<Sense> refusal = Transfer(command, reply);
    if (refusal && refusal->key == sense_key::kUnitAttention) { // reported once
        std::ranges::fill(reply, std::uint8_t {0});
        refusal = Transfer(command, reply);
    }
    if (!refusal) {
        return reply;
    }
    if (refusal->key == sense_key::kIllegalRequest) {
        return {};
    }
    throw RefusedQuestion(*refusal);
}

bool DeviceHandle::TrayIsOpen() const
{
    return ioctl(handle_, CDROM_DRIVE_STATUS, CDSL_CURRENT) == CDS_TRAY_OPEN;
}

std::unique_ptr<DeviceHandle> OpenExclusively(const QString& device, const Patience& patience)
{
    const auto begun = patience.clock.now();
    while (true) {
        try {
            return std::make_unique<DeviceHandle>(device, DeviceHandle::Sharing::Exclusive);
        } catch (const runtime::RuntimeError& failure) {
            const bool inUse
                = failure.Number() == static_cast<qint32>(drive::hresult::kRecorderLocked);
            if (!inUse) {
                throw;
            }
            if (patience.clock.now() - begun >= patience.busy) {
                throw DriveInUse(device);
            }
        }
        patience.clock.sleep(patience.step);
    }
}

void WaitForDrive(const QString& device, const Patience& patience)
{
    const std::unique_ptr<DeviceHandle> handle = OpenExclusively(device, patience);
    RequireIdentity(*handle);
    const auto begun = patience.clock.now();
    while (const std::optional<Sense> obstacle = Obstacle(*handle)) {
        if (patience.clock.now() - begun >= patience.ready) {
            throw RefusedQuestion(*obstacle);
        }
        patience.clock.sleep(patience.step);
    }
}

bool IsMounted(const QString& device, const QString& mountTable)
{
    return MountPointOf(device, mountTable).has_value();
}

void CloseOnExec(const QString& device)
{
    for (const int handle : HandlesOn(device)) {
        fcntl(handle, F_SETFD, FD_CLOEXEC);
    }
}

void CutOff(const QString& device)
{
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (nowhere < 0) {
        return;
    }
    for (const int handle : HandlesOn(device)) {
        dup3(nowhere, handle, O_CLOEXEC);
    }
    close(nowhere);
}

void AllowRemoval(const QString& device)
{
    constexpr int kTries = 10; // a drive first reports what has happened, or recovers from it
    constexpr useconds_t kPause = 200'000;
    for (int i = 0; i < kTries && !HasAllowedRemoval(device); ++i) {
        usleep(kPause);
    }
}

bool IsOpen(const QString& device) { return !HandlesOn(device).empty(); }

} // namespace velmora::drives
