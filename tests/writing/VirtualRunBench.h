// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mastering/DriveMastering.h"
#include "mastering/image/FileSystemImage.h"
#include "recorder/EnumerateRecorders.h"
#include "tests/support/FakeClock.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/writing/FakeOptions.h"
#include "tests/writing/TranscriptCompanion.h"
#include "tests/writing/TranscriptScreen.h"
#include "text/PathText.h"
#include "virtual/Recorders.h"
#include "virtual/VirtualDriveSource.h"
#include "writing/BurnRun.h"
#include "writing/EraseRun.h"
#include "writing/IsoBurnRun.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace velmora::test {

/// The image of a small volume: the contents of a recorded disc. A run reads it.
inline std::vector<std::byte> SampleVolume(const runtime::Clock& clock)
{
    mastering::FileSystemImage image(clock);
    image.Root()->AddDirectory(text::DiscPath(u"Session 1"_s));
    const imapi::ImageResultRef result = image.CreateResultImage();
    std::vector<std::byte> bytes(static_cast<std::size_t>(result->ImageStream()->Size()));
    result->ImageStream()->Read(bytes);
    return bytes;
}

/// Whole runs with the platform's own objects over one virtual recorder, in which a blank CD-R
/// lies, and a compilation of two files.
class VirtualRunBench : public testing::Test {
protected:
    VirtualRunBench()
    {
        WriteFile("letter.txt", "dear all");
        WriteFile("sea.bin", std::string(kSeaBytes, 'w'));
        AddFileRow(u"letter.txt"_s, "letter.txt");
        AddFileRow(u"sea.bin"_s, "sea.bin");
        state.TotalSizeBytes = kSeaBytes + 8;
        state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
        options.tempDir = Path("");
        drives.Create(u"A"_s);
        Insert(u"cd-r");
        recorder::EnumerateRecorders(recorders, *mastering);
    }

    QString Path(const std::string& name) const
    {
        return text::ToProgramPath((folder / name).native());
    }
    void WriteFile(const std::string& name, const std::string& content) const
    {
        std::ofstream(folder / name, std::ios::binary) << content;
    }
    void AddFileRow(const QString& text, const std::string& name)
    {
        compilation::ListRow& row = list.Add(text, text::DiscPath(text), u"F0"_s);
        list.SetKind(row, compilation::EntryKind::File);
        list.SetOrigin(row, text::ProgramPath(Path(name)));
    }

    void Insert(QStringView kind, virtualdrive::DiscPreset preset = virtualdrive::DiscPreset::Blank)
    {
        drives.Insert(u"A"_s, {.medium = virtualdrive::FindMedium(kind), .preset = preset}, clock);
    }
    void Plan(virtualdrive::FaultKind kind, qint64 sector)
    {
        drives.Plan(u"A"_s, {.kind = kind, .sector = sector});
    }
    void Close() { drives.Close(u"A"_s, clock); }
    const virtualdrive::Description& Now()
    {
        now = drives.Show(u"A"_s);
        return now;
    }
    /// How many sessions the disc in the drive holds; -1 without a disc.
    qsizetype Sessions() { return Now().disc ? now.disc->sessions.size() : -1; }

    writing::RunReport Burn()
    {
        transcript.Clear();
        return writing::BurnRun(Context()).Run(writing::BurnTarget::Disc);
    }
    /// The run failed, and its log ends with these words.
    void ExpectFailure(const std::string& words)
    {
        const std::string log = Log();
        const std::string end = "\"Une erreur est survenue : \"\n\"            " + words + " \"\n";
        EXPECT_TRUE(log.ends_with(end)) << log;
        EXPECT_FALSE(state.BurnDone);
    }
    /// The next run works, on a new disc.
    void ExpectAGoodBurn()
    {
        Insert(u"cd-r");
        Burn();
        EXPECT_TRUE(state.BurnDone) << Log();
        EXPECT_EQ(Sessions(), 1);
    }
    void SaveIso(const std::string& name)
    {
        transcript.Clear();
        screen.isoFile = Path(name);
        writing::BurnRun(Context()).Run(writing::BurnTarget::IsoFile);
    }
    void BurnIso(const std::string& name)
    {
        transcript.Clear();
        screen.isoFile = Path(name);
        writing::IsoBurnRun(Context()).Run();
    }
    writing::RunContext Context()
    {
        return {screen,
            options,
            state,
            list,
            *mastering,
            clock,
            reading,
            recorders,
            companion,
            progress};
    }
    void Stop() { writing::RequestStop(screen, state); }

    /// The log's lines.
    std::string Log() const
    {
        std::string log;
        std::istringstream lines(transcript.Text());
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("log ")) log += line.substr(4) + '\n';
            if (line.starts_with("log emptied, ")) log = line.substr(13) + '\n';
        }
        return log;
    }

    /// What the disc in the drive holds, as far as these tests write.
    std::string DiscBytes()
    {
        std::string bytes(2 * kSeaBytes, '\0');
        const std::string name = Now().disc->sectorFile.toStdString();
        std::ifstream in(folder / ("recorders/A/" + name), std::ios::binary);
        in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        bytes.resize(static_cast<std::size_t>(in.gcount()));
        return bytes;
    }

    static constexpr std::size_t kSeaBytes = 4'000'000;

    TemporaryFolder folder;
    FakePump quietPump;
    FakeClock clock {quietPump, QDateTime::fromMSecsSinceEpoch(1'700'000'000'000)};
    virtualdrive::Recorders drives {folder.Path().string() + "/recorders", SampleVolume};
    virtualdrive::Description now;
    std::unique_ptr<imapi::Mastering> mastering = mastering::MasteringOf(
        {std::make_shared<virtualdrive::VirtualDriveSource>(drives, clock, quietPump)}, clock);
    Transcript transcript;
    TranscriptScreen screen {transcript};
    FakeOptions options {transcript};
    compilation::CompilationList list;
    shell::ProgramState state;
    writing::ReadingDisplay reading {screen, state};
    recorder::RecorderState recorders;
    TranscriptCompanion companion {transcript};
    writing::WritingDisplay progress {screen, state, companion, QLocale(QLocale::French)};
};

} // namespace velmora::test
