// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/companion/StoppableBurn.h"
#include "tests/support/CoreApplication.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/XServer.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <csignal>
#include <optional>

namespace velmora::test {

using namespace Qt::StringLiterals;

namespace {

const QString kWriting = u"Gravure en cours..."_s;
const QString kStopped = u"Annulation de la gravure par l'utilisateur"_s;
const QString kSuccess = u"Gravure effectuée avec succès."_s;
const QString kFailed = u"Une erreur est survenue : "_s;

} // namespace

/// A real write that takes five seconds, beside the real companion on a display.
class StopAWriteTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!XServer::IsPossible()) {
            GTEST_SKIP() << "needs Xvfb and xdotool";
        }
        server_.emplace();
        qputenv("QT_QPA_PLATFORM", "xcb");
        qputenv("XDG_RUNTIME_DIR", meetings.Path().native().c_str());
    }
    void TearDown() override
    {
        qunsetenv("QT_QPA_PLATFORM");
        qunsetenv("XDG_RUNTIME_DIR");
    }

    static text::ProgramPath ProgramFolder()
    {
        return text::ToProgramPath(text::NativePath(PROGRAM_FOLDER));
    }

    /// Once the write has begun and the companion is visible: does something to it with xdotool,
    /// while the write continues. The window found is %1.
    void WhenWriting(StoppableBurn& burn, const QStringList& deed)
    {
        burn.screen.actions[kWriting] = [deed, this] {
            sinceDeed.start();
            hand.start(u"xdotool"_s,
                QStringList {u"search"_s,
                    u"--sync"_s,
                    u"--onlyvisible"_s,
                    u"--name"_s,
                    u"^Gravure - Velmora$"_s}
                    + deed);
        };
    }
    /// The process of the visible companion.
    static pid_t CompanionPid()
    {
        QProcess search;
        search.start(u"xdotool"_s,
            {u"search"_s, u"--sync"_s, u"--name"_s, u"^Gravure - Velmora$"_s, u"getwindowpid"_s});
        search.waitForFinished();
        return search.readAllStandardOutput().trimmed().toInt();
    }
    bool IsCompanionGone()
    {
        const auto windows = [] {
            return QProcess::execute(
                u"xdotool"_s, {u"search"_s, u"--name"_s, u"^Gravure - Velmora$"_s});
        };
        QElapsedTimer waited;
        waited.start();
        while (windows() == 0 && waited.elapsed() < 10'000) { }
        return windows() != 0;
    }

    /// The write that was stopped ended at once and quietly, and the drive takes the next disc.
    void ExpectStopped(StoppableBurn& burn)
    {
        const qint64 elapsed = sinceDeed.elapsed();
        RecordProperty("milliseconds from the order to the end", static_cast<int>(elapsed));
        EXPECT_LT(elapsed, 1000);
        EXPECT_TRUE(burn.screen.log.contains(kStopped));
        EXPECT_FALSE(burn.screen.log.contains(kFailed));
        EXPECT_FALSE(burn.screen.log.contains(kSuccess));
        EXPECT_FALSE(burn.state.BurnDone);
        EXPECT_LT(burn.WrittenSectors(), StoppableBurn::kFileSectors);
        EXPECT_TRUE(std::filesystem::is_empty(meetings.Path()));
        ExpectNextDiscIsWritten(burn);
    }
    void ExpectNextDiscIsWritten(StoppableBurn& burn)
    {
        burn.recorders.SetRealTiming(u"A"_s, false);
        burn.PutNewDiscIn();
        burn.screen.actions.clear();
        burn.Burn();
        EXPECT_EQ(burn.screen.log.last(), kSuccess);
        EXPECT_TRUE(burn.state.BurnDone);
        EXPECT_GE(burn.WrittenSectors(), StoppableBurn::kFileSectors);
        EXPECT_TRUE(IsCompanionGone());
    }

    TemporaryFolder meetings;
    QProcess hand;
    QElapsedTimer sinceDeed;

private:
    std::optional<XServer> server_;
};

TEST_F(StopAWriteTest, AClickOnTheCompanionEndsItWithinASecond)
{
    StoppableBurn burn(ProgramFolder());
    WhenWriting(
        burn, {u"mousemove"_s, u"--window"_s, u"%1"_s, u"180"_s, u"135"_s, u"click"_s, u"1"_s});
    burn.Burn();
    ExpectStopped(burn);
}

TEST_F(StopAWriteTest, AKeyOnTheCompanionEndsItWithinASecond)
{
    StoppableBurn burn(ProgramFolder());
    WhenWriting(burn, {u"windowfocus"_s, u"--sync"_s, u"key"_s, u"alt+a"_s});
    burn.Burn();
    ExpectStopped(burn);
}

TEST_F(StopAWriteTest, WithoutAnyStopItGoesToItsEnd)
{
    StoppableBurn burn(ProgramFolder());
    burn.Burn();
    EXPECT_EQ(burn.screen.log.last(), kSuccess);
    EXPECT_FALSE(burn.companion.IsStopAsked());
    EXPECT_TRUE(IsCompanionGone());
    EXPECT_TRUE(std::filesystem::is_empty(meetings.Path()));
}

TEST_F(StopAWriteTest, AKilledCompanionLeavesTheWriteRunning)
{
    StoppableBurn burn(ProgramFolder());
    burn.screen.actions[kWriting] = [] { kill(CompanionPid(), SIGKILL); };
    burn.Burn();
    EXPECT_EQ(burn.screen.log.last(), kSuccess);
    EXPECT_TRUE(burn.state.BurnDone);
}

TEST_F(StopAWriteTest, WithTheCompanionKilledTheProgramsButtonStops)
{
    StoppableBurn burn(ProgramFolder());
    burn.screen.actions[kWriting] = [&] {
        kill(CompanionPid(), SIGKILL);
        sinceDeed.start();
        writing::RequestStop(burn.screen, burn.state);
    };
    burn.Burn();
    EXPECT_TRUE(burn.screen.log.contains(u"Interruption du processus de gravure..."_s));
    ExpectStopped(burn);
}

TEST_F(StopAWriteTest, WithoutItsCompanionNothingIsWritten)
{
    const TemporaryFolder empty;
    StoppableBurn burn(text::ToProgramPath(text::NativePath(empty.Path().native())));
    burn.Burn();
    ASSERT_GE(burn.screen.log.size(), 2);
    EXPECT_EQ(burn.screen.log.at(burn.screen.log.size() - 2), kFailed);
    EXPECT_EQ(burn.screen.log.last(), u"            Fichier introuvable (Erreur n° 53) "_s);
    EXPECT_FALSE(burn.screen.log.contains(kWriting));
    EXPECT_EQ(burn.WrittenSectors(), 0);
    EXPECT_TRUE(burn.recorders.Show(u"A"_s).disc->sessions.isEmpty());
}

} // namespace velmora::test
