// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/SenseData.h"
#include "drive/PublishedCodes.h"
#include "drives/Messages.h"
#include "tests/platform/drives/DriveBench.h"

#include <optional>

namespace velmora::test {

using drives::Message;
using drives::Sense;
using drives::Task;

namespace {

Message Said(quint32 number, const QString& text, int systemError = 0)
{
    return {number, systemError, Message::Weight::Failure, text};
}

} // namespace

TEST(SenseDataTest, SenseDataIsFoundInBothFormsOfMessage)
{
    EXPECT_EQ(drives::SenseIn(u"SCSI error on write(16,16): [3 0C 00] Medium error."_s),
        (Sense {3, 0x0C, 0}));
    EXPECT_EQ(drives::SenseIn(u"See MMC specs: Sense Key 5 \"Illegal request\", ASC 2C ASCQ 0A"_s),
        (Sense {5, 0x2C, 0x0A}));
    EXPECT_EQ(drives::SenseIn(u"Burn run failed"_s), std::nullopt);
}

TEST(SenseDataTest, SenseDataBecomesThePublishedCode)
{
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x3A, 1}), drive::hresult::kNoMedia);
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x04, 1}), drive::hresult::kBecomingReady);
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x04, 4}), drive::hresult::kFormatInProgress);
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x04, 8}), drive::hresult::kMediaBusy);
    EXPECT_EQ(drives::CodeOf(Sense {5, 0x30, 5}), drive::hresult::kMediaIncompatible);
    EXPECT_EQ(drives::CodeOf(Sense {7, 0x27, 0}), drive::hresult::kWriteProtected);
    EXPECT_EQ(drives::CodeOf(Sense {3, 0x0C, 9}), drive::hresult::kLossOfStreaming);
    EXPECT_EQ(drives::CodeOf(Sense {3, 0x0C, 0}), drive::hresult::kWriteError);
    EXPECT_EQ(drives::CodeOf(Sense {4, 0x44, 0}), drive::hresult::kWriteError);
    EXPECT_EQ(drives::CodeOf(Sense {5, 0x63, 0}), drive::hresult::kStreamTooLarge);
    EXPECT_EQ(drives::CodeOf(Sense {5, 0x26, 0}), drive::hresult::kInvalidModeParameters);
    EXPECT_EQ(drives::CodeOf(Sense {1, 0x17, 0}), drive::hresult::kInvalidResponse);
}

TEST(SenseDataTest, TheLibrarysNumbersBecomeThePublishedCode)
{
    const auto of = [](quint32 number) { return drives::CodeOf(Said(number, u""_s), Task::Write); };
    EXPECT_EQ(of(0x00020001), drive::hresult::kRecorderLocked);
    EXPECT_EQ(of(0x000201a6), drive::hresult::kDeviceGone);
    EXPECT_EQ(of(0x000201a7), drive::hresult::kCommandTimeout);
    EXPECT_EQ(of(0x0002013a), drive::hresult::kInvalidMediaState);
    EXPECT_EQ(of(0x00020130), drive::hresult::kNotErasable);
    EXPECT_EQ(of(0x00020168), drive::hresult::kMediaIncompatible);
    EXPECT_EQ(of(0x00029999), drive::hresult::kFail);
    EXPECT_EQ(drives::CodeOf(Said(0x00020005, u"Failed to open"_s, EACCES), Task::Look),
        drive::hresult::kAccessDenied);
}

} // namespace velmora::test
