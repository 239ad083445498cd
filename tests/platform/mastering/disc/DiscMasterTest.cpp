// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/mastering/RecorderBench.h"

#include <algorithm>

namespace velmora::test {

using DiscMasterTest = RecorderBench;

TEST_F(DiscMasterTest, RealDrivesComeBeforeVirtualOnes)
{
    const auto real = std::make_shared<FakeDriveSource>();
    real->Plug(u"b"_s);
    real->Plug(u"a"_s);
    const auto both = mastering::MasteringOf({real, source}, clock);
    const imapi::DiscMasterRef master = both->CreateDiscMaster();

    ASSERT_EQ(master->Count(), 3);
    EXPECT_EQ(master->Item(0), u"b"_s);
    EXPECT_EQ(master->Item(1), u"a"_s);
    EXPECT_EQ(master->Item(2), u"sr0"_s);
}

TEST_F(DiscMasterTest, AnIndexOutsideTheListIsRefused)
{
    const imapi::DiscMasterRef master = mastering->CreateDiscMaster();

    for (const qint32 index : {-1, 1, 1000}) {
        EXPECT_EQ(ErrorNumberOf([&] { master->Item(index); }), seen::kInvalidArgument) << index;
    }
}

TEST_F(DiscMasterTest, WithoutADriveTheListIsEmpty)
{
    source->drives.clear();
    EXPECT_EQ(mastering->CreateDiscMaster()->Count(), 0);
    EXPECT_EQ(mastering::MasteringOf({}, clock)->CreateDiscMaster()->Count(), 0);
}

TEST_F(DiscMasterTest, ADriveThatGoesMovesNoIndex)
{
    source->Plug(u"sr1"_s);
    const imapi::DiscMasterRef master = mastering->CreateDiscMaster();
    source->drives.erase(source->drives.begin());

    EXPECT_EQ(master->Count(), 2);
    EXPECT_EQ(master->Item(1), u"sr1"_s);
    EXPECT_EQ(mastering->CreateDiscMaster()->Item(1), u"sr1"_s);
}

TEST_F(DiscMasterTest, ADriveThatComesIsListedBehindAllOthers)
{
    source->Plug(u"zeta"_s);
    const QString chosen = mastering->CreateDiscMaster()->Item(1);
    source->Plug(u"beta"_s);
    std::ranges::rotate(source->drives, source->drives.end() - 1);

    const imapi::DiscMasterRef later = mastering->CreateDiscMaster();
    EXPECT_EQ(later->Item(1), chosen);
    EXPECT_EQ(later->Item(2), u"beta"_s);
}

TEST_F(DiscMasterTest, ADriveThatIsGoneFailsAsGone)
{
    const QString gone = mastering->CreateDiscMaster()->Item(0);
    source->drives.clear();

    const imapi::RecorderRef recorder = mastering->CreateDiscRecorder();
    EXPECT_EQ(ErrorNumberOf([&] { recorder->InitializeDiscRecorder(gone); }),
        drive::hresult::kDeviceGone);
}

} // namespace velmora::test
