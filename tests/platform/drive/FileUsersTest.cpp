// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/FileUsers.h"

#include "tests/support/TemporaryFolder.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

namespace velmora::test {

using drive::FileUser;
using drive::InUseBy;
using drive::UsersOf;
using namespace Qt::StringLiterals;

/// The system's folder of processes, with only what concerns open files.
class FileUsersTest : public testing::Test {
protected:
    void Run(int process, const std::string& program, const std::string& file, int handle = 3)
    {
        const std::filesystem::path own = processes / std::to_string(process);
        std::filesystem::create_directories(own / "fd");
        std::filesystem::create_directories(own / "fdinfo");
        std::filesystem::create_symlink(file, own / "fd" / std::to_string(handle));
        std::ofstream(own / "fdinfo" / std::to_string(handle)) << "pos:\t" << process << '\n';
        std::ofstream(own / "comm") << program << '\n';
    }
    QString Processes() const { return QString::fromStdString(processes); }

    TemporaryFolder folder;
    std::filesystem::path processes = folder / "proc";
};

TEST_F(FileUsersTest, ProgramsThatHaveTheFileOpenAreNamed)
{
    Run(4711, "brasero", "/dev/sr0");
    Run(815, "vlc", "/dev/sr0", 7);
    Run(900, "bash", "/dev/pts/0");
    std::filesystem::create_directories(processes / "sys" / "fd");

    const QList<FileUser> expected {{u"vlc"_s, 815}, {u"brasero"_s, 4711}};
    EXPECT_EQ(UsersOf(u"/dev/sr0"_s, Processes()), expected);
    EXPECT_TRUE(UsersOf(u"/dev/sr1"_s, Processes()).isEmpty());
}

TEST_F(FileUsersTest, ThisProgramIsNoOther)
{
    Run(getpid(), "velmora", "/dev/sr0");

    EXPECT_TRUE(UsersOf(u"/dev/sr0"_s, Processes()).isEmpty());
}

TEST_F(FileUsersTest, AFilterSaysWhichHandlesCount)
{
    Run(1, "one", "/dev/sr0");
    Run(2, "two", "/dev/sr0");

    const QList<FileUser> users = UsersOf(u"/dev/sr0"_s, Processes(), [](const QByteArray& facts) {
        return facts.contains("pos:\t2");
    });

    EXPECT_EQ(users, (QList<FileUser> {{u"two"_s, 2}}));
}

TEST_F(FileUsersTest, AProgramOfThisSystemIsFound)
{
    const std::string file = std::filesystem::canonical(folder.Path()) / "device";
    std::ofstream(file) << 'x';
    std::array<int, 2> ready {};
    ASSERT_EQ(pipe(ready.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        open(file.c_str(), O_RDONLY);
        write(ready[1], "x", 1);
        pause();
        _exit(0);
    }
    char sign = 0;
    ASSERT_EQ(read(ready[0], &sign, 1), 1);

    const QList<FileUser> users = UsersOf(QString::fromStdString(file));

    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    ASSERT_EQ(users.size(), 1);
    EXPECT_EQ(users.first().process, child);
    EXPECT_FALSE(users.first().program.isEmpty());
}

TEST_F(FileUsersTest, APersonIsToldOfThreeAtMost)
{
    const QList<FileUser> users {{u"brasero"_s, 1}, {u"vlc"_s, 2}, {u"100%1"_s, 3}, {u"k3b"_s, 4}};

    EXPECT_EQ(InUseBy(users.first(1)),
        u"Le graveur est utilisé par « brasero » (processus 1) : fermez ce programme, puis "
        "recommencez."_s);
    EXPECT_EQ(InUseBy(users),
        u"Le graveur est utilisé par « brasero » (processus 1), « vlc » (processus 2) et « 100%1 » "
        "(processus 3) : fermez ces programmes, puis recommencez."_s);
}

} // namespace velmora::test
