// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CommonDialog.h"

#include "dialogs/FileFilters.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeFileChooser.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;

namespace {

constexpr qint32 kAddFiles = 524804; // several files, no read-only box

class CommonDialogTest : public testing::Test {
protected:
    QStringList Names() const { return dialog_.FileName.split(QChar(u'\0')); }

    test::FakeFileChooser chooser_;
    dialogs::CommonDialog dialog_ {chooser_};
};

} // namespace

TEST_F(CommonDialogTest, OneFileIsItsPath)
{
    chooser_.files = {{u"\\data\\a.txt"_s}};
    dialog_.Flags = kAddFiles;
    dialog_.ShowOpen();
    EXPECT_EQ(Names(), QStringList({u"\\data\\a.txt"_s}));
}

TEST_F(CommonDialogTest, SeveralFilesAreTheirFolderAndTheirNames)
{
    chooser_.files = {{u"\\data\\a.txt"_s, u"\\data\\b.txt"_s, u"\\data\\c"_s}};
    dialog_.Flags = kAddFiles;
    dialog_.ShowOpen();
    EXPECT_EQ(Names(), QStringList({u"\\data"_s, u"a.txt"_s, u"b.txt"_s, u"c"_s}));
}

TEST_F(CommonDialogTest, FilesOfTheRootHaveItForAFolder)
{
    chooser_.files = {{u"\\a.txt"_s, u"\\b.txt"_s}};
    dialog_.Flags = kAddFiles;
    dialog_.ShowOpen();
    EXPECT_EQ(Names(), QStringList({u"\\"_s, u"a.txt"_s, u"b.txt"_s}));
}

TEST_F(CommonDialogTest, GivingUpEmptiesTheName)
{
    dialog_.FileName = u"before"_s;
    dialog_.ShowOpen();
    EXPECT_EQ(dialog_.FileName, QString());
}

TEST_F(CommonDialogTest, GivingUpIsAnErrorWhereThatIsWanted)
{
    dialog_.CancelError = true;
    dialog_.FileName = u"before"_s;
    EXPECT_EQ(test::ErrorNumberOf([this] { dialog_.ShowOpen(); }), 32755);
    EXPECT_EQ(dialog_.FileName, QString());
    EXPECT_TRUE(dialog_.CancelError);
}

TEST_F(CommonDialogTest, ItAsksWhatItIsSetTo)
{
    dialog_.DialogTitle = u"Ajouter des fichiers..."_s;
    dialog_.Filter = u"All Files(*.*)|*.*"_s;
    dialog_.InitDir = u"\\home\\u"_path;
    dialog_.FileName = u"a.txt"_s;
    dialog_.FilterIndex = 2;
    dialog_.Flags = 4;
    dialog_.ShowOpen();
    dialog_.Flags = kAddFiles;
    dialog_.ShowOpen();
    const desktop::FileQuestion& asked = chooser_.fileQuestions.at(0);
    EXPECT_EQ(asked.title, u"Ajouter des fichiers..."_s);
    EXPECT_EQ(asked.folder, u"\\home\\u"_path);
    EXPECT_EQ(asked.fileName, u"a.txt"_s);
    EXPECT_EQ(asked.filterIndex, 2);
    EXPECT_FALSE(asked.several);
    ASSERT_EQ(asked.filters.size(), 1);
    EXPECT_EQ(asked.filters[0].text, u"All Files(*.*)"_s);
    EXPECT_EQ(asked.filters[0].pattern, u"*.*"_s);
    EXPECT_TRUE(chooser_.fileQuestions.at(1).several);
}

TEST(FileFiltersTest, TextsAndPatternsTakeTurns)
{
    const auto filters = dialogs::FileFilters(u"Images|*.iso;*.img|Tout|*"_s);
    ASSERT_EQ(filters.size(), 2);
    EXPECT_EQ(filters[0].pattern, u"*.iso;*.img"_s);
    EXPECT_EQ(filters[1].text, u"Tout"_s);
    EXPECT_TRUE(dialogs::FileFilters(QString()).isEmpty());
    EXPECT_TRUE(dialogs::FileFilters(u"alone"_s).isEmpty());
    EXPECT_EQ(dialogs::FileFilters(u"a|*.a|b"_s).size(), 1);
}
