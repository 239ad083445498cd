// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/TextLink.h"
#include "link/LinkFolder.h"
#include "link/TextService.h"
#include "tests/support/CoreApplication.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"

#include <QElapsedTimer>
#include <QLocalServer>
#include <QThread>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <functional>
#include <optional>

namespace velmora::link {

using namespace Qt::StringLiterals;

namespace {

const QString kTopic = u"StopButton|Undo"_s;
const QString kItem = u"Commande"_s;

/// A service with its own event loop, as it has in its own process.
class RunningService {
public:
    explicit RunningService(const text::NativePath& folder)
    {
        thread_.start();
        worker_.moveToThread(&thread_);
        Do([&] {
            service_.emplace(kItem,
                TextService::Handlers {.onPoke = [this](const QString& text) { pokes += text; },
                    .onLeave = [this] { hasLeft = true; }});
            service_->Offer(folder, kTopic);
        });
    }
    RunningService(const RunningService&) = delete;
    RunningService& operator=(const RunningService&) = delete;
    ~RunningService()
    {
        Do([this] { service_.reset(); });
        thread_.quit();
        thread_.wait();
    }

    void SetText(const QString& text)
    {
        Do([&] { service_->SetText(text); });
    }
    bool IsJoined()
    {
        bool isJoined = false;
        Do([&] { isJoined = service_->IsJoined(); });
        return isJoined;
    }
    /// Polls until a condition holds, for ten seconds at most.
    bool Await(const std::function<bool()>& isSo)
    {
        QElapsedTimer waited;
        waited.start();
        bool found = false;
        while (!found && waited.elapsed() < 10'000) {
            Do([&] { found = isSo(); });
        }
        return found;
    }

    // Only read through Await.
    QStringList pokes;
    bool hasLeft = false;

private:
    void Do(const std::function<void()>& work)
    {
        QMetaObject::invokeMethod(&worker_, work, Qt::BlockingQueuedConnection);
    }

    QThread thread_;
    QObject worker_;
    std::optional<TextService> service_;
};

/// Asks for the item as the user nobody.
/// @return bytes of the answer, 0 when turned away; 100 and more when it couldn't be asked
int AnswerToNobody(const std::filesystem::path& path)
{
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    path.native().copy(address.sun_path, sizeof address.sun_path - 1);
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t kNobody = 65534;
        const int end = socket(AF_UNIX, SOCK_STREAM, 0);
        std::array<char, 16> answer {};
        std::signal(SIGPIPE, SIG_IGN);
        if (setuid(kNobody) != 0) _exit(100);
        if (connect(end, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) _exit(101);
        if (write(end, "Commande\n", 9) != 9) _exit(0); // turned away by now
        const ssize_t size = read(end, answer.data(), answer.size());
        _exit(size < 0 ? 0 : static_cast<int>(size));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 102;
}

} // namespace

class TextLinkTest : public testing::Test {
protected:
    TextLinkTest()
    {
        link.SetLinkFolder(folder.Path());
        link.SetLinkTopic(kTopic);
        link.SetLinkItem(kItem);
    }

    qint32 ErrorOfOpening()
    {
        return test::ErrorNumberOf([this] { link.SetLinkMode(LinkMode::Automatic); });
    }
    qint32 ErrorOfPoke()
    {
        return test::ErrorNumberOf([this] { link.LinkPoke(); });
    }
    bool AwaitText(const QString& text)
    {
        QElapsedTimer waited;
        waited.start();
        while (link.Text() != text && waited.elapsed() < 10'000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        }
        return link.Text() == text;
    }

    LinkFolder folder;
    TextLink link;
};

TEST_F(TextLinkTest, TakesTheItemsTextWhenItOpens)
{
    RunningService service(folder.Path());
    service.SetText(u"Undo"_s);
    link.SetLinkMode(LinkMode::Automatic);
    EXPECT_EQ(link.Text(), u"Undo"_s);
    EXPECT_TRUE(service.IsJoined());
}

TEST_F(TextLinkTest, FollowsTheItemWhenEventsAreHandled)
{
    RunningService service(folder.Path());
    link.SetLinkMode(LinkMode::Automatic);
    service.SetText(u"Undo"_s);
    EXPECT_EQ(link.Text(), u""_s);
    EXPECT_TRUE(AwaitText(u"Undo"_s));
    service.SetText(u""_s);
    EXPECT_TRUE(AwaitText(u""_s));
}

TEST_F(TextLinkTest, PokesItsTextWithoutHandlingEvents)
{
    RunningService service(folder.Path());
    link.SetLinkMode(LinkMode::Automatic);
    link.LinkPoke();
    link.SetText(u"Quit"_s);
    link.LinkPoke();
    EXPECT_TRUE(service.Await([&] { return service.pokes == QStringList {u""_s, u"Quit"_s}; }));
}

TEST_F(TextLinkTest, NobodyIsThereToAnswer)
{
    EXPECT_EQ(ErrorOfOpening(), 282);
    EXPECT_EQ(ErrorOfPoke(), 293);
}

TEST_F(TextLinkTest, AnUnknownItemIsRefused)
{
    RunningService service(folder.Path());
    link.SetLinkItem(u"Autre"_s);
    EXPECT_EQ(ErrorOfOpening(), 285);
    EXPECT_EQ(ErrorOfPoke(), 293);
    EXPECT_TRUE(service.Await([&] { return service.hasLeft; }));
}

TEST_F(TextLinkTest, AHangingServiceIsGivenUp)
{
    QLocalServer hanging; // the kernel takes the connection, but nobody answers
    ASSERT_TRUE(hanging.listen(SocketName(folder.Path(), kTopic)));
    TextLink impatient(std::chrono::milliseconds(20));
    impatient.SetLinkFolder(folder.Path());
    impatient.SetLinkTopic(kTopic);
    impatient.SetLinkItem(kItem);
    EXPECT_EQ(test::ErrorNumberOf([&] { impatient.SetLinkMode(LinkMode::Automatic); }), 286);
    EXPECT_EQ(test::ErrorNumberOf([&] { impatient.LinkPoke(); }), 293);
}

TEST_F(TextLinkTest, TheFirstThatJoinsIsTheOnlyOne)
{
    RunningService service(folder.Path());
    link.SetLinkMode(LinkMode::Automatic);
    EXPECT_FALSE(folder.HasService(kTopic));
    TextLink other;
    other.SetLinkFolder(folder.Path());
    other.SetLinkTopic(kTopic);
    other.SetLinkItem(kItem);
    EXPECT_EQ(test::ErrorNumberOf([&] { other.SetLinkMode(LinkMode::Automatic); }), 282);
}

TEST_F(TextLinkTest, ModeNoneClosesTheLinkAndKeepsTheText)
{
    RunningService service(folder.Path());
    link.SetLinkMode(LinkMode::Automatic);
    service.SetText(u"Undo"_s);
    ASSERT_TRUE(AwaitText(u"Undo"_s));
    link.SetLinkMode(LinkMode::None);
    EXPECT_TRUE(service.Await([&] { return service.hasLeft; }));
    EXPECT_EQ(link.Text(), u"Undo"_s);
    EXPECT_EQ(ErrorOfPoke(), 293);
}

TEST_F(TextLinkTest, AServiceThatEndsLeavesTheText)
{
    std::optional<RunningService> service(folder.Path());
    link.SetLinkMode(LinkMode::Automatic);
    link.SetText(u"kept"_s);
    service.reset();
    QElapsedTimer waited;
    waited.start();
    while (ErrorOfPoke() != 293 && waited.elapsed() < 10'000) {
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(ErrorOfPoke(), 293);
    EXPECT_EQ(link.Text(), u"kept"_s);
}

TEST_F(TextLinkTest, OpensAgainToAnotherService)
{
    const LinkFolder second;
    RunningService one(folder.Path());
    RunningService other(second.Path());
    link.SetLinkMode(LinkMode::Automatic);
    link.SetLinkFolder(second.Path());
    link.SetLinkMode(LinkMode::Automatic);
    EXPECT_TRUE(one.Await([&] { return one.hasLeft; }));
    one.SetText(u"Undo"_s);
    other.SetText(u"Quit"_s);
    EXPECT_TRUE(AwaitText(u"Quit"_s));
}

TEST_F(TextLinkTest, AClientThatKeepsNoRulesIsThrownOut)
{
    RunningService service(folder.Path());
    QLocalSocket client;
    client.connectToServer(SocketName(folder.Path(), kTopic));
    client.write("Commande\n");
    client.write(QByteArray(kLongestLine + 1, 'a'));
    client.flush();
    EXPECT_TRUE(
        client.waitForDisconnected(10'000) || client.state() == QLocalSocket::UnconnectedState);
    EXPECT_TRUE(service.Await([&] { return service.hasLeft; }));
    EXPECT_TRUE(service.pokes.isEmpty());
}

TEST_F(TextLinkTest, AnotherUserIsTurnedAwayAndTheOwnIsStillWaitedFor)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can come as another user";
    }
    RunningService service(folder.Path());
    const std::filesystem::path socket = SocketName(folder.Path(), kTopic).toStdString();
    std::filesystem::permissions(socket.parent_path(), std::filesystem::perms::all);
    std::filesystem::permissions(socket, std::filesystem::perms::all);
    EXPECT_EQ(AnswerToNobody(socket), 0);
    link.SetLinkMode(LinkMode::Automatic);
    EXPECT_TRUE(service.IsJoined());
}

TEST_F(TextLinkTest, AServiceNeedsAFolder)
{
    TextService service(kItem, {});
    EXPECT_EQ(
        test::ErrorNumberOf([&] { service.Offer(text::NativePath("/nowhere/at/all"), kTopic); }),
        75);
}

} // namespace velmora::link
