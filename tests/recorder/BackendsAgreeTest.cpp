// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "BurnDrive.h"
#include "DetectMedia.h"
#include "DriveMastering.h"
#include "EmulatedDrive.h"
#include "FakeClock.h"
#include "LibraryThread.h"
#include "Media.h"
#include "QtPrinters.h"
#include "RecordedMessages.h"
#include "Recorders.h"
#include "TemporaryFolder.h"
#include "VirtualDriveSource.h"

#include <gtest/gtest.h>

#include <fstream>

namespace velmora::test {

using namespace Qt::StringLiterals;

namespace {

/// What a detection answered.
struct Answer {
    QString text;
    bool imported = false;
    bool blank = false;
    double freeBytes = -1;
    bool offersSpeeds = false;

    friend bool operator==(const Answer&, const Answer&) = default;
};

void PrintTo(const Answer& answer, std::ostream* out)
{
    *out << '"' << answer.text.toStdString() << "\", imported " << answer.imported << ", blank "
         << answer.blank << ", free " << static_cast<long long>(answer.freeBytes) << ", speeds "
         << answer.offersSpeeds;
}

class NoPointer final : public shell::PointerDoor {
public:
    void SetMousePointer(shell::MousePointer) override { }
};

/// A drive and all that stands above it.
class Backend {
public:
    Backend(std::shared_ptr<imapi::DriveSource> source, QString id)
        : mastering_(imapi::MasteringOf({std::move(source)}, clock_))
        , id_(std::move(id))
    {
    }
    virtual ~Backend() = default;
    Backend(const Backend&) = delete;
    Backend& operator=(const Backend&) = delete;
    Backend(Backend&&) = delete;
    Backend& operator=(Backend&&) = delete;

    virtual void Insert(const virtualdrive::MediumFacts& medium) = 0;

    Answer Detect()
    {
        Answer answer;
        std::vector<recorder::SpeedEntry> speeds;
        const recorder::DetectionDoors doors {
            state_, *mastering_, clock_, pump_, pointer_, messages_};
        answer.text = recorder::DetectMedia(
            doors, id_, speeds, false, &answer.freeBytes, answer.imported, answer.blank, true);
        answer.offersSpeeds = !speeds.empty() && speeds.front().Speed.has_value();
        return answer;
    }

    /// Writes an image of its own; closing leaves no room for another session.
    void Write(bool closesDisc)
    {
        const imapi::DiscFormat2DataRef writer = mastering_->CreateDiscFormat2Data();
        writer->SetRecorder(Recorder());
        writer->SetClientName(u"Tamsel"_s);
        writer->SetForceMediaToBeClosed(closesDisc);
        const imapi::FileSystemImageRef image = mastering_->CreateFileSystemImage();
        image->SetFileSystemsToCreate(imapi::FsiFileSystems::All);
        image->Root()->AddDirectory(u"Photos"_s);
        writer->Write(image->CreateResultImage()->ImageStream());
    }

    void Erase()
    {
        const imapi::DiscFormat2EraseRef eraser = mastering_->CreateDiscFormat2Erase();
        eraser->SetRecorder(Recorder());
        eraser->SetClientName(u"fnErase_"_s);
        eraser->SetFullErase(true);
        eraser->EraseMedia();
    }

private:
    imapi::RecorderRef Recorder()
    {
        imapi::RecorderRef recorder = mastering_->CreateDiscRecorder();
        recorder->InitializeDiscRecorder(id_);
        return recorder;
    }

    FakePump pump_;
    FakeClock clock_ {pump_, QDateTime({2026, 3, 9}, {7, 5, 4}, Qt::UTC)};
    NoPointer pointer_;
    RecordedMessages messages_;
    recorder::RecorderState state_;
    std::unique_ptr<imapi::Mastering> mastering_;
    QString id_;
};

/// What the two drives themselves need; made before them.
struct DriveWorld {
    DriveWorld() { std::ofstream(folder / "mounts").close(); }

    TemporaryFolder folder;
    FakePump pump;
    runtime::SystemClock clock {pump};
    virtualdrive::Recorders recorders {folder.MakeFolder("recorders").native()};
};

class VirtualBackend final : public Backend {
public:
    explicit VirtualBackend(DriveWorld& world)
        : Backend(std::make_shared<virtualdrive::VirtualDriveSource>(
                      world.recorders, world.clock, world.pump),
            u"virtual:A"_s)
        , world_(world)
    {
        world_.recorders.Create(u"A"_s);
    }

    void Insert(const virtualdrive::MediumFacts& medium) override
    {
        world_.recorders.Insert(u"A"_s, {.medium = &medium}, world_.clock);
    }

private:
    DriveWorld& world_;
};

/// One drive of the burning library.
class LibraryDrive final : public imapi::DriveSource {
public:
    explicit LibraryDrive(DriveWorld& world)
        : drive_(std::make_shared<drives::BurnDrive>(u"sr0"_s,
            u"/dev/sr0"_s,
            std::make_shared<drives::LibraryThread>(),
            drives::Surroundings {world.pump,
                world.clock,
                nullptr,
                {},
                QString::fromStdString(world.folder / "mounts")}))
    {
    }

    QStringList Ids() override { return {u"sr0"_s}; }
    imapi::DriveRef Open(const QString& id) override { return id == u"sr0"_s ? drive_ : nullptr; }

private:
    imapi::DriveRef drive_;
};

class EmulatedBackend final : public Backend {
public:
    explicit EmulatedBackend(DriveWorld& world)
        : Backend(Plugged(world), u"sr0"_s)
    {
    }
    ~EmulatedBackend() override { emulated_.Unplug(); }
    EmulatedBackend(const EmulatedBackend&) = delete;
    EmulatedBackend& operator=(const EmulatedBackend&) = delete;
    EmulatedBackend(EmulatedBackend&&) = delete;
    EmulatedBackend& operator=(EmulatedBackend&&) = delete;

    void Insert(const virtualdrive::MediumFacts& medium) override
    {
        constexpr std::int64_t kPressedSectors = 1000;
        const auto profile = static_cast<std::uint16_t>(medium.profile);
        const bool isPressed = medium.recording == virtualdrive::Recording::Pressed;
        emulated_.Insert(isPressed ? mmc::ClosedDisc(profile, kPressedSectors)
                                   : mmc::NewDisc(profile, medium.capacity));
    }

private:
    static std::shared_ptr<imapi::DriveSource> Plugged(DriveWorld& world)
    {
        mmc::EmulatedDrive::Instance().Plug(world.folder / "state");
        return std::make_shared<LibraryDrive>(world);
    }

    mmc::EmulatedDrive& emulated_ = mmc::EmulatedDrive::Instance();
};

/// A kind of disc and what a detection says of it.
struct Case {
    QStringView medium;
    QStringView text;
    bool staysOpen; ///< a session can follow the first one
};

class BackendsAgreeTest : public testing::TestWithParam<Case> {
protected:
    /// Both drives answer the same, and so.
    Answer Both()
    {
        const Answer first = virtualBackend.Detect();
        const Answer second = emulated.Detect();
        EXPECT_EQ(first, second);
        return first;
    }
    void InsertInBoth(QStringView key)
    {
        const virtualdrive::MediumFacts* medium = virtualdrive::FindMedium(key);
        ASSERT_NE(medium, nullptr);
        virtualBackend.Insert(*medium);
        emulated.Insert(*medium);
    }
    void WriteToBoth(bool closesDisc)
    {
        virtualBackend.Write(closesDisc);
        emulated.Write(closesDisc);
    }
    void EraseBoth()
    {
        virtualBackend.Erase();
        emulated.Erase();
    }

    DriveWorld world;
    VirtualBackend virtualBackend {world};
    EmulatedBackend emulated {world};
};

using OnceTest = BackendsAgreeTest;
using RewritableTest = BackendsAgreeTest;
using OverwritableTest = BackendsAgreeTest;
using ReadOnlyTest = BackendsAgreeTest;

} // namespace

TEST_P(OnceTest, ADiscIsTheSameInBothDrives)
{
    const double capacity
        = static_cast<double>(virtualdrive::FindMedium(GetParam().medium)->capacity) * 2048;
    InsertInBoth(GetParam().medium);
    const Answer blank = Both();
    EXPECT_EQ(blank.text, GetParam().text.toString());
    EXPECT_TRUE(blank.blank);
    EXPECT_EQ(blank.freeBytes, capacity);

    WriteToBoth(false);
    const Answer written = Both();
    EXPECT_FALSE(written.blank);
    EXPECT_EQ(written.imported, GetParam().staysOpen);
    EXPECT_LT(written.freeBytes, capacity);
    if (!GetParam().staysOpen) {
        EXPECT_EQ(written.freeBytes, 0);
        return;
    }
    WriteToBoth(true);
    const Answer closed = Both();
    EXPECT_FALSE(closed.blank);
    EXPECT_FALSE(closed.imported);
    EXPECT_EQ(closed.freeBytes, 0);
}

INSTANTIATE_TEST_SUITE_P(Media,
    OnceTest,
    testing::Values(Case {u"cd-r", u"    CD-R", true},
        Case {u"dvd-r", u"    DVD-R", true},
        Case {u"dvd+r", u"    DVD+R", true},
        Case {u"dvd-r-dl", u"    DVD-R Dual Layer", false},
        Case {u"dvd+r-dl", u"    DVD+R Dual Layer", true},
        Case {u"bd-r", u"    Blue-Ray Disc R", true},
        Case {u"bd-r-dl", u"    Blue-Ray Disc R", true}));

TEST_P(RewritableTest, ADiscIsTheSameInBothDrives)
{
    InsertInBoth(GetParam().medium);
    const Answer blank = Both();
    EXPECT_EQ(blank.text, GetParam().text.toString());
    EXPECT_TRUE(blank.blank);

    WriteToBoth(false);
    const Answer written = Both();
    EXPECT_FALSE(written.blank);
    EXPECT_TRUE(written.imported);

    EraseBoth();
    EXPECT_TRUE(Both().blank);

    WriteToBoth(true);
    const Answer closed = Both();
    EXPECT_FALSE(closed.blank);
    EXPECT_FALSE(closed.imported);
}

INSTANTIATE_TEST_SUITE_P(Media,
    RewritableTest,
    testing::Values(Case {u"cd-rw", u"    CD-RW", true}, Case {u"dvd-rw", u"    DVD-RW", true}));

TEST_P(OverwritableTest, ADiscIsTheSameInBothDrives)
{
    InsertInBoth(GetParam().medium);
    const Answer blank = Both();
    EXPECT_EQ(blank.text, GetParam().text.toString());
    EXPECT_TRUE(blank.blank);

    WriteToBoth(false);
    const Answer written = Both();
    EXPECT_FALSE(written.blank);
    EXPECT_TRUE(written.imported);
    EXPECT_LT(written.freeBytes, blank.freeBytes);
}

INSTANTIATE_TEST_SUITE_P(Media,
    OverwritableTest,
    testing::Values(Case {u"dvd-ram", u"    DVD-RAM", true},
        Case {u"dvd-rw-ow", u"    DVD-RW", true},
        Case {u"dvd+rw", u"    DVD+RW", true},
        Case {u"bd-re", u"    Blue-Ray Disc RW", true},
        Case {u"bd-re-dl", u"    Blue-Ray Disc RW", true}));

TEST_P(ReadOnlyTest, ADiscIsTheSameInBothDrives)
{
    InsertInBoth(GetParam().medium);
    EXPECT_EQ(Both().text, GetParam().text.toString());
}

INSTANTIATE_TEST_SUITE_P(Media,
    ReadOnlyTest,
    testing::Values(Case {u"cd-rom", u"Le graveur est vide ou le média ne peut être gravé", false},
        Case {u"dvd-rom", u"Le graveur est vide ou le média ne peut être gravé", false},
        Case {u"bd-rom", u"Le graveur est vide ou le média ne peut être gravé", false}));

TEST_F(BackendsAgreeTest, AnEmptyDriveIsTheSameInBoth)
{
    EXPECT_EQ(Both().text, u"Le graveur est vide ou le média ne peut être gravé"_s);
}

} // namespace velmora::test
