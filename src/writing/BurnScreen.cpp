// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/BurnScreen.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

bool BurnScreen::AskForAnotherDisc(const QString& refusal, const QString& advice)
{
    using namespace shell::message_style;
    return MsgBoxWithAdvice(
               refusal, kYesNo + kQuestion, u"Média non compatible ou invalide"_s, advice)
        == shell::MessageAnswer::Yes;
}

} // namespace velmora::writing
