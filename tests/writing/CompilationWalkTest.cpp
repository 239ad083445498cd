// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ErrorNumberOf.h"
#include "tests/writing/ImageStageBench.h"

namespace velmora::test {

using ImageStageTest = ImageStageBench;

TEST_F(ImageStageTest, ATopLevelDirectoryGoesIntoTheRoot)
{
    AddRow(u"Photos\\"_s, compilation::EntryKind::Directory, u"\\home\\u\\Photos\\"_s);

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
root.AddTree(\home\u\Photos, True)
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, ANestedDirectoryGoesUnderItsParentAndKeepsItsSourcesName)
{
    AddRow(u"A\\B\\"_s, compilation::EntryKind::Directory, u"\\home\\u\\Holidays\\"_s);

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
root.Item(A)
A.AddTree(\home\u\Holidays, True)
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, ADeeplyNestedDirectoryGoesUnderTheWholeParentPath)
{
    AddRow(u"A\\B\\C\\"_s, compilation::EntryKind::Directory, u"\\C\\"_s);

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
root.Item(A\B)
A\B.AddTree(\C, True)
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, ADirectoryMadeForTheDiscIsMadeInTheRootItem)
{
    AddRow(u"A\\New\\"_s, compilation::EntryKind::Directory, u""_s);
    AddRow(u"Blank\\"_s, compilation::EntryKind::Directory, u"  "_s);

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
root.AddDirectory(A\New)
Corvane7ProgressBar1 50
pump
pump
root.AddDirectory(Blank)
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, AFileIsStreamedToTheWholePathOfItsRow)
{
    AddRow(u"A\\b.txt"_s, compilation::EntryKind::File, u"\\home\\u\\b.txt"_s);

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
SHCreateStreamOnFile(\home\u\b.txt, 32)
root.AddFile(A\b.txt, stream on \home\u\b.txt)
stream on \home\u\b.txt released
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, AFileWithoutOriginIsPassedOverSilently)
{
    AddRow(u"a.txt"_s, compilation::EntryKind::File, u""_s);

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, ARowWithoutAKindChangesNothingButTheBar)
{
    AddRow(u"a.txt"_s, std::nullopt, u"\\a.txt"_s);
    AddRow(u"b\\"_s, std::nullopt, u"\\b\\"_s);
    AddRow(u"c\\"_s, std::nullopt, u""_s);

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
Corvane7ProgressBar1 33
pump
pump
Corvane7ProgressBar1 67
pump
pump
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, TheRootOfTheMachineIsAddedByItsSeparator)
{
    AddRow(u"\\"_s, compilation::EntryKind::Directory, u"\\"_s);

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
root.AddTree(\, True)
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, AnEmptyListOnlyEmptiesTheBar)
{
    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
)");
}

TEST_F(ImageStageTest, AFailedTreeIsLoggedInThreeLinesAndPassedOver)
{
    AddRow(u"A\\"_s, compilation::EntryKind::Directory, u"\\home\\u\\A\\"_s);
    AddRow(u"b.txt"_s, compilation::EntryKind::File, u"\\b.txt"_s);
    transcript.At(R"(root.AddTree(\home\u\A, True))",
        [] { throw runtime::RuntimeError(-1062555349, u"Lecture du répertoire impossible."_s); });

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
root.AddTree(\home\u\A, True)
log "Impossible d'ajouter à l'image disque le répertoire :"
log "      /home/u/A"
log "                Lecture du répertoire impossible."
Corvane7ProgressBar1 50
pump
pump
SHCreateStreamOnFile(\b.txt, 32)
root.AddFile(b.txt, stream on \b.txt)
stream on \b.txt released
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, ATreeWhoseDestinationTheImageLacksIsLoggedAndPassedOver)
{
    AddRow(u"A\\B\\"_s, compilation::EntryKind::Directory, u"\\home\\u\\B\\"_s);
    transcript.At("root.Item(A)",
        [] { throw runtime::RuntimeError(-1062555368, u"Élément introuvable dans l'image."_s); });

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
root.Item(A)
log "Impossible d'ajouter à l'image disque le répertoire :"
log "      /home/u/B"
log "                Élément introuvable dans l'image."
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, AFailedDirectoryIsLoggedInThreeLinesAndPassedOver)
{
    AddRow(u"A\\New\\"_s, compilation::EntryKind::Directory, u""_s);
    transcript.At("root.AddDirectory(A\\New)",
        [] { throw runtime::RuntimeError(-1062555374, u"Ce nom existe déjà."_s); });

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
root.AddDirectory(A\New)
log "Impossible de créer dans l'image disque le répertoire :"
log "      A\New"
log "                Ce nom existe déjà."
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, AFileThatDoesNotOpenIsLoggedInThreeLinesAndPassedOver)
{
    AddRow(u"a.txt"_s, compilation::EntryKind::File, u"\\home\\u\\a.txt"_s);
    script.unopenable = u"\\home\\u\\a.txt"_s;

    EXPECT_EQ(Walk(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
SHCreateStreamOnFile(\home\u\a.txt, 32)
root.AddFile(a.txt, nothing)
log "Impossible d'ajouter à l'image disque le fichier :"
log "      /home/u/a.txt"
log "                Ouverture du fichier impossible : aucun flux à lire."
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, AStopBeforeAnEntryEndsTheWalk)
{
    AddRow(u"A\\"_s, compilation::EntryKind::Directory, u"\\A\\"_s);
    Configure();
    int pumps = 0;
    transcript.At("pump", [&] { state.StopFlag = ++pumps == 2; });

    stage.AddCompilationToImage();

    EXPECT_EQ(transcript.Text(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
)");
}

TEST_F(ImageStageTest, AStopAfterAnEntryEndsTheWalk)
{
    AddRow(u"A\\"_s, compilation::EntryKind::Directory, u"\\A\\"_s);
    AddRow(u"B\\"_s, compilation::EntryKind::Directory, u"\\B\\"_s);
    Configure();
    transcript.At("Corvane7ProgressBar1 50", [&] { state.StopFlag = true; });

    stage.AddCompilationToImage();

    EXPECT_EQ(transcript.Text(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
root.AddTree(\A, True)
Corvane7ProgressBar1 50
pump
)");
}

TEST_F(ImageStageTest, AStopWithinATreeLetsTheTreeEnd)
{
    AddRow(u"A\\"_s, compilation::EntryKind::Directory, u"\\A\\"_s);
    Configure();
    transcript.At("root.AddTree(\\A, True)", [&] {
        state.StopFlag = true;
        script.update(u"\\A\\x"_s, 0, 10);
        script.update(u"\\A\\x"_s, 10, 10);
    });

    stage.AddCompilationToImage();

    EXPECT_EQ(transcript.Text(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
root.AddTree(\A, True)
FileBar hidden
FileBar 0
pump
FileBar shown
FileBar 100
pump
Corvane7ProgressBar1 100
pump
)");
}

TEST_F(ImageStageTest, ThirtyTwoThousandSevenHundredAndSixtySevenRowsAreWalked)
{
    for (int i = 1; i <= 32767; ++i) {
        AddRow(QString::number(i), std::nullopt, u""_s);
    }
    Configure();
    state.StopFlag = true;

    EXPECT_EQ(ErrorNumberOf([this] { stage.AddCompilationToImage(); }), 0);
}

TEST_F(ImageStageTest, OneRowMoreIsAnOverflowBeforeTheFirstEntry)
{
    for (int i = 1; i <= 32768; ++i) {
        AddRow(QString::number(i), compilation::EntryKind::File, u"\\x"_s);
    }
    Configure();

    EXPECT_EQ(ErrorNumberOf([this] { stage.AddCompilationToImage(); }), 6);
    EXPECT_EQ(transcript.Text(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
)");
}

TEST_F(ImageStageTest, TheBarRoundsHalvesToTheEvenNumber)
{
    for (int i = 1; i <= 200; ++i) {
        AddRow(QString::number(i), std::nullopt, u""_s);
    }
    Configure();
    transcript.At("Corvane7ProgressBar1 2", [&] { state.StopFlag = true; });

    stage.AddCompilationToImage(); // 0.5 of a hundred, 1, 1.5

    EXPECT_EQ(transcript.Text(), R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
Corvane7ProgressBar1 0
pump
pump
Corvane7ProgressBar1 1
pump
pump
Corvane7ProgressBar1 2
pump
)");
}

TEST_F(ImageStageTest, RoutinesWithoutAPathDoNothing)
{
    Configure();

    stage.AddTreeToImage({}, text::DiscPath(u"A"_s));
    stage.MakeImageDirectory({});
    stage.AddFileToImage(text::ProgramPath(u"\\a.txt"_s), {});
    stage.AddFileToImage({}, text::DiscPath(u"a.txt"_s));

    EXPECT_EQ(transcript.Text(), "");
}

TEST_F(ImageStageTest, AReleasedImageIsGone)
{
    Configure();

    stage.Release();

    EXPECT_EQ(transcript.Text(), "FSI1 released\n");
}

} // namespace velmora::test
