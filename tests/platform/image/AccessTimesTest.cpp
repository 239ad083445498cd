// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/ImageFile.h"
#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

/// A folder with a file whose access times lie before their last change: the next access would
/// update them.
class AccessTimesTest : public ImageBench {
protected:
    AccessTimesTest()
    {
        Write("top/large", std::string(200'000, 'x'));
        Write("top/small", "x");
        for (const char* const name : {"top/large", "top/small", "top"}) {
            const timespec times[2] {kAccessed, {kMoment.seconds, 0}};
            EXPECT_EQ(::utimensat(AT_FDCWD, (folder / name).c_str(), times, 0), 0);
        }
    }

    time_t AccessOf(const std::string& name) const
    {
        struct stat status { };
        EXPECT_EQ(::stat((folder / name).c_str(), &status), 0);
        return status.st_atim.tv_sec;
    }

    static constexpr timespec kAccessed {1'000'000'000, 0};
};

TEST_F(AccessTimesTest, AnImageLeavesThoseOfItsSourcesAlone)
{
    Scan(folder / "top");
    ASSERT_TRUE(WriteImageFile(Plan(), folder / "out.iso"));
    for (const char* const name : {"top/large", "top/small", "top"}) {
        EXPECT_EQ(AccessOf(name), kAccessed.tv_sec) << name;
    }
}

TEST_F(AccessTimesTest, AStreamLeavesThemAlone)
{
    Scan(folder / "top");
    EXPECT_FALSE(Bytes().empty());
    EXPECT_EQ(AccessOf("top/large"), kAccessed.tv_sec);
}

} // namespace velmora::test
