// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/recorder/BackendsBench.h"

#include <gtest/gtest.h>

namespace velmora::test {

namespace {

/// A kind of disc and what a detection says about it.
struct Case {
    QStringView medium;
    QStringView text;
    bool staysOpen; ///< a session can follow the first one
};

class BackendsAgreeTest : public testing::TestWithParam<Case> {
protected:
    /// Both drives give the same answer, and this one.
    Answer Both()
    {
        EXPECT_EQ(virtualBackend.Look(), emulated.Look());
        return BothAnswer();
    }
    /// The same, for drives that can't be examined.
    Answer BothAnswer()
    {
        const Answer first = virtualBackend.Detect();
        const Answer second = emulated.Detect();
        EXPECT_EQ(first, second);
        return first;
    }
    void InsertInBoth(QStringView key)
    {
        const virtualdrive::MediumFacts* medium = virtualdrive::FindMedium(key);
        ASSERT_NE(medium, nullptr);
        virtualBackend.Insert(*medium);
        emulated.Insert(*medium);
    }
    void WriteToBoth(bool closesDisc, Overwriting overwriting = Overwriting::No)
    {
        virtualBackend.Write(closesDisc, overwriting);
        emulated.Write(closesDisc, overwriting);
    }
    void EraseBoth(bool full = true)
    {
        virtualBackend.Erase(full);
        emulated.Erase(full);
    }

    DriveWorld world;
    VirtualBackend virtualBackend {world};
    EmulatedBackend emulated {world};
};

using OnceTest = BackendsAgreeTest;
using RewritableTest = BackendsAgreeTest;
using OverwritableTest = BackendsAgreeTest;
using ReadOnlyTest = BackendsAgreeTest;

} // namespace

TEST_P(OnceTest, ADiscIsTheSameInBothDrives)
{
    const double capacity
        = static_cast<double>(virtualdrive::FindMedium(GetParam().medium)->capacity) * 2048;
    InsertInBoth(GetParam().medium);
    const Answer blank = Both();
    EXPECT_EQ(blank.text, GetParam().text.toString());
    EXPECT_TRUE(blank.blank);
    EXPECT_EQ(blank.freeBytes, capacity);

    WriteToBoth(false);
    const Answer written = Both();
    EXPECT_FALSE(written.blank);
    EXPECT_EQ(written.imported, GetParam().staysOpen);
    EXPECT_LT(written.freeBytes, capacity);
    if (!GetParam().staysOpen) {
        EXPECT_EQ(written.freeBytes, 0);
        return;
    }
    WriteToBoth(true);
    const Answer closed = Both();
    EXPECT_FALSE(closed.blank);
    EXPECT_FALSE(closed.imported);
    EXPECT_EQ(closed.freeBytes, 0);
}

INSTANTIATE_TEST_SUITE_P(Media,
    OnceTest,
    testing::Values(Case {u"cd-r", u"    CD-R", true},
        Case {u"dvd-r", u"    DVD-R", true},
        Case {u"dvd+r", u"    DVD+R", true},
        Case {u"dvd-r-dl", u"    DVD-R Dual Layer", false},
        Case {u"dvd+r-dl", u"    DVD+R Dual Layer", true},
        Case {u"bd-r", u"    Blue-Ray Disc R", true},
        Case {u"bd-r-dl", u"    Blue-Ray Disc R", true}));

TEST_P(RewritableTest, ADiscIsTheSameInBothDrives)
{
    InsertInBoth(GetParam().medium);
    const Answer blank = Both();
    EXPECT_EQ(blank.text, GetParam().text.toString());
    EXPECT_TRUE(blank.blank);

    WriteToBoth(false);
    const Answer written = Both();
    EXPECT_FALSE(written.blank);
    EXPECT_TRUE(written.imported);

    EraseBoth();
    EXPECT_TRUE(Both().blank);

    WriteToBoth(true);
    EraseBoth(false);
    EXPECT_TRUE(Both().blank);

    WriteToBoth(true);
    const Answer closed = Both();
    EXPECT_FALSE(closed.blank);
    EXPECT_FALSE(closed.imported);
}

INSTANTIATE_TEST_SUITE_P(Media,
    RewritableTest,
    testing::Values(Case {u"cd-rw", u"    CD-RW", true}, Case {u"dvd-rw", u"    DVD-RW", true}));

TEST_P(OverwritableTest, ADiscIsTheSameInBothDrives)
{
    InsertInBoth(GetParam().medium);
    const Answer blank = Both();
    EXPECT_EQ(blank.text, GetParam().text.toString());
    EXPECT_TRUE(blank.blank);

    WriteToBoth(false);
    const Answer written = Both();
    EXPECT_FALSE(written.blank);
    EXPECT_TRUE(written.imported);
    EXPECT_LT(written.freeBytes, blank.freeBytes);

    WriteToBoth(false, Overwriting::Yes);
    EXPECT_FALSE(Both().blank);
    for (const bool full : {false, true}) {
        EraseBoth(full);
        EXPECT_TRUE(Both().blank) << full;
        WriteToBoth(false);
        EXPECT_EQ(Both().imported, full || GetParam().staysOpen);
    }
}

INSTANTIATE_TEST_SUITE_P(Media,
    OverwritableTest,
    testing::Values(Case {u"dvd-ram", u"    DVD-RAM", true},
        Case {u"dvd-rw-ow", u"    DVD-RW", false},
        Case {u"dvd+rw", u"    DVD+RW", true},
        Case {u"bd-re", u"    Blue-Ray Disc RW", true},
        Case {u"bd-re-dl", u"    Blue-Ray Disc RW", true}));

TEST_P(ReadOnlyTest, ADiscIsTheSameInBothDrives)
{
    InsertInBoth(GetParam().medium);
    EXPECT_EQ(Both().text, GetParam().text.toString());
}

INSTANTIATE_TEST_SUITE_P(Media,
    ReadOnlyTest,
    testing::Values(Case {u"cd-rom", u"Le graveur est vide ou le média ne peut être gravé", false},
        Case {u"dvd-rom", u"Le graveur est vide ou le média ne peut être gravé", false},
        Case {u"bd-rom", u"Le graveur est vide ou le média ne peut être gravé", false}));

class StateTest : public BackendsAgreeTest {
protected:
    static const virtualdrive::MediumFacts& Medium(QStringView key)
    {
        return *virtualdrive::FindMedium(key);
    }
    static QString Failure(const char* number)
    {
        return u"Le graveur est vide ou le média n'est pas supporté : erreur "
               u"Une erreur s'est produite: erreur  %1"_s.arg(QLatin1String(number));
    }
};

TEST_F(StateTest, AnEmptyDriveIsTheSameInBoth)
{
    EXPECT_EQ(Both().text, u"Le graveur est vide ou le média ne peut être gravé"_s);
    EXPECT_EQ(virtualBackend.Waited(), 30);
    EXPECT_EQ(emulated.Waited(), 30);
}

TEST_F(StateTest, ADiscInTheOpenTrayIsNotThere)
{
    InsertInBoth(u"dvd+r");
    virtualBackend.Eject();
    emulated.Eject();

    EXPECT_EQ(Both().text, u"Le graveur est vide ou le média ne peut être gravé"_s);
}

TEST_F(StateTest, ADiscWhoseWriteWasStoppedIsNotBlankAndTakesNoMore)
{
    for (const QStringView medium : {u"dvd+r", u"bd-r"}) { // other drives end it, or spoil the disc
        InsertInBoth(medium);
        EXPECT_EQ(virtualBackend.WriteAndStop(), -1062600702);
        EXPECT_EQ(emulated.WriteAndStop(), -1062600702);

        const Answer answer = BothAnswer(); // the two got differently far
        EXPECT_FALSE(answer.blank) << medium.toString().toStdString();
        EXPECT_FALSE(answer.imported) << medium.toString().toStdString();
        EXPECT_EQ(ErrorNumberOf([&] { virtualBackend.Write(true); }), -1062599678);
        EXPECT_EQ(ErrorNumberOf([&] { emulated.Write(true); }), -1062599678)
            << medium.toString().toStdString();
    }
}

TEST_F(StateTest, AProtectedDiscIsDetectedAndRefusesItsWrite)
{
    virtualBackend.Protect(Medium(u"bd-re"));
    emulated.Protect(Medium(u"bd-re"));

    EXPECT_EQ(BothAnswer().text, u"    Blue-Ray Disc RW"_s);
    EXPECT_EQ(ErrorNumberOf([&] { virtualBackend.Write(false); }), -1062600183);
    EXPECT_EQ(ErrorNumberOf([&] { emulated.Write(false); }), -1062600183);
    EXPECT_TRUE(Both().blank);
}

TEST_F(StateTest, ADiscThatNeverGetsReadyIsWaitedForHalfAMinute)
{
    InsertInBoth(u"dvd+r");
    virtualBackend.NeverGetReady();
    emulated.NeverGetReady();

    EXPECT_EQ(BothAnswer().text, Failure("1062600187"));
    EXPECT_EQ(virtualBackend.Waited(), 30);
    EXPECT_EQ(emulated.Waited(), 30);
}

TEST_F(StateTest, ADriveThatIsUnpluggedIsGone)
{
    InsertInBoth(u"dvd+r");
    virtualBackend.Unplug();
    emulated.Unplug();

    EXPECT_EQ(BothAnswer().text, Failure("2147024841"));
}

TEST_F(StateTest, AQuicklyBlankedDvdMinusRwTakesOneSession)
{
    InsertInBoth(u"dvd-rw");
    WriteToBoth(true);
    EraseBoth(false);
    EXPECT_TRUE(Both().blank);

    WriteToBoth(false);
    const Answer written = Both();
    EXPECT_FALSE(written.imported);
    EXPECT_EQ(written.freeBytes, 0);
}

// The library knows no such disc; the virtual drive is ahead of it.
TEST_F(StateTest, ADvdPlusRwOfTwoLayersIsWrittenByTheVirtualDriveOnly)
{
    InsertInBoth(u"dvd+rw-dl");

    EXPECT_EQ(virtualBackend.Detect().text, u"    DVD-RW Dual Layer"_s);
    EXPECT_EQ(emulated.Detect().text, u"Le graveur est vide ou le média ne peut être gravé"_s);
}

} // namespace velmora::test
