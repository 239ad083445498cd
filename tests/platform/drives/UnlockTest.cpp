// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/drives/DriveBench.h"

#include <ostream>
#include <string>

namespace velmora::test {

namespace {

constexpr qint64 kFewSectors = 500;

enum class Job : std::uint8_t { Look, Write, Close, Erase, Format, Lock };

struct BrokenJob {
    Job job;
    std::uint16_t profile;
    int commands; ///< no fewer than the drive gets for it
    const char* name;
};

void PrintTo(const BrokenJob& broken, std::ostream* out) { *out << broken.name; }

constexpr BrokenJob kBrokenJobs[] {
    {Job::Look, 0x1B, 50, "Look"},
    {Job::Write, 0x43, 100, "Write"},
    {Job::Close, 0x1B, 120, "WriteAndClose"},
    {Job::Erase, 0x0A, 90, "Erase"},
    {Job::Format, 0x43, 90, "Format"},
    {Job::Lock, 0x41, 60, "Lock"},
};

std::string NameOfBroken(const testing::TestParamInfo<BrokenJob>& info) { return info.param.name; }

} // namespace

/// Commands that are lost: for some the library believes that the drive is gone, and sends it
/// nothing more.
class UnlockTest : public DriveBench, public testing::WithParamInterface<BrokenJob> {
protected:
    qint32 ErrorOfJob()
    {
        drive::WriteOrder order = OrderOf(kFewSectors);
        switch (GetParam().job) {
        case Job::Look:
            return ErrorNumberOf([this] { drive->Examine(); });
        case Job::Write:
            return ErrorOfWrite(order);
        case Job::Close:
            order.closeDisc = true;
            return ErrorOfWrite(order);
        case Job::Erase:
        case Job::Format:
            return ErrorOfErase(true);
        case Job::Lock:
            return ErrorNumberOf([this] {
                drive->Lock(false);
                drive->Examine();
            });
        }
        return 0;
    }

    void ExpectFree(int lost, int status)
    {
        EXPECT_FALSE(emulated.Locked()) << "command " << lost << ", status " << status;
        EXPECT_EQ(emulated.OpenHandles(), 0) << "command " << lost << ", status " << status;
    }
};

INSTANTIATE_TEST_SUITE_P(, UnlockTest, testing::ValuesIn(kBrokenJobs), NameOfBroken);

TEST_P(UnlockTest, WhicheverCommandIsLostTheTrayCanBeOpenedByHand)
{
    constexpr int kStatuses = 14; // of the host adapter, from "no connection" on
    constexpr int kStep = 7;      // this many commands come repeatedly
    for (int lost = 0; lost < GetParam().commands; lost += kStep) {
        const int status = 1 + lost % kStatuses;
        Insert(GetParam().profile);
        Fault([&](mmc::Faults& faults) {
            faults = {};
            faults.transportHolds = lost;
            faults.transportFailures = 1;
            faults.transportStatus = status;
        });

        ErrorOfJob();

        ErrorNumberOf([this] { drive->Unlock(); });
        ExpectFree(lost, status);
        emulated.ForgetLog(); // what the library does after a lost command may be wrong
    }
}

TEST_P(UnlockTest, ADriveThatIsLostForAWhileIsLetGoOf)
{
    for (const int status : {1, 3, 7, 8}) {
        Insert(GetParam().profile);
        Fault([&](mmc::Faults& faults) {
            faults = {};
            faults.transportHolds = GetParam().commands / 2;
            faults.transportFailures = 5;
            faults.transportStatus = status;
        });

        ErrorOfJob();

        Fault([](mmc::Faults& faults) { faults.transportFailures = 0; });
        ErrorNumberOf([this] { drive->Unlock(); });
        ExpectFree(GetParam().commands / 2, status);
        emulated.ForgetLog();
    }
}

} // namespace velmora::test
