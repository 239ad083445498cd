// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/Legibility.h"
#include "tests/wizard/SmallScreenFixture.h"

namespace velmora::test {

/// Every page in every state that a user meets.
class LegibilityTest : public SmallScreenFixture {
protected:
    void SetUp() override { OpenInRoom(u"cd-rw"); }

    void ExpectLegible(const char* where) const
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents(); // a layout within a layout takes its turns
        }
        EXPECT_EQ(window->size(), GetParam().size) << where;
        EXPECT_EQ(Legibility(*window).Faults().join(u'\n').toStdString(), "") << where;
    }
    void BurnWith(virtualdrive::FaultKind fault)
    {
        Insert(u"graveur"_s, u"cd-rw"_s);
        recorders.Plan(u"graveur"_s, {.kind = fault, .sector = 100, .lasting = true});
        Click("BurnButton_0");
        recorders.ClearFaults(u"graveur"_s);
    }
    void Erase()
    {
        boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
        Click("EraseDiscbutton");
    }
};

TEST_P(LegibilityTest, TheFormatsAndTheOptions)
{
    ExpectLegible("formats");
    for (const char* tile :
        {"CorvaneButton2_0", "CorvaneButton2_1", "CorvaneButton2_2", "CorvaneButton2_3"}) {
        Click(tile);
        ExpectLegible(tile);
        Click("CorvaneButton1");
    }
}

TEST_P(LegibilityTest, TheList)
{
    Click("CorvaneButton2_2");
    Click("CorvFichiers");
    ExpectLegible("list");
    folder.MakeFile("archives.zip", 900'000'000);
    chooser.files = {FolderPath("archives.zip")};
    Click("CorvaneButton4");
    ExpectLegible("too much");
}

TEST_P(LegibilityTest, TheBurnAndItsEnds)
{
    GoToBurn("CorvaneButton2_2");
    ExpectLegible("before");
    When(u"Progression"_s, [this] { ExpectLegible("during"); });
    Click("BurnButton_0");
    ExpectLegible("done");
    boxes.answers = {u"OK"_s, u"Non"_s}; // to the previous disc
    Click("BurnButton_0");
    ExpectLegible("refused");
    BurnWith(virtualdrive::FaultKind::MediumError);
    ExpectLegible("failed");
    BurnWith(virtualdrive::FaultKind::ReadError);
    ExpectLegible("hurt");
}

TEST_P(LegibilityTest, TheConfigurationAndTheErase)
{
    Find<QTabBar>("CorvaneTab1").setCurrentIndex(1);
    ExpectLegible("configuration");
    Erase();
    ExpectLegible("erased");
    recorders.Plan(u"graveur"_s, {.kind = virtualdrive::FaultKind::EraseFails});
    Erase();
    ExpectLegible("not erased");
}

INSTANTIATE_TEST_SUITE_P(Screens,
    LegibilityTest,
    testing::Values(Room {{900, 620}, 1},
        Room {{1024, 600}, 1},
        Room {{1024, 560}, 1.5},
        Room {{800, 600}, 1},
        Room {{800, 560}, 1.5},
        Room {{640, 360}, 1},
        Room {{533, 400}, 1}));

} // namespace velmora::test
