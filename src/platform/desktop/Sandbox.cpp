// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Sandbox.h"

#include <QFile>
#include <QtGlobal>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

bool IsInSandbox()
{
    return qEnvironmentVariableIsSet("SNAP") || QFile::exists(u"/.flatpak-info"_s);
}

} // namespace velmora::desktop
