// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/LinkedStopCompanion.h"

#include "companion/protocol/CompanionArguments.h"
#include "companion/protocol/ProgressText.h"
#include "companion/protocol/StopWords.h"
#include "link/StartedProcess.h"
#include "runtime/ResumeNext.h"
#include "shell/PathHelpers.h"
#include "writing/ProgressWords.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

namespace words = companion::words;

namespace {

constexpr qint16 kPassesToComeUp = 20; // 21 passes, as the count runs from 0

// A window takes a while to appear on a busy machine; 21 passes alone take next to no time.
constexpr double kLongestStartSeconds = 5;
constexpr double kLookSeconds = 0.01;

// Figures that change faster can't be read.
constexpr double kBetweenProgressSeconds = 0.5;

text::ProgramPath CompanionFile(const text::ProgramPath& programFolder)
{
    QString folder = programFolder.Text();
    return text::ProgramPath(shell::AddBackslash(folder) + u"System\\StopButton.sys"_s);
}

} // namespace

LinkedStopCompanion::LinkedStopCompanion(const text::ProgramPath& programFolder,
    link::TextLink& DDETool,
    runtime::EventPump& pump,
    runtime::Clock& clock)
    : file_(CompanionFile(programFolder))
    , DDETool_(DDETool)
    , pump_(pump)
    , clock_(clock)
{
}

void LinkedStopCompanion::Start()
{
    const link::LinkFolder meetingPlace;
    StartProcess(meetingPlace);
    runtime::PumpEvents(pump_, kPassesToComeUp);
    DDETool_.SetLinkMode(link::LinkMode::None);
    DDETool_.SetLinkFolder(meetingPlace.Path());
    DDETool_.SetLinkTopic(words::Service());
    DDETool_.SetLinkItem(words::Item());
    DDETool_.SetLinkMode(link::LinkMode::Automatic);
    DDETool_.SetText({});
    hasQuit_ = false;
    DDETool_.LinkPoke();
    JoinProgress(meetingPlace);
}

/// A companion without a place for it goes without.
void LinkedStopCompanion::JoinProgress(const link::LinkFolder& meetingPlace)
{
    progress_.SetLinkFolder(meetingPlace.Path());
    progress_.SetLinkTopic(words::ProgressService());
    progress_.SetLinkItem(words::ProgressItem());
    runtime::ResumeNext([this] { progress_.SetLinkMode(link::LinkMode::Automatic); });
    shownPhase_ = RunPhase::Idle;
}

void LinkedStopCompanion::ShowProgress(const RunFigures& figures)
{
    const double now = clock_.Timer();
    if (figures.phase == shownPhase_ && now < nextProgress_) {
        return;
    }
    shownPhase_ = figures.phase;
    nextProgress_ = now + kBetweenProgressSeconds;
    progress_.SetText(
        companion::TextOf({.percent = PercentOf(figures), .words = ProgressLine(figures)}));
    runtime::ResumeNext([this] { progress_.LinkPoke(); });
}

void LinkedStopCompanion::Finish()
{
    DDETool_.SetText(words::Quit());
    hasQuit_ = true;
    runtime::ResumeNext([this] { DDETool_.LinkPoke(); });
}

bool LinkedStopCompanion::IsStopAsked() const
{
    return !hasQuit_ && DDETool_.Text() == words::Stop();
}

void LinkedStopCompanion::StartProcess(const link::LinkFolder& meetingPlace)
{
    companion::CompanionArguments arguments {.meetingFolder = meetingPlace.Path()};
    if (window_) {
        arguments.window = window_();
    }
    const link::StartedProcess companion(file_, companion::ToCommandLine(arguments));
    const double end = clock_.Timer() + kLongestStartSeconds;
    while (!meetingPlace.HasService(words::Service()) && companion.IsRunning()
        && clock_.Timer() < end) {
        clock_.Pause(kLookSeconds);
    }
}

} // namespace velmora::writing
