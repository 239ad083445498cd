// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/Target.h"

#include "tests/mmc/Bytes.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

namespace velmora::mmc {

namespace {

constexpr std::int64_t kSector = 2048;

Outcome Failed(const Sense& sense)
{
    Outcome outcome;
    outcome.sense = sense;
    return outcome;
}

} // namespace

void SectorFile::Open(const std::filesystem::path& file)
{
    Close();
    file_ = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (file_ < 0) {
        throw std::runtime_error("no file for the disc's sectors: " + file.string());
    }
}

void SectorFile::Close()
{
    if (file_ >= 0) {
        ::close(file_);
        file_ = -1;
    }
}

void SectorFile::Write(std::int64_t sector, std::span<const std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(file_, bytes.data(), bytes.size(), sector * kSector);
        if (written <= 0) {
            throw std::runtime_error("the file of the disc's sectors is full");
        }
        bytes = bytes.subspan(static_cast<std::size_t>(written));
        sector += written / kSector;
    }
}

void SectorFile::Read(std::int64_t sector, std::span<std::uint8_t> bytes) const
{
    std::ranges::fill(bytes, std::uint8_t {0});
    if (::pread(file_, bytes.data(), bytes.size(), sector * kSector) < 0) {
        throw std::runtime_error("the file of the disc's sectors can't be read");
    }
}

void SectorFile::Clear()
{
    if (::ftruncate(file_, 0) != 0) {
        throw std::runtime_error("the file of the disc's sectors can't be emptied");
    }
}

void SectorFile::Fill(std::uint8_t byte)
{
    const std::vector<std::uint8_t> sector(kSector, byte);
    const off_t end = ::lseek(file_, 0, SEEK_END);
    for (std::int64_t next = 0; next * kSector < end; ++next) {
        Write(next, sector);
    }
}

Target::Target(DriveState& state, SectorFile& sectors)
    : state_(state)
    , sectors_(sectors)
    , recorder_(state.disc)
{
}

void Target::DiscExchanged()
{
    recorder_.Forget();
    busy_ = {};
    changed_ = true;
}

bool Target::ChangesDisc(std::uint8_t operation)
{
    constexpr std::array kChanging {0x04, 0x1B, 0x35, 0x53, 0x5B, 0x5D, 0xA1};
    return std::ranges::find(kChanging, int {operation}) != kChanging.end();
}

Outcome Target::Execute(const Command& command)
{
    Faults& faults = state_.faults;
    if (faults.unplugged) {
        locked_ = false; // without power
        Outcome gone;
        gone.hostStatus = 1;
        return gone;
    }
    if (command.block[0] == faults.refuses) {
        if (faults.refusalsFillReply) {
            std::ranges::fill(command.data, std::uint8_t {0x55});
        }
        return Failed(faults.refusedSense);
    }
    if (faults.transportHolds > 0) {
        --faults.transportHolds;
    } else if (faults.transportFailures > 0) {
        --faults.transportFailures;
        Outcome lost;
        lost.hostStatus = faults.transportStatus;
        return lost;
    }
    if (const Refusal trouble = Troubles(command.block[0])) {
        return Failed(*trouble);
    }
    return Dispatch(command);
}

// What makes the drive reject any command except those that identify it.
Refusal Target::Troubles(std::uint8_t operation)
{
    constexpr std::array kAlwaysAnswered {0x03, 0x12, 0x46};
    Faults& faults = state_.faults;
    if (std::ranges::find(kAlwaysAnswered, int {operation}) != kAlwaysAnswered.end()) {
        return {};
    }
    if (faults.attentions > 0) {
        --faults.attentions;
        return kDiscChanged;
    }
    constexpr std::uint8_t kPreventRemoval = 0x1E;
    return faults.brokenDown && operation != kPreventRemoval ? Refusal {kTimeoutOnLogicalUnit}
                                                             : Refusal {};
}

Outcome Target::Dispatch(const Command& command)
{
    const auto block = command.block;
    switch (block[0]) {
    case 0x00:
        return TestUnitReady();
    case 0x1B:
        return StartStop(block);
    case 0x1E:
        return PreventRemoval(block);
    case 0x54: // SEND OPC
        return {};
    case 0xB6:
    case 0xBB:
        return SetSpeed(command);
    case 0x55:
        return ModeSelect(command);
    default:
        return DispatchReport(command);
    }
}

Outcome Target::DispatchReport(const Command& command)
{
    const auto block = command.block;
    const Disc none;
    const Disc& disc = HasDisc() ? state_.disc : none;
    switch (block[0]) {
    case 0x03:
        return Send(command, Reply(18), block[4]);
    case 0x12:
        return Send(command, InquiryReply(), Get16(block, 3));
    case 0x46:
        return Send(command,
            ConfigurationReply(disc, Get16(block, 2), (block[1] & 3) == 2),
            Get16(block, 7));
    case 0x5A:
        return Send(
            command, ModeReply(disc, recorder_.Parameters(), block[2] & 0x3F), Get16(block, 7));
    case 0xAC:
        return Send(command,
            PerformanceReply(disc, block[10], (block[1] & 4) != 0, Get16(block, 8)),
            command.data.size());
    default:
        if (!HasDisc()) {
            return Failed(state_.trayOpen ? kTrayOpen : kNoDisc);
        }
        return DispatchDisc(command);
    }
}

Outcome Target::DispatchDisc(const Command& command)
{
    const auto block = command.block;
    const Disc& disc = state_.disc;
    if (busy_.polls > 0 && block[0] != 0x51) {
        return Failed(busy_.sense);
    }
    switch (block[0]) {
    case 0x04:
        return FormatUnit(command);
    case 0x23:
        return Send(command, FormatCapacities(disc), Get16(block, 7));
    case 0x25:
        return Send(command, Capacity(disc), 8);
    case 0x28:
    case 0xA8:
        return Read(command);
    case 0x2A:
    case 0xAA:
        return Write(command);
    case 0x35:
        recorder_.Synchronise();
        BeginBusy((block[1] & 2) != 0 ? state_.faults.syncPolls : 0, kLongWriteInProgress, false);
        return {};
    case 0x43:
        return Send(
            command, TableOfContents(disc, block[2] & 0x0F, (block[1] & 2) != 0), Get16(block, 7));
    case 0x51:
        return Send(command, DiscInformation(disc), Get16(block, 7));
    case 0x52:
        return Send(
            command, TrackInformation(disc, block[1] & 3, GetAddress(block, 2)), Get16(block, 7));
    case 0x53:
        return Refuse(recorder_.Reserve(Get32(block, 5)));
    case 0x5B:
        return Close(block);
    case 0x5C:
        return BufferCapacity(command);
    case 0x5D:
        return Refuse(recorder_.TakeCueSheet(command.data));
    case 0xA1:
        return Erase(recorder_.Blank((block[1] & 7) == 1));
    case 0xAD: // READ DISC STRUCTURE: this drive has none
        return Failed(kInvalidField);
    default:
        return Failed(kUnknownCommand);
    }
}

Outcome Target::Close(std::span<const std::uint8_t> block)
{
    Faults& faults = state_.faults;
    if (faults.busyCloses > 0) {
        --faults.busyCloses;
        return Failed(kLongWriteInProgress);
    }
    BeginBusy((block[1] & 1) != 0 ? faults.closePolls : 0, kLongWriteInProgress, false);
    return Refuse(recorder_.Close(block[2] & 7));
}

Outcome Target::Send(const Command& command, const Reply& reply, std::size_t allocation) const
{
    if (reply.empty()) {
        return Failed(kInvalidField);
    }
    Outcome outcome;
    outcome.transferred = std::min({allocation, reply.size(), command.data.size()});
    std::ranges::copy_n(
        reply.begin(), static_cast<std::ptrdiff_t>(outcome.transferred), command.data.begin());
    return outcome;
}

Outcome Target::Refuse(const Refusal& refusal) const
{
    return refusal ? Failed(*refusal) : Outcome {};
}

void Target::BeginBusy(int polls, Sense sense, bool erases)
{
    busy_ = {polls, polls, sense, erases};
}

Outcome Target::TestUnitReady()
{
    Faults& faults = state_.faults;
    if (!HasDisc()) {
        return Failed(state_.trayOpen ? kTrayOpen : kNoDisc);
    }
    if (faults.readyAfter > 0) {
        --faults.readyAfter;
        return Failed(kBecomingReady);
    }
    if (changed_) {
        changed_ = false;
        return Failed(kDiscChanged);
    }
    if (busy_.polls == 0) {
        return {};
    }
    if (busy_.erases && busy_.total - busy_.polls == faults.unplugsAfterErasePolls) {
        faults.unplugged = true;
    }
    --busy_.polls;
    Outcome outcome = Failed(busy_.sense);
    if (faults.eraseTellsProgress) {
        constexpr std::int64_t kWhole = 0x10000;
        const std::int64_t done = busy_.total - busy_.polls;
        outcome.progress = static_cast<int>(kWhole * done / (std::int64_t {busy_.total} + 1));
    }
    return outcome;
}

Outcome Target::StartStop(std::span<const std::uint8_t> block)
{
    const bool load = (block[4] & 3) == 3;
    const bool eject = (block[4] & 3) == 2;
    if ((load || eject) && state_.faults.trayStuck) {
        return Failed(kInvalidField);
    }
    if (eject && state_.faults.keepsTrayShut > 0) {
        --state_.faults.keepsTrayShut;
        return Failed(state_.faults.trayShutSense);
    }
    if (eject && (locked_ || state_.faults.ejectRefused)) {
        return Failed(kRemovalPrevented);
    }
    if (recorder_.Unsynchronised()) {
        recorder_.Violations().emplace_back("START STOP UNIT before SYNCHRONIZE CACHE");
    }
    if (!load && !eject) {
        Faults& faults = state_.faults;
        const int polls = (block[4] & 1) != 0 ? faults.startPolls : faults.stopPolls;
        faults.readyAfter = std::max(faults.readyAfter, polls);
    } else {
        changed_ = changed_ || state_.trayOpen != eject;
        state_.trayOpen = eject;
    }
    return {};
}

// SET STREAMING with its performance descriptor, and SET CD SPEED.
Outcome Target::SetSpeed(const Command& command)
{
    constexpr std::size_t kDescriptor = 28;
    if (command.block[0] == 0xBB) {
        readSpeed_ = static_cast<int>(Get16(command.block, 2));
        writeSpeed_ = static_cast<int>(Get16(command.block, 4));
    } else if (command.data.size() >= kDescriptor) {
        readSpeed_ = static_cast<int>(Get32(command.data, 12));
        writeSpeed_ = static_cast<int>(Get32(command.data, 20));
    } else {
        return Failed(kInvalidParameter);
    }
    return {};
}

Outcome Target::PreventRemoval(std::span<const std::uint8_t> block)
{
    locked_ = (block[4] & 1) != 0;
    return {};
}

Outcome Target::ModeSelect(const Command& command)
{
    constexpr std::size_t kHeader = 8;
    if (command.data.size() <= kHeader || (command.data[kHeader] & 0x3F) != 0x05) {
        return Failed(kInvalidParameter);
    }
    return Refuse(recorder_.Parameters().Choose(command.data.subspan(kHeader)));
}

Outcome Target::FormatUnit(const Command& command)
{
    constexpr std::size_t kList = 12; // header and one descriptor
    if (command.data.size() < kList) {
        return Failed(kInvalidParameter);
    }
    const auto type = static_cast<std::uint8_t>(command.data[8] >> 2);
    return Erase(recorder_.Format(type, Get32(command.data, 4)));
}

Outcome Target::Erase(const Refusal& refusal)
{
    if (refusal) {
        return Failed(*refusal);
    }
    if (state_.faults.eraseFails) {
        return Failed({4, 0x09, 0x00});
    }
    sectors_.Clear();
    BeginBusy(state_.faults.erasePolls, kFormatting, true);
    return {};
}

Outcome Target::BufferCapacity(const Command& command) const
{
    constexpr std::int64_t kBuffer = 2048L * 1024;
    Reply reply(12);
    Put16(reply, 0, 10);
    Put32(reply, 4, kBuffer);
    Put32(reply, 8, kBuffer / 2);
    return Send(command, reply, Get16(command.block, 7));
}

} // namespace velmora::mmc
