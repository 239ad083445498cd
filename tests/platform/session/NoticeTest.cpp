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
    ShowNotice(
        Bus(), {.title = u"Gravure terminée"_s, .text = u"Le disque « Été 2024 » est prêt."_s});
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
    ShowNotice(Bus(), {.title = u"Fin"_s, .text = u"Disque <b>&co</b>"_s});
    ASSERT_TRUE(Until([&] { return !Calls(kNotifications, kPath, u"Notify"_s).empty(); }));
    EXPECT_EQ(Calls(kNotifications, kPath, u"Notify"_s).front()[4].toString(),
        u"Disque &lt;b&gt;&amp;co&lt;/b&gt;"_s);
}

TEST_F(NoticeTest, AFailureIsUrgentAndNoCompleteTransfer)
{
    StartNotifications();
    const std::array<std::pair<NoticeKind, std::pair<QString, int>>, 4> kinds {
        {{NoticeKind::Done, {u"transfer.complete"_s, 1}},
            {NoticeKind::Stopped, {u"transfer"_s, 1}},
            {NoticeKind::Failed, {u"transfer.error"_s, 2}},
            {NoticeKind::Waiting, {u"transfer"_s, 1}}}};
    for (const auto& kind : kinds) {
        ShowNotice(Bus(), {.kind = kind.first, .title = u"Fin"_s});
    }
    ASSERT_TRUE(
        Until([&] { return Calls(kNotifications, kPath, u"Notify"_s).size() == kinds.size(); }));
    const auto calls = Calls(kNotifications, kPath, u"Notify"_s);
    for (std::size_t index = 0; index < kinds.size(); ++index) {
        const auto hints = qdbus_cast<QVariantMap>(calls[index][6]);
        EXPECT_EQ(hints[u"category"_s].toString(), kinds[index].second.first);
        EXPECT_EQ(hints[u"urgency"_s].toInt(), kinds[index].second.second);
    }
}

TEST_F(NoticeTest, ADesktopWithoutNoticesGoesWithoutAtOnce)
{
    QElapsedTimer timer;
    timer.start();
    ShowNotice(Bus(), {.title = u"Fin"_s, .text = u"texte"_s});
    ShowNotice(QDBusConnection(QString()), {.title = u"Fin"_s, .text = u"texte"_s});
    EXPECT_LT(timer.elapsed(), kNoWait);
}

} // namespace

} // namespace velmora::session
