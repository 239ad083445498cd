// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/WholeTransfers.h"

#include "tests/support/TemporaryFolder.h"
#include "unicode/FileDescriptor.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace velmora::unicode::test {

namespace {

std::span<const std::byte> BytesOf(std::string_view text)
{
    return std::as_bytes(std::span(text.data(), text.size()));
}

class WholeTransfersTest : public testing::Test {
protected:
    std::string Read(std::size_t most, std::uint64_t position) const
    {
        std::string text(most, '?');
        const std::optional<std::size_t> got
            = ReadWhole(file.Get(), std::as_writable_bytes(std::span(text)), position);
        return got ? text.substr(0, *got) : "failed";
    }

    velmora::test::TemporaryFolder folder;
    FileDescriptor file {
        ::open((folder / "file").c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600)};
};

TEST_F(WholeTransfersTest, WhatIsWrittenIsReadBackAtItsPlace)
{
    ASSERT_TRUE(WriteWhole(file.Get(), BytesOf("compact disc"), 0));
    ASSERT_TRUE(WriteWhole(file.Get(), BytesOf("D"), 8));
    EXPECT_EQ(Read(4, 8), "Disc");
    EXPECT_EQ(Read(12, 0), "compact Disc");
}

TEST_F(WholeTransfersTest, WhatIsOnItsWayToTheDiskIsReadAndAwaited)
{
    ASSERT_TRUE(WriteWhole(file.Get(), BytesOf("0123456789"), 0));
    BeginToBringToDisk(file.Get(), {4, 100}); // which the file doesn't have
    EXPECT_EQ(Read(10, 0), "0123456789");
    EXPECT_TRUE(AwaitOnDisk(file.Get(), {4, 100}));
    EXPECT_TRUE(BringToDisk(file.Get()));
}

TEST_F(WholeTransfersTest, WhereNothingGoesToADiskNothingIsAwaited)
{
    std::array<int, 2> ends {};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    const FileDescriptor out(ends[0]);
    const FileDescriptor in(ends[1]);
    EXPECT_TRUE(AwaitOnDisk(in.Get(), {0, 1}));
    EXPECT_FALSE(AwaitOnDisk(-1, {0, 1})) << "no file at all";
}

TEST_F(WholeTransfersTest, APipeTakesAllThoughItHoldsLess)
{
    std::array<int, 2> ends {};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    const FileDescriptor out(ends[0]);
    FileDescriptor in(ends[1]);
    const std::string sent(std::size_t {1} << 20, 'x'); // a pipe holds 64 KiB
    std::thread sender([&] {
        EXPECT_TRUE(WriteOn(in.Get(), BytesOf(sent)));
        EXPECT_TRUE(WriteOn(in.Get(), BytesOf("behind")));
        in.Reset();
    });
    std::string received;
    std::array<char, 1000> part {};
    for (ssize_t got = 0; (got = ::read(out.Get(), part.data(), part.size())) > 0;) {
        received.append(part.data(), static_cast<std::size_t>(got));
    }
    sender.join();
    EXPECT_EQ(received, sent + "behind");
}

TEST_F(WholeTransfersTest, AFileThatEndsGivesWhatItHas)
{
    ASSERT_TRUE(WriteWhole(file.Get(), BytesOf("disc"), 0));
    EXPECT_EQ(Read(10, 1), "isc");
    EXPECT_EQ(Read(10, 4), "");
    EXPECT_EQ(Read(10, 400), "");
    EXPECT_EQ(Read(0, 0), "");
}

TEST_F(WholeTransfersTest, FailuresAreTold)
{
    const FileDescriptor readOnly(::open((folder / "file").c_str(), O_RDONLY | O_CLOEXEC));
    EXPECT_FALSE(WriteWhole(readOnly.Get(), BytesOf("disc"), 0));
    EXPECT_EQ(errno, EBADF);
    const FileDescriptor directory(
        ::open(folder.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::array<std::byte, 8> bytes {};
    EXPECT_FALSE(ReadWhole(directory.Get(), bytes, 0));
    EXPECT_EQ(errno, EISDIR);
}

TEST_F(WholeTransfersTest, AFullDiskIsKnownByItsErrors)
{
    EXPECT_TRUE(IsDiskFull(ENOSPC));
    EXPECT_TRUE(IsDiskFull(EDQUOT));
    EXPECT_FALSE(IsDiskFull(EFBIG));
    EXPECT_FALSE(IsDiskFull(EIO));
    const FileDescriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
    ASSERT_TRUE(full);
    EXPECT_FALSE(WriteWhole(full.Get(), BytesOf("disc"), 0));
    EXPECT_TRUE(IsDiskFull(errno));
    EXPECT_FALSE(WriteOn(full.Get(), BytesOf("disc")));
    EXPECT_TRUE(IsDiskFull(errno));
}

TEST_F(WholeTransfersTest, ADescriptorIsClosedWithItsOwner)
{
    const int number = file.Get();
    FileDescriptor owner(std::move(file));
    EXPECT_EQ(owner.Get(), number);
    EXPECT_TRUE(WriteWhole(number, BytesOf("disc"), 0));
    owner.Reset();
    EXPECT_FALSE(owner);
    EXPECT_EQ(::fcntl(number, F_GETFD), -1);
}

} // namespace

} // namespace velmora::unicode::test
