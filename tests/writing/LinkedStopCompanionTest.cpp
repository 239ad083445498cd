// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/LinkedStopCompanion.h"

#include "tests/support/CoreApplication.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeClock.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "text/PathText.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <sys/types.h>

#include <cmath>
#include <csignal>
#include <fstream>
#include <functional>

namespace velmora::writing {

using namespace Qt::StringLiterals;
using test::ErrorNumberOf;

namespace {

/// A clock whose five seconds last longer, for machines that are busy with other tests.
class SlowClock final : public runtime::Clock {
public:
    explicit SlowClock(runtime::EventPump& pump)
        : clock_(pump)
    {
    }
    double Timer() const override { return clock_.Timer() / 6; }
    QDateTime Now() const override { return clock_.Now(); }
    void Pause(double seconds) override { clock_.Pause(seconds); }

private:
    runtime::SystemClock clock_;
};

} // namespace

/// Companions as real processes: the program's own, on no screen, or a script that misbehaves.
class LinkedStopCompanionTest : public testing::Test {
protected:
    LinkedStopCompanionTest()
        : platform_(qgetenv("QT_QPA_PLATFORM"))
        , runTime_(qgetenv("XDG_RUNTIME_DIR"))
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("XDG_RUNTIME_DIR", meetings.Path().native().c_str());
    }
    ~LinkedStopCompanionTest() override
    {
        qputenv("QT_QPA_PLATFORM", platform_);
        qputenv("XDG_RUNTIME_DIR", runTime_);
    }

    std::filesystem::path CompanionFile() const
    {
        return folder.MakeFolder("System") / "StopButton.sys";
    }
    void UseOwnCompanion() const { std::filesystem::create_symlink(STOP_BUTTON, CompanionFile()); }
    /// A script in place of the companion. It knows the real one as $OWN, the folder for the link
    /// as $1, and leaves its process number in $PID.
    void UseScript(const std::string& text) const
    {
        std::ofstream(CompanionFile())
            << "#!/bin/sh\nOWN='" STOP_BUTTON "'\nPID='" << PidFile().native() << "'\n"
            << text << '\n';
        std::filesystem::permissions(CompanionFile(), std::filesystem::perms::owner_all);
    }
    /// A double of the companion that listens and then does what its few lines of Python say, with
    /// the listening socket in server and the folder in folder.
    void UseDouble(const std::string& lines) const
    {
        std::ofstream(CompanionFile())
            << "#!/usr/bin/env python3\nimport os, socket, sys\nfolder = sys.argv[1]\n"
            << "server = socket.socket(socket.AF_UNIX)\nserver.bind(folder + '/early')\n"
            << "server.listen()\nos.rename(folder + '/early', folder + '/StopButton-Undo')\n"
            << lines << '\n';
        std::filesystem::permissions(CompanionFile(), std::filesystem::perms::owner_all);
    }
    std::filesystem::path PidFile() const { return folder / "pid"; }
    pid_t Pid() const
    {
        pid_t pid = 0;
        std::ifstream(PidFile()) >> pid;
        return pid;
    }
    /// Handles events until a condition holds, for ten seconds at most.
    static bool Await(const std::function<bool()>& isSo)
    {
        QElapsedTimer waited;
        waited.start();
        bool wasSo = isSo();
        while (!wasSo && waited.elapsed() < 10'000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            wasSo = isSo();
        }
        return wasSo;
    }
    bool Ends() const
    {
        return Await([this] { return !IsRunning(); });
    }
    bool IsRunning() const
    {
        // A process that has ended counts as gone, as a zombie (Z) and while it is reaped (X).
        std::ifstream status("/proc/" + std::to_string(Pid()) + "/stat");
        std::string number;
        std::string name;
        std::string state;
        return status >> number >> name >> state && state != "Z" && state != "X";
    }
    bool IsNothingLeft() const { return std::filesystem::is_empty(meetings.Path()); }

    LinkedStopCompanion CompanionWith(link::TextLink& DDETool, runtime::Clock& itsClock)
    {
        return LinkedStopCompanion(
            text::ToProgramPath(text::NativePath(folder.Path().native())), DDETool, pump, itsClock);
    }

    test::TemporaryFolder folder;
    test::TemporaryFolder meetings;
    test::FakePump pump;
    SlowClock slowClock {pump};
    test::FakeClock fakeClock {pump};
    link::TextLink link;

private:
    QByteArray platform_;
    QByteArray runTime_;
};

TEST_F(LinkedStopCompanionTest, StartsTheCompanionAndTellsItToQuit)
{
    UseScript("echo $$ > \"$PID\"; exec \"$OWN\" \"$1\"");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    EXPECT_EQ(link.Text(), u""_s);
    companion.Start();
    EXPECT_EQ(link.Text(), u""_s);
    EXPECT_TRUE(IsRunning());
    companion.Finish();
    EXPECT_EQ(link.Text(), u"Quit"_s);
    EXPECT_TRUE(Ends());
    EXPECT_TRUE(IsNothingLeft());
}

TEST_F(LinkedStopCompanionTest, TellsWhereTheWindowStandsAtEachStart)
{
    UseScript("echo \"$2\" > \"$PID.place\"; echo $$ > \"$PID\"; exec \"$OWN\" \"$@\"");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    QRect window(40, 20, 900, 620);
    companion.StandBeside([&window] { return window; });
    for (const char* place : {"40,20,900x620", "0,0,640x360"}) {
        companion.Start();
        std::string told;
        std::getline(std::ifstream((folder / "pid.place").native()), told);
        EXPECT_EQ(told, place);
        companion.Finish();
        EXPECT_TRUE(Ends());
        window = {0, 0, 640, 360};
    }
}

TEST_F(LinkedStopCompanionTest, LeavesNoSocketDuringTheWrite)
{
    UseOwnCompanion();
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    companion.Start();
    EXPECT_TRUE(IsNothingLeft());
    companion.Finish();
}

TEST_F(LinkedStopCompanionTest, AMissingFileIsError53AndNothingIsLinked)
{
    LinkedStopCompanion companion = CompanionWith(link, fakeClock);
    EXPECT_EQ(ErrorNumberOf([&] { companion.Start(); }), 53);
    EXPECT_EQ(pump.pumps, 0);
    companion.Finish();
    EXPECT_EQ(link.Text(), u"Quit"_s);
    EXPECT_TRUE(IsNothingLeft());
}

TEST_F(LinkedStopCompanionTest, AFileThatIsNoProgramIsNotStarted)
{
    std::ofstream(CompanionFile()) << "no program";
    LinkedStopCompanion companion = CompanionWith(link, fakeClock);
    EXPECT_EQ(ErrorNumberOf([&] { companion.Start(); }), 70);
    std::filesystem::permissions(CompanionFile(), std::filesystem::perms::owner_all);
    EXPECT_EQ(ErrorNumberOf([&] { companion.Start(); }), 5);
}

TEST_F(LinkedStopCompanionTest, QuittingWithoutACompanionOnlySetsTheText)
{
    LinkedStopCompanion companion = CompanionWith(link, fakeClock);
    companion.Finish();
    EXPECT_EQ(link.Text(), u"Quit"_s);
    EXPECT_EQ(pump.pumps, 0);
}

TEST_F(LinkedStopCompanionTest, OneThatNeverListensHasFiveSecondsAnd21Passes)
{
    UseScript("echo $$ > \"$PID\"; while [ -d \"$1\" ]; do sleep 0.01; done");
    LinkedStopCompanion companion = CompanionWith(link, fakeClock);
    EXPECT_EQ(ErrorNumberOf([&] { companion.Start(); }), 282);
    EXPECT_NEAR(fakeClock.Timer(), 5, 0.02);
    const int looks = static_cast<int>(std::lround(fakeClock.Timer() / 0.01));
    EXPECT_EQ(pump.pumps, looks + 21);
    EXPECT_TRUE(IsNothingLeft());
}

TEST_F(LinkedStopCompanionTest, OneThatDiesAtOnceIsNotWaitedForLong)
{
    UseScript("exit 1");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    EXPECT_EQ(ErrorNumberOf([&] { companion.Start(); }), 282);
    EXPECT_LT(slowClock.Timer(), 4);
    EXPECT_TRUE(IsNothingLeft());
}

TEST_F(LinkedStopCompanionTest, ASlowOneIsWaitedFor)
{
    UseScript("sleep 0.5; exec \"$OWN\" \"$1\"");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    EXPECT_EQ(ErrorNumberOf([&] { companion.Start(); }), 0);
    companion.Finish();
}

TEST_F(LinkedStopCompanionTest, OneThatComesTooLateGoesAgain)
{
    UseScript("echo $$ > \"$PID\"; while [ -d \"$1\" ]; do sleep 0.01; done; exec \"$OWN\" \"$1\"");
    LinkedStopCompanion companion = CompanionWith(link, fakeClock);
    ASSERT_EQ(ErrorNumberOf([&] { companion.Start(); }), 282);
    companion.Finish();
    EXPECT_TRUE(Ends());
    EXPECT_TRUE(IsNothingLeft());
}

TEST_F(LinkedStopCompanionTest, OneThatHangsIsError286)
{
    UseDouble("client = server.accept()[0]\nclient.recv(9)\nclient.recv(1)");
    link::TextLink impatient(std::chrono::milliseconds(50));
    LinkedStopCompanion companion = CompanionWith(impatient, slowClock);
    EXPECT_EQ(ErrorNumberOf([&] { companion.Start(); }), 286);
    companion.Finish();
    EXPECT_TRUE(IsNothingLeft());
}

TEST_F(LinkedStopCompanionTest, OneThatKnowsNoSuchItemIsError285)
{
    UseDouble("server.accept()[0].recv(9)");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    EXPECT_EQ(ErrorNumberOf([&] { companion.Start(); }), 285);
}

TEST_F(LinkedStopCompanionTest, AnUndoLeftFromEarlierIsWiped)
{
    // The item still says "Undo" when it is joined; only what follows the empty poke counts.
    UseDouble("client = server.accept()[0]\nassert client.recv(9) == b'Commande\\n'\n"
              "client.send(b'Undo\\n')\nassert client.recv(9) == b'\\n'\n"
              "open(os.path.dirname(folder) + '/wiped', 'w').close()\nclient.recv(9)");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    companion.Start();
    EXPECT_EQ(link.Text(), u""_s);
    EXPECT_TRUE(Await([&] { return std::filesystem::exists(meetings / "wiped"); }));
    EXPECT_EQ(link.Text(), u""_s);
}

TEST_F(LinkedStopCompanionTest, OnlyItsOwnWordAsksToStop)
{
    const LinkedStopCompanion companion = CompanionWith(link, slowClock);
    link.SetText(u"Undo"_s);
    EXPECT_TRUE(companion.IsStopAsked());
    for (const QString& word : {u"Quit"_s, u"undo"_s, u"Undo "_s, QString()}) {
        link.SetText(word);
        EXPECT_FALSE(companion.IsStopAsked()) << word.toStdString();
    }
}

TEST_F(LinkedStopCompanionTest, TheStopArrivesWhenEventsAreHandled)
{
    UseDouble("client = server.accept()[0]\nclient.recv(9)\nclient.send(b'\\n')\nclient.recv(9)\n"
              "client.send(b'Undo\\n')\nassert client.recv(9) == b'Quit\\n'\n"
              "open(os.path.dirname(folder) + '/quit', 'w').close()");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    companion.Start();
    EXPECT_EQ(link.Text(), u""_s);
    EXPECT_TRUE(Await([&] { return companion.IsStopAsked(); }));
    companion.Finish();
    EXPECT_EQ(link.Text(), u"Quit"_s);
    EXPECT_TRUE(Await([&] { return std::filesystem::exists(meetings / "quit"); }));
}

// Somebody may press its button at the very moment at which the write ends.
TEST_F(LinkedStopCompanionTest, AStopThatCrossesTheQuitIsNoneForTheNextRun)
{
    UseDouble("client = server.accept()[0]\nclient.recv(9)\nclient.send(b'\\n')\nclient.recv(1)\n"
              "assert client.recv(9) == b'Quit\\n'\nclient.send(b'Undo\\n')\nclient.recv(9)");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    companion.Start();
    companion.Finish();
    ASSERT_TRUE(Await([&] { return link.Text() == u"Undo"_s; }));
    EXPECT_FALSE(companion.IsStopAsked());
}

TEST_F(LinkedStopCompanionTest, AKilledOneLeavesTheTextAndAnotherCanBeStarted)
{
    UseScript("echo $$ > \"$PID\"; exec \"$OWN\" \"$1\"");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    companion.Start();
    ASSERT_EQ(kill(Pid(), SIGKILL), 0);
    ASSERT_TRUE(Ends());
    EXPECT_EQ(link.Text(), u""_s);
    companion.Finish();
    EXPECT_EQ(link.Text(), u"Quit"_s);
    companion.Start();
    EXPECT_EQ(link.Text(), u""_s);
    EXPECT_TRUE(IsRunning());
    companion.Finish();
    EXPECT_TRUE(Ends());
    EXPECT_TRUE(IsNothingLeft());
}

TEST_F(LinkedStopCompanionTest, ASecondWriteHasANewCompanion)
{
    UseScript("echo $$ > \"$PID\"; exec \"$OWN\" \"$1\"");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    companion.Start();
    const pid_t first = Pid();
    companion.Finish();
    ASSERT_TRUE(Ends());
    companion.Start();
    EXPECT_NE(Pid(), first);
    EXPECT_EQ(link.Text(), u""_s);
    companion.Finish();
    EXPECT_TRUE(Ends());
}

TEST_F(LinkedStopCompanionTest, OneThatWasNeverToldToQuitEndsWhenTheNextIsJoined)
{
    UseScript("echo $$ > \"$PID\"; exec \"$OWN\" \"$1\"");
    LinkedStopCompanion companion = CompanionWith(link, slowClock);
    companion.Start();
    std::filesystem::rename(PidFile(), folder / "first");
    companion.Start();
    std::filesystem::rename(folder / "first", PidFile());
    EXPECT_TRUE(Ends());
}

TEST_F(LinkedStopCompanionTest, EndsWithTheProgram)
{
    UseScript("echo $$ > \"$PID\"; exec \"$OWN\" \"$1\"");
    {
        link::TextLink shortLived;
        CompanionWith(shortLived, slowClock).Start();
        ASSERT_TRUE(IsRunning());
    }
    EXPECT_TRUE(Ends());
}

TEST_F(LinkedStopCompanionTest, TwoProgramsAtOnceHaveACompanionEach)
{
    UseScript("echo $$ > \"$PID\"; exec \"$OWN\" \"$1\"");
    link::TextLink otherLink;
    LinkedStopCompanion one = CompanionWith(link, slowClock);
    LinkedStopCompanion other = CompanionWith(otherLink, slowClock);
    one.Start();
    std::filesystem::rename(PidFile(), folder / "first");
    other.Start();
    other.Finish();
    EXPECT_TRUE(Ends());
    EXPECT_EQ(link.Text(), u""_s);
    std::filesystem::rename(folder / "first", PidFile());
    EXPECT_TRUE(IsRunning());
    one.Finish();
    EXPECT_TRUE(Ends());
}

} // namespace velmora::writing
