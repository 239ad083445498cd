// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/writing/ImageStageBench.h"
#include "tests/writing/RunTranscripts.h"
#include "writing/BurnRun.h"
#include "writing/IsoBurnRun.h"

#include <string>

namespace velmora::test {

/// The contents of an Update event of a write.
inline imapi::IDiscFormat2DataEventArgs WriteEvent(
    qint32 action, qint32 written = 0, qint32 count = 0, qint32 start = 0)
{
    imapi::IDiscFormat2DataEventArgs event;
    event.CurrentAction = static_cast<imapi::IMAPI_FORMAT2_DATA_WRITE_ACTION>(action);
    event.StartLba = start;
    event.LastWrittenLba = start + written;
    event.SectorCount = count;
    return event;
}

/// Whole runs of one letter to a blank CD-R, or as a test varies them, among doors that record
/// everything.
class RunBench : public ImageStageBench {
protected:
    RunBench()
    {
        state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
        state.DiscFormat = shell::DiscFormat::Cd;
        state.TotalSizeBytes = 1000;
        recorders.RecorderList.resize(2);
        recorders.RecorderList[0].RecorderId = u"the record"_s;
        screen.isoFile = u"\\home\\u\\disc.iso"_s;
        AddRow(u"letter.txt"_s, compilation::EntryKind::File, u"\\home\\u\\letter.txt"_s);
        script.writeEvents = {WriteEvent(4, 4, 8), WriteEvent(6)};
    }

    /// The transcript of one run.
    std::string Burn() { return RunOf(writing::BurnTarget::Disc); }
    std::string SaveIso() { return RunOf(writing::BurnTarget::IsoFile); }
    std::string BurnIso()
    {
        transcript.Clear();
        writing::IsoBurnRun(ContextWith(mastering)).Run();
        return transcript.Text();
    }

    /// The user's answers to the questions for another disc; the tray's prompts are answered with
    /// Ok.
    void Answer(std::initializer_list<shell::MessageAnswer> answers)
    {
        screen.questionAnswers = answers;
    }

    /// The click of BurnButton(2).
    void Stop() { writing::RequestStop(screen, state); }
    void StopAt(const std::string& line)
    {
        transcript.AtNth(line, 1, [this] { Stop(); });
    }
    void FailAt(const std::string& line)
    {
        transcript.At(line, [] { throw runtime::RuntimeError(-1, u"Panne"_s); });
    }

private:
    std::string RunOf(writing::BurnTarget target)
    {
        transcript.Clear();
        writing::BurnRun(ContextWith(mastering)).Run(target);
        return transcript.Text();
    }
};

} // namespace velmora::test
