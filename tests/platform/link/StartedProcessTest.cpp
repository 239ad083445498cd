// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/StartedProcess.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TemporaryFolder.h"
#include "text/PathText.h"

#include <QElapsedTimer>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

namespace velmora::link {

using namespace Qt::StringLiterals;
using std::filesystem::perms;

class StartedProcessTest : public testing::Test {
protected:
    text::ProgramPath MakeScript(
        const std::string& text, perms permissions = perms::owner_all) const
    {
        const std::filesystem::path path = folder / "script.sys";
        std::ofstream(path) << text;
        std::filesystem::permissions(path, permissions);
        return text::ToProgramPath(text::NativePath(path.native()));
    }
    static std::string ContentsOf(const std::filesystem::path& path)
    {
        std::ostringstream contents;
        contents << std::ifstream(path).rdbuf();
        return contents.str();
    }
    /// Waits up to ten seconds.
    static void AwaitTheEndOf(const StartedProcess& process)
    {
        QElapsedTimer waited;
        waited.start();
        while (process.IsRunning() && waited.elapsed() < 10'000) {
            usleep(1000); // the system ends it when it has time
        }
    }
    /// Waits up to ten seconds for a file.
    static bool Await(const std::filesystem::path& path)
    {
        QElapsedTimer waited;
        waited.start();
        while (!std::filesystem::exists(path) && waited.elapsed() < 10'000) {
            usleep(1000); // another process makes it, without notice
        }
        return std::filesystem::exists(path);
    }

    test::TemporaryFolder folder;
};

TEST_F(StartedProcessTest, GetsItsArguments)
{
    const text::ProgramPath script
        = MakeScript("#!/bin/sh\necho \"$1|$2\" > \"$3.part\"; mv \"$3.part\" \"$3\"");
    const std::filesystem::path told = folder / "told";
    const StartedProcess process(script, {u"a b"_s, u"é"_s, QString::fromStdString(told)});
    ASSERT_TRUE(Await(told));
    EXPECT_EQ(ContentsOf(told), "a b|é\n");
}

TEST_F(StartedProcessTest, SeesNoFileThatIsOpenHere)
{
    // Like an open drive: new processes inherit it unless that is prevented.
    const int drive = open((folder / "drive").c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_GE(drive, 0);
    const text::ProgramPath script
        = MakeScript("#!/bin/sh\nls -l /proc/$$/fd > \"$1.part\"; mv \"$1.part\" \"$1\"");
    const std::filesystem::path told = folder / "told";
    const StartedProcess process(script, {QString::fromStdString(told)});
    ASSERT_TRUE(Await(told));
    close(drive);
    const std::string files = ContentsOf(told);
    EXPECT_NE(files.find(" 2 -> "), std::string::npos) << files;
    EXPECT_EQ(files.find("/drive"), std::string::npos) << files;
}

TEST_F(StartedProcessTest, IsKnownToHaveEnded)
{
    const text::ProgramPath script = MakeScript("#!/bin/sh\nread line < \"$1\"");
    const std::filesystem::path pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const StartedProcess process(script, {QString::fromStdString(pipe)});
    EXPECT_TRUE(process.IsRunning());
    std::ofstream(pipe) << "end\n";
    AwaitTheEndOf(process);
    EXPECT_FALSE(process.IsRunning());
}

TEST_F(StartedProcessTest, IsKnownToHaveEndedWhereNobodyClearsTheDeadAway)
{
    // As the first process of many containers does: it adopts orphans and never reaps them.
    ASSERT_EQ(prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    const StartedProcess process(MakeScript("#!/bin/sh\nexit 0"), {});
    AwaitTheEndOf(process);
    EXPECT_FALSE(process.IsRunning());
    EXPECT_GT(waitpid(-1, nullptr, 0), 0);
    prctl(PR_SET_CHILD_SUBREAPER, 0);
}

TEST_F(StartedProcessTest, AMissingFileIsError53)
{
    const text::ProgramPath missing
        = text::ToProgramPath(text::NativePath((folder / "none.sys").native()));
    EXPECT_EQ(test::ErrorNumberOf([&] { StartedProcess(missing, {}); }), 53);
    const text::ProgramPath directory
        = text::ToProgramPath(text::NativePath(folder.Path().native()));
    EXPECT_EQ(test::ErrorNumberOf([&] { StartedProcess(directory, {}); }), 53);
}

TEST_F(StartedProcessTest, AFileThatMayNotBeRunIsError70)
{
    const text::ProgramPath script
        = MakeScript("#!/bin/sh\n", perms::owner_read | perms::owner_write);
    EXPECT_EQ(test::ErrorNumberOf([&] { StartedProcess(script, {}); }), 70);
}

TEST_F(StartedProcessTest, AFileThatIsNoProgramIsError5)
{
    const text::ProgramPath noProgram = MakeScript("\x01\x02 no program");
    EXPECT_EQ(test::ErrorNumberOf([&] { StartedProcess(noProgram, {}); }), 5);
}

} // namespace velmora::link
