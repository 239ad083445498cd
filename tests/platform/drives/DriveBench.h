// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/PublishedCodes.h"
#include "drives/BurnDrive.h"
#include "runtime/Clock.h"
#include "tests/mmc/EmulatedDrive.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeClock.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// The number under which a published code is raised.
inline qint32 Number(qint32 published) { return drive::MapHresult(published); }

/// Sectors that differ from each other, and from those of another seed.
inline void FillSectors(std::span<std::byte> out, qint64 first, quint64 seed)
{
    constexpr std::size_t kWord = sizeof(quint64);
    for (std::size_t at = 0; at + kWord <= out.size(); at += kWord) {
        const quint64 word
            = (static_cast<quint64>(first) * 2048 + at + 1) * 0x9E3779B97F4A7C15 ^ seed;
        std::memcpy(out.data() + at, &word, kWord);
    }
}

inline std::vector<std::uint8_t> SectorsOf(qint64 count, quint64 seed)
{
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(count) * 2048);
    FillSectors(std::as_writable_bytes(std::span(bytes)), 0, seed);
    return bytes;
}

/// A recording of sectors by FillSectors.
inline drive::WriteOrder OrderOf(qint64 sectors, quint64 seed = 1)
{
    drive::WriteOrder order;
    order.sectors = sectors;
    order.source = [seed, next = qint64 {0}](std::span<std::byte> out) mutable {
        FillSectors(out, next, seed);
        next += static_cast<qint64>(out.size() / 2048);
    };
    return order;
}

/// 100 ms is promised on an idle machine; one that is busy with other tests gets far more. The
/// hangs in tests last longer than that.
inline constexpr std::chrono::milliseconds kLongestGap {1000};

/// Keeps the time between two pumps.
class TimedPump final : public runtime::EventPump {
public:
    void Pump() override
    {
        const auto now = std::chrono::steady_clock::now();
        longestGap = std::max(longestGap, now - last_);
        last_ = now;
        ++pumps;
        pumps.notify_all();
        if (onPump) onPump();
    }
    /// Forgets everything so far.
    void Begin()
    {
        pumps = 0;
        longestGap = {};
        last_ = std::chrono::steady_clock::now();
    }
    /// Waits on another thread until there was a pump.
    void Await() const { pumps.wait(pumps); }

    std::atomic<int> pumps = 0;
    std::chrono::steady_clock::duration longestGap {};
    std::function<void()> onPump;

private:
    std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

/// A drive's waits without the real clock: each ends with the next pump, and takes exactly the
/// requested time on a clock of its own, however busy the machine is.
class PumpedWaits {
public:
    explicit PumpedWaits(const TimedPump& pump)
        : pump_(pump)
    {
    }

    drives::WaitClock Clock()
    {
        return {[this] { return now_; },
            [this](std::chrono::milliseconds time) {
                pump_.Await();
                now_ += time;
            }};
    }

private:
    const TimedPump& pump_;
    std::chrono::steady_clock::time_point now_; // touched on the library's thread only
};

class FakeUnmounter final : public drive::Unmounter {
public:
    bool Unmount(const QString& device) override
    {
        asked.append(device);
        if (onUnmount) onUnmount();
        return succeeds;
    }

    QStringList asked;
    bool succeeds = true;
    std::function<void()> onUnmount;
};

/// The real library with the emulated drive.
class DriveBench : public testing::Test {
protected:
    DriveBench()
    {
        emulated.Plug(folder / "state");
        std::ofstream(folder / "mounts").close();
        context.unmounter = &unmounter;
        context.mountTable = QString::fromStdString(folder / "mounts");
        drive = NewDrive();
    }
    ~DriveBench() override { emulated.Unplug(); }

    void TearDown() override
    {
        drive.reset();
        EXPECT_EQ(emulated.OpenHandles(), 0) << "the drive is kept";
        EXPECT_FALSE(emulated.Locked()) << "the tray can't be opened by hand";
        EXPECT_EQ(emulated.Violations(), expectedViolations);
        if (HasFailure()) {
            for (const std::string& line : emulated.Log()) {
                std::cerr << line << '\n';
            }
        }
    }

    std::shared_ptr<drives::BurnDrive> NewDrive()
    {
        return std::make_shared<drives::BurnDrive>(
            u"drive"_s, u"/dev/sr0"_s, std::make_shared<drives::LibraryThread>(), context);
    }

    void Insert(std::uint16_t profile, std::int64_t capacity = 0)
    {
        emulated.Insert(mmc::NewDisc(profile, capacity));
    }
    void Fault(const std::function<void(mmc::Faults&)>& set)
    {
        emulated.Change([&set](mmc::DriveState& state) { set(state.faults); });
    }
    mmc::Disc Disc() { return emulated.State().disc; }

    /// Writes and records the progress.
    void Write(const drive::WriteOrder& order)
    {
        drive->Write(order, [this](const drive::WriteProgress& progress) {
            reports.push_back(progress);
            return !onReport || onReport(progress);
        });
    }
    qint32 ErrorOfWrite(const drive::WriteOrder& order)
    {
        return ErrorNumberOf([this, &order] { Write(order); });
    }
    qint32 ErrorOfErase(bool full)
    {
        return ErrorNumberOf([this, full] { drive->Erase(full, {}); });
    }

    /// Steps of the write, each once, as in "0 2 3 4 5 6".
    std::string Steps() const
    {
        std::string steps;
        std::string last;
        for (const drive::WriteProgress& report : reports) {
            const std::string step = std::to_string(static_cast<int>(report.action));
            if (step != last) steps += (steps.empty() ? "" : " ") + step;
            last = step;
        }
        return steps;
    }

    TemporaryFolder folder;
    mmc::EmulatedDrive& emulated = mmc::EmulatedDrive::Instance();
    TimedPump pump;
    runtime::SystemClock clock {pump};
    PumpedWaits waits {pump};
    FakeUnmounter unmounter;
    drives::BurnDriveContext context {pump,
        clock,
        nullptr,
        {.busy = std::chrono::milliseconds(60),
            .ready = std::chrono::milliseconds(500),
            .look = std::chrono::milliseconds(100),
            .step = std::chrono::milliseconds(10),
            .clock = waits.Clock()},
        {}};
    std::shared_ptr<drives::BurnDrive> drive;
    std::vector<drive::WriteProgress> reports;
    std::function<bool(const drive::WriteProgress&)> onReport;
    std::vector<std::string> expectedViolations; // of the host, by the emulated drive
};

} // namespace velmora::test
