// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/SaveText.h"

#include "desktop/FileChooser.h"
#include "shell/MessageDoor.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "text/PathText.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

class SaveTextTest : public testing::Test {
protected:
    class Chooser final : public desktop::FileChooser {
    public:
        QList<text::ProgramPath> AskFiles(const desktop::FileQuestion& question) override
        {
            offered = question.fileName;
            return answer;
        }
        text::ProgramPath AskFolder(const desktop::FolderQuestion&) override { return {}; }

        QList<text::ProgramPath> answer;
        QString offered;
    };
    class Messages final : public shell::MessageDoor {
    public:
        shell::MessageAnswer MsgBox(const QString& text, qint32, const QString&) override
        {
            shown += text;
            return answer;
        }

        shell::MessageAnswer answer = shell::MessageAnswer::Yes;
        QStringList shown;
    };

    void SaveTo(const std::filesystem::path& path)
    {
        chooser.answer = {text::ToProgramPath(text::NativePath(path.string()))};
        SaveText(chooser,
            messages,
            {.title = u"Garder"_s, .fileName = u"journal.txt"_s, .text = u"été\nfin"_s});
    }
    static std::string ContentOf(const std::filesystem::path& path)
    {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    test::TemporaryFolder folder;
    Chooser chooser;
    Messages messages;
};

TEST_F(SaveTextTest, ATextIsWrittenWithALineFeedAtItsEnd)
{
    SaveTo(folder / "a.txt");
    EXPECT_EQ(ContentOf(folder / "a.txt"), "été\nfin\n");
    EXPECT_EQ(chooser.offered, u"journal.txt"_s);
    EXPECT_EQ(messages.shown, QStringList());
}

TEST_F(SaveTextTest, AFileMayHaveAnyName)
{
    SaveTo(folder / "caf\xE9.txt");
    EXPECT_EQ(ContentOf(folder / "caf\xE9.txt"), "été\nfin\n");
}

TEST_F(SaveTextTest, WhoGivesUpGetsNoFile)
{
    SaveText(chooser, messages, {.title = u"Garder"_s, .text = u"x"_s});
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(SaveTextTest, AFileThatIsThereIsAskedAbout)
{
    std::ofstream(folder / "a.txt") << "old";
    messages.answer = shell::MessageAnswer::No;
    SaveTo(folder / "a.txt");
    EXPECT_EQ(ContentOf(folder / "a.txt"), "old");
    messages.answer = shell::MessageAnswer::Yes;
    SaveTo(folder / "a.txt");
    EXPECT_EQ(ContentOf(folder / "a.txt"), "été\nfin\n");
    EXPECT_EQ(messages.shown.size(), 2);
}

TEST_F(SaveTextTest, APlaceThatCannotBeWrittenIsTold)
{
    SaveTo(folder / "missing/a.txt");
    EXPECT_EQ(
        messages.shown, QStringList(u"Le fichier n'a pas pu être enregistré à cet endroit."_s));
}

} // namespace

} // namespace velmora::wizard
