// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/drives/DriveJob.h"

#include "terminal/drives/DriveReport.h"
#include "terminal/drives/DriveWords.h"
#include "terminal/drives/MaintainerReport.h"
#include "terminal/drives/RecorderChoice.h"

namespace velmora::terminal {

namespace {

using Recorders = std::vector<SurveyedRecorder>;

ExitCode ListRecorders(const DriveRequest& request, const Recorders& found, TerminalScreen& screen)
{
    if (request.form == AnswerForm::Json) {
        screen.Result(RecorderJson(found));
    }
    if (found.empty()) {
        return Fail(screen, NoRecorderText());
    }
    if (request.form == AnswerForm::Table) {
        for (const std::string& line : RecorderTable(found)) {
            screen.Result(line);
        }
    }
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i].failure) {
            screen.Notice("Graveur n° " + std::to_string(i + 1) + " : "
                + DriveFailureText(*found[i].failure));
        }
    }
    return ExitCode::Done;
}

/// Asks one recorder about its disc and shows the answer.
class MediaQuestion {
public:
    MediaQuestion(imapi::Mastering& mastering, runtime::Clock& clock, TerminalScreen& screen)
        : mastering_(mastering)
        , clock_(clock)
        , screen_(screen)
    {
    }

    ExitCode Show(std::uint32_t number, const SurveyedRecorder& asked, AnswerForm form)
    {
        try {
            return Show(number, asked, form, Look(asked.id));
        } catch (const runtime::RuntimeError& failure) {
            return Fail(screen_, DriveFailureText(failure));
        }
    }

    /// A drive that can't be queried is reported as well.
    ExitCode Report(std::uint32_t number,
        const SurveyedRecorder& asked,
        const std::optional<records::BurnRecord>& lastBurn,
        const std::optional<records::WriteFailure>& lastFailure)
    {
        ReportedDrive drive {.number = number, .recorder = asked};
        try {
            drive.look = Look(asked.id);
        } catch (const runtime::RuntimeError& failure) {
            drive.failure = failure;
        }
        screen_.Result(MaintainerReport(drive, lastBurn, lastFailure));
        return ExitCode::Done;
    }

private:
    MediaLook Look(const QString& id)
    {
        const imapi::RecorderRef recorder = mastering_.CreateDiscRecorder();
        recorder->InitializeDiscRecorder(id);
        const imapi::DiscFormat2DataRef writer = mastering_.CreateDiscFormat2Data();
        writer->SetRecorder(recorder);
        return LookAtMedia(*writer, recorder, clock_, screen_);
    }

    ExitCode Show(
        std::uint32_t number, const SurveyedRecorder& asked, AnswerForm form, const MediaLook& look)
    {
        if (form == AnswerForm::Json) {
            screen_.Result(MediaJson(number, asked, look));
        } else {
            for (const std::string& line : MediaTable(number, asked, look)) {
                screen_.Result(line);
            }
        }
        if (look.hasDisc) {
            return ExitCode::Done;
        }
        return FailWithoutDisc(screen_);
    }

    imapi::Mastering& mastering_;
    runtime::Clock& clock_;
    TerminalScreen& screen_;
};

std::optional<records::BurnRecord> LastOf(const records::BurnRecords& records)
{
    const QList<int> numbers = records.Numbers();
    return numbers.isEmpty() ? std::nullopt : records.Read(numbers.last());
}

} // namespace

ExitCode RunDriveRequest(const DriveRequest& request,
    imapi::Mastering& mastering,
    const records::BurnRecords& records,
    runtime::Clock& clock,
    TerminalScreen& screen)
{
    const Recorders found = SurveyRecorders(mastering);
    if (request.question == DriveQuestion::Recorders) {
        return ListRecorders(request, found, screen);
    }
    const auto place = ChooseRecorder(request.recorder, found, screen);
    if (!place) {
        return ExitCode::Failed;
    }
    const auto number = static_cast<std::uint32_t>(*place + 1);
    MediaQuestion question(mastering, clock, screen);
    return request.question == DriveQuestion::Report
        ? question.Report(number, found[*place], LastOf(records), records.LastFailure())
        : question.Show(number, found[*place], request.form);
}

} // namespace velmora::terminal
