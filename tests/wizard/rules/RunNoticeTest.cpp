// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/RunNotice.h"

#include "tests/support/QtPrinters.h"
#include "writing/RunReport.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using writing::BurnTarget;
using writing::Refusal;
using writing::RunEnding;

TEST(RunNoticeTest, WhatWasMadeIsTold)
{
    EXPECT_EQ(NoticeOfBurn({.ending = RunEnding::Done}), u"Gravure effectuée avec succès."_s);
    EXPECT_EQ(NoticeOfBurn({.ending = RunEnding::Done,
                  .target = BurnTarget::IsoFile,
                  .place = u"\\home\\u\\disc.iso"_s}),
        u"/home/u/disc.iso"_s);
    EXPECT_EQ(NoticeOfErase({.ending = RunEnding::Done}), u"Effacement réussi"_s);
}

TEST(RunNoticeTest, WhatWasNotMadeIsNoSuccess)
{
    const QString interrupted = u"Gravure interrompue par l'utilisateur."_s;
    EXPECT_EQ(NoticeOfBurn({.ending = RunEnding::Stopped}), interrupted);
    EXPECT_EQ(NoticeOfBurn({.ending = RunEnding::Refused, .refusal = Refusal::NothingToBurn}),
        interrupted);
    EXPECT_EQ(NoticeOfBurn({.ending = RunEnding::Refused, .refusal = Refusal::DiscNotBlank}),
        u"Abandon !"_s);
    EXPECT_EQ(NoticeOfBurn({.ending = RunEnding::GivenUp}),
        u"Gravure abandonnée : rien n'a été gravé."_s);
    EXPECT_EQ(
        NoticeOfBurn({.ending = RunEnding::Failed, .errorNumber = -1, .errorText = u"Panne"_s}),
        u"Panne (Erreur n° -1)"_s);
    for (const RunEnding ending : {RunEnding::Failed, RunEnding::Refused}) {
        EXPECT_EQ(
            NoticeOfErase({.ending = ending}), u"Erreur au cours de la procédure d'effacement !"_s);
    }
}

TEST(RunNoticeTest, WhyADiscWasNotErasedIsTold)
{
    EXPECT_EQ(CauseOfErase({.ending = RunEnding::Refused, .errorText = u"Aucun média."_s}),
        u"Rien n'a été effacé. Aucun média."_s);
    EXPECT_EQ(CauseOfErase({.ending = RunEnding::Failed, .errorText = u"Panne."_s}),
        u"Le disque n'est pas effacé. Panne."_s);
    for (const RunEnding ending : {RunEnding::Done, RunEnding::GivenUp, RunEnding::Stopped}) {
        EXPECT_EQ(CauseOfErase({.ending = ending}), QString());
    }
}

TEST(RunNoticeTest, AnImageThatChangedMeanwhileMustBeSeen)
{
    EXPECT_FALSE(MustBeSeen({.ending = RunEnding::Done}));
    EXPECT_TRUE(MustBeSeen({.ending = RunEnding::Done, .changedSources = {u"\\disc.iso"_s}}));
}

TEST(RunNoticeTest, ADiscThatWasNotComparedIsNoPlainSuccess)
{
    using imapi::ComparisonEnd;
    const writing::RunReport report {
        .ending = RunEnding::Done, .comparison = {.end = ComparisonEnd::Impossible}};
    EXPECT_EQ(
        NoticeOfBurn(report), u"Disque gravé, mais pas comparé : rien ne dit qu'il est bon."_s);
    EXPECT_TRUE(MustBeSeen(report));
    EXPECT_EQ(
        NoticeOfBurn({.ending = RunEnding::Stopped, .comparison = {.end = ComparisonEnd::Stopped}}),
        u"Disque gravé en entier, mais pas comparé : la vérification a été arrêtée."_s);
    EXPECT_FALSE(
        MustBeSeen({.ending = RunEnding::Done, .comparison = {.end = ComparisonEnd::Same}}));
}

TEST(RunNoticeTest, WhatWasNotBegunIsNotTold)
{
    EXPECT_EQ(NoticeOfBurn({}), QString());
    EXPECT_EQ(NoticeOfErase({.ending = RunEnding::GivenUp}), QString());
}

} // namespace velmora::wizard
