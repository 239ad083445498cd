// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/Fichier.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;

TEST(FichierTest, EachPropertyIsKept)
{
    compilation::Fichier entry;
    entry.SetNom(u"Photos\\"_s);
    entry.SetSize(1500);
    entry.SetTaille(u"1 Ko"_s);
    entry.SetIsDirectory(true);
    entry.SetOrigine(u"\\home\\Photos\\"_s);
    entry.SetIso(u"Photos\\"_s);
    EXPECT_EQ(entry.Nom(), u"Photos\\"_s);
    EXPECT_EQ(entry.Size(), 1500);
    EXPECT_EQ(entry.Taille(), u"1 Ko"_s);
    EXPECT_TRUE(entry.IsDirectory());
    EXPECT_EQ(entry.Origine(), u"\\home\\Photos\\"_s);
    EXPECT_EQ(entry.Iso(), u"Photos\\"_s);
}

TEST(FichierTest, TextsAreCopiedInByValue)
{
    QString name = u"a"_s;
    compilation::Fichier entry;
    entry.SetNom(name);
    name += u'b';
    EXPECT_EQ(entry.Nom(), u"a"_s);
}
