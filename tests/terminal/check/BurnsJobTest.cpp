// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/BurnsJob.h"

#include "tests/terminal/ScratchFolder.h"
#include "tests/terminal/TranscriptScreen.h"

#include <QTimeZone>

#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

class BurnsJobTest : public testing::Test {
protected:
    void Keep(const QString& volume) const
    {
        records.Keep({.date = QDateTime::fromSecsSinceEpoch(1'700'000'000, QTimeZone::utc()),
            .recorder = u"ACME BURN"_s,
            .disc = u"DVD+R"_s,
            .volume = volume,
            .sectors = 512,
            .sha256 = QByteArray(32, '1'),
            .pieces = QByteArray(16, '2')});
    }

    ExitCode Run(const BurnsRequest& request) { return RunBurnsRequest(request, records, screen); }

    ScratchFolder folder;
    records::BurnRecords records {QString::fromStdString(folder.Path("burns"))};
    TranscriptScreen screen;
};

TEST_F(BurnsJobTest, WithoutARecordThatIsSaid)
{
    EXPECT_EQ(Run({}), ExitCode::Done);
    EXPECT_TRUE(screen.Shows("! Aucune gravure n'a laissé de trace."));
}

TEST_F(BurnsJobTest, BurnsAreListedWithTheirNumbers)
{
    Keep(u"PHOTOS"_s);
    Keep(u"Été"_s);
    EXPECT_EQ(Run({}), ExitCode::Done);
    EXPECT_TRUE(screen.Shows("= 1   ")) << screen.Text();
    EXPECT_TRUE(screen.Shows("PHOTOS  DVD+R   1 048,6 Ko  ACME BURN")) << screen.Text();
    EXPECT_TRUE(screen.Shows("Été     DVD+R   1 048,6 Ko  ACME BURN")) << screen.Text();
}

TEST_F(BurnsJobTest, OneOrAllAreForgotten)
{
    Keep(u"A"_s);
    Keep(u"B"_s);
    Keep(u"C"_s);
    EXPECT_EQ(Run({.forgotten = 2}), ExitCode::Done);
    EXPECT_EQ(records.Numbers(), (QList<int> {1, 3}));
    EXPECT_EQ(Run({.forgotten = 2}), ExitCode::Failed);
    EXPECT_TRUE(screen.Shows("! Erreur : la gravure n° 2 n'a pas pu être oubliée"));
    EXPECT_EQ(Run({.forgetsAll = true}), ExitCode::Done);
    EXPECT_TRUE(records.Numbers().isEmpty());
    EXPECT_TRUE(screen.Shows("= Gravures oubliées : 2"));
}

} // namespace
} // namespace velmora::terminal
