// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/writing/Transcript.h"
#include "text/Paths.h"
#include "writing/BurnScreen.h"

#include <deque>
#include <functional>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// A screen that records what it shows.
class TranscriptScreen final : public writing::BurnScreen {
public:
    explicit TranscriptScreen(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    void Pump() override { transcript_.Tell(u"pump"_s); }
    void SetMousePointer(shell::MousePointer pointer) override
    {
        transcript_.Tell(u"pointer %1"_s.arg(static_cast<int>(pointer)));
    }
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override
    {
        transcript_.Tell(u"box %1 %2 %3"_s.arg(style).arg(Quoted(title), Quoted(text)));
        const bool isQuestion = (style & shell::message_style::kYesNo) != 0;
        if (!isQuestion) {
            return promptAnswer;
        }
        if (questionAnswers.empty()) {
            return shell::MessageAnswer::No;
        }
        const shell::MessageAnswer answer = questionAnswers.front();
        questionAnswers.pop_front();
        return answer;
    }
    shell::MessageAnswer MsgBoxWithAdvice(
        const QString& text, qint32 style, const QString& title, const QString& boxAdvice) override
    {
        advice = boxAdvice;
        return MsgBox(text, style, title);
    }
    void AddLogLine(const QString& line) override { transcript_.Tell(u"log "_s + Quoted(line)); }
    void StartLog(const QString& firstLine) override
    {
        transcript_.Tell(u"log emptied, "_s + Quoted(firstLine));
    }
    void SetStatus(const QString& text) override
    {
        status = text;
        transcript_.Tell(u"Label14 "_s + Quoted(text));
    }
    void SetProgress(writing::ProgressOf what, qint16 percent) override
    {
        transcript_.Tell(u"%1 %2"_s.arg(NameOf(what)).arg(percent));
    }
    void ShowProgress(writing::ProgressOf what, bool isVisible) override
    {
        Show(NameOf(what), isVisible);
    }
    void ShowFigures(const writing::RunFigures& figures) override
    {
        if (onFigures) onFigures(figures);
    }
    void ShowBurnButton(writing::BurnButton button, bool isVisible) override
    {
        Show(u"BurnButton(%1)"_s.arg(static_cast<int>(button)), isVisible);
    }
    void ShowDriveWait(bool isVisible) override { Show(u"Frame3DWait"_s, isVisible); }
    void SetWaitBar(writing::WaitBar state) override
    {
        const bool isRunning = state == writing::WaitBar::Running;
        if (state != writing::WaitBar::Hidden) {
            transcript_.Tell(isRunning ? u"Corvane7BarWait1 runs"_s : u"Corvane7BarWait1 stops"_s);
        }
        Show(u"Corvane7BarWait1"_s, isRunning);
    }
    void Beep() override { transcript_.Tell(u"beep"_s); }
    text::ProgramPath AskIsoFile(writing::IsoFileUse use) override
    {
        transcript_.Tell(use == writing::IsoFileUse::Write ? u"asks for the file to write"_s
                                                           : u"asks for the image to burn"_s);
        return text::ProgramPath(isoFile);
    }
    void ShowIsoRunPage() override { transcript_.Tell(u"burn page shown"_s); }
    void CaptureMouse() override { transcript_.Tell(u"mouse captured"_s); }
    void ReleaseMouse() override { transcript_.Tell(u"mouse free"_s); }

    /// To the next questions; then No.
    std::deque<shell::MessageAnswer> questionAnswers;
    /// To every other box.
    QString advice; ///< of the last box that may have some
    shell::MessageAnswer promptAnswer = shell::MessageAnswer::Ok;
    QString isoFile;
    /// Receives the figures, which the transcript leaves out.
    std::function<void(const writing::RunFigures&)> onFigures;
    /// The last status shown.
    QString status;

private:
    static QString NameOf(writing::ProgressOf what)
    {
        return what == writing::ProgressOf::File ? u"FileBar"_s : u"Corvane7ProgressBar1"_s;
    }
    void Show(const QString& what, bool isVisible)
    {
        transcript_.Tell(what + (isVisible ? u" shown"_s : u" hidden"_s));
    }

    Transcript& transcript_;
};

} // namespace velmora::test
