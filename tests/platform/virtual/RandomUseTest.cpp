// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

#include <algorithm>
#include <random>
#include <set>

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using drive::DiscState;
using velmora::test::ErrorNumberOf;

namespace {

struct Recorded {
    qint64 first = 0;
    qint64 sectors = 0;
    quint32 seed = 0;
};

const std::set<qint32>& PublishedNumbers()
{
    static const std::set<qint32> kNumbers = [] {
        std::set<qint32> numbers;
        for (const qint32 published : {drive::hresult::kFail,
                 drive::hresult::kDeviceGone,
                 drive::hresult::kCancelled,
                 drive::hresult::kNoMedia,
                 drive::hresult::kUpsideDown,
                 drive::hresult::kBecomingReady,
                 drive::hresult::kWriteProtected,
                 drive::hresult::kLossOfStreaming,
                 drive::hresult::kWriteError,
                 drive::hresult::kInvalidMediaState,
                 drive::hresult::kStreamTooLarge,
                 drive::hresult::kMediaNotSupported,
                 drive::hresult::kNotErasable,
                 drive::hresult::kEraseRefused,
                 drive::hresult::kEraseMediaNotSupported,
                 drive::hresult::kImportReadFailure}) {
            numbers.insert(Seen(published));
        }
        return numbers;
    }();
    return kNumbers;
}

} // namespace

/// Puts the test's folder in memory if possible: on a disk, thousands of small temporary files cost
/// more than everything else.
struct MemoryPlace {
    MemoryPlace()
    {
        if (std::filesystem::is_directory("/dev/shm")) {
            setenv("TMPDIR", "/dev/shm", 0);
        }
    }
};

/// Uses a recorder at random, and keeps a model of what must be on the disc.
class RandomUseTest : private MemoryPlace, public VirtualBench {
protected:
    qint64 Pick(qint64 least, qint64 most)
    {
        return std::uniform_int_distribution<qint64>(least, most)(random);
    }
    bool Chance(int percent) { return Pick(1, 100) <= percent; }

    /// Does something; a failure must have a published number.
    template <class Action> bool Try(const char* what, Action&& action)
    {
        const qint32 number = ErrorNumberOf(std::forward<Action>(action));
        EXPECT_TRUE(number == 0 || PublishedNumbers().contains(number))
            << what << " raised " << number;
        ++(number == 0 ? successes : failures);
        return number == 0;
    }

    void PutDiscIn()
    {
        const auto media = AllMedia();
        const auto preset = static_cast<DiscPreset>(Pick(0, 9) < 7 ? 0 : Pick(1, 3));
        const DiscOrder order {.medium
            = &media[static_cast<std::size_t>(Pick(0, static_cast<qint64>(media.size()) - 1))],
            .preset = preset,
            .writeProtected = Chance(4),
            .upsideDown = Chance(4),
            .secondsToReady = Chance(10) ? 5 : 0};
        Try("insert", [&] { recorders.Insert(u"A"_s, order, clock); }); // stuck: the disc is in it
        book.clear();
    }

    void WriteSomething()
    {
        const drive::DiscInfo before = Look();
        const Recorded recording {
            .first = before.nextWritable, .sectors = Pick(1, 60), .seed = ++lastSeed};
        drive::WriteOrder order = Order(recording.sectors, recording.seed);
        order.closeDisc = Chance(10);
        const auto stopAt = static_cast<drive::WriteAction>(Chance(10) ? Pick(0, 5) : 100);
        const bool isOverwritten = before.state == DiscState::Overwritable;
        bool isBegun = false;
        const bool isDone = Try("write", [&] {
            drive.Write(order, [&](const drive::WriteProgress& progress) {
                isBegun |= progress.action == drive::WriteAction::WritingData;
                return progress.action != stopAt;
            });
        });
        if (isOverwritten && isBegun) {
            book.clear(); // whatever was there may be gone
        }
        if (isDone) {
            book.push_back(recording);
        }
    }

    void EraseIt()
    {
        if (Try("erase", [&] { drive.Erase(Chance(50), {}); })) {
            book.clear();
            EXPECT_TRUE(Look().heuristicallyBlank || Look().state == DiscState::None);
        }
    }

    /// A fault that loses nothing silently.
    void PlanSomething()
    {
        constexpr std::array kKinds {FaultKind::MediumError,
            FaultKind::LossOfStreaming,
            FaultKind::Removed,
            FaultKind::Unplugged,
            FaultKind::ReadError,
            FaultKind::NeverReady,
            FaultKind::TrayStuck,
            FaultKind::EraseFails};
        recorders.Plan(u"A"_s,
            {.kind = kKinds.at(static_cast<std::size_t>(Pick(0, 7))),
                .sector = Pick(0, 80),
                .lasting = Chance(20)});
    }

    void DoSomething()
    {
        switch (Pick(0, 15)) {
        case 0:
            return PutDiscIn();
        case 1:
            Try("eject", [&] { drive.Eject(); });
            return;
        case 2:
        case 3:
            Try("close", [&] { drive.CloseTray(); });
            return;
        case 4:
            return EraseIt();
        case 5:
            return PlanSomething();
        case 6:
            recorders.ClearFaults(u"A"_s);
            return;
        case 7:
            clock.Pause(static_cast<double>(Pick(1, 20)));
            return;
        case 8:
            recorders.SetRealTiming(u"A"_s, Chance(30));
            return;
        default:
            return WriteSomething();
        }
    }

    drive::DiscInfo Look()
    {
        drive::DiscInfo info;
        Try("examine", [&] { info = drive.Examine(); });
        return info;
    }

    /// Clears all faults and compares the disc with the model.
    void CheckDisc()
    {
        recorders.ClearFaults(u"A"_s);
        recorders.Close(u"A"_s, clock);
        clock.Pause(30);
        if (!Now().disc || Now().disc->upsideDown) {
            return;
        }
        const drive::DiscInfo info = drive.Examine();
        for (const Recorded& recording : book) {
            const bool isListed
                = std::ranges::any_of(info.sessions, [&](const drive::SessionFacts& session) {
                      return session.firstSector == recording.first
                          && session.sectors >= recording.sectors;
                  });
            EXPECT_TRUE(isListed || info.state == drive::DiscState::Overwritable);
            EXPECT_EQ(ReadBack(recording.first, recording.sectors),
                Pattern(recording.sectors, recording.seed));
            ++recordingsChecked;
        }
        EXPECT_LE(info.freeSectors, info.totalSectors);
        EXPECT_TRUE(info.freeSectors == 0
            || info.nextWritable + info.freeSectors <= info.totalSectors
            || info.state == DiscState::Overwritable);
    }

    std::mt19937_64 random;
    std::vector<Recorded> book;
    quint32 lastSeed = 0;
    int successes = 0;
    int failures = 0;
    int recordingsChecked = 0;
};

TEST_F(RandomUseTest, AThousandSequencesLoseNothing)
{
    for (quint64 sequence = 0; sequence < 1000 && !HasFailure(); ++sequence) {
        SCOPED_TRACE("sequence " + std::to_string(sequence));
        random.seed(sequence);
        PutDiscIn();
        for (qint64 left = Pick(5, 15); left > 0; --left) {
            DoSomething();
        }
        CheckDisc();
    }
    // Both outcomes are common enough for the test to be meaningful.
    EXPECT_GT(successes, 2000);
    EXPECT_GT(failures, 1000);
    EXPECT_GT(recordingsChecked, 500);
}

} // namespace velmora::virtualdrive::test
