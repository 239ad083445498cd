// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/base/ImageErrors.h"

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

} // namespace velmora::test
