// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/RunGuard.h"

#include "tests/platform/session/ServiceBench.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <optional>

namespace velmora::session {

namespace {

const QString kLogin = u"org.freedesktop.login1"_s;
const QString kSessionManager = u"org.gnome.SessionManager"_s;
const QString kPower = u"org.freedesktop.PowerManagement"_s;
const QString kPowerPath = u"/org/freedesktop/PowerManagement/Inhibit"_s;
const QString kScreenSaver = u"org.freedesktop.ScreenSaver"_s;
const QString kScreenSaverPath = u"/org/freedesktop/ScreenSaver"_s;
const QString kReason = u"Gravure d'un disque en cours"_s;

class RunGuardTest : public ServiceBench {
protected:
    void StartLogin() { Start(kLogin, {u"--template"_s, u"logind"_s}); }

    void StartSessionManager(const QString& inhibit = u"ret = 42"_s)
    {
        Start(kSessionManager, {kSessionManager, u"/org/gnome/SessionManager"_s, kSessionManager});
        AddMethod(kSessionManager,
            u"/org/gnome/SessionManager"_s,
            {kSessionManager, u"Inhibit"_s, u"susu"_s, u"u"_s, inhibit});
        AddMethod(kSessionManager,
            u"/org/gnome/SessionManager"_s,
            {kSessionManager, u"Uninhibit"_s, u"u"_s, u""_s, u""_s});
    }

    void StartPowerManagement()
    {
        const QString interface = kPower + u".Inhibit"_s;
        Start(kPower, {kPower, kPowerPath, interface});
        AddMethod(kPower, kPowerPath, {interface, u"Inhibit"_s, u"ss"_s, u"u"_s, u"ret = 7"_s});
        AddMethod(kPower, kPowerPath, {interface, u"UnInhibit"_s, u"u"_s, u""_s, u""_s});
    }

    void StartScreenSaver()
    {
        Start(kScreenSaver, {kScreenSaver, kScreenSaverPath, kScreenSaver});
        AddMethod(kScreenSaver,
            kScreenSaverPath,
            {kScreenSaver, u"Inhibit"_s, u"ss"_s, u"u"_s, u"ret = 9"_s});
        AddMethod(
            kScreenSaver, kScreenSaverPath, {kScreenSaver, u"UnInhibit"_s, u"u"_s, u""_s, u""_s});
    }
    std::vector<QVariantList> AskedOfScreenSaver(const QString& method) const
    {
        return Calls(kScreenSaver, kScreenSaverPath, method);
    }

    std::vector<QVariantList> AskedOfSessionManager(const QString& method) const
    {
        return Calls(kSessionManager, u"/org/gnome/SessionManager"_s, method);
    }

    /// What is currently inhibited: the texts of each request.
    QList<QStringList> HeldBack() const
    {
        const QDBusMessage reply = Bus().call(QDBusMessage::createMethodCall(kLogin,
            u"/org/freedesktop/login1"_s,
            u"org.freedesktop.login1.Manager"_s,
            u"ListInhibitors"_s));
        QList<QStringList> held;
        const auto array = reply.arguments().value(0).value<QDBusArgument>();
        array.beginArray();
        while (!array.atEnd()) {
            QString what;
            QString who;
            QString why;
            QString mode;
            quint32 user = 0;
            quint32 process = 0;
            array.beginStructure();
            array >> what >> who >> why >> mode >> user >> process;
            array.endStructure();
            held.append({what, who, why, mode});
        }
        array.endArray();
        return held;
    }
};

TEST_F(RunGuardTest, TheMachineNeitherSleepsNorEndsDuringARun)
{
    StartLogin();
    std::optional<RunGuard> guard;
    guard.emplace(BothBuses(), kReason);
    ASSERT_TRUE(Until([&] { return !HeldBack().isEmpty(); }));
    const QStringList expected {
        u"sleep:shutdown:idle:handle-lid-switch"_s, u"Velmora"_s, kReason, u"block"_s};
    EXPECT_EQ(HeldBack(), QList<QStringList>({expected}));

    guard.reset();
    EXPECT_TRUE(Until([&] { return HeldBack().isEmpty(); }));
}

TEST_F(RunGuardTest, ARunThatEndsBeforeTheAnswerHoldsNothingBack)
{
    StartLogin();
    {
        const RunGuard guard(BothBuses(), kReason);
    }
    const RunGuard later(BothBuses(), u"later"_s);
    ASSERT_TRUE(Until([&] { return !HeldBack().isEmpty() && HeldBack().first()[2] == u"later"; }));
    EXPECT_EQ(HeldBack().size(), 1);
}

TEST_F(RunGuardTest, TheUserIsNotLoggedOutDuringARun)
{
    StartSessionManager();
    std::optional<RunGuard> guard;
    guard.emplace(BothBuses(), kReason);
    ASSERT_TRUE(Until([&] { return !AskedOfSessionManager(u"Inhibit"_s).empty(); }));
    constexpr quint32 kLogoutAndStandby = 5;
    EXPECT_EQ(AskedOfSessionManager(u"Inhibit"_s).front(),
        (QVariantList {u"Velmora"_s, 0U, kReason, kLogoutAndStandby}));
    EXPECT_TRUE(AskedOfSessionManager(u"Uninhibit"_s).empty());

    guard.reset();
    ASSERT_TRUE(Until([&] { return !AskedOfSessionManager(u"Uninhibit"_s).empty(); }));
    EXPECT_EQ(AskedOfSessionManager(u"Uninhibit"_s).front(), QVariantList {42U});
}

TEST_F(RunGuardTest, APowerManagerIsAskedAndReleasedLikewise)
{
    StartPowerManagement();
    std::optional<RunGuard> guard;
    guard.emplace(BothBuses(), kReason);
    ASSERT_TRUE(Until([&] { return !Calls(kPower, kPowerPath, u"Inhibit"_s).empty(); }));
    EXPECT_EQ(
        Calls(kPower, kPowerPath, u"Inhibit"_s).front(), (QVariantList {u"Velmora"_s, kReason}));

    guard.reset();
    ASSERT_TRUE(Until([&] { return !Calls(kPower, kPowerPath, u"UnInhibit"_s).empty(); }));
    EXPECT_EQ(Calls(kPower, kPowerPath, u"UnInhibit"_s).front(), QVariantList {7U});
}

TEST_F(RunGuardTest, ASlowServiceIsNotWaitedForAndItsNumberReleased)
{
    const test::TemporaryFolder folder;
    const std::filesystem::path gate = folder.Path() / "gate";
    StartSessionManager(u"import os, time\n"
                        "while not os.path.exists('%1'): time.sleep(0.01)\n"
                        "ret = 42"_s.arg(QString::fromStdString(gate.string())));
    {
        const RunGuard guard(BothBuses(), kReason);
    }
    std::ofstream(gate).close(); // the run is over, and only now the service answers
    EXPECT_TRUE(Until([&] { return !AskedOfSessionManager(u"Uninhibit"_s).empty(); }));
}

TEST_F(RunGuardTest, WithoutAMachineThatCanBeHeldTheDesktopStaysAwake)
{
    StartScreenSaver();
    std::optional<RunGuard> guard;
    guard.emplace(BothBuses(), kReason);
    ASSERT_TRUE(Until([&] { return !AskedOfScreenSaver(u"Inhibit"_s).empty(); }));
    EXPECT_EQ(AskedOfScreenSaver(u"Inhibit"_s).front(), (QVariantList {u"Velmora"_s, kReason}));
    guard.reset();
    EXPECT_TRUE(Until([&] { return !AskedOfScreenSaver(u"UnInhibit"_s).empty(); }));
}

TEST_F(RunGuardTest, TheScreenMayGoDarkWhereTheMachineStaysAwake)
{
    StartLogin();
    StartScreenSaver();
    const RunGuard guard(BothBuses(), kReason);
    ASSERT_TRUE(Until([&] { return !HeldBack().isEmpty(); }));
    QCoreApplication::processEvents();
    EXPECT_TRUE(AskedOfScreenSaver(u"Inhibit"_s).empty());
}

TEST_F(RunGuardTest, AServiceThatRefusesIsDoneWithout)
{
    StartSessionManager(u"raise dbus.exceptions.DBusException('no', name='test.Refused')"_s);
    {
        const RunGuard guard(BothBuses(), kReason);
        ASSERT_TRUE(Until([&] { return !AskedOfSessionManager(u"Inhibit"_s).empty(); }));
        QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(AskedOfSessionManager(u"Uninhibit"_s).empty());
}

TEST_F(RunGuardTest, WithoutServicesNothingHappensAtOnce)
{
    QElapsedTimer timer;
    timer.start();
    {
        const RunGuard guard(BothBuses(), kReason);
    }
    EXPECT_LT(timer.elapsed(), kNoWait);
}

TEST(RunGuardWithoutBusesTest, NothingHappensAtOnce)
{
    QElapsedTimer timer;
    timer.start();
    {
        const RunGuard guard(Buses {}, kReason);
    }
    EXPECT_LT(timer.elapsed(), kNoWait);
}

} // namespace

} // namespace velmora::session
