// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/PublishedCodes.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::drive::test {

using namespace Qt::StringLiterals;

namespace {

TEST(MapHresultTest, FourCodesBecomeClassicNumbersAndAllOthersStay)
{
    EXPECT_EQ(MapHresult(-2147024882), 7);
    EXPECT_EQ(MapHresult(-2147024809), 5);
    EXPECT_EQ(MapHresult(-2147024891), 70);
    EXPECT_EQ(MapHresult(-2147467263), 445);
    EXPECT_EQ(MapHresult(-2147467261), -2147467261);
    EXPECT_EQ(MapHresult(-2147467259), -2147467259);
    EXPECT_EQ(MapHresult(-1062600702), -1062600702);
}

// The published numbers, as the user finds them in a message: signed and in decimal.
TEST(PublishedCodesTest, NamesStandForThePublishedNumbers)
{
    EXPECT_EQ(hresult::kFail, -2147467259);
    EXPECT_EQ(hresult::kDeviceGone, -2147024841);
    EXPECT_EQ(hresult::kCancelled, -1062600702);
    EXPECT_EQ(hresult::kNoSuchModePage, -1062600191);
    EXPECT_EQ(hresult::kNoMedia, -1062600190);
    EXPECT_EQ(hresult::kMediaIncompatible, -1062600189);
    EXPECT_EQ(hresult::kUpsideDown, -1062600188);
    EXPECT_EQ(hresult::kBecomingReady, -1062600187);
    EXPECT_EQ(hresult::kFormatInProgress, -1062600186);
    EXPECT_EQ(hresult::kMediaBusy, -1062600185);
    EXPECT_EQ(hresult::kInvalidModeParameters, -1062600184);
    EXPECT_EQ(hresult::kWriteProtected, -1062600183);
    EXPECT_EQ(hresult::kCommandTimeout, -1062600179);
    EXPECT_EQ(hresult::kRecorderLocked, -1062600176);
    EXPECT_EQ(hresult::kInvalidResponse, -1062599937);
    EXPECT_EQ(hresult::kLossOfStreaming, -1062599936);
    EXPECT_EQ(hresult::kWriteError, -1062599935);
    EXPECT_EQ(hresult::kInvalidMediaState, -1062599678);
    EXPECT_EQ(hresult::kStreamTooLarge, -1062599676);
    EXPECT_EQ(hresult::kMediaNotSupported, -1062599674);
    EXPECT_EQ(hresult::kNotErasable, -2136340220);
    EXPECT_EQ(hresult::kEraseRefused, -2136340219);
    EXPECT_EQ(hresult::kEraseTooLong, -2136340218);
    EXPECT_EQ(hresult::kEraseUnexpectedResponse, -2136340217);
    EXPECT_EQ(hresult::kEraseMediaNotSupported, -1062598391);
    EXPECT_EQ(hresult::kImportReadFailure, -1062555305);
}

// These codes come from drives of every kind: only a real one has a device, a group or a mount.
TEST(PublishedCodesTest, NoCodeSpeaksOfADeviceFile)
{
    for (const qint32 code : {hresult::kAccessDenied, hresult::kRecorderLocked}) {
        const QString description = PublishedError(code).Description();
        for (const QString& word : {u"cdrom"_s, u"mont"_s, u"/dev"_s}) {
            EXPECT_FALSE(description.contains(word)) << description.toStdString();
        }
    }
}

TEST(PublishedCodesTest, ADescriptionForTheCaseAtHandTakesThePlaceOfTheCodes)
{
    const runtime::RuntimeError failure = PublishedError(hresult::kAccessDenied, u"Fermé."_s);
    EXPECT_EQ(failure.Description(), u"Fermé."_s);
    EXPECT_EQ(failure.Number(), runtime::error::kPermissionDenied);
}

TEST(PublishedCodesTest, APublishedCodeHasItsDescription)
{
    const runtime::RuntimeError failure = PublishedError(hresult::kReadOnly);

    EXPECT_EQ(failure.Number(), -1062555390);
    EXPECT_EQ(failure.Description(), u"L'image est en lecture seule."_s);
}

TEST(PublishedCodesTest, AFailureOfADriveSaysWhatHappenedAndWhatToDo)
{
    for (const qint32 code : {hresult::kDeviceGone, // gone
             hresult::kNoMedia,                     // no disc
             hresult::kMediaIncompatible,
             hresult::kFormatInProgress,
             hresult::kMediaBusy,
             hresult::kWriteProtected, // write-protected
             hresult::kCommandTimeout,
             hresult::kMediaSpeedMismatch, // speed
             hresult::kLossOfStreaming,    // loss of streaming
             hresult::kWriteError,         // medium error
             hresult::kInvalidMediaState,
             hresult::kStreamNotSupported,
             hresult::kStreamTooLarge, // too large
             hresult::kMediaNotBlank,  // not blank
             hresult::kMediaNotSupported,
             hresult::kRecorderNotSupported,
             hresult::kEraseMediaNotSupported,
             hresult::kEraseRecorderNotSupported,
             hresult::kNotErasable,
             hresult::kEraseRefused,
             hresult::kEraseUnexpectedResponse}) {
        const QStringList parts = PublishedError(code).Description().split(u" : "_s);
        ASSERT_EQ(parts.size(), 2) << std::hex << code;
        EXPECT_FALSE(parts[0].isEmpty()) << std::hex << code;
        EXPECT_TRUE(parts[1].endsWith(u'.')) << std::hex << code;
    }
    EXPECT_EQ(PublishedError(hresult::kNoMedia).Description(),
        u"Aucun média dans le lecteur : insérez un disque."_s);
}

TEST(PublishedCodesTest, ACodeThatTheRuntimeRewritesIsRewritten)
{
    EXPECT_EQ(PublishedError(hresult::kAccessDenied).Number(), 70);
    EXPECT_EQ(PublishedError(hresult::kInvalidArgument).Number(), 5);
}

class DescriptionTest : public testing::TestWithParam<qint32> { };

TEST_P(DescriptionTest, EveryCodeOfADriveHasOneOfItsOwn)
{
    EXPECT_NE(PublishedError(GetParam()).Description(), u"Erreur Automation"_s);
}

INSTANTIATE_TEST_SUITE_P(OfDrives,
    DescriptionTest,
    testing::Values(hresult::kFail,
        hresult::kAccessDenied,
        hresult::kDeviceGone,
        hresult::kCancelled,
        hresult::kNoMedia,
        hresult::kMediaIncompatible,
        hresult::kUpsideDown,
        hresult::kBecomingReady,
        hresult::kFormatInProgress,
        hresult::kMediaBusy,
        hresult::kInvalidModeParameters,
        hresult::kWriteProtected,
        hresult::kCommandTimeout,
        hresult::kRecorderLocked,
        hresult::kInvalidResponse,
        hresult::kLossOfStreaming,
        hresult::kWriteError,
        hresult::kInvalidMediaState,
        hresult::kStreamNotSupported,
        hresult::kStreamTooLarge,
        hresult::kMediaNotSupported,
        hresult::kImportReadFailure,
        hresult::kNotErasable,
        hresult::kEraseRefused,
        hresult::kEraseTooLong,
        hresult::kEraseUnexpectedResponse,
        hresult::kEraseMediaNotSupported));

} // namespace

} // namespace velmora::drive::test
