// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/RunReport.h"
#include "tests/support/PathLiterals.h"
#include "tests/writing/RunBench.h"

namespace velmora::test {

using namespace path_literals;
using writing::BurnTarget;
using writing::Refusal;
using writing::RunEnding;
using writing::RunReport;

class RunReportTest : public RunBench {
protected:
    RunReport ReportOf(BurnTarget target = BurnTarget::Disc)
    {
        transcript.Clear();
        return writing::BurnRun(ContextWith(mastering)).Run(target);
    }
    RunReport ReportOfIso()
    {
        transcript.Clear();
        return writing::IsoBurnRun(ContextWith(mastering)).Run();
    }
};

TEST_F(RunReportTest, ABurnedDiscIsTold)
{
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Done);
    EXPECT_EQ(report.refusal, Refusal::None);
    EXPECT_EQ(report.errorNumber, 0);
    EXPECT_EQ(report.target, BurnTarget::Disc);
    EXPECT_EQ(report.recorderId, u"id of 0"_s);
    EXPECT_EQ(report.writtenBytes, 4U * 2048) << "as the last event of the writing has it";
    EXPECT_TRUE(report.leftOut.empty());
}

// The drive tells of a write between two looks: all of it may be over by the second one.
TEST_F(RunReportTest, WhatIsWrittenWhenTheDriveFinalizesCounts)
{
    script.writeEvents = {WriteEvent(3, 0, 8), WriteEvent(4, 4, 8), WriteEvent(5, 8, 8)};
    EXPECT_EQ(ReportOf().writtenBytes, 8U * 2048);
    EXPECT_TRUE(ReportOf().tookAllSectors);
    script.writeEvents = {WriteEvent(4, 7, 8), WriteEvent(6)};
    EXPECT_FALSE(ReportOf().tookAllSectors);
}

TEST_F(RunReportTest, TheComparisonIsToldHoweverTheWriteEnds)
{
    script.comparison = {.end = imapi::ComparisonEnd::Same, .sectors = 4};
    EXPECT_EQ(ReportOf().comparison.end, imapi::ComparisonEnd::Same);
    script.comparison = {.end = imapi::ComparisonEnd::Hurt, .places = {{7, 7, false}}};
    FailAt("dataWriter1.Write(image stream)");
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Failed);
    EXPECT_EQ(report.comparison.end, imapi::ComparisonEnd::Hurt);
    EXPECT_NE(transcript.Text().find("première différence au secteur 7"), std::string::npos);
}

TEST_F(RunReportTest, WhatFailedBesideAGoodWriteIsTold)
{
    script.remarks = {u"la trace n'a pas été gardée."_s};
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Done);
    EXPECT_EQ(report.remarks, script.remarks);
    EXPECT_TRUE(transcript.Holds("log \"Attention : la trace n'a pas été gardée.\""));
}

TEST_F(RunReportTest, ARunThatLacksMemoryFailsLikeAnyOther)
{
    transcript.At("new MsftDiscFormat2Data", [] { throw std::bad_alloc(); });
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Failed);
    EXPECT_EQ(report.errorNumber, runtime::error::kOutOfMemory);
    EXPECT_EQ(report.errorText, u"Mémoire insuffisante"_s);
}

TEST_F(RunReportTest, ADiscThatWasNeverWrittenWasNotCompared)
{
    FailAt("new MsftDiscFormat2Data");
    EXPECT_EQ(ReportOf().comparison.end, imapi::ComparisonEnd::NotBegun);
}

TEST_F(RunReportTest, ADiscThatTheDriveKeepsIsMadeAllTheSame)
{
    script.comparison = {.end = imapi::ComparisonEnd::Same, .sectors = 4};
    script.changedSources = {u"\\home\\u\\letter.txt"_path};
    FailAt("recorder.EjectMedia");
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Done);
    EXPECT_TRUE(report.isWritten);
    EXPECT_FALSE(report.isEjected);
    EXPECT_EQ(report.errorNumber, -1);
    EXPECT_EQ(report.changedSources, script.changedSources);
    EXPECT_TRUE(transcript.Holds("log \"Attention : modifié pendant la gravure, le disque porte "
                                 "ce qui en a été lu : /home/u/letter.txt\""));
    EXPECT_FALSE(state.BurnDone);
}

TEST_F(RunReportTest, AHurtDiscIsWrittenAndAFailureEvenWithAStop)
{
    script.comparison = {.end = imapi::ComparisonEnd::Hurt, .places = {{7, 7, false}}};
    script.changedSources = {u"\\home\\u\\letter.txt"_path};
    transcript.At("dataWriter1.Write(image stream)", [this] {
        Stop();
        throw runtime::RuntimeError(-1, u"Abîmé"_s);
    });
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Failed);
    EXPECT_TRUE(report.isWritten);
    EXPECT_EQ(report.errorText, u"Abîmé"_s);
    EXPECT_EQ(report.changedSources, script.changedSources);
    EXPECT_TRUE(transcript.Holds("log \"Attention : modifié pendant la gravure, le disque porte "
                                 "ce qui en a été lu : /home/u/letter.txt\""));
    EXPECT_FALSE(transcript.Holds("log \"Une erreur est survenue : \""));
}

TEST_F(RunReportTest, AStopBehindTheWriteLeavesAWrittenDisc)
{
    StopAt("mouse free");
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Stopped);
    EXPECT_TRUE(report.isWritten);
    EXPECT_TRUE(report.isEjected);
}

TEST_F(RunReportTest, AStopThatComesTooLateForTheDriveLeavesAWrittenDisc)
{
    script.comparison = {.end = imapi::ComparisonEnd::Stopped, .sectors = 4};
    script.changedSources = {u"\\home\\u\\letter.txt"_path};
    transcript.At("dataWriter1.Write(image stream)", [this] {
        Stop();
        throw drive::PublishedError(drive::hresult::kCancelled);
    });
    const RunReport report = ReportOf();
    EXPECT_TRUE(transcript.Holds("log \"Attention : modifié pendant la gravure, le disque porte "
                                 "ce qui en a été lu : /home/u/letter.txt\""));
    EXPECT_EQ(report.ending, RunEnding::Stopped);
    EXPECT_TRUE(report.isWritten);
    EXPECT_FALSE(report.isEjected);
    EXPECT_EQ(report.errorNumber, 0) << "the stop is no failure";
}

TEST_F(RunReportTest, ADiscThatIsNotEjectedAfterAStopIsTold)
{
    StopAt("mouse free");
    FailAt("recorder.EjectMedia");
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Stopped);
    EXPECT_TRUE(report.FailedAfterwards());
    EXPECT_FALSE(transcript.Holds("log \"Une erreur est survenue : \""));
}

TEST_F(RunReportTest, ADiscOfWhichTheWriteFailedIsNotWritten)
{
    FailAt("dataWriter1.Write(image stream)");
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Failed);
    EXPECT_FALSE(report.isWritten);
}

TEST_F(RunReportTest, AQuestionThatAStopAnsweredIsAStop)
{
    screen.promptAnswer = shell::MessageAnswer::Cancel;
    transcript.At("tray opens", [this] { Stop(); });
    EXPECT_EQ(ReportOf().ending, RunEnding::Stopped);
    EXPECT_EQ(ReportOfIso().ending, RunEnding::Stopped);
}

TEST_F(RunReportTest, NamesThatWereChangedAreTold)
{
    script.changedNames
        = {{.path = u"\\a?b"_disc, .recorded = u"a_b"_s, .fileSystem = u"Joliet"_s}};
    const RunReport report = ReportOf();
    ASSERT_EQ(report.changedNames.size(), 1U);
    EXPECT_EQ(report.changedNames.front().path, u"\\a?b"_disc);
    EXPECT_EQ(report.changedNames.front().recorded, u"a_b"_s);
}

TEST_F(RunReportTest, WhatOneFileSystemLacksAndWhatReadersLoseIsTold)
{
    script.partlyHeld = {{.path = u"a"_disc, .fileSystem = u"Joliet"_s, .reason = u"Un lien."_s}};
    script.nameHazards = {{.path = u"..."_disc, .reason = u"Des points."_s}};
    const RunReport report = ReportOf();
    ASSERT_EQ(report.partlyHeld.size(), 1U);
    EXPECT_EQ(report.partlyHeld.front().fileSystem, u"Joliet"_s);
    ASSERT_EQ(report.nameHazards.size(), 1U);
    EXPECT_EQ(report.nameHazards.front().path, u"..."_disc);
}

TEST_F(RunReportTest, LinksThatLeadOutAndThoseThatAreMissingAreTold)
{
    script.linksLeadingOut = {{.path = u"a"_disc, .text = u"/etc"_s}};
    script.linksLeftOut = {{.path = u"b"_s, .reason = u"Pas de liens."_s}};
    const RunReport report = ReportOf();
    ASSERT_EQ(report.linksLeadingOut.size(), 1U);
    EXPECT_EQ(report.linksLeadingOut.front().text, u"/etc"_s);
    ASSERT_EQ(report.leftOut.size(), 1U);
    EXPECT_EQ(report.leftOut.front().path, u"b"_s);
}

TEST_F(RunReportTest, HiddenEntriesOfTheFirstLevelAreToldUnlessTheyWereAddedByName)
{
    state.HiddenEntries
        = {u"\\home\\u\\.bashrc"_path, u"\\home\\u\\.config"_path, u"\\home\\u\\.x"_path};
    compilation::ListRow& file = list.Add(u".x"_s, text::DiscPath(u".x"_s), u"F0"_s);
    list.SetOrigin(file, text::ProgramPath(u"\\home\\u\\.x"_s));
    compilation::ListRow& folder
        = list.Add(u".config\\"_s, text::DiscPath(u".config\\"_s), u"FD"_s);
    list.SetOrigin(folder, text::ProgramPath(u"\\home\\u\\.config\\"_s));
    EXPECT_EQ(ReportOf().hiddenEntries, QList {u"\\home\\u\\.bashrc"_path});
}

TEST_F(RunReportTest, ASavedImageIsTold)
{
    const RunReport report = ReportOf(BurnTarget::IsoFile);
    EXPECT_EQ(report.ending, RunEnding::Done);
    EXPECT_EQ(report.target, BurnTarget::IsoFile);
    EXPECT_EQ(report.isoFile, text::ProgramPath(u"\\home\\u\\disc.iso"_s));
}

TEST_F(RunReportTest, WithoutAFileNothingWasBegun)
{
    screen.isoFile.clear();
    EXPECT_EQ(ReportOf(BurnTarget::IsoFile).ending, RunEnding::NotBegun);
    EXPECT_EQ(ReportOfIso().ending, RunEnding::NotBegun);
}

TEST_F(RunReportTest, ARunThatCantBeIsRefused)
{
    options.recorder = -1;
    EXPECT_EQ(ReportOf().ending, RunEnding::Refused);
    EXPECT_EQ(ReportOf().refusal, Refusal::NoRecorder);
    EXPECT_EQ(ReportOfIso().refusal, Refusal::NoRecorder);
    options.recorder = 0;
    list.Remove(1);
    EXPECT_EQ(ReportOf().ending, RunEnding::Refused);
    EXPECT_EQ(ReportOf().refusal, Refusal::NothingToBurn);
}

TEST_F(RunReportTest, ARefusedDiscIsToldWithItsReason)
{
    const FoundDisc dvd {.type = 6, .speeds = {10800, 5400}};
    const FoundDisc used {.isBlank = false};
    script.discs = {dvd};
    EXPECT_EQ(ReportOf().ending, RunEnding::Refused);
    EXPECT_EQ(ReportOf().refusal, Refusal::OtherDisc);
    script.discs = {used};
    EXPECT_EQ(ReportOf().refusal, Refusal::DiscNotBlank);
    EXPECT_EQ(ReportOfIso().refusal, Refusal::DiscNotBlank);
    script.discs = {{}};
    state.TotalSizeBytes = 1e12;
    EXPECT_EQ(ReportOf().refusal, Refusal::NoRoom);
}

TEST_F(RunReportTest, AnEmptyDriveIsNoDiscThatIsNotBlank)
{
    script.discs = {{.isMediaSupported = false}};
    EXPECT_EQ(ReportOf().refusal, Refusal::NoUsableDisc);
    EXPECT_EQ(ReportOfIso().refusal, Refusal::NoUsableDisc);
    EXPECT_EQ(ReportOfIso().ending, RunEnding::Refused);
}

TEST_F(RunReportTest, AnotherDiscAfterARefusalIsASuccess)
{
    script.discs = {{.type = 6}, {}};
    Answer({shell::MessageAnswer::Yes});
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Done);
    EXPECT_EQ(report.refusal, Refusal::None);
}

TEST_F(RunReportTest, ACancelledPromptIsNoSuccess)
{
    screen.promptAnswer = shell::MessageAnswer::Cancel;
    EXPECT_EQ(ReportOf().ending, RunEnding::GivenUp);
    EXPECT_EQ(ReportOfIso().ending, RunEnding::GivenUp);
}

TEST_F(RunReportTest, AStopIsTold)
{
    StopAt("root.AddFile(letter.txt, stream on \\home\\u\\letter.txt)");
    EXPECT_EQ(ReportOf().ending, RunEnding::Stopped);
}

TEST_F(RunReportTest, AFailureThatFollowsAStopIsAStop)
{
    transcript.At("dataWriter1.Write(image stream)", [this] {
        Stop();
        throw runtime::RuntimeError(-1, u"Annulé"_s);
    });
    const RunReport report = ReportOf();
    EXPECT_EQ(report.ending, RunEnding::Stopped);
    EXPECT_EQ(report.errorNumber, 0);
}

TEST_F(RunReportTest, AFailureIsToldWithItsError)
{
    FailAt("new MsftDiscFormat2Data");
    for (const RunReport& report : {ReportOf(), ReportOfIso()}) {
        EXPECT_EQ(report.ending, RunEnding::Failed);
        EXPECT_EQ(report.errorNumber, -1);
        EXPECT_EQ(report.errorText, u"Panne"_s);
    }
}

TEST_F(RunReportTest, EveryEntryLeftOutIsToldHoweverFewLinesTheLogHas)
{
    AddRow(u"Photos"_s, compilation::EntryKind::Directory, u"\\home\\u\\Photos"_s);
    FailAt("root.AddFile(letter.txt, stream on \\home\\u\\letter.txt)");
    transcript.At("root.AddTree(\\home\\u\\Photos, True)", [] {
        throw imapi::EntriesLeftOut(-2,
            u"3 éléments laissés de côté"_s,
            {{u"\\home\\u\\Photos\\a"_s, u"Un tube."_s},
                {u"\\home\\u\\Photos\\b"_s, u"Un tube."_s},
                {u"\\home\\u\\Photos\\c"_s, u"Un tube."_s}});
    });

    const RunReport report = ReportOf();

    EXPECT_EQ(report.ending, RunEnding::Done);
    ASSERT_EQ(report.leftOut.size(), 4U);
    EXPECT_EQ(report.leftOut[0].path, u"\\home\\u\\letter.txt"_s);
    EXPECT_EQ(report.leftOut[0].reason, u"Panne"_s);
    EXPECT_EQ(report.leftOut[3].path, u"\\home\\u\\Photos\\c"_s);
    EXPECT_EQ(report.leftOut[3].reason, u"Un tube."_s);
}

} // namespace velmora::test
