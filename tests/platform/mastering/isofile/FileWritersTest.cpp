// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/isofile/FileWriters.h"

#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "unicode/FileDescriptor.h"

#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace velmora::test {

using namespace Qt::StringLiterals;
using mastering::WriterOf;
using unicode::FileDescriptor;

namespace {

/// Another process, with the descriptors that this one has open now.
class OtherProcess {
public:
    OtherProcess()
        : number_(fork())
    {
        while (number_ == 0) {
            pause();
        }
    }
    ~OtherProcess()
    {
        kill(number_, SIGKILL);
        waitpid(number_, nullptr, 0);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    pid_t Number() const { return number_; }

private:
    pid_t number_;
};

class FileWritersTest : public testing::Test {
protected:
    FileDescriptor Open(int flags) const { return FileDescriptor(::open(path.c_str(), flags)); }

    /// Whether another user, who gets no lease on the file, sees a writer: another process of that
    /// user that has the file open as this one has.
    bool IsWriterSeenByAnotherUser() const
    {
        constexpr uid_t kNobody = 65534;
        const pid_t child = fork();
        if (child == 0) {
            bool isSeen = false;
            if (setuid(kNobody) == 0 && prctl(PR_SET_DUMPABLE, 1) == 0) {
                const OtherProcess other;
                isSeen = WriterOf(reader.Get()).has_value();
            }
            _exit(int {isSeen});
        }
        int status = 0;
        return waitpid(child, &status, 0) == child && WEXITSTATUS(status) == 1;
    }

    TemporaryFolder folder;
    std::filesystem::path path = folder.MakeFile("disc.iso", 4096);
    FileDescriptor reader = Open(O_RDONLY);
};

} // namespace

TEST_F(FileWritersTest, AFileThatIsOnlyReadHasNoWriter)
{
    const OtherProcess another;
    EXPECT_EQ(WriterOf(reader.Get()), std::nullopt);
}

TEST_F(FileWritersTest, AWriterIsNamedForAsLongAsItHasTheFileOpen)
{
    for (const int flags : {O_WRONLY, O_RDWR, O_WRONLY | O_APPEND}) {
        {
            FileDescriptor writer = Open(flags);
            const OtherProcess other;
            writer.Reset();
            const std::optional<QString> found = WriterOf(reader.Get());
            ASSERT_TRUE(found);
            EXPECT_TRUE(found->startsWith(u"le programme « "_s)) << found->toStdString();
            EXPECT_TRUE(found->endsWith(u" » (processus %1)"_s.arg(other.Number())))
                << found->toStdString();
        }
        EXPECT_EQ(WriterOf(reader.Get()), std::nullopt);
    }
}

TEST_F(FileWritersTest, AWriterOfAnotherFileDoesntCount)
{
    const std::filesystem::path other = folder.MakeFile("other.iso", 4096);
    const FileDescriptor writer(::open(other.c_str(), O_WRONLY));
    const OtherProcess process;
    EXPECT_EQ(WriterOf(reader.Get()), std::nullopt);
}

TEST_F(FileWritersTest, AWriterThatHidesIsSeenAllTheSame)
{
    const FileDescriptor writer = Open(O_WRONLY); // this process' own: no other has it
    EXPECT_EQ(WriterOf(reader.Get()), u"un autre programme"_s);
}

TEST_F(FileWritersTest, OnSomebodyElsesFileAWriterIsSeenThroughItsProcess)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    EXPECT_FALSE(IsWriterSeenByAnotherUser());
    const FileDescriptor writer = Open(O_WRONLY);
    EXPECT_TRUE(IsWriterSeenByAnotherUser());
}

TEST_F(FileWritersTest, TheFileCanBeWrittenAsSoonAsTheQuestionIsAnswered)
{
    EXPECT_EQ(WriterOf(reader.Get()), std::nullopt);
    EXPECT_TRUE(Open(O_WRONLY | O_NONBLOCK)); // a lease that was kept would refuse it
}

} // namespace velmora::test
