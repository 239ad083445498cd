// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/EraseScreen.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

bool EraseScreen::AskForFullErase()
{
    using namespace shell::message_style;
    return MsgBox(u"Voulez-vous un effacement complet (au lieu d'un effacement rapide) ?"_s,
               kYesNo + kQuestion,
               kEraseTitle.toString())
        == shell::MessageAnswer::Yes;
}

} // namespace velmora::writing
