// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/base/ImageErrors.h"

#include <gtest/gtest.h>

namespace velmora::mastering {

using image::ErrorKind;

TEST(ImageErrorsTest, FailuresAreRaisedUnderThePublishedNumbers)
{
    EXPECT_EQ(PublishedCodeOf(ErrorKind::NotFound), -2147024894);      // 0x80070002
    EXPECT_EQ(PublishedCodeOf(ErrorKind::FileChanged), -1062555352);   // 0xC0AAB128
    EXPECT_EQ(PublishedCodeOf(ErrorKind::NameTaken), -1062555374);     // 0xC0AAB112
    EXPECT_EQ(PublishedCodeOf(ErrorKind::ImageTooLarge), -1062555360); // 0xC0AAB120
    EXPECT_EQ(PublishedCodeOf(ErrorKind::DiskFull), -2147286928);      // 0x80030070
}

TEST(ImageErrorsTest, EveryKindOfFailureHasAFailingNumber)
{
    for (int kind = 0; kind <= static_cast<int>(ErrorKind::Cancelled); ++kind) {
        EXPECT_LT(PublishedCodeOf(static_cast<ErrorKind>(kind)), 0) << kind;
    }
}

} // namespace velmora::mastering
