// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/LinkFolder.h"
#include "tests/support/TemporaryFolder.h"
#include "text/PathText.h"

#include <QFileInfo>

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>

namespace velmora::link {

using namespace Qt::StringLiterals;

namespace {

/// A variable of the environment for as long as this lives.
class Variable {
public:
    Variable(const char* name, const std::string& value)
        : name_(name)
        , before_(qgetenv(name))
    {
        qputenv(name, QByteArray::fromStdString(value));
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable()
    {
        if (before_.isNull()) {
            qunsetenv(name_);
        } else {
            qputenv(name_, before_);
        }
    }

private:
    const char* name_;
    QByteArray before_;
};

QString ParentOf(const LinkFolder& folder)
{
    return QFileInfo(text::ToQtPath(folder.Path())).absolutePath();
}

} // namespace

TEST(LinkFolderTest, LiesInTheRunTimeDirectory)
{
    const test::TemporaryFolder runTime;
    const Variable variable("XDG_RUNTIME_DIR", runTime.Path());
    const LinkFolder folder;
    EXPECT_EQ(ParentOf(folder).toStdString(), runTime.Path());
}

TEST(LinkFolderTest, LiesInTheTemporaryDirectoryWithoutARunTimeDirectory)
{
    const test::TemporaryFolder temporary;
    const Variable temp("TMPDIR", temporary.Path());
    for (const std::string runTime : {"", "run", "/nowhere/at/all"}) {
        const Variable variable("XDG_RUNTIME_DIR", runTime);
        EXPECT_EQ(ParentOf(LinkFolder()).toStdString(), temporary.Path()) << runTime;
    }
}

TEST(LinkFolderTest, APathTooLongForASocketIsPassedOver)
{
    const test::TemporaryFolder temporary;
    const Variable temp("TMPDIR", temporary.MakeFolder(std::string(80, 'a')));
    const Variable runTime("XDG_RUNTIME_DIR", temporary.MakeFolder(std::string(80, 'b')));
    EXPECT_EQ(ParentOf(LinkFolder()).toStdString(), "/tmp");
}

TEST(LinkFolderTest, ARunTimeDirectoryThatOthersMayWriteIsPassedOver)
{
    using std::filesystem::perms;
    const test::TemporaryFolder temporary;
    const test::TemporaryFolder runTime;
    const Variable temp("TMPDIR", temporary.Path());
    const Variable variable("XDG_RUNTIME_DIR", runTime.Path());
    for (const perms others : {perms::group_write, perms::others_write}) {
        std::filesystem::permissions(runTime.Path(), perms::owner_all | others);
        EXPECT_EQ(ParentOf(LinkFolder()).toStdString(), temporary.Path());
    }
    std::filesystem::permissions(runTime.Path(), perms::all | perms::sticky_bit);
    EXPECT_EQ(ParentOf(LinkFolder()).toStdString(), runTime.Path());
}

TEST(LinkFolderTest, ARunTimeDirectoryOfAnotherUserIsPassedOver)
{
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root gives a folder away";
    }
    const test::TemporaryFolder temporary;
    const test::TemporaryFolder runTime;
    const Variable temp("TMPDIR", temporary.Path());
    const Variable variable("XDG_RUNTIME_DIR", runTime.Path());
    ASSERT_EQ(::chown(runTime.Path().c_str(), 65534, 65534), 0);
    EXPECT_EQ(ParentOf(LinkFolder()).toStdString(), temporary.Path());
}

TEST(LinkFolderTest, AFolderThatTookItsPlaceIsLeftAlone)
{
    const test::TemporaryFolder runTime;
    const Variable variable("XDG_RUNTIME_DIR", runTime.Path());
    std::optional<LinkFolder> folder(std::in_place);
    const std::filesystem::path path = folder->Path().Bytes();
    std::filesystem::rename(path, runTime / "moved");
    std::filesystem::create_directory(path);
    std::ofstream(path / "precious") << "not ours";

    folder.reset();

    EXPECT_TRUE(std::filesystem::exists(path / "precious"));
}

TEST(LinkFolderTest, IsOpenToTheUserAlone)
{
    using std::filesystem::perms;
    const LinkFolder folder;
    EXPECT_EQ(std::filesystem::status(folder.Path().Bytes()).permissions(), perms::owner_all);
}

TEST(LinkFolderTest, GoesWithAllThatIsInIt)
{
    std::optional<LinkFolder> folder(std::in_place);
    const std::filesystem::path path = folder->Path().Bytes();
    std::ofstream(path / "StopButton-Undo") << "left behind";
    EXPECT_TRUE(folder->HasService(u"StopButton|Undo"_s));
    folder.reset();
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(LinkFolderTest, EachIsAnother)
{
    const LinkFolder one;
    const LinkFolder other;
    EXPECT_NE(one.Path(), other.Path());
    EXPECT_FALSE(one.HasService(u"StopButton|Undo"_s));
}

} // namespace velmora::link
