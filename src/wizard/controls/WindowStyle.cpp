// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/WindowStyle.h"

#include "wizard/controls/Colours.h"

namespace velmora::wizard {

using namespace Qt::StringLiterals;

QString WindowStyle()
{
    const QString accent = colour::kAccent.name();
    return u"QPushButton[default=\"true\"] { background: %1; color: white; border: 2px solid %1;"
           u" border-radius: 4px; padding: 5px 22px; }"
           u"QPushButton[default=\"true\"]:hover { background: %2; border-color: %2; }"
           u"QPushButton[default=\"true\"]:pressed { background: %3; }"
           u"QPushButton[default=\"true\"]:focus { border-color: palette(window-text); }"
           u"#FrmMain QProgressBar { border: 1px solid palette(mid); border-radius: 4px;"
           u" background: palette(base); }"
           u"#FrmMain QProgressBar::chunk { background: %1; border-radius: 3px; }"_s.arg(
               accent, colour::kAccent.lighter(112).name(), colour::kAccent.darker(120).name());
}

} // namespace velmora::wizard
