// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/ChooseFolder.h"

#include "desktop/FileChooser.h"
#include "shell/modCorvaneRegSettings.h"
#include "store/FileSettingsStore.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using namespace test::path_literals;

namespace {

class OneFolder final : public desktop::FileChooser {
public:
    QList<text::ProgramPath> AskFiles(const desktop::FileQuestion&) override { return {}; }
    text::ProgramPath AskFolder(const desktop::FolderQuestion& question) override
    {
        asked = question;
        return folder;
    }

    desktop::FolderQuestion asked;
    text::ProgramPath folder;
};

} // namespace

class ChooseFolderTest : public testing::Test {
protected:
    ChooseFolderTest() { qputenv("USERPROFILE", "/home/lise"); }
    ~ChooseFolderTest() override { qunsetenv("USERPROFILE"); }

    QString LastDir()
    {
        return shell::GetRegString(settings, u"Velmora"_s, u"Data"_s, u"LastDir"_s, u"none"_s);
    }

    test::TemporaryFolder folder;
    store::FileSettingsStore settings {QString::fromStdString((folder / "settings.json").string())};
    OneFolder chooser;
};

TEST_F(ChooseFolderTest, ItBeginsInTheDocumentsAndRemembersTheChoice)
{
    chooser.folder = u"\\home\\lise\\Photos"_path;
    EXPECT_EQ(ChooseFolder(chooser, settings).Text(), u"\\home\\lise\\Photos"_s);
    EXPECT_EQ(chooser.asked.folder, u"\\home\\lise\\Documents"_path);
    EXPECT_EQ(chooser.asked.title, u"Sélectionnez un dossier à Graver"_s);
    EXPECT_EQ(LastDir(), u"\\home\\lise\\Photos"_s);
}

TEST_F(ChooseFolderTest, ItBeginsWhereAFolderWasFoundTheLastTime)
{
    chooser.folder = u"\\data\\a"_path;
    ChooseFolder(chooser, settings);
    chooser.folder = {};
    EXPECT_EQ(ChooseFolder(chooser, settings), text::ProgramPath());
    EXPECT_EQ(chooser.asked.folder, u"\\data\\a"_path);
    EXPECT_EQ(LastDir(), u"\\data\\a"_s) << "giving up remembers nothing";
}

TEST_F(ChooseFolderTest, APlaceThatIsNoneIsTheDocuments)
{
    shell::SaveRegString(settings, u"Velmora"_s, u"Data"_s, u"LastDir"_s, u"nowhere"_s);
    ChooseFolder(chooser, settings);
    EXPECT_EQ(chooser.asked.folder, u"\\home\\lise\\Documents"_path);
}

} // namespace velmora::wizard
