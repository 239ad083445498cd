// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/compilation/CompilationFixture.h"

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using compilation::SubItem;
using shell::MessageAnswer;
using shell::MousePointer;
using test::ErrorNumberOf;

namespace {

class PutDirTest : public test::CompilationFixture<test::FakeFiles> {
protected:
    /// @return the path as PutDir leaves it
    text::ProgramPath PutDir(text::ProgramPath path)
    {
        compilation.PutDir(path);
        return path;
    }
};

class PutFileTest : public test::CompilationFixture<test::FakeFiles> { };
class MadeDirectoryTest : public test::CompilationFixture<test::FakeFiles> { };
class RemoveRowTest : public test::CompilationFixture<test::FakeFiles> { };

} // namespace

TEST_F(PutDirTest, AFolderIsOneRowThatStandsForItsTree)
{
    files.folders[u"C:\\Data\\"_s] = 1234567;
    EXPECT_EQ(PutDir(u"C:\\Data"_path), u"C:\\Data\\"_path);

    ASSERT_EQ(list.Count(), 1);
    const compilation::ListRow& row = list[1];
    EXPECT_EQ(row.Text(), u"Data\\"_s);
    EXPECT_EQ(row.Key(), u"Data\\"_s);
    EXPECT_EQ(row.ImageKey(), u"FD"_s);
    EXPECT_EQ(row[SubItem::Taille], u"1 Mo"_s);
    EXPECT_EQ(row[SubItem::Type], u"Dossier"_s);
    EXPECT_EQ(row[SubItem::Origine], u"C:\\Data\\"_s);
    EXPECT_EQ(row[SubItem::CheminIso], u"Data\\"_s);
    EXPECT_EQ(row[SubItem::TailleEnOctets], u"1234567"_s);
    EXPECT_EQ(state.TotalSizeBytes, 1234567);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PutDirTest, WhatComesOntoTheDiscIsCounted)
{
    files.folders[u"C:\\Data\\"_s] = 100;
    files.filesBelow[u"C:\\Data\\"_s] = 7;
    files.files[u"C:\\a.txt"_s] = 1;
    PutDir(u"C:\\Data"_path);
    compilation.PutFile(u"C:\\a.txt"_path);
    compilation.AddMadeDirectory(u"neuf"_disc);
    EXPECT_EQ(list.Contents(), (compilation::RowContents {.files = 8, .folders = 2}));
    compilation.RemoveRow(1);
    EXPECT_EQ(list.Contents(), (compilation::RowContents {.files = 1, .folders = 1}));
}

TEST_F(PutDirTest, ABackslashOrBlanksAtTheEndChangeNothing)
{
    files.folders[u"C:\\Data\\"_s] = 5;
    PutDir(u"C:\\Data\\"_path);
    EXPECT_EQ(list[1].Text(), u"Data\\"_s);
    list.Clear();
    PutDir(u"C:\\Data   "_path);
    EXPECT_EQ(list[1].Text(), u"Data\\"_s);
    EXPECT_EQ(list[1][SubItem::Origine], u"C:\\Data\\"_s);
}

TEST_F(PutDirTest, AnEmptyPathAddsNothing)
{
    PutDir({});
    EXPECT_EQ(list.Count(), 0);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PutDirTest, AnEmptyFolderHasASizeForTheEyeAndNoDigits)
{
    files.folders[u"C:\\Data\\"_s] = 0;
    PutDir(u"C:\\Data"_path);
    EXPECT_EQ(list[1][SubItem::Taille], u"1 Ko"_s);
    EXPECT_EQ(list[1][SubItem::TailleEnOctets], QString());
}

TEST_F(PutDirTest, AWholeDriveIsAskedAboutAndThenAdded)
{
    files.folders[u"C:\\"_s] = 1000;
    messages.answers = {MessageAnswer::Yes};
    EXPECT_EQ(PutDir(u"C:\\"_path), u"C:\\"_path);

    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown[0].text,
        u"Êtes-vous sur de vouloir graver la totalité du disque ' C:\\ ' ? "_s);
    EXPECT_EQ(messages.shown[0].style, 36);
    EXPECT_EQ(messages.shown[0].title, u"Graver ??..."_s);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list[1].Text(), u"C:\\"_s);
    EXPECT_EQ(list[1][SubItem::Type], u"Dossier"_s);
}

TEST_F(PutDirTest, ANoAboutAWholeDriveEmptiesThePathAndTouchesNothingElse)
{
    files.folders[u"C:\\"_s] = 1000;
    messages.answers = {MessageAnswer::No};
    EXPECT_EQ(PutDir(u"C:\\"_path), text::ProgramPath());
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(state.TotalSizeBytes, 0);
    EXPECT_TRUE(pointer.history.empty());
}

TEST_F(PutDirTest, RootAndMountPointsAreAskedAboutInNativeWriting)
{
    files.folders[u"\\"_s] = 1000;
    files.folders[u"\\mnt\\usb\\"_s] = 1000;
    files.mountRoots = {u"\\mnt\\usb"_s};
    messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
    EXPECT_EQ(PutDir(u"\\"_path), text::ProgramPath());
    EXPECT_EQ(PutDir(u"\\mnt\\usb"_path), u"\\mnt\\usb\\"_path);

    ASSERT_EQ(messages.shown.size(), 2);
    EXPECT_EQ(messages.shown[0].text,
        u"Êtes-vous sur de vouloir graver la totalité du disque ' / ' ? "_s);
    EXPECT_EQ(messages.shown[1].text,
        u"Êtes-vous sur de vouloir graver la totalité du disque ' /mnt/usb ' ? "_s);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list[1].Text(), u"usb\\"_s);
}

TEST_F(PutDirTest, OtherShortPathsAreNotAskedAbout)
{
    files.folders[u"a:b\\"_s] = 1;
    files.folders[u"C:\\D\\"_s] = 1;
    PutDir(u"a:b"_path);
    PutDir(u"C:\\D"_path);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(list.Count(), 2);
}

TEST_F(PutDirTest, ThePointerIsTheHourglassWhileTheTreeIsWalked)
{
    files.folders[u"C:\\Data\\"_s] = 1;
    PutDir(u"C:\\Data"_path);
    EXPECT_EQ(pointer.history, (std::vector {MousePointer::Hourglass, MousePointer::Arrow}));
}

TEST_F(PutDirTest, AFailureGoesUpAndThePointerStaysTheHourglass)
{
    EXPECT_EQ(ErrorNumberOf([&] { PutDir(u"C:\\Gone"_path); }), 76);
    EXPECT_EQ(pointer.history, std::vector {MousePointer::Hourglass});
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(PutDirTest, ASecondFolderOfTheSameNameIsRefusedAndNotCounted)
{
    files.folders[u"C:\\Data\\"_s] = 10;
    files.folders[u"D:\\Data\\"_s] = 20;
    PutDir(u"C:\\Data"_path);
    EXPECT_EQ(ErrorNumberOf([&] { PutDir(u"D:\\Data"_path); }), 35602);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list[1][SubItem::Origine], u"C:\\Data\\"_s);
    EXPECT_EQ(state.TotalSizeBytes, 10);
}

TEST_F(PutFileTest, AFileIsOneRow)
{
    files.files[u"C:\\Data\\a.txt"_s] = 1500;
    icons.numbers[u"txt"_s] = 7;
    compilation.PutFile(u"C:\\Data\\a.txt"_path);

    ASSERT_EQ(list.Count(), 1);
    const compilation::ListRow& row = list[1];
    EXPECT_EQ(row.Text(), u"a.txt"_s);
    EXPECT_EQ(row.Key(), u"a.txt"_s);
    EXPECT_EQ(row.ImageKey(), u"F7"_s);
    EXPECT_EQ(row[SubItem::Taille], u"1 Ko"_s);
    EXPECT_EQ(row[SubItem::Type], u"Fichier"_s);
    EXPECT_EQ(row[SubItem::Origine], u"C:\\Data\\a.txt"_s);
    EXPECT_EQ(row[SubItem::CheminIso], u"a.txt"_s);
    EXPECT_EQ(row[SubItem::TailleEnOctets], u"1500"_s);
    EXPECT_EQ(state.TotalSizeBytes, 1500);
    EXPECT_TRUE(pointer.history.empty());
}

TEST_F(PutFileTest, AnEmptyFileShowsOneKoHasNoDigitsAndAddsNothing)
{
    files.files[u"C:\\empty"_s] = 0;
    compilation.PutFile(u"C:\\empty"_path);
    EXPECT_EQ(list[1][SubItem::Taille], u"1 Ko"_s);
    EXPECT_EQ(list[1][SubItem::TailleEnOctets], QString());
    EXPECT_EQ(state.TotalSizeBytes, 0);
}

TEST_F(PutFileTest, ALargeFileShowsGoWithTheLocalesSeparator)
{
    files.files[u"C:\\film"_s] = 1000000000;
    compilation::Compilation french(state,
        list,
        capacity,
        {files, icons, messages, pointer},
        QLocale(QLocale::French, QLocale::France));
    french.PutFile(u"C:\\film"_path);
    EXPECT_EQ(list[1][SubItem::Taille], u"1,00 Go"_s);
    EXPECT_EQ(list[1][SubItem::TailleEnOctets], u"1000000000"_s);
}

TEST_F(PutFileTest, AnEmptyPathAddsNothing)
{
    compilation.PutFile({});
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(PutFileTest, AMissingFileAndADuplicateGoUpAsErrors)
{
    files.files[u"C:\\a"_s] = 1;
    files.files[u"D:\\a"_s] = 1;
    EXPECT_EQ(ErrorNumberOf([&] { compilation.PutFile(u"C:\\gone"_path); }), 53);
    compilation.PutFile(u"C:\\a"_path);
    EXPECT_EQ(ErrorNumberOf([&] { compilation.PutFile(u"D:\\a"_path); }), 35602);
    EXPECT_EQ(state.TotalSizeBytes, 1);
}

TEST_F(PutFileTest, AFileAndAFolderOfOneNameAreTwoEntries)
{
    files.files[u"C:\\a"_s] = 1;
    files.folders[u"D:\\a\\"_s] = 2;
    text::ProgramPath folder = u"D:\\a"_path;
    compilation.PutFile(u"C:\\a"_path);
    compilation.PutDir(folder);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(state.TotalSizeBytes, 3);
}

TEST_F(MadeDirectoryTest, ItIsARowWithoutOriginThatCountsNothing)
{
    compilation.AddMadeDirectory(u"A\\B"_disc);
    ASSERT_EQ(list.Count(), 1);
    const compilation::ListRow& row = list[1];
    EXPECT_EQ(row.Text(), u"A\\B\\"_s);
    EXPECT_EQ(row.Key(), u"A\\B\\"_s);
    EXPECT_EQ(row.ImageKey(), u"FD"_s);
    EXPECT_EQ(row[SubItem::Taille], u"-"_s);
    EXPECT_EQ(row[SubItem::Type], u"Dossier"_s);
    EXPECT_EQ(row[SubItem::Origine], QString());
    EXPECT_EQ(row[SubItem::CheminIso], u"A\\B\\"_s);
    EXPECT_EQ(row[SubItem::TailleEnOctets], QString());
    EXPECT_EQ(state.TotalSizeBytes, 0);
    EXPECT_EQ(capacity.Label11(), u"0 Mo"_s);
}

TEST_F(MadeDirectoryTest, TheBackslashAtItsEndIsNotDoubledAndItsPathIsTakenOnce)
{
    compilation.AddMadeDirectory(u"A\\"_disc);
    EXPECT_EQ(list[1].Text(), u"A\\"_s);
    EXPECT_EQ(ErrorNumberOf([&] { compilation.AddMadeDirectory(u"A"_disc); }), 35602);
    EXPECT_EQ(list.Count(), 1);
}

TEST_F(RemoveRowTest, TheSumIsZeroAgainWhenEveryRowIsGone)
{
    files.folders[u"C:\\Photos\\"_s] = 5000000;
    files.files[u"C:\\a.txt"_s] = 1500;
    files.files[u"C:\\empty"_s] = 0;
    text::ProgramPath photos = u"C:\\Photos"_path;
    compilation.PutDir(photos);
    compilation.PutFile(u"C:\\a.txt"_path);
    compilation.PutFile(u"C:\\empty"_path);
    compilation.AddMadeDirectory(u"Made"_disc);
    EXPECT_EQ(state.TotalSizeBytes, 5001500);

    compilation.RemoveRow(4);
    EXPECT_EQ(state.TotalSizeBytes, 5001500);
    compilation.RemoveRow(1);
    EXPECT_EQ(state.TotalSizeBytes, 1500);
    EXPECT_EQ(capacity.Label11(), u"1 Ko"_s);
    compilation.RemoveRow(1);
    compilation.RemoveRow(1);
    EXPECT_EQ(state.TotalSizeBytes, 0);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(RemoveRowTest, TheSizeIsTheOneReadWhenTheRowWasAdded)
{
    files.folders[u"C:\\Photos\\"_s] = 100;
    text::ProgramPath photos = u"C:\\Photos"_path;
    compilation.PutDir(photos);
    files.folders[u"C:\\Photos\\"_s] = 999;
    compilation.RemoveRow(1);
    EXPECT_EQ(state.TotalSizeBytes, 0);
}

TEST_F(RemoveRowTest, RowsBelowARemovedDirectoryStay)
{
    compilation.AddMadeDirectory(u"A"_disc);
    compilation.AddMadeDirectory(u"A\\B"_disc);
    compilation.RemoveRow(1);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list[1].Text(), u"A\\B\\"_s);
}

TEST_F(RemoveRowTest, ARowOutsideTheListIsError35600)
{
    EXPECT_EQ(ErrorNumberOf([&] { compilation.RemoveRow(0); }), 35600);
    EXPECT_EQ(ErrorNumberOf([&] { compilation.RemoveRow(1); }), 35600);
}
