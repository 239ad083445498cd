// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/WizardFixture.h"

#include <QRegularExpression>

namespace velmora::test {

/// What the window shows of the comparison after a write, which happens without being requested.
class ComparisonWayTest : public WizardFixture {
protected:
    void Burn()
    {
        Click("CorvaneButton2_1");
        Click("CorvSuivant");
        Click("BurnButton_0");
    }
};

TEST_F(ComparisonWayTest, ADiscIsComparedBeforeItIsCalledGood)
{
    OpenWith(u"dvd+r"_s);
    Burn();
    EXPECT_TRUE(Log().endsWith(u"Gravure terminée.\nVérification des données.\n"
                               "         Veuillez patienter.......\n"
                               "Gravure effectuée avec succès."_s))
        << Log().toStdString();
}

TEST_F(ComparisonWayTest, AHurtDiscIsAFailureThatNamesItsFiles)
{
    OpenWith(u"dvd+r"_s);
    for (const qint64 sector : {100, 350}) {
        recorders.Plan(u"graveur"_s,
            {.kind = virtualdrive::FaultKind::ReadError, .sector = sector, .lasting = true});
    }
    Burn();
    EXPECT_TRUE(Log().contains(QRegularExpression(
        u"Fichiers abîmés :\n {12}\\S+\\.jpg \\(à partir de l'octet \\d+\\)\n"_s)))
        << Log().toStdString();
    EXPECT_TRUE(Log().contains(u"La vérification du disque a échoué."_s));
    EXPECT_FALSE(Log().contains(u"Gravure effectuée avec succès."_s));
    EXPECT_TRUE(IsOnScreen("BurnButton_0"));
}

TEST_F(ComparisonWayTest, ADiscThatWasTakenOutIsNotCalledHurt)
{
    OpenWith(u"dvd+r"_s);
    bool isOut = false;
    pump.onPump = [&] {
        if (!isOut && Log().contains(u"Vérification des données."_s)) {
            isOut = true;
            recorders.Eject(u"graveur"_s);
        }
    };
    Burn();
    EXPECT_TRUE(Log().contains(u"Attention : rien n'a été comparé. "_s)) << Log().toStdString();
    EXPECT_FALSE(Log().contains(u"Ne vous fiez pas"_s));
}

TEST_F(ComparisonWayTest, WhoWantsNoComparisonGetsNone)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_1");
    Click("CorvSuivant");
    EXPECT_TRUE(Find<QAbstractButton>("compareDisc").isChecked()) << "ticked at each start";
    Click("compareDisc");
    Click("BurnButton_0");
    EXPECT_FALSE(Log().contains(u"Vérification des données."_s)) << Log().toStdString();
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s);
}

TEST_F(ComparisonWayTest, TheBurnOfAnImageHasTheSameWish)
{
    OpenWith(u"dvd+r"_s);
    auto& tabs = Find<QTabBar>("CorvaneTab1");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    EXPECT_TRUE(Find<QAbstractButton>("compareImage").isChecked());
    Click("compareImage");
    EXPECT_FALSE(Find<QAbstractButton>("compareDisc").isChecked());
    folder.MakeFile("image.iso", 2048 * 300);
    chooser.files = {FolderPath("image.iso")};
    Click("BurnISO");
    EXPECT_FALSE(Log().contains(u"Vérification des données."_s)) << Log().toStdString();
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s);
}

} // namespace velmora::test
