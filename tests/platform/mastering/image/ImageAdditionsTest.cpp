// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imapi/EntriesLeftOut.h"
#include "tests/platform/mastering/ErrorNumbers.h"
#include "tests/platform/mastering/ImageBench.h"
#include "tests/support/UnaskedMastering.h"
#include "tests/support/Unprivileged.h"

#include <sys/stat.h>

namespace velmora::test {

using drive::FsiFileSystems;
using ImageAdditionsTest = ImageBench;

namespace {

constexpr qint32 kTypeMismatch = 13;

/// The failure that the statement raises; number 0 when it raises none.
template <class Statement> runtime::RuntimeError FailureOf(Statement&& statement)
{
    try {
        std::forward<Statement>(statement)();
    } catch (const runtime::RuntimeError& failure) {
        return failure;
    }
    return {0, u"nothing failed"_s};
}

/// A stream without a file behind it.
class OtherStream final : public UnaskedStream {
public:
    std::optional<imapi::StreamFile> File() const override { return std::nullopt; }
};

} // namespace

TEST_F(ImageAdditionsTest, AFileStandsInTheImageWithItsBytes)
{
    image->Root()->AddDirectory(u"docs"_disc);
    image->Root()->AddFile(
        u"docs\\letter.txt"_disc, Open(Write("x", "Chère Marie, la mer est bleue.")));

    const std::string bytes = BytesOf(*image->CreateResultImage());

    EXPECT_TRUE(HoldsName(bytes, "LETTER.TXT;1"));
    EXPECT_NE(bytes.find("Chère Marie, la mer est bleue."), std::string::npos);
}

TEST_F(ImageAdditionsTest, ATreeStandsInTheImageUnderItsOwnName)
{
    Write("Photos/2024/beach.jpg", "sand");
    Write("Photos/.hidden", "secret");
    image->Root()->AddDirectory(u"Album"_disc);

    image->Root()->Item(u"Album"_disc)->AddTree(ProgramPath(folder / "Photos"), true);

    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->Item(u"Album\\Photos\\2024"_disc); }), 0);
    const std::string bytes = BytesOf(*image->CreateResultImage());
    EXPECT_NE(bytes.find("sand"), std::string::npos);
    EXPECT_NE(bytes.find("secret"), std::string::npos);
}

TEST_F(ImageAdditionsTest, ATreeWithoutItsBaseGivesItsContents)
{
    Write("Photos/2024/beach.jpg", "sand");

    image->Root()->AddTree(ProgramPath(folder / "Photos"), false);

    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->Item(u"2024"_disc); }), 0);
    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->Item(u"Photos"_disc); }), kItemNotFound);
}

TEST_F(ImageAdditionsTest, ASecondTreeOfTheSameNameIsMergedAndItsFilesWin)
{
    Write("one/Photos/a", "old a");
    Write("one/Photos/sub/b", "kept b");
    Write("two/Photos/a", "new a");
    Write("two/Photos/sub/c", "added c");

    AddTree("one/Photos");
    AddTree("two/Photos");

    const std::string bytes = BytesOf(*image->CreateResultImage());
    EXPECT_EQ(bytes.find("old a"), std::string::npos);
    EXPECT_NE(bytes.find("new a"), std::string::npos);
    EXPECT_NE(bytes.find("kept b"), std::string::npos);
    EXPECT_NE(bytes.find("added c"), std::string::npos);
}

TEST_F(ImageAdditionsTest, ItemsAreFoundOneBelowTheOther)
{
    image->Root()->AddDirectory(u"A"_disc);
    image->Root()->AddDirectory(u"A\\B"_disc);
    image->Root()->AddDirectory(u"A\\B\\C"_disc);

    const imapi::DirectoryItemRef b = image->Root()->Item(u"A\\B"_disc);

    EXPECT_EQ(ErrorNumberOf([&] { b->Item(u"C"_disc); }), 0);
    EXPECT_EQ(ErrorNumberOf([&] { b->Item(u"A"_disc); }), kItemNotFound);
}

TEST_F(ImageAdditionsTest, AnItemThatIsNotThereIsNotFound)
{
    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->Item(u"A"_disc); }), kItemNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->Item(u"A\\B"_disc); }), kItemNotFound);
}

TEST_F(ImageAdditionsTest, AFileTakenAsADirectoryIsATypeMismatch)
{
    image->Root()->AddFile(u"a.txt"_disc, Open(Write("a.txt", "a")));

    const runtime::RuntimeError failure = FailureOf([&] { image->Root()->Item(u"a.txt"_disc); });

    EXPECT_EQ(failure.Number(), kTypeMismatch);
    EXPECT_EQ(failure.Description(), u"Incompatibilité de type"_s);
}

TEST_F(ImageAdditionsTest, BadlyFormedPathsAreRefusedEverywhere)
{
    const imapi::DirectoryItemRef root = image->Root();
    root->AddDirectory(u"A"_disc);
    const imapi::StreamRef stream = Open(Write("a", "a"));
    const text::DiscPath tooLong(QString(255, u'n'));
    const text::DiscPath withNul(u"a"_s + QChar(0) + u'b');
    for (const text::DiscPath& path : {text::DiscPath(),
             u"\\A"_disc,
             u"A\\"_disc,
             u"A\\\\B"_disc,
             u"."_disc,
             u"A\\.."_disc,
             u"..\\A"_disc,
             withNul,
             tooLong}) {
        EXPECT_EQ(ErrorNumberOf([&] { root->Item(path); }), kInvalidPath);
        EXPECT_EQ(ErrorNumberOf([&] { root->AddDirectory(path); }), kInvalidPath);
        EXPECT_EQ(ErrorNumberOf([&] { root->AddFile(path, stream); }), kInvalidPath);
    }
}

TEST_F(ImageAdditionsTest, ANameOf254UnitsIsTaken)
{
    EXPECT_EQ(
        ErrorNumberOf([&] { image->Root()->AddDirectory(text::DiscPath(QString(254, u'n'))); }), 0);
}

TEST_F(ImageAdditionsTest, ANameThatExistsIsRefused)
{
    const imapi::DirectoryItemRef root = image->Root();
    const imapi::StreamRef stream = Open(Write("a", "a"));
    root->AddDirectory(u"A"_disc);
    root->AddFile(u"a.txt"_disc, stream);

    EXPECT_EQ(ErrorNumberOf([&] { root->AddDirectory(u"A"_disc); }), kNameTaken);
    EXPECT_EQ(ErrorNumberOf([&] { root->AddDirectory(u"a.txt"_disc); }), kNameTaken);
    EXPECT_EQ(ErrorNumberOf([&] { root->AddFile(u"a.txt"_disc, stream); }), kNameTaken);
    EXPECT_EQ(ErrorNumberOf([&] { root->AddFile(u"A"_disc, stream); }), kNameTaken);
}

TEST_F(ImageAdditionsTest, NamesThatDifferInCaseOnlyAreTwo)
{
    image->Root()->AddDirectory(u"photos"_disc);

    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->AddDirectory(u"Photos"_disc); }), 0);
}

TEST_F(ImageAdditionsTest, AMissingParentIsNotFound)
{
    const imapi::StreamRef stream = Open(Write("a", "a"));

    EXPECT_EQ(
        ErrorNumberOf([&] { image->Root()->AddDirectory(u"A\\B"_disc); }), kDirectoryNotFound);
    EXPECT_EQ(
        ErrorNumberOf([&] { image->Root()->AddFile(u"A\\b"_disc, stream); }), kDirectoryNotFound);
}

TEST_F(ImageAdditionsTest, AFileIsNoParent)
{
    image->Root()->AddFile(u"a.txt"_disc, Open(Write("a", "a")));

    EXPECT_EQ(
        ErrorNumberOf([&] { image->Root()->AddDirectory(u"a.txt\\B"_disc); }), kNotADirectory);
}

TEST_F(ImageAdditionsTest, AnEmptyStreamIsAnEmptyPointer)
{
    const runtime::RuntimeError failure
        = FailureOf([&] { image->Root()->AddFile(u"a.txt"_disc, Open(folder / "missing")); });

    EXPECT_EQ(failure.Number(), kPointer);
    EXPECT_EQ(failure.Description(), u"Ouverture du fichier impossible : aucun flux à lire."_s);
}

TEST_F(ImageAdditionsTest, AStreamThatIsNoFilesIsRefused)
{
    const auto stream = std::make_shared<OtherStream>();

    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->AddFile(u"a"_disc, stream); }), kInvalidParam);
}

TEST_F(ImageAdditionsTest, AFileThatIsGoneByNowIsRefused)
{
    const std::filesystem::path file = Write("a", "a");
    const imapi::StreamRef stream = Open(file);
    std::filesystem::remove(file);

    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->AddFile(u"a"_disc, stream); }), kFileNotFound);
}

TEST_F(ImageAdditionsTest, ATreeThatIsNotThereIsRefused)
{
    EXPECT_EQ(ErrorNumberOf([&] { AddTree("missing"); }), kFileNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->AddTree({}, true); }), kFileNotFound);
}

TEST_F(ImageAdditionsTest, AFileIsNoTree)
{
    Write("file", "x");

    EXPECT_EQ(ErrorNumberOf([&] { AddTree("file"); }), kNotADirectory);
}

TEST_F(ImageAdditionsTest, ATreeThatCannotBeListedIsRefused)
{
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder.MakeFolder("closed"), std::filesystem::perms(0));
    const Unprivileged user;

    EXPECT_EQ(ErrorNumberOf([&] { AddTree("closed"); }), kDirectoryUnreadable);
}

TEST_F(ImageAdditionsTest, ATreeKeepsWhatCouldBeAddedAndTellsWhatCouldNot)
{
    Write("tree/good.txt", "good");
    ASSERT_EQ(mkfifo((folder / "tree/pipe").c_str(), 0600), 0);

    const runtime::RuntimeError failure = FailureOf([&] { AddTree("tree"); });

    EXPECT_EQ(failure.Number(), kCreateFailure);
    EXPECT_TRUE(failure.Description().startsWith(u"1 élément laissé de côté. « "_s
        + QString::fromStdString((folder / "tree/pipe").native()) + u" » : "_s));
    EXPECT_NE(BytesOf(*image->CreateResultImage()).find("good"), std::string::npos);
}

TEST_F(ImageAdditionsTest, ALinkStandsInTheImageAsALink)
{
    Write("tree/letter", "x");
    std::filesystem::create_symlink("nowhere", folder / "tree/dangling");
    std::filesystem::create_symlink("../../etc", folder / "tree/out");
    std::filesystem::create_symlink("tree", folder / "row");
    image->SetFileSystemsToCreate(FsiFileSystems::Iso9660);

    EXPECT_EQ(ErrorNumberOf([&] { AddTree("tree"); }), 0);
    image->Root()->AddFile(u"row"_disc, Open(folder / "row"));

    const imapi::ImageResultRef result = image->CreateResultImage();
    EXPECT_NE(BytesOf(*result).find("nowhere"), std::string::npos);
    EXPECT_TRUE(result->LinksLeftOut().empty());
    ASSERT_EQ(result->LinksLeadingOut().size(), 1U);
    EXPECT_EQ(result->LinksLeadingOut().front().path, u"tree\\out"_disc);
    EXPECT_EQ(result->LinksLeadingOut().front().text, u"../../etc"_s);
}

TEST_F(ImageAdditionsTest, LinksThatAreFollowedBecomeWhatTheyLeadTo)
{
    Write("tree/sub/letter", "content of the letter");
    Write("elsewhere/note", "content of the note");
    std::filesystem::create_symlink("../elsewhere", folder / "tree/folder");
    std::filesystem::create_symlink("sub/letter", folder / "tree/file");
    std::filesystem::create_symlink("sub", folder / "tree/again");
    image->SetFileSystemsToCreate(FsiFileSystems::Iso9660);
    image->FollowLinks(ProgramPath(folder / "tree"));

    EXPECT_EQ(ErrorNumberOf([&] { AddTree("tree/sub"); }), 0);
    for (const char* name : {"folder", "file"}) {
        const imapi::StreamRef stream = Open(folder / "tree" / name);
        EXPECT_EQ(ErrorNumberOf([&] {
            image->Root()->AddFile(text::DiscPath(QString::fromUtf8(name)), stream);
        }),
            0);
    }
    const runtime::RuntimeError refusal
        = FailureOf([&] { image->Root()->AddFile(u"again"_disc, Open(folder / "tree/again")); });

    EXPECT_TRUE(refusal.Description().contains(u"déjà pris"_s))
        << refusal.Description().toStdString();
    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->Item(u"folder"_disc); }), 0);
    EXPECT_NE(ErrorNumberOf([&] { image->Root()->Item(u"again"_disc); }), 0);
    EXPECT_NE(BytesOf(*image->CreateResultImage()).find("content of the note"), std::string::npos);
}

TEST_F(ImageAdditionsTest, LinksThatNoFileSystemHoldsAreToldWhenAllIsThere)
{
    Write("a/inside", "x");
    std::filesystem::create_symlink("../late", folder / "a/link"); // its file comes after it
    std::filesystem::create_symlink("nowhere", folder / "a/dangling");
    image->SetFileSystemsToCreate(FsiFileSystems::Iso9660);
    image->SetISO9660InterchangeLevel(1);
    image->SetStrictFileSystemCompliance(true);

    EXPECT_EQ(ErrorNumberOf([&] { AddTree("a"); }), 0);
    image->Root()->AddFile(u"late"_disc, Open(Write("late", "content")));

    const imapi::ImageResultRef result = image->CreateResultImage();
    EXPECT_TRUE(HoldsName(BytesOf(*result), "LINK.;1"));
    ASSERT_EQ(result->LinksLeftOut().size(), 1U);
    EXPECT_EQ(result->LinksLeftOut().front().path, u"a\\dangling"_s);
    EXPECT_FALSE(result->LinksLeftOut().front().reason.isEmpty());
}

TEST_F(ImageAdditionsTest, OfManyEntriesLeftOutThreeAreNamed)
{
    folder.MakeFolder("tree");
    for (const char* name : {"a", "b", "c", "d"}) {
        ASSERT_EQ(mkfifo((folder / "tree" / name).c_str(), 0600), 0);
    }

    const QString description = FailureOf([&] { AddTree("tree"); }).Description();

    std::vector<QString> paths;
    try {
        AddTree("tree");
    } catch (const imapi::EntriesLeftOut& leftOut) {
        for (const imapi::LeftOutEntry& entry : leftOut.Entries()) {
            paths.push_back(entry.path);
            EXPECT_TRUE(entry.reason.startsWith(u"Ce n'est ni un fichier"_s)) << "without the path";
        }
    }
    const QString tree = ProgramPath(folder / "tree").Text();
    EXPECT_EQ(paths,
        (std::vector<QString> {
            tree + u"\\a"_s, tree + u"\\b"_s, tree + u"\\c"_s, tree + u"\\d"_s}));

    EXPECT_TRUE(description.startsWith(u"4 éléments laissés de côté, dont : "_s));
    EXPECT_TRUE(description.contains(u"tree/c"_s));
    EXPECT_FALSE(description.contains(u"tree/d"_s));
    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->Item(u"tree"_disc); }), 0);
}

TEST_F(ImageAdditionsTest, ADirectoryThatBecameAFileTakesNoTree)
{
    image->Root()->AddDirectory(u"x"_disc);
    image->Root()->AddDirectory(u"x\\sub"_disc);
    const imapi::DirectoryItemRef sub = image->Root()->Item(u"x\\sub"_disc);
    Write("x/sub", "a file now");
    Write("tree/a", "a");
    AddTree("x");

    EXPECT_EQ(
        ErrorNumberOf([&] { sub->AddTree(ProgramPath(folder / "tree"), true); }), kNotADirectory);
}

TEST_F(ImageAdditionsTest, WithoutStrictComplianceNoFileIsTooLargeAndNoTreeTooDeep)
{
    image->ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE::Disk);
    image->SetFileSystemsToCreate(FsiFileSystems::Iso9660);
    Write("1/2/3/4/5/6/7/8/9/10/deep", "deep");

    EXPECT_EQ(ErrorNumberOf([&] { AddTree("1"); }), 0);
    EXPECT_EQ(ErrorNumberOf([&] {
        image->Root()->AddFile(u"large"_disc, Open(folder.MakeFile("large", 5ULL << 30U)));
    }),
        0);
    EXPECT_GT(image->CreateResultImage()->TotalBlocks(), 5 << 19);
}

TEST_F(ImageAdditionsTest, AFileThatCantBeAddedIsTheOneEntryLeftOut)
{
    const imapi::StreamRef stream = Open(Write("letter", "x"));
    std::filesystem::remove(folder / "letter");
    try {
        image->Root()->AddFile(u"letter"_disc, stream);
        FAIL() << "it is gone";
    } catch (const imapi::EntriesLeftOut& leftOut) {
        ASSERT_EQ(leftOut.Entries().size(), 1U);
        EXPECT_EQ(leftOut.Entries().front().path, ProgramPath(folder / "letter").Text());
        EXPECT_TRUE(leftOut.Entries().front().reason.startsWith(u"Fichier ou répertoire introu"_s));
    }
}

} // namespace velmora::test
