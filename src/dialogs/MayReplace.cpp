// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/MayReplace.h"

#include "shell/MessageDoor.h"

namespace velmora::dialogs {

using namespace Qt::StringLiterals;
namespace styles = shell::message_style;

bool MayReplace(shell::MessageDoor& messages, const QString& question)
{
    return messages.MsgBox(u"Ce fichier existe déjà.\r\n"_s + question,
               styles::kYesNo + styles::kQuestion,
               u"Fichier déjà présent..."_s)
        == shell::MessageAnswer::Yes;
}

} // namespace velmora::dialogs
