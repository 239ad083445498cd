// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/base/Error.h"

#include "image/base/Result.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace velmora::test {

using namespace image;

TEST(ErrorTest, SentenceNamesThePathAndTheReason)
{
    EXPECT_EQ(Describe(Error {ErrorKind::FileNotOpened, "/home/marie/lettre", EACCES}),
        "« /home/marie/lettre » : Ouverture du fichier impossible. (droits insuffisants)");
    EXPECT_EQ(Describe(Error {ErrorKind::NoFileSystem}), "Aucun système de fichiers choisi.");
    EXPECT_EQ(Describe(Error {ErrorKind::FileUnreadable, {}, 9999}),
        "Lecture du fichier impossible. (erreur système 9999)");
}

TEST(ErrorTest, PathThatIsNotUtf8StaysReadable)
{
    EXPECT_EQ(Describe(Error {ErrorKind::FileChanged, "a\xFF"}),
        "« a\uFFFD » : Le fichier a changé de taille.");
}

TEST(ErrorTest, EveryKindHasASentence)
{
    for (int kind = 0; kind <= static_cast<int>(ErrorKind::Cancelled); ++kind) {
        const auto each = static_cast<ErrorKind>(kind);
        EXPECT_EQ(Describe(each).back(), '.') << kind;
        if (each != ErrorKind::NotFound) {
            EXPECT_NE(Describe(each), Describe(ErrorKind::NotFound)) << kind; // a row of its own
        }
    }
}

TEST(ResultTest, HoldsAValueOrAnError)
{
    const Result<int> good = 7;
    const Result<int> bad = Error {ErrorKind::Cancelled, "x"};

    ASSERT_TRUE(good);
    EXPECT_EQ(*good, 7);
    ASSERT_FALSE(bad);
    EXPECT_EQ(bad.Failure().kind, ErrorKind::Cancelled);
    EXPECT_TRUE(Result<>()); // nothing to tell
}

} // namespace velmora::test
