// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/EraseConsole.h"

#include "terminal/console/FrenchText.h"

namespace velmora::terminal {

EraseConsole::EraseConsole(
    const DiscContext& context, Assent assent, bool erasesAll, qint16 recorderPlace)
    : context_(context)
    , messages_(context.screen, context.input, assent)
    , erasesAll_(erasesAll)
    , recorderPlace_(recorderPlace)
{
}

void EraseConsole::SetStatus(const QString& text)
{
    if (context_.screen.Style() == ProgressStyle::OneLine) {
        context_.screen.Progress(HarmlessText(text.toStdString()));
    }
}

void EraseConsole::ShowTime(qint32 elapsedSeconds, qint32 estimatedTotalSeconds)
{
    context_.screen.Tell(PhaseProgress {.phase = JobPhase::Erasing,
        .amount = Amount {.unit = Unit::Seconds,
            .done = static_cast<std::uint64_t>(elapsedSeconds),
            .total = static_cast<std::uint64_t>(estimatedTotalSeconds)}});
}

bool EraseConsole::AskForFullErase()
{
    context_.screen.Notice(erasesAll_ ? "Effacement complet." : "Effacement rapide.");
    return erasesAll_;
}

shell::MessageAnswer EraseConsole::MsgBox(const QString& text, qint32 style, const QString& title)
{
    return messages_.MsgBox(text, style, title);
}

void EraseConsole::Pump() { context_.pump.Pump(); }

bool EraseConsole::WantsToStop() const { return context_.stopRequested(); }

} // namespace velmora::terminal
