// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnConsole.h"

#include "drive/SectorSize.h"
#include "terminal/console/FrenchText.h"
#include "terminal/console/ProgressPace.h"
#include "writing/BurnRun.h"

#include <algorithm>

namespace velmora::terminal {

namespace {

JobPhase PhaseOf(writing::RunPhase phase)
{
    switch (phase) {
    case writing::RunPhase::Preparing:
        return JobPhase::Preparing;
    case writing::RunPhase::Formatting:
        return JobPhase::Formatting;
    case writing::RunPhase::Calibrating:
        return JobPhase::Calibrating;
    case writing::RunPhase::Writing:
        return JobPhase::Writing;
    case writing::RunPhase::Finalizing:
        return JobPhase::Finalizing;
    case writing::RunPhase::Comparing:
        return JobPhase::Comparing;
    case writing::RunPhase::Idle:
    case writing::RunPhase::Working:
        break;
    }
    return JobPhase::Working;
}

/// A drive reports how much is done only while writing and comparing.
std::optional<Amount> AmountOf(const writing::RunFigures& figures)
{
    const bool compares = figures.phase == writing::RunPhase::Comparing;
    if (!compares && figures.phase != writing::RunPhase::Writing) {
        return std::nullopt;
    }
    const qint64 done = compares ? figures.comparedSectors : figures.writtenSectors;
    Amount amount;
    // Before its first sector a drive may report one that lies before the recording.
    amount.done = static_cast<std::uint64_t>(std::max<qint64>(done, 0)) * drive::kSectorBytes;
    amount.total = static_cast<std::uint64_t>(figures.sectors) * drive::kSectorBytes;
    amount.secondsLeft = figures.secondsLeft;
    if (figures.sectorsPerSecond) {
        amount.perSecond = *figures.sectorsPerSecond * drive::kSectorBytes;
    }
    return amount;
}

} // namespace

BurnConsole::BurnConsole(const DiscContext& context, Assent assent, shell::ProgramState& state)
    : context_(context)
    , state_(state)
    , messages_(context.screen, context.input, assent)
    , progress_(context.screen, context.steadyClock)
{
    context_.witness.OnProgress([this](const drive::WriteProgress& progress) { Hear(progress); });
}

BurnConsole::~BurnConsole() { context_.witness.OnProgress({}); }

/// Once the disc is written the line of progress shows the status line, which reports the
/// comparison.
void BurnConsole::Hear(const drive::WriteProgress& progress)
{
    if (progress.action == drive::WriteAction::Completed) {
        progress_.End();
    } else {
        progress_.Show(progress);
    }
}

void BurnConsole::AddLogLine(const QString& line)
{
    if (!line.isEmpty()) {
        context_.screen.Notice(HarmlessText(line.toStdString()));
    }
}

/// During a write the line of progress belongs to it.
void BurnConsole::SetStatus(const QString& text)
{
    const SteadyTime now = context_.steadyClock();
    if (context_.screen.Style() != ProgressStyle::OneLine || progress_.IsShowing()
        || now - statusShown_ < kBetweenLines) {
        return;
    }
    statusShown_ = now;
    context_.screen.Progress(HarmlessText(text.simplified().toStdString()));
}

void BurnConsole::ShowFigures(const writing::RunFigures& figures)
{
    if (figures.phase != writing::RunPhase::Idle) {
        context_.screen.Tell(
            PhaseProgress {.phase = PhaseOf(figures.phase), .amount = AmountOf(figures)});
    }
}

void BurnConsole::ShowBurnButton(writing::BurnButton button, bool isVisible)
{
    if (button != writing::BurnButton::Stop) {
        return;
    }
    canStop_ = isVisible;
    if (!isVisible) {
        progress_.End();
    }
}

void BurnConsole::ShowDriveWait(bool isVisible)
{
    if (context_.screen.Style() == ProgressStyle::OneLine) {
        context_.screen.Progress(isVisible ? "Examen du disque…" : "");
    }
}

shell::MessageAnswer BurnConsole::MsgBox(const QString& text, qint32 style, const QString& title)
{
    const shell::MessageAnswer answer = messages_.MsgBox(text, style, title);
    HearStop();
    return answer;
}

/// Advice is about the window.
bool BurnConsole::AskForAnotherDisc(const QString& refusal, const QString& /*advice*/)
{
    const bool isThere = messages_.AskForAnotherDisc(refusal);
    HearStop();
    return isThere;
}

/// What is answered because of a stop is no answer.
void BurnConsole::HearStop() { state_.StopFlag = state_.StopFlag || context_.stopRequested(); }

void BurnConsole::Pump()
{
    context_.pump.Pump();
    if (canStop_ && !hasStopped_ && context_.stopRequested()) {
        hasStopped_ = true;
        writing::RequestStop(*this, state_);
    }
}

} // namespace velmora::terminal
