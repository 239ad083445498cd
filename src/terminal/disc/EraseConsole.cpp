// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/EraseConsole.h"

#include "terminal/console/FrenchText.h"

namespace velmora::terminal {

using shell::MessageAnswer;
namespace style = shell::message_style;

namespace {

constexpr qint32 kWarning = style::kYesNo + style::kExclamation;
constexpr qint32 kFullOrQuick = style::kYesNo + style::kQuestion;

} // namespace

EraseConsole::EraseConsole(
    const DiscSurroundings& surroundings, Assent assent, bool erasesAll, qint16 recorderPlace)
    : surroundings_(surroundings)
    , messages_(surroundings.screen, surroundings.input, assent)
    , erasesAll_(erasesAll)
    , recorderPlace_(recorderPlace)
{
}

void EraseConsole::SetlblErase(const QString& caption)
{
    if (surroundings_.screen.Style() == ProgressStyle::OneLine) {
        surroundings_.screen.Progress(HarmlessText(caption.toStdString()));
    }
}

MessageAnswer EraseConsole::MsgBox(const QString& text, qint32 style, const QString& title)
{
    if (style == kFullOrQuick) {
        surroundings_.screen.Notice(erasesAll_ ? "Effacement complet." : "Effacement rapide.");
        return erasesAll_ ? MessageAnswer::Yes : MessageAnswer::No;
    }
    const MessageAnswer answer = messages_.MsgBox(text, style, title);
    if (style == kWarning) {
        isAgreed_ = answer == MessageAnswer::Yes;
    }
    return answer;
}

void EraseConsole::Pump()
{
    surroundings_.pump.Pump();
    if (surroundings_.witness.IsErasing() && !hasToldOfStop_ && surroundings_.stopRequested()) {
        hasToldOfStop_ = true;
        surroundings_.screen.Notice("Un effacement ne s'arrête pas en chemin : patientez.");
    }
}

} // namespace velmora::terminal
