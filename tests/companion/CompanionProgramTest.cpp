// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/LinkFolder.h"
#include "link/TextLink.h"
#include "tests/companion/ProgramEnd.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/WidgetApplication.h"
#include "text/PathText.h"

#include <QDir>
#include <QProcess>

#include <gtest/gtest.h>

namespace velmora::companion {

using namespace Qt::StringLiterals;

class CompanionProgramTest : public testing::Test {
protected:
    ~CompanionProgramTest() override
    {
        if (program.state() != QProcess::NotRunning) {
            program.kill();
            program.waitForFinished();
        }
    }
    void Start(const QStringList& arguments)
    {
        program.setProgram(QStringLiteral(STOP_BUTTON));
        program.setArguments(arguments);
        program.start();
    }
    /// Starts the companion and joins it as soon as it listens.
    void StartAndJoin()
    {
        Start({text::ToQtPath(folder.Path())});
        ASSERT_TRUE(test::Await([this] { return folder.HasService(u"StopButton|Undo"_s); }));
        link.SetLinkFolder(folder.Path());
        link.SetLinkTopic(u"StopButton|Undo"_s);
        link.SetLinkItem(u"Commande"_s);
        link.SetLinkMode(link::LinkMode::Automatic);
    }
    bool Ends()
    {
        return program.state() == QProcess::NotRunning || program.waitForFinished(10'000);
    }

    link::LinkFolder folder;
    link::TextLink link;
    QProcess program;
};

TEST_F(CompanionProgramTest, ComesUpEmptyAndEndsOnQuit)
{
    StartAndJoin();
    EXPECT_EQ(link.Text(), u""_s);
    link.SetText(u"Quit"_s);
    link.LinkPoke();
    EXPECT_TRUE(Ends());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_F(CompanionProgramTest, IsToldWhereTheWindowStands)
{
    Start({text::ToQtPath(folder.Path()), u"0,0,900x620"_s});
    EXPECT_TRUE(test::Await([this] { return folder.HasService(u"StopButton|Undo"_s); }));
}

TEST_F(CompanionProgramTest, EndsWhenItsProgramIsGone)
{
    StartAndJoin();
    link.SetLinkMode(link::LinkMode::None); // as the kernel does for a program that dies
    EXPECT_TRUE(Ends());
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_F(CompanionProgramTest, LeavesNoSocketOnceItIsJoined)
{
    StartAndJoin();
    link::TextLink progress;
    progress.SetLinkFolder(folder.Path());
    progress.SetLinkTopic(u"StopButton|Progress"_s);
    progress.SetLinkItem(u"Avancement"_s);
    progress.SetLinkMode(link::LinkMode::Automatic);
    EXPECT_TRUE(
        QDir(text::ToQtPath(folder.Path()))
            .isEmpty(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot));
}

TEST_F(CompanionProgramTest, SaysWhoStartsIt)
{
    for (const QStringList& arguments : {QStringList(), {u"/nowhere/at/all"_s}, {u"/"_s, u"x"_s}}) {
        Start(arguments);
        EXPECT_TRUE(Ends());
        EXPECT_EQ(program.exitCode(), 2);
        EXPECT_TRUE(QString::fromUtf8(program.readAllStandardError())
                        .endsWith(u"Ce programme est lancé par Velmora pendant une gravure.\n"));
    }
}

} // namespace velmora::companion
