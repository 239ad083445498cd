// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnConsole.h"

#include "terminal/console/FrenchText.h"
#include "terminal/console/ProgressPace.h"
#include "writing/BurnRun.h"

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

/// The first of the three lines that tell of an entry that is not on the disc.
bool TellsOfMissingEntry(const QString& line)
{
    return line.startsWith(u"Impossible d'ajouter à l'image disque"_s)
        || line.startsWith(u"Impossible de créer dans l'image disque"_s);
}

} // namespace

BurnConsole::BurnConsole(const DiscContext& context, Assent assent, shell::ProgramState& state)
    : context_(context)
    , state_(state)
    , messages_(context.screen, context.input, assent)
    , progress_(context.screen, context.steadyClock)
{
    context_.witness.OnProgress(
        [this](const drive::WriteProgress& progress) { progress_.Show(progress); });
}

BurnConsole::~BurnConsole() { context_.witness.OnProgress({}); }

void BurnConsole::ShowLog(const QString& strLog, bool)
{
    if (!strLog.isEmpty()) {
        context_.screen.Notice(HarmlessText(strLog.toStdString()));
    }
    missingEntries_ += TellsOfMissingEntry(strLog) ? 1 : 0;
}

void BurnConsole::SetLabel14(const QString& caption)
{
    label14_ = caption;
    ShowStatus(caption);
}

/// The line of progress belongs to the write while there is one.
void BurnConsole::ShowStatus(const QString& text)
{
    const SteadyTime now = context_.steadyClock();
    if (context_.screen.Style() != ProgressStyle::OneLine || progress_.IsShowing()
        || now - statusShown_ < kBetweenLines) {
        return;
    }
    statusShown_ = now;
    context_.screen.Progress(HarmlessText(text.simplified().toStdString()));
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

void BurnConsole::ShowFrame3DWait(bool isVisible)
{
    if (context_.screen.Style() == ProgressStyle::OneLine) {
        context_.screen.Progress(isVisible ? "Examen du disque…" : "");
    }
}

QString BurnConsole::GetIsoFileName(bool) { return isoFile_; }

shell::MessageAnswer BurnConsole::MsgBox(const QString& text, qint32 style, const QString& title)
{
    return messages_.MsgBox(text, style, title);
}

void BurnConsole::Pump()
{
    context_.pump.Pump();
    if (canStop_ && !hasStopped_ && context_.stopRequested()) {
        hasStopped_ = true;
        writing::RequestStop(*this, state_);
    }
}

} // namespace velmora::terminal
