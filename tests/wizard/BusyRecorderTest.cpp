// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/QtPrinters.h"
#include "tests/wizard/WizardFixture.h"

namespace velmora::test {

/// The window while another program has the recorder.
class BusyRecorderTest : public WizardFixture {
protected:
    void SetUp() override
    {
        OpenWith(u"cd-rw"_s);
        boxes.onBox = [this](QMessageBox& box) { advice += box.informativeText(); };
        held_ = other_.Open(u"virtual:graveur"_s);
        held_->Lock(false);
    }
    ~BusyRecorderTest() override { held_->Unlock(); }

    const QString busy
        = u"Le graveur est verrouillé par une autre application : fermez-la, puis recommencez."_s;
    QStringList advice; ///< of every box

private:
    virtualdrive::VirtualDriveSource other_ {recorders, *clock, pump};
    drive::DriveRef held_;
};

TEST_F(BusyRecorderTest, ABurnSaysSoInItsBoxAndAtItsEnd)
{
    GoToBurn("CorvaneButton2_2");
    Click("BurnButton_0");
    EXPECT_EQ(advice, QStringList {busy});
    EXPECT_EQ(TextOf("outcomeTitle"), u"Rien n'a été gravé"_s);
    EXPECT_EQ(TextOf("outcomeAdvice"), busy) << "no other disc is asked for";
}

TEST_F(BusyRecorderTest, ABurnOfAnImageSaysTheSame)
{
    folder.MakeFile("image.iso", 2048 * 300);
    chooser.files = {FolderPath("image.iso")};
    Find<QTabBar>("CorvaneTab1").setCurrentIndex(1);
    Click("BurnISO");
    EXPECT_EQ(advice, QStringList {busy});
    EXPECT_EQ(TextOf("outcomeAdvice"), busy);
}

TEST_F(BusyRecorderTest, AnEraseSaysItWhereItAsksForTheDisc)
{
    Find<QTabBar>("CorvaneTab1").setCurrentIndex(1);
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    Click("EraseDiscbutton");
    EXPECT_EQ(advice, (QStringList {QString(), busy, QString()}));
    EXPECT_EQ(TextOf("eraseTitle"), u"L'effacement a échoué"_s);
    EXPECT_EQ(TextOf("eraseCause"), u"Rien n'a été effacé. "_s + busy);
}

TEST_F(BusyRecorderTest, TheDetectedDiscIsRefusedInTheSameWords)
{
    Click("CorvaneButton2_3");
    ASSERT_FALSE(boxes.shown.empty());
    EXPECT_EQ(boxes.shown.back().text, busy);
}

} // namespace velmora::test
