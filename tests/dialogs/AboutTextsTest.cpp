// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/AboutTexts.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora::dialogs;
using namespace Qt::StringLiterals;

TEST(AboutTextsTest, TheVersionIsTheBuilds)
{
    EXPECT_EQ(AboutVersion(), u"Version " VELMORA_VERSION ""_s);
    EXPECT_TRUE(AboutVersion().startsWith(u"Version 2.0."_s));
}

TEST(AboutTextsTest, TheMakerLineEndsInTheYear)
{
    EXPECT_TRUE(AboutMaker(QDate(2026, 1, 31)).endsWith(u"Velmora 2026"_s));
    EXPECT_TRUE(AboutMaker(QDate(2031, 1, 31)).endsWith(u"Velmora 2031"_s));
}

TEST(AboutTextsTest, TheDescriptionHasFourParts)
{
    EXPECT_EQ(AboutDescription().split(u"\r\n"_s),
        QStringList({u"Outil de Gravure de disque de répertoires"_s,
            QString(),
            u"Compatible avec les graveurs de CD, DVD, DVD-DL, Blue Ray Disc "_s,
            QString(),
            u"Fonctionne sous Windows® 7, 8, 8.1, 10 et 11 "_s,
            QString()}));
}

TEST(AboutTextsTest, TheHelpTellsTheCommandLine)
{
    EXPECT_EQ(CommandLineHelp().split(u"\r\n"_s),
        QStringList({QString(),
            u"Velmora peut être appelé avec la ligne de commande suivante :"_s,
            u"Velmora.exe \"CheminCompletDuRepertoire\" -n NomDuDisqueAGraver"_s,
            QString(),
            u"CheminCompletDuRepertoire est le chemin complet du répertoire dont le contenu doit être gravé"_s,
            u"mis entre guillemets s'il contient des espaces"_s,
            QString(),
            u"-n ou -N ou | indique que les caractères suivants représentent le non du disque à graver"_s,
            QString(),
            u"NomDuDisqueAGraver est le nom donné au support de gravure"_s,
            u"-n NomDuDisqueAGraver est facultatif. En cas d'absence le disque sera nommé au nom du répertoire sélectionné"_s,
            QString(),
            QString(),
            QString()}));
}
