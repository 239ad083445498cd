// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "drive/PublishedCodes.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace velmora::test {

/// A drive that answers as the test has planned and records every call.
class FakeDrive final : public drive::Drive {
public:
    explicit FakeDrive(QString id)
    {
        facts.id = std::move(id);
        facts.profiles = {43, 27, 26, 18, 17, 10, 9, 8};
    }

    drive::DriveFacts Identify() override
    {
        Hear("Identify");
        return facts;
    }
    drive::DiscInfo Examine() override
    {
        Hear("Examine");
        return disc;
    }
    void Eject() override { Hear("Eject"); }
    void CloseTray() override { Hear("CloseTray"); }
    void Lock(bool force) override { Hear(force ? "Lock(force)" : "Lock"); }
    void Unlock() override { Hear("Unlock"); }

    void Read(qint64 firstSector, std::span<std::byte> out) override
    {
        Hear("Read " + std::to_string(firstSector));
        const auto hurt = unreadable.lower_bound(firstSector);
        if (hurt != unreadable.end()
            && *hurt < firstSector + static_cast<qint64>(out.size() / 2048)) {
            throw drive::PublishedError(drive::hresult::kImportReadFailure);
        }
        if (onRead) onRead(static_cast<qint64>(out.size() / 2048));
        std::ranges::fill(out, std::byte {0});
        GiveBack(firstSector, out);
        const auto found = sectors.find(firstSector);
        if (found != sectors.end()) {
            std::ranges::copy(found->second, out.begin());
        }
    }

    void SetReadSpeed(drive::ReadSpeed speed) override
    {
        Hear(
            speed == drive::ReadSpeed::Slowest ? "SetReadSpeed(slowest)" : "SetReadSpeed(fastest)");
    }

    void Write(const drive::WriteOrder& order, const drive::WriteReport& report) override
    {
        lastOrder = order;
        Hear("Write");
        written.clear();
        std::vector<std::byte> sector(2048);
        for (qint64 done = 0; done < order.sectors; ++done) {
            order.source(sector);
            written.insert(written.end(), sector.begin(), sector.end());
        }
        for (const drive::WriteProgress& progress : reports) {
            if (!report(progress) && progress.action < drive::WriteAction::Finalization) {
                throw drive::PublishedError(drive::hresult::kCancelled);
            }
            if (progress.action == drive::WriteAction::WritingData) {
                firstWritten = progress.startSector;
            }
        }
    }

    void Erase(bool full, const drive::EraseReport& report) override
    {
        Hear(full ? "Erase(full)" : "Erase");
        for (const auto& [elapsed, estimated] : eraseReports) {
            if (!report(elapsed, estimated)) {
                throw drive::PublishedError(drive::hresult::kCancelled);
            }
        }
        if (!erasesNothing) {
            disc.state = drive::DiscState::Blank;
            disc.heuristicallyBlank = true;
        }
    }

    /// The next calls of that name raise these codes, one each; 0 lets a call succeed.
    void Fail(const std::string& call, std::initializer_list<qint32> codes)
    {
        for (const qint32 code : codes) {
            failures_[call].push_back(code);
        }
    }

    /// All calls since the last time, each in brackets.
    std::string Calls()
    {
        std::string all;
        for (const std::string& call : std::exchange(calls_, {})) {
            all += "[" + call + "]";
        }
        return all;
    }

    int Count(const std::string& call) const
    {
        return static_cast<int>(std::ranges::count(calls_, call));
    }

    drive::DriveFacts facts;
    drive::DiscInfo disc;
    std::map<qint64, std::vector<std::byte>> sectors;
    std::set<qint64> unreadable; ///< sectors
    std::vector<drive::WriteProgress> reports;
    std::vector<std::pair<qint32, qint32>> eraseReports;
    bool erasesNothing = false; ///< although it answers correctly
    drive::WriteOrder lastOrder;
    std::vector<std::byte> written;     ///< by the last write...
    qint64 firstWritten = 0;            ///< ...from this sector on; a read gives it back
    std::function<void()> onCall;       ///< done inside every call
    std::function<void(qint64)> onRead; ///< done inside every read, with its sectors

private:
    void GiveBack(qint64 firstSector, std::span<std::byte> out) const
    {
        const auto have = static_cast<qint64>(written.size());
        const qint64 begin = std::clamp<qint64>((firstSector - firstWritten) * 2048, 0, have);
        const qint64 count = std::min(have - begin, static_cast<qint64>(out.size()));
        if (firstSector >= firstWritten) {
            std::copy_n(written.begin() + begin, count, out.begin());
        }
    }

    void Hear(const std::string& call)
    {
        calls_.push_back(call);
        if (onCall) onCall();
        std::deque<qint32>& waiting = failures_[call];
        if (waiting.empty()) return;
        const qint32 code = waiting.front();
        waiting.pop_front();
        if (code != 0) throw drive::PublishedError(code);
    }

    std::vector<std::string> calls_;
    std::map<std::string, std::deque<qint32>> failures_;
};

/// Drives that a test has plugged in.
class FakeDriveSource final : public drive::DriveSource {
public:
    std::shared_ptr<FakeDrive> Plug(const QString& id)
    {
        drives.push_back(std::make_shared<FakeDrive>(id));
        return drives.back();
    }

    QStringList Ids() override
    {
        QStringList ids;
        for (const auto& drive : drives)
            ids += drive->facts.id;
        return ids;
    }
    drive::DriveRef Open(const QString& id) override
    {
        const auto found = std::ranges::find_if(
            drives, [&id](const auto& drive) { return drive->facts.id == id; });
        return found == drives.end() ? nullptr : *found;
    }

    std::vector<std::shared_ptr<FakeDrive>> drives;
};

/// A disc of a profile, of 359,847 sectors (a CD of 80 minutes), as a drive reports it.
inline drive::DiscInfo DiscOf(qint32 profile, drive::DiscState state)
{
    constexpr qint64 kSectors = 359'847;
    drive::DiscInfo disc;
    disc.profile = profile;
    disc.state = state;
    disc.totalSectors = kSectors;
    disc.freeSectors = state == drive::DiscState::Closed ? 0 : kSectors;
    disc.heuristicallyBlank = state == drive::DiscState::Blank;
    disc.canStayOpen = true;
    disc.writeSpeeds = {3600, 2400, 1200};
    return disc;
}

/// The first sectors of a recording with an ISO 9660 file system: the primary volume descriptor.
inline std::vector<std::byte> PrimaryDescriptor(quint32 volumeSectors)
{
    std::vector<std::byte> sector(2048);
    std::memcpy(sector.data(),
        "\x01"
        "CD001",
        6);
    for (std::size_t i = 0; i < 4; ++i) {
        sector[80 + i] = static_cast<std::byte>(volumeSectors >> (8 * i));
    }
    return sector;
}

/// A descriptor of UDF: a valid tag of that number, then 32-bit numbers at their places.
inline std::vector<std::byte> UdfDescriptor(
    quint8 tag, std::initializer_list<std::pair<std::size_t, quint32>> numbers)
{
    std::vector<std::byte> sector(2048);
    sector[0] = static_cast<std::byte>(tag);
    sector[4] = static_cast<std::byte>(tag);
    for (const auto& [place, number] : numbers) {
        for (std::size_t i = 0; i < 4; ++i) {
            sector[place + i] = static_cast<std::byte>(number >> (8 * i));
        }
    }
    return sector;
}

} // namespace velmora::test
