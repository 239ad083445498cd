// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/FileWriter.h"

#include "tests/support/TemporaryFolder.h"
#include "unicode/FileDescriptor.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace velmora::test {

using unicode::FileDescriptor;
using unicode::FileWriter;

namespace {

class FileWriterTest : public testing::Test {
protected:
    FileDescriptor Open(int flags) const
    {
        return FileDescriptor(::open(path.c_str(), flags | O_CLOEXEC));
    }

    /// What a process of another user, who gets no lease on the file, sees of a writer: 1 for
    /// itself, 0 for none.
    int WriterAsAnotherUser() const
    {
        constexpr uid_t kNobody = 65534;
        const pid_t child = fork();
        if (child == 0) {
            const bool isOther = setuid(kNobody) == 0 && prctl(PR_SET_DUMPABLE, 1) == 0;
            const std::optional<FileWriter> found = unicode::FindWriterOf(reader.Get());
            _exit(!isOther ? 2 : int {found && found->process == getpid()});
        }
        int status = 0;
        return waitpid(child, &status, 0) == child ? WEXITSTATUS(status) : -1;
    }

    TemporaryFolder folder;
    std::filesystem::path path = folder.MakeFile("disc.iso", 4096);
    FileDescriptor reader = Open(O_RDONLY);
};

} // namespace

TEST_F(FileWriterTest, AFileThatIsOnlyReadHasNoWriter)
{
    const FileDescriptor another = Open(O_RDONLY);
    EXPECT_FALSE(unicode::FindWriterOf(reader.Get()));
}

TEST_F(FileWriterTest, AWriterIsNamedForAsLongAsItHasTheFileOpen)
{
    for (const int flags : {O_WRONLY, O_RDWR, O_WRONLY | O_APPEND}) {
        FileDescriptor writer = Open(flags);
        const std::optional<FileWriter> found = unicode::FindWriterOf(reader.Get());
        ASSERT_TRUE(found);
        EXPECT_EQ(found->process, getpid());
        EXPECT_FALSE(found->program.empty());
        writer.Reset();
        EXPECT_FALSE(unicode::FindWriterOf(reader.Get()));
    }
}

TEST_F(FileWriterTest, AWriterOfAnotherFileDoesntCount)
{
    const std::filesystem::path other = folder.MakeFile("other.iso", 4096);
    const FileDescriptor writer(::open(other.c_str(), O_WRONLY | O_CLOEXEC));
    EXPECT_FALSE(unicode::FindWriterOf(reader.Get()));
}

TEST_F(FileWriterTest, OnSomebodyElsesFileAWriterIsSeenThroughItsProcess)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    EXPECT_EQ(WriterAsAnotherUser(), 0);
    const FileDescriptor writer = Open(O_WRONLY);
    EXPECT_EQ(WriterAsAnotherUser(), 1);
}

TEST_F(FileWriterTest, TheFileCanBeWrittenAsSoonAsTheQuestionIsAnswered)
{
    EXPECT_FALSE(unicode::FindWriterOf(reader.Get()));
    const FileDescriptor writer(::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
    EXPECT_TRUE(writer); // a lease that was kept would refuse it
}

} // namespace velmora::test
