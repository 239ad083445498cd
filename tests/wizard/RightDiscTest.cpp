// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/WizardFixture.h"
#include "virtual/FolderLock.h"

namespace velmora::test {

using virtualdrive::DiscPreset;

/// What is written, and where, when discs and drives come and go around the window.
class RightDiscTest : public WizardFixture {
protected:
    void MakeUsedRecorder(const QString& name, const QString& medium) const
    {
        recorders.Create(name);
        recorders.Insert(name,
            {.medium = virtualdrive::FindMedium(medium), .preset = DiscPreset::Closed},
            *clock);
    }
    void InsertNearlyFull(const QString& name, const std::filesystem::path& image) const
    {
        recorders.Insert(name,
            {.medium = virtualdrive::FindMedium(u"cd-r"_s),
                .image = image.string(),
                .preset = DiscPreset::Appendable},
            *clock);
        recorders.Folder(name).Change([](virtualdrive::Description& description) {
            description.disc->sessions.front().sectors = description.disc->capacity - 15'000;
        });
    }
    bool IsBlank(const QString& name) const
    {
        return recorders.Show(name).disc->sessions.isEmpty();
    }
    void ChooseRecorder(int index) const { Find<QComboBox>("Combo1").setCurrentIndex(index); }
};

TEST_F(RightDiscTest, AnEraseStaysWithTheChosenDriveWhenAnotherComes)
{
    MakeUsedRecorder(u"alpha"_s, u"cd-rw"_s);
    MakeUsedRecorder(u"zeta"_s, u"cd-rw"_s);
    Open();
    ChooseRecorder(1);
    MakeUsedRecorder(u"beta"_s, u"cd-rw"_s);
    auto& tabs = Find<QTabBar>("CorvaneTab1");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    Click("EraseDiscbutton");
    EXPECT_EQ(TextOf("lblErase"), u"Effacement réussi"_s);
    EXPECT_TRUE(IsBlank(u"zeta"_s));
    EXPECT_FALSE(IsBlank(u"beta"_s));
    EXPECT_FALSE(IsBlank(u"alpha"_s));
}

TEST_F(RightDiscTest, ABurnStaysWithTheChosenDriveWhenAnotherComes)
{
    MakeRecorder(u"alpha"_s, u"dvd+r"_s);
    MakeRecorder(u"zeta"_s, u"dvd+r"_s);
    Open();
    ChooseRecorder(1);
    MakeRecorder(u"beta"_s, u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    Click("BurnButton_0");
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s) << Log().toStdString();
    EXPECT_FALSE(IsBlank(u"zeta"_s));
    EXPECT_TRUE(IsBlank(u"beta"_s));
    EXPECT_TRUE(IsBlank(u"alpha"_s));
}

TEST_F(RightDiscTest, ADriveThatIsGoneIsNotReplacedByItsNeighbour)
{
    MakeRecorder(u"alpha"_s, u"dvd+r"_s);
    MakeRecorder(u"beta"_s, u"dvd+r"_s);
    Open();
    GoToBurn("CorvaneButton2_1");
    recorders.Delete(u"alpha"_s);
    Click("BurnButton_0");
    EXPECT_FALSE(Log().contains(u"Gravure effectuée avec succès."_s)) << Log().toStdString();
    EXPECT_TRUE(IsBlank(u"beta"_s));
}

TEST_F(RightDiscTest, TheRoomOfARefusedDiscDoesNotLimitTheNextOne)
{
    folder.MakeFile("Photos/film.avi", 60'000'000);
    OpenWith(u"cd-r"_s);
    GoToBurn("CorvaneButton2_2");
    chooser.files = {FolderPath("used.iso")};
    Click("BurnButton_1");
    InsertNearlyFull(u"graveur"_s, folder / "used.iso");
    Click("BurnButton_0");
    EXPECT_EQ(TextOf("Label14"),
        u"La place disponible sur le média n'est pas suffisante pour votre projet."_s)
        << Log().toStdString();

    Insert(u"graveur"_s, u"cd-r"_s);
    Click("BurnButton_0");
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s) << Log().toStdString();
    EXPECT_FALSE(Log().contains(u"La taille limite"_s)) << Log().toStdString();
    ASSERT_EQ(Recorder().disc->sessions.size(), 1);
    EXPECT_GT(Recorder().disc->sessions.front().sectors * 2048, 60'000'000);
}

TEST_F(RightDiscTest, AnImageLargerThanItsDiscFailsBeforeAnythingIsWritten)
{
    // 4.7 GB counted in the files' bytes, a little more counted in the sectors that they take.
    folder.MakeFile("Photos/film.avi", 4'699'400'000);
    for (int i = 0; i < 300; ++i) {
        folder.MakeFile("Photos/small/" + std::to_string(i), 1);
    }
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    Click("BurnButton_0");
    EXPECT_TRUE(Log().contains(u"Une erreur est survenue"_s)) << Log().toStdString();
    EXPECT_FALSE(Log().contains(u"Gravure effectuée avec succès."_s));
    EXPECT_TRUE(IsBlank(u"graveur"_s));
}

TEST_F(RightDiscTest, ADriveThatAnotherProgramWritesWithIsToldAtOnce)
{
    OpenWith(u"dvd+r"_s);
    virtualdrive::FolderLock other(recorders.Folder(u"graveur"_s).Path());
    ASSERT_TRUE(other.TryTake(virtualdrive::LockPart::Use));
    const double before = clock->Timer();
    ClickAtOnce("CorvaneButton2_3");
    EXPECT_LT(clock->Timer() - before, 1);
    ASSERT_EQ(boxes.shown.size(), 1);
    EXPECT_TRUE(boxes.shown.front().text.startsWith(u"Le graveur est "_s))
        << boxes.shown.front().text.toStdString();
    EXPECT_TRUE(boxes.shown.front().text.contains(u"puis recommencez"_s));
    EXPECT_TRUE(IsOnScreen("RootContainer1_0"));
}

} // namespace velmora::test
