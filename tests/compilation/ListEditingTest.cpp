// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/ListEditing.h"

#include "compilation/EditingDialogs.h"
#include "tests/compilation/CompilationFixture.h"

#include <filesystem>

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using compilation::SubItem;
using shell::MessageAnswer;
using test::ErrorNumberOf;

namespace {

/// Answers as the test has planned, and records what it was asked.
class FakeDialogs final : public compilation::EditingDialogs {
public:
    QString ShowOpen(const compilation::AddFilesDialog& dialog) override
    {
        asked = dialog;
        if (openError != 0) {
            throw runtime::RuntimeError(openError);
        }
        return files;
    }
    text::ProgramPath BrowseForFolder(const QString& title) override
    {
        folderTitle = title;
        return folder;
    }
    text::DiscPath AskNewDirectory() override { return newDirectory; }
    void StartExplorer() override { ++explorers; }

    QString files;
    qint32 openError = 0;
    text::ProgramPath folder;
    text::DiscPath newDirectory;
    compilation::AddFilesDialog asked;
    QString folderTitle;
    int explorers = 0;
};

class ListEditingTest : public test::CompilationFixture<test::FakeFiles> {
protected:
    void ChooseFiles(const QStringList& names)
    {
        dialogs.files = names.join(QChar::Null);
        editing.CorvaneButton4();
    }
    void ChooseFolder(const text::ProgramPath& path)
    {
        dialogs.folder = path;
        editing.CorvaneButton3();
    }
    QStringList Texts() const
    {
        QStringList texts;
        for (qsizetype i = 1; i <= list.Count(); ++i) {
            texts += list[i].Text();
        }
        return texts;
    }
    /// The five sub-items of a row.
    QStringList SubItems(qsizetype row) const
    {
        const compilation::ListRow& found = list[row];
        return {found[SubItem::Taille],
            found[SubItem::Type],
            found[SubItem::Origine],
            found[SubItem::CheminIso],
            found[SubItem::TailleEnOctets]};
    }

    FakeDialogs dialogs;
    compilation::ListEditing editing {compilation, list, dialogs, messages};
};

class AddFolderTest : public ListEditingTest { };
class AddFilesTest : public ListEditingTest { };
class RemoveElementTest : public ListEditingTest { };
class CreateDirectoryTest : public ListEditingTest { };

} // namespace

TEST_F(AddFolderTest, TheChosenFolderBecomesARow)
{
    files.folders[u"C:\\Photos\\"_s] = 2000;
    ChooseFolder(u"C:\\Photos"_path);
    EXPECT_EQ(dialogs.folderTitle, u"Sélectionner le répertoire à graver..."_s);
    EXPECT_EQ(Texts(), QStringList {u"Photos\\"_s});
    EXPECT_EQ(state.TotalSizeBytes, 2000);
    EXPECT_EQ(capacity.Label11(), u"2 Ko"_s);
}

TEST_F(AddFolderTest, AChosenLinkIsTakenForTheFolderThatItLeadsTo)
{
    files.folders[u"\\data\\photos\\"_s] = 2000;
    files.links[u"\\home\\link"_s] = u"\\data\\photos"_s;
    ChooseFolder(u"\\home\\link"_path);
    EXPECT_EQ(Texts(), QStringList {u"photos\\"_s});
    EXPECT_EQ(list[1][SubItem::Origine], u"\\data\\photos\\"_s);
}

TEST_F(AddFolderTest, GivingUpAddsNothing)
{
    ChooseFolder({});
    EXPECT_EQ(list.Count(), 0);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(AddFolderTest, AWholeDriveIsAskedAbout)
{
    files.folders[u"C:\\"_s] = 1;
    messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
    ChooseFolder(u"C:\\"_path);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(state.TotalSizeBytes, 0);
    ChooseFolder(u"C:\\"_path);
    EXPECT_EQ(Texts(), QStringList {u"C:\\"_s});
    ASSERT_EQ(messages.shown.size(), 2);
    EXPECT_EQ(messages.shown[0].text,
        u"Êtes-vous sur de vouloir graver la totalité du disque ' C:\\ ' ? "_s);
    EXPECT_EQ(messages.shown[0].style, 36);
    EXPECT_EQ(messages.shown[0].title, u"Graver ??..."_s);
}

TEST_F(AddFolderTest, ASecondFolderOfTheNameIsRefusedWithoutAWord)
{
    files.folders[u"C:\\Photos\\"_s] = 2000;
    files.folders[u"D:\\Photos\\"_s] = 5000;
    ChooseFolder(u"C:\\Photos"_path);
    ChooseFolder(u"D:\\Photos"_path);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list[1][SubItem::Origine], u"C:\\Photos\\"_s);
    EXPECT_EQ(state.TotalSizeBytes, 2000);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(pointer.history.back(), shell::MousePointer::Arrow);
}

TEST_F(AddFolderTest, AFolderThatCannotBeReadGoesUpAsAnError)
{
    EXPECT_EQ(ErrorNumberOf([&] { ChooseFolder(u"C:\\Gone"_path); }), 76);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(AddFilesTest, TheDialogIsAskedForSeveralFiles)
{
    ChooseFiles({});
    EXPECT_EQ(dialogs.asked.DialogTitle, u"Ajouter des fichiers..."_s);
    EXPECT_EQ(dialogs.asked.Filter, u"All Files(*.*)|*.*"_s);
    EXPECT_EQ(dialogs.asked.Flags, 524804);
    EXPECT_EQ(dialogs.asked.FileName, QString());
    EXPECT_EQ(dialogs.asked.InitDir.Text(),
        QString::fromStdString(std::filesystem::current_path()).replace(u'/', u'\\'));
}

TEST_F(AddFilesTest, GivingUpAddsNothingByEitherWay)
{
    ChooseFiles({});
    dialogs.openError = 32755;
    ChooseFiles({});
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(state.TotalSizeBytes, 0);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(AddFilesTest, OneFileIsOneRow)
{
    files.files[u"C:\\Data\\a.txt"_s] = 1500;
    icons.numbers[u"txt"_s] = 7;
    ChooseFiles({u"C:\\Data\\a.txt"_s});
    EXPECT_EQ(Texts(), QStringList {u"a.txt"_s});
    EXPECT_EQ(list[1].ImageKey(), u"F7"_s);
    EXPECT_EQ(SubItems(1),
        (QStringList {u"1 Ko"_s, u"Fichier"_s, u"C:\\Data\\a.txt"_s, u"a.txt"_s, u"1500"_s}));
    EXPECT_EQ(state.TotalSizeBytes, 1500);
}

TEST_F(AddFilesTest, AChosenLinkIsTakenForTheFileThatItLeadsTo)
{
    files.files[u"\\data\\a.txt"_s] = 1500;
    files.links = {{u"\\home\\link"_s, u"\\data\\a.txt"_s}, {u"\\home\\gone"_s, u""_s}};
    ChooseFiles({u"\\home\\link"_s});
    ChooseFiles({u"\\home\\gone"_s});
    EXPECT_EQ(Texts(), QStringList {u"a.txt"_s});
    EXPECT_EQ(list[1][SubItem::Origine], u"\\data\\a.txt"_s);
    EXPECT_EQ(state.TotalSizeBytes, 1500);
}

TEST_F(AddFilesTest, SeveralNamesLieInTheFolderThatComesFirst)
{
    files.files = {{u"C:\\Data\\a.txt"_s, 1}, {u"C:\\Data\\b.txt"_s, 2}};
    ChooseFiles({u"C:\\Data"_s, u"a.txt"_s, u"b.txt"_s});
    EXPECT_EQ(Texts(), (QStringList {u"a.txt"_s, u"b.txt"_s}));
    EXPECT_EQ(list[1][SubItem::Origine], u"C:\\Data\\a.txt"_s);
    EXPECT_EQ(list[2][SubItem::Origine], u"C:\\Data\\b.txt"_s);
    EXPECT_EQ(state.TotalSizeBytes, 3);
}

TEST_F(AddFilesTest, AFolderThatEndsInABackslashGetsNoSecondOne)
{
    files.files = {{u"C:\\a.txt"_s, 1}, {u"C:\\b.txt"_s, 2}, {u"\\c"_s, 4}};
    ChooseFiles({u"C:\\"_s, u"a.txt"_s, u"b.txt"_s});
    ChooseFiles({u"\\"_s, u"c"_s});
    EXPECT_EQ(list[1][SubItem::Origine], u"C:\\a.txt"_s);
    EXPECT_EQ(list[3][SubItem::Origine], u"\\c"_s);
    EXPECT_EQ(state.TotalSizeBytes, 7);
}

TEST_F(AddFilesTest, AFolderWithoutNamesAddsNothing)
{
    files.files[u"C:\\Data"_s] = 1; // if it were taken for a file
    ChooseFiles({u"C:\\Data"_s, QString()});
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(AddFilesTest, AShortcutIsAddedAsTheFileThatItIs)
{
    files.files[u"C:\\a.lnk"_s] = 700;
    ChooseFiles({u"C:\\a.lnk"_s});
    EXPECT_EQ(Texts(), QStringList {u"a.lnk"_s});
}

TEST_F(AddFilesTest, OneFileInTwoClicksIsOneRowCountedOnce)
{
    files.files[u"C:\\a.txt"_s] = 1500;
    ChooseFiles({u"C:\\a.txt"_s});
    ChooseFiles({u"C:\\a.txt"_s});
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(state.TotalSizeBytes, 1500);
}

TEST_F(AddFilesTest, ADuplicateWithNoRowBeforeItInTheClickChangesNoRow)
{
    files.files = {{u"C:\\a.txt"_s, 1500}, {u"D:\\a.txt"_s, 9000}};
    ChooseFiles({u"C:\\a.txt"_s});
    const QStringList before = SubItems(1);
    ChooseFiles({u"D:\\a.txt"_s});
    EXPECT_EQ(SubItems(1), before);
    EXPECT_EQ(state.TotalSizeBytes, 1500);
}

TEST_F(AddFilesTest, ADuplicateAmongSeveralOverwritesTheRowBeforeItAndCountsNothing)
{
    files.files = {{u"C:\\b"_s, 50}, {u"D:\\a"_s, 1000}, {u"D:\\b"_s, 7000000}, {u"D:\\c"_s, 30}};
    ChooseFiles({u"C:\\b"_s});
    ChooseFiles({u"D:\\"_s, u"a"_s, u"b"_s, u"c"_s});
    EXPECT_EQ(Texts(), (QStringList {u"b"_s, u"a"_s, u"c"_s}));
    EXPECT_EQ(SubItems(1), (QStringList {u"1 Ko"_s, u"Fichier"_s, u"C:\\b"_s, u"b"_s, u"50"_s}));
    EXPECT_EQ(
        SubItems(2), (QStringList {u"7 Mo"_s, u"Fichier"_s, u"D:\\b"_s, u"b"_s, u"7000000"_s}));
    EXPECT_EQ(SubItems(3), (QStringList {u"1 Ko"_s, u"Fichier"_s, u"D:\\c"_s, u"c"_s, u"30"_s}));
    EXPECT_EQ(state.TotalSizeBytes, 50 + 1000 + 30);
}

TEST_F(AddFilesTest, DuplicatesAtTheBeginningWaitForARow)
{
    files.files = {{u"C:\\a"_s, 1}, {u"D:\\a"_s, 2}, {u"D:\\b"_s, 4}};
    ChooseFiles({u"C:\\a"_s});
    ChooseFiles({u"D:\\"_s, u"a"_s, u"b"_s});
    EXPECT_EQ(list[1][SubItem::Origine], u"C:\\a"_s);
    EXPECT_EQ(list[2][SubItem::Origine], u"D:\\b"_s);
    EXPECT_EQ(state.TotalSizeBytes, 5);
}

TEST_F(AddFilesTest, AnOverwrittenRowTakesOffWhatItSays)
{
    files.files = {{u"C:\\b"_s, 50}, {u"D:\\a"_s, 1000}, {u"D:\\b"_s, 7000}};
    ChooseFiles({u"C:\\b"_s});
    ChooseFiles({u"D:\\"_s, u"a"_s, u"b"_s});
    compilation.RemoveRow(2);
    EXPECT_EQ(state.TotalSizeBytes, 50 + 1000 - 7000);
}

TEST_F(AddFilesTest, AFailureEndsTheClickSilentlyAndKeepsWhatWasAdded)
{
    files.files = {{u"C:\\a"_s, 1}, {u"C:\\c"_s, 4}};
    ChooseFiles({u"C:\\"_s, u"a"_s, u"gone"_s, u"c"_s});
    EXPECT_EQ(Texts(), QStringList {u"a"_s});
    EXPECT_EQ(state.TotalSizeBytes, 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(AddFilesTest, AFailingCountEndsTheClickBehindTheRow)
{
    files.files = {{u"C:\\a"_s, 1}, {u"C:\\b"_s, 2}};
    state.MediaCapacity = 0;
    ChooseFiles({u"C:\\"_s, u"a"_s, u"b"_s});
    EXPECT_EQ(Texts(), QStringList {u"a"_s});
    EXPECT_EQ(state.TotalSizeBytes, 1);
}

TEST_F(AddFilesTest, AFileWhoseFullPathIsARowIsSkipped)
{
    files.files = {{u"C:\\a"_s, 1}, {u"C:\\b"_s, 2}};
    compilation::ListRow& row = list.Add(u"key"_s, u"c:\\A"_disc, u"FD"_s);
    ChooseFiles({u"C:\\a"_s});
    ChooseFiles({u"C:\\"_s, u"a"_s, u"b"_s});
    EXPECT_EQ(Texts(), (QStringList {u"c:\\A"_s, u"b"_s}));
    EXPECT_EQ(row[SubItem::Origine], QString());
    EXPECT_EQ(state.TotalSizeBytes, 2);
}

TEST_F(AddFilesTest, AFileThatLiesDeeperHasItsRelativePathAsOrigin)
{
    files.files = {{u"sub\\a"_s, 8}, {u"sub\\b"_s, 16}};
    list.Add(u"key"_s, u"SUB\\b"_disc, u"FD"_s);
    ChooseFiles({u"C:\\Data"_s, u"sub\\b"_s, u"sub\\a"_s});
    EXPECT_EQ(Texts(), (QStringList {u"SUB\\b"_s, u"a"_s}));
    EXPECT_EQ(list[2][SubItem::Origine], u"sub\\a"_s);
    EXPECT_EQ(state.TotalSizeBytes, 8);
}

TEST_F(RemoveElementTest, NothingSelectedIsNotAskedAbout)
{
    editing.CorvaneButton5(0);
    editing.CorvaneButton5(-1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(RemoveElementTest, TheUserIsAskedAndYesRemovesTheRowAndItsBytes)
{
    files.folders[u"C:\\Photos\\"_s] = 5000;
    files.files[u"C:\\a"_s] = 30;
    ChooseFolder(u"C:\\Photos"_path);
    ChooseFiles({u"C:\\a"_s});
    messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
    editing.CorvaneButton5(1);
    EXPECT_EQ(list.Count(), 2);
    editing.CorvaneButton5(1);
    EXPECT_EQ(Texts(), QStringList {u"a"_s});
    EXPECT_EQ(state.TotalSizeBytes, 30);
    ASSERT_EQ(messages.shown.size(), 2);
    EXPECT_EQ(messages.shown[0].text,
        u"Êtes-vous sur de vouloir supprimer le fichier suivant de la liste ? \r\nPhotos\\"_s);
    EXPECT_EQ(messages.shown[0].style, 36);
    EXPECT_EQ(messages.shown[0].title, u"Suppression..."_s);
}

TEST_F(RemoveElementTest, ADirectoryMadeForTheDiscTakesNothingOff)
{
    files.files[u"C:\\a"_s] = 30;
    ChooseFiles({u"C:\\a"_s});
    compilation.AddMadeDirectory(u"Made"_disc);
    messages.answers = {MessageAnswer::Yes};
    editing.CorvaneButton5(2);
    EXPECT_EQ(Texts(), QStringList {u"a"_s});
    EXPECT_EQ(state.TotalSizeBytes, 30);
}

TEST_F(CreateDirectoryTest, TheDirectoryBecomesARowThatCountsNothing)
{
    dialogs.newDirectory = u"A\\"_disc;
    editing.CorvaneButton7();
    dialogs.newDirectory = u"A\\B\\"_disc;
    editing.CorvaneButton7();
    EXPECT_EQ(Texts(), (QStringList {u"A\\"_s, u"A\\B\\"_s}));
    EXPECT_EQ(SubItems(2), (QStringList {u"-"_s, u"Dossier"_s, QString(), u"A\\B\\"_s, QString()}));
    EXPECT_EQ(list[2].ImageKey(), u"FD"_s);
    EXPECT_EQ(state.TotalSizeBytes, 0);
}

TEST_F(CreateDirectoryTest, GivingUpAndASecondOneOfThePathAddNothing)
{
    editing.CorvaneButton7();
    EXPECT_EQ(list.Count(), 0);
    dialogs.newDirectory = u"A\\"_disc;
    editing.CorvaneButton7();
    editing.CorvaneButton7();
    EXPECT_EQ(list.Count(), 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ListEditingTest, TheFileManagerIsStarted)
{
    editing.CorvaneButton8();
    EXPECT_EQ(dialogs.explorers, 1);
}
