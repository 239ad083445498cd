// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
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

TEST(DriveErrorsTest, SenseDataIsFoundInBothFormsOfMessage)
{
    EXPECT_EQ(drives::SenseIn(u"SCSI error on write(16,16): [3 0C 00] Medium error."_s),
        (Sense {3, 0x0C, 0}));
    EXPECT_EQ(drives::SenseIn(u"See MMC specs: Sense Key 5 \"Illegal request\", ASC 2C ASCQ 0A"_s),
        (Sense {5, 0x2C, 0x0A}));
    EXPECT_EQ(drives::SenseIn(u"Burn run failed"_s), std::nullopt);
}

TEST(DriveErrorsTest, SenseDataBecomesThePublishedCode)
{
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x3A, 1}), code::kNoMedia);
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x04, 1}), code::kBecomingReady);
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x04, 4}), code::kFormatInProgress);
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x04, 8}), code::kDriveBusy);
    EXPECT_EQ(drives::CodeOf(Sense {5, 0x30, 5}), code::kMediaIncompatible);
    EXPECT_EQ(drives::CodeOf(Sense {7, 0x27, 0}), code::kWriteProtected);
    EXPECT_EQ(drives::CodeOf(Sense {3, 0x0C, 9}), code::kLossOfStreaming);
    EXPECT_EQ(drives::CodeOf(Sense {3, 0x0C, 0}), code::kWriteError);
    EXPECT_EQ(drives::CodeOf(Sense {4, 0x44, 0}), code::kWriteError);
    EXPECT_EQ(drives::CodeOf(Sense {5, 0x63, 0}), code::kStreamTooLarge);
    EXPECT_EQ(drives::CodeOf(Sense {5, 0x26, 0}), code::kInvalidModeParameters);
    EXPECT_EQ(drives::CodeOf(Sense {1, 0x17, 0}), code::kInvalidResponse);
}

TEST(DriveErrorsTest, TheLibrarysNumbersBecomeThePublishedCode)
{
    const auto of = [](quint32 number) { return drives::CodeOf(Said(number, u""_s), Task::Write); };
    EXPECT_EQ(of(0x00020001), code::kLocked);
    EXPECT_EQ(of(0x000201a6), code::kDeviceGone);
    EXPECT_EQ(of(0x000201a7), code::kTimeout);
    EXPECT_EQ(of(0x0002013a), code::kInvalidMediaState);
    EXPECT_EQ(of(0x00020130), code::kNotErasable);
    EXPECT_EQ(of(0x00020168), code::kMediaIncompatible);
    EXPECT_EQ(of(0x00029999), code::kFail);
    EXPECT_EQ(drives::CodeOf(Said(0x00020005, u"Failed to open"_s, EACCES), Task::Look),
        code::kAccessDenied);
}

TEST(DriveErrorsTest, WhoHasNoRightIsToldWhichGroupGivesIt)
{
    EXPECT_TRUE(drives::DriveError(code::kAccessDenied).Description().contains(u"« cdrom »"_s));
}

TEST(DriveErrorsTest, EveryCodeHasADescriptionOfItsOwn)
{
    for (const quint32 published : {code::kFail,
             code::kAccessDenied,
             code::kDeviceGone,
             code::kCancelled,
             code::kNoMedia,
             code::kMediaIncompatible,
             code::kBecomingReady,
             code::kFormatInProgress,
             code::kDriveBusy,
             code::kInvalidModeParameters,
             code::kWriteProtected,
             code::kTimeout,
             code::kLocked,
             code::kInvalidResponse,
             code::kLossOfStreaming,
             code::kWriteError,
             code::kInvalidMediaState,
             code::kStreamNotSupported,
             code::kStreamTooLarge,
             code::kMediaNotSupported,
             code::kUnreadable,
             code::kNotErasable,
             code::kEraseRefused,
             code::kEraseTooLong,
             code::kEraseFailed}) {
        EXPECT_NE(drives::DriveError(published).Description(), u"Erreur Automation"_s) << published;
    }
}

} // namespace velmora::test
