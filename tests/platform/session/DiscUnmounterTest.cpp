// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/DiscUnmounter.h"

#include "tests/platform/session/ServiceBench.h"

namespace velmora::session {

namespace {

const QString kDisks = u"org.freedesktop.UDisks2"_s;
const QString kManager = u"/org/freedesktop/UDisks2/Manager"_s;
const QString kDrive = u"/org/freedesktop/UDisks2/block_devices/sr0"_s;

class DiscUnmounterTest : public ServiceBench {
protected:
    /// A service that only knows /dev/sr0.
    void StartDisks(const QString& unmount)
    {
        Start(kDisks, {kDisks, kManager, kDisks + u".Manager"_s});
        AddMethod(kDisks,
            kManager,
            {kDisks + u".Manager"_s,
                u"ResolveDevice"_s,
                u"a{sv}a{sv}"_s,
                u"ao"_s,
                u"ret = ['%1'] if args[0]['path'] == '/dev/sr0' else []"_s.arg(kDrive)});
        // The stand-in itself makes the object of the drive.
        AddMethod(kDisks,
            kManager,
            {kDisks,
                u"Plug"_s,
                u""_s,
                u""_s,
                u"self.AddObject('%1', '%2.Filesystem', {}, [('Unmount', 'a{sv}', '', \"%3\")])"_s
                    .arg(kDrive, kDisks, unmount)});
        Bus().call(QDBusMessage::createMethodCall(kDisks, kManager, kDisks, u"Plug"_s));
    }
};

TEST_F(DiscUnmounterTest, TheDriveAskedForIsUnmounted)
{
    StartDisks(u""_s);
    EXPECT_TRUE(DiscUnmounter(Bus()).Unmount(u"/dev/sr0"_s));
    EXPECT_EQ(Calls(kDisks, kDrive, u"Unmount"_s).size(), 1U);
}

TEST_F(DiscUnmounterTest, ADiscThatIsNotMountedAnyMoreIsFine)
{
    StartDisks(u"raise dbus.exceptions.DBusException('gone',"
               " name='org.freedesktop.UDisks2.Error.NotMounted')"_s);
    EXPECT_TRUE(DiscUnmounter(Bus()).Unmount(u"/dev/sr0"_s));
}

TEST_F(DiscUnmounterTest, ADiscInUseStaysMounted)
{
    StartDisks(u"raise dbus.exceptions.DBusException('busy',"
               " name='org.freedesktop.UDisks2.Error.DeviceBusy')"_s);
    EXPECT_FALSE(DiscUnmounter(Bus()).Unmount(u"/dev/sr0"_s));
}

TEST_F(DiscUnmounterTest, ADriveThatTheServiceDoesNotKnowFails)
{
    StartDisks(u""_s);
    EXPECT_FALSE(DiscUnmounter(Bus()).Unmount(u"/dev/sr7"_s));
    EXPECT_TRUE(Calls(kDisks, kDrive, u"Unmount"_s).empty());
}

TEST_F(DiscUnmounterTest, WithoutTheServiceItFailsAtOnce)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(DiscUnmounter(Bus()).Unmount(u"/dev/sr0"_s));
    EXPECT_FALSE(DiscUnmounter(QDBusConnection(QString())).Unmount(u"/dev/sr0"_s));
    EXPECT_LT(timer.elapsed(), kNoWait);
}

} // namespace

} // namespace velmora::session
