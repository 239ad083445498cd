// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/ConsoleMessages.h"

#include "terminal/console/FrenchText.h"

#include <QStringList>

namespace velmora::terminal {

using shell::MessageAnswer;
namespace style = shell::message_style;

namespace {

bool Holds(qint32 sum, qint32 part) { return (sum & part) == part; }

bool IsQuestion(qint32 sum) { return Holds(sum, style::kYesNo) || Holds(sum, style::kOkCancel); }

/// Whether the box asks the user to do something, and doesn't just report a failure.
bool WantsSomethingDone(qint32 sum) { return Holds(sum, style::kInformation); }

/// The box's lines as they are shown, without the empty ones.
std::vector<std::string> LinesOf(const QString& text)
{
    std::vector<std::string> lines;
    for (const QString& line : text.split(u'\n')) {
        if (const QString shown = line.trimmed(); !shown.isEmpty()) {
            lines.push_back(HarmlessText(shown.toStdString()));
        }
    }
    return lines;
}

} // namespace

ConsoleMessages::ConsoleMessages(TerminalScreen& screen, LineSource& input, Assent assent)
    : screen_(screen)
    , input_(input)
    , assent_(assent)
{
}

MessageAnswer ConsoleMessages::MsgBox(const QString& text, qint32 style, const QString& /*title*/)
{
    const std::vector<std::string> lines = LinesOf(text);
    const bool isAnswered = IsQuestion(style) || WantsSomethingDone(style);
    const bool waits = isAnswered && assent_ == Assent::Asked;
    Show(lines, waits);
    if (!isAnswered) {
        TellFirst(lines, RemarkKind::Message);
        return MessageAnswer::Ok;
    }
    if (!waits) {
        return AnswerGiven(style);
    }
    if (Holds(style, style::kYesNo)) {
        return AskYesOrNo();
    }
    const MessageAnswer answer = AskToConfirm();
    return Holds(style, style::kOkCancel) ? answer : MessageAnswer::Ok;
}

bool ConsoleMessages::AskForAnotherDisc(const QString& refusal)
{
    const std::vector<std::string> lines = LinesOf(refusal);
    const bool waits = assent_ == Assent::Asked;
    Show(lines, waits);
    if (waits) {
        return AskYesOrNo() == MessageAnswer::Yes;
    }
    screen_.Notice("→ Non (--yes)");
    TellFirst(lines, RemarkKind::RefusedDisc);
    return false;
}

/// Only what waits for an answer is a question.
void ConsoleMessages::Show(const std::vector<std::string>& lines, bool waits)
{
    for (const std::string& line : lines) {
        waits ? screen_.Question(line) : screen_.Notice(line);
    }
}

/// The first line says what a box is about.
void ConsoleMessages::TellFirst(const std::vector<std::string>& lines, RemarkKind kind)
{
    if (!lines.empty()) {
        screen_.Tell(JobRemark {.kind = kind, .text = lines.front()});
    }
}

MessageAnswer ConsoleMessages::AnswerGiven(qint32 style)
{
    if (!Holds(style, style::kYesNo)) {
        return MessageAnswer::Ok;
    }
    screen_.Notice("→ Oui (--yes)");
    return MessageAnswer::Yes;
}

MessageAnswer ConsoleMessages::AskToConfirm()
{
    screen_.Question("[Entrée pour continuer, a puis Entrée pour abandonner]");
    const auto line = input_.ReadLine();
    const bool isAgreed = line && !line->starts_with('a') && !line->starts_with('A');
    return isAgreed ? MessageAnswer::Ok : MessageAnswer::Cancel;
}

MessageAnswer ConsoleMessages::AskYesOrNo()
{
    screen_.Question("[o puis Entrée pour oui, Entrée pour non]");
    const auto line = input_.ReadLine();
    const bool isAgreed = line && (line->starts_with('o') || line->starts_with('O'));
    return isAgreed ? MessageAnswer::Yes : MessageAnswer::No;
}

} // namespace velmora::terminal
