// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/NewDirectory.h"

#include "tests/compilation/CompilationFixture.h"

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using compilation::NewDirectory;

namespace {

class NewDirectoryTest : public test::CompilationFixture<test::FakeFiles> { };

} // namespace

TEST_F(NewDirectoryTest, TheParentsOnOfferAreTheRootAndEveryDirectoryOfTheList)
{
    files.folders[u"C:\\Photos\\"_s] = 1;
    files.files[u"C:\\a"_s] = 1;
    text::ProgramPath photos = u"C:\\Photos"_path;
    compilation.AddMadeDirectory(u"Made"_disc);
    compilation.PutFile(u"C:\\a"_path);
    compilation.PutDir(photos);
    compilation.AddMadeDirectory(u"Made\\Deep"_disc);
    EXPECT_EQ(NewDirectory(list).Combo1(),
        (QStringList {
            u"Racine du disque à graver"_s, u"Made\\"_s, u"Photos\\"_s, u"Made\\Deep\\"_s}));
}

TEST_F(NewDirectoryTest, ThePathIsTheParentTheNameAndABackslash)
{
    compilation.AddMadeDirectory(u"A"_disc);
    NewDirectory directory(list);
    EXPECT_EQ(directory.NewDirectoryPath(), text::DiscPath());
    EXPECT_TRUE(directory.Command2(0, u"B"_s));
    EXPECT_EQ(directory.NewDirectoryPath(), u"B\\"_disc);
    EXPECT_TRUE(directory.Command2(1, u"B"_s));
    EXPECT_EQ(directory.NewDirectoryPath(), u"A\\B\\"_disc);
}

TEST_F(NewDirectoryTest, AnEmptyNameSettlesNothing)
{
    NewDirectory directory(list);
    EXPECT_FALSE(directory.Command2(0, QString()));
    EXPECT_EQ(directory.NewDirectoryPath(), text::DiscPath());
}

TEST_F(NewDirectoryTest, GivingUpEmptiesThePath)
{
    NewDirectory directory(list);
    EXPECT_TRUE(directory.Command2(0, u"B"_s));
    directory.Command1();
    EXPECT_EQ(directory.NewDirectoryPath(), text::DiscPath());
}

TEST_F(NewDirectoryTest, TheNameIsNotCheckedButLosesBlanksAtItsEnd)
{
    NewDirectory directory(list);
    EXPECT_TRUE(directory.Command2(0, u"a:b*?\\c"_s));
    EXPECT_EQ(directory.NewDirectoryPath(), u"a:b*?\\c\\"_disc);
    EXPECT_TRUE(directory.Command2(0, u" a  "_s));
    EXPECT_EQ(directory.NewDirectoryPath(), u" a\\"_disc);
    EXPECT_TRUE(directory.Command2(0, u"a\\"_s));
    EXPECT_EQ(directory.NewDirectoryPath(), u"a\\"_disc);
}

TEST_F(NewDirectoryTest, ADirectoryMadeIsOnOfferAsAParentAfterwards)
{
    compilation.AddMadeDirectory(u"A"_disc);
    NewDirectory first(list);
    EXPECT_TRUE(first.Command2(1, u"B"_s));
    compilation.AddMadeDirectory(first.NewDirectoryPath());
    EXPECT_EQ(NewDirectory(list).Combo1().last(), u"A\\B\\"_s);
}
