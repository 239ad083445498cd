// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/NativeSourceFiles.h"
#include "tests/compilation/CompilationFixture.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unprivileged.h"
#include "text/PathText.h"

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using compilation::SubItem;
namespace fs = std::filesystem;

namespace {

constexpr QStringView kNoContent = u"Le répertoire à graver est vide ou n'existe pas !";
constexpr QStringView kNoAccess = u"Le répertoire à graver est vide ou n'est pas accessible !";

text::ProgramPath Program(const std::string& native)
{
    return text::ToProgramPath(text::NativePath(native));
}

template <class Files> class Loading : public test::CompilationFixture<Files> {
protected:
    bool Load(text::ProgramPath path)
    {
        const bool result = this->compilation.LoadFolder(path);
        this->state.SourceFolder = path;
        return result;
    }

    QStringList RowTexts() const
    {
        QStringList texts;
        for (qsizetype i = 1; i <= this->list.Count(); ++i) {
            texts += this->list[i].Text();
        }
        return texts;
    }

    void ExpectOneMessage(QStringView text) const
    {
        ASSERT_EQ(this->messages.shown.size(), 1);
        EXPECT_EQ(this->messages.shown[0].text, text.toString());
        EXPECT_EQ(this->messages.shown[0].style, 4112);
        EXPECT_EQ(this->messages.shown[0].title, u"Velmora"_s);
    }
};

class LoadFolderTest : public Loading<compilation::NativeSourceFiles> {
protected:
    bool LoadTemporary() { return Load(Program(folder.Path().native())); }

    test::TemporaryFolder folder;
};

class LoadFolderWithFakesTest : public Loading<test::FakeFiles> { };

} // namespace

TEST_F(LoadFolderTest, EachNameOfTheFirstLevelIsOneRow)
{
    folder.MakeFile("sub/1", 1000);
    folder.MakeFile("sub/deeper/2", 2000);
    folder.MakeFile("sub/deeper/3", 3000);
    folder.MakeFile("a.txt", 400);
    folder.MakeFile("b.txt", 0);
    EXPECT_TRUE(LoadTemporary());

    EXPECT_EQ(RowTexts(), (QStringList {u"a.txt"_s, u"b.txt"_s, u"sub\\"_s}));
    EXPECT_EQ(list[1][SubItem::Type], u"Fichier"_s);
    EXPECT_EQ(list[2][SubItem::Type], u"Fichier"_s);
    EXPECT_EQ(list[3][SubItem::Type], u"Dossier"_s);
    EXPECT_EQ(list[3][SubItem::TailleEnOctets], u"6000"_s);
    EXPECT_EQ(list[3].Origin(), Program((folder / "sub").native() + "/"));
    EXPECT_EQ(state.TotalSizeBytes, 6400);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(LoadFolderTest, TheFoldersPathGetsABackslashInPlace)
{
    folder.MakeFile("a", 1);
    LoadTemporary();
    EXPECT_EQ(state.SourceFolder, Program(folder.Path().native() + "/"));
}

TEST_F(LoadFolderTest, NamesComeSortedWhateverTheirCase)
{
    for (const char* name : {"beta", "Alpha", "Gamma", "alpha", "10", "9"}) {
        folder.MakeFile(name, 1);
    }
    LoadTemporary();
    EXPECT_EQ(
        RowTexts(), (QStringList {u"10"_s, u"9"_s, u"Alpha"_s, u"alpha"_s, u"beta"_s, u"Gamma"_s}));
}

TEST_F(LoadFolderTest, HiddenNamesStayOutOfTheListAndInTheTree)
{
    folder.MakeFile(".hidden", 100);
    folder.MakeFile(".hidden-folder/a", 100);
    folder.MakeFile(".hidden\xE9", 100);
    folder.MakeFile("sub/.hidden", 30);
    EXPECT_TRUE(LoadTemporary());
    EXPECT_EQ(RowTexts(), QStringList {u"sub\\"_s});
    EXPECT_EQ(state.TotalSizeBytes, 30);
    EXPECT_EQ(state.HiddenEntries,
        (QList {Program((folder / ".hidden").native()),
            Program((folder / ".hidden-folder").native()),
            Program((folder / ".hidden\xE9").native())}));
}

TEST_F(LoadFolderTest, HiddenEntriesHaveThePathsThatFileDialogsGiveThem)
{
    folder.MakeFolder("other");
    folder.MakeFile("photos/.hidden", 1);
    folder.MakeFile("photos/a", 1);
    EXPECT_TRUE(Load(Program((folder / "other/../photos").native())));
    EXPECT_EQ(state.HiddenEntries, QList {Program((folder / "photos/.hidden").native())});
}

TEST_F(LoadFolderTest, NamesThatAreNotUtf8BecomeRowsWhoseOriginLeadsBack)
{
    folder.MakeFile("caf\xE9", 5);
    folder.MakeFile("back\\slash", 5);
    EXPECT_TRUE(LoadTemporary());
    EXPECT_EQ(RowTexts(), (QStringList {u"back/slash"_s, u"caf"_s + QChar(0xDCE9)}));
    EXPECT_EQ(text::ToNativePath(list[2].Origin()).Bytes(), (folder / "caf\xE9").native());
}

TEST_F(LoadFolderTest, NamesThatLookLikePatternsArePlainNames)
{
    folder.MakeFile("a*", 1);
    folder.MakeFile("b?", 2);
    EXPECT_TRUE(LoadTemporary());
    EXPECT_EQ(RowTexts(), (QStringList {u"a*"_s, u"b?"_s}));
    EXPECT_EQ(state.TotalSizeBytes, 3);
}

TEST_F(LoadFolderTest, EmptySubfoldersAreRowsAndStillNoContent)
{
    folder.MakeFolder("one");
    folder.MakeFolder("two");
    EXPECT_FALSE(LoadTemporary());
    EXPECT_EQ(RowTexts(), (QStringList {u"one\\"_s, u"two\\"_s}));
    ExpectOneMessage(kNoContent);
}

TEST_F(LoadFolderTest, FilesWithoutAByteAreRefusedLikeAnEmptyFolder)
{
    folder.MakeFile("a", 0);
    folder.MakeFile("b", 0);
    EXPECT_FALSE(LoadTemporary());
    ExpectOneMessage(kNoContent);
}

TEST_F(LoadFolderTest, AnEmptyFolderIsRefused)
{
    EXPECT_FALSE(LoadTemporary());
    ExpectOneMessage(kNoContent);
}

TEST_F(LoadFolderTest, AMissingFolderIsRefused)
{
    EXPECT_FALSE(Load(Program((folder / "gone").native())));
    ExpectOneMessage(kNoContent);
}

TEST_F(LoadFolderTest, ASeparatorWithoutADiscNameIsPartOfTheFolderAndFindsNothing)
{
    folder.MakeFile("a", 1);
    EXPECT_FALSE(Load(Program(folder.Path().native() + " -n")));
    ExpectOneMessage(kNoContent);
}

TEST_F(LoadFolderTest, AFileInPlaceOfAFolderIsRefused)
{
    EXPECT_FALSE(Load(Program(folder.MakeFile("a", 1).native())));
    ExpectOneMessage(kNoContent);
}

TEST_F(LoadFolderTest, AnUnreadableFolderIsNotAccessible)
{
    folder.MakeFile("a", 1);
    fs::permissions(folder.Path(), fs::perms::none);
    {
        const test::Unprivileged nobody;
        EXPECT_FALSE(LoadTemporary());
    }
    fs::permissions(folder.Path(), fs::perms::owner_all);
    ExpectOneMessage(kNoAccess);
}

TEST_F(LoadFolderTest, UnreadableFoldersAreRowsAllTheSame)
{
    folder.MakeFile("a", 1);
    folder.MakeFile("b/c", 20);
    fs::permissions(folder.Path(), fs::perms::all);
    fs::permissions(folder.MakeFolder("b/closed"), fs::perms::none);
    fs::permissions(folder.MakeFolder("lost+found"), fs::perms::none);
    {
        const test::Unprivileged nobody;
        EXPECT_TRUE(LoadTemporary());
    }
    EXPECT_EQ(RowTexts(), (QStringList {u"a"_s, u"b\\"_s, u"lost+found\\"_s}));
    EXPECT_EQ(state.TotalSizeBytes, 21);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(pointer.history.back(), shell::MousePointer::Arrow);
}

TEST_F(LoadFolderTest, NamesThatEndInABlankAreRowsOfTheirOwn)
{
    folder.MakeFile("trail/a", 1);
    folder.MakeFile("trail /b", 20);
    folder.MakeFile("file ", 300);
    EXPECT_TRUE(LoadTemporary());
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(state.TotalSizeBytes, 321);
    EXPECT_EQ(list[1].Origin(), Program((folder / "file ").native()));
    EXPECT_EQ(list[2].Origin(), Program((folder / "trail/").native()));
    EXPECT_EQ(list[3].Origin(), Program((folder / "trail /").native()));
    EXPECT_EQ(text::ToNativePath(list[3].Text()), "trail /");
}

TEST_F(LoadFolderTest, AStartFolderMayEndInABlank)
{
    folder.MakeFile("trail/a", 1);
    folder.MakeFile("trail /b", 20);
    EXPECT_TRUE(Load(Program((folder / "trail ").native())));
    EXPECT_EQ(RowTexts(), QStringList {u"b"_s});
    EXPECT_EQ(state.SourceFolder, Program((folder / "trail /").native()));
}

TEST_F(LoadFolderTest, ADanglingLinkIsARowWithoutBytes)
{
    folder.MakeFile("a", 1);
    fs::create_symlink("nowhere", folder / "link");
    EXPECT_TRUE(LoadTemporary());
    EXPECT_EQ(RowTexts(), (QStringList {u"a"_s, u"link"_s}));
    EXPECT_EQ(list[2][SubItem::Type], u"Fichier"_s);
    EXPECT_EQ(state.TotalSizeBytes, 1);
}

TEST_F(LoadFolderTest, ALinkIsAFileWithoutBytesWhereverItLeads)
{
    folder.MakeFile("data/a", 7);
    fs::create_directory_symlink("data", folder / "link");
    fs::create_symlink("data/a", folder / "toFile");
    EXPECT_TRUE(LoadTemporary());
    EXPECT_EQ(RowTexts(), (QStringList {u"data\\"_s, u"link"_s, u"toFile"_s}));
    for (qsizetype row = 2; row <= 3; ++row) {
        EXPECT_EQ(list[row][SubItem::Type], u"Fichier"_s);
        EXPECT_EQ(list[row][SubItem::TailleEnOctets], QString()) << "as of any empty file";
    }
    EXPECT_EQ(state.TotalSizeBytes, 7);
}

TEST_F(LoadFolderTest, AStartFolderThatIsNamedByALinkIsTaken)
{
    folder.MakeFile("data/a", 7);
    fs::create_directory_symlink("data", folder / "link");
    EXPECT_TRUE(Load(Program((folder / "link").native())));
    EXPECT_EQ(RowTexts(), QStringList {u"a"_s});
}

TEST_F(LoadFolderTest, TwoCallsDoNotAccumulate)
{
    folder.MakeFile("a", 100);
    LoadTemporary();
    LoadTemporary();
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(state.TotalSizeBytes, 100);
}

TEST_F(LoadFolderTest, AFailedCallEmptiesWhatWasThere)
{
    folder.MakeFile("a", 100);
    LoadTemporary();
    EXPECT_FALSE(Load(Program((folder / "gone").native())));
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(state.TotalSizeBytes, 0);
}

TEST_F(LoadFolderWithFakesTest, AnyErrorIsToldAndTheRowsUntilThenStay)
{
    files.names[u"C:\\Data\\"_s] = {u"a"_s, u"a"_s};
    files.files[u"C:\\Data\\a"_s] = 10;
    EXPECT_FALSE(Load(u"C:\\Data"_path));
    ExpectOneMessage(kNoAccess);
    EXPECT_EQ(RowTexts(), QStringList {u"a"_s});
    EXPECT_EQ(state.SourceFolder, u"C:\\Data\\"_path);
}

TEST_F(LoadFolderWithFakesTest, ARefusedMountPointIsLeftOutAndTheRestIsRead)
{
    files.names[u"\\srv\\"_s] = {u"disk"_s, u"file"_s};
    files.mountRoots = {u"\\srv\\disk"_s};
    files.folders[u"\\srv\\disk\\"_s] = 1000;
    files.files[u"\\srv\\file"_s] = 10;
    messages.answers = {shell::MessageAnswer::No};
    EXPECT_TRUE(Load(u"\\srv"_path));
    EXPECT_EQ(RowTexts(), QStringList {u"file"_s});
    EXPECT_EQ(messages.shown.size(), 1);
}

TEST_F(LoadFolderWithFakesTest, ADiscWithoutRoomMakesTheFolderInaccessible)
{
    files.names[u"C:\\Data\\"_s] = {u"a"_s};
    files.files[u"C:\\Data\\a"_s] = 10;
    state.MediaCapacity = 0;
    EXPECT_FALSE(Load(u"C:\\Data"_path));
    ExpectOneMessage(kNoAccess);
}
