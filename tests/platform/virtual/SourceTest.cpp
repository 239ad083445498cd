// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

#include "virtual/VirtualDriveSource.h"

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;

class SourceTest : public VirtualBench {
protected:
    VirtualDriveSource source {recorders, clock, pump};
};

TEST_F(SourceTest, ListsRecordersByNameInALastingOrder)
{
    recorders.Create(u"Zoo"_s);
    recorders.Create(u"B 2"_s);
    const QStringList expected {u"virtual:A"_s, u"virtual:B 2"_s, u"virtual:Zoo"_s};
    EXPECT_EQ(source.Ids(), expected);
    EXPECT_EQ(source.Ids(), expected);
}

TEST_F(SourceTest, AFolderIsARecorder)
{
    folder.MakeFolder("recorders/Salon");
    EXPECT_TRUE(source.Ids().contains(u"virtual:Salon"_s));
    const drive::DriveRef salon = source.Open(u"virtual:Salon"_s);
    ASSERT_TRUE(salon);
    EXPECT_EQ(salon->Identify().vendor, u"VELMORA"_s);
    EXPECT_EQ(salon->Examine().state, drive::DiscState::None);
}

TEST_F(SourceTest, OpensOnlyWhatIsThere)
{
    EXPECT_TRUE(source.Open(u"virtual:A"_s));
    EXPECT_FALSE(source.Open(u"virtual:B"_s));
    EXPECT_FALSE(source.Open(u"A"_s));
    EXPECT_FALSE(source.Open(u"/dev/sr0"_s));
    EXPECT_FALSE(source.Open(u"virtual:"_s));
    EXPECT_FALSE(source.Open(u"virtual:../recorders/A"_s));
    EXPECT_FALSE(source.Open(u"virtual:.."_s));
}

TEST_F(SourceTest, TellsWhatTheDriveIs)
{
    const drive::DriveFacts facts = source.Open(u"virtual:A"_s)->Identify();
    EXPECT_EQ(facts.id, u"virtual:A"_s);
    EXPECT_EQ(facts.product, u"VIRTUAL BD-RE"_s);
    EXPECT_EQ(facts.revision, u"1.00"_s);
    EXPECT_TRUE(facts.canLoadMedia);
    EXPECT_EQ(facts.paths,
        QStringList {QString::fromStdString(folder.Path().string()) + u"/recorders/A"_s});
    for (const qint32 profile : {0x08,
             0x09,
             0x0A,
             0x10,
             0x11,
             0x12,
             0x13,
             0x14,
             0x15,
             0x1A,
             0x1B,
             0x2A,
             0x2B,
             0x40,
             0x41,
             0x43}) {
        EXPECT_TRUE(facts.profiles.contains(profile)) << profile;
    }
}

TEST_F(SourceTest, RecordersHaveNumbersOfTheirOwn)
{
    recorders.Create(u"B"_s);
    recorders.Create(u"C"_s);
    EXPECT_EQ(source.Open(u"virtual:A"_s)->Identify().legacyNumber, 0);
    EXPECT_EQ(source.Open(u"virtual:B"_s)->Identify().legacyNumber, 1);
    EXPECT_EQ(source.Open(u"virtual:C"_s)->Identify().legacyNumber, 2);
}

TEST_F(SourceTest, AnUnpluggedRecorderIsNotListed)
{
    recorders.SetPlugged(u"A"_s, false);
    EXPECT_TRUE(source.Ids().isEmpty());
    const drive::DriveRef gone = source.Open(u"virtual:A"_s);
    ASSERT_TRUE(gone);
    EXPECT_EQ(
        velmora::test::ErrorNumberOf([&] { gone->Identify(); }), Seen(drive::hresult::kDeviceGone));
    recorders.SetPlugged(u"A"_s, true);
    EXPECT_EQ(source.Ids().size(), 1);
}

TEST_F(SourceTest, NoFolderMeansNoRecorder)
{
    VirtualDriveSource empty(Recorders(folder.Path().string() + "/none"), clock, pump);
    EXPECT_TRUE(empty.Ids().isEmpty());
}

} // namespace velmora::virtualdrive::test
