// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/OptionsPage.h"

#include "tests/support/FindChild.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/WidgetApplication.h"

#include <QComboBox>
#include <QRadioButton>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using compilation::DiscSize;
using writing::DataMode;
using writing::FileSystemOption;
using writing::SessionOption;

class OptionsPageTest : public testing::Test {
protected:
    template <class Child> Child& Find(const char* name)
    {
        return test::FindChild<Child>(page, name);
    }
    void Pick(const char* box, const QString& caption)
    {
        Find<QComboBox>(box).setCurrentText(caption);
    }

    OptionsPage page {nullptr};
};

TEST_F(OptionsPageTest, ACaptionStandsForWhatItSays)
{
    for (const auto& [caption, mode] :
        {std::pair(u"Mode 2 / XA"_s, DataMode::Mode2Xa), std::pair(u"Mode 1"_s, DataMode::Mode1)}) {
        Pick("Combo2_0", caption);
        EXPECT_EQ(page.DataMode(), mode) << caption.toStdString();
    }
    for (const auto& [caption, fileSystem] : {std::pair(u"UDF"_s, FileSystemOption::Udf),
             std::pair(u"Joliet"_s, FileSystemOption::Joliet),
             std::pair(u"ISO 9660"_s, FileSystemOption::Iso9660)}) {
        Pick("Combo2_1", caption);
        EXPECT_EQ(page.FileSystem(), fileSystem) << caption.toStdString();
    }
}

TEST_F(OptionsPageTest, AChoiceIsShownByItsCaption)
{
    page.SelectDataMode(DataMode::Mode2Xa);
    EXPECT_EQ(Find<QComboBox>("Combo2_0").currentText(), u"Mode 2 / XA"_s);
    page.SelectFileSystem(FileSystemOption::Udf);
    EXPECT_EQ(Find<QComboBox>("Combo2_1").currentText(), u"UDF"_s);
    page.SelectFileSystem(FileSystemOption::Iso9660);
    EXPECT_EQ(Find<QComboBox>("Combo2_1").currentText(), u"ISO 9660"_s);
}

TEST_F(OptionsPageTest, WithoutAFileSystemItIsUdf)
{
    Find<QComboBox>("Combo2_1").setCurrentIndex(-1);
    EXPECT_EQ(page.FileSystem(), FileSystemOption::Udf);
}

TEST_F(OptionsPageTest, ASpeedIsKnownByItsTextAndItsPlace)
{
    EXPECT_EQ(page.Speed().listIndex, -1);
    page.OfferSpeed(u"16x"_s);
    page.OfferSpeed(u"8x"_s);
    page.SelectFirstSpeed();
    EXPECT_EQ(page.Speed().text, u"16x"_s);
    Pick("Combo2_2", u"8x"_s);
    EXPECT_EQ(page.Speed().listIndex, 1);
    EXPECT_EQ(page.Speed().listCount, 2);
    page.ClearSpeeds();
    EXPECT_EQ(page.Speed().listCount, 0);
}

TEST_F(OptionsPageTest, OneSessionIsSelectedAtATime)
{
    EXPECT_EQ(page.Session(), SessionOption::StartMultisession);
    Find<QRadioButton>("MultiSession_2").click();
    EXPECT_EQ(page.Session(), SessionOption::CloseDisc);
    page.SelectSession(SessionOption::ContinueMultisession);
    EXPECT_EQ(page.Session(), SessionOption::ContinueMultisession);
    EXPECT_FALSE(Find<QRadioButton>("MultiSession_2").isChecked());
}

TEST_F(OptionsPageTest, ASizeThatIsClickedIsTaken)
{
    std::vector<DiscSize> taken;
    page.Serve({.goToBurn = [] {},
        .showList = [] {},
        .takeSize = [&](DiscSize size) { taken.push_back(size); }});
    page.SelectSize(DiscSize::DvdOneLayer);
    EXPECT_TRUE(taken.empty()) << "nobody clicked";
    Find<QRadioButton>("DVDOptionButton1_1").click();
    Find<QRadioButton>("CDOptionButton1_2").click();
    Find<QRadioButton>("BDOptionButton1_0").click();
    EXPECT_EQ(
        taken, (std::vector {DiscSize::DvdTwoLayers, DiscSize::Cd90Minutes, DiscSize::BdOneLayer}));
}

} // namespace velmora::wizard
