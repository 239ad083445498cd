// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/NextStep.h"

#include "drive/PublishedCodes.h"
#include "tests/support/QtPrinters.h"
#include "writing/RunReport.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using writing::Refusal;
using writing::RunEnding;
using writing::RunReport;

TEST(NextStepTest, AGoodEndAsksForNothing)
{
    EXPECT_EQ(NextStep({.ending = RunEnding::Done}), QString());
    EXPECT_EQ(NextStep({}), QString());
}

TEST(NextStepTest, ADiscOfAnotherFormatNamesTheTiles)
{
    EXPECT_TRUE(NextStep({.ending = RunEnding::Refused, .refusal = Refusal::OtherDisc})
                    .contains(u"« Disque DVD »"_s));
}

TEST(NextStepTest, ARecorderThatIsInUseNeedsNoOtherDisc)
{
    for (const RunEnding ending : {RunEnding::Refused, RunEnding::Failed}) {
        EXPECT_EQ(NextStep({.ending = ending,
                      .refusal = Refusal::NoUsableDisc,
                      .errorNumber = drive::hresult::kRecorderLocked}),
            QString())
            << "who has it is told by the failure itself";
    }
}

TEST(NextStepTest, AFailedWriteAsksForAnotherDiscAndLessSpeed)
{
    const QString advice = NextStep({.ending = RunEnding::Failed,
        .errorNumber = drive::hresult::kWriteError,
        .writtenBytes = 2048});
    EXPECT_TRUE(advice.contains(u"autre disque"_s));
    EXPECT_TRUE(advice.contains(u"vitesse plus basse"_s));
}

TEST(NextStepTest, AHurtDiscIsNotToBeKept)
{
    EXPECT_TRUE(NextStep({.ending = RunEnding::Failed,
                             .errorNumber = drive::hresult::kVerificationFailed,
                             .comparison = {.end = imapi::ComparisonEnd::Hurt}})
                    .startsWith(u"Ne gardez pas ce disque."_s));
}

TEST(NextStepTest, AFailureBeforeTheDiscWasTouchedSaysNothingOfTheDisc)
{
    EXPECT_EQ(NextStep({.ending = RunEnding::Failed, .errorNumber = -1}), QString());
}

TEST(NextStepTest, AStopTellsWhatItCost)
{
    EXPECT_EQ(NextStep({.ending = RunEnding::Stopped}), QString()) << "nothing was written";
    EXPECT_TRUE(NextStep({.ending = RunEnding::Stopped, .writtenBytes = 2048})
                    .contains(u"peut être effacé"_s));
    EXPECT_TRUE(
        NextStep({.ending = RunEnding::Stopped, .writtenBytes = 2048, .tookAllSectors = true})
            .startsWith(u"Toutes les données sont gravées, mais"_s))
        << "the drive may have ended what it had written";
    EXPECT_EQ(NextStep({.ending = RunEnding::Stopped,
                  .writtenBytes = 2048,
                  .isWritten = true,
                  .isEjected = true,
                  .comparison = {.end = imapi::ComparisonEnd::Stopped}}),
        QString())
        << "the disc is whole";
    EXPECT_EQ(NextStep({.ending = RunEnding::Stopped,
                  .isWritten = true,
                  .comparison = {.end = imapi::ComparisonEnd::Stopped}}),
        u"Ouvrez le tiroir par le bouton du graveur."_s);
}

} // namespace velmora::wizard
