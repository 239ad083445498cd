// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/SectorSize.h"
#include "drives/BurnDrive.h"
#include "drives/LibraryThread.h"
#include "mastering/DriveMastering.h"
#include "recorder/DetectMedia.h"
#include "tests/mmc/EmulatedDrive.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeClock.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/RecordedMessages.h"
#include "tests/support/SampleSectors.h"
#include "tests/support/TemporaryFolder.h"
#include "virtual/Media.h"
#include "virtual/Recorders.h"
#include "virtual/VirtualDriveSource.h"

#include <algorithm>
#include <atomic>
#include <fstream>
#include <memory>
#include <utility>
#include <vector>

#include <QTimeZone>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// What a detection answered.
struct Answer {
    QString text;
    bool imported = false;
    bool blank = false;
    double freeBytes = -1;
    bool offersSpeeds = false;

    friend bool operator==(const Answer&, const Answer&) = default;
};

/// What examining a disc found, without what depends on the drive, such as its speeds.
struct Found {
    drive::DiscState state = drive::DiscState::None;
    qint32 profile = 0;
    bool blank = false;
    bool erasable = false;
    bool canStayOpen = false;
    bool lastSessionOpen = false;
    qint64 freeSectors = 0;
    qint64 totalSectors = 0;
    qint64 nextWritable = 0;
    QList<qint64> sessions; ///< where they begin

    friend bool operator==(const Found&, const Found&) = default;
};

inline Found FactsOf(const drive::DiscInfo& info)
{
    // At the end of a CD's later sessions, drives count sectors of run-out that hold nothing.
    const bool isClosed = info.state == drive::DiscState::Closed;
    Found found {info.state,
        info.profile,
        info.heuristicallyBlank,
        info.erasable,
        info.canStayOpen,
        info.lastSessionOpen,
        info.freeSectors,
        isClosed ? 0 : info.totalSectors,
        info.nextWritable,
        {}};
    for (const drive::SessionFacts& session : info.sessions) {
        found.sessions.append(session.firstSector);
    }
    return found;
}

inline void PrintTo(const Found& found, std::ostream* out)
{
    *out << "state " << static_cast<int>(found.state) << ", profile " << found.profile << ", blank "
         << found.blank << ", erasable " << found.erasable << ", can stay open "
         << found.canStayOpen << ", last session open " << found.lastSessionOpen << ", free "
         << found.freeSectors << ", total " << found.totalSectors << ", next " << found.nextWritable
         << ", sessions at";
    for (const qint64 first : found.sessions) {
        *out << ' ' << first;
    }
}

enum class Overwriting : bool { No, Yes };

class NoPointer final : public shell::PointerDoor {
public:
    void SetMousePointer(shell::MousePointer) override { }
};

/// A drive and all the layers above it.
class Backend {
public:
    Backend(std::shared_ptr<drive::DriveSource> source, QString id)
        : source_(std::move(source))
        , mastering_(mastering::MasteringOf({source_}, clock_))
        , id_(std::move(id))
    {
    }
    virtual ~Backend() = default;
    Backend(const Backend&) = delete;
    Backend& operator=(const Backend&) = delete;
    Backend(Backend&&) = delete;
    Backend& operator=(Backend&&) = delete;

    virtual void Insert(const virtualdrive::MediumFacts& medium) = 0;
    /// Discards everything written to the disc.
    virtual void Protect(const virtualdrive::MediumFacts& medium) = 0;
    virtual void NeverGetReady() = 0;
    virtual void Unplug() = 0;

    Found Look() { return FactsOf(source_->Open(id_)->Examine()); }
    void Eject() { source_->Open(id_)->Eject(); }

    /// How long detections have waited, in seconds.
    double Waited() const { return clock_.Timer(); }

    Answer Detect()
    {
        Answer answer;
        const recorder::DetectionContext context {
            state_, *mastering_, clock_, pump_, pointer_, messages_};
        const recorder::DetectedMedia media = recorder::DetectMedia(context, {.UniqueId = id_});
        answer.text = media.text;
        answer.freeBytes = media.FreeBytes.value_or(answer.freeBytes);
        answer.imported = media.FileSystemImported.value_or(answer.imported);
        answer.blank = media.MediaBlank.value_or(answer.blank);
        answer.offersSpeeds = media.SpeedList && media.SpeedList->front().Speed.has_value();
        return answer;
    }

    /// Writes an image of its own; closing leaves no room for another session.
    void Write(bool closesDisc, Overwriting overwriting = Overwriting::No)
    {
        const imapi::DiscFormat2DataRef writer = mastering_->CreateDiscFormat2Data();
        writer->SetRecorder(Recorder());
        writer->SetClientName(u"Tamsel"_s);
        writer->SetForceMediaToBeClosed(closesDisc);
        writer->SetForceOverwrite(overwriting == Overwriting::Yes);
        const imapi::FileSystemImageRef image = mastering_->CreateFileSystemImage();
        image->SetFileSystemsToCreate(drive::FsiFileSystems::All);
        image->Root()->AddDirectory(text::DiscPath(u"Photos"_s));
        writer->Write(image->CreateResultImage()->ImageStream());
    }

    /// A write that is stopped half way. Its source waits there for the stop, because a fast
    /// machine would finish before it comes. @return its error
    qint32 WriteAndStop()
    {
        constexpr qint64 kSectors = 200'000;
        constexpr qint64 kSectorsBeforeStop = 20'000;
        std::atomic_bool stopped = false;
        qint64 given = 0;
        drive::WriteOrder order;
        order.sectors = kSectors;
        order.source = [&](std::span<std::byte> out) {
            std::ranges::fill(out, std::byte {7});
            given += static_cast<qint64>(out.size() / drive::kSectorBytes);
            if (given > kSectorsBeforeStop) {
                stopped.wait(false);
            }
        };
        return ErrorNumberOf([&] {
            source_->Open(id_)->Write(order, [&stopped](const drive::WriteProgress& progress) {
                if (progress.action != drive::WriteAction::WritingData
                    || progress.lastWrittenSector == 0) {
                    return true;
                }
                stopped = true;
                stopped.notify_all();
                return false;
            });
        });
    }

    void Erase(bool full = true)
    {
        const imapi::DiscFormat2EraseRef eraser = mastering_->CreateDiscFormat2Erase();
        eraser->SetRecorder(Recorder());
        eraser->SetClientName(u"fnErase_"_s);
        eraser->SetFullErase(full);
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
    FakeClock clock_ {pump_, QDateTime({2026, 3, 9}, {7, 5, 4}, QTimeZone::utc())};
    NoPointer pointer_;
    RecordedMessages messages_;
    recorder::RecorderState state_;
    std::shared_ptr<drive::DriveSource> source_;
    std::unique_ptr<imapi::Mastering> mastering_;
    QString id_;
};

/// What the two drives depend on; made before them.
struct DriveWorld {
    DriveWorld() { std::ofstream(folder / "mounts").close(); }

    TemporaryFolder folder;
    FakePump pump;
    runtime::SystemClock clock {pump};
    virtualdrive::Recorders recorders {folder.MakeFolder("recorders").native(), SampleSectors};
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
    void Protect(const virtualdrive::MediumFacts& medium) override
    {
        world_.recorders.Insert(u"A"_s, {.medium = &medium, .writeProtected = true}, world_.clock);
    }
    void NeverGetReady() override
    {
        world_.recorders.Plan(
            u"A"_s, {.kind = virtualdrive::FaultKind::NeverReady, .lasting = true});
    }
    void Unplug() override { world_.recorders.SetPlugged(u"A"_s, false); }

private:
    DriveWorld& world_;
};

/// One drive of the burning library.
class LibraryDrive final : public drive::DriveSource {
public:
    explicit LibraryDrive(DriveWorld& world)
        : drive_(std::make_shared<drives::BurnDrive>(u"sr0"_s,
            u"/dev/sr0"_s,
            std::make_shared<drives::LibraryThread>(),
            drives::BurnDriveContext {world.pump,
                world.clock,
                nullptr,
                {std::chrono::milliseconds(30),
                    std::chrono::milliseconds(30),
                    std::chrono::milliseconds(30),
                    std::chrono::milliseconds(5)},
                QString::fromStdString(world.folder / "mounts")}))
    {
    }

    QStringList Ids() override { return {u"sr0"_s}; }
    drive::DriveRef Open(const QString& id) override { return id == u"sr0"_s ? drive_ : nullptr; }

private:
    drive::DriveRef drive_;
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
        constexpr std::int64_t kPressedSectors = 192;
        const auto profile = static_cast<std::uint16_t>(medium.profile);
        const bool isPressed = medium.recording == virtualdrive::Recording::Pressed;
        emulated_.Insert(isPressed ? mmc::ClosedDisc(profile, kPressedSectors)
                                   : mmc::NewDisc(profile, medium.capacity));
    }
    void Protect(const virtualdrive::MediumFacts& medium) override
    {
        Insert(medium);
        Fault([](mmc::Faults& faults) { faults.writeProtected = true; });
    }
    void NeverGetReady() override
    {
        Fault([](mmc::Faults& faults) { faults.readyAfter = 1'000'000; });
    }
    void Unplug() override
    {
        Fault([](mmc::Faults& faults) { faults.unplugged = true; });
    }

private:
    void Fault(const std::function<void(mmc::Faults&)>& set)
    {
        emulated_.Change([&set](mmc::DriveState& state) { set(state.faults); });
    }
    static std::shared_ptr<drive::DriveSource> Plugged(DriveWorld& world)
    {
        mmc::EmulatedDrive::Instance().Plug(world.folder / "state");
        return std::make_shared<LibraryDrive>(world);
    }

    mmc::EmulatedDrive& emulated_ = mmc::EmulatedDrive::Instance();
};

} // namespace velmora::test
