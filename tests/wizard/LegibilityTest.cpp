// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/Legibility.h"
#include "tests/wizard/WizardFixture.h"

#include <ostream>

namespace velmora::test {

namespace {

/// What a screen leaves for the window, in the window's own pixels, and how large its letters are.
struct Sight {
    QSize size;
    qreal letters;

    friend void PrintTo(const Sight& sight, std::ostream* out)
    {
        *out << sight.size.width() << 'x' << sight.size.height() << ", letters x" << sight.letters;
    }
};

} // namespace

/// Every page in every state that a person comes by.
class LegibilityTest : public WizardFixture, public testing::WithParamInterface<Sight> {
protected:
    void SetUp() override
    {
        QFont letters = usual_;
        letters.setPointSizeF(usual_.pointSizeF() * GetParam().letters);
        QApplication::setFont(letters);
        OpenWith(u"cd-rw"_s);
        window->setMinimumSize(GetParam().size); // as on a screen of that size
        window->resize(GetParam().size);
    }
    void TearDown() override { QApplication::setFont(usual_); }

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

private:
    QFont usual_ = QApplication::font();
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
    boxes.answers = {u"OK"_s, u"Non"_s}; // to the disc of before
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
    testing::Values(Sight {{900, 620}, 1},
        Sight {{1024, 600}, 1},
        Sight {{1024, 560}, 1.5},
        Sight {{800, 600}, 1},
        Sight {{800, 560}, 1.5},
        Sight {{640, 360}, 1},
        Sight {{533, 400}, 1}));

} // namespace velmora::test
