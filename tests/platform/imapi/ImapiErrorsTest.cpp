// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ImapiErrors.h"

#include "ErrorNumberOf.h"
#include "QtPrinters.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace velmora::test {

using namespace Qt::StringLiterals;

TEST(ImapiErrorsTest, AFailureOfTheWriterIsRaisedWithItsNumberAndFrenchWords)
{
    try {
        imapi::Raise({image::ErrorKind::FileNotOpened, "/home/u/a.txt", EACCES});
        FAIL() << "nothing was raised";
    } catch (const runtime::RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), -1062555350);
        EXPECT_EQ(failure.Description(),
            u"« /home/u/a.txt » : Ouverture du fichier impossible. (droits insuffisants)"_s);
    }
}

TEST(ImapiErrorsTest, AFullDiskHasTheNumberOfAFullMedium)
{
    EXPECT_EQ(ErrorNumberOf([] { imapi::Raise({image::ErrorKind::DiskFull}); }), -2147286928);
}

TEST(ImapiErrorsTest, APublishedCodeHasItsDescription)
{
    const runtime::RuntimeError failure = imapi::PublishedError(imapi::hresult::kReadOnly);

    EXPECT_EQ(failure.Number(), -1062555390);
    EXPECT_EQ(failure.Description(), u"L'image est en lecture seule."_s);
}

TEST(ImapiErrorsTest, ACodeThatTheRuntimeRewritesIsRewritten)
{
    EXPECT_EQ(imapi::PublishedError(imapi::Hresult(0x80070005)).Number(), 70);
    EXPECT_EQ(imapi::PublishedError(imapi::Hresult(0x80070057)).Number(), 5);
}

} // namespace velmora::test
