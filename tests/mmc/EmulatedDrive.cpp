// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/EmulatedDrive.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <linux/fs.h>
#include <scsi/scsi.h>
#include <scsi/scsi_ioctl.h>
#include <scsi/sg.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <thread>
#include <utility>

namespace velmora::mmc {

namespace {

const char* Environment(const char* name, const char* otherwise)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : otherwise;
}

std::filesystem::path Beside(std::filesystem::path file, const char* ending)
{
    file += ending;
    return file;
}

std::string Digits(std::span<const std::uint8_t> bytes)
{
    std::string digits;
    std::array<char, 4> text {};
    for (const std::uint8_t byte : bytes) {
        std::snprintf(text.data(), text.size(), "%02X ", unsigned {byte});
        digits += text.data();
    }
    return digits;
}

void FillSense(sg_io_hdr& header, const Outcome& outcome, SenseForm form)
{
    const std::vector<std::uint8_t> bytes = SenseBytes(outcome, form);
    const std::size_t length = std::min<std::size_t>(bytes.size(), header.mx_sb_len);
    std::copy_n(bytes.begin(), length, header.sbp);
    header.sb_len_wr = static_cast<unsigned char>(length);
    header.status = 2; // CHECK CONDITION
    header.masked_status = 1;
    header.driver_status = 8; // sense data is there
}

} // namespace

EmulatedDrive& EmulatedDrive::Instance()
{
    static auto* drive = new EmulatedDrive;
    return *drive;
}

EmulatedDrive::EmulatedDrive()
    : device_(Environment("MMC_DRIVE_DEVICE", "/dev/sr0"))
    , stateFile_(Environment("MMC_DRIVE_STATE", ""))
    , logFile_(Environment("MMC_DRIVE_LOG", ""))
    , haste_(static_cast<unsigned>(std::atoi(Environment("MMC_DRIVE_HASTE", "50"))))
    , plugged_(!stateFile_.empty())
{
}

void EmulatedDrive::Plug(const std::filesystem::path& stateFile)
{
    const std::scoped_lock lock(mutex_);
    stateFile_ = stateFile;
    state_ = LoadState(stateFile_);
    sectors_.Open(Beside(stateFile_, ".sectors"));
    target_.DiscExchanged();
    LearnSize();
    log_.clear();
    target_.Writing().Violations().clear();
    plugged_ = true;
}

void EmulatedDrive::Unplug()
{
    const std::scoped_lock lock(mutex_);
    plugged_ = false;
    sectors_.Close();
}

void EmulatedDrive::Insert(const Disc& disc)
{
    const std::scoped_lock lock(mutex_);
    state_.disc = disc;
    state_.trayOpen = false;
    sectors_.Clear();
    target_.DiscExchanged();
    LearnSize();
    Save();
}

void EmulatedDrive::Change(const std::function<void(DriveState&)>& change)
{
    const std::scoped_lock lock(mutex_);
    change(state_);
    Save();
}

DriveState EmulatedDrive::State()
{
    const std::scoped_lock lock(mutex_);
    return state_;
}

std::vector<std::uint8_t> EmulatedDrive::Sectors(std::int64_t first, std::int64_t count)
{
    const std::scoped_lock lock(mutex_);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(count) * 2048);
    sectors_.Read(first, bytes);
    return bytes;
}

void EmulatedDrive::PutSectors(std::int64_t first, std::vector<std::uint8_t> bytes)
{
    const std::scoped_lock lock(mutex_);
    sectors_.Write(first, bytes);
}

std::vector<std::string> EmulatedDrive::Log()
{
    const std::scoped_lock lock(mutex_);
    return log_;
}

std::vector<std::string> EmulatedDrive::Violations()
{
    const std::scoped_lock lock(mutex_);
    return target_.Writing().Violations();
}

int EmulatedDrive::WriteSpeed()
{
    const std::scoped_lock lock(mutex_);
    return target_.WriteSpeed();
}

int EmulatedDrive::ReadSpeed()
{
    const std::scoped_lock lock(mutex_);
    return target_.ReadSpeed();
}

void EmulatedDrive::EndTask()
{
    const std::scoped_lock lock(mutex_);
    target_.EndTask();
}

bool EmulatedDrive::Locked()
{
    const std::scoped_lock lock(mutex_);
    return target_.Locked();
}

void EmulatedDrive::ForgetLog()
{
    const std::scoped_lock lock(mutex_);
    log_.clear();
    target_.Writing().Violations().clear();
}

void EmulatedDrive::LearnSize() { systemSectors_ = state_.disc.End(); }

void EmulatedDrive::Save() { SaveState(stateFile_, state_); }

bool EmulatedDrive::Answers(const char* path) const
{
    return plugged_ && path != nullptr && device_ == path;
}

bool EmulatedDrive::Owns(int handle) const
{
    return handle >= 0 && static_cast<std::size_t>(handle) < kMostHandles
        && handles_[static_cast<std::size_t>(handle)];
}

int EmulatedDrive::Refused(int flags) const
{
    const Faults& faults = state_.faults;
    if (faults.unplugged) {
        return ENXIO;
    }
    if (faults.denied) {
        return EACCES;
    }
    return faults.mounted && (flags & O_EXCL) != 0 ? EBUSY : 0;
}

int EmulatedDrive::Open(int flags)
{
    const std::scoped_lock lock(mutex_);
    if (openHandles_ == 0) {
        state_ = LoadState(stateFile_);
        sectors_.Open(Beside(stateFile_, ".sectors"));
    }
    if (const int refused = Refused(flags)) {
        errno = refused;
        return -1;
    }
    // The handle is a real one, so that locks and flags work on it as on any.
    const std::string lockFile = Beside(stateFile_, ".lock");
    const auto handle = static_cast<int>(syscall(
        SYS_openat, AT_FDCWD, lockFile.c_str(), O_RDWR | O_CREAT | (flags & O_CLOEXEC), 0644));
    if (handle < 0 || static_cast<std::size_t>(handle) >= kMostHandles) {
        return -1;
    }
    if ((flags & O_EXCL) != 0 && flock(handle, LOCK_EX | LOCK_NB) != 0) {
        syscall(SYS_close, handle);
        errno = EBUSY;
        return -1;
    }
    handles_[static_cast<std::size_t>(handle)] = true;
    ++openHandles_;
    return handle;
}

void EmulatedDrive::Close(int handle)
{
    const std::scoped_lock lock(mutex_);
    handles_[static_cast<std::size_t>(handle)] = false;
    if (--openHandles_ == 0 && plugged_) {
        Save();
    }
}

int EmulatedDrive::Describe(struct stat* facts) const
{
    if (state_.faults.unplugged) {
        errno = ENOENT;
        return -1;
    }
    constexpr unsigned kOpticalMajor = 11;
    *facts = {};
    facts->st_mode = S_IFBLK | 0660;
    facts->st_nlink = 1;
    facts->st_rdev = makedev(kOpticalMajor, 0);
    facts->st_blksize = 4096;
    return 0;
}

int EmulatedDrive::Control(int handle, unsigned long request, void* argument)
{
    switch (request) {
    case SG_IO:
        Transfer(*static_cast<sg_io_hdr*>(argument));
        return 0;
    case SCSI_IOCTL_GET_IDLUN:
        std::memset(argument, 0, 2 * sizeof(std::uint32_t));
        return 0;
    case SCSI_IOCTL_GET_BUS_NUMBER:
        std::memset(argument, 0, sizeof(int));
        return 0;
    case CDROM_DRIVE_STATUS: {
        const std::scoped_lock lock(mutex_);
        return state_.trayOpen             ? CDS_TRAY_OPEN
            : state_.disc.profile == 0     ? CDS_NO_DISC
            : state_.faults.readyAfter > 0 ? CDS_DRIVE_NOT_READY
                                           : CDS_DISC_OK;
    }
    case BLKGETSIZE64: {
        constexpr std::int64_t kSector = 2048;
        const std::scoped_lock lock(mutex_);
        *static_cast<std::uint64_t*>(argument)
            = static_cast<std::uint64_t>(systemSectors_ * kSector);
        return 0;
    }
    default:
        static_cast<void>(handle);
        errno = ENOTTY;
        return -1;
    }
}

void EmulatedDrive::Transfer(sg_io_hdr& header)
{
    const Command command {{header.cmdp, header.cmd_len},
        {static_cast<std::uint8_t*>(header.dxferp), header.dxfer_len}};
    const Outcome outcome = Run(command);
    header.status = 0;
    header.masked_status = 0;
    header.driver_status = 0;
    header.sb_len_wr = 0;
    header.host_status = static_cast<unsigned short>(outcome.hostStatus);
    header.resid = static_cast<int>(header.dxfer_len - outcome.transferred);
    header.duration = 0;
    header.info = 0;
    if (outcome.sense) {
        FillSense(header, outcome, State().faults.senseForm);
    }
    if (outcome.hangMilliseconds > 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(outcome.hangMilliseconds));
    }
}

Outcome EmulatedDrive::Run(const Command& command)
{
    const std::scoped_lock lock(mutex_);
    const bool wasOpen = state_.trayOpen;
    Outcome outcome = target_.Execute(command);
    Note(command, outcome);
    if (wasOpen && !state_.trayOpen) {
        LearnSize();
    }
    if (Target::ChangesDisc(command.block[0])) {
        Save();
    }
    return outcome;
}

void EmulatedDrive::Note(const Command& command, const Outcome& outcome)
{
    std::string line = Digits(command.block);
    std::array<char, 16> text {};
    const bool hasParameters
        = command.block[0] == 0x55 || command.block[0] == 0x04 || command.block[0] == 0x5D;
    if (hasParameters) {
        line += "[ " + Digits(command.data) + "] ";
    }
    if (outcome.sense) {
        const Sense& sense = *outcome.sense;
        std::snprintf(text.data(),
            text.size(),
            "-> %X/%02X/%02X",
            unsigned {sense.key},
            unsigned {sense.code},
            unsigned {sense.qualifier});
        line += text.data();
    } else if (outcome.hostStatus != 0) {
        line += "-> host " + std::to_string(outcome.hostStatus);
    } else {
        line += "-> ok";
    }
    if (!logFile_.empty()) {
        std::ofstream(logFile_, std::ios::app) << line << '\n';
        for (std::string& violation : target_.Writing().Violations()) {
            std::ofstream(logFile_, std::ios::app) << "VIOLATION " << violation << '\n';
        }
        target_.Writing().Violations().clear();
        return;
    }
    log_.push_back(std::move(line));
}

} // namespace velmora::mmc
