// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mastering/DriveMastering.h"
#include "recorder/EnumerateRecorders.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/writing/FakeOptions.h"
#include "text/PathText.h"
#include "virtual/VirtualDriveSource.h"
#include "writing/BurnRun.h"
#include "writing/LinkedStopCompanion.h"

#include <QCoreApplication>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>

namespace velmora::test {

/// A screen that keeps the log, really handles events, and answers every question with OK or No.
class LogScreen final : public writing::BurnScreen {
public:
    void Pump() override { QCoreApplication::processEvents(); }
    void SetMousePointer(shell::MousePointer /*pointer*/) override { }
    shell::MessageAnswer MsgBox(
        const QString& /*text*/, qint32 style, const QString& /*title*/) override
    {
        return style & shell::message_style::kYesNo ? shell::MessageAnswer::No
                                                    : shell::MessageAnswer::Ok;
    }
    void StartLog(const QString& firstLine) override
    {
        log.clear();
        AddLogLine(firstLine);
    }
    void AddLogLine(const QString& line) override
    {
        log += line;
        if (const auto action = actions.find(line); action != actions.end()) {
            action->second();
        }
    }
    void SetStatus(const QString& /*text*/) override { }
    void ShowBurnButton(writing::BurnButton /*button*/, bool /*isVisible*/) override { }
    void ShowDriveWait(bool /*isVisible*/) override { }
    text::ProgramPath AskIsoFile(writing::IsoFileUse /*use*/) override { return {}; }

    QStringList log;
    std::map<QString, std::function<void()>> actions; ///< what happens when a line is logged
};

/// All that a program needs for a burn: a virtual recorder that takes some seconds for a disc, a
/// compilation of one file, and a stop companion in its own process.
class StoppableBurn {
public:
    static constexpr qint64 kSectorsPerSecond = 2000;
    static constexpr qint64 kFileSectors = 10'000;

    explicit StoppableBurn(const text::ProgramPath& programFolder)
        : companion(programFolder, link_, screen, clock)
    {
        virtualdrive::Description drive = virtualdrive::NewDescription();
        drive.drive.realTiming = true;
        drive.drive.delays = {0, 0, 0, 0, 0, 0, 0};
        drive.drive.speeds[u"dvd+r"_s] = {kSectorsPerSecond};
        recorders.Create(u"A"_s, drive);
        PutNewDiscIn();
        recorder::EnumerateRecorders(recorderState_, *mastering_);
        state.MediaTypeChoice = shell::DiscTypeChoice::DvdPlusR;
        state.DiscFormat = shell::DiscFormat::Dvd;
        options.tempDir = text::ToProgramPath(folder.Path().native());
        const QString file
            = text::ToProgramPath(folder.MakeFile("film", kFileSectors * 2048).native());
        compilation::ListRow& row = list_.Add(u"film"_s, text::DiscPath(u"film"_s), u"F0"_s);
        list_.SetKind(row, compilation::EntryKind::File);
        list_.SetOrigin(row, text::ProgramPath(file));
    }

    /// The click of BurnButton(0).
    void Burn()
    {
        const writing::RunContext context {screen,
            options,
            state,
            list_,
            *mastering_,
            clock,
            reading_,
            recorderState_,
            companion,
            progress_};
        writing::BurnRun(context).Run(writing::BurnTarget::Disc);
    }

    void PutNewDiscIn()
    {
        recorders.Insert(u"A"_s, {.medium = virtualdrive::FindMedium(u"dvd+r")}, clock);
    }

    /// Sectors written to the disc so far.
    qint64 WrittenSectors() const
    {
        const virtualdrive::Description now = recorders.Show(u"A"_s);
        const std::filesystem::path sectors
            = folder / "recorders/A" / now.disc.value().sectorFile.toStdString();
        return std::filesystem::exists(sectors)
            ? static_cast<qint64>(std::filesystem::file_size(sectors) / 2048)
            : 0;
    }

    TemporaryFolder folder;
    LogScreen screen;
    runtime::SystemClock clock {screen};
    virtualdrive::Recorders recorders {folder.MakeFolder("recorders").native()};
    shell::ProgramState state;
    Transcript transcript;
    FakeOptions options {transcript};

private:
    link::TextLink link_;

public:
    writing::LinkedStopCompanion companion;

private:
    std::unique_ptr<imapi::Mastering> mastering_ = mastering::MasteringOf(
        {std::make_shared<virtualdrive::VirtualDriveSource>(recorders, clock, screen)}, clock);
    compilation::CompilationList list_;
    recorder::RecorderState recorderState_;
    writing::ReadingDisplay reading_ {screen, state};
    writing::WritingDisplay progress_ {screen, state, companion};
};

} // namespace velmora::test
