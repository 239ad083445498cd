// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/ReportUnhandled.h"

#include "runtime/RuntimeError.h"
#include "shell/MessageDoor.h"

namespace velmora::wizard {

using namespace Qt::StringLiterals;

void ReportUnhandled(
    const runtime::RuntimeError& failure, AfterError then, shell::MessageDoor& messages)
{
    const QString number = QString::number(failure.Number());
    if (then == AfterError::GoOn) {
        messages.MsgBox(failure.Description() + u" (Erreur n° %1)"_s.arg(number),
            shell::message_style::kExclamation,
            u"Velmora"_s);
        return;
    }
    messages.MsgBox(u"Erreur d'exécution '"_s + number + u"':\r\n\r\n"_s + failure.Description()
            + u"\r\n\r\nVelmora se termine."_s,
        shell::message_style::kStop,
        u"Velmora"_s);
}

} // namespace velmora::wizard
