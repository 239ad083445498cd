// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/SenseData.h"
#include "drive/PublishedCodes.h"
#include "drives/Messages.h"
#include "tests/platform/drives/DriveBench.h"

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <vector>

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
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x3A, 1}, Task::Write), drive::hresult::kNoMedia);
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x04, 1}, Task::Write), drive::hresult::kBecomingReady);
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x04, 4}, Task::Write), drive::hresult::kFormatInProgress);
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x04, 8}, Task::Write), drive::hresult::kMediaBusy);
    EXPECT_EQ(drives::CodeOf(Sense {5, 0x30, 5}, Task::Write), drive::hresult::kMediaIncompatible);
    EXPECT_EQ(drives::CodeOf(Sense {7, 0x27, 0}, Task::Write), drive::hresult::kWriteProtected);
    EXPECT_EQ(drives::CodeOf(Sense {3, 0x0C, 9}, Task::Write), drive::hresult::kLossOfStreaming);
    EXPECT_EQ(drives::CodeOf(Sense {3, 0x0C, 0}, Task::Write), drive::hresult::kWriteError);
    EXPECT_EQ(drives::CodeOf(Sense {4, 0x44, 0}, Task::Write), drive::hresult::kWriteError);
    EXPECT_EQ(drives::CodeOf(Sense {5, 0x63, 0}, Task::Write), drive::hresult::kStreamTooLarge);
    EXPECT_EQ(
        drives::CodeOf(Sense {5, 0x26, 0}, Task::Write), drive::hresult::kInvalidModeParameters);
    EXPECT_EQ(drives::CodeOf(Sense {1, 0x17, 0}, Task::Write), drive::hresult::kInvalidResponse);
}

TEST(SenseDataTest, OnlyInAWriteADefectIsAWriteError)
{
    EXPECT_EQ(drives::CodeOf(Sense {3, 0x11, 0}, Task::Look), drive::hresult::kImportReadFailure);
    EXPECT_EQ(drives::CodeOf(Sense {4, 0x44, 0}, Task::Look), drive::hresult::kInvalidResponse);
    EXPECT_EQ(drives::CodeOf(Sense {3, 0x73, 3}, Task::Look), drive::hresult::kImportReadFailure);
    EXPECT_EQ(drives::CodeOf(Sense {2, 0x3A, 1}, Task::Look), drive::hresult::kNoMedia);
    EXPECT_EQ(drives::CodeOf(Sense {4, 0x44, 0}, Task::Erase), drive::hresult::kEraseRefused);
    EXPECT_EQ(drives::CodeOf(Sense {7, 0x27, 0}, Task::Erase), drive::hresult::kWriteProtected);
    EXPECT_EQ(drives::CodeOf(Said(0x00020144, u"SCSI error: [4 44 00] Drive error."_s), Task::Look),
        drive::hresult::kInvalidResponse);
}

TEST(SenseDataTest, AKeyWithoutAReasonStillCounts)
{
    EXPECT_EQ(drives::CodeOf(Sense {2, 0, 0}, Task::Look), drive::hresult::kBecomingReady);
    EXPECT_EQ(drives::CodeOf(Sense {3, 0, 0}, Task::Write), drive::hresult::kWriteError);
    EXPECT_EQ(drives::CodeOf(Sense {7, 0, 0}, Task::Write), drive::hresult::kWriteProtected);
}

TEST(SenseDataTest, SenseBytesAreReadInEachFormAsFarAsTheyGo)
{
    using Bytes = std::vector<std::uint8_t>;
    const auto from = [](Bytes bytes) { return drives::SenseFrom(bytes); };
    Bytes fixed {0xF0, 0, 0xE3, 0, 0, 0, 0, 10, 0, 0, 0, 0, 0x0C, 0x09, 0, 0, 0, 0};
    for (const std::uint8_t code : std::initializer_list<std::uint8_t> {0xF0, 0x70, 0x71}) {
        fixed[0] = code;
        EXPECT_EQ(from(fixed), (Sense {3, 0x0C, 0x09})) << int {code};
    }
    EXPECT_EQ(from({fixed.begin(), fixed.begin() + 13}), (Sense {3, 0x0C, 0}));
    EXPECT_EQ(from({fixed.begin(), fixed.begin() + 8}), (Sense {3, 0, 0}));
    for (const std::uint8_t code : std::initializer_list<std::uint8_t> {0x72, 0x73, 0xF2}) {
        EXPECT_EQ(from({code, 0x02, 0x3A, 0x01, 0, 0, 0, 0}), (Sense {2, 0x3A, 1})) << int {code};
    }
    EXPECT_EQ(from({0x72, 0x05}), (Sense {5, 0, 0}));
    EXPECT_EQ(from({}), Sense {});
}

TEST(SenseDataTest, AFailingDriveIsToldAsOne)
{
    EXPECT_EQ(drives::RefusedQuestion({4, 0x3E, 2}).Description(),
        u"Le graveur signale une panne (04/3E/02) : éteignez-le et rallumez-le, ou prenez-en un "
        "autre."_s);
    EXPECT_EQ(drives::RefusedQuestion({3, 0x11, 0}).Description(),
        u"Lecture du disque impossible : nettoyez-le ou changez de disque."_s);
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
