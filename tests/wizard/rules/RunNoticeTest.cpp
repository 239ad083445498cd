// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/RunNotice.h"

#include "drive/PublishedCodes.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"
#include "writing/RunReport.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using namespace test::path_literals;
using writing::BurnTarget;
using writing::EraseExtent;
using writing::Refusal;
using writing::RunEnding;

TEST(RunNoticeTest, WhatWasMadeIsTold)
{
    const RunNotice disc = NoticeOfBurn({.ending = RunEnding::Done});
    EXPECT_EQ(disc.outcome, Outcome::Done);
    EXPECT_EQ(disc.title, u"Disque gravé"_s);
    EXPECT_EQ(disc.words, u"Gravure effectuée avec succès."_s);
    const RunNotice file = NoticeOfBurn({.ending = RunEnding::Done,
        .target = BurnTarget::IsoFile,
        .isoFile = text::ProgramPath(u"\\home\\u\\disc.iso"_s)});
    EXPECT_EQ(file.title, u"Image ISO créée"_s);
    EXPECT_EQ(file.words, u"/home/u/disc.iso"_s);
    const RunNotice erased = NoticeOfErase({.ending = RunEnding::Done});
    EXPECT_EQ(erased.outcome, Outcome::Done);
    EXPECT_EQ(erased.words, u"Effacement réussi"_s);
}

TEST(RunNoticeTest, SuccessFailureRefusalAndStopHaveOutcomesTitlesAndWordsOfTheirOwn)
{
    const std::array<RunNotice, 5> notices {NoticeOfBurn({.ending = RunEnding::Done}),
        NoticeOfBurn({.ending = RunEnding::Done, .leftOut = {{}}}),
        NoticeOfBurn({.ending = RunEnding::Stopped}),
        NoticeOfBurn({.ending = RunEnding::Refused, .refusal = Refusal::NothingToBurn}),
        NoticeOfBurn({.ending = RunEnding::Failed, .errorNumber = -1, .errorText = u"Panne"_s})};
    const std::array<Outcome, 5> outcomes {
        Outcome::Done, Outcome::Doubtful, Outcome::Stopped, Outcome::Refused, Outcome::Failed};
    std::set<QString> titles;
    std::set<QString> words;
    for (std::size_t index = 0; index < notices.size(); ++index) {
        EXPECT_EQ(notices[index].outcome, outcomes[index]);
        titles.insert(notices[index].title);
        words.insert(notices[index].words);
    }
    EXPECT_EQ(titles.size(), notices.size());
    EXPECT_EQ(words.size(), notices.size());
    EXPECT_EQ(notices.back().words, u"Panne (Erreur n°\u00A0-1)"_s);
}

TEST(RunNoticeTest, ARefusalSaysWhatTheDriveSaysOfIt)
{
    EXPECT_EQ(NoticeOfBurn({.ending = RunEnding::Refused,
                               .refusal = Refusal::NoUsableDisc,
                               .errorText = u"Le graveur est occupé."_s})
                  .words,
        u"Le graveur est occupé."_s);
    for (const Refusal refusal : {Refusal::NoRecorder,
             Refusal::NothingToBurn,
             Refusal::NoUsableDisc,
             Refusal::OtherDisc,
             Refusal::NoRoom,
             Refusal::DiscNotBlank}) {
        const RunNotice notice = NoticeOfBurn({.ending = RunEnding::Refused, .refusal = refusal});
        EXPECT_FALSE(notice.words.isEmpty());
        EXPECT_FALSE(notice.advice.isEmpty());
    }
}

TEST(RunNoticeTest, AnEraseThatFailedIsNoSuccess)
{
    const RunNotice failed = NoticeOfErase({.ending = RunEnding::Failed,
        .errorText = u"Panne."_s,
        .eraseExtent = EraseExtent::Unknown});
    EXPECT_EQ(failed.outcome, Outcome::Failed);
    EXPECT_EQ(failed.words, u"L'effacement n'a pas abouti. Panne."_s);
    EXPECT_EQ(NoticeOfErase({.ending = RunEnding::Refused}).outcome, Outcome::Refused);
}

TEST(RunNoticeTest, AStoppedEraseIsNoFailure)
{
    const writing::RunReport untouched {
        .ending = RunEnding::Stopped, .eraseExtent = EraseExtent::Untouched};
    EXPECT_EQ(NoticeOfErase(untouched).outcome, Outcome::Stopped);
    EXPECT_EQ(NoticeOfErase(untouched).title, u"Effacement arrêté"_s);
    EXPECT_EQ(NoticeOfErase(untouched).words, u"Rien n'a été effacé."_s);
    const writing::RunReport begun {.ending = RunEnding::Stopped,
        .errorNumber = -1,
        .errorText = u"Interrompu."_s,
        .eraseExtent = EraseExtent::Unknown};
    EXPECT_EQ(NoticeOfErase(begun).words, u"L'effacement n'a pas abouti. Interrompu."_s);
    EXPECT_FALSE(MustBeSeen(begun)) << "whoever stopped it knows";
}

TEST(RunNoticeTest, WhyADiscWasNotErasedIsTold)
{
    for (const RunEnding ending : {RunEnding::Refused, RunEnding::Failed}) {
        EXPECT_EQ(CauseOfErase({.ending = ending,
                      .errorText = u"Aucun média."_s,
                      .eraseExtent = EraseExtent::Untouched}),
            u"Rien n'a été effacé. Aucun média."_s);
    }
    for (const RunEnding ending : {RunEnding::Done, RunEnding::GivenUp}) {
        EXPECT_EQ(CauseOfErase({.ending = ending}), QString());
    }
}

TEST(RunNoticeTest, AnImageThatChangedMeanwhileMustBeSeen)
{
    EXPECT_FALSE(MustBeSeen({.ending = RunEnding::Done}));
    EXPECT_TRUE(MustBeSeen({.ending = RunEnding::Done, .changedSources = {u"\\disc.iso"_path}}));
}

TEST(RunNoticeTest, ADiscThatWasNotComparedIsNoPlainSuccess)
{
    using imapi::ComparisonEnd;
    const writing::RunReport report {
        .ending = RunEnding::Done, .comparison = {.end = ComparisonEnd::Impossible}};
    EXPECT_EQ(NoticeOfBurn(report).outcome, Outcome::Doubtful);
    EXPECT_EQ(NoticeOfBurn(report).words,
        u"Rien n'a pu être comparé : rien ne dit que le disque est bon."_s);
    EXPECT_TRUE(MustBeSeen(report));
    const RunNotice inPart = NoticeOfBurn({.ending = RunEnding::Done,
        .comparison = {.end = ComparisonEnd::Impossible, .sectors = 9, .sameSectors = 3}});
    EXPECT_EQ(inPart.words,
        u"Le disque n'a pas pu être comparé jusqu'au bout : rien ne dit qu'il est bon."_s);
    EXPECT_FALSE(
        MustBeSeen({.ending = RunEnding::Done, .comparison = {.end = ComparisonEnd::Same}}));
}

TEST(RunNoticeTest, ADiscWhoseComparisonWasStoppedIsWhole)
{
    using imapi::ComparisonEnd;
    writing::RunReport report {.ending = RunEnding::Stopped,
        .isWritten = true,
        .isEjected = true,
        .comparison = {.end = ComparisonEnd::Stopped}};
    const RunNotice stopped = NoticeOfBurn(report);
    EXPECT_EQ(stopped.outcome, Outcome::Doubtful);
    EXPECT_EQ(stopped.title, u"Disque gravé, vérification arrêtée"_s);
    EXPECT_TRUE(stopped.words.endsWith(u"jusqu'au bout."_s));
    report.isEjected = false;
    report.errorNumber = -1;
    report.errorText = u"Panne."_s;
    EXPECT_TRUE(NoticeOfBurn(report).words.endsWith(u" Panne. (Erreur n°\u00A0-1)"_s));
    EXPECT_TRUE(MustBeSeen(report));
}

TEST(RunNoticeTest, AGoodDiscThatTheDriveKeepsIsNoFailure)
{
    writing::RunReport report {.ending = RunEnding::Done,
        .errorNumber = -1,
        .errorText = u"Panne."_s,
        .isWritten = true,
        .comparison = {.end = imapi::ComparisonEnd::Same}};
    const RunNotice kept = NoticeOfBurn(report);
    EXPECT_EQ(kept.outcome, Outcome::Doubtful);
    EXPECT_EQ(kept.title, u"Disque gravé, non éjecté"_s);
    EXPECT_EQ(kept.words, u"Le disque est gravé en entier. Panne. (Erreur n°\u00A0-1)"_s);
    EXPECT_EQ(kept.advice, u"Ouvrez le tiroir par le bouton du graveur."_s);
    EXPECT_TRUE(MustBeSeen(report));
    report.isEjected = true;
    EXPECT_EQ(NoticeOfBurn(report).title, u"Disque gravé, graveur non libéré"_s);
    EXPECT_EQ(NoticeOfBurn(report).advice, QString());
    report.changedSources = {u"\\a"_path};
    EXPECT_EQ(NoticeOfBurn(report).title, u"Disque gravé, avec des réserves"_s);
    EXPECT_TRUE(NoticeOfBurn(report).words.endsWith(u" Panne. (Erreur n°\u00A0-1)"_s));
}

TEST(RunNoticeTest, ADriveThatWentWhileComparingIsToBeConnectedAgain)
{
    const RunNotice gone = NoticeOfBurn({.ending = RunEnding::Done,
        .errorNumber = drive::hresult::kDeviceGone,
        .errorText = u"Parti."_s,
        .isWritten = true,
        .comparison = {.end = imapi::ComparisonEnd::Impossible}});
    EXPECT_TRUE(gone.words.contains(u"Parti."_s)) << gone.words.toStdString();
    EXPECT_EQ(gone.advice,
        u"Rebranchez le graveur pour en retirer le disque. Remettez le disque et ouvrez-en "
        u"quelques "
        "fichiers avant de vous y fier."_s);
}

TEST(RunNoticeTest, AStopThatCameBehindTheWriteLeavesAWholeDisc)
{
    writing::RunReport report {.ending = RunEnding::Stopped,
        .writtenBytes = 2048,
        .isWritten = true,
        .isEjected = true,
        .comparison = {.end = imapi::ComparisonEnd::Same}};
    const RunNotice late = NoticeOfBurn(report);
    EXPECT_EQ(late.outcome, Outcome::Doubtful);
    EXPECT_EQ(late.title, u"Disque gravé avant l'arrêt"_s);
    EXPECT_EQ(late.advice, QString()) << "nothing is lost";
    report.isEjected = false;
    report.comparison.end = imapi::ComparisonEnd::Impossible;
    EXPECT_GT(NoticeOfBurn(report).words.size(), late.words.size()) << "nor was it compared";
    EXPECT_TRUE(NoticeOfBurn(report).advice.startsWith(u"Ouvrez le tiroir "_s));
}

TEST(RunNoticeTest, WhatWasNotBegunIsNotTold)
{
    EXPECT_EQ(NoticeOfBurn({}).outcome, Outcome::None);
    EXPECT_EQ(NoticeOfErase({.ending = RunEnding::GivenUp}).outcome, Outcome::None);
}

} // namespace velmora::wizard
