// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Notice.h"

#include "tests/platform/session/ServiceBench.h"

namespace velmora::session {

namespace {

const QString kNotifications = u"org.freedesktop.Notifications"_s;
const QString kPath = u"/org/freedesktop/Notifications"_s;

class NoticeTest : public ServiceBench {
protected:
    void StartNotifications()
    {
        Start(kNotifications, {u"--template"_s, u"notification_daemon"_s});
    }
};

TEST_F(NoticeTest, TheDesktopShowsTheTitleAndTheText)
{
    StartNotifications();
    ShowNotice(Bus(), u"Gravure terminée"_s, u"Le disque « Été 2024 » est prêt."_s);
    ASSERT_TRUE(Until([&] { return !Calls(kNotifications, kPath, u"Notify"_s).empty(); }));
    const QVariantList asked = Calls(kNotifications, kPath, u"Notify"_s).front();
    EXPECT_EQ(asked[0].toString(), u"Velmora"_s);
    EXPECT_EQ(asked[2].toString(), u"org.velmora.Velmora"_s);
    EXPECT_EQ(asked[3].toString(), u"Gravure terminée"_s);
    EXPECT_EQ(asked[4].toString(), u"Le disque « Été 2024 » est prêt."_s);
}

TEST_F(NoticeTest, ANameWithMarkupIsShownAsItIs)
{
    StartNotifications();
    ShowNotice(Bus(), u"Fin"_s, u"Disque <b>&co</b>"_s);
    ASSERT_TRUE(Until([&] { return !Calls(kNotifications, kPath, u"Notify"_s).empty(); }));
    EXPECT_EQ(Calls(kNotifications, kPath, u"Notify"_s).front()[4].toString(),
        u"Disque &lt;b&gt;&amp;co&lt;/b&gt;"_s);
}

TEST_F(NoticeTest, ADesktopWithoutNoticesGoesWithoutAtOnce)
{
    QElapsedTimer timer;
    timer.start();
    ShowNotice(Bus(), u"Fin"_s, u"texte"_s);
    ShowNotice(QDBusConnection(QString()), u"Fin"_s, u"texte"_s);
    EXPECT_LT(timer.elapsed(), kFractionOfASecond);
}

} // namespace

} // namespace velmora::session
