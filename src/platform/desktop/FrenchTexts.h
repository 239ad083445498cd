// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QCoreApplication;

namespace velmora::desktop {

/// Makes Qt's own texts, such as those of the file dialogs, French whatever the locale; without
/// Qt's translations they stay as they are. Numbers keep the locale's form.
void UseFrenchTexts(QCoreApplication& application);

} // namespace velmora::desktop
