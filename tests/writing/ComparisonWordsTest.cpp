// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ComparisonWords.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::writing {

using namespace Qt::StringLiterals;
using namespace test::path_literals;
using imapi::ComparisonEnd;
using imapi::DiscComparison;

namespace {

const QLocale kFrench {QLocale::French};

DiscComparison HurtIn(std::vector<imapi::HurtPlace> places)
{
    return {.end = ComparisonEnd::Hurt,
        .sectors = 100'000,
        .sameSectors = 10'000,
        .places = std::move(places)};
}

} // namespace

TEST(ComparisonWordsTest, AGoodDiscNeedsNone)
{
    for (const auto end : {ComparisonEnd::NotBegun, ComparisonEnd::Unwanted, ComparisonEnd::Same}) {
        EXPECT_EQ(WordsOf({.end = end}, kFrench), QStringList());
    }
}

TEST(ComparisonWordsTest, ADifferenceIsToldWithItsPlace)
{
    EXPECT_EQ(WordsOf(HurtIn({{10'000, 10'007, false}}), kFrench),
        (QStringList {
            u"Erreur : le disque ne contient pas ce qui a été gravé ; première différence "
            "entre les secteurs 10000 et 10007, 20 Mo identiques avant cela."_s,
            u"Ne vous fiez pas à ce disque : gravez-en un autre."_s}));
}

TEST(ComparisonWordsTest, AnUnreadablePlaceIsToldAndHowManyThereAre)
{
    EXPECT_EQ(WordsOf(HurtIn({{9, 9, true}, {12, 12, false}}), kFrench),
        (QStringList {
            u"Erreur : le disque est illisible au secteur 9, 20 Mo identiques avant cela ; "
            "2 endroits abîmés en tout."_s,
            u"Ne vous fiez pas à ce disque : gravez-en un autre, moins vite."_s}));
}

TEST(ComparisonWordsTest, HurtFilesAreNamedAndTheOthersCounted)
{
    DiscComparison comparison = HurtIn({{1, 1, false}});
    comparison.hurtFiles = {{u"Photos\\été.jpg"_disc, 4100}, {u"b"_disc, 0}};
    comparison.hurtFileCount = 2;
    EXPECT_EQ(WordsOf(comparison, kFrench).mid(1, 3),
        (QStringList {u"Fichiers abîmés :"_s,
            u"            Photos\\été.jpg (à partir de l'octet 4100)"_s,
            u"            b (à partir de l'octet 0)"_s}));
    comparison.hurtFileCount = 3;
    EXPECT_EQ(WordsOf(comparison, kFrench)[4], u"            et un autre fichier"_s);
    comparison.hurtFileCount = 1002;
    EXPECT_EQ(WordsOf(comparison, kFrench)[4], u"            et 1000 autres fichiers"_s);
}

TEST(ComparisonWordsTest, AComparisonThatWasCutShortSaysSo)
{
    DiscComparison comparison = HurtIn({{1, 1, false}});
    comparison.isCutShort = true;
    EXPECT_EQ(WordsOf(comparison, kFrench)[1],
        u"Il y en a trop : la suite du disque n'a pas été comparée."_s);
}

TEST(ComparisonWordsTest, WhatKeptADiscFromBeingComparedIsTold)
{
    DiscComparison comparison {
        .end = ComparisonEnd::Impossible, .sectors = 100'000, .cause = u"Panne."_s};
    const QString end = u"Le disque est gravé en entier, mais rien ne dit qu'il est bon."_s;
    EXPECT_EQ(WordsOf(comparison, kFrench),
        (QStringList {u"Attention : rien n'a été comparé. Panne."_s, end}));
    comparison.sameSectors = 10'000;
    EXPECT_EQ(WordsOf(comparison, kFrench),
        (QStringList {
            u"Attention : rien n'a été comparé après les premiers 20 Mo, sans différence. "
            "Panne."_s,
            end}));
}

TEST(ComparisonWordsTest, AStopSaysHowMuchWasCompared)
{
    DiscComparison comparison {.end = ComparisonEnd::Stopped, .sectors = 100'000};
    const QString end = u"Le disque est gravé en entier, mais rien ne dit qu'il est bon."_s;
    EXPECT_EQ(WordsOf(comparison, kFrench),
        (QStringList {u"Comparaison arrêtée à votre demande : rien n'a été comparé."_s, end}));
    comparison.sameSectors = 10'000;
    EXPECT_EQ(WordsOf(comparison, kFrench)[0],
        u"Comparaison arrêtée à votre demande, après 20 Mo sans différence sur 204 Mo."_s);
}

} // namespace velmora::writing
