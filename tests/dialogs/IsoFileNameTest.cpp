// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/IsoFileName.h"

#include "dialogs/CommonDialog.h"
#include "tests/support/FakeFileChooser.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/RecordedMessages.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unprivileged.h"
#include "text/PathText.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using shell::MessageAnswer;

namespace {

class IsoFileNameTest : public testing::Test {
protected:
    QString PathOf(const std::string& name) const
    {
        return text::ToProgramPath((folder_ / name).string());
    }
    QString Ask(bool SaveMode)
    {
        return dialogs::GetIsoFileName(dialog_,
            messages_,
            SaveMode,
            [this](const text::ProgramPath& file) { return file.Text() == PathOf("source.iso"); })
            .Text();
    }

    test::TemporaryFolder folder_;
    test::FakeFileChooser chooser_;
    dialogs::CommonDialog dialog_ {chooser_};
    test::RecordedMessages messages_;
};

} // namespace

TEST_F(IsoFileNameTest, TheImageToBurnIsTakenAsItIsNamed)
{
    folder_.MakeFile("a.iso", 10);
    chooser_.files = {{PathOf("a.iso")}, {PathOf("missing.img")}};
    EXPECT_EQ(Ask(false), PathOf("a.iso"));
    EXPECT_EQ(Ask(false), PathOf("missing.img"));
    EXPECT_TRUE(messages_.shown.empty());
    EXPECT_TRUE(std::filesystem::exists(folder_ / "a.iso"));
}

TEST_F(IsoFileNameTest, ANewNameIsTakenWithoutAQuestion)
{
    chooser_.files = {{PathOf("new.iso")}};
    EXPECT_EQ(Ask(true), PathOf("new.iso"));
    EXPECT_TRUE(messages_.shown.empty());
    EXPECT_FALSE(std::filesystem::exists(folder_ / "new.iso"));
}

TEST_F(IsoFileNameTest, OnlyTheTitleTellsWritingFromBurning)
{
    Ask(true);
    Ask(false);
    const auto& asked = chooser_.fileQuestions;
    EXPECT_EQ(asked.at(0).title, u"Saisir le nom de l'image ISO"_s);
    EXPECT_EQ(asked.at(1).title, u"Choisir l'image ISO à graver"_s);
    for (const desktop::FileQuestion& question : asked) {
        ASSERT_EQ(question.filters.size(), 1);
        EXPECT_EQ(question.filters[0].text, u"Images Iso (*.iso)"_s);
        EXPECT_EQ(question.filters[0].pattern, u"*.iso"_s);
        EXPECT_EQ(question.filterIndex, 1);
        EXPECT_EQ(question.fileName, QString());
        EXPECT_FALSE(question.several);
    }
    EXPECT_EQ(dialog_.Flags, 4);
}

TEST_F(IsoFileNameTest, AnExistingFileIsAskedAboutAndDeletedAtOnce)
{
    folder_.MakeFile("old.iso", 10);
    chooser_.files = {{PathOf("old.iso")}};
    messages_.answers = {MessageAnswer::Yes};
    EXPECT_EQ(Ask(true), PathOf("old.iso"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "old.iso"));
    ASSERT_EQ(messages_.shown.size(), 1U);
    EXPECT_EQ(messages_.shown[0].title, u"Fichier déjà présent..."_s);
    EXPECT_EQ(messages_.shown[0].style, 36);
    EXPECT_EQ(messages_.shown[0].text,
        u"Ce fichier existe déjà.\r\nÊtes-vous sur de vouloir le remplacer ? "_s);
}

TEST_F(IsoFileNameTest, NoShowsTheDialogAgainWithAnEmptyName)
{
    folder_.MakeFile("old.iso", 10);
    chooser_.files = {{PathOf("old.iso")}, {PathOf("other.iso")}};
    messages_.answers = {MessageAnswer::No};
    EXPECT_EQ(Ask(true), PathOf("other.iso"));
    ASSERT_EQ(chooser_.fileQuestions.size(), 2U);
    EXPECT_EQ(chooser_.fileQuestions[1].fileName, QString());
    EXPECT_TRUE(std::filesystem::exists(folder_ / "old.iso"));
}

TEST_F(IsoFileNameTest, ASourceIsNeverReplacedAndTheDialogComesAgain)
{
    folder_.MakeFile("source.iso", 10);
    chooser_.files = {{PathOf("source.iso")}, {PathOf("new.iso")}};
    EXPECT_EQ(Ask(true), PathOf("new.iso"));
    EXPECT_TRUE(std::filesystem::exists(folder_ / "source.iso"));
    ASSERT_EQ(messages_.shown.size(), 1U);
    EXPECT_EQ(messages_.shown[0].title, u"Fichier à graver"_s);
    EXPECT_EQ(messages_.shown[0].text,
        u"Ce fichier fait partie de ce qui doit aller dans l'image : il ne peut pas être remplacé "
        u"par elle.\r\nChoisissez un autre nom."_s);
}

TEST_F(IsoFileNameTest, ASourceCanBeBurnedAsAnImage)
{
    folder_.MakeFile("source.iso", 10);
    chooser_.files = {{PathOf("source.iso")}};
    EXPECT_EQ(Ask(false), PathOf("source.iso"));
    EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(IsoFileNameTest, GivingUpGivesNothingAndLeavesCancelErrorOn)
{
    EXPECT_FALSE(dialog_.CancelError);
    EXPECT_EQ(Ask(true), QString());
    EXPECT_EQ(Ask(false), QString());
    EXPECT_TRUE(dialog_.CancelError);
}

TEST_F(IsoFileNameTest, GivingUpAfterNoLeavesTheFile)
{
    folder_.MakeFile("old.iso", 10);
    chooser_.files = {{PathOf("old.iso")}};
    messages_.answers = {MessageAnswer::No};
    EXPECT_EQ(Ask(true), QString());
    EXPECT_TRUE(std::filesystem::exists(folder_ / "old.iso"));
}

TEST_F(IsoFileNameTest, AFileThatCantBeDeletedGivesNothing)
{
    folder_.MakeFile("locked/old.iso", 10);
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms::all);
    constexpr std::filesystem::perms kReadOnly {0555};
    std::filesystem::permissions(folder_ / "locked", kReadOnly);
    chooser_.files = {{PathOf("locked/old.iso")}};
    messages_.answers = {MessageAnswer::Yes};
    {
        const test::Unprivileged unprivileged;
        EXPECT_EQ(Ask(true), QString());
    }
    EXPECT_TRUE(std::filesystem::exists(folder_ / "locked/old.iso"));
    std::filesystem::permissions(folder_ / "locked", std::filesystem::perms::owner_all);
}

TEST_F(IsoFileNameTest, WhatIsNoPlainFileIsNeverDeleted)
{
    folder_.MakeFolder("folder");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    chooser_.files = {{PathOf("folder")}, {PathOf("pipe")}};
    EXPECT_EQ(Ask(true), PathOf("folder"));
    EXPECT_EQ(Ask(true), PathOf("pipe"));
    EXPECT_TRUE(messages_.shown.empty());
    EXPECT_TRUE(std::filesystem::exists(folder_ / "pipe"));
}
