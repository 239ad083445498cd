// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Letters.h"
#include "tests/support/ModalWindow.h"
#include "tests/wizard/WizardFixture.h"

namespace velmora::test {

/// The boxes and the small windows of the program, by the keyboard.
class DialogLettersTest : public WizardFixture {
protected:
    DialogLettersTest()
    {
        boxes.onBox = [](QMessageBox& box) { ExpectLettersOfTheirOwn(box); };
    }

    /// Clicks what shows a small window, and looks at its letters.
    void ExpectLettersBehind(const char* button) const
    {
        const ModalWindow person([](QWidget& form) {
            ExpectLettersOfTheirOwn(form);
            form.close();
        });
        Click(button);
        EXPECT_TRUE(person.WasThere()) << button;
    }
    void OpenConfiguration() const { Find<QTabBar>("CorvaneTab1").setCurrentIndex(1); }
};

TEST_F(DialogLettersTest, OfTheSmallWindowsOfTheConfiguration)
{
    OpenWith(u"dvd+r"_s);
    ExpectLettersBehind("Image1");
    OpenConfiguration();
    ExpectLettersBehind("GraveurPossibilities");
    ExpectLettersBehind("TempSearch");
}

TEST_F(DialogLettersTest, OfTheNewDirectory)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_1");
    Click("CorvFichiers");
    ExpectLettersBehind("CorvaneButton7");
}

TEST_F(DialogLettersTest, OfTheRemarks)
{
    folder.MakeFile("Photos/.brouillon", 10);
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    Click("BurnButton_0");
    ExpectLettersBehind("remarksButton");
}

TEST_F(DialogLettersTest, OfTheBoxesOfABurn)
{
    OpenWith({});
    GoToBurn("CorvaneButton2_1");
    boxes.answers = {u"OK"_s, u"Oui"_s, u"Non"_s};
    Click("BurnButton_0");
    EXPECT_EQ(boxes.shown.size(), 3U);
    QApplication::restoreOverrideCursor();
}

TEST_F(DialogLettersTest, OfTheBoxesOfAnErase)
{
    OpenWith(u"cd-rw"_s);
    OpenConfiguration();
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    Click("EraseDiscbutton");
    EXPECT_EQ(boxes.shown.size(), 3U);
}

} // namespace velmora::test
