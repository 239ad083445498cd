// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CmnDialogEx.h"

#include "tests/support/FakeFileChooser.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using dialogs::CmnDialogEx;

namespace {

class CmnDialogExTest : public testing::Test {
protected:
    test::FakeFileChooser chooser_;
    CmnDialogEx dialog_ {chooser_};
};

} // namespace

TEST_F(CmnDialogExTest, AChosenFolderIsTheFileName)
{
    chooser_.folders = {u"\\home\\u\\Data"_s};
    EXPECT_TRUE(dialog_.ShowBrowseForFolder());
    EXPECT_EQ(dialog_.FileName, u"\\home\\u\\Data"_path);
}

TEST_F(CmnDialogExTest, GivingUpEmptiesTheFileName)
{
    dialog_.FileName = u"before"_path;
    EXPECT_FALSE(dialog_.ShowBrowseForFolder());
    EXPECT_EQ(dialog_.FileName, text::ProgramPath());
}

TEST_F(CmnDialogExTest, ItAsksWhatItIsSetTo)
{
    dialog_.DialogTitle = u"Sélectionnez un dossier à Graver"_s;
    dialog_.SetInitDir(u"\\home\\u"_s);
    dialog_.FlagsFolderBrowsing = 832;
    dialog_.ShowBrowseForFolder();
    const desktop::FolderQuestion& asked = chooser_.folderQuestions.at(0);
    EXPECT_EQ(asked.title, u"Sélectionnez un dossier à Graver"_s);
    EXPECT_EQ(asked.folder, u"\\home\\u"_path);
    EXPECT_FALSE(asked.mayMakeFolders);
}

TEST_F(CmnDialogExTest, OnlyTheNewStyleMakesFolders)
{
    const auto mayMake = [this](qint32 flags) {
        dialog_.FlagsFolderBrowsing = flags;
        dialog_.ShowBrowseForFolder();
        return chooser_.folderQuestions.back().mayMakeFolders;
    };
    EXPECT_TRUE(mayMake(0));
    EXPECT_TRUE(mayMake(0x40));
    EXPECT_TRUE(mayMake(0x80));
    EXPECT_TRUE(mayMake(0x8000));
    EXPECT_FALSE(mayMake(1));
    EXPECT_FALSE(mayMake(0x240));
}

TEST_F(CmnDialogExTest, ItBeginsOnlyInAPath)
{
    const auto set = [this](const QString& folder) {
        dialog_.SetInitDir(folder);
        return dialog_.InitDir().Text();
    };
    EXPECT_EQ(set(u"\\home\\a/b"_s), u"\\home\\a/b"_s);
    EXPECT_EQ(set(u"/home/u"_s), u"\\home\\u"_s);
    EXPECT_EQ(set(u"C:/Users/u"_s), u"C:\\Users\\u"_s);
    EXPECT_EQ(set(u"Documents"_s), QString());
    EXPECT_EQ(set(u"5"_s), QString());
    EXPECT_EQ(set(QString()), QString());
}

TEST_F(CmnDialogExTest, ClearPutsEverythingBack)
{
    CmnDialogEx dialog(chooser_);
    dialog.DialogTitle = u"x"_s;
    dialog.FileName = u"x"_path;
    dialog.FlagsFolderBrowsing = 832;
    dialog.SetInitDir(u"\\x"_s);
    dialog.Clear();
    EXPECT_EQ(dialog.DialogTitle + dialog.FileName.Text() + dialog.InitDir().Text(), QString());
    EXPECT_EQ(dialog.FlagsFolderBrowsing, 0);
}

TEST_F(CmnDialogExTest, AnOpenDialogStaysAsItIs)
{
    dialog_.DialogTitle = u"title"_s;
    dialog_.SetInitDir(u"\\first"_s);
    chooser_.onAsk = [this] {
        dialog_.Clear();
        dialog_.SetInitDir(u"\\second"_s);
    };
    dialog_.ShowBrowseForFolder();
    EXPECT_EQ(dialog_.DialogTitle, u"title"_s);
    EXPECT_EQ(dialog_.InitDir(), u"\\first"_path);
    dialog_.Clear();
    EXPECT_EQ(dialog_.InitDir(), text::ProgramPath());
}
