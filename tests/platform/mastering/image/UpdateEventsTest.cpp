// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/UpdateEvents.h"

#include "tests/platform/mastering/ImageBench.h"

#include <algorithm>
#include <string>

#include <QTimeZone>

namespace velmora::test {

namespace {

/// A clock that advances each time it is read, so that an event is always due.
class HastyClock final : public runtime::Clock {
public:
    double Timer() const override { return seconds_ += 1; }
    QDateTime Now() const override { return {{2026, 3, 9}, {7, 5, 4}, QTimeZone::utc()}; }
    void Pause(double) override { }

private:
    mutable double seconds_ = 0;
};

} // namespace

class ImageEventsTest : public ImageBench {
protected:
    /// Records each event, its path without the temporary folder's.
    void Listen()
    {
        image->OnUpdate([this](const QString& currentFile, qint32 copied, qint32 total) {
            QString path = currentFile;
            path.remove(ProgramPath(folder.Path()).Text() + u'\\');
            events += u"%1 %2/%3\n"_s.arg(path).arg(copied).arg(total).toStdString();
        });
    }

    std::string events;
};

TEST_F(ImageEventsTest, AFileIsToldByItsPathInTheImageFromItsFirstSectorToItsLast)
{
    Listen();
    const auto file = folder.MakeFile("source", 5000);
    image->Root()->AddDirectory(u"A"_disc);

    image->Root()->AddFile(u"A\\b.txt"_disc, Open(file));

    EXPECT_EQ(events, "A\\b.txt 0/3\nA\\b.txt 3/3\n");
}

TEST_F(ImageEventsTest, AnEmptyFileIsToldOnce)
{
    Listen();

    image->Root()->AddFile(u"empty"_disc, Open(folder.MakeFile("empty", 0)));

    EXPECT_EQ(events, "empty 0/0\n");
}

TEST_F(ImageEventsTest, DirectoriesGiveNoEvent)
{
    Listen();
    folder.MakeFolder("tree/sub");

    image->Root()->AddDirectory(u"A"_disc);
    AddTree("tree");

    EXPECT_EQ(events, "");
}

TEST_F(ImageEventsTest, AFileThatIsRefusedGivesNoEvent)
{
    Listen();
    const auto file = folder.MakeFile("a", 1);
    image->Root()->AddDirectory(u"a"_disc);

    EXPECT_NE(ErrorNumberOf([&] { image->Root()->AddFile(u"a"_disc, Open(file)); }), 0);

    EXPECT_EQ(events, "");
}

TEST_F(ImageEventsTest, OfATreeReadAtOnceTheFirstAndTheLastFileAreTold)
{
    Listen();
    for (const char* name : {"tree/a", "tree/b", "tree/sub/c", "tree/z"}) {
        folder.MakeFile(name, 2048);
    }

    AddTree("tree"); // the clock stands still

    EXPECT_EQ(events, "tree\\a 0/1\ntree\\z 0/1\ntree\\z 1/1\n");
}

TEST_F(ImageEventsTest, OfATreeOfOneFileItsBothEndsAreTold)
{
    Listen();
    folder.MakeFile("tree/a", 2049);

    AddTree("tree");

    EXPECT_EQ(events, "tree\\a 0/2\ntree\\a 2/2\n");
}

TEST_F(ImageEventsTest, WithTimeForItEveryFileIsToldByItsSourceAndBothItsEnds)
{
    const HastyClock hasty;
    image = std::make_shared<mastering::FileSystemImage>(hasty);
    for (const char* name : {"tree/a", "tree/b", "tree/sub/c"}) {
        folder.MakeFile(name, 2048);
    }
    folder.MakeFile("tree/empty", 0);
    Listen();

    AddTree("tree");

    const std::string files = events.substr(events.find("tree\\a "));
    EXPECT_EQ(files,
        "tree\\a 0/1\ntree\\a 1/1\ntree\\b 0/1\ntree\\b 1/1\ntree\\empty 0/0\n"
        "tree\\sub\\c 0/1\ntree\\sub\\c 1/1\n");
}

TEST_F(ImageEventsTest, AnErrorThatLeavesTheHandlerIsDropped)
{
    int calls = 0;
    image->OnUpdate([&](const QString&, qint32, qint32) {
        ++calls;
        throw runtime::RuntimeError(6);
    });

    image->Root()->AddFile(u"a"_disc, Open(folder.MakeFile("a", 1)));

    EXPECT_EQ(calls, 2);
}

class UpdateEventsTest : public testing::Test {
protected:
    UpdateEventsTest()
    {
        events.SetHandler([this](const QString& path, qint32 copied, qint32 total) {
            told += u"%1 %2/%3\n"_s.arg(path).arg(copied).arg(total).toStdString();
        });
    }

    void File(const QString& path, quint64 bytes)
    {
        events.TellFile([&] { return path; }, bytes, false, false);
    }

    FakePump pump;
    FakeClock clock {pump};
    mastering::UpdateEvents events {clock};
    std::string told;
};

TEST_F(UpdateEventsTest, TwentyFiveEventsASecondAreTheMost)
{
    for (int i = 0; i < 1000; ++i) {
        clock.Pause(0.001);
        File(u"f"_s, 1);
    }

    const auto count = std::count(told.begin(), told.end(), '\n');
    EXPECT_GE(count, 24);
    EXPECT_LE(count, 25);
}

TEST_F(UpdateEventsTest, AListingIsToldWhenItLasts)
{
    events.TellListing([] { return u"\\big"_s; });
    EXPECT_EQ(told, "");

    clock.Pause(0.05);
    events.TellListing([] { return u"\\big"_s; });
    EXPECT_EQ(told, "\\big 0/0\n");
}

TEST_F(UpdateEventsTest, MoreSectorsThanANumberHoldsAreToldAsTheMost)
{
    clock.Pause(1);

    File(u"f"_s, quint64 {1} << 50U);

    EXPECT_EQ(told, "f 0/2147483647\n");
}

TEST_F(UpdateEventsTest, WithoutAHandlerNothingIsAskedFor)
{
    mastering::UpdateEvents unheard(clock);

    unheard.TellFile(
        []() -> QString {
            ADD_FAILURE() << "the path was asked for";
            return {};
        },
        1,
        true,
        true);
}

} // namespace velmora::test
