// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/image/ImageBench.h"

#include <sys/wait.h>

#include <climits>

namespace velmora::test {

using namespace image;

namespace {

constexpr uid_t kNobody = 65534;

/// Runs the current test again in a process without root's rights, since root can read everything.
/// Its temporary folders lie in the one given.
/// @return whether that was done; then the outcome is the caller's
bool RanUnprivileged(const TemporaryFolder& folder)
{
    if (::geteuid() != 0) {
        return false;
    }
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    const std::string filter
        = std::string("--gtest_filter=") + test.test_suite_name() + "." + test.name();
    const int program = ::open("/proc/self/exe", O_RDONLY);
    EXPECT_EQ(::chown(folder.Path().c_str(), kNobody, kNobody), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::setenv("TMPDIR", folder.Path().c_str(), 1);
        std::string name = "platform_image_test";
        std::string argument = filter;
        char* const arguments[] {name.data(), argument.data(), nullptr};
        if (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0) {
            ::fexecve(program, arguments, environ);
        }
        ::_exit(127);
    }
    ::close(program);
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "the test failed without root's rights";
    return true;
}

} // namespace

class UnreadableSourceTest : public ImageBench {
protected:
    void Forbid(const std::string& name) const
    {
        ASSERT_EQ(::chmod((folder / name).c_str(), 0), 0);
    }
    void Allow(const std::string& name) const
    {
        ASSERT_EQ(::chmod((folder / name).c_str(), S_IRWXU), 0); // so that it can be removed
    }
};

TEST_F(UnreadableSourceTest, FileWithoutTheRightToReadItIsPassedOver)
{
    if (RanUnprivileged(folder)) {
        return;
    }
    Write("top/secret", "x");
    Write("top/open", "x");
    Forbid("top/secret");

    const ScanReport report = Scan(folder / "top");

    EXPECT_EQ(report.files, 1U);
    ASSERT_EQ(report.leftOut.size(), 1U);
    EXPECT_EQ(report.leftOut[0].kind, ErrorKind::FileNotOpened);
    EXPECT_EQ(report.leftOut[0].path, (folder / "top/secret").native());
    EXPECT_EQ(report.leftOut[0].systemError, EACCES);
}

TEST_F(UnreadableSourceTest, FileWithoutTheRightToReadItIsNotAdded)
{
    if (RanUnprivileged(folder)) {
        return;
    }
    const std::string file = Write("secret", "x");
    Forbid("secret");

    const Result<NodeId> added = tree->AddFile("a", file);

    ASSERT_FALSE(added);
    EXPECT_EQ(added.Failure().kind, ErrorKind::FileNotOpened);
    EXPECT_EQ(added.Failure().path, file);
}

TEST_F(UnreadableSourceTest, FolderWithoutTheRightToListItIsPassedOver)
{
    if (RanUnprivileged(folder)) {
        return;
    }
    Write("top/closed/x", "x");
    Write("top/open", "x");
    Forbid("top/closed");

    const ScanReport report = Scan(folder / "top");
    Allow("top/closed");

    EXPECT_EQ(report.directories, 0U);
    EXPECT_FALSE(tree->FindPath("closed"));
    ASSERT_EQ(report.leftOut.size(), 1U);
    EXPECT_EQ(report.leftOut[0].kind, ErrorKind::DirectoryUnreadable);
    EXPECT_EQ(report.leftOut[0].path, (folder / "top/closed").native());
}

TEST_F(UnreadableSourceTest, FolderItselfThatCannotBeListedIsAnError)
{
    if (RanUnprivileged(folder)) {
        return;
    }
    AddDirectory("before");
    Write("closed/x", "x");
    Forbid("closed");

    const Result<ScanReport> report
        = ScanFolder(*tree, SourceTree::kRoot, (folder / "closed").native(), IncludeBase::Yes);
    Allow("closed");

    ASSERT_FALSE(report);
    EXPECT_EQ(report.Failure().kind, ErrorKind::DirectoryUnreadable);
    EXPECT_EQ(report.Failure().systemError, EACCES);
    EXPECT_EQ((*tree)[SourceTree::kRoot].childCount, 1U); // as it was
}

TEST_F(UnreadableSourceTest, FileThatBecameUnreadableFailsTheRead)
{
    if (RanUnprivileged(folder)) {
        return;
    }
    AddFile("file", "content");
    ImageStream stream(Plan());
    Forbid("source/file");
    std::string bytes(stream.Size(), '\0');

    const Result<> read = stream.Read(0, std::as_writable_bytes(std::span(bytes)));

    ASSERT_FALSE(read);
    EXPECT_EQ(read.Failure().kind, ErrorKind::FileNotOpened);
    EXPECT_EQ(read.Failure().path, (folder / "source/file").native());
    EXPECT_EQ(read.Failure().systemError, EACCES);
}

/// A folder so deep that its path is longer than the kernel takes.
class LongPathTest : public ImageBench {
protected:
    LongPathTest()
    {
        top = folder.MakeFolder("top");
        int directory = ::open(top.c_str(), O_RDONLY | O_DIRECTORY);
        const std::string name(200, 'd');
        for (int i = 0; i < 25; ++i) {
            EXPECT_EQ(::mkdirat(directory, name.c_str(), S_IRWXU), 0);
            const int inner = ::openat(directory, name.c_str(), O_RDONLY | O_DIRECTORY);
            ::close(directory);
            directory = inner;
        }
        const int file = ::openat(directory, "file", O_WRONLY | O_CREAT, kFileMode);
        EXPECT_EQ(::write(file, "far below", 9), 9);
        ::close(file);
        ::close(directory);
    }

    std::filesystem::path top;
};

TEST_F(LongPathTest, FileBelowALongPathIsScannedAndRead)
{
    const ScanReport report = Scan(top);
    ASSERT_TRUE(report.leftOut.empty());
    ASSERT_EQ(report.files, 1U);
    Choose(false, false, true);

    const std::string image = Bytes();

    EXPECT_GT(top.native().size() + 25 * 201, std::size_t {PATH_MAX});
    EXPECT_NE(image.find("far below"), std::string::npos);
}

TEST_F(UnreadableSourceTest, FileOfSomebodyElseIsReadThoughItsAccessIsNoted)
{
    if (RanUnprivileged(folder)) {
        return;
    }
    const std::string theirs = "/etc/passwd"; // root's, and everybody reads it
    ASSERT_TRUE(tree->AddFile("PASSWD", theirs));
    EXPECT_NE(Bytes().find(ContentOf(theirs)), std::string::npos);
}

} // namespace velmora::test
