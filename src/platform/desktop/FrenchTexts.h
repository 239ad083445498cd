// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QCoreApplication;

namespace velmora::desktop {

/// Gives the toolkit's own texts, as those of the file dialogs, in French whatever the locale;
/// without its translations they stay as they are. Numbers keep the locale's form.
void UseFrenchTexts(QCoreApplication& application);

} // namespace velmora::desktop
