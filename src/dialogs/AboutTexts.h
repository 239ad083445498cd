// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>

namespace velmora::dialogs {

// What the about window says. Lines end in CR LF.

/// "Version " and the build's three numbers.
QString AboutVersion();
QString AboutTitle();
QString AboutDescription();
/// The maker line with the current year.
QString AboutMaker(QDate today);
QString AboutHelpCaption();
/// The help for the command line.
QString CommandLineHelp();

} // namespace velmora::dialogs
