// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FrenchTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

void UseFrenchTexts(QCoreApplication& application)
{
    auto* french = new QTranslator(&application);
    if (french->load(u"qtbase_fr"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(french);
    }
}

} // namespace velmora::desktop
