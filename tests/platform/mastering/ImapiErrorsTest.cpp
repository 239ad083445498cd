// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/PublishedCodes.h"
#include "mastering/ImageErrors.h"

#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace velmora::test {

using namespace Qt::StringLiterals;

TEST(ImapiErrorsTest, AFailureOfTheWriterIsRaisedWithItsNumberAndFrenchWords)
{
    try {
        mastering::Raise({image::ErrorKind::FileNotOpened, "/home/u/a.txt", EACCES});
        FAIL() << "nothing was raised";
    } catch (const runtime::RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), -1062555350);
        EXPECT_EQ(failure.Description(),
            u"« /home/u/a.txt » : Ouverture du fichier impossible. (droits insuffisants)"_s);
    }
}

TEST(ImapiErrorsTest, AFullDiskHasTheNumberOfAFullMedium)
{
    EXPECT_EQ(ErrorNumberOf([] { mastering::Raise({image::ErrorKind::DiskFull}); }), -2147286928);
}

TEST(ImapiErrorsTest, APublishedCodeHasItsDescription)
{
    const runtime::RuntimeError failure = drive::PublishedError(drive::hresult::kReadOnly);

    EXPECT_EQ(failure.Number(), -1062555390);
    EXPECT_EQ(failure.Description(), u"L'image est en lecture seule."_s);
}

TEST(ImapiErrorsTest, AFailureOfADriveSaysWhatHappenedAndWhatToDo)
{
    for (const quint32 code : {0x80070037U, // gone
             0xC0AA0202U,                   // no disc
             0xC0AA0203U,
             0xC0AA0206U,
             0xC0AA0207U,
             0xC0AA0209U, // write-protected
             0xC0AA020DU,
             0xC0AA020FU, // speed
             0xC0AA0300U, // loss of streaming
             0xC0AA0301U, // medium error
             0xC0AA0402U,
             0xC0AA0403U,
             0xC0AA0404U, // too large
             0xC0AA0405U, // not blank
             0xC0AA0406U,
             0xC0AA0407U,
             0xC0AA0909U,
             0xC0AA090AU,
             0x80AA0904U,
             0x80AA0905U,
             0x80AA0907U}) {
        const QStringList parts
            = drive::PublishedError(drive::Hresult(code)).Description().split(u" : "_s);
        ASSERT_EQ(parts.size(), 2) << std::hex << code;
        EXPECT_FALSE(parts[0].isEmpty()) << std::hex << code;
        EXPECT_TRUE(parts[1].endsWith(u'.')) << std::hex << code;
    }
    EXPECT_EQ(drive::PublishedError(drive::hresult::kNoMedia).Description(),
        u"Aucun média dans le lecteur : insérez un disque."_s);
}

TEST(ImapiErrorsTest, ACodeThatTheRuntimeRewritesIsRewritten)
{
    EXPECT_EQ(drive::PublishedError(drive::Hresult(0x80070005)).Number(), 70);
    EXPECT_EQ(drive::PublishedError(drive::Hresult(0x80070057)).Number(), 5);
}

} // namespace velmora::test
