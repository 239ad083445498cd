// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CompilationList.h"
#include "FakeClock.h"
#include "ImageStage.h"
#include "TranscriptMastering.h"
#include "TranscriptScreen.h"

#include <gtest/gtest.h>

namespace velmora::test {

/// Options as the page would hold them.
class FakeOptions final : public writing::BurnOptions {
public:
    explicit FakeOptions(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    QString Combo2(qint16 index) const override { return index == 0 ? dataMode : fileSystem; }
    QString DiscName() const override { return discName; }
    void SetDiscName(const QString& name) override
    {
        discName = name;
        transcript_.Tell(u"DiscName = "_s + name);
    }
    QString RepTempTxt() const override { return tempDir; }

    QString dataMode = u"Mode 1"_s;
    QString fileSystem = u"Joliet"_s;
    QString discName = u"Photos"_s;
    QString tempDir = u"\\tmp"_s;

private:
    Transcript& transcript_;
};

class FakeRecorder final : public imapi::IDiscRecorder2 {
public:
    imapi::DiscFacts DiscInDrive() override { return {}; }
};

/// The image stages of a run among doors that write everything down.
class ImageStageBench : public testing::Test {
protected:
    void AddRow(const QString& text, const QString& type, const QString& origin)
    {
        compilation::ListRow& row = list.Add(text, text, u"FD"_s);
        list.SetSubItem(row, compilation::SubItem::Type, type);
        list.SetSubItem(row, compilation::SubItem::Origine, origin);
    }

    /// A stage that stands where its configuration is done, with an empty transcript.
    void Configure()
    {
        stage.ConfigureImage(std::make_shared<FakeRecorder>());
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
    writing::ImageStage stage {
        writing::RunContext {screen, options, state, list, mastering, clock, reading}};
};

} // namespace velmora::test
