// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/CompilationList.h"
#include "tests/support/FakeClock.h"
#include "tests/writing/FakeOptions.h"
#include "tests/writing/TranscriptCompanion.h"
#include "tests/writing/TranscriptMastering.h"
#include "tests/writing/TranscriptScreen.h"
#include "writing/ImageStage.h"

#include <gtest/gtest.h>

#include <optional>

namespace velmora::test {

/// The image stages of a run among doors that record everything.
class ImageStageBench : public testing::Test {
protected:
    void AddRow(
        const QString& text, std::optional<compilation::EntryKind> kind, const QString& origin)
    {
        compilation::ListRow& row = list.Add(text, text::DiscPath(text), u"FD"_s);
        if (kind) list.SetKind(row, *kind);
        list.SetOrigin(row, text::ProgramPath(origin));
    }

    writing::RunContext ContextWith(imapi::Mastering& platform)
    {
        return {
            screen, options, state, list, platform, clock, reading, recorders, companion, progress};
    }

    /// A stage whose configuration is done, with an empty transcript.
    void Configure()
    {
        stage.ConfigureImage(std::make_shared<UnaskedRecorder>());
        transcript.Clear();
    }

    /// The transcript of the walk through the list.
    std::string Walk()
    {
        Configure();
        stage.AddCompilationToImage();
        return transcript.Text();
    }

    Transcript transcript;
    TranscriptScreen screen {transcript};
    FakePump quietPump;
    FakeClock clock {quietPump, QDateTime({2026, 3, 9}, {7, 5, 4})};
    PlatformScript script {transcript};
    TranscriptMastering mastering {script};
    FakeOptions options {transcript};
    compilation::CompilationList list;
    shell::ProgramState state;
    writing::ReadingDisplay reading {screen, state};
    recorder::RecorderState recorders;
    TranscriptCompanion companion {transcript};
    writing::WritingDisplay progress {screen, state, companion, QLocale(QLocale::French)};
    writing::RunReport stageReport; ///< what the stage tells
    writing::ImageStage stage {ContextWith(mastering), stageReport};
};

} // namespace velmora::test
